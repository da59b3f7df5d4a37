# Disks, datastores, policies, resync and traces.
load common

ssd=mpx.xhba1:C0:T0:L0
ssd2=mpx.xhba1:C0:T1:L0
hdd() { echo "mpx.xhba2:C0:T$1:L0"; }

claimed() { autocli --formatter json lab disk list | jq -r '[.[] | select(.Use != "empty") | "\(.Device)=\(.Use)"] | join(" ")'; }
uuid_of() { autocli --formatter json lab disk list | jq -r --arg d "$1" '.[] | select(.Device == $d).UUID'; }
mounted() { autocli --formatter json dovra storage list | jq -c 'map(."Is Mounted") | sort | unique'; }

@test "disks are claimed, listed and released" {
    expect 0 '' '' dovra storage list
    succeed dovra storage add -s $ssd -d "$(hdd 0)" -d "$(hdd 1)"
    expect 0 '*' '' --formatter json dovra storage list
    same 'true,false,false,"5"' "$(jq -r '.[] | select(.Device == "'$ssd'") | [."Is SSD", ."Is Capacity Tier", ."In Tavdir", ."On-disk format version"] | @csv' <<<"$output")"

    before=$(claimed)
    add='dovra storage add -s'
    prefix='Unable to add device: '
    refuse "${prefix}Disk \"$(hdd 2)\" is not a flash disk." $add "$(hdd 2)" -d "$(hdd 3)"
    refuse "${prefix}Disk \"$(hdd 0)\" is in use by disk group \"$ssd\"." $add $ssd2 -d "$(hdd 0)"
    refuse "${prefix}Disk \"$ssd2\" is a flash disk; to hold data it must be tagged capacityFlash." $add $ssd -d $ssd2
    remove='dovra storage remove'
    refuse "Unable to remove device: Disk \"$(hdd 3)\" is not in use by Dovra." $remove -d "$(hdd 3)"
    refuse "Unable to remove device: Disk \"$ssd\" is the cache device of a disk group; *" $remove -d $ssd
    refuse "Unable to remove device: Disk \"$(hdd 0)\" is not the cache device of a disk group." $remove -s "$(hdd 0)"
    refuse "Unable to remove device: Host host1 has no disk with UUID 00000000-0000-0000-0000-000000000000." $remove -u 00000000-0000-0000-0000-000000000000
    same "$before" "$(claimed)"

    tamper "UPDATE disks SET deduplication = 1, checksum = 'sum', checksum_ok = 0, encryption = 1, key_loaded = 1, format_version = 3 WHERE device = '$ssd'"
    expect 0 $'Device,Deduplication,Checksum,Checksum OK,Encryption,DiskKeyLoaded,On-disk format version\n'$ssd,true,sum,false,true,true,2.5 '' \
        -f csv --fields 'Device,Deduplication,Checksum,Checksum OK,Encryption,DiskKeyLoaded,On-disk format version' dovra storage list -d $ssd

    succeed $remove -d "$(hdd 0)" -m evacuateAllData
    succeed $add $ssd -d "$(hdd 0)"
    succeed $remove -u "$(uuid_of $ssd)"
    same '' "$(claimed)"
}

@test "disk groups mount and unmount, flash is tagged" {
    succeed dovra storage tag add -t capacityFlash -d $ssd2
    refuse "Unable to add tag to disk: Disk \"$ssd2\" is tagged capacityFlash already." dovra storage tag add -t capacityFlash -d $ssd2
    succeed dovra storage tag remove -t capacityFlash -d $ssd2
    succeed dovra storage tag add -t capacityFlash -d $ssd2
    refuse "Unable to add tag to disk: Disk \"$(hdd 0)\" is not a flash disk." dovra storage tag add -t capacityFlash -d "$(hdd 0)"
    refuse "Unable to add device: Disk \"$ssd2\" is tagged capacityFlash; it cannot be the cache device of a disk group." dovra storage add -s $ssd2 -d "$(hdd 0)"
    succeed dovra storage add -s $ssd -d "$(hdd 0)" -d $ssd2
    refuse "Unable to add device: Disk \"$ssd2\" is in use by disk group \"$ssd\"." dovra storage add -s $ssd2 -d "$(hdd 1)"
    refuse "Unable to remove tag for disk: Disk \"$ssd2\" is in use *" dovra storage tag remove -t capacityFlash -d $ssd2
    group='dovra storage diskgroup'
    succeed $group unmount -s $ssd
    same '[false]' "$(mounted)"
    refuse "Unable to unmount: Disk \"$ssd\" is not mounted." $group unmount -s $ssd
    succeed $group mount -u "$(uuid_of $ssd)"
    same '[true]' "$(mounted)"
    succeed $group unmount -d $ssd2
    same '[false,true]' "$(mounted)"
    succeed $group mount -d $ssd2
}

