// SPDX-License-Identifier: MIT
#pragma once

#include "form/places.hpp"

// The Options tab.
namespace vkr::options_page {

using namespace page;
using controls::colorButton;
using controls::colorSample;
using controls::displayOption;
using controls::equityOption;
using controls::incomeOption;
using controls::label;
using controls::unitOption;

inline constexpr Size option{2400, fieldHeight};
inline constexpr Size sample{1200, fieldHeight};
inline constexpr Size dots{480, 315};

// In the groups of the page: the row's frame is its own.
inline constexpr ControlRow groups[] = {
    {.control = unitOption[0],
     .in = frame::unitGroup,
     .at = {180, 315},
     .size = option,
     .caption = 549,
     .object = doUnit,
     .help = 151},
    {.control = unitOption[1],
     .in = frame::unitGroup,
     .at = {180, 645},
     .size = option,
     .caption = 550,
     .object = doUnit},
    {.control = unitOption[2],
     .in = frame::unitGroup,
     .at = {180, 975},
     .size = option,
     .caption = 551,
     .object = doUnit},
    {.control = displayOption[0],
     .in = frame::displayGroup,
     .at = {180, 315},
     .size = option,
     .caption = 560,
     .object = doDisplayOption,
     .help = 154},
    {.control = displayOption[1],
     .in = frame::displayGroup,
     .at = {180, 645},
     .size = option,
     .caption = 561,
     .object = doDisplayOption},
    {.control = incomeOption[0],
     .in = frame::incomeGroup,
     .at = {180, 315},
     .size = option,
     .caption = 554,
     .object = doPTI_TaxRate,
     .help = 152},
    {.control = incomeOption[1],
     .in = frame::incomeGroup,
     .at = {180, 645},
     .size = option,
     .caption = 555,
     .object = doPTI_TaxRate},
    {.control = equityOption[0],
     .in = frame::equityGroup,
     .at = {180, 315},
     .size = option,
     .caption = 557,
     .object = doCommEq_BookVal,
     .help = 153},
    {.control = equityOption[1],
     .in = frame::equityGroup,
     .at = {180, 645},
     .size = option,
     .caption = 558,
     .object = doCommEq_BookVal},
    {.control = label[62],
     .in = frame::colorGroup,
     .at = {180, 390},
     .size = {2400, labelHeight},
     .caption = 573},
    {.control = colorSample[0],
     .in = frame::colorGroup,
     .at = {2700, 345},
     .size = sample,
     .object = doTabOptions},
    {.control = colorButton[0],
     .in = frame::colorGroup,
     .at = {4020, 330},
     .size = dots,
     .design = "...",
     .labelledBy = label[62],
     .object = doTabOptions},
    {.control = label[61],
     .in = frame::colorGroup,
     .at = {180, 795},
     .size = {2400, labelHeight},
     .caption = 572},
    {.control = colorSample[1],
     .in = frame::colorGroup,
     .at = {2700, 750},
     .size = sample,
     .object = doTabOptions},
    {.control = colorButton[1],
     .in = frame::colorGroup,
     .at = {4020, 735},
     .size = dots,
     .design = "...",
     .labelledBy = label[61],
     .object = doTabOptions},
    {.control = label[60],
     .in = frame::colorGroup,
     .at = {180, 1200},
     .size = {2400, labelHeight},
     .caption = 571},
    {.control = colorSample[2],
     .in = frame::colorGroup,
     .at = {2700, 1155},
     .size = sample,
     .object = doTabOptions},
    {.control = colorButton[2],
     .in = frame::colorGroup,
     .at = {4020, 1140},
     .size = dots,
     .design = "...",
     .labelledBy = label[60],
     .object = doTabOptions},
};

inline constexpr FieldRow fields[] = {
    {.control = controls::currencySymbol,
     .label = {label[63], 580},
     .at = {.label = 300, .labelWidth = 1500, .field = 2820, .fieldWidth = 720, .top = 4635},
     .length = 5,
     .object = doTabOptions},
};

} // namespace vkr::options_page
