// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_csv.hpp"
#include "store/company_store.hpp"

#include <cstdint>
#include <set>
#include <vector>

namespace vkr {

// Which stored companies each company of an import may stand for: those of the same symbol, or of
// the same name where it has no symbol. No two of an import stand for the same one.
class ImportMatches {
  public:
    explicit ImportMatches(CompanyStore& store) : store_(store) {}

    // But for those that another one was taken for. Of several nobody but a person knows which one
    // is meant.
    [[nodiscard]] StoreResult<std::vector<CompanySummary>> of(const CompanyRecord& imported) const;
    void take(const CompanySummary& stored) { taken_.insert(stored.key.id); }

  private:
    CompanyStore& store_;
    std::set<std::int64_t> taken_;
};

// That a company was imported from the tables of this prefix, each datum from the one it stands in.
[[nodiscard]] SaveAccount importedFrom(const std::string& prefix, const CsvImport& import);

} // namespace vkr
