// SPDX-License-Identifier: MIT
#pragma once

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

// A step that could not be made again.
struct RefusedStep {
    ChangeGroup group;
    QString line; // for people: the step, and why
};

// Changes that a person gave up, until the window's company is opened again.
struct DiscardedChanges {
    std::optional<std::int64_t> id;
    QString title;
    std::vector<ChangeGroup> groups;
    int count = 0; // of what can be had back
};

} // namespace vkr
