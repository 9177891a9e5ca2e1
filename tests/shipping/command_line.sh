#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# command_line.sh <data> <program>: the command line, as it is installed, needs neither widgets nor a
# display, and its manual page and completion tell of every command, option and exit status.
set -euo pipefail
data=$1 program=$2
page=$data/man/man1/vkr.1.gz
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM VKR_DATABASE
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

if linked=$(ldd "$program") && grep -E 'libQt6Widgets|not found' <<<"$linked"; then
    exit 1
fi
"$program" --database "$work/companies.vkr" import --create "$data/vkr-data-entry/samples" >/dev/null 2>&1
[[ $("$program" --database "$work/companies.vkr" list --format tsv | cut -f 1 | tr '\n' ' ') == \
    "symbol AAPL NVDA SNOW TSLA " ]]

# section <heading>: the terms of a section of the page, without type faces
section() {
    zcat "$page" | sed 's/\\-/-/g; s/\\f.//g' | sed -n "/^\.SH $1/,/^\.SH [^$]/p" | grep -A1 '^\.TP' | grep -E '^\.B'
}
commands() { sed -n '/^Commands:/,/^Options:/p' <<<"$help" | sed -nE 's/^  ([a-z]+) .*/\1/p' | sort; }
options() { grep -oE -- '(^|[ ,])--?[a-z][a-z-]*' | tr -d ' ,' | sort -u; }
help=$("$program" --help)
diff <(commands) <(section COMMANDS | awk '{ print $2 }' | sort)
diff <(for command in $(commands); do "$program" "$command" --help; done | grep -E '^  +-' |
    sed -E 's/^ *//; s/  .*//' | options) <(section OPTIONS | options)
diff <(sed -n '/^Exit status:/,$p' <<<"$help" | sed -nE 's/^  ([0-9]+) .*/\1/p') \
    <(section 'EXIT STATUS' | awk '{ print $2 }')

. "$data/bash-completion/completions/vkr"
COMP_WORDS=("$program" ex) COMP_CWORD=1
_vkr
[[ ${COMPREPLY[*]} == export ]]

if ! command -v man >/dev/null; then
    echo "man is not installed: skipped"
    exit 77
fi
[[ -z $(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -l -Z "$page" 2>&1 >/dev/null | tee /dev/stderr) ]]
