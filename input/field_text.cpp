// SPDX-License-Identifier: MIT
#include "input/field_text.hpp"

namespace vkr {

void RefusedText::putBack() const {
    if (mark_.kind == MarkKind::doubtful && field_.text() == text_)
        field_.setMark(mark_);
    if (mark_.kind == MarkKind::unstored)
        field_.putBackRefused(text_, mark_);
}

} // namespace vkr
