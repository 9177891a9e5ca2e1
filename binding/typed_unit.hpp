// SPDX-License-Identifier: MIT
#pragma once

#include "binding/entry_context.hpp"

#include <cstdint>
#include <string>

namespace vkr {

// Of an amount that was typed and is not stored: the unit that it was typed in, where the form
// shows another one by now. Such a text is read again when somebody edits it: 900 million is no 900
// thousand.
class TypedUnit {
  public:
    // The unit of the form was `before` until now. What the field's mark is to be: it says in which
    // unit the text was typed, until that one is back.
    [[nodiscard]] FieldMark follow(const EntryContext& context, const FieldMark& mark,
                                   std::int32_t before);
    // The text as it stands is not to be read.
    [[nodiscard]] bool isOther() const { return unit_ != 0; }

  private:
    std::int32_t unit_ = 0;
    std::string reason_; // without the unit
};

} // namespace vkr
