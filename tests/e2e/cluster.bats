# Clusters of several hosts, as administrators bring them up and take them down.
load common

nil=00000000-0000-0000-0000-000000000000

roles() { # HOST: master, backup and members as the host sees them, by host name
    local host=$1
    autocli --host "$host" --formatter json dovra cluster get |
        jq -r '[."Sub-Cluster Master UUID", ."Sub-Cluster Backup UUID", (."Sub-Cluster Member UUIDs" | join(" "))] | join(" | ")' |
        sed "s/$nil/none/g; $(autocli --formatter json lab host list | jq -r '.[] | "s/\(.UUID)/\(.Name)/g"' | paste -sd';')"
}

@test "three hosts see one cluster, and leaving hands the roles on" {
    new_cluster host2
    autocli lab host add --name witness
    succeed --host witness dovra cluster join -u "${cluster^^}" -wt -p site-a
    autocli lab host add --name host3
    succeed --host host3 dovra cluster join --cluster-uuid="$cluster" --wait
    for host in host1 host2 witness host3; do
        same 'host1 | host2 | host1 host2 witness host3' "$(roles "$host")"
    done
    same WITNESS "$(cluster_field "Local Node Type" witness)"
    same 4 "$(cluster_field "Sub-Cluster Membership Entry Revision")"

    succeed dovra cluster leave
    same 'host2 | host3 | host2 host3 witness' "$(roles host3)"
    same 5 "$(cluster_field "Sub-Cluster Membership Entry Revision" host3)"
    succeed dovra cluster join -u "$cluster"
    same 'host2 | host3 | host2 host3 witness host1' "$(roles host3)"
    succeed dovra cluster leave
    succeed --host host2 dovra cluster leave
    succeed --host host3 dovra cluster leave
    same 'none | none | witness' "$(roles witness)"
    succeed --host witness dovra cluster leave
    # Nobody is left, so the name is free for a new cluster with a datastore of its own.
    succeed dovra cluster join -u "$cluster"
    same 1 "$(cluster_field "Sub-Cluster Membership Entry Revision")"
}

@test "what join refuses" {
    new_cluster
    other=11111111-2222-3333-4444-555555555555
    autocli lab host add --name host2
    export AUTOCLI_HOST=host2
    expect 1 false '"no-uuid" is not a UUID: expected 36 characters of the form nnnnnnnn-nnnn-nnnn-nnnn-nnnnnnnnnnnn, each n a hexadecimal digit.' dovra cluster join -u no-uuid
    expect 1 false "There is no cluster $other for a witness to join." dovra cluster join -u "$other" -t -p a
    expect 1 false 'The nil UUID names no cluster.' dovra cluster join -u "$nil"
    succeed dovra cluster join -u "$cluster" -t -p a
    autocli lab host add --name host3
    expect 1 false "Cluster $cluster has a witness already." --host host3 dovra cluster join -u "$cluster" -t -p a
    # None of them left anything behind.
    same 2 "$(cluster_field "Sub-Cluster Membership Entry Revision")"
    expect 1 '*' 'Dovra Clustering is not enabled on this host' --host host3 dovra cluster get
}

@test "a reboot loses what runs, restore brings it back" {
    new_cluster host2
    succeed lab host reboot
    expect 1 '*' 'Dovra Clustering is not enabled on this host' dovra cluster get
    same 'host2 | none | host2' "$(roles host2)"
    succeed dovra cluster restore --boot
    same 'host2 | host1 | host2 host1' "$(roles host1)"
    succeed dovra cluster restore
    same 4 "$(cluster_field "Sub-Cluster Membership Entry Revision")"
    succeed --host host2 dovra cluster leave
    succeed --host host2 dovra cluster restore --boot
    expect 1 false 'This host has no persisted Dovra cluster configuration.' --host host2 dovra cluster restore
    # The last host of a cluster may reboot: the cluster is still there for it.
    succeed lab host reboot --name host1
    succeed dovra cluster restore
    same 'host1 | none | host1' "$(roles host1)"
    # Joining anew does as well: neither does the cluster end, nor is there a second witness.
    succeed lab host reboot --name host1
    succeed dovra cluster join -u "$cluster"
    for _ in 1 2; do
        succeed --host host2 dovra cluster join -u "$cluster" -t -p a
        succeed lab host reboot --name host2
    done
    same 'host1 | none | host1' "$(roles host1)"
    revision=$(cluster_field "Sub-Cluster Membership Entry Revision")
    succeed --host host2 dovra cluster join -u 11111111-2222-3333-4444-555555555555
    same $((revision + 1)) "$(cluster_field "Sub-Cluster Membership Entry Revision")" # it was given up here
}

@test "a host that dies leaves its cluster to the others" {
    new_cluster host2
    succeed lab host remove --name host1
    same 'host2 | none | host2' "$(roles host2)"
    [[ ! -e $AUTOCLI_LAB/hosts/host1 ]]
    expect 3 '' 'autocli: no host "host1" in this lab; its hosts are: host2' dovra cluster get
    for command in 'host remove' 'network split'; do refuse 'Unable to *: *no host "host1" *' lab $command --name host1; done
}

@test "a script that is not there is no reason to stay" {
    new_cluster
    rm "$AUTOCLI_LAB/hosts/host1/usr/lib/orvane/hostmgrd/bin/notifyDatastore.py"
    ln -s /nowhere "$AUTOCLI_LAB/hosts/host1/usr/lib/orvane/hostmgrd/bin/notifyDatastore.py"
    succeed dovra cluster leave
}

@test "a datastore's name reaches the script as it is, and runs nothing" {
    export AUTOCLI_LAB="$BATS_TEST_TMPDIR/a lab's \$(touch ran-0)"
    new_cluster
    log=$AUTOCLI_LAB/hosts/host1/var/log/notifyDatastore.log
    cd "$BATS_TEST_TMPDIR"
    names=("two  blanks" "quote's \"two\"" '$(touch ran-1) `touch ran-2`' '; touch ran-3' $'line\nbreak; touch ran-4' '-x' '\n *')
    expected=dovraDatastore
    for name in "${names[@]}"; do
        succeed dovra datastore add --name="$name"
        expected+=,$name
    done
    succeed dovra cluster leave
    diff - <(jq -r .datastores "$log") <<<"$expected"
    same '' "$(compgen -G 'ran-*')"
}

@test "time stamps show the host's time zone" {
    new_cluster
    export TZ=Asia/Kolkata
    generation=$(cluster_field "Config Generation")
    [[ $generation =~ ^$(host_uuid host1)\ 1\ ([0-9T:-]+)\.[0-9]{1,3}$ ]]
    ((age = $(date +%s) - $(date -d "${BASH_REMATCH[1]}" +%s), age >= 0 && age < 60))
}
