// SPDX-License-Identifier: MIT
#include "company/csv_grid_reader.hpp"

#include "company/csv_layout.hpp"
#include "company/csv_sheet.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <cstdlib>
#include <map>

namespace vkr {

namespace {

struct GridRow {
    CsvCell name;
    int nameColumn = 0;
    CsvCell extra;
    int extraColumn = 0;
    std::optional<int> element; // none where it lies outside of the grid
    std::vector<std::pair<Datum, double>> figures;
};

// Gives the rows their elements by the periods that name them.
using Placing = void (*)(CompanyRecord& company, CsvFindings& findings, std::vector<GridRow>& rows);

class GridReader {
  public:
    GridReader(CompanyRecord& company, CsvFindings& findings, const CsvGrid& grid)
        : company_(company), findings_(findings), grid_(grid) {}

    void read(const CsvText& text, Placing place) {
        const CsvSheet sheet = readSheet(text, findings_);
        if (sheet.header.empty() || !takeColumns(sheet.header))
            return;
        std::vector<GridRow> rows;
        for (const CsvRow& row : sheet.rows)
            rows.push_back(readRow(row));
        if (names_ == elementColumn)
            placeByElement(rows);
        else
            place(company_, findings_, rows);
        store(rows);
    }

  private:
    bool takeColumns(const CsvRow& header) {
        bool isKnown = true;
        for (const CsvCell& cell : header) {
            columns_.push_back(cell.text);
            const int column = static_cast<int>(columns_.size());
            if (cell.text == grid_.nameColumn || cell.text == elementColumn) {
                if (!names_.empty()) {
                    findings_.error(cell, column, "the rows are named by " + names_ + " already");
                    isKnown = false;
                }
                names_ = cell.text;
            } else if (const DatumRow* series = findCsvDatum(grid_.period, cell.text)) {
                findings_.speaksOf(series->datum);
            } else if (cell.text != grid_.extraColumn) {
                findings_.error(cell, column, "unknown column");
                isKnown = false;
            }
        }
        if (names_.empty())
            findings_.error(header.front().line, 0, "",
                            "the column " + std::string(grid_.nameColumn) + " is missing");
        return isKnown && !names_.empty();
    }

    GridRow readRow(const CsvRow& cells) {
        GridRow row;
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const int column = static_cast<int>(i) + 1;
            if (columns_[i] == names_) {
                row.name = cells[i];
                row.nameColumn = column;
            } else if (columns_[i] == grid_.extraColumn) {
                row.extra = cells[i];
                row.extraColumn = column;
            } else {
                const DatumRow& series = *findCsvDatum(grid_.period, columns_[i]);
                if (const auto figure = findings_.figure(cells[i], column, csvPlaces(series)))
                    row.figures.emplace_back(series.datum, *figure);
            }
        }
        return row;
    }

    void placeByElement(std::vector<GridRow>& rows) {
        const std::string reason = "not a whole number from 0 to " + std::to_string(grid_.upper);
        for (GridRow& row : rows)
            row.element = findings_.wholeNumber(row.name, row.nameColumn, 0, grid_.upper, reason);
    }

    void store(const std::vector<GridRow>& rows) {
        std::map<int, int> lines;
        for (const GridRow& row : rows) {
            if (!row.element)
                continue;
            if (const auto [first, isNew] = lines.emplace(*row.element, row.name.line); !isNew)
                findings_.error(row.name, row.nameColumn,
                                "the same " + std::string(grid_.word) + " as in line " +
                                    std::to_string(first->second));
            // Where there is an error nothing of the import is kept.
            for (const auto& [series, figure] : row.figures) {
                Variant values = company_.stored(series);
                values.array().setNumber(*row.element, figure);
                writeSeries(company_, series, values);
            }
        }
    }

