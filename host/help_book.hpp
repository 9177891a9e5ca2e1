// SPDX-License-Identifier: MIT
#pragma once

#include "record/datum_table.hpp"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace vkr {

// A figure or text that a page takes from a sample company, so that it can be checked.
struct HelpQuote {
    QString symbol;
    Datum datum;
    QString figure; // as the page writes it
    QString period; // of a series: "2025", or the day on which the quarter ended
};

// One page of the help. Empty parts are left out of the text.
struct HelpPage {
    int number = 0; // as the component's MoreHelp event names it; 1 to 9 are the host's own
    QString title;
    QStringList what;                   // what it is, in paragraphs
    QString why;                        // what it tells about a company
    QString where;                      // where in a report or statement it is found
    QString how;                        // how it is typed and kept, or used
    bool isTyped = false;               // otherwise used: options, the labels of the periods, tabs
    QString example;                    // from a sample company
    std::vector<HelpQuote> quotes;      // of the example
    std::vector<HelpQuote> otherQuotes; // of the other parts
};

// Numbers of the host's own pages.
namespace help {
inline constexpr int list = 1;
inline constexpr int importAndExport = 2;
inline constexpr int saving = 3;
inline constexpr int keyboard = 4;
inline constexpr int filings = 5;
inline constexpr int checks = 6;
inline constexpr int split = 7;
inline constexpr int blocks = 8;
} // namespace help

struct HelpBook {
    std::vector<HelpPage> pages; // in order of their numbers: the host's own, the objects on screen
    QStringList faults; // what is wrong with the text, with its line; of a good one nothing
};

// Reads pages as they are written in host/help_pages.md, whose head says how that is. A fault is
// also that an object has no page.
[[nodiscard]] HelpBook readHelpBook(const QString& text);

} // namespace vkr
