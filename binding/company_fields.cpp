// SPDX-License-Identifier: MIT
#include "binding/company_fields.hpp"

#include "binding/text_numbers.hpp"
#include "form/controls.hpp"
#include "input/mdlKMTMisc.hpp"
#include "input/number_pattern.hpp"
#include "input/number_text.hpp"
#include "platform/error_trap.hpp"
#include "platform/text.hpp"

#include <algorithm>

namespace vkr {

namespace {

using enum FieldKind;

constexpr std::string_view sourcesStatingRates[] = {"S & P", "Value Line"};

} // namespace

CompanyFields::CompanyFields(EntryContext& context) : context_(context) {
    for (const auto& field : companyFieldTable()) {
        controls_.push_back(&context.form.get<TextField>(field.control.name, field.control.index));
        controls_.back()->setCapitals(field.filter.upperCase);
        byControl_.emplace(controls_.back(), &field);
    }
}

const FieldRow* CompanyFields::find(const Control& control) const {
    const auto found = byControl_.find(&control);
    return found == byControl_.end() ? nullptr : found->second;
}

TextField& CompanyFields::control(const FieldRow& field) const {
    return *controls_[static_cast<std::size_t>(&field - companyFieldTable().data())];
}

void CompanyFields::load(LoadStep step) {
    for (const auto& field : companyFieldTable())
        if (field.load.step == step)
            ifPossible([&] { show(field); });
}

void CompanyFields::show(const FieldRow& field) {
    const auto& company = *context_.company;
    switch (field.kind) {
    case text:
    case list:
        return control(field).showStored(readText(company, *field.datum));
    case date:
        return control(field).showStored(context_.dateText(readDate(company, *field.datum)));
    case number:
    case price:
    case percent: {
        double stored = readNumber(company, *field.datum);
        if (field.datum == Datum::CommDiv) {
            const double alternate = company.get_CommDivAlternate();
            stored = alternate != 0 ? alternate : stored;
        }
        return showNumber(field, stored);
    }
    }
}

void CompanyFields::showNumber(const FieldRow& field, double stored) {
    TextField& shown = control(field);
    const bool negatives = field.filter.allowNegative || field.isScaled();
    if (field.kind == percent) {
        ShowScaledValue(stored, "#0.0\\%", shown, negatives);
    } else if (field.kind == price) {
        ShowScaledValue(stored, context_.priceFormat, shown, negatives);
        if (context_.fractionDisplay)
            ConvertPriceText(false, shown);
    } else {
        const double value =
            field.isScaled() ? ScaledForDisplay(stored, context_.unitFactor()) : stored;
        ShowScaledValue(value, context_.numberFormat, shown, negatives);
    }
}

void CompanyFields::showScaled() {
    for (const auto& field : companyFieldTable())
        if (field.isScaled())
            ifPossible([&] {
                TextField& shown = control(field);
                const RefusedText refused(shown);
                const FieldMark mark = shown.mark();
                show(field);
                refused.putBack();
                shown.setMark(mark); // a doubt is about the same figure
            });
}

void CompanyFields::keepUnit(std::int32_t before) {
    for (const auto& field : companyFieldTable())
        if (field.isScaled())
            ifPossible([&] { typedIn_[*field.datum].follow(context_, control(field), before); });
}

void CompanyFields::clear() {
    movedEnds_.clear();
    typedIn_.clear();
    for (TextField* field : controls_)
        field->showStored("");
}

void CompanyFields::leave(const FieldRow& field) {
    context_.guarded(control(field), [&] { takeText(field); });
}

void CompanyFields::takeText(const FieldRow& field) {
    TextField& left = control(field);
    const bool untouched = left.standsForStored();
    const auto typedIn = field.datum ? typedIn_.find(*field.datum) : typedIn_.end();
    const bool waits = typedIn != typedIn_.end() && typedIn->second.waits(left);
    const bool changed = checkFieldChange(left, context_);
    if (context_.company == nullptr || left.locked())
        return;
    if (waits && !untouched) {
        typedIn->second.endEntry();
        return;
    }
    if (typedIn != typedIn_.end())
        typedIn_.erase(typedIn);
    if (untouched) {
        ifPossible([&] { writeBack(field); });
        if (field.datum == Datum::Last4QEPS)
            context_.consequences.trailingEarningsLeft();
        return;
    }
    const FieldMark doubt = left.mark(); // of a paste that was cut
    switch (field.kind) {
    case text:
    case list:
        store(field, left.text());
        if (field.datum == Datum::Source && changed)
            followSource();
        break;
    case date:
        storeDate(field, left);
        break;
    case number:
    case price:
    case percent:
        storeNumber(field, left);
    }
    if (doubt.kind == MarkKind::doubtful && left.mark().kind == MarkKind::none)
        left.setMark(doubt);
}

// The stored figure, not its rounded picture.
void CompanyFields::writeBack(const FieldRow& field) {
    writeDatum(*context_.company, *field.datum, readDatum(*context_.company, *field.datum));
}

// A record that refuses the value leaves the text as typed, with a mark that says so.
void CompanyFields::store(const FieldRow& field, const Variant& value) {
    auto refusal = failureOf([&] { writeDatum(*context_.company, *field.datum, value); });
    if (field.datum == Datum::CommDiv) {
        const auto other =
            failureOf([&] { context_.company->put_CommDivAlternate(value.toDouble()); });
        refusal = refusal ? refusal : other;
    }
    control(field).setMark(refusal ? context_.refused(*refusal) : FieldMark());
    if (!refusal)
        context_.markChanged(); // the host may have saved since the value was refused
}

void CompanyFields::storeDate(const FieldRow& field, TextField& control) {
    const auto typed = context_.typedDate(control);
    // Only the date of the source may be absent: an empty field is how that shows.
    const bool taken =
        typed || (field.datum == Datum::DateOfSource && trimmed(control.text()).empty());
    if (!taken) {
        control.setMark(context_.unstored(text_number::reasonNoDate));
        return;
    }
    store(field, typed.value_or(Date{}));
    if (!control.isUnstored())
        control.showStored(context_.dateText(typed.value_or(Date{})));
}

void CompanyFields::storeNumber(const FieldRow& field, TextField& control) {
    const auto clean =
        field.kind == price ? context_.typedText(control.text(), NumericKind::PriceText)
        : field.kind == percent
            ? context_.typedText(control.text(), NumericKind::PlainNumber)
            : context_.typedNumber(control.text(),
                                   field.isScaled() ? -UnitExponent(context_.unitFactor()) : 0);
    if (!clean.fits) {
        control.setMark(context_.unstored(text_number::reasonTooLarge));
        return;
    }
    const std::string typed = control.text();
    const double value = field.isScaled() ? UnscaledFromText(clean.text, context_.unitFactor())
                                          : numericValue(clean.text);
    if (value < 0 && !field.filter.allowNegative) {
        control.setMark(context_.unstored(text_number::reasonNegative));
        return;
    }
    store(field, value);
    if (control.isUnstored())
        return;
    showNumber(field, value);
    context_.tellLeftOut(control, typed, clean, *field.datum);
    movedEnds_.erase(*field.datum);
    if (field.datum == Datum::CurrentPrice)
        followPrice(value);
    if (field.datum == Datum::Last4QEPS)
        context_.consequences.trailingEarningsTyped();
}

// The 52-week range always contains the current price. A price of nothing moves neither end, and
// one that is corrected takes back what it moved. The price of another day is no correction.
void CompanyFields::followPrice(double price) {
    const ActionScope derived(context_.company, {Origin::derived, {}, {}});
    const Date today = attemptOr(Date{}, [&] { return context_.services.today(); });
    const Date pricedOn =
        attemptOr(Date{}, [&] { return context_.company->get_PriceUpdatedDate(); });
    const auto follow = [&](Datum datum, const Handle<TextBox>& shown, auto farther) {
        ifPossible([&] {
            const double held = readNumber(*context_.company, datum);
            const auto moved = movedEnds_.find(datum);
            const bool corrects = moved != movedEnds_.end() && moved->second.after == held &&
                                  moved->second.typedOn == today &&
                                  moved->second.pricedOn == pricedOn;
            const double before = corrects ? moved->second.before : held;
            const double after = price == 0 ? before : farther(before);
            if (after != held) {
                writeNumber(*context_.company, datum, after);
                auto& end = context_[shown];
                const RefusedText refused(end);
                show(*find(end));
                refused.putBack();
            }
            if (after != before)
                movedEnds_[datum] = {before, after, today, pricedOn};
            else
                movedEnds_.erase(datum);
        });
    };
    follow(Datum::High52W, controls::high52Week,
           [&](double high) { return std::max(high, price); });
    follow(Datum::Low52W, controls::low52Week, [&](double low) { return std::min(low, price); });
}

void CompanyFields::followSource() {
    const auto& source = context_[controls::source].text();
    for (const auto stating : sourcesStatingRates)
        if (equalsIgnoringCase(source, stating))
            context_.consequences.sourceStatesRates();
}

} // namespace vkr
