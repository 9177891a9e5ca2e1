// SPDX-License-Identifier: MIT
#include "input/number_text.hpp"

#include "input/mdlKMTMisc_values.hpp"
#include "input/text_signs.hpp"
#include "platform/ascii.hpp"
#include "platform/decimal.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace vkr {

namespace {

constexpr std::string_view groupMarks[] = {",", " ", "\u00A0", "\u2009", "\u202F", "'", "\u2019"};

struct VulgarFraction {
    std::string_view sign;
    std::string_view text;
};

constexpr VulgarFraction vulgarFractions[] = {
    {"\u00BC", "1/4"}, {"\u00BD", "1/2"}, {"\u00BE", "3/4"}, {"\u215B", "1/8"},
    {"\u215C", "3/8"}, {"\u215D", "5/8"}, {"\u215E", "7/8"},
};

void trim(std::string_view& text) {
    text = withoutBlanks(text);
}

// A number without what people write around it.
struct Bare {
    std::string_view body;
    bool negative = false;
    bool signedAtAll = false;
};

Bare bare(std::string_view text) {
    constexpr std::string_view percent[] = {"%"};
    constexpr std::string_view opening[] = {"("};
    constexpr std::string_view plusSigns[] = {"+"};
    Bare number;
    bool currency = false;
    bool bracket = false;
    enum class Sign { plus, minus };
    const auto take = [&](Sign sign) {
        number.signedAtAll = true;
        number.negative = sign == Sign::minus;
        return true;
    };
    trim(text);
    // Each of them once, in any order that people use: -$5, $-5, $(5), ($5).
    for (bool found = true; found; trim(text)) {
        found = (!currency && (currency = skipFront(text, currencySigns))) ||
                (!number.signedAtAll && skipFront(text, minusSigns) && take(Sign::minus)) ||
                (!number.signedAtAll && skipFront(text, plusSigns) && take(Sign::plus)) ||
                (!number.signedAtAll && skipFront(text, opening) && (bracket = take(Sign::minus)));
    }
    // "5.-" has a dash in place of the cents.
    constexpr std::string_view noCents[] = {".--",     ".-",      ".\u2212",
                                            ".\u2012", ".\u2013", ".\u2014"};
    bool dashed = false;
    bool behind = false;           // a minus
    const auto takeNoCents = [&] { // the mark stays, and says what the marks before it are
        std::string_view whole = text;
        if (skipBack(whole, noCents))
            text = text.substr(0, whole.size() + 1);
        return whole.size() < text.size();
    };
    bool percented = false;
    bool closed = !bracket;
    for (bool found = true; found; trim(text)) {
        constexpr std::string_view closing[] = {")"};
        found = (!percented && (percented = skipBack(text, percent))) ||
                (!closed && (closed = skipBack(text, closing))) ||
                (!currency && (currency = skipBack(text, currencySigns))) ||
                (!dashed && !behind && (dashed = takeNoCents())) ||
                (!number.signedAtAll && !dashed && skipBack(text, minusSigns) &&
                 (behind = take(Sign::minus)));
    }
    if (closed)
        number.body = text;
    return number;
}

// "1,234,567" without its marks, "" when they do not stand where they belong.
std::string ungrouped(std::string_view whole) {
    if (areAsciiDigits(whole))
        return std::string(whole);
    const auto first = static_cast<std::size_t>(
        std::find_if_not(whole.begin(), whole.end(), isAsciiDigit) - whole.begin());
    if (first < 1 || first > 3 || whole.front() == '0')
        return {};
    std::string digits(whole.substr(0, first));
    std::string_view rest = whole.substr(first);
    const auto mark = std::find_if(std::begin(groupMarks), std::end(groupMarks),
                                   [&](std::string_view one) { return rest.starts_with(one); });
    if (mark == std::end(groupMarks))
        return {};
    while (!rest.empty()) {
        if (!rest.starts_with(*mark) || !areAsciiDigits(rest.substr(mark->size()).substr(0, 3)) ||
            rest.size() < mark->size() + 3)
            return {};
        digits += rest.substr(mark->size(), 3);
        rest.remove_prefix(mark->size() + 3);
    }
    return digits;
}

// A whole body as digits, mark and exponent; "" when it is no such number.
std::string wholeNumber(std::string_view body) {
    const auto end = std::min(body.find_first_of(".eE"), body.size());
    const std::string_view tail = body.substr(end);
    std::string digits = end == 0 ? std::string() : ungrouped(body.substr(0, end));
    if (digits.empty() && end > 0)
        return {};
    digits += tail;
    // A sign here would be a second one.
    if (digits.empty() || (!isAsciiDigit(digits.front()) && digits.front() != '.'))
        return {};
    return scanNumber(digits).length == digits.size() ? digits : std::string();
}

// The body of a price as "3 1/8", the whole number without marks; "" when it is no such fraction.
std::string wholeFraction(std::string_view body) {
    std::string text(body);
    const auto* const vulgar =
        std::find_if(std::begin(vulgarFractions), std::end(vulgarFractions),
                     [&](const VulgarFraction& one) { return text.ends_with(one.sign); });
    if (vulgar != std::end(vulgarFractions)) {
        text.resize(text.size() - vulgar->sign.size());
        if (!text.empty())
            text += ' ';
        text += vulgar->text;
    }
    ReplaceAll(text, "\u2044", "/");
    const auto slash = text.find('/');
    if (slash == std::string::npos)
        return {};
    std::string_view denominator = std::string_view(text).substr(slash + 1);
    std::string_view numerator = std::string_view(text).substr(0, slash);
    trim(denominator);
    trim(numerator);
    std::string_view whole;
    auto start = numerator.size();
    while (start > 0 && isAsciiDigit(numerator[start - 1]))
        --start;
    if (start > 0) {
        whole = numerator.substr(0, start);
        numerator.remove_prefix(start);
        constexpr std::string_view hyphen[] = {"-"};
        std::string_view trimmed = whole;
        trim(trimmed);
        const bool separated = trimmed.size() < whole.size() || skipBack(trimmed, hyphen);
        whole = trimmed;
        if (!separated)
            return {};
    }
    if (!areAsciiDigits(numerator) || !areAsciiDigits(denominator))
        return {};
    std::string digits = whole.empty() ? std::string("0") : ungrouped(whole);
    if (digits.empty())
        return {};
    return digits + ' ' + std::string(numerator) + '/' + std::string(denominator);
}

constexpr std::int64_t longestExpansion = 400;

// Sign, digits and "." only, unless the exponent is far beyond any figure.
std::string plainText(const NumberSpan& number, bool negative) {
    std::string text(number.mantissa);
    std::string exponent;
    if (number.exponent > longestExpansion || number.exponent < -longestExpansion) {
        exponent = "E" + std::to_string(number.exponent);
    } else if (number.exponent != 0) {
        const auto point = std::min(text.find('.'), text.size());
        text.erase(point, 1);
        const auto target = static_cast<std::int64_t>(point) + number.exponent;
        text.insert(0, static_cast<std::size_t>(std::max<std::int64_t>(-target, 0)), '0');
        const auto place = static_cast<std::size_t>(std::max<std::int64_t>(target, 0));
        text.resize(std::max(text.size(), place), '0');
        text.insert(place, 1, '.');
    }
    if (text.ends_with('.'))
        text.pop_back();
    text.erase(0, std::min(text.find_first_not_of('0'), text.size()));
    if (text.empty() || text.front() == '.')
        text.insert(0, 1, '0');
    if (negative && text.find_first_of("123456789") != std::string::npos)
        text.insert(0, 1, '-');
    return text + exponent;
}

NumericText fromSpan(const NumberSpan& number, bool negative, int exponent) {
    return {.text = plainText(number, negative),
            .fits = valueOf(number).has_value() && valueOf(number, exponent).has_value(),
            .leftOut = {}};
}

// The plain text of a price that is a number or a fraction as a whole; "" for any other.
std::string wholePrice(std::string_view text) {
    const Bare number = bare(text);
    if (const std::string whole = wholeNumber(number.body); !whole.empty())
        return plainText(scanNumber(whole), number.negative);
    const std::string decimal = FractionToDecimal(wholeFraction(number.body));
    return decimal.empty() ? decimal : plainText(scanNumber(decimal), number.negative);
}

// What the price read of a text with a "/" does not say.
std::string leftOutOfFraction(std::string_view text, std::string_view fraction,
                              const std::string& taken) {
    if (!fraction.empty()) { // as whole, numerator and denominator
        const auto blank = fraction.find(' ');
        const auto slash = fraction.find('/');
        const bool nothing = numericValue(fraction.substr(blank + 1)) == 0;
        if (nothing && numericValue(fraction) == 0)
            return {};
        if (!nothing && numericValue(fraction.substr(slash + 1)) != 0)
            return {};
        if (!nothing && numericValue(taken) != 0)
            return std::string(fraction.substr(blank + 1));
        return std::string(withoutBlanks(text));
    }
    constexpr std::size_t longest = 64; // far beyond any price
    const bool mayBePrice = !taken.empty() && !isAsciiLetter(text.front());
    for (auto end = mayBePrice ? std::min(text.size(), longest) : 0; end > 0; --end)
        if (!isAsciiLetter(text[end - 1]) && wholePrice(text.substr(0, end)) == taken)
            return std::string(withoutBlanks(text.substr(end)));
    return std::string(withoutBlanks(text));
}

// With the point as the decimal mark.
NumericText cleanPlainText(std::string_view text, NumericKind kind, int exponent) {
    const Bare number = bare(text);
    if (const std::string whole = wholeNumber(number.body); !whole.empty())
        return fromSpan(scanNumber(whole), number.negative, exponent);

    std::string decimal(text);
    std::string fraction;
    if (kind == NumericKind::PriceText) {
        fraction = wholeFraction(number.body);
        decimal = FractionToDecimal(fraction.empty() ? text : std::string_view(fraction));
        if (!fraction.empty() && number.negative && !decimal.empty())
            decimal.insert(0, 1, '-');
    }
    std::string_view start = decimal;
    while (skipFront(start, blanks)) {
    }
    const bool negative = skipFront(start, minusSigns);
    if (negative || start.starts_with('+'))
        start.remove_prefix(negative ? 0 : 1);
    while (skipFront(start, blanks)) {
    }
    const NumberSpan span = scanNumber(start);
    const auto leftOut = [&](const std::string& taken) {
        return decimal != text ? leftOutOfFraction(text, fraction, taken)
               : taken.empty() ? std::string(withoutBlanks(text))
                               : std::string(withoutBlanks(start.substr(span.length)));
    };
    if (span.length == 0 || !(isAsciiDigit(start.front()) || start.front() == '.'))
        return {.text = {}, .fits = true, .leftOut = leftOut({})};
    NumericText result = fromSpan(span, negative, exponent);
    result.leftOut = leftOut(result.text);
    return result;
}

bool hasOnlyGroup(std::string_view plain, char mark) {
    const std::string_view body = bare(plain).body;
    return body.find('.') == std::string_view::npos &&
           std::count(body.begin(), body.end(), mark) == 1 && !wholeNumber(body).empty();
}

// The mark of the only group of a whole number, where it may be meant as the decimal mark; and a
// blank that may stand between two figures.
std::string doubtfulGroup(std::string_view plain, const NumberMarks& marks) {
    const std::string mark = exchangeMarks(",", marks);
    const bool groupsByBlanks =
        std::ranges::find(blanks, std::string_view(marks.grouping)) != std::end(blanks);
    if (!groupsByBlanks && hasOnlyGroup(plain, ' '))
        return " ";
    const bool usual = mark == "," && marks.grouping == mark;
    return !usual && hasOnlyGroup(plain, ',') ? mark : std::string();
}

// A figure that is 0 only because nothing smaller can be stored.
bool isTooSmall(const NumericText& number, int exponent) {
    const std::string_view mantissa =
        std::string_view(number.text).substr(0, number.text.find('E'));
    return mantissa.find_first_of("123456789") != std::string_view::npos &&
           shiftDecimal(number.text, exponent) == 0;
}

} // namespace

