// SPDX-License-Identifier: MIT
#include "company/company_record.hpp"
#include "record/datum_titles.hpp"
#include "store/company_history.hpp"
#include "store/history_rows.hpp"

#include <algorithm>
#include <iterator>

namespace vkr {

std::vector<HistoryGroup> toldGroups(const CompanyRecord& before,
                                     const std::vector<ChangeGroup>& groups) {
    std::vector<HistoryGroup> told;
    for (const SavedGroup& saved : savedGroups(before, groups, {})) {
        HistoryGroup group{0, 0, saved.name, {}, saved.time, {}};
        for (const HistoryRow& row : saved.rows)
            std::ranges::move(changesOf(row), std::back_inserter(group.changes));
        told.push_back(std::move(group));
    }
    return told;
}

std::vector<HistoryChange> changesByPeriod(const CompanyRecord& before,
                                           const CompanyRecord& after) {
    return toldGroups(before, {withMovesApart(changesBetween(before, after, {}))}).front().changes;
}

std::string calledFigure(const HistoryChange& change) {
    const auto row = std::ranges::find(datumTable(), change.datum, &DatumRow::name);
    std::string name = row == datumTable().end() ? change.datum : fullTitleOf(row->datum);
    if (!change.period.empty())
        name += " " + change.period;
    else if (change.element)
        name += " (" + std::to_string(*change.element) + ")";
    return name;
}

} // namespace vkr
