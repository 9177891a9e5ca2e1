// SPDX-License-Identifier: MIT
#include "company/company_record.hpp"
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

std::string whichFigure(const HistoryChange& change) {
    if (!change.period.empty())
        return " " + change.period;
    return change.element ? " (" + std::to_string(*change.element) + ")" : std::string();
}

} // namespace vkr
