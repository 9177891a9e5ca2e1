// SPDX-License-Identifier: MIT
#pragma once

#include "record/data_list.hpp"
#include "record/ivkr_company.hpp"
#include "record/notice_list.hpp"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace vkr {

// A record that has nothing, to begin a record of your own with: override the reads and writes of
// the data you have, and no others.
//
//     class Quote final : public vkr::CompanyBase {
//       public:
//         [[nodiscard]] double get_CurrentPrice() const override { return price_; }
//         void put_CurrentPrice(double value) override { price_ = value; }
//
//       private:
//         double price_ = 120.5;
//     };
//
// A datum that is not overridden is absent: an empty text, 0, no date, a series without elements,
// so that its cells can't be entered. Writing nothing into it is no fault; writing anything else
// throws std::invalid_argument, so that the field on screen is marked as not stored rather than
// what was typed being lost.
//
// Override both operations of a datum, or only the read for one that can be looked at alone.
class CompanyBase : public iVKR_Company {
  public:
    CompanyBase();
    // A copy has settings of its own.
    CompanyBase(const CompanyBase& other);
    CompanyBase& operator=(const CompanyBase&) = delete;
    ~CompanyBase() override = default;

#define VKR_ABSENT(kind, name, title, unit, key, place)                                            \
    [[nodiscard]] datum_kind::kind::Value get_##name() const override {                            \
        return datum_kind::kind::absent();                                                         \
    }                                                                                              \
    void put_##name(datum_kind::kind::Argument value) override {                                   \
        takeNothing(#name, value);                                                                 \
    }
    VKR_DATA(VKR_ABSENT)
#undef VKR_ABSENT

    // The settings answer to every name of `setting`, upper or lower case; any other name throws.
    // At first the unit is 0 (never chosen), the lead period -1 (none), the others empty or false.
    // They live as long as the record; one that keeps them writes them down with its data. The
    // lead period is one and the same value for both objects.
    [[nodiscard]] std::shared_ptr<Object> get_Settings() const override {
        return settings_;
    }
    [[nodiscard]] std::shared_ptr<Object> get_ReportingPeriod() const override {
        return reportingPeriod_;
    }

    // Nothing is derived from these, and nothing goes wrong by calling them.
    void put_QuarterlyFlag(const Variant& /*value*/) override {}
#define VKR_IGNORED_CALL(name)                                                                     \
    Variant name(std::int16_t /*value*/) override {                                                \
        return {};                                                                                 \
    }
#define VKR_IGNORED_READ(name)                                                                     \
    [[nodiscard]] Variant get_##name() const override {                                            \
        return {};                                                                                 \
    }
    VKR_NOTICES(VKR_IGNORED_CALL, VKR_IGNORED_READ)
    VKR_IGNORED_READ(SettingsApply)
#undef VKR_IGNORED_CALL
#undef VKR_IGNORED_READ

  private:
    // What the record has no place for, unless it is nothing, throws.
    static void takeNothing(std::string_view name, const std::string& value);
    static void takeNothing(std::string_view name, double value);
    static void takeNothing(std::string_view name, std::int16_t value);
    static void takeNothing(std::string_view name, Date value);
    static void takeNothing(std::string_view name, const Variant& value);

    std::shared_ptr<Object> settings_;
    std::shared_ptr<Object> reportingPeriod_;
};

// The names that the settings object answers to, in a fixed order.
[[nodiscard]] std::span<const std::string_view> settingNames();

} // namespace vkr
