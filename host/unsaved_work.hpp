// SPDX-License-Identifier: MIT
#pragma once

#include "company/placed_changes.hpp"
#include "store/company_store.hpp"
#include "store/unsaved_changes.hpp"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace vkr {

// Beside the file of the companies; for a server in the folder of the user's own data.
[[nodiscard]] UnsavedPlace unsavedPlaceOf(const CompanyStore& store);

// A line for each change but those that were worked out, such as
// "Paste of 30 Figures - Yearly Revenue 2024: 5 → 7". `company` is what the groups are to change.
[[nodiscard]] QStringList lines(const CompanyRecord& company,
                                const std::vector<ChangeGroup>& groups);

// Of a step that could not be made again as a whole: a line for each change, and why.
[[nodiscard]] QStringList unplacedLines(const CompanyRecord& company, const ChangeGroup& step,
                                        const std::vector<UnplacedChange>& left);

// What became of changes that were to be made again.
struct Restored {
    bool isAny = false;            // something was made
    std::vector<ChangeGroup> left; // what was not
    QStringList reasons;           // for people
};

// Changes that a person gave up, until the window's company is opened again.
struct DiscardedChanges {
    UnsavedCompany company;
    std::vector<ChangeGroup> groups;
    int count = 0; // of what can be had back
};

} // namespace vkr
