// SPDX-License-Identifier: MIT
#include "binding/block_texts.hpp"

#include "input/block_figure.hpp"
#include "input/mdlKMTMisc_values.hpp"
#include "input/text_signs.hpp"
#include "platform/ascii.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <string>

namespace vkr {

bool isBlank(std::string_view text) {
    return withoutBlanks(text).empty();
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
        if (equalsIgnoringCase(textLeft(text, textLength(prefix)), prefix))
            text = trimmed(text.substr(prefix.size()));
    if (text.size() == 5 && asciiLower(text.back()) == 'a')
        text.remove_suffix(1);
    if (text.size() != 4 || !std::all_of(text.begin(), text.end(), isAsciiDigit))
        return std::nullopt;
    const int year = std::atoi(std::string(text).c_str());
    return year >= first && year <= last ? std::optional(year) : std::nullopt;
}

std::optional<FiscalQuarter> quarterIn(std::string_view text) {
    constexpr int century = 2000;
    std::string plain = upperCase(text);
    for (const std::string_view filling : {" ", "'", "\u2019", "-", "/", "FY"})
        ReplaceAll(plain, filling, "");
    const std::size_t sign = plain.find('Q');
    const auto isQuarter = [](char one) { return one >= '1' && one <= '4'; };
    std::string year;
    char quarter = '0';
    if (sign == 0 && plain.size() > 1) { // "Q42025"
        quarter = plain[1];
        year = plain.substr(2);
    } else if (sign == 1) { // "4Q25"
        quarter = plain[0];
        year = plain.substr(2);
    } else if (sign == 4 && plain.size() == 6) { // "2025Q4"
        quarter = plain[5];
        year = plain.substr(0, 4);
    }
    if (!isQuarter(quarter))
        return std::nullopt;
    if (year.size() == 2 && std::all_of(year.begin(), year.end(), isAsciiDigit))
        return FiscalQuarter{quarter - '0', century + std::atoi(year.c_str())};
    const auto whole = year.size() == 4 ? yearIn(year) : std::nullopt;
    return whole ? std::optional(FiscalQuarter{quarter - '0', *whole}) : std::nullopt;
}

bool namesPeriod(std::string_view text) {
    std::string word;
    const std::string spaced = upperCase(text) + " ";
    for (const char one : spaced) {
        if (isAsciiDigit(one) || isAsciiLetter(one)) {
            word += one;
            continue;
        }
        const std::string year = word.substr(0, 4);
        if (word == "TTM" || word == "LTM" || quarterIn(word) || yearIn(word) ||
            (word.size() == 5 && yearIn(year)) || // "2025E"
            (word.size() == 2 && word[0] == 'Q' && isAsciiDigit(word[1])))
            return true;
        word.clear();
    }
    return quarterIn(text).has_value();
}

bool isCornerOfPeriods(std::string_view text) {
    if (isBlank(text))
        return true;
    const std::string upper = upperCase(text);
    return std::ranges::any_of(
        std::initializer_list<std::string_view>{"YEAR", "QUARTER", "PERIOD", "FISCAL", "ENDED",
                                                "ENDING", "MONTHS", "IN THOUSANDS", "IN MILLIONS",
                                                "IN BILLIONS", "BREAKDOWN"},
        [&](std::string_view word) { return upper.find(word) != std::string::npos; });
}

} // namespace vkr
