// SPDX-License-Identifier: MIT
#include "binding/datum_table.hpp"

#include <array>

namespace vkr {

namespace {

// The name stands once: reading, writing and the column of a store follow from it.
#define VKR_DATUM(kind, name)                                                                      \
    DatumRow {                                                                                     \
        Datum::name, #name, kind##Access {                                                         \
            &iVKR_Company::get_##name, &iVKR_Company::put_##name                                   \
        }                                                                                          \
    }

constexpr std::array<DatumRow, datumCount> table = {{
    VKR_DATUM(Text, Exchange),
    VKR_DATUM(Text, Industry),
    VKR_DATUM(Text, Source),
    VKR_DATUM(Number, CurrentPrice),
    VKR_DATUM(Number, CommDiv),
    VKR_DATUM(Year, LastFY),
    VKR_DATUM(Number, High52W),
    VKR_DATUM(Number, Low52W),
    VKR_DATUM(Number, CommShares),
    VKR_DATUM(Number, DilutedShares),
    VKR_DATUM(Number, TotalDebt),
    VKR_DATUM(Number, Last4QEPS),
    VKR_DATUM(Number, TaxRate),
    VKR_DATUM(Number, PrefDiv),
    VKR_DATUM(Number, TotalCap),
    VKR_DATUM(Number, InsiderHolding),
    VKR_DATUM(Number, Institutional),
    VKR_DATUM(Text, Name),
    VKR_DATUM(Text, Symbol),
    VKR_DATUM(Date, DateOfSource),
    VKR_DATUM(Date, PriceUpdatedDate),
    VKR_DATUM(Number, PrefShares),
    VKR_DATUM(Date, LastQDate),
    VKR_DATUM(Date, LastFYDate),
    VKR_DATUM(Number, ORBEPSProj),
    VKR_DATUM(Text, Address1),
    VKR_DATUM(Text, Address2),
    VKR_DATUM(Text, City),
    VKR_DATUM(Text, State),
    VKR_DATUM(Text, Zip),
    VKR_DATUM(Text, Country),
    VKR_DATUM(Text, Internet),
    VKR_DATUM(Text, Tel),
    VKR_DATUM(Text, ContactPerson),
    VKR_DATUM(Text, VLTimeliness),
    VKR_DATUM(Text, VLSafety),
    VKR_DATUM(Number, CommDivAlternate),
    VKR_DATUM(Date, LastQDateForGrid),
    VKR_DATUM(Date, LastUpdate),
    VKR_DATUM(Text, Notes),
    VKR_DATUM(Series, QPTISeries),
    VKR_DATUM(Series, YCSOSeries),
    VKR_DATUM(Series, YTaxRateSeries),
    VKR_DATUM(Series, YCommEqSeries),
    VKR_DATUM(Series, QNetIncSeries),
    VKR_DATUM(Series, QRevenueSeries),
    VKR_DATUM(Series, QTaxRateSeries),
    VKR_DATUM(Series, QEPSSeries),
    VKR_DATUM(Series, YPTISeries),
    VKR_DATUM(Series, YDividendSeries),
    VKR_DATUM(Series, YRevenueSeries),
    VKR_DATUM(Series, YHighSeries),
    VKR_DATUM(Series, YNetIncSeries),
    VKR_DATUM(Series, YBookValSeries),
    VKR_DATUM(Series, YLowSeries),
    VKR_DATUM(Series, YEPSSeries),
}};

#undef VKR_DATUM

constexpr bool everyRowStandsAtItsDatum() {
    for (std::size_t i = 0; i < table.size(); ++i)
        if (table[i].datum != static_cast<Datum>(i))
            return false;
    return true;
}
static_assert(everyRowStandsAtItsDatum());

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
