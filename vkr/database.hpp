// SPDX-License-Identifier: MIT
#pragma once

#include "store/company_store.hpp"
#include "vkr/call.hpp"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vkr {

// The code that tells this failure of the store apart.
[[nodiscard]] ExitCode exitCodeOf(StoreFault fault);
[[noreturn]] void fail(const StoreError& error);

// The value, or what stood in its way as a CommandFailure.
template <typename Value>
Value valueOf(StoreResult<Value> result) {
    if (!result)
        fail(result.error());
    return std::move(result.value());
}

// The database that the command line, or else the environment, names; of a dry run one that keeps
// nothing.
[[nodiscard]] std::unique_ptr<CompanyStore> openDatabase(const Call& call,
                                                         OpenMode mode = OpenMode::reading);

// The one company of a symbol, or of a number as "id:17". A symbol in small letters is found where
// none is written like that.
[[nodiscard]] CompanySummary findCompany(CompanyStore& store, const std::string& symbol);
// The same, but nothing where there is no company of this symbol.
[[nodiscard]] std::optional<CompanySummary> companyIfThere(CompanyStore& store,
                                                           const std::string& symbol);
// Each once, in the order that they are named in; all of them in the order of the list where there
// is --all.
[[nodiscard]] std::vector<CompanySummary> chosenCompanies(const Call& call, CompanyStore& store,
                                                          const std::vector<std::string>& symbols);

// The company, after a word about what in it can't be read.
[[nodiscard]] LoadedCompany load(const Call& call, CompanyStore& store,
                                 const CompanySummary& company);

// "Apple Inc. (AAPL)"
[[nodiscard]] std::string titleOf(const std::string& name, const std::string& symbol);

} // namespace vkr
