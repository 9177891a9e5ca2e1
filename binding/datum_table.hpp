// SPDX-License-Identifier: MIT
#pragma once

#include "binding/ivkr_company.hpp"

#include <span>
#include <string_view>
#include <variant>

namespace vkr {

// Every datum of a record that can be read and written, in the order of the interface.
enum class Datum {
    Exchange,
    Industry,
    Source,
    CurrentPrice,
    CommDiv,
    LastFY,
    High52W,
    Low52W,
    CommShares,
    DilutedShares,
    TotalDebt,
    Last4QEPS,
    TaxRate,
    PrefDiv,
    TotalCap,
    InsiderHolding,
    Institutional,
    Name,
    Symbol,
    DateOfSource,
    PriceUpdatedDate,
    PrefShares,
    LastQDate,
    LastFYDate,
    ORBEPSProj,
    Address1,
    Address2,
    City,
    State,
    Zip,
    Country,
    Internet,
    Tel,
    ContactPerson,
    VLTimeliness,
    VLSafety,
    CommDivAlternate,
    LastQDateForGrid,
    LastUpdate,
    Notes,
    QPTISeries,
    YCSOSeries,
    YTaxRateSeries,
    YCommEqSeries,
    QNetIncSeries,
    QRevenueSeries,
    QTaxRateSeries,
    QEPSSeries,
    YPTISeries,
    YDividendSeries,
    YRevenueSeries,
    YHighSeries,
    YNetIncSeries,
    YBookValSeries,
    YLowSeries,
    YEPSSeries,
};
inline constexpr int datumCount = static_cast<int>(Datum::YEPSSeries) + 1;

template <typename Value, typename Argument>
struct Access {
    Value (iVKR_Company::*read)() const;
    void (iVKR_Company::*write)(Argument);
};
using TextAccess = Access<std::string, const std::string&>;
using NumberAccess = Access<double, double>;
using YearAccess = Access<std::int16_t, std::int16_t>;
using DateAccess = Access<Date, Date>;
using SeriesAccess = Access<Variant, const Variant&>;

struct DatumRow {
    Datum datum;
    std::string_view name; // of the property
    std::variant<TextAccess, NumberAccess, YearAccess, DateAccess, SeriesAccess> access;
};

[[nodiscard]] std::span<const DatumRow> datumTable();
[[nodiscard]] const DatumRow& rowOf(Datum datum);
[[nodiscard]] constexpr bool isSeries(const DatumRow& row) {
    return std::holds_alternative<SeriesAccess>(row.access);
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
