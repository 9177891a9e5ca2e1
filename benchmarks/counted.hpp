// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>
#include <cstdlib>

// For a benchmark whose instructions are counted from outside: it then runs as often as it is told,
// so that the difference of two counts is that of so many runs and nothing else.
inline void counted(benchmark::internal::Benchmark* one) {
    if (const char* times = std::getenv("VKR_BENCH_ITERATIONS"))
        one->Iterations(std::atoi(times));
}
