# bash completion for autocli; for an alias: complete -F _autocli ALIAS
#
# autocli parses the line as it was typed, so the script removes no quotes. bash also breaks words at
# ":" and "=", and expects only the part after the last break. It hides the variables that are assigned
# before the command, so that AUTOCLI_LAB there is ignored.
_autocli() {
    local LC_ALL=C program=$1 line word what typed kept='' quote='' item
    local breaks=${COMP_WORDBREAKS//[^:=]/} current=${COMP_WORDS[COMP_CWORD]}
    local -a words=() items=()
    line=${COMP_LINE:0:COMP_POINT}
    if [[ $current == [\"\']* ]]; then
        quote=${current:0:1}
        kept=${line%"$current"}
        kept=${kept##*[[:space:]]}
    elif [[ $breaks ]]; then
        typed=${line##*[[:space:]]}
        kept=${typed%"${typed##*["$breaks"]}"}
    fi
    if [[ ${BASH_ALIASES[$program]-} ]]; then
        line=${BASH_ALIASES[$program]}${line#"$program"}
        [[ $line =~ ^[[:space:]]*([A-Za-z_][A-Za-z_0-9]*=[^[:space:]]*[[:space:]]+)*([^[:space:]]+) ]]
        program=${BASH_REMATCH[2]}
    fi
    while IFS=$'\t' read -r word what; do
        if [[ $word == / ]]; then
            compopt -o default 2>/dev/null
            continue
        fi
        item=${word#"$kept"}
        case $quote in
        "'") item=${item//\'/\'\\\'\'} ;;
        '"') item=$(sed 's/[\\"$`]/\\&/g' <<<"$item") ;;
        *) printf -v item %q "$item" ;;
        esac
        words+=("$item")
        [[ $word =~ ^[0-9a-f-]{36}$ && $what ]] && item+="  ($what)"
        items+=("$item")
    done < <("${program/#\~\//$HOME/}" --complete "$line" 2>/dev/null)
    COMPREPLY=("${words[@]}")
    # A list is only shown, so it can describe UUIDs.
    ((${#words[@]} == 1)) || [[ ${COMP_TYPE-} != @(33|63|64) ]] || COMPREPLY=("${items[@]}")
}
complete -F _autocli autocli
