// SPDX-License-Identifier: MIT
// Which lines of a block are headings, and what they name.
#include "binding/block_placing.hpp"
#include "binding/block_texts.hpp"
#include "binding/entry_context.hpp"
#include "input/date_reader.hpp"
#include "platform/error_trap.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace vkr {

namespace {

constexpr std::size_t leastHeading = 2;

} // namespace

std::optional<Date> BlockPlacing::dateIn(std::string_view text) const {
    const auto read = attemptOr(std::optional<Date>(),
                                [&] { return readDate(text, grid_.today, grid_.datePattern); });
    return read && EntryContext::isValidDate(*read) ? read : std::nullopt;
}

std::optional<BlockPlacing::Period> BlockPlacing::periodIn(std::string_view text) const {
    constexpr int quarters = 4;
    if (const auto named = quarterIn(text); named && grid_.quarterly && grid_.fiscalYear) {
        const auto& [year, end] = *grid_.fiscalYear;
        const Date last = addYears(end, named->year - year);
        return Period{.year = {},
                      .date = addQuarters(last, named->quarter - quarters),
                      .fiscal = civil(end).month != 12};
    }
    if (const auto year = yearIn(text))
        return grid_.quarterly ? std::nullopt : std::optional(Period{.year = year, .date = {}});
    if (isNoFigure(text)) { // "4.5" is no fourth of May
        const auto month = monthIn(text, civil(grid_.today).year + 1);
        if (const auto date = dateIn(month ? *month : text))
            return Period{.year = {}, .date = date, .isDay = true};
    }
    return std::nullopt;
}

bool BlockPlacing::isNameOf(const std::string& text, int row) const {
    const auto& shown = grid_.rows[static_cast<std::size_t>(row)];
    const auto period = periodIn(text);
    if (!period || quarterIn(text))
        return false;
    return period->year ? text == std::to_string(*period->year) : *period->date == shown.date;
}

std::optional<int> BlockPlacing::rowOf(const Period& period) const {
    constexpr int halfQuarter = 46;
    constexpr int halfYear = 183;
    int nearest = grid_.quarterly ? halfQuarter : halfYear;
    std::optional<int> found;
    for (int row = 0; row < static_cast<int>(grid_.rows.size()); ++row) {
        const auto& one = grid_.rows[static_cast<std::size_t>(row)];
        if (period.year) {
            if (one.year == *period.year)
                return row;
        } else if (isAbsent(one.date)) {
            if (!grid_.quarterly && one.year == civil(*period.date).year)
                return row;
        } else if (const int days = std::abs(daysBetween(one.date, *period.date)); days < nearest) {
            nearest = days;
            found = row;
        }
    }
    return found;
}

// The cell where heading and labels meet; nothing where the heading fills its line.
std::optional<std::string> BlockPlacing::cornerOf(Run run) const {
    if (run == Run::across && firstColumn_ > 0)
        return cells_[firstRow_][firstColumn_ - 1];
    if (run == Run::down && firstRow_ > 0)
        return cells_[firstRow_ - 1][firstColumn_];
    const std::string& first = cells_[firstRow_][firstColumn_];
    return isBlank(first) || (isText(first) && !periodIn(first)) ? std::optional(first)
                                                                 : std::nullopt;
}

// One period after the other, or with some missing in between.
bool BlockPlacing::follows(const Period& before, const Period& period, bool mayMiss) const {
    if (before.year.has_value() != period.year.has_value())
        return false;
    if (period.year) {
        const int years = std::abs(*period.year - *before.year);
        return mayMiss ? years >= 1 : years == 1;
    }
    struct Length {
        int least, most; // of one, in days
        double usual;
    };
    constexpr Length year{350, 380, 365.25};
    constexpr Length quarter{80, 100, 91.3125};
    const Length& length = grid_.quarterly ? quarter : year;
    const int days = std::abs(daysBetween(*before.date, *period.date));
    if (days >= length.least && days <= length.most)
        return true;
    const double count = std::round(days / length.usual);
    return mayMiss && count != 0 &&
           std::abs(days - count * length.usual) <= length.most - length.usual;
}

// In a table of years: a quarter is likelier to end there. Years of 52 weeks end some days off.
bool BlockPlacing::isOtherDay(const Period& period, std::optional<int> row) const {
    constexpr int most = 31;
    if (grid_.quarterly || !period.isDay || !row)
        return false;
    const Date end = grid_.rows[static_cast<std::size_t>(*row)].date;
    return !isAbsent(end) && std::abs(daysBetween(end, *period.date)) > most;
}

// In a table of quarters: days that are all years apart, where no title speaks of three months.
bool BlockPlacing::areYearsApart(const std::vector<Period>& periods) const {
    constexpr int quarter = 3;
    constexpr int least = 350;
    if (!grid_.quarterly || periods.size() < 2 || !std::ranges::all_of(periods, &Period::isDay) ||
        monthsInTitles(0) == quarter)
        return false;
    for (std::size_t at = 1; at < periods.size(); ++at)
        if (std::abs(daysBetween(*periods[at - 1].date, *periods[at].date)) < least)
            return false;
    return true;
}

