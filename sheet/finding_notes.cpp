// SPDX-License-Identifier: MIT
#include "sheet/finding_notes.hpp"

#include "plausibility/company_findings.hpp"

#include <QLocale>

namespace vkr {

namespace {

bool isStored(const iVKR_Company& company, const FigurePlace& place) {
    const Variant value = readDatum(company, place.datum);
    if (place.element)
        return value.isArray() && value.array().contains(*place.element) &&
               value.array().number(*place.element) != 0;
    return std::holds_alternative<Date>(value.value()) || value.toDouble() != 0;
}

} // namespace

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
        for (const FigurePlace& place : finding.places)
            if (note.places.empty() || !isStored(company, place))
                note.places.push_back(place); // where to look first, and all that is missing
        notes.push_back(std::move(note));
    }
    return notes;
}

} // namespace vkr
