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

Date QuarterlyGrid::quartersFrom(Date date, int quarters) {
    const Date moved = vkr::addQuarters(date, quarters);
    const bool lastDay = civil(date).day == civil(EndOfMonth(date)).day;
    return lastDay ? EndOfMonth(moved) : moved;
}

std::optional<Date> QuarterlyGrid::shownDate() const {
    return session_.dateOf(session_.textBox("txtLastQDate"), Datum::LastQDate);
}

std::optional<Date> QuarterlyGrid::fiscalYearDate() const {
    return session_.dateOf(session_.textBox("txtDateofLastFY"), Datum::LastFYDate);
}

void QuarterlyGrid::showSpan() {
    attempt([&] {
        putFieldText(session_.textBox("txtLastQDate"),
                     session_.dateText(session_.company->get_LastQDate()));
    });
    relabel();
}

void QuarterlyGrid::relabel() {
    offset_ = 0;
    const auto shown = shownDate();
    attempt([&] {
        const Date newest = session_.company->get_LastQDateForGrid();
        if (shown && Session::isValidDate(newest))
            offset_ = quartersBetween(*shown, newest);
    });
    session_.form.get<Spinner>("spnQuarter").setValue(-offset_);
    for (int row = 0; row < visibleRows_; ++row) {
        auto& label = session_.form.get<Label>("lblQLabel", row);
        const Date date = shown ? quartersFrom(*shown, -row) : Date{};
        label.setCaption(formatDate(date, "Short Date"));
        label.setTag(plainNumberText(date.serial));
    }
    attempt([&] {
        const auto fiscalYearEnd = fiscalYearDate();
        session_.form.get<Label>("lblDatOfLastFY")
            .setCaption(session_.dateText(fiscalYearEnd.value_or(Date{})));
    });
}

void QuarterlyGrid::clearLabels() {
    for (int row = 0; row < visibleRows_; ++row) {
        auto& label = session_.form.get<Label>("lblQLabel", row);
        label.setCaption("");
        label.setTag("");
    }
}

void QuarterlyGrid::setShade(Color color) {
    shadeColor_ = color;
    shade();
}

