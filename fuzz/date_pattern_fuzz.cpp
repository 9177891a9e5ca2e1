// SPDX-License-Identifier: MIT
// Any pattern shows any date; what a pattern with day, month and year shows is read back as the
// same day.
#include "fuzz/fuzz_input.hpp"
#include "input/date_pattern.hpp"
#include "input/date_reader.hpp"
#include "input/mdlKMTMisc.hpp"

#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vkr;
    FuzzInput input(data, size);
    const auto serial = input.take<double>();
    const auto day = input.take<std::uint32_t>();
    const std::string_view days[] = {"d", "dd", "D", "DD"};
    const std::string_view months[] = {"m", "mm", "MM", "mmm", "MMMM"};
    const std::string_view marks[] = {"/", "-", "."};
    const std::string dayPart(days[input.below(4)]);
    const int month = input.below(5);
    const std::string monthPart(months[month]);
    const std::string mark(marks[input.below(3)]);
    const int order = input.below(4);
    const std::string_view any = input.rest();
    const Date today = *makeDate(2026, 11, 21);

    const std::string anyText = formatDate(Date{serial}, any);
    static_cast<void>(dateOrder(any));
    static_cast<void>(readDate(anyText, today, any));

    const Date date{2.0 + day % 401'000};
    if (!IsDateInRange(date))
        return 0;
    const bool named = month >= 3;
    const std::string gap = named ? " " : mark;
    const std::string written[] = {monthPart + gap + dayPart + (named ? ", " : mark) + "yyyy",
                                   dayPart + gap + monthPart + gap + "yyyy",
                                   "yyyy" + mark + (named ? "mm" : monthPart) + mark + dayPart,
                                   "yyyy" + mark + dayPart + mark + (named ? "m" : monthPart)};
    const std::string& full = written[order];
    for (const std::string& pattern :
         {full, "dddd, " + full, full + " hh:nn", full + "\\ h:nn AM/PM"}) {
        const std::string shown = formatDate(date, pattern);
        const auto read = readDate(shown, today, pattern);
        require(read && daysBetween(*read, date) == 0, pattern, " of ", date.serial, " is ", shown,
                ", read as ", read ? read->serial : 0);
    }
    return 0;
}
