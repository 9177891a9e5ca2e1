// SPDX-License-Identifier: MIT
#include "control/entry_objects.hpp"

#include "form/form_layout.hpp"
#include "input/mdlMenu.hpp"

#include <algorithm>
#include <span>

namespace vkr {

namespace {

constexpr int noHelpText = 1;

struct Extras {
    DataEntryObject object;
    unsigned extras;
};

// Besides what a field has because of its datum, and a column because of its grid.
constexpr Extras extras[] = {
    {doUpdatedBy, meAssistant},
    {doLastFY, meYears | meAssistant},
    {doLastFYDate, meDate | meLastQuarterDate | meAssistant},
    {doLastQDate, meAssistant},
    {doReportingPeriod, meAssistant},
    {doYearLabel, meYears},
};

bool isIn(std::span<const GridColumn> columns, DataEntryObject object) {
    return std::ranges::any_of(columns, [&](const GridColumn& column) {
        return column.usual.object == object ||
               (column.alternative && column.alternative->object == object);
    });
}

} // namespace

int helpTextOf(DataEntryObject object) {
    const int number = helpNumberOf(object);
    return number == 0 ? noHelpText : number;
}

unsigned menuExtrasOf(DataEntryObject object) {
    unsigned found = meNone;
    for (const auto& row : extras)
        if (row.object == object)
            found |= row.extras;
    for (const auto& field : companyFieldTable())
        if (field.object == object)
            found |= field.kind == FieldKind::date ? meAssistant | meDate : meAssistant;
    if (isIn(yearlyColumns(), object))
        found |= meAssistant | meYears;
    if (isIn(quarterlyColumns(), object))
        found |= meAssistant;
    return found;
}

EntryObjects::EntryObjects(const Form& form, const SeriesGrid& yearly, const SeriesGrid& quarterly)
    : yearly_(yearly), quarterly_(quarterly) {
    for (const auto& row : formLayout())
        if (row.beside)
            besideField_.emplace(row.control.find(form),
                                 dynamic_cast<TextField*>(row.beside->find(form)));
}

TextField* EntryObjects::fieldOf(const Control& control) const {
    if (auto* field = dynamic_cast<const TextField*>(&control))
        return const_cast<TextField*>(field);
    if (const auto found = besideField_.find(&control); found != besideField_.end())
        return found->second;
    const auto* label = dynamic_cast<const Label*>(&control);
    auto* named = label == nullptr ? nullptr : dynamic_cast<TextField*>(label->buddy());
    // The head of a column names no single cell.
    return named == nullptr || yearly_.find(*named) || quarterly_.find(*named) ? nullptr : named;
}

std::optional<DataEntryObject> EntryObjects::ofCell(const Control& cell) const {
    if (yearly_.find(cell))
        return yearly_.objectOf(cell);
    if (quarterly_.find(cell))
        return quarterly_.objectOf(cell);
    return std::nullopt;
}

std::optional<DataEntryObject> EntryObjects::of(const Control& control, int tab) const {
    if (control.kind() == ControlKind::tabStrip)
        return tab == 0 ? std::nullopt
                        : std::optional(static_cast<DataEntryObject>(doTabCompany + tab - 1));
    for (const auto& row : formLayout())
        if (row.object && row.declares(control))
            return row.object;
    if (const auto found = besideField_.find(&control); found != besideField_.end())
        return of(*found->second);
    if (const auto* label = dynamic_cast<const Label*>(&control);
        label != nullptr && label->buddy() != nullptr)
        return of(*label->buddy());
    return ofCell(control);
}

} // namespace vkr
