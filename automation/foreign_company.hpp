// SPDX-License-Identifier: MIT
#pragma once

#include "automation/late_bound.hpp"
#include "record/data_list.hpp"
#include "record/ivkr_company.hpp"
#include "record/notice_list.hpp"

#include <cstdint>
#include <memory>
#include <string>

namespace vkr::automation {

// A host's own record, any object that answers to the names of the interface, in this process or
// in another. What it fails with is thrown, as is an answer of another type than the datum's: the
// component leaves that datum out.
class ForeignCompany final : public iVKR_Company {
  public:
    // `called` is what answers to the names; the host knows the record as `itself`.
    ForeignCompany(ComPtr<IDispatch> called, ComPtr<IDispatch> itself)
        : object_(std::move(called)), itself_(std::move(itself)) {}

    [[nodiscard]] IDispatch* itself() const { return itself_.get(); }

#define VKR_FOREIGN(kind, name, title, unit, key, place)                                           \
    [[nodiscard]] datum_kind::kind::Value get_##name() const override {                            \
        return read(datum_kind::kind(), #name);                                                    \
    }                                                                                              \
    void put_##name(datum_kind::kind::Argument value) override {                                   \
        object_.put(#name, value);                                                                 \
    }
    VKR_DATA(VKR_FOREIGN)
#undef VKR_FOREIGN

    void put_QuarterlyFlag(const Variant& value) override;
    [[nodiscard]] std::shared_ptr<Object> get_ReportingPeriod() const override;
    [[nodiscard]] std::shared_ptr<Object> get_Settings() const override;
#define VKR_FOREIGN_CALL(name)                                                                     \
    Variant name(std::int16_t value) override {                                                    \
        return call(#name, value);                                                                 \
    }
#define VKR_FOREIGN_READ(name)                                                                     \
    [[nodiscard]] Variant get_##name() const override {                                            \
        return value(#name);                                                                       \
    }
    VKR_NOTICES(VKR_FOREIGN_CALL, VKR_FOREIGN_READ)
    VKR_FOREIGN_READ(SettingsApply)
#undef VKR_FOREIGN_CALL
#undef VKR_FOREIGN_READ

  private:
    [[nodiscard]] std::string read(datum_kind::Text kind, std::string_view name) const;
    [[nodiscard]] double read(datum_kind::Number kind, std::string_view name) const;
    [[nodiscard]] std::int16_t read(datum_kind::Year kind, std::string_view name) const;
    [[nodiscard]] Date read(datum_kind::Day kind, std::string_view name) const;
    [[nodiscard]] Variant read(datum_kind::Series kind, std::string_view name) const;
    [[nodiscard]] Variant value(std::string_view name) const;
    Variant call(std::string_view name, std::int16_t value);

    LateBound object_;
    ComPtr<IDispatch> itself_;
};

} // namespace vkr::automation
