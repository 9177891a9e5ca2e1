// SPDX-License-Identifier: MIT
// The page of all rules of plausibility.
#include "plausibility/plausibility_rules.hpp"
#include "tests/checks/written_page.hpp"

#include <sstream>
#include <string>

namespace {

std::string page() {
    std::ostringstream out;
    out << "<!-- SPDX-License-Identifier: MIT -->\n"
           "<!-- Written by vkr_plausibility; the rules are in "
           "plausibility/plausibility_rules.cpp. -->\n"
           "# Plausibility\n\n"
           "What the checks look at after each change, and when they speak. They never stop "
           "anybody, "
           "and never\nchange a figure. A figure of 0 is none. \"Sure\" is what two stored figures "
           "cannot both be, \"likely\" what is\nrarely right, a \"hint\" what often has a reason "
           "in "
           "the filing.\n\n"
           "| rule | looks at | speaks when | how sure | says |\n|---|---|---|---|---|\n";
    for (const auto& rule : vkr::plausibilityRules())
        out << "| " << vkr::cell(rule.title) << " (`" << rule.name << "`) | "
            << vkr::cell(rule.looksAt) << " | " << vkr::cell(rule.speaksWhen) << " | "
            << vkr::cell(rule.sureness) << " | " << vkr::cell(rule.says) << " |\n";
    return out.str();
}

} // namespace

int main(int argc, char** argv) {
    return vkr::checkOrWrite(argc, argv, page());
}
