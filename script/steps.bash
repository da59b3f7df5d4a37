# For scripts of several steps: prints a line for each step, and its output only if it fails.

mkdir -p build/logs

# step NAME COMMAND...: prints the step's name and log, runs the command, prints the seconds it took.
# Ends the script if the command fails.
step() {
    local name=$1 log=build/logs/${1//[^a-z]/-}.txt start=$SECONDS
    shift
    printf '%-24s %-36s' "$name" "$log"
    if "$@" >"$log" 2>&1; then
        printf '%5d s\n' $((SECONDS - start))
    else
        printf 'failed after %d s; the log ends with:\n' $((SECONDS - start))
        tail -n 60 "$log"
        exit 1
    fi
}

# configure PRESET [OPTIONS]: runs cmake, from scratch if the checkout has been moved.
configure() {
    local directory=build
    [[ $1 == release ]] || directory=build-$1
    if grep -qsx "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$directory/CMakeCache.txt"; then
        cmake --preset "$@"
    else
        cmake --fresh --preset "$@"
    fi
}
