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
    while IFS='|' read -r line operations; do
        for operation in $operations; do
            printf -- '--host %s lab fault add -o %s -m "broken: %s"\n' "${line%% *}" "$operation" "$operation"
            printf -- '--host %s dovra %s\n' "${line%% *}" "${line#* }"
            # A program that cannot be run has no words for it.
            [[ $operation == DovraExec ]] && echo status >&3 || echo "broken: $operation" >&3
        done
    done >"$BATS_TEST_TMPDIR/batch" 3>"$BATS_TEST_TMPDIR/wanted" <<EOF
host1 resync throttle get|GetDovraPlugin GetDovraInfo GetResyncThrottle
host1 storage list|GetDovraDisks GetDiskInfo GetDiskUuids
host1 storage add -s $ssd -d x|AddDisks
host1 storage diskgroup mount -s $ssd|MountDiskGroup
host1 storage diskgroup mount -u $node|MountDiskByUuid
host1 storage diskgroup mount -d $hdd|MountDisk
host1 storage remove -d $hdd|RemoveDisk
host1 storage remove -s $ssd|RemoveDiskGroup
host1 storage diskgroup unmount -s $ssd|UnmountDiskGroup
host1 storage diskgroup unmount -d $hdd|UnmountDisk
host1 storage diskgroup unmount -u $node|UnmountDiskByUuid
host1 storage remove -u $node|RemoveDiskByUuid
host1 storage automode set --enabled true|SetAutoClaimMode
host1 storage automode get|GetAutoClaimMode
witness cluster preferredfaultdomain set -n b|SetPreferredFaultDomain
host1 cluster get|IsLocalNodeWitness GetConfigGeneration GetClusterConfig GetInfoFromTavdir GetUnicastMode GetFormattedSystemDateTime
host1 network remove -i knic0|RemoveKnic
host1 cluster unicastagent add -a 10.0.0.9|AddUnicastAgent GetUnicastWitnesses
host1 cluster unicastagent remove -a 10.0.0.2|RemoveUnicastAgent RefreshUnicastAgents
host1 cluster unicastagent list|GetUnicastAgents IsWitnessNode
host1 network restore|RestoreNetworkConfig
host1 cluster restore|RestoreClusterConfig
host1 network clear|ClearNetworkConfig
host1 datastore clear|ClearDatastores
host3 cluster join -u $cluster|JoinCluster
host3 cluster new|CreateCluster
host2 cluster leave|LeaveCluster
host1 faultdomain set -n c|SetFaultDomain
host1 faultdomain set -n ''|ResetFaultDomain
host1 faultdomain get|GetFaultDomainName GetFaultDomainId
host1 storage tag add -t capacityFlash -d x|AddCapacityFlashTag
host1 storage tag remove -t capacityFlash -d x|RemoveCapacityFlashTag
host1 policy cleardefault|ClearPolicyDefaults
host1 datastore name get|GetDatastoreName
host1 datastore name set -u $node -n x|SetDatastoreName
host1 datastore add -n x|AddDatastore
host1 datastore remove -u $node|RemoveDatastore
host1 datastore list|GetDatastores
host1 network ip add -i knic0|IsKnicInUse ConfigureKnic
host1 policy setdefault -c vdisk -p stripeWidth=1|SetPolicyDefault
host1 policy getdefault -c vdisk|GetPolicyDefault
host1 resync throttle set --level 1|SetResyncThrottle
host1 resync bandwidth get|GetResyncBandwidth
host1 network list|GetKnicConfigs
host1 cluster preferredfaultdomain get|IsInStretchedCluster GetPreferredFaultDomainInfo
host1 maintenancemode cancel|DecomCancel
host1 trace get|DovraExec
EOF
    run --separate-stderr autocli --batch "$BATS_TEST_TMPDIR/batch" --keep-going
    [[ $status == 1 ]]
    grep -oE 'broken: [A-Za-z]+|status' <<<"$stderr" | diff "$BATS_TEST_TMPDIR/wanted" -
    expect 0 '[]' '' --formatter json lab fault list
    # All that there are.
    diff <("$AUTOCLI" --complete 'autocli lab fault add --operation ' | cut -f1 | sort) \
        <(grep -oE 'fault add -o [A-Za-z]+' "$BATS_TEST_TMPDIR/batch" | cut -d' ' -f4 | sort)
}
