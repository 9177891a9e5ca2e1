#!/usr/bin/awk -f
# SPDX-License-Identifier: MIT
# Reads a header and turns the comments that belong to a declaration into those of Doxygen: "//" lines
# right above one into "///", "//" behind one, with the lines that go on below it, into "///<". The
# licence, comments that stand by themselves, and headings of groups stay as they are.

function is_comment(line) { return line ~ /^[ \t]*\/\// }
function is_heading(line) { return line ~ /^[ \t]*\/\/ ---/ || line ~ /SPDX-License-Identifier/ }

# What Doxygen would take for a command or a tag. Code, in backquotes or indented, stays as it is.
function plain(comment) {
    if (comment !~ /`/ && comment !~ /\/\/    /)
        gsub(/[<>@]/, "\\\\&", comment)
    return comment
}

# What is kept so far: the comment of the line to come, or nobody's.
function release(mark,    i, text) {
    for (i = 1; i <= kept; ++i) {
        text = block[i]
        if (mark && !is_heading(text)) {
            text = plain(text)
            sub(/\/\//, "///", text)
        }
        print text
    }
    kept = 0
}

# The place of "//" behind code, outside of texts; 0 where there is none.
function trailing(line,    i, character, quote) {
    quote = ""
    for (i = 1; i < length(line); ++i) {
        character = substr(line, i, 1)
        if (quote != "") {
            if (character == "\\")
                ++i
            else if (character == quote)
                quote = ""
        } else if (character == "\"" || (character == "'" && substr(line, i - 1, 1) !~ /[0-9A-Fa-f]/))
            quote = character
        else if (substr(line, i, 2) == "//")
            return i
    }
    return 0
}

is_comment($0) {
    match($0, /\/\//)
    if (behind > 0 && RSTART >= behind - 2 && kept == 0) {
        text = plain($0)
        sub(/\/\//, "///<", text)
        print text
        next
    }
    behind = 0
    block[++kept] = $0
    next
}
{
    release($0 !~ /^[ \t]*$/ && $0 !~ /^[ \t]*[#}]/)
    behind = trailing($0)
    # Behind an opening bracket it speaks of what is inside, behind a closing one of its beginning.
    if ($0 ~ /([{(]|^[ \t]*})[ \t]*\/\//)
        behind = 0
    if (behind > 0)
        print substr($0, 1, behind - 1) "///<" plain(substr($0, behind + 2))
    else
        print
}
END { release(0) }
