// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "company/figure_origins.hpp"

#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vkr {

// Whether a person has locked the company against changes.
[[nodiscard]] bool isLocked(const iVKR_Company& company);

// What a person has typed or pasted, or what nobody knows the origin of, and what an import has in
// its place.
struct TypedFigure {
    Datum datum{};
    std::optional<int> element; // of a series, as the stored company counts
    std::string period;   // "2024", or the end of a quarter, "2025-09-27"; "" of a single datum
    std::string stored;   // with all digits; a date as 2025-09-27
    std::string imported; // "" where it has nothing there
    // Too old for the table once the import is in: lost either way.
    bool leavesTheTable = false;
};

// Puts into the imported record what the import does not have at all, a table or the dates of one,
// as it is stored. `files` are those that the data of tables are from.
void keepWhatIsMissing(const CompanyRecord& stored, const std::map<Datum, std::string>& files,
                       CompanyRecord& imported);

// What a person would lose by putting the imported record in the place of the stored one, series
// first; years and quarters are compared by their periods.
[[nodiscard]] std::vector<TypedFigure> typedFigures(const CompanyRecord& stored,
                                                    const FigureOrigins& origins,
                                                    const CompanyRecord& imported);
// Puts them into the imported record, but for what leaves the table.
void keepFigures(const CompanyRecord& stored, std::span<const TypedFigure> figures,
                 CompanyRecord& imported);
// For people: "YRevenueSeries 2024: 391035, not 391000".
[[nodiscard]] std::string describe(const TypedFigure& figure);

} // namespace vkr
