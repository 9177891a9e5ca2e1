// SPDX-License-Identifier: MIT
#include "host/unsaved_work.hpp"

#include "host/texts.hpp"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace vkr {

UnsavedPlace unsavedPlaceOf(const CompanyStore& store) {
    const QString path = fromUtf8(store.path());
    if (!CompanyStore::isOnServer(store.path())) {
        const QFileInfo file(path);
        return {file.absolutePath().toStdString(), (file.fileName() + ".unsaved-").toStdString()};
    }
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
    const auto server = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256);
    return {(folder + "/unsaved").toStdString(), (server.toHex().left(16) + "-").toStdString()};
}

QStringList lines(const CompanyRecord& company, const std::vector<ChangeGroup>& groups) {
    const auto isWorkedOut = [](const auto& change) { return change.origin == Origin::derived; };
    QStringList all;
    for (const HistoryGroup& group : toldGroups(company, groups)) {
        // A step with a name was taken by a person, and may be one back to what was worked out.
        const bool isStep = !group.name.empty() && std::ranges::all_of(group.changes, isWorkedOut);
        for (const HistoryChange& change : group.changes)
            if (isStep || !isWorkedOut(change))
                all.append(QStringLiteral("%1: %2 \u2192 %3")
                               .arg(group.name.empty()
                                        ? figureTitle(change)
                                        : QStringLiteral("%1 - %2").arg(fromUtf8(group.name),
                                                                        figureTitle(change)),
                                    toldValue(change.before), toldValue(change.after)));
    }
    return all;
}

} // namespace vkr
