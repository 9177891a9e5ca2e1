// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "company/figure_origins.hpp"
#include "store/company_history.hpp"

#include <string>
#include <vector>

namespace vkr {

// A row of the table `figure_change`: what happened to a datum in one group, from one origin.
struct HistoryRow {
    std::string datum; // or a setting
    // What the first period of a series was: "2025" stands at element 1, a quarter "2025-09-27" at
    // element 0. Where the group moved them, before and after: "2024 2025".
    std::string countedFrom;
    std::string elements; // "3 4 5"; of a single value empty
    // The values of these elements one behind the other, "" where all of them are absent.
    std::string before;
    std::string after;
    // "typed"; "typed!" where one of the figures that it follows from had changed since.
    std::string origin;
    std::string document;
};

// A row of the table `change_group`, and its changes.
struct SavedGroup {
    std::string name;
    std::string time;
    std::vector<HistoryRow> rows;
};

// Groups as they are stored. `stored` is the company before the first of them, `time` that of the
// save. `origins`: of what a history begins with, of which the changes before are not known.
[[nodiscard]] std::vector<SavedGroup> savedGroups(const CompanyRecord& stored,
                                                  const std::vector<ChangeGroup>& groups,
                                                  const std::string& time,
                                                  const FigureOrigins* origins = nullptr);

// What the row says happened, value by value.
[[nodiscard]] std::vector<HistoryChange> changesOf(const HistoryRow& row);
// Makes of the company before the change the one after it, and adds what that was; false where the
// row can't be read.
bool redo(const HistoryRow& row, CompanyRecord& record, std::vector<Change>& done);
[[nodiscard]] bool isOutdated(const HistoryRow& row);

} // namespace vkr
