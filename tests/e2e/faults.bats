# Injected faults.
load common

faults() { autocli --formatter json lab fault list | jq -c 'map([.Host, .Operation, .After, .Remaining])'; }

@test "faults wait for their calls, and are taken back" {
    add='lab fault add -m no -o'
    refuse 'Unable to add fault: A fault needs a message.' lab fault add -o GetFaultDomainName -m ''
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
    succeed --host host1 lab fault clear
    [[ $(faults) == '[["host2","LeaveCluster",0,1]]' ]]
    succeed lab fault clear
    [[ $(faults) == '[]' ]]
}

@test "a fault on any operation strikes the command that calls it, once" {
    succeed dovra faultdomain set -n a
    new_cluster host2
    succeed --host host2 dovra faultdomain set -n b
    for host in host3 witness; do succeed lab host add --name $host; done
    succeed --host witness dovra cluster join -u "$cluster" -t -p a
    node=10000000-0000-0000-0000-000000000002
    succeed dovra cluster unicastagent add -t node -u $node -U 1 -a 10.0.0.2
    ssd=mpx.xhba1:C0:T0:L0 hdd=mpx.xhba2:C0:T0:L0
    succeed dovra storage add -s $ssd -d $hdd
    while read -r operation host line; do
        printf -- '--host %s lab fault add -o %s -m "broken: %s"\n' "$host" "$operation" "$operation"
        printf -- '--host %s dovra %s\n' "$host" "$line"
        [[ $operation == DovraExec ]] && operation=status || operation="broken: $operation"
        printf '%s\n' "$operation" >>"$BATS_TEST_TMPDIR/wanted"
    done >"$BATS_TEST_TMPDIR/batch" <<EOF
GetDovraPlugin host1 resync throttle get
GetDovraInfo host1 resync throttle get
GetDovraDisks host1 storage list
GetDiskInfo host1 storage list
AddDisks host1 storage add -s $ssd -d x
MountDiskGroup host1 storage diskgroup mount -s $ssd
MountDiskByUuid host1 storage diskgroup mount -u $node
MountDisk host1 storage diskgroup mount -d $hdd
RemoveDisk host1 storage remove -d $hdd
RemoveDiskGroup host1 storage remove -s $ssd
UnmountDiskGroup host1 storage diskgroup unmount -s $ssd
UnmountDisk host1 storage diskgroup unmount -d $hdd
UnmountDiskByUuid host1 storage diskgroup unmount -u $node
RemoveDiskByUuid host1 storage remove -u $node
SetAutoClaimMode host1 storage automode set --enabled true
GetAutoClaimMode host1 storage automode get
SetPreferredFaultDomain witness cluster preferredfaultdomain set -n b
IsLocalNodeWitness host1 cluster get
GetConfigGeneration host1 cluster get
RemoveKnic host1 network remove -i knic0
AddUnicastAgent host1 cluster unicastagent add -a 10.0.0.9
RemoveUnicastAgent host1 cluster unicastagent remove -a 10.0.0.2
GetUnicastAgents host1 cluster unicastagent list
GetUnicastWitnesses host1 cluster unicastagent add -a 10.0.0.9
RefreshUnicastAgents host1 cluster unicastagent remove -a 10.0.0.2
RestoreNetworkConfig host1 network restore
RestoreClusterConfig host1 cluster restore
ClearNetworkConfig host1 network clear
ClearDatastores host1 datastore clear
JoinCluster host3 cluster join -u $cluster
CreateCluster host3 cluster new
LeaveCluster host2 cluster leave
GetClusterConfig host1 cluster get
SetFaultDomain host1 faultdomain set -n c
ResetFaultDomain host1 faultdomain set -n ''
GetFaultDomainName host1 faultdomain get
AddCapacityFlashTag host1 storage tag add -t capacityFlash -d x
RemoveCapacityFlashTag host1 storage tag remove -t capacityFlash -d x
ClearPolicyDefaults host1 policy cleardefault
GetDatastoreName host1 datastore name get
SetDatastoreName host1 datastore name set -u $node -n x
AddDatastore host1 datastore add -n x
RemoveDatastore host1 datastore remove -u $node
GetDatastores host1 datastore list
IsKnicInUse host1 network ip add -i knic0
GetDiskUuids host1 storage list
SetPolicyDefault host1 policy setdefault -c vdisk -p stripeWidth=1
GetPolicyDefault host1 policy getdefault -c vdisk
GetResyncThrottle host1 resync throttle get
SetResyncThrottle host1 resync throttle set --level 1
GetResyncBandwidth host1 resync bandwidth get
ConfigureKnic host1 network ip add -i knic0
GetKnicConfigs host1 network list
GetInfoFromTavdir host1 cluster get
GetUnicastMode host1 cluster get
GetFormattedSystemDateTime host1 cluster get
IsWitnessNode host1 cluster unicastagent list
IsInStretchedCluster host1 cluster preferredfaultdomain get
GetFaultDomainId host1 faultdomain get
GetPreferredFaultDomainInfo host1 cluster preferredfaultdomain get
DecomCancel host1 maintenancemode cancel
DovraExec host1 trace get
EOF
    run --separate-stderr autocli --batch "$BATS_TEST_TMPDIR/batch" --keep-going
    [[ $status == 1 ]]
    grep -oE 'broken: [A-Za-z]+|status' <<<"$stderr" | diff "$BATS_TEST_TMPDIR/wanted" -
    expect 0 '[]' '' --formatter json lab fault list
    # All that there are.
    diff <("$AUTOCLI" --complete 'autocli lab fault add --operation ' | cut -f1 | sort) \
        <(grep -oE 'fault add -o [A-Za-z]+' "$BATS_TEST_TMPDIR/batch" | cut -d' ' -f4 | sort)
}
