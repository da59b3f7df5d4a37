# What no command expects.
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
