// SPDX-License-Identifier: MIT
#include "binding/block_placing.hpp"

#include "binding/block_texts.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <cassert>
#include <set>
#include <utility>

namespace vkr {

BlockPlacing::BlockPlacing(CellTexts cells, BlockGrid grid, std::optional<char> decimal)
    : cells_(std::move(cells)), grid_(std::move(grid)) {
    for (auto& row : cells_)
        for (std::string& cell : row)
            cell = trimmed(cleanedText(cell, FieldLines::one));
    joinSigns();
    straighten();
    marks_ = decimal ? BlockMarks{.decimal = *decimal} : marksOf(cells_, grid_.decimal);
    for (const auto& row : cells_)
        for (const std::string& cell : row)
            hasMarks_ = hasMarks_ || cell.find_first_of(".,") != std::string::npos;
    peelTitles();
    suggest();
    place();
}

void BlockPlacing::setSwitches(const BlockSwitches& switches) {
    switches_ = switches;
    place();
    checkInvariants();
}

void BlockPlacing::checkInvariants() const {
    assert(firstRow_ <= height() && firstColumn_ <= width());
    assert(!heading_ || !namesPeriods_);
    assert(std::ranges::all_of(placed_, [](const PlacedCell& cell) {
        return (cell.column < 0) == (cell.row < 0) &&
               cell.figure.has_value() == (cell.fate != PasteFate::leftOut);
    }));
}

int BlockPlacing::taken() const {
    return static_cast<int>(placed_.size()) - leftOut();
}

int BlockPlacing::leftOut() const {
    return static_cast<int>(std::ranges::count(placed_, PasteFate::leftOut, &PlacedCell::fate));
}

// --- what the block is made of -------------------------------------------------------------------

const std::string& BlockPlacing::cellIn(Run run, std::size_t line, std::size_t at) const {
    return run == Run::across ? cells_[line][at] : cells_[at][line];
}

const std::string& BlockPlacing::headOf(std::size_t period) const {
    return cellIn(heading_->run, heading_->run == Run::across ? firstRow_ : firstColumn_, period);
}

BlockPlacing::Line BlockPlacing::line(Run run, std::size_t index) const {
    if (run == Run::across)
        return cells_[index];
    Line column;
    for (const auto& row : cells_)
        column.push_back(row[index]);
    return column;
}

// Texts alone, at least one, from a cell on. A date is no text.
bool BlockPlacing::isTitle(const Line& line, std::size_t from) const {
    bool found = false;
    for (auto cell = line.begin() + static_cast<std::ptrdiff_t>(from); cell != line.end(); ++cell) {
        if (isBlank(*cell))
            continue;
        if (!isText(*cell) || isScaledFigure(*cell) || periodIn(*cell))
            return false;
        found = true;
    }
    return found;
}

void BlockPlacing::peelTitles() {
    const auto isEmpty = [](const Line& line) { return std::ranges::all_of(line, isBlank); };
    while (firstRow_ < height() &&
           (isTitle(cells_[firstRow_], 0) || (firstRow_ > 0 && isEmpty(cells_[firstRow_]))))
        ++firstRow_;
    if (isTitle(line(Run::down, 0), firstRow_))
        firstColumn_ = 1;
}

bool BlockPlacing::isInTitles(std::size_t row, std::size_t column) const {
    return row < firstRow_ || column < firstColumn_ || row == 0;
}

// "in thousands", as reports say it above their figures, and "shares in thousands".
BlockPlacing::TitleUnits BlockPlacing::unitsInTitles() const {
    static constexpr std::pair<std::string_view, int> words[] = {
        {"IN THOUSANDS", 3}, {"IN MILLIONS", 6}, {"IN BILLIONS", 9}};
    std::set<int> money;
    std::set<int> shares;
    bool exceptShares = false;
    const auto read = [&](const std::string& text) {
        std::size_t from = 0; // behind the unit before
        for (std::size_t at = 0; at < text.size(); ++at)
            for (const auto& [word, unit] : words)
                if (std::string_view(text).substr(at).starts_with(word)) {
                    const std::string before = text.substr(from, at - from);
                    (before.find("SHARES") == std::string::npos ? money : shares).insert(unit);
                    from = at + word.size();
                }
        const std::string rest = text.substr(from);
        exceptShares =
            exceptShares || (from != 0 && (rest.find("EXCEPT SHARE") != std::string::npos ||
                                           rest.find("SHARES") != std::string::npos));
    };
    for (std::size_t row = 0; row < height(); ++row)
        for (std::size_t column = 0; column < width(); ++column)
            if (isInTitles(row, column))
                read(upperCase(cells_[row][column]));
    const auto only = [](const std::set<int>& found) {
        return found.size() == 1 ? *found.begin() : 0;
    };
    return {.money = only(money),
            .shares = only(shares),
            .unclear = money.size() > 1,
            .sharesUnclear = !shares.empty() || exceptShares};
}

// How many months the titles speak of where not of the usual ones: "9 Months Ended" is no quarter,
// though it names the day on which one ended.
std::optional<int> BlockPlacing::monthsInTitles(int usual) const {
    for (std::size_t row = 0; row < height(); ++row)
        for (std::size_t column = 0; column < width(); ++column)
            if (isInTitles(row, column))
                if (const auto months = otherMonthsIn(cells_[row][column], usual))
                    return months;
    return std::nullopt;
}

void BlockPlacing::suggest() {
    for (const Run run : {Run::across, Run::down})
        if (auto found = headingIn(run); found && (!heading_ || !heading_->isSure))
            heading_ = std::move(found);
    namesPeriods_ = !heading_ && namesPeriods();
    units_ = unitsInTitles();
    otherMonths_ = monthsInTitles(grid_.quarterly ? 3 : 12);
    switches_.decimal = marks_.decimal;
    if (heading_ && heading_->isSure) {
        switches_.byPeriods = true;
        switches_.turned = heading_->run == Run::across;
        switches_.reversed = heading_->descends != grid_.quarterly;
    } else {
        switches_.turned = namesOf(Run::down).empty() && !namesOf(Run::across).empty();
    }
    switches_.byNames = hasNames();
    switches_.unit = units_.money;
    if (!switches_.byNames || switches_.unit != 0)
        return;
    std::set<int> units;
    const Line heads = headsOf(periods());
    for (const std::string& head : heads) {
        int unit = 0;
        if (const int column = columnNamed(head, &unit);
            column >= 0 && grid_.columns[static_cast<std::size_t>(column)].isInUnit())
            units.insert(unit);
    }
    if (units.size() == 1)
        switches_.unit = *units.begin();
    units_.unclear = units_.unclear || units.size() > 1;
}

// --- placing -------------------------------------------------------------------------------------

BlockPlacing::Run BlockPlacing::periods() const {
    if (switches_.byPeriods && heading_)
        return heading_->run;
    return switches_.turned ? Run::across : Run::down;
}

bool BlockPlacing::isInHeading(std::size_t row, std::size_t column) const {
    return heading_ && (heading_->run == Run::across ? row == firstRow_ : column == firstColumn_);
}

std::optional<BlockGrid::Held> BlockPlacing::heldAt(int column, int row) const {
    const auto at = static_cast<std::size_t>(column);
    const auto in = static_cast<std::size_t>(row);
    return at < grid_.held.size() && in < grid_.held[at].size() ? grid_.held[at][in] : std::nullopt;
}

void BlockPlacing::place() {
    placed_.clear();
    const auto names = switches_.byNames ? namesOf(periods()) : std::vector<int>();
    std::set<std::pair<int, int>> targets;
    for (std::size_t row = firstRow_; row < height(); ++row)
        for (std::size_t column = firstColumn_; column < width(); ++column) {
            if (switches_.byPeriods && isInHeading(row, column))
                continue;
            PlacedCell cell = aimed(row, column, names);
            if (cell.comments.empty())
                read(cell);
            if (cell.figure && !switches_.byPeriods && isInHeading(row, column) &&
                periodIn(cell.text))
                cell.comments.push_back({BlockRemark::looksLikeYear, {}});
            if (cell.figure)
                check(cell, periods() == Run::across ? column : row);
            if (isBlank(cell.text) && (!cell.figure || cell.held == 0))
                continue;
            if (cell.figure && !targets.insert({cell.column, cell.row}).second) {
                cell.figure.reset();
                cell.comments.push_back({BlockRemark::twice, {}});
            }
            const bool doubtful =
                std::ranges::any_of(cell.comments, isDoubt, &BlockComment::remark);
            cell.fate = !cell.figure ? PasteFate::leftOut
                        : doubtful   ? PasteFate::doubtful
                                     : PasteFate::taken;
            placed_.push_back(std::move(cell));
        }
}

// The place that a cell goes to, or a comment why there is none.
PlacedCell BlockPlacing::aimed(std::size_t row, std::size_t column,
                               const std::vector<int>& names) const {
    PlacedCell cell;
    cell.text = cells_[row][column];
    const bool across = periods() == Run::across;
    const std::size_t headed = switches_.byPeriods && heading_ ? 1 : 0;
    const std::size_t period = across ? column : row;
    const std::size_t series = across ? row : column;
    const std::size_t firstPeriod = across ? firstColumn_ : firstRow_;
    const std::size_t firstSeries = (across ? firstRow_ : firstColumn_) + headed;
    const std::size_t periods = (across ? width() : height()) - firstPeriod;

    const auto placeIn = [](int from, std::size_t steps) { return from + static_cast<int>(steps); };
    cell.column = names.empty() ? placeIn(grid_.column, series - firstSeries) : names[series];
    if (headed != 0) {
        cell.row = heading_->places[period].row.value_or(-1);
    } else {
        const std::size_t step = period - firstPeriod;
        cell.row = placeIn(grid_.row, switches_.reversed ? periods - 1 - step : step);
    }
    const auto say = [&](BlockRemark remark, const std::string& head) {
        if (isBlank(head))
            cell.comments.push_back({BlockRemark::unnamed, {}});
        else
            cell.comments.push_back({remark, head});
    };
    if (cell.column < 0) {
        const BlockComment why = withoutColumn(names, series);
        say(why.remark, why.detail);
    } else if (cell.row < 0) {
        say(BlockRemark::noSuchPeriod, headOf(period));
    } else {
        if (const auto held = heldAt(cell.column, cell.row))
            cell.held = held->figure;
        else
            cell.comments.push_back({BlockRemark::outside, {}});
    }
    if (!cell.comments.empty()) {
        cell.column = -1;
        cell.row = -1;
    } else if (headed != 0 && !isNameOf(headOf(period), cell.row)) {
        cell.named = headOf(period);
    }
    return cell;
}

const std::string& BlockPlacing::nameOf(std::size_t series) const {
    return periods() == Run::across ? cells_[series][0] : cells_[firstRow_ - 1][series];
}

// Why a line has no column: its head names none, or another head goes before it.
BlockComment BlockPlacing::withoutColumn(const std::vector<int>& names, std::size_t series) const {
    if (const int column = columnNamed(nameOf(series)); column >= 0)
        if (const auto first = std::ranges::find(names, column); first != names.end())
            return {BlockRemark::otherHead,
                    nameOf(static_cast<std::size_t>(first - names.begin()))};
    return {BlockRemark::noSuchColumn, nameOf(series)};
}

void BlockPlacing::read(PlacedCell& cell) const {
    using enum BlockRemark;
    constexpr int stored = 6; // in millions
    const auto& column = grid_.columns[static_cast<std::size_t>(cell.column)];
    const bool ownUnit = column.measure == BlockGrid::Measure::shares && units_.shares != 0;
    const int blockUnit = ownUnit ? units_.shares : switches_.unit;
    const int unit = blockUnit == 0 ? grid_.unit : blockUnit;
    const int power = column.isInUnit() ? unit - stored : 0;
    BlockMarks marks = marks_;
    marks.decimal = switches_.decimal;
    const bool price = column.measure == BlockGrid::Measure::price;
    const CellFigure read = readCell(
        cell.text, price ? NumericKind::PriceText : NumericKind::PlainNumber, power, marks);
    if (read.kind == CellKind::empty || read.kind == CellKind::dash) {
        if (switches_.emptyCells)
            cell.figure = 0;
        cell.sayIf(switches_.emptyCells, empties);
        cell.sayIf(!switches_.emptyCells && read.kind == CellKind::dash, dash);
    }
    cell.sayIf(read.kind == CellKind::notAvailable, notAvailable);
    cell.sayIf(read.kind == CellKind::hidden, hidden);
    cell.sayIf(read.kind == CellKind::failed, failed);
    cell.sayIf(read.kind == CellKind::other, noFigure);
    if (read.kind != CellKind::figure)
        return;
    cell.sayIf(read.brackets && !read.openBracket, brackets);
    cell.sayIf(read.openBracket, openBracket);
    cell.sayIf(read.minusBehind, minusBehind);
    cell.sayIf(!read.currency.empty(), currency, read.currency);
    if (read.percent)
        cell.say(column.measure == BlockGrid::Measure::percent ? percentSign : percentOfAmount);
    cell.sayIf(read.fraction, fraction);
    cell.sayIf(read.exponent, BlockRemark::exponent);
    if (read.otherReading)
        cell.say(otherReading, *read.otherReading);
    const double figure = shiftDecimal(read.number.text, power);
    cell.sayIf(!read.number.fits, tooLarge);
    cell.sayIf(read.number.fits && figure < 0 && !column.negatives, negative);
    if (read.number.fits && (figure >= 0 || column.negatives))
        cell.figure = figure == 0 ? 0 : figure; // no negative zero
    cell.sayIf(cell.figure == 0 && cell.held != 0, empties);
}

// What is to be said of a figure that has its place.
void BlockPlacing::check(PlacedCell& cell, std::size_t period) const {
    const auto& column = grid_.columns[static_cast<std::size_t>(cell.column)];
    cell.sayIf(namesPeriods_, BlockRemark::byPosition);
    if (switches_.byPeriods && heading_) {
        cell.sayIf(heading_->fiscal, BlockRemark::fiscalQuarter);
        cell.sayIf(heading_->places[period].isOtherDay && !otherMonths_, BlockRemark::otherDay);
    }
    if (otherMonths_)
        cell.sayIf(true, BlockRemark::otherMonths, std::to_string(*otherMonths_));
    const bool shares = column.measure == BlockGrid::Measure::shares;
    const bool ownUnit = shares && units_.shares != 0;
    cell.sayIf(ownUnit, BlockRemark::sharesUnit, std::to_string(units_.shares));
    cell.sayIf(column.isInUnit() && !ownUnit &&
                   ((units_.unclear && switches_.unit == 0) || (shares && units_.sharesUnclear)),
               BlockRemark::unitUnclear);
    const auto held = heldAt(cell.column, cell.row);
    cell.sayIf(cell.held != 0 && cell.held != *cell.figure && held->isByHand,
               BlockRemark::replacesTyped);
}

} // namespace vkr
