// SPDX-License-Identifier: MIT
#include "plausibility/company_findings.hpp"

#include "plausibility/company_figures.hpp"
#include "plausibility/plausibility_rules.hpp"
#include "plausibility/report.hpp"

#include <utility>

namespace vkr {

std::vector<Finding> companyFindings(const iVKR_Company& company, const FindingOptions& options) {
    const CompanyFigures figures(company);
    Report report(figures, options.marks, options.today);
    for (const PlausibilityRule& rule : plausibilityRules()) {
        report.beginRule(rule.name, rule.says);
        rule.look(figures, report);
    }
    return std::move(report).findings();
}

} // namespace vkr
