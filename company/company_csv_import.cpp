// SPDX-License-Identifier: MIT
#include "company/company_csv.hpp"
#include "company/csv_company_reader.hpp"
#include "company/csv_findings.hpp"
#include "company/csv_grid_reader.hpp"
#include "company/period_moves.hpp"
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
    const auto readTable = [&](const CsvText& text, auto reader) {
        std::map<Datum, Variant> before; // its rows say it where the company file does not
        for (const auto& [date, period] : datingData)
            before[date] = company->stored(date);
        read(text, reader);
        for (const auto& [date, value] : before)
            if (company->stored(date) != value)
                import.files[date] = text.file;
    };
    read(texts.company, readCompanyCsv);
    if (texts.yearly)
        readTable(*texts.yearly, readYearlyCsv);
    if (texts.quarterly)
        readTable(*texts.quarterly, readQuarterlyCsv);
    if (import.errors.empty())
        import.company = company;
    return import;
}

} // namespace vkr
