// SPDX-License-Identifier: MIT
#pragma once

#include "record/enumerations.hpp"
#include "tests/support/entry_scene.hpp"
#include "tests/support/field_steps.hpp"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vkr::test {

// What is chosen on the Options tab before an object can be seen.
enum class Choice { none, taxRate, bookValue };

// An object of the form as a person meets it.
struct EntryObjectRow {
    int object;
    int helpText;            // string number
    std::string_view extras; // d: pick a date, q: last quarter's date, y: years, a: assistant
    const char* control;     // its field, or what stands for it; empty where the form has none
    const char* label = "";  // names the field or the column
    int tab = 0;             // page of the control; 0: below the pages
    Choice choice = Choice::none;
};

inline constexpr EntryObjectRow entryObjectRows[] = {
    {0, 101, "a", "txtName", "lblLabel(0)", 1},
    {1, 102, "a", "txtSymbol", "lblLabel(1)", 1},
    {2, 1, "a", "cmbExchange", "lblLabel(2)", 1},
    {3, 1, "a", "cmbIndustry", "lblLabel(3)", 1},
    {4, 577, "a", "txtTotalCap", "lblUnit(10)", 1},
    {5, 1, "a", "cmbSource", "lblLabel(4)", 1},
    {6, 103, "da", "txtLastUpdate", "lblLabel(5)", 1},
    {7, 104, "a", ""}, // its caption is out of sight
    {8, 105, "a", "txtCurrentPrice", "lblLabel(7)", 1},
    {9, 106, "a", "txt52WHigh", "lblLabel(8)", 1},
    {10, 107, "a", "txt52WLow", "lblLabel(9)", 1},
    {11, 108, "da", "txtPriceUpdate", "lblLabel(10)", 1},
    {12, 578, "a", "txtLast4QEPS", "lblLabel(22)", 2},
    {13, 110, "a", "txtEPSProj", "lblLabel(15)", 1},
    {14, 111, "a", "txtTotalDebt", "lblUnit(0)", 1},
    {15, 112, "a", "txtInsiderHolding", "lblLabel(18)", 1},
    {16, 113, "a", "txtInstitutional", "lblLabel(11)", 1},
    {17, 114, "a", "txtPreferredShares", "lblUnit(1)", 1},
    {18, 115, "a", "txtCommonShares", "lblUnit(2)", 1},
    {19, 116, "a", "txtDilutedShares", "lblUnit(3)", 1},
    {20, 117, "ya", "txtLastFY", "lblLabel(20)", 2},
    {21, 118, "dqa", "txtDateofLastFY", "lblLabel(21)", 2},
    {22, 119, "ya", "txtSales(3)", "lblUnit(4)", 2},
    {23, 120, "ya", "txtYOption(3)", "lblYOption", 2},
    {24, 121, "ya", "txtYOption(3)", "lblYOption", 2, Choice::taxRate},
    {25, 122, "ya", "txtYNetInc(3)", "lblUnit(5)", 2},
    {26, 123, "ya", "txtYOption2(3)", "lblYOption2", 2},
    {27, 124, "ya", "txtYOption2(3)", "lblYOption2", 2, Choice::bookValue},
    {28, 125, "ya", "txtYEPS(3)", "lblLabel(23)", 2},
    {29, 126, "ya", "txtDiv(3)", "lblLabel(24)", 2},
    {30, 127, "ya", "txtHigh(3)", "lblLabel(26)", 2},
    {31, 128, "ya", "txtLow(3)", "lblLabel(27)", 2},
    {32, 129, "ya", "txtCSO(3)", "lblUnit(6)", 2},
    {33, 130, "a", "txtLastQDate", "lblLabel(30)", 3},
    {34, 131, "a", "txtRevenue(3)", "lblUnit(7)", 3},
    {35, 132, "a", "txtEPS(3)", "lblLabel(33)", 3},
    {36, 133, "a", "txtQOption(3)", "lblQOption", 3},
    {37, 134, "a", "txtQOption(3)", "lblQOption", 3, Choice::taxRate},
    {38, 135, "a", "txtNetInc(3)", "lblUnit(8)", 3},
    {39, 136, "a", "txtAddress1", "lblLabel(40)", 4},
    {40, 137, "a", "txtAddress2", "", 4},
    {41, 138, "a", "txtCity", "lblLabel(41)", 4},
    {42, 139, "a", "txtState", "lblLabel(42)", 4},
    {43, 140, "a", "txtZip", "lblLabel(43)", 4},
    {44, 141, "a", "txtCountry", "lblLabel(44)", 4},
    {45, 142, "a", "txtInternet", "lblLabel(45)", 4},
    {46, 143, "a", "txtContactPerson", "lblLabel(46)", 4},
    {47, 144, "a", "txtTel", "lblLabel(47)", 4},
    {48, 145, "a", "txtVLTimelines", "lblLabel(51)", 4},
    {49, 146, "a", "txtVLSafety", "lblLabel(52)", 4},
    {50, 1, "a", "cmbReportingPeriod", "lblLabel(53)", 4},
    {51, 147, "a", "txtNotes", "lblLabel(49)", 4},
    {52, 148, "a", "txtPrefDiv", "lblUnit(9)", 4},
    {53, 149, "a", "txtCommDiv", "lblLabel(13)", 1},
    {54, 150, "a", "txtTaxRate", "lblLabel(48)", 4},
    {55, 151, "", "optCurrency(1)", "fraDE(5)", 5},
    {56, 152, "", "optPTI(0)", "fraDE(7)", 5},
    {57, 153, "", "optCommEq(0)", "fraDE(8)", 5},
    {58, 155, "", "chkLockInfo"},
    {59, 154, "", "optDisplay(0)", "fraDE(6)", 5},
    {60, 156, "y", "lblYear(3)", "", 2},
    {61, 157, "", "lblQLabel(3)", "lblLabel(32)", 3},
    {62, 1, "", ""}, // only other editions of the form have these two
    {63, 1, "", ""},
    {64, 158, "", "tbsDataEntry", "fraDE(10)", 1},
    {65, 159, "", "tbsDataEntry", "fraDE(11)", 2},
    {66, 160, "", "tbsDataEntry", "fraDE(12)", 3},
    {67, 161, "", "tbsDataEntry", "fraDE(13)", 4},
    {68, 162, "", "tbsDataEntry", "fraDE(14)", 5},
    {69, 163, "da", "txtDateOfSource", "lblLabel(12)", 1},
};
static_assert(std::size(entryObjectRows) == dataEntryObjectCount);

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
