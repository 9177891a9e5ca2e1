// SPDX-License-Identifier: MIT
#include "control/options.hpp"

#include "binding/company_loader.hpp"
#include "form/controls.hpp"
#include "platform/error_trap.hpp"
#include "platform/text.hpp"

#include <optional>

namespace vkr {

template <typename Kind>
Action Options::choosing(const Handle<Kind>& control) const {
    return {Origin::typed, std::string(trimmed(withoutMnemonic(session_[control].caption()))), {}};
}

void Options::chooseUnit(std::int32_t unit) {
    const Session::Work work(session_, choosing(controls::frames[frame::unitGroup]));
    if (session_.company == nullptr)
        return;
    bool changed = false;
    ifPossible([&] {
        const auto settings = session_.settings();
        if (settings->get(setting::unit).toLong() == unit)
            return;
        settings->put(setting::unit, unit);
        changed = true;
    });
    if (!changed) {
        showUnit(); // the record refused: the choice goes back to what is in force
        return;
    }
    ifPossible([&] { static_cast<void>(session_.company->get_SettingsApply()); });
    const Form::Update update(session_.form);
    display_.followUnit();
    showUnit();
    session_.markChanged();
}

void Options::chooseFractions(bool fractions) {
    if (fractions == session_.fractionDisplay)
        return;
    display_.setFractions(fractions);
    session_.markChanged();
}

void Options::chooseCommonEquity(bool commonEquity) {
    const Session::Work work(session_, choosing(controls::equityOption[commonEquity ? 0 : 1]));
    const EquityRow row = commonEquity ? EquityRow::commonEquity : EquityRow::bookValue;
    if (row == session_.equityRow)
        return;
    session_.equityRow = row;
    captions_.followOptions();
    if (session_.company != nullptr)
        yearly_.showChoice(ColumnChoice::equity);
    if (session_.company != nullptr)
        noteChoice(session_, setting::bookValue);
    session_.markChanged();
}

void Options::chooseTaxRate(bool taxRate) {
    const Session::Work work(session_, choosing(controls::incomeOption[taxRate ? 1 : 0]));
    const IncomeRow row = taxRate ? IncomeRow::taxRate : IncomeRow::preTaxIncome;
    if (row == session_.incomeRow)
        return;
    session_.incomeRow = row;
    captions_.followOptions();
    if (session_.company != nullptr) {
        yearly_.showChoice(ColumnChoice::income);
        quarterly_.showChoice(ColumnChoice::income);
        noteChoice(session_, setting::taxRate);
    }
    session_.markChanged();
}

void Options::chooseShade(int button) {
    const auto shade = static_cast<Shade>(button);
    const auto chosen = attemptOr(std::optional<Color>(), [&] {
        return session_.services.chooseColor(properties_.shade(shade));
    });
    if (!chosen || *chosen == properties_.shade(shade))
        return;
    properties_.putShade(shade, *chosen);
    session_.markChanged();
}

void Options::showStatedRates() {
    for (const auto& pair : {controls::incomeOption, controls::equityOption}) {
        auto& option = session_[pair[1]];
        option.setValue(true);
        clickOption(option, *this);
    }
}

void Options::showPairs() {
    session_[controls::incomeOption[session_.incomeRow == IncomeRow::taxRate ? 1 : 0]].setValue(
        true);
    session_[controls::equityOption[session_.equityRow == EquityRow::bookValue ? 1 : 0]].setValue(
        true);
}

void Options::showUnit() {
    session_[controls::unitOption[optionOfUnit(session_.unit)]].setValue(true);
    captions_.followUnit();
}

} // namespace vkr
