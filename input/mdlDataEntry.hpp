// SPDX-License-Identifier: MIT
#pragma once

#include "input/field_text.hpp"
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
// last accepted text) becomes the tag and marks the company changed. Answers whether it did.
// Where a refused text was typed back to the stored one, the mark goes.
bool checkFieldChange(TextField& field, FieldHost& host);

// A price field after the switch between decimals and eighths. A price that nobody touched is shown
// anew from the record, as eighths are its rounded picture: `showStored` does so and answers false
// where no price can be read. What is being typed is rewritten, unless it would lose digits in the
// other form; a text that was refused stays as it was typed.
void followPriceDisplay(bool toDecimal, TextField& field, const std::function<bool()>& showStored);

// The same of any figure after the form got other marks: what is being typed or was refused gets
// them too, and means what it did. Throws nothing: what could not be rewritten is marked as not
// stored.
void followNumberMarks(const NumberMarks& before, TextField& field,
                       const std::function<bool()>& showStored);

} // namespace vkr
