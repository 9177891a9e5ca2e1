// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_csv.hpp"
#include "company/company_record.hpp"
#include "company/figure_origins.hpp"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {

// Whether a person has locked the company against changes.
[[nodiscard]] bool isLocked(const iVKR_Company& company);

// What is stored, and what an import has in its place.
struct ReplacedFigure {
    Datum datum{};
    std::string_view setting = {}; // a name of vkr::setting; then it is that, and no datum
    std::optional<int> element;    // of a series, as the stored company counts
    std::string period;   // "2024", or the end of a quarter, "2025-09-27"; "" of a single datum
    std::string stored;   // with all digits; a date as 2025-09-27
    std::string imported; // "" where it has nothing there
    // Where the import has no row for its period any more: it is not shown then, whatever is kept.
    enum class Leaves { no, tooOld, tooNew } leaves = Leaves::no;

    [[nodiscard]] bool leavesTheTable() const { return leaves != Leaves::no; }
};

// The period of an element of a series: "2024", or the end of a quarter, "2025-09-27".
[[nodiscard]] std::string periodText(const DatumRow& row, const iVKR_Company& company, int element);

// Puts into a record what the import that it is of does not speak of, a key, a column, a table,
// the dates of one or a setting, as it is stored. A sum of the last four quarters that was worked
// out is left out where the import has others.
void keepWhatIsMissing(const CompanyRecord& stored, const FigureOrigins& origins,
                       const CsvImport& import, CompanyRecord& imported);

// What a person has typed, pasted or adjusted for a split, or nobody knows the origin of, and would
// be lost by putting the imported record in the place of the stored one, series first and settings
// last; years and quarters are compared by their periods.
[[nodiscard]] std::vector<ReplacedFigure> typedFigures(const CompanyRecord& stored,
                                                       const FigureOrigins& origins,
                                                       const CompanyRecord& imported);
// Puts them into the imported record, but for what it has no place for.
void keepFigures(const CompanyRecord& stored, std::span<const ReplacedFigure> figures,
                 CompanyRecord& imported);
// What else goes because the imported record has nothing in its place, or no place for it. What
// was worked out is not in it: that follows from the figures that are there.
[[nodiscard]] std::vector<ReplacedFigure> goneFigures(const CompanyRecord& stored,
                                                      const FigureOrigins& origins,
                                                      const CompanyRecord& imported);
// For people: "Yearly Revenue 2024".
[[nodiscard]] std::string titleOf(const ReplacedFigure& figure);
// "too old for the table", of one that leaves it.
[[nodiscard]] std::string whyItLeaves(const ReplacedFigure& figure);
// "Yearly Revenue 2024: 391035, not 391000".
[[nodiscard]] std::string describe(const ReplacedFigure& figure);
// "Yearly Revenue 2015: 233715, too old for the table".
[[nodiscard]] std::string describeGone(const ReplacedFigure& figure);
// How many are gone, and the names of the first ones: a sentence for what the files do not have,
// and one for what is too old for the table.
[[nodiscard]] std::vector<std::string> goneInWords(std::span<const ReplacedFigure> figures);

} // namespace vkr
