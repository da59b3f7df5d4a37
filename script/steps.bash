# For scripts that do many things: one line each, and the rest of what they print only if one fails.

mkdir -p build/logs

# step NAME COMMAND...: runs the command, says how long it took, and ends the script if it fails.
step() {
    local name=$1 log=build/logs/${1//[^a-z]/-}.txt start=$SECONDS
    shift
    printf '%-28s' "$name"
    if "$@" >"$log" 2>&1; then
        printf '%4d s\n' $((SECONDS - start))
    else
        printf 'failed after %d s; %s ends with:\n' $((SECONDS - start)) "$log"
        tail -n 60 "$log"
        exit 1
    fi
}
