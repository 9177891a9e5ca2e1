// SPDX-License-Identifier: MIT
#include "filings/forms.hpp"

#include <algorithm>

namespace vkr {

namespace {

struct FormRow {
    std::string_view form;
    bool year;
};

constexpr FormRow rows[] = {
    {"10-K", true}, {"10-KT", true}, {"20-F", true},  {"40-F", true},
    {"8-K", true},  {"6-K", true},   {"10-Q", false},
};

const FormRow* rowOfForm(std::string_view form) {
    if (form.ends_with("/A"))
        form.remove_suffix(2);
    const auto* row = std::ranges::find(rows, form, &FormRow::form);
    return row == std::end(rows) ? nullptr : row;
}

} // namespace

bool isReportForm(std::string_view form) {
    return rowOfForm(form) != nullptr;
}

bool isYearForm(std::string_view form) {
    const FormRow* row = rowOfForm(form);
    return row != nullptr && row->year;
}

} // namespace vkr
