// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.hpp"
#include "platform/object.hpp"
#include "platform/variant.hpp"
#include "record/data_list.hpp"

#include <cstdint>
#include <memory>
#include <string>

namespace vkr {

// The company record that the host owns and the component edits. It is the only store: the
// component reads each datum when a record is handed in and writes it back when its field is left.
//
// Any operation may throw a std::exception to report a failure: the component then skips that
// datum alone.
//
// Units: money is in millions of the company's currency, share counts are in millions, prices,
// earnings and dividends are per share, rates and holdings are in percent. 0 is "no value".
// Dates are whole days; an absent date is Date{0}. Absent text is the empty string.
//
// Series are arrays of numbers with bounds of their own. A yearly series has the last fiscal year
// at element 1 and the year k - 1 before it at element k; element 0, where there is one, is the
// year after. A quarterly series has the last quarter at element 0 and the one k quarters before
// it at element k. They are read and written as a whole.
//
// Operations stand in the order of the interface.
class iVKR_Company : public Object {
  public:
    [[nodiscard]] virtual std::string get_Exchange() const = 0;
    virtual void put_Exchange(const std::string& value) = 0;
    [[nodiscard]] virtual std::string get_Industry() const = 0;
    virtual void put_Industry(const std::string& value) = 0;
    // Who the figures were taken from.
    [[nodiscard]] virtual std::string get_Source() const = 0;
    virtual void put_Source(const std::string& value) = 0;
    // Per share, as are the dividend and the 52-week range.
    [[nodiscard]] virtual double get_CurrentPrice() const = 0;
    virtual void put_CurrentPrice(double value) = 0;
    // Common dividend per share; CommDivAlternate stands in for it where that is not 0.
    [[nodiscard]] virtual double get_CommDiv() const = 0;
    virtual void put_CommDiv(double value) = 0;
    // The calendar year in which the last fiscal year ended; 0 where none is known.
    [[nodiscard]] virtual std::int16_t get_LastFY() const = 0;
    virtual void put_LastFY(std::int16_t value) = 0;
    [[nodiscard]] virtual double get_High52W() const = 0;
    virtual void put_High52W(double value) = 0;
    [[nodiscard]] virtual double get_Low52W() const = 0;
    virtual void put_Low52W(double value) = 0;
    // Millions of shares.
    [[nodiscard]] virtual double get_CommShares() const = 0;
    virtual void put_CommShares(double value) = 0;
    [[nodiscard]] virtual double get_DilutedShares() const = 0;
    virtual void put_DilutedShares(double value) = 0;
    // Millions of the currency.
    [[nodiscard]] virtual double get_TotalDebt() const = 0;
    virtual void put_TotalDebt(double value) = 0;
    // Told when quarterly figures have been derived anew; the value says from which source.
    virtual void put_QuarterlyFlag(const Variant& value) = 0;
    // Earnings per share of the last four quarters.
    [[nodiscard]] virtual double get_Last4QEPS() const = 0;
    virtual void put_Last4QEPS(double value) = 0;
    // Three calls around a shift of the fiscal years, with 0; a record may ignore them.
    virtual Variant BeginYearShift(std::int16_t value) = 0;
    virtual Variant YearShiftState(std::int16_t value) = 0;
    virtual Variant EndYearShift(std::int16_t value) = 0;
    // Percent, 35.5 for 35.5 %.
    [[nodiscard]] virtual double get_TaxRate() const = 0;
    virtual void put_TaxRate(double value) = 0;
    // Millions of the currency.
    [[nodiscard]] virtual double get_PrefDiv() const = 0;
    virtual void put_PrefDiv(double value) = 0;
    // A further call around a shift of the fiscal years, with 0; a record may ignore it.
    virtual Variant YearShiftUnit(std::int16_t value) = 0;
    // Millions of the currency.
    [[nodiscard]] virtual double get_TotalCap() const = 0;
    virtual void put_TotalCap(double value) = 0;
    // Percent of the shares.
    [[nodiscard]] virtual double get_InsiderHolding() const = 0;
    virtual void put_InsiderHolding(double value) = 0;
    [[nodiscard]] virtual double get_Institutional() const = 0;
    virtual void put_Institutional(double value) = 0;
    [[nodiscard]] virtual std::string get_Name() const = 0;
    virtual void put_Name(const std::string& value) = 0;
    [[nodiscard]] virtual std::string get_Symbol() const = 0;
    virtual void put_Symbol(const std::string& value) = 0;
    [[nodiscard]] virtual Date get_DateOfSource() const = 0;
    virtual void put_DateOfSource(Date value) = 0;
    [[nodiscard]] virtual Date get_PriceUpdatedDate() const = 0;
    virtual void put_PriceUpdatedDate(Date value) = 0;
    // Preferred shares at their value, in millions.
    [[nodiscard]] virtual double get_PrefShares() const = 0;
    virtual void put_PrefShares(double value) = 0;
    [[nodiscard]] virtual Date get_LastQDate() const = 0;
    virtual void put_LastQDate(Date value) = 0;
    // The day on which the last fiscal year ended.
    [[nodiscard]] virtual Date get_LastFYDate() const = 0;
    virtual void put_LastFYDate(Date value) = 0;
    // Projected earnings per share.
    [[nodiscard]] virtual double get_ORBEPSProj() const = 0;
    virtual void put_ORBEPSProj(double value) = 0;
    [[nodiscard]] virtual std::string get_Address1() const = 0;
    virtual void put_Address1(const std::string& value) = 0;
    [[nodiscard]] virtual std::string get_Address2() const = 0;
    virtual void put_Address2(const std::string& value) = 0;
    [[nodiscard]] virtual std::string get_City() const = 0;
    virtual void put_City(const std::string& value) = 0;
    [[nodiscard]] virtual std::string get_State() const = 0;
    virtual void put_State(const std::string& value) = 0;
    [[nodiscard]] virtual std::string get_Zip() const = 0;
    virtual void put_Zip(const std::string& value) = 0;
    [[nodiscard]] virtual std::string get_Country() const = 0;
    virtual void put_Country(const std::string& value) = 0;
    [[nodiscard]] virtual std::string get_Internet() const = 0;
    virtual void put_Internet(const std::string& value) = 0;
    [[nodiscard]] virtual std::string get_Tel() const = 0;
    virtual void put_Tel(const std::string& value) = 0;
    [[nodiscard]] virtual std::string get_ContactPerson() const = 0;
    virtual void put_ContactPerson(const std::string& value) = 0;
    [[nodiscard]] virtual std::string get_VLTimeliness() const = 0;
    virtual void put_VLTimeliness(const std::string& value) = 0;
    [[nodiscard]] virtual std::string get_VLSafety() const = 0;
    virtual void put_VLSafety(const std::string& value) = 0;
    // Two reads around a shift of the fiscal years; a record may answer empty values.
    [[nodiscard]] virtual Variant get_YearShiftFirst() const = 0;
    [[nodiscard]] virtual Variant get_YearShiftLast() const = 0;
    // Answers "intLeadPeriod", the index of the chosen reporting period (-1: none).
    [[nodiscard]] virtual std::shared_ptr<Object> get_ReportingPeriod() const = 0;
    [[nodiscard]] virtual Variant get_YearShiftCount() const = 0;
    // Read after the reporting period was written: refreshes what the record derives from it.
    [[nodiscard]] virtual Variant get_ReportingPeriodEnd() const = 0;
    // Four reads around a shift of the fiscal years; a record may answer empty values.
    [[nodiscard]] virtual Variant get_YearShiftPrices() const = 0;
    [[nodiscard]] virtual Variant get_YearShiftEarnings() const = 0;
    [[nodiscard]] virtual Variant get_YearShiftDividends() const = 0;
    [[nodiscard]] virtual Variant get_YearShiftShares() const = 0;
    // Answers by name "intUnit" (3 thousands, 6 millions, 9 billions; 0 never set),
    // "strCurSymbol", "blnBookVal", "blnTaxRate" and "blnLockBasicInfo", for reading and writing.
    [[nodiscard]] virtual std::shared_ptr<Object> get_Settings() const = 0;
    // Read after settings were written: the record takes them over.
    [[nodiscard]] virtual Variant get_SettingsApply() const = 0;
    [[nodiscard]] virtual double get_CommDivAlternate() const = 0;
    virtual void put_CommDivAlternate(double value) = 0;
    // The date of element 0 of the quarterly series.
    [[nodiscard]] virtual Date get_LastQDateForGrid() const = 0;
    virtual void put_LastQDateForGrid(Date value) = 0;
    [[nodiscard]] virtual Date get_LastUpdate() const = 0;
    virtual void put_LastUpdate(Date value) = 0;
    [[nodiscard]] virtual std::string get_Notes() const = 0;
    virtual void put_Notes(const std::string& value) = 0;

