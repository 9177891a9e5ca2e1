// SPDX-License-Identifier: MIT
#include "plausibility/company_findings.hpp"
#include "plausibility/plausibility_rules.hpp"
#include "sheet/today.hpp"
#include "vkr/call.hpp"
#include "vkr/database.hpp"

#include <algorithm>

namespace vkr {

namespace {

std::string_view nameOf(Sureness sureness) {
    switch (sureness) {
    case Sureness::hint:
        return "hint";
    case Sureness::likely:
        return "likely";
    case Sureness::sure:
        break;
    }
    return "sure";
}

// Besides those of plausibility.
constexpr std::string_view storedRule = "stored";
constexpr std::string_view checksumRule = "checksum";

// As wide as the widest of these texts and the heading.
template <typename Texts, typename TextOf>
Column column(std::string_view name, const Texts& texts, TextOf textOf) {
    Column made{.name = name, .width = shownWidth(std::string(name))};
    for (const auto& one : texts)
        made.width = std::max(made.width, shownWidth(printable(textOf(one))));
    return made;
}

// What is odd about companies, a row for each, as it is found.
class CheckReport {
  public:
    CheckReport(const Call& call, const std::vector<CompanySummary>& companies) : call_(call) {
        call_.output.begin(
            {column("symbol", companies, [](const CompanySummary& one) { return one.symbol; }),
             {.name = "sureness", .width = 8},
             column("rule", plausibilityRules(),
                    [](const PlausibilityRule& one) { return std::string(one.name); }),
             column("id", companies,
                    [](const CompanySummary& one) { return std::to_string(one.key.id); }),
             {"finding"}},
            {}, Rows::oneByOne);
    }

    void add(CompanyStore& store, const CompanySummary& company) {
        const auto loaded = store.load(company.key.id);
        if (!loaded) {
            // One that is gone meanwhile is no finding; all else concerns the whole database.
            if (loaded.error().fault != StoreFault::conflict &&
                loaded.error().fault != StoreFault::corrupt)
                fail(loaded.error());
            row(company, Sureness::sure, storedRule, loaded.error().message);
            return;
        }
        const auto damage = valueOf(store.check(company.key.id));
        if (damage)
            row(company, Sureness::sure, checksumRule, damage->message);
        for (const std::string& datum : loaded.value().unreadable)
            row(company, Sureness::sure, storedRule,
                "What is stored of " + datum + " can't be read.");
        for (const Finding& finding : companyFindings(*loaded.value().record, options_))
            if (loaded.value().isCalledRight(finding.key))
                ++calledRight_;
            else
                row(company, finding.sureness, finding.rule, finding.text);
    }

    [[nodiscard]] std::size_t found() const { return found_; }
    [[nodiscard]] std::size_t calledRight() const { return calledRight_; }

  private:
    void row(const CompanySummary& company, Sureness sureness, std::string_view rule,
             const std::string& text) {
        ++found_;
        call_.output.row({company.symbol, std::string(nameOf(sureness)), std::string(rule),
                          std::to_string(company.key.id), text});
    }

    const Call& call_;
    FindingOptions options_{{}, today()};
    std::size_t found_ = 0;
    std::size_t calledRight_ = 0;
};

} // namespace

ExitCode checkCompanies(const Call& call) {
    const auto store = openDatabase(call);
    CommandLine line = call.line;
    if (line.arguments.empty())
        line.options.emplace(Option::all, "");
    const auto companies =
        chosenCompanies({line, call.output, call.terminal}, *store, line.arguments);
    CheckReport report(call, companies);
    std::size_t done = 0;
    for (const CompanySummary& company : companies) {
        if (Terminal::isToStop())
            break;
        call.terminal.progress(done++, companies.size(), company.symbol);
        report.add(*store, company);
    }
    call.output.end();
    const std::string right = report.calledRight() == 0
                                  ? std::string()
                                  : ", " + std::to_string(report.calledRight()) + " called right";
    call.terminal.say(std::to_string(report.found()) + " to look at in " + std::to_string(done) +
                      (done == 1 ? " company" : " companies") + right + ".");
    if (Terminal::isToStop())
        return ExitCode::stopped;
    return report.found() == 0 ? ExitCode::done : ExitCode::findings;
}

} // namespace vkr
