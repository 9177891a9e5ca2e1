// SPDX-License-Identifier: MIT
#include "control/kept_texts.hpp"

#include "binding/text_numbers.hpp"
#include "input/field_text.hpp"
#include "platform/text.hpp"

#include <utility>

namespace vkr {

KeptTexts::KeptTexts(EntryContext& context, SeriesGrid& yearly, SeriesGrid& quarterly)
    : context_(context), yearly_(yearly), quarterly_(quarterly) {
    for (const auto& control : context.form.controls())
        if (auto* field = textFieldOf(control.get());
            field != nullptr && field->mark().kind != MarkKind::none && !yearly.find(*field) &&
            !quarterly.find(*field))
            kept_.push_back({field, field->text(), field->mark()});
    takeActive();
}

void KeptTexts::takeActive() {
    const Form& form = context_.form;
    auto* field = form.hasFocus() ? textFieldOf(form.activeControl()) : nullptr;
    if (field == nullptr)
        return;
    active_ = Active{.field = field,
                     .text = field->text(),
                     .mark = field->mark(),
                     .start = field->selStart(),
                     .length = field->selLength(),
                     .typed = field->mark().kind != MarkKind::unstored && !field->standsForStored(),
                     .cell = {}};
    for (SeriesGrid* grid : {&yearly_, &quarterly_})
        if (const auto at = grid->find(*field))
            active_->cell = ActiveCell{grid, *at, grid->placeOf(*at)};
}

void KeptTexts::putBack(const PeriodsMoved& moved) {
    for (const Kept& kept : kept_) {
        if (kept.mark.kind == MarkKind::unstored)
            kept.field->putBackRefused(kept.text, kept.mark);
        else if (kept.field->text() == kept.text)
            kept.field->setMark(kept.mark);
    }
    if (active_)
        putBackActive(moved);
}

// What is being typed in a cell that shows another figure now is told as not stored.
bool KeptTexts::staysTyped(const PeriodsMoved& moved) {
    if (!active_->typed)
        return false;
    if (!active_->cell)
        return true;
    auto [grid, at, place] = *active_->cell;
    place.element = *place.element + (grid->isQuarterly() ? moved.quarters : moved.years);
    if (grid->placeOf(at) == place && active_->field->enabled())
        return true;
    grid->putMarked({place, active_->text, context_.unstored(text_number::reasonRefused), {}, {}});
    return false;
}

void KeptTexts::putBackActive(const PeriodsMoved& moved) {
    TextField& field = *active_->field;
    const bool whole = active_->length > 0 && active_->length == textLength(active_->text);
    if (staysTyped(moved)) {
        field.rewriteText(active_->text); // Escape brings up what is stored now
        if (field.standsForStored())
            field.holdAsTyped();
        field.setMark(active_->mark);
    }
    if (field.text() == active_->text)
        field.select(active_->start, active_->length);
    else
        field.select(whole ? 0 : textLength(field.text()), textLength(field.text()));
}

} // namespace vkr
