// SPDX-License-Identifier: MIT
#include "control/entry_objects.hpp"

#include "form/form_layout.hpp"
#include "input/mdlMenu.hpp"

#include <algorithm>
#include <string_view>

namespace vkr {

namespace {

struct HelpTexts {
    DataEntryObject first;
    DataEntryObject last;
    int text; // of the first; the others follow
};

constexpr HelpTexts helpTexts[] = {
    {doTotalCap, doTotalCap, 577},
    {doName, doSymbol, 101},
    {doLastStudied, doPriceUpdatedDate, 103},
    {doLast4QEPS, doLast4QEPS, 578},
    {doORBEPSProj, doORBEPSProj, 110},
    {doTotalDebt, doVLSafety, 111},
    {doNotes, doEstTaxRate, 147},
    {doUnit, doCommEq_BookVal, 151},
    {doLockInfo, doLockInfo, 155},
    {doDisplayOption, doDisplayOption, 154},
    {doYearLabel, doQuarterLabel, 156},
    {doTabCompany, doTabOptions, 158},
    {doDateOfSource, doDateOfSource, 163},
};
constexpr int noHelpText = 1;

struct Extras {
    DataEntryObject first;
    DataEntryObject last;
    unsigned extras;
};

constexpr Extras extras[] = {
    {doLastStudied, doLastStudied, meDate},
    {doPriceUpdatedDate, doPriceUpdatedDate, meDate},
    {doLastFYDate, doLastFYDate, meDate | meLastQuarterDate},
    {doDateOfSource, doDateOfSource, meDate},
    {doLastFY, doLastFY, meYears},
    {doYRevenue, doYCSO, meYears},
    {doYearLabel, doYearLabel, meYears},
    // Whatever stands for a datum.
    {doName, doEstTaxRate, meAssistant},
    {doDateOfSource, doDateOfSource, meAssistant},
};

// Controls that neither the fields' table nor the grids know, nor a label names.
struct ControlObject {
    std::string_view name;
    int index; // noIndex: every element
    DataEntryObject object;
};

constexpr int all = Control::noIndex;
constexpr ControlObject controlObjects[] = {
    {"txtLastFY", all, doLastFY},
    {"txtDateofLastFY", all, doLastFYDate},
    {"lblDatOfLastFY", all, doLastFYDate},
    {"txtLastQDate", all, doLastQDate},
    {"spnQuarter", all, doLastQDate},
    {"lblLabel", 6, doUpdatedBy},
    {"cmbReportingPeriod", all, doReportingPeriod},
    {"lblYear", all, doYearLabel},
    {"lblQLabel", all, doQuarterLabel},
    {"lblLabel", 32, doQuarterLabel},
    {"chkLockInfo", all, doLockInfo},
    {"optCurrency", all, doUnit},
    {"optDisplay", all, doDisplayOption},
    {"optPTI", all, doPTI_TaxRate},
    {"optCommEq", all, doCommEq_BookVal},
    {"fraDE", 5, doUnit},
    {"fraDE", 6, doDisplayOption},
    {"fraDE", 7, doPTI_TaxRate},
    {"fraDE", 8, doCommEq_BookVal},
    // What has no object of its own stands for its page.
    {"lblLegend", all, doTabYearly},
    {"lblLabel", 28, doTabYearly},
    {"txtCurSymbol", all, doTabOptions},
    {"cmdColor", all, doTabOptions},
    {"lblSample", all, doTabOptions},
    {"fraDE", 9, doTabOptions},
    {"fraDE", frame::yearlyView, doTabYearly},
    {"fraDE", frame::yearlyPanel, doTabYearly},
    {"fraDE", frame::quarterlyView, doTabQuarterly},
    {"fraDE", frame::quarterlyPanel, doTabQuarterly},
    {"fraDE", 10, doTabCompany},
    {"fraDE", 11, doTabYearly},
    {"fraDE", 12, doTabQuarterly},
    {"fraDE", 13, doTabOther},
    {"fraDE", 14, doTabOptions},
};

template <typename Row>
bool holds(const Row& row, DataEntryObject object) {
    return object >= row.first && object <= row.last;
}

} // namespace

int helpTextOf(DataEntryObject object) {
    const auto* row = std::ranges::find_if(
        helpTexts, [object](const HelpTexts& texts) { return holds(texts, object); });
    return row == std::end(helpTexts) ? noHelpText : row->text + object - row->first;
}

unsigned menuExtrasOf(DataEntryObject object) {
    unsigned found = meNone;
    for (const auto& row : extras)
        if (holds(row, object))
            found |= row.extras;
    return found;
}

EntryObjects::EntryObjects(const Form& form, const CompanyFields& fields, const SeriesGrid& yearly,
                           const SeriesGrid& quarterly)
    : fields_(fields), yearly_(yearly), quarterly_(quarterly) {
    // A currency mark stands in front of its field.
    const auto layout = formLayout();
    for (std::size_t i = 0; i + 1 < layout.size(); ++i)
        if (layout[i].name.ends_with("Currency"))
            if (auto* marked =
                    dynamic_cast<TextField*>(form.find(layout[i + 1].name, layout[i + 1].index)))
                besideField_.emplace(form.find(layout[i].name, layout[i].index), marked);
    besideField_.emplace(form.find("spnQuarter"), &form.get<TextField>("txtLastQDate"));
    // The quarters have the date of the last fiscal year beside them.
    auto* fiscalYearDate = &form.get<TextField>("txtDateofLastFY");
    besideField_.emplace(form.find("lblLabel", 31), fiscalYearDate);
    besideField_.emplace(form.find("lblDatOfLastFY"), fiscalYearDate);
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

std::optional<DataEntryObject> EntryObjects::ofField(const Control& field) const {
    if (const auto* row = fields_.find(field))
        return row->object;
    if (yearly_.find(field))
        return yearly_.objectOf(field);
    if (quarterly_.find(field))
        return quarterly_.objectOf(field);
    return std::nullopt;
}

std::optional<DataEntryObject> EntryObjects::of(const Control& control, int tab) const {
    if (control.kind() == ControlKind::tabStrip)
        return tab == 0 ? std::nullopt
                        : std::optional(static_cast<DataEntryObject>(doTabCompany + tab - 1));
    for (const auto& row : controlObjects)
        if (row.name == control.name() && (row.index == all || row.index == control.index()))
            return row.object;
    if (const auto found = besideField_.find(&control); found != besideField_.end())
        return of(*found->second);
    if (const auto* label = dynamic_cast<const Label*>(&control);
        label != nullptr && label->buddy() != nullptr)
        return of(*label->buddy());
    return ofField(control);
}

} // namespace vkr
