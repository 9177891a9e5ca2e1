// SPDX-License-Identifier: MIT
#include "control/cell_selection.hpp"

#include <algorithm>

namespace vkr {

CellSelection::Span CellSelection::span() const {
    const int last = grid_->rowCount() - 1;
    return {span_.firstColumn, span_.lastColumn, std::min(span_.firstRow, last),
            std::min(span_.lastRow, last)};
}

void CellSelection::show(bool highlighted) const {
    const Span cells = span();
    for (int column = cells.firstColumn; column <= cells.lastColumn; ++column)
        for (int row = cells.firstRow; row <= cells.lastRow; ++row)
            grid_->box({column, row}).setHighlighted(highlighted);
}

void CellSelection::set(SeriesGrid& grid, Cell anchor, Cell end) {
    const auto [left, right] = std::minmax(anchor.column, end.column);
    const auto [top, bottom] = std::minmax(anchor.row, end.row);
    set(grid, Span{left, right, top, bottom}, end);
}

void CellSelection::setAll(SeriesGrid& grid) {
    const Cell last{grid.reachableColumns() - 1, grid.rowCount() - 1};
    set(grid, Span{0, last.column, 0, last.row}, last);
}

void CellSelection::set(SeriesGrid& grid, const Span& span, Cell end) {
    const Form::Update update(grid.box({0, 0}).form());
    clear();
    if (span.firstColumn == span.lastColumn && span.firstRow == span.lastRow)
        return;
    grid_ = &grid;
    span_ = span;
    end_ = end;
    show(true);
}

void CellSelection::clear() {
    if (grid_ == nullptr)
        return;
    const Form::Update update(grid_->box({0, 0}).form());
    show(false);
    grid_ = nullptr;
}

} // namespace vkr
