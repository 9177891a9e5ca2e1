// SPDX-License-Identifier: MIT
#include "automation/foreign_company.hpp"

namespace vkr::automation {

std::string ForeignCompany::read(datum_kind::Text /*kind*/, std::string_view name) const {
    OwnedVariant held;
    object_.get(name, held);
    return textIn(held.get());
}
double ForeignCompany::read(datum_kind::Number /*kind*/, std::string_view name) const {
    OwnedVariant held;
    object_.get(name, held);
    return numberIn(held.get());
}
std::int16_t ForeignCompany::read(datum_kind::Year /*kind*/, std::string_view name) const {
    OwnedVariant held;
    object_.get(name, held);
    return yearIn(held.get());
}
Date ForeignCompany::read(datum_kind::Day /*kind*/, std::string_view name) const {
    OwnedVariant held;
    object_.get(name, held);
    return dateIn(held.get());
}
Variant ForeignCompany::read(datum_kind::Series /*kind*/, std::string_view name) const {
    OwnedVariant held;
    object_.get(name, held);
    return seriesIn(held.get());
}

Variant ForeignCompany::value(std::string_view name) const {
    OwnedVariant held;
    object_.get(name, held);
    return fromVariant(held.get());
}

Variant ForeignCompany::call(std::string_view name, std::int16_t value) {
    OwnedVariant held;
    object_.call(name, {value}, held);
    return fromVariant(held.get());
}

void ForeignCompany::put_QuarterlyFlag(const Variant& value) {
    object_.put("QuarterlyFlag", value);
}
Variant ForeignCompany::BeginYearShift(std::int16_t value) {
    return call("BeginYearShift", value);
}
Variant ForeignCompany::YearShiftState(std::int16_t value) {
    return call("YearShiftState", value);
}
Variant ForeignCompany::EndYearShift(std::int16_t value) {
    return call("EndYearShift", value);
}
Variant ForeignCompany::YearShiftUnit(std::int16_t value) {
    return call("YearShiftUnit", value);
}
Variant ForeignCompany::get_YearShiftFirst() const {
    return value("YearShiftFirst");
}
Variant ForeignCompany::get_YearShiftLast() const {
    return value("YearShiftLast");
}
std::shared_ptr<Object> ForeignCompany::get_ReportingPeriod() const {
    return value("ReportingPeriod").toObject();
}
Variant ForeignCompany::get_YearShiftCount() const {
    return value("YearShiftCount");
}
Variant ForeignCompany::get_ReportingPeriodEnd() const {
    return value("ReportingPeriodEnd");
}
Variant ForeignCompany::get_YearShiftPrices() const {
    return value("YearShiftPrices");
}
Variant ForeignCompany::get_YearShiftEarnings() const {
    return value("YearShiftEarnings");
}
Variant ForeignCompany::get_YearShiftDividends() const {
    return value("YearShiftDividends");
}
Variant ForeignCompany::get_YearShiftShares() const {
    return value("YearShiftShares");
}
std::shared_ptr<Object> ForeignCompany::get_Settings() const {
    return value("Settings").toObject();
}
Variant ForeignCompany::get_SettingsApply() const {
    return value("SettingsApply");
}

} // namespace vkr::automation
