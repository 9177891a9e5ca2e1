// SPDX-License-Identifier: MIT
#include "control/captions.hpp"

#include "control/form_layout.hpp"
#include "platform/error_trap.hpp"
#include "platform/number_text.hpp"
#include "platform/text.hpp"

namespace vkr {

namespace {

// Tags of these are data, not string numbers.
bool tagIsData(const Control& control) {
    return control.name() == "lblQLabel" || control.name() == "lblMoreHelp" ||
           control.kind() == ControlKind::menuItem;
}

constexpr int preTaxIncomeText = 554;
constexpr int taxRateText = 555;
constexpr int commonEquityText = 557;
constexpr int bookValueText = 558;

} // namespace

Captions::Captions(Session& session) : session_(session) {}

void Captions::pass() {
    for (const auto& control : session_.form.controls()) {
        if (!control->hasCaption() || tagIsData(*control))
            continue;
        const double number = leadingNumber(control->tag());
        if (number > 0)
            attempt([&] {
                const std::string text = session_.localizer->LoadString(static_cast<int>(number));
                if (const auto caption = trimmed(text); !caption.empty()) {
                    control->setCaption(caption);
                    if (control->name() == "lblUnit")
                        unitCaptions_.erase(control->index());
                }
            });
        control->setTag("");
    }
    if (session_.company != nullptr)
        followUnit();
    nameFields(session_.form);
}

std::string Captions::unitSuffix() const {
    switch (session_.unit) {
    case 3:
        return " " + session_.text(text_number::unitThousands, "(K)");
    case 9:
        return " " + session_.text(text_number::unitBillions, "(B)");
    default:
        return " " + session_.text(text_number::unitMillions, "(M)");
    }
}

void Captions::followUnit() {
    for (int i = 0; i <= session_.form.upperBound("lblUnit"); ++i) {
        auto* label = session_.form.find("lblUnit", i);
        if (label == nullptr)
            continue;
        const auto bare = unitCaptions_.try_emplace(i, label->caption()).first;
        label->setCaption(bare->second + unitSuffix());
    }
    followOptions();
    nameFields(session_.form);
}

void Captions::followOptions() {
    const std::string income =
        session_.incomeRow == IncomeRow::preTaxIncome
            ? session_.text(preTaxIncomeText, "Pre-Tax Income") + unitSuffix()
            : session_.text(taxRateText, "Tax Rate") + " " +
                  session_.text(text_number::unitPercent, "(%)");
    session_.form.get<Label>("lblYOption").setCaption(income);
    session_.form.get<Label>("lblQOption").setCaption(income);
    session_.form.get<Label>("lblYOption2")
        .setCaption(session_.equityRow == EquityRow::commonEquity
                        ? session_.text(commonEquityText, "Common Equity") + unitSuffix()
                        : session_.text(bookValueText, "Book Value"));
}

void Captions::showCurrency() {
    const std::string symbol = literalCaption(session_.textBox("txtCurSymbol").text());
    for (const std::string_view array : {"lblCurrency", "lblQCurrency"})
        for (int i = 0; i <= session_.form.upperBound(array); ++i)
            if (auto* label = session_.form.find(array, i))
                label->setCaption(symbol);
}

} // namespace vkr
