#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# public_headers.sh <installed headers> <sources> <compiler>: every installed header compiles by
# itself, with nothing of ours beside it but the others, and is the one of the sources.
set -euo pipefail
headers=$1 sources=$2 compilers=()
# checks.headers_alone does the same for all headers with the compiler of the build, so another one
# is preferred.
for other in g++ clang++; do
    if command -v "$other" >/dev/null &&
        [[ $(readlink -f "$(command -v "$other")") != $(readlink -f "$3") ]]; then
        compilers+=("$other")
    fi
done
((${#compilers[@]} > 0)) || compilers=("$3")

cd "$headers"
mapfile -t all < <(find . -name '*.hpp' -printf '%P\n' | sort)
if ((${#all[@]} == 0)); then
    echo "No header is installed in $headers" >&2
    exit 1
fi
flags=(-std=c++20 -fPIC -fsyntax-only -Wall -Wextra -Wconversion -Wshadow -Werror -I .)
if compgen -G 'desktop/*.hpp' >/dev/null; then
    for flag in $(pkg-config --cflags Qt6Widgets Qt6Sql); do
        flags+=("${flag/#-I/-isystem}")
    done
fi
for header in "${all[@]}"; do
    cmp "$header" "$sources/$header"
done
for compiler in "${compilers[@]}"; do
    echo "$compiler: ${#all[@]} headers"
    printf '%s\0' "${all[@]}" | xargs -0 -P "$(nproc)" -I{} sh -c '
        header=$1
        shift
        printf "#include \"%s\"\n#include \"%s\"\n" "$header" "$header" | "$@" -x c++ -
    ' _ {} "$compiler" "${flags[@]}"
done
