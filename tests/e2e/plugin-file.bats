# The file that ships to a host.
load common

check() { run --separate-stderr "$BATS_TEST_DIRNAME/../../script/check-plugin" "$@"; }

@test "it is fit for a host, and the lab's copy is not" {
    released_only
    check "$PLUGIN"
    [[ $status == 0 ]]
    check "$PLUGIN" "$(platform)"
    [[ $status == 0 && $output == *"all defined in $(platform)"*"is fit for a host" ]]
    check "$(platform)/../plugins/libdovra.so"
    [[ $status == 1 && $stderr == *"leaves open what no platform library defines: Lab::"* ]]
}

@test "a file that is not fit for a host is refused, with the reason" {
    cd "$BATS_TEST_TMPDIR"
    # link SOURCE FLAGS...: a plug-in of this source, with all that a host promises.
    link() { c++ -shared -fPIC -o plugin.so -Wl,--no-as-needed "${@:2}" -x c++ - -L"$(platform)" -lclitools -lcorectlcore -lcorectl -ldovracorectl -lbaselibs <<<"$1"; }
    refused() { # REASON SOURCE FLAGS...
        link "${@:2}"
        check plugin.so "$(platform)"
        [[ $status == 1 && -z $output ]] && matches "$stderr" "plugin.so: $1" || { echo "$stderr"; false; }
    }
    entry='extern "C" void AutoCli_RegisterNamespaces'
    link "$entry() {}"
    check plugin.so "$(platform)"
    [[ $status == 0 ]]
    c++ -shared -fPIC -o libother.so -x c++ - <<<''
    refused 'exports extra()' "$entry() {} void extra() {}"
    refused 'does not export its entry point AutoCli_RegisterNamespaces' ''
    refused 'needs a library that a host does not promise: libother.so' "$entry() {}" -L. -lother
    refused 'is not linked with libbaselibs.so'$'\n'* "$entry() {}" -Wl,--as-needed
    refused 'brings a search path of its own: /opt' "$entry() {}" -Wl,-rpath,/opt
    refused 'leaves open what no platform library defines: missing()' "void missing(); $entry() { missing(); }"
    refused 'leaves open what no platform library defines: CliTools::Gone()' "namespace CliTools { void Gone(); } $entry() { CliTools::Gone(); }"
    check plugin.so # a name of the platform's: only its libraries tell
    [[ $status == 0 ]]
    check plugin.so .
    [[ $status == 1 && $stderr == *'needs libclitools.so, which is not in .'* ]]
    check "$BATS_TEST_FILENAME"
    [[ $status == 1 && $stderr == *'is not a shared library' ]]
    check gone.so
    [[ $status == 1 && $stderr == 'gone.so: is no file' ]]
}

@test "it goes to the host's real files, and the lab's copy does not" {
    released_only
    # runs FOLDER: what of the host's the plug-in there asks the system to run; it may not.
    runs() {
        LD_LIBRARY_PATH=$(platform) strace --follow-forks --output="$BATS_TEST_TMPDIR/trace" \
            --trace-path=/etc/init.d/dovratraced --inject=execve:error=EACCES \
            "$AUTOCLI" --plugin-dir "$1" dovra trace get &>/dev/null || true
        sed -n 's/.*execve("\([^"]*\)".*/\1/p' "$BATS_TEST_TMPDIR/trace"
    }
    [[ $(runs "$(dirname "$PLUGIN")") == /etc/init.d/dovratraced ]]
    [[ -z $(runs "$(platform)/../plugins") ]]
}

@test "it is hardened, and no binary tells where it was built" {
    released_only
    dynamic=$(readelf --wide --dynamic "$PLUGIN")
    [[ $dynamic == *'(FLAGS)'*BIND_NOW* && $dynamic == *'(FLAGS_1)'*NODELETE* ]]
    [[ $(readelf --wide --segments "$PLUGIN") == *GNU_RELRO* ]]
    [[ $(nm --dynamic "$PLUGIN") == *__stack_chk_fail* ]]
    here=$(realpath "$BATS_TEST_DIRNAME/../..")
    run ! grep --text --files-with-matches --fixed-strings --recursive "$here" \
        "$PLUGIN" "$AUTOCLI" "$(platform)" "$(platform)/../plugins"
}
