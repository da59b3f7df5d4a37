# The cluster's neighbours: unicast agents, fault domains, maintenance mode, interfaces.
load common

host2=10000000-0000-0000-0000-000000000002

agents() { autocli --formatter json dovra cluster unicastagent list | jq -c 'map(to_entries | map(.value))'; }

@test "unicast agents are added, listed, removed and cleared" {
    new_cluster
    add='dovra cluster unicastagent add'
    succeed $add -a 10.0.0.9
    succeed $add -t node -u $host2 -U true -a fe80::2 -p 4000 -i knic1
    same '[["00000000-0000-0000-0000-000000000000",1,false,"10.0.0.9",12321,""],["'$host2'",0,true,"fe80::2",4000,"knic1"]]' "$(agents)"
    same true "$(cluster_field "Unicast Mode Enabled")"
    before=$(agents)
    node="$add -t node -U 1 -u"
    other=10000000-0000-0000-0000-000000000003
    refuse '"me" is not a UUID: *' $node me -a 10.0.0.3
    refuse 'The port 70000 is not between 1 and 65535.' $node $other -a 10.0.0.3 -p 70000
    refuse 'The port -1 is not between 1 and 65535.' $node $other -a 10.0.0.3 -p -1
    refuse 'Host host1 has no interface "knic7"; it has knic0, knic1.' $node $other -a 10.0.0.3 -i knic7
    refuse 'There is a unicast agent at fe80:0::2 port 4000 already.' $node $other -a fe80:0::2 -p 4000
    refuse "There is a unicast agent with UUID $host2 already." $node $host2 -a 10.0.0.3
    remove='dovra cluster unicastagent remove'
    refuse 'Unable to remove the unicast agent: There is no unicast agent at 10.0.0.9 port 1.' $remove -a 10.0.0.9 -p 1
    same "$before" "$(agents)"
    succeed $remove -a 10.0.0.9
    succeed $remove -a fe80::2 -p 4000 -u ${host2^^}
    same '[]' "$(agents)"
    for i in 1 2 3; do succeed $node 10000000-0000-0000-0000-00000000000$i -a 10.0.0.$i; done
    succeed dovra cluster unicastagent clear
    succeed dovra cluster unicastagent clear
    same '[]' "$(agents)"
}

@test "a stretched cluster of two sites and a witness" {
    succeed dovra faultdomain set -n "site a"
    new_cluster
    for host in host2 witness; do succeed lab host add --name $host; done
    succeed --host host2 dovra faultdomain set --fdname site-b
    succeed --host host2 dovra cluster join -u "$cluster"
    preferred='dovra cluster preferredfaultdomain'
    refuse 'Cannot get preferred fault domain if host is not in a stretched cluster.' $preferred get
    succeed --host witness dovra faultdomain set -n site-c
    expect 1 false '"site-c" is not a fault domain of a data site; these are "site a" and "site-b".' --host witness dovra cluster join -u "$cluster" -t -p site-c
    expect 1 '*' 'Dovra Clustering is not enabled on this host' --host witness dovra cluster get
    succeed --host witness dovra cluster join -u "$cluster" -t -p site-b

    # Every host gives the same name to the same domain.
    id_of() { autocli --host "$1" --formatter json dovra faultdomain get | jq -r .faultDomainId; }
    expect 0 $'   Preferred Fault Domain Name: site-b\n   Preferred Fault Domain Id: '"$(id_of host2)" '' $preferred get
    [[ $(id_of host1) != $(id_of host2) ]]
    succeed --host witness $preferred set -n 'site a'
    expect 0 $'   Preferred Fault Domain Name: site a\n   Preferred Fault Domain Id: '"$(id_of host1)" '' --host host2 $preferred get

    succeed lab host add --name host3
    succeed lab network split --name host3
    expect 1 false "The network is split, and this host reaches no host of cluster $cluster." --host host3 dovra cluster join -u "$cluster"
    succeed lab network split --name witness
    refuse 'Unable to set preferred fault domain name: The network is split, *' --host witness $preferred set -n site-b
    succeed lab network heal

    # The site that the witness prefers is given up.
    succeed dovra faultdomain set -n site-z
    refuse 'Unable to get preferred fault domain name: The witness prefers "site a", but the data sites are "site-b" and "site-z" now.' $preferred get
    succeed dovra faultdomain set -n 'site a'
    succeed --host host2 dovra faultdomain reset
    refuse 'Cannot get preferred fault domain if host is not in a stretched cluster.' $preferred get
    for host in witness host2 host1; do succeed --host $host dovra cluster leave; done
    expect 0 $'   faultDomainName: site a\n   faultDomainId: ' '' dovra faultdomain get
    succeed dovra faultdomain set --fdname=
    expect 0 $'   faultDomainName: \n   faultDomainId: ' '' dovra faultdomain get
}

