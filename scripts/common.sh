# SPDX-License-Identifier: MIT
# What run, test, bench and scripts/* share. Sourced; expects "root", the repository's directory.
set -euo pipefail

. "$root/scripts/packages.sh"
jobs=$(nproc)

# build <preset> [<target>...]: configures and builds, all targets where none is named.
build() {
    local preset=$1
    shift
    (
        cd "$root"
        cmake --preset "$preset" --log-level=WARNING >/dev/null
        cmake --build --preset "$preset" --parallel "$jobs" ${1+--target "$@"}
    )
}

# run_tests <preset> [<argument of ctest>...]
run_tests() {
    local preset=$1
    shift
    (cd "$root" && ctest --preset "$preset" --parallel "$jobs" --no-tests=error "$@")
}
