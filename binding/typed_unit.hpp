// SPDX-License-Identifier: MIT
#pragma once

#include "binding/entry_context.hpp"

#include <cstdint>
#include <string>

namespace vkr {

// Of an amount that was typed and is not stored: the unit that it was typed in, where the form
// shows another one by now. Such a text is read again when somebody edits it: 900 million is no 900
// thousand.
//
// What may be true together: there is a reason where there is a unit, which is another one than the
// form shows; only then the text can have been begun in it.
class TypedUnit {
  public:
    // The unit of the form was `before` until now. What the field's mark is to be: it says in which
    // unit the text was typed, until that one is back.
    [[nodiscard]] FieldMark follow(const EntryContext& context, const FieldMark& mark,
                                   std::int32_t before);
    // The same of the field that has the text. One that is being typed is not stored either:
    // whoever looks at the keys goes on in the unit of before.
    void follow(const EntryContext& context, TextField& field, std::int32_t before);
    // The text as it stands is not to be read. Nothing is nothing in every unit.
    [[nodiscard]] bool waits(const TextField& field) const;
    void endEntry() { begun_ = false; } // the field was left

  private:
    std::int32_t unit_ = 0;
    bool begun_ = false; // the text was being typed when the unit changed
    std::string reason_; // without the unit
};

} // namespace vkr
