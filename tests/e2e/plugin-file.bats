# The file that ships to a host.
load common

# check WANTED ARGUMENTS...: compares check-plugin's exit status and output with WANTED.
check() {
    run "$BATS_TEST_DIRNAME/../../script/check-plugin" "${@:2}"
    same "$1" "$status: $output"
}

@test "it is fit for a host, and the lab's copy is not" {
    released_only
    check '0: *' "$PLUGIN"
    check "0: *all defined in $(platform)*is fit for a host" "$PLUGIN" "$(platform)"
    same "autocli ${lines[0]#is dovra }" "$(autocli --version)"
    check '1: *leaves open what no platform library defines: Lab::*' "$(platform)/../plugins/libdovra.so"
}

@test "a file that is not fit for a host is refused, with the reason" {
    cd "$BATS_TEST_TMPDIR"
    entry='extern "C" void AutoCli_RegisterNamespaces'
    c++ -shared -fPIC -o libother.so -x c++ - <<<''
    while IFS='|' read -r wanted source flags; do
        c++ -shared -fPIC -o plugin.so -Wl,--no-as-needed $flags -x c++ - -L"$(platform)" \
            -lclitools -lcorectlcore -lcorectl -ldovracorectl -lbaselibs <<<"$source"
        check "$wanted" plugin.so "$(platform)"
    done <<END
0: *|$entry() {}
1: *exports extra()|$entry() {} void extra() {}
1: *exports no function AutoCli_RegisterNamespaces, its entry point|
1: *exports no function AutoCli_RegisterNamespaces, *|extern "C" { int AutoCli_RegisterNamespaces = 1; }
1: *needs a library that a host does not promise: libother.so|$entry() {}|-L. -lother
1: *is not linked with libbaselibs.so*|$entry() {}|-Wl,--as-needed
1: *brings a search path of its own: /opt|$entry() {}|-Wl,-rpath,/opt
1: *leaves open what no platform library defines: missing()|void missing(); $entry() { missing(); }
1: *leaves open *: CliTools::Gone()|namespace CliTools { void Gone(); } $entry() { CliTools::Gone(); }
END
    check '0: *' plugin.so # only the libraries show that CliTools::Gone is missing
    check '1: *needs libclitools.so, which is not in .*' plugin.so .
    check '1: *is not a shared library' "$BATS_TEST_FILENAME"
    check '1: gone.so: no such file' gone.so
    check '2: usage: *' gone.so . .
    check '0: *FILE*' --help
    ln -s /usr/bin/{bash,sed} . && PATH=. check '2: *install binutils' plugin.so
}

@test "it goes to the host's real files, and the lab's copy does not" {
    released_only
    # runs DIRECTORY: prints the host's program that the plug-in there tries to run, and refuses it.
    runs() {
        LD_LIBRARY_PATH=$(platform) strace --follow-forks --output="$BATS_TEST_TMPDIR/trace" \
            --trace-path=/etc/init.d/dovratraced --inject=execve:error=EACCES \
            "$AUTOCLI" --plugin-dir "$1" dovra trace get &>/dev/null || true
        sed -n 's/.*execve("\([^"]*\)".*/\1/p' "$BATS_TEST_TMPDIR/trace"
    }
    same /etc/init.d/dovratraced "$(runs "$(dirname "$PLUGIN")")"
    same '' "$(runs "$(platform)/../plugins")"
}

@test "it waits five seconds before it restarts the trace daemon again" {
    released_only
    succeed lab traced set --state running --fail-restarts 1
    same '*clock_nanosleep(*{tv_sec=5, tv_nsec=0}*' "$(strace --trace=clock_nanosleep \
        --inject=clock_nanosleep:retval=0 "$AUTOCLI" dovra trace set --numfiles 1 2>&1)"
}

@test "it is hardened, runs no code when loaded, and no binary shows where it was built" {
    released_only
    same '*GNU_RELRO*(FLAGS)*BIND_NOW*(FLAGS_1)*NODELETE*' "$(readelf --wide --segments --dynamic "$PLUGIN")"
    same '*__stack_chk_fail*' "$(nm --dynamic "$PLUGIN")"
    # Only the runtime's own entry, so that loading the plug-in runs none of its code.
    same 8 "$(readelf --dynamic "$PLUGIN" | sed -n 's/.*(INIT_ARRAYSZ) *\([0-9]*\) .*/\1/p')"
    here=$(realpath "$BATS_TEST_DIRNAME/../..")
    run ! grep --text --files-with-matches --fixed-strings --recursive "$here" \
        "$PLUGIN" "$AUTOCLI" "$(platform)" "$(platform)/../plugins"
}
