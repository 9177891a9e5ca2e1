// SPDX-License-Identifier: MIT
#pragma once

#include "form/places.hpp"

// The Quarterly Data tab: the last quarter above a panel of cells, which scrolls inside of its
// view.
namespace vkr::quarterly_page {

using namespace page;
using namespace typed;
using enum FieldKind;
using controls::label;
using controls::unitLabel;

inline constexpr Twips top = 885;
inline constexpr Twips viewLeft = 60;
inline constexpr Twips viewWidth = 7530;
inline constexpr Twips viewHeight = 3945;

inline constexpr FieldRow fields[] = {
    {.control = controls::lastQuarterDate,
     .label = {label[30], 529},
     .at = {.label = 120, .labelWidth = 1815, .field = 1950, .fieldWidth = 1200, .top = 105},
     .length = 40,
     .kind = date,
     .object = doLastQDate,
     .help = 130},
};

inline constexpr ControlRow others[] = {
    {.control = controls::quarterSpinner,
     .at = {3165, 105},
     .size = {240, fieldHeight},
     .beside = controls::lastQuarterDate,
     .object = doLastQDate},
    // The date of the last fiscal year can't be entered here.
    {.control = controls::fiscalYearDateLabel,
     .at = {3570, 150},
     .size = {1335, labelHeight},
     .caption = 528,
     .beside = controls::lastFiscalYearDate},
    {.control = controls::fiscalYearDateShown,
     .at = {4950, 150},
     .size = {1170, labelHeight},
     .design = "Dat of Last FY",
     .beside = controls::lastFiscalYearDate,
     .object = doLastFYDate},
    {.control = controls::addQuarter, .at = {6180, 75}, .size = {1650, 345}, .caption = 579},
    {.control = controls::quarterHead,
     .at = {120, 510},
     .size = {1140, 360},
     .caption = 530,
     .alignment = Alignment::center,
     .object = doQuarterLabel},
};

inline constexpr ControlRow rowLabels = {.control = controls::quarterLabel[0],
                                         .at = {60, 30},
                                         .size = {1140, 255},
                                         .alignment = Alignment::right,
                                         .count = sizes::quarterRows,
                                         .pitch = cellPitch,
                                         .object = doQuarterLabel,
                                         .help = 157};

// From left to right, which is the order of Enter and of loading. Figures per share are typed and
// shown as they are, but loading shows them in the unit.
inline constexpr GridColumn columns[] = {
    {.cells = controls::quarterlyRevenue,
     .left = 1500,
     .width = 1440,
     .head = unitLabel[7],
     .sign = CurrencySign{controls::quarterlyCurrency[0], 1290},
     .usual = {.series = Datum::QRevenueSeries, .object = doQRevenue, .name = 521, .help = 131}},
    {.cells = controls::quarterlyEarnings,
     .left = 3180,
     .width = 1200,
     .head = label[33],
     .sign = CurrencySign{controls::quarterlyCurrency[1], 2970},
     .usual = {.series = Datum::QEPSSeries, .object = doQEPS, .name = 531, .help = 132},
     .negatives = true,
     .loadedInUnit = true},
    {.cells = {"txtQOption"},
     .left = 4440,
     .width = 1440,
     .head = controls::quarterlyIncomeHead,
     .usual = {.series = Datum::QPTISeries, .object = doQPTI, .name = 554, .help = 133},
     .alternative =
         GridSeries{
             .series = Datum::QTaxRateSeries, .object = doQTaxRate, .name = 555, .help = 134},
     .choice = ColumnChoice::income,
     .negatives = true},
    {.cells = {"txtNetInc"},
     .left = 6060,
     .width = 1440,
     .head = unitLabel[8],
     .sign = CurrencySign{controls::quarterlyCurrency[2], 5880, 180},
     .usual = {.series = Datum::QNetIncSeries, .object = doQNetInc, .name = 532, .help = 135},
     .negatives = true},
};

inline constexpr ControlRow bar = {
    .control = controls::quarterlyBar, .at = {7620, top}, .size = {255, viewHeight}};

} // namespace vkr::quarterly_page
