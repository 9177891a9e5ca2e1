// SPDX-License-Identifier: MIT
#pragma once

#include "filings/filed_figures.hpp"

#include <map>
#include <string>
#include <vector>

namespace vkr {

// A document made up fact by fact.
class MadeDocument {
  public:
    struct Filing {
        std::string form = "10-K";
        std::string filed = "2024-02-20";
        std::string accession = "0000000001-24-000001";
    };

    std::string entityName = "Made Up Inc.";

    // Without a start it is a value at a date. `value` is JSON.
    MadeDocument& fact(const std::string& concepts, const std::string& unit,
                       const std::string& start, const std::string& end, const std::string& value,
                       const Filing& filing);
    // Dollars of net income over a period, the item that most rules are told by.
    MadeDocument& income(const std::string& start, const std::string& end, const std::string& value,
                         const Filing& filing);

    [[nodiscard]] std::string json() const;
    [[nodiscard]] FiledCompany company() const;

  private:
    // By taxonomy, concept and unit.
    std::map<std::string, std::map<std::string, std::map<std::string, std::vector<std::string>>>>
        facts_;
};

// Null where there is none.
[[nodiscard]] const FiledFigure* figureOf(const FiledCompany& company, Datum datum,
                                          const std::string& end);
[[nodiscard]] bool hasNote(const FiledFigure& figure, const std::string& part);

} // namespace vkr
