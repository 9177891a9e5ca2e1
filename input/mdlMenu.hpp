// SPDX-License-Identifier: MIT
#pragma once

#include "platform/form.hpp"
#include "platform/services.hpp"

#include <functional>
#include <string>
#include <vector>

namespace vkr {

// What the entries of the right-click menu stand for; an entry carries the number in its tag.
enum MenuCommand : int {
    mcHelp = 0,
    mcUndo = 1,
    mcCut = 2,
    mcCopy = 3,
    mcPaste = 4,
    mcClear = 5,
    mcSelectAll = 6,
    mcSeparator = 7,
    mcAddYear = 8,
    mcRemoveYear = 9,
    mcLastQuarterDate = 10,
    mcAssistant = 11,
    mcPickDate = 12,
};

// Entries that an object has besides those of its text; to be added up.
enum MenuExtras : unsigned {
    meNone = 0,
    meDate = 1,            // pick a date
    meYears = 2,           // add and remove a year
    meLastQuarterDate = 4, // take over the date of the last quarter
    meAssistant = 8,       // ask the host's assistant
};

// Text of a string number.
using MenuTexts = std::function<std::string(int number)>;

// Builds the entries of the control array mnuItem anew: those of a text box, null for any other
// object, then the extras, then help. `changeable` is the field that the extras would change, null
// where there is none; a locked one has its entries disabled.
void BuildMenu(Form& form, Services& services, const MenuTexts& texts, unsigned extras,
               const TextBox* field, const TextField* changeable);

// The entries in order.
[[nodiscard]] std::vector<MenuItem*> menuEntries(const Form& form);
[[nodiscard]] MenuCommand commandOf(const MenuItem& entry);

} // namespace vkr
