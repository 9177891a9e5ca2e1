// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {

// A company as three tables that people keep in a spreadsheet.
//
// <SYMBOL>-company.csv    key,value           one row a datum
// <SYMBOL>-yearly.csv     fiscal_year,...     one row a fiscal year
// <SYMBOL>-quarterly.csv  quarter_end,...     one row a quarter
//
// Money is in millions, share counts of the company file are plain counts, shares_musd is in
// millions, prices, earnings and dividends are per share, rates are in percent. Figures are plain
// decimals with a point and without grouping, dates are 2025-09-27. An empty cell is no value.
//
// Rows may come in any order. The newest fiscal year becomes the last fiscal year (element 1 of
// the yearly series) and the newest quarter the last quarter (element 0), unless the company file
// states them (last_fiscal_year, last_fiscal_year_end, last_quarter_end, grid_quarter_end). A
// quarter goes to the place whose date, counted back from the last quarter by calendar quarters,
// is nearest to its own, so that a quarter that ends on 1 April follows one that ends on
// 31 December. Where a record has no date to count from, a column `element` holds the place.

struct CsvProblem {
    std::string file;
    int line = 0;   // counted from 1; 0 where it concerns the file as a whole
    int column = 0; // counted from 1; 0 where it concerns the row as a whole
    std::string text;
    std::string reason;

    friend bool operator==(const CsvProblem&, const CsvProblem&) = default;
};

// "AAPL-yearly.csv, line 5, column 3, "12x": not a number"
[[nodiscard]] std::string describe(const CsvProblem& problem);

struct CsvText {
    std::string file; // the name that problems are told with
    std::string text;
};

struct CompanyTexts {
    CsvText company;
    std::optional<CsvText> yearly;
    std::optional<CsvText> quarterly;
};

struct CsvImport {
    std::shared_ptr<CompanyRecord> company; // null where there is any error
    std::vector<CsvProblem> errors;
    // What was left out: keys that a record has no place for, years older than the grid.
    std::vector<CsvProblem> notes;
    // By datum, the name of the file that has a column or a key for it, be it empty there, or that
    // tells the date. What is not in here no file speaks of.
    std::map<Datum, std::string> files;
    // Names in vkr::setting of what the company file has a key and a value for, or an empty text.
    std::set<std::string_view> settings;
};

// Never throws for what the texts hold. All errors of the three texts are found in one go.
[[nodiscard]] CsvImport importCompanyTexts(const CompanyTexts& texts);

// Everything that the record holds; importing it again gives the same record. Begins with a byte
// order mark, which spreadsheets need to read the text as UTF-8.
[[nodiscard]] CompanyTexts exportCompanyTexts(const CompanyRecord& company);

inline constexpr std::string_view companySuffix = "-company.csv";
inline constexpr std::string_view yearlySuffix = "-yearly.csv";
inline constexpr std::string_view quarterlySuffix = "-quarterly.csv";

// What stands before the suffixes: the symbol, with "_" for what a file name cannot hold, and
// "company" where there is no symbol.
[[nodiscard]] std::string csvPrefix(std::string_view symbol);
[[nodiscard]] inline std::string csvPrefix(const CompanyRecord& company) {
    return csvPrefix(company.get_Symbol());
}
// The three files of a company in a folder.
[[nodiscard]] std::vector<std::filesystem::path> csvFiles(const std::filesystem::path& folder,
                                                          std::string_view prefix);

// Reads <prefix>-company.csv, -yearly.csv and -quarterly.csv of a folder. The latter two may be
// missing, which is noted.
[[nodiscard]] CsvImport importCompany(const std::filesystem::path& folder, std::string_view prefix);

struct CsvExport {
    std::vector<std::filesystem::path> files;
    std::string error; // what went wrong and with which file; "" on success
};

// What an export says of a place where something else than a file is; "" where one can be written.
[[nodiscard]] std::string whyNotReplaced(const std::filesystem::path& place);

// Writes the three files, replacing those of the same names. All of them are written in full beside
// their places before the first one is replaced, so that none is ever left half written.
[[nodiscard]] CsvExport exportCompany(const CompanyRecord& company,
                                      const std::filesystem::path& folder);

// The companies of a folder by what stands before the suffixes, in the order of their texts.
struct CsvFolder {
    std::vector<std::string> prefixes;
    std::string error; // the folder could not be read
};
[[nodiscard]] CsvFolder csvFolder(const std::filesystem::path& folder);

struct FolderImport {
    struct Entry {
        std::string prefix;
        CsvImport result;
    };
    std::vector<Entry> entries; // by prefix
    bool stopped = false;       // by the progress function
    std::string error;          // the folder could not be read
};

// Called before each company with the number of those done; false stops the import.
using ImportProgress = std::function<bool(int done, int total, const std::string& prefix)>;

// Every company of a folder, each on its own: an error in one does not keep out the others.
[[nodiscard]] FolderImport importFolder(const std::filesystem::path& folder,
                                        const ImportProgress& progress = {});

} // namespace vkr
