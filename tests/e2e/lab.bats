# The lab's folder and its store: what is touched, by whom, and what is refused.
load common

# tree FOLDER: all that is in it.
tree() { (cd "$1" && find . -type f -exec sha256sum {} + -o -printf '%y %p %l\n' | sort); }

# as_nobody: lets autocli run as somebody to whom not all is allowed.
as_nobody() {
    [[ $(id -u) == 0 ]] || skip "only root can become another user"
    chmod 755 "$BATS_RUN_TMPDIR" "$BATS_RUN_TMPDIR/test" "$BATS_TEST_TMPDIR"
    mkdir -p "$BATS_TEST_TMPDIR/moved"
    cp -r "$(dirname "$(dirname "$AUTOCLI")")"/{bin,lib,share} "$BATS_TEST_TMPDIR/moved"
    autocli() { setpriv --reuid=65534 --regid=65534 --clear-groups "$BATS_TEST_TMPDIR/moved/bin/autocli" "$@"; }
}

@test "a folder that holds other things is never made a lab" {
    for path in precious hosts/host1/precious .hidden lab.db-journal; do
        folder=$BATS_TEST_TMPDIR/$RANDOM
        mkdir -p "$(dirname "$folder/$path")"
        echo mine >"$folder/$path"
        before=$(tree "$folder")
        unusable "the lab's folder \"$folder\" holds other things and no lab; a new lab wants a new or empty folder" --lab "$folder" dovra trace get
        same "$before" "$(tree "$folder")"
    done
    unusable "the lab's folder \"$folder/$path\" is not a folder" --lab "$folder/$path" dovra trace get
    unusable "the lab's folder \"$folder/$path/below\" *" --lab "$folder/$path/below" dovra trace get
    mkdir "$AUTOCLI_LAB"
    touch "$AUTOCLI_LAB/lab.db.new-journal" # a loss of power left it
    succeed dovra cluster new
}

@test "only what the lab made is deleted" {
    succeed lab host add --name host2
    mkdir "$AUTOCLI_LAB/hosts/"{mine,empty}
    succeed lab host add --name empty # nothing is lost with that
    succeed lab host remove --name empty
    echo mine >"$AUTOCLI_LAB/hosts/mine/file"
    echo "another-lab $(host_uuid host1)" >"$AUTOCLI_LAB/hosts/mine/.autocli-host"
    mv "$AUTOCLI_LAB/hosts/host2" "$BATS_TEST_TMPDIR/moved-root"
    ln -s "$BATS_TEST_TMPDIR/moved-root" "$AUTOCLI_LAB/hosts/host2"
    before=$(tree "$AUTOCLI_LAB/hosts/mine" && tree "$BATS_TEST_TMPDIR/moved-root")
    unusable "\"$AUTOCLI_LAB/hosts/mine\" is in the way, and the lab did not make it" lab host add --name mine
    succeed lab host remove --name host2
    unusable "\"$AUTOCLI_LAB/hosts/host2\" is in the way, and the lab did not make it" lab host add --name host2
    mv "$AUTOCLI_LAB/hosts" "$BATS_TEST_TMPDIR/elsewhere"
    ln -s "$BATS_TEST_TMPDIR/elsewhere" "$AUTOCLI_LAB/hosts"
    elsewhere=$(tree "$BATS_TEST_TMPDIR/elsewhere")
    unusable "\"$AUTOCLI_LAB/hosts\" is in the way, *" lab reset --force
    same "$elsewhere" "$(tree "$BATS_TEST_TMPDIR/elsewhere")"
    rm "$AUTOCLI_LAB/hosts"
    mv "$BATS_TEST_TMPDIR/elsewhere" "$AUTOCLI_LAB/hosts"
    succeed lab reset --force
    same "$before" "$(tree "$AUTOCLI_LAB/hosts/mine" && tree "$BATS_TEST_TMPDIR/moved-root")"
    same $'host1\nhost2\nmine' "$(ls -A "$AUTOCLI_LAB/hosts")"
}

