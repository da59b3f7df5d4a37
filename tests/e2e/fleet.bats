# A fleet of hosts, driven from outside.
load common

@test "a fleet is made, stays, is mended and lets a host go as docs/fleet.md shows" {
    released_only
    TREE=$(realpath "$BATS_TEST_DIRNAME/../..") PATH=$(dirname "$AUTOCLI"):$PATH \
        "$BATS_TEST_DIRNAME/run-document" "$BATS_TEST_DIRNAME/../../docs/fleet.md"
}
