// SPDX-License-Identifier: MIT
#include "company/company_base.hpp"

#include "company/exact_text.hpp"
#include "platform/text.hpp"
#include "record/setting_table.hpp"

#include <algorithm>
#include <array>
#include <limits>
#include <stdexcept>
#include <utility>

namespace vkr {

namespace {

std::int16_t validInteger(const Variant& value) {
    if (!value.isNumeric() && !value.isEmpty())
        throw std::invalid_argument("The setting is a whole number.");
    const auto number = value.toLong();
    if (number < std::numeric_limits<std::int16_t>::min() ||
        number > std::numeric_limits<std::int16_t>::max())
        throw std::overflow_error("overflow");
    return static_cast<std::int16_t>(number);
}

class CompanySettings final : public Object {
  public:
    CompanySettings() {
        for (std::size_t i = 0; i < settingCount; ++i)
            values_[i] = initial(settingTable[i]);
    }

    [[nodiscard]] Variant get(std::string_view name) const override {
        const auto index = find(name);
        return index == settingCount ? Object::get(name) : values_[index];
    }

    void put(std::string_view name, const Variant& value) override {
        const auto index = find(name);
        if (index == settingCount)
            return Object::put(name, value);
        values_[index] = taken(settingTable[index].kind, value);
    }

  private:
    static Variant initial(const SettingRow& row) {
        switch (row.kind) {
        case SettingKind::number:
            return row.initial;
        case SettingKind::text:
            return "";
        case SettingKind::flag:
            return false;
        }
        return {};
    }

    static Variant taken(SettingKind kind, const Variant& value) {
        switch (kind) {
        case SettingKind::number:
            return validInteger(value);
        case SettingKind::text:
            return validText(value.toText());
        case SettingKind::flag:
            return value.toBoolean();
        }
        return {};
    }

    static std::size_t find(std::string_view name) {
        const auto* row =
            std::find_if(std::begin(settingTable), std::end(settingTable),
                         [&](const SettingRow& one) { return equalsIgnoringCase(one.name, name); });
        return static_cast<std::size_t>(row - std::begin(settingTable));
    }

    std::array<Variant, settingCount> values_;
};

// The lead period alone, for whoever holds the reporting period only.
class ReportingPeriod final : public Object {
  public:
    explicit ReportingPeriod(std::shared_ptr<Object> settings) : settings_(std::move(settings)) {}

    [[nodiscard]] Variant get(std::string_view name) const override {
        return answersTo(name) ? settings_->get(name) : Object::get(name);
    }
    void put(std::string_view name, const Variant& value) override {
        answersTo(name) ? settings_->put(name, value) : Object::put(name, value);
    }

  private:
    static bool answersTo(std::string_view name) {
        return std::ranges::any_of(settingTable, [&](const SettingRow& row) {
            return row.holder == SettingHolder::reportingPeriod &&
                   equalsIgnoringCase(row.name, name);
        });
    }

    std::shared_ptr<Object> settings_;
};

[[noreturn]] void refuse(std::string_view name) {
    throw std::invalid_argument("The record has no " + std::string(name) + ".");
}

} // namespace

CompanyBase::CompanyBase()
    : settings_(std::make_shared<CompanySettings>()),
      reportingPeriod_(std::make_shared<ReportingPeriod>(settings_)) {}

CompanyBase::CompanyBase(const CompanyBase& other)
    : iVKR_Company(other), settings_(std::make_shared<CompanySettings>()),
      reportingPeriod_(std::make_shared<ReportingPeriod>(settings_)) {
    for (const auto name : settingNames())
        settings_->put(name, other.settings_->get(name));
}

void CompanyBase::takeNothing(std::string_view name, const std::string& value) {
    if (!value.empty())
        refuse(name);
}
void CompanyBase::takeNothing(std::string_view name, double value) {
    if (value != 0)
        refuse(name);
}
void CompanyBase::takeNothing(std::string_view name, std::int16_t value) {
    if (value != 0)
        refuse(name);
}
void CompanyBase::takeNothing(std::string_view name, Date value) {
    if (!isAbsent(value))
        refuse(name);
}
void CompanyBase::takeNothing(std::string_view name, const Variant& value) {
    const VariantArray& figures = value.array();
    for (std::int64_t element = figures.lower(); element <= figures.upper(); ++element)
        if (figures.number(static_cast<int>(element)) != 0)
            refuse(name);
}

std::span<const std::string_view> settingNames() {
    static constexpr auto names = [] {
        std::array<std::string_view, settingCount> all;
        for (std::size_t i = 0; i < settingCount; ++i)
            all[i] = settingTable[i].name;
        return all;
    }();
    return names;
}

} // namespace vkr
