// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "company/figure_origins.hpp"
#include "store/company_history.hpp"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {

struct CompanyKey {
    std::int64_t id = 0;
    std::int64_t revision = 0; // counts the saves of this company, from 1

    friend bool operator==(const CompanyKey&, const CompanyKey&) = default;
};

// What is stored is not what was saved: bits in the file have changed, or another program has
// written to it.
struct CompanyDamage {
    CompanyKey key;
    std::string name;    // and symbol, as far as they can be read
    std::string message; // for people: what is wrong, and what can be had from the history
    // What was saved last, as the history tells it; a null record where it can't.
    HistoryState saved = {};
    // From what is stored to what was saved, by period.
    std::vector<HistoryChange> differences = {};
};

struct LoadedCompany {
    std::shared_ptr<CompanyRecord> record;
    std::int64_t revision = 0;
    // Data that another program has left in the file in a form that cannot be read, such as the
    // day 0000-00-00, and series of which figures are missing. What cannot be read is absent in the
    // record, and saving it makes that final.
    std::vector<std::string> unreadable;
    // Where each figure comes from.
    FigureOrigins origins = {};
    // What people have called right.
    std::vector<FindingVerdict> calledRight = {};
    std::optional<CompanyDamage> damage = {};

    [[nodiscard]] bool isCalledRight(std::string_view finding) const {
        return std::ranges::find(calledRight, finding, &FindingVerdict::finding) !=
               calledRight.end();
    }
};

struct SaveRequest {
    std::optional<std::int64_t> id; // none: a new company
    std::shared_ptr<const CompanyRecord> record;
    std::int64_t expectedRevision = 0; // as loaded; ignored for a new company
    SaveAccount account = {};
};

} // namespace vkr
