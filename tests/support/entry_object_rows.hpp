// SPDX-License-Identifier: MIT
#pragma once

#include "record/enumerations.hpp"
#include "tests/support/entry_scene.hpp"
#include "tests/support/field_steps.hpp"
#include "tests/support/form_fields.hpp"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vkr::test {

// An object of the form as a person meets it.
struct EntryObjectRow {
    int object;
    int helpText;             // string number
    std::string_view extras;  // d: pick a date, q: last quarter's date, y: years, a: assistant
    std::string control = {}; // its field, or what stands for it; empty where the form has none
    std::string label = {};   // names the field or the column
    int tab = 0;              // page of the control; 0: below the pages
    Choice choice = Choice::none;
};

// An object that is a field is found in the list of fields by its number.
inline std::vector<EntryObjectRow> withTheirFields(std::vector<EntryObjectRow> rows) {
    constexpr int cell = 3; // one that is in sight
    for (EntryObjectRow& row : rows)
        for (const FormField& field : formFields)
            if (row.control.empty() && field.object == row.object) {
                row.control = field.id(cell);
                row.tab = field.tab;
                row.choice = field.choice;
            }
    return rows;
}

inline const std::vector<EntryObjectRow> entryObjectRows = withTheirFields({
    {0, 101, "a", "", "lblLabel(0)"},
    {1, 102, "a", "", "lblLabel(1)"},
    {2, 1, "a", "", "lblLabel(2)"},
    {3, 1, "a", "", "lblLabel(3)"},
    {4, 577, "a", "", "lblUnit(10)"},
    {5, 1, "a", "", "lblLabel(4)"},
    {6, 103, "da", "", "lblLabel(5)"},
    {7, 104, "a", ""}, // its caption is out of sight
    {8, 105, "a", "", "lblLabel(7)"},
    {9, 106, "a", "", "lblLabel(8)"},
    {10, 107, "a", "", "lblLabel(9)"},
    {11, 108, "da", "", "lblLabel(10)"},
    {12, 578, "a", "", "lblLabel(22)"},
    {13, 110, "a", "", "lblLabel(15)"},
    {14, 111, "a", "", "lblUnit(0)"},
    {15, 112, "a", "", "lblLabel(18)"},
    {16, 113, "a", "", "lblLabel(11)"},
    {17, 114, "a", "", "lblUnit(1)"},
    {18, 115, "a", "", "lblUnit(2)"},
    {19, 116, "a", "", "lblUnit(3)"},
    {20, 117, "ya", "", "lblLabel(20)"},
    {21, 118, "dqa", "", "lblLabel(21)"},
    {22, 119, "ya", "", "lblUnit(4)"},
    {23, 120, "ya", "", "lblYOption"},
    {24, 121, "ya", "", "lblYOption"},
    {25, 122, "ya", "", "lblUnit(5)"},
    {26, 123, "ya", "", "lblYOption2"},
    {27, 124, "ya", "", "lblYOption2"},
    {28, 125, "ya", "", "lblLabel(23)"},
    {29, 126, "ya", "", "lblLabel(24)"},
    {30, 127, "ya", "", "lblLabel(26)"},
    {31, 128, "ya", "", "lblLabel(27)"},
    {32, 129, "ya", "", "lblUnit(6)"},
    {33, 130, "a", "", "lblLabel(30)"},
    {34, 131, "a", "", "lblUnit(7)"},
    {35, 132, "a", "", "lblLabel(33)"},
    {36, 133, "a", "", "lblQOption"},
    {37, 134, "a", "", "lblQOption"},
    {38, 135, "a", "", "lblUnit(8)"},
    {39, 136, "a", "", "lblLabel(40)"},
    {40, 137, "a", ""},
    {41, 138, "a", "", "lblLabel(41)"},
    {42, 139, "a", "", "lblLabel(42)"},
    {43, 140, "a", "", "lblLabel(43)"},
    {44, 141, "a", "", "lblLabel(44)"},
    {45, 142, "a", "", "lblLabel(45)"},
    {46, 143, "a", "", "lblLabel(46)"},
    {47, 144, "a", "", "lblLabel(47)"},
    {48, 145, "a", "", "lblLabel(51)"},
    {49, 146, "a", "", "lblLabel(52)"},
    {50, 1, "a", "", "lblLabel(53)"},
    {51, 147, "a", "", "lblLabel(49)"},
    {52, 148, "a", "", "lblUnit(9)"},
    {53, 149, "a", "", "lblLabel(13)"},
    {54, 150, "a", "", "lblLabel(48)"},
    {55, 151, "", "optCurrency(1)", "fraDE(5)", 5},
    {56, 152, "", "optPTI(0)", "fraDE(7)", 5},
    {57, 153, "", "optCommEq(0)", "fraDE(8)", 5},
    {58, 155, "", "chkLockInfo"},
    {59, 154, "", "optDisplay(0)", "fraDE(6)", 5},
    {60, 156, "y", "lblYear(3)", "", 2},
    {61, 157, "", "lblQLabel(3)", "lblLabel(32)", 3},
    {62, 1, ""}, // only other editions of the form have these two
    {63, 1, ""},
    {64, 158, "", "tbsDataEntry", "fraDE(10)", 1},
    {65, 159, "", "tbsDataEntry", "fraDE(11)", 2},
    {66, 160, "", "tbsDataEntry", "fraDE(12)", 3},
    {67, 161, "", "tbsDataEntry", "fraDE(13)", 4},
    {68, 162, "", "tbsDataEntry", "fraDE(14)", 5},
    {69, 163, "da", "", "lblLabel(12)"},
});

