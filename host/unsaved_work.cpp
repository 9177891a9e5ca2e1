// SPDX-License-Identifier: MIT
#include "host/unsaved_work.hpp"

#include "company/exact_text.hpp"
#include "host/change_place.hpp"
#include "host/texts.hpp"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFileInfo>
#include <QStandardPaths>

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
    for (const ChangeGroup& group : groups)
        for (const Change& change : group.changes) {
            if (change.origin == Origin::derived)
                continue;
            const QString element =
                change.element ? QStringLiteral("(%1)").arg(*change.element) : QString();
            all.append(QStringLiteral("%1 - %2%3: %4 \u2192 %5")
                           .arg(groupTitle(group), changeTitle(change), element,
                                told(change.before), told(change.after)));
        }
    return all;
}

} // namespace vkr
