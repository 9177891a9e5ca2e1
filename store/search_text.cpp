// SPDX-License-Identifier: MIT
#include "store/search_text.hpp"

namespace vkr {

QString searchable(const QString& text) {
    // A pattern would end at a null character.
    return text.normalized(QString::NormalizationForm_KC).toCaseFolded().replace(QChar::Null, ' ');
}

QStringList searchWords(const std::string& search) {
    constexpr qsizetype most = 1000; // databases have a limit for patterns
    return searchable(toQString(search).left(most)).simplified().split(u' ', Qt::SkipEmptyParts);
}

QString sortKey(const std::string& text) {
    constexpr qsizetype most = 100; // an index takes no longer ones
    constexpr qsizetype widestNumber = 12;
    QString key = ""; // a null one would be NULL
    QString digits;
    const auto endNumber = [&] {
        if (digits.isEmpty())
            return;
        while (digits.size() > 1 && digits.front() == u'0')
            digits.remove(0, 1);
        key += digits.rightJustified(widestNumber, u'0');
        digits.clear();
    };
    const QString letters =
        toQString(text).trimmed().normalized(QString::NormalizationForm_KD).toCaseFolded();
    for (const QChar letter : letters) {
        if (key.size() + digits.size() >= most)
            break;
        if (letter.isMark())
            continue;
        if (letter.isDigit()) {
            digits += QChar(u'0' + letter.digitValue());
            continue;
        }
        endNumber();
        key += letter;
    }
    endNumber();
    key.truncate(most);
    if (!key.isEmpty() && key.back().isHighSurrogate())
        key.chop(1);
    return key;
}

} // namespace vkr
