// SPDX-License-Identifier: MIT
#pragma once

#include "binding/entry_context.hpp"
#include "quarterly/quarterly_grid.hpp"
#include "yearly/yearly_grid.hpp"

#include <optional>
#include <vector>

namespace vkr {

// What a person has before them and the record has not, while all fields are shown anew: texts that
// are marked, and the one that is being typed. A text of a cell goes with its period.
class KeptTexts {
  public:
    KeptTexts(EntryContext& context, const YearlyGrid& yearly, const QuarterlyGrid& quarterly);
    void putBack() const;

  private:
    struct Kept {
        TextField* field;
        const SeriesGrid* grid; // null for what is no cell
        std::string text;
        FieldMark mark;
    };
    struct Active {
        TextField* field;
        std::string text;
        int start;
        int length;
        bool typed;
    };

    [[nodiscard]] TextField* placeOf(const Kept& kept) const;
    void putBackActive() const;

    EntryContext& context_;
    const YearlyGrid& yearly_;
    const QuarterlyGrid& quarterly_;
    int lastYear_;
    std::optional<Date> lastQuarter_;
    std::vector<Kept> kept_;
    std::optional<Active> active_;
};

} // namespace vkr
