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
std::shared_ptr<Object> ForeignCompany::get_ReportingPeriod() const {
    return value("ReportingPeriod").toObject();
}
std::shared_ptr<Object> ForeignCompany::get_Settings() const {
    return value("Settings").toObject();
}

} // namespace vkr::automation
