// SPDX-License-Identifier: MIT
#include "filings/concepts.hpp"

#include <algorithm>

namespace vkr {

namespace {

using enum FiledItem;
using namespace filed_unit;

constexpr std::string_view withMinorities = "holds the share of minority holders, too";
constexpr std::string_view withSalesTax = "holds taxes that customers pay, too";
constexpr std::string_view goodsAlone = "holds the sale of goods alone";
constexpr std::string_view convertibleAlone = "holds convertible debt alone";
constexpr std::string_view withCurrentPart = "may hold what is due within a year, too";

constexpr ConceptRow rows[] = {
    {revenue, "us-gaap:Revenues", money},
    {revenue, "us-gaap:RevenueFromContractWithCustomerExcludingAssessedTax", money},
    {revenue, "us-gaap:SalesRevenueNet", money},
    {revenue, "us-gaap:RevenueFromContractWithCustomerIncludingAssessedTax", money, withSalesTax},
    {revenue, "us-gaap:SalesRevenueGoodsNet", money, goodsAlone},
    {pretaxIncome,
     "us-gaap:IncomeLossFromContinuingOperationsBeforeIncomeTaxes"
     "ExtraordinaryItemsNoncontrollingInterest",
     money},
    {pretaxIncome,
     "us-gaap:IncomeLossFromContinuingOperationsBeforeIncomeTaxes"
     "MinorityInterestAndIncomeLossFromEquityMethodInvestments",
     money},
    {incomeTax, "us-gaap:IncomeTaxExpenseBenefit", money},
    {netIncome, "us-gaap:NetIncomeLoss", money},
    {netIncome, "us-gaap:NetIncomeLossAvailableToCommonStockholdersBasic", money},
    {netIncome, "us-gaap:ProfitLoss", money, withMinorities},
    {equity, "us-gaap:StockholdersEquity", money},
    {preferredStock, "us-gaap:PreferredStockValue", money},
    {sharesOutstanding, "us-gaap:CommonStockSharesOutstanding", shares},
    {coverShares, "dei:EntityCommonStockSharesOutstanding", shares},
    {earningsPerShare, "us-gaap:EarningsPerShareDiluted", perShare},
    {earningsPerShare, "us-gaap:EarningsPerShareBasicAndDiluted", perShare},
    {dividendDeclared, "us-gaap:CommonStockDividendsPerShareDeclared", perShare},
    {dividendPaid, "us-gaap:CommonStockDividendsPerShareCashPaid", perShare},
    {dilutedShares, "us-gaap:WeightedAverageNumberOfDilutedSharesOutstanding", shares},
    {dilutedShares, "us-gaap:WeightedAverageNumberOfShareOutstandingBasicAndDiluted", shares},
    {debtCurrent, "us-gaap:DebtCurrent", money},
    {commercialPaper, "us-gaap:CommercialPaper", money},
    {longTermDebtCurrent, "us-gaap:LongTermDebtCurrent", money},
    {longTermDebt, "us-gaap:LongTermDebtNoncurrent", money},
    {longTermDebt, "us-gaap:LongTermDebt", money, withCurrentPart},
    {longTermDebt, "us-gaap:ConvertibleDebtNoncurrent", money, convertibleAlone},
    {splitRatio, "us-gaap:StockholdersEquityNoteStockSplitConversionRatio1", ratio},
};

} // namespace

std::span<const ConceptRow> conceptTable() {
    return rows;
}

bool isUsedConcept(std::string_view tag) {
    return std::ranges::find(rows, tag, &ConceptRow::tag) != std::end(rows);
}

} // namespace vkr
