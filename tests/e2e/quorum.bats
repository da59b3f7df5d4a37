# Power, splits, the quorum, and lost answers: what docs/rehearsals does not show.
load common

pages=$BATS_TEST_DIRNAME/../../docs/rehearsals
no_quorum='There is no quorum: this host reaches'

# counters HOST: prints the membership's revision and the configuration's generation.
counters() { json '"\(."Sub-Cluster Membership Entry Revision") \(."Config Generation" | split(" ")[1])"' --host "$1" dovra cluster get; }
problems() { json 'map(.Problem) | join(",")' lab status; }

@test "a host that is powered off answers nothing, and is worked on" {
    expect 0 '*' '' --batch "$pages/three-hosts"
    succeed dovra storage automode set --enabled on
    succeed lab fault add -o GetClusterConfig -m busy
    read -r revision generation <<<"$(counters host2)"
    succeed lab host stop
    same "$((revision + 1)) $generation" "$(counters host2)"
    unusable 'host "host1" is powered off' dovra cluster get
    wrong '*' dovra cluster get --none
    expect 0 'Usage*' '' dovra cluster get --help
    same 1 "$(json '.[].Remaining' lab fault list)"
    refuse 'Unable to start maintenance: Host host1 is powered off.' lab maintenance start
    for command in stop reboot; do refuse "Unable to $command host: Host host1 is powered off." lab host $command; done
    succeed lab disk add -d new -k capacity
    same 7 "$(json 'map(select(.Use == "empty")) | length' lab disk list)"
    for line in 'lab fault clear' 'lab traced set -s stopped' 'lab host start'; do succeed $line; done
    refuse 'Unable to start host: Host host1 is powered on already.' lab host start
    same 0 "$(json 'map(select(.Use == "empty")) | length' lab disk list)"

    # A host that joins again counts as running, one that left does not count.
    succeed lab host stop -n host2
    same 'not restored,stopped,no quorum' "$(problems)"
    expect 1 true "Unable to set fault domain name: $no_quorum 1 of 3 votes *" --host host3 dovra faultdomain set -n x
    succeed --host host3 dovra faultdomain set --fdname=
    cluster=$(cluster_field "Sub-Cluster UUID" host3)
    succeed dovra cluster join -u "$cluster"
    succeed lab host stop -n host3
    succeed dovra cluster leave
    expect 1 false "$no_quorum 0 of 2 votes *" dovra cluster join -u "$cluster"
    expect 0 true "Cluster $cluster: 0 of 1 votes remain, no quorum." lab host remove -n host2
    expect 0 true "Cluster $cluster has no host left." lab host remove -n host3
}

@test "interfaces that stop or run move the membership alone" {
    expect 0 '*' '' --batch "$pages/three-hosts"
    succeed dovra network ip add -i knic0
    for end in restore 'ip remove -i knic0'; do
        for line in 'lab host reboot' 'dovra cluster restore' 'lab disk fail -d mpx.xhba2:C0:T0:L0'; do run autocli $line; done
        same 'no interface,,' "$(problems)"
        read -r revision generation <<<"$(counters host1)"
        alone=$(cluster_field "Sub-Cluster Membership UUID")
        succeed dovra network $end
        same 'disk failed,,' "$(problems)"
        same "$((revision + 1)) $generation" "$(counters host1)"
        [[ $alone != "$(cluster_field "Sub-Cluster Membership UUID")" ]]
    done
}

@test "a site's vote stays with its hosts that run, and fault domains wait for the end of a split" {
    expect 0 '*' '' --batch "$pages/stretched"
    prefer='--host witness dovra cluster preferredfaultdomain set -n'
    succeed lab host stop -n host1
    succeed lab network split -n host1 -n host2
    same 'stopped,,cut off,cut off,' "$(problems)"
    before=$(counters host2)
    expect 1 true 'Unable to set fault domain name: The network is split; this host reaches 2 of 3 votes *' --host host2 dovra faultdomain set -n x
    succeed $prefer site-a
    succeed --host host2 dovra faultdomain set -n site-a
    same "$before" "$(counters host2)"
    succeed lab network split -n witness
    same 'stopped,no quorum,no quorum,no quorum,no quorum' "$(problems)"
    succeed lab host add -n host5
    expect 1 false "$no_quorum 1 of 3 votes *" --host host5 dovra cluster join -u "$(cluster_field "Sub-Cluster UUID" host2)"
}

@test "a late fault waits for a change, and fails what only reads" {
    new_cluster
    for operation in AddDatastore GetDatastores DovraExec; do succeed lab fault add -m lost --late -o $operation; done
    refuse '*lost' dovra datastore list
    refuse 'Unable to add datastore: The datastore*' dovra datastore add --name=
    same '["AddDatastore",1,true] ["DovraExec",1,true]' "$(json '.[] | [.Operation, .Remaining, .Late]' lab fault list | xargs -d'\n')"
    refuse 'Unable to add datastore: lost' dovra datastore add -n one
    daemon=$AUTOCLI_LAB/hosts/host1/etc/init.d/dovratraced
    printf '#!/bin/sh\necho "$1" >>"$0.log"\n' >"$daemon"
    expect 1 '' '*' dovra trace get
    same '[] status' "$(json . lab fault list) $(<"$daemon.log")"
}
