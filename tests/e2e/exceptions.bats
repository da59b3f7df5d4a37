# Plug-ins that are broken, missing or none.
load common

@test "a broken plug-in is named, and what it throws changes nothing" {
    succeed lab host add --name host2
    before=$(autocli --formatter json lab host list)
    plugin="the plug-in \"$FAULTY_PLUGINS/libfaulty_plugin.so\""
    while IFS='|' read -r fault error; do
        FAULT=$fault expect 3 '' "autocli: standard input:1: $error"$'\n'"autocli: standard input:2: $error"$'\nautocli: 2 lines failed' \
            --plugin-dir "$FAULTY_PLUGINS" --keep-going --batch - <<<$'odd\nodd'
        same "$before" "$(autocli --formatter json lab host list)"
    done <<EOF
throws an error|$plugin is broken: "odd" threw "an error\\nof its own"
throws a refusal|$plugin is broken: "odd" threw "a refusal"
throws, reading what is missing|$plugin is broken: "odd" threw "the command read a value of --x that was not given"
throws a number at once|$plugin cannot be loaded: it threw an object that is not a std::exception
input throws|$plugin is broken: "odd" threw an object that is not a std::exception
has no licence|$plugin cannot be loaded: no licence
no node|$plugin cannot be loaded: the node "odd" is null
above its parent|$plugin cannot be loaded: the node "odd" cannot be below itself
early parent|$plugin cannot be loaded: the node "inner" is registered in a namespace under construction
two parents|$plugin cannot be loaded: the node "odd" is registered in another namespace already
bare node|$plugin is broken: "odd" is neither a namespace nor a command
no input|$plugin is broken: "odd" does not declare its parameters
no parameter|$plugin is broken: "odd" does not declare its parameters
no output|$plugin is broken: "odd" does not declare its result
text among records|$plugin is broken: "odd" returns a list with an element of another type
no record|$plugin is broken: "odd" returns a list with an element of another type
no value|$plugin is broken: "odd" returns a field without a value
no value in the pattern|$plugin is broken: "odd" returns a field without a value
part of itself|$plugin is broken: "odd" returns a value that contains itself
EOF
    FAULT='closes itself' expect 0 '' '' --plugin-dir "$FAULTY_PLUGINS" odd
    succeed lab host remove --name host2
    same host1 "$(ls -A "$AUTOCLI_LAB/hosts")" # nor files of a host that never came
}

@test "what a plug-in declares is shown without control characters and as UTF-8" {
    export FAULT='raw strings' TERM=dumb raw=$'odd\e[2J\u009b2J\r\xff'
    cd "$BATS_TEST_TMPDIR"
    echo "'$raw' '$raw'" >lines
    is_shown() { # COMMAND...
        "$@" &>shown || (($? < 3))
        cat -v shown
        grep -aqF 'odd\x1b[2J\x9b2J\r' <(sed 's/\\\([][\\]\)/\1/g' shown) && iconv -f UTF-8 shown >/dev/null &&
            same '' "$(LC_ALL=C.UTF-8 grep -aP '[^\P{Cc}\t]' shown)"
    }
    while IFS='|' read -r -a words; do
        is_shown "$AUTOCLI" --plugin-dir "$FAULTY_PLUGINS" "${words[@]}"
    done <<END
$raw|--help
$raw|$raw|--help
--list
--reference|markdown
$raw|$raw
$raw|$raw|-f|simple
--echo|--batch|lines
END
    for line in '' "'$raw' " "'$raw' '$raw' -" "'$raw' '$raw' '--$raw' "; do
        is_shown "$AUTOCLI" --complete "autocli --plugin-dir $FAULTY_PLUGINS $line"
    done
}

@test "a plug-in that is missing, none or without its function" {
    cd "$BATS_TEST_TMPDIR"
    unusable 'the plug-in directory "plugins" cannot be read: No such file or directory' --plugin-dir plugins --list
    mkdir plugins
    unusable 'there is no plug-in in "plugins"' --plugin-dir plugins --list
    mkfifo plugins/libfifo.so
    mkdir plugins/libdir.so
    for name in fifo dir; do
        unusable "the plug-in \"plugins/lib$name.so\" cannot be loaded: it is not a regular file" --plugin-dir plugins $name
    done
    for source in '.globl AutoCli_RegisterNamespaces; .set AutoCli_RegisterNamespaces, 0' \
        '.data; .globl AutoCli_RegisterNamespaces; .type AutoCli_RegisterNamespaces, @object; AutoCli_RegisterNamespaces: .quad 1' ''; do
        echo "$source" | g++ -shared -nostdlib -x assembler - -o plugins/libodd.so
        unusable 'the plug-in "plugins/libodd.so" cannot be loaded: it has no function AutoCli_RegisterNamespaces' --plugin-dir plugins odd
    done
    echo none >plugins/libodd.so
    unusable '*libodd.so*cannot be loaded*' --plugin-dir plugins odd
}