@test "a new host has files of its own, whoever had its name" {
    succeed lab host add --name host2
    succeed --host host2 dovra trace set --path /old
    succeed dovra trace set --path /old
    succeed lab reset --force
    succeed lab host add --name host2
    for name in '' -x .x a/b "$(printf 'a%.0s' {1..65})"; do
        refuse "Unable to add host: \"$name\" cannot be a host's name: it has 1 to 64 *" lab host add --name="$name"
    done
    for host in host1 host2; do
        expect 0 '   DOVRA Traces Directory: /var/dovra/traces*' '' --host $host dovra trace get
    done
    # A kill between a host and its files' names: they are there under another, until somebody writes.
    uuid=$(host_uuid host1)
    mv "$AUTOCLI_LAB/hosts/host1" "$AUTOCLI_LAB/hosts/.$uuid"
    cp -r "$AUTOCLI_LAB/hosts/host2" "$AUTOCLI_LAB/hosts/host1"
    succeed dovra trace set --path /new
    succeed lab host remove --name host2
    expect 0 '   DOVRA Traces Directory: /new*' '' dovra trace get
    same host1 "$(ls -A "$AUTOCLI_LAB/hosts")"
}

@test "a store that is none, damaged or of another version is refused and left as it is" {
    new_cluster
    store=$AUTOCLI_LAB/lab.db
    cp "$store" "$BATS_TEST_TMPDIR/good"
    unusable 'no host "nope" in this lab; its hosts are: host1' --host nope dovra cluster get
    coproc batch { autocli --keep-going --batch - 2>&1; } # which has used it before it was damaged
    enabled='--formatter csv --no-header --fields Enabled dovra cluster get'
    ask() { echo "$1" >&"${batch[1]}" && read -r told <&"${batch[0]}"; }
    max=9223372036854775807
    while IFS='|' read -r damage error commands; do
        cp --remove-destination "$BATS_TEST_TMPDIR/good" "$store"
        ask "$enabled"
        same true "$told"
        eval "$damage"
        before=$(sha256sum <"$store")
        IFS=, read -ra lines <<<"$commands"
        for line in "${lines[@]}"; do
            echo "$damage: $line"
            unusable "$error" $line
            ask "$line"
            same "$error" "${told#autocli: standard input:*: }"
        done
        same "$before" "$(sha256sum <"$store")"
    done <<EOF
: >"\$store"|"$store" is not a lab's store|dovra cluster get,dovra cluster leave
seq 9999 >"\$store"|"$store" is not a lab's store|dovra cluster get,dovra cluster leave
truncate -s -100 "\$store"|the lab's store "$store" is damaged: its end is missing|dovra cluster get,dovra cluster leave
truncate -s 8192 "\$store"|the lab's store "$store" is damaged: *|dovra cluster get,dovra cluster leave
tamper "PRAGMA user_version = 9"|the lab's store "$store" is from a newer version of autocli (9; this one knows *|dovra cluster get
tamper "PRAGMA user_version = 1"|the lab's store "$store" is from an older version of autocli (1; this one knows *|dovra cluster get,lab reset --force
tamper "PRAGMA foreign_keys = OFF; DELETE FROM clusters"|the lab's store "$store" is damaged: there is no cluster *|dovra cluster get,dovra faultdomain set -n x,dovra datastore clear,dovra datastore list,lab host list
tamper "UPDATE clusters SET generation = $max"|the lab's store "$store" is damaged: *|dovra faultdomain set -n x,dovra datastore add -n x
tamper "UPDATE clusters SET revision = $max"|the lab's store "$store" is damaged: *|lab host reboot
tamper "UPDATE clusters SET generation_time = -1"|the lab's store "$store" is damaged: *|dovra cluster get
tamper "UPDATE members SET place = $max, running = 0"|the lab's store "$store" is damaged: *|dovra cluster restore
tamper "UPDATE hosts SET name = '../../victim'"|the lab's store "$store" is damaged: a host is called "../../victim"|lab host list,--host ../../victim dovra trace get
tamper "UPDATE hosts SET uuid = '/../victim'"|the lab's store "$store" is damaged: *|dovra trace get,lab host list
tamper "DELETE FROM lab"|the lab's store "$store" is damaged: it has no name|lab host add -n x
EOF
    cp "$BATS_TEST_TMPDIR/good" "$store"
    same true "$(cluster_field Enabled)"
    link="--lab $BATS_TEST_TMPDIR/link $enabled"
    mkdir "$BATS_TEST_TMPDIR/new"
    ln -s "$AUTOCLI_LAB" "$BATS_TEST_TMPDIR/link"
    ask "$link"
    same true "$told"
    ln -sfn new "$BATS_TEST_TMPDIR/link"
    ask "$link"
    same false "$told"
    read -r <&"${batch[0]}" # why
    ask "$enabled"
    same true "$told"
    rm -r "$AUTOCLI_LAB"
    ask "$enabled"
    same false "$told"
}

