// SPDX-License-Identifier: MIT
#include "control/figure_places.hpp"

#include "form/controls.hpp"

#include <algorithm>
#include <utility>

namespace vkr {

namespace {

// Data whose fields have code of their own.
struct OwnField {
    Datum datum;
    Handle<TextBox> field;
};
constexpr OwnField ownFields[] = {
    {Datum::LastFY, controls::lastFiscalYear},
    {Datum::LastFYDate, controls::lastFiscalYearDate},
    {Datum::LastQDate, controls::lastQuarterDate},
    {Datum::LastQDateForGrid, controls::lastQuarterDate},
};

} // namespace

TextField* FigurePlaces::fieldOf(const FigurePlace& place) const {
    if (place.element)
        return rowOf(place.datum).period == DatumPeriod::year
                   ? yearly_.cellOf(place.datum, *place.element)
                   : quarterly_.cellOf(place.datum, *place.element);
    const auto* const own = std::ranges::find(ownFields, place.datum, &OwnField::datum);
    if (own != std::end(ownFields))
        return &context_[own->field];
    const Datum datum =
        place.datum == Datum::CommDivAlternate ? Datum::CommDiv : place.datum; // one field for both
    for (const FieldRow& row : companyFieldTable())
        if (row.datum == datum)
            return textFieldOf(row.control.find(context_.form));
    return nullptr;
}

template <typename Note, typename Show>
void FigurePlaces::set(FigureNotes<Note>& notes, typename FigureNotes<Note>::Places places,
                       Show show) {
    const Form::Update update(context_.form);
    for (const auto& [place, note] : notes.notes())
        if (TextField* field = place.element ? nullptr : fieldOf(place))
            show(*field, Note());
    notes.set(std::move(places));
    for (const auto& [place, note] : notes.notes())
        if (TextField* field = place.element ? nullptr : fieldOf(place))
            show(*field, note);
    yearly_.showNotes();
    quarterly_.showNotes();
}

void FigurePlaces::setRemarks(FigureNotes<std::string>::Places remarks) {
    set(context_.remarks, std::move(remarks),
        [](TextField& field, const std::string& remark) { field.setRemark(remark); });
}

void FigurePlaces::setOrigins(FigureNotes<FieldOrigin>::Places origins) {
    set(context_.origins, std::move(origins),
        [](TextField& field, const FieldOrigin& origin) { field.setOrigin(origin); });
}

} // namespace vkr
