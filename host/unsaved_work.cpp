// SPDX-License-Identifier: MIT
#include "host/unsaved_work.hpp"

#include "company/exact_text.hpp"
#include "host/change_place.hpp"
#include "host/texts.hpp"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace vkr {

namespace {

QString whyNot(const char* text) {
    return QCoreApplication::translate("unsaved", text);
}

std::string foundText(const UnplacedChange& one) {
    if (!one.change.setting.empty())
        return one.found.toText();
    const std::string text = exactText(one.found);
    return text == "0" ? std::string() : text;
}

} // namespace

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

QStringList unplacedLines(const CompanyRecord& company, const ChangeGroup& step,
                          const std::vector<UnplacedChange>& left) {
    QStringList all;
    const auto add = [&](const Change& change, const QString& why) {
        ChangeGroup one = step;
        one.changes = {change};
        if (const QStringList told = lines(company, {one}); !told.isEmpty())
            all.append(QStringLiteral("%1: %2").arg(told.front(), why));
    };
    const auto isOfMove = [](const UnplacedChange& one) {
        return one.why == NotPlaced::periodsMoved;
    };
    if (std::ranges::any_of(left, isOfMove)) // one line for all that it moves
        all.append(
            QStringLiteral("%1: %2").arg(groupTitle(step), whyNot("somebody else has added or "
                                                                  "removed years or quarters, or "
                                                                  "has figures there")));
    for (const UnplacedChange& one : left)
        switch (one.why) {
        case NotPlaced::outsideTable:
            add(one.change, whyNot("no longer in the table"));
            break;
        case NotPlaced::changedSince:
            add(one.change,
                whyNot("changed by somebody else meanwhile, to %1").arg(toldValue(foundText(one))));
            break;
        case NotPlaced::notDated:
            add(one.change, whyNot("which year or quarter it is of can't be told"));
            break;
        case NotPlaced::besideOthers:
            add(one.change, whyNot("not without the others of the split"));
            break;
        case NotPlaced::periodsMoved:
            break;
        }
    return all;
}

} // namespace vkr
