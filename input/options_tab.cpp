// SPDX-License-Identifier: MIT
#include "input/options_tab.hpp"

#include "form/controls.hpp"

#include <string_view>

namespace vkr {

namespace {

struct Option {
    std::string_view name;
    void (*choose)(OptionsHost& host, int index);
};

constexpr Option options[] = {
    {controls::unitOption.name,
     [](OptionsHost& host, int index) { host.chooseUnit((index + 1) * 3); }},
    {controls::displayOption.name,
     [](OptionsHost& host, int index) { host.chooseFractions(index == 1); }},
    {controls::equityOption.name,
     [](OptionsHost& host, int index) { host.chooseCommonEquity(index == 0); }},
    {controls::incomeOption.name,
     [](OptionsHost& host, int index) { host.chooseTaxRate(index == 1); }},
    {controls::colorButton.name, [](OptionsHost& host, int index) { host.chooseShade(index); }},
};

} // namespace

void clickOption(const Control& control, OptionsHost& host) {
    for (const auto& option : options)
        if (option.name == control.name())
            option.choose(host, control.index());
}

} // namespace vkr
