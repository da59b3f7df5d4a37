# fish completion for autocli
#
# autocli parses the line as it was typed, so the script removes no quotes.
function __autocli_complete
    set -l program (string match -v -r '^[A-Za-z_]\w*=' -- (commandline -opc))[1]
    set program (string replace -r '^~/' "$HOME/" -- $program)
    set -l candidates ($program --complete (commandline -cp) 2>/dev/null)
    if string match -q -r '^/\t?$' -- "$candidates[1]"
        set -l typed (commandline -ct)
        set -l option (string match -r '^--[^=]*=' -- $typed)
        for path in (__fish_complete_path (string replace -r '^--[^=]*=' '' -- $typed))
            echo "$option$path"
        end
    else
        printf '%s\n' $candidates
    end
end
complete -c autocli -f -k -a '(__autocli_complete)'
