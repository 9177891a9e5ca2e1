// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vkr {

// The five tabs, in the order of the strip.
enum TABObject : std::int32_t {
    toCompany = 1,
    toYearly = 2,
    toQuarterly = 3,
    toOther = 4,
    toOptions = 5,
};

// The objects on screen, as events and help numbers name them.
enum DataEntryObject : std::int32_t {
    doName = 0,
    doSymbol = 1,
    doExchange = 2,
    doIndustry = 3,
    doTotalCap = 4,
    doSource = 5,
    doLastStudied = 6,
    doUpdatedBy = 7,
    doCurrentPrice = 8,
    do52WHigh = 9,
    do52WLow = 10,
    doPriceUpdatedDate = 11,
    doLast4QEPS = 12,
    doORBEPSProj = 13,
    doTotalDebt = 14,
    doInsiderHolding = 15,
    doInstitutional = 16,
    doPrefShares = 17,
    doCommShares = 18,
    doDilutedShares = 19,
    doLastFY = 20,
    doLastFYDate = 21,
    doYRevenue = 22,
    doYPTI = 23,
    doYTaxRate = 24,
    doYNetInc = 25,
    doYCommEq = 26,
    doYBookVal = 27,
    doYEPS = 28,
    doYDividend = 29,
    doYHigh = 30,
    doYLow = 31,
    doYCSO = 32,
    doLastQDate = 33,
    doQRevenue = 34,
    doQEPS = 35,
    doQPTI = 36,
    doQTaxRate = 37,
    doQNetInc = 38,
    doAddress1 = 39,
    doAddress2 = 40,
    doCity = 41,
    doState = 42,
    doZip = 43,
    doCountry = 44,
    doInternetURL = 45,
    doContactPerson = 46,
    doTel = 47,
    doVLTimelines = 48,
    doVLSafety = 49,
    doReportingPeriod = 50,
    doNotes = 51,
    doPrefDiv = 52,
    doCommDiv = 53,
    doEstTaxRate = 54,
    doUnit = 55,
    doPTI_TaxRate = 56,
    doCommEq_BookVal = 57,
    doLockInfo = 58,
    doDisplayOption = 59,
    doYearLabel = 60,
    doQuarterLabel = 61,
    doPercentDilution = 62,
    doPercentTotalCap = 63,
    doTabCompany = 64,
    doTabYearly = 65,
    doTabQuarterly = 66,
    doTabOther = 67,
    doTabOptions = 68,
    doDateOfSource = 69,
};
inline constexpr int dataEntryObjectCount = doDateOfSource + 1;

enum UserModeType : std::int32_t {
    umDefault = 0, // resets the shades of locked and yearly cells
    umCustom = 1,  // leaves the shades to the host
};

enum PlatformType : std::int32_t {
    ptStandard = 0,
    ptZX = 1,
};

enum UnloadModeType : std::int32_t {
    ulCancel = -1,
    ulConfirm = 0,
};

#ifdef Q_MOC_RUN // for Qt's meta-object compiler alone; hosts include desktop/enumerations.hpp
Q_NAMESPACE
Q_ENUM_NS(TABObject)
Q_ENUM_NS(DataEntryObject)
Q_ENUM_NS(UserModeType)
Q_ENUM_NS(PlatformType)
Q_ENUM_NS(UnloadModeType)
#endif

// Added to a DataEntryObject in the MoreHelp event.
inline constexpr std::int16_t helpObjectBase = 3000;
// Added to the index of a tab (1 to 5) in the MoreHelp event.
inline constexpr std::int16_t helpTabBase = 3063;

} // namespace vkr
