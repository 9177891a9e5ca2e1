// SPDX-License-Identifier: MIT
#include "company/company_csv.hpp"
#include "company/csv_company_reader.hpp"
#include "company/csv_findings.hpp"
#include "company/csv_grid_reader.hpp"
#include "platform/text.hpp"

namespace vkr {

std::string describe(const CsvProblem& problem) {
    static constexpr int longestQuote = 40;
    std::string text = problem.file;
    if (problem.line > 0)
        text += ", line " + std::to_string(problem.line);
    if (problem.column > 0)
        text += ", column " + std::to_string(problem.column);
    if (!problem.text.empty()) {
        text += ", \"" + std::string(textLeft(problem.text, longestQuote));
        text += textLength(problem.text) > longestQuote ? "…\"" : "\"";
    }
    return text + ": " + problem.reason;
}

CsvImport importCompanyTexts(const CompanyTexts& texts) {
    CsvImport import;
    const auto company = std::make_shared<CompanyRecord>();
    const auto read = [&](const CsvText& text, auto reader) {
        CsvFindings findings(text.file, import);
        reader(text, *company, findings);
    };
    read(texts.company, readCompanyCsv);
    if (texts.yearly)
        read(*texts.yearly, readYearlyCsv);
    if (texts.quarterly)
        read(*texts.quarterly, readQuarterlyCsv);
    if (import.errors.empty())
        import.company = company;
    return import;
}

} // namespace vkr
