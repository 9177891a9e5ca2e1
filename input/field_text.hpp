// SPDX-License-Identifier: MIT
#pragma once

#include "platform/text_field.hpp"

#include <string>
#include <string_view>

namespace vkr {

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
