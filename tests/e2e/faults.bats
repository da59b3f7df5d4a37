# Injected faults.
load common

faults() { autocli "$@" --formatter json lab fault list | jq -c 'map([.Host, .Operation, .After, .Remaining])'; }

@test "faults wait for their calls, and are taken back" {
    add='lab fault add -m no -o'
    refuse 'Unable to add fault: A fault needs a message.' lab fault add -o GetFaultDomainName -m ' '
    succeed $add GetFaultDomainName --after 1 --count 2
    succeed $add AddDatastore
    expect 0 '*' '' dovra faultdomain get
    same '[["host1","GetFaultDomainName",0,2],["host1","AddDatastore",0,1]]' "$(faults)"
    refuse 'Unable to get fault domain name: no' dovra faultdomain get
    same '[["host1","GetFaultDomainName",0,1],["host1","AddDatastore",0,1]]' "$(faults)"
    succeed lab fault clear --operation GetFaultDomainName
    same '[["host1","AddDatastore",0,1]]' "$(faults)"
    succeed lab host add --name host2
    succeed --host host2 $add LeaveCluster
    succeed --host host2 lab fault add -o LeaveCluster -m other
    same '[["host1","AddDatastore",0,1]]' "$(faults --host host1)"
    succeed --host host1 lab fault clear
    refuse 'Unable to clear faults: No host has a fault on LeaveCluster with the message "none"; *' lab fault clear -o LeaveCluster -m none
    refuse 'Unable to clear faults: Host host1 has no fault with the message "other"; *' --host host1 lab fault clear -m other
    succeed --host host1 lab fault clear
    refuse 'Unable to clear faults: No host has a fault on AddDatastore; "lab fault list" shows all faults.' lab fault clear -o AddDatastore
    succeed lab fault clear -o LeaveCluster -m other
    same '[["host2","LeaveCluster",0,1]]' "$(faults)"
    succeed lab fault clear
    same '[]' "$(faults)"
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
