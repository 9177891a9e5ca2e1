// SPDX-License-Identifier: MIT
#pragma once

#include "company/figure_origins.hpp"
#include "filings/review_rows.hpp"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vkr {

// What an import of filings would do to a record, figure by figure, before it does it, and the
// import.

struct ReviewOptions {
    OriginQuery originOf = {}; // none: nobody knows
    std::int64_t cik = 0;      // of the filings that the company was imported from before; 0: none
    Adding years = Adding::whereNothingTypedLeaves;
    Adding quarters = Adding::whereNothingTypedLeaves;
};

// The number of the company whose filings dates or name are from; 0 where they are from none.
[[nodiscard]] std::int64_t importedCik(const FigureOrigins& origins);

// Ticked at first are figures that the record has not, and those that differ and are known to come
// from a document or from arithmetic; none that is doubtful. Passes on what the record throws.
[[nodiscard]] FilingsReview reviewFilings(const FiledCompany& filed, const iVKR_Company& company,
                                          const ReviewOptions& options = {});
// From the file at once. A file that is no such document is a refusal.
[[nodiscard]] FilingsReview reviewFilingsFile(const std::filesystem::path& file,
                                              const iVKR_Company& company,
                                              const ReviewOptions& options = {});

// Which rows are looked at.
enum class ReviewFilter { all, fresh, differs, same, byHand, doubtful };
[[nodiscard]] bool passes(const ReviewRow& row, ReviewFilter filter);

enum class ReviewTicks {
    preset, // as they are at first
    fresh,  // what the record has not
    all,    // what is not the same, doubtful and typed figures too
    none,
};
void tick(FilingsReview& review, ReviewTicks ticks);
// After rows were ticked one by one: brings what follows from them up to date. The trailing
// earnings become the sum of the quarters as they will be, and lose their tick where they stay as
// they are; where they begin to change they get one, unless they may be typed.
void followTicks(FilingsReview& review);

// For people: what importing the ticked figures adds and changes beside them, and what is left out.
// Years and quarters are added, and their dates changed, only where a figure of such is ticked.
[[nodiscard]] std::vector<std::string> notesOf(const FilingsReview& review);

// Puts the ticked figures into the record: all of them, or none where it refuses one. One action,
// with the number of each filing as the document of its figures. No value where all are there. A
// value where they are not: the reason or the record's words, which may be empty.
[[nodiscard]] std::optional<std::string> importFilings(const std::shared_ptr<iVKR_Company>& company,
                                                       const FilingsReview& review);
// "Import of 120 Figures".
[[nodiscard]] std::string importName(int figures);

} // namespace vkr
