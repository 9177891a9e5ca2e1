// SPDX-License-Identifier: MIT
// How keys lead from cell to cell of a grid.
#include "binding/series_grid.hpp"
#include "input/mdlKMTMisc.hpp"
#include "platform/key_codes.hpp"

#include <algorithm>
#include <iterator>

namespace vkr {

void SeriesGrid::enter(Cell cell) {
    SelectAllText(box(cell));
}

bool SeriesGrid::keyPress(Cell cell, char32_t& character) {
    return FilterNumericKey(character, box(cell), {.allowNegative = columnOf(cell).negatives});
}

std::vector<TextBox*> SeriesGrid::focusable(int column) const {
    std::vector<TextBox*> result;
    std::ranges::copy_if(cells(column), std::back_inserter(result),
                         [](TextBox* cell) { return cell->canTakeFocus(); });
    return result;
}

void SeriesGrid::keyDown(Cell cell, KeyCode& key, int shift) {
    if ((shift & shifts::alt) != 0)
        return;
    if ((shift & shifts::control) != 0) {
        const bool navigates = key >= keys::end && key <= keys::down;
        if (navigates) {
            moveWithControl(cell, key);
            key = keys::none;
        }
        return;
    }
    const bool vertical = key == keys::up || key == keys::down;
    if (vertical || key == keys::enter)
        moveWithinColumns(cell, key,
                          key == keys::up || (key == keys::enter && (shift & shifts::shift) != 0));
}

// The cell of the same row in the nearest column, going by `step` and coming round at the ends, in
// which it can take the focus.
TextBox* SeriesGrid::cellBeside(Cell cell, int step) const {
    const int count = reachableColumns();
    for (int tried = 1; tried <= count; ++tried) {
        const int column = ((cell.column + step * tried) % count + count) % count;
        TextBox& beside = box({column, cell.row});
        if (beside.canTakeFocus())
            return &beside;
    }
    return nullptr;
}

// Ctrl keeps the row from column to column. Beyond the first and the last column it comes round,
// and so it does above the first cell of the grid and below the last one.
void SeriesGrid::moveWithControl(Cell cell, KeyCode key) {
    const int last = reachableColumns() - 1;
    const auto within = focusable(cell.column);
    const TextBox* self = &box(cell);
    const int place = static_cast<int>(std::ranges::find(within, self) - within.begin());
    const auto ofFirst = focusable(0);
    const auto ofLast = focusable(last);
    if (key == keys::up && cell.column == 0 && place == 0 && !ofLast.empty()) {
        ofLast.back()->setFocus();
        return;
    }
    TextBox* right = cellBeside(cell, 1);
    if (key == keys::down && cell.column == last && !ofFirst.empty())
        right = ofFirst.front();
    MoveInGrid(key, within, place, right, cellBeside(cell, -1), cellBeside({-1, cell.row}, 1),
               cellBeside({last + 1, cell.row}, -1));
    if (key == keys::right)
        movedRight(cell);
}

void SeriesGrid::moveWithinColumns(Cell cell, KeyCode& key, bool upward) {
    const auto within = focusable(cell.column);
    const TextBox* self = &box(cell);
    const int place = static_cast<int>(std::ranges::find(within, self) - within.begin());
    const bool atEnd = upward ? place <= 0 : place + 1 >= static_cast<int>(within.size());
    KeyCode enter = keys::enter;
    key = keys::none; // moved here: the key press would move once more
    lastVerticalDirection_ = upward ? 1 : 0;
    if (!atEnd) {
        MoveInColumn(place, lastVerticalDirection_, enter, within);
        return;
    }
    const int target = cell.column + (upward ? -1 : 1);
    const auto neighbours =
        target < 0 || target >= reachableColumns() ? std::vector<TextBox*>() : focusable(target);
    if (!neighbours.empty()) {
        (upward ? neighbours.back() : neighbours.front())->setFocus();
        return;
    }
    const EntryContext::UpdateScope updating(context_);
    settleCell(); // the end of the grid: stored all the same, as everywhere else
    selectCell();
}

} // namespace vkr