std::optional<BlockPlacing::Heading> BlockPlacing::headingIn(Run run) const {
    const bool across = run == Run::across;
    if (firstRow_ >= height() || firstColumn_ >= width() ||
        (across ? height() - firstRow_ : width() - firstColumn_) < 2)
        return std::nullopt;
    const auto corner = cornerOf(run);
    if (corner && columnNamed(*corner) >= 0)
        return std::nullopt; // figures that look like years
    Line cells = line(run, across ? firstRow_ : firstColumn_);
    std::size_t from = across ? firstColumn_ : firstRow_;
    from += corner && *corner == cells[from] ? 1U : 0U;
    while (!cells.empty() && isBlank(cells.back()))
        cells.pop_back();
    if (across && !standsAbove(cells))
        return std::nullopt;

    const bool plain = corner && isCornerOfPeriods(*corner);
    Heading heading{.run = run, .isSure = corner.has_value()};
    heading.places.resize(from);
    std::vector<Period> periods;
    for (std::size_t at = from; at < cells.size(); ++at) {
        const auto period = periodIn(cells[at]);
        if (!period && !(plain && (isText(cells[at]) || isBlank(cells[at]))))
            return std::nullopt;
        auto& place = heading.places.emplace_back();
        if (!period)
            continue;
        place.row = rowOf(*period);
        place.isOtherDay = isOtherDay(*period, place.row);
        periods.push_back(*period);
    }
    if (areYearsApart(periods))
        for (auto& place : heading.places)
            place.isOtherDay = true;
    if (periods.size() < (plain ? 1 : leastHeading))
        return std::nullopt;
    const auto isEarlier = [](const Period& one, const Period& other) {
        return one.year ? *one.year < *other.year : daysBetween(*one.date, *other.date) > 0;
    };
    for (std::size_t at = 1; at < periods.size(); ++at)
        if (!follows(periods[at - 1], periods[at], plain))
            return std::nullopt;
    heading.descends = periods.size() > 1 && isEarlier(periods[1], periods[0]);
    for (std::size_t at = 1; at < periods.size(); ++at)
        if (isEarlier(periods[at], periods[at - 1]) != heading.descends)
            return std::nullopt;
    heading.fiscal = std::ranges::any_of(periods, &Period::fiscal);
    heading.places.resize(across ? width() : height());
    return heading;
}

// Whether a block without a heading still names periods.
bool BlockPlacing::namesPeriods() const {
    for (std::size_t row = 0; row < height(); ++row)
        for (std::size_t column = 0; column < width(); ++column)
            if (isInTitles(row, column) && isText(cells_[row][column]) &&
                namesPeriod(cells_[row][column]))
                return true;
    const auto looksLikeHeading = [this](Run run) {
        const auto corner = cornerOf(run);
        const Line cells = line(run, run == Run::across ? firstRow_ : firstColumn_);
        return corner && isCornerOfPeriods(*corner) &&
               std::ranges::any_of(
                   cells, [this](const auto& cell) { return yearIn(cell) || isOfPeriods(cell); });
    };
    return firstRow_ < height() && firstColumn_ < width() &&
           (looksLikeHeading(Run::across) || looksLikeHeading(Run::down));
}

int BlockPlacing::columnNamed(std::string_view head, int* unit) const {
    const auto isNamed = [&](const std::string& name) {
        if (equalsIgnoringCase(head, name))
            return true;
        for (const auto& shown : grid_.unitNames)
            if (equalsIgnoringCase(head, name + " " + shown.text)) {
                if (unit != nullptr)
                    *unit = shown.exponent;
                return true;
            }
        return false;
    };
    for (std::size_t column = 0; column < grid_.columns.size(); ++column)
        if (isNamed(grid_.columns[column].name) ||
            std::ranges::any_of(grid_.columns[column].otherNames, isNamed))
            return static_cast<int>(column);
    return -1;
}

// The lines' heads, where they have any.
BlockPlacing::Line BlockPlacing::headsOf(Run periods) const {
    const bool across = periods == Run::across;
    if (across ? firstColumn_ == 0 : firstRow_ == 0)
        return {};
    return across ? line(Run::down, 0) : line(Run::across, firstRow_ - 1);
}

std::vector<int> BlockPlacing::namesOf(Run periods) const {
    const Line heads = headsOf(periods);
    std::vector<int> names;
    for (const std::string& head : heads)
        names.push_back(columnNamed(head));
    if (std::ranges::all_of(names, [](int column) { return column < 0; }))
        return {};
    for (std::size_t column = 0; column < grid_.columns.size(); ++column) {
        const auto goesFirst = [&](const std::string& head) {
            return std::ranges::any_of(grid_.columns[column].firstNames, [&](const auto& name) {
                return equalsIgnoringCase(head, name);
            });
        };
        if (std::ranges::none_of(heads, goesFirst))
            continue;
        for (std::size_t at = 0; at < heads.size(); ++at)
            if (names[at] == static_cast<int>(column) && !goesFirst(heads[at]))
                names[at] = -1;
    }
    return names;
}

} // namespace vkr
