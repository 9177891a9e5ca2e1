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
    "An amount in the currency unit chosen on the Options tab: thousands, millions or billions. A "
    "loss begins with a minus or an opening bracket. A pasted figure may have groups of "
    "thousands, a currency sign and brackets, as in $(1,234). It is kept in millions: another unit "
    "changes what you see, "
    "never the figure.";
constexpr std::string_view moneyAboveZero =
    "An amount in the currency unit chosen on the Options tab: thousands, millions or billions. It "
    "takes no minus. A pasted figure may have groups of thousands and a currency sign, as in "
    "$1,234. It is kept "
    "in millions: another unit changes what you see, never the figure.";
constexpr std::string_view shares =
    "A number of shares in the unit chosen on the Options tab, as the money amounts are. It is "
    "kept in millions.";
constexpr std::string_view perShare = "Money per share, with the decimal mark of your system: "
                                      "7.46. The currency unit has no bearing on it; a loss begins "
                                      "with a minus or an opening bracket.";
constexpr std::string_view perShareAboveZero =
    "Money per share, with the decimal mark of your system: 1.02. The currency "
    "unit has no bearing on it; it takes no minus.";
constexpr std::string_view price =
    "Money per share, as a decimal (12.5) or in eighths (12 1/2). Both can be typed at any time; "
    "the Options tab decides which one is shown.";
constexpr std::string_view percent =
    "Percent: 15.61 for 15.61 %. The sign is not typed; a pasted one makes no difference.";
constexpr std::string_view date =
    "A date, month first: 9/27/2025, Sep 27 2025 or 27 Sep 2025. Years of two digits are 2000 to "
    "2029 and 1930 to 1999. A double-click opens the calendar. A text that is no date is framed, "
    "and the date before it is kept.";
constexpr std::string_view freeText = "Any text; it may be empty.";
constexpr std::string_view listOrText = "Choose from the list or type another one.";

constexpr std::string_view incomeStatement = "The income statement of the annual report (10-K).";
constexpr std::string_view balanceSheet =
    "The balance sheet of the latest annual or quarterly report.";
constexpr std::string_view quarterlyReport = "The income statement of the quarterly report (10-Q), "
                                             "column \"three months ended\". The fourth "
                                             "quarter is the year less its first three quarters.";
constexpr std::string_view coverPage = "The cover page of the annual report (10-K).";
constexpr std::string_view priceTable =
    "Price tables of the year, adjusted for splits as the earnings are.";
constexpr std::string_view quote = "Any quotation page, or your broker.";
constexpr std::string_view rating = "The rating service's page on the company.";
constexpr std::string_view optionsTab = "On the Options tab (Alt+P).";
constexpr std::string_view choice =
    "Click one of the two, or move to them and press the space bar.";
constexpr std::string_view toReachThem =
    "So that a question about a figure reaches somebody who can answer it.";

constexpr HelpQuote of(std::string_view symbol, Datum datum, std::string_view figure,
                       std::string_view period = {}) {
    return {symbol, datum, figure, period};
}
constexpr HelpQuote apple(Datum datum, std::string_view figure, std::string_view period = {}) {
    return of("AAPL", datum, figure, period);
}

