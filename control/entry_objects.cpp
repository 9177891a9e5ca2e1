// SPDX-License-Identifier: MIT
#include "control/entry_objects.hpp"

#include "control/form_layout.hpp"
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

// Controls that neither the fields' table nor the grids know.
struct ControlObject {
    std::string_view name;
    int index; // noIndex: every element
    DataEntryObject object;
};

constexpr int all = Control::noIndex;
constexpr ControlObject controlObjects[] = {
    {"txtLastFY", all, doLastFY},
    {"txtDateofLastFY", all, doLastFYDate},
    {"lblLabel", 31, doLastFYDate}, // beside the quarters
    {"lblDatOfLastFY", all, doLastFYDate},
    {"txtLastQDate", all, doLastQDate},
    {"spnQuarter", all, doLastQDate},
    {"lblLabel", 6, doUpdatedBy},
    {"lblLabel", 25, doYHigh}, // over high and low
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
    {"lblLabel", 60, doTabOptions}, // beside the colours
    {"lblLabel", 61, doTabOptions},
    {"lblLabel", 62, doTabOptions},
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
    const auto layout = formLayout();
    for (std::size_t i = 0; i < layout.size(); ++i) {
        const auto& row = layout[i];
        auto* field = dynamic_cast<TextField*>(form.find(row.name, row.index));
        if (field != nullptr && !row.labelledBy.empty())
            named_.emplace(&labelNamed(form, row.labelledBy), field);
        // A currency mark stands in front of its field.
        if (row.name.ends_with("Currency") && i + 1 < layout.size())
            if (auto* marked =
                    dynamic_cast<TextField*>(form.find(layout[i + 1].name, layout[i + 1].index)))
                named_.emplace(form.find(row.name, row.index), marked);
    }
    named_.emplace(form.find("spnQuarter"), &form.get<TextField>("txtLastQDate"));
    // The quarters have the date of the last fiscal year beside them.
    auto* fiscalYearDate = &form.get<TextField>("txtDateofLastFY");
    named_.emplace(form.find("lblLabel", 31), fiscalYearDate);
    named_.emplace(form.find("lblDatOfLastFY"), fiscalYearDate);
    for (const auto& head : columnHeads())
        heads_.emplace(form.find(head.head, head.headIndex), form.find(head.cells, 0));
}

TextField* EntryObjects::fieldOf(const Control& control) const {
    if (auto* field = dynamic_cast<const TextField*>(&control))
        return const_cast<TextField*>(field);
    const auto found = named_.find(&control);
    return found == named_.end() ? nullptr : found->second;
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
    if (const auto head = heads_.find(&control); head != heads_.end())
        return ofField(*head->second);
    if (const auto named = named_.find(&control); named != named_.end())
        return of(*named->second);
    return ofField(control);
}

} // namespace vkr
