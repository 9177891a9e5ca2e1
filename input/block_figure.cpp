// SPDX-License-Identifier: MIT
#include "input/block_figure.hpp"

#include "input/text_signs.hpp"
#include "platform/ascii.hpp"
#include "platform/text.hpp"

#include <algorithm>

namespace vkr {

namespace {

constexpr std::string_view dashes[] = {"-",      "\u2212", "\u2010", "\u2011",
                                       "\u2012", "\u2013", "\u2014", "\u2015"};
constexpr std::string_view notAvailable[] = {"n/a", "n.a.", "n.a",  "na",   "nm",  "n.m.", "n/m",
                                             "nmf", "nil",  "none", "null", "nan", "n/d",  "n.d."};

// Written out in place of a sign, or more than a sign.
constexpr std::string_view currencyWords[] = {
    "US$", "CA$", "AU$", "HK$", "NZ$", "NT$",     "R$",     "C$",     "A$",     "S$",
    "USD", "EUR", "GBP", "JPY", "CHF", "CAD",     "AUD",    "NZD",    "SEK",    "NOK",
    "DKK", "CNY", "RMB", "HKD", "SGD", "INR",     "KRW",    "TWD",    "BRL",    "MXN",
    "ZAR", "PLN", "ILS", "kr.", "kr",  "z\u0142", "\u20B9", "\u20A9", "\u20BD", "\u20AA"};

// --- currency words ------------------------------------------------------------------------------

// Takes a currency word off the front or the back of a figure, behind its sign or bracket.
std::string takeCurrencyWord(std::string& text) {
    constexpr std::string_view signs[] = {"(", "+", "-", "\u2212", "\u2012", "\u2013"};
    constexpr std::string_view closings[] = {")", "%", "-", "\u2212", "\u2012", "\u2013"};
    std::string_view front = text;
    while (skipFront(front, signs) || skipFront(front, blanks)) {
    }
    std::string_view back = text;
    while (skipBack(back, closings) || skipBack(back, blanks)) {
    }
    for (const std::string_view word : currencyWords) {
        if (front.starts_with(word)) {
            text.erase(text.size() - front.size(), word.size());
            return std::string(word);
        }
        if (back.ends_with(word)) {
            text.erase(back.size() - word.size(), word.size());
            return std::string(word);
        }
    }
    return {};
}

std::string currencySignIn(std::string_view text) {
    for (const std::string_view sign : currencySigns)
        if (text.find(sign) != std::string_view::npos)
            return std::string(sign);
    return {};
}

// --- marks ---------------------------------------------------------------------------------------

enum class MarkVote { none, point, comma, either };

MarkVote voteFor(char mark) {
    return mark == '.' ? MarkVote::point : MarkVote::comma;
}

char otherMark(char mark) {
    return mark == '.' ? ',' : '.';
}

// The digits of a figure with its marks; "" where other things stand between them.
std::string_view digitsWithMarks(std::string_view text) {
    const auto isPart = [](char one) { return isAsciiDigit(one) || one == '.' || one == ','; };
    const auto first = std::find_if(text.begin(), text.end(), isPart);
    auto last = std::find_if(text.rbegin(), text.rend(), isPart).base();
    if (first == text.end())
        return {};
    std::string_view core = text.substr(static_cast<std::size_t>(first - text.begin()),
                                        static_cast<std::size_t>(last - first));
    if (const auto exponent = core.find_first_of("eE"); exponent != std::string_view::npos)
        core = core.substr(0, exponent);
    return core;
}

// Of a figure: what stands in front of its last mark are groups.
MarkVote voteOf(std::string_view figure) {
    const std::string_view digits = digitsWithMarks(figure);
    const auto points = std::count(digits.begin(), digits.end(), '.');
    const auto commas = std::count(digits.begin(), digits.end(), ',');
    if (points + commas == 0)
        return MarkVote::none;
    const auto last = digits.find_last_of(".,");
    const char mark = digits[last];
    if (points > 0 && commas > 0)
        return voteFor(mark);
    if (points + commas > 1)
        return voteFor(otherMark(mark));
    const std::string_view whole = digits.substr(0, last);
    const std::string_view behind = digits.substr(last + 1);
    if (!std::all_of(behind.begin(), behind.end(), isAsciiDigit))
        return MarkVote::none;
    // Not "1 234,567", whose groups are blanks.
    const bool mayBeGroup =
        behind.size() == 3 && !whole.empty() && whole.size() <= 3 && whole.front() != '0';
    return mayBeGroup ? MarkVote::either : voteFor(mark);
}

// --- what is no figure ---------------------------------------------------------------------------

std::optional<CellKind> kindWithoutFigure(std::string_view text) {
    if (text.empty())
        return CellKind::empty;
    std::string_view rest = text;
    while (skipFront(rest, currencySigns) || skipFront(rest, blanks)) {
    }
    const bool dashed = skipFront(rest, dashes);
    while (skipFront(rest, dashes) || skipFront(rest, blanks)) {
    }
    if (dashed && rest.empty())
        return CellKind::dash;
    if (text.find_first_not_of('#') == std::string_view::npos)
        return CellKind::hidden;
    if (equalsIgnoringCase(text, "#N/A"))
        return CellKind::notAvailable;
    if (text.front() == '#')
        return CellKind::failed;
    for (const std::string_view words : notAvailable)
        if (equalsIgnoringCase(text, words))
            return CellKind::notAvailable;
    return std::nullopt;
}

// In front of what closes a figure: "100.50-", "20-%". In "5.-" a dash stands for the cents.
bool hasMinusBehind(std::string_view text, char decimal) {
    constexpr std::string_view closings[] = {"%", ")"};
    while (skipBack(text, closings) || skipBack(text, blanks) || skipBack(text, currencySigns)) {
    }
    bool behind = false;
    while (skipBack(text, minusSigns))
        behind = true;
    return behind && !text.ends_with(decimal);
}

NumberMarks marksWith(char decimal) {
    return {.decimal = decimal, .grouping = std::string(1, otherMark(decimal))};
}

// Its plain text, where all of it is one figure.
std::optional<NumericText> wholeFigure(std::string_view text, NumericKind kind, int exponent,
                                       char decimal) {
    const NumberMarks marks = marksWith(decimal);
    NumericText read = cleanNumericText(text, kind, exponent, marks);
    // Only that its group might be decimals, or another figure: that has a cell of its own.
    if (read.leftOut == " " || (read.leftOut == marks.grouping && voteOf(text) == MarkVote::either))
        read.leftOut.clear();
    if (read.text.empty() || !read.leftOut.empty())
        return std::nullopt;
    return read;
}

} // namespace

BlockMarks marksOf(const CellTexts& cells, char own) {
    bool point = false;
    bool comma = false;
    // A comma between words says nothing about figures.
    const auto isFigure = [](std::string_view text) {
        return std::ranges::any_of(std::string_view(".,"), [&](char decimal) {
            return readCell(text, NumericKind::PriceText, 0, {.decimal = decimal}).kind ==
                   CellKind::figure;
        });
    };
    for (const auto& row : cells)
        for (const std::string& cell : row) {
            if (!isFigure(cell))
                continue;
            std::string figure = cell;
            takeCurrencyWord(figure); // "kr." has a mark of its own
            const MarkVote vote = voteOf(figure);
            point = point || vote == MarkVote::point;
            comma = comma || vote == MarkVote::comma;
        }
    if (point != comma)
        return {.decimal = point ? '.' : ',', .isSure = true};
    return {.decimal = own, .isSure = false};
}

CellFigure readCell(std::string_view text, NumericKind kind, int exponent,
                    const BlockMarks& marks) {
    text = withoutBlanks(text);
    CellFigure cell;
    if (const auto none = kindWithoutFigure(text)) {
        cell.kind = *none;
        return cell;
    }
    cell.kind = CellKind::other;
    std::string figure(text);
    cell.currency = takeCurrencyWord(figure);
    if (cell.currency.empty())
        cell.currency = currencySignIn(figure);
    cell.brackets = figure.find('(') != std::string::npos;
    // Web tables have the closing bracket in a cell of its own.
    cell.openBracket = cell.brackets && figure.find(')') == std::string::npos;
    if (cell.openBracket)
        figure += ')';
    cell.percent = figure.find('%') != std::string::npos;
    cell.exponent = figure.find_first_of("eE") != std::string::npos;
    cell.fraction =
        figure.find('/') != std::string::npos || figure.find("\u2044") != std::string::npos;
    cell.minusBehind = hasMinusBehind(figure, marks.decimal);
    auto read = wholeFigure(figure, kind, exponent, marks.decimal);
    if (!read)
        return cell;
    cell.kind = CellKind::figure;
    cell.number = std::move(*read);
    const bool open = !marks.isSure && voteOf(figure) == MarkVote::either;
    if (const auto other =
            open ? wholeFigure(figure, kind, exponent, otherMark(marks.decimal)) : std::nullopt)
        if (other->text != cell.number.text)
            cell.otherReading = other->text;
    return cell;
}

} // namespace vkr
