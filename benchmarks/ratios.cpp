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
    benchmark::RunSpecifiedBenchmarks(&figure, "^" + name + "(/iterations:[0-9]+|/real_time)?$");
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
        ratios.push_back({cells[0], cells[1], cells[2], std::stod(cells[3])});
    }
    if (ratios.empty())
        throw std::runtime_error(file + " holds no ratio");
    return ratios;
}

bool measureRatios(const std::vector<Ratio>& ratios, int rounds) {
    std::vector<std::vector<double>> pairs(ratios.size());
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < ratios.size(); ++i) {
            const bool subjectFirst = round % 2 == 0;
            const auto first = measured(subjectFirst ? ratios[i].subject : ratios[i].reference);
            const auto second = measured(subjectFirst ? ratios[i].reference : ratios[i].subject);
            if (first && second)
                pairs[i].push_back(subjectFirst ? *first / *second : *second / *first);
        }
        std::fprintf(stderr, "round %d of %d\n", round + 1, rounds);
    }

    std::printf("%-52s %8s %17s %8s\n", "ratio", "median", "middle half", "target");
    bool met = true;
    for (std::size_t i = 0; i < ratios.size(); ++i) {
        const Ratio& ratio = ratios[i];
        if (pairs[i].empty()) {
            std::printf("%-52s not measured\n", ratio.name.c_str());
            met = false;
            continue;
        }
        const double low = quantile(pairs[i], 0.25);
        const double median = quantile(pairs[i], 0.5);
        // Only what three pairs of four say is said of the work and not of the machine.
        const char* verdict = median <= ratio.target ? "met"
                              : low <= ratio.target  ? "met within the spread"
                                                     : "MISSED";
        met = met && low <= ratio.target;
        std::printf("%-52s %8.3f %8.3f-%8.3f %8.3f  %s\n", ratio.name.c_str(), median, low,
                    quantile(pairs[i], 0.75), ratio.target, verdict);
    }
    return met;
}
