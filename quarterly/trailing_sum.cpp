// SPDX-License-Identifier: MIT
#include "quarterly/trailing_sum.hpp"

#include "binding/text_numbers.hpp"
#include "form/controls.hpp"
#include "input/mdlKMTMisc_values.hpp"
#include "input/number_pattern.hpp"
#include "platform/error_trap.hpp"

#include <cassert>
#include <cmath>
#include <string>

namespace vkr {

EarningsInput TrailingSum::asked() const {
    const auto& company = *context_.company;
    const auto valid = [](Date date) { return EntryContext::isValidDate(date) ? date : Date{}; };
    // A last quarter that was refused is that of the form alone.
    const bool shown = lastQuarter_ && !context_[controls::lastQuarterDate].isUnstored();
    EarningsInput input;
    input.lastQuarter = valid(shown ? *lastQuarter_ : company.get_LastQDate());
    input.newestQuarter = valid(company.get_LastQDateForGrid());
    if (isAbsent(input.newestQuarter))
        input.newestQuarter = input.lastQuarter;
    input.quarterly = company.get_QEPSSeries();
    ifPossible([&] { input.yearly = company.get_YEPSSeries().array().number(1); });
    ifPossible([&] { input.fiscalYearEnd = valid(company.get_LastFYDate()); });
    return input;
}

// The rule's answer for what the form and the record have now.
std::optional<double> TrailingSum::worked() {
    if (rule_ == nullptr)
        ifPossible([&] {
            rule_ = std::dynamic_pointer_cast<TrailingEarnings>(
                context_.services.createObject(trailingEarningsId));
        });
    if (rule_ == nullptr)
        rule_ = newTrailingEarnings();
    const auto result =
        attemptOr(std::optional<double>(), [&] { return rule_->lastFour(asked()); });
    return result && std::isfinite(*result) ? result : std::nullopt;
}

void TrailingSum::store(double sum) {
    const ActionScope derived(context_.company, {Origin::derived, {}, {}});
    auto& field = context_[controls::trailingEarnings];
    const bool typed = typed_ && typed_->figure != sum && attemptOr(false, [&] {
                           return context_.company->get_Last4QEPS() == typed_->figure;
                       });
    context_.company->put_Last4QEPS(sum);
    const bool taken = context_.company->get_Last4QEPS() == sum;
    const bool untold = typed && taken && !(typed_->told && field.isDoubtful());
    // A record may keep what was typed, and then it is as doubtful as before.
    if (field.isUnstored() || taken)
        field.setMark({});
    if (untold) {
        std::string reason = context_.text(text_number::sumReplaced);
        ReplaceAll(reason, "%1", figureText(typed_->figure));
        field.setMark({MarkKind::doubtful, reason});
    }
}

std::string TrailingSum::figureText(double figure) const {
    return formatNumber(figure, context_.numberFormat, context_.form.numberMarks());
}

void TrailingSum::checkInvariants() const {
    assert(!derived_ || (rule_ != nullptr && std::isfinite(*derived_)));
}

void TrailingSum::lookAgain() {
    derived_ = worked();
    checkInvariants();
}

void TrailingSum::derive() {
    lookAgain();
    if (!derived_)
        return;
    ifPossible([&] {
        store(*derived_);
        context_.company->put_QuarterlyFlag(true);
    });
}

// A sum that the year has no part in may have been typed by hand.
void TrailingSum::followYear() {
    const auto before = derived_;
    lookAgain();
    if (!derived_ || derived_ == before)
        return;
    derive();
    show();
}

void TrailingSum::typed() {
    typed_ = attemptOr(std::optional<Typed>(), [&] {
        return Typed{context_.company->get_Last4QEPS(), false};
    });
    doubtTyped();
}

void TrailingSum::left() {
    const auto& field = context_[controls::trailingEarnings];
    if (typed_ && !field.isDoubtful() &&
        attemptOr(false, [&] { return context_.company->get_Last4QEPS() == typed_->figure; }))
        doubtTyped();
}

void TrailingSum::doubtTyped() {
    lookAgain();
    if (!typed_ || !derived_ || typed_->figure == *derived_)
        return;
    auto& field = context_[controls::trailingEarnings];
    const std::string before = field.mark().reason.empty() ? "" : field.mark().reason + " ";
    field.setMark({MarkKind::doubtful,
                   before + context_.text(text_number::sumReplaces) + " " + figureText(*derived_)});
    typed_->told = true;
}

void TrailingSum::show() {
    auto& field = context_[controls::trailingEarnings];
    if (field.isUnstored())
        return;
    const FieldState before = field.state();
    context_.consequences.trailingEarningsDerived();
    if (before.isTyped(field.text()))
        context_.markChanged();
    field.setMark(before.mark());
}

} // namespace vkr
