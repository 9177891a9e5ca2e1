// SPDX-License-Identifier: MIT
#include "quarterly/quarterly_grid.hpp"

#include "form/controls.hpp"
#include "input/date_pattern.hpp"
#include "input/mdlKMTMisc.hpp"
#include "input/number_pattern.hpp"
#include "input/number_text.hpp"
#include "platform/error_trap.hpp"
#include "platform/number_text.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

namespace vkr {

namespace {

constexpr int oldestElement = QuarterlyGrid::mostRows - 1;
constexpr std::string_view monthAndYear = "MMM YYYY";

} // namespace

QuarterlyGrid::QuarterlyGrid(Session& session) : SeriesGrid(session, quarterlyColumns()) {}

std::optional<Date> QuarterlyGrid::lastQuarter() const {
    const auto& field = session_[controls::lastQuarterDate];
    return field.text() == field.tag() ? accepted_ : session_.typedDate(field);
}

Date QuarterlyGrid::newestQuarter() const {
    Date newest{};
    if (session_.company != nullptr)
        attempt([&] { newest = session_.company->get_LastQDateForGrid(); });
    return Session::isValidDate(newest) ? newest : accepted_.value_or(Date{});
}

std::optional<Date> QuarterlyGrid::fiscalYearDate() const {
    return session_.dateOf(session_[controls::lastFiscalYearDate], Datum::LastFYDate);
}

void QuarterlyGrid::showSpan() {
    visited_.clear();
    typedCommitted_ = false;
    hidden_ = {};
    accepted_.reset();
    attempt([&] {
        hidden_ = session_.company->get_LastQDate();
        putFieldText(session_[controls::lastQuarterDate], session_.dateText(hidden_));
        accept(hidden_);
    });
    relabel();
}

void QuarterlyGrid::relabel() {
    blank_ = false;
    const Date newest = newestQuarter();
    offset_ = accepted_ ? nearestQuarters(*accepted_, newest) : 0;
    session_[controls::quarterSpinner].setValue(-offset_);
    for (int row = 0; row < visibleRows_; ++row) {
        auto& label = session_[controls::quarterLabel[row]];
        // Counted from the newest quarter, so that a quarter has one name wherever it is shown.
        const Date date = !accepted_ ? Date{}
                          : row == 0 ? *accepted_
                                     : addQuarters(newest, -offset_ - row);
        label.setCaption(formatDate(date, "Short Date"));
        label.setTag(plainNumberText(date.serial));
    }
    if (session_.rowsLabelled)
        session_.rowsLabelled();
    attempt([&] {
        const auto fiscalYearEnd = fiscalYearDate();
        session_[controls::fiscalYearDateShown].setCaption(
            session_.dateText(fiscalYearEnd.value_or(Date{})));
    });
}

void QuarterlyGrid::clearLabels() {
    hidden_ = accepted_.value_or(hidden_);
    accepted_.reset();
    offset_ = 0;
    blank_ = true;
    for (int row = 0; row < visibleRows_; ++row) {
        auto& label = session_[controls::quarterLabel[row]];
        label.setCaption("");
        label.setTag("");
    }
    if (session_.rowsLabelled)
        session_.rowsLabelled();
    if (session_.company != nullptr)
        session_[controls::fiscalYearDateShown].setCaption("");
}

void QuarterlyGrid::setShade(Color color) {
    shadeColor_ = color;
    shade();
}

// The four quarters of the last fiscal year are shaded; the row a year back is yellow.
void QuarterlyGrid::shade() {
    const auto fiscalYearEnd = fiscalYearDate();
    const int since =
        accepted_ && fiscalYearEnd ? nearestQuarters(*fiscalYearEnd, *accepted_) : -mostRows;
    const auto cellColor = [&](int row) {
        const bool inYear = row >= since && row < since + 4;
        return row == yellowRow ? colors::yellow : inYear ? shadeColor_ : colors::white;
    };
    for (int column = 0; column < static_cast<int>(columns().size()); ++column)
        for (TextBox* cell : cells(column))
            cell->setBackColor(cellColor(cell->index()));
    for (int row = 0; row < visibleRows_; ++row)
        session_[controls::quarterLabel[row]].setBackColor(row == yellowRow ? colors::yellow
                                                                            : colors::buttonFace);
}

void QuarterlyGrid::setVisibleRows(int count) {
    visibleRows_ = std::clamp(count, 1, mostRows);
    Form& form = session_.form;
    if (const auto* active = form.activeControl(); active != nullptr && form.hasFocus())
        if (const auto cell = find(*active)) {
            settleCell();
            if (cell->row >= visibleRows_)
                cells(cell->column)[static_cast<std::size_t>(visibleRows_ - 1)]->setFocus();
        }
    std::vector<std::string_view> rowArrays{controls::quarterLabel.name};
    for (const auto& column : columns())
        rowArrays.push_back(column.cells.name);
    for (const auto name : rowArrays)
        for (int row = form.upperBound(name); row >= visibleRows_; --row)
            form.remove(*form.find(name, row));
    for (const auto name : rowArrays)
        for (int row = form.upperBound(name) + 1; row < visibleRows_; ++row) {
            const Control& above = *form.find(name, row - 1);
            Control* added = nullptr;
            if (above.kind() == ControlKind::label) {
                auto& label = form.add<Label>(name, row, above.container());
                label.setAlignment(static_cast<const Label&>(above).alignment());
                added = &label;
            } else {
                auto& box = form.add<TextBox>(name, row, above.container());
                const auto& model = static_cast<const TextBox&>(above);
                box.setAlignment(model.alignment());
                box.setMaxLength(model.maxLength());
                box.setLocked(model.locked());
                added = &box;
            }
            added->setVisible(false);
            added->setBackColor(above.backColor());
            added->setForeColor(above.foreColor());
            added->resize(above.width(), above.height());
            added->move(above.left(), above.top() + sizes::cellPitch);
            added->setVisible(true);
            added->setTabIndex(above.tabIndex() + 1);
        }
    collectCells();
    if (session_.company != nullptr) {
        relabel();
        showAgain();
    }
    shade();
    layOut();
    selectCell();
}

void QuarterlyGrid::layOut() {
    const auto& view = *session_[controls::quarterlyPanel].container();
    const Twips pitch = sizes::cellPitch;
    const int fitting = std::max(1, static_cast<int>((view.height() - 15) / pitch));
    auto& bar = session_[controls::quarterlyBar];
    bar.setRange(0, std::max(0, visibleRows_ - fitting), 1, fitting);
    bar.setVisible(visibleRows_ > fitting);
    session_[controls::quarterlyPanel].resize(session_[controls::quarterlyPanel].width(),
                                              std::max(view.height(), visibleRows_ * pitch + 15));
    scroll();
}

int QuarterlyGrid::firstShownRow() const {
    const auto& bar = session_[controls::quarterlyBar];
    return SafeDivide(bar.value(), bar.smallChange(), false, 0, false, 0).toLong();
}

void QuarterlyGrid::scroll() {
    auto& panel = session_[controls::quarterlyPanel];
    const auto& cell = session_[controls::quarterlyEarnings[firstShownRow()]];
    panel.move(panel.left(), 15 - cell.top());
    for (int i = 0; i <= controls::quarterlyCurrency.last(session_.form); ++i) {
        auto& label = session_[controls::quarterlyCurrency[i]];
        label.move(label.left(), cell.top() + 30);
    }
}

void QuarterlyGrid::turnPage(const Control& active, int direction) {
    auto& bar = session_[controls::quarterlyBar];
    const int rows = direction * bar.largeChange();
    bar.setValue(bar.value() + rows);
    const auto cell = find(active);
    if (!cell)
        return;
    const auto column = cells(cell->column);
    int row = std::clamp(cell->row + rows, 0, visibleRows_ - 1);
    while (row != cell->row && !column[static_cast<std::size_t>(row)]->canTakeFocus())
        row -= direction; // a smaller record has no such quarter
    column[static_cast<std::size_t>(row)]->setFocus();
}

void QuarterlyGrid::enter(Cell cell) {
    auto& bar = session_[controls::quarterlyBar];
    if (cell.row < bar.value())
        bar.setValue(cell.row);
    else if (cell.row >= bar.value() + bar.largeChange())
        bar.setValue(cell.row - bar.largeChange() + 1);
    const auto& box = *cells(cell.column)[static_cast<std::size_t>(cell.row)];
    if (isOfEarnings(cell) && session_.unitFactor != 1 && session_.company != nullptr && !blank_ &&
        box.mark().kind == MarkKind::none && box.text() == box.tag())
        showElement(cell); // per share, as it is typed
    SeriesGrid::enter(cell);
}

bool QuarterlyGrid::isOfEarnings(Cell cell) const {
    return columns()[static_cast<std::size_t>(cell.column)].first.series == Datum::QEPSSeries;
}

void QuarterlyGrid::followUnit() {
    showScaled();
    show(Datum::QEPSSeries); // which loading has shown in the unit of that time
}

bool QuarterlyGrid::existsData() const {
    static constexpr int order[] = {0, 1, 3, 2}; // revenue, earnings, net income, option column
    for (const int column : order) {
        bool found = false;
        attempt([&] {
            const Variant value = readSeries(
                *session_.company, seriesOf(columns()[static_cast<std::size_t>(column)]).series);
            const VariantArray& figures = value.array();
            const std::int64_t last = figures.upper(); // which may be the end of int
            for (std::int64_t i = std::max(0, figures.lower()); i <= last && !found; ++i)
                found = leadingNumber(figures.text(static_cast<int>(i))) != 0;
        });
        if (found || std::ranges::any_of(cells(column), [](const TextBox* cell) {
                return leadingNumber(cell->text()) != 0;
            }))
            return true;
    }
    return false;
}

std::string QuarterlyGrid::reasonNotToStore() const {
    return accepted_ && lastQuarter() ? std::string() : session_.text(text_number::reasonNoQuarter);
}

// --- the last quarter ----------------------------------------------------------------------------

void QuarterlyGrid::settle() {
    session_.hideHelpFrame();
    settleCell();
    leaveLastQuarterDate();
}

bool QuarterlyGrid::refusesWhileLocked() {
    if (session_.isLocked())
        session_.message("Data is locked!\r\rYou must unlock data to add a new quarter.",
                         message_box::okOnly);
    return session_.isLocked();
}

void QuarterlyGrid::addQuarter() {
    const Session::Work work(session_);
    if (refusesWhileLocked())
        return;
    settle();
    tryMove(std::min(offset_, 0) - 1);
}

void QuarterlyGrid::moveLastQuarter(int quarters) {
    const Session::Work work(session_);
    if (session_.company == nullptr || !accepted_ || quarters == 0 || refusesWhileLocked())
        return;
    settle();
    tryMove(offset_ - quarters);
}

void QuarterlyGrid::tryMove(int element) {
    if (session_.company == nullptr || !accepted_ || element > oldestElement)
        return;
    if (!attempt([&] { moveTo(element); }))
        tellRefused();
}

// Names the quarters that will be gone: one, or the first and the last of several.
bool QuarterlyGrid::confirmAdding(int count) {
    const auto named = [&](int element) {
        return formatDate(addQuarters(newestQuarter(), -element), monthAndYear);
    };
    std::string leaving = named(oldestElement);
    if (count > 1)
        leaving += " - " + named(std::max(0, mostRows - count));
    return session_.confirmLoss(text_number::addsQuarter, leaving, message_box::questionIcon);
}

void QuarterlyGrid::moveTo(int element, std::optional<Date> typed) {
    auto& company = *session_.company;
    if (element < 0 && !confirmAdding(-element))
        return;
    const bool samePeriods = element >= 0 && element == offset_;
    std::vector<std::string> stayed;
    const Date newest = newestQuarter();
    const auto known = visited_.find(element);
    const Date date = typed                     ? *typed
                      : known != visited_.end() ? known->second.date
                                                : addQuarters(newest, -element);
    Visited left{accepted_.value_or(newest), {}};
    attempt([&] { left.trailing = company.get_Last4QEPS(); });
    if (element < 0) {
        putNewestQuarter(date);
        stayed = shiftAll(-element);
        visited_.clear();
    } else {
        // Stated even where it has not changed: a record may let it follow the last quarter.
        company.put_LastQDateForGrid(element == 0 && typed ? date : newest);
        visited_[offset_] = left;
    }
    setLastQuarter(date);
    session_.markChanged();
    if (blank_) {
        relabel();
        storeMarked();
    }
    deriveTrailingEarnings();
    if (const auto again = visited_.find(element);
        !derived_ && again != visited_.end() && again->second.trailing)
        attempt([&] { storeTrailing(*again->second.trailing); });
    redisplay(samePeriods);
    tellStayed(stayed);
}

// Both dates of the record, before any figure moves. Throws, with neither changed.
void QuarterlyGrid::putNewestQuarter(Date date) {
    auto& company = *session_.company;
    Date before = accepted_.value_or(hidden_);
    attempt([&] { before = company.get_LastQDate(); });
    company.put_LastQDate(date);
    try {
        company.put_LastQDateForGrid(date);
    } catch (...) {
        attempt([&] { company.put_LastQDate(before); });
        throw;
    }
}

void QuarterlyGrid::setLastQuarter(Date date) {
    session_.putDate(session_[controls::lastQuarterDate], Datum::LastQDate, date);
    accept(date);
}

// What the field has just come to show.
void QuarterlyGrid::accept(Date date) {
    const bool shown = !session_[controls::lastQuarterDate].text().empty();
    accepted_ = shown ? std::optional(date) : std::nullopt;
}

void QuarterlyGrid::redisplay(bool samePeriods) {
    relabel();
    shade();
    if (samePeriods)
        showAgain();
    else
        showAll();
    selectCell();
    showTrailingEarnings();
}

bool QuarterlyGrid::holdsFigures() const {
    bool found = false;
    forEachSeries([&](const GridSeries& series) {
        attempt([&] {
            const Variant value = readSeries(*session_.company, series.series);
            const VariantArray& figures = value.array();
            const std::int64_t last = figures.upper(); // which may be the end of int
            for (std::int64_t i = figures.lower(); i <= last && !found; ++i)
                found = figures.number(static_cast<int>(i)) != 0;
        });
    });
    return found;
}

void QuarterlyGrid::leaveLastQuarterDate() {
    session_.dateFieldPending = false;
    auto& field = session_[controls::lastQuarterDate];
    if (session_.cancelPressed || field.locked() || session_.company == nullptr)
        return;
    const auto before = accepted_;
    const bool committed = std::exchange(typedCommitted_, false);
    if (isUntouched(field)) {
        if (committed)
            takeCommitBack(before, field.mark());
        if (before)
            storeMarked(); // what waited for the date to be back
        return;
    }
    const auto typed = session_.typedDate(field);
    const bool sameDay = typed && before && daysBetween(*before, *typed) == 0;
    const FieldMark mark = field.mark();
    bool stored = true;
    attempt([&] { stored = session_.company->get_LastQDate() == before; });
    if (field.text() == field.tag() || (sameDay && (field.isUnstored() || !stored))) {
        if (before)
            retryLastQuarter(*before);
        return;
    }
    putFieldText(field, session_.dateText(before.value_or(Date{})));
    field.setMark(mark);
    takeCommitBack(before, mark);
    if (before)
        storeMarked(); // in the quarters that are still beside the cells
    if (const auto failure = failureOf([&] { takeLastQuarter(before, typed); }))
        session_.message("LastQDate Lost Focus error: " + *failure, message_box::exclamationIcon);
}

// A commit may have written what was being typed in the place of the date before.
void QuarterlyGrid::takeCommitBack(std::optional<Date> before, const FieldMark& mark) {
    auto& field = session_[controls::lastQuarterDate];
    attempt([&] {
        const Date held = session_.company->get_LastQDate();
        const Date old = before.value_or(hidden_);
        if (held == old || (!before && !Session::isValidDate(held)))
            return;
        if (!session_.storeDate(Datum::LastQDate, old)) {
            field.setMark(session_.unstored(text_number::reasonRefused));
            return;
        }
        field.setMark({});
        session_.markChanged();                // what was committed is no longer what is there
        if (mark.kind == MarkKind::unstored) { // taken by now
            deriveTrailingEarnings();
            showTrailingEarnings();
        }
    });
}

void QuarterlyGrid::followCommit() {
    auto& field = session_[controls::lastQuarterDate];
    typedCommitted_ = typedCommitted_ || field.text() != field.tag();
    if (!field.isUnstored() || field.text() != field.tag() || session_.isLocked())
        return;
    bool stored = false;
    attempt([&] { stored = session_.company->get_LastQDate() == accepted_; });
    if (!stored)
        return;
    field.setMark({});
    deriveTrailingEarnings();
    if (showTrailing && !session_[controls::trailingEarnings].isUnstored())
        showTrailing(); // a commit changes nothing that the host would have to save anew
}

// The record may take by now what it refused.
void QuarterlyGrid::retryLastQuarter(Date date) {
    setLastQuarter(date);
    if (session_[controls::lastQuarterDate].isUnstored())
        return;
    session_.markChanged();
    deriveTrailingEarnings();
    redisplay(true);
}

void QuarterlyGrid::takeLastQuarter(std::optional<Date> before, std::optional<Date> typed) {
    if (typed && before && daysBetween(*before, *typed) == 0)
        return;
    // Without figures any date will do: there is nothing that could come to stand elsewhere.
    // Figures keep the quarters that the record states for them, though the form shows no date.
    const bool figures = holdsFigures();
    const Date newest = newestQuarter();
    const bool stated = figures && Session::isValidDate(newest);
    const int back = typed && stated ? nearestQuarters(*typed, newest) : 0;
    if (typed && (!figures || (!before && back >= (blank_ ? 0 : -3) && back <= oldestElement))) {
        setAnchor(*typed, !stated);
        return;
    }
    // Of a week-based quarter the last day wanders by some days, so it may lie in another month.
    std::optional<int> moved;
    if (blank_ && back < 0 && back >= -3)
        moved = -back;
    for (int quarters = 0; typed && before && quarters <= 3 && !moved; ++quarters) {
        const Date expected = addQuarters(*before, quarters);
        if (std::abs(daysBetween(expected, *typed)) <= 7 ||
            daysBetween(EndOfMonth(expected), EndOfMonth(*typed)) == 0)
            moved = quarters;
    }
    if (moved)
        moveTo(offset_ - *moved, typed);
    else
        session_.message(session_.text(text_number::quarterRejected) + "\r" +
                             session_.text(text_number::quarterPutBack),
                         message_box::exclamationIcon);
}

void QuarterlyGrid::setAnchor(Date date, bool ofFigures) {
    if (ofFigures)
        session_.company->put_LastQDateForGrid(date);
    visited_.clear();
    setLastQuarter(date);
    session_.markChanged();
    if (ofFigures || blank_)
        relabel();
    storeMarked(); // what was typed over a figure takes its place
    const int shown = offset_;
    relabel();
    deriveTrailingEarnings();
    redisplay(offset_ == shown);
}

// --- trailing four-quarter earnings --------------------------------------------------------------

void QuarterlyGrid::stored(Cell cell) {
    if (!isOfEarnings(cell) || !session_.dirty)
        return;
    deriveTrailingEarnings();
    if (derived_)
        showTrailingEarnings();
}

// The rule's answer for what the form and the record have now.
std::optional<double> QuarterlyGrid::trailingEarnings() {
    if (rule_ == nullptr)
        attempt([&] {
            rule_ = std::dynamic_pointer_cast<TrailingEarnings>(
                session_.services.createObject(trailingEarningsId));
        });
    if (rule_ == nullptr)
        rule_ = newTrailingEarnings();
    std::optional<double> result;
    attempt([&] {
        const auto& company = *session_.company;
        const auto valid = [](Date date) { return Session::isValidDate(date) ? date : Date{}; };
        // A last quarter that was refused is that of the form alone.
        const bool shown = accepted_ && !session_[controls::lastQuarterDate].isUnstored();
        EarningsInput input;
        input.lastQuarter = valid(shown ? *accepted_ : company.get_LastQDate());
        input.newestQuarter = valid(company.get_LastQDateForGrid());
        if (isAbsent(input.newestQuarter))
            input.newestQuarter = input.lastQuarter;
        input.quarterly = company.get_QEPSSeries();
        attempt([&] {
            const Variant yearly = company.get_YEPSSeries();
            input.yearly = yearly.array().contains(1) ? yearly.array().number(1) : 0;
        });
        attempt([&] { input.fiscalYearEnd = valid(company.get_LastFYDate()); });
        result = rule_->lastFour(input);
    });
    return result && std::isfinite(*result) ? result : std::nullopt;
}

// A sum that was typed and refused gives way to the one that is taken.
void QuarterlyGrid::storeTrailing(double sum) {
    session_.company->put_Last4QEPS(sum);
    session_[controls::trailingEarnings].setMark({});
}

void QuarterlyGrid::deriveTrailingEarnings() {
    derived_ = trailingEarnings();
    if (!derived_)
        return;
    attempt([&] {
        storeTrailing(*derived_);
        session_.company->put_QuarterlyFlag(true);
    });
}

// A sum that the year has no part in may have been typed by hand.
void QuarterlyGrid::followYearlyEarnings() {
    const auto before = derived_;
    derived_ = trailingEarnings();
    if (!derived_ || derived_ == before)
        return;
    deriveTrailingEarnings();
    showTrailingEarnings();
}

void QuarterlyGrid::doubtTypedEarnings() {
    auto& field = session_[controls::trailingEarnings];
    double typed = 0;
    derived_ = trailingEarnings();
    if (!derived_ || field.isUnstored() ||
        !attempt([&] { typed = session_.company->get_Last4QEPS(); }) || typed == *derived_)
        return;
    const std::string before = field.mark().reason.empty() ? "" : field.mark().reason + " ";
    field.setMark({MarkKind::doubtful, before + session_.text(text_number::sumReplaces) + " " +
                                           formatNumber(*derived_, session_.numberFormat,
                                                        session_.form.numberMarks())});
}

void QuarterlyGrid::showTrailingEarnings() {
    if (!showTrailing)
        return;
    auto& field = session_[controls::trailingEarnings];
    if (field.isUnstored())
        return;
    const std::string before = field.tag();
    showTrailing();
    field.setTag(before);
    checkFieldChange(field, session_);
}

} // namespace vkr
