// SPDX-License-Identifier: MIT
#include "store/history_rows.hpp"

#include "company/exact_text.hpp"
#include "company/setting_table.hpp"
#include "platform/error_trap.hpp"

#include <algorithm>
#include <charconv>
#include <ctime>
#include <map>
#include <string_view>

namespace vkr {

namespace {

// --- values as text ------------------------------------------------------------------------------

std::string valueText(const Variant& value) {
    if (const auto* date = std::get_if<Date>(&value.value()))
        return isoDateText(*date);
    if (const auto* number = std::get_if<double>(&value.value()))
        return exactNumberText(*number);
    return value.toText();
}

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

const SettingRow* settingNamed(std::string_view name) {
    const auto* const found = std::ranges::find(settingTable, name, &SettingRow::name);
    return found == std::end(settingTable) ? nullptr : found;
}

// --- periods ----------------------------------------------------------------------------------

std::string firstPeriod(const CompanyRecord& company, DatumPeriod period) {
    if (period == DatumPeriod::none)
        return {};
    if (period == DatumPeriod::quarter)
        return isoDateText(company.get_LastQDateForGrid());
    return company.get_LastFY() == 0 ? std::string() : std::to_string(company.get_LastFY());
}

// What periods are counted from.
constexpr Datum dating[] = {Datum::LastFY, Datum::LastFYDate, Datum::LastQDate,
                            Datum::LastQDateForGrid};

bool isDating(Datum datum) {
    return std::ranges::find(dating, datum) != std::end(dating);
}

std::shared_ptr<CompanyRecord> datesOf(const CompanyRecord& company) {
    auto dates = std::make_shared<CompanyRecord>();
    for (const Datum datum : dating)
        writeDatum(*dates, datum, company.stored(datum));
    return dates;
}

class FirstPeriods {
  public:
    explicit FirstPeriods(const CompanyRecord& company)
        : year_(firstPeriod(company, DatumPeriod::year)),
          quarter_(firstPeriod(company, DatumPeriod::quarter)) {}
    [[nodiscard]] const std::string& of(DatumPeriod period) const {
        return period == DatumPeriod::quarter ? quarter_ : year_;
    }

  private:
    std::string year_;
    std::string quarter_;
};

// Whole periods that are the same whatever day of a quarter they were counted from.
std::optional<int> periodNumber(std::string_view period) {
    if (const auto date = dateFromIso(period)) {
        const auto [year, month, day] = civil(*date);
        return year * 4 + (month - 1) / 3;
    }
    int year = 0;
    const auto [end, error] = std::from_chars(period.data(), period.data() + period.size(), year);
    return error == std::errc() && end == period.data() + period.size() ? std::optional(year)
                                                                        : std::nullopt;
}

std::string periodOf(const DatumRow& row, std::string_view first, int element) {
    if (row.period == DatumPeriod::quarter) {
        const auto date = dateFromIso(first);
        return date ? isoDateText(addQuarters(*date, -element)) : std::string();
    }
    const auto year = periodNumber(first);
    return year ? std::to_string(*year + 1 - element) : std::string();
}

// --- exact groups ------------------------------------------------------------------------------

// Puts the change into the company; whether it made any difference. `before` becomes what stood
// there.
bool replay(CompanyRecord& company, Change& change) {
    if (!change.setting.empty()) {
        const auto settings = company.get_Settings();
        change.before = settings->get(change.setting);
        settings->put(change.setting, change.after);
        return change.before != settings->get(change.setting);
    }
    const Variant held = company.stored(change.datum);
    if (change.element) {
        Variant series = held;
        change.before = series.array().at(*change.element);
        series.array().set(*change.element, change.after);
        writeDatum(company, change.datum, series);
        change.after = company.stored(change.datum).array().at(*change.element);
    } else {
        change.before = held;
        writeDatum(company, change.datum, change.after);
        change.after = company.stored(change.datum);
    }
    return change.before != change.after;
}

// --- rows ------------------------------------------------------------------------------------

std::string utcText(std::chrono::system_clock::time_point at) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(at);
    std::tm parts{};
    gmtime_r(&seconds, &parts);
    char text[32];
    return {text, std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts)};
}

std::string originText(const Change& change) {
    return change.origin ? std::string(originName(*change.origin)) : std::string();
}

// The rows of one group while they are put together.
class RowsOfGroup {
  public:
    RowsOfGroup(const FirstPeriods& before, const FirstPeriods& after)
        : before_(before), after_(after) {}

    void add(const Change& change) {
        if (!change.setting.empty()) {
            const auto text = [](const Variant& value) { return value.toText(); };
            rows_.push_back({{change.setting, "", "", text(change.before), text(change.after),
                              originText(change), change.document},
                             false});
            return;
        }
        const DatumRow& row = rowOf(change.datum);
        if (!isSeries(row)) {
            rows_.push_back({{std::string(row.name), "", "", valueText(change.before),
                              valueText(change.after), originText(change), change.document},
                             false});
            return;
        }
        Open& open = openRow(row, change);
        if (change.element)
            return addElement(open, *change.element, change.before, change.after);
        const VariantArray& before = change.before.array();
        const VariantArray& after = change.after.array();
        const bool isWhole = open.row.countedFrom.find(' ') != std::string::npos;
        for (int i = after.lower(); i <= after.upper(); ++i)
            if (isWhole || before.number(i) != after.number(i))
                addElement(open, i, before.number(i), after.number(i));
    }