constexpr auto table = std::to_array<HelpPage>({
    {help::list,
     "The list of companies",
     "Every company of the database, one row each. Type into the search field to see only those "
     "whose name, symbol, exchange or industry contain what you typed; several words must all be "
     "found. Click a heading to sort by it.",
     "",
     "Enter or a double-click opens the chosen company in a window of its own. New starts an "
     "empty one; Duplicate copies the chosen one; Delete asks first.",
     "",
     "",
     {}},
    {help::importAndExport,
     "Import and export",
     "A company travels as three tables that any spreadsheet opens: SYMBOL-company.csv with the "
     "single values, SYMBOL-yearly.csv and SYMBOL-quarterly.csv with one row a year or a quarter, "
     "newest first. Choose any one of the three to import the company.",
     "",
     "Import Folder takes every company of a folder; it shows how far it is and can be stopped. "
     "A file that can't be read is named with its line, and nothing of that company is imported.",
     "Money in millions, rates in percent, dates as 2025-09-27, always a point as the decimal "
     "mark.",
     "fiscal_year,fiscal_year_end,revenue_musd,... then 2025,2025-09-27,416161,...",
     {}},
    {help::saving,
     "Saving, and two people at once",
     "OK saves and closes, Ctrl+S saves and goes on, Cancel discards what was changed since the "
     "last save. Cancel and closing a window ask where there are changes, and say how many. "
     "Where a company has no date yet, the form suggests one: today, or the end of last year. It "
     "is "
     "kept when you type or pick it, or a figure that goes by it, such as the price beside its "
     "day.",
     "",
     "When somebody else has saved the same company meanwhile, you are shown what differs and "
     "choose: keep yours, take theirs, or keep yours as a copy. Nothing is overwritten unasked.",
     "",
     "",
     {}},
    {help::keyboard,
     "Keys",
     "In the list: Ctrl+N new, Enter open, Ctrl+D duplicate, Delete delete, Ctrl+F search, Ctrl+I "
     "import, Ctrl+E export, Home and End the first and the last company. What other people save "
     "shows by itself; F5 reads the list anew.",
     "",
     "In a company: Alt and the underlined letter, or Ctrl+PageUp and Ctrl+PageDown, change the "
     "tab; Tab and Shift+Tab move from field to field; Enter and the arrow keys move through the "
     "grids, with Ctrl to the next column; PageUp, PageDown and the wheel look at older and newer "
     "quarters. The Menu key or Shift+F10 opens the menu of a field, F4 or Alt+Down a list or the "
     "calendar. Escape takes a field back to what it showed. Ctrl+S saves, Ctrl+W closes, F1 opens "
     "this help.",
     "A key that a field does not take makes a sound, and a note says what the field takes. A red "
     "frame: the text is not stored. An amber frame: it is stored, but something was left out, as "
     "the M of a pasted 1.5M; point at it to see what. Mend the figure, or press Enter in it to "
     "agree. Several cells of a spreadsheet can't be pasted into one figure.",
     "",
     {}},

    {object(doName),
     "Name",
     "The company's name as its reports give it.",
     "It is how you find the company in the list, and it heads everything you print or export.",
     coverPage,
     freeText,
     "Apple writes itself Apple Inc.",
     {{apple(Datum::Name, "Apple Inc.")}}},
    {object(doSymbol),
     "Symbol",
     "The short code, or ticker symbol, under which the share is traded.",
     "Quotation pages and brokers know the company by it, and an import recognises it again.",
     coverPage,
     "One to a few letters; typed or pasted, they become capitals.",
     "NVIDIA's symbol is NVDA.",
     {{of("NVDA", Datum::Symbol, "NVDA")}}},
    {object(doExchange),
     "Exchange",
     "The stock exchange on which the share is listed.",
     "Together with the symbol it says exactly which share is meant.",
     coverPage,
     listOrText,
     "Snowflake's share is listed on the NYSE.",
     {{of("SNOW", Datum::Exchange, "NYSE")}}},
    {object(doIndustry),
     "Industry",
     "The company's line of business.",
     "A margin or a growth rate means little by itself: compare it with companies of the same "
     "industry.",
     "The head of the report as the SEC lists it, or any quotation page.",
     listOrText,
     "NVIDIA is filed under Semiconductors & Related Devices.",
     {{of("NVDA", Datum::Industry, "Semiconductors & Related Devices")}}},
    {object(doTotalCap),
     "Total Capital",
     "All the capital that the company works with for the long run: its debt, its preferred stock "
     "and its common equity together.",
     "Set against the debt it shows how much of the business is financed with borrowed money.",
     "The balance sheet: add up debt, preferred stock and common equity; data services state it as "
     "total capitalization.",
     moneyAboveZero,
     "Apple, fiscal year 2025: debt of 90509 million and common equity of 73733 million, with no "
     "preferred stock, make 164242.",
     {{apple(Datum::TotalDebt, "90509"), apple(Datum::YCommEqSeries, "73733", "2025")}}},
    {object(doSource),
     "Source",
     "Where the figures were taken from.",
     "Services count some figures differently, so that you can tell later why two records differ. "
     "Some sources state book value and a tax rate in place of common equity and pre-tax income; "
     "choosing such a source sets the options to match.",
     "You know it: the report or the data service in front of you.",
     listOrText,
     "Apple's figures of fiscal year 2025 are from its annual report: choose or type Annual "
     "report.",
     {{apple(Datum::LastFY, "2025")}}},
    {object(doLastStudied),
     "Last Update",
     "The day on which you last worked on the figures.",
     "It tells at a glance whether a newer report is out that is not in the record yet.",
     "Your own calendar.",
     date,
     "Apple's quarter to 12/27/2025 was reported a month later; whoever typed it on the next day "
     "puts 1/30/2026.",
     {{apple(Datum::LastQDate, "12/27/2025")}}},
    {object(doUpdatedBy),
     "Updated by",
     "Who last worked on the figures.",
     "Where several people keep the same companies, one knows whom to ask.",
     "The person at the keyboard.",
     "A name or initials. A company's record has no place for it, so that it is not kept with the "
     "company; the notes are.",
     "Whoever typed Apple's fiscal year 2025 would be J. Miller, say.",
     {{apple(Datum::LastFY, "2025")}}},
    {object(doCurrentPrice),
     "Current Price",
     "The latest price of one share.",
     "Compared with the earnings per share it says how dear the share is. A price above the "
     "52-week high raises the high, one below the 52-week low lowers the low.",
     quote,
     price,
     "In fiscal year 2025 Apple's share cost between 169.21 and 260.1. A price half a dollar above "
     "230 is typed as 230.5 or as 230 1/2.",
     {{apple(Datum::YLowSeries, "169.21", "2025"), apple(Datum::YHighSeries, "260.1", "2025")}}},
    {object(do52WHigh),
     "52 Week High",
     "The highest price of a share within the last 52 weeks.",
     "A price far below it asks for a reason: has the market changed its mind, or the company its "
     "prospects?",
     quote,
     price,
     "Apple's fiscal year 2025 had 52 weeks, and 260.1 was their highest price.",
     {{apple(Datum::YHighSeries, "260.1", "2025")}}},
    {object(do52WLow),
     "52 Week Low",
     "The lowest price of a share within the last 52 weeks.",
     "Together with the high it shows how far the price swings within a year, and where it stands "
     "now.",
     quote,
     price,
     "Apple's fiscal year 2025 had 52 weeks, and 169.21 was their lowest price.",
     {{apple(Datum::YLowSeries, "169.21", "2025")}}},
    {object(doPriceUpdatedDate),
     "Price Update Date",
     "The day of the current price.",
     "A price is of use only if one knows how old it is.",
     "Beside the price on the quotation page.",
     date,
     "Apple's fiscal year 2025 ended on Saturday, 9/27/2025; its last price is of the day before, "
     "9/26/2025.",
     {{apple(Datum::LastFYDate, "9/27/2025")}}},
    {object(doLast4QEPS),
     "Last 4Q EPS",
     "Earnings per share of the last four quarters together: the newest full year there is, also "
     "in the middle of a fiscal year.",
     "The current price divided by it is the price-earnings ratio that most pages quote. It is "
     "worked out anew whenever a quarterly figure changes and all four quarters are there.",
     "The sum of the four newest quarters on the Quarterly Data tab.",
     perShare,
     "Apple, the four quarters to 12/27/2025: 2.84 + 1.84 + 1.57 + 1.65 = 7.9.",
     {{apple(Datum::QEPSSeries, "2.84", "2025-12-27"),
       apple(Datum::QEPSSeries, "1.84", "2025-09-27"),
       apple(Datum::QEPSSeries, "1.57", "2025-06-28"),
       apple(Datum::QEPSSeries, "1.65", "2025-03-29")}}},
    {object(doORBEPSProj),
     "EPS Projection",
     "The earnings per share expected for the coming year, by you or by analysts.",
     "The price is paid for what is yet to come; this is the figure to hold it against.",
     "Analysts' estimates, or your own study.",
     perShare,
     "Apple earned 6.08 a share in fiscal year 2024 and 7.46 in 2025. Whoever expects ten percent "
     "more types 8.21.",
     {{apple(Datum::YEPSSeries, "6.08", "2024"), apple(Datum::YEPSSeries, "7.46", "2025")}}},
    {object(doTotalDebt),
     "Total Debt",
     "What the company has borrowed: short-term borrowings, the part of long-term debt that is due "
     "within a year, and long-term debt.",
     "Debt has to be served in bad years, too. Much of it makes a company fragile.",
     balanceSheet,
     money,
     "Apple owes 90509 million. With the currency unit set to billions it is typed as 90.509.",
     {{apple(Datum::TotalDebt, "90509")}}},
    {object(doInsiderHolding),
     "Insider Holding",
     "The part of the shares that directors and officers of the company hold.",
     "People who run a company with their own money in it have the same interest as its other "
     "owners.",
     "The proxy statement (DEF 14A), beneficial ownership: shares of all directors and officers "
     "divided by all shares.",
     percent,
     "Of Apple's 14681.14 million shares, 15 million in the hands of directors and officers would "
     "be 0.1 percent.",
     {{apple(Datum::CommShares, "14681.14")}}},
    {object(doInstitutional),
     "Institutional",
     "The part of the shares that funds, insurers and other institutions hold.",
     "A high part means that professionals follow the company; a low one can mean that they have "
     "not found it yet.",
     "Quotation pages, which gather it from the institutions' quarterly filings (13F).",
     percent,
     "Of Apple's 14681.14 million shares, 9400 million in the hands of institutions would be 64 "
     "percent.",
     {{apple(Datum::CommShares, "14681.14")}}},
    {object(doPrefShares),
     "Preferred Shares",
     "Preferred stock outstanding, at its value. Its holders get a fixed dividend before the "
     "common shareholders get any.",
     "It is capital that comes before yours: the more of it, the less of the profit is left for "
     "common shares.",
     balanceSheet,
     money,
     "Tesla's balance sheet of September 2022 has preferred stock of 0: the field stays empty.",
     {{of("TSLA", Datum::PrefShares, "0")}}},
    {object(doCommShares),
     "Common Shares",
     "The number of common shares outstanding: the pieces in which the company is owned.",
     "Times the price it is what the whole company costs. A number that grows year after year "
     "makes each share a smaller piece.",
     coverPage,
     shares,
     "The cover page of Apple's report counts 14,681,140,000 shares: in millions, 14681.14.",
     {{apple(Datum::CommShares, "14681.14")}}},
    {object(doDilutedShares),
     "Diluted Shares",
     "Common shares together with those that options, stock awards and convertible securities may "
     "still add, on average over the period.",
     "Earnings per share are reckoned on it, so that what was promised to employees and lenders is "
     "not forgotten.",
     "Below the income statement of the latest report, \"diluted\" shares.",
     shares,
     "Apple, quarter to 12/27/2025: 14810.356 million, a little above its 14681.14 million common "
     "shares.",
     {{apple(Datum::DilutedShares, "14810.356"), apple(Datum::CommShares, "14681.14"),
       apple(Datum::LastQDate, "12/27/2025")}}},
    {object(doLastFY),
     "Last Fiscal Year",
     "The calendar year in which the last fiscal year ended. A fiscal year need not end in "
     "December.",
     "The rows of the yearly table follow from it: the row before the last one is this year.",
     "The annual report's title.",
     "A year of four digits, 1980 to 9900.",
     "NVIDIA's fiscal year that ended on 1/25/2026 is 2026, though nearly all of it lay in 2025.",
     {{of("NVDA", Datum::LastFY, "2026"), of("NVDA", Datum::LastFYDate, "1/25/2026")}}},
    {object(doLastFYDate),
     "Date of Last FY",
     "The day on which the last fiscal year ended.",
     "Quarters are counted from it, and earnings of different companies are compared over the same "
     "time.",
     coverPage,
     date,
     "Apple's fiscal year 2025 ended on 9/27/2025.",
     {{apple(Datum::LastFYDate, "9/27/2025")}}},
    {object(doYRevenue),
     "Revenue",
     "All that the company sold in the fiscal year, before any cost. Also called sales.",
     "Profit can be helped along for a year or two, sales hardly. Steady growth over ten years is "
     "the first sign of a healthy business.",
     "The first line of the income statement in the annual report (10-K): total net sales, or "
     "total revenues.",
     moneyAboveZero,
     "Apple sold for 391035 million in fiscal year 2024 and for 416161 million in 2025, which is "
     "6.4 percent more.",
     {{apple(Datum::YRevenueSeries, "391035", "2024"),
       apple(Datum::YRevenueSeries, "416161", "2025")}}},
    {object(doYPTI),
     "Pre-tax Income",
     "What is left of the revenue after all expenses but the taxes on income.",
     "As a part of revenue it is the margin that management answers for; taxes are not its doing. "
     "The tax rate is worked out from it and the net income.",
     incomeStatement,
     money,
     "Apple, fiscal year 2025: 132729 million on a revenue of 416161 million.",
     {{apple(Datum::YPTISeries, "132729", "2025"),
       apple(Datum::YRevenueSeries, "416161", "2025")}}},
    {object(doYTaxRate),
     "Tax Rate",
     "Taxes on income as a part of the income before taxes.",
     "A year that is far off the others had something unusual in it, and its net income tells "
     "little about the next. Pre-tax income is worked out from it and the net income.",
     "Income taxes divided by income before taxes; the notes on taxes call it the effective tax "
     "rate.",
     percent,
     "Apple paid 15.61 percent in fiscal year 2025. The 24.09 percent of 2024 stand out: look up "
     "why.",
     {{apple(Datum::YTaxRateSeries, "15.61", "2025"),
       apple(Datum::YTaxRateSeries, "24.09", "2024")}}},
    {object(doYNetInc),
     "Net Income",
     "What is left of the revenue after all expenses and taxes: the profit, or the loss, of the "
     "fiscal year.",
     "It is what belongs to the owners; dividends and growth are paid from it.",
     incomeStatement,
     money,
     "Apple earned 112010 million in fiscal year 2025. Snowflake's loss in its fiscal year 2025 is "
     "typed as -1285.64.",
     {{apple(Datum::YNetIncSeries, "112010", "2025"),
       of("SNOW", Datum::YNetIncSeries, "-1285.64", "2025")}}},
    {object(doYCommEq),
     "Common Equity",
     "What belongs to the common shareholders by the books: all assets less all debts and the "
     "preferred stock.",
     "Net income divided by it is the return on equity: what management earns on the owners' "
     "money.",
     "The balance sheet at the end of the fiscal year: total shareholders' equity, less preferred "
     "stock.",
     money,
     "Apple, end of fiscal year 2025: 73733 million.",
     {{apple(Datum::YCommEqSeries, "73733", "2025")}}},
    {object(doYBookVal),
     "Book Value",
     "Common equity per share. Common equity is worked out from it and the shares outstanding.",
     "It says how much of the price is backed by what stands in the books.",
     "Common equity divided by the shares outstanding at the end of the fiscal year; data services "
     "state it.",
     perShare,
     "Apple, end of fiscal year 2025: 4.991 a share.",
     {{apple(Datum::YBookValSeries, "4.991", "2025")}}},
    {object(doYEPS),
     "Earnings per Share",
     "Net income of the fiscal year divided by the number of shares: what one share earned.",
     "The most quoted figure of all. The price follows it over the years.",
     "The last lines of the income statement in the annual report (10-K). Take basic or diluted "
     "earnings per share, the same one in all years; the sample companies have the diluted ones.",
     perShare,
     "Apple, fiscal year 2025: 7.46. Snowflake's loss per share in its fiscal year 2025 is typed "
     "as -3.86.",
     {{apple(Datum::YEPSSeries, "7.46", "2025"), of("SNOW", Datum::YEPSSeries, "-3.86", "2025")}}},
    {object(doYDividend),
     "Dividends Declared",
     "The dividends that the company declared for one share in the fiscal year.",
     "It is the part of the earnings that reaches your account. Set against the earnings it shows "
     "how much is kept for growth.",
     "The annual report's statement of shareholders' equity, or below the income statement.",
     perShareAboveZero,
     "Apple declared 1.02 in fiscal year 2025, out of earnings of 7.46.",
     {{apple(Datum::YDividendSeries, "1.02", "2025"), apple(Datum::YEPSSeries, "7.46", "2025")}}},
    {object(doYHigh),
     "High",
     "The highest price of a share in the fiscal year.",
     "Divided by the year's earnings per share it is the most that people paid for them.",
     priceTable,
     price,
     "Apple, fiscal year 2025: 260.1, with earnings of 7.46 a share.",
     {{apple(Datum::YHighSeries, "260.1", "2025"), apple(Datum::YEPSSeries, "7.46", "2025")}}},
    {object(doYLow),
     "Low",
     "The lowest price of a share in the fiscal year.",
     "Divided by the year's earnings per share it is the least that they could be had for.",
     priceTable,
     price,
     "Apple, fiscal year 2025: 169.21, with earnings of 7.46 a share.",
     {{apple(Datum::YLowSeries, "169.21", "2025"), apple(Datum::YEPSSeries, "7.46", "2025")}}},
    {object(doYCSO),
     "Shares Outstanding",
     "The shares of the fiscal year, on the same basis before and after a split.",
     "A falling number means that the company buys back its shares, and each one left earns more; "
     "a rising one means the opposite.",
     "Below the income statement of the annual report; older years restated for splits.",
     shares,
     "Apple had 22001.124 million shares in fiscal year 2016 and 15004.697 million in 2025.",
     {{apple(Datum::YCSOSeries, "22001.124", "2016"),
       apple(Datum::YCSOSeries, "15004.697", "2025")}}},
    {object(doLastQDate),
     "Date of Last Quarter",
     "The end of the newest quarter in the table. A date one, two or three quarters later adds "
     "that many rows, after a question.",
     "All rows of the quarterly table are counted from it.",
     "The quarterly report's title (10-Q): \"for the quarterly period ended\".",
     date,
     "Apple's newest quarter ended on 12/27/2025.",
     {{apple(Datum::LastQDate, "12/27/2025")}}},
    {object(doQRevenue),
     "Quarterly Revenue",
     "All that the company sold in the quarter.",
     "Compare it with the same quarter a year before: many companies sell most at one time of the "
     "year.",
     quarterlyReport,
     moneyAboveZero,
     "Apple, quarter to 12/27/2025: 143756 million. A year before it was 124300 million.",
     {{apple(Datum::QRevenueSeries, "143756", "2025-12-27"),
       apple(Datum::QRevenueSeries, "124300", "2024-12-28")}}},
    {object(doQEPS),
     "Quarterly Earnings per Share",
     "Net income of the quarter divided by the number of shares.",
     "It shows a change of course months before the year's figure does. The four newest add up to "
     "Last 4Q EPS.",
     quarterlyReport,
     perShare,
     "Apple, quarter to 12/27/2025: 2.84. A year before it was 2.4.",
     {{apple(Datum::QEPSSeries, "2.84", "2025-12-27"),
       apple(Datum::QEPSSeries, "2.4", "2024-12-28")}}},
    {object(doQPTI),
     "Quarterly Pre-tax Income",
     "What is left of the quarter's revenue after all expenses but the taxes on income.",
     "As a part of revenue, held against the same quarter a year before, it shows whether the "
     "margin grows or shrinks.",
     quarterlyReport,
     money,
     "Apple, quarter to 12/27/2025: 51002 million on a revenue of 143756 million.",
     {{apple(Datum::QPTISeries, "51002", "2025-12-27"),
       apple(Datum::QRevenueSeries, "143756", "2025-12-27")}}},
    {object(doQTaxRate),
     "Quarterly Tax Rate",
     "Taxes on income as a part of the quarter's income before taxes.",
     "A quarter that is far off the others had a tax effect in it that will not come again.",
     "Income taxes divided by income before taxes of the quarter.",
     percent,
     "Apple, quarter to 12/27/2025: 17.46 percent.",
     {{apple(Datum::QTaxRateSeries, "17.46", "2025-12-27")}}},
    {object(doQNetInc),
     "Quarterly Net Income",
     "The profit, or the loss, of the quarter after all expenses and taxes.",
     "With the earnings per share it tells whether those grew by profit or by a smaller number of "
     "shares.",
     quarterlyReport,
     money,
     "Apple, quarter to 12/27/2025: 42097 million. Snowflake's loss in the quarter to 4/30/2025 is "
     "typed as -430.092.",
     {{apple(Datum::QNetIncSeries, "42097", "2025-12-27"),
       of("SNOW", Datum::QNetIncSeries, "-430.092", "2025-04-30")}}},
    {object(doAddress1),
     "Address",
     "Street and number of the head office.",
     toReachThem,
     coverPage,
     freeText,
     "Apple: One Apple Park Way.",
     {{apple(Datum::Address1, "One Apple Park Way")}}},
    {object(doAddress2),
     "Address, second line",
     "What the first line has no room for, such as a suite or a post-office box.",
     toReachThem,
     coverPage,
     freeText,
     "Apple's address, One Apple Park Way, needs no second line; another company has Suite 300.",
     {{apple(Datum::Address1, "One Apple Park Way")}}},
    {object(doCity),
     "City",
     "The head office's city.",
     toReachThem,
     coverPage,
     freeText,
     "Tesla: Austin.",
     {{of("TSLA", Datum::City, "Austin")}}},
    {object(doState),
     "State or Province",
     "The head office's state or province.",
     toReachThem,
     coverPage,
     freeText,
     "Apple: CA, for California.",
     {{apple(Datum::State, "CA")}}},
    {object(doZip),
     "Zip or Postal Code",
     "The head office's postal code.",
     toReachThem,
     coverPage,
     "Any text, so that a leading zero is kept.",
     "Tesla: 78725.",
     {{of("TSLA", Datum::Zip, "78725")}}},
    {object(doCountry),
     "Country",
     "The head office's country.",
     "Taxes, currency and accounting rules go with it.",
     coverPage,
     freeText,
     "Apple: USA.",
     {{apple(Datum::Country, "USA")}}},
    {object(doInternetURL),
     "Internet",
     "The address of the company's pages for investors.",
     "Reports, presentations and dates of the next figures are there first.",
     "The annual report, \"available information\".",
     freeText,
     "For Apple Inc.: investor.apple.com",
     {{apple(Datum::Name, "Apple Inc.")}}},
    {object(doContactPerson),
     "Contact Person",
     "Whom to ask at the company.",
     toReachThem,
     "The pages for investors, \"investor relations\".",
     freeText,
     "For Apple: Investor Relations, telephone (408) 996-1010.",
     {{apple(Datum::Tel, "(408) 996-1010")}}},
    {object(doTel),
     "Telephone",
     "The company's telephone number.",
     toReachThem,
     coverPage,
     "Any text, with country and area code as you dial them.",
     "NVIDIA: 408-486-2000.",
     {{of("NVDA", Datum::Tel, "408-486-2000")}}},
    {object(doVLTimelines),
     "VL Timeliness",
     "A rating service's rank of the share by the price performance to be expected over the next "
     "months.",
     "A second opinion to hold yours against.",
     rating,
     "Usually 1 (highest) to 5.",
     "NVIDIA's earnings rose from 2.94 a share in fiscal year 2025 to 4.9 in 2026; a service that "
     "expects more of this would rank it 1 or 2.",
     {{of("NVDA", Datum::YEPSSeries, "2.94", "2025"),
       of("NVDA", Datum::YEPSSeries, "4.9", "2026")}}},
    {object(doVLSafety),
     "VL Safety",
     "A rating service's rank of the share by its risk: how steady the price is, and how sound the "
     "company's finances are.",
     "It tells how much a mistake may cost you.",
     rating,
     "Usually 1 (safest) to 5.",
     "Snowflake lost 3.86 a share in its fiscal year 2025, which is typed as earnings of -3.86; a "
     "company with losses is hardly ranked 1.",
     {{of("SNOW", Datum::YEPSSeries, "-3.86", "2025")}}},
    {object(doReportingPeriod),
     "Reporting Period",
     "How many months each report of the company covers: 3, 6 or 12.",
     "Not every company reports by the quarter; abroad, many report twice a year.",
     "The titles of the company's reports.",
     "Choose from the list.",
     "Apple reports every quarter, last to 12/27/2025: 3 months.",
     {{apple(Datum::LastQDate, "12/27/2025")}}},
    {object(doNotes),
     "Notes",
     "Whatever you want to keep with the company.",
     "Why you trust a figure, what to look up in the next report, what made a year unusual: in a "
     "year you will not remember.",
     "Your own study.",
     "Any text of several lines; Enter begins a new one.",
     "For Apple: shares fell from 22001.124 million in fiscal year 2016 to 15004.697 million in "
     "2025, so that earnings per share grew faster than net income.",
     {{apple(Datum::YCSOSeries, "22001.124", "2016"),
       apple(Datum::YCSOSeries, "15004.697", "2025")}}},
    {object(doPrefDiv),
     "Preferred Dividends",
     "Dividends paid on preferred stock in the year.",
     "They are paid before the common shareholders get anything, and are taken off the net income "
     "for the earnings per share.",
     "Below net income in the income statement of the annual report (10-K).",
     money,
     "Tesla has preferred stock of 0, so that there is no preferred dividend: the field stays "
     "empty.",
     {{of("TSLA", Datum::PrefShares, "0")}}},
    {object(doCommDiv),
     "Common Dividends",
     "The dividend per common share for a whole year, at the present rate.",
     "Divided by the price it is the yield: what the share pays while you wait.",
     "Quotation pages, or four times the latest quarterly dividend.",
     perShareAboveZero,
     "Apple declared 1.02 in fiscal year 2025; with a latest quarterly dividend of 0.26 the "
     "present rate is 1.04.",
     {{apple(Datum::YDividendSeries, "1.02", "2025")}}},
    {object(doEstTaxRate),
     "Estimated Tax Rate",
     "The tax rate that you expect for the coming years.",
     "Net income is estimated from the income before taxes with it.",
     "The company's outlook, or the tax rates of the last years without the unusual ones.",
     percent,
     "Apple paid 16.2 percent in fiscal year 2022, 14.72 in 2023 and 15.61 in 2025: 16 is a fair "
     "guess.",
     {{apple(Datum::YTaxRateSeries, "16.2", "2022"), apple(Datum::YTaxRateSeries, "14.72", "2023"),
       apple(Datum::YTaxRateSeries, "15.61", "2025")}}},
    {object(doUnit),
     "Currency Unit",
     "Whether money amounts and numbers of shares are shown and typed in thousands, millions or "
     "billions. Changing it changes the display, never the figures.",
     "Set it as the report in front of you has it, and you can type what you read.",
     "The heading of the report's tables says it: \"in millions\".",
     "Click one of the three, or move to them and press the space bar.",
     "Apple's revenue of fiscal year 2025, 416161 in millions, is 416161000 in thousands and "
     "416.161 in billions.",
     {{apple(Datum::YRevenueSeries, "416161", "2025")}}},
    {object(doPTI_TaxRate),
     "Pre-tax Income or Tax Rate",
     "Which of the two you type. The other one is worked out where net income is there, too.",
     "Reports state the income before taxes, some data services the tax rate: type what you have.",
     optionsTab,
     choice,
     "Apple, fiscal year 2025: from a pre-tax income of 132729 and a net income of 112010 million "
     "follows a tax rate of 15.61 percent.",
     {{apple(Datum::YPTISeries, "132729", "2025"), apple(Datum::YNetIncSeries, "112010", "2025"),
       apple(Datum::YTaxRateSeries, "15.61", "2025")}}},
    {object(doCommEq_BookVal),
     "Common Equity or Book Value",
     "Which of the two you type. From the book value per share the common equity is worked out.",
     "Reports state the equity, some data services the book value per share: type what you have.",
     optionsTab,
     choice,
     "Apple, end of fiscal year 2025: its balance sheet has a common equity of 73733 million; per "
     "share that is a book value of 4.991.",
     {{apple(Datum::YCommEqSeries, "73733", "2025"),
       apple(Datum::YBookValSeries, "4.991", "2025")}}},
    {object(doLockInfo),
     "Lock Data",
     "Makes every field read-only. Adding and removing years and quarters is refused, too.",
     "What has been checked once is not changed by a slip of the finger.",
     "Below the fields, at the left, on every tab.",
     "Click it, or move to it and press the space bar; once more unlocks.",
     "With Apple's revenue of 416161 million for fiscal year 2025 checked against the report, lock "
     "the record: it can still be read and copied.",
     {{apple(Datum::YRevenueSeries, "416161", "2025")}}},
    {object(doDisplayOption),
     "Currency Display",
     "Shows prices as decimals or as fractions in eighths. Both can be typed with either.",
     "Older price tables are in eighths, newer ones in decimals: compare without a pocket "
     "calculator.",
     optionsTab,
     choice,
     "Apple's highest price of fiscal year 2025, 260.1, is shown as 260 1/8 in eighths.",
     {{apple(Datum::YHighSeries, "260.1", "2025")}}},
    {object(doYearLabel),
     "Years",
     "The fiscal years of the rows, the coming one last. Add New Year moves every figure one year "
     "back to make room; Remove Year takes the newest one away. Both ask first.",
     "Ten years show a company in good and in bad times; fewer may show only one of them.",
     "At the left of the Yearly Data tab (Alt+Y).",
     "A right-click on a year offers to add and to remove; the years themselves follow from Last "
     "Fiscal Year.",
     "Apple, with a last fiscal year of 2025, has rows for 2016 to 2025 and one for 2026.",
     {{apple(Datum::LastFY, "2025")}}},
    {object(doQuarterLabel),
     "Quarters",
     "The days on which the quarters ended, the newest first. Add New Quarter makes room for a new "
     "one.",
     "Each quarter is best compared with the fourth row below it, the same one a year before.",
     "At the left of the Quarterly Data tab (Alt+Q).",
     "They follow from the Date of Last Quarter.",
     "Apple's newest quarter is labelled 12/27/2025.",
     {{apple(Datum::LastQDate, "12/27/2025")}}},
    {object(doPercentDilution),
     "Percent Dilution",
     "By how much the diluted shares exceed the common shares.",
     "It is the part of your share in the company that options and convertible securities may take "
     "away.",
     "Diluted Shares and Common Shares on the Company Data tab.",
     "Not typed: it is worked out, in percent.",
     "Apple: 14810.356 million diluted shares are 0.88 percent more than 14681.14 million common "
     "shares.",
     {{apple(Datum::DilutedShares, "14810.356"), apple(Datum::CommShares, "14681.14")}}},
    {object(doPercentTotalCap),
     "Percent of Total Capital",
     "The part of the total capital that is debt.",
     "One figure for how much the company depends on its lenders; compare it within the industry.",
     "Total Debt and Total Capital on the Company Data tab.",
     "Not typed: it is worked out, in percent.",
     "Apple, fiscal year 2025: 90509 million of debt beside 73733 million of common equity are "
     "55.11 percent of both together.",
     {{apple(Datum::TotalDebt, "90509"), apple(Datum::YCommEqSeries, "73733", "2025")}}},
    {tab(toCompany),
     "The Company Data tab",
     "Who the company is, its price, its shares and its capital: one value each, as of today.",
     "It answers the first questions on any company: how large, how dear, how much in debt?",
     "Alt+C brings it up.",
     "Tab goes from field to field, Shift+Tab back; a figure is stored when its field is left.",
     "Apple has 14681.14 million common shares and a debt of 90509 million.",
     {{apple(Datum::CommShares, "14681.14"), apple(Datum::TotalDebt, "90509")}}},
    {tab(toYearly),
     "The Yearly Data tab",
     "Ten fiscal years and the coming one. Each row is a year, each column a figure; cells that a "
     "study needs are shaded.",
     "Growth, margins and prices over ten years tell whether a good year was luck.",
     "Alt+Y brings it up.",
     "Enter goes down a column, Shift+Enter up; Ctrl+Left and Ctrl+Right change the column.",
     "Apple's column of revenue goes from 215639 million in fiscal year 2016 to 416161 million in "
     "2025.",
     {{apple(Datum::YRevenueSeries, "215639", "2016"),
       apple(Datum::YRevenueSeries, "416161", "2025")}}},
    {tab(toQuarterly),
     "The Quarterly Data tab",
     "Up to 35 quarters, the newest first: revenue, earnings per share, pre-tax income or tax "
     "rate, net income.",
     "It shows where the year in progress is heading.",
     "Alt+Q brings it up.",
     "Enter goes down a column, Shift+Enter up. The bar scrolls; the arrows beside the date move "
     "through the quarters.",
     "Apple's first row, the quarter to 12/27/2025, has a revenue of 143756 million.",
     {{apple(Datum::QRevenueSeries, "143756", "2025-12-27")}}},
    {tab(toOther),
     "The Other Company Data tab",
     "Address, contact, preferred dividends, the estimated tax rate, and notes.",
     "What one needs now and then, and nowhere else.",
     "Alt+O brings it up.",
     "Tab goes from field to field; in Notes, Enter begins a new line.",
     "Apple's head office is at One Apple Park Way in Cupertino.",
     {{apple(Datum::Address1, "One Apple Park Way"), apple(Datum::City, "Cupertino")}}},
    {tab(toOptions),
     "The Options tab",
     "How figures are shown and typed: currency unit, decimal or fractional prices, which of two "
     "alternative figures you type, colours, the currency symbol.",
     "Set them as the report in front of you has them, and you can type what you read.",
     "Alt+P brings it up.",
     "Click a choice, or move to it and press the space bar. No choice changes a figure that is "
     "stored.",
     "Apple's report is in millions, so that its revenue of fiscal year 2025 is typed as 416161.",
     {{apple(Datum::YRevenueSeries, "416161", "2025")}}},
    {object(doDateOfSource),
     "Date of Source",
     "The day to which the report or the data sheet goes that the figures are from.",
     "Two people with different figures see at once who has the newer report.",
     "The source's title page.",
     date,
     "Apple's annual report of fiscal year 2025 goes to 9/27/2025.",
     {{apple(Datum::LastFYDate, "9/27/2025")}}},
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
// Options, the labels of the periods, and tabs take no text.
bool isTyped(const HelpPage& page) {
    return page.number < object(doUnit) ||
           (page.number > object(doQuarterLabel) && page.number < tab(toCompany)) ||
           page.number > tab(toOptions);
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
    if (isHostPage(page)) {
        if (!page.where.empty())
            html += QStringLiteral("<p>%1</p>").arg(text(page.where).toHtmlEscaped());
    } else {
        html += paragraph(QStringLiteral("Why one looks at it"), page.why);
        html += paragraph(QStringLiteral("Where to find it"), page.where);
    }
    html += paragraph(isTyped(page) ? QStringLiteral("How to type it")
                                    : QStringLiteral("How to use it"),
                      page.unit);
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
