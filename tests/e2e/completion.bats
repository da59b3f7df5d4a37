# Completion of command lines, as shells ask for it.
load common

# completes LINE WANTED...: compares the completions of LINE's last word with WANTED.
completes() {
    run --separate-stderr autocli --complete "$1"
    same "$1 -> ${*:2}" "$1 -> $(cut -f 1 <<<"$output" | xargs)$stderr"
}

# shows SHELL KEYS WANTED...: types KEYS at the shell's prompt, and expects each WANTED on its terminal.
shows() {
    local wanted
    output=$(PATH=$(dirname "$AUTOCLI"):$PATH "$BATS_TEST_DIRNAME/in-shell" "$1" "$2")
    for wanted in "${@:3}"; do same "*$wanted*" "$1: $output" || return 1; done
}

@test "namespaces, commands, options and values come from the tree" {
    completes 'autocli ' dovra lab
    completes 'autocli --formatter ' simple table json csv
    completes "autocli 'dovra' datastore name set --" --uuid --newname --lab --host --formatter --fields --no-header --help
    completes 'autocli help dovra help resync throttle s' set
    completes 'autocli dovra storage automode set --enabled ' true false
    completes 'autocli dovra storage add -s --disks -d b --d' --disks # -s has a value, and a list goes on
    completes 'autocli dovra storage remove -u1 --disk=x ' --ssd --evacuation-mode
    completes 'autocli dovra cluster join --wait=' ''
    same $'--evacuation-mode\tAction the Dovra service must take before the host can enter maintenance mode (default noAction).' "$("$AUTOCLI" --complete 'autocli dovra storage remove --ev')"
    completes 'autocli dovra storage remove -m e' ensureObjectAccessibility evacuateAllData
    completes 'autocli lab fault add --operation Leave' LeaveCluster
    completes 'autocli dovra cluster get --fields=Enabled,Current' '--fields=Enabled,Current Local Time'
    same $'cluster\tCommands for Dovra host cluster configuration' "$("$AUTOCLI" --complete 'autocli dovra clu')"
}

@test "names and UUIDs come from the lab that the line names" {
    completes 'autocli --host ' ''
    [[ ! -e $AUTOCLI_LAB ]] # completing made none
    new_cluster host2
    succeed dovra storage add -s mpx.xhba1:C0:T1:L0 -d mpx.xhba2:C0:T2:L0
    completes 'autocli --host ' host1 host2
    completes 'autocli --host=' --host=host1 --host=host2
    completes 'autocli -lHhost' -lHhost1 -lHhost2
    completes 'autocli dovra cluster join -tu ' "$cluster"
    completes 'autocli --host nope lab host reboot -n ' host1 host2
    completes 'autocli dovra datastore name get --uuid ' "$(json '.[]."Datastore UUID"' dovra datastore list)"
    completes 'autocli dovra network ip add -i k' knic0 knic1
    succeed --host host2 lab fault add -o LeaveCluster -m later
    completes 'autocli lab fault clear -m ' later
    completes 'autocli dovra cluster unicastagent add -u ' "$(host_uuid host1)" "$(host_uuid host2)"
    succeed dovra cluster unicastagent add -a 192.0.2.20
    completes 'autocli dovra cluster unicastagent remove -a ' 192.0.2.20
    completes 'autocli dovra storage add -s ' mpx.xhba1:C0:T0:L0
    completes 'autocli dovra storage add -d ' mpx.xhba2:C0:T{0,1,3}:L0 # the others are in use
    same $'mpx.xhba2:C0:T2:L0\tin group mpx.xhba1:C0:T1:L0' "$("$AUTOCLI" --complete 'autocli lab disk fail -d mpx.xhba2:C0:T2')"
    completes 'autocli dovra storage remove --ssd ' mpx.xhba1:C0:T1:L0
    completes 'autocli dovra storage diskgroup unmount --disk ' mpx.xhba1:C0:T1:L0 mpx.xhba2:C0:T2:L0
    completes "autocli --lab $BATS_TEST_TMPDIR/other --host " ''
    AUTOCLI_HOST=host2 completes 'autocli dovra storage remove --ssd ' ''
    succeed dovra cluster leave
    completes 'autocli dovra cluster join -u ' "$cluster"
    same '' "$("$AUTOCLI" --complete "AUTOCLI_LAB=$BATS_TEST_TMPDIR/other autocli --host ")"
    [[ ! -e $BATS_TEST_TMPDIR/other ]]
    hold 600 EXCLUSIVE
    timeout 10 "$AUTOCLI" --complete 'autocli --host ' # a user waits
    release
    echo damaged >"$AUTOCLI_LAB/lab.db"
    completes 'autocli --host ' ''
    completes "autocli --plugin-dir $BATS_TEST_TMPDIR/none " ''
    same $'/\t' "$("$AUTOCLI" --complete 'autocli --lab ')" # any path, which the shell completes
}

@test "bash, zsh and fish complete at their prompts, also within quotes" {
    autocli dovra cluster new
    autocli dovra datastore add --name 'a\b c'
    autocli --lab "$BATS_TEST_TMPDIR/other" lab host add --name elsewhere
    uuid=$(json '.[1]."Datastore UUID"' dovra datastore list)
    for shell in bash zsh fish; do
        shows $shell $'autocli dov\tstora\ttag add -t cap\t-d mpx.xhba1:C0:T1\t\n' \
            '<dovra><storage><tag><add><-t><capacityFlash><-d><mpx.xhba1:C0:T1:L0>'
        shows $shell $'autocli dovra cluster get --fields "Enabled,Sub-Cluster Member U\t\n' '<Enabled,Sub-Cluster Member UUIDs>'
        shows $shell $'autocli dovra datastore remove --uuid \t\t\t' "$uuid" 'a\b c'
        shows $shell "autocli --lab $BATS_TEST_TMPDIR/oth"$'\t\n' "<--lab><$BATS_TEST_TMPDIR/other"
    done
    for shell in zsh fish; do # bash does not pass on variables before a command
        shows $shell "AUTOCLI_LAB=$BATS_TEST_TMPDIR/other autocli --host e"$'\t\n' '<--host><elsewhere>'
    done
    shows bash $'alias ac="autocli -f json"; complete -F _autocli ac\nac dovra clus\t\n' '<-f><json><dovra><cluster>'
    same '*autoload -Uz compinit && compinit' "$(zsh -f -c 'source <("$AUTOCLI" --completion zsh)' 2>&1)"
}
