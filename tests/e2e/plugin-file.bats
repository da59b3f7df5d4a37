# The file that ships to a host.
load common

@test "it exports its entry point and nothing else" {
    [[ $(nm -D --defined-only --format=just-symbols "$PLUGIN") == AutoCli_RegisterNamespaces ]]
}

@test "it needs the platform's libraries and the language's, and no more" {
    needed=$(readelf -d "$PLUGIN" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p' | grep -vE '^(libstdc\+\+\.so\.6|libgcc_s\.so\.1|libc\.so\.6|libm\.so\.6|libasan.*|libubsan.*)$' | sort | paste -sd' ')
    [[ $needed == 'libbaselibs.so libclitools.so libcorectl.so libcorectlcore.so libdovracorectl.so' ]]
    ! readelf -d "$PLUGIN" | grep -qE 'RPATH|RUNPATH'
}

@test "what it leaves open, those libraries define" {
    libraries=$(dirname "$AUTOCLI")/../lib
    run env LD_LIBRARY_PATH="$libraries" ldd -r "$PLUGIN"
    [[ $output != *'undefined symbol'* && $output != *'not found'* ]]
    # Its own part of what is open comes from the platform, not from what that happens to link.
    nm -D --undefined-only --format=just-symbols "$PLUGIN" | grep -E 'CliTools|HostCtl|CoreCtl|^UUID_|^Str_' | sort >"$BATS_TEST_TMPDIR/open"
    nm -D --defined-only --format=just-symbols "$libraries"/lib*.so | sort -u >"$BATS_TEST_TMPDIR/defined"
    [[ -s $BATS_TEST_TMPDIR/open ]]
    [[ -z $(comm -23 "$BATS_TEST_TMPDIR/open" "$BATS_TEST_TMPDIR/defined") ]]
}

@test "it knows the host's real paths, and the lab's copy does not" {
    lab_copy=$(dirname "$AUTOCLI")/../lib/autocli/plugins/libdovra.so
    for path in /usr/lib/orvane/hostmgrd/bin/notifyDatastore.py /etc/orvane/dovra/dovratraced.conf /etc/init.d/dovratraced; do
        grep -qF -- "$path" "$PLUGIN"
        ! strings -a "$lab_copy" | grep -qxF -- "$path"
    done
}
