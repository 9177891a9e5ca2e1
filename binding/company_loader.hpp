// SPDX-License-Identifier: MIT
#pragma once

#include "binding/company_fields.hpp"
#include "binding/series_grid.hpp"
#include "binding/session.hpp"

namespace vkr {

// Fills the form from the record that the session holds. Every read and write stands under its
// own trap: one that fails leaves its field empty and nothing else. Missing dates are defaulted in
// the record; nothing else is written.
void loadCompany(Session& session, CompanyFields& fields, SeriesGrid& yearly,
                 SeriesGrid& quarterly);

// Brings the record up to date with the form: the hidden member of each alternative pair, which
// stays as it is while the data lock is on, the last quarter, if there is one, the reporting period
// and the settings.
void commitCompany(Session& session, std::optional<Date> lastQuarter);

} // namespace vkr
