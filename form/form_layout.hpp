// SPDX-License-Identifier: MIT
#pragma once

#include "form/controls.hpp"
#include "form/sizes.hpp"
#include "platform/form.hpp"

#include <span>
#include <string_view>

namespace vkr {

// One control of the form. A row with `count` above 1 declares a control array's elements from
// `index` on, each `pitch` below the one before.
struct ControlRow {
    ControlKind kind;
    std::string_view name;
    int index;
    int container; // index of fraDE, noIndex for the form itself
    Twips left;
    Twips top;
    Twips width;
    Twips height;
    std::string_view caption = {};
    int tag = 0;                      // string number of the caption; 0 for none
    std::string_view labelledBy = {}; // the label that names a field, as "lblLabel(3)"
    int maxLength = 0;
    Alignment alignment = Alignment::left;
    bool visible = true;
    int count = 1;
    Twips pitch = 0;
};

// Every control of the form, in tab order; places in twips on a grid of 15.
[[nodiscard]] std::span<const ControlRow> formLayout();

// A column of cells, the label at its head and the labels of its rows.
struct ColumnHead {
    std::string_view cells;
    std::string_view head;
    int headIndex;
    std::string_view rows;
};
[[nodiscard]] std::span<const ColumnHead> columnHeads();

// The label that a row's `labelledBy` names.
[[nodiscard]] Label& labelNamed(const Form& form, std::string_view id);

// Makes the controls on an empty form.
void buildForm(Form& form);

// Gives every field the caption of its label as the name that is read out, and every cell the
// head of its column with the label of its row.
void nameFields(Form& form);
void nameCells(Form& form);

} // namespace vkr
