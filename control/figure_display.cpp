// SPDX-License-Identifier: MIT
#include "control/figure_display.hpp"

#include "control/property_table.hpp"
#include "form/controls.hpp"
#include "input/mdlDataEntry.hpp"
#include "platform/error_trap.hpp"

#include <string>

namespace vkr {

void FigureDisplay::follow(
    const std::function<bool(FieldKind)>& concerns,
    const std::function<void(TextField&, const std::function<bool()>&)>& fieldFollows) {
    for (const auto& field : companyFieldTable()) {
        if (!concerns(field.kind))
            continue;
        ifPossibleAtLast([&] {
            fieldFollows(dynamic_cast<TextField&>(*field.control.find(context_.form)), [&] {
                return context_.company != nullptr && attempt([&] { fields_.show(field); });
            });
        });
    }
}

void FigureDisplay::setFractions(bool fractions) {
    if (fractions == context_.fractionDisplay)
        return;
    const EntryContext::UpdateScope updating(context_);
    context_.fractionDisplay = fractions;
    auto& option = context_[controls::displayOption[fractions ? 1 : 0]];
    if (!option.value())
        option.setValue(true);
    follow([](FieldKind kind) { return kind == FieldKind::price; },
           [&](TextField& field, const std::function<bool()>& showStored) {
               followPriceDisplay(!fractions, field, showStored);
           });
    yearly_.followPriceDisplay();
    host_.fractionDisplayChanged();
}

void FigureDisplay::setNumberMarks(const NumberMarks& wanted) {
    Form& form = context_.form;
    const NumberMarks before = form.numberMarks();
    form.setNumberMarks(wanted);
    if (form.numberMarks() == before)
        return;
    const Form::Update update(form);
    follow(
        [](FieldKind kind) {
            return kind == FieldKind::number || kind == FieldKind::price ||
                   kind == FieldKind::percent;
        },
        [&](TextField& field, const std::function<bool()>& showStored) {
            followNumberMarks(before, field, showStored);
        });
    yearly_.followNumberMarks(before);
    quarterly_.followNumberMarks(before);
    host_.propertyChanged(propertyRow(EntryProperty::NumberMarks).name);
}

void FigureDisplay::followUnit() {
    const std::int32_t before = context_.unit();
    context_.ComputeUnitFactor();
    keepUnit(before);
    fields_.showScaled();
    yearly_.showScaled();
    quarterly_.followUnit();
}

void FigureDisplay::keepUnit(std::int32_t before) {
    if (context_.unit() == before)
        return;
    fields_.keepUnit(before);
    yearly_.keepUnit(before);
    quarterly_.keepUnit(before);
}

} // namespace vkr
