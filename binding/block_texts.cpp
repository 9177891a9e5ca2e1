// SPDX-License-Identifier: MIT
#include "binding/block_texts.hpp"

#include "input/block_figure.hpp"
#include "platform/ascii.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace vkr {

bool isBlank(std::string_view text) {
    return readCell(text, NumericKind::PlainNumber, 0, {}).kind == CellKind::empty;
}

bool isNoFigure(std::string_view text) {
    return readCell(text, NumericKind::PriceText, 0, {}).kind == CellKind::other &&
           readCell(text, NumericKind::PriceText, 0, {.decimal = ','}).kind == CellKind::other;
}

bool isText(std::string_view text) {
    const auto isLetter = [](char one) {
        return isAsciiLetter(one) || static_cast<unsigned char>(one) >= 0x80;
    };
    return std::any_of(text.begin(), text.end(), isLetter) && isNoFigure(text);
}

bool isCurrencySign(std::string_view text) {
    return text == "$" || text == "\u20AC" || text == "\u00A3" || text == "\u00A5";
}
bool isClosingSign(std::string_view text) {
    return text == ")" || text == "%" || text == ")%";
}

std::optional<int> yearIn(std::string_view text) {
    constexpr int first = 1900;
    constexpr int last = 2100;
    for (const std::string_view prefix : {"FY", "Fiscal year", "Fiscal"})
        if (equalsIgnoringCase(textLeft(text, textLength(prefix)), prefix)) {
            text = trimmed(text.substr(prefix.size()));
            break;
        }
    if (text.size() != 4 || !std::all_of(text.begin(), text.end(), isAsciiDigit))
        return std::nullopt;
    const int year = std::atoi(std::string(text).c_str());
    return year >= first && year <= last ? std::optional(year) : std::nullopt;
}

} // namespace vkr