inline bool isTab(const EntryObjectRow& row) {
    return row.object >= doTabCompany && row.object <= doTabOptions;
}

// An entry of a menu as it should be: its caption, command and whether it can be chosen.
struct ExpectedEntry {
    std::string caption;
    int command;
    bool enabled = true;
};

// Entries below those of the text.
inline std::vector<ExpectedEntry> expectedExtras(std::string_view extras, bool changeable) {
    std::vector<ExpectedEntry> entries;
    for (const char extra : extras) {
        if (extra == 'd') {
            entries.push_back({"Pick a Date...", 12, changeable});
            entries.push_back({"-", 7});
        } else if (extra == 'q') {
            entries.push_back({"Use Date of Last Quarter", 10, changeable});
            entries.push_back({"-", 7});
        } else if (extra == 'y') {
            entries.push_back({"Add New Year", 8});
            entries.push_back({"Remove Year", 9});
            entries.push_back({"-", 7});
        } else if (extra == 'a') {
            entries.push_back({"Ask the Assistant...", 11});
        }
    }
    entries.push_back({"What's This?", 0});
    return entries;
}

// Of a text box that was just entered, so that its whole text is selected.
inline std::vector<ExpectedEntry> expectedTextMenu(std::string_view extras, bool hasText,
                                                   bool changeable, bool canUndo, bool canPaste) {
    std::vector<ExpectedEntry> entries = {{"Undo", 1, changeable && canUndo},
                                          {"-", 7},
                                          {"Cut", 2, changeable && hasText},
                                          {"Copy", 3, hasText},
                                          {"Paste", 4, changeable && canPaste},
                                          {"Clear", 5, changeable && hasText},
                                          {"-", 7},
                                          {"Select All", 6, hasText},
                                          {"-", 7}};
    for (auto& entry : expectedExtras(extras, changeable))
        entries.push_back(std::move(entry));
    return entries;
}

// "Undo=1 off | - =7 | ...": menus are compared as one line.
inline std::string described(const std::vector<ExpectedEntry>& entries) {
    std::string line;
    for (const auto& entry : entries)
        line += entry.caption + "=" + std::to_string(entry.command) +
                (entry.enabled ? " | " : " off | ");
    return line;
}
inline std::string described(const VirtualDesktop::Menu& menu) {
    std::string line;
    for (const auto& entry : menu.entries)
        line += entry.caption + "=" + entry.tag + (entry.enabled ? " | " : " off | ");
    return line;
}

} // namespace vkr::test
