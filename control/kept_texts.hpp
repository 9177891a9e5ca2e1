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

// What a person has before them and the record has not, while all fields are shown anew: texts that
// are marked, where no grid keeps them, and the one that is being typed. One that is typed into a
// cell goes with its period.
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
    struct Active {
        TextField* field;
        std::string text;
        FieldMark mark;
        int start;
        int length;
        bool typed;
        SeriesGrid* grid; // null for what is no cell
        std::optional<FigurePlace> place;
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