@test "paths that SQLite would take for something else, or not at all" {
    cd "$BATS_TEST_TMPDIR"
    succeed --lab 'deep/er/file:odd?mode=memory' dovra cluster new
    [[ -f 'deep/er/file:odd?mode=memory/lab.db' ]]
    long=$(printf 'a%.0s' {1..250})
    unusable "the lab's folder \"$PWD/$long/$long\" cannot be used: its path is too long" --lab "$long/$long" dovra cluster get
    [[ ! -e $long ]]
}

@test "who may read a lab may read it, who may write it may use it, root uses no other's" {
    as_nobody
    for mask in 022 002 077; do
        AUTOCLI_LAB=$BATS_TEST_TMPDIR/$mask
        (umask $mask; "$AUTOCLI" dovra cluster new)
        modes=$(cd "$AUTOCLI_LAB" && stat -c %a lab.db hosts/host1/etc/init.d/dovratraced hosts/host1/etc/orvane/dovra/dovratraced.conf hosts)
        file=$(printf %o $((0666 & ~0$mask))) program=$(printf %o $((0777 & ~0$mask)))
        same "$file $program $file $program" "$(xargs <<<"$modes")"
    done
    unusable "the lab's folder \"$AUTOCLI_LAB\" cannot be used: Permission denied" dovra cluster get
    AUTOCLI_LAB=$BATS_TEST_TMPDIR/022
    before=$(tree "$AUTOCLI_LAB")
    for line in 'cluster get' 'trace get' 'storage list' 'network list' 'datastore list' 'policy getdefault' 'resync throttle get' 'faultdomain get' 'cluster unicastagent list'; do
        expect 0 '*' '' dovra $line
    done
    expect 0 '*' '' lab host list
    for line in 'dovra cluster leave' 'lab host add -n host2'; do
        unusable "the lab's store \"$AUTOCLI_LAB/lab.db\" cannot be written" $line
    done
    expect 1 '' '*' dovra trace set -p /x
    same "$before" "$(tree "$AUTOCLI_LAB")"
    chmod go-r "$AUTOCLI_LAB/lab.db"
    unusable "the lab's store \"$AUTOCLI_LAB/lab.db\" cannot be *(Permission denied)" dovra cluster get
    chown -R 65534:65534 "$AUTOCLI_LAB"
    expect 0 true '' dovra cluster leave
    autocli() { "$AUTOCLI" "$@"; }
    unusable "\"$AUTOCLI_LAB\" belongs to $(id -un 65534); *" dovra trace get
    for part in lab.db hosts/host1 hosts/host1/etc/init.d/dovratraced; do
        chown -R 0:0 "$AUTOCLI_LAB"
        chown 65534:65534 "$AUTOCLI_LAB/$part"
        unusable "\"$AUTOCLI_LAB/$part\" belongs to *" dovra trace get
    done
}

@test "who reads does not wait for who writes" {
    new_cluster
    hold 600
    for line in 'dovra trace get' 'dovra cluster get' 'lab host list' 'lab fault list' 'dovra storage list'; do
        timeout 20 "$AUTOCLI" $line
    done
    release
}
