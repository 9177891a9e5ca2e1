// SPDX-License-Identifier: MIT
#pragma once

#include "control/entry_property.hpp"
#include "input/date_pattern.hpp"
#include "input/number_pattern.hpp"
#include "platform/color.hpp"
#include "record/enumerations.hpp"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace vkr {

// For the component itself, which holds its own lists against them while they are compiled. Others
// go by propertyTable().
namespace property_rows {

using enum EntryProperty;
using enum PropertyType;
using enum PropertyAccess;
using enum PropertyNotice;

inline constexpr auto shade = static_cast<std::int32_t>(colors::paleCyan);

inline constexpr BagPlaces notKept{};
constexpr BagPlaces kept(int saved, int restored = 0) {
    return {saved, restored};
}
inline constexpr PropertyStart nothing{};
inline constexpr std::string_view startPercentPattern = "#0.00%";

inline constexpr PropertyRow table[] = {
    {blnExistsQuarterlyData, "blnExistsQuarterlyData", boolean, read, never, notKept, nothing,
     "Whether any quarterly figure is in the record or on screen"},
    {blnDirty, "blnDirty", boolean, readWrite, never, notKept, 0,
     "Whether something was changed; writing false commits the form into the record"},
    {UserMode, "UserMode", enumeration, readWrite, assigned, kept(2, 2), umDefault,
     "0 resets the shades of locked and yearly cells, 1 leaves them as set here"},
    {ShadeColorLocked, "ShadeColorLocked", color, readWrite, changed, kept(3, 3), shade,
     "Background of cells that cannot be edited"},
    {ShadeColorYear, "ShadeColorYear", color, readWrite, changed, kept(13, 4), shade,
     "Background of the yearly cells"},
    {ShadeColorQuarter, "ShadeColorQuarter", color, readWrite, changed, kept(12, 5), shade,
     "Background of the quarterly cells"},
    {VisibleQuarters, "VisibleQuarters", shortInteger, readWrite, changed, kept(4, 6), 9,
     "Rows of the quarterly grid, 1 to 35"},
    {ShowReportingPeriod, "ShowReportingPeriod", boolean, readWrite, assigned, kept(5, 7), 0,
     "Whether the reporting period is on show"},
    {ShowVLs, "ShowVLs", boolean, readWrite, assigned, kept(6, 8), 0,
     "Whether timeliness and safety are on show"},
    {CurrentTab, "CurrentTab", enumeration, readWrite, assigned, kept(7, 9), toCompany,
     "The tab that is shown first, 1 to 5"},
    {PercentFormat, "PercentFormat", text, readWrite, assigned, notKept, startPercentPattern,
     "Pattern of percentages, such as 0.0%"},
    {DateFormat, "DateFormat", text, readWrite, assigned, notKept, fallbackDatePattern,
     "Pattern of dates, such as MM/DD/YYYY"},
    {NumberFormat, "NumberFormat", text, readWrite, assigned, notKept, fallbackNumberPattern,
     "Pattern of figures, such as #,##0.00"},
    {FractionDisplay, "FractionDisplay", boolean, readWrite, never, kept(11, 11), 0,
     "Prices in eighths instead of decimals"},
    {vntSource, "vntSource", list, write, never, notKept, nothing, "Entries of the field Source"},
    {vntExchange, "vntExchange", list, write, never, notKept, nothing,
     "Entries of the field Exchange"},
    {vntIndustry, "vntIndustry", list, write, never, notKept, nothing,
     "Entries of the field Industry"},
    {EntryProperty::BorderStyle, "BorderStyle", enumeration, readWrite, never, kept(10, 10), 0,
     "0 none, 1 a single line"},
    {objCompany, "objCompany", company, readWrite, never, notKept, nothing,
     "The record; reading it commits the form"},
    {Platform, "Platform", enumeration, readWrite, beforeEffect, kept(1, 1), ptStandard,
     "0 standard, 1 ZX"},

    {CommEquityData, "CommEquityData", boolean, none, never, kept(8), 1,
     "Whether common equity is on show, not book value"},
    {TaxRateData, "TaxRateData", boolean, none, never, kept(9), 0,
     "Whether the tax rate is on show, not pre-tax income"},
    {EntryProperty::NumberMarks, "NumberMarks", marks, readWrite, changed, notKept, nothing,
     "Decimal mark and what groups thousands, of figures on the form"},
};

constexpr bool inOrder() {
    for (std::size_t i = 0; i < std::size(table); ++i)
        if (table[i].property != static_cast<EntryProperty>(i))
            return false;
    return std::size(table) == static_cast<std::size_t>(EntryProperty::NumberMarks) + 1;
}
static_assert(inOrder());

// The places of an order are 1 and up, without a gap.
constexpr bool isOrder(int BagPlaces::*place) {
    int count = 0;
    for (const auto& row : table)
        count += row.bag.*place > 0 ? 1 : 0;
    for (int wanted = 1; wanted <= count; ++wanted) {
        int found = 0;
        for (const auto& row : table)
            found += row.bag.*place == wanted ? 1 : 0;
        if (found != 1)
            return false;
    }
    return true;
}
static_assert(isOrder(&BagPlaces::saved) && isOrder(&BagPlaces::restored));

} // namespace property_rows

} // namespace vkr