    std::vector<HistoryRow> take() {
        std::vector<HistoryRow> rows;
        for (Open& open : rows_) {
            if (!open.hasBefore)
                open.row.before.clear();
            rows.push_back(std::move(open.row));
        }
        return rows;
    }

  private:
    struct Open {
        HistoryRow row;
        bool isSeries;
        bool hasBefore = true;
    };

    Open& openRow(const DatumRow& row, const Change& change) {
        const std::string origin = originText(change);
        const std::string& from = before_.of(row.period);
        const std::string& to = after_.of(row.period);
        // What was written into a series that was moved is counted as it is counted then.
        const bool moved = !change.element && from != to && !from.empty() && !to.empty();
        const std::string countedFrom = moved ? from + " " + to : to;
        for (Open& open : rows_)
            if (open.isSeries && open.row.datum == row.name && open.row.origin == origin &&
                open.row.document == change.document && open.row.countedFrom == countedFrom)
                return open;
        rows_.push_back({{std::string(row.name), countedFrom, "", "", "", origin, change.document},
                         true,
                         false});
        return rows_.back();
    }

    static void addElement(Open& open, int element, const Variant& before, const Variant& after) {
        const char* gap = open.row.elements.empty() ? "" : " ";
        open.row.elements.append(gap).append(std::to_string(element));
        open.row.before.append(gap).append(exactNumberText(before.toDouble()));
        open.row.after.append(gap).append(exactNumberText(after.toDouble()));
        open.hasBefore |= before.toDouble() != 0;
    }

    const FirstPeriods& before_;
    const FirstPeriods& after_;
    std::vector<Open> rows_;
};

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

bool redoSeries(const HistoryRow& row, const DatumRow& datum, CompanyRecord& record) {
    const auto elements = words(row.elements);
    const auto after = valuesOf(row.after, elements.size());
    Variant series = record.stored(datum.datum);
    for (std::size_t i = 0; i < elements.size(); ++i) {
        const auto element = elementOf(elements[i]);
        const auto figure = exactNumber(after[i]);
        if (!element || !figure || !series.array().contains(*element))
            return false;
        series.array().setNumber(*element, *figure);
    }
    return attempt([&] { writeDatum(record, datum.datum, series); });
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

std::vector<ChangeGroup> exactGroups(const CompanyRecord& stored, const CompanyRecord& saved,
                                     const SaveAccount& account) {
    const auto reached = stored.clone();
    std::vector<ChangeGroup> groups;
    for (const ChangeGroup& told : account.groups) {
        ChangeGroup group{told.name, told.at, {}};
        for (Change change : told.changes) {
            bool isDone = false;
            if (attempt([&] { isDone = replay(*reached, change); }) && isDone)
                group.changes.push_back(std::move(change));
        }
        if (!group.changes.empty())
            groups.push_back(std::move(group));
    }
    ChangeGroup others = changesBetween(*reached, saved, account.rest);
    if (account.rest.origin == Origin::imported)
        others = withMovesApart(others);
    for (Change& change : others.changes)
        if (!change.setting.empty() && change.origin == Origin::derived)
            change.origin = Origin::typed; // how figures are shown is chosen by people
    if (!others.changes.empty() || groups.empty())
        groups.push_back(std::move(others));
    return groups;
}

std::vector<SavedGroup> savedGroups(const CompanyRecord& stored,
                                    const std::vector<ChangeGroup>& groups,
                                    const std::string& time) {
    std::vector<SavedGroup> saved;
    const auto reached = datesOf(stored);
    FirstPeriods before(*reached);
    for (const ChangeGroup& group : groups) {
        for (Change change : group.changes)
            if (change.setting.empty() && isDating(change.datum))
                ifPossible([&] { replay(*reached, change); });
        const FirstPeriods after(*reached);
        RowsOfGroup rows(before, after);
        for (const Change& change : group.changes)
            rows.add(change);
        saved.push_back(
            {group.name,
             group.at == std::chrono::system_clock::time_point() ? time : utcText(group.at),
             rows.take()});
        before = after;
    }
    return saved;
}

std::vector<HistoryChange> changesOf(const HistoryRow& row) {
    HistoryChange like{
        row.datum, std::nullopt, {}, row.before, row.after, originNamed(row.origin), row.document};
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

bool redo(const HistoryRow& row, CompanyRecord& record) {
    if (const SettingRow* setting = settingNamed(row.datum))
        return redoSetting(row, *setting, record);
    const DatumRow* datum = datumNamed(row.datum);
    if (datum == nullptr)
        return false;
    if (isSeries(*datum))
        return redoSeries(row, *datum, record);
    const auto value = valueOf(*datum, row.after);
    return value && attempt([&] { writeDatum(record, datum->datum, *value); });
}

std::string historyPeriod(const CompanyRecord& company, Datum datum, std::optional<int> element) {
    const DatumRow& row = rowOf(datum);
    return element ? periodOf(row, firstPeriod(company, row.period), *element) : std::string();
}

bool isPeriod(const std::string& period, const std::string& asked) {
    const auto number = periodNumber(period);
    return number && number == periodNumber(asked);
}

} // namespace vkr
