// SPDX-License-Identifier: MIT
// How rows are written; history_rows_reading.cpp has how they are read.
#include "store/history_rows.hpp"

#include "company/exact_text.hpp"
#include "company/period_moves.hpp"
#include "platform/error_trap.hpp"
#include "store/exact_groups.hpp"
#include "store/history_periods.hpp"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <utility>

namespace vkr {

namespace {

constexpr char outdatedSign = '!';

std::shared_ptr<CompanyRecord> datesOf(const CompanyRecord& company) {
    auto dates = std::make_shared<CompanyRecord>();
    for (const auto& [datum, period] : datingData)
        writeDatum(*dates, datum, company.stored(datum));
    return dates;
}

class FirstPeriods {
  public:
    explicit FirstPeriods(const CompanyRecord& company)
        : year_(firstPeriod(company, DatumPeriod::year)),
          quarter_(firstPeriod(company, DatumPeriod::quarter)) {}
    explicit FirstPeriods(const NewestPeriods& newest)
        : year_(newest.year == 0 ? std::string() : std::to_string(newest.year)),
          quarter_(isoDateText(newest.quarter)) {}
    [[nodiscard]] const std::string& of(DatumPeriod period) const {
        return period == DatumPeriod::quarter ? quarter_ : year_;
    }

  private:
    std::string year_;
    std::string quarter_;
};

std::string utcText(std::chrono::system_clock::time_point at) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(at);
    std::tm parts{};
    gmtime_r(&seconds, &parts);
    char text[32];
    return {text, std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts)};
}

// The rows of one group while they are put together.
class RowsOfGroup {
  public:
    RowsOfGroup(FirstPeriods before, FirstPeriods after, const FigureOrigins* origins)
        : before_(std::move(before)), after_(std::move(after)), origins_(origins) {}

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
            rows_.push_back({{std::string(row.name), "", "", exactText(change.before),
                              exactText(change.after), originText(change), change.document},
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

    [[nodiscard]] std::string originText(const Change& change) const {
        std::string text(change.origin ? originName(*change.origin) : std::string_view());
        const bool isFigure = change.setting.empty() && !change.after.isArray();
        if (origins_ != nullptr && isFigure &&
            origins_->of(change.datum, change.element).isOutdated)
            text += outdatedSign;
        return text;
    }

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
        rows_.push_back(
            {.row = {std::string(row.name), countedFrom, "", "", "", origin, change.document},
             .isSeries = true,
             .hasBefore = false});
        return rows_.back();
    }

    static void addElement(Open& open, int element, const Variant& before, const Variant& after) {
        const char* gap = open.row.elements.empty() ? "" : " ";
        open.row.elements.append(gap).append(std::to_string(element));
        open.row.before.append(gap).append(exactNumberText(before.toDouble()));
        open.row.after.append(gap).append(exactNumberText(after.toDouble()));
        open.hasBefore |= before.toDouble() != 0;
    }

    FirstPeriods before_;
    FirstPeriods after_;
    const FigureOrigins* origins_;
    std::vector<Open> rows_;
};

} // namespace

bool isOutdated(const HistoryRow& row) {
    return row.origin.ends_with(outdatedSign);
}

std::vector<SavedGroup> savedGroups(const CompanyRecord& stored,
                                    const std::vector<ChangeGroup>& groups, const std::string& time,
                                    const FigureOrigins* origins) {
    std::vector<SavedGroup> saved;
    const auto reached = datesOf(stored);
    FirstPeriods before(*reached);
    for (const ChangeGroup& group : groups) {
        for (Change change : group.changes)
            if (change.setting.empty() && isDating(change.datum))
                ifPossible([&] { replay(*reached, change); });
        const FirstPeriods after(*reached);
        RowsOfGroup rows = group.counted ? RowsOfGroup(FirstPeriods(group.counted->before),
                                                       FirstPeriods(group.counted->after), origins)
                                         : RowsOfGroup(before, after, origins);
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

} // namespace vkr
