#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# package.sh <cpack> <build> <work> [release]: packs the Debian packages, starts the program from what
# they hold, unpacked into an empty folder, and goes on the tour with their libraries. Those of a release are hardened, and lintian has
# nothing to say about them.
set -euo pipefail
cpack=$1 build=$2 work=$3 kind=${4-}
for tool in dpkg-deb dpkg-shlibdeps; do
    if ! command -v "$tool" >/dev/null; then
        echo "$tool is not installed: skipped"
        exit 77
    fi
done

rm -rf "$work"
mkdir -p "$work/tree" "$work/tour"
chmod 700 "$work" # as a folder for running programs has to be
pack() {
    "$cpack" --config "$build/CPackConfig.cmake" -B "$1" >"$work/cpack.log" 2>&1 ||
        { cat "$work/cpack.log"; exit 1; }
    rm -rf "$1/_CPack_Packages"
}
pack "$work"
packages=("$work"/*.deb)
names=
for package in "${packages[@]}"; do
    echo "$(basename "$package"): $(dpkg-deb -f "$package" Depends)"
    dpkg-deb -x "$package" "$work/tree"
    names+=" $(dpkg-deb -f "$package" Package)"
done

# needs <package> <other>...: that it depends on all of them
needs() {
    local package=$1 depends other
    depends=$(dpkg-deb -f "$work/$package"_*.deb Depends)
    shift
    for other in "$@"; do
        [[ ", $depends," == *", $other"[\ ,]* ]] || { echo "$package does not depend on $other"; exit 1; }
    done
}
libraries=$(find "$work/tree/usr/lib" -name 'libvkr_*.so.?' -printf '%h\n' | sort -u)
if [[ -n $libraries ]]; then
    # Each library in a package of its own, named as programs ask for it.
    for library in "$libraries"/libvkr_*.so.?; do
        name=$(basename "$library" | sed 's/[.]so[.]//; s/_/-/g')
        [[ " $names " == *" $name "* ]] || { echo "No package $name"; exit 1; }
        needs vkr-data-entry "$name"
    done
    needs libvkr-data-entry1 libc6 libstdc++6
    needs libvkr-company1 libvkr-data-entry1 libqt6core6 libqt6sql6 libqt6sql6-sqlite
    needs libvkr-desktop1 libvkr-data-entry1 libqt6widgets6
    needs vkr-data-entry-tools libvkr-data-entry1 libvkr-company1 libqt6gui6
    if dpkg-deb -f "$work"/vkr-data-entry-tools_*.deb Depends | grep -F libqt6widgets6; then
        echo "The command line depends on widgets"
        exit 1
    fi
    needs vkr-data-entry-dev libvkr-data-entry1 libvkr-company1 libvkr-desktop1
fi
# What it can do without comes along where people leave that to their system.
recommends=$(dpkg-deb -f "$work"/vkr-data-entry_*.deb Recommends)
for package in libqt6sql6-psql qt6-wayland; do
    [[ ", $recommends," == *", $package,"* ]] ||
        { echo "The program does not recommend $package"; exit 1; }
done

# Packed once more they are the same, byte by byte.
mkdir "$work/again"
pack "$work/again"
for package in "${packages[@]}"; do
    cmp "$package" "$work/again/$(basename "$package")"
done

# The program finds our libraries where the packages have them, and no others; so does the tour.
program=$work/tree/usr/bin/vkr-host
command=$work/tree/usr/bin/vkr
tour=$build/bin/vkr-tour
export LD_LIBRARY_PATH=$libraries
for file in "$program" "$command" "$tour"; do
    linked=$(ldd "$file")
    if grep -F "not found" <<<"$linked" || grep -F libvkr_ <<<"$linked" | grep -vF "$work/tree/"; then
        exit 1
    fi
done
"$(dirname "${BASH_SOURCE[0]}")/start.sh" "$program"
"$(dirname "${BASH_SOURCE[0]}")/command_line.sh" "$work/tree/usr/share" "$command" || (($? == 77))
HOME=$work XDG_RUNTIME_DIR=$work XDG_DATA_HOME=$work \
    "$tour" "$work/tour" "$work/tree/usr/share/vkr-data-entry/samples"
[[ -s $work/tour/list.png && -s $work/tour/transcript.txt ]]
[[ $kind == release ]] || exit 0

# Position-independent, no writable tables of addresses, guarded stacks, checked copies.
for file in "$program" "$command" "$libraries"/libvkr_*.so.?; do
    about=$(readelf -hlsdW "$file")
    for mark in ' DYN ' GNU_RELRO 'BIND_NOW\|FLAGS_1.* NOW' __stack_chk_fail '_chk@'; do
        # Some of our libraries copy nothing that could be checked.
        [[ $mark == _chk@ && $file != "$work"/tree/usr/bin/* ]] && continue
        grep -q "$mark" <<<"$about" || { echo "$file lacks $mark"; exit 1; }
    done
    if grep -aF "$build" "$file" >/dev/null || grep -aF "$(dirname "$(dirname "$build")")/" "$file" >/dev/null; then
        echo "$file names the folder it was built in"
        exit 1
    fi
done
if ! command -v lintian >/dev/null; then
    echo "lintian is not installed: skipped"
    exit 0
fi
lintian --allow-root --fail-on error,warning \
    --suppress-tags-from-file "$(dirname "${BASH_SOURCE[0]}")/lintian_exceptions.txt" "${packages[@]}"
