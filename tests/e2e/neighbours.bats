# The cluster's neighbours: unicast agents, fault domains, maintenance mode, interfaces.
load common

host2=10000000-0000-0000-0000-000000000002

agents() { json 'map(to_entries | map(.value))' "$@" dovra cluster unicastagent list; }
knics() {
    json 'map([."KNic Name", ."Agent Group Multicast Port", ."Multicast TTL", ."Traffic Type"])' \
        "$@" dovra network list
}

@test "unicast agents are added, listed, removed and cleared" {
    new_cluster host2
    add='dovra cluster unicastagent add'
    succeed --host host2 $add -a 10.0.0.8
    others=$(agents --host host2)
    succeed $add -a 10.0.0.9
    succeed $add -t node -u $host2 -U true -a fe80::2 -p 4000 -i knic1
    before='[["00000000-0000-0000-0000-000000000000",1,false,"10.0.0.9",12321,""],["'$host2'",0,true,"fe80::2",4000,"knic1"]]'
    same "$before" "$(agents)"
    same true "$(cluster_field "Unicast Mode Enabled")"
    node="$add -t node -U 1 -u"
    other=10000000-0000-0000-0000-000000000003
    refuse '"me" is not a UUID: *' $node me -a 10.0.0.3
    for port in 0 65536 -1; do
        refuse "The port $port is not between 1 and 65535." $node $other -a 10.0.0.3 -p $port
    done
    refuse 'Host host1 has no interface "knic7"; it has knic0, knic1.' $node $other -a 10.0.0.3 -i knic7
    refuse 'There is a unicast agent at fe80::2 port 4000 already.' $node $other -a fe80:0::2 -p 4000
    refuse "There is a unicast agent with UUID $host2 already." $node $host2 -a 10.0.0.3
    remove='dovra cluster unicastagent remove'
    refuse 'Unable to remove the unicast agent: There is no unicast agent at 10.0.0.9 port 1.' $remove -a 10.0.0.9 -p 1
    same "$before" "$(agents)"
    succeed $remove -a 10.0.0.9
    succeed $remove -a fe80::2 -p 4000 -u ${host2^^}
    same '[]' "$(agents)"
    for i in 1 2 3; do succeed $node 10000000-0000-0000-0000-00000000000$i -a 10.0.0.$i; done
    for _ in 1 2; do succeed dovra cluster unicastagent clear; done
    same "[] $others" "$(agents) $(agents --host host2)"
}

@test "a stretched cluster follows its sites" {
    autocli --batch "$BATS_TEST_DIRNAME/../../docs/rehearsals/stretched" >/dev/null
    preferred='dovra cluster preferredfaultdomain'
    domains=$(json '[."faultDomainName", ."faultDomainId"]' --host host2 dovra faultdomain get)
    same "$domains" "$(json 'map(.)' --host host3 $preferred get)"
    sites() { for host in host1 host2; do succeed --host $host dovra faultdomain "$@"; done; }
    sites set -n 'site z'
    refuse 'Unable to get preferred fault domain name: The witness prefers "site-a", but the data sites are "site z" and "site-b" now.' $preferred get
    succeed --host witness dovra cluster leave
    cluster=$(cluster_field "Sub-Cluster UUID")
    expect 1 false '"site-a" is not a fault domain of a data site; *' --host witness dovra cluster join -u "$cluster" -t -p site-a
    expect 1 '*' 'Dovra Clustering is not enabled on this host' --host witness dovra cluster get
    succeed --host witness dovra cluster join -u "$cluster" -t -p 'site z'
    sites reset
    refuse 'Cannot get preferred fault domain if host is not in a stretched cluster.' $preferred get
}

@test "a maintenance mode operation is seen and cancelled" {
    refuse 'Unable to start maintenance: This host is not in a Dovra cluster.' lab maintenance start
    new_cluster
    expect 1 false 'No maintenance mode operation is in progress on this host.' dovra maintenancemode cancel
    for ending in 'dovra maintenancemode cancel' 'lab host reboot'; do
        succeed lab maintenance start
        refuse 'Unable to start maintenance: This host is entering maintenance mode already.' lab maintenance start
        same ENTERING "$(cluster_field "Maintenance Mode State")"
        succeed $ending
        succeed dovra cluster restore
        same OFF "$(cluster_field "Maintenance Mode State")"
    done
}

@test "interfaces: what is running and what is persisted" {
    expect 0 '' '' dovra network list
    succeed lab host add --name host2
    for host in host1 host2; do succeed --host $host dovra network ip add -i knic0; done
    same '["knic0","IP","224.2.3.4","FF19:0:0:0:0:2:3:4",23451,"224.1.2.3","FF19:0:0:0:0:1:2:3",12345,12321,5,"dovra"]' \
        "$(json '.[] | del(."Interface UUID") | [.[]]' dovra network list)"
    succeed dovra network ipv4 add -i knic1 -T witness -T dovra -T witness -p 1000
    same '[["knic0",23451,5,"dovra"],["knic1",1000,5,"dovra, witness"]]' "$(knics)"
    uuids=$(json 'map(."Interface UUID")' dovra network list)
    [[ $uuids != *'""'* ]]
    succeed dovra network ip set -i knic0 -t 9 -T witness
    same "$uuids" "$(json 'map(."Interface UUID")' dovra network list)"
    both='[["knic0",23451,9,"witness"],["knic1",1000,5,"dovra, witness"]]'
    same "$both" "$(knics)"

    succeed lab host reboot
    same '[] [["knic0",23451,5,"dovra"]]' "$(knics) $(knics --host host2)"
    succeed dovra network restore
    same "$both" "$(knics)"
    succeed dovra network ip remove -i knic0
    succeed dovra network remove -i knic0 --force
    succeed dovra network clear
    succeed dovra network restore
    same '[] [["knic0",23451,5,"dovra"]]' "$(knics) $(knics --host host2)"
}

@test "what the storage network refuses, and stores nothing of" {
    add='dovra network ip add -i'
    refuse 'Host host1 has no interface "knic7"; it has knic0, knic1.' $add knic7
    refuse "The agent group's IPv4 address 10.0.0.1 is not a multicast address." $add knic0 -d 10.0.0.1
    refuse "The agent group's IPv6 address fe80::1 is not a multicast address." $add knic0 --agent-v6-mc-addr fe80::1
    refuse "The master group's IPv6 address fe80::1 is not a multicast address." $add knic0 -U fe80::1
    refuse "The master group's port 65536 is not between 1 and 65535." $add knic0 -o 65536
    refuse "The host's unicast port -1 is not between 1 and 65535." $add knic0 -c -1
    refuse 'The multicast TTL 0 is not between 1 and 255.' $add knic0 -t 0
    same '[]' "$(knics)"
    succeed $add knic0 -p 65535 -t 255
    refuse 'The multicast TTL 256 is not between 1 and 255.' dovra network ip set -i knic0 -t 256
    same '[["knic0",65535,255,"dovra"]]' "$(knics)"
}
