// SPDX-License-Identifier: MIT
#include "input/number_pattern.hpp"

#include "platform/ascii.hpp"
#include "platform/decimal.hpp"
#include "platform/number_text.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <mutex>
#include <string>

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
    bool quoted;
    std::size_t size; // bytes of the pattern it takes
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

constexpr std::array powersOfTen{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                 1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// magnitude x 10^exponent as a whole number, where plain arithmetic is certain to round as the
// decimal text does: not within the reach of its errors from a half. Nothing otherwise.
bool roundQuickly(double magnitude, int exponent, std::uint64_t& whole) {
    constexpr int limit = static_cast<int>(powersOfTen.size()) - 1;
    if (std::abs(exponent) > limit)
        return false;
    const double power = powersOfTen[static_cast<std::size_t>(std::abs(exponent))];
    const double scaled = exponent > 0 ? magnitude * power : magnitude / power;
    if (!(scaled < 1e13))
        return false;
    whole = static_cast<std::uint64_t>(scaled);
    const double beyondHalf = scaled - static_cast<double>(whole) - 0.5;
    whole += beyondHalf > 0 ? 1 : 0;
    return std::fabs(beyondHalf) > scaled * 1e-14;
}

template <typename Literals>
void appendLiterals(std::string& text, const Literals& literals, int place) {
    for (const auto& literal : literals)
        if (literal.place == place)
            text += literal.text;
}

// `count` digits from place `first` on; the number's own first digit has place 0.
void appendDigits(std::string& text, const Decimal& number, int first, int count) {
    const int before = std::clamp(-first, 0, count);
    const int own = std::max(first, 0);
    const int known = std::clamp(number.count - own, 0, count - before);
    text.append(static_cast<std::size_t>(before), '0');
    if (known > 0)
        text.append(number.digits.data() + own, static_cast<std::size_t>(known));
    text.append(static_cast<std::size_t>(count - before - known), '0');
}

} // namespace

