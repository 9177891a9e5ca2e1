// SPDX-License-Identifier: MIT
#include "form/form_layout.hpp"

#include "platform/number_text.hpp"
#include "platform/text.hpp"

#include <map>
#include <string>
#include <vector>

namespace vkr {

namespace {

using enum ControlKind;

constexpr int surface = Control::noIndex;
constexpr int single = Control::noIndex;
constexpr int companyPage = 10;
constexpr int yearlyPage = 11;
constexpr int quarterlyPage = 12;
constexpr int otherPage = 13;
constexpr int optionsPage = 14;

constexpr Twips labelHeight = 195;
constexpr Twips fieldHeight = 285;
constexpr Twips linePitch = 345; // from one line of fields to the next
constexpr Twips labelDrop = 45;  // a label's text stands on the line of its field's text

// A place in one of the two columns of the Company page.
constexpr Twips line(int number) {
    return 105 + number * linePitch;
}

struct Column {
    Twips label;
    Twips labelWidth;
    Twips currency;
    Twips field;
    Twips fieldWidth;
};
constexpr Column leftColumn{120, 1470, 1590, 1785, 2085};
constexpr Column rightColumn{4080, 2055, 6135, 6330, 1500};
constexpr Column otherLeftColumn{120, 1440, 1560, 1680, 2190};
constexpr Column otherRightColumn{4080, 2250, 6330, 6525, 1305};

constexpr ControlRow labelAt(Column column, int number, std::string_view name, int index, int page,
                             std::string_view caption, int tag) {
    return {label,
            name,
            index,
            page,
            column.label,
            line(number) + labelDrop,
            column.labelWidth,
            labelHeight,
            caption,
            tag};
}

constexpr ControlRow fieldAt(Column column, int number, std::string_view name, int page,
                             std::string_view labelledBy, int maxLength = 0,
                             Alignment alignment = Alignment::left, ControlKind kind = textBox) {
    return {kind,        name, single, page,       column.field, line(number), column.fieldWidth,
            fieldHeight, {},   0,      labelledBy, maxLength,    alignment};
}

constexpr ControlRow figureAt(Column column, int number, std::string_view name, int page,
                              std::string_view labelledBy) {
    return fieldAt(column, number, name, page, labelledBy, 0, Alignment::right);
}

constexpr ControlRow currencyAt(Column column, int number, int index, int page) {
    return {label,
            "lblCurrency",
            index,
            page,
            column.currency,
            line(number) + labelDrop,
            195,
            labelHeight,
            "$",
            0,
            {},
            0,
            Alignment::center};
}

// --- the yearly grid ---------------------------------------------------------------------------

constexpr int years = 11;
constexpr Twips headHeight = 435;
constexpr Twips cellPitch = 300;
constexpr Twips moneyWidth = 1035;
constexpr Twips earningsWidth = 645;
constexpr Twips dividendWidth = 885;
constexpr Twips priceWidth = 795;
constexpr Twips sharesWidth = 1080;
constexpr Twips yearlyTop = 465;
constexpr Twips yearlyViewLeft = 630;
constexpr Twips yearlyViewWidth = 7260;

constexpr ControlRow yearCells(std::string_view name, Twips left, Twips width) {
    return {textBox, name, 0, frame::yearlyPanel, left, headHeight, width - 15, fieldHeight, {},
            0,       {},   0, Alignment::right,   true, years,      cellPitch};
}

constexpr ControlRow yearHead(std::string_view name, int index, Twips left, Twips top, Twips width,
                              Twips height, std::string_view caption, int tag) {
    return {label, name, index, frame::yearlyPanel, left, top, width - 15, height, caption,
            tag,   {},   0,     Alignment::center};
}

// --- the quarterly grid -------------------------------------------------------------------------

constexpr int startQuarters = 9;
constexpr Twips quarterlyTop = 885;

constexpr ControlRow quarterCells(std::string_view name, Twips left, Twips width) {
    return {textBox,
            name,
            0,
            frame::quarterlyPanel,
            left,
            15,
            width,
            fieldHeight,
            {},
            0,
            {},
            0,
            Alignment::right,
            true,
            startQuarters,
            cellPitch};
}

constexpr ControlRow quarterHead(std::string_view name, int index, Twips left, Twips width,
                                 std::string_view caption, int tag) {
    return {label, name, index, quarterlyPage,    left, 510, width, 360, caption,
            tag,   {},   0,     Alignment::center};
}

constexpr ControlRow rows[] = {
    // --- frames: pages, views and panels, groups; the help frame comes last ----------------------
    {frame, "fraDE", 10, surface, sizes::pageLeft, 360, 7950, 4995},
    {frame, "fraDE", 11, surface, Control::parkedLeft, 360, 7950, 4995},
    {frame, "fraDE", 12, surface, Control::parkedLeft, 360, 7950, 4995},
    {frame, "fraDE", 13, surface, Control::parkedLeft, 360, 7950, 4995},
    {frame, "fraDE", 14, surface, Control::parkedLeft, 360, 7950, 4995},
    {frame, "fraDE", frame::yearlyView, yearlyPage, yearlyViewLeft, yearlyTop, yearlyViewWidth,
     headHeight + years* cellPitch},
    {frame, "fraDE", frame::yearlyPanel, frame::yearlyView, 0, 0, 8340,
     headHeight + years* cellPitch},
    {frame, "fraDE", frame::quarterlyView, quarterlyPage, 60, quarterlyTop, 7530, 3945},
    {frame, "fraDE", frame::quarterlyPanel, frame::quarterlyView, 0, 0, 7530, 3945},
    {frame, "fraDE", 5, optionsPage, 120, 120, 3750, 1380, "Currency Unit ", 548},
    {frame, "fraDE", 6, optionsPage, 4080, 120, 3750, 1380, "Currency Display", 552},
    {frame, "fraDE", 7, optionsPage, 120, 1620, 3750, 1080, "Pre-tax Income or Tax Rate ", 553},
    {frame, "fraDE", 8, optionsPage, 4080, 1620, 3750, 1080, "Common Equity or Book Value ", 556},
    {frame, "fraDE", 9, optionsPage, 120, 2820, 7710, 1680, "Colors", 559},

    {tabStrip, "tbsDataEntry", single, surface, 0, 0, 8070, 360},

    // --- Company Data --------------------------------------------------------------------------
    labelAt(leftColumn, 0, "lblLabel", 0, companyPage, "Name", 500),
    fieldAt(leftColumn, 0, "txtName", companyPage, "lblLabel(0)", 100),
    labelAt(leftColumn, 1, "lblLabel", 1, companyPage, "Symbol", 501),
    fieldAt(leftColumn, 1, "txtSymbol", companyPage, "lblLabel(1)", 20),
    labelAt(leftColumn, 2, "lblLabel", 2, companyPage, "Exchange", 502),
    fieldAt(leftColumn, 2, "cmbExchange", companyPage, "lblLabel(2)", 60, Alignment::left,
            comboBox),
    labelAt(leftColumn, 3, "lblLabel", 3, companyPage, "Industry", 503),
    fieldAt(leftColumn, 3, "cmbIndustry", companyPage, "lblLabel(3)", 100, Alignment::left,
            comboBox),
    labelAt(leftColumn, 4, "lblLabel", 4, companyPage, "Source", 505),
    fieldAt(leftColumn, 4, "cmbSource", companyPage, "lblLabel(4)", 100, Alignment::left, comboBox),
    labelAt(leftColumn, 5, "lblLabel", 12, companyPage, "Date of Source", 163),
    fieldAt(leftColumn, 5, "txtDateOfSource", companyPage, "lblLabel(12)", 40),
    labelAt(leftColumn, 6, "lblLabel", 5, companyPage, "Last Update", 506),
    fieldAt(leftColumn, 6, "txtLastUpdate", companyPage, "lblLabel(5)", 40),

    labelAt(leftColumn, 8, "lblLabel", 7, companyPage, "Current Price", 508),
    currencyAt(leftColumn, 8, 0, companyPage),
    figureAt(leftColumn, 8, "txtCurrentPrice", companyPage, "lblLabel(7)"),
    labelAt(leftColumn, 9, "lblLabel", 8, companyPage, "52 Week High", 509),
    currencyAt(leftColumn, 9, 1, companyPage),
    figureAt(leftColumn, 9, "txt52WHigh", companyPage, "lblLabel(8)"),
    labelAt(leftColumn, 10, "lblLabel", 9, companyPage, "52 Week Low", 510),
    currencyAt(leftColumn, 10, 2, companyPage),
    figureAt(leftColumn, 10, "txt52WLow", companyPage, "lblLabel(9)"),
    labelAt(leftColumn, 11, "lblLabel", 10, companyPage, "Price Update Date", 108),
    fieldAt(leftColumn, 11, "txtPriceUpdate", companyPage, "lblLabel(10)", 40),

    labelAt(rightColumn, 0, "lblLabel", 13, companyPage, "Common Dividends", 546),
    currencyAt(rightColumn, 0, 5, companyPage),
    figureAt(rightColumn, 0, "txtCommDiv", companyPage, "lblLabel(13)"),
    labelAt(rightColumn, 1, "lblLabel", 15, companyPage, "ORB EPS Projection", 513),
    currencyAt(rightColumn, 1, 4, companyPage),
    figureAt(rightColumn, 1, "txtEPSProj", companyPage, "lblLabel(15)"),

    labelAt(rightColumn, 3, "lblUnit", 0, companyPage, "Total Debt", 514),
    currencyAt(rightColumn, 3, 3, companyPage),
    figureAt(rightColumn, 3, "txtTotalDebt", companyPage, "lblUnit(0)"),
    labelAt(rightColumn, 4, "lblUnit", 10, companyPage, "Total Capital", 577),
    currencyAt(rightColumn, 4, 16, companyPage),
    figureAt(rightColumn, 4, "txtTotalCap", companyPage, "lblUnit(10)"),
    labelAt(rightColumn, 5, "lblUnit", 1, companyPage, "Preferred Shares", 517),
    currencyAt(rightColumn, 5, 6, companyPage),
    figureAt(rightColumn, 5, "txtPreferredShares", companyPage, "lblUnit(1)"),
    labelAt(rightColumn, 6, "lblUnit", 2, companyPage, "Common Shares", 518),
    figureAt(rightColumn, 6, "txtCommonShares", companyPage, "lblUnit(2)"),
    labelAt(rightColumn, 7, "lblUnit", 3, companyPage, "Diluted Shares", 519),
    figureAt(rightColumn, 7, "txtDilutedShares", companyPage, "lblUnit(3)"),
    labelAt(rightColumn, 8, "lblLabel", 18, companyPage, "Insider Holding (%)", 515),
    figureAt(rightColumn, 8, "txtInsiderHolding", companyPage, "lblLabel(18)"),
    labelAt(rightColumn, 9, "lblLabel", 11, companyPage, "Institutional", 516),
    figureAt(rightColumn, 9, "txtInstitutional", companyPage, "lblLabel(11)"),
    // The record does not say who updated it: the caption stays out of sight.
    {label,
     "lblLabel",
     6,
     companyPage,
     rightColumn.label,
     line(11) + labelDrop,
     rightColumn.labelWidth,
     labelHeight,
     "Updated by",
     507,
     {},
     0,
     Alignment::left,
     false},

    // --- Yearly Data ---------------------------------------------------------------------------
    {label, "lblLabel", 20, yearlyPage, 120, 150, 480, labelHeight, "Year", 520},
    {textBox,
     "txtLastFY",
     single,
     yearlyPage,
     645,
     105,
     645,
     fieldHeight,
     {},
     0,
     "lblLabel(20)",
     4,
     Alignment::right},
    {label, "lblLabel", 21, yearlyPage, 1530, 150, 1395, labelHeight, "Date of Last FY", 528},
    {textBox,
     "txtDateofLastFY",
     single,
     yearlyPage,
     2955,
     105,
     1200,
     fieldHeight,
     {},
     0,
     "lblLabel(21)",
     40},
    {label, "lblLabel", 22, yearlyPage, 4560, 150, 1080, labelHeight, "Last 4Q EPS", 578},
    {label,
     "lblCurrency",
     8,
     yearlyPage,
     5640,
     150,
     195,
     labelHeight,
     "$",
     0,
     {},
     0,
     Alignment::center},
    {textBox,
     "txtLast4QEPS",
     single,
     yearlyPage,
     5865,
     105,
     1020,
     fieldHeight,
     {},
     0,
     "lblLabel(22)",
     0,
     Alignment::right},
    {label,
     "lblYear",
     0,
     yearlyPage,
     60,
     yearlyTop + headHeight + labelDrop,
     525,
     labelHeight,
     {},
     0,
     {},
     0,
     Alignment::right,
     true,
     years,
     cellPitch},
    yearHead("lblUnit", 4, 0, 15, moneyWidth, 405, "Revenue", 521),
    yearCells("txtSales", 0, moneyWidth),
    yearHead("lblYOption", single, 1035, 15, moneyWidth, 405, "Pre-Tax Income", 0),
    yearCells("txtYOption", 1035, moneyWidth),
    yearHead("lblUnit", 5, 2070, 15, moneyWidth, 405, "Net Inc.", 522),
    yearCells("txtYNetInc", 2070, moneyWidth),
    yearHead("lblYOption2", single, 3105, 15, moneyWidth, 405, "Common Equity", 0),
    yearCells("txtYOption2", 3105, moneyWidth),
    yearHead("lblLabel", 23, 4140, 15, earningsWidth, 405, "Basic EPS", 523),
    yearCells("txtYEPS", 4140, earningsWidth),
    yearHead("lblLabel", 24, 4785, 15, dividendWidth, 405, "Dividends Declared", 524),
    yearCells("txtDiv", 4785, dividendWidth),
    yearHead("lblLabel", 25, 5670, 15, 2 * priceWidth, labelHeight, "Market Price", 525),
    yearHead("lblLabel", 26, 5670, 225, priceWidth, labelHeight, "High", 526),
    yearCells("txtHigh", 5670, priceWidth),
    yearHead("lblLabel", 27, 6465, 225, priceWidth, labelHeight, "", 527),
    yearCells("txtLow", 6465, priceWidth),
    yearHead("lblUnit", 6, 7260, 15, sharesWidth, 405, "Shares Outstanding", 0),
    yearCells("txtCSO", 7260, sharesWidth),
    {scrollBar, "hscrYearly", single, yearlyPage, yearlyViewLeft, 4230, yearlyViewWidth - 15, 240},
    {label, "lblLegend", single, yearlyPage, yearlyViewLeft, 4605, 285, labelHeight},
    {label, "lblLabel", 28, yearlyPage, 990, 4605, 3000, labelHeight, "Legend caption", 570},

    // --- Quarterly Data ------------------------------------------------------------------------
    {label, "lblLabel", 30, quarterlyPage, 120, 150, 1815, labelHeight, "Date of Last Quarter",
     529},
    {textBox,
     "txtLastQDate",
     single,
     quarterlyPage,
     1950,
     105,
     1200,
     fieldHeight,
     {},
     0,
     "lblLabel(30)",
     40},
    {spinner, "spnQuarter", single, quarterlyPage, 3165, 105, 240, fieldHeight},
    {label, "lblLabel", 31, quarterlyPage, 3570, 150, 1335, labelHeight, "Date of Last FY", 528},
    {label, "lblDatOfLastFY", single, quarterlyPage, 4950, 150, 1170, labelHeight, "Dat of Last FY",
     0},
    {commandButton, "cmdAddQuarter", single, quarterlyPage, 6180, 75, 1650, 345, "&Add New Quarter",
     579},
    quarterHead("lblLabel", 32, 120, 1140, "Quarter", 530),
    quarterHead("lblUnit", 7, 1560, 1440, "Revenue", 521),
    quarterHead("lblLabel", 33, 3240, 1200, "Earnings Per Share", 531),
    quarterHead("lblQOption", single, 4500, 1440, "Pre-Tax Income", 0),
    quarterHead("lblUnit", 8, 6120, 1440, "Net Income", 532),
    {label,
     "lblQLabel",
     0,
     frame::quarterlyPanel,
     60,
     30,
     1140,
     255,
     {},
     0,
     {},
     0,
     Alignment::right,
     true,
     startQuarters,
     cellPitch},
    {label,
     "lblQCurrency",
     0,
     frame::quarterlyPanel,
     1290,
     45,
     195,
     labelHeight,
     "$",
     0,
     {},
     0,
     Alignment::center},
    quarterCells("txtRevenue", 1500, 1440),
    {label,
     "lblQCurrency",
     1,
     frame::quarterlyPanel,
     2970,
     45,
     195,
     labelHeight,
     "$",
     0,
     {},
     0,
     Alignment::center},
    quarterCells("txtEPS", 3180, 1200),
    quarterCells("txtQOption", 4440, 1440),
    {label,
     "lblQCurrency",
     2,
     frame::quarterlyPanel,
     5880,
     45,
     180,
     labelHeight,
     "$",
     0,
     {},
     0,
     Alignment::center},
    quarterCells("txtNetInc", 6060, 1440),
    {scrollBar, "vscrQuarterly", single, quarterlyPage, 7620, quarterlyTop, 255, 3945},

    // --- Company Other -------------------------------------------------------------------------
    labelAt(otherLeftColumn, 0, "lblLabel", 40, otherPage, "Address", 533),
    fieldAt(otherLeftColumn, 0, "txtAddress1", otherPage, "lblLabel(40)", 100),
    fieldAt(otherLeftColumn, 1, "txtAddress2", otherPage, "lblLabel(40)", 100),
    labelAt(otherLeftColumn, 2, "lblLabel", 41, otherPage, "City", 534),
    fieldAt(otherLeftColumn, 2, "txtCity", otherPage, "lblLabel(41)", 60),
    labelAt(otherLeftColumn, 3, "lblLabel", 42, otherPage, "State/Province", 535),
    fieldAt(otherLeftColumn, 3, "txtState", otherPage, "lblLabel(42)", 60),
    labelAt(otherLeftColumn, 4, "lblLabel", 43, otherPage, "Zip/Postal", 536),
    fieldAt(otherLeftColumn, 4, "txtZip", otherPage, "lblLabel(43)", 20),
    labelAt(otherLeftColumn, 5, "lblLabel", 44, otherPage, "Country", 537),
    fieldAt(otherLeftColumn, 5, "txtCountry", otherPage, "lblLabel(44)", 60),
    labelAt(otherLeftColumn, 6, "lblLabel", 45, otherPage, "Internet", 538),
    fieldAt(otherLeftColumn, 6, "txtInternet", otherPage, "lblLabel(45)", 200),
    labelAt(otherLeftColumn, 7, "lblLabel", 46, otherPage, "Contact Person", 539),
    fieldAt(otherLeftColumn, 7, "txtContactPerson", otherPage, "lblLabel(46)", 100),
    labelAt(otherLeftColumn, 8, "lblLabel", 47, otherPage, "", 540),
    fieldAt(otherLeftColumn, 8, "txtTel", otherPage, "lblLabel(47)", 40),

    labelAt(otherRightColumn, 0, "lblUnit", 9, otherPage, "Preferred Dividends", 545),
    currencyAt(otherRightColumn, 0, 7, otherPage),
    figureAt(otherRightColumn, 0, "txtPrefDiv", otherPage, "lblUnit(9)"),
    labelAt(otherRightColumn, 1, "lblLabel", 48, otherPage, "Est. Tax Rate (%)", 547),
    figureAt(otherRightColumn, 1, "txtTaxRate", otherPage, "lblLabel(48)"),
    labelAt(otherRightColumn, 3, "lblLabel", 51, otherPage, "VL Timelines", 542),
    fieldAt(otherRightColumn, 3, "txtVLTimelines", otherPage, "lblLabel(51)", 40),
    labelAt(otherRightColumn, 4, "lblLabel", 52, otherPage, "VL Safety", 543),
    fieldAt(otherRightColumn, 4, "txtVLSafety", otherPage, "lblLabel(52)", 40),
    labelAt(otherRightColumn, 5, "lblLabel", 53, otherPage, "Reporting Period", 544),
    fieldAt(otherRightColumn, 5, "cmbReportingPeriod", otherPage, "lblLabel(53)", 40,
            Alignment::left, comboBox),
    labelAt(otherLeftColumn, 9, "lblLabel", 49, otherPage, "Notes", 541),
    {textBox,
     "txtNotes",
     single,
     otherPage,
     1680,
     line(9),
     6150,
     4860 - line(9),
     {},
     0,
     "lblLabel(49)"},

    // --- Options -------------------------------------------------------------------------------
    {optionButton, "optCurrency", 0, 5, 180, 315, 2400, 285, "Thousands", 549},
    {optionButton, "optCurrency", 1, 5, 180, 645, 2400, 285, "Millions", 550},
    {optionButton, "optCurrency", 2, 5, 180, 975, 2400, 285, "Billions", 551},
    {optionButton, "optDisplay", 0, 6, 180, 315, 2400, 285, "Decimal", 560},
    {optionButton, "optDisplay", 1, 6, 180, 645, 2400, 285, "Fractional", 561},
    {optionButton, "optPTI", 0, 7, 180, 315, 2400, 285, "Pre-Tax Income", 554},
    {optionButton, "optPTI", 1, 7, 180, 645, 2400, 285, "Tax Rate", 555},
    {optionButton, "optCommEq", 0, 8, 180, 315, 2400, 285, "Common Equity", 557},
    {optionButton, "optCommEq", 1, 8, 180, 645, 2400, 285, "Book Value", 558},
    {label, "lblLabel", 62, 9, 180, 390, 2400, labelHeight, "Locked Company Data", 573},
    {label, "lblSample", 0, 9, 2700, 345, 1200, fieldHeight},
    {commandButton, "cmdColor", 0, 9, 4020, 330, 480, 315, "...", 0, "lblLabel(62)"},
    {label, "lblLabel", 61, 9, 180, 795, 2400, labelHeight, "Required Yearly Data", 572},
    {label, "lblSample", 1, 9, 2700, 750, 1200, fieldHeight},
    {commandButton, "cmdColor", 1, 9, 4020, 735, 480, 315, "...", 0, "lblLabel(61)"},
    {label, "lblLabel", 60, 9, 180, 1200, 2400, labelHeight, "Quarterly Shade", 571},
    {label, "lblSample", 2, 9, 2700, 1155, 1200, fieldHeight},
    {commandButton, "cmdColor", 2, 9, 4020, 1140, 480, 315, "...", 0, "lblLabel(60)"},
    {label, "lblLabel", 63, optionsPage, 300, 4680, 1500, labelHeight, "Currency Symbol", 580},
    {textBox,
     "txtCurSymbol",
     single,
     optionsPage,
     2820,
     4635,
     720,
     fieldHeight,
     {},
     0,
     "lblLabel(63)",
     5},

    // --- below the pages -----------------------------------------------------------------------
    {checkBox, "chkLockInfo", single, surface, 120, 5445, 1320, 300, "Lock Data", 562},
    {commandButton, "cmdAddYear", single, surface, 1560, 5415, 1530, 345, "&Add New Year", 563},
    {commandButton, "cmdRemoveYear", single, surface, 3150, 5415, 1380, 345, "&Remove Year", 564},
    {commandButton, "cmdHelp", single, surface, 4755, 5415, 1020, 345, "&Help", 576},
    {commandButton, "cmdOK", single, surface, 5880, 5415, 1020, 345, "&OK", 574},
    {commandButton, "cmdCancel", single, surface, 6990, 5415, 1020, 345, "&Cancel", 575},

    // --- the help frame, in front of everything --------------------------------------------------
    {frame, "fraDE", frame::help, surface, 0, 0, 3000, 900, {}, 0, {}, 0, Alignment::left, false},
    {shape, "shaBackground", single, frame::help, 0, 0, 3000, 900},
    {shape, "shaBorder", single, frame::help, 0, 0, 3000, 900},
    {pictureBox,
     "picToolTip",
     single,
     frame::help,
     60,
     60,
     240,
     240,
     {},
     0,
     {},
     0,
     Alignment::left,
     false},
    {label, "lblToolTip", single, frame::help, 150, 150, 2700, labelHeight},
    {label, "lblMoreHelp", single, frame::help, 150, 600, 1200, labelHeight, "More Help..."},

    // --- the pop-up menu, whose entries are made when it opens -----------------------------------
    {menuItem, "mnuRightClick", single, surface, 0, 0, 0, 0, {}, 0, {}, 0, Alignment::left, false},
    {menuItem, "mnuItem", 0, surface, 0, 0, 0, 0, {}, 0, {}, 0, Alignment::left, false},
};

constexpr ColumnHead heads[] = {
    {"txtSales", "lblUnit", 4, "lblYear"},    {"txtYOption", "lblYOption", single, "lblYear"},
    {"txtYNetInc", "lblUnit", 5, "lblYear"},  {"txtYOption2", "lblYOption2", single, "lblYear"},
    {"txtYEPS", "lblLabel", 23, "lblYear"},   {"txtDiv", "lblLabel", 24, "lblYear"},
    {"txtHigh", "lblLabel", 26, "lblYear"},   {"txtLow", "lblLabel", 27, "lblYear"},
    {"txtCSO", "lblUnit", 6, "lblYear"},      {"txtRevenue", "lblUnit", 7, "lblQLabel"},
    {"txtEPS", "lblLabel", 33, "lblQLabel"},  {"txtQOption", "lblQOption", single, "lblQLabel"},
    {"txtNetInc", "lblUnit", 8, "lblQLabel"},
};

constexpr struct {
    std::string_view caption;
    std::string_view key;
    int tag;
    std::string_view toolTip;
    Twips width;
} tabs[] = {
    {"&Company Data", "CompanyData", 565, "Company Data", 1590},
    {"&Yearly Data", "YearlyData", 566, "Yearly Data", 1470},
    {"&Quarterly Data", "QuarterlyData", 567, "Quarterly Data", 1650},
    {"Company &Other", "CompanyOther", 568, "Other Company Data", 1650},
    {"O&ptions", "Options", 569, "Options", 1140},
};

constexpr Color helpBackground = 0xE1FFFF;

void place(Control& control, const ControlRow& declared, int number) {
    control.move(declared.left, declared.top + number * declared.pitch);
    control.resize(declared.width, declared.height);
    if (control.hasCaption() && !declared.caption.empty())
        control.setCaption(declared.caption);
    if (declared.tag != 0)
        control.setTag(std::to_string(declared.tag));
    control.setVisible(declared.visible);
    if (auto* field = dynamic_cast<TextField*>(&control))
        field->setMaxLength(declared.maxLength);
    if (auto* box = dynamic_cast<TextBox*>(&control))
        box->setAlignment(declared.alignment);
    if (auto* text = dynamic_cast<Label*>(&control))
        text->setAlignment(declared.alignment);
}

Control& make(Form& form, const ControlRow& declared, int index) {
    Frame* container =
        declared.container == surface ? nullptr : &form.get<Frame>("fraDE", declared.container);
    switch (declared.kind) {
    case textBox:
        return form.add<TextBox>(declared.name, index, container);
    case comboBox:
        return form.add<ComboBox>(declared.name, index, container);
    case label:
        return form.add<Label>(declared.name, index, container);
    case commandButton:
        return form.add<CommandButton>(declared.name, index, container);
    case optionButton:
        return form.add<OptionButton>(declared.name, index, container);
    case checkBox:
        return form.add<CheckBox>(declared.name, index, container);
    case scrollBar:
        return form.add<ScrollBar>(declared.name, index, container);
    case spinner:
        return form.add<Spinner>(declared.name, index, container);
    case frame:
        return form.add<Frame>(declared.name, index, container);
    case tabStrip:
        return form.add<TabStrip>(declared.name, index, container);
    case shape:
        return form.add<Shape>(declared.name, index, container);
    case pictureBox:
        return form.add<PictureBox>(declared.name, index, container);
    default:
        return form.add<MenuItem>(declared.name, index, container);
    }
}

// What a table row can't say.
void finish(Form& form) {
    auto& strip = form.get<TabStrip>("tbsDataEntry");
    for (const auto& tab : tabs)
        strip.addTab({std::string(tab.caption), std::string(tab.key), std::to_string(tab.tag),
                      std::string(tab.toolTip), tab.width});
    for (int i = 5; i <= 9; ++i)
        form.get<Frame>("fraDE", i).setBorder(FrameBorder::group);
    for (int page = frame::firstPage + 1; page <= frame::lastPage; ++page)
        form.get<Frame>("fraDE", page).setEnabled(false);
    form.get<TextBox>("txtNotes").setMultiLine(true);
    form.get<ScrollBar>("vscrQuarterly").setOrientation(Orientation::vertical);
    form.get<OptionButton>("optCurrency", 1).setValue(true);
    form.get<OptionButton>("optDisplay", 0).setValue(true);
    form.get<OptionButton>("optPTI", 0).setValue(true);
    form.get<OptionButton>("optCommEq", 0).setValue(true);
    form.get<Frame>("fraDE", frame::help).setNotice(true);
    form.get<Shape>("shaBackground").setBackColor(helpBackground);
    form.get<Shape>("shaBorder").setFilled(false);
    form.get<PictureBox>("picToolTip").setBackColor(helpBackground);
    form.get<Label>("lblToolTip").setBackColor(helpBackground);
    auto& link = form.get<Label>("lblMoreHelp");
    link.setBackColor(helpBackground);
    link.setForeColor(colors::blue);
    link.setLink(true);
    for (const auto& declared : rows)
        if (!declared.labelledBy.empty())
            if (auto& named = labelNamed(form, declared.labelledBy); named.buddy() == nullptr)
                named.setBuddy(form.find(declared.name, declared.index));
    for (const auto& head : heads)
        form.get<Label>(head.head, head.headIndex).setBuddy(form.find(head.cells, 0));
    form.get<Label>("lblLabel", 25).setBuddy(form.find("txtHigh", 0));
    // What it names can't be entered.
    form.get<Label>("lblLabel", 31).setBuddy(form.find("lblDatOfLastFY"));
    // Column heads break into two lines.
    for (const auto& control : form.controls())
        if (auto* head = dynamic_cast<Label*>(control.get());
            head != nullptr && head->height() > labelHeight && head->name() != "lblQLabel")
            head->setWordWrap(true);
}

} // namespace

std::span<const ControlRow> formLayout() {
    return rows;
}

std::span<const ColumnHead> columnHeads() {
    return heads;
}

Label& labelNamed(const Form& form, std::string_view id) {
    const auto bracket = id.find('(');
    return form.get<Label>(id.substr(0, bracket),
                           static_cast<int>(leadingNumber(id.substr(bracket + 1))));
}

void buildForm(Form& form) {
    for (const auto& declared : rows)
        for (int i = 0; i < declared.count; ++i)
            place(make(form, declared, declared.index == single ? single : declared.index + i),
                  declared, i);
    finish(form);
}

void nameFields(Form& form) {
    std::map<std::string_view, int> lines; // of fields that share a label
    for (const auto& declared : rows) {
        if (declared.labelledBy.empty())
            continue;
        std::string name = withoutMnemonic(labelNamed(form, declared.labelledBy).caption());
        if (const int line = ++lines[declared.labelledBy]; line > 1)
            name += " " + std::to_string(line);
        form.find(declared.name, declared.index)->setAccessibleName(name);
    }
    nameCells(form);
}

void nameCells(Form& form) {
    for (const auto& named : heads) {
        const std::string head =
            withoutMnemonic(form.get<Label>(named.head, named.headIndex).caption());
        const auto& labels = form.elements(named.rows);
        for (const auto& [row, cell] : form.elements(named.cells)) {
            std::string name = head;
            if (const std::string& label = labels.at(row)->caption(); !label.empty())
                name.append(" ").append(label);
            cell->setAccessibleName(name);
        }
    }
}

} // namespace vkr
