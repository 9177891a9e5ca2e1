// SPDX-License-Identifier: MIT
#include "quarterly/quarterly_grid.hpp"

#include "input/date_pattern.hpp"
#include "input/mdlKMTMisc.hpp"
#include "input/number_text.hpp"
#include "platform/error_trap.hpp"
#include "platform/number_text.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace vkr {

namespace {

constexpr bool money = true;
constexpr bool perShare = false;

constexpr GridSeries revenue{Datum::QRevenueSeries, doQRevenue, money};
constexpr GridSeries earnings{Datum::QEPSSeries, doQEPS, perShare};
constexpr GridSeries preTaxIncome{Datum::QPTISeries, doQPTI, money};
constexpr GridSeries taxRate{Datum::QTaxRateSeries, doQTaxRate, perShare};
constexpr GridSeries netIncome{Datum::QNetIncSeries, doQNetInc, money};

constexpr GridColumn table[] = {
    {"txtRevenue", revenue, revenue, ColumnChoice::none, false, false},
    {"txtEPS", earnings, earnings, ColumnChoice::none, true, true},
    {"txtQOption", preTaxIncome, taxRate, ColumnChoice::income, true, true},
    {"txtNetInc", netIncome, netIncome, ColumnChoice::none, true, true},
};

// The arrays that have one element a row, with the gap below each in twips.
struct RowArray {
    std::string_view name;
    Twips gap;
};
constexpr RowArray rowArrays[] = {
    {"lblQLabel", 45}, {"txtRevenue", 15}, {"txtQOption", 15}, {"txtNetInc", 15}, {"txtEPS", 15}};

constexpr int oldestElement = QuarterlyGrid::mostRows - 1;
constexpr std::string_view monthAndYear = "MMM YYYY";

} // namespace

std::span<const GridColumn> quarterlyColumns() {
    return table;
}

QuarterlyGrid::QuarterlyGrid(Session& session) : SeriesGrid(session, table) {}

std::optional<Date> QuarterlyGrid::shownDate() const {
    // A date that is being typed counts once it has been accepted.
    const auto& field = session_.textBox("txtLastQDate");
    if (field.text() == field.tag())
        return session_.dateOf(field, Datum::LastQDate);
    return accepted_;
}

Date QuarterlyGrid::newestQuarter() const {
    Date newest{};
    if (session_.company != nullptr)
        attempt([&] { newest = session_.company->get_LastQDateForGrid(); });
    return Session::isValidDate(newest) ? newest : shownDate().value_or(Date{});
}

std::optional<Date> QuarterlyGrid::fiscalYearDate() const {
    return session_.dateOf(session_.textBox("txtDateofLastFY"), Datum::LastFYDate);
}

void QuarterlyGrid::showSpan() {
    visited_.clear();
    hidden_ = {};
    attempt([&] {
        hidden_ = session_.company->get_LastQDate();
        putFieldText(session_.textBox("txtLastQDate"), session_.dateText(hidden_));
    });
    relabel();
}

void QuarterlyGrid::relabel() {
    blank_ = false;
    const auto shown = shownDate();
    const Date newest = newestQuarter();
    accepted_ = shown;
    offset_ = shown ? nearestQuarters(*shown, newest) : 0;
    session_.form.get<Spinner>("spnQuarter").setValue(-offset_);
    for (int row = 0; row < visibleRows_; ++row) {
        auto& label = session_.form.get<Label>("lblQLabel", row);
        // Counted from the newest quarter, so that a quarter has one name wherever it is shown.
        const Date date = !shown ? Date{} : row == 0 ? *shown : addQuarters(newest, -offset_ - row);
        label.setCaption(formatDate(date, "Short Date"));
        label.setTag(plainNumberText(date.serial));
    }
    if (session_.rowsLabelled)
        session_.rowsLabelled();
    attempt([&] {
        const auto fiscalYearEnd = fiscalYearDate();
        session_.form.get<Label>("lblDatOfLastFY")
            .setCaption(session_.dateText(fiscalYearEnd.value_or(Date{})));
    });
}