NumberPattern::NumberPattern(std::string_view pattern) {
    if (pattern.size() > maxLength)
        pattern = fallbackNumberPattern;
    const auto* const named =
        std::find_if(std::begin(namedPatterns), std::end(namedPatterns),
                     [&](const NamedPattern& one) { return equalsAscii(pattern, one.name); });
    if (named != std::end(namedPatterns))
        pattern = named->pattern;
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

// Puts a section together, piece by piece.
class NumberPattern::SectionReader {
  public:
    explicit SectionReader(std::string_view text) {
        section_.present = !text.empty();
        forEachPiece(text, [&](const Piece& piece, std::string_view) {
            section_.hasDigits |= !piece.quoted && isPlaceholder(piece.text.front());
        });
        forEachPiece(text, [&](const Piece& piece, std::string_view rest) { take(piece, rest); });
        section_.scale -= 3 * commas_;
        placeLiterals();
    }

    [[nodiscard]] Section section() && { return std::move(section_); }

  private:
    void take(const Piece& piece, std::string_view rest) {
        if (skip_ > 0) {
            --skip_;
            return;
        }
        if (piece.quoted || !section_.hasDigits || afterExponent_) {
            if (!piece.quoted && section_.hasDigits && piece.text == "%")
                section_.scale += 2;
            addLiteral(piece.text);
            return;
        }
        const char c = piece.text.front();
        if (isPlaceholder(c)) {
            addDigit(c);
        } else if (c == '.' && !inFraction_) {
            section_.hasPoint = inFraction_ = true;
        } else if (c == ',') {
            commas_ += inFraction_ ? 0 : 1;
        } else if (!readExponent(rest)) {
            if (c == '%')
                section_.scale += 2;
            addLiteral(piece.text);
        }
    }

    void addDigit(char placeholder) {
        if (inFraction_) {
            ++section_.maxFraction;
            if (placeholder == '0')
                section_.minFraction = section_.maxFraction;
            return;
        }
        section_.grouped |= commas_ > 0;
        commas_ = 0;
        ++section_.integerPlaces;
        if (placeholder == '0' || section_.minInteger > 0)
            ++section_.minInteger;
    }

    void addLiteral(std::string_view literal) {
        if (afterExponent_ || !section_.hasDigits)
            section_.suffix += literal;
        else if (inFraction_)
            section_.fractionLiterals.push_back({section_.maxFraction, std::string(literal)});
        else if (section_.integerPlaces == 0)
            section_.prefix += literal;
        else
            section_.integerLiterals.push_back({section_.integerPlaces, std::string(literal)});
    }

    bool readExponent(std::string_view rest) {
        static constexpr std::string_view marks[] = {"E+", "E-", "e+", "e-"};
        const auto mark = std::find(std::begin(marks), std::end(marks), rest.substr(0, 2));
        if (mark == std::end(marks) || section_.integerPlaces + section_.maxFraction == 0)
            return false;
        const auto end = std::min(rest.find_first_not_of("0#", mark->size()), rest.size());
        if (end == mark->size())
            return false;
        section_.exponentMark = rest[0];
        section_.exponentPlus = rest[1] == '+';
        section_.exponentDigits = static_cast<int>(
            std::count(rest.begin() + 2, rest.begin() + static_cast<long>(end), '0'));
        afterExponent_ = true;
        skip_ = end - 1;
        return true;
    }

    void placeLiterals() {
        for (Literal& literal : section_.integerLiterals)
            literal.place = section_.integerPlaces - literal.place;
        if (section_.exponentMark != 0)
            return;
        if (section_.hasPoint)
            moveToSuffix(section_.fractionLiterals, section_.maxFraction);
        else
            moveToSuffix(section_.integerLiterals, 0);
    }

    // What follows the last digit is the same for every figure.
    void moveToSuffix(std::vector<Literal>& literals, int place) {
        const auto first = std::find_if(literals.begin(), literals.end(),
                                        [&](const Literal& one) { return one.place == place; });
        std::string tail;
        for (auto literal = first; literal != literals.end(); ++literal)
            tail += literal->text;
        literals.erase(first, literals.end());
        section_.suffix.insert(0, tail);
    }

    Section section_;
    bool inFraction_ = false;
    bool afterExponent_ = false;
    int commas_ = 0;
    std::size_t skip_ = 0; // bytes of an exponent that were read ahead
};

NumberPattern::Section NumberPattern::compile(std::string_view text) {
    return SectionReader(text).section();
}

const NumberPattern::Section& NumberPattern::sectionFor(int sign) const {
    const Section& section = sections_[sign > 0 ? 0 : sign < 0 ? 1 : 2];
    return section.present ? section : sections_[0];
}

std::string NumberPattern::format(double value, const NumberMarks& marks) const {
    if (!std::isfinite(value))
        return {};
    const int sign = value > 0 ? 1 : value < 0 ? -1 : 0;
    const Section& section = sectionFor(sign);
    if (!section.present)
        return exchangeMarks(plainNumberText(value), marks);
    const Decimal number = rounded(section, std::fabs(value));
    const bool minus =
        sign < 0 && &section == sections_.data() && !(number.isZero() && section.hasDigits);
    return written(section, number, minus, marks);
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

std::string NumberPattern::written(const Section& section, Decimal number, bool minus,
                                   const NumberMarks& marks) {
    int exponent = 0;
    if (section.exponentMark != 0 && !number.isZero()) {
        exponent = number.point - section.integerPlaces;
        number.point = section.integerPlaces;
    }
    const int point = number.point;
    const int shown = section.hasDigits ? std::max(point, section.minInteger) : 0;

    std::string text;
    if (minus)
        text += '-';
    text += section.prefix;
    if (section.integerLiterals.empty() && !section.grouped) {
        appendDigits(text, number, point - shown, shown);
    } else {
        for (int place = std::max(shown, section.integerPlaces) - 1; place >= 0; --place) {
            if (place < shown) {
                text += number.digit(point - 1 - place);
                if (section.grouped && place > 0 && place % 3 == 0)
                    text += marks.grouping;
            }
            appendLiterals(text, section.integerLiterals, place);
        }
    }
    if (section.hasPoint)
        text += marks.decimal;
    int fraction = std::clamp(number.count - point, section.minFraction, section.maxFraction);
    while (fraction > section.minFraction && number.digit(point + fraction - 1) == '0')
        --fraction;
    if (section.fractionLiterals.empty()) {
        appendDigits(text, number, point, fraction);
    } else {
        for (int place = 0; place <= section.maxFraction; ++place) {
            appendLiterals(text, section.fractionLiterals, place);
            if (place < fraction)
                text += number.digit(point + place);
        }
    }
    if (section.exponentMark != 0) {
        text += section.exponentMark;
        if (exponent < 0)
            text += '-';
        else if (section.exponentPlus)
            text += '+';
        const std::string digits = std::to_string(std::abs(exponent));
        const auto wanted = static_cast<std::size_t>(section.exponentDigits);
        text.append(std::max(wanted, digits.size()) - digits.size(), '0');
        text += digits;
    }
    text += section.suffix;
    return text;
}

namespace {

// Patterns that were read lately. Of all threads: what belongs to one would keep a library that can
// be unloaded until the thread ends.
class LatePatterns {
  public:
    std::string format(double value, std::string_view pattern, const NumberMarks& marks) {
        const std::scoped_lock lock(lock_);
        for (const Entry& entry : entries_)
            if (entry.text == pattern)
                return entry.pattern.format(value, marks);
        Entry& entry = entries_[oldest_];
        oldest_ = (oldest_ + 1) % entries_.size();
        entry = {std::string(pattern), NumberPattern(pattern)};
        return entry.pattern.format(value, marks);
    }

  private:
    struct Entry {
        std::string text; // of the empty pattern at first
        NumberPattern pattern;
    };
    std::mutex lock_;
    std::array<Entry, 4> entries_;
    std::size_t oldest_ = 0;
};

} // namespace

std::string formatNumber(double value, std::string_view pattern, const NumberMarks& marks) {
    static LatePatterns patterns;
    return patterns.format(value, pattern, marks);
}

} // namespace vkr
