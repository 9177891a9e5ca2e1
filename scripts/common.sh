# SPDX-License-Identifier: MIT
# What run, test, bench and scripts/* share. Sourced; expects "root", the repository's directory.
set -euo pipefail

. "$root/scripts/packages.sh"
jobs=$(nproc)

# Commits are checked by the same script as anywhere else, unless somebody has hooks of their own.
use_hooks() {
    git -C "$root" rev-parse --git-dir >/dev/null 2>&1 || return 0
    git -C "$root" config core.hooksPath >/dev/null || git -C "$root" config core.hooksPath .githooks
}

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
