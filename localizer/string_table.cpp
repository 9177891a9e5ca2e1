// SPDX-License-Identifier: MIT
// One table, a row each text: long, since there are many texts.
#include "localizer/string_table.hpp"

namespace vkr {
namespace {

constexpr StringRow standardRows[] = {
    // Objects without a help text of their own, most of them lists.
    {1, "There is no short help for this item. Where there is a list, choose an entry or type "
        "your own text; it is stored when you leave the field. \"More Help...\" opens the full "
        "guide."},

    {100, "Right-click a field, a label or a tab and choose \"What's This?\" to read what belongs "
          "there and where to find the figure."},
    {101, "The company's full name, as it stands on the cover of its annual report. Every other "
          "figure here belongs to this company. An empty name is stored as empty."},
    {102, "The short code under which the share is traded. You find it with any price quote and on "
          "the first page of most annual reports. Small letters become capitals. Leave it empty "
          "when the company is not listed."},
    {103, "The day on which you last worked through this company's figures. Type a date or "
          "double-click the field to pick one. A new company starts with today; a text that is no "
          "date is not stored."},
    {104, "Who last brought this company's figures up to date. It tells others whom to ask about "
          "them. Leave it empty when you work alone."},
    {105, "What one share costs today, in the company's currency; any price quote has it. A price "
          "outside the 52-week range moves the high or the low with it. Leave it empty when you "
          "have no price; the range then stays as it is."},
    {106, "The highest price paid for one share during the last 52 weeks, in currency per share. "
          "Price quotes show it beside the 52-week low. Empty means that it is not known."},
    {107, "The lowest price paid for one share during the last 52 weeks, in currency per share. "
          "Price quotes show it beside the 52-week high. Empty means that it is not known."},
    // Two label captions whose numbers fall among the help texts.
    {108, "Price Update Date"},
    {109, "What one share earned over the four newest quarters together, in currency per share. "
          "It is added up for you when all four are on the quarterly tab. Otherwise add up the "
          "earnings per share of the last four quarterly reports and type the sum."},
    {110, "A forecast of the earnings per share, taken from the ORB projection, in currency per "
          "share. It is an expectation and stands in no company report. A loss takes a minus "
          "sign. Leave it empty when you have no forecast."},
    {111, "Everything the company owes to lenders, both due within a year and later. Add up the "
          "short-term and the long-term debt in the balance sheet, and enter the sum in the "
          "chosen unit: thousands, millions or billions. Empty means no debt, or not known."},
    {112, "The part of all shares that directors and managers own themselves, in percent: type "
          "12.5 for 12.5%. The statement sent out before the shareholders' meeting lists it. "
          "Empty means that it is not known."},
    {113, "How much of the company funds, banks and insurers hold, in percent or in the form that "
          "your source uses, as a plain number. Quote pages and fund listings show it. Empty means "
          "that it is not known."},
    {114, "The value of the preferred shares that are outstanding, in the chosen unit: thousands, "
          "millions or billions. These get their dividend before the common shares. Look under "
          "shareholders' equity in the balance sheet. Empty means that there are none."},
    {115, "How many common shares are in owners' hands today, in the chosen unit: thousands, "
          "millions or billions. The cover of the annual or quarterly report gives the count. "
          "Empty means that it is not known."},
    {116, "The share count that would result if all options and convertibles became shares, in "
          "the chosen unit: thousands, millions or billions. The income statement gives it as "
          "diluted shares below the earnings. Empty means that it is not known."},
    {117, "The newest fiscal year with a full year of figures, in four digits, from 1980 to 9900. "
          "All rows of the yearly table count back from it. To move on by one year, use Add New "
          "Year: the figures then move along with their years."},
    {118, "The day on which the last fiscal year ended; the heading of the annual accounts names "
          "it. It need not be the end of December. Type a date or double-click the field to pick "
          "one; a text that is no date is not stored."},
    {119, "All that the company sold in the year, before any cost: revenue or net sales, the top "
          "line of the income statement. Enter it in the chosen unit: thousands, millions or "
          "billions. An empty cell means no value for that year."},
    {120, "What was left of the year's revenue after all costs but before income tax. The income "
          "statement calls it income before taxes. Enter it in the chosen unit, a loss with a "
          "minus sign. An empty cell means no value."},
    {121, "The part of the year's pre-tax income that went to income tax, in percent: type 21 for "
          "21%. Divide the tax by the income before taxes, or see the tax note of the report. An "
          "empty cell means no value."},
    {122, "The year's profit after all costs and taxes; the last lines of the income statement "
          "show it. Enter it in the chosen unit: thousands, millions or billions. A loss takes a "
          "minus sign. An empty cell means no value."},
    {123, "What belongs to the common shareholders at the year's end: total equity less the "
          "preferred stock. The balance sheet has it. Enter it in the chosen unit, with a minus "
          "sign when the debts are larger. An empty cell means no value."},
    {124, "The common equity behind one share at the year's end, in currency per share. Reports "
          "often print it in the summary of several years; otherwise divide common equity by the "
          "shares outstanding. An empty cell means no value."},
    {125, "The year's profit for one common share, in currency per share. Take the basic or the "
          "diluted figure below net income in the income statement, the same one in all years, "
          "restated if shares were split later. A loss takes a minus sign. An empty cell means no "
          "value."},
    {126, "The dividends declared on one common share during the year, in currency per share. The "
          "summary of several years or the income statement lists them. An empty cell means that "
          "no dividend was declared, or that it is not known."},
    {127, "The highest price of one share in the year, in currency per share. Use prices adjusted "
          "for later splits, so that all years can be compared. An empty cell means no value."},
    {128, "The lowest price of one share in the year, in currency per share. Use prices adjusted "
          "for later splits, so that all years can be compared. An empty cell means no value."},
    {129, "How many common shares were outstanding at the year's end, in the chosen unit: "
          "thousands, millions or billions. The balance sheet or the summary of several years has "
          "the count. An empty cell means no value."},
    {130, "The day on which the newest reported quarter ended. The heading of the quarterly report "
          "names it. The rows of the quarterly table count back from it. A new date may lie one, "
          "two or three quarters ahead; any other is not taken."},
    {131, "All that the company sold in these three months, before any cost: the top line of the "
          "quarter's income statement. Enter it in the chosen unit: thousands, millions or "
          "billions. An empty cell means no value for that quarter."},
    {132, "The profit of these three months for one common share, in currency per share; it stands "
          "below net income in the quarterly report. A loss takes a minus sign. The four newest "
          "quarters make up the last four quarters' earnings. An empty cell means no value."},
    {133, "What was left of the quarter's revenue after all costs but before income tax. Take the "
          "column for three months, not the year to date. Enter it in the chosen unit, a loss "
          "with a minus sign. An empty cell means no value."},
    {134, "The part of the quarter's pre-tax income that went to income tax, in percent: type 21 "
          "for 21%. Divide the tax by the income before taxes, both for three months. An empty "
          "cell means no value."},
    {135, "The quarter's profit after all costs and taxes. Take the column for three months, not "
          "the year to date. Enter it in the chosen unit, a loss with a minus sign. An empty cell "
          "means no value."},
    {136, "The street and number of the company's head office, as printed on the cover of the "
          "annual report. It may stay empty; no calculation uses it."},
    {137, "A second line for the address, such as a building, a floor or a post office box. Most "
          "companies need none; leave it empty then."},
    {138, "The town in which the company has its head office. The cover of the annual report names "
          "it. It may stay empty."},
    {139, "The state or province of the head office, in full or as the usual short form. Leave it "
          "empty for countries that have none."},
    {140, "The postal code of the head office. Letters, digits and blanks are all accepted. It may "
          "stay empty."},
    {141, "The country in which the company has its head office. It may stay empty when it is your "
          "own."},
    {142, "The address of the company's web site. Most companies keep their reports there on a "
          "page for investors; that page is the most useful one to note. It may stay empty."},
    {143, "Whom to ask for reports or about figures, usually someone in investor relations. The "
          "last pages of the annual report give a name. It may stay empty."},
    {144, "The telephone number of the head office or of investor relations, with the country code "
          "if you call from abroad. Any way of writing it is accepted. It may stay empty."},
    {145, "The VL timeliness mark of the share: how well it is expected to do in the months ahead. "
          "Copy it as your source prints it. Leave it empty when the share has no mark."},
    {146, "The VL safety mark of the share: how steady the company and its price are held to be. "
          "Copy it as your source prints it. Leave it empty when the share has no mark."},
    {147, "Your own notes on the company, as long as you like: what it does, open questions, where "
          "a figure came from. Enter begins a new line. It may stay empty."},
    {148, "All dividends that the preferred shares receive in a year, as one sum in the chosen "
          "unit: thousands, millions or billions. See the lines below net income, or the note on "
          "shareholders' equity. Empty means that there are none."},
    {149, "The dividend that one common share brings in a year, in currency per share. Four times "
          "the last quarterly dividend is a common choice when it is paid every quarter. Empty "
          "means that no dividend is paid."},
    {150, "The income tax rate that you expect for the coming year, in percent: type 21 for 21%. "
          "The rate of the last year, or the outlook in the report, is a good start. Leave it "
          "empty when you have no estimate."},
    {151, "Whether money and share counts are shown and typed in thousands, millions or billions. "
          "Choose the unit that your reports use. A change converts what you see; the stored "
          "figures stay the same. Figures per share are never converted."},
    {152, "Whether you enter income before tax or the tax rate; take the one that your source "
          "prints. The other one is worked out from it and net income when the company is stored, "
          "where both figures are above zero."},
    {153, "Whether you enter all of the common equity or the book value of one share; take the one "
          "that your source prints. From book value, the common equity is worked out with the "
          "shares outstanding when the company is stored."},
    {154, "Whether share prices are shown as decimals, such as 3.125, or as fractions, such as "
          "3 1/8. You may type either. The stored price is the same."},
    {155, "Protects this company's figures from being changed by accident. While it is ticked, all "
          "fields and lists can only be read, and no year or quarter can be added or removed. "
          "Clear the tick to edit again."},
    {156, "The fiscal year to which this row belongs. All years count back from the last fiscal "
          "year above the table. Right-click a year to add a new one or to remove the newest."},
    {157, "The day on which this row's quarter ended. All quarters count back from the date of the "
          "last quarter. The figures beside it are those of the three months before that day."},
    {158, "The company at a glance: its name and where it is traded, today's price, its shares, "
          "debt and dividends. Begin here with a new company, then go on to the yearly figures."},
    {159, "Ten fiscal years, one row for each, from the annual reports. Shaded cells show the "
          "figures that are needed most. Enter or the Down key takes you down a column."},
    {160, "The newest quarters, one row for each, from the quarterly reports. Take the figures "
          "for three months, not for the year to date. When a new report is out, add its quarter "
          "first."},
    {161, "Address and contact of the company, your notes, the preferred dividends and the "
          "expected tax rate. Nothing here has to be filled in before you can go on."},
    {162, "How figures are shown and entered: the currency and its unit, prices as decimals or "
          "fractions, which of two related figures you type, and the colors of the tables."},
    {163, "Date of Source"},

    {404, "Adding a new year removes the oldest one: the figures of"},
    {405, "will leave the table."},
    {406, "Do you want to go on?"},
    {407, "This removes the newest year: the figures of"},

    {412, "Adding a new quarter removes the oldest one: the figures of"},
    {413, "Undo"},
    {414, "Cut"},
    {415, "Copy"},
    {416, "Paste"},
    {417, "Clear"},
    {418, "Select All"},
    {419, "Add New Year"},
    {420, "Remove Year"},
    {421, "Use Date of Last Quarter"},
    {422, "What's This?"},

    {428, "Pick a Date..."},

    {500, "Name"},
    {501, "Symbol"},
    {502, "Exchange"},
    {503, "Industry"},
    {504, "Total Capital"},
    {505, "Source"},
    {506, "Last Update"},
    {507, "Updated by"},
    {508, "Current Price"},
    {509, "52 Week High"},
    {510, "52 Week Low"},
    {511, "Price Update Date"},
    {512, "Last 4Q EPS"},
    {513, "ORB EPS Projection"},
    {514, "Total Debt"},
    {515, "Insider Holding (%)"},
    {516, "Institutional"},
    {517, "Preferred Shares"},
    {518, "Common Shares"},
    {519, "Diluted Shares"},
    {520, "Year"},
    {521, "Revenue"},
    {522, "Net Inc."},
    {523, "Basic EPS"},
    {524, "Dividends Declared"},
    {525, "Market Price"},
    {526, "High"},
    {527, "Low"},
    {528, "Date of Last FY"},
    {529, "Date of Last Quarter"},
    {530, "Quarter"},
    {531, "Earnings Per Share"},
    {532, "Net Income"},
    {533, "Address"},
    {534, "City"},
    {535, "State/Province"},
    {536, "Zip/Postal"},
    {537, "Country"},
    {538, "Internet"},
    {539, "Contact Person"},
    {540, "Telephone"},
    {541, "Notes"},
    {542, "VL Timelines"},
    {543, "VL Safety"},
    {544, "Reporting Period"},
    {545, "Preferred Dividends"},
    {546, "Common Dividends"},
    {547, "Est. Tax Rate (%)"},
    // The blanks at the end of some group captions are those of the design.
    {548, "Currency Unit "},
    {549, "Thousands"},
    {550, "Millions"},
    {551, "Billions"},
    {552, "Currency Display"},
    {553, "Pre-tax Income or Tax Rate "},
    {554, "Pre-Tax Income"},
    {555, "Tax Rate"},
    {556, "Common Equity or Book Value "},
    {557, "Common Equity"},
    {558, "Book Value"},
    {559, "Colors"},
    {560, "Decimal"},
    {561, "Fractional"},
    {562, "Lock Data"},
    {563, "&Add New Year"},
    {564, "&Remove Year"},
    {565, "&Company Data"},
    {566, "&Yearly Data"},
    {567, "&Quarterly Data"},
    {568, "Company &Other"},
    {569, "O&ptions"},
    {570, "Required Data"},
    {571, "Quarterly Shade"},
    {572, "Required Yearly Data"},
    {573, "Locked Company Data"},
    {574, "&OK"},
    {575, "&Cancel"},
    {576, "&Help"},
    // These two serve as the help of their fields, too.
    {577, "Total Capital"},
    {578, "Last 4Q EPS"},
    {579, "&Add New Quarter"},
    {580, "Currency Symbol"},

    {613, "ORB EPS Projection"},
    {614, "Company &Other"},
    {615, "The new date must lie in the month in which one of the next three quarters ends."},
    {616, "The previous date has been put back."},

    // The unit behind the captions of money and shares, and of a rate.
    {620, "(K)"},
    {621, "(M)"},
    {622, "(B)"},
    {623, "(%)"},
    // Why a field's text is not stored.
    {630, "This is not a date and was not stored."},
    {631, "This number is too large and was not stored."},
    {632, "This value could not be stored."},
    {633, "Without a date of the last quarter this figure has no quarter and was not stored."},
    {634, "These figures could not be moved. They stand in another period now:"},
    {635, "Stored for now. The earnings in the tables give another figure, which will replace "
          "this one:"},
    {636, "It was typed in %1. Type it anew in %2."},
    {637, "%1 was typed here. What the earnings in the tables give has taken its place."},
    {638, "Copied in %1, and stored as it stands in %2."},
    {639,
     "The yearly figures stand in other years now: the newest ones in %1, not in %2. To keep them "
     "in their years, type %2 again, and add or remove years."},
    {640, "3 months"},
    {641, "6 months"},
    {642, "12 months"},
    {650, "Ask the Assistant..."},
    {651, "Copy Cells"},
    {652, "Copy Cells with Headings"},
    {653, "Delete Figures"},
    {654, "Fill Down"},
    {655, "Take Figures from the Year Before"},
    {656, "Take Figures from the Quarter Before"},
    {669, "The data is locked. Unlock it to change anything."},
    {670, "Taken as %1; \"%2\" was left out."},
    {671, "A negative figure makes no sense here and was not stored."},
    {672, "Figures only. A loss begins with a minus sign."},
    {673, "Figures only, without a minus sign."},
    {674, "Figures only, without a minus sign. Eighths are written as 3 1/8."},
    {675, "A year in four figures, from 1980 to 9900."},
    {676, "The decimal mark is \"%1\", once in a figure."},
    {677, "This field takes one figure. Several cells can't be pasted into it."},
    {678, "There is room for %1 characters."},
    // Blocks of cells: of one figure, and of several.
    {701, "Paste into %1"},
    {702, "&Paste One Figure"},
    {703, "&Paste %1 Figures"},
    {704, "Nothing to Paste"},
    {705, "Cancel"},
    {706, "Paste of One Figure"},
    {707, "Paste of %1 Figures"},
    {708, "Deletion of One Figure"},
    {709, "Deletion of %1 Figures"},
    {710, "Fill Down of One Figure"},
    {711, "Fill Down of %1 Figures"},
    {712, "Figure from the Period Before"},
    {713, "%1 Figures from the Period Before"},
    {714, "One figure will be pasted."},
    {715, "%1 figures will be pasted."},
    {716, "One is left out."},
    {717, "%1 are left out."},
    {718, "One to look at."},
    {719, "%1 to look at."},
    {720, "There is no figure in this block that could be pasted here."},
    {721, "Period"},
    {722, "Column"},
    {723, "Clipboard"},
    {724, "Now"},
    {725, "Then"},
    {726, "Remark"},
    {730, "Place by the &years or dates in the block"},
    {731, "Place by the column &names in the block"},
    {732, "&Turn rows and columns"},
    {733, "&Reverse the order of the periods"},
    {734, "&Unit of amounts:"},
    {735, "As shown"},
    {736, "&Empty cells and dashes:"},
    {737, "Keep the figure"},
    {738, "Empty the cell"},
    {739, "&Decimal mark:"},
    {740, "Point"},
    {741, "Comma"},
    {745, "In brackets: a loss."},
    {746, "The minus stood behind."},
    {747, "Without %1."},
    {748, "Without %."},
    {749, "A fraction."},
    {750, "The bracket is not closed; taken for a loss."},
    {751, "A percentage among amounts."},
    {752, "Written with an exponent: digits may be missing."},
    {753, "With the other decimal mark it would be %1."},
    {754, "The cell will be empty."},
    {755, "This looks like a year."},
    {756, "Replaces what was typed or pasted, or may have been."},
    {757, "A dash."},
    {758, "Not available."},
    {759, "The spreadsheet had no room to show the figure."},
    {760, "An error of the spreadsheet."},
    {761, "No figure."},
    {762, "This column takes no minus."},
    {763, "Too large."},
    {764, "Outside the grid."},
    {765, "%1 is not on the form."},
    {766, "There is no column \"%1\"."},
    {767, "A second figure for the same place."},
    {768, "Goes by its place: the periods in the block were not understood."},
    {769, "Taken for a quarter of the fiscal year."},
    {770, "The block does not say clearly in which unit this is."},
    {771, "Unit of shares in the block: %1."},
    {772, "Nothing in the block says where it goes."},
    {773, "The block speaks of %1 months."},
    {774, "The figures below \"%1\" are taken for this column."},
    {775, "Nothing is stored for %1."},
    {776, "Nothing is stored for %1 in %2."},
    {777, "No minus is taken in %3."},
    {778, "There are more than 20 000 cells, or 2 MB of text, on the clipboard. Copy only the part "
          "that is to be pasted."},
    {779, "%1 cells"},
    {780, "Periods of the block may be of another length: their days do not fit."},
};
static_assert(isStringTable(standardRows));

// The ZX platform shows no debt, capital, holdings and share counts, and names no publisher of
// the earnings projection.
constexpr StringRow zxRows[] = {
    {110, "A forecast of the earnings per share, in currency per share, from an analyst or your "
          "own. It is an expectation and stands in no company report. A loss takes a minus sign. "
          "Leave it empty when you have no forecast."},
    {158, "The company at a glance: its name and where it is traded, today's price and the "
          "dividend. Begin here with a new company, then go on to the yearly figures."},
    {613, "EPS Projection"},
    {614, "&Other Data"},
};
static_assert(isStringTable(zxRows));

} // namespace

StringTable standardStrings() {
    return standardRows;
}

StringTable zxStrings() {
    return zxRows;
}

} // namespace vkr
