# SPDX-License-Identifier: MIT
# awk -f ratio_table.awk [-v strict=1] ratios.txt results.json
#
# Prints how long one benchmark takes as a multiple of another, or how many bytes, from the medians of
# Google Benchmark's report. Ends with 1 where a ratio is above its target or, when strict, was not measured.

function trim(text) {
    gsub(/^[ \t]+|[ \t]+$/, "", text)
    return text
}
function value(line) {
    sub(/^[^:]*:[ \t]*/, "", line)
    sub(/,[ \t]*$/, "", line)
    gsub(/"/, "", line)
    return line
}

FNR == 1 { ++file }

file == 1 {
    sub(/#.*/, "")
    if (trim($0) == "")
        next
    if (split($0, cell, "|") != 4) {
        printf "%s:%d: name | numerator | denominator | target expected\n", FILENAME, FNR
        malformed = 1
        exit
    }
    ++rows
    name[rows] = trim(cell[1])
    numerator[rows] = trim(cell[2])
    denominator[rows] = trim(cell[3])
    target[rows] = trim(cell[4]) + 0
    if (length(name[rows]) > width)
        width = length(name[rows])
    next
}

/^[ \t]*"run_name":/ {
    run = value($0)
    sub(/\/(iterations:[0-9]+|real_time)$/, "", run) # how it was run
}
/^[ \t]*"aggregate_name":/ { aggregate = value($0) }
/^[ \t]*"cpu_time":/ { time = value($0) + 0 }
/^[ \t]*"time_unit":/ {
    unit = value($0)
    scale = unit == "ns" ? 1 : unit == "us" ? 1e3 : unit == "ms" ? 1e6 : 1e9
    if (aggregate == "median")
        median[run] = time * scale
}
# Where a benchmark counts bytes, they are what is compared.
/^[ \t]*"bytes":/ && aggregate == "median" {
    median[run] = value($0) + 0
}

END {
    if (malformed)
        exit 1
    if (width < 5)
        width = 5
    printf "%-" width "s %14s %14s %8s %8s\n", "ratio", "ns or bytes", "against", "ratio", "target"
    for (r = 1; r <= rows; ++r) {
        if (!(numerator[r] in median) || !(denominator[r] in median)) {
            printf "%-" width "s %s\n", name[r], "not measured"
            failed = failed || strict
            continue
        }
        ratio = median[numerator[r]] / median[denominator[r]]
        met = ratio <= target[r]
        failed = failed || !met
        printf "%-" width "s %14.1f %14.1f %8.3f %8.3f  %s\n", name[r], median[numerator[r]], \
            median[denominator[r]], ratio, target[r], met ? "met" : "MISSED"
    }
    exit failed ? 1 : 0
}
