// SPDX-License-Identifier: MIT
#pragma once

#include "binding/series_grid.hpp"

#include <optional>

namespace vkr {

// A rectangle of cells, in one grid, that a person has selected together. The cell that has the
// focus is its one end; the other one moves. Without more than one cell there is no selection.
class CellSelection {
  public:
    using Cell = SeriesGrid::Cell;

    [[nodiscard]] bool isActive() const { return selected_.has_value(); }
    // Null without a selection. What follows is asked only where there is one.
    [[nodiscard]] SeriesGrid* grid() const { return selected_ ? selected_->grid : nullptr; }
    // The end that moves.
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
        Span span; // of more than one cell; its rows may have gone since
        Cell end;
    };
    void set(SeriesGrid& grid, const Span& span, Cell end);
    void show(bool highlighted) const;

    std::optional<Selected> selected_; // whose cells are highlighted
};

} // namespace vkr
