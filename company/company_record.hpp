// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_base.hpp"
#include "platform/object_factory.hpp"
#include "platform/variant.hpp"
#include "record/datum_table.hpp"

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
    static constexpr int yearlyUpper = datum_kind::Yearly::upper;
    static constexpr int quarterlyUpper = datum_kind::Quarterly::upper;

    CompanyRecord();

    // A copy shares nothing with the original, neither settings nor the reporting period.
    [[nodiscard]] std::shared_ptr<CompanyRecord> clone() const;

    // The datum as it was set, where the properties may answer with what stands in for it.
    [[nodiscard]] const Variant& stored(Datum datum) const;

#define VKR_PROPERTY(kind, name, title, unit, key, place)                                          \
    [[nodiscard]] datum_kind::kind::Value get_##name() const override {                            \
        return read(datum_kind::kind(), Datum::name);                                              \
    }                                                                                              \
    void put_##name(datum_kind::kind::Argument value) override {                                   \
        write(datum_kind::kind(), Datum::name, value);                                             \
    }
    VKR_DATA(VKR_PROPERTY)
#undef VKR_PROPERTY

  private:
    [[nodiscard]] std::string read(datum_kind::Text kind, Datum datum) const;
    [[nodiscard]] double read(datum_kind::Number kind, Datum datum) const;
    [[nodiscard]] std::int16_t read(datum_kind::Year kind, Datum datum) const;
    [[nodiscard]] Date read(datum_kind::Day kind, Datum datum) const;
    [[nodiscard]] const Variant& read(datum_kind::Series kind, Datum datum) const;
    void write(datum_kind::Text kind, Datum datum, const std::string& value);
    void write(datum_kind::Number kind, Datum datum, double value);
    void write(datum_kind::Year kind, Datum datum, std::int16_t value);
    void write(datum_kind::Day kind, Datum datum, Date value);
    void write(datum_kind::Series kind, Datum datum, const Variant& value);
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
