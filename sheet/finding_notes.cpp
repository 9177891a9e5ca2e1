// SPDX-License-Identifier: MIT
#include "sheet/finding_notes.hpp"

#include "plausibility/company_findings.hpp"

#include <QLocale>

namespace vkr {

std::vector<SheetNote> findingNotes(const iVKR_Company& company,
                                    const std::function<bool(const Finding&)>& isSilenced,
                                    Date today) {
    const QLocale locale;
    FindingOptions options;
    options.marks.decimal = locale.decimalPoint() == QLatin1String(",") ? ',' : '.';
    options.marks.grouping = locale.numberOptions() & QLocale::OmitGroupSeparator
                                 ? std::string()
                                 : locale.groupSeparator().toStdString();
    options.today = today;
    std::vector<SheetNote> notes;
    for (const Finding& finding : companyFindings(company, options)) {
        if (isSilenced && isSilenced(finding))
            continue;
        SheetNote note{{}, QString::fromStdString(finding.text)};
        if (!finding.places.empty())
            note.places.push_back(finding.places.front());
        notes.push_back(std::move(note));
    }
    return notes;
}

} // namespace vkr