// The four quarters of the last fiscal year are shaded; the row a year back is yellow.
void QuarterlyGrid::shade() {
    const auto shown = shownDate();
    const auto fiscalYearEnd = fiscalYearDate();
    const int since = shown && fiscalYearEnd ? quartersBetween(*fiscalYearEnd, *shown) : -mostRows;
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
    for (const auto& array : rowArrays)
        for (int row = form.upperBound(array.name); row >= visibleRows_; --row)
            form.remove(*form.find(array.name, row));
    for (const auto& array : rowArrays)
        for (int row = form.upperBound(array.name) + 1; row < visibleRows_; ++row) {
            const Control& above = *form.find(array.name, row - 1);
            Control* added = nullptr;
            if (above.kind() == ControlKind::label) {
                added = &form.add<Label>(array.name, row, above.container());
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
        showAll();
    }
    shade();
    layOut();
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
    return shownDate() ? std::string()
                       : session_.text(text_number::reasonNoQuarter,
                                       "Without a date of the last quarter this figure has no "
                                       "quarter and was not stored.");
}

// --- the last quarter ----------------------------------------------------------------------------

void QuarterlyGrid::moveLastQuarter(int quarters) {
    const auto shown = shownDate();
    if (session_.company == nullptr || !shown || quarters == 0)
        return;
    if (session_.isLocked() || quarters > offset_) {
        addQuarters(quarters - std::max(offset_, 0));
        return;
    }
    if (offset_ - quarters > oldestElement)
        return;
    setLastQuarter(quartersFrom(*shown, quarters));
    session_.markChanged();
    redisplay();
}

void QuarterlyGrid::addQuarters(int count) {
    if (session_.isLocked()) {
        session_.message("Data is locked!\r\rYou must unlock data to add a new quarter.",
                         message_box::okOnly);
        return;
    }
    session_.hideHelpFrame();
    const auto shown = shownDate();
    if (session_.company == nullptr || !shown)
        return;
    Date newest = *shown;
    attempt([&] {
        const Date stored = session_.company->get_LastQDateForGrid();
        newest = offset_ > 0 && Session::isValidDate(stored) ? stored : newest;
    });
    // The last of the quarters that leave the grid is the newest that will be gone.
    const Date oldest = quartersFrom(newest, count - 1 - oldestElement);
    const std::string question = session_.text(412, "") + " " + formatDate(oldest, monthAndYear) +
                                 " " + session_.text(405, "") + "\r" + session_.text(406, "");
    if (session_.message(question, message_box::yesNo | message_box::questionIcon |
                                       message_box::defaultSecondButton) != MessageAnswer::yes)
        return;
    for (const auto& column : table)
        for (const Datum series : {column.second.series, column.first.series}) {
            shiftSeries(series, count);
            if (column.choice == ColumnChoice::none)
                break;
        }
    const Date last = quartersFrom(newest, count);
    attempt([&] { session_.company->put_LastQDateForGrid(last); });
    setLastQuarter(last);
    session_.markChanged();
    deriveTrailingEarnings();
    redisplay();
    showTrailingEarnings();
}

void QuarterlyGrid::setLastQuarter(Date date) {
    const bool stored = attempt([&] { session_.company->put_LastQDate(date); });
    auto& field = session_.textBox("txtLastQDate");
    putFieldText(field, session_.dateText(date));
    if (!stored)
        field.setMark(session_.text(text_number::reasonRefused, "This value could not be stored."));
}

void QuarterlyGrid::redisplay() {
    relabel();
    shade();
    showAll();
}

void QuarterlyGrid::leaveLastQuarterDate() {
    session_.dateFieldPending = false;
    auto& field = session_.textBox("txtLastQDate");
    if (session_.cancelPressed || field.locked() || session_.company == nullptr ||
        field.text() == field.tag())
        return;
    const std::string accepted = field.tag();
    const auto typed = shownDate();
    putFieldText(field, accepted);
    const auto before = shownDate();
    if (typed && !before) { // there was none: the typed one is the first
        setLastQuarter(*typed);
        attempt([&] { session_.company->put_LastQDateForGrid(*typed); });
        session_.markChanged();
        redisplay();
        return;
    }
    int added = 0;
    for (int quarters = 1; typed && before && quarters <= 3; ++quarters) {
        const auto expected = civil(quartersFrom(*before, quarters));
        const auto got = civil(*typed);
        if (expected.year == got.year && expected.month == got.month)
            added = quarters;
    }
    if (typed && before && *typed == *before)
        return;
    if (added == 0) {
        session_.message(session_.text(615, "") + "\r" + session_.text(616, ""),
                         message_box::exclamationIcon);
        return;
    }
    moveLastQuarter(added);
}

// --- trailing four-quarter earnings
// ---------------------------------------------------------------

void QuarterlyGrid::stored(Cell cell) {
    if (table[static_cast<std::size_t>(cell.column)].first.series != Datum::QEPSSeries ||
        !session_.dirty)
        return;
    deriveTrailingEarnings();
    showTrailingEarnings();
}

void QuarterlyGrid::deriveTrailingEarnings() {
    attempt([&] {
        auto& company = *session_.company;
        const Date newest = company.get_LastQDateForGrid();
        const Date last = company.get_LastQDate();
        const Variant value = company.get_QEPSSeries();
        const VariantArray& figures = value.array();
        int start = quartersBetween(last, newest);
        const auto missing = [&](int element) {
            return !figures.contains(element) || figures.number(element) == 0;
        };
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
        if (Session::isValidDate(fiscalYearEnd) &&
            quartersBetween(fiscalYearEnd, newest) == start) {
            const Variant yearly = company.get_YEPSSeries();
            if (yearly.isArray() && yearly.array().contains(1) && yearly.array().number(1) != 0)
                sum = yearly.array().number(1);
        }
        company.put_Last4QEPS(sum);
        company.put_QuarterlyFlag(true);
    });
}

void QuarterlyGrid::showTrailingEarnings() {
    if (!showTrailing)
        return;
    auto& field = session_.textBox("txtLast4QEPS");
    const std::string before = field.tag();
    showTrailing();
    field.setTag(before);
    checkFieldChange(field, session_);
}

} // namespace vkr
