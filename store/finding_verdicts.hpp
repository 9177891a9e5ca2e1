// SPDX-License-Identifier: MIT
#pragma once

#include "store/company_table.hpp"
#include "store/store_connection.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace vkr {

void createFindingVerdicts(StoreConnection& connection);

// What people have said of findings about a company, in the table `finding_verdict`, beside its
// history: what was said later of the same finding stands. Everything here is done within a
// transaction of the caller. The verdicts leave together with their company.
class FindingVerdicts {
  public:
    explicit FindingVerdicts(StoreConnection& connection) : connection_(connection) {}

    // Who says it, and when, is told by the verdict.
    void add(std::int64_t id, const FindingVerdict& verdict);
    // All of them, the oldest first.
    struct Said {
        std::vector<FindingVerdict> verdicts;
        bool isSound = true; // every one is as it was written
    };
    [[nodiscard]] Said of(std::int64_t id);
    // Those that call a finding right and stand.
    [[nodiscard]] std::vector<FindingVerdict> standing(std::int64_t id);
    // Forgets what was said up to a time and no longer stands.
    void shorten(std::int64_t id, const std::string& until);

  private:
    StoreConnection& connection_;
};

} // namespace vkr
