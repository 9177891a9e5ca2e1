// SPDX-License-Identifier: MIT
#pragma once

#include "platform/control.hpp"
#include "platform/number_marks.hpp"

#include <functional>

namespace vkr {

// What fields and cells need of the component around them.
class FieldHost {
  public:
    virtual ~FieldHost() = default;
    virtual void hideHelpFrame() = 0;
    virtual void markChanged() = 0;
};

// The change check of a field that is left: closes the help frame; a text other than the tag (the
// last accepted text) becomes the tag and marks the company changed. Answers whether it did. A
// refused text that has given way to the stored one again takes its mark along.
bool checkFieldChange(TextField& field, FieldHost& host);

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

// A price field after the switch between decimals and eighths. A price that nobody touched is shown
// anew from the record, as eighths are its rounded picture: `showStored` does so and answers false
// where no price can be read. What is being typed is rewritten, unless it would lose digits in the
// other form; a text that was refused stays as it was typed.
void followPriceDisplay(bool toDecimal, TextField& field, const std::function<bool()>& showStored);

// The same of any figure after the form got other marks: what is being typed or was refused gets
// them too, and means what it did.
void followNumberMarks(const NumberMarks& before, TextField& field,
                       const std::function<bool()>& showStored);

} // namespace vkr
