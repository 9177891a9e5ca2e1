// SPDX-License-Identifier: MIT
#pragma once

#include "form/places.hpp"
#include "form/quarterly_page.hpp"
#include "form/sizes.hpp"
#include "form/yearly_page.hpp"

// What is around the pages: their frames, the tab strip, the buttons below and the help frame.
namespace vkr::surface {

using namespace page;
using controls::frames;

inline constexpr Size pageSize{7950, 4995};
inline constexpr Twips pageTop = 360;
inline constexpr Point parked{Control::parkedLeft, pageTop};

// A frame comes after the one that holds it.
inline constexpr ControlRow frameRows[] = {
    {.control = frames[frame::companyPage],
     .at = {sizes::pageLeft, pageTop},
     .size = pageSize,
     .object = doTabCompany},
    {.control = frames[frame::yearlyPage], .at = parked, .size = pageSize, .object = doTabYearly},
    {.control = frames[frame::quarterlyPage],
     .at = parked,
     .size = pageSize,
     .object = doTabQuarterly},
    {.control = frames[frame::otherPage], .at = parked, .size = pageSize, .object = doTabOther},
    {.control = frames[frame::optionsPage], .at = parked, .size = pageSize, .object = doTabOptions},
    {.control = frames[frame::yearlyView],
     .in = frame::yearlyPage,
     .at = {yearly_page::viewLeft, yearly_page::top},
     .size = {yearly_page::viewWidth, yearly_page::panelHeight},
     .object = doTabYearly},
    {.control = controls::yearlyPanel,
     .in = frame::yearlyView,
     .size = {yearly_page::panelWidth, yearly_page::panelHeight},
     .object = doTabYearly},
    {.control = frames[frame::quarterlyView],
     .in = frame::quarterlyPage,
     .at = {quarterly_page::viewLeft, quarterly_page::top},
     .size = {quarterly_page::viewWidth, quarterly_page::viewHeight},
     .object = doTabQuarterly},
    {.control = controls::quarterlyPanel,
     .in = frame::quarterlyView,
     .size = {quarterly_page::viewWidth, quarterly_page::viewHeight},
     .object = doTabQuarterly},
    {.control = frames[frame::unitGroup],
     .in = frame::optionsPage,
     .at = {120, 120},
     .size = {3750, 1380},
     .caption = 548,
     .object = doUnit},
    {.control = frames[frame::displayGroup],
     .in = frame::optionsPage,
     .at = {4080, 120},
     .size = {3750, 1380},
     .caption = 552,
     .object = doDisplayOption},
    {.control = frames[frame::incomeGroup],
     .in = frame::optionsPage,
     .at = {120, 1620},
     .size = {3750, 1080},
     .caption = 553,
     .object = doPTI_TaxRate},
    {.control = frames[frame::equityGroup],
     .in = frame::optionsPage,
     .at = {4080, 1620},
     .size = {3750, 1080},
     .caption = 556,
     .object = doCommEq_BookVal},
    {.control = frames[frame::colorGroup],
     .in = frame::optionsPage,
     .at = {120, 2820},
     .size = {7710, 1680},
     .caption = 559,
     .object = doTabOptions},
};

inline constexpr ControlRow strip = {.control = controls::tabs,
                                     .size = {sizes::workingWidth, pageTop}};

struct TabRow {
    int caption = 0;
    std::string_view key;
    std::string_view toolTip;
    Twips width = 0;
    int help = 0;
};

inline constexpr TabRow tabs[] = {
    {.caption = 565, .key = "CompanyData", .toolTip = "Company Data", .width = 1590, .help = 158},
    {.caption = 566, .key = "YearlyData", .toolTip = "Yearly Data", .width = 1470, .help = 159},
    {.caption = 567,
     .key = "QuarterlyData",
     .toolTip = "Quarterly Data",
     .width = 1650,
     .help = 160},
    {.caption = 568,
     .key = "CompanyOther",
     .toolTip = "Other Company Data",
     .width = 1650,
     .help = 161},
    {.caption = 569, .key = "Options", .toolTip = "Options", .width = 1140, .help = 162},
};

inline constexpr ControlRow buttons[] = {
    {.control = controls::lock,
     .at = {120, 5445},
     .size = {1320, 300},
     .caption = 562,
     .object = doLockInfo,
     .help = 155},
    {.control = controls::addYear, .at = {1560, 5415}, .size = {1530, 345}, .caption = 563},
    {.control = controls::removeYear, .at = {3150, 5415}, .size = {1380, 345}, .caption = 564},
    {.control = controls::help, .at = {4755, 5415}, .size = {1020, 345}, .caption = 576},
    {.control = controls::ok, .at = {5880, 5415}, .size = {1020, 345}, .caption = 574},
    {.control = controls::cancel, .at = {6990, 5415}, .size = {1020, 345}, .caption = 575},
};

// In front of everything.
inline constexpr ControlRow helpFrame[] = {
    {.control = controls::helpFrame, .size = {3000, 900}, .visible = false},
    {.control = controls::helpBackground, .in = frame::help, .size = {3000, 900}},
    {.control = controls::helpBorder, .in = frame::help, .size = {3000, 900}},
    {.control = controls::helpPicture,
     .in = frame::help,
     .at = {60, 60},
     .size = {240, 240},
     .visible = false},
    {.control = controls::helpText,
     .in = frame::help,
     .at = {150, 150},
     .size = {2700, labelHeight}},
    {.control = controls::moreHelp,
     .in = frame::help,
     .at = {150, 600},
     .size = {1200, labelHeight},
     .design = "More Help..."},
};

// Its other entries are made when it opens.
inline constexpr ControlRow menu[] = {
    {.control = {ControlKind::menuItem, "mnuRightClick"}, .visible = false},
    {.control = controls::menuEntry[0], .visible = false},
};

} // namespace vkr::surface
