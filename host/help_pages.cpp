// SPDX-License-Identifier: MIT
#include "host/help_pages.hpp"

#include "binding/enumerations.hpp"

#include <algorithm>
#include <array>

namespace vkr {

namespace {

constexpr std::int16_t object(DataEntryObject number) {
    return static_cast<std::int16_t>(helpObjectBase + number);
}
constexpr std::int16_t tab(TABObject number) {
    return static_cast<std::int16_t>(helpTabBase + number);
}

constexpr std::string_view money =
    "An amount of money in the currency unit chosen on the Options tab: thousands, millions or "
    "billions. It is kept in millions, so a change of unit changes the display alone.";
constexpr std::string_view shares =
    "A number of shares in the unit chosen on the Options tab, as the money amounts are.";
constexpr std::string_view perShare = "Money per share, not scaled by the currency unit.";
constexpr std::string_view price =
    "Money per share, as a decimal (12.5) or, with the fractional display, in eighths (12 1/2). "
    "Both can be typed at any time.";
constexpr std::string_view date =
    "A date, month first: 9/27/2025, Sep 27 2025 or 27 Sep 2025. Years of two digits are 2000 to "
    "2029 and 1930 to 1999. A double-click opens the calendar. A text that is no date is framed, "
    "and the date before it is kept.";
constexpr std::string_view freeText = "Any text; it may be empty.";

constexpr std::string_view incomeStatement = "The income statement of the annual report (10-K).";
constexpr std::string_view balanceSheet =
    "The balance sheet of the latest annual or quarterly report.";
constexpr std::string_view quarterlyReport = "The income statement of the quarterly report (10-Q), "
                                             "column \"three months ended\". The fourth "
                                             "quarter is the year less its first three quarters.";
constexpr std::string_view coverPage = "The cover page of the annual report (10-K).";
constexpr std::string_view quote = "Any quotation page, or your broker.";

constexpr auto table = std::to_array<HelpPage>({
    {help::list, "The list of companies",
     "Every company of the database, one row each. Type into the search field to see only those "
     "whose name, symbol, exchange or industry contain what you typed; several words must all be "
     "found. Click a heading to sort by it.",
     "Enter or a double-click opens the chosen company in a window of its own. New starts an "
     "empty one; Duplicate copies the chosen one; Delete asks first.",
     "", ""},
    {help::importAndExport, "Import and export",
     "A company travels as three tables that any spreadsheet opens: SYMBOL-company.csv with the "
     "single values, SYMBOL-yearly.csv and SYMBOL-quarterly.csv with one row a year or a quarter, "
     "newest first. Choose any one of the three to import the company.",
     "Import Folder takes every company of a folder; it shows how far it is and can be stopped. "
     "A file that can't be read is named with its line, and nothing of that company is imported.",
     "Money in millions, rates in percent, dates as 2025-09-27, a point as the decimal mark.",
     "fiscal_year,fiscal_year_end,revenue_musd,... then 2025,2025-09-27,416161,..."},
    {help::saving, "Saving, and two people at once",
     "OK saves and closes, Ctrl+S saves and goes on, Cancel discards what was changed since the "
     "last save. Closing a window with changes asks.",
     "When somebody else has saved the same company meanwhile, you are shown what differs and "
     "choose: keep yours, take theirs, or keep yours as a copy. Nothing is overwritten unasked.",
     "", ""},
    {help::keyboard, "Keys",
     "In the list: Ctrl+N new, Enter open, Ctrl+D duplicate, Delete delete, Ctrl+F search, Ctrl+I "
     "import, Ctrl+E export, F5 refresh.",
     "In a company: Alt and the underlined letter changes the tab; Tab and Shift+Tab move from "
     "field to field; Enter and the arrow keys move through the grids; Ctrl+S saves, Ctrl+W "
     "closes, F1 opens this help.",
     "", ""},

    {object(doName), "Name", "The company's name as its reports give it.", coverPage, freeText,
     "Apple Inc."},
    {object(doSymbol), "Symbol", "The ticker symbol under which the share is traded.", coverPage,
     freeText, "AAPL"},
    {object(doExchange), "Exchange", "The exchange on which the share is listed.", coverPage,
     "Choose from the list or type another one.", "Nasdaq"},
    {object(doIndustry), "Industry",
     "The line of business, to compare the company with others of its kind.", coverPage,
     "Choose from the list or type another one.", "Electronic Computers"},
    {object(doTotalCap), "Total Capital",
     "Long-term debt, preferred stock and common equity together: the capital that the company "
     "works with.",
     balanceSheet, money, "164242 in millions"},
    {object(doSource), "Source",
     "Where the figures were taken from. Some sources state book value and a tax rate instead of "
     "common equity and pre-tax income; choosing such a source sets the options to match.",
     "You know it: the report or data service in front of you.",
     "Choose from the list or type another one.", "Annual report"},
    {object(doLastStudied), "Last Update", "The day on which you last worked on the figures.", "",
     date, "1/30/2026"},
    {object(doUpdatedBy), "Updated by", "Who last worked on the figures.", "", freeText,
     "J. Miller"},
    {object(doCurrentPrice), "Current Price",
     "The latest price of a share. A price above the 52-week high raises the high, one below the "
     "52-week low lowers the low.",
     quote, price, "259.48"},
    {object(do52WHigh), "52 Week High", "The highest price of the last 52 weeks.", quote, price,
     "288.62"},
    {object(do52WLow), "52 Week Low", "The lowest price of the last 52 weeks.", quote, price,
     "169.21"},
    {object(doPriceUpdatedDate), "Price Update Date", "The day of the current price.", quote, date,
     "1/30/2026"},
    {object(doLast4QEPS), "Last 4Q EPS",
     "Earnings per share of the last four quarters together. It is worked out anew whenever a "
     "quarterly figure changes and all four quarters are there; it can be typed as well.",
     "The sum of the four newest quarters on the Quarterly Data tab.", perShare, "7.9"},
    {object(doORBEPSProj), "EPS Projection",
     "The earnings per share expected for the coming year, by you or by analysts.",
     "Analysts' estimates, or your own study.", perShare, "8.35"},
    {object(doTotalDebt), "Total Debt",
     "What the company has borrowed: short-term borrowings, the current part of long-term debt, "
     "and long-term debt.",
     balanceSheet, money, "90509 in millions"},
    {object(doInsiderHolding), "Insider Holding",
     "The part of the shares that directors and officers hold.",
     "The proxy statement (DEF 14A), beneficial ownership.", "Percent; the % sign may be left out.",
     "0.1"},
    {object(doInstitutional), "Institutional",
     "The part of the shares that funds and other institutions hold.",
     "Quotation pages, from the institutions' quarterly filings (13F).",
     "Percent; the % sign may be left out.", "64.4"},
    {object(doPrefShares), "Preferred Shares",
     "Preferred stock outstanding, at its value. Empty where there is none.", balanceSheet, money,
     ""},
    {object(doCommShares), "Common Shares", "Common shares outstanding.", coverPage, shares,
     "14681.14 in millions"},
    {object(doDilutedShares), "Diluted Shares",
     "Common shares with those that options and convertible securities could add, on average over "
     "the period.",
     "Below the income statement of the latest report.", shares, "14810.356 in millions"},
    {object(doLastFY), "Last Fiscal Year",
     "The year in which the last fiscal year ended. The rows of the table follow from it.",
     "The annual report's title.", "A year of four digits, 1980 to 9900.", "2025"},
    {object(doLastFYDate), "Date of Last FY", "The day on which the last fiscal year ended.",
     coverPage, date, "9/27/2025"},
    {object(doYRevenue), "Revenue", "Sales of the fiscal year.", incomeStatement, money,
     "416161 in millions"},
    {object(doYPTI), "Pre-tax Income",
     "Income before taxes. The tax rate is worked out from it and the net income.", incomeStatement,
     money, "132729 in millions"},
    {object(doYTaxRate), "Tax Rate",
     "Taxes as a part of income before taxes. Pre-tax income is worked out from it and the net "
     "income.",
     "Income taxes divided by income before taxes; the notes on taxes give it, too.",
     "Percent, 15.61 for 15.61 %.", "15.61"},
    {object(doYNetInc), "Net Income", "What is left of the revenue after all expenses and taxes.",
     incomeStatement, money, "112010 in millions"},
    {object(doYCommEq), "Common Equity",
     "What belongs to the common shareholders: total equity less preferred stock.",
     "The balance sheet at the end of the fiscal year.", money, "73733 in millions"},
    {object(doYBookVal), "Book Value",
     "Common equity per share. Common equity is worked out from it and the shares outstanding.",
     "Common equity divided by the shares outstanding at the end of the fiscal year.", perShare,
     "4.99"},
    {object(doYEPS), "Earnings per Share", "Net income per share of the fiscal year.",
     incomeStatement, perShare, "7.46"},
    {object(doYDividend), "Dividends Declared", "Dividends per share declared for the fiscal year.",
     "The annual report's statement of shareholders' equity, or below the income statement.",
     perShare, "1.02"},
    {object(doYHigh), "High", "The highest price of the fiscal year.",
     "Price tables, adjusted for splits as the earnings are.", price, "260.1"},
    {object(doYLow), "Low", "The lowest price of the fiscal year.",
     "Price tables, adjusted for splits as the earnings are.", price, "169.21"},
    {object(doYCSO), "Shares Outstanding",
     "The shares of the fiscal year, on the same basis before and after a split.",
     "Below the income statement of the annual report.", shares, "15004.697 in millions"},
    {object(doLastQDate), "Date of Last Quarter",
     "The end of the newest quarter in the table. A date one, two or three quarters later adds "
     "that many rows, after a question.",
     "The quarterly report's title (10-Q).", date, "12/27/2025"},
    {object(doQRevenue), "Quarterly Revenue", "Sales of the quarter.", quarterlyReport, money,
     "143756 in millions"},
    {object(doQEPS), "Quarterly Earnings per Share",
     "Net income per share of the quarter. The four newest add up to Last 4Q EPS.", quarterlyReport,
     perShare, "2.84"},
    {object(doQPTI), "Quarterly Pre-tax Income", "Income before taxes of the quarter.",
     quarterlyReport, money, "51002 in millions"},
    {object(doQTaxRate), "Quarterly Tax Rate",
     "Taxes as a part of the quarter's income before taxes.",
     "Income taxes divided by income before taxes of the quarter.", "Percent, 17.46 for 17.46 %.",
     "17.46"},
    {object(doQNetInc), "Quarterly Net Income", "Net income of the quarter.", quarterlyReport,
     money, "42097 in millions"},
    {object(doAddress1), "Address", "Street and number of the head office.", coverPage, freeText,
     "One Apple Park Way"},
    {object(doAddress2), "Address, second line", "What the first line has no room for.", coverPage,
     freeText, "Building 2"},
    {object(doCity), "City", "The head office's city.", coverPage, freeText, "Cupertino"},
    {object(doState), "State or Province", "The head office's state or province.", coverPage,
     freeText, "CA"},
    {object(doZip), "Zip or Postal Code", "The head office's postal code.", coverPage, freeText,
     "95014"},
    {object(doCountry), "Country", "The head office's country.", coverPage, freeText, "USA"},
    {object(doInternetURL), "Internet", "The address of the company's pages for investors.",
     coverPage, freeText, "investor.example.com"},
    {object(doContactPerson), "Contact Person", "Whom to ask at the company.",
     "The investor relations pages.", freeText, "Investor Relations"},
    {object(doTel), "Telephone", "The company's telephone number.", coverPage, freeText,
     "(408) 996-1010"},
    {object(doVLTimelines), "VL Timeliness", "A rank for the price performance to be expected.",
     "The rating service's page on the company.", "Usually 1 (highest) to 5.", "2"},
    {object(doVLSafety), "VL Safety", "A rank for the risk of the share.",
     "The rating service's page on the company.", "Usually 1 (safest) to 5.", "1"},
    {object(doReportingPeriod), "Reporting Period",
     "How often the company reports, and which period leads.", "The company's reports.",
     "Choose from the list.", ""},
    {object(doNotes), "Notes", "Whatever you want to keep with the company.", "",
     "Any text of several lines; Enter begins a new one.", "Split 4 for 1 in August 2020."},
    {object(doPrefDiv), "Preferred Dividends",
     "Dividends paid on preferred stock in the year. Empty where there is none.", incomeStatement,
     money, ""},
    {object(doCommDiv), "Common Dividends", "The present yearly dividend per common share.",
     "Quotation pages, or four times the latest quarterly dividend.", perShare, "1.04"},
    {object(doEstTaxRate), "Estimated Tax Rate",
     "The tax rate that you expect for the coming years.",
     "The company's outlook, or the tax rates of the last years.", "Percent, 16 for 16 %.", "16"},
    {object(doUnit), "Currency Unit",
     "Whether money amounts and numbers of shares are shown and typed in thousands, millions or "
     "billions. Changing it changes the display, never the figures.",
     "The heading of the report's tables, such as \"in millions\".", "", "Millions"},
    {object(doPTI_TaxRate), "Pre-tax Income or Tax Rate",
     "Which of the two you type. The other one is worked out where net income is there, too.", "",
     "", "Pre-tax income, where the report shows it"},
    {object(doCommEq_BookVal), "Common Equity or Book Value",
     "Which of the two you type. From book value per share the common equity is worked out.", "",
     "", "Common equity, where you have the balance sheet"},
    {object(doLockInfo), "Lock Data",
     "Makes every field read-only, so that nothing is changed by mistake. Adding and removing "
     "years and quarters is refused, too.",
     "", "", ""},
    {object(doDisplayOption), "Currency Display",
     "Shows prices as decimals or as fractions in eighths. Fractions can be typed in both.", "", "",
     "12.375 or 12 3/8"},
    {object(doYearLabel), "Years",
     "The fiscal years of the rows, the coming one last. Add New Year moves every figure one "
     "year back to make room; Remove Year takes the newest one away. Both ask first.",
     "", "", ""},
    {object(doQuarterLabel), "Quarters",
     "The months in which the quarters ended, the last one first. Add Quarter makes room for a "
     "new one.",
     "", "", ""},
    {object(doPercentDilution), "Percent Dilution",
     "By how much the diluted shares exceed the common shares.",
     "Diluted Shares and Common Shares on the Company Data tab.", "Percent.", "0.9"},
    {object(doPercentTotalCap), "Percent of Total Capital",
     "The part of the total capital that is debt.",
     "Total Debt and Total Capital on the Company Data tab.", "Percent.", "55.1"},
    {tab(toCompany), "The Company Data tab",
     "Who the company is, its price, its shares and its capital.", "Alt+C brings it up.", "", ""},
    {tab(toYearly), "The Yearly Data tab",
     "Ten fiscal years and the coming one. Each row is a year, each column a figure; cells that "
     "a study needs are shaded.",
     "Alt+Y brings it up. Enter goes down, Shift+Enter up.", "", ""},
    {tab(toQuarterly), "The Quarterly Data tab",
     "Up to 35 quarters, the newest first: revenue, earnings per share, pre-tax income or tax "
     "rate, net income.",
     "Alt+Q brings it up. The bar and the spinner show older quarters.", "", ""},
    {tab(toOther), "The Other Company Data tab",
     "Address, contact, preferred and common dividends, the estimated tax rate, and notes.",
     "Alt+O brings it up.", "", ""},
    {tab(toOptions), "The Options tab",
     "How figures are shown and typed: currency unit, decimal or fractional prices, which of two "
     "alternative figures you type, colours, the currency symbol.",
     "Alt+P brings it up.", "", ""},
    {object(doDateOfSource), "Date of Source", "The day of the report that the figures are from.",
     "The source itself.", date, "9/27/2025"},
});

static_assert(table.size() == 4 + dataEntryObjectCount);

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString paragraph(const QString& heading, std::string_view body) {
    if (body.empty())
        return {};
    return QStringLiteral("<h3>%1</h3><p>%2</p>").arg(heading, text(body).toHtmlEscaped());
}

QString link(const HelpPage& page) {
    return QStringLiteral("<li><a href=\"page:%1\">%2</a></li>")
        .arg(page.number)
        .arg(text(page.title).toHtmlEscaped());
}

bool isHostPage(const HelpPage& page) {
    return page.number < helpObjectBase;
}
bool isTabPage(const HelpPage& page) {
    return page.number >= tab(toCompany) && page.number <= tab(toOptions);
}

} // namespace

std::span<const HelpPage> helpPages() {
    return table;
}

const HelpPage* helpPage(int number) {
    const auto found = std::ranges::find(table, number, &HelpPage::number);
    return found == table.end() ? nullptr : &*found;
}

QString helpText(const HelpPage& page) {
    QString html = QStringLiteral("<h2>%1</h2><p>%2</p>")
                       .arg(text(page.title).toHtmlEscaped(), text(page.what).toHtmlEscaped());
    if (isHostPage(page) || isTabPage(page)) {
        if (!page.where.empty())
            html += QStringLiteral("<p>%1</p>").arg(text(page.where).toHtmlEscaped());
    } else {
        html += paragraph(QStringLiteral("Where to find it"), page.where);
    }
    html += paragraph(QStringLiteral("How to type it"), page.unit);
    html += paragraph(QStringLiteral("Example"), page.example);
    return html;
}

QString helpContents() {
    QString own;
    QString tabs;
    QString objects;
    for (const HelpPage& page : table)
        (isHostPage(page) ? own : isTabPage(page) ? tabs : objects) += link(page);
    return QStringLiteral("<h2>Contents</h2><ul>%1</ul><h3>The five tabs</h3><ul>%2</ul>"
                          "<h3>The fields</h3><ul>%3</ul>")
        .arg(own, tabs, objects);
}

} // namespace vkr
