// SPDX-License-Identifier: MIT
#include "sheet/company_notes.hpp"

#include "sheet/finding_notes.hpp"
#include "sheet/origin_notes.hpp"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace vkr {

SheetCompany sheetOf(std::shared_ptr<const CompanyRecord> company, const FigureOrigins& origins,
                     const std::function<bool(const Finding&)>& isSilenced, Date today) {
    std::vector<SheetNote> notes = findingNotes(*company, isSilenced, today);
    std::ranges::move(originNotes(*company, origins), std::back_inserter(notes));
    return {std::move(company), std::move(notes)};
}

SheetCompany sheetOf(const LoadedCompany& stored, Date today) {
    SheetCompany sheet = sheetOf(
        stored.record, stored.origins,
        [&](const Finding& finding) { return stored.isCalledRight(finding.key); }, today);
    QStringList faults;
    if (stored.damage)
        faults.append(QString::fromStdString(stored.damage->message));
    if (!stored.unreadable.empty()) {
        QStringList data;
        for (const std::string& datum : stored.unreadable)
            data.append(QString::fromStdString(datum));
        faults.append(
            QCoreApplication::translate("sheet", "Can't be read, and is missing here: %1.")
                .arg(data.join(QStringLiteral(", "))));
    }
    std::vector<SheetNote> notes;
    for (const QString& fault : faults)
        notes.push_back({{}, fault});
    std::ranges::move(sheet.notes, std::back_inserter(notes));
    sheet.notes = std::move(notes);
    return sheet;
}

} // namespace vkr
