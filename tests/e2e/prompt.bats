# Chosen fields, and batches.
load common

@test "fields are chosen and ordered, in every format" {
    new_cluster
    fields='Local Node State , Enabled'
    expect 0 $'Cluster Information\n   Local Node State: MASTER\n   Enabled: true' '' --fields "$fields" dovra cluster get
    expect 0 'dovra policy getdefault*' '' --list --no-header -f table --fields Command
    expect 0 $'Name   Membership  Fault Domain  UUID\n*' '' lab host list
    expect 0 $'Name,UUID,Cluster UUID,Membership,Fault Domain,API Version,Network Group\n*' '' -f csv lab host list
    wrong "dovra cluster leave: --fields: this command's result has no fields" --fields Name dovra cluster leave
    wrong 'lab host list: --fields: a name is empty' --fields 'Name,' lab host list
    wrong 'lab host list: --fields: "Name" is named twice' --fields Name,UUID,Name lab host list
    same true "$(cluster_field Enabled)" # it did not leave
}

@test "a batch runs its lines as they would run alone" {
    cat >"$BATS_TEST_TMPDIR/batch" <<END
# Two hosts, one lab more.
lab host add --name host2   # for later

autocli dovra cluster new
--formatter csv --fields Enabled dovra cluster get
--host 'host2' dovra cluster get --help
--lab "$BATS_TEST_TMPDIR/other lab" lab host add -n other
lab fault add -o LeaveCluster -m "not 'now'"
--fields Name lab host list
dovra cluster leave
lab host add -n never
END
    expect 1 $'true\ntrue\nEnabled\ntrue\nUsage: *\ntrue\ntrue\n[\n  {\n    "Name": "host1"\n  },\n  {\n    "Name": "host2"\n  }\n]' \
        "$BATS_TEST_TMPDIR/batch:10: not 'now'" --formatter json --batch "$BATS_TEST_TMPDIR/batch"
    same $'Name\nhost1\nother' "$(autocli --lab "$BATS_TEST_TMPDIR/other lab" --formatter csv --fields Name lab host list)"
    same 'host1 host2' "$(hosts)"

    expect 1 $'true\nfalse\ntrue' $'standard input:2: *\nautocli: 1 line failed' --host host2 --keep-going --batch - <<<$'lab traced set -s stopped\ndovra maintenancemode cancel\nlab reset --force'
    cd "$BATS_TEST_TMPDIR"
    text=$'lab "host\n--host nope dovra trace get\n--batch x\n--echo lab reset\n--plugin-dir x --list\ndovra clutser\n\0'
    printf '%s' "$text" >wrong
    printf '\0lab reset' >>wrong
    expect 3 '' '*' --keep-going --batch wrong
    same 'autocli: wrong:1: the quote " in column 5 has no end
autocli: wrong:2: no host "nope" in this lab; its hosts are: host1
autocli: wrong:3: --batch, --keep-going and --echo are not for the lines of a batch
autocli: wrong:4: --batch, --keep-going and --echo are not for the lines of a batch
autocli: wrong:5: --plugin-dir goes with --batch: all lines have the same commands
autocli: wrong:6: dovra: there is no "clutser"; did you mean "cluster"? *
autocli: wrong:7: a NUL byte is not allowed
autocli: 7 lines failed' "$stderr"
    expect 2 '' 'autocli: wrong:1: *' --batch wrong
    wrong '--batch: "none" cannot be read: No such file or directory' --batch none

    printf '\xef\xbb\xbflab host add \\\r\n-n "h\\\nost5"\r\n# n\033[2Jon\xff\te \\\n-f json dovra trace ge\\\nt --fields "Number Of\\\n Files To Rotate"\nlab host \\\nlist \\' >long
    expect 2 $'> lab host add -n "host5"\ntrue\n> # n\\x1b[2Jon\xef\xbf\xbd\\te \\\n> -f json dovra trace get --fields "Number Of Files To Rotate"\n{\n  "Number Of Files To Rotate": 8\n}\n> lab host list \\' \
        'autocli: long:8: nothing follows the backslash at the end of the line' --echo --batch long
}

@test "a batch reads long lines, leaves no file open, and ends at a line for which there is no memory" {
    run bash -c 'ulimit -n 40; yes "dovra trace get" | head -n 50 | "$AUTOCLI" --batch -'
    same '0: *' "$status: $output"
    { echo 'dovra trace get \' && seq 100000 | sed 's/.*/        \\/'; echo; } | timeout 10 "$AUTOCLI" --batch - # scanned again for each line: a minute
    released_only
    run bash -c 'ulimit -v 200000; "$AUTOCLI" --batch <(echo lab host list; head -c 300M /dev/zero)'
    same '3: *cannot be read: Cannot allocate memory' "$status: $output"
}
