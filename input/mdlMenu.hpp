// SPDX-License-Identifier: MIT
#pragma once

#include "platform/form.hpp"
#include "platform/services.hpp"

#include <functional>
#include <optional>
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
    // Of several cells that are selected together.
    mcCopyCells = 13,
    mcCopyCellsWithHeadings = 14,
    mcDeleteFigures = 15,
    mcFillDown = 16,
    mcTakePrevious = 17,
};
[[nodiscard]] constexpr bool isOfCells(int command) {
    return command >= mcCopyCells && command <= mcTakePrevious;
}

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

// Several cells that the menu is opened on, as their entries depend on them.
struct MenuCells {
    bool changeable; // not locked
    bool quarters;   // else years
};

// Builds the entries of the control array mnuItem anew: those of a text box, null for any other
// object, then those of the cells that are selected together with it, then the extras, then help.
// `changeable` is the field that the extras would change, null where there is none; a locked one
// has its entries disabled.
void BuildMenu(Form& form, Services& services, const MenuTexts& texts, unsigned extras,
               const TextBox* field, const TextField* changeable,
               const std::optional<MenuCells>& cells = std::nullopt);

// Whether a key opens the menu: the Menu key, and Shift+F10.
[[nodiscard]] bool opensMenu(KeyCode key, int shift);

// The entries in order.
[[nodiscard]] std::vector<MenuItem*> menuEntries(const Form& form);
[[nodiscard]] MenuCommand commandOf(const MenuItem& entry);

} // namespace vkr
