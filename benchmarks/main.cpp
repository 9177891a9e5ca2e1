// SPDX-License-Identifier: MIT
#include "benchmarks/ratios.hpp"

#include <QApplication>

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string_view>

// vkr_benchmarks [--ratios=<file>] [argument of Google Benchmark...]: the benchmarks themselves, or
// the ratios of a file.
int main(int argc, char** argv) {
    // Widgets need an application object; no display is opened.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    // What the offscreen platform can't do would stand between the figures.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
        if (!text.startsWith(QLatin1String("This plugin does not support")))
            std::fprintf(stderr, "%s\n", qPrintable(text));
    });
    constexpr std::string_view option = "--ratios=";
    if (argc == 2 && std::string_view(argv[1]).starts_with(option)) {
        try {
            return measureRatios(readRatios(argv[1] + option.size())) ? EXIT_SUCCESS : EXIT_FAILURE;
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
            return EXIT_FAILURE;
        }
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return EXIT_FAILURE;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return EXIT_SUCCESS;
}
