// SPDX-License-Identifier: MIT
#include "platform/paste_list.hpp"

#include "platform/readable_color.hpp"

namespace vkr::paste_list {

const std::string& textIn(const PasteLine& line, int column) {
    const std::string* const texts[columns] = {&line.period, &line.column, &line.text,
                                               &line.before, &line.after,  &line.remark};
    return *texts[column];
}

bool isFigure(int column) {
    return column == text || column == before || column == after;
}

Color inkOf(PasteFate fate, int column, Color ink, Color back) {
    if (fate == PasteFate::leftOut)
        return readable(column == remark ? mark_colors::unstored : between(ink, back, 0.35), back);
    return fate == PasteFate::doubtful && column == remark ? readable(mark_colors::doubtful, back)
                                                           : ink;
}

} // namespace vkr::paste_list
