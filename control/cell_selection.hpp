// SPDX-License-Identifier: MIT
#pragma once

#include "binding/series_grid.hpp"

#include <optional>

namespace vkr {

// A rectangle of cells of one grid that a person has selected. One corner is the cell that has the
// focus and stays, the opposite corner moves. A single cell is no selection.
class CellSelection {
  public:
    using Cell = SeriesGrid::Cell;

    [[nodiscard]] bool isActive() const { return selected_.has_value(); }
    // Null without a selection. end() and span() want one.
    [[nodiscard]] SeriesGrid* grid() const { return selected_ ? selected_->grid : nullptr; }
    // The corner that moves.
    [[nodiscard]] Cell end() const { return selected_.value().end; }

    // Both ends included.
    struct Span {
        int firstColumn, lastColumn;
        int firstRow, lastRow;
    };
    [[nodiscard]] Span span() const; // cut to the rows that the grid has now

    void set(SeriesGrid& grid, Cell anchor, Cell end);
    void setAll(SeriesGrid& grid);
    void clear();

  private:
    struct Selected {
        SeriesGrid* grid;
        Span span; // more than one cell. Some of its rows may have gone by now
        Cell end;
    };
    void set(SeriesGrid& grid, const Span& span, Cell end);
    void setHighlighted(bool highlighted) const;

    std::optional<Selected> selected_; // whose cells are highlighted
};

} // namespace vkr
