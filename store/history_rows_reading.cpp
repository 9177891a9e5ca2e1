// SPDX-License-Identifier: MIT
#include "company/exact_text.hpp"
#include "company/period_moves.hpp"
#include "platform/error_trap.hpp"
#include "record/setting_table.hpp"
#include "store/history_periods.hpp"
#include "store/history_rows.hpp"

#include <algorithm>
#include <charconv>
#include <functional>
#include <map>
#include <string_view>
#include <utility>

namespace vkr {

namespace {

std::optional<Variant> valueOf(const DatumRow& row, const std::string& text) {
    struct Read {
        const std::string& text;
        std::optional<Variant> operator()(const TextAccess&) const { return text; }
        std::optional<Variant> operator()(const NumberAccess&) const {
            const auto number = exactNumber(text);
            return number ? std::optional<Variant>(*number) : std::nullopt;
        }
        std::optional<Variant> operator()(const YearAccess&) const {
            std::int16_t year = 0;
            const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), year);
            return error == std::errc() && end == text.data() + text.size()
                       ? std::optional<Variant>(year)
                       : std::nullopt;
        }
        std::optional<Variant> operator()(const DateAccess&) const {
            if (text.empty())
                return Date{};
            const auto date = dateFromIso(text);
            return date ? std::optional<Variant>(*date) : std::nullopt;
        }
        std::optional<Variant> operator()(const SeriesAccess&) const { return std::nullopt; }
    };
    return std::visit(Read{text}, row.access);
}

std::vector<std::string_view> words(std::string_view text) {
    std::vector<std::string_view> found;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(text.size(), word.size() + 1));
        found.push_back(word);
    }
    return found;
}

const DatumRow* datumNamed(std::string_view name) {
    const auto found = std::ranges::find(datumTable(), name, &DatumRow::name);
    return found == datumTable().end() ? nullptr : &*found;
}

std::string known(std::string_view value) {
    return std::string(value == "0" ? std::string_view() : value);
}

// Values of the elements, "0" where the text has none.
std::vector<std::string_view> valuesOf(std::string_view text, std::size_t count) {
    std::vector<std::string_view> values = words(text);
    values.resize(count, "0");
    return values;
}

std::optional<int> elementOf(std::string_view text) {
    int element = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), element);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(element)
                                                                    : std::nullopt;
}

std::optional<Origin> originOf(const HistoryRow& row) {
    return originNamed(
        std::string_view(row.origin).substr(0, row.origin.size() - (isOutdated(row) ? 1 : 0)));
}

// By how many elements the periods of a row stand further on after the change.
int movedBy(const DatumRow& row, std::string_view before, std::string_view after) {
    if (row.period == DatumPeriod::quarter) {
        const auto from = dateFromIso(before);
        const auto to = dateFromIso(after);
        return from && to ? nearestQuarters(*from, *to) : 0;
    }
    const auto from = periodNumber(before);
    const auto to = periodNumber(after);
    return from && to ? *to - *from : 0;
}

// By period, where the group has moved them.
std::vector<HistoryChange> movedChanges(const HistoryRow& row, const DatumRow& datum,
                                        const HistoryChange& like) {
    const auto bases = words(row.countedFrom);
    const auto elements = words(row.elements);
    const auto before = valuesOf(row.before, elements.size());
    const auto after = valuesOf(row.after, elements.size());
    const int moved = movedBy(datum, bases[0], bases[1]);
    std::map<int, HistoryChange> periods; // by the element after the change: the newest first
    for (std::size_t i = 0; i < elements.size(); ++i) {
        const auto element = elementOf(elements[i]);
        if (!element)
            continue;
        HistoryChange& old = periods.try_emplace(*element + moved, like).first->second;
        old.before = known(before[i]);
        if (old.period.empty())
            old.period = periodOf(datum, bases[0], *element);
        HistoryChange& now = periods.try_emplace(*element, like).first->second;
        now.after = known(after[i]);
        now.element = *element;
        now.period = periodOf(datum, bases[1], *element);
    }
    std::vector<HistoryChange> changes;
    for (auto& [place, change] : periods)
        if (change.before != change.after)
            changes.push_back(std::move(change));
    return changes;
}

