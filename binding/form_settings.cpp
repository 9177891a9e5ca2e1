// SPDX-License-Identifier: MIT
#include "binding/form_settings.hpp"

#include "form/controls.hpp"
#include "platform/error_trap.hpp"

#include <algorithm>
#include <cassert>

namespace vkr {

namespace {

bool always(const EntryContext& /*context*/) {
    return true;
}

// The lock may have come upon a text that was being typed.
bool isToStore(const TextField& field) {
    return !field.isUnstored() && !(field.locked() && field.isTyped());
}

Variant noUnit() {
    return 0;
}
Variant off() {
    return false;
}

Variant unitOf(const EntryContext& context) {
    return context.unit();
}
void takeUnit(EntryContext& context, const Variant& held) {
    if (const auto unit = held.toLong(); unit != 0)
        context.takeUnit(unit);
}

Variant periodOf(const EntryContext& context) {
    return context[controls::reportingPeriod].listIndex();
}
void takePeriod(EntryContext& context, const Variant& held) {
    auto& list = context[controls::reportingPeriod];
    ifPossible([&] {
        const int chosen = held.toLong();
        list.setListIndex(chosen >= 0 && chosen < std::ssize(list.list()) ? chosen : -1);
    });
    list.acceptText();
}
Variant noPeriod() {
    return -1;
}
bool hasPeriod(const EntryContext& context) {
    const auto& list = context[controls::reportingPeriod];
    return list.listIndex() >= 0 && isToStore(list);
}

Variant symbolOf(const EntryContext& context) {
    return context[controls::currencySymbol].text();
}
void takeSymbol(EntryContext& context, const Variant& held) {
    context[controls::currencySymbol].showStored(held.toText());
}
Variant noSymbol() {
    return "";
}
bool hasSymbol(const EntryContext& context) {
    return isToStore(context[controls::currencySymbol]);
}

Variant bookValueIsShown(const EntryContext& context) {
    return context.equityRow == EquityRow::bookValue;
}
void takeEquityRow(EntryContext& context, const Variant& held) {
    context.equityRow = held.toBoolean() ? EquityRow::bookValue : EquityRow::commonEquity;
}

Variant taxRateIsShown(const EntryContext& context) {
    return context.incomeRow == IncomeRow::taxRate;
}
void takeIncomeRow(EntryContext& context, const Variant& held) {
    context.incomeRow = held.toBoolean() ? IncomeRow::taxRate : IncomeRow::preTaxIncome;
}

Variant lockOf(const EntryContext& context) {
    return context.isLocked();
}
void takeLock(EntryContext& context, const Variant& held) {
    context[controls::lock].setValue(held.toBoolean());
}

} // namespace

std::span<const FormSetting> formSettings() {
    static constexpr FormSetting rows[] = {
        {.name = setting::unit,
         .control = controls::unitOption.name,
         .chosen = unitOf,
         .take = takeUnit,
         .absent = noUnit,
         .isToStore = always,
         .isKept = false},
        {.name = setting::leadPeriod,
         .control = controls::reportingPeriod.name,
         .chosen = periodOf,
         .take = takePeriod,
         .absent = noPeriod,
         .isToStore = hasPeriod,
         .isKept = true},
        {.name = setting::currencySymbol,
         .control = controls::currencySymbol.name,
         .chosen = symbolOf,
         .take = takeSymbol,
         .absent = noSymbol,
         .isToStore = hasSymbol,
         .isKept = true},
        {.name = setting::bookValue,
         .control = controls::equityOption.name,
         .chosen = bookValueIsShown,
         .take = takeEquityRow,
         .absent = off,
         .isToStore = always,
         .isKept = true},
        {.name = setting::taxRate,
         .control = controls::incomeOption.name,
         .chosen = taxRateIsShown,
         .take = takeIncomeRow,
         .absent = off,
         .isToStore = always,
         .isKept = true},
        {.name = setting::lockBasicInfo,
         .control = {},
         .chosen = lockOf,
         .take = takeLock,
         .absent = off,
         .isToStore = always,
         .isKept = true},
    };
    return rows;
}

const FormSetting& formSetting(std::string_view name) {
    const auto row = std::ranges::find(formSettings(), name, &FormSetting::name);
    assert(row != formSettings().end());
    return *row;
}

} // namespace vkr
