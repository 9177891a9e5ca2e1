// SPDX-License-Identifier: MIT
#include "control/kept_texts.hpp"

#include "input/field_text.hpp"
#include "platform/text.hpp"

#include <algorithm>

namespace vkr {

KeptTexts::KeptTexts(EntryContext& context, const YearlyGrid& yearly,
                     const QuarterlyGrid& quarterly)
    : context_(context), yearly_(yearly), quarterly_(quarterly), lastYear_(yearly.lastFiscalYear()),
      lastQuarter_(quarterly.shown()) {
    const Form& form = context.form;
    if (auto* field = textFieldOf(form.activeControl()); field != nullptr && form.hasFocus())
        active_ = {field, field->text(), field->selStart(), field->selLength(),
                   field->mark().kind != MarkKind::unstored && !field->standsForStored()};
    for (const auto& control : form.controls()) {
        auto* field = textFieldOf(control.get());
        if (field == nullptr)
            continue;
        const bool typed = active_ && active_->field == field && active_->typed;
        if (field->mark().kind == MarkKind::none && !typed)
            continue;
        const SeriesGrid* grid = yearly.find(*field)      ? static_cast<const SeriesGrid*>(&yearly)
                                 : quarterly.find(*field) ? &quarterly
                                                          : nullptr;
        kept_.push_back({field, grid, field->text(), field->mark()});
    }
}

TextField* KeptTexts::placeOf(const Kept& kept) const {
    if (kept.grid == nullptr)
        return kept.field;
    const auto cell = kept.grid->find(*kept.field);
    if (!cell)
        return nullptr;
    int moved = 0;
    if (kept.grid == &yearly_)
        moved = lastYear_ - yearly_.lastFiscalYear();
    else if (lastQuarter_ && quarterly_.shown())
        moved = nearestQuarters(*lastQuarter_, *quarterly_.shown());
    const auto cells = kept.grid->cells(cell->column);
    const int row = cell->row + moved;
    return row >= 0 && row < std::ssize(cells) ? cells[static_cast<std::size_t>(row)] : nullptr;
}

void KeptTexts::putBack() const {
    for (const Kept& kept : kept_) {
        TextField* place = placeOf(kept);
        if (place == nullptr || !place->enabled())
            continue;
        const bool typed = active_ && active_->field == kept.field && active_->typed;
        if (typed && place == kept.field)
            continue;
        if (kept.mark.kind == MarkKind::doubtful && !typed) {
            if (place->text() == kept.text)
                place->setMark(kept.mark);
            continue;
        }
        // A figure that is being typed in a row that shows another period now is told as not
        // stored.
        place->putBackRefused(kept.text,
                              typed ? context_.unstored(text_number::reasonRefused) : kept.mark);
    }
    if (active_)
        putBackActive();
}

void KeptTexts::putBackActive() const {
    TextField& field = *active_->field;
    const bool whole = active_->length > 0 && active_->length == textLength(active_->text);
    const auto stays = std::ranges::find_if(
        kept_, [&](const Kept& kept) { return kept.field == &field && placeOf(kept) == &field; });
    if (active_->typed && stays != kept_.end()) {
        field.rewriteText(active_->text); // Escape brings up what is stored now
        if (field.standsForStored())
            field.holdAsTyped();
        field.setMark(stays->mark);
    }
    if (field.text() == active_->text)
        field.select(active_->start, active_->length);
    else
        field.select(whole ? 0 : textLength(field.text()), whole ? textLength(field.text()) : 0);
}

} // namespace vkr