@test "auto claim takes what is empty when a disk comes" {
    expect 0 '   Enabled: false' '' dovra storage automode get
    succeed lab disk add -d new0 -k capacity
    same '' "$(claimed)"
    succeed dovra storage automode set --enabled on
    same '' "$(claimed)"
    succeed lab disk unplug -d new0
    succeed lab disk replace -d new0
    same '* new0=capacity' "$(claimed)"
    succeed lab disk add -d new1 -k capacity
    same '2 cache 6 capacity' "$(claimed | tr ' ' '\n' | cut -d= -f2 | sort | uniq -c | xargs)"
    refuse 'Unable to add disk: Host host1 has a disk "new1" already.' lab disk add -d new1 -k flash
    succeed lab disk add -d new2 -k flash
    succeed lab disk unplug -d new1 # it keeps its place
    autocli --batch <(printf 'lab disk add -k capacity -d more%s\n' {1..16}) >/dev/null
    same '3 cache 21 capacity' "$(claimed | tr ' ' '\n' | cut -d= -f2 | sort | uniq -c | xargs)" # all groups are full
}

@test "many disks come in groups, each time on an adapter of their own" {
    succeed lab disk generate --count 9
    succeed lab disk generate --count 1
    refuse 'Unable to add device: Disk group "mpx.xhba3:C0:T0:L0" can have at most 7 capacity disks.' dovra storage add -s mpx.xhba3:C0:T0:L0 -d "$(hdd 0)"
    refuse 'Unable to add disk: A disk needs a device name.' lab disk add -d '' -k flash
    same "$(printf 'mpx.xhba3:C0:T%s ' 0:L0=cache {1..7}:L0=capacity 8:L0=cache)mpx.xhba4:C0:T0:L0=cache" "$(claimed)"
    same '["mpx.xhba3:C0:T0:L0","mpx.xhba3:C0:T8:L0","mpx.xhba4:C0:T0:L0"]' "$(autocli -f json dovra storage list | jq -c 'map(."DOVRA Disk Group Name") | unique')"
}

@test "the service knows the disks of other hosts, this host only its own" {
    new_cluster host2
    succeed dovra storage add -s $ssd -d "$(hdd 0)"
    succeed --host host2 dovra storage add -s $ssd -d "$(hdd 0)"
    expect 0 '*' '' --formatter json dovra storage list
    same '[4,2,4]' "$(jq -c '[length, (map(select(."Used by this host")) | length), (map(select(."In Tavdir")) | length)]' <<<"$output")"
    expect 0 '*' '' --formatter json dovra storage list -d $ssd
    same 1 "$(jq length <<<"$output")"
}

@test "datastores: unique names, a default that stays" {
    expect 0 '' '' dovra datastore list
    new_cluster
    id=12345678-1234-1234-1234-1234567890AB
    succeed dovra datastore add -n one -u $id
    succeed dovra datastore add -n two
    same '[["dovraDatastore",true],["one",false],["two",false]]' "$(autocli --formatter json dovra datastore list | jq -c 'map([."User Friendly Name", .Default])')"
    refuse "Unable to add datastore: The name \"one\" is taken by datastore ${id,,}." dovra datastore add -n one
    refuse 'Unable to add datastore: The nil UUID names no datastore.' dovra datastore add -n three -u 00000000-0000-0000-0000-000000000000
    refuse "Unable to add datastore: Datastore ${id,,} exists already." dovra datastore add -n three -u $id
    refuse 'Unable to set Dovra datastore name: The name "two" is taken by *' dovra datastore name set -u $id -n two
    succeed dovra datastore name set -u $id -n uno
    expect 0 '   Name: uno' '' dovra datastore name get -u $id
    expect 0 '   Name: dovraDatastore' '' dovra datastore name get
    default=$(autocli --formatter json dovra datastore list | jq -r '.[0]."Datastore UUID"')
    refuse "Unable to remove datastore: Datastore $default is the default datastore; it cannot be removed." dovra datastore remove -u "$default"
    refuse 'Unable to remove datastore: The UUID of the datastore to be removed is missing.' dovra datastore remove -u ''
    succeed dovra datastore remove -u $id
    refuse "Unable to remove datastore: The cluster has no datastore ${id,,}." dovra datastore remove -u $id
    succeed dovra datastore clear
    expect 0 $'Datastore\n   Datastore UUID: '"$default"$'\n   User Friendly Name: dovraDatastore\n   Default: true' '' dovra datastore list
}

