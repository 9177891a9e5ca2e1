// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_csv.hpp"
#include "store/company_store.hpp"

#include <cstdint>
#include <optional>
#include <set>

namespace vkr {

// Which stored company each company of an import stands for: the one of the same symbol, or of the
// same name where it has no symbol. No two of an import stand for the same one.
class ImportMatches {
  public:
    explicit ImportMatches(CompanyStore& store) : store_(store) {}

    // Nothing where there is none.
    StoreResult<std::optional<CompanySummary>> take(const CompanyRecord& imported);

  private:
    CompanyStore& store_;
    std::set<std::int64_t> taken_;
};

// That a company was imported from the tables of this prefix, each datum from the one it stands in.
[[nodiscard]] SaveAccount importedFrom(const std::string& prefix, const CsvImport& import);

} // namespace vkr
