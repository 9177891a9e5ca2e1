// SPDX-License-Identifier: MIT
#include "quarterly/quarterly_grid.hpp"

#include "binding/text_numbers.hpp"
#include "form/controls.hpp"
#include "input/date_pattern.hpp"
#include "input/mdlKMTMisc.hpp"
#include "input/number_text.hpp"
#include "platform/error_trap.hpp"
#include "platform/number_text.hpp"

#include <algorithm>
#include <cassert>

namespace vkr {

QuarterlyGrid::QuarterlyGrid(EntryContext& context)
    : SeriesGrid(context, quarterlyColumns()), rows_(context), trailing_(context, shown_) {}

std::optional<Date> QuarterlyGrid::lastQuarter() const {
    const auto& field = context_[controls::lastQuarterDate];
    return !field.isTyped() || field.locked() ? shown_ : context_.typedDate(field);
}

Date QuarterlyGrid::newestQuarter() const {
    Date newest{};
    if (context_.company != nullptr)
        ifPossible([&] { newest = context_.company->get_LastQDateForGrid(); });
    return EntryContext::isValidDate(newest) ? newest : shown_.value_or(Date{});
}

std::optional<Date> QuarterlyGrid::fiscalYearDate() const {
    return context_.dateOf(context_[controls::lastFiscalYearDate], Datum::LastFYDate);
}

void QuarterlyGrid::showSpan() {
    hidden_ = {};
    shown_.reset();
    ifPossible([&] {
        hidden_ = context_.company->get_LastQDate();
        context_[controls::lastQuarterDate].showStored(context_.dateText(hidden_));
        accept(hidden_);
    });
    relabel();
}

int QuarterlyGrid::followSpan() {
    const auto newest = [&] { return shown_ ? addQuarters(*shown_, element_) : Date{}; };
    const Date before = newest();
    showSpan();
    const Date after = newest();
    const int moved = isAbsent(before) || isAbsent(after) ? 0 : nearestQuarters(before, after);
    moveMarked(moved);
    return moved;
}

void QuarterlyGrid::relabel() {
    blank_ = false;
    const Date newest = newestQuarter();
    element_ = shown_ ? nearestQuarters(*shown_, newest) : 0;
    context_[controls::quarterSpinner].setValue(-element_);
    for (int row = 0; row < visibleRows(); ++row) {
        auto& label = context_[controls::quarterLabel[row]];
        // Counted from the newest quarter, so that a quarter has one name wherever it is shown.
        const Date date = !shown_    ? Date{}
                          : row == 0 ? *shown_
                                     : addQuarters(newest, -element_ - row);
        label.setCaption(formatDate(date, "Short Date"));
        label.setTag(plainNumberText(date.serial));
    }
    context_.consequences.rowsLabelled();
    showFiscalYear();
    checkInvariants();
}

void QuarterlyGrid::showFiscalYear() {
    ifPossible([&] {
        const auto fiscalYearEnd = fiscalYearDate();
        context_[controls::fiscalYearDateShown].setCaption(
            context_.dateText(fiscalYearEnd.value_or(Date{})));
    });
}

void QuarterlyGrid::clearLabels() {
    hidden_ = shown_.value_or(hidden_);
    shown_.reset();
    element_ = 0;
    blank_ = true;
    for (int row = 0; row < visibleRows(); ++row) {
        auto& label = context_[controls::quarterLabel[row]];
        label.setCaption("");
        label.setTag("");
    }
    if (context_.company != nullptr)
        context_[controls::fiscalYearDateShown].setCaption("");
    checkInvariants();
}

void QuarterlyGrid::setShade(Color color) {
    shadeColor_ = color;
    shade();
}

// The four quarters of the last fiscal year are shaded; the row a year back is yellow.
void QuarterlyGrid::shade() {
    const auto fiscalYearEnd = fiscalYearDate();
    const int since =
        shown_ && fiscalYearEnd ? nearestQuarters(*fiscalYearEnd, *shown_) : -mostRows;
    const auto cellColor = [&](int row) {
        const bool inYear = row >= since && row < since + 4;
        return row == yellowRow ? colors::yellow : inYear ? shadeColor_ : colors::white;
    };
    for (int column = 0; column < static_cast<int>(columns().size()); ++column)
        for (TextBox* cell : cells(column))
            cell->setBackColor(cellColor(cell->index()));
    if (yellowRow < visibleRows())
        context_[controls::quarterLabel[yellowRow]].setBackColor(colors::yellow);
}

void QuarterlyGrid::setVisibleRows(int count) {
    if (const auto cell = activeCell()) {
        settleCell();
        if (cell->row >= count)
            box({cell->column, count - 1}).setFocus();
    }
    setMarkedAside();
    rows_.make(count);
    collectCells();
    if (context_.company != nullptr) {
        relabel();
        showAll();
    }
    shade();
    rows_.layOut();
    selectCell();
    checkInvariants();
}

void QuarterlyGrid::turnPage(const Control& active, int direction) {
    const int step = direction * rows_.page();
    auto& bar = context_[controls::quarterlyBar];
    bar.setValue(bar.value() + step);
    const auto cell = find(active);
    if (!cell)
        return;
    const auto column = cells(cell->column);
    int row = std::clamp(cell->row + step, 0, visibleRows() - 1);
    while (row != cell->row && !column[static_cast<std::size_t>(row)]->canTakeFocus())
        row -= direction; // a smaller record has no such quarter
    column[static_cast<std::size_t>(row)]->setFocus();
}

std::string QuarterlyGrid::labelOf(int row) const {
    return context_[controls::quarterLabel[row]].caption();
}

std::string QuarterlyGrid::labelOfElement(int element) const {
    const Date newest = newestQuarter();
    return isAbsent(newest) ? std::string()
                            : formatDate(addQuarters(newest, -element), "Short Date");
}

// As it is on show: a record that is asked again may fail, or have another newest quarter by now.
BlockGrid::Row QuarterlyGrid::periodOf(int row) const {
    return {.date = Date{leadingNumber(context_[controls::quarterLabel[row]].tag())}};
}

void QuarterlyGrid::enter(Cell cell) {
    bringIntoView(cell);
    const TextBox& shown = box(cell);
    if (isOfEarnings(cell) && context_.unitFactor() != 1 && context_.company != nullptr &&
        !blank_ && !shown.isTyped()) {
        show(Datum::QEPSSeries);    // per share, as they are typed
        box(cell).setEnabled(true); // it has the focus, also where they can't be read now
    }
    SeriesGrid::enter(cell);
}

bool QuarterlyGrid::isOfEarnings(Cell cell) const {
    return columns()[static_cast<std::size_t>(cell.column)].usual.series == Datum::QEPSSeries;
}

void QuarterlyGrid::followUnit() {
    showScaled();
    show(Datum::QEPSSeries); // which loading has shown in the unit of that time
}

bool QuarterlyGrid::existsData() const {
    static constexpr int order[] = {0, 1, 3, 2}; // revenue, earnings, net income, option column
    for (const int column : order) {
        bool found = false;
        ifPossible([&] {
            const Variant value = readSeries(
                *context_.company, seriesOf(columns()[static_cast<std::size_t>(column)]).series);
            const VariantArray& figures = value.array();
            const std::int64_t last = figures.upper(); // which may be the end of int
            for (std::int64_t i = std::max(0, figures.lower()); i <= last; ++i)
                found = found || leadingNumber(figures.text(static_cast<int>(i))) != 0;
        });
        if (found || std::ranges::any_of(cells(column), [](const TextBox* cell) {
                return leadingNumber(cell->text()) != 0;
            }))
            return true;
    }
    return false;
}

std::string QuarterlyGrid::reasonNotToStore() const {
    return shown_ && lastQuarter() ? std::string() : context_.text(text_number::reasonNoQuarter);
}

void QuarterlyGrid::stored(Cell cell) {
    if (!isOfEarnings(cell) || !context_.isDirty())
        return;
    trailing_.derive();
    if (trailing_.isDerived())
        trailing_.show();
}

// What the field has just come to show.
void QuarterlyGrid::accept(Date date) {
    const bool shown = !context_[controls::lastQuarterDate].text().empty();
    shown_ = shown ? std::optional(date) : std::nullopt;
}

void QuarterlyGrid::checkInvariants() const {
    assert(!(shown_ && blank_));
    assert(shown_ || element_ == 0);
    assert(visibleRows() == std::ssize(cells(0)));
}

} // namespace vkr
