// SPDX-License-Identifier: MIT
#include "control/figure_places.hpp"

#include "form/controls.hpp"

#include <algorithm>

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
        return &session_[own->field];
    const Datum datum =
        place.datum == Datum::CommDivAlternate ? Datum::CommDiv : place.datum; // one field for both
    for (const FieldRow& row : companyFieldTable())
        if (row.datum == datum)
            return textFieldOf(row.control.find(session_.form));
    return nullptr;
}

void FigurePlaces::setRemarks(FigureRemarks::Texts remarks) {
    const Form::Update update(session_.form);
    for (const auto& [place, text] : session_.remarks.texts())
        if (TextField* field = place.element ? nullptr : fieldOf(place))
            field->setRemark("");
    session_.remarks.set(std::move(remarks));
    for (const auto& [place, text] : session_.remarks.texts())
        if (TextField* field = place.element ? nullptr : fieldOf(place))
            field->setRemark(text);
    yearly_.showRemarks();
    quarterly_.showRemarks();
}

} // namespace vkr
