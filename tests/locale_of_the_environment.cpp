// SPDX-License-Identifier: MIT
#include <clocale>
#include <gtest/gtest.h>
#include <locale>
#include <stdexcept>

namespace {

// Tests run as a program of the user's would: in the locale that LC_ALL names, where it is
// installed.
class LocaleOfTheEnvironment final : public testing::Environment {
  public:
    void SetUp() override {
        std::setlocale(LC_ALL, "");
        try {
            std::locale::global(std::locale(""));
        } catch (const std::runtime_error&) { // none of that name: the classic one stays
        }
    }
};

const auto* const installed = testing::AddGlobalTestEnvironment(new LocaleOfTheEnvironment);

} // namespace
