// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace vkr {

// What the command line asks for.
struct Options {
    QString database;     // a file or an address; the user's own file where none was named
    bool isNamed = false; // by the user
    QString samples;      // folder of sample companies; empty where there is none
};

struct ParsedOptions {
    Options options;
    QString print;    // to print instead of starting: help, version or an error
    int exitCode = 0; // then
};
// `sourceSamples` is where the samples are while nothing is installed.
[[nodiscard]] ParsedOptions parseOptions(const QStringList& arguments,
                                         const QString& sourceSamples);

} // namespace vkr
