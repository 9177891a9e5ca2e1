// SPDX-License-Identifier: MIT
#pragma once

#include "store/company_table.hpp"
#include "store/store_connection.hpp"
#include "store/store_result.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace vkr {

// How a company is named in messages.
[[nodiscard]] std::string calledName(const CompanyRecord& record);

// Who changed which company when, in the table `change_log`, and what is told to somebody who comes
// second. Everything here is done within a transaction of the caller.
class ChangeLog {
  public:
    enum class Change { saved, removed };

    explicit ChangeLog(StoreConnection& connection) : connection_(connection) {}

    void add(const CompanyKey& key, Change change, const SaveStamp& stamp);

    // StoreFault::conflict: the company is stored with the revision, saved by somebody else.
    [[noreturn]] void failSaved(const CompanyKey& stored, const CompanyRecord& record,
                                std::vector<HistoryChange> differences);
    // StoreFault::conflict: the company that is to be saved is no longer there.
    [[noreturn]] void failRemoved(std::int64_t id, const CompanyRecord& record);
    // StoreFault::missing: there is nothing to be loaded.
    [[noreturn]] void failMissing(std::int64_t id);

  private:
    [[nodiscard]] StoreConflict lastChange(std::int64_t id);
    [[noreturn]] void failAbsent(std::int64_t id, const std::string& name, StoreFault fault,
                                 const std::string& advice);

    StoreConnection& connection_;
};

} // namespace vkr
