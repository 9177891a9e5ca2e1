// SPDX-License-Identifier: MIT
#include "quarterly/quarter_rows.hpp"

#include "form/controls.hpp"
#include "form/form_layout.hpp"
#include "form/sizes.hpp"

#include <algorithm>
#include <string_view>
#include <vector>

namespace vkr {

void QuarterRows::make(int count) {
    count_ = count;
    Form& form = context_.form;
    std::vector<std::string_view> arrays{controls::quarterLabel.name}; // an element each a row
    for (const auto& column : quarterlyColumns())
        arrays.push_back(column.cells.name);
    for (const auto name : arrays)
        for (int row = form.upperBound(name); row >= count_; --row)
            form.remove(*form.find(name, row));
    for (const auto name : arrays)
        for (int row = form.upperBound(name) + 1; row < count_; ++row)
            add(name, row);
}

// As the one above it, but for the colour behind it, which comes with the shading.
void QuarterRows::add(std::string_view array, int row) {
    Form& form = context_.form;
    const Control& above = *form.find(array, row - 1);
    Control* added = nullptr;
    if (above.kind() == ControlKind::label) {
        auto& label = form.add<Label>(array, row, above.container());
        label.setAlignment(static_cast<const Label&>(above).alignment());
        added = &label;
    } else {
        auto& box = form.add<TextBox>(array, row, above.container());
        const auto& model = static_cast<const TextBox&>(above);
        box.setAlignment(model.alignment());
        box.setLocked(model.locked());
        added = &box;
    }
    added->setForeColor(above.foreColor());
    added->move(above.left(), above.top() + sizes::cellPitch);
    added->resize(above.width(), above.height()); // nothing of it is seen before
    added->setTabIndex(above.tabIndex() + 1);
}

void QuarterRows::layOut() {
    auto& panel = context_[controls::quarterlyPanel];
    const auto& view = *panel.container();
    const Twips pitch = sizes::cellPitch;
    const auto fitting = static_cast<int>((view.height() - 15) / pitch);
    auto& bar = context_[controls::quarterlyBar];
    bar.setRange(0, count_ - fitting, 1, fitting);
    bar.setVisible(count_ > fitting);
    panel.resize(panel.width(), std::max(view.height(), count_ * pitch + 15));
    scroll();
}

void QuarterRows::scroll() {
    auto& panel = context_[controls::quarterlyPanel];
    const auto& cell =
        context_[controls::quarterlyEarnings[context_[controls::quarterlyBar].value()]];
    panel.move(panel.left(), 15 - cell.top());
    for (int i = 0; i <= controls::quarterlyCurrency.last(context_.form); ++i) {
        auto& label = context_[controls::quarterlyCurrency[i]];
        label.move(label.left(), cell.top() + 30);
    }
}

void QuarterRows::bringIntoView(int row) {
    auto& bar = context_[controls::quarterlyBar];
    if (row < bar.value())
        bar.setValue(row);
    else if (row >= bar.value() + bar.largeChange())
        bar.setValue(row - bar.largeChange() + 1);
}

int QuarterRows::page() const {
    return context_[controls::quarterlyBar].largeChange();
}

} // namespace vkr
