// SPDX-License-Identifier: MIT
#include "sheet/origin_notes.hpp"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>
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
    case Origin::adjusted:
        return document.isEmpty() ? tr("adjusted for a split")
                                  : tr("imported from %1, adjusted for a split").arg(document);
    case Origin::shifted:
        break;
    }
    return tr("moved from another period");
}

using Source = std::pair<std::optional<Origin>, std::string>;
using Groups = std::map<Source, std::vector<FigurePlace>>;
using Tables = std::map<DatumPeriod, Groups>;

Tables figuresBySource(const CompanyRecord& company, const FigureOrigins& origins) {
    Tables tables;
    const auto add = [&](DatumPeriod period, const FigurePlace& place, double figure) {
        const FigureOrigin found = origins.of(place.datum, place.element);
        if (figure != 0)
            tables[period][{found.origin, found.document}].push_back(place);
    };
    for (const DatumRow& row : datumTable()) {
        const Variant& stored = company.stored(row.datum);
        if (std::holds_alternative<NumberAccess>(row.access))
            add(row.period, {row.datum, std::nullopt}, stored.toDouble());
        else if (isSeries(row))
            for (int element = stored.array().lower(); element <= stored.array().upper(); ++element)
                add(row.period, {row.datum, element}, stored.array().number(element));
    }
    return tables;
}

bool isAnyKnown(const Tables& tables) {
    return std::ranges::any_of(tables, [](const auto& table) {
        return std::ranges::any_of(table.second,
                                   [](const auto& group) { return group.first.first.has_value(); });
    });
}

// "All others, %1 figures: %2."
QString wordsOfOthers(DatumPeriod period, bool areThereOthers) {
    switch (period) {
    case DatumPeriod::year:
        return areThereOthers ? tr("All other yearly ones, %1 figures: %2.")
                              : tr("All %1 yearly figures: %2.");
    case DatumPeriod::quarter:
        return areThereOthers ? tr("All other quarterly ones, %1 figures: %2.")
                              : tr("All %1 quarterly figures: %2.");
    case DatumPeriod::none:
        break;
    }
    return areThereOthers ? tr("All others of the company, %1 figures: %2.")
                          : tr("All %1 figures of the company: %2.");
}

} // namespace

// What most figures of a table have in common needs no mark: a number behind each of hundreds would
// be read as a digit. Every other one has its number.
std::vector<SheetNote> originNotes(const CompanyRecord& company, const FigureOrigins& origins) {
    Tables tables = figuresBySource(company, origins);
    if (!isAnyKnown(tables))
        return {};
    const auto textOf = [](const QString& words, const Source& source, std::size_t count) {
        const QString from = wordsOf(source.first, QString::fromStdString(source.second));
        return count == 1 ? tr("1 figure: %1.").arg(from) : words.arg(count).arg(from);
    };
    constexpr std::size_t few = 20;
    Groups marked;
    std::vector<SheetNote> others;
    for (auto& [period, groups] : tables) {
        const auto most = std::ranges::max_element(
            groups, {}, [](const auto& group) { return group.second.size(); });
        for (auto& [source, places] : groups)
            if (&places != &most->second || places.size() <= few)
                std::ranges::move(places, std::back_inserter(marked[source]));
            else
                others.push_back(
                    {{}, textOf(wordsOfOthers(period, groups.size() > 1), source, places.size())});
    }
    std::vector<SheetNote> notes;
    for (auto& [source, places] : marked) {
        const QString text = textOf(tr("%1 figures: %2."), source, places.size());
        notes.push_back({std::move(places), text});
    }
    std::ranges::move(others, std::back_inserter(notes));
    return notes;
}

} // namespace vkr
