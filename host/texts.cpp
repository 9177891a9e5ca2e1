// SPDX-License-Identifier: MIT
#include "host/texts.hpp"

#include "company/exact_text.hpp"
#include "record/datum_titles.hpp"
#include "store/company_history.hpp"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>

namespace vkr {

QString fromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString isoDate(Date date) {
    return fromUtf8(isoDateText(date));
}

QString localTime(std::string_view utc) {
    const QDateTime time = QDateTime::fromString(fromUtf8(utc), Qt::ISODate);
    return time.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm"));
}

QString datumTitle(std::string_view datum) {
    return fromUtf8(calledDatum(datum));
}

QString figureTitle(std::string_view datum, const QString& period) {
    const QString title = datumTitle(datum);
    return period.isEmpty() ? title : title + u' ' + period;
}

QString figureTitle(const HistoryChange& change) {
    return datumTitle(change.datum) + fromUtf8(whichFigure(change));
}

QString toldValue(const std::string& value) {
    return value.empty() ? QCoreApplication::translate("texts", "nothing") : fromUtf8(value);
}

QStringList described(const std::vector<HistoryChange>& changes, const QString& line) {
    QStringList lines;
    for (const HistoryChange& change : changes)
        lines.append(
            line.arg(figureTitle(change), toldValue(change.before), toldValue(change.after)));
    return lines;
}

QString priceText(double price) {
    constexpr int fewest = 2;
    constexpr int most = 6;
    const QString plain = QString::number(price, 'f', most);
    const auto point = plain.indexOf(u'.');
    auto last = plain.size() - 1;
    while (last > point + fewest && plain.at(last) == u'0')
        --last;
    return QLocale().toString(price, 'f', static_cast<int>(last - point));
}

QString figureText(double figure) {
    const std::string plain = exactNumberText(figure);
    const auto point = plain.find('.');
    const std::size_t decimals = point == std::string::npos ? 0 : plain.size() - point - 1;
    return QLocale().toString(figure, 'f', static_cast<int>(decimals));
}

QString companyTitle(std::string_view name, std::string_view symbol) {
    if (name.empty() && symbol.empty())
        return QCoreApplication::translate("texts", "New company");
    if (symbol.empty() || name.empty())
        return fromUtf8(name.empty() ? symbol : name);
    return QStringLiteral("%1 (%2)").arg(fromUtf8(name), fromUtf8(symbol));
}

} // namespace vkr
