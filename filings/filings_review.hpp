// SPDX-License-Identifier: MIT
#pragma once

#include "filings/company_match.hpp"
#include "filings/filed_figures.hpp"
#include "filings/record_span.hpp"
#include "record/actions.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {

// What an import of filings would do to a record, figure by figure, before it does it.

enum class ReviewState {
    fresh,   // the record has none
    differs, // the record has another one
    same,    // the record has it, be it rounded
};

struct ReviewRow {
    FiledFigure figure;
    std::optional<int> element; // of a series, once the review's spans are made
    std::string period;         // "2025", "2025-12-27"
    double stored = 0;          // 0 where the record has none
    ReviewState state = ReviewState::fresh;
    std::optional<Origin> origin; // of the stored one, where it is known
    bool ticked = false;

    [[nodiscard]] double difference() const; // filed less stored
    // Whether a person has put the stored figure there, or may have: of what is not known to come
    // from a document or from arithmetic it has to be assumed.
    [[nodiscard]] bool isByHand() const;
};

// Where a stored figure comes from; nothing where nobody knows.
using OriginQuery = std::function<std::optional<Origin>(Datum, std::optional<int> element)>;

struct ReviewOptions {
    OriginQuery originOf = {}; // none: nobody knows
    bool addsYears = true;
    bool addsQuarters = true;
};

struct FilingsReview {
    std::string refusal; // why nothing can be imported; the rest is empty then
    std::string entityName;
    std::int64_t cik = 0;
    CompanyMatch match = CompanyMatch::same;
    std::string question; // where match is not `same`: who the document is of, and the record
    std::vector<ReviewRow> rows;
    RecordSpan years;
    RecordSpan quarters;
    std::vector<std::string> notes; // what is added, changed beside the figures, or left out

    [[nodiscard]] int ticked() const;
};

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

// Puts the ticked figures into the record: all of them, or none where it refuses one. One action,
// with the number of each filing as the document of its figures. No value where all are there. A
// value where they are not: the reason or the record's words, which may be empty.
[[nodiscard]] std::optional<std::string> importFilings(const std::shared_ptr<iVKR_Company>& company,
                                                       const FilingsReview& review);
// "Import of 120 Figures".
[[nodiscard]] std::string importName(int figures);

} // namespace vkr
