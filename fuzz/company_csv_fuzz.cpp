// SPDX-License-Identifier: MIT
// Whatever stands in a CSV file, it is imported as a whole or not at all, and what was imported is
// exported and imported again as the same company.
#include "company/company_csv.hpp"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vkr;
    // The first byte says which of the three files the text is.
    if (size == 0)
        return 0;
    CompanyTexts texts;
    texts.company = {"a-company.csv", "key,value\nname,A\n"};
    std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    switch (data[0] % 3) {
    case 0:
        texts.company.text = std::move(text);
        break;
    case 1:
        texts.yearly = CsvText{"a-yearly.csv", std::move(text)};
        break;
    default:
        texts.quarterly = CsvText{"a-quarterly.csv", std::move(text)};
    }
    const CsvImport read = importCompanyTexts(texts);
    if (read.errors.empty() != (read.company != nullptr))
        std::abort();
    if (read.company == nullptr)
        return 0;
    const CsvImport again = importCompanyTexts(exportCompanyTexts(*read.company));
    if (again.company == nullptr || !sameAs(*again.company, *read.company))
        std::abort();
    return 0;
}
