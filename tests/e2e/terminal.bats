# What somebody at a terminal sees, and nobody else.
load common

red=$'\e[31m' bold=$'\e[1m' plain=$'\e[0m' erase=$'\r\e[K'

# on_terminal COMMAND: what it writes to a terminal of 60 columns, with plain line ends.
on_terminal() {
    TERM=xterm script -qec "stty cols 60; $1" /dev/null </dev/null | sed 's/\r$//'
}

@test "captions in bold, errors in red, tables that fit, all plain for a pipe and on demand" {
    new_cluster
    [[ $(on_terminal '$AUTOCLI dovra cluster get') == "${bold}Cluster Information$plain"$'\n'* ]]
    [[ $(on_terminal '$AUTOCLI dovra clutser get') == "${red}autocli: dovra: there is no "*"$plain" ]]
    [[ $(on_terminal '$AUTOCLI dovra trace --help') == "${bold}Usage:$plain autocli dovra trace"*"${bold}Commands:$plain"* ]]
    list=$(on_terminal '$AUTOCLI --list')
    [[ $list == "${bold}Command "* && $(tail -n +2 <<<"$list" | wc -L) -le 60 ]]
    uuid=$(host_uuid host1)
    [[ $(on_terminal '$AUTOCLI lab host list') == *"${uuid:0:8}…"*'UUIDs are cut short; --fields chooses what is shown.)' ]]
    [[ $(on_terminal '$AUTOCLI lab host list --fields Name,UUID') == *"$uuid" ]]
    [[ $(on_terminal '$AUTOCLI dovra datastore list') != *' is empty'* && $(on_terminal '$AUTOCLI lab fault list') == *'The list is empty.' ]]
    [[ $(on_terminal '$AUTOCLI lab fault list 2>/dev/null') != *' is empty'* ]]
    for plain_command in 'NO_COLOR=1 $AUTOCLI' 'TERM=dumb $AUTOCLI'; do
        [[ $(on_terminal "$plain_command lab host list") == "$(autocli lab host list)" ]]
        [[ $(on_terminal "$plain_command dovra clutser") == 'autocli: dovra: there is no'* ]]
    done
    [[ $(on_terminal 'NO_COLOR= $AUTOCLI lab disk list') == "$bold"* ]]
    [[ $(on_terminal '$AUTOCLI lab disk list | cat') == "$(autocli lab disk list)" ]]
}

@test "what cannot be undone is asked for" {
    succeed lab host add --name host2
    cd "$BATS_TEST_TMPDIR"
    [[ $(on_terminal '$AUTOCLI lab reset </dev/null') == *'Nobody can be asked here'* ]]
    [[ $(on_terminal '$AUTOCLI lab reset 2>&1 | cat') == *'Nobody can be asked here'* ]]
    for answered in 'n=*Nothing was done.*status 1' '=*Nothing was done.*status 1' 'y=*true*status 0'; do
        [[ $(autocli lab host list) == *host2* ]]
        TERM=dumb script -qec '$AUTOCLI lab reset; echo "status $?"' /dev/null <<<"${answered%=*}" >asked
        [[ $(tr -d '\r' <asked) == *'Every host and cluster of the lab will be lost. Go on? [y/N] '${answered#*=} ]]
    done
    [[ $(autocli lab host list) != *host2* ]]
    TERM=dumb script -qec '$AUTOCLI --batch -' /dev/null <<<$'lab reset\nyes\nlab host add -n host2' >asked
    [[ $(cat asked) != *'"es"'* && $(autocli lab host list) == *host2* ]]
}

@test "a command that takes long shows that it is at work, and leaves no trace of that" {
    autocli dovra cluster new
    hold 4
    cd "$BATS_TEST_TMPDIR"
    on_terminal '$AUTOCLI lab host add --name host2' >good &
    on_terminal '$AUTOCLI lab host add --name host1' >bad &
    on_terminal 'NO_COLOR=1 $AUTOCLI lab host add --name host3' >plain &
    wait
    [[ $(cat good) == *'lab host add (1 s, waits for another process)'*"$erase"true && $(cat good) == *'(2 s, '* ]]
    [[ $(cat bad) == *'lab host add (1 s, '*"$erase${red}Unable to add host: "*"$plain" ]]
    [[ $(cat plain) == true ]]
    [[ $(autocli --formatter csv --fields Name lab host list | sort | xargs) == 'Name host1 host2 host3' ]]
}
