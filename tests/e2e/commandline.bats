# What people type, rightly and wrongly, and what they are told.
load common

wrong() { expect 2 '' "autocli: $1" "${@:2}"; }
unusable() { expect 3 '' "autocli: $1" "${@:2}"; }

@test "a wrong command line is refused in words that name what is allowed" {
    wrong 'a command is missing; known here: dovra, lab (more: autocli --help)'
    wrong '*' dovra clutser get
    [[ $stderr == 'autocli: dovra: there is no "clutser"; did you mean "cluster"? (known here: '* ]]
    wrong 'dovra faultdomain: a command is missing; known here: set, get, reset (more: autocli dovra faultdomain --help)' dovra faultdomain
    wrong 'dovra cluster join: Missing required parameter --cluster-uuid (text)' dovra cluster join
    wrong '*' --formatter yaml dovra cluster get
    [[ $stderr == *'"yaml"'*'simple, table, json, csv, xml, keyvalue'* ]]
    wrong "dovra cluster new: --formatter: \"csv\" cannot show this command's result; allowed: simple, json, xml, keyvalue" --formatter csv dovra cluster new
    wrong '*' --hots host2 dovra cluster get
    [[ $stderr == *--hots*--host* ]]
    wrong '*' dovra resync throttle set --level 513
    [[ $stderr == *'"513" for --level'*'0 to 512'* ]]
    wrong '*' lab fault add --operation LeaveClutser --message x
    [[ $stderr == *'did you mean "LeaveCluster"'* ]]
    wrong '*' --lab '' dovra cluster get
    [[ ! -e $AUTOCLI_LAB ]] # none of this made a lab
}

@test "help at every level, the same for both spellings of ip" {
    expect 0 '*' '' dovra --help
    for name in policy datastore storage network cluster trace maintenancemode faultdomain resync; do
        [[ $output == *"$name"*'Commands for'* ]]
    done
    expect 0 '*' '' --help
    [[ $output == *'Options:'*'Orvane Dovra commands'*'Exit status'* ]]
    for command in add set remove; do
        expect 0 '*' '' dovra network ip $command --help
        about=${output#*$'\n\n'} # all but the path in the usage
        ip=${about%%$'\n'Example*}
        expect 0 '*' '' dovra network ipv4 $command -h
        about=${output#*$'\n\n'}
        [[ ${about%%$'\n'Example*} == "$ip" ]]
    done
    expect 0 '*' '' dovra resync throttle set --help
    [[ $output == *'Mbps (0 to 512, 0 means'* ]]
    [[ ! -e $AUTOCLI_LAB ]]
}

@test "every command stands in the list, once" {
    expect 0 '*' '' --formatter json --list
    [[ $(jq '[.[] | select(.Command | startswith("dovra "))] | length' <<<"$output") == 48 ]]
    [[ $(jq 'map(.Command) | unique | length' <<<"$output") == $(jq length <<<"$output") ]]
    [[ $(jq -r '.[] | select(.Command == "dovra cluster leave").Description' <<<"$output") == 'Leave the Dovra cluster the host is currently joined to.' ]]
}

@test "a plug-in that is missing or none" {
    folder=$BATS_TEST_TMPDIR/plugins
    unusable "the plug-ins' folder \"$folder\" cannot be read: No such file or directory" --plugin-dir "$folder" --list
    mkdir "$folder"
    unusable "there is no plug-in in \"$folder\"" --plugin-dir "$folder" --list
    echo none >"$folder/libnone.so"
    unusable '*' --plugin-dir "$folder" --list
    [[ $stderr == *libnone.so*'cannot be loaded'* ]]
}

@test "results and errors go their own ways, and a full output is noticed" {
    new_cluster
    autocli dovra cluster get 2>"$BATS_TEST_TMPDIR/errors" >/dev/null
    [[ ! -s $BATS_TEST_TMPDIR/errors ]]
    run bash -c '"$AUTOCLI" dovra cluster get >/dev/full'
    [[ $status == 3 && $output == 'autocli: the result cannot be written to standard output' ]]
}

@test "it works from any directory, and moved to another" {
    cp -r "$(dirname "$(dirname "$AUTOCLI")")" "$BATS_TEST_TMPDIR/moved"
    cd /
    run env -i HOME="$BATS_TEST_TMPDIR" PATH="$PATH" "$BATS_TEST_TMPDIR/moved/bin/autocli" dovra cluster new
    [[ $status == 0 && $output == true ]]
    [[ -f $BATS_TEST_TMPDIR/.local/state/autocli/lab/lab.db ]]
}
