// SPDX-License-Identifier: MIT
#include "company/company_record.hpp"

#include "company/exact_text.hpp"
#include "record/setting_table.hpp"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace vkr {

namespace {

double validNumber(double value) {
    if (!std::isfinite(value))
        throw std::invalid_argument("The figure is not a finite number.");
    return value + 0.0; // -0 is no value as well
}

Date validDay(Date date) {
    if (isAbsent(date))
        return {};
    if (date < *makeDate(100, 1, 1) || date >= Date{makeDate(9999, 12, 31)->serial + 1})
        throw std::invalid_argument("The date is outside of the years 100 to 9999.");
    const auto [year, month, day] = civil(date);
    return makeDate(year, month, day).value();
}

Variant emptyDatum(const DatumRow& row) {
    struct Empty {
        int upper;
        Variant operator()(const TextAccess&) const { return datum_kind::Text::absent(); }
        Variant operator()(const NumberAccess&) const { return datum_kind::Number::absent(); }
        Variant operator()(const YearAccess&) const { return datum_kind::Year::absent(); }
        Variant operator()(const DateAccess&) const { return datum_kind::Day::absent(); }
        Variant operator()(const SeriesAccess&) const {
            return numberArray(std::vector<double>(static_cast<std::size_t>(upper) + 1));
        }
    };
    return std::visit(Empty{row.upper}, row.access);
}

// What stands in for an absent date.
Datum counterpart(Datum datum) {
    switch (datum) {
    case Datum::LastQDate:
        return Datum::LastQDateForGrid;
    case Datum::LastQDateForGrid:
        return Datum::LastQDate;
    default:
        return datum;
    }
}

void compareSeries(std::string_view name, const VariantArray& before, const VariantArray& after,
                   std::vector<Difference>& found) {
    const int first = std::min(before.lower(), after.lower());
    const int last = std::max(before.upper(), after.upper());
    const auto element = [](const VariantArray& array, int index) {
        return array.contains(index) ? array.at(index) : Variant();
    };
    for (int index = first; index <= last; ++index) {
        const Variant left = element(before, index);
        const Variant right = element(after, index);
        if (left != right)
            found.push_back({std::string(name), index, exactText(left), exactText(right)});
    }
}

void compare(std::string_view name, const Variant& before, const Variant& after,
             std::vector<Difference>& found) {
    if (before == after)
        return;
    if (before.isArray() && after.isArray())
        return compareSeries(name, before.array(), after.array(), found);
    const auto text = [](const Variant& value) {
        return value.isArray() ? std::string() : exactText(value);
    };
    found.push_back({std::string(name), std::nullopt, text(before), text(after)});
}

} // namespace

CompanyRecord::CompanyRecord() {
    for (const DatumRow& row : datumTable())
        place(row.datum) = emptyDatum(row);
}

std::shared_ptr<CompanyRecord> CompanyRecord::clone() const {
    return std::make_shared<CompanyRecord>(*this);
}

const Variant& CompanyRecord::stored(Datum datum) const {
    return data_.at(static_cast<std::size_t>(datum));
}

Variant& CompanyRecord::place(Datum datum) {
    return data_.at(static_cast<std::size_t>(datum));
}

std::string CompanyRecord::read(datum_kind::Text /*kind*/, Datum datum) const {
    return std::get<std::string>(stored(datum).value());
}

double CompanyRecord::read(datum_kind::Number /*kind*/, Datum datum) const {
    return std::get<double>(stored(datum).value());
}

std::int16_t CompanyRecord::read(datum_kind::Year /*kind*/, Datum datum) const {
    const auto own = std::get<std::int16_t>(stored(datum).value());
    if (own != 0 || datum != Datum::LastFY)
        return own;
    const Date end = get_LastFYDate();
    return isAbsent(end) ? std::int16_t{0} : static_cast<std::int16_t>(civil(end).year);
}

Date CompanyRecord::read(datum_kind::Day /*kind*/, Datum datum) const {
    const Date own = std::get<Date>(stored(datum).value());
    return isAbsent(own) ? std::get<Date>(stored(counterpart(datum)).value()) : own;
}

const Variant& CompanyRecord::read(datum_kind::Series /*kind*/, Datum datum) const {
    return stored(datum);
}

void CompanyRecord::write(datum_kind::Text /*kind*/, Datum datum, const std::string& value) {
    place(datum) = validText(value);
}

void CompanyRecord::write(datum_kind::Number /*kind*/, Datum datum, double value) {
    place(datum) = validNumber(value);
}

void CompanyRecord::write(datum_kind::Year /*kind*/, Datum datum, std::int16_t value) {
    place(datum) = value;
}

void CompanyRecord::write(datum_kind::Day /*kind*/, Datum datum, Date value) {
    place(datum) = validDay(value);
}

void CompanyRecord::write(datum_kind::Series /*kind*/, Datum datum, const Variant& value) {
    const VariantArray& given = value.array();
    const VariantArray& held = stored(datum).array();
    if (given.lower() != held.lower() || given.upper() != held.upper())
        throw std::invalid_argument("The series has other bounds than the record's.");
    std::vector<double> numbers;
    numbers.reserve(given.size());
    for (int index = given.lower(); index <= given.upper(); ++index)
        numbers.push_back(validNumber(given.number(index)));
    place(datum) = numberArray(std::move(numbers), given.lower());
}

bool isYearly(Datum series) {
    return rowOf(series).period == DatumPeriod::year;
}

std::vector<Difference> differences(const iVKR_Company& before, const iVKR_Company& after) {
    std::vector<Difference> found;
    for (const DatumRow& row : datumTable())
        compare(row.name, readDatum(before, row.datum), readDatum(after, row.datum), found);
    for (const SettingRow& row : settingTable)
        compare(row.name, readSetting(before, row.name), readSetting(after, row.name), found);
    return found;
}

bool sameAs(const iVKR_Company& left, const iVKR_Company& right) {
    return differences(left, right).empty();
}

void registerCompanyRecord(ObjectFactory& factory) {
    factory.add(companyRecordId, [] { return std::make_shared<CompanyRecord>(); });
}

} // namespace vkr
