// SPDX-License-Identifier: MIT
// How a block that a web page or a report has handed over becomes rows and columns again.
#include "binding/block_placing.hpp"
#include "binding/block_texts.hpp"

#include <algorithm>
#include <iterator>

namespace vkr {

// Columns of signs alone go to the figures that they stand beside.
void BlockPlacing::joinSigns() {
    for (std::size_t column = width(); column-- > 0;) {
        bool signs = false;
        bool others = false;
        for (const auto& row : cells_) {
            const bool sign = isCurrencySign(row[column]) || isClosingSign(row[column]);
            signs = signs || sign;
            others = others || (!sign && !row[column].empty());
        }
        if (!signs || others || width() == 1)
            continue;
        for (auto& row : cells_) {
            if (isClosingSign(row[column]) && column > 0 && !row[column - 1].empty())
                row[column - 1] += row[column];
            else if (isCurrencySign(row[column]) && column + 1 < row.size() &&
                     !row[column + 1].empty())
                row[column + 1] = row[column] + row[column + 1];
            row.erase(row.begin() + static_cast<std::ptrdiff_t>(column));
        }
    }
}

namespace {

// What stands behind the label of a row, without empty cells, each sign with its figure.
std::vector<std::string> valuesOf(const std::vector<std::string>& row) {
    std::vector<std::string> values;
    std::string sign;
    for (std::size_t at = 1; at < row.size(); ++at) {
        const std::string& cell = row[at];
        if (isCurrencySign(cell)) {
            sign = cell;
        } else if (isClosingSign(cell) && !values.empty()) {
            values.back() += cell;
        } else if (!isBlank(cell)) {
            values.push_back(sign + cell);
            sign.clear();
        }
    }
    return values;
}

bool isLabel(const std::string& text) {
    return isBlank(text) || isText(text);
}

} // namespace

bool BlockPlacing::isOfPeriods(const std::string& cell) const {
    return periodIn(cell) || (isText(cell) && namesPeriod(cell));
}

// The first row with periods and nothing else, behind a corner or without one; what stands above it
// are titles.
std::optional<std::size_t> BlockPlacing::rowOfPeriods() const {
    for (std::size_t row = 0; row < height(); ++row) {
        const Line& cells = cells_[row];
        const auto found = std::ranges::count_if(
            cells, [this](const std::string& cell) { return isOfPeriods(cell); });
        if (found > 1 && std::all_of(cells.begin() + 1, cells.end(), [this](const auto& cell) {
                return isBlank(cell) || isOfPeriods(cell);
            }))
            return row;
        if (!std::ranges::all_of(cells, isLabel))
            return std::nullopt;
    }
    return std::nullopt;
}

// A cell of a web table that spans several columns is a single one here, and one that spans two
// rows is missing in the second of them: then periods stand in other columns than their figures.
// Where each row has as many figures as there are periods, they belong together in their order.
void BlockPlacing::straighten() {
    const auto heading = rowOfPeriods();
    if (!heading)
        return;
    Line periods = cells_[*heading];
    if (isOfPeriods(periods[0]))
        periods.insert(periods.begin(), std::string());
    const auto from = cells_.begin() + static_cast<std::ptrdiff_t>(*heading) + 1;
    const auto hasLabel = [](const Line& row) { return isLabel(row[0]); };
    const auto isNamed = [](const Line& row) { return isText(row[0]); };
    if (!std::all_of(from, cells_.end(), hasLabel) || std::none_of(from, cells_.end(), isNamed))
        return;

    const Line named = valuesOf(periods);
    std::vector<Line> values;
    std::transform(from, cells_.end(), std::back_inserter(values), valuesOf);
    const auto isFull = [&](const Line& row) { return row.size() == named.size(); };
    if (std::ranges::any_of(values, isFull) &&
        std::ranges::all_of(values, [&](const Line& row) { return row.empty() || isFull(row); })) {
        cells_[*heading] = named;
        cells_[*heading].insert(cells_[*heading].begin(), periods[0]);
        for (std::size_t row = 0; row < values.size(); ++row) {
            Line& cells = *(from + static_cast<std::ptrdiff_t>(row));
            cells.resize(1);
            std::ranges::move(values[row], std::back_inserter(cells));
        }
    } else if (isBlank(periods.back())) {
        periods.pop_back();
        cells_[*heading] = periods; // and the figures stay in their columns
    }
    for (auto title = cells_.begin(); title != from - 1; ++title)
        std::erase_if(*title, isBlank);
    std::size_t widest = 0;
    for (const Line& row : cells_)
        widest = std::max(widest, row.size());
    for (Line& row : cells_)
        row.resize(widest);
}

// Whether the figures stand below the periods. One beside them in a row that has none below one of
// them, and a sign alone below one, say that they do not.
bool BlockPlacing::standsAbove(const Line& periods) const {
    return std::none_of(cells_.begin() + static_cast<std::ptrdiff_t>(firstRow_), cells_.end(),
                        [&](const Line& row) {
                            bool beside = false;
                            bool lacks = false;
                            for (std::size_t at = firstColumn_; at < row.size(); ++at) {
                                const bool isBelow = at < periods.size() && !isBlank(periods[at]);
                                if (isBelow && (isCurrencySign(row[at]) || isClosingSign(row[at])))
                                    return true;
                                beside = beside || (!isBelow && !isBlank(row[at]));
                                lacks = lacks || (isBelow && isBlank(row[at]));
                            }
                            return beside && lacks;
                        });
}

} // namespace vkr
