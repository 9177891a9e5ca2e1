// SPDX-License-Identifier: MIT
#include "benchmarks/ratios.hpp"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <optional>
#include <sstream>
#include <stdexcept>

namespace {

// Takes a run's seconds, or its bytes where it counts them.
class Figure : public benchmark::BenchmarkReporter {
  public:
    std::optional<double> value;

    bool ReportContext(const Context& /*context*/) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            const auto bytes = run.counters.find("bytes");
            if (bytes != run.counters.end())
                value = bytes->second.value;
            else if (!run.error_occurred && run.iterations > 0)
                value = run.cpu_accumulated_time / static_cast<double>(run.iterations);
        }
    }
};

std::optional<double> measured(const std::string& name) {
    Figure figure;
    benchmark::RunSpecifiedBenchmarks(
        &figure, "^" + name + "(/iterations:[0-9]+)?(/process_time)?(/real_time)?$");
    return figure.value;
}

// The value below which `share` of all lie.
double quantile(std::vector<double> values, double share) {
    std::ranges::sort(values);
    const double place = share * static_cast<double>(values.size() - 1);
    const auto below = static_cast<std::size_t>(place);
    const auto above = std::min(below + 1, values.size() - 1);
    return std::lerp(values[below], values[above], place - static_cast<double>(below));
}

// What was measured of one ratio.
class Measured {
  public:
    static constexpr int fewest = 7; // rounds
    static constexpr int most = 21;

    void measure(const Ratio& ratio, bool subjectFirst) {
        const auto first = measured(subjectFirst ? ratio.subject : ratio.reference);
        const auto second = measured(subjectFirst ? ratio.reference : ratio.subject);
        if (first && second)
            pairs_.push_back(subjectFirst ? *first / *second : *second / *first);
    }

    [[nodiscard]] bool isSettled(std::optional<double> target) const {
        return pairs_.size() >= fewest && (!target || low() > *target || high() <= *target);
    }

    [[nodiscard]] bool print(const Ratio& ratio) const {
        if (pairs_.empty()) {
            std::printf("%-52s not measured\n", ratio.name.c_str());
            return false;
        }
        // Only what three pairs of four say is said of the work and not of the machine.
        const double median = quantile(pairs_, 0.5);
        std::printf("%-52s %8.3f %8.3f-%8.3f ", ratio.name.c_str(), median, low(), high());
        if (!ratio.target) {
            std::printf("%8s %6zu  judged by instructions\n", "", pairs_.size());
            return true;
        }
        const double target = *ratio.target;
        const char* verdict = low() > target    ? "MISSED"
                              : median > target ? "met within the spread"
                                                : "met";
        std::printf("%8.3f %6zu  %s\n", target, pairs_.size(), verdict);
        return low() <= target;
    }

  private:
    [[nodiscard]] double low() const { return quantile(pairs_, 0.25); }
    [[nodiscard]] double high() const { return quantile(pairs_, 0.75); }

    std::vector<double> pairs_;
};

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(" \t");
    return first == std::string::npos
               ? ""
               : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

} // namespace

std::vector<Ratio> readRatios(const std::string& file) {
    std::ifstream input(file);
    std::vector<Ratio> ratios;
    for (std::string line; std::getline(input, line);) {
        line = trimmed(line.substr(0, line.find('#')));
        if (line.empty())
            continue;
        std::vector<std::string> cells;
        std::istringstream row(line);
        for (std::string cell; std::getline(row, cell, '|');)
            cells.push_back(trimmed(cell));
        if (cells.size() != 4)
            throw std::runtime_error(file + ": name | subject | reference | target, not " + line);
        const bool hasTarget = cells[3] != "-";
        ratios.push_back({cells[0], cells[1], cells[2],
                          hasTarget ? std::optional(std::stod(cells[3])) : std::nullopt});
    }
    if (ratios.empty())
        throw std::runtime_error(file + " holds no ratio");
    return ratios;
}

bool measureRatios(const std::vector<Ratio>& ratios) {
    // Many short runs: what disturbs one of them disturbs few pairs.
    std::string arguments[] = {"vkr_benchmarks", "--benchmark_min_time=0.1"};
    char* argv[] = {arguments[0].data(), arguments[1].data(), nullptr};
    int argc = 2;
    benchmark::Initialize(&argc, argv);

    std::vector<Measured> measurements(ratios.size());
    for (int round = 0; round < Measured::most; ++round) {
        std::size_t open = 0;
        for (std::size_t i = 0; i < ratios.size(); ++i) {
            if (measurements[i].isSettled(ratios[i].target))
                continue;
            measurements[i].measure(ratios[i], round % 2 == 0);
            open += measurements[i].isSettled(ratios[i].target) ? 0 : 1;
        }
        std::fprintf(stderr, "round %d: %zu of %zu are open\n", round + 1, open, ratios.size());
        if (open == 0)
            break;
    }

    std::printf("%-52s %8s %17s %8s %6s\n", "ratio", "median", "middle half", "target", "pairs");
    bool met = true;
    for (std::size_t i = 0; i < ratios.size(); ++i)
        met = measurements[i].print(ratios[i]) && met;
    return met;
}
