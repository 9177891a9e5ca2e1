// SPDX-License-Identifier: MIT
#include "control/captions.hpp"

#include "binding/text_numbers.hpp"
#include "form/build_form.hpp"
#include "form/form_layout.hpp"
#include "platform/error_trap.hpp"
#include "platform/number_text.hpp"
#include "platform/text.hpp"

#include <algorithm>

namespace vkr {

namespace {

// Tags of these are data, not string numbers.
bool tagIsData(const Control& control) {
    return controls::quarterLabel.holds(control) || controls::moreHelp.is(control) ||
           control.kind() == ControlKind::menuItem;
}

// The column that an option row of the grid is.
const GridColumn& optionColumn(std::span<const GridColumn> columns, ColumnChoice choice) {
    return *std::ranges::find(columns, choice, &GridColumn::choice);
}

} // namespace

Captions::Captions(EntryContext& context) : context_(context) {}

void Captions::pass() {
    for (const auto& control : context_.form.controls()) {
        if (!control->hasCaption() || tagIsData(*control))
            continue;
        const double number = leadingNumber(control->tag());
        if (number > 0)
            ifPossible([&] {
                const std::string text = context_.localizer->LoadString(static_cast<int>(number));
                if (const auto caption = trimmed(text); !caption.empty()) {
                    control->setCaption(caption);
                    if (controls::unitLabel.holds(*control))
                        unitCaptions_.erase(control->index());
                }
            });
        control->setTag("");
    }
    if (context_.company != nullptr)
        followUnit();
    nameFields(context_.form);
}

std::string Captions::unitSuffix() const {
    return " " + context_.unitText();
}

void Captions::followUnit() {
    const std::string suffix = unitSuffix();
    for (const auto& [number, label] : controls::unitLabel.all(context_.form)) {
        const auto bare = unitCaptions_.try_emplace(number, label->caption()).first;
        label->setCaption(bare->second + suffix);
    }
    followOptions();
    nameFields(context_.form);
}

void Captions::followOptions() {
    const auto caption = [this](const GridSeries& series) {
        return context_.text(series.name) + (series.isScaled() ? unitSuffix() : std::string());
    };
    const auto& incomes = optionColumn(yearlyColumns(), ColumnChoice::income);
    const std::string income =
        context_.incomeRow == IncomeRow::preTaxIncome
            ? caption(incomes.usual)
            : caption(*incomes.alternative) + " " + context_.text(text_number::unitPercent);
    context_[controls::yearlyIncomeHead].setCaption(income);
    context_[controls::quarterlyIncomeHead].setCaption(income);
    const auto& equities = optionColumn(yearlyColumns(), ColumnChoice::equity);
    context_[controls::yearlyEquityHead].setCaption(caption(
        context_.equityRow == EquityRow::commonEquity ? equities.usual : *equities.alternative));
}

void Captions::showCurrency() {
    const std::string symbol = literalCaption(context_[controls::currencySymbol].text());
    for (const auto& signs : {controls::currency, controls::quarterlyCurrency})
        for (const auto& [number, label] : signs.all(context_.form))
            label->setCaption(symbol);
}

} // namespace vkr
