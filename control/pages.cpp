// SPDX-License-Identifier: MIT
#include "control/pages.hpp"

#include "form/form_layout.hpp"
#include "platform/error_trap.hpp"

#include <algorithm>
#include <string>

namespace vkr {

TabStrip& Pages::strip() const {
    return session_.form.get<TabStrip>("tbsDataEntry");
}

void Pages::step(int step) {
    session_.hideHelpFrame();
    const int count = strip().count();
    int target = strip().selected() + step;
    target = target > count ? 1 : target < 1 ? count : target;
    strip().selectTab(target);
}

void Pages::showField(std::string_view id) {
    const Form& form = session_.form;
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
    session_.hideHelpFrame();
    Form& form = session_.form;
    {
        const Form::Update update(form);
        for (int page = 0; page < strip().count(); ++page) {
            auto& panel = form.get<Frame>("fraDE", frame::firstPage + page);
            const bool selected = page == strip().selected() - 1;
            panel.move(selected ? sizes::pageLeft : Control::parkedLeft, panel.top());
            panel.setEnabled(selected);
        }
        const bool onYearly = shown() == toYearly;
        form.get<Control>("cmdAddYear").setVisible(onYearly);
        form.get<Control>("cmdRemoveYear").setVisible(onYearly);
    }
    attempt([&] { focusFirstField(); });
    form.settleFocus(); // where the first field can't take it
    if (reported_ != shown()) {
        reported_ = shown();
        host_.tabChange(reported_);
    }
}

void Pages::focusFirstField() {
    const Form& form = session_.form;
    if (shown() == toQuarterly)
        quarterly_.layOut();
    if (keepsFocus_)
        return;
    switch (shown()) {
    case toCompany:
        form.get<Control>(session_.textBox("txtName").text().empty() ? "txtName"
                                                                     : "txtCurrentPrice")
            .setFocus();
        break;
    case toYearly:
        form.get<Control>("txtLastFY").setFocus();
        break;
    case toQuarterly:
        form.get<Control>("txtRevenue", 0).setFocus();
        break;
    case toOther:
        form.get<Control>("txtAddress1").setFocus();
        break;
    default:
        for (int i = 0; i <= form.upperBound("optCurrency"); ++i)
            if (form.get<OptionButton>("optCurrency", i).value())
                form.get<Control>("optCurrency", i).setFocus();
    }
}

void Pages::scrollMouse(KeyCode key) {
    const bool onQuarters = shown() == toQuarterly;
    if (!onQuarters && shown() != toYearly)
        return;
    auto& bar = session_.form.get<ScrollBar>(onQuarters ? "vscrQuarterly" : "hscrYearly");
    if (key == keys::down)
        bar.setValue(bar.value() + bar.smallChange());
    else if (key == keys::up)
        bar.setValue(bar.value() - bar.smallChange());
}

} // namespace vkr
