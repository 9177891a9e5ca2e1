// SPDX-License-Identifier: MIT
// How a block that a web page or a report has handed over becomes rows and columns again.
#include "binding/block_placing.hpp"
#include "binding/block_texts.hpp"

namespace vkr {

// Columns of signs alone go to the figures that they stand beside.
void BlockPlacing::joinSigns() {
    for (std::size_t column = width(); column-- > 0;) {
        bool signs = false;
        bool others = false;
        for (const auto& row : cells_) {
            const bool sign = isCurrencySign(row[column]) || isClosingSign(row[column]);
            signs = signs || sign;
            others = others || (!sign && !row[column].empty());
        }
        if (!signs || others || width() == 1)
            continue;
        for (auto& row : cells_) {
            if (isClosingSign(row[column]) && column > 0 && !row[column - 1].empty())
                row[column - 1] += row[column];
            else if (isCurrencySign(row[column]) && column + 1 < row.size() &&
                     !row[column + 1].empty())
                row[column + 1] = row[column] + row[column + 1];
            row.erase(row.begin() + static_cast<std::ptrdiff_t>(column));
        }
    }
}

} // namespace vkr
