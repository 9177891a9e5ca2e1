// SPDX-License-Identifier: MIT
#pragma once

#include "binding/series_grid.hpp"

namespace vkr {

// A rectangle of cells, in one grid, that a person has selected together. The cell that has the
// focus is its one end; the other one moves. Without more than one cell there is no selection.
class CellSelection {
  public:
    using Cell = SeriesGrid::Cell;

    [[nodiscard]] bool isActive() const { return grid_ != nullptr; }
    [[nodiscard]] SeriesGrid* grid() const { return grid_; }
    // The end that moves.
    [[nodiscard]] Cell end() const { return end_; }

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
    void set(SeriesGrid& grid, const Span& span, Cell end);
    void show(bool highlighted) const;

    SeriesGrid* grid_ = nullptr;
    Span span_{};
    Cell end_{};
};

} // namespace vkr
