// SPDX-License-Identifier: MIT
#include "control/options.hpp"

#include "binding/company_loader.hpp"
#include "form/controls.hpp"
#include "platform/error_trap.hpp"
#include "platform/text.hpp"
#include "record/setting_table.hpp"

#include <optional>

namespace vkr {

template <typename Kind>
Action Options::choosing(const Handle<Kind>& control) const {
    return {Origin::typed, std::string(trimmed(withoutMnemonic(context_[control].caption()))), {}};
}

void Options::chooseUnit(std::int32_t unit) {
    const EntryContext::UpdateScope updating(context_,
                                             choosing(controls::frames[frame::unitGroup]));
    if (context_.company == nullptr)
        return;
    bool changed = false;
    ifPossible([&] {
        const auto settings = settingObject(*context_.company, SettingHolder::settings);
        if (settings->get(setting::unit).toLong() == unit)
            return;
        settings->put(setting::unit, unit);
        changed = true;
    });
    if (!changed) {
        showUnit(); // the record refused: the choice goes back to what is in force
        return;
    }
    ifPossible([&] { applySettings(*context_.company, SettingHolder::settings); });
    const Form::Update update(context_.form);
    display_.followUnit();
    showUnit();
    context_.markChanged();
}

void Options::chooseFractions(bool fractions) {
    if (fractions == context_.fractionDisplay)
        return;
    display_.setFractions(fractions);
    context_.markChanged();
}

void Options::chooseCommonEquity(bool commonEquity) {
    const EntryContext::UpdateScope updating(
        context_, choosing(controls::equityOption[commonEquity ? 0 : 1]));
    const EquityRow row = commonEquity ? EquityRow::commonEquity : EquityRow::bookValue;
    if (row == context_.equityRow)
        return;
    context_.equityRow = row;
    captions_.followOptions();
    if (context_.company != nullptr) {
        yearly_.showChoice(ColumnChoice::equity);
        noteChoice(context_, setting::bookValue);
    }
    context_.markChanged();
}

void Options::chooseTaxRate(bool taxRate) {
    const EntryContext::UpdateScope updating(context_,
                                             choosing(controls::incomeOption[taxRate ? 1 : 0]));
    const IncomeRow row = taxRate ? IncomeRow::taxRate : IncomeRow::preTaxIncome;
    if (row == context_.incomeRow)
        return;
    context_.incomeRow = row;
    captions_.followOptions();
    if (context_.company != nullptr) {
        yearly_.showChoice(ColumnChoice::income);
        quarterly_.showChoice(ColumnChoice::income);
        noteChoice(context_, setting::taxRate);
    }
    context_.markChanged();
}

void Options::chooseShade(int button) {
    const auto shade = static_cast<Shade>(button);
    const auto chosen = attemptOr(std::optional<Color>(), [&] {
        return context_.services.chooseColor(properties_.shade(shade));
    });
    if (!chosen || *chosen == properties_.shade(shade))
        return;
    properties_.putShade(shade, *chosen);
    context_.markChanged();
}

void Options::showRow(ColumnChoice pair, PairRow row) {
    const auto& options =
        pair == ColumnChoice::income ? controls::incomeOption : controls::equityOption;
    auto& option = context_[options[row == PairRow::alternative ? 1 : 0]];
    option.setValue(true);
    clickOption(option, *this);
}

void Options::showStatedRates() {
    showRow(ColumnChoice::income, PairRow::alternative);
    showRow(ColumnChoice::equity, PairRow::alternative);
}

void Options::showPairs() {
    context_[controls::incomeOption[context_.incomeRow == IncomeRow::taxRate ? 1 : 0]].setValue(
        true);
    context_[controls::equityOption[context_.equityRow == EquityRow::bookValue ? 1 : 0]].setValue(
        true);
}

void Options::showUnit() {
    context_[controls::unitOption[optionOfUnit(context_.unit())]].setValue(true);
    captions_.followUnit();
}

} // namespace vkr
