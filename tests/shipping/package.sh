#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# package.sh <cpack> <build> <work>: packs the Debian packages, and starts the program from what they
# hold, unpacked into an empty folder.
set -euo pipefail
cpack=$1 build=$2 work=$3
for tool in dpkg-deb dpkg-shlibdeps; do
    if ! command -v "$tool" >/dev/null; then
        echo "$tool is not installed: skipped"
        exit 77
    fi
done

rm -rf "$work"
mkdir -p "$work/tree" "$work/tour"
chmod 700 "$work" # as a folder for running programs has to be
"$cpack" --config "$build/CPackConfig.cmake" -B "$work" >"$work/cpack.log" 2>&1 ||
    { cat "$work/cpack.log"; exit 1; }
packages=("$work"/*.deb)
for package in "${packages[@]}"; do
    echo "$(basename "$package"): $(dpkg-deb -f "$package" Depends)"
    dpkg-deb -x "$package" "$work/tree"
done

depends=$(dpkg-deb -f "$work"/vkr-data-entry_*.deb Depends)
for package in libc6 libstdc++6 libqt6core6 libqt6sql6 libqt6widgets6 libqt6sql6-sqlite; do
    [[ " $depends" == *" $package"[\ ,]* || " $depends" == *" $package" ]] ||
        { echo "The program does not depend on $package"; exit 1; }
done
# What it can do without comes along where people leave that to their system.
recommends=$(dpkg-deb -f "$work"/vkr-data-entry_*.deb Recommends)
for package in libqt6sql6-psql qt6-wayland; do
    [[ ", $recommends," == *", $package,"* ]] ||
        { echo "The program does not recommend $package"; exit 1; }
done

# It finds our libraries beside it without help, and no others.
program=$work/tree/usr/bin/vkr-host
libraries=$(ldd "$program")
if grep -F "not found" <<<"$libraries" || grep -F libvkr_ <<<"$libraries" | grep -vF "$work/tree/"; then
    exit 1
fi
HOME=$work XDG_RUNTIME_DIR=$work XDG_DATA_HOME=$work "$program" --tour "$work/tour"
[[ -s $work/tour/list.png && -s $work/tour/transcript.txt ]]
