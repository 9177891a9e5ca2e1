// SPDX-License-Identifier: MIT
#pragma once

#include "plausibility/company_figures.hpp"
#include "plausibility/report.hpp"

// What each rule does; bounds and words stand with the rules.
namespace vkr::checks {

// One figure against another of the same company.
void highBelowLow(const CompanyFigures& figures, Report& report);
void rangeTooWide(const CompanyFigures& figures, Report& report);
void rangeReversed(const CompanyFigures& figures, Report& report);
void priceOutsideRange(const CompanyFigures& figures, Report& report);
void negativeFigure(const CompanyFigures& figures, Report& report);
void signOfEarnings(const CompanyFigures& figures, Report& report);
void signOfBookValue(const CompanyFigures& figures, Report& report);
void signOfPreTaxIncome(const CompanyFigures& figures, Report& report);
void preferredAboveIncome(const CompanyFigures& figures, Report& report);
void dilutedBelowCommon(const CompanyFigures& figures, Report& report);
void shareCountsApart(const CompanyFigures& figures, Report& report);

// Several figures that make up another one.
void quartersAgainstYear(const CompanyFigures& figures, Report& report);
void quarterlyEarningsAgainstYear(const CompanyFigures& figures, Report& report);
void earningsTimesShares(const CompanyFigures& figures, Report& report);
void quarterlyEarningsTimesShares(const CompanyFigures& figures, Report& report);
void bookValueTimesShares(const CompanyFigures& figures, Report& report);
void incomeAfterTax(const CompanyFigures& figures, Report& report);

// A figure among those of the periods beside it.
void jumpOfHundreds(const CompanyFigures& figures, Report& report);
void jumpOfTen(const CompanyFigures& figures, Report& report);
void jumpAtEnd(const CompanyFigures& figures, Report& report);
void splitRatioJump(const CompanyFigures& figures, Report& report);
void pricesBySplitRatio(const CompanyFigures& figures, Report& report);
void rangesApart(const CompanyFigures& figures, Report& report);
void splitStep(const CompanyFigures& figures, Report& report);
void missingYear(const CompanyFigures& figures, Report& report);
void missingQuarter(const CompanyFigures& figures, Report& report);

// Dates.
void yearUnlikeItsEnd(const CompanyFigures& figures, Report& report);
void quarterBeforeYearEnd(const CompanyFigures& figures, Report& report);
void yearBehindQuarters(const CompanyFigures& figures, Report& report);
void sourceBeforeQuarter(const CompanyFigures& figures, Report& report);
void dayToCome(const CompanyFigures& figures, Report& report);

} // namespace vkr::checks
