// SPDX-License-Identifier: MIT
#include "control/block_paste.hpp"

#include "binding/text_numbers.hpp"
#include "input/mdlKMTMisc.hpp"
#include "platform/error_trap.hpp"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <utility>

namespace vkr {

namespace {

constexpr int units[] = {0, 3, 6, 9};
constexpr int captionsOfUnits[] = {549, 550, 551}; // thousands, millions, billions
constexpr char decimalMarks[] = {'.', ','};

// What a person chooses, by the place of the switch on the preview.
using Choose = void (*)(BlockSwitches& switches, int chosen);
constexpr Choose choices[] = {
    [](BlockSwitches& switches, int chosen) { switches.byPeriods = chosen != 0; },
    [](BlockSwitches& switches, int chosen) { switches.byNames = chosen != 0; },
    [](BlockSwitches& switches, int chosen) { switches.turned = chosen != 0; },
    [](BlockSwitches& switches, int chosen) { switches.reversed = chosen != 0; },
    [](BlockSwitches& switches, int chosen) { switches.unit = units[chosen]; },
    [](BlockSwitches& switches, int chosen) { switches.emptyCells = chosen != 0; },
    [](BlockSwitches& switches, int chosen) { switches.decimal = decimalMarks[chosen]; },
};

template <typename Values, typename Value>
int placeOf(const Values& values, Value value) {
    return static_cast<int>(std::ranges::find(values, value) - std::begin(values));
}

// What reports call the series, beside the heads of the form.
struct ReportName {
    std::string_view name;
    Datum yearly;
    std::optional<Datum> quarterly = {};
    bool goesFirst = false; // before the other names of the column, where a block has both
};
using enum Datum;
constexpr ReportName reportNames[] = {
    {"Revenues", YRevenueSeries, QRevenueSeries},
    {"Total revenue", YRevenueSeries, QRevenueSeries},
    {"Total revenues", YRevenueSeries, QRevenueSeries},
    {"Net revenue", YRevenueSeries, QRevenueSeries},
    {"Net revenues", YRevenueSeries, QRevenueSeries},
    {"Total net revenue", YRevenueSeries, QRevenueSeries},
    {"Total net revenues", YRevenueSeries, QRevenueSeries},
    {"Net sales", YRevenueSeries, QRevenueSeries},
    {"Total net sales", YRevenueSeries, QRevenueSeries},
    {"Sales", YRevenueSeries, QRevenueSeries},
    {"Net income", YNetIncSeries, QNetIncSeries},
    {"Net inc.", YNetIncSeries, QNetIncSeries},
    {"Net earnings", YNetIncSeries, QNetIncSeries},
    {"Net income (loss)", YNetIncSeries, QNetIncSeries},
    {"Net earnings (loss)", YNetIncSeries, QNetIncSeries},
    {"Income before taxes", YPTISeries, QPTISeries},
    {"Income before tax", YPTISeries, QPTISeries},
    {"Pretax income", YPTISeries, QPTISeries},
    {"Pre-tax income", YPTISeries, QPTISeries},
    {"Income before income taxes", YPTISeries, QPTISeries},
    {"Income before income tax", YPTISeries, QPTISeries},
    {"Income before provision for income taxes", YPTISeries, QPTISeries},
    {"Earnings before income taxes", YPTISeries, QPTISeries},
    {"Tax rate", YTaxRateSeries, QTaxRateSeries},
    {"Effective tax rate", YTaxRateSeries, QTaxRateSeries},
    {"EPS", YEPSSeries, QEPSSeries},
    {"Earnings per share", YEPSSeries, QEPSSeries},
    {"Basic EPS", YEPSSeries, QEPSSeries},
    {"Basic earnings per share", YEPSSeries, QEPSSeries},
    {"Earnings per share, basic", YEPSSeries, QEPSSeries},
    {"EPS (Basic)", YEPSSeries, QEPSSeries},
    {"Diluted EPS", YEPSSeries, QEPSSeries, true},
    {"Diluted earnings per share", YEPSSeries, QEPSSeries, true},
    {"Earnings per share, diluted", YEPSSeries, QEPSSeries, true},
    {"EPS (Diluted)", YEPSSeries, QEPSSeries, true},
    {"Diluted (in dollars per share)", YEPSSeries, QEPSSeries, true},
    {"Common equity", YCommEqSeries},
    {"Total shareholders\u2019 equity", YCommEqSeries},
    {"Total shareholders' equity", YCommEqSeries},
    {"Total stockholders\u2019 equity", YCommEqSeries},
    {"Total stockholders' equity", YCommEqSeries},
    {"Book value", YBookValSeries},
    {"Book value per share", YBookValSeries},
    {"Dividends", YDividendSeries},
    {"Dividends per share", YDividendSeries},
    {"Dividends declared per share", YDividendSeries},
    {"Cash dividends declared per share", YDividendSeries},
    {"Diluted shares", YCSOSeries},
    {"Diluted (in shares)", YCSOSeries},
    {"Diluted shares outstanding", YCSOSeries},
};

enum class ReportNames { all, goingFirst };

std::vector<std::string> reportNamesOf(Datum series, ReportNames wanted) {
    std::vector<std::string> names;
    for (const auto& row : reportNames)
        if ((row.yearly == series || row.quarterly == series) &&
            (row.goesFirst || wanted == ReportNames::all))
            names.emplace_back(row.name);
    return names;
}

BlockGrid::Measure measureOf(const GridColumn& column, Datum series) {
    using enum BlockGrid::Measure;
    switch (unitOf(series)) {
    case DatumUnit::money:
        return money;
    case DatumUnit::shares:
        return shares;
    case DatumUnit::percent:
        return percent;
    default:
        return column.price ? price : plain;
    }
}

// Why a cell goes nowhere; nothing where it has a place.
const BlockComment* whyWithoutPlace(const PlacedCell& cell) {
    const auto why = std::ranges::find_if(cell.comments, [&](const BlockComment& comment) {
        return cell.column < 0 || comment.remark == BlockRemark::twice;
    });
    return why == cell.comments.end() ? nullptr : &*why;
}

} // namespace

std::string countedText(const EntryContext& context, int number, int count) {
    std::string text = context.text(count == 1 ? number : number + 1);
    ReplaceAll(text, "%1", std::to_string(count));
    return text;
}

BlockPaste::BlockPaste(const EntryContext& context, const SeriesGrid& grid, SeriesGrid::Cell at,
                       CellTexts cells, std::optional<char> decimal, HostLine& host)
    : context_(context), grid_(grid), placing_(std::move(cells), gridAt(at, host), decimal),
      caption_(context.text(text_number::pasteCaption)),
      cancelCaption_(context.text(text_number::pasteCancel)) {
    ReplaceAll(caption_, "%1", grid.box(at).accessibleName());
    for (int head = 0; head < 6; ++head)
        heads_.push_back(context.text(text_number::firstPasteHead + head));
    tell();
}

std::vector<std::optional<BlockGrid::Held>> BlockPaste::heldIn(Datum series, HostLine& host) const {
    const Variant value =
        attemptOr(Variant(), [&] { return readSeries(*context_.company, series); });
    std::vector<std::optional<BlockGrid::Held>> held(static_cast<std::size_t>(grid_.rowCount()));
    for (int row = 0; row < grid_.rowCount(); ++row) {
        const int element = grid_.elementOf(row);
        if (!value.isArray() || !value.array().contains(element))
            continue;
        const double figure = value.array().number(element);
        held[static_cast<std::size_t>(row)] = {
            .figure = figure, .isByHand = figure != 0 && host.isByHand(series, element)};
    }
    return held;
}

BlockGrid BlockPaste::gridAt(SeriesGrid::Cell at, HostLine& host) const {
    BlockGrid grid;
    for (const auto& column : grid_.columns()) {
        const GridSeries& shown = grid_.seriesOf(column);
        grid.columns.push_back({.name = grid_.nameOf(static_cast<int>(grid.columns.size())),
                                .otherNames = reportNamesOf(shown.series, ReportNames::all),
                                .firstNames = reportNamesOf(shown.series, ReportNames::goingFirst),
                                .measure = measureOf(column, shown.series),
                                .negatives = column.negatives});
        grid.held.push_back(heldIn(shown.series, host));
    }
    for (int row = 0; row < grid_.rowCount(); ++row)
        grid.rows.push_back(grid_.periodOf(row));
    grid.quarterly = grid_.isQuarterly();
    grid.column = at.column;
    grid.row = at.row;
    grid.unit = context_.unit();
    grid.unitNames = {{context_.text(text_number::unitThousands), 3},
                      {context_.text(text_number::unitMillions), 6},
                      {context_.text(text_number::unitBillions), 9}};
    ifPossible([&] {
        const BlockGrid::FiscalYear last{context_.company->get_LastFY(),
                                         context_.company->get_LastFYDate()};
        if (last.year != 0 && EntryContext::isValidDate(last.end))
            grid.fiscalYear = last;
    });
    grid.decimal = context_.form.numberMarks().decimal;
    grid.today = attemptOr(Date{}, [&] { return context_.services.today(); });
    grid.datePattern = context_.dateFormat;
    return grid;
}

std::vector<SeriesGrid::Figure> BlockPaste::figures() const {
    std::vector<SeriesGrid::Figure> figures;
    for (const auto& cell : placing_.cells())
        if (cell.figure)
            figures.push_back({{cell.column, cell.row}, *cell.figure});
    return figures;
}

void BlockPaste::setSwitch(int index, int chosen) {
    if (index < 0 || index >= static_cast<int>(switches_.size()))
        return;
    const PasteSwitch& turnedOne = switches_[static_cast<std::size_t>(index)];
    const int count = turnedOne.entries.empty() ? 2 : static_cast<int>(turnedOne.entries.size());
    if (!turnedOne.enabled || chosen < 0 || chosen >= count)
        return;
    BlockSwitches switches = placing_.switches();
    choices[index](switches, chosen);
    set(switches);
}

void BlockPaste::setUnit(std::int32_t exponent) {
    BlockSwitches switches = placing_.switches();
    if (switches.unit == 0)
        switches.unit = exponent;
    set(switches);
}

void BlockPaste::set(const BlockSwitches& switches) {
    placing_.setSwitches(switches);
    tell();
}

void BlockPaste::pressOk() {
    if (canPaste())
        state_ = State::accepted;
}

void BlockPaste::tellSwitches() {
    using namespace text_number;
    const BlockSwitches& set = placing_.switches();
    const auto say = [&](int number) { return context_.text(number); };
    std::vector<std::string> unitEntries = {say(unitAsShown) + " " + context_.unitText()};
    for (const int caption : captionsOfUnits)
        unitEntries.push_back(say(caption));
    switches_ = {
        {say(text_number::byPeriods), {}, set.byPeriods ? 1 : 0, placing_.hasPeriods()},
        {say(text_number::byNames),
         {},
         set.byNames && placing_.hasNames() ? 1 : 0,
         placing_.hasNames()},
        {say(text_number::turned), {}, set.turned ? 1 : 0, !set.byPeriods},
        {say(text_number::reversed), {}, set.reversed ? 1 : 0, !set.byPeriods},
        {say(blockUnit), unitEntries, placeOf(units, set.unit), true},
        {say(text_number::emptyCells),
         {say(keepCells), say(keepCells + 1)},
         set.emptyCells ? 1 : 0,
         true},
        {say(decimalMark),
         {say(pointMark), say(pointMark + 1)},
         placeOf(decimalMarks, set.decimal),
         placing_.hasMarks()},
    };
}

std::string BlockPaste::detailText(BlockRemark remark, const std::string& detail) const {
    switch (remark) {
    case BlockRemark::otherReading:
        return exchangeMarks(detail, context_.form.numberMarks());
    case BlockRemark::sharesUnit:
        return context_.text(captionsOfUnits[placeOf(units, std::atoi(detail.c_str())) - 1]);
    default:
        return detail;
    }
}

std::string BlockPaste::textOf(const BlockComment& comment) const {
    std::string text = context_.text(remarkRow(comment.remark).text);
    ReplaceAll(text, "%1", detailText(comment.remark, comment.detail));
    return text;
}

std::string BlockPaste::remarkOf(const PlacedCell& cell) const {
    std::string remark;
    for (const BlockComment& comment : cell.comments)
        remark += (remark.empty() ? "" : " ") + textOf(comment);
    return remark;
}

PasteLine BlockPaste::lineOf(const PlacedCell& cell) const {
    PasteLine line;
    if (cell.column >= 0) {
        line.period = grid_.labelOf(cell.row);
        if (!cell.named.empty())
            line.period += " \u2190 " + cell.named;
        line.column = grid_.headOf(cell.column);
        line.before = grid_.exactText(cell.column, cell.held);
        if (cell.figure)
            line.after = grid_.exactText(cell.column, *cell.figure);
    }
    line.text = cell.text;
    line.remark = remarkOf(cell);
    line.fate = cell.fate;
    return line;
}

PasteLine BlockPaste::lineOf(const std::vector<const PlacedCell*>& alike) const {
    BlockComment why = *whyWithoutPlace(*alike.front());
    if (const auto* last = whyWithoutPlace(*alike.back()); last->detail != why.detail)
        why.detail += " \u2026 " + last->detail;
    PasteLine line;
    line.text = context_.text(text_number::cellsTogether);
    ReplaceAll(line.text, "%1", std::to_string(alike.size()));
    line.remark = textOf(why);
    line.fate = PasteFate::leftOut;
    return line;
}

// A block that is larger than the grid has thousands of cells that go nowhere.
void BlockPaste::tellLines() {
    constexpr std::size_t mostAlike = 50;
    std::map<BlockRemark, std::vector<const PlacedCell*>> alike;
    for (const auto& cell : placing_.cells())
        if (const BlockComment* why = whyWithoutPlace(cell))
            alike[why->remark].push_back(&cell);
    lines_.clear();
    for (const auto& cell : placing_.cells()) {
        const BlockComment* why = whyWithoutPlace(cell);
        if (why == nullptr || alike[why->remark].size() <= mostAlike)
            lines_.push_back(lineOf(cell));
        else if (alike[why->remark].front() == &cell)
            lines_.push_back(lineOf(alike[why->remark]));
    }
}

void BlockPaste::tell() {
    tellSwitches();
    tellLines();
    const int taken = placing_.taken();
    const int leftOut = placing_.leftOut();
    const auto doubts =
        static_cast<int>(std::ranges::count(lines_, PasteFate::doubtful, &PasteLine::fate));
    summary_ = taken == 0 ? context_.text(text_number::sumNothing)
                          : countedText(context_, text_number::sumTaken, taken);
    if (leftOut > 0 && taken > 0)
        summary_ += " " + countedText(context_, text_number::sumLeftOut, leftOut);
    if (doubts > 0)
        summary_ += " " + countedText(context_, text_number::sumDoubtful, doubts);
    okCaption_ = taken == 0 ? context_.text(text_number::pasteNothing)
                            : countedText(context_, text_number::pasteOk, taken);
}

} // namespace vkr
