# Clusters of several hosts, as administrators bring them up and take them down.
load common

nil=00000000-0000-0000-0000-000000000000
other=11111111-2222-3333-4444-555555555555

# roles HOST: prints master, backup and members as the host sees them, by the hosts' names.
roles() {
    local names
    names=$(json '.[] | "s/\(.UUID)/\(.Name)/g"' lab host list)
    json '[."Sub-Cluster Master UUID", ."Sub-Cluster Backup UUID",
        (."Sub-Cluster Member UUIDs" | join(" "))] | join(" | ")' --host "$1" dovra cluster get |
        sed "s/$nil/none/g; $names"
}
revision() { cluster_field "Sub-Cluster Membership Entry Revision" "$@"; }
not_enabled() { expect 1 '*' 'Dovra Clustering is not enabled on this host' "$@" dovra cluster get; }

@test "three hosts see one cluster, and leaving hands the roles on" {
    new_cluster host2
    for host in witness host3; do succeed lab host add --name $host; done
    succeed --host witness dovra cluster join -u "${cluster^^}" -wt -p site-a
    succeed --host host3 dovra cluster join --cluster-uuid="$cluster" --wait
    for host in host1 host2 witness host3; do
        same 'host1 | host2 | host1 host2 witness host3' "$(roles "$host")"
    done
    same WITNESS "$(cluster_field "Local Node Type" witness)"
    same "4 $(host_uuid host3) 4 20*-*.*" "$(revision) $(cluster_field "Config Generation")"

    succeed dovra cluster leave
    same 'host2 | host3 | host2 host3 witness' "$(roles host3)"
    same 5 "$(revision host3)"
    for host in host2 host3; do succeed --host $host dovra cluster leave; done
    same 'none | none | witness' "$(roles witness)"
    succeed --host witness dovra cluster leave
    # The cluster ended with its last host, so the UUID is free for a new one.
    succeed dovra cluster join -u "$cluster"
    same 1 "$(revision)"
}

@test "what join refuses" {
    new_cluster
    for host in host2 host3; do succeed lab host add --name $host; done
    refuses() { expect 1 false "$1" --host "$2" dovra cluster join -u "${@:3}"; }
    refuses '"no-uuid" is not a UUID: expected 36 characters of the form nnnnnnnn-nnnn-nnnn-nnnn-nnnnnnnnnnnn, each n a hexadecimal digit.' host2 no-uuid
    refuses "There is no cluster $other for a witness to join." host2 $other -t -p a
    refuses 'The nil UUID names no cluster.' host2 $nil
    succeed --host host2 dovra cluster join -u "$cluster" -t -p a
    refuses "Cluster $cluster has a witness already." host3 "$cluster" -t -p a
    # The refused joins changed nothing.
    same 2 "$(revision)"
    not_enabled --host host3
}

@test "a reboot loses what runs, restore brings it back" {
    new_cluster host2
    succeed lab host reboot
    not_enabled
    same 'host2 | none | host2' "$(roles host2)"
    for boot in --boot ''; do
        succeed dovra cluster restore $boot
        same '4 host2 | host1 | host2 host1' "$(revision) $(roles host1)"
    done
    succeed --host host2 dovra cluster leave
    succeed --host host2 dovra cluster restore --boot
    expect 1 false 'This host has no persisted Dovra cluster configuration.' --host host2 dovra cluster restore
    # The last host of a cluster may reboot: the cluster is still there for it.
    for command in restore "join -u $cluster"; do
        succeed --host host1 lab host reboot
        succeed dovra cluster $command
        same 'host1 | none | host1' "$(roles host1)"
    done
    # Joining anew neither ends the cluster nor makes a second witness.
    for _ in 1 2; do
        succeed --host host2 dovra cluster join -u "$cluster" -t -p a
        succeed lab host reboot --name host2
    done
    revision=$(revision)
    succeed --host host2 dovra cluster join -u $other
    same $((revision + 1)) "$(revision)" # it was given up here
}

@test "a datastore's name reaches the script as it is, and runs nothing" {
    export AUTOCLI_LAB="$BATS_TEST_TMPDIR/a lab's \$(touch ran-0)"
    new_cluster
    root=$AUTOCLI_LAB/hosts/host1
    cd "$BATS_TEST_TMPDIR"
    names=("two  blanks" "quote's \"two\"" '$(touch ran-1) `touch ran-2`' '; touch ran-3' $'line\nbreak; touch ran-4' '-x' '\n *')
    for name in "${names[@]}"; do succeed dovra datastore add --name="$name"; done
    succeed dovra cluster leave
    (IFS=, && echo "dovraDatastore,${names[*]}") | diff - <(jq -r .datastores "$root/var/log/notifyDatastore.log")
    same '' "$(compgen -G 'ran-*')"
    # A missing script does not keep the host from leaving.
    succeed dovra cluster join -u "$cluster"
    ln -sf /nowhere "$root/usr/lib/orvane/hostmgrd/bin/notifyDatastore.py"
    succeed dovra cluster leave
}
