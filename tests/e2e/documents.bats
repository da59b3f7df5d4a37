# What stands in docs/ is what happens.
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
    while read -r command; do grep -qE "^ +autocli $command( |$)" "$BATS_TEST_TMPDIR/shown"; done <"$BATS_TEST_TMPDIR/commands"
}

@test "the examples of the README and the recipes of docs/lab.md do what they show" {
    for document in README.md docs/lab.md; do
        PATH=$(dirname "$AUTOCLI"):$PATH "$BATS_TEST_DIRNAME/run-document" "$source/$document"
    done
}

@test "the plug-in alone is built, checked and installed as docs/deploy.md shows" {
    released_only
    TREE=$(realpath "$source") CMAKE_BUILD_TYPE=None \
        CMAKE_CXX_COMPILER_LAUNCHER=$(realpath "$BATS_TEST_DIRNAME/compiled-before") \
        "$BATS_TEST_DIRNAME/run-document" "$source/docs/deploy.md"
}

@test "a fleet is made, stays, is mended and lets a host go as docs/fleet.md shows" {
    released_only
    TREE=$(realpath "$source") PATH=$(dirname "$AUTOCLI"):$PATH "$BATS_TEST_DIRNAME/run-document" "$source/docs/fleet.md"
}

@test "a document that shows something else is found out" {
    document() { printf '## Title\n```console\n%s\n```\n' "$1" >"$BATS_TEST_TMPDIR/d.md"; "$BATS_TEST_DIRNAME/run-document" "$BATS_TEST_TMPDIR/d.md"; }
    a=11111111-1111-4111-8111-111111111111 b=22222222-2222-4222-8222-222222222222
    document $'$ for i in 1 2\n> do echo $i; done\n1\n2\n$ seq 9; (exit 4)\n1\n...\n8\n9\n$ echo $?\n4'
    document $'$ printf "'$a$'\\n'$b$'\\n"\n'$b$'\n'$a$'\n$ echo '$b$'\n'$a$'\n$ date +%FT%T%z\n2000-01-01T00:00:00+0000'
    for wrong in $'$ echo '$a$'\n'$a$'\n$ echo '$a$'\n'$b $'$ printf "'$a$'\\n'$a$'\\n"\n'$a$'\n'$b $'$ echo 1' $'$ true\n1' $'$ echo 1\n2' $'$ seq 3\n...\n2' $'$ echo 1 >&2\n2' \
        $'$ printf "'$a$'\\n'$b$'\\n"\n'$a$'\n'$a $'$ echo '$a$'\n'$b$'\n$ echo '$a$'\n'$b$'\n$ echo '$b$'\n'$b; do
        run document "$wrong"
        [[ $status == 1 ]]
    done
}
