#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# installed_target.sh <build>: the target vkr_installed, which ./run builds, has every program and library
# that `cmake --install` copies.
set -euo pipefail
build=$1
if [[ ! -f $build/build.ninja ]] || ! command -v ninja >/dev/null; then
    echo "The build is not by ninja: skipped"
    exit 77
fi
cd "$build"
linked=$(ninja -t targets all | sed -nE 's/: CXX_.*_LINKER__.*//p' | sort -u)
made=$(ninja -t query vkr_installed CMakeFiles/vkr_installed | sed -n 's/^    //p' | sort -u)
copied=$(sed -nE 's#.*"'"$build"'/([^"]+)".*#\1#p' $(find . -name cmake_install.cmake -not -path "./tests/*") |
    sort -u | comm -12 - <(echo "$linked"))
[[ -n $copied ]] || { echo "Nothing that is linked is installed"; exit 1; }
if forgotten=$(comm -23 <(echo "$copied") <(echo "$made") | grep .); then
    echo "vkr_installed does not build" $forgotten
    exit 1
fi
