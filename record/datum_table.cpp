// SPDX-License-Identifier: MIT
#include "record/datum_table.hpp"

#include <algorithm>
#include <array>
#include <type_traits>

namespace vkr {

namespace {

// The interface and the list say the same.
#define VKR_DATUM(kind, name, title, unit, key, place)                                             \
    static_assert(std::is_same_v<decltype(&iVKR_Company::get_##name),                              \
                                 datum_kind::kind::Value (iVKR_Company::*)() const>,               \
                  "get_" #name " of iVKR_Company does not read a " #kind                           \
                  ", as the list of data has it");                                                 \
    static_assert(std::is_same_v<decltype(&iVKR_Company::put_##name),                              \
                                 void (iVKR_Company::*)(datum_kind::kind::Argument)>,              \
                  "put_" #name " of iVKR_Company does not write a " #kind                          \
                  ", as the list of data has it");
VKR_FIRST_DATA(VKR_DATUM)
#undef VKR_DATUM

#define VKR_DATUM(kind, name, title, unit, key, place)                                             \
    DatumRow{Datum::name,                                                                          \
             #name,                                                                                \
             title,                                                                                \
             AccessOf<datum_kind::kind>{&iVKR_Company::get_##name, &iVKR_Company::put_##name},     \
             datum_kind::kind::period,                                                             \
             datum_kind::kind::upper,                                                              \
             DatumUnit::unit,                                                                      \
             key,                                                                                  \
             place},
constexpr std::array<DatumRow, datumCount> table = {{VKR_DATA(VKR_DATUM)}};
#undef VKR_DATUM

constexpr bool isFigure(const DatumRow& row) {
    return std::holds_alternative<NumberAccess>(row.access) || isSeries(row);
}

constexpr bool hasUnitIfFigure(const DatumRow& row) {
    return isFigure(row) == (row.unit != DatumUnit::none);
}
static_assert(std::all_of(table.begin(), table.end(), hasUnitIfFigure),
              "a figure needs a unit, anything else has none");

constexpr bool isTitled(const DatumRow& row) {
    return !row.title.empty();
}
static_assert(std::all_of(table.begin(), table.end(), isTitled), "a datum needs a title");

constexpr bool keyTellsUnit(const DatumRow& row) {
    return row.key.ends_with("_pct") == (row.unit == DatumUnit::percent) &&
           (row.unit != DatumUnit::money || row.key.ends_with("_musd"));
}
static_assert(std::all_of(table.begin(), table.end(), keyTellsUnit),
              "_musd ends the key of money, _pct that of percent");

constexpr bool keyStandsOnce(const DatumRow& row) {
    return 1 == std::count_if(table.begin(), table.end(), [&](const DatumRow& other) {
               return row.period == other.period && row.key == other.key;
           });
}
static_assert(std::all_of(table.begin(), table.end(), keyStandsOnce),
              "two data of one CSV file have the same key");

} // namespace

std::span<const DatumRow> datumTable() {
    return table;
}

const DatumRow& rowOf(Datum datum) {
    return table.at(static_cast<std::size_t>(datum));
}

Variant readDatum(const iVKR_Company& company, Datum datum) {
    return std::visit([&](const auto& access) { return Variant((company.*access.read)()); },
                      rowOf(datum).access);
}

namespace {

void write(iVKR_Company& company, const TextAccess& access, const Variant& value) {
    (company.*access.write)(value.toText());
}
void write(iVKR_Company& company, const NumberAccess& access, const Variant& value) {
    (company.*access.write)(value.toDouble());
}
void write(iVKR_Company& company, const YearAccess& access, const Variant& value) {
    (company.*access.write)(static_cast<std::int16_t>(value.toLong()));
}
void write(iVKR_Company& company, const DateAccess& access, const Variant& value) {
    (company.*access.write)(value.toDate());
}
void write(iVKR_Company& company, const SeriesAccess& access, const Variant& value) {
    (company.*access.write)(value);
}

template <typename Kind>
const Kind& accessOf(Datum datum) {
    return std::get<Kind>(rowOf(datum).access);
}

} // namespace

void writeDatum(iVKR_Company& company, Datum datum, const Variant& value) {
    std::visit([&](const auto& access) { write(company, access, value); }, rowOf(datum).access);
}

double readNumber(const iVKR_Company& company, Datum datum) {
    return (company.*accessOf<NumberAccess>(datum).read)();
}
void writeNumber(iVKR_Company& company, Datum datum, double value) {
    (company.*accessOf<NumberAccess>(datum).write)(value);
}
std::string readText(const iVKR_Company& company, Datum datum) {
    return (company.*accessOf<TextAccess>(datum).read)();
}
void writeText(iVKR_Company& company, Datum datum, const std::string& value) {
    (company.*accessOf<TextAccess>(datum).write)(value);
}
Date readDate(const iVKR_Company& company, Datum datum) {
    return (company.*accessOf<DateAccess>(datum).read)();
}
void writeDate(iVKR_Company& company, Datum datum, Date value) {
    (company.*accessOf<DateAccess>(datum).write)(value);
}
Variant readSeries(const iVKR_Company& company, Datum datum) {
    return (company.*accessOf<SeriesAccess>(datum).read)();
}
void writeSeries(iVKR_Company& company, Datum datum, const Variant& value) {
    (company.*accessOf<SeriesAccess>(datum).write)(value);
}

} // namespace vkr
