// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace vkr {

// The properties of the component: those of its interface in the interface's order, then what a
// container keeps or hears of beyond them.
enum class EntryProperty {
    blnExistsQuarterlyData,
    blnDirty,
    UserMode,
    ShadeColorLocked,
    ShadeColorYear,
    ShadeColorQuarter,
    VisibleQuarters,
    ShowReportingPeriod,
    ShowVLs,
    CurrentTab,
    PercentFormat,
    DateFormat,
    NumberFormat,
    FractionDisplay,
    vntSource,
    vntExchange,
    vntIndustry,
    BorderStyle,
    objCompany,
    Platform,
    CommEquityData,
    TaxRateData,
    NumberMarks,
};
inline constexpr int interfaceProperties = static_cast<int>(EntryProperty::Platform) + 1;

enum class PropertyType {
    boolean,
    shortInteger, // 16 bits
    enumeration,  // 32 bits
    color,        // 32 bits, blue-green-red
    text,
    list, // an array of texts
    company,
    marks, // decimal mark and grouping
};

enum class PropertyAccess { read, readWrite, write, none };

// When the container hears that a property has changed.
enum class PropertyNotice {
    never,
    assigned,     // at each assignment, after it
    beforeEffect, // at each assignment, before what it brings about
    changed,      // after an assignment of another value
};

// What a property has at first: a number, a boolean as 0 or 1, or a text.
struct PropertyStart {
    constexpr PropertyStart() = default;
    constexpr PropertyStart(std::int32_t theNumber) : number(theNumber) {}
    constexpr PropertyStart(std::string_view theText) : text(theText) {}

    std::int32_t number = 0;
    std::string_view text;
};

// The places of a property, from 1 up, in the two orders in which a property bag is gone over; 0
// where it is not in the bag, or is not read back.
struct BagPlaces {
    int saved = 0;
    int restored = 0;
};

struct PropertyRow {
    EntryProperty property;
    std::string_view name; // also its key in a property bag
    PropertyType type;
    PropertyAccess access;
    PropertyNotice notice;
    BagPlaces bag;
    PropertyStart start; // also the default of a property bag
    std::string_view meaning;
};

} // namespace vkr
