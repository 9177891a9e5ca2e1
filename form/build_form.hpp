// SPDX-License-Identifier: MIT
#pragma once

#include "platform/form.hpp"

namespace vkr {

// Makes the controls on an empty form.
void buildForm(Form& form);

// Gives every field the caption of its label as the name that is read out, and every cell the
// head of its column with the label of its row.
void nameFields(Form& form);
void nameCells(Form& form);

} // namespace vkr
