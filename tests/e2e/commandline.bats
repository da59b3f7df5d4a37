# Right and wrong command lines, and the messages that they get.
load common

@test "a wrong command line is refused in words that name what is allowed" {
    wrong 'a command is missing; known here: dovra, lab (more: autocli --help)'
    wrong 'a command is missing; *' --host host1
    wrong 'dovra faultdomain: a command is missing; known here: set, get, reset (more: autocli dovra faultdomain --help)' dovra faultdomain
    wrong "dovra cluster new: --formatter: \"csv\" cannot show this command's result; allowed: simple, json" --formatter csv dovra cluster new
    wrong '*did you mean "AddDisks", "AddUnicastAgent" or "AddCapacityFlashTag"?*' lab fault add --operation Add --message x
    wrong 'dovra cluster get: --batch goes without a command' dovra cluster get --batch x
    wrong '--version goes without a command; "dovra" is one too many' --version dovra
    wrong 'dovra trace get: --plugin-dir goes before the command' dovra trace get --plugin-dir x
    wrong 'Unknown option "--bogus"; *' dovra cluster --bogus
    wrong 'there is no "diskgroup"; did you mean "dovra storage diskgroup"? *' diskgroup
    wrong 'Invalid value "nonsense" for --reference: expected one of markdown' --reference nonsense
    wrong 'Invalid value "ksh" for --completion: expected one of bash, zsh, fish' --completion ksh
    wrong '--batch and --list do not go together' --list --batch x
    wrong 'dovra cluster get: --echo goes with --batch' dovra cluster get --echo
    HOME='' XDG_STATE_HOME='' AUTOCLI_LAB='' unusable 'there is no directory for the lab: name one with --lab or AUTOCLI_LAB' dovra trace get
    for command in 'host list' 'host add -n x' 'host remove -n x' 'network heal' 'network split -n x' reset; do
        wrong "lab ${command%% -n*}: --host: this command works on the whole lab, not on one host" --host host1 lab $command
    done
    wrong '*' --lab '' dovra cluster get
    [[ ! -e $AUTOCLI_LAB ]] # none of this made a lab
}

@test "help at every level, however it is asked for" {
    expect 0 '*Options:*Orvane Dovra commands*Exit status*' '' --help
    expect 0 $'Usage: autocli dovra storage [NAMESPACE...] COMMAND [OPTIONS]\n\nCommands for Dovra physical storage configuration\n\nNamespaces:\n  automode   Commands *\n\nCommands:\n  add     Add physical disk for Dovra usage.\n*\n\nMore: autocli dovra storage NAME --help' '' dovra storage --help
    expect 0 $'Usage: autocli dovra storage remove [--disk TEXT] [--ssd TEXT] [--uuid TEXT]\n       [--evacuation-mode TEXT]\n\nRemove physical disks from Dovra disk groups.\n\nParameters:\n  -d, --disk TEXT (optional; text)\n        Specify individual hdd to remove from Dovra usage.e.g.:\n        mpx.xhba2:C0:T1:L0\n*\n            ensureObjectAccessibility: Evacuate data from the disk to ensure\n            object accessibility in *\n\nOutput: true on success\n*' '' dovra storage remove --help
    expect 0 $'Usage: autocli dovra storage add --ssd TEXT --disks TEXT [--disks TEXT]...\n*\n  -d, --disks TEXT (required; text; may be repeated)\n*' '' dovra storage add --help
    expect 0 $'*\n\nOutput: one record with the fields\n  Enabled, *' '' dovra cluster get --help
    expect 0 $'*Mbps (0 to 512, 0 means*\n\nExamples:\n  # Limit resync to 100 Mbps.\n  autocli*' '' dovra resync throttle set --help
    for words in 'help dovra resync throttle set' 'dovra resync throttle help set' 'dovra resync throttle set help' \
        'dovra -h resync throttle set' 'dovra resync throttle set --level --bogus -h' \
        '--formatter none dovra resync throttle set -h' '--bogus --host dovra --list dovra resync throttle set --fields , -l1 help'; do
        same "$output" "$(autocli $words)"
    done
    expect 0 'Usage: autocli dovra cluster join *--wait (optional; takes no value)*' '' dovra cluster join -wh
    expect 0 'Usage: autocli odd*' '' --bogus --plugin-dir "$FAULTY_PLUGINS" odd --help
    wrong '--host: the value is empty' --host= dovra cluster get
    [[ ! -e $AUTOCLI_LAB ]]
    for words in 'datastore add --name -h' 'datastore add --name help' 'datastore add -n--help'; do
        refuse '*' dovra $words # a value, not help
    done
    unusable 'no host "--help"*' dovra cluster get -H --help
    expect 2 '' '*Unexpected argument "-h"*' dovra cluster get -- -h
}

@test "options stand anywhere before --" {
    succeed lab host add -n host2
    succeed dovra -H host2 cluster new
    for words in '-f csv --fields Enabled dovra cluster get' 'dovra -fcsv cluster --fields Enabled get' \
        'dovra cluster get --fields=Enabled --formatter csv' '-f json dovra cluster get -f csv --fields Enabled'; do
        AUTOCLI_HOST=host1 expect 0 $'Enabled\ntrue' '' $words --host host2
    done
    expect 0 true '' dovra cluster get --no-header --fields Enabled --formatter csv -H host2
    expect 2 '' 'autocli: dovra cluster get: Unexpected argument "-f"; *' dovra cluster get -- -f json
    expect 0 '*' '' dovra network remove -f -i knic0 --help # -f is the command's
    AUTOCLI_HOST=nope expect 0 '*' '' lab host list # not an option
}

@test "results and errors go their own ways, and a full output is noticed" {
    new_cluster
    same '' "$(autocli dovra cluster get 2>&1 >/dev/null)"
    succeed lab host add -n host2
    for lost in '/dev/full|No space left on device' '&-|Bad file descriptor'; do
        run bash -c '"$AUTOCLI" -H host2 dovra cluster get >'"${lost%|*}"
        same "4: autocli: the result cannot be written to standard output: ${lost#*|}"$'\nDovra Clustering is not enabled on this host' "$status: $output"
    done
    run bash -c '"$AUTOCLI" --batch - <&-'
    same '2: autocli: --batch: "standard input" cannot be read: Bad file descriptor' "$status: $output"
    for words in '--list' 'dovra cluster get -f json' '--batch -'; do # a reader that is gone
        run bash -c "exec 3>&1; { sleep 0.2; yes dovra trace get | '$AUTOCLI' $words 2>&3; echo \$? >&3; } | :"
        same '*: the result cannot be written to standard output: Broken pipe'$'\n4' "$output"
    done
    run bash -c 'printf "dovra trace get\nlab host add -n host3" | "$AUTOCLI" --keep-going --batch - >/dev/full'
    same '4: host1 host2' "$status: $(hosts)"
}
