#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# host.sh <source> <work> [argument of cmake...]: builds the examples as a project of their own, and
# runs those that end by themselves.
set -euo pipefail
source=$1 work=$2
shift 2

rm -rf "$work"
mkdir -p "$work"
cmake -S "$source" -B "$work/build" -G Ninja "$@" >"$work/configure.log" ||
    { cat "$work/configure.log"; exit 1; }
cmake --build "$work/build"

run() {
    local program
    program=$(find "$work/build" -type f -name "$1" -perm -u+x)
    shift
    "$program" "$@"
}
[[ $(run vkr-example-display-less) == "Acme Inc. (ACM) 120.5" ]]
[[ $(run vkr-example-own-record) == "Acme Inc. 121.25"$'\n'"Symbol: ACM - This value could not be stored. The record has no Symbol." ]]

if compgen -G "$work/build/vkr-example-designed" >/dev/null; then
    run vkr-example-designed "$work/companies.vkr" "$work/designed.png"
    [[ -s $work/companies.vkr && -s $work/designed.png ]]
fi
