# What every scenario uses. $AUTOCLI is the program under test. Each test has its own lab, home and
# temporary directory, so that nothing of the user's is read or written.
bats_require_minimum_version 1.5.0

setup() {
    export AUTOCLI_LAB=$BATS_TEST_TMPDIR/lab HOME=$BATS_TEST_TMPDIR/home TMPDIR=$BATS_TEST_TMPDIR/tmp LC_ALL=C.UTF-8
    unset AUTOCLI_HOST NO_COLOR HISTFILE "${!XDG_@}"
    umask "$(printf %o $((0$(umask) | 022)))" # autocli refuses directories that others may write
    mkdir "$HOME" "$TMPDIR"
    set -o pipefail
}

autocli() { "$AUTOCLI" "$@"; }

# platform: the folder of the libraries that stand in for a host's.
platform() { (cd "$(dirname "$AUTOCLI")/../lib/autocli/platform" && pwd); }

# released_only: skips a test of what ships, which is never what was built with sanitizers.
released_only() { [[ $(nm -D "$PLUGIN") != *__asan* ]] || skip "built with sanitizers"; }

# matches TEXT WANTED: whether they are equal but for what a "*" in WANTED stands for.
# shellcheck disable=SC2053 # WANTED is a pattern
matches() { [[ $1 == ${2//[\\?[(]/\\&} ]]; }

# same WANTED ACTUAL: fails and shows both unless they match. "*" in WANTED matches any string.
same() {
    matches "$2" "$1" || { printf 'wanted: %s\nactual: %s\n' "$1" "$2"; false; }
}

# expect STATUS STDOUT STDERR WORDS...: runs autocli and compares all that it left.
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

# succeed WORDS...: a command whose result is true.
succeed() { expect 0 true '' "$@"; }

# refuse MESSAGE WORDS...: a command that fails with this message and no result.
refuse() { expect 1 '' "$@"; }

# wrong MESSAGE WORDS...: a command line that is refused. unusable: the same of a lab or a host.
wrong() { expect 2 '' "autocli: $1" "${@:2}"; }
unusable() { expect 3 '' "autocli: $1" "${@:2}"; }

# cluster_field NAME [HOST]: one field of `dovra cluster get`.
cluster_field() { autocli --host "${2:-host1}" --formatter json dovra cluster get | jq -r --arg n "$1" '.[$n]'; }

# new_cluster HOST...: a cluster of these hosts, added as far as they are new; $cluster is its UUID.
new_cluster() {
    local host
    autocli dovra cluster new >/dev/null
    cluster=$(cluster_field "Sub-Cluster UUID")
    for host; do
        autocli lab host add --name "$host" >/dev/null
        autocli --host "$host" dovra cluster join -u "$cluster" >/dev/null
    done
}

# hold SECONDS [EXCLUSIVE]: keeps others from writing to the lab, or from reading it as well, for so
# long, or until `release`.
hold() {
    coproc held { python3 -c '
import select, sqlite3, sys
lab = sqlite3.connect(sys.argv[1], isolation_level=None)
lab.execute("BEGIN " + sys.argv[3])
print(flush=True)
select.select([sys.stdin], [], [], float(sys.argv[2]))' "$AUTOCLI_LAB/lab.db" "$1" "${2-IMMEDIATE}"; }
    read -r -u "${held[0]}" _
}
# tamper SQL: changes the store behind the lab's back.
tamper() { python3 -c 'import sqlite3, sys; sqlite3.connect(sys.argv[1], isolation_level=None).executescript(sys.argv[2])' "$AUTOCLI_LAB/lab.db" "$1"; }

release() { eval "exec ${held[1]}>&-"; }

# hosts: the names of the lab's hosts.
hosts() { autocli --formatter csv --no-header --fields Name lab host list | xargs; }

host_uuid() { autocli --formatter json lab host list | jq -r --arg n "$1" '.[] | select(.Name == $n).UUID'; }
