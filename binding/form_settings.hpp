// SPDX-License-Identifier: MIT
#pragma once

#include "binding/entry_context.hpp"

#include <span>
#include <string_view>

namespace vkr {

// A setting of the record as the form has it.
struct FormSetting {
    std::string_view name;
    std::string_view
        control; // that shows it, or those of its options; none for what every page has
    Variant (*chosen)(const EntryContext&);
    void (*take)(EntryContext&, const Variant&); // what the record has
    Variant (*absent)();                         // taken where the record does not say
    bool (*isToStore)(const EntryContext&);
    bool isKept; // by the form, until a commit writes it
};

// In the order of a commit.
[[nodiscard]] std::span<const FormSetting> formSettings();
[[nodiscard]] const FormSetting& formSetting(std::string_view name);

} // namespace vkr