void QuarterlyGrid::clearLabels() {
    hidden_ = accepted_.value_or(hidden_);
    accepted_.reset();
    offset_ = 0;
    blank_ = true;
    for (int row = 0; row < visibleRows_; ++row) {
        auto& label = session_.form.get<Label>("lblQLabel", row);
        label.setCaption("");
        label.setTag("");
    }
    if (session_.rowsLabelled)
        session_.rowsLabelled();
    if (session_.company != nullptr)
        session_.form.get<Label>("lblDatOfLastFY").setCaption("");
}

void QuarterlyGrid::setShade(Color color) {
    shadeColor_ = color;
    shade();
}

// The four quarters of the last fiscal year are shaded; the row a year back is yellow.
void QuarterlyGrid::shade() {
    const auto shown = shownDate();
    const auto fiscalYearEnd = fiscalYearDate();
    const int since = shown && fiscalYearEnd ? nearestQuarters(*fiscalYearEnd, *shown) : -mostRows;
    for (int row = 0; row < visibleRows_; ++row) {
        const bool inYear = row >= since && row < since + 4;
        const Color cellColor = row == yellowRow ? colors::yellow
                                : inYear         ? shadeColor_
                                                 : colors::white;
        for (const auto& column : table)
            session_.textBox(column.cells, row).setBackColor(cellColor);
        session_.form.get<Label>("lblQLabel", row)
            .setBackColor(row == yellowRow ? colors::yellow : colors::buttonFace);
    }
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
    for (const auto& array : rowArrays)
        for (int row = form.upperBound(array.name); row >= visibleRows_; --row)
            form.remove(*form.find(array.name, row));
    for (const auto& array : rowArrays)
        for (int row = form.upperBound(array.name) + 1; row < visibleRows_; ++row) {
            const Control& above = *form.find(array.name, row - 1);
            Control* added = nullptr;
            if (above.kind() == ControlKind::label) {
                auto& label = form.add<Label>(array.name, row, above.container());
                label.setAlignment(static_cast<const Label&>(above).alignment());
                added = &label;
            } else {
                auto& box = form.add<TextBox>(array.name, row, above.container());
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
            added->move(above.left(), above.top() + above.height() + array.gap);
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
    const auto& view = *session_.form.get<Frame>("fraDE", 3).container();
    const auto& first = session_.textBox("txtEPS", 0);
    const Twips pitch = first.height() + 15;
    const int fitting = std::max(1, static_cast<int>((view.height() - 15) / pitch));
    auto& bar = session_.form.get<ScrollBar>("vscrQuarterly");
    bar.setRange(0, std::max(0, visibleRows_ - fitting), 1, fitting);
    bar.setVisible(visibleRows_ > fitting);
    session_.form.get<Frame>("fraDE", 3)
        .resize(session_.form.get<Frame>("fraDE", 3).width(),
                std::max(view.height(), visibleRows_ * pitch + 15));
    scroll();
}

int QuarterlyGrid::firstShownRow() const {
    const auto& bar = session_.form.get<ScrollBar>("vscrQuarterly");
    return SafeDivide(bar.value(), bar.smallChange(), false, 0, false, 0).toLong();
}

void QuarterlyGrid::scroll() {
    auto& panel = session_.form.get<Frame>("fraDE", 3);
    const auto& cell = session_.textBox("txtEPS", firstShownRow());
    panel.move(panel.left(), 15 - cell.top());
    for (int i = 0; i <= session_.form.upperBound("lblQCurrency"); ++i) {
        auto& label = session_.form.get<Label>("lblQCurrency", i);
        label.move(label.left(), cell.top() + 30);
    }
}

void QuarterlyGrid::enter(Cell cell) {
    auto& bar = session_.form.get<ScrollBar>("vscrQuarterly");
    if (cell.row < bar.value())
        bar.setValue(cell.row);
    else if (cell.row >= bar.value() + bar.largeChange())
        bar.setValue(cell.row - bar.largeChange() + 1);
    SeriesGrid::enter(cell);
}

bool QuarterlyGrid::existsData() const {
    static constexpr int order[] = {0, 1, 3, 2}; // revenue, earnings, net income, option column
    for (const int column : order) {
        bool found = false;
        attempt([&] {
            const Variant value = readSeries(
                *session_.company, seriesOf(table[static_cast<std::size_t>(column)]).series);
            const VariantArray& figures = value.array();
            for (int i = std::max(0, figures.lower()); i <= figures.upper() && !found; ++i)
                found = leadingNumber(figures.text(i)) != 0;
        });
        if (found || std::ranges::any_of(cells(column), [](const TextBox* cell) {
                return leadingNumber(cell->text()) != 0;
            }))
            return true;
    }
    return false;
}

std::string QuarterlyGrid::reasonNotToStore() const {
    return shownDate() ? std::string() : session_.reason(text_number::reasonNoQuarter);
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
    if (session_.company == nullptr || !shownDate() || quarters == 0 || refusesWhileLocked())
        return;
    settle();
    tryMove(offset_ - quarters);
}

void QuarterlyGrid::tryMove(int element) {
    if (session_.company == nullptr || !shownDate() || element > oldestElement)
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
    return session_.confirmLoss(text_number::addsQuarter,
                                "Adding a new quarter removes the oldest one: the figures of",
                                leaving, message_box::questionIcon);
}

void QuarterlyGrid::moveTo(int element, std::optional<Date> typed) {
    auto& company = *session_.company;
    if (element < 0 && !confirmAdding(-element))
        return;
    const bool samePeriods = element >= 0 && element == offset_;
    bool allMoved = true;
    const Date newest = newestQuarter();
    const auto known = visited_.find(element);
    const Date date = typed                     ? *typed
                      : known != visited_.end() ? known->second.date
                                                : addQuarters(newest, -element);
    Visited left{shownDate().value_or(newest), {}, trailingOfFiscalYear_};
    attempt([&] { left.trailing = company.get_Last4QEPS(); });
    if (element < 0) {
        company.put_LastQDateForGrid(date);
        allMoved = shiftAll(-element);
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
    if (const auto again = visited_.find(element);
        element >= 0 && again != visited_.end() && again->second.trailing) {
        attempt([&] { storeTrailing(*again->second.trailing); });
        const auto derived = trailing();
        trailingOfFiscalYear_ = derived && derived->ofFiscalYear;
    } else {
        deriveTrailingEarnings();
    }
    redisplay(samePeriods);
    if (!allMoved)
        tellRefused();
}

void QuarterlyGrid::setLastQuarter(Date date) {
    session_.putDate(session_.textBox("txtLastQDate"), Datum::LastQDate, date);
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
    forEachSeries([&](Datum series) {
        attempt([&] {
            const Variant value = readSeries(*session_.company, series);
            const VariantArray& figures = value.array();
            for (int i = figures.lower(); i <= figures.upper() && !found; ++i)
                found = figures.number(i) != 0;
        });
    });
    return found;
}

void QuarterlyGrid::leaveLastQuarterDate() {
    session_.dateFieldPending = false;
    auto& field = session_.textBox("txtLastQDate");
    if (session_.cancelPressed || field.locked() || session_.company == nullptr ||
        isUntouched(field))
        return;
    const auto before = shownDate();
    const auto typed = session_.typedDate(field);
    const bool sameDay = typed && before && daysBetween(*before, *typed) == 0;
    const FieldMark mark = field.mark();
    if (field.text() == field.tag() || (sameDay && mark.kind == MarkKind::unstored)) {
        if (before)
            retryLastQuarter(*before);
        return;
    }
    putFieldText(field, session_.dateText(before.value_or(Date{})));
    field.setMark(mark);
    attempt([&] { // a commit may have written what was being typed
        const Date held = session_.company->get_LastQDate();
        const Date old = before.value_or(hidden_);
        if (held != old && (before || Session::isValidDate(held))) {
            session_.company->put_LastQDate(old);
            field.setMark({});
            session_.markChanged();                // what was committed is no longer what is there
            if (mark.kind == MarkKind::unstored) { // taken by now
                deriveTrailingEarnings();
                showTrailingEarnings();
            }
        }
    });
    try {
        takeLastQuarter(before, typed);
    } catch (const std::exception& error) {
        session_.message(std::string("LastQDate Lost Focus error: ") + error.what(),
                         message_box::exclamationIcon);
    }
}

void QuarterlyGrid::followCommit() {
    auto& field = session_.textBox("txtLastQDate");
    if (!field.isUnstored() || field.text() != field.tag())
        return;
    bool stored = false;
    attempt([&] { stored = session_.company->get_LastQDate() == shownDate(); });
    if (!stored)
        return;
    field.setMark({});
    deriveTrailingEarnings();
    if (showTrailing && !session_.textBox("txtLast4QEPS").isUnstored())
        showTrailing(); // a commit changes nothing that the host would have to save anew
}

// The record may take by now what it refused.
void QuarterlyGrid::retryLastQuarter(Date date) {
    setLastQuarter(date);
    if (session_.textBox("txtLastQDate").isUnstored())
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
        session_.message(
            session_.text(text_number::quarterRejected,
                          "The new date must lie in the month in which one of the "
                          "next three quarters ends.") +
                "\r" +
                session_.text(text_number::quarterPutBack, "The previous date has been put back."),
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
    if (table[static_cast<std::size_t>(cell.column)].first.series != Datum::QEPSSeries ||
        !session_.dirty)
        return;
    followVisited(true);
    deriveTrailingEarnings();
    showTrailingEarnings();
}

std::optional<QuarterlyGrid::Trailing> QuarterlyGrid::trailing() const {
    std::optional<Trailing> result;
    attempt([&] { result = trailing(session_.company->get_LastQDate()); });
    return result;
}

// Nothing where one of the four is missing, or the record has no date or no series.
std::optional<QuarterlyGrid::Trailing> QuarterlyGrid::trailing(Date last) const {
    std::optional<Trailing> result;
    attempt([&] {
        const auto& company = *session_.company;
        if (!Session::isValidDate(last))
            return;
        const Date stated = company.get_LastQDateForGrid();
        const Date newest = Session::isValidDate(stated) ? stated : last;
        const Variant value = company.get_QEPSSeries();
        const VariantArray& figures = value.array();
        const auto missing = [&](int element) {
            return !figures.contains(element) || figures.number(element) == 0;
        };
        int start = nearestQuarters(last, newest);
        // A quarter that has just been added has no figure yet: the four before it still stand.
        if (missing(start))
            ++start;
        double sum = 0;
        for (int element = start; element < start + 4; ++element) {
            if (missing(element))
                return;
            sum = withoutStrayDigits(sum + figures.number(element));
        }
        const Date fiscalYearEnd = company.get_LastFYDate();
        const Variant yearly = company.get_YEPSSeries();
        const bool ofFiscalYear = Session::isValidDate(fiscalYearEnd) &&
                                  nearestQuarters(fiscalYearEnd, newest) == start &&
                                  yearly.isArray() && yearly.array().contains(1) &&
                                  yearly.array().number(1) != 0;
        result = Trailing{ofFiscalYear ? yearly.array().number(1) : sum, ofFiscalYear};
    });
    return result;
}

// A sum that was typed and refused gives way to the one that is taken.
void QuarterlyGrid::storeTrailing(double sum) {
    session_.company->put_Last4QEPS(sum);
    session_.textBox("txtLast4QEPS").setMark({});
}

void QuarterlyGrid::deriveTrailingEarnings() {
    const auto derived = trailing();
    trailingOfFiscalYear_ = derived && derived->ofFiscalYear;
    if (!derived)
        return;
    attempt([&] {
        storeTrailing(derived->earnings);
        session_.company->put_QuarterlyFlag(true);
    });
}

// What the last quarters that were on show before come back with.
void QuarterlyGrid::followVisited(bool all) {
    for (auto& [element, quarter] : visited_)
        if (const auto derived = trailing(quarter.date);
            derived && (all || quarter.ofFiscalYear || derived->ofFiscalYear)) {
            quarter.trailing = derived->earnings;
            quarter.ofFiscalYear = derived->ofFiscalYear;
        }
}

// A sum that has nothing to do with the fiscal year, before and now, may have been typed by hand.
void QuarterlyGrid::followYearlyEarnings() {
    followVisited(false);
    const auto derived = trailing();
    if (!trailingOfFiscalYear_ && !(derived && derived->ofFiscalYear))
        return;
    deriveTrailingEarnings();
    showTrailingEarnings();
}

void QuarterlyGrid::showTrailingEarnings() {
    if (!showTrailing)
        return;
    auto& field = session_.textBox("txtLast4QEPS");
    if (field.isUnstored())
        return;
    const std::string before = field.tag();
    showTrailing();
    field.setTag(before);
    checkFieldChange(field, session_);
}

} // namespace vkr