@test "policies are checked before they are kept" {
    expect 0 $'Policy Class  Policy Value\n------------  ------------\nvmswap' '' dovra policy getdefault -c vmswap
    set='dovra policy setdefault -c vdisk -p'
    succeed $set 'hostFailuresToTolerate=2, stripeWidth=12 replicaPreference=RAID-5/6'
    spoiled() { expect 1 false "$1" $set "$2"; }
    spoiled 'Unknown policy attribute "width"; the attributes are cacheReservation, *' width=1
    spoiled 'The policy attribute stripeWidth cannot be "0"; *' stripeWidth=0
    spoiled 'The policy attribute hostFailuresToTolerate cannot be "4"; it is a whole number from 0 to 3.' hostFailuresToTolerate=4
    spoiled 'The policy attribute cacheReservation cannot be "1000001"; *' cacheReservation=1000001
    spoiled 'The policy attribute proportionalCapacity cannot be "101"; *' proportionalCapacity=101
    spoiled 'The policy attribute iopsLimit cannot be "99999999999999999999"; it is a whole number from 0 up.' iopsLimit=99999999999999999999
    spoiled 'The policy attribute replicaPreference cannot be "RAID-0"; it is RAID-1 or RAID-5/6.' replicaPreference=RAID-0
    spoiled 'The policy attribute iopsLimit is given twice.' iopsLimit=1,iopsLimit=2
    spoiled '"thick" is not of the form attribute=value.' thick
    spoiled 'The policy is empty; *' ' , '
    same $'Policy Class,Policy Value\ncluster,\nvdisk,"hostFailuresToTolerate=2, stripeWidth=12 replicaPreference=RAID-5/6"\nvmnamespace,\nvmswap,\nvmem,' "$(autocli --formatter csv dovra policy getdefault)"
    succeed dovra policy cleardefault
    same '[""]' "$(autocli --formatter json dovra policy getdefault | jq -c 'map(."Policy Value") | unique')"
}

@test "resync answers to its throttle" {
    succeed lab resync set --demand 300
    expect 0 '   Rate: 300 Mbps' '' dovra resync bandwidth get
    succeed dovra resync throttle set --level 100
    expect 0 '   Level: 100 Mbps' '' dovra resync throttle get
    expect 0 '   Rate: 100 Mbps' '' dovra resync bandwidth get
    succeed dovra resync throttle set --level 0
    expect 0 '   Rate: 300 Mbps' '' dovra resync bandwidth get
}

@test "traces move to another volume, and the daemon takes it" {
    succeed dovra trace set -p '/volume 2/$traces' -f 4 -s 4095 -l off
    expect 0 $'   DOVRA Traces Directory: /volume 2/$traces\n   Number Of Files To Rotate: 4\n   Maximum Trace File Size: 4095 MB\n   Log Urgent Traces To Syslog: false' '' dovra trace get
    succeed lab traced set --state stopped
    succeed dovra trace set -p /later
    succeed lab traced set --state running
    expect 0 $'   DOVRA Traces Directory: /volume 2/$traces\n*' '' dovra trace get
    conf=$AUTOCLI_LAB/hosts/host1/etc/orvane/dovra/dovratraced.conf
    # The file is the administrator's: the daemon changes its own line and nothing else of it.
    mv "$conf" "$conf.real" && ln -s "$conf.real" "$conf" && chmod 640 "$conf.real"
    printf '# a\rb\r\nDOVRATRACED_LAST_SELECTED_VOLUME=x\r\nDOVRATRACED_VOLUME="/v"\r\n# end' >"$conf"
    "$AUTOCLI_LAB/hosts/host1/etc/init.d/dovratraced" restart
    same 'symbolic link 640' "$(stat -c %F "$conf") $(stat -c %a "$conf.real")"
    printf '# a\rb\r\nDOVRATRACED_LAST_SELECTED_VOLUME="/v"\r\nDOVRATRACED_VOLUME="/v"\r\n# end' | cmp - "$conf"
}