@test "a maintenance mode operation is seen and cancelled" {
    refuse 'Unable to start maintenance: This host is not in a Dovra cluster.' lab maintenance start
    new_cluster
    expect 1 false 'No maintenance mode operation is in progress on this host.' dovra maintenancemode cancel
    succeed lab maintenance start
    refuse 'Unable to start maintenance: This host is entering maintenance mode already.' lab maintenance start
    same ENTERING "$(cluster_field "Maintenance Mode State")"
    succeed dovra maintenancemode cancel
    same OFF "$(cluster_field "Maintenance Mode State")"
    succeed lab maintenance start
    succeed lab host reboot
    succeed dovra cluster restore
    same OFF "$(cluster_field "Maintenance Mode State")"
}

knics() { autocli --formatter json dovra network list | jq -c 'map([."KNic Name", ."Agent Group Multicast Port", ."Multicast TTL", ."Traffic Type"])'; }

@test "interfaces: what is running and what is persisted" {
    expect 0 '' '' dovra network list
    succeed dovra network ip add -i knic0
    same '["knic0","IP","224.2.3.4","FF19:0:0:0:0:2:3:4",23451,"224.1.2.3","FF19:0:0:0:0:1:2:3",12345,12321,5,"dovra"]' "$(autocli --formatter json dovra network list | jq -c '.[] | del(."Interface UUID") | [.[]]')"
    succeed dovra network ipv4 add -i knic1 -T witness -T dovra -T witness -p 1000
    same '[["knic0",23451,5,"dovra"],["knic1",1000,5,"dovra, witness"]]' "$(knics)"
    uuids=$(autocli --formatter json dovra network list | jq -c 'map(."Interface UUID")')
    [[ $uuids != *'""'* ]]
    succeed dovra network ip set -i knic0 -t 9 -T witness
    same "$uuids" "$(autocli --formatter json dovra network list | jq -c 'map(."Interface UUID")')"
    both='[["knic0",23451,9,"witness"],["knic1",1000,5,"dovra, witness"]]'
    same "$both" "$(knics)"

    succeed lab host reboot
    same '[]' "$(knics)"
    succeed dovra network restore
    same "$both" "$(knics)"
    succeed dovra network ip remove -i knic0
    succeed dovra network remove -i knic0 --force
    succeed dovra network clear
    succeed dovra network restore
    same '[]' "$(knics)"
}

@test "what the storage network refuses, and stores nothing of" {
    add='dovra network ip add -i'
    refuse 'Host host1 has no interface "knic7"; it has knic0, knic1.' $add knic7
    refuse "The agent group's IPv4 address 10.0.0.1 is not a multicast address." $add knic0 -d 10.0.0.1
    refuse "The agent group's IPv6 address fe80::1 is not a multicast address." $add knic0 --agent-v6-mc-addr fe80::1
    refuse "The master group's IPv6 address fe80::1 is not a multicast address." $add knic0 -U fe80::1
    refuse "The master group's port 70000 is not between 1 and 65535." $add knic0 -o 70000
    refuse "The host's unicast port -1 is not between 1 and 65535." $add knic0 -c -1
    refuse 'The multicast TTL 0 is not between 1 and 255.' $add knic0 -t 0
    same '[]' "$(knics)"
    succeed $add knic0 -p 65535 -t 255
    refuse 'The multicast TTL 256 is not between 1 and 255.' dovra network ip set -i knic0 -t 256
    same '[["knic0",65535,255,"dovra"]]' "$(knics)"
}
