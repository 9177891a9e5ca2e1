// SPDX-License-Identifier: MIT
#include "platform/number_marks.hpp"

namespace vkr {

std::string exchangeMarks(std::string_view text, const NumberMarks& marks) {
    std::string result(text);
    if (marks.decimal == ',')
        for (char& byte : result)
            byte = byte == ',' ? '.' : byte == '.' ? ',' : byte;
    return result;
}

} // namespace vkr