    // Quarterly pre-tax income, millions.
    [[nodiscard]] virtual Variant get_QPTISeries() const = 0;
    virtual void put_QPTISeries(const Variant& value) = 0;
    // Common shares outstanding by year, millions.
    [[nodiscard]] virtual Variant get_YCSOSeries() const = 0;
    virtual void put_YCSOSeries(const Variant& value) = 0;
    // Percent.
    [[nodiscard]] virtual Variant get_YTaxRateSeries() const = 0;
    virtual void put_YTaxRateSeries(const Variant& value) = 0;
    // Millions.
    [[nodiscard]] virtual Variant get_YCommEqSeries() const = 0;
    virtual void put_YCommEqSeries(const Variant& value) = 0;
    [[nodiscard]] virtual Variant get_QNetIncSeries() const = 0;
    virtual void put_QNetIncSeries(const Variant& value) = 0;
    [[nodiscard]] virtual Variant get_QRevenueSeries() const = 0;
    virtual void put_QRevenueSeries(const Variant& value) = 0;
    // Percent.
    [[nodiscard]] virtual Variant get_QTaxRateSeries() const = 0;
    virtual void put_QTaxRateSeries(const Variant& value) = 0;
    // Per share.
    [[nodiscard]] virtual Variant get_QEPSSeries() const = 0;
    virtual void put_QEPSSeries(const Variant& value) = 0;
    // Millions.
    [[nodiscard]] virtual Variant get_YPTISeries() const = 0;
    virtual void put_YPTISeries(const Variant& value) = 0;
    // Per share.
    [[nodiscard]] virtual Variant get_YDividendSeries() const = 0;
    virtual void put_YDividendSeries(const Variant& value) = 0;
    // Millions.
    [[nodiscard]] virtual Variant get_YRevenueSeries() const = 0;
    virtual void put_YRevenueSeries(const Variant& value) = 0;
    // Per share.
    [[nodiscard]] virtual Variant get_YHighSeries() const = 0;
    virtual void put_YHighSeries(const Variant& value) = 0;
    // Millions.
    [[nodiscard]] virtual Variant get_YNetIncSeries() const = 0;
    virtual void put_YNetIncSeries(const Variant& value) = 0;
    // Per share.
    [[nodiscard]] virtual Variant get_YBookValSeries() const = 0;
    virtual void put_YBookValSeries(const Variant& value) = 0;
    [[nodiscard]] virtual Variant get_YLowSeries() const = 0;
    virtual void put_YLowSeries(const Variant& value) = 0;
    [[nodiscard]] virtual Variant get_YEPSSeries() const = 0;
    virtual void put_YEPSSeries(const Variant& value) = 0;

    // What the list has beyond these.
#define VKR_OPERATIONS(kind, name, title, unit, key, place)                                        \
    [[nodiscard]] virtual datum_kind::kind::Value get_##name() const = 0;                          \
    virtual void put_##name(datum_kind::kind::Argument value) = 0;
    VKR_FURTHER_DATA(VKR_OPERATIONS)
#undef VKR_OPERATIONS
};

// Identifier under which a host registers its own record class with the object factory; the
// component creates one when it is handed no record.
inline constexpr std::string_view companyRecordId = "VKR_Company.Company";

// Names that the settings and the reporting-period objects answer to.
namespace setting {
inline constexpr std::string_view unit = "intUnit";
inline constexpr std::string_view leadPeriod = "intLeadPeriod";
inline constexpr std::string_view currencySymbol = "strCurSymbol";
inline constexpr std::string_view bookValue = "blnBookVal";
inline constexpr std::string_view taxRate = "blnTaxRate";
inline constexpr std::string_view lockBasicInfo = "blnLockBasicInfo";
} // namespace setting

} // namespace vkr
