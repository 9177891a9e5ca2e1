// SPDX-License-Identifier: MIT
#include "host/change_place.hpp"

#include "form/controls.hpp"
#include "form/form_layout.hpp"
#include "host/texts.hpp"
#include "yearly/yearly_grid.hpp"

#include <utility>

namespace vkr {

namespace {

constexpr std::pair<Datum, std::string_view> ownFields[] = {
    {Datum::LastFY, controls::lastFiscalYear.name},
    {Datum::LastFYDate, controls::lastFiscalYearDate.name},
    {Datum::LastQDate, controls::lastQuarterDate.name},
    {Datum::LastQDateForGrid, controls::lastQuarterDate.name},
    {Datum::CommDivAlternate, "txtCommDiv"},
};

constexpr std::pair<std::string_view, std::string_view> ownSettings[] = {
    {setting::currencySymbol, controls::currencySymbol.name},
    {setting::leadPeriod, controls::reportingPeriod.name},
    {setting::unit, controls::unitOption.name},
    {setting::bookValue, controls::equityOption.name},
    {setting::taxRate, controls::incomeOption.name},
};

const GridColumn* columnOf(std::span<const GridColumn> columns, Datum series) {
    for (const GridColumn& column : columns)
        if (column.first.series == series || (column.second && column.second->series == series))
            return &column;
    return nullptr;
}

// The chosen one of the options, the control itself for anything else.
std::string chosenOf(const Form& form, std::string_view name) {
    for (const auto& [index, control] : form.elements(name))
        if (const auto* option = dynamic_cast<const OptionButton*>(control);
            option == nullptr || option->value())
            return control->id();
    return {};
}

std::string cellOf(const Form& form, const GridColumn& column, int row) {
    const Control* cell = form.find(column.cells.name, row);
    return cell == nullptr ? std::string() : cell->id();
}

} // namespace

std::string controlOf(const Form& form, const Change& change) {
    for (const auto& [setting, name] : ownSettings)
        if (change.setting == setting)
            return chosenOf(form, name);
    if (!change.setting.empty())
        return {};
    for (const auto& [datum, name] : ownFields)
        if (change.datum == datum)
            return std::string(name);
    for (const FieldRow& row : companyFieldTable())
        if (row.datum == change.datum)
            return form.find(row.control.name, row.control.index)->id();
    // Of a whole series the last period.
    if (const auto* column = columnOf(yearlyColumns(), change.datum))
        return cellOf(form, *column, YearlyGrid::rows - 1 - change.element.value_or(1));
    if (const auto* column = columnOf(quarterlyColumns(), change.datum)) {
        const int top = -controls::quarterSpinner.in(form).value();
        return cellOf(form, *column, change.element ? *change.element - top : 0);
    }
    return {};
}

QString changeTitle(const Change& change) {
    return datumTitle(change.setting.empty() ? rowOf(change.datum).name
                                             : std::string_view(change.setting));
}

QString groupTitle(const ChangeGroup& group) {
    if (!group.name.empty() || group.changes.empty())
        return fromUtf8(group.name);
    return changeTitle(group.changes.front());
}

} // namespace vkr
