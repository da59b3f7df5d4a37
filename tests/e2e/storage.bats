# Disks, datastores, policies, resync and traces.
load common

ssd=mpx.xhba1:C0:T0:L0
ssd2=mpx.xhba1:C0:T1:L0
hdd() { echo "mpx.xhba2:C0:T$1:L0"; }

disks() { json "$1" "${@:2}" lab disk list; }
claimed() { disks '[.[] | select(.Use != "empty") | "\(.Device)=\(.Use)"] | join(" ")'; }
count() { disks 'map(.Use) | [indices("cache", "capacity") | length]'; }
uuid_of() { disks ".[] | select(.Device == \"$1\").UUID" "${@:2}"; }

@test "disks are claimed, listed and released" {
    expect 0 '' '' dovra storage list
    succeed lab host add --name host2
    add='dovra storage add -s'
    for host in host1 host2; do succeed --host $host $add $ssd -d "$(hdd 0)" -d "$(hdd 1)"; done
    columns='Device,Is SSD,Is Capacity Tier,In Tavdir,Deduplication,Checksum,Checksum OK,Encryption,DiskKeyLoaded,On-disk format version'
    shown() { autocli -f csv --no-header --fields "$columns" dovra storage list -d $ssd; }
    same $ssd,true,false,false,false,crc32c,true,false,false,5 "$(shown)"

    before=$(claimed)
    prefix='Unable to add device: Disk'
    refuse "$prefix \"$(hdd 2)\" is not a flash disk." $add "$(hdd 2)" -d "$(hdd 3)"
    refuse "$prefix \"$(hdd 0)\" is in use by disk group \"$ssd\"." $add $ssd2 -d "$(hdd 0)"
    refuse "$prefix \"$ssd2\" is a flash disk; to hold data it must be tagged capacityFlash." $add $ssd -d $ssd2
    remove='dovra storage remove'
    prefix='Unable to remove device:'
    refuse "$prefix Disk \"$(hdd 3)\" is not in use by Dovra." $remove -d "$(hdd 3)"
    refuse "$prefix Disk \"$ssd\" is the cache device of a disk group; *" $remove -d $ssd
    refuse "$prefix Disk \"$(hdd 0)\" is not the cache device of a disk group." $remove -s "$(hdd 0)"
    others=$(uuid_of $ssd --host host2)
    refuse "$prefix Host host1 has no disk with UUID $others." $remove -u "$others"
    same "$before" "$(claimed)"

    tamper "UPDATE disks SET deduplication = 1, checksum = 'sum', checksum_ok = 0, encryption = 1,
        key_loaded = 1, format_version = 3 WHERE device = '$ssd'"
    same $ssd,true,false,false,true,sum,false,true,true,2.5 "$(shown)"

    succeed $remove -d "$(hdd 0)" -m evacuateAllData
    succeed $add $ssd -d "$(hdd 0)"
    succeed $remove -u "$(uuid_of $ssd)"
    same '' "$(claimed)"
}

@test "disk groups mount and unmount, flash is tagged" {
    tag='dovra storage tag'
    flash="-t capacityFlash -d $ssd2"
    for change in add remove add; do succeed $tag $change $flash; done
    refuse "Unable to add tag to disk: Disk \"$ssd2\" is tagged capacityFlash already." $tag add $flash
    refuse "Unable to add tag to disk: Disk \"$(hdd 0)\" is not a flash disk." $tag add -t capacityFlash -d "$(hdd 0)"
    refuse "Unable to add device: Disk \"$ssd2\" is tagged capacityFlash; *" dovra storage add -s $ssd2 -d "$(hdd 0)"
    succeed dovra storage add -s $ssd -d $ssd2 -d "$(hdd 1)"
    refuse "Unable to remove tag for disk: Disk \"$ssd2\" is in use *" $tag remove $flash
    while IFS='|' read -r mounted command; do
        succeed dovra storage diskgroup $command
        same "$mounted" "$(json 'map(."Is Mounted") | unique' dovra storage list)"
    done <<END
[false]|unmount -s $ssd
[true]|mount -u $(uuid_of $ssd)
[false,true]|unmount -d $ssd2
[true]|mount -d $ssd2
END
    refuse "Unable to mount: Disk \"$ssd\" is mounted already." dovra storage diskgroup mount -s $ssd
}

@test "auto claim takes what is empty when a disk comes" {
    expect 0 '   Enabled: false' '' dovra storage automode get
    autocli --batch <(printf 'lab disk add -k capacity -d new%s\n' {1..18}) >/dev/null
    succeed dovra storage automode set --enabled on
    same '[0,0]' "$(count)"
    for change in unplug replace; do succeed lab disk $change -d new18; done
    same '[2,14]' "$(count)" # the groups are full
    refuse 'Unable to add disk: Host host1 has a disk "new1" already.' lab disk add -d new1 -k flash
    succeed lab disk unplug -d "$(hdd 0)" # it keeps its place
    succeed lab disk add -d new -k flash
    same '[3,21]' "$(count)"
}

