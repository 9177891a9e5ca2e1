#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# start.sh <program>: starts the program for the first time, in a home of its own and without a display,
# until it has made its database of the sample companies, and goes on.
set -euo pipefail
home=$(mktemp -d)
env -u XDG_RUNTIME_DIR -u XDG_DATA_HOME -u XDG_CONFIG_HOME HOME="$home" QT_QPA_PLATFORM=offscreen \
    "$1" >"$home/said" 2>&1 &
program=$!
trap 'kill $program 2>/dev/null || true; wait $program 2>/dev/null || true; rm -rf "$home"' EXIT

database=$home/.local/share/vkr-host/companies.vkr
for ((tenths = 0; tenths < 600; ++tenths)); do
    if ! kill -0 $program 2>/dev/null; then
        echo "The program ended: $(<"$home/said")"
        exit 1
    fi
    # What was written last is beside the file.
    ! grep -qsF "One Apple Park Way" "$database" "$database-wal" || break
    sleep 0.1
done
sleep 1
kill -0 $program 2>/dev/null || { echo "The program ended: $(<"$home/said")"; exit 1; }
grep -qsF "One Apple Park Way" "$database" "$database-wal" ||
    { echo "The program made no database: $(<"$home/said")"; exit 1; }
