// SPDX-License-Identifier: MIT
#pragma once

#include "form/handle.hpp"
#include "platform/part_names.hpp"

namespace vkr {

// Frames of the array fraDE.
namespace frame {
inline constexpr int help = 0;
inline constexpr int yearlyView = 1;  // the part of the yearly panel that can be seen
inline constexpr int yearlyPanel = 2; // pans inside of its view
inline constexpr int quarterlyPanel = 3;
inline constexpr int quarterlyView = 4;
inline constexpr int unitGroup = 5; // of the Options tab, as those up to the colours
inline constexpr int displayGroup = 6;
inline constexpr int incomeGroup = 7;
inline constexpr int equityGroup = 8;
inline constexpr int colorGroup = 9;
inline constexpr int companyPage = 10; // the page of tab t is firstPage + t - 1
inline constexpr int yearlyPage = 11;
inline constexpr int quarterlyPage = 12;
inline constexpr int otherPage = 13;
inline constexpr int optionsPage = 14;
inline constexpr int firstPage = companyPage;
inline constexpr int lastPage = optionsPage;
} // namespace frame

// The controls that the component itself reaches, by the names that they have on the form. What
// code need not reach is named in its row of the layout alone.
namespace controls {

inline constexpr HandleArray<Frame> frames{"fraDE"};
inline constexpr Handle<Frame> helpFrame = frames[frame::help];
inline constexpr Handle<Frame> yearlyPanel = frames[frame::yearlyPanel];
inline constexpr Handle<Frame> quarterlyPanel = frames[frame::quarterlyPanel];
inline constexpr Handle<TabStrip> tabs{"tbsDataEntry"};

// --- Company Data
inline constexpr Handle<TextBox> name{"txtName"};
inline constexpr Handle<ComboBox> exchange{"cmbExchange"};
inline constexpr Handle<ComboBox> industry{"cmbIndustry"};
inline constexpr Handle<ComboBox> source{"cmbSource"};
inline constexpr Handle<TextBox> dateOfSource{"txtDateOfSource"};
inline constexpr Handle<TextBox> lastUpdate{"txtLastUpdate"};
inline constexpr Handle<TextBox> currentPrice{"txtCurrentPrice"};
inline constexpr Handle<TextBox> high52Week{"txt52WHigh"};
inline constexpr Handle<TextBox> low52Week{"txt52WLow"};
inline constexpr Handle<TextBox> priceUpdate{"txtPriceUpdate"};

// --- Yearly Data
inline constexpr Handle<TextBox> lastFiscalYear{"txtLastFY"};
inline constexpr Handle<TextBox> lastFiscalYearDate{"txtDateofLastFY"};
inline constexpr Handle<TextBox> trailingEarnings{"txtLast4QEPS"};
inline constexpr HandleArray<Label> yearLabel{"lblYear"};
inline constexpr Handle<Label> yearlyIncomeHead{"lblYOption"};
inline constexpr Handle<Label> yearlyEquityHead{"lblYOption2"};
inline constexpr Handle<ScrollBar> yearlyBar{"hscrYearly"};
inline constexpr Handle<Label> legend{"lblLegend"};

// --- Quarterly Data
inline constexpr Handle<TextBox> lastQuarterDate{"txtLastQDate"};
inline constexpr Handle<Spinner> quarterSpinner{"spnQuarter"};
inline constexpr Handle<Label> fiscalYearDateShown{"lblDatOfLastFY"};
inline constexpr Handle<CommandButton> addQuarter{"cmdAddQuarter"};
inline constexpr HandleArray<Label> quarterLabel{"lblQLabel"};
inline constexpr HandleArray<Label> quarterlyCurrency{"lblQCurrency"};
inline constexpr Handle<Label> quarterlyIncomeHead{"lblQOption"};
inline constexpr HandleArray<TextBox> quarterlyRevenue{"txtRevenue"};
inline constexpr HandleArray<TextBox> quarterlyEarnings{"txtEPS"};
inline constexpr Handle<ScrollBar> quarterlyBar{"vscrQuarterly"};

// --- Company Other
inline constexpr Handle<TextBox> address1{"txtAddress1"};
inline constexpr Handle<TextBox> vlTimeliness{"txtVLTimelines"};
inline constexpr Handle<TextBox> vlSafety{"txtVLSafety"};
inline constexpr Handle<ComboBox> reportingPeriod{"cmbReportingPeriod"};
inline constexpr Handle<TextBox> notes{"txtNotes"};

// --- Options
inline constexpr HandleArray<OptionButton> unitOption{"optCurrency"};
inline constexpr HandleArray<OptionButton> displayOption{"optDisplay"};
inline constexpr HandleArray<OptionButton> incomeOption{"optPTI"};
inline constexpr HandleArray<OptionButton> equityOption{"optCommEq"};
inline constexpr HandleArray<Label> colorSample{"lblSample"};
inline constexpr HandleArray<CommandButton> colorButton{"cmdColor"};
inline constexpr Handle<TextBox> currencySymbol{"txtCurSymbol"};

// --- labels of all pages
inline constexpr HandleArray<Label> label{"lblLabel"};
inline constexpr Handle<Label> updatedByLabel = label[6];
inline constexpr Handle<Label> projectionLabel = label[15];
inline constexpr Handle<Label> legendCaption = label[28];
inline constexpr Handle<Label> fiscalYearDateLabel = label[31];
inline constexpr Handle<Label> quarterHead = label[32];
inline constexpr Handle<Label> vlTimelinessLabel = label[51];
inline constexpr Handle<Label> vlSafetyLabel = label[52];
inline constexpr Handle<Label> reportingPeriodLabel = label[53];
inline constexpr HandleArray<Label> unitLabel{"lblUnit"}; // the currency unit stands behind them
inline constexpr HandleArray<Label> currency{"lblCurrency"};

// --- below the pages
inline constexpr Handle<CheckBox> lock{"chkLockInfo"};
inline constexpr Handle<CommandButton> addYear{"cmdAddYear"};
inline constexpr Handle<CommandButton> removeYear{"cmdRemoveYear"};
inline constexpr Handle<CommandButton> help{"cmdHelp"};
inline constexpr Handle<CommandButton> ok{part_name::ok};
inline constexpr Handle<CommandButton> cancel{part_name::cancel};

// --- the help frame and the pop-up menu
inline constexpr Handle<Shape> helpBackground{"shaBackground"};
inline constexpr Handle<Shape> helpBorder{"shaBorder"};
inline constexpr Handle<PictureBox> helpPicture{"picToolTip"};
inline constexpr Handle<Label> helpText{"lblToolTip"};
inline constexpr Handle<Label> moreHelp{"lblMoreHelp"};
inline constexpr HandleArray<MenuItem> menuEntry{"mnuItem"};

} // namespace controls

} // namespace vkr
