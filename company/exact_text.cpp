// SPDX-License-Identifier: MIT
#include "company/exact_text.hpp"

#include "platform/ascii.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <stdexcept>

namespace vkr {

namespace {

int wholeNumber(std::string_view digits) {
    int value = 0;
    for (const char digit : digits)
        value = value * 10 + (digit - '0');
    return value;
}

} // namespace

std::string isoDateText(Date date) {
    if (isAbsent(date))
        return {};
    const auto [year, month, day] = civil(date);
    const auto padded = [](int value, std::size_t width) {
        std::string digits = std::to_string(value);
        return std::string(width - std::min(width, digits.size()), '0') + digits;
    };
    return padded(year, 4) + "-" + padded(month, 2) + "-" + padded(day, 2);
}

std::optional<Date> dateFromIso(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-')
        return std::nullopt;
    const auto year = text.substr(0, 4);
    const auto month = text.substr(5, 2);
    const auto day = text.substr(8);
    if (!areAsciiDigits(year) || !areAsciiDigits(month) || !areAsciiDigits(day))
        return std::nullopt;
    const auto date = makeDate(wholeNumber(year), wholeNumber(month), wholeNumber(day));
    return date && !isAbsent(*date) ? date : std::nullopt;
}

std::string exactText(const Variant& value) {
    if (const auto* date = std::get_if<Date>(&value.value()))
        return isoDateText(*date);
    if (const auto* number = std::get_if<double>(&value.value()))
        return exactNumberText(*number);
    return value.toText();
}

namespace {

struct Escape {
    char letter, written;
};
constexpr Escape escapes[] = {{'\t', 't'}, {'\n', 'n'}, {'\r', 'r'}, {'\\', '\\'}};

} // namespace

std::string escapedLine(std::string_view text) {
    std::string line;
    for (const char letter : text) {
        const auto* const escape = std::ranges::find(escapes, letter, &Escape::letter);
        if (escape != std::end(escapes))
            line += '\\';
        line += escape != std::end(escapes) ? escape->written : letter;
    }
    return line;
}

std::string unescapedLine(std::string_view line) {
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] != '\\' || i + 1 == line.size()) {
            text += line[i];
            continue;
        }
        const char letter = line[++i];
        const auto* const escape = std::ranges::find(escapes, letter, &Escape::written);
        text += escape != std::end(escapes) ? escape->letter : letter;
    }
    return text;
}

std::size_t validUtf8Length(std::string_view text) {
    std::size_t place = 0;
    while (place < text.size()) {
        const std::size_t size = characterSize(text.substr(place));
        if (size == 1 && static_cast<unsigned char>(text[place]) >= 0x80)
            return place;
        place += size;
    }
    return place;
}

std::string validText(std::string text) {
    if (!isValidUtf8(text))
        throw std::invalid_argument("The text is not valid UTF-8.");
    return text;
}

} // namespace vkr
