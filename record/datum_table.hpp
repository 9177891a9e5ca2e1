// SPDX-License-Identifier: MIT
#pragma once

#include "record/data_list.hpp"
#include "record/ivkr_company.hpp"

#include <initializer_list>
#include <span>
#include <string_view>
#include <type_traits>
#include <variant>

namespace vkr {

// Every datum of a record, in the order of the list.
#define VKR_DATUM(kind, name, title, unit, key, place) name,
enum class Datum { VKR_DATA(VKR_DATUM) };
#undef VKR_DATUM

#define VKR_DATUM(kind, name, title, unit, key, place) Datum::name,
inline constexpr int datumCount =
    static_cast<int>(std::initializer_list<Datum>{VKR_DATA(VKR_DATUM)}.size());
#undef VKR_DATUM

// Whether a datum is of a kind of datum_kind.
template <typename Kind>
[[nodiscard]] constexpr bool isOf(Datum datum) {
#define VKR_DATUM(kind, name, title, unit, key, place) std::is_same_v<datum_kind::kind, Kind>,
    constexpr bool matches[] = {VKR_DATA(VKR_DATUM)};
#undef VKR_DATUM
    return matches[static_cast<int>(datum)];
}

// What the figure of a datum is given in.
[[nodiscard]] constexpr DatumUnit unitOf(Datum datum) {
#define VKR_DATUM(kind, name, title, unit, key, place) DatumUnit::unit,
    constexpr DatumUnit units[] = {VKR_DATA(VKR_DATUM)};
#undef VKR_DATUM
    return units[static_cast<int>(datum)];
}

template <typename Value, typename Argument>
struct Access {
    Value (iVKR_Company::*read)() const;
    void (iVKR_Company::*write)(Argument);
};
template <typename Kind>
using AccessOf = Access<typename Kind::Value, typename Kind::Argument>;
using TextAccess = AccessOf<datum_kind::Text>;
using NumberAccess = AccessOf<datum_kind::Number>;
using YearAccess = AccessOf<datum_kind::Year>;
using DateAccess = AccessOf<datum_kind::Day>;
using SeriesAccess = AccessOf<datum_kind::Series>;

// A datum as the list tells it.
struct DatumRow {
    Datum datum;
    std::string_view name;  // of the property
    std::string_view title; // what people call it, whichever period it is of
    std::variant<TextAccess, NumberAccess, YearAccess, DateAccess, SeriesAccess> access;
    DatumPeriod period; // none for what is no series
    int upper;          // bound of a series, whose lower one is 0
    DatumUnit unit;
    std::string_view key; // in the CSV files
    int place;
};

[[nodiscard]] std::span<const DatumRow> datumTable();
[[nodiscard]] const DatumRow& rowOf(Datum datum);
[[nodiscard]] constexpr bool isSeries(const DatumRow& row) {
    return row.period != DatumPeriod::none;
}

// The datum as a variant: text, number, 16-bit year, date or array. Both pass on what the record
// throws; writing a value of another kind throws std::bad_variant_access or
// std::invalid_argument.
[[nodiscard]] Variant readDatum(const iVKR_Company& company, Datum datum);
void writeDatum(iVKR_Company& company, Datum datum, const Variant& value);

// Typed shorthands; std::bad_variant_access for a datum of another kind.
[[nodiscard]] double readNumber(const iVKR_Company& company, Datum datum);
void writeNumber(iVKR_Company& company, Datum datum, double value);
[[nodiscard]] std::string readText(const iVKR_Company& company, Datum datum);
void writeText(iVKR_Company& company, Datum datum, const std::string& value);
[[nodiscard]] Date readDate(const iVKR_Company& company, Datum datum);
void writeDate(iVKR_Company& company, Datum datum, Date value);
[[nodiscard]] Variant readSeries(const iVKR_Company& company, Datum datum);
void writeSeries(iVKR_Company& company, Datum datum, const Variant& value);

} // namespace vkr
