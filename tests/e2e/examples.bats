# Every example that help and reference give does what it says.
load common

# copies NAME: lets the tests work on a copy of this lab.
copies() {
    rm -rf "$BATS_TEST_TMPDIR/copy"
    [[ $1 == new ]] || cp -r "$BATS_TEST_TMPDIR/$1" "$BATS_TEST_TMPDIR/copy"
}

@test "every example succeeds on a lab as its sentence supposes it" {
    cluster=5238f8f0-96a1-4c2e-8d77-0c4bb4f3a1e2
    AUTOCLI_LAB=$BATS_TEST_TMPDIR/alone
    for host in host2 host3; do succeed lab host add --name $host; done
    cp -r "$AUTOCLI_LAB" "$BATS_TEST_TMPDIR/founded"
    AUTOCLI_LAB=$BATS_TEST_TMPDIR/founded
    succeed dovra cluster join -u $cluster
    succeed dovra storage automode set --enabled true
    cp -r "$AUTOCLI_LAB" "$BATS_TEST_TMPDIR/full"
    AUTOCLI_LAB=$BATS_TEST_TMPDIR/full
    cat >"$BATS_TEST_TMPDIR/lines" <<EOF
dovra faultdomain set -n site-a
--host host3 dovra faultdomain set -n site-b
--host host3 dovra cluster join -u $cluster
--host host2 dovra cluster join -u $cluster -t -p site-a
dovra datastore add -n old -u 521f7b14-60a2-4d2b-9c35-8e14a1d9c0f3
dovra storage tag add -t capacityFlash -d mpx.xhba1:C0:T1:L0
dovra storage add -s mpx.xhba1:C0:T0:L0 -d mpx.xhba2:C0:T0:L0 -d mpx.xhba2:C0:T1:L0
dovra network ip add -i knic0
dovra network ip add -i knic1
dovra cluster unicastagent add -a 192.0.2.20
lab maintenance start
EOF
    expect 0 '*' '' --batch "$BATS_TEST_TMPDIR/lines"
    autocli --formatter json --list | jq -r '.[].Command' | while read -r command; do
        # shellcheck disable=SC2086
        autocli $command --help | sed -n 's/^  autocli //p' | grep -w -- "$command" || { echo "no example of $command" >&2; exit 1; }
    done >"$BATS_TEST_TMPDIR/examples"
    AUTOCLI_LAB=$BATS_TEST_TMPDIR/copy
    while read -r line; do
        for before in '' 'dovra storage diskgroup unmount -s mpx.xhba1:C0:T0:L0' 'lab disk fail -d mpx.xhba2:C0:T1:L0' 'lab disk unplug -d mpx.xhba2:C0:T1:L0'; do
            for lab in full founded alone new; do
                copies $lab
                # shellcheck disable=SC2086
                [[ -z $before ]] || autocli $before >/dev/null 2>&1 || continue
                # Some take a quoted word.
                if eval "autocli $line" </dev/null >"$BATS_TEST_TMPDIR/out" 2>&1; then continue 3; fi
            done
        done
        echo "no lab does this: $line"
        cat "$BATS_TEST_TMPDIR/out"
        false
    done <"$BATS_TEST_TMPDIR/examples"
}
