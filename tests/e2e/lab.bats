# The lab's directory and its store: what is changed, by whom, and what is refused.
load common

# tree DIRECTORY: prints what is in it.
tree() { (cd "$1" && find . -type f -exec sha256sum {} + -o -printf '%y %p %l\n' | sort); }

# as_user: lets autocli run as an ordinary user.
as_user() {
    [[ $(id -u) == 0 ]] || return 0
    chmod 755 "$BATS_RUN_TMPDIR" "$BATS_RUN_TMPDIR/test" "$BATS_TEST_TMPDIR"
    install -d -o 65534 "$AUTOCLI_LAB"
    mkdir -p "$BATS_TEST_TMPDIR/moved"
    cp -r "$(dirname "$(dirname "$AUTOCLI")")"/{bin,lib,share} "$BATS_TEST_TMPDIR/moved"
    chmod -R a+rX "$BATS_TEST_TMPDIR/moved"
    autocli() { setpriv --reuid=65534 --regid=65534 --clear-groups "$BATS_TEST_TMPDIR/moved/bin/autocli" "$@"; }
}

@test "a directory that holds other things is never made a lab" {
    for path in precious hosts/host1/precious .hidden lab.db-journal; do
        precious=$BATS_TEST_TMPDIR/$RANDOM
        mkdir -p "$(dirname "$precious/$path")"
        echo mine >"$precious/$path"
        before=$(tree "$precious")
        unusable "the lab's directory \"$precious\" holds other things and no lab; a new lab needs a new or empty directory" --lab "$precious" dovra trace get
        same "$before" "$(tree "$precious")"
    done
    precious+=/$path
    unusable "the lab's directory \"$precious\" is not a directory" --lab "$precious" dovra trace get
    unusable "the lab's directory \"$precious/below\" *" --lab "$precious/below" dovra trace get
    mkdir "$AUTOCLI_LAB"
    tamper 'CREATE TABLE mine (x)'
    foreign=$BATS_TEST_TMPDIR/foreign
    mv "$AUTOCLI_LAB/lab.db" "$foreign"
    cd "$AUTOCLI_LAB"
    for draft in 'ln -s ../foreign lab.db.new' 'ln -s ../new lab.db.new' 'cp ../foreign lab.db.new' 'echo mine >lab.db.new' 'mkfifo lab.db.new' 'ln -s ../foreign lab.db' 'ln -s ../new lab.db'; do
        echo "$draft"
        eval "$draft"
        before=$(tree . && sha256sum "$foreign")
        unusable '*' dovra cluster new
        same "$before" "$(tree . && sha256sum "$foreign")"
        [[ ! -e ../new ]]
        rm lab.db*
    done
    touch lab.db.new-journal # a loss of power left it
    succeed dovra cluster new
}

@test "only what the lab made is deleted" {
    for host in host2 host3; do succeed lab host add --name $host; done
    hosts=$AUTOCLI_LAB/hosts
    cd "$hosts"
    mkdir mine empty
    succeed lab host add --name empty # an empty directory may be replaced
    succeed lab host remove --name empty
    echo mine >mine/file
    cp host2/.autocli-host mine
    cp -r host2 host2.saved
    cp -r host2 .host1
    mv host3 renamed
    mv host2 ../../moved-root
    ln -s ../../moved-root host2
    all() { for kept in mine host2.saved .host1 renamed ../../moved-root; do tree "$hosts/$kept"; done; }
    before=$(all)
    succeed lab host remove --name host2
    for host in mine host2; do
        unusable "\"$hosts/$host\" is in the way, and the lab did not make it" lab host add --name $host
    done
    mv "$hosts" ../../elsewhere
    ln -s ../elsewhere "$hosts"
    elsewhere=$(tree .)
    unusable "\"$hosts\" is in the way, *" lab reset --force
    same "$elsewhere" "$(tree .)"
    rm "$hosts"
    mv "$BATS_TEST_TMPDIR/elsewhere" "$hosts"
    succeed lab reset --force
    same "$before" "$(all)"
    same '.host1 host1 host2 host2.saved mine renamed' "$(ls -A "$hosts" | xargs)"
}

