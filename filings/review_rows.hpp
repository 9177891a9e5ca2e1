// SPDX-License-Identifier: MIT
#pragma once

#include "filings/company_match.hpp"
#include "filings/filed_figures.hpp"
#include "filings/record_span.hpp"
#include "record/actions.hpp"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vkr {

// A review of filings, figure by figure.

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
    bool isOnOtherShares = false; // than stored figures are, and doubtful for that

    [[nodiscard]] double difference() const; // filed less stored
    // Whether a person has put the stored figure there, or may have.
    [[nodiscard]] bool isByHand() const;
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
    // Those of the last four quarters as they are stored, newest first, and the element of the
    // newest: Last4QEPS follows from them and what is ticked.
    std::array<double, 4> lastEarnings{};
    int lastQuarter = 0;
    // Where stored figures stand on other shares than the filed ones: which, and what to do first.
    std::string shareBasis;
    std::vector<std::string> notes; // of the document, and of what has no place

    // Whether a figure is ticked that has its place in the record only once the span of such
    // periods is made.
    [[nodiscard]] bool makesSpan(DatumPeriod period) const;
    [[nodiscard]] int ticked() const;
};

} // namespace vkr
