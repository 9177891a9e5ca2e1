// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "record/notice_list.hpp"

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
    Variant quarterlyFlag;              // as it was written last
    bool datesFollowYear = false;       // writing LastFY moves LastFYDate into that year

    // The operations of one kind that were asked for, oldest first.
    [[nodiscard]] std::vector<std::string> logged(std::string_view kind) const {
        std::vector<std::string> found;
        for (const auto& operation : log)
            if (operation.starts_with(kind))
                found.push_back(operation);
        return found;
    }

#define VKR_PROPERTY(kind, name, title, unit, key, place)                                          \
    [[nodiscard]] datum_kind::kind::Value get_##name() const override {                            \
        note("read " #name);                                                                       \
        return shown(company->get_##name());                                                       \
    }                                                                                              \
    void put_##name(datum_kind::kind::Argument value) override {                                   \
        note("write " #name);                                                                      \
        company->put_##name(taken(Datum::name, value));                                            \
    }
#define VKR_READ(name)                                                                             \
    [[nodiscard]] Variant get_##name() const override {                                            \
        note("read " #name);                                                                       \
        return company->get_##name();                                                              \
    }
#define VKR_CALL(name)                                                                             \
    Variant name(std::int16_t value) override {                                                    \
        note("call " #name);                                                                       \
        return company->name(value);                                                               \
    }

    VKR_DATA(VKR_PROPERTY)
    VKR_NOTICES(VKR_CALL, VKR_READ)

#undef VKR_CALL
#undef VKR_READ
#undef VKR_PROPERTY

    void put_QuarterlyFlag(const Variant& value) override {
        note("write QuarterlyFlag");
        quarterlyFlag = value;
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

    // What is read in place of what stands in it.
    template <typename Value>
    [[nodiscard]] Value shown(const Value& value) const {
        return value;
    }
    [[nodiscard]] double shown(double figure) const {
        return everyFigure.value_or(figure);
    }
    [[nodiscard]] Variant shown(Variant series) const {
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
    // What is written in place of what was given.
    template <typename Value>
    const Value& taken(Datum /*datum*/, const Value& value) {
        return value;
    }
    std::int16_t taken(Datum /*datum*/, std::int16_t year) {
        if (datesFollowYear)
            company->put_LastFYDate(
                addYears(company->get_LastFYDate(), year - civil(company->get_LastFYDate()).year));
        return year;
    }
    Variant taken(Datum datum, const Variant& series) {
        return missing + first == 0 ? series : laidOver(series, company->stored(datum));
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