@test "a root that cannot be settled is named, and keeps no other from being settled" {
    as_user
    for host in host2 host3; do succeed lab host add --name $host; done
    hosts=$AUTOCLI_LAB/hosts
    blocked=$hosts/.$(host_uuid host2)
    gone=$hosts/.$(</proc/sys/kernel/random/uuid)
    mkdir -p "$blocked/mine" "$hosts/.$(</proc/sys/kernel/random/uuid)" "$gone" "$hosts/.mine" "$hosts/host1/var/run"
    touch "$gone/.autocli-host" "$hosts/host1/var/run/"{dovratraced.json.new-{$$,"$(sh -c 'echo $$')"},mine.new-4}
    chmod 000 "$hosts/host3/.autocli-host"
    [[ $(id -u) != 0 ]] || chown -R 65534:65534 "$hosts"
    taken="\"$hosts/host2\" cannot be put in order: \"$hosts/host2\": Directory not empty"
    secret="\"$hosts/host3\" cannot be put in order: \"$hosts/host3/.autocli-host\": Permission denied"
    expect 1 true "$taken" lab host remove --name host2
    expect 1 true "$taken"$'\n'"$secret" lab host remove --name host3
    rmdir "$hosts/.mine" # the user's, although it is empty
    same "${blocked##*/} host1 host2 host3" "$(ls -A "$hosts" | xargs)"
    same "dovratraced.json.new-$$ mine.new-4" "$(ls "$hosts/host1/var/run" | xargs)"
    expect 1 true "$taken"$'\n'"$secret" lab host add --name host4
    [[ -d $hosts/host4 ]]
    rmdir "$blocked/mine"
    chmod 600 "$hosts/host3/.autocli-host"
    succeed lab reset --force
    same host1 "$(ls -A "$hosts")"
}

@test "a new host has files of its own, whoever had its name" {
    for _ in 1 2; do
        succeed lab reset --force
        succeed lab host add --name host2
        for host in host1 host2; do
            expect 0 '   DOVRA Traces Directory: /var/dovra/traces*' '' --host $host dovra trace get
            succeed --host $host dovra trace set --path /old
        done
    done
    for command in 'host remove' 'network split'; do
        refuse 'Unable to *: *no host "host3" *' lab $command --name host3
    done
    for name in '' -x .x a/b "$(printf 'a%.0s' {1..65})"; do
        refuse "Unable to add host: \"$name\" cannot be a host's name: it has 1 to 64 *" lab host add --name="$name"
    done
    run=$AUTOCLI_LAB/hosts/host1/var/run
    mkdir -p "$run"
    (touch "$run/dovratraced.json.new-$BASHPID" && exec "$AUTOCLI" lab traced set -s running) # a kill left it
    # As after a kill before the root was renamed: it has its hidden name until a command writes.
    uuid=$(host_uuid host1)
    mv "$AUTOCLI_LAB/hosts/host1" "$AUTOCLI_LAB/hosts/.$uuid"
    cp -r "$AUTOCLI_LAB/hosts/host2" "$AUTOCLI_LAB/hosts/host1"
    sed -i "s/ .*/ $(</proc/sys/kernel/random/uuid) host1/" "$AUTOCLI_LAB/hosts/host1/.autocli-host"
    succeed dovra trace set --path /new
    succeed lab host remove --name host2
    expect 0 '   DOVRA Traces Directory: /new*' '' dovra trace get
    same host1 "$(ls -A "$AUTOCLI_LAB/hosts")"
}

@test "a store that is none, damaged or of another version is refused and left as it is" {
    new_cluster
    store=$AUTOCLI_LAB/lab.db
    cp "$store" "$BATS_TEST_TMPDIR/good"
    coproc batch { autocli --keep-going --batch - 2>&1; } # which has used it before it was damaged
    enabled='--formatter csv --no-header --fields Enabled dovra cluster get'
    # ask WANTED LINE: runs LINE in the batch, and compares the first line that it prints.
    ask() { echo "$2" >&"${batch[1]}" && read -r told <&"${batch[0]}" && same "$1" "$told"; }
    max=9223372036854775807
    while IFS='|' read -r damage error commands; do
        cp --remove-destination "$BATS_TEST_TMPDIR/good" "$store"
        ask true "$enabled"
        eval "$damage"
        before=$(sha256sum <"$store")
        IFS=, read -ra lines <<<"$commands"
        for line in "${lines[@]}"; do
            echo "$damage: $line"
            unusable "$error" $line
            ask "autocli: standard input:*: $error" "$line"
        done
        same "$before" "$(sha256sum <"$store")"
    done <<EOF
: >"\$store"|"$store" is not a lab's store|dovra cluster get,dovra cluster leave
seq 9999 >"\$store"|"$store" is not a lab's store|dovra cluster get,dovra cluster leave
truncate -s -100 "\$store"|the lab's store "$store" is damaged: its end is missing|dovra cluster get,dovra cluster leave
truncate -s 8192 "\$store"|the lab's store "$store" is damaged: *|dovra cluster get,dovra cluster leave
tamper "PRAGMA user_version = 9"|the lab's store "$store" is from a newer version of autocli (9; this one knows *|dovra cluster get
tamper "PRAGMA user_version = 1"|the lab's store "$store" is from an older version of autocli (1; this one knows *|dovra cluster get,lab reset --force
tamper "PRAGMA foreign_keys = OFF; DELETE FROM clusters"|the lab's store "$store" is damaged: there is no cluster *|dovra cluster get,dovra faultdomain set -n x,dovra datastore list,lab host list
tamper "UPDATE clusters SET generation = $max"|the lab's store "$store" is damaged: *|dovra faultdomain set -n x,dovra datastore add -n x
tamper "UPDATE clusters SET revision = $max"|the lab's store "$store" is damaged: *|lab host reboot
tamper "UPDATE clusters SET generation_time = -1"|the lab's store "$store" is damaged: *|dovra cluster get
tamper "UPDATE members SET join_order = $max, running = 0"|the lab's store "$store" is damaged: *|dovra cluster restore
tamper "UPDATE hosts SET name = '../../victim'"|the lab's store "$store" is damaged: a host is called "../../victim"|lab host list,--host ../../victim dovra trace get
tamper "UPDATE hosts SET uuid = '/../victim'"|the lab's store "$store" is damaged: *|dovra trace get,lab host list
tamper "DELETE FROM lab"|the lab's store "$store" is damaged: it has no name|lab host add -n x
EOF
    cp "$BATS_TEST_TMPDIR/good" "$store"
    rm -r "$AUTOCLI_LAB"
    ask false "$enabled"
}

