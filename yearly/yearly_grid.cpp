// SPDX-License-Identifier: MIT
#include "yearly/yearly_grid.hpp"

#include "binding/text_numbers.hpp"
#include "form/controls.hpp"
#include "input/mdlKMTMisc.hpp"
#include "platform/error_trap.hpp"
#include "platform/number_text.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <cmath>

namespace vkr {

namespace {

// Cells that an analysis needs, from the first to the last row of a column. Each platform has its
// own.
struct ShadeBand {
    PlatformType platform;
    Datum series;
    int first;
    int last;
};

constexpr ShadeBand bands[] = {
    {ptStandard, Datum::YRevenueSeries, 3, 4}, {ptStandard, Datum::YRevenueSeries, 8, 9},
    {ptStandard, Datum::YEPSSeries, 5, 9},     {ptStandard, Datum::YHighSeries, 5, 9},
    {ptStandard, Datum::YLowSeries, 5, 9},     {ptZX, Datum::YRevenueSeries, 5, 9},
    {ptZX, Datum::YNetIncSeries, 5, 9},        {ptZX, Datum::YEPSSeries, 5, 9},
};

} // namespace

YearlyGrid::YearlyGrid(EntryContext& context) : SeriesGrid(context, yearlyColumns()) {}

int YearlyGrid::lastFiscalYear() const {
    const double year = std::nearbyint(leadingNumber(context_[controls::lastFiscalYear].text()));
    return std::abs(year) <= lastYear ? static_cast<int>(year) : 0;
}

void YearlyGrid::showSpan() {
    ifPossible([&] {
        context_[controls::lastFiscalYearDate].showStored(
            context_.dateText(context_.company->get_LastFYDate()));
    });
    ifPossible([&] {
        const int year = context_.company->get_LastFY();
        context_[controls::lastFiscalYear].showStored(year == 0 ? "" : std::to_string(year));
    });
    relabel();
    figuresYear_ = lastFiscalYear();
}

int YearlyGrid::followSpan() {
    const int before = lastFiscalYear();
    const int figures = figuresYear_;
    showSpan();
    const int after = lastFiscalYear();
    const int moved = before == 0 || after == 0 ? 0 : after - before;
    if (moved == 0)
        figuresYear_ = figures;
    moveMarked(moved);
    return moved;
}

void YearlyGrid::relabel() {
    const int newest = lastFiscalYear();
    for (int i = 0; i < rows; ++i) {
        const std::string year = newest == 0 ? "" : std::to_string(newest - lastYearRow + i);
        context_[controls::yearLabel[i]].setCaption(year);
    }
    context_.consequences.rowsLabelled();
}

void YearlyGrid::clearLabels() {
    for (int i = 0; i < rows; ++i)
        context_[controls::yearLabel[i]].setCaption("");
}

void YearlyGrid::setShade(Color color) {
    shadeColor_ = color;
    const bool shades = color != colors::white;
    context_[controls::legend].setVisible(shades);
    context_[controls::legendCaption].setVisible(shades);
    shade();
}

void YearlyGrid::shade() {
    context_[controls::legend].setBackColor(shadeColor_);
    for (int column = 0; column < static_cast<int>(columns().size()); ++column) {
        const Datum series = columns()[static_cast<std::size_t>(column)].usual.series;
        for (TextBox* cell : cells(column)) {
            const bool required = std::ranges::any_of(bands, [&](const ShadeBand& band) {
                return band.platform == context_.platform && band.series == series &&
                       cell->index() >= band.first && cell->index() <= band.last;
            });
            cell->setBackColor(required ? shadeColor_ : colors::white);
        }
    }
}

// --- the span of years ------------------------------------------------------------------------

void YearlyGrid::changeSpan(int years) {
    const bool adds = years > 0;
    const auto& button = context_[adds ? controls::addYear : controls::removeYear];
    const EntryContext::UpdateScope updating(
        context_, Action{Origin::shifted, withoutMnemonic(button.caption()), {}});
    if (context_.isLocked()) {
        context_.message(adds ? "Data is locked!\r\rYou must unlock data to add a new year."
                              : "Data is locked!\r\rYou must unlock data to remove a year.",
                         message_box::okOnly);
        return;
    }
    context_.hideHelpFrame();
    settleCell();
    leaveLastFiscalYear();
    const int newest = lastFiscalYear();
    const int target = newest + years;
    if (context_.company == nullptr || target < firstYear || target > lastYear)
        return;
    const bool confirmed =
        adds ? context_.confirmLoss(text_number::addsYear, std::to_string(newest - lastYearRow))
             : context_.confirmLoss(text_number::removesYear, std::to_string(newest));
    if (!confirmed || lastFiscalYear() != newest) // another year was typed under the question
        return;
    // As it is now: a record may let its date follow the year.
    const auto end = context_.dateOf(context_[controls::lastFiscalYearDate], Datum::LastFYDate);
    // Asked of the record first: figures that move without their year would stand in a wrong one.
    if (const auto refusal =
            failureOf([&] { context_.company->put_LastFY(static_cast<std::int16_t>(target)); })) {
        tellRefused(*refusal);
        return;
    }
    const auto stayed = shift(years, end);
    figuresYear_ += years;
    context_[controls::lastFiscalYear].setText(std::to_string(target));
    acceptLastFiscalYear(target);
    selectCell();
    tellStayed(stayed);
}

std::vector<std::string> YearlyGrid::shift(int years, std::optional<Date> end) {
    auto stayed = shiftAll(years);
    showAll();
    context_.consequences.yearsShifted();
    if (end)
        context_.putDate(context_[controls::lastFiscalYearDate], Datum::LastFYDate,
                         addYears(*end, years));
    context_.consequences.fiscalYearMoved();
    return stayed;
}

void YearlyGrid::acceptLastFiscalYear(int year) {
    auto& field = context_[controls::lastFiscalYear];
    checkFieldChange(field, context_);
    relabel();
    auto refusal =
        failureOf([&] { context_.company->put_LastFY(static_cast<std::int16_t>(year)); });
    if (refusal && attemptOr(false, [&] { return context_.company->get_LastFY() == year; }))
        refusal.reset();
    field.setMark(refusal ? context_.refused(*refusal) : FieldMark());
    if (refusal)
        return;
    context_.markChanged();
    doubtOtherYears(year);
}

// A year that is typed names the rows anew, and the figures stay in them.
void YearlyGrid::doubtOtherYears(int year) {
    if (figuresYear_ == 0 || !holdsFigures())
        figuresYear_ = year;
    if (figuresYear_ == year)
        return;
    std::string reason = context_.text(text_number::otherYears);
    ReplaceAll(reason, "%1", std::to_string(year));
    ReplaceAll(reason, "%2", std::to_string(figuresYear_));
    context_[controls::lastFiscalYear].setMark({MarkKind::doubtful, reason});
}

void YearlyGrid::typeLastFiscalYear() {
    auto& field = context_[controls::lastFiscalYear];
    if (context_.company == nullptr || textLength(field.text()) < field.maxLength() ||
        !field.isTyped())
        return;
    const int year = lastFiscalYear();
    if (year < firstYear || year > lastYear) {
        field.takeTypedBack();
        SelectAllText(field); // what is typed next replaces it
        context_.tellRefused(field, text_number::noteYear);
    } else {
        acceptLastFiscalYear(year);
    }
}

// What is no whole year gives way to the accepted one.
void YearlyGrid::leaveLastFiscalYear() {
    auto& field = context_[controls::lastFiscalYear];
    if (const std::string typed(trimmed(field.text())); field.isTyped()) {
        field.takeTypedBack();
        if (!typed.empty() && !field.isUnstored())
            context_.markDoubtful(field, typed);
    }
    if (field.isUnstored() && !field.locked() && context_.company != nullptr)
        acceptLastFiscalYear(lastFiscalYear()); // the record may take it by now
}

void YearlyGrid::leaveLastFiscalYearDate() {
    context_.dates.setPending(false);
    auto& field = context_[controls::lastFiscalYearDate];
    if (context_.dates.isSkipped() || field.locked() || context_.company == nullptr)
        return;
    const bool untouched = field.standsForStored();
    const bool marked = field.isUnstored();
    checkFieldChange(field, context_);
    if (untouched) {
        if (marked)
            context_.consequences.fiscalYearMoved(); // back from the date that was refused
        return;
    }
    const auto typed = context_.typedDate(field);
    if (!typed) {
        field.setMark(context_.unstored(text_number::reasonNoDate));
        return;
    }
    if (const auto refusal = context_.refusalOf(Datum::LastFYDate, *typed)) {
        field.setMark(context_.refused(*refusal));
        return;
    }
    field.showStored(context_.dateText(*typed));
    context_.markChanged();
    context_.consequences.fiscalYearMoved();
}

void YearlyGrid::setUpBar() {
    const auto& panel = context_[controls::yearlyPanel];
    const auto& view = *panel.container();
    auto& bar = context_[controls::yearlyBar];
    const int hidden = static_cast<int>(panel.width() - view.width());
    bar.setRange(0, hidden, hidden / 4, hidden);
}

void YearlyGrid::pan() {
    auto& panel = context_[controls::yearlyPanel];
    panel.move(-context_[controls::yearlyBar].value(), panel.top());
}

int YearlyGrid::reachableColumns() const {
    if (context_[controls::yearlyBar].visible())
        return static_cast<int>(columns().size());
    const Twips seen = context_[controls::yearlyPanel].container()->width();
    return static_cast<int>(std::ranges::count_if(
        columns(), [&](const GridColumn& one) { return one.left + one.width <= seen; }));
}

void YearlyGrid::movedRight(Cell from) {
    auto& bar = context_[controls::yearlyBar];
    if (columns()[static_cast<std::size_t>(from.column)].usual.series == Datum::YLowSeries &&
        bar.visible())
        bar.setValue(bar.maximum());
}

void YearlyGrid::stored(Cell cell) {
    if (columns()[static_cast<std::size_t>(cell.column)].usual.series == Datum::YEPSSeries &&
        cell.row == lastYearRow)
        context_.consequences.yearlyEarningsStored();
}

std::string YearlyGrid::labelOf(int row) const {
    return context_[controls::yearLabel[row]].caption();
}

std::string YearlyGrid::labelOfElement(int element) const {
    const int newest = lastFiscalYear();
    return newest == 0 ? std::string() : std::to_string(newest + 1 - element);
}

BlockGrid::Row YearlyGrid::periodOf(int row) const {
    const auto end = context_.dateOf(context_[controls::lastFiscalYearDate], Datum::LastFYDate);
    return {.year = static_cast<int>(leadingNumber(labelOf(row))),
            .date = end ? addYears(*end, row - lastYearRow) : Date{}};
}

void YearlyGrid::enter(Cell cell) {
    bringIntoView(cell);
    SeriesGrid::enter(cell);
}

void YearlyGrid::bringIntoView(Cell cell) {
    const TextBox& shown = box(cell);
    const auto& panel = *shown.container();
    const auto& view = *panel.container();
    auto& bar = context_[controls::yearlyBar];
    if (shown.left() + panel.left() < 0)
        bar.setValue(static_cast<int>(shown.left()));
    else if (shown.left() + shown.width() + panel.left() > view.width())
        bar.setValue(static_cast<int>(shown.left() + shown.width() - view.width()));
}

} // namespace vkr
