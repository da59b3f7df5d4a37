# Injected faults.
load common

faults() { json 'map("\(.Host) \(.Operation) \(.After) \(.Remaining)") | join(", ")' "$@" lab fault list; }

@test "faults wait for their calls, and are taken back" {
    succeed lab host add --name host2
    add='lab fault add -m no -o'
    refuse 'Unable to add fault: A fault needs a message.' lab fault add -o GetFaultDomainName -m ' '
    succeed $add AddDatastore
    succeed --host host2 $add LeaveCluster
    succeed --host host2 lab fault add -o LeaveCluster -m other
    same 'host1 AddDatastore 0 1' "$(faults --host host1)"
    clear='lab fault clear'
    refuse 'Unable to clear faults: Host host1 has no fault with the message "other"; *' --host host1 $clear -m other
    for _ in 1 2; do succeed --host host1 $clear; done
    refuse 'Unable to clear faults: No host has a fault on AddDatastore; "lab fault list" shows all faults.' $clear -o AddDatastore
    succeed $clear -o LeaveCluster -m other
    same 'host2 LeaveCluster 0 1' "$(faults)"
    succeed $clear
    same '' "$(faults)"
}

@test "each fault on an operation counts every call, and the first that is due strikes" {
    get='dovra faultdomain get'
    add='lab fault add -o GetFaultDomainName -m'
    succeed $add third --after 2
    succeed $add second --after 1 --count 2
    succeed $add first
    for message in first second third second; do refuse "Unable to get fault domain name: $message" $get; done
    expect 0 '*' '' $get
}
