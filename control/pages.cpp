// SPDX-License-Identifier: MIT
#include "control/pages.hpp"

#include "form/controls.hpp"
#include "form/sizes.hpp"
#include "platform/error_trap.hpp"

#include <algorithm>
#include <cassert>
#include <string>

namespace vkr {

namespace {

// Each page, and whether its tab is the selected one.
template <typename Act>
void forEachPage(const Form& form, const TabStrip& strip, Act act) {
    for (int page = 0; page < strip.count(); ++page)
        act(controls::frames[frame::firstPage + page].in(form), page == strip.selected() - 1);
}

} // namespace

TabStrip& Pages::strip() const {
    return context_[controls::tabs];
}

void Pages::step(int step) {
    const int count = strip().count();
    int target = strip().selected() + step;
    target = target > count ? 1 : target < 1 ? count : target;
    strip().selectTab(target);
}

void Pages::showField(std::string_view id) {
    const Form& form = context_.form;
    const auto found =
        std::ranges::find(form.controls(), id, [](const auto& control) { return control->id(); });
    if (found == form.controls().end())
        return;
    const std::string name((*found)->name());
    const int index = (*found)->index();
    const Control* page = found->get();
    while (page->container() != nullptr)
        page = page->container();
    if (page->index() >= frame::firstPage)
        show(page->index() - frame::firstPage + 1);
    if (auto* field = form.find(name, index)) // the host has heard of the tab
        field->setFocus();
}

void Pages::tabSelected() {
    context_.hideHelpFrame();
    Form& form = context_.form;
    {
        const Form::Update update(form);
        forEachPage(form, strip(), [](Frame& panel, bool selected) {
            panel.move(selected ? sizes::pageLeft : Control::parkedLeft, panel.top());
            panel.setEnabled(selected);
        });
        const bool onYearly = shown() == toYearly;
        controls::addYear.in(form).setVisible(onYearly);
        controls::removeYear.in(form).setVisible(onYearly);
    }
    checkInvariants();
    ifPossible([&] { focusFirstField(); });
    form.settleFocus(); // where the first field can't take it
    checkInvariants();  // also where somebody has selected another tab meanwhile
    if (reported_ != shown()) {
        reported_ = shown();
        host_.tabChange(reported_);
    }
}

void Pages::checkInvariants() const {
#ifndef NDEBUG // nor is anything looked up
    forEachPage(context_.form, strip(), [](const Frame& panel, bool selected) {
        assert(panel.left() == (selected ? sizes::pageLeft : Control::parkedLeft));
        assert(panel.enabled() == selected);
    });
    assert(controls::addYear.in(context_.form).visible() == (shown() == toYearly));
    assert(controls::removeYear.in(context_.form).visible() == (shown() == toYearly));
#endif
}

void Pages::focusFirstField() {
    if (shown() == toQuarterly)
        quarterly_.layOut();
    if (keepsFocus_)
        return;
    if (Control* const first = firstField(); first != nullptr)
        first->setFocus();
}

Control* Pages::firstField() const {
    switch (shown()) {
    case toCompany:
        return &context_[context_[controls::name].text().empty() ? controls::name
                                                                 : controls::currentPrice];
    case toYearly:
        return &context_[controls::lastFiscalYear];
    case toQuarterly:
        return &context_[controls::quarterlyRevenue[0]];
    case toOther:
        return &context_[controls::address1];
    default:
        for (const auto& [unit, option] : controls::unitOption.all(context_.form))
            if (context_[controls::unitOption[unit]].value())
                return option;
        return nullptr;
    }
}

void Pages::scrollMouse(KeyCode key) {
    if (key == keys::down)
        scroll(1);
    else if (key == keys::up)
        scroll(-1);
}

bool Pages::scroll(int steps) {
    const bool onQuarters = shown() == toQuarterly;
    if (!onQuarters && shown() != toYearly)
        return false;
    auto& bar = context_[onQuarters ? controls::quarterlyBar : controls::yearlyBar];
    bar.setValue(bar.value() + steps * bar.smallChange());
    return true;
}

} // namespace vkr
