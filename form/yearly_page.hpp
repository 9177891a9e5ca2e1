// SPDX-License-Identifier: MIT
#pragma once

#include "form/places.hpp"

#include <iterator>

// The Yearly Data tab: the last fiscal year above a panel of cells, which pans inside of its view.
namespace vkr::yearly_page {

using namespace page;
using namespace typed;
using enum FieldKind;
using enum LoadStep;
using controls::label;
using controls::unitLabel;

inline constexpr Twips top = 465;
inline constexpr Twips viewLeft = 630;
inline constexpr Twips viewWidth = 7260;
inline constexpr Twips headHeight = 435;
inline constexpr Twips panelHeight = headHeight + sizes::yearRows * cellPitch;

inline constexpr FieldRow fields[] = {
    {.control = controls::lastFiscalYear,
     .label = {label[20], 520},
     .at = {.label = 120, .labelWidth = 480, .field = 645, .fieldWidth = 645, .top = 105},
     .length = 4,
     .kind = number,
     .filter = figure,
     .object = doLastFY,
     .help = 117},
    {.control = controls::lastFiscalYearDate,
     .label = {label[21], 528},
     .at = {.label = 1530, .labelWidth = 1395, .field = 2955, .fieldWidth = 1200, .top = 105},
     .length = 40,
     .kind = date,
     .object = doLastFYDate,
     .help = 118},
    {.control = controls::trailingEarnings,
     .label = {label[22], 578},
     .at = {.label = 4560,
            .labelWidth = 1080,
            .currency = 5640,
            .field = 5865,
            .fieldWidth = 1020,
            .top = 105},
     .currency = 8,
     .kind = number,
     .datum = Datum::Last4QEPS,
     .load = {companyNumbers, 8},
     .filter = figure,
     .object = doLast4QEPS,
     .help = 578},
};

inline constexpr ControlRow rowLabels = {.control = controls::yearLabel[0],
                                         .at = {60, top + headHeight + labelDrop},
                                         .size = {525, labelHeight},
                                         .alignment = Alignment::right,
                                         .count = sizes::yearRows,
                                         .pitch = cellPitch,
                                         .object = doYearLabel,
                                         .help = 156};

// From left to right, which is the order of Enter. Loading goes the other way.
inline constexpr GridColumn columns[] = {
    {.cells = {"txtSales"},
     .left = 0,
     .width = 1035,
     .head = unitLabel[4],
     .usual = {.series = Datum::YRevenueSeries, .object = doYRevenue, .name = 521, .help = 119}},
    {.cells = {"txtYOption"},
     .left = 1035,
     .width = 1035,
     .head = controls::yearlyIncomeHead,
     .usual = {.series = Datum::YPTISeries, .object = doYPTI, .name = 554, .help = 120},
     .alternative =
         GridSeries{
             .series = Datum::YTaxRateSeries, .object = doYTaxRate, .name = 555, .help = 121},
     .choice = ColumnChoice::income,
     .negatives = true},
    {.cells = {"txtYNetInc"},
     .left = 2070,
     .width = 1035,
     .head = unitLabel[5],
     .usual = {.series = Datum::YNetIncSeries, .object = doYNetInc, .name = 522, .help = 122},
     .negatives = true},
    {.cells = {"txtYOption2"},
     .left = 3105,
     .width = 1035,
     .head = controls::yearlyEquityHead,
     .usual = {.series = Datum::YCommEqSeries, .object = doYCommEq, .name = 557, .help = 123},
     .alternative =
         GridSeries{
             .series = Datum::YBookValSeries, .object = doYBookVal, .name = 558, .help = 124},
     .choice = ColumnChoice::equity,
     .negatives = true},
    {.cells = {"txtYEPS"},
     .left = 4140,
     .width = 645,
     .head = label[23],
     .usual = {.series = Datum::YEPSSeries, .object = doYEPS, .name = 523, .help = 125},
     .negatives = true},
    {.cells = {"txtDiv"},
     .left = 4785,
     .width = 885,
     .head = label[24],
     .usual = {.series = Datum::YDividendSeries, .object = doYDividend, .name = 524, .help = 126}},
    {.cells = {"txtHigh"},
     .left = 5670,
     .width = 795,
     .head = label[26],
     .group = ColumnGroup{label[25], 525},
     .usual = {.series = Datum::YHighSeries, .object = doYHigh, .name = 526, .help = 127},
     .price = true},
    {.cells = {"txtLow"},
     .left = 6465,
     .width = 795,
     .head = label[27],
     .design = "",
     .usual = {.series = Datum::YLowSeries, .object = doYLow, .name = 527, .help = 128},
     .price = true},
    {.cells = {"txtCSO"},
     .left = 7260,
     .width = 1080,
     .head = unitLabel[6],
     .usual = {.series = Datum::YCSOSeries,
               .object = doYCSO,
               .help = 129,
               .nameWithoutNumber = "Shares Outstanding"},
     .negatives = true},
};

inline constexpr Twips panelWidth = std::end(columns)[-1].left + std::end(columns)[-1].width;

inline constexpr ControlRow others[] = {
    {.control = controls::yearlyBar, .at = {viewLeft, 4230}, .size = {viewWidth - 15, 240}},
    {.control = controls::legend,
     .at = {viewLeft, 4605},
     .size = {285, labelHeight},
     .object = doTabYearly},
    {.control = controls::legendCaption,
     .at = {990, 4605},
     .size = {3000, labelHeight},
     .caption = 570,
     .design = "Legend caption",
     .object = doTabYearly},
};

} // namespace vkr::yearly_page
