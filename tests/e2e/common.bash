# Functions for all tests. $AUTOCLI is the program under test. Each test has its own lab, home and temporary
# directory, so that it neither reads nor writes the user's files.
bats_require_minimum_version 1.5.0

setup() {
    export AUTOCLI_LAB=$BATS_TEST_TMPDIR/lab HOME=$BATS_TEST_TMPDIR/home TMPDIR=$BATS_TEST_TMPDIR/tmp LC_ALL=C.UTF-8
    unset AUTOCLI_HOST NO_COLOR HISTFILE "${!XDG_@}"
    umask "$(printf %o $((0$(umask) | 022)))" # autocli refuses directories that others may write
    mkdir "$HOME" "$TMPDIR"
    set -o pipefail
}

autocli() { "$AUTOCLI" "$@"; }

# platform: the directory of the libraries that stand in for a host's.
platform() { (cd "$(dirname "$AUTOCLI")/../lib/autocli/platform" && pwd); }

# released_only: skips a test that a build with sanitizers cannot pass.
released_only() { [[ $(nm -D "$PLUGIN") != *__asan* ]] || skip "built with sanitizers"; }

# matches ACTUAL WANTED: succeeds if they are equal. "*" in WANTED matches any string.
# shellcheck disable=SC2053 # WANTED is a pattern
matches() { [[ $1 == ${2//[\\?[(]/\\&} ]]; }

# same WANTED ACTUAL: fails and prints both unless they match.
same() {
    matches "$2" "$1" || { printf 'wanted: %s\nactual: %s\n' "$1" "$2"; false; }
}

# expect STATUS STDOUT STDERR WORDS...: runs autocli and compares its exit status and output.
expect() {
    local wanted=("$1" "$2" "$3")
    shift 3
    run --separate-stderr autocli "$@"
    [[ $status == "${wanted[0]}" ]] && matches "$output" "${wanted[1]}" &&
        matches "$stderr" "${wanted[2]}" && return
    printf 'autocli %s\n' "$*"
    printf '%s: %s\nwanted: %s\n' status "$status" "${wanted[0]}" output "$output" "${wanted[1]}" \
        stderr "$stderr" "${wanted[2]}"
    return 1
}

# succeed WORDS...: expects a command to succeed with the result true.
succeed() { expect 0 true '' "$@"; }

# refuse MESSAGE WORDS...: expects a command to fail with this message and no result.
refuse() { expect 1 '' "$@"; }

# wrong MESSAGE WORDS...: expects a wrong command line; unusable: expects an unusable lab or host.
wrong() { expect 2 '' "autocli: $1" "${@:2}"; }
unusable() { expect 3 '' "autocli: $1" "${@:2}"; }

# json FILTER WORDS...: runs autocli, and prints what jq's FILTER selects of the result.
json() { autocli --formatter json "${@:2}" | jq -rc "$1"; }

# cluster_field NAME [HOST]: prints one field of `dovra cluster get`.
cluster_field() { json ".[\"$1\"]" --host "${2:-host1}" dovra cluster get; }

# new_cluster HOST...: makes a cluster of host1 and new hosts, and sets $cluster to its UUID.
new_cluster() {
    local host
    autocli dovra cluster new >/dev/null
    cluster=$(cluster_field "Sub-Cluster UUID")
    for host; do
        autocli lab host add --name "$host" >/dev/null
        autocli --host "$host" dovra cluster join -u "$cluster" >/dev/null
    done
}

# hold SECONDS [EXCLUSIVE]: locks the store against writers, or also against readers, until the time has
# passed or `release` is called.
hold() {
    coproc held { python3 -c '
import select, sqlite3, sys
lab = sqlite3.connect(sys.argv[1], isolation_level=None)
lab.execute("BEGIN " + sys.argv[3])
print(flush=True)
select.select([sys.stdin], [], [], float(sys.argv[2]))' "$AUTOCLI_LAB/lab.db" "$1" "${2-IMMEDIATE}"; }
    read -r -u "${held[0]}" _
}
release() { eval "exec ${held[1]}>&-"; }

# tamper SQL: changes the store without autocli.
tamper() {
    python3 -c 'import sqlite3, sys
sqlite3.connect(sys.argv[1], isolation_level=None).executescript(sys.argv[2])' "$AUTOCLI_LAB/lab.db" "$1"
}

# hosts: prints the names of the lab's hosts.
hosts() { autocli --formatter csv --no-header --fields Name lab host list | xargs; }

host_uuid() { json ".[] | select(.Name == \"$1\").UUID" lab host list; }
