# Output that only a terminal gets.
load common

red=$'\e[31m' bold=$'\e[1m' plain=$'\e[0m' erase=$'\r\e[K'

# on_terminal COMMAND: prints what COMMAND writes to a terminal of 60 columns, without carriage returns.
on_terminal() {
    TERM=xterm script -qec "stty cols 60; $1" /dev/null </dev/null | sed 's/\r$//'
}

# shows WANTED COMMAND: compares what a command writes to a terminal of 60 columns with WANTED.
shows() { same "$1" "$(on_terminal "$2")"; }

@test "captions in bold, errors in red, tables that fit, all plain for a pipe and on demand" {
    new_cluster
    shows "${bold}Cluster Information$plain"$'\n*' '$AUTOCLI dovra cluster get'
    shows "${red}autocli: dovra: there is no *$plain" '$AUTOCLI dovra clutser get'
    shows "${bold}Usage:$plain autocli dovra trace*${bold}Commands:$plain*" '$AUTOCLI dovra trace --help'
    uuid=$(host_uuid host1)
    shows "*$uuid" '$AUTOCLI lab host list --fields Name,UUID'
    wide='--fields "Name,UUID,Cluster UUID" lab host list'
    shows "   Name: host1"$'\n'"   UUID: $uuid"$'\n'"   Cluster UUID: $cluster" "\$AUTOCLI $wide"
    shows "$bold*$uuid  $cluster" "\$AUTOCLI -f table $wide"
    shows '*The list is empty.' '$AUTOCLI lab fault list'
    shows "$(autocli lab fault list)" 'NO_COLOR=1 $AUTOCLI lab fault list 2>/dev/null'
    autocli lab fault add -o GetDovraInfo -m broken >/dev/null # nothing was read
    shows "${red}*broken$plain" '$AUTOCLI dovra storage list'
    for plain_command in 'NO_COLOR=1 $AUTOCLI' 'TERM=dumb $AUTOCLI'; do
        shows $'   Name: host1\n   Membership: data\n*' "$plain_command lab host list"
        shows 'autocli: dovra: there is no*' "$plain_command dovra clutser"
    done
    shows "$bold*" 'NO_COLOR= $AUTOCLI lab disk list --fields Device,Kind'
    shows "$(autocli lab disk list)" '$AUTOCLI lab disk list | cat'
}

@test "the first command says where it has made the default lab" {
    export HOME=$BATS_TEST_TMPDIR XDG_STATE_HOME='' AUTOCLI_LAB='' NO_COLOR=1
    shows $'Created a lab in "'"$HOME/.local/state/autocli/lab"$'"; --lab or AUTOCLI_LAB selects another directory.\ntrue' '$AUTOCLI dovra cluster new'
    shows true '$AUTOCLI dovra cluster leave'
    shows true '$AUTOCLI --lab "$HOME/other" dovra cluster new'
}

@test "what cannot be undone is asked for" {
    succeed lab host add --name host2
    cd "$BATS_TEST_TMPDIR"
    for command in '$AUTOCLI lab reset </dev/null' '$AUTOCLI lab reset 2>&1 | cat'; do
        shows '*Without a terminal to ask on, it takes --force*' "$command"
    done
    for answered in 'n=*Nothing was done.*status 1' '=*Nothing was done.*status 1' 'y=*true*status 0'; do
        same 'host1 host2' "$(hosts)"
        TERM=dumb script -qec '$AUTOCLI lab reset; echo "status $?"' /dev/null <<<"${answered%=*}" >asked
        same "*Every host and cluster of the lab will be lost. The lab is in \"$AUTOCLI_LAB\". Go on? [y/N] ${answered#*=}" "$(tr -d '\r' <asked)"
    done
    same host1 "$(hosts)"
    same $'*[y/N] *\nNothing was done.' "$(TERM=dumb script -qec '$AUTOCLI lab reset' /dev/null </dev/null | tr -d '\r')"
    TERM=dumb script -qec '$AUTOCLI --batch -' /dev/null <<<$'lab reset\nyes\nlab host add -n host2' >asked
    same 'host1 host2' "$(hosts)"
    [[ $(cat asked) != *'"es"'* ]]
}

@test "a command that takes long shows that it is at work, and leaves no trace of that" {
    autocli dovra cluster new
    hold 4
    cd "$BATS_TEST_TMPDIR"
    on_terminal '$AUTOCLI lab host add --name host2' >good &
    on_terminal '$AUTOCLI lab host add --name host1' >bad &
    on_terminal 'NO_COLOR=1 $AUTOCLI lab host add --name host3' >plain &
    wait
    same "*lab host add (1 s, waits for another process)*(2 s, *${erase}true" "$(cat good)"
    same "*lab host add (1 s, *$erase${red}Unable to add host: *$plain" "$(cat bad)"
    same true "$(cat plain)"
    same 'host1 host2 host3' "$(hosts | tr ' ' '\n' | sort | xargs)"
}
