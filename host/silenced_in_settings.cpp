// SPDX-License-Identifier: MIT
#include "host/silenced_in_settings.hpp"

#include "host/texts.hpp"
#include "host/window_memory.hpp"

#include <QCryptographicHash>

namespace vkr {

// A path has slashes, which would part groups.
SilencedInSettings::SilencedInSettings(std::string_view database, std::int64_t company)
    : group_(QStringLiteral("calledRight/%1-%2")
                 .arg(QString::fromLatin1(
                     QCryptographicHash::hash(fromUtf8(database).toUtf8(), QCryptographicHash::Sha1)
                         .toHex()))
                 .arg(company)) {
    QSettings settings = programSettings();
    settings.beginGroup(group_);
    for (const QString& key : settings.childKeys()) {
        Finding finding;
        finding.key = key.toStdString();
        known_.silence(finding);
    }
}

QString SilencedInSettings::entry(const Finding& finding) const {
    return group_ + u'/' + fromUtf8(finding.key);
}

// The sentence stands beside the key for whoever reads the file.
void SilencedInSettings::silence(const Finding& finding) {
    programSettings().setValue(entry(finding), fromUtf8(finding.text));
    known_.silence(finding);
}

void SilencedInSettings::speakAgain(const Finding& finding) {
    programSettings().remove(entry(finding));
    known_.speakAgain(finding);
}

} // namespace vkr
