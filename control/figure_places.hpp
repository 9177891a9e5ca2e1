// SPDX-License-Identifier: MIT
#pragma once

#include "binding/entry_context.hpp"
#include "quarterly/quarterly_grid.hpp"
#include "record/figure_place.hpp"
#include "yearly/yearly_grid.hpp"

namespace vkr {

// Where the figures of the record stand on the form.
class FigurePlaces {
  public:
    FigurePlaces(EntryContext& context, YearlyGrid& yearly, QuarterlyGrid& quarterly)
        : context_(context), yearly_(yearly), quarterly_(quarterly) {}

    // The field that shows a figure or date, or the one that takes turns with it; null where none
    // does at the moment.
    [[nodiscard]] TextField* fieldOf(const FigurePlace& place) const;

    // Shows remarks on figures, and where they come from. Fields without one lose theirs.
    void setRemarks(FigureNotes<std::string>::Places remarks);
    void setOrigins(FigureNotes<FieldOrigin>::Places origins);

  private:
    template <typename Note, typename Show>
    void set(FigureNotes<Note>& notes, typename FigureNotes<Note>::Places places, Show show);

    EntryContext& context_;
    YearlyGrid& yearly_;
    QuarterlyGrid& quarterly_;
};

} // namespace vkr
