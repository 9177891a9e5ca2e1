// SPDX-License-Identifier: MIT
#pragma once

#include "filings/concepts.hpp"
#include "filings/filed_splits.hpp"
#include "filings/filings_document.hpp"
#include "filings/fiscal_calendar.hpp"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vkr {

// Something to know about a figure. One that is doubtful is not taken unasked.
struct FigureNote {
    std::string text;
    bool doubt = false;

    friend bool operator==(const FigureNote&, const FigureNote&) = default;
};

// Where a figure was read. For one that is made of several: the latest of their filings.
struct FigureSource {
    std::string concepts; // "us-gaap:NetIncomeLoss"; several with " / ", " - " or " + "
    std::string form;
    Date filed;
    std::string accession;
};

// A value that an earlier filing, or another one, gives for the same period.
struct OtherValue {
    double value = 0; // as the figure: on today's share basis
    FigureSource source;
    std::string remark; // why it was not taken
};

// A value in dollars, shares or dollars per share, on today's share basis.
struct FiledAmount {
    double value = 0;
    double basis = 1;     // today's shares for one on the day of its filing
    bool divided = false; // by a split or by another amount, so that it may have many digits
    std::optional<double> asFiled; // where it was read rather than worked out
    FigureSource source;
    std::vector<FigureNote> notes;
    std::vector<OtherValue> others;
};

// The facts of a document, and which of several values for one thing counts.
//
// The latest filed one does. Two values on one day: the higher number of the filing. A later one
// that is only coarser is no correction; then the finer one counts. Of several concepts for an item
// the first one in their table counts that has the period at all.
class FactBook {
  public:
    // The document has to outlive it.
    explicit FactBook(const FilingsDocument& document);

    [[nodiscard]] const std::vector<FiledSplit>& splits() const { return splits_; }

    // Over a period that ends on `end`, begins near `start`, and is as long as the window says.
    [[nodiscard]] std::optional<FiledAmount> over(FiledItem item, Date start, Date end,
                                                  DayWindow window) const;
    // At a date.
    [[nodiscard]] std::optional<FiledAmount> at(FiledItem item, Date date) const;
    // The newest date from `from` to `to` that has a value.
    [[nodiscard]] std::optional<Date> newestDate(FiledItem item, Date from, Date to) const;

  private:
    struct Entry {
        const FiledFact* fact;
        double value; // on today's share basis
        double basis;
    };
    template <typename Wanted>
    [[nodiscard]] std::optional<FiledAmount> find(FiledItem item, Wanted wanted) const;
    template <typename Wanted>
    [[nodiscard]] std::vector<Entry> entries(const ConceptRow& row, Wanted wanted) const;
    [[nodiscard]] static bool sameRounded(const ConceptRow& row, const Entry& left,
                                          const Entry& right);
    [[nodiscard]] static FiledAmount choose(const ConceptRow& row, std::vector<Entry> entries);

    const FilingsDocument& document_;
    std::vector<FiledSplit> splits_;
};

} // namespace vkr
