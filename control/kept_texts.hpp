// SPDX-License-Identifier: MIT
#pragma once

#include "binding/company_loader.hpp"
#include "binding/entry_context.hpp"
#include "quarterly/quarterly_grid.hpp"
#include "yearly/yearly_grid.hpp"

#include <optional>
#include <string>
#include <vector>

namespace vkr {

// Showing all fields anew would wipe out texts that are on the form and not in the record. This
// keeps them meanwhile: the marked ones of single fields, and the one that is being typed. The
// grids keep those of their cells. A text that is being typed into a cell moves with the cell's
// period.
class KeptTexts {
  public:
    KeptTexts(EntryContext& context, SeriesGrid& yearly, SeriesGrid& quarterly);
    void putBack(const PeriodsMoved& moved);

  private:
    struct Kept {
        TextField* field;
        std::string text;
        FieldMark mark;
    };
    struct ActiveCell {
        SeriesGrid* grid;
        SeriesGrid::Cell at;
        FigurePlace place; // that it shows
    };
    struct Active {
        TextField* field;
        std::string text;
        FieldMark mark;
        int start;
        int length;
        bool typed;
        std::optional<ActiveCell> cell;
    };

    void takeActive();
    [[nodiscard]] bool staysTyped(const PeriodsMoved& moved);
    void putBackActive(const PeriodsMoved& moved);

    EntryContext& context_;
    SeriesGrid& yearly_;
    SeriesGrid& quarterly_;
    std::vector<Kept> kept_;
    std::optional<Active> active_;
};

} // namespace vkr
