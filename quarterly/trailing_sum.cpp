// SPDX-License-Identifier: MIT
#include "quarterly/trailing_sum.hpp"

#include "form/controls.hpp"
#include "input/number_pattern.hpp"
#include "platform/error_trap.hpp"

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
    ifPossible([&] {
        const Variant yearly = company.get_YEPSSeries();
        input.yearly = yearly.array().contains(1) ? yearly.array().number(1) : 0;
    });
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
    context_.company->put_Last4QEPS(sum);
    auto& field = context_[controls::trailingEarnings];
    // A record may keep what was typed, and then it is as doubtful as before.
    if (field.isUnstored() || context_.company->get_Last4QEPS() == sum)
        field.setMark({});
}

void TrailingSum::derive() {
    derived_ = worked();
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
    derived_ = worked();
    if (!derived_ || derived_ == before)
        return;
    derive();
    show();
}

void TrailingSum::doubtTyped() {
    auto& field = context_[controls::trailingEarnings];
    double typed = 0;
    derived_ = worked();
    if (!derived_ || field.isUnstored() ||
        !attempt([&] { typed = context_.company->get_Last4QEPS(); }) || typed == *derived_)
        return;
    const std::string before = field.mark().reason.empty() ? "" : field.mark().reason + " ";
    field.setMark({MarkKind::doubtful, before + context_.text(text_number::sumReplaces) + " " +
                                           formatNumber(*derived_, context_.numberFormat,
                                                        context_.form.numberMarks())});
}

void TrailingSum::show() {
    auto& field = context_[controls::trailingEarnings];
    if (field.isUnstored())
        return;
    const FieldState before = field.state();
    context_.consequences.trailingEarningsDerived();
    context_.hideHelpFrame();
    if (before.isTyped(field.text()))
        context_.markChanged();
    else
        field.setMark(before.mark());
}

} // namespace vkr
