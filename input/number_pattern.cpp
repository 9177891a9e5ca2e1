// SPDX-License-Identifier: MIT
#include "input/number_pattern.hpp"

#include "platform/ascii.hpp"
#include "platform/decimal.hpp"
#include "platform/number_text.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace vkr {

namespace {

struct NamedPattern {
    std::string_view name;
    std::string_view pattern;
};

constexpr NamedPattern namedPatterns[] = {
    {"General Number", ""},
    {"Currency", "$#,##0.00;($#,##0.00)"},
    {"Fixed", "0.00"},
    {"Standard", "#,##0.00"},
    {"Percent", "0.00%"},
    {"Scientific", "0.00E+00"},
    {"Yes/No", R"("Yes";"Yes";"No")"},
    {"True/False", R"("True";"True";"False")"},
    {"On/Off", R"("On";"On";"Off")"},
};

constexpr bool isPlaceholder(char c) {
    return c == '0' || c == '#';
}

// One step through a pattern: a quoted or escaped text, or a single character.
struct Piece {
    std::string_view text;
    bool quoted = false;
    std::size_t size = 1; // bytes of the pattern it takes
};

Piece nextPiece(std::string_view pattern) {
    if (pattern.front() == '"') {
        const auto end = std::min(pattern.find('"', 1), pattern.size());
        return {pattern.substr(1, end - 1), true, std::min(end + 1, pattern.size())};
    }
    if (pattern.front() == '\\' && pattern.size() > 1)
        return {pattern.substr(1, 1), true, 2};
    return {pattern.substr(0, 1), pattern.front() == '\\', 1};
}

// Calls visit(piece, rest) for each piece; `rest` is the pattern from that piece on.
template <typename Visit>
void forEachPiece(std::string_view pattern, Visit&& visit) {
    while (!pattern.empty()) {
        const Piece piece = nextPiece(pattern);
        visit(piece, pattern);
        pattern.remove_prefix(piece.size);
    }
}

constexpr double powersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                  1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// magnitude x 10^exponent as a whole number, where plain arithmetic is certain to round as the
// decimal text does: not within the reach of its errors from a half. Nothing otherwise.
bool roundQuickly(double magnitude, int exponent, std::uint64_t& whole) {
    constexpr int limit = static_cast<int>(std::size(powersOfTen)) - 1;
    if (exponent > limit || exponent < -limit)
        return false;
    const double scaled =
        exponent >= 0 ? magnitude * powersOfTen[exponent] : magnitude / powersOfTen[-exponent];
    if (!(scaled < 1e13))
        return false;
    whole = static_cast<std::uint64_t>(scaled);
    const double beyondHalf = scaled - static_cast<double>(whole) - 0.5;
    if (std::fabs(beyondHalf) <= scaled * 1e-14)
        return false;
    whole += beyondHalf > 0 ? 1 : 0;
    return true;
}

char* put(char* out, std::string_view text) {
    std::memcpy(out, text.data(), text.size());
    return out + text.size();
}

template <typename Literals>
char* putLiterals(char* out, const Literals& literals, int place) {
    for (const auto& literal : literals)
        if (literal.place == place)
            out = put(out, literal.text);
    return out;
}

} // namespace

NumberPattern::NumberPattern(std::string_view pattern) {
    for (const NamedPattern& named : namedPatterns)
        if (equalsAscii(pattern, named.name)) {
            pattern = named.pattern;
            break;
        }
    std::size_t section = 0;
    std::size_t start = 0;
    forEachPiece(pattern, [&](const Piece& piece, std::string_view rest) {
        if (piece.quoted || piece.text != ";")
            return;
        const std::size_t end = pattern.size() - rest.size();
        if (section < sections_.size())
            sections_[section] = compile(pattern.substr(start, end - start));
        ++section;
        start = end + 1;
    });
    if (section < sections_.size())
        sections_[section] = compile(pattern.substr(start));
}