@test "many disks come in groups, each time on an adapter of their own" {
    for count in 9 1; do succeed lab disk generate --count $count; done
    refuse 'Unable to add device: Disk group "mpx.xhba3:C0:T0:L0" can have at most 7 capacity disks.' dovra storage add -s mpx.xhba3:C0:T0:L0 -d "$(hdd 0)"
    refuse 'Unable to add disk: A disk needs a device name.' lab disk add -d '' -k flash
    same "$(printf 'mpx.xhba3:C0:T%s ' 0:L0=cache {1..7}:L0=capacity 8:L0=cache)mpx.xhba4:C0:T0:L0=cache" "$(claimed)"
    same '["mpx.xhba3:C0:T0:L0","mpx.xhba3:C0:T8:L0","mpx.xhba4:C0:T0:L0"]' \
        "$(json 'map(."DOVRA Disk Group Name") | unique' dovra storage list)"
}

@test "the service knows the disks of other hosts, this host only its own" {
    new_cluster host2
    for host in host1 host2; do succeed --host $host dovra storage add -s $ssd -d "$(hdd 0)"; done
    same '[4,2,4]' "$(json '[length, (map(select(."Used by this host")) | length), (map(select(."In Tavdir")) | length)]' dovra storage list)"
    same 1 "$(json length dovra storage list -d $ssd)"
}

@test "datastores: unique names, a default that stays" {
    expect 0 '' '' dovra datastore list
    new_cluster
    id=12345678-1234-1234-1234-1234567890AB
    add='dovra datastore add -n'
    succeed $add one -u $id
    succeed $add two
    same '[["dovraDatastore",true],["one",false],["two",false]]' "$(json 'map([."User Friendly Name", .Default])' dovra datastore list)"
    refuse "Unable to add datastore: The name \"one\" is taken by datastore ${id,,}." $add one
    refuse 'Unable to add datastore: The nil UUID names no datastore.' $add three -u 00000000-0000-0000-0000-000000000000
    refuse "Unable to add datastore: Datastore ${id,,} exists already." $add three -u $id
    refuse 'Unable to set Dovra datastore name: The name "two" is taken by *' dovra datastore name set -u $id -n two
    succeed dovra datastore name set -u $id -n uno
    expect 0 '   Name: uno' '' dovra datastore name get -u $id
    expect 0 '   Name: dovraDatastore' '' dovra datastore name get
    default=$(json '.[0]."Datastore UUID"' dovra datastore list)
    remove='dovra datastore remove -u'
    refuse "Unable to remove datastore: Datastore $default is the default datastore; it cannot be removed." $remove "$default"
    refuse 'Unable to remove datastore: The UUID of the datastore to be removed is missing.' $remove ''
    succeed $remove $id
    refuse "Unable to remove datastore: The cluster has no datastore ${id,,}." $remove $id
    succeed dovra datastore clear
    same "[\"$default\"]" "$(json 'map(."Datastore UUID")' dovra datastore list)"
}

@test "policies are checked before they are kept" {
    set='dovra policy setdefault -c vdisk -p'
    kept='hostFailuresToTolerate=2, stripeWidth=12 replicaPreference=RAID-5/6'
    succeed $set "$kept"
    while IFS='|' read -r policy error; do expect 1 false "$error" $set "$policy"; done <<END
width=1|Unknown policy attribute "width"; the attributes are cacheReservation, *
stripeWidth=0|The policy attribute stripeWidth cannot be "0"; *
hostFailuresToTolerate=4|The policy attribute hostFailuresToTolerate cannot be "4"; it is a whole number from 0 to 3.
cacheReservation=1000001|The policy attribute cacheReservation cannot be "1000001"; *
proportionalCapacity=101|The policy attribute proportionalCapacity cannot be "101"; *
iopsLimit=99999999999999999999|The policy attribute iopsLimit cannot be "99999999999999999999"; it is a whole number from 0 up.
replicaPreference=RAID-0|The policy attribute replicaPreference cannot be "RAID-0"; it is RAID-1 or RAID-5/6.
iopsLimit=1,iopsLimit=2|The policy attribute iopsLimit is given twice.
thick|"thick" is not of the form attribute=value.
 , |The policy is empty; *
END
    values() { json 'map(."Policy Value")' "$@" dovra policy getdefault; }
    same "[\"\",\"$kept\",\"\",\"\",\"\"]" "$(values)"
    succeed lab host add --name host2
    succeed --host host2 $set "$kept"
    before=$(values --host host2)
    succeed dovra policy cleardefault
    same '["","","","",""]'"$before" "$(values)$(values --host host2)"
}

@test "resync answers to its throttle" {
    succeed lab resync set --demand 300
    for level in 0 100 0; do
        succeed dovra resync throttle set --level $level
        expect 0 "   Level: $level Mbps" '' dovra resync throttle get
        expect 0 "   Rate: $((level ? level : 300)) Mbps" '' dovra resync bandwidth get
    done
}

@test "traces move to another volume, and the daemon takes it" {
    succeed dovra trace set -p '/volume 2/$traces'
    conf=$AUTOCLI_LAB/hosts/host1/etc/orvane/dovra/dovratraced.conf
    # The file is the administrator's: the daemon changes its own line and nothing else of it.
    mv "$conf" "$conf.real" && ln -s "$conf.real" "$conf" && chmod 640 "$conf.real"
    lines() { printf '# a\rb\r\nDOVRATRACED_LAST_SELECTED_VOLUME=%s\r\nDOVRATRACED_VOLUME="/v"\r\n# end' "$1"; }
    lines x >"$conf"
    "$AUTOCLI_LAB/hosts/host1/etc/init.d/dovratraced" restart
    same 'symbolic link 640' "$(stat -c %F "$conf") $(stat -c %a "$conf.real")"
    lines '"/v"' | cmp - "$conf"
}
