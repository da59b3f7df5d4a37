# Injected faults.
load common

faults() { autocli "$@" --formatter json lab fault list | jq -c 'map([.Host, .Operation, .After, .Remaining])'; }

@test "faults wait for their calls, and are taken back" {
    add='lab fault add -m no -o'
    refuse 'Unable to add fault: A fault needs a message.' lab fault add -o GetFaultDomainName -m ' '
    succeed $add GetFaultDomainName --after 1 --count 2
    succeed $add AddDatastore
    expect 0 '*' '' dovra faultdomain get
    [[ $(faults) == '[["host1","GetFaultDomainName",0,2],["host1","AddDatastore",0,1]]' ]]
    refuse 'Unable to get fault domain name: no' dovra faultdomain get
    [[ $(faults) == '[["host1","GetFaultDomainName",0,1],["host1","AddDatastore",0,1]]' ]]
    succeed lab fault clear --operation GetFaultDomainName
    [[ $(faults) == '[["host1","AddDatastore",0,1]]' ]]
    succeed lab host add --name host2
    succeed --host host2 $add LeaveCluster
    succeed --host host2 lab fault add -o LeaveCluster -m other
    [[ $(faults --host host1) == '[["host1","AddDatastore",0,1]]' ]]
    succeed --host host1 lab fault clear
    succeed lab fault clear -o LeaveCluster -m other
    [[ $(faults) == '[["host2","LeaveCluster",0,1]]' ]]
    succeed lab fault clear
    [[ $(faults) == '[]' ]]
}
