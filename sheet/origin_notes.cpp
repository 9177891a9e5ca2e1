// SPDX-License-Identifier: MIT
#include "sheet/origin_notes.hpp"

#include <QCoreApplication>

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace vkr {

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("sheet", text);
}

QString wordsOf(std::optional<Origin> origin, const QString& document) {
    if (!origin)
        return tr("not known where from");
    switch (*origin) {
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

// What most figures have in common needs no mark: a number behind each of hundreds would be read as
// a digit. Every other one has its number.
std::vector<SheetNote> originNotes(const CompanyRecord& company, const FigureOrigins& origins) {
    using Source = std::pair<std::optional<Origin>, std::string>;
    std::map<Source, std::vector<FigurePlace>> groups;
    const auto add = [&](const FigurePlace& place, double figure) {
        const FigureOrigin found = origins.of(place.datum, place.element);
        if (figure != 0)
            groups[{found.origin, found.document}].push_back(place);
    };
    for (const DatumRow& row : datumTable()) {
        const Variant& stored = company.stored(row.datum);
        if (std::holds_alternative<NumberAccess>(row.access))
            add({row.datum, std::nullopt}, stored.toDouble());
        else if (isSeries(row))
            for (int element = stored.array().lower(); element <= stored.array().upper(); ++element)
                add({row.datum, element}, stored.array().number(element));
    }
    const auto isKnown = [](const auto& group) { return group.first.first.has_value(); };
    if (std::ranges::none_of(groups, isKnown))
        return {};
    constexpr std::size_t few = 20;
    const auto most =
        std::ranges::max_element(groups, {}, [](const auto& group) { return group.second.size(); });
    std::vector<SheetNote> notes;
    for (const auto& [source, places] : groups)
        if (&places != &most->second || places.size() <= few)
            notes.push_back(
                {places, (places.size() == 1 ? tr("1 figure: %1.")
                                             : tr("%1 figures: %2.").arg(places.size()))
                             .arg(wordsOf(source.first, QString::fromStdString(source.second)))});
    if (const auto& [source, places] = *most; places.size() > few)
        notes.push_back(
            {{},
             (notes.empty() ? tr("All %1 figures: %2.") : tr("All others, %1 figures: %2."))
                 .arg(places.size())
                 .arg(wordsOf(source.first, QString::fromStdString(source.second)))});
    return notes;
}

} // namespace vkr
