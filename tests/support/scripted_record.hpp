// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vkr {

// A record that writes down what is asked of it, and fails on demand. Operations go by
// "read Name", "write Name" and "call BeginYearShift"; those of its settings and reporting-period
// objects by "get intUnit" and "put intUnit", of which the lead period belongs to the latter.
class ScriptedRecord final : public iVKR_Company {
  public:
    explicit ScriptedRecord(std::shared_ptr<CompanyRecord> figures)
        : company(std::move(figures)),
          settings_(std::make_shared<Named>(*this, company->get_Settings())),
          period_(std::make_shared<Named>(*this, company->get_ReportingPeriod())) {}

    std::shared_ptr<CompanyRecord> company; // what stands in it
    mutable std::vector<std::string> log;
    std::set<std::string, std::less<>> failing;             // operations that throw
    std::function<void(const std::string& operation)> hook; // runs before each one
    bool withoutObjects = false; // settings and reporting period are null
    int missing = 0; // elements that its series lack at their end; `company` keeps what is there
    // Its settings are a copy for whoever asks; reading SettingsApply takes over the last one.
    bool lendsSettings = false;
    std::optional<double> everyFigure;  // read in place of all numbers and elements
    int first = 0;                      // the lower bound of its series
    std::optional<Variant> everySeries; // read in place of all series
    bool datesFollowYear = false;       // writing LastFY moves LastFYDate into that year

    // The operations of one kind that were asked for, oldest first.
    [[nodiscard]] std::vector<std::string> logged(std::string_view kind) const {
        std::vector<std::string> found;
        for (const auto& operation : log)
            if (operation.starts_with(kind))
                found.push_back(operation);
        return found;
    }

#define VKR_PROPERTY(Type, Argument, name)                                                         \
    [[nodiscard]] Type get_##name() const override {                                               \
        note("read " #name);                                                                       \
        return company->get_##name();                                                              \
    }                                                                                              \
    void put_##name(Argument value) override {                                                     \
        note("write " #name);                                                                      \
        company->put_##name(value);                                                                \
    }
#define VKR_TEXT(name) VKR_PROPERTY(std::string, const std::string&, name)
#define VKR_NUMBER(name)                                                                           \
    [[nodiscard]] double get_##name() const override {                                             \
        note("read " #name);                                                                       \
        return everyFigure.value_or(company->get_##name());                                        \
    }                                                                                              \
    void put_##name(double value) override {                                                       \
        note("write " #name);                                                                      \
        company->put_##name(value);                                                                \
    }
#define VKR_DATE(name) VKR_PROPERTY(Date, Date, name)
#define VKR_SERIES(name)                                                                           \
    [[nodiscard]] Variant get_##name() const override {                                            \
        note("read " #name);                                                                       \
        return shortened(company->get_##name());                                                   \
    }                                                                                              \
    void put_##name(const Variant& value) override {                                               \
        note("write " #name);                                                                      \
        company->put_##name(missing + first == 0 ? value                                           \
                                                 : laidOver(value, company->get_##name()));        \
    }
#define VKR_READ(Type, name)                                                                       \
    [[nodiscard]] Type get_##name() const override {                                               \
        note("read " #name);                                                                       \
        return company->get_##name();                                                              \
    }
#define VKR_CALL(name)                                                                             \
    Variant name(std::int16_t value) override {                                                    \
        note("call " #name);                                                                       \
        return company->name(value);                                                               \
    }

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
    VKR_CALL(BeginYearShift)
    VKR_CALL(YearShiftState)
    VKR_CALL(EndYearShift)
    VKR_NUMBER(TaxRate)
    VKR_NUMBER(PrefDiv)
    VKR_CALL(YearShiftUnit)
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
    VKR_READ(Variant, YearShiftFirst)
    VKR_READ(Variant, YearShiftLast)
    VKR_READ(Variant, YearShiftCount)
    VKR_READ(Variant, ReportingPeriodEnd)
    VKR_READ(Variant, YearShiftPrices)
    VKR_READ(Variant, YearShiftEarnings)
    VKR_READ(Variant, YearShiftDividends)
    VKR_READ(Variant, YearShiftShares)
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

#undef VKR_CALL
#undef VKR_READ
#undef VKR_SERIES
#undef VKR_DATE
#undef VKR_NUMBER
#undef VKR_TEXT
#undef VKR_PROPERTY

    [[nodiscard]] std::int16_t get_LastFY() const override {
        note("read LastFY");
        return company->get_LastFY();
    }
    void put_LastFY(std::int16_t value) override {
        note("write LastFY");
        if (datesFollowYear)
            company->put_LastFYDate(
                addYears(company->get_LastFYDate(), value - civil(company->get_LastFYDate()).year));
        company->put_LastFY(value);
    }
    void put_QuarterlyFlag(const Variant& value) override {
        note("write QuarterlyFlag");
        company->put_QuarterlyFlag(value);
    }
    [[nodiscard]] std::shared_ptr<Object> get_Settings() const override {
        note("read Settings");
        if (lendsSettings)
            return lent_ = company->clone()->get_Settings();
        return withoutObjects ? nullptr : settings_;
    }
    [[nodiscard]] Variant get_SettingsApply() const override {
        note("read SettingsApply");
        if (const auto lent = std::exchange(lent_, nullptr))
            for (const auto name : settingNames())
                company->get_Settings()->put(name, lent->get(name));
        return company->get_SettingsApply();
    }
    [[nodiscard]] std::shared_ptr<Object> get_ReportingPeriod() const override {
        note("read ReportingPeriod");
        return withoutObjects ? nullptr : period_;
    }

  private:
    class Named final : public Object {
      public:
        Named(const ScriptedRecord& record, std::shared_ptr<Object> object)
            : record_(record), object_(std::move(object)) {}
        [[nodiscard]] Variant get(std::string_view name) const override {
            record_.note("get " + std::string(name));
            return object_->get(name);
        }
        void put(std::string_view name, const Variant& value) override {
            record_.note("put " + std::string(name));
            object_->put(name, value);
        }

      private:
        const ScriptedRecord& record_;
        std::shared_ptr<Object> object_;
    };

    [[nodiscard]] Variant shortened(Variant series) const {
        if (everySeries)
            return *everySeries;
        if (everyFigure)
            std::ranges::fill(*series.array().numbers(), *everyFigure);
        if (missing + first != 0) {
            auto figures = *series.array().numbers();
            figures.resize(figures.size() -
                           std::min(figures.size(), static_cast<std::size_t>(missing)));
            figures.erase(figures.begin(), figures.begin() + first);
            series = numberArray(std::move(figures), first);
        }
        return series;
    }
    static Variant laidOver(const Variant& series, Variant whole) {
        for (int i = series.array().lower(); i <= series.array().upper(); ++i)
            whole.array().set(i, series.array().at(i));
        return whole;
    }
    void note(const std::string& operation) const {
        log.push_back(operation);
        if (hook)
            hook(operation);
        if (failing.contains(operation))
            throw std::runtime_error(operation + " fails");
    }

    std::shared_ptr<Object> settings_;
    std::shared_ptr<Object> period_;
    mutable std::shared_ptr<Object> lent_;
};

} // namespace vkr
