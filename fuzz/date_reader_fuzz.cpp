// SPDX-License-Identifier: MIT
// A text that is a date is shown and read back as the same day.
#include "input/date_pattern.hpp"
#include "input/date_reader.hpp"
#include "input/mdlKMTMisc.hpp"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vkr;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const Date today = *makeDate(2026, 11, 21);
    static_cast<void>(formatDate(today, text));
    const auto read = readDate(text, today);
    if (!read || !IsDateInRange(*read))
        return 0;
    for (const std::string_view pattern :
         {"MMM/DD/YYYY", "Short Date", "Long Date", "d mmmm yyyy"}) {
        const auto again = readDate(formatDate(*read, pattern), today);
        if (!again || civil(*again) != civil(*read))
            std::abort();
    }
    return 0;
}
