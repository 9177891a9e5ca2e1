// SPDX-License-Identifier: MIT
#include "binding/block_texts.hpp"

#include "input/block_figure.hpp"
#include "input/mdlKMTMisc_values.hpp"
#include "input/text_signs.hpp"
#include "platform/ascii.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

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

bool isScaledFigure(std::string_view text) {
    static constexpr std::string_view units[] = {
        "K",   "M",   "B",    "T",    "MM",       "BN",      "MN",      "TN",
        "MIO", "MRD", "MIO.", "MRD.", "THOUSAND", "MILLION", "BILLION", "TRILLION"};
    const auto isUnit = [&](char one) { return isAsciiLetter(one) || one == '.'; };
    const auto figure = std::find_if_not(text.rbegin(), text.rend(), isUnit).base();
    const auto length = static_cast<std::size_t>(figure - text.begin());
    return std::ranges::count(units, upperCase(text.substr(length))) > 0 &&
           readCell(text.substr(0, length), NumericKind::PlainNumber, 0, {}).kind ==
               CellKind::figure;
}

namespace {

bool areDigits(std::string_view text, std::size_t count) {
    return text.size() == count && std::all_of(text.begin(), text.end(), isAsciiDigit);
}

// Of a year in two digits.
int fullYear(std::string_view digits) {
    constexpr int century = 2000;
    return century + std::atoi(std::string(digits).c_str());
}

constexpr std::string_view apostrophes[] = {"'", "\u2019"};

} // namespace

std::optional<int> yearIn(std::string_view text) {
    constexpr int first = 1900;
    constexpr int last = 2100;
    bool isFiscal = false;
    for (const std::string_view prefix : {"FY", "Fiscal year", "Fiscal"})
        if (equalsIgnoringCase(textLeft(text, textLength(prefix)), prefix)) {
            text = trimmed(text.substr(prefix.size()));
            isFiscal = true;
        }
    if (isFiscal) {
        for (const std::string_view sign : apostrophes)
            if (text.starts_with(sign))
                text.remove_prefix(sign.size());
        if (areDigits(text, 2))
            return fullYear(text);
    }
    if (text.size() == 5 && asciiLower(text.back()) == 'a')
        text.remove_suffix(1);
    if (!areDigits(text, 4))
        return std::nullopt;
    const int year = std::atoi(std::string(text).c_str());
    return year >= first && year <= last ? std::optional(year) : std::nullopt;
}

std::optional<std::string> monthIn(std::string_view text, int last) {
    const auto letters = std::find_if_not(text.begin(), text.end(), isAsciiLetter);
    const auto length = static_cast<std::size_t>(letters - text.begin());
    const std::string_view month = text.substr(0, length);
    text = trimmed(text.substr(length));
    bool parted = false;
    for (const std::string_view sign : {std::string_view("-"), apostrophes[0], apostrophes[1]})
        if (!parted && text.starts_with(sign)) {
            text.remove_prefix(sign.size());
            parted = true;
        }
    if (month.empty() || !parted || !areDigits(text, 2) || fullYear(text) > last)
        return std::nullopt;
    return std::string(month) + " " + std::to_string(fullYear(text));
}

std::optional<FiscalQuarter> quarterIn(std::string_view text) {
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
    if (areDigits(year, 2))
        return FiscalQuarter{quarter - '0', fullYear(year)};
    const auto whole = year.size() == 4 ? yearIn(year) : std::nullopt;
    return whole ? std::optional(FiscalQuarter{quarter - '0', *whole}) : std::nullopt;
}

namespace {

// Words and numbers, in capitals.
std::vector<std::string> wordsIn(std::string_view text) {
    std::vector<std::string> words;
    std::string word;
    const std::string spaced = upperCase(text) + " ";
    for (const char one : spaced) {
        if (isAsciiDigit(one) || isAsciiLetter(one)) {
            word += one;
        } else if (!word.empty()) {
            words.push_back(word);
            word.clear();
        }
    }
    return words;
}

std::optional<int> countNamed(const std::string& word) {
    static constexpr std::pair<std::string_view, int> names[] = {
        {"THREE", 3}, {"SIX", 6}, {"NINE", 9}, {"TWELVE", 12}, {"THIRTEEN", 13}};
    for (const auto& [name, count] : names)
        if (word == name)
            return count;
    return areDigits(word, 1) || areDigits(word, 2) ? std::optional(std::atoi(word.c_str()))
                                                    : std::nullopt;
}

} // namespace

std::optional<int> otherMonthsIn(std::string_view text, int usual) {
    constexpr double weeksInMonth = 52.0 / 12;
    const std::vector<std::string> words = wordsIn(text);
    for (std::size_t at = 1; at < words.size(); ++at) {
        const auto count = countNamed(words[at - 1]);
        const bool weeks = words[at] == "WEEKS";
        if (!count || (!weeks && words[at] != "MONTHS"))
            continue;
        const int months = weeks ? static_cast<int>(std::round(*count / weeksInMonth)) : *count;
        if (months != usual)
            return months;
    }
    return std::nullopt;
}

bool namesPeriod(std::string_view text) {
    const auto isPeriod = [](const std::string& word) {
        return word == "TTM" || word == "LTM" || quarterIn(word) || yearIn(word) ||
               (word.size() == 5 && yearIn(word.substr(0, 4))) || // "2025E"
               (word.size() == 2 && word[0] == 'Q' && isAsciiDigit(word[1]));
    };
    return std::ranges::any_of(wordsIn(text), isPeriod) || quarterIn(text).has_value();
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