NumberPattern::Section NumberPattern::compile(std::string_view text) {
    Section section;
    section.present = !text.empty();
    forEachPiece(text, [&](const Piece& piece, std::string_view) {
        section.hasDigits |= !piece.quoted && isPlaceholder(piece.text.front());
    });

    bool inFraction = false;
    bool afterExponent = false;
    int commas = 0;
    std::size_t skip = 0; // bytes of an exponent that were read ahead
    const auto addLiteral = [&](std::string_view literal) {
        section.literalSize += literal.size();
        if (afterExponent || !section.hasDigits)
            section.suffix += literal;
        else if (inFraction)
            section.fractionLiterals.push_back({section.maxFraction, std::string(literal)});
        else if (section.integerPlaces == 0)
            section.prefix += literal;
        else
            section.integerLiterals.push_back({section.integerPlaces, std::string(literal)});
    };
    const auto readExponent = [&](std::string_view rest) {
        std::size_t end = 2;
        while (end < rest.size() && isPlaceholder(rest[end]))
            ++end;
        if (end == 2)
            return false;
        section.exponentMark = rest[0];
        section.exponentPlus = rest[1] == '+';
        section.exponentDigits = static_cast<int>(
            std::count(rest.begin() + 2, rest.begin() + static_cast<long>(end), '0'));
        afterExponent = true;
        skip = end - 1;
        return true;
    };

    forEachPiece(text, [&](const Piece& piece, std::string_view rest) {
        if (skip > 0) {
            --skip;
            return;
        }
        if (piece.quoted || !section.hasDigits || afterExponent) {
            if (!piece.quoted && section.hasDigits && piece.text == "%")
                section.scale += 2;
            addLiteral(piece.text);
            return;
        }
        const char c = piece.text.front();
        if (isPlaceholder(c) && !inFraction) {
            section.grouped |= commas > 0;
            commas = 0;
            ++section.integerPlaces;
            if (c == '0' || section.minInteger > 0)
                ++section.minInteger;
        } else if (isPlaceholder(c)) {
            ++section.maxFraction;
            if (c == '0')
                section.minFraction = section.maxFraction;
        } else if (c == '.' && !inFraction) {
            section.hasPoint = inFraction = true;
        } else if (c == ',') {
            commas += inFraction ? 0 : 1;
        } else if ((c == 'E' || c == 'e') && rest.size() > 2 &&
                   (rest[1] == '+' || rest[1] == '-') &&
                   section.integerPlaces + section.maxFraction > 0 && readExponent(rest)) {
            return;
        } else {
            if (c == '%')
                section.scale += 2;
            addLiteral(piece.text);
        }
    });
    section.scale -= 3 * commas;

    for (Literal& literal : section.integerLiterals)
        literal.place = section.integerPlaces - literal.place;
    // What follows the last digit is the same for every figure.
    const auto moveToSuffix = [&](std::vector<Literal>& literals, int place) {
        const auto first = std::find_if(literals.begin(), literals.end(),
                                        [&](const Literal& one) { return one.place == place; });
        std::string tail;
        for (auto literal = first; literal != literals.end(); ++literal)
            tail += literal->text;
        literals.erase(first, literals.end());
        section.suffix.insert(0, tail);
    };
    if (section.exponentMark == 0) {
        if (section.hasPoint)
            moveToSuffix(section.fractionLiterals, section.maxFraction);
        else
            moveToSuffix(section.integerLiterals, 0);
    }
    return section;
}

const NumberPattern::Section& NumberPattern::sectionFor(int sign) const {
    const Section& section = sections_[sign > 0 ? 0 : sign < 0 ? 1 : 2];
    return section.present ? section : sections_[0];
}

std::string NumberPattern::format(double value) const {
    if (!std::isfinite(value))
        return {};
    const int sign = value > 0 ? 1 : value < 0 ? -1 : 0;
    const Section* section = &sectionFor(sign);
    if (!section->present)
        return plainNumberText(value);
    const double magnitude = std::fabs(value);
    std::string result;
    Decimal number = rounded(*section, magnitude);
    bool minus = sign < 0 && section == sections_.data();
    if (number.isZero() && sign != 0 && section->hasDigits) {
        section = &sectionFor(0);
        minus = false;
        if (!section->present)
            return "0";
    }
    write(*section, number, minus, result);
    return result;
}

