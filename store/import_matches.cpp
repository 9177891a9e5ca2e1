// SPDX-License-Identifier: MIT
#include "store/import_matches.hpp"

namespace vkr {

StoreResult<std::optional<CompanySummary>> ImportMatches::take(const CompanyRecord& imported) {
    const std::string symbol = imported.get_Symbol();
    const std::string text = symbol.empty() ? imported.get_Name() : symbol;
    const auto alike = store_.find(symbol.empty() ? ListColumn::name : ListColumn::symbol, text);
    if (!alike)
        return alike.error();
    for (const CompanySummary& stored : alike.value())
        if ((symbol.empty() ? stored.name : stored.symbol) == text &&
            taken_.insert(stored.key.id).second)
            return std::optional(stored);
    return std::optional<CompanySummary>();
}

SaveAccount importedFrom(const std::string& prefix, const CsvImport& import) {
    SaveAccount account;
    account.rest = {Origin::imported, "Import of " + prefix, prefix + std::string(companySuffix)};
    account.documents = import.files;
    return account;
}

} // namespace vkr
