// SPDX-License-Identifier: MIT
#include "store/import_matches.hpp"

namespace vkr {

StoreResult<std::vector<CompanySummary>> ImportMatches::of(const CompanyRecord& imported) const {
    const std::string symbol = imported.get_Symbol();
    const std::string text = symbol.empty() ? imported.get_Name() : symbol;
    auto alike = store_.find(symbol.empty() ? ListColumn::name : ListColumn::symbol, text);
    if (alike)
        std::erase_if(alike.value(), [&](const CompanySummary& stored) {
            return (symbol.empty() ? stored.name : stored.symbol) != text ||
                   taken_.contains(stored.key.id);
        });
    return alike;
}

SaveAccount importedFrom(const std::string& prefix, const CsvImport& import) {
    SaveAccount account;
    account.rest = {Origin::imported, "Import of " + prefix, prefix + std::string(companySuffix)};
    account.documents = import.files;
    return account;
}

} // namespace vkr
