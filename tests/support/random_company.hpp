// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"

#include <bit>
#include <random>
#include <string>

namespace vkr::test {

// Fills records with everything that they can hold; the same seed gives the same record.
class RandomCompany {
  public:
    explicit RandomCompany(unsigned seed) : random_(seed) {}

    std::shared_ptr<CompanyRecord> record() {
        auto company = std::make_shared<CompanyRecord>();
        for (const DatumRow& row : datumTable())
            if (chance(0.8))
                fill(*company, row);
        company->get_Settings()->put(setting::unit, std::int16_t(within(0, 3) * 3));
        company->get_Settings()->put(setting::leadPeriod, std::int16_t(within(-1, 11)));
        company->get_Settings()->put(setting::currencySymbol, text());
        for (const auto name : {setting::bookValue, setting::taxRate, setting::lockBasicInfo})
            company->get_Settings()->put(name, chance(0.5));
        return company;
    }

    // Any finite double by its bits, or one as people type it.
    double number() {
        if (chance(0.3))
            return within(-1'000'000, 1'000'000) / 100.0;
        for (;;) {
            const auto value = std::bit_cast<double>(bits_(random_));
            if (std::isfinite(value) && value != 0)
                return value;
        }
    }

    std::string text() {
        static const std::string pieces[] = {
            "a",  "Z",    "0",  " ",  "\"", "'",           ",",      ";",
            "\t", "\r\n", "\n", "\r", "%",  "ä",           "\u00a0", "\u202e",
            "=1", "-",    "\\", "漢", "😀",  "\u0301",      "\ufeff", "\ufffd",
            "?",  ":",    "--", "/*", "),", "👩‍💻", "\u2066", "DROP TABLE company"};
        std::string made;
        for (int count = within(0, 12); count > 0; --count)
            made += pieces[static_cast<std::size_t>(within(0, std::size(pieces) - 1))];
        return made;
    }

    int within(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }
    int within(int low, std::size_t high) { return within(low, static_cast<int>(high)); }
    bool chance(double likely) { return std::bernoulli_distribution(likely)(random_); }

    Date date() {
        const int year = chance(0.7) ? within(1980, 2030) : within(100, 9999);
        const int month = within(1, 12);
        return *makeDate(year, month, within(1, daysInMonth(year, month)));
    }

  private:
    void fill(CompanyRecord& company, const DatumRow& row) {
        std::visit([&](const auto& access) { fill(company, row.datum, access); }, row.access);
    }
    void fill(CompanyRecord& company, Datum datum, const TextAccess&) {
        writeText(company, datum, text());
    }
    void fill(CompanyRecord& company, Datum datum, const NumberAccess&) {
        writeNumber(company, datum, number());
    }
    void fill(CompanyRecord& company, Datum, const YearAccess&) {
        company.put_LastFY(
            static_cast<std::int16_t>(chance(0.8) ? within(1980, 2030) : within(-32768, 32767)));
    }
    void fill(CompanyRecord& company, Datum datum, const DateAccess&) {
        writeDate(company, datum, date());
    }
    void fill(CompanyRecord& company, Datum datum, const SeriesAccess&) {
        Variant series = readSeries(company, datum);
        for (int index = series.array().lower(); index <= series.array().upper(); ++index)
            if (chance(0.6))
                series.array().setNumber(index, number());
        writeSeries(company, datum, series);
    }

    std::mt19937 random_;
    std::uniform_int_distribution<std::uint64_t> bits_;
};

} // namespace vkr::test
