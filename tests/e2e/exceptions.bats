# What no plug-in may do.
load common

@test "an exception that no command handles is an internal error and changes nothing" {
    succeed lab host add --name host2
    before=$(autocli --formatter json lab host list)
    while IFS='|' read -r what error; do
        expect 3 '' "autocli: internal error$error" --plugin-dir "$FAULTY_PLUGINS" break --with "$what"
        [[ $(autocli --formatter json lab host list) == "$before" ]]
    done <<'EOF'
error|: an error\nof its own
refusal|: a refusal
number|
EOF
    succeed lab host remove --name host2
    [[ $(ls -A "$AUTOCLI_LAB/hosts") == host1 ]] # nor files of a host that never came
}

@test "a broken plug-in is named" {
    while IFS='|' read -r fault message; do
        FAULT=$fault expect 3 '' "autocli: the plug-in \"$FAULTY_PLUGINS/libfaulty_plugin.so\" $message" --plugin-dir "$FAULTY_PLUGINS" odd
    done <<'EOF'
throws|cannot be loaded: no licence
no node|cannot be loaded: there is no node for the name "odd"
below itself|cannot be loaded: the node "odd" cannot stand below itself
above its parent|cannot be loaded: the node "odd" cannot stand below itself
no input|is broken: "odd" does not say what it takes
no parameter|is broken: "odd" does not say what it takes
no output|is broken: "odd" does not say what it returns
text among records|is broken: "odd" returns what has a list with an element that is none of its type
no record|is broken: "odd" returns what has a list with an element that is none of its type
part of itself|is broken: "odd" returns what contains itself
EOF
    cd "$BATS_TEST_TMPDIR"
    for source in '.globl AutoCli_RegisterNamespaces; .set AutoCli_RegisterNamespaces, 0' \
        '.data; .globl AutoCli_RegisterNamespaces; .type AutoCli_RegisterNamespaces, @object; AutoCli_RegisterNamespaces: .quad 1' ''; do
        mkdir -p plugins
        echo "$source" | g++ -shared -nostdlib -x assembler - -o plugins/libodd.so
        expect 3 '' 'autocli: the plug-in "plugins/libodd.so" cannot be loaded: it has no function AutoCli_RegisterNamespaces' --plugin-dir plugins odd
    done
}

@test "among ten thousand names, the nearest is told" {
    FAULT=many expect 2 '' 'autocli: there is no "name777x"; did you mean "name777", "name7770" or "name7771"? (known here: 10002 names, which --help lists)' --plugin-dir "$FAULTY_PLUGINS" name777x
}
