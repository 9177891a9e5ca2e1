// SPDX-License-Identifier: MIT
// The page of all string numbers, for whoever writes a localizer.
#include "localizer/string_table.hpp"
#include "tests/checks/written_page.hpp"

#include <algorithm>
#include <iterator>
#include <limits>
#include <sstream>
#include <string>
#include <string_view>

namespace {

struct Group {
    int first; // up to the next group
    std::string_view title;
    std::string_view note;
};

constexpr Group groups[] = {
    {0, "Help",
     "What \"What's This?\" shows, a few sentences each. 108 and 163 are captions of labels."},
    {400, "Questions",
     "Before a year or quarter is added or removed. A question is put together as 404, 407 or 412, "
     "a blank, the year or quarter, a blank, 405, a line break, 406."},
    {413, "Menu", "Entries of the right-click menu."},
    {500, "Captions", "\"&\" stands before the letter to press with Alt."},
    {615, "Messages, units, reasons and notes",
     "Beyond captions and help: warnings, what stands behind the caption of a field, why a text is "
     "not stored, entries of lists."},
};

// Behind the last text of a range; where the range is full there, in its first gap.
int nextFree(vkr::StringTable rows, int first, int end) {
    int last = first - 1;
    int gap = end;
    for (const auto& row : rows)
        if (row.number >= first && row.number < end) {
            if (row.number > last + 1)
                gap = std::min(gap, last + 1);
            last = row.number;
        }
    return last + 1 < end ? last + 1 : gap;
}

std::string page() {
    std::ostringstream out;
    out << "<!-- SPDX-License-Identifier: MIT -->\n"
           "<!-- Written by vkr_string_numbers; the tables are in localizer/string_table.cpp. -->\n"
           "# String numbers\n\n"
           "What a localizer is asked for, and what the project's own answers. The ZX platform "
           "has the\ntexts of the standard platform, but for those in the last column.\n";
    const auto standard = vkr::standardStrings();
    for (std::size_t group = 0; group < std::size(groups); ++group) {
        const auto& [first, title, note] = groups[group];
        const bool isLast = group + 1 == std::size(groups);
        const int end = isLast ? std::numeric_limits<int>::max() : groups[group + 1].first;
        out << "\n## " << title << "\n\n"
            << note << "\n\nThe next free number is " << nextFree(standard, first, end)
            << ".\n\n| number | text | ZX |\n|---|---|---|\n";
        for (const auto& row : standard)
            if (row.number >= first && row.number < end)
                out << "| " << row.number << " | " << vkr::cell(row.text) << " | "
                    << vkr::cell(vkr::findString(vkr::zxStrings(), row.number)) << " |\n";
    }
    return out.str();
}

} // namespace

int main(int argc, char** argv) {
    return vkr::checkOrWrite(argc, argv, page());
}
