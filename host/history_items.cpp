// SPDX-License-Identifier: MIT
#include "host/history_items.hpp"

#include "company/exact_text.hpp"
#include "host/texts.hpp"

#include <QCoreApplication>
#include <QTreeWidget>

#include <algorithm>
#include <memory>

namespace vkr::history {

namespace {

constexpr OriginRow origins[] = {
    {Origin::typed, QT_TRANSLATE_NOOP("history", "typed")},
    {Origin::pasted, QT_TRANSLATE_NOOP("history", "pasted")},
    {Origin::imported, QT_TRANSLATE_NOOP("history", "imported")},
    {Origin::derived, QT_TRANSLATE_NOOP("history", "worked out")},
    {Origin::shifted, QT_TRANSLATE_NOOP("history", "moved to another period")},
    {Origin::adjusted, QT_TRANSLATE_NOOP("history", "adjusted for a split")},
};

// Numbers as the user's locale has them, with all their digits.
QString valueText(const HistoryChange& change, const std::string& value) {
    if (value.empty())
        return {};
    const auto row = std::ranges::find(datumTable(), change.datum, &DatumRow::name);
    const bool isFigure = row != datumTable().end() && row->unit != DatumUnit::none;
    const auto number = isFigure ? exactNumber(value) : std::nullopt;
    QString text = number ? figureText(*number) : fromUtf8(value);
    constexpr qsizetype most = 200; // of notes
    return text.size() <= most ? text : text.left(most) + QChar(0x2026);
}

QTreeWidgetItem* changeItem(const HistoryChange& change) {
    auto* item = new QTreeWidgetItem;
    item->setText(what, figureTitle(change));
    item->setText(before, valueText(change, change.before));
    item->setText(after, valueText(change, change.after));
    item->setText(from, originText(change.origin, fromUtf8(change.document)));
    for (const int column : {before, after}) {
        item->setTextAlignment(column, numbers);
        item->setToolTip(column, item->text(column));
    }
    item->setToolTip(from, item->text(from));
    return item;
}

QString groupTitle(const HistoryGroup& group) {
    if (!group.name.empty())
        return fromUtf8(group.name);
    if (group.changes.empty())
        return told("Saved without a change");
    return group.changes.size() == 1 ? figureTitle(group.changes.front())
                                     : told("%1 changes").arg(group.changes.size());
}

// The sentence stands below, over all columns.
QTreeWidgetItem* verdictItem(const HistoryGroup& group, const FindingVerdict& verdict) {
    const QString figure = figureTitle(verdict.datum, fromUtf8(verdict.period));
    auto* item = new QTreeWidgetItem(
        {localTime(group.time), fromUtf8(group.user),
         (verdict.isRight ? told("%1 called right") : told("%1 to be looked at again"))
             .arg(figure)});
    item->setToolTip(what, fromUtf8(verdict.text));
    item->addChild(new QTreeWidgetItem({fromUtf8(verdict.text)}));
    return item;
}

} // namespace

QString told(const char* text) {
    return QCoreApplication::translate("history", text);
}

std::span<const OriginRow> originRows() {
    return origins;
}

QString originText(const std::optional<Origin>& origin, const QString& document) {
    if (!origin)
        return told("not known");
    const auto* const row = std::ranges::find(origins, *origin, &OriginRow::origin);
    if (origin == Origin::adjusted && !document.isEmpty())
        return told("imported from %1, adjusted for a split").arg(document);
    return document.isEmpty() ? told(row->text) : told("%1 from %2").arg(told(row->text), document);
}

QTreeWidgetItem* groupItem(const HistoryGroup& group) {
    if (group.verdict)
        return verdictItem(group, *group.verdict);
    auto* item =
        new QTreeWidgetItem({localTime(group.time), fromUtf8(group.user), groupTitle(group)});
    item->setToolTip(what, item->text(what));
    if (group.changes.size() == 1) { // said in one line
        const std::unique_ptr<QTreeWidgetItem> only(changeItem(group.changes.front()));
        for (const int column : {before, after, from}) {
            item->setText(column, only->text(column));
            item->setToolTip(column, only->text(column));
            if (column != from)
                item->setTextAlignment(column, numbers);
        }
        if (group.name.empty())
            return item;
    }
    for (const HistoryChange& change : group.changes)
        item->addChild(changeItem(change));
    return item;
}

} // namespace vkr::history
