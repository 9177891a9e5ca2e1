// SPDX-License-Identifier: MIT
#pragma once

#include "binding/company_fields.hpp"
#include "binding/entry_context.hpp"
#include "binding/series_grid.hpp"

#include <string_view>

namespace vkr {

// Fills the form from the record that the context holds. Every read and write stands under its
// own trap: one that fails leaves its field empty and nothing else. Missing dates are defaulted in
// the record, and the last fiscal year is written back as it is; nothing else is written.
void loadCompany(EntryContext& context, CompanyFields& fields, SeriesGrid& yearly,
                 SeriesGrid& quarterly);

// By how many periods the figures have moved under the form.
struct PeriodsMoved {
    int years = 0;
    int quarters = 0;
};
// Fills the form anew from the same record, and writes nothing; marked texts of cells stay with
// their periods. The settings are another matter: followSettings.
PeriodsMoved showCompany(CompanyFields& fields, SeriesGrid& yearly, SeriesGrid& quarterly);
// A setting of the record comes onto the form, and counts as seen from then on.
void loadSetting(EntryContext& context, std::string_view name);
// So do those that others have changed since the form last read or wrote them.
void followSettings(EntryContext& context);

// A choice of the form was made, of the setting of this name. A record that listens to actions gets
// it at once, others by the commit.
void noteChoice(EntryContext& context, std::string_view name);

// Brings the record up to date with the form: the hidden member of each alternative pair, which
// stays as it is while the data lock is on, the last quarter, if there is one, the reporting period
// and the settings.
void commitCompany(EntryContext& context, std::optional<Date> lastQuarter);

} // namespace vkr
