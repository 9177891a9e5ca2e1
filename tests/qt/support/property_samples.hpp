// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <vector>

namespace vkr {

// A property of the widget, and another value than it has at the start.
struct PropertySample {
    const char* name;
    QVariant value;
};

// Those that a form sets which has the widget, and the component behind it keeps.
inline std::vector<PropertySample> propertySamples() {
    return {
        {"userMode", 1},
        {"shadeColorLocked", QColor(1, 2, 3)},
        {"shadeColorYear", QColor(4, 5, 6)},
        {"shadeColorQuarter", QColor(7, 8, 9)},
        {"visibleQuarters", 12},
        {"showReportingPeriod", true},
        {"showVLs", true},
        {"currentTab", 4},
        {"percentFormat", QStringLiteral("0%")},
        {"dateFormat", QStringLiteral("DD.MM.YYYY")},
        {"numberFormat", QStringLiteral("#,##0.0")},
        {"fractionDisplay", true},
        {"borderStyle", 1},
        {"platform", 1},
        {"sources", QStringList{QStringLiteral("Annual report"), QStringLiteral("10-K <& \"x\">")}},
        {"exchanges", QStringList{QStringLiteral("NYSE"), QStringLiteral("Z\u00fcrich")}},
        {"industries", QStringList{QStringLiteral("Steel")}},
        {"applicationTitle", QStringLiteral("Mine")},
    };
}

// Those, and some that a test has besides.
inline std::vector<PropertySample> propertySamplesWith(const std::vector<PropertySample>& more) {
    auto all = propertySamples();
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

} // namespace vkr