std::string markOfOnlyGroup(std::string_view text, const NumberMarks& marks) {
    return hasOnlyGroup(exchangeMarks(text, marks), ',') ? exchangeMarks(",", marks)
                                                         : std::string();
}

NumericText cleanNumericText(std::string_view text, NumericKind kind, int exponent,
                             const NumberMarks& marks) {
    const std::string plain = exchangeMarks(text, marks);
    NumericText result = cleanPlainText(plain, kind, exponent);
    if (result.leftOut.empty() && isTooSmall(result, exponent))
        result.leftOut = withoutBlanks(plain);
    result.leftOut =
        result.leftOut.empty() ? doubtfulGroup(plain, marks) : exchangeMarks(result.leftOut, marks);
    return result;
}

double numericValue(std::string_view cleanText) {
    return shiftDecimal(cleanText, 0);
}

double shiftDecimal(std::string_view cleanText, int exponent) {
    const NumberSpan number = scanNumber(cleanText);
    if (number.length == 0)
        return 0;
    constexpr double infinite = std::numeric_limits<double>::infinity();
    return valueOf(number, exponent).value_or(number.negative ? -infinite : infinite);
}

double scaleValue(double stored, int exponent) {
    if (exponent == 0 || !std::isfinite(stored))
        return stored;
    Decimal number = toDecimal(stored);
    number.point += exponent;
    return toDouble(number);
}

double withoutStrayDigits(double value) {
    return std::isfinite(value) ? toDouble(toDecimal(value)) : value;
}

} // namespace vkr
