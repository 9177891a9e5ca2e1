// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_csv.hpp"
#include "company/csv_text.hpp"
#include "platform/date.hpp"
#include "record/setting_table.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace vkr {

// Collects what is found in one of the texts of an import, and reads its cells: nothing where a
// cell cannot be read, which is an error then. Lines and columns are counted from 1.
class CsvFindings {
  public:
    CsvFindings(std::string file, CsvImport& import);

    void error(int line, int column, std::string_view text, std::string reason);
    void error(const CsvCell& cell, int column, std::string reason);
    void note(int line, int column, std::string_view text, std::string reason);

    void speaksOf(Datum datum); // the text has a column or a key for it
    void speaksOf(const SettingRow& setting);

    // 0 for an empty cell. The decimal point of the file stands `places` further right.
    [[nodiscard]] std::optional<double> figure(const CsvCell& cell, int column, int places);
    // No date for an empty cell.
    [[nodiscard]] std::optional<Date> date(const CsvCell& cell, int column);
    [[nodiscard]] std::optional<int> wholeNumber(const CsvCell& cell, int column, int low, int high,
                                                 const std::string& reason);

  private:
    std::string file_;
    CsvImport& import_;
};

} // namespace vkr
