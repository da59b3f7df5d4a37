# The commands in README.md and docs/ print what the pages show.
load common

source=$BATS_TEST_DIRNAME/../..

@test "the reference is what the program says" {
    autocli --reference markdown >"$BATS_TEST_TMPDIR/reference.md"
    diff -u "$source/docs/reference.md" "$BATS_TEST_TMPDIR/reference.md" ||
        { echo "If this change is meant, run script/reference."; false; }
}

@test "man shows the pages without a complaint, every command on one of them" {
    pages=$(dirname "$AUTOCLI")/../share/man
    [[ -d $pages ]] || skip "built without lowdown"
    for page in "$pages"/man1/autocli.1.gz "$pages"/man7/dovra.7.gz; do
        same '' "$(man --warnings -E UTF-8 -l "$page" 2>&1 >/dev/null)"
        same '' "$(zcat "$page" | groff -ww -man -z 2>&1)"
        MANWIDTH=200 man -E UTF-8 -l "$page" | col -bx >>"$BATS_TEST_TMPDIR/shown"
    done
    autocli --formatter json --list | jq -r '.[].Command' >"$BATS_TEST_TMPDIR/commands"
    while read -r command; do grep -qE "^ +Usage: autocli $command( |$)" "$BATS_TEST_TMPDIR/shown"; done <"$BATS_TEST_TMPDIR/commands"
}

replay() { "$source/script/replay" --build "$(dirname "$AUTOCLI")/.." "${@/#/$source/}"; }

@test "the pages show what their commands print" {
    pages=("$source"/docs/rehearsals/[a-z]*.md)
    replay README.md docs/lab.md "${pages[@]#"$source/"}"
}

@test "the plug-in alone is built, checked and installed as docs/deploy.md shows" {
    released_only
    CMAKE_BUILD_TYPE=None CMAKE_CXX_COMPILER_LAUNCHER=$(realpath "$BATS_TEST_DIRNAME/compiled-before") \
        replay docs/deploy.md
}

@test "a fleet is made, stays, is mended and lets a host go as docs/fleet.md shows" {
    released_only
    replay docs/fleet.md
}
