#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# application.sh menu_entry|metainfo|man_page <data> <program>: what a desktop is told about the program
# is well-formed and true.
# application.sh tour <data> <tour>: the tour says nothing and draws what the README shows.
set -euo pipefail
part=$1 data=$2 program=$3

needs() {
    if ! command -v "$1" >/dev/null; then
        echo "$1 is not installed: skipped"
        exit 77
    fi
}

case $part in
menu_entry)
    entry=$data/applications/vkr-host.desktop
    [[ -x $(dirname "$program")/$(sed -n 's/^Exec=//p' "$entry") ]]
    icon=$(sed -n 's/^Icon=//p' "$entry")
    for size in scalable 16x16 24x24 32x32 48x48 64x64 128x128 256x256; do
        compgen -G "$data/icons/hicolor/$size/apps/$icon.*" >/dev/null ||
            { echo "No icon $size"; exit 1; }
    done
    needs desktop-file-validate
    [[ -z $(desktop-file-validate "$entry" | tee /dev/stderr) ]]
    ;;
metainfo)
    metainfo=$data/metainfo/vkr-host.metainfo.xml
    [[ -e $data/applications/$(sed -n 's/.*"desktop-id">\(.*\)<.*/\1/p' "$metainfo") ]]
    version=$("$program" --version)
    grep -qF "release version=\"${version##* }\"" "$metainfo"
    needs appstreamcli
    appstreamcli validate --no-net "$metainfo"
    ;;
man_page)
    page=$data/man/man1/vkr-host.1.gz
    # Every option of the program is in the page, and the other way round.
    options() { grep -oE -- '(^|[^-a-z])--?[a-z]+' | grep -oE -- '-.*' | sort -u; }
    diff <("$program" --help | grep -E '^ +-' | sed 's/^ *//; s/  .*//' | options) \
        <(zcat "$page" | sed 's/\\-/-/g' | sed -n '/^\.SH OPTIONS/,/^\.SH EXIT/p' |
            grep -A1 '^\.TP' | grep -E '^\.B' | options)
    needs man
    [[ -z $(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -l -Z "$page" 2>&1 >/dev/null |
        tee /dev/stderr) ]]
    ;;
tour)
    folder=$(mktemp -d)
    trap 'rm -rf "$folder"' EXIT
    said=$(env -u XDG_RUNTIME_DIR HOME="$folder" "$program" "$folder" "$data/vkr-data-entry/samples" 2>&1)
    [[ -z $said ]] || { echo "The tour said: $said"; exit 1; }
    root=$(dirname "${BASH_SOURCE[0]}")/../..
    for picture in $(grep -oE 'docs/pictures/[a-z-]+\.png' "$root/README.md"); do
        [[ -s $root/$picture ]] || { echo "There is no $picture"; exit 1; }
        [[ -s $folder/$(basename "$picture") ]] || { echo "The tour does not draw $picture"; exit 1; }
    done
    ;;
esac
