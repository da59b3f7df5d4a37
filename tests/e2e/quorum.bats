# Power, splits, the quorum, and lost answers.
load common

# status: prints what `lab status` shows of each host, without the columns that only hold a name.
status() { autocli --formatter json lab status | jq -r '.[] | "\(.Host) \(.Power) \(.Role) \(.Partition) \(.Votes) \(.Quorum) \(.Disks) \(.Problem)"'; }
counters() { autocli --host "${1:-host1}" --formatter json dovra cluster get | jq -r '"\(."Sub-Cluster Membership Entry Revision") \(."Config Generation" | split(" ")[1])"'; }
health() { cluster_field "Local Node Health State" "$@"; }
no_quorum="There is no quorum: this host reaches"

@test "a host that is powered off answers nothing, and is worked on" {
    new_cluster host2 host3
    succeed dovra storage automode set --enabled on
    succeed lab fault add -o GetClusterConfig -m busy
    before=$(counters host2)
    succeed lab host stop
    unusable 'host "host1" is powered off' dovra cluster get
    wrong '*' dovra cluster get --none
    expect 0 'Usage*' '' dovra cluster get --help
    same '[1]' "$(autocli -f json lab fault list | jq -c 'map(.Remaining)')"
    refuse 'Unable to start maintenance: Host host1 is powered off.' lab maintenance start
    for command in stop reboot; do refuse "Unable to $command host: Host host1 is powered off." lab host $command; done
    succeed lab disk add -d new -k capacity
    succeed lab traced set -s stopped
    same 'host1 off agent 0 0 of 3 false 7 ok stopped
host2 on master 1 2 of 3 true 6 ok 
host3 on backup 1 2 of 3 true 6 ok ' "$(status)"
    same 'HEALTHY (2 of 3 votes)' "$(health host2)"
    same '1 0' "$(($(counters host2 | cut -d' ' -f1) - ${before% *})) $(($(counters host2 | cut -d' ' -f2) - ${before#* }))"
    succeed lab host stop --name host2
    same 'UNHEALTHY (1 of 3 votes, no quorum)' "$(health host3)"
    refuse "Unable to add datastore: $no_quorum 1 of 3 votes *" --host host3 dovra datastore add -n x
    expect 1 true "Unable to set fault domain name: $no_quorum*" --host host3 dovra faultdomain set -n x
    succeed --host host3 dovra faultdomain set --fdname=
    succeed lab host start
    refuse 'Unable to start host: Host host1 is powered on already.' lab host start
    same 7 "$(autocli -f json lab disk list | jq 'map(select(.Use != "empty")) | length')"
    succeed lab fault clear
    # A host that has not restored its membership counts as running where it joins again.
    succeed dovra cluster join -u "$cluster"
    same 'HEALTHY (2 of 3 votes)' "$(health)"
    succeed lab host stop --name host3
    succeed dovra cluster leave
    same 'host1 on  0  false 7 ok 
host2 off agent 0 0 of 2 false 6 ok stopped
host3 off agent 0 0 of 2 false 6 ok stopped' "$(status)"
    expect 1 false "$no_quorum 0 of 2 votes *" dovra cluster join -u "$cluster"
    expect 0 true "Cluster $cluster: 0 of 1 votes remain, no quorum." lab host remove -n host2
    expect 0 true "Cluster $cluster has no host left." lab host remove -n host3
}

@test "a host that boots before its network is alone until it has one" {
    new_cluster host2 host3
    succeed dovra network ip add -i knic0
    succeed lab host reboot
    succeed dovra cluster restore
    succeed lab disk fail -d mpx.xhba2:C0:T0:L0
    same 'host1 on master 2 1 of 3 false 5 ok, 1 failed no interface
host2 on master 1 2 of 3 true 6 ok 
host3 on backup 1 2 of 3 true 6 ok ' "$(status)"
    revision=$(counters)
    for change in 'restore' 'ip remove -i knic0'; do
        alone=$(cluster_field "Sub-Cluster Membership UUID")
        succeed dovra network $change
        same HEALTHY "$(health)"
        [[ $alone != "$(cluster_field "Sub-Cluster Membership UUID")" ]]
        [[ $change == restore ]] || break
        same "$((${revision% *} + 1)) ${revision#* }" "$(counters)"
        succeed lab host reboot
        succeed dovra cluster restore
    done
    same 'disk failed' "$(autocli -f json lab status | jq -r '.[0].Problem')"
}

@test "two sites and a witness: who goes on, and what waits for the end of a split" {
    for host in host1 host2 host3 host4; do
        [[ $host == host1 ]] || succeed lab host add -n $host
        succeed --host $host dovra faultdomain set -n "site-$(((${host#host} + 1) / 2))"
    done
    succeed dovra cluster new
    cluster=$(cluster_field "Sub-Cluster UUID")
    for host in host2 host3 host4; do succeed --host $host dovra cluster join -u "$cluster"; done
    succeed lab host add -n witness
    succeed --host witness dovra cluster join -u "$cluster" -t -p site-1
    prefer='--host witness dovra cluster preferredfaultdomain set -n'
    succeed lab host stop -n host1
    succeed lab network split -n host1 -n host2
    same 'host1 off agent 0 0 of 3 false 6 ok stopped
host2 on master 1 2 of 3 true 6 ok 
host3 on master 2 1 of 3 false 6 ok cut off
host4 on backup 2 1 of 3 false 6 ok cut off
witness on witness 1 2 of 3 true 6 ok ' "$(status)"
    same 2 "$(autocli --host witness -f json dovra cluster get | jq '."Sub-Cluster Member Count"')"
    before=$(counters host2)
    split='The network is split; this host reaches 2 of 3 votes of the cluster, *'
    refuse "Unable to set preferred fault domain name: $split" $prefer site-2
    expect 1 true "Unable to set fault domain name: $split" --host host2 dovra faultdomain set -n x
    succeed $prefer site-1
    succeed --host host2 dovra faultdomain set -n site-1
    same "$before" "$(counters host2)"
    succeed lab network split -n witness
    same 'no quorum no quorum no quorum' "$(autocli -f json lab status | jq -r '[.[1:4][].Problem] | join(" ")')"
    succeed lab network heal
    succeed lab host start -n host1
    succeed $prefer site-2
    same 'host1 on agent 0 0 of 3 false 6 ok not restored' "$(status | head -n 1)"
    succeed dovra cluster restore
    same 'HEALTHY HEALTHY' "$(health) $(health witness)"
    # The table fits 80 columns.
    succeed lab network split -n host1
    same "$(autocli lab status)" "$(autocli lab status | cut -c-80)"
}

@test "an answer is lost: the change took effect" {
    new_cluster
    fault='lab fault add -m lost --late -o'
    for operation in AddDatastore GetDatastores; do succeed $fault $operation; done
    refuse '*lost' dovra datastore list
    refuse 'Unable to add datastore: The datastore*' dovra datastore add --name=
    same '[["AddDatastore",1,true]]' "$(autocli -f json lab fault list | jq -c 'map([.Operation, .Remaining, .Late])')"
    refuse 'Unable to add datastore: lost' dovra datastore add -n one
    same '[] 2' "$(autocli -f json lab fault list) $(autocli -f json dovra datastore list | jq length)"
    succeed $fault DovraExec
    daemon=$AUTOCLI_LAB/hosts/host1/etc/init.d/dovratraced
    printf '#!/bin/sh\necho "$1" >>"$0.log"\n' >"$daemon"
    expect 1 '' '*' dovra trace get
    same status "$(<"$daemon.log")"
}
