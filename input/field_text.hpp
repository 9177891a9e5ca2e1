// SPDX-License-Identifier: MIT
#pragma once

#include "platform/text_field.hpp"

#include <string>
#include <string_view>

namespace vkr {

// Whether the field still shows what the program put there and stored: such a text stands for the
// stored figure, not for its rounded picture.
[[nodiscard]] bool isUntouched(const TextField& field);

// Puts a text into field and tag, and takes a mark off.
void putFieldText(TextField& field, std::string_view text);

// Lets the text on show count as typed, though the program shows the stored datum like that too.
void holdAsTyped(TextField& field);

// Another text takes the place of one that was refused: the mark goes, and leaving the field tries
// to store it unless it is what is stored.
void replaceRefused(TextField& field);

// A text that was refused, or is in doubt, while what is stored is shown anew in its field.
class RefusedText {
  public:
    explicit RefusedText(TextField& field)
        : field_(field), text_(field.text()), mark_(field.mark()) {}
    void rewrite(std::string_view text) { text_ = text; } // as it is put back
    // What the field shows now is what stands for the stored datum from here on.
    void putBack() const;

  private:
    TextField& field_;
    std::string text_;
    FieldMark mark_;
};

} // namespace vkr