// Of a series that was moved as a whole, else by element.
void addSeries(std::vector<Change>& done, const HistoryRow& row, const Change& whole) {
    const bool isMoved = words(row.countedFrom).size() == 2 ||
                         (whole.origin == Origin::shifted &&
                          periodsMoved(whole.before, whole.after).value_or(0) != 0);
    if (isMoved) {
        done.push_back(whole);
        return;
    }
    for (const std::string_view text : words(row.elements)) {
        Change one = whole;
        one.element = elementOf(text);
        one.before = whole.before.array().at(*one.element);
        one.after = whole.after.array().at(*one.element);
        done.push_back(std::move(one));
    }
}

bool redoSeries(const HistoryRow& row, Change& whole, CompanyRecord& record) {
    const auto elements = words(row.elements);
    const auto after = valuesOf(row.after, elements.size());
    Variant& series = whole.after;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        const auto element = elementOf(elements[i]);
        const auto figure = exactNumber(after[i]);
        if (!element || !figure || !series.array().contains(*element))
            return false;
        series.array().setNumber(*element, *figure);
    }
    return attempt([&] { writeDatum(record, whole.datum, series); });
}

bool redoSetting(const HistoryRow& row, const SettingRow& setting, CompanyRecord& record) {
    const auto value = [&]() -> Variant {
        switch (setting.kind) {
        case SettingKind::number:
            return Variant(row.after).toLong();
        case SettingKind::flag:
            return Variant(row.after).toBoolean();
        case SettingKind::text:
            break;
        }
        return row.after;
    };
    return attempt([&] { record.get_Settings()->put(setting.name, value()); });
}

} // namespace

std::vector<HistoryChange> changesOf(const HistoryRow& row) {
    HistoryChange like{row.datum, std::nullopt,  {},          row.before,
                       row.after, originOf(row), row.document};
    const DatumRow* datum = datumNamed(row.datum);
    if (datum == nullptr || !isSeries(*datum)) {
        if (datum != nullptr && !isOf<datum_kind::Text>(datum->datum)) {
            like.before = known(like.before);
            like.after = known(like.after);
        }
        return {like};
    }
    like.before.clear();
    like.after.clear();
    if (words(row.countedFrom).size() == 2)
        return movedChanges(row, *datum, like);
    const auto elements = words(row.elements);
    const auto before = valuesOf(row.before, elements.size());
    const auto after = valuesOf(row.after, elements.size());
    std::vector<HistoryChange> changes;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        const auto element = elementOf(elements[i]);
        if (!element)
            continue;
        HistoryChange change = like;
        change.element = *element;
        change.period = periodOf(*datum, row.countedFrom, *element);
        change.before = known(before[i]);
        change.after = known(after[i]);
        changes.push_back(std::move(change));
    }
    return changes;
}

bool redo(const HistoryRow& row, CompanyRecord& record, std::vector<Change>& done) {
    if (const SettingRow* setting = settingNamed(row.datum))
        return redoSetting(row, *setting, record);
    const DatumRow* datum = datumNamed(row.datum);
    if (datum == nullptr)
        return false;
    const Variant& held = record.stored(datum->datum);
    Change change{{datum->datum, std::nullopt, held, held}, {}, originOf(row), row.document};
    if (isSeries(*datum)) {
        if (!redoSeries(row, change, record))
            return false;
        addSeries(done, row, change);
        return true;
    }
    const auto value = valueOf(*datum, row.after);
    if (!value || !attempt([&] { writeDatum(record, datum->datum, *value); }))
        return false;
    change.after = *value;
    done.push_back(std::move(change));
    return true;
}

} // namespace vkr
