// SPDX-License-Identifier: MIT
#pragma once

// The operations of iVKR_Company that tell a record of a shift of the fiscal years and of a new
// reporting period, and hold no datum. Classes that stand for a record declare them by this list.
//
// CALL  Variant name(std::int16_t value)
// READ  Variant get_name() const
//
#define VKR_NOTICES(CALL, READ)                                                                    \
    CALL(BeginYearShift)                                                                           \
    CALL(YearShiftState)                                                                           \
    CALL(EndYearShift)                                                                             \
    CALL(YearShiftUnit)                                                                            \
    READ(YearShiftFirst)                                                                           \
    READ(YearShiftLast)                                                                            \
    READ(YearShiftCount)                                                                           \
    READ(ReportingPeriodEnd)                                                                       \
    READ(YearShiftPrices)                                                                          \
    READ(YearShiftEarnings)                                                                        \
    READ(YearShiftDividends)                                                                       \
    READ(YearShiftShares)
