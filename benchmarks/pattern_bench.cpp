// SPDX-License-Identifier: MIT
// Display patterns and typed dates against the libraries that do the same.
#include "input/date_pattern.hpp"
#include "input/date_reader.hpp"
#include "input/number_pattern.hpp"
#include "platform/date.hpp"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <unicode/decimfmt.h>
#include <unicode/dtfmtsym.h>
#include <unicode/simpletz.h>
#include <unicode/smpdtfmt.h>
#ifdef VKR_BENCH_QT
#include <QLocale>
#endif

#include <array>
#include <memory>
#include <string>

namespace {

// As they stand in a record: typed ones, computed ones, ties and a negative.
constexpr std::array<double, 8> figures = {394.33, 1234.565,  0.125,     98765.4321,
                                           -12.5,  1.0 / 3.0, 1250000.0, 17.85};

template <typename Format>
void overFigures(benchmark::State& state, Format&& format) {
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(format(figures[next]));
        next = (next + 1) % figures.size();
    }
}

void numberOurs(benchmark::State& state) {
    overFigures(state, [](double value) { return vkr::formatNumber(value, "#0.00"); });
}
BENCHMARK(numberOurs)->Name("pattern/ours");

void numberCompiled(benchmark::State& state) {
    const vkr::NumberPattern pattern("#0.00");
    overFigures(state, [&](double value) { return pattern.format(value); });
}
BENCHMARK(numberCompiled)->Name("pattern/compiled");

void numberFmt(benchmark::State& state) {
    overFigures(state, [](double value) { return fmt::format("{:.2f}", value); });
}
BENCHMARK(numberFmt)->Name("pattern/fmt");

void numberIcu(benchmark::State& state) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::DecimalFormat format(
        "#0.00", icu::DecimalFormatSymbols(icu::Locale::getUS(), status), status);
    if (U_FAILURE(status)) {
        state.SkipWithError("no decimal format");
        return;
    }
    overFigures(state, [&](double value) {
        icu::UnicodeString text;
        format.format(value, text);
        return text;
    });
}
BENCHMARK(numberIcu)->Name("pattern/icu");

#ifdef VKR_BENCH_QT
void numberQLocale(benchmark::State& state) {
    const QLocale locale(QLocale::English, QLocale::UnitedStates);
    overFigures(state, [&](double value) { return locale.toString(value, 'f', 2); });
}
BENCHMARK(numberQLocale)->Name("pattern/qlocale");
#endif

// Both sides work on the same days, without a time zone's rules in between.
std::unique_ptr<icu::SimpleDateFormat> icuFormat(UErrorCode& status) {
    auto format =
        std::make_unique<icu::SimpleDateFormat>("MMM/dd/yyyy", icu::Locale::getUS(), status);
    if (U_SUCCESS(status)) {
        format->adoptTimeZone(new icu::SimpleTimeZone(0, "UTC"));
        format->setLenient(false);
    }
    return format;
}

const vkr::Date someDay = *vkr::makeDate(2005, 12, 31);
constexpr double millisecondsFrom1970 = 1135987200000.0;

void dateOurs(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(vkr::formatDate(someDay, "MMM/DD/YYYY"));
}
BENCHMARK(dateOurs)->Name("date_format/ours");

void dateIcu(benchmark::State& state) {
    UErrorCode status = U_ZERO_ERROR;
    const auto format = icuFormat(status);
    if (U_FAILURE(status)) {
        state.SkipWithError("no date format");
        return;
    }
    for (auto _ : state) {
        icu::UnicodeString text;
        format->format(millisecondsFrom1970, text);
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(dateIcu)->Name("date_format/icu");

void readOurs(benchmark::State& state) {
    const std::string text = "Dec/31/2005";
    for (auto _ : state)
        benchmark::DoNotOptimize(vkr::readDate(text, someDay));
}
BENCHMARK(readOurs)->Name("date_read/ours");

void readIcu(benchmark::State& state) {
    UErrorCode status = U_ZERO_ERROR;
    const auto format = icuFormat(status);
    if (U_FAILURE(status)) {
        state.SkipWithError("no date format");
        return;
    }
    const icu::UnicodeString text("Dec/31/2005");
    for (auto _ : state)
        benchmark::DoNotOptimize(format->parse(text, status));
    if (U_FAILURE(status))
        state.SkipWithError("the date was not read");
}
BENCHMARK(readIcu)->Name("date_read/icu");

} // namespace
