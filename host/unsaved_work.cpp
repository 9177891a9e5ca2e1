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

QString told(const Variant& value) {
    if (value.isArray())
        return QCoreApplication::translate("texts", "all periods");
    if (const auto* date = std::get_if<Date>(&value.value()))
        return isAbsent(*date) ? QCoreApplication::translate("texts", "nothing") : isoDate(*date);
    const auto* number = std::get_if<double>(&value.value());
    const std::string text = number != nullptr ? exactNumberText(*number) : value.toText();
    return text.empty() ? QCoreApplication::translate("texts", "nothing") : fromUtf8(text);
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

QStringList lines(const std::vector<ChangeGroup>& groups) {
    QStringList all;
    const auto isWorkedOut = [](const Change& change) { return change.origin == Origin::derived; };
    for (const ChangeGroup& group : groups) {
        // A step with a name was taken by a person, and may be one back to what was worked out.
        const bool isStep = !group.name.empty() && std::ranges::all_of(group.changes, isWorkedOut);
        for (const Change& change : group.changes) {
            if (isWorkedOut(change) && !isStep)
                continue;
            const QString element =
                change.element ? QStringLiteral("(%1)").arg(*change.element) : QString();
            all.append(QStringLiteral("%1 - %2%3: %4 \u2192 %5")
                           .arg(groupTitle(group), changeTitle(change), element,
                                told(change.before), told(change.after)));
        }
    }
    return all;
}

} // namespace vkr
