# The installed tree and the packages.
load common

build=$(dirname "$(dirname "$AUTOCLI")")

# works PROGRAM: runs autocli in an empty environment, except for a search path with a host's libraries,
# which have the names of the lab's.
works() {
    local home=$BATS_TEST_TMPDIR/home library
    mkdir -p "$home/host"
    for library in clitools corectl corectlcore dovracorectl baselibs; do echo other >"$home/host/lib$library.so"; done
    alone() { env -i HOME="$home" PATH=/usr/bin:/bin LD_LIBRARY_PATH="$home/host" "$@"; }
    same true "$(alone "$1" dovra trace set --numfiles 3)"
    same 3 "$(alone "$1" --formatter json dovra trace get | jq '."Number Of Files To Rotate"')"
    [[ -f $home/.local/state/autocli/lab/lab.db ]]
}

@test "an installed tree works, also when it is moved" {
    cmake --install "$build" --prefix "$BATS_TEST_TMPDIR/first" >/dev/null
    mv "$BATS_TEST_TMPDIR/first" "$BATS_TEST_TMPDIR/other place"
    works "$BATS_TEST_TMPDIR/other place/bin/autocli"
    ln -s "other place/bin/autocli" "$BATS_TEST_TMPDIR/linked"
    works "$BATS_TEST_TMPDIR/linked"
    cmake --install "$build" --prefix "$BATS_TEST_TMPDIR/host" --component plugin >/dev/null
    same ./lib/orvane/autocli/plugins/libdovra.so "$(cd "$BATS_TEST_TMPDIR/host" && find . -name '*.so')"
}

@test "the Debian packages, installed into an empty root" {
    released_only
    cpack --config "$build/CPackConfig.cmake" -B "$BATS_TEST_TMPDIR" >"$BATS_TEST_TMPDIR/log" 2>&1 || { cat "$BATS_TEST_TMPDIR/log"; false; }
    root=$BATS_TEST_TMPDIR/root
    mkdir -p "$root/var/lib/dpkg/"{info,updates}
    : >"$root/var/lib/dpkg/status"
    dpkg --root="$root" --log=/dev/null --force-depends,not-root,bad-path --install "$BATS_TEST_TMPDIR"/*.deb
    cd "$root"
    works usr/bin/autocli
    "$BATS_TEST_DIRNAME/../../script/check-plugin" usr/lib/orvane/autocli/plugins/libdovra.so usr/lib/autocli/platform
    man -M usr/share/man -w autocli dovra dovra-plugin
    named=$(MANWIDTH=500 man -M usr/share/man autocli dovra | grep -o 'usr/share/doc/[a-z/.-]*[a-z]' | sort -u)
    same 3 "$(xargs ls -d <<<"$named" | wc -l)"
    while IFS=: read -r page link; do
        [[ -e ${page%/*}/$link ]] || { echo "$page links to $link"; false; }
    done < <(grep -roP '\]\(\K[^#:)]+' usr/share/doc --include='*.md')
    [[ -s usr/share/bash-completion/completions/autocli ]]
    # The loader must not take the lab's libraries for a host's.
    same '' "$(find usr/lib -maxdepth 1 -name '*.so' && find . -perm /022 ! -type l ! -path './var/*' ! -path .)"
    same '*, stripped' "$(file --brief usr/lib/orvane/autocli/plugins/libdovra.so)"
    depends() { dpkg --root="$root" --status "$1" | sed -n 's/^Depends: //p' | tr -d ' ' | tr , '\n' | sed 's/(.*//' | sort | paste -sd' '; }
    same 'libc6 libgcc-s1 libstdc++6' "$(depends dovra-plugin)"
    commit=$(usr/bin/autocli --version | grep -oE 'commit [0-9a-f]{7,}|commit unknown')
    for package in dovra-plugin dovra-lab; do
        status=$(dpkg --root="$root" --status $package)
        same "*Built from $commit.*" "$status"
        version=$(sed -n 's/^Version: //p' <<<"$status")
        same "dovra ($version) *Built from $commit.*" "$(zcat usr/share/doc/$package/changelog.gz)"
        [[ $commit == *unknown ]] || same "*+git*.${commit#commit }" "$version"
        [[ -e $BATS_TEST_TMPDIR/$package-dbgsym_${version}_$(dpkg --print-architecture).ddeb ]]
        grep -q 'No licence has been granted yet' usr/share/doc/$package/copyright
    done
    same '*libuuid1*python3*' "$(depends dovra-lab)"
}
