# Completion of command lines, as shells ask for it.
load common

# completes LINE WANTED...: what bash, with the cursor behind LINE, is offered to put in.
completes() {
    run --separate-stderr bash --norc -c '
        source <("$AUTOCLI" --completion bash)
        COMP_LINE=$1 COMP_POINT=${#1}
        _autocli "$AUTOCLI"
        echo "${COMPREPLY[*]}"' bash "$1"
    echo "$1 -> $output"
    [[ $output == "${*:2}" && -z $stderr ]]
}

@test "namespaces, commands, options and values come from the tree" {
    completes 'autocli ' dovra lab
    completes 'autocli --hos' --host
    completes 'autocli --formatter ' simple table json csv xml keyvalue
    completes 'autocli --formatter json dovra clus' cluster
    completes 'autocli dovra cluster unicastagent ' add remove list clear
    completes "autocli 'dovra' datastore name set --" --uuid --newname --help
    completes 'autocli dovra policy setdefault -c vm' vmnamespace vmswap vmem
    completes 'autocli dovra storage automode set --enabled=' true false
    completes 'autocli dovra network ip add --traffic-type w' witness
    completes 'autocli lab fault add --operation Leave' LeaveCluster
    completes 'autocli dovra clutser ' ''
    completes 'autocli dovra cluster get ' ''
    [[ $("$AUTOCLI" --complete 'autocli dovra clu') == $'cluster\tCommands for Dovra host cluster configuration' ]]
}

@test "names and UUIDs come from the lab that the line names" {
    completes 'autocli --host ' ''
    [[ ! -e $AUTOCLI_LAB ]] # completing made none
    new_cluster host2
    succeed dovra storage add -s mpx.xhba1:C0:T1:L0 -d mpx.xhba2:C0:T2:L0
    completes 'autocli --host ' host1 host2
    completes 'autocli --host=' host1 host2
    completes 'autocli lab host remove --name host2' host2
    completes 'autocli --host nope lab host reboot -n ' host1 host2
    completes 'autocli dovra cluster join -u ' "$cluster"
    completes 'autocli dovra datastore name get --uuid ' "$(autocli --formatter json dovra datastore list | jq -r '.[].UUID // .[]["Datastore UUID"]')"
    completes 'autocli dovra network ip add -i k' knic0 knic1
    completes 'autocli dovra cluster unicastagent add -u ' "$(host_uuid host1)" "$(host_uuid host2)"
    # bash breaks words at colons, and puts in what follows the last one.
    completes 'autocli dovra storage add -s mpx.xhba1:C0:T' T0:L0
    completes "autocli dovra storage add -s 'mpx.xhba1:C0:T" mpx.xhba1:C0:T0:L0
    completes 'autocli dovra storage remove --ssd ' mpx.xhba1:C0:T1:L0
    completes 'autocli dovra storage unmount --disk ' ''
    completes 'autocli dovra storage diskgroup unmount --disk ' mpx.xhba1:C0:T1:L0 mpx.xhba2:C0:T2:L0
    completes 'autocli --host host2 dovra storage diskgroup unmount --disk ' ''
    completes "autocli --lab $BATS_TEST_TMPDIR/other --host " ''
    AUTOCLI_HOST=host2 completes 'autocli dovra storage remove --ssd ' ''
    [[ $("$AUTOCLI" --complete "AUTOCLI_LAB=$BATS_TEST_TMPDIR/other autocli --host ") == '' ]]
    [[ ! -e $BATS_TEST_TMPDIR/other ]]
    echo damaged >"$AUTOCLI_LAB/lab.db"
    completes 'autocli --host ' ''
    completes "autocli --plugin-dir $BATS_TEST_TMPDIR/none " ''
    [[ $("$AUTOCLI" --complete 'autocli --lab ') == $'/\t' ]] # any path, which the shell completes
}

@test "bash completes at its prompt" {
    succeed lab reset
    typed="source <($AUTOCLI --completion bash); PS1=
$AUTOCLI dov"$'\tstora\ttag add -t cap\t-d mpx.xhba1:C0:T1\t
exit\n'
    output=$(script -qec 'bash --norc -i' /dev/null <<<"$typed")
    echo "$output"
    [[ $output == *$'\rtrue\r'* ]]
    expect 0 '*' '' --fields Device,Kind --formatter csv lab disk list
    [[ $output == *'mpx.xhba1:C0:T1:L0,capacityFlash'* ]]
}

@test "the scripts of the other shells are ones that they understand" {
    for shell in zsh fish; do
        command -v $shell >/dev/null || skip "there is no $shell to try its script"
        "$AUTOCLI" --completion $shell >"$BATS_TEST_TMPDIR/$shell"
        $shell -n "$BATS_TEST_TMPDIR/$shell"
    done
    cd "$BATS_TEST_TMPDIR"
    # shellcheck disable=SC2016
    output=$(fish --no-config -c 'source fish; complete --do-complete "$AUTOCLI dovra storage tag add --tag c"')
    [[ $output == $'capacityFlash\tTag for capacity flash.' ]]
}
