// SPDX-License-Identifier: MIT
#include "control/cell_selection.hpp"

#include <algorithm>

namespace vkr {

CellSelection::Span CellSelection::span() const {
    const auto& [grid, span, end] = selected_.value();
    const int last = grid->rowCount() - 1;
    return {span.firstColumn, span.lastColumn, std::min(span.firstRow, last),
            std::min(span.lastRow, last)};
}

void CellSelection::setHighlighted(bool highlighted) const {
    const Span cells = span();
    for (int column = cells.firstColumn; column <= cells.lastColumn; ++column)
        for (int row = cells.firstRow; row <= cells.lastRow; ++row)
            grid()->box({column, row}).setHighlighted(highlighted);
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
    const Form::Update update(grid.form());
    clear();
    if (span.firstColumn == span.lastColumn && span.firstRow == span.lastRow)
        return;
    selected_ = {&grid, span, end};
    setHighlighted(true);
}

void CellSelection::clear() {
    if (!isActive())
        return;
    const Form::Update update(grid()->form());
    setHighlighted(false);
    selected_.reset();
}

} // namespace vkr