@test "paths that SQLite would take for something else, or not at all" {
    cd "$BATS_TEST_TMPDIR"
    succeed --lab 'deep/er/file:odd?mode=memory' dovra cluster new
    [[ -f 'deep/er/file:odd?mode=memory/lab.db' ]]
    long=$(printf 'a%.0s' {1..250})
    unusable "the lab's directory \"$PWD/$long/$long\" cannot be used: its path is too long" --lab "$long/$long" dovra cluster get
    [[ ! -e $long ]]
}

@test "a lab is for its owner alone, who may make it read-only" {
    for mask in 000 077; do
        AUTOCLI_LAB=$BATS_TEST_TMPDIR/$mask/lab
        (umask $mask; new_cluster; autocli lab traced set -s running; autocli dovra trace set -p /x; autocli dovra cluster leave)
        same '' "$(find "$BATS_TEST_TMPDIR/$mask" -perm /022 ! -type l)"
    done
    AUTOCLI_LAB=$BATS_TEST_TMPDIR/lab
    as_user
    new_cluster host2
    autocli lab fault add -o LeaveCluster -m no
    autocli lab traced set -s running
    for part in '' /lab.db /lab.db-journal /hosts /hosts/host1 /hosts/host1/etc/init.d{,/dovratraced} /hosts/host1/var/run; do
        path=$AUTOCLI_LAB$part
        for who in g o; do
            chmod $who+w "$path"
            unusable "\"$path\" can be written by other users; a lab is for its owner alone: chmod go-w \"$path\"" dovra trace get
            eval "${stderr##*: }"
        done
        [[ $(id -u) == 0 ]] || continue
        chown 0 "$path"
        unusable "\"$path\" belongs to root; a lab is for its owner alone: *" dovra trace get
        chown 65534 "$path"
    done
    chmod g+w "$AUTOCLI_LAB/hosts/host2"
    before=$(tree "$AUTOCLI_LAB")
    for line in '--host host2 dovra cluster get' 'lab host remove -n host2' 'lab reset --force'; do
        unusable "\"$AUTOCLI_LAB/hosts/host2\" can be written by other users; *" $line
    done
    chmod -R a-w "$AUTOCLI_LAB"
    for line in 'dovra cluster get' 'dovra trace get' 'dovra storage list' 'lab host list'; do
        expect 0 '*' '' $line
    done
    for line in 'dovra cluster leave' 'lab host add -n host3'; do
        unusable "the lab's store \"$AUTOCLI_LAB/lab.db\" cannot be written" $line
    done
    expect 1 '' '*' dovra trace set -p /x
    same "$before" "$(tree "$AUTOCLI_LAB")"
    chmod -R u+w "$AUTOCLI_LAB"
    autocli() { "$AUTOCLI" "$@"; }
    [[ $(id -u) != 0 ]] || unusable "\"$AUTOCLI_LAB\" belongs to $(id -un 65534); *" dovra trace get
}

@test "who reads does not wait for who writes" {
    new_cluster
    hold 600
    for line in 'dovra trace get' 'dovra cluster get' 'lab host list' 'lab fault list' 'dovra storage list'; do
        timeout 20 "$AUTOCLI" $line
    done
    release
}
