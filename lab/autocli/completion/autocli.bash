# bash completion for autocli; for an alias of it as well: complete -F _autocli ALIAS
#
# autocli takes the line apart as it was typed, so that no quotes have to be undone here. bash breaks
# words at ":" and "=" too, and wants only what follows the last break. Variables that are set before
# the command it keeps to itself: name another lab with --lab.
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
    # A list is only shown, so it can tell what each UUID is.
    case ${COMP_TYPE-}/${#words[@]} in
    */1) COMPREPLY=("${words[@]}") ;;
    33/* | 63/* | 64/*) COMPREPLY=("${items[@]}") ;;
    *) COMPREPLY=("${words[@]}") ;;
    esac
}
complete -F _autocli autocli
