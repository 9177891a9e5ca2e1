// SPDX-License-Identifier: MIT
#pragma once

#include "binding/datum_table.hpp"
#include "company/company_base.hpp"
#include "platform/object_factory.hpp"
#include "platform/variant.hpp"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vkr {

// The company record of this project, held in memory.
//
// A new record is empty: texts "", numbers 0, dates absent, the unit 0 (never chosen), no
// reporting period (-1), yearly series of doubles with the bounds 0 to 10 and quarterly series
// with 0 to 34, all 0.
//
// It takes only what it can give back exactly, and throws std::invalid_argument for anything
// else, with the datum unchanged: text that is no valid UTF-8, a figure that is not finite, a date
// outside of the years 100 to 9999, a series of other bounds. Of a date it keeps the day.
//
// Three data answer for one another while they are absent (0), so that a record is never half
// dated: LastFY is then the year of LastFYDate, LastQDate the same as LastQDateForGrid and the
// other way about.
class CompanyRecord final : public CompanyBase {
  public:
    static constexpr int yearlyUpper = 10;
    static constexpr int quarterlyUpper = 34;

    CompanyRecord();

    // A copy shares nothing with the original, neither settings nor the reporting period.
    [[nodiscard]] std::shared_ptr<CompanyRecord> clone() const;

    // The datum as it was set, where the properties may answer with what stands in for it.
    [[nodiscard]] const Variant& stored(Datum datum) const;

// A property is named once; the rest follows from its kind.
#define VKR_PROPERTY(Type, Argument, read, write, name)                                            \
    [[nodiscard]] Type get_##name() const override {                                               \
        return read(Datum::name);                                                                  \
    }                                                                                              \
    void put_##name(Argument value) override {                                                     \
        write(Datum::name, value);                                                                 \
    }
#define VKR_TEXT(name) VKR_PROPERTY(std::string, const std::string&, text, setText, name)
#define VKR_NUMBER(name) VKR_PROPERTY(double, double, number, setNumber, name)
#define VKR_DATE(name) VKR_PROPERTY(Date, Date, date, setDate, name)
#define VKR_SERIES(name) VKR_PROPERTY(Variant, const Variant&, stored, setSeries, name)

    VKR_TEXT(Exchange)
    VKR_TEXT(Industry)
    VKR_TEXT(Source)
    VKR_NUMBER(CurrentPrice)
    VKR_NUMBER(CommDiv)
    VKR_NUMBER(High52W)
    VKR_NUMBER(Low52W)
    VKR_NUMBER(CommShares)
    VKR_NUMBER(DilutedShares)
    VKR_NUMBER(TotalDebt)
    VKR_NUMBER(Last4QEPS)
    VKR_NUMBER(TaxRate)
    VKR_NUMBER(PrefDiv)
    VKR_NUMBER(TotalCap)
    VKR_NUMBER(InsiderHolding)
    VKR_NUMBER(Institutional)
    VKR_TEXT(Name)
    VKR_TEXT(Symbol)
    VKR_DATE(DateOfSource)
    VKR_DATE(PriceUpdatedDate)
    VKR_NUMBER(PrefShares)
    VKR_DATE(LastQDate)
    VKR_DATE(LastFYDate)
    VKR_NUMBER(ORBEPSProj)
    VKR_TEXT(Address1)
    VKR_TEXT(Address2)
    VKR_TEXT(City)
    VKR_TEXT(State)
    VKR_TEXT(Zip)
    VKR_TEXT(Country)
    VKR_TEXT(Internet)
    VKR_TEXT(Tel)
    VKR_TEXT(ContactPerson)
    VKR_TEXT(VLTimeliness)
    VKR_TEXT(VLSafety)
    VKR_NUMBER(CommDivAlternate)
    VKR_DATE(LastQDateForGrid)
    VKR_DATE(LastUpdate)
    VKR_TEXT(Notes)
    VKR_SERIES(QPTISeries)
    VKR_SERIES(YCSOSeries)
    VKR_SERIES(YTaxRateSeries)
    VKR_SERIES(YCommEqSeries)
    VKR_SERIES(QNetIncSeries)
    VKR_SERIES(QRevenueSeries)
    VKR_SERIES(QTaxRateSeries)
    VKR_SERIES(QEPSSeries)
    VKR_SERIES(YPTISeries)
    VKR_SERIES(YDividendSeries)
    VKR_SERIES(YRevenueSeries)
    VKR_SERIES(YHighSeries)
    VKR_SERIES(YNetIncSeries)
    VKR_SERIES(YBookValSeries)
    VKR_SERIES(YLowSeries)
    VKR_SERIES(YEPSSeries)

#undef VKR_SERIES
#undef VKR_DATE
#undef VKR_NUMBER
#undef VKR_TEXT
#undef VKR_PROPERTY

    [[nodiscard]] std::int16_t get_LastFY() const override;
    void put_LastFY(std::int16_t value) override;

  private:
    [[nodiscard]] std::string text(Datum datum) const;
    [[nodiscard]] double number(Datum datum) const;
    [[nodiscard]] Date date(Datum datum) const;
    void setText(Datum datum, const std::string& value);
    void setNumber(Datum datum, double value);
    void setDate(Datum datum, Date value);
    void setSeries(Datum datum, const Variant& value);
    [[nodiscard]] Variant& place(Datum datum);

    std::array<Variant, datumCount> data_;
};

// A series whose elements are fiscal years; the other ones hold quarters.
[[nodiscard]] bool isYearly(Datum series);

// One datum in which two records differ.
struct Difference {
    std::string datum;          // the name of the property or the setting
    std::optional<int> element; // of a series
    // Numbers with all their digits, dates as 2025-09-27; "" where there is none.
    std::string before;
    std::string after;

    friend bool operator==(const Difference&, const Difference&) = default;
};

// Datum by datum in the order of the interface, then the settings. Passes on what a record throws.
[[nodiscard]] std::vector<Difference> differences(const iVKR_Company& before,
                                                  const iVKR_Company& after);
[[nodiscard]] bool sameAs(const iVKR_Company& left, const iVKR_Company& right);

// Lets the factory create empty records under companyRecordId.
void registerCompanyRecord(ObjectFactory& factory);

} // namespace vkr