Decimal NumberPattern::rounded(const Section& section, double magnitude) {
    std::uint64_t whole = 0;
    if (section.exponentMark == 0 &&
        roundQuickly(magnitude, section.maxFraction + section.scale, whole)) {
        Decimal number;
        if (whole == 0)
            return number;
        char* const first = number.digits.data();
        const auto written = std::to_chars(first, first + number.digits.size(), whole);
        number.count = static_cast<int>(written.ptr - first);
        number.point = number.count - section.maxFraction;
        return number;
    }
    Decimal number = toDecimal(magnitude);
    if (number.isZero())
        return number;
    number.point += section.scale;
    if (section.exponentMark == 0)
        roundToPlaces(number, section.maxFraction);
    else
        roundToDigits(number, section.integerPlaces + section.maxFraction);
    return number;
}

void NumberPattern::write(const Section& section, Decimal number, bool minus, std::string& result) {
    int exponent = 0;
    if (section.exponentMark != 0) {
        exponent = number.isZero() ? 0 : number.point - section.integerPlaces;
        number.point -= exponent;
    }
    if (number.isZero())
        number.point = 0;
    const int shown = section.hasDigits ? std::max(number.point, section.minInteger) : 0;
    const int places = std::max(shown, section.integerPlaces);
    const auto size = static_cast<std::size_t>(shown) + static_cast<std::size_t>(shown / 3) +
                      static_cast<std::size_t>(section.maxFraction) + section.literalSize +
                      static_cast<std::size_t>(section.exponentDigits) + 8;
    result.resize(size);
    char* const begin = result.data();
    char* out = begin;
    if (minus)
        *out++ = '-';
    out = put(out, section.prefix);

    const bool plain = section.integerLiterals.empty() && !section.grouped;
    if (plain) {
        for (int place = shown - 1; place >= 0; --place)
            *out++ = number.digit(number.point - 1 - place);
    } else {
        for (int place = places - 1; place >= 0; --place) {
            if (place < shown) {
                *out++ = number.digit(number.point - 1 - place);
                if (section.grouped && place > 0 && place % 3 == 0)
                    *out++ = ',';
            }
            out = putLiterals(out, section.integerLiterals, place);
        }
    }
    if (section.hasPoint)
        *out++ = '.';
    const int used =
        std::clamp(number.count - number.point, section.minFraction, section.maxFraction);
    int fraction = used;
    while (fraction > section.minFraction && number.digit(number.point + fraction - 1) == '0')
        --fraction;
    if (section.fractionLiterals.empty()) {
        for (int place = 0; place < fraction; ++place)
            *out++ = number.digit(number.point + place);
    } else {
        for (int place = 0; place < section.maxFraction; ++place) {
            out = putLiterals(out, section.fractionLiterals, place);
            if (place < fraction)
                *out++ = number.digit(number.point + place);
        }
        out = putLiterals(out, section.fractionLiterals, section.maxFraction);
    }
    if (section.exponentMark != 0) {
        *out++ = section.exponentMark;
        if (exponent < 0)
            *out++ = '-';
        else if (section.exponentPlus)
            *out++ = '+';
        char digits[12];
        const auto written =
            std::to_chars(std::begin(digits), std::end(digits), std::abs(exponent));
        const auto length = static_cast<int>(written.ptr - digits);
        for (int pad = length; pad < section.exponentDigits; ++pad)
            *out++ = '0';
        out = put(out, {digits, static_cast<std::size_t>(length)});
    }
    out = put(out, section.suffix);
    result.resize(static_cast<std::size_t>(out - begin));
}

std::string formatNumber(double value, std::string_view pattern) {
    struct Entry {
        bool used = false;
        std::string text;
        NumberPattern pattern;
    };
    thread_local std::array<Entry, 4> entries;
    thread_local std::size_t oldest = 0;
    for (const Entry& entry : entries)
        if (entry.used && entry.text == pattern)
            return entry.pattern.format(value);
    Entry& entry = entries[oldest];
    oldest = (oldest + 1) % entries.size();
    entry = {true, std::string(pattern), NumberPattern(pattern)};
    return entry.pattern.format(value);
}

} // namespace vkr
