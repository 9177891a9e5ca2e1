// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/field_steps.hpp"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace vkr::test {

// Tests of a company on the form. What a test sets beforehand goes before load().
struct CompanyOnForm : testing::Test {
    explicit CompanyOnForm(std::shared_ptr<CompanyRecord> theCompany)
        : company(std::move(theCompany)) {}

    void load() { scene.load(company); }
    // What has the focus after keys at a field.
    std::string after(std::string_view id, std::string_view keys) {
        goTo(scene, id);
        desktop.type(keys);
        return desktop.focusedId();
    }

    EntryScene scene;
    VKRDataEntry& entry = *scene.entry;
    VirtualDesktop& desktop = scene.desktop;
    std::shared_ptr<CompanyRecord> company;
};

// With every field on show.
struct CompanyOnFullForm : CompanyOnForm {
    explicit CompanyOnFullForm(std::shared_ptr<CompanyRecord> theCompany)
        : CompanyOnForm(std::move(theCompany)) {
        showEveryField(scene);
    }
};

} // namespace vkr::test
