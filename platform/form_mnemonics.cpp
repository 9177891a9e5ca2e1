// SPDX-License-Identifier: MIT
// Alt and a letter: whose it is, and where it leads.
#include "platform/form.hpp"
#include "platform/text.hpp"

#include <algorithm>

namespace vkr {

namespace {

// The tab of a strip that has the letter; 0 for none.
int tabOf(const TabStrip& strip, char32_t letter) {
    for (int i = 1; i <= strip.count(); ++i)
        if (mnemonicOf(strip.tab(i).caption) == letter)
            return i;
    return 0;
}

} // namespace

bool Form::bearsMnemonic(const Control& control, char32_t letter) const {
    if (!control.isShown() || !control.isEnabled() || control.kind() == ControlKind::menuItem)
        return false;
    if (const auto* strip = dynamic_cast<const TabStrip*>(&control))
        return tabOf(*strip, letter) != 0;
    return control.hasCaption() && mnemonicOf(control.caption()) == letter &&
           mnemonicTarget(control) != nullptr;
}

// Null where the letter of a caption leads nowhere.
Control* Form::mnemonicTarget(const Control& control) const {
    const auto first = [this](auto begin, auto accepts) {
        const auto found = std::find_if(begin, tabOrder_.end(), accepts);
        return found == tabOrder_.end() ? nullptr : *found;
    };
    if (control.kind() == ControlKind::frame)
        return first(tabOrder_.begin(), [&](Control* held) {
            const Control* around = held->container();
            while (around != nullptr && around != &control)
                around = around->container();
            const auto* option = dynamic_cast<OptionButton*>(held);
            return around != nullptr && held->canTakeFocus() &&
                   (option == nullptr || !passesOver(*option));
        });
    const auto place = std::find(tabOrder_.begin(), tabOrder_.end(), &control);
    const auto* label = dynamic_cast<const Label*>(&control);
    if (label == nullptr)
        return control.canTakeFocus() ? *place : nullptr;
    if (Control* named = label->buddy()) {
        while (named != nullptr && !named->canTakeFocus())
            named = named->index() == Control::noIndex ? nullptr
                                                       : find(named->name(), named->index() + 1);
        return named;
    }
    return first(place, [&](Control* next) {
        return next->container() == control.container() && next->canTakeFocus();
    });
}

bool Form::hasMnemonic(char32_t letter) const {
    // A key without a character is no letter, as a caption without a mnemonic has none.
    return letter != 0 && std::any_of(controls_.begin(), controls_.end(),
                                      [this, upper = upperCase(letter)](const auto& control) {
                                          return bearsMnemonic(*control, upper);
                                      });
}

bool Form::mnemonic(char32_t letter) {
    letter = upperCase(letter);
    std::vector<Control*> candidates;
    const auto count = std::ssize(tabOrder_);
    auto start = std::find(tabOrder_.begin(), tabOrder_.end(), active_) - tabOrder_.begin();
    if (start == count)
        start = -1;
    for (std::ptrdiff_t offset = 1; offset <= count; ++offset) {
        Control& control = *tabOrder_[static_cast<std::size_t>((start + offset) % count)];
        if (!bearsMnemonic(control, letter))
            continue;
        if (auto* strip = dynamic_cast<TabStrip*>(&control)) {
            userSelectTab(*strip, tabOf(*strip, letter));
            return true;
        }
        candidates.push_back(&control);
    }
    if (candidates.empty())
        return false;
    Control& bearer = *candidates.front();
    Control& target = *mnemonicTarget(bearer);
    if (candidates.size() > 1 || &bearer != &target)
        return focus(target);
    press(target);
    return true;
}

} // namespace vkr
