// SPDX-License-Identifier: MIT
#include "platform/native_edits.hpp"

#include "platform/control.hpp"
#include "platform/text.hpp"

namespace vkr {

TextField::Edit offeredEdit(const TextField& field, std::string_view edited,
                            std::string_view untilCaret, bool isUndo) {
    const auto* box = dynamic_cast<const TextBox*>(&field);
    const auto lines = box != nullptr && box->multiLine() ? FieldLines::several : FieldLines::one;
    const std::string clean = cleanedText(edited, lines);
    const int caret = textLength(cleanedText(untilCaret, lines));
    return isUndo ? TextField::Edit{clean, caret} : field.taken(clean, caret);
}

std::optional<std::string_view> putBetween(std::string_view front, std::string_view back,
                                           std::string_view edited) {
    if (edited.size() <= front.size() + back.size() || !edited.starts_with(front) ||
        !edited.ends_with(back))
        return std::nullopt;
    edited.remove_prefix(front.size());
    edited.remove_suffix(back.size());
    return edited;
}

} // namespace vkr