    CompanyRecord& company_;
    CsvFindings& findings_;
    const CsvGrid& grid_;
    std::vector<std::string> columns_;
    std::string names_; // the column that says which period a row is
};

// One note for all rows that lie before the oldest one of the grid.
void noteOlderRows(const std::vector<const GridRow*>& older, std::string_view word,
                   CsvFindings& findings) {
    if (older.empty())
        return;
    findings.note(older.front()->name.line, older.front()->nameColumn, older.front()->name.text,
                  std::to_string(older.size()) + " " + std::string(word) +
                      (older.size() == 1 ? "" : "s") + " older than the grid left out");
}

void placeYears(CompanyRecord& company, CsvFindings& findings, std::vector<GridRow>& rows) {
    struct Year {
        GridRow* row;
        int year;
        Date end;
    };
    std::vector<Year> years;
    for (GridRow& row : rows) {
        const auto year = findings.wholeNumber(row.name, row.nameColumn, firstFiscalYear,
                                               lastFiscalYear, "not a fiscal year");
        const auto end = findings.date(row.extra, row.extraColumn);
        if (!year || !end)
            continue;
        if (!isAbsent(*end) && std::abs(civil(*end).year - *year) > 1)
            findings.error(row.extra, row.extraColumn,
                           "not the end of the fiscal year " + std::to_string(*year));
        years.push_back({&row, *year, *end});
    }
    if (years.empty())
        return;

    const bool isStated = company.get_LastFY() != 0;
    if (!isStated)
        company.put_LastFY(static_cast<std::int16_t>(
            std::max_element(years.begin(), years.end(), [](const Year& left, const Year& right) {
                return left.year < right.year;
            })->year));
    const int last = company.get_LastFY();
    const std::string statedYear =
        "the last fiscal year " + std::to_string(last) + " that the company file states";
    std::vector<const GridRow*> older;
    for (const Year& one : years) {
        const int element = last + 1 - one.year;
        if (element > CompanyRecord::yearlyUpper) {
            older.push_back(one.row);
            continue;
        }
        if (element < 0) {
            findings.error(one.row->name, one.row->nameColumn,
                           "more than one year after " + statedYear);
            continue;
        }
        if (element == 0)
            findings.note(one.row->name.line, one.row->nameColumn, one.row->name.text,
                          "taken as the year after " + statedYear);
        if (element == 1 && isAbsent(company.get_LastFYDate()))
            company.put_LastFYDate(one.end);
        one.row->element = element;
    }
    noteOlderRows(older, yearlyCsv.word, findings);
}

void placeQuarters(CompanyRecord& company, CsvFindings& findings, std::vector<GridRow>& rows) {
    struct Quarter {
        GridRow* row;
        Date end;
    };
    std::vector<Quarter> quarters;
    for (GridRow& row : rows) {
        if (trimmed(row.name.text).empty())
            findings.error(row.name, row.nameColumn, "no date");
        else if (const auto end = findings.date(row.name, row.nameColumn))
            quarters.push_back({&row, *end});
    }
    if (quarters.empty())
        return;

    const auto newest = std::max_element(
        quarters.begin(), quarters.end(),
        [](const Quarter& left, const Quarter& right) { return left.end < right.end; });
    Date last = company.get_LastQDateForGrid();
    if (isAbsent(last)) {
        last = newest->end;
        company.put_LastQDate(last);
    } else if (nearestQuarters(last, newest->end) > 0) {
        last = newest->end;
        company.put_LastQDate(std::max(company.get_LastQDate(), last));
        company.put_LastQDateForGrid(last);
        findings.note(newest->row->name.line, newest->row->nameColumn, newest->row->name.text,
                      "newer than the last quarter that the company file states: taken as the last "
                      "quarter");
    }
    std::vector<const GridRow*> older;
    for (const Quarter& one : quarters) {
        const int element = -nearestQuarters(last, one.end);
        if (element > CompanyRecord::quarterlyUpper)
            older.push_back(one.row);
        else
            one.row->element = element;
    }
    noteOlderRows(older, quarterlyCsv.word, findings);
}

} // namespace

void readYearlyCsv(const CsvText& text, CompanyRecord& company, CsvFindings& findings) {
    GridReader(company, findings, yearlyCsv).read(text, placeYears);
}

void readQuarterlyCsv(const CsvText& text, CompanyRecord& company, CsvFindings& findings) {
    GridReader(company, findings, quarterlyCsv).read(text, placeQuarters);
}

} // namespace vkr
