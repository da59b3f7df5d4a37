# The examples in help and reference.
load common

# prepare LAB COMMAND: copies this lab for the next line, and runs COMMAND in it unless it is empty.
prepare() {
    rm -rf "$AUTOCLI_LAB"
    [[ $1 == new ]] || cp -r "$BATS_TEST_TMPDIR/$1" "$AUTOCLI_LAB"
    [[ -z $2 ]] || eval "autocli $2" &>/dev/null
}

# succeeds LINE: runs LINE in each lab until it succeeds. eval, because some lines hold quotes.
succeeds() {
    for before in '' 'lab host stop --name host1' 'dovra storage diskgroup unmount -s mpx.xhba1:C0:T0:L0' 'lab disk fail -d mpx.xhba2:C0:T1:L0' 'lab disk unplug -d mpx.xhba2:C0:T1:L0' '--host host2 lab fault add -o GetClusterConfig -m "No answer."'; do
        for lab in full founded alone new; do
            prepare $lab "$before" && eval "autocli $1" &>"$BATS_TEST_TMPDIR/out" </dev/null && return
        done
    done
    echo "no lab does this: $1"
    cat "$BATS_TEST_TMPDIR/out"
    return 1
}

@test "every example succeeds on a lab as its sentence supposes it, and a fault on each operation fails one" {
    cluster=5238f8f0-96a1-4c2e-8d77-0c4bb4f3a1e2 disk='mpx.xhba2:C0:T1:L0'
    AUTOCLI_LAB=$BATS_TEST_TMPDIR/alone
    for host in host2 host3; do succeed lab host add --name $host; done
    cp -r "$AUTOCLI_LAB" "$BATS_TEST_TMPDIR/founded"
    AUTOCLI_LAB=$BATS_TEST_TMPDIR/founded
    succeed dovra cluster join -u $cluster
    succeed dovra storage automode set --enabled true
    cp -r "$AUTOCLI_LAB" "$BATS_TEST_TMPDIR/full"
    AUTOCLI_LAB=$BATS_TEST_TMPDIR/full
    expect 0 '*' '' --batch - <<EOF
dovra faultdomain set -n site-a
--host host3 dovra faultdomain set -n site-b
--host host3 dovra cluster join -u $cluster
--host host2 dovra cluster join -u $cluster -t -p site-a
dovra datastore add -n old -u 521f7b14-60a2-4d2b-9c35-8e14a1d9c0f3
dovra storage tag add -t capacityFlash -d mpx.xhba1:C0:T1:L0
dovra storage add -s mpx.xhba1:C0:T0:L0 -d mpx.xhba2:C0:T0:L0 -d $disk
dovra network ip add -i knic0
dovra network ip add -i knic1
dovra cluster unicastagent add -a 192.0.2.20
lab maintenance start
EOF
    AUTOCLI_LAB=$BATS_TEST_TMPDIR/copy
    autocli --formatter json --list | jq -r '.[].Command' >"$BATS_TEST_TMPDIR/commands"
    while read -r command; do
        help=$(autocli $command --help)
        sed -n 's/^  autocli //p' <<<"$help" | grep -w -- "$command" >"$BATS_TEST_TMPDIR/examples" ||
            echo "$command" >"$BATS_TEST_TMPDIR/examples" # it takes no parameters
        while read -r line; do
            succeeds "$line"
            prepare "$lab" "$before"
            [[ $line =~ ^(--host [a-z0-9]+)? ]]
            # Operations that only other options call have a line of their own.
            for operation in $(sed -n '/^Calls/,/^$/{/^  /p}' <<<"$help" | tr -d ,); do
                echo "${BASH_REMATCH[0]} lab fault add -o $operation -m 'broken: $operation'"
                case $operation in
                *DiskByUuid) echo "$command -u $cluster" ;;
                MountDisk) echo "$command -d $disk" ;;
                ResetFaultDomain) echo "dovra faultdomain set -n ''" ;;
                *) echo "$line" ;;
                esac
            done >"$BATS_TEST_TMPDIR/batch"
            autocli --keep-going --batch "$BATS_TEST_TMPDIR/batch" &>>"$BATS_TEST_TMPDIR/struck" || true
        done <"$BATS_TEST_TMPDIR/examples"
    done <"$BATS_TEST_TMPDIR/commands"
    # The message of a failed program does not repeat the fault's.
    "$AUTOCLI" --complete 'autocli lab fault add --operation ' | cut -f1 | sort >"$BATS_TEST_TMPDIR/operations"
    [[ -s $BATS_TEST_TMPDIR/operations ]]
    sed -n 's/.*broken: //p; s/^.*Checking dovratraced status failed.*/DovraExec/p' "$BATS_TEST_TMPDIR/struck" |
        sort -u | diff "$BATS_TEST_TMPDIR/operations" -
}
