#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# pkg_config.sh <examples> <folder of the modules> <work> <compiler>: builds examples with what
# pkg-config says, and runs the one that ends by itself.
set -euo pipefail
examples=$1 modules=$2 work=$3 compiler=$4
if ! command -v pkg-config >/dev/null; then
    echo "pkg-config is not installed: skipped"
    exit 77
fi
export PKG_CONFIG_PATH=$modules

rm -rf "$work"
mkdir -p "$work"
# compile <example> <module>...
compile() {
    local example=$1 static=() libraries
    shift
    libraries=$(pkg-config --variable=libdir "$1")
    compgen -G "$libraries/*.so" >/dev/null || static=(--static)
    "$compiler" -std=c++20 -fPIC -Wall -Wextra $(pkg-config --cflags "$@") \
        "$examples/$example.cpp" -o "$work/$example" \
        $(pkg-config ${static[@]+"${static[@]}"} --libs "$@") -Wl,-rpath,"$libraries"
}

compile display_less vkr-data-entry
[[ $("$work/display_less") == "Acme Inc. (ACM) 120.5" ]]
if pkg-config --exists vkr-desktop; then
    compile embedding vkr-desktop
    pkg-config --exists --print-errors vkr-company
fi
