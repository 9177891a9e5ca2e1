// SPDX-License-Identifier: MIT
#include "sheet/origin_notes.hpp"

#include <QCoreApplication>

#include <map>
#include <utility>

namespace vkr {

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("sheet", text);
}

QString wordsOf(Origin origin, const QString& document) {
    switch (origin) {
    case Origin::typed:
        return tr("typed");
    case Origin::pasted:
        return tr("pasted");
    case Origin::imported:
        return document.isEmpty() ? tr("imported") : tr("imported from %1").arg(document);
    case Origin::derived:
        return tr("worked out from others");
    case Origin::shifted:
        break;
    }
    return tr("moved from another period");
}

} // namespace

std::vector<SheetNote> originNotes(const CompanyRecord& company, const FigureOrigins& origins) {
    std::map<std::pair<Origin, std::string>, std::vector<FigurePlace>> groups;
    const auto add = [&](const FigurePlace& place, double figure) {
        const FigureOrigin found = origins.of(place.datum, place.element);
        if (figure != 0 && found.origin)
            groups[{*found.origin, found.document}].push_back(place);
    };
    for (const DatumRow& row : datumTable()) {
        const Variant& stored = company.stored(row.datum);
        if (std::holds_alternative<NumberAccess>(row.access))
            add({row.datum, std::nullopt}, stored.toDouble());
        else if (isSeries(row))
            for (int element = stored.array().lower(); element <= stored.array().upper(); ++element)
                add({row.datum, element}, stored.array().number(element));
    }
    constexpr std::size_t few = 20;
    std::vector<SheetNote> notes;
    for (const auto& [source, places] : groups) {
        const QString words = wordsOf(source.first, QString::fromStdString(source.second));
        notes.push_back({places.size() <= few ? places : std::vector<FigurePlace>(),
                         places.size() == 1 ? tr("1 figure: %1.").arg(words)
                                            : tr("%1 figures: %2.").arg(places.size()).arg(words)});
    }
    return notes;
}

} // namespace vkr
