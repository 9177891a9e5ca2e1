// SPDX-License-Identifier: MIT
#include "filings/figure_sums.hpp"

#include "platform/decimal.hpp"

#include <algorithm>
#include <cmath>
#include <string>

namespace vkr {

namespace {

using Amount = std::optional<FiledAmount>;

double rounded(double exact, int places) {
    Decimal decimal = toDecimal(exact);
    roundToPlaces(decimal, places);
    return toDouble(decimal);
}

FiledAmount made(const FiledAmount& left, const FiledAmount& right, double value,
                 const char* between) {
    FiledAmount amount;
    amount.value = value;
    amount.divided = left.divided || right.divided;
    amount.basis = left.basis != 1 ? left.basis : right.basis;
    const bool leftIsLater = left.source.filed >= right.source.filed;
    amount.source = leftIsLater ? left.source : right.source;
    amount.source.concepts = left.source.concepts + between + right.source.concepts;
    amount.notes = left.notes;
    for (const FigureNote& note : right.notes)
        if (std::ranges::find(amount.notes, note) == amount.notes.end())
            amount.notes.push_back(note);
    return amount;
}

} // namespace

Amount sum(const Amount& left, const Amount& right, int sign) {
    if (!left || !right)
        return std::nullopt;
    return made(*left, *right, left->value + sign * right->value, sign < 0 ? " - " : " + ");
}

Amount total(const Amount& left, const Amount& right) {
    return left && right ? sum(left, right, 1) : left ? left : right;
}

Amount quotient(const Amount& left, const Amount& right) {
    if (!left || !right || right->value == 0)
        return std::nullopt;
    FiledAmount amount = made(*left, *right, left->value / right->value, " / ");
    amount.divided = true;
    return amount;
}

Amount percentOf(const Amount& part, const Amount& whole) {
    Amount rate = quotient(part, whole);
    if (rate)
        rate->value = 100 * part->value / whole->value;
    return rate;
}

Amount larger(const Amount& left, const Amount& right) {
    if (!left || !right)
        return left ? left : right;
    const FiledAmount& more = left->value >= right->value ? *left : *right;
    const FiledAmount& less = left->value >= right->value ? *right : *left;
    FiledAmount amount = more;
    if (less.value != more.value) {
        amount.others.push_back({less.value, less.source, "the smaller of two concepts"});
        amount.notes.push_back({"the larger of two concepts"});
    }
    return amount;
}

bool sameSign(const Amount& left, const Amount& right) {
    return left && right && std::signbit(left->value) == std::signbit(right->value);
}

void noteScale(const Amount& netIncome, const Amount& earningsPerShare, Amount& shares) {
    if (!netIncome || !earningsPerShare || !shares || earningsPerShare->value == 0)
        return;
    const double off = netIncome->value / earningsPerShare->value / shares->value;
    for (const double scale : {1e3, 1e6})
        for (const double times : {scale, 1 / scale})
            if (std::abs(off / times - 1) < 0.2)
                shares->notes.push_back({"net income and earnings per share speak for another "
                                         "count, " +
                                             std::string(times > 1 ? "larger" : "smaller") +
                                             " by a factor of " +
                                             std::to_string(static_cast<int>(scale)),
                                         true});
}

double roundedFigure(DatumUnit unit, double exact) {
    constexpr int noise = 10; // behind all digits that are filed
    constexpr int single = 6; // dollars and shares
    return rounded(exact, unit == DatumUnit::money || unit == DatumUnit::shares ? single : noise);
}

double roundedQuotient(DatumUnit unit, double exact) {
    if (unit == DatumUnit::perShare)
        return rounded(exact, 4);
    if (unit == DatumUnit::percent)
        return rounded(exact, 2);
    return roundedFigure(unit, exact);
}

} // namespace vkr
