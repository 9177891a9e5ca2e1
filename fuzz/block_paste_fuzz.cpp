// SPDX-License-Identifier: MIT
// Whatever is on the clipboard, its cells are the same when they are copied again, and each figure
// has a place of its own in the grid, where the grid takes it.
#include "binding/block_placing.hpp"
#include "fuzz/fuzz_input.hpp"

#include <cmath>
#include <set>
#include <utility>

using namespace vkr;

namespace {

BlockGrid gridOf(FuzzInput& input) {
    BlockGrid grid;
    using enum BlockGrid::Measure;
    grid.columns = {{.name = "Revenue", .measure = money},
                    {.name = "Tax Rate", .measure = percent, .negatives = true},
                    {.name = "EPS", .otherNames = {"Earnings per share"}, .negatives = true},
                    {.name = "High", .measure = price}};
    grid.quarterly = input.below(2) == 1;
    for (int row = 0; row < 11; ++row)
        if (grid.quarterly)
            grid.rows.push_back({.date = addQuarters(*makeDate(2026, 9, 30), -row)});
        else
            grid.rows.push_back({.year = 2016 + row, .date = *makeDate(2016 + row, 9, 30)});
    grid.column = input.below(4);
    grid.row = input.below(11);
    grid.unit = 3 * (1 + input.below(3));
    grid.unitNames = {{"(K)", 3}, {"(M)", 6}, {"(B)", 9}};
    grid.today = *makeDate(2026, 11, 21);
    for (std::size_t column = 0; column < grid.columns.size(); ++column)
        grid.held.emplace_back(grid.rows.size(), BlockGrid::Held{static_cast<double>(column)});
    return grid;
}

void expectPlaced(const BlockPlacing& placing) {
    std::set<std::pair<int, int>> places;
    int taken = 0;
    for (const PlacedCell& cell : placing.cells()) {
        require(cell.figure.has_value() != (cell.fate == PasteFate::leftOut),
                "no fate of: ", cell.text);
        if (!cell.figure)
            continue;
        ++taken;
        require(std::isfinite(*cell.figure), "not finite: ", cell.text);
        const auto& grid = placing.grid();
        const bool isInside = cell.column >= 0 && cell.row >= 0 &&
                              cell.column < static_cast<int>(grid.columns.size()) &&
                              cell.row < static_cast<int>(grid.rows.size());
        require(isInside, "outside: ", cell.text);
        require(places.emplace(cell.column, cell.row).second, "twice at one place: ", cell.text);
        require(*cell.figure >= 0 || grid.columns[static_cast<std::size_t>(cell.column)].negatives,
                "a minus: ", cell.text);
    }
    require(taken == placing.taken(), "counted: ", taken);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    BlockGrid grid = gridOf(input);
    const int turned = input.take<std::uint8_t>();
    const char decimal = input.below(2) == 0 ? '.' : ',';
    const CellTexts cells = cellsOf(input.rest());
    for (const auto& row : cells)
        if (row.size() != cells.front().size())
            std::abort();
    if (cellsOf(clipboardText(cells)) != cells)
        std::abort();
    if (cells.size() * (cells.empty() ? 0 : cells.front().size()) > 4000)
        return 0;
    BlockPlacing placing(cells, std::move(grid));
    expectPlaced(placing);
    placing.setSwitches({.byPeriods = (turned & 1) != 0,
                         .byNames = (turned & 2) != 0,
                         .turned = (turned & 4) != 0,
                         .reversed = (turned & 8) != 0,
                         .emptyCells = (turned & 16) != 0,
                         .unit = 3 * (turned >> 5 & 3),
                         .decimal = decimal});
    expectPlaced(placing);
    return 0;
}
