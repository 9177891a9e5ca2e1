// SPDX-License-Identifier: MIT
#include "company/split.hpp"

#include "platform/ascii.hpp"
#include "platform/error_trap.hpp"
#include "platform/nearest_double.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace vkr {

namespace {

using enum Datum;

constexpr int mostShares = 1000;

std::string_view trimmedBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    return first == std::string_view::npos
               ? std::string_view()
               : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// A whole number at the start, which is taken off; 0 where there is none, or it is too large.
int takeNumber(std::string_view& text) {
    int number = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number > mostShares ? 0 : number;
}

// Whether what stands between the numbers parts them.
bool takeParting(std::string_view& text) {
    text = trimmedBlanks(text);
    for (const std::string_view word : {"-for-", "for", ":", "/"})
        if (startsWithAscii(text, word)) {
            text = trimmedBlanks(text.substr(word.size()));
            return true;
        }
    return false;
}

// By which date a datum is known to be of before a split.
enum class DatedBy { itsYear, itsQuarter, price, quarter };

// Data of DatumUnit::perShare and shares, in the order of the record's data.
DatedBy datedBy(const DatumRow& row) {
    if (isSeries(row))
        return row.period == DatumPeriod::year ? DatedBy::itsYear : DatedBy::itsQuarter;
    return row.datum == CurrentPrice || row.datum == High52W || row.datum == Low52W
               ? DatedBy::price
               : DatedBy::quarter;
}

struct Dates {
    Date year;
    Date quarter;
    Date price;

    explicit Dates(const iVKR_Company& company) {
        const auto read = [&](Datum datum) {
            return attemptOr(Date{}, [&] { return readDate(company, datum); });
        };
        year = read(LastFYDate);
        quarter = read(LastQDateForGrid);
        price = read(PriceUpdatedDate);
    }

    // Absent where there is none to go by; `wanted` is then the one that is missing.
    [[nodiscard]] Date of(const DatumRow& row, int element, Datum& wanted) const {
        switch (datedBy(row)) {
        case DatedBy::price:
            wanted = PriceUpdatedDate;
            return price;
        case DatedBy::quarter:
            wanted = LastQDateForGrid;
            return isAbsent(quarter) ? year : quarter;
        case DatedBy::itsYear:
            wanted = LastFYDate;
            return addYears(year, 1 - element);
        case DatedBy::itsQuarter:
            wanted = LastQDateForGrid;
            return addQuarters(quarter, -element);
        }
        return {};
    }
};

// Rounded once: by way of the shortest text a 5 at the end may have come of a 49.
double inFifteenDigits(double value) {
    char text[32];
    const auto written =
        std::to_chars(std::begin(text), std::end(text), value, std::chars_format::scientific, 14);
    return nearestDouble({std::begin(text), written.ptr}).value_or(value);
}

} // namespace

std::optional<SplitRatio> readSplitRatio(std::string_view text) {
    text = trimmedBlanks(text);
    SplitRatio ratio;
    ratio.shares = takeNumber(text);
    if (!text.empty()) {
        if (!takeParting(text))
            return std::nullopt;
        ratio.before = takeNumber(text);
    }
    const bool isRead = ratio.shares > 0 && ratio.before > 0 && text.empty();
    return isRead && ratio.isSplit() ? std::optional(ratio) : std::nullopt;
}

std::string splitText(const SplitRatio& ratio) {
    return std::to_string(ratio.shares) + ':' + std::to_string(ratio.before);
}

std::optional<SplitRatio> splitRatioOf(double shares) {
    constexpr int mostBefore = 100;
    constexpr double rounding = 0.0005;
    for (int before = 1; before <= mostBefore; ++before) {
        const double exact = shares * before;
        const double whole = std::round(exact);
        if (whole >= 1 && whole <= mostShares && std::abs(exact - whole) <= rounding * exact)
            return SplitRatio{static_cast<int>(whole), before};
    }
    return std::nullopt;
}

double afterSplit(double figure, DatumUnit unit, const SplitRatio& ratio) {
    const bool counts = unit == DatumUnit::shares;
    const int times = counts ? ratio.shares : ratio.before;
    const int parts = counts ? ratio.before : ratio.shares;
    // Of the figure and of its result, relative: two roundings to binary, below half a 15th digit.
    constexpr long double noise = 2.25e-16L;
    const long double exact = static_cast<long double>(figure) * times / parts;
    const auto nearest = static_cast<double>(exact);
    const double decimal = inFifteenDigits(nearest);
    return std::abs(decimal - exact) <= std::abs(exact) * noise ? decimal : nearest;
}

SplitChanges splitChanges(const iVKR_Company& company, const Split& split) {
    SplitChanges result;
    const Dates dates(company);
    const auto add = [&](const DatumRow& row, std::optional<int> element, double figure) {
        Datum wanted{};
        const Date dated = dates.of(row, element.value_or(0), wanted);
        if (figure == 0 || !std::isfinite(figure))
            return;
        if (isAbsent(dated)) {
            if (std::ranges::find(result.missingDates, wanted) == result.missingDates.end())
                result.missingDates.push_back(wanted);
            return;
        }
        if (daysBetween(dated, split.effective) <= 0)
            return;
        const double after = afterSplit(figure, row.unit, split.ratio);
        if (after == figure || !std::isfinite(after))
            return;
        const bool isInexact = afterSplit(after, row.unit, split.ratio.inverse()) != figure;
        result.changes.push_back({{row.datum, element, figure, after}, isInexact});
    };
    for (const DatumRow& row : datumTable()) {
        if (row.unit != DatumUnit::perShare && row.unit != DatumUnit::shares)
            continue;
        ifPossible([&] {
            if (!isSeries(row))
                return add(row, std::nullopt, readNumber(company, row.datum));
            const Variant value = readSeries(company, row.datum);
            const VariantArray& series = value.array();
            for (int element = 0; element <= row.upper; ++element)
                if (series.contains(element))
                    add(row, element, series.number(element));
        });
    }
    return result;
}

constexpr std::string_view splitWord = "Split ";

Action splitAction(const SplitRatio& ratio) {
    return {Origin::adjusted, std::string(splitWord) + splitText(ratio), {}};
}

bool isSplit(std::string_view actionName) {
    return actionName.starts_with(splitWord) &&
           readSplitRatio(actionName.substr(splitWord.size())).has_value();
}

} // namespace vkr
