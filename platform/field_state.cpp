// SPDX-License-Identifier: MIT
#include "platform/field_state.hpp"

namespace vkr {

void FieldState::show(std::string_view text) {
    accept(text);
    mark_ = {};
    standing_.reset();
}

void FieldState::accept(std::string_view text) {
    accepted_ = text;
    held_ = false;
}

void FieldState::lookAt(std::string_view text) {
    if (standsForStored(text))
        mark_ = {};
    else if (!isUnstored())
        standing_ = held_ ? std::nullopt : std::optional(accepted_);
    accept(text);
}

void FieldState::replace(std::string_view text) {
    if (isUnstored()) {
        held_ = false;
        accepted_ = standing_ ? *standing_ : std::string(text);
        mark_ = {};
        standing_.reset();
    }
    held_ = held_ || text == accepted_;
}

void FieldState::putBackRefused(std::string_view text, std::string_view stored,
                                const FieldMark& mark) {
    show(text);
    mark_ = mark;
    if (stored != text) // else what was refused would pass for what is stored
        standing_ = stored;
}

} // namespace vkr
