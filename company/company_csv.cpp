// SPDX-License-Identifier: MIT
#include "company/company_csv.hpp"

#include "company/csv_text.hpp"
#include "company/exact_text.hpp"
#include "platform/date.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <map>
#include <set>

namespace vkr {

namespace {

// Share counts stand in the company file as they are reported, in the record in millions.
constexpr int millions = 6;

struct KeyRow {
    std::string_view key;
    Datum datum;
    int places = 0; // the decimal point of the file stands further right than the record's
};

constexpr KeyRow keyRows[] = {
    {"name", Datum::Name},
    {"symbol", Datum::Symbol},
    {"exchange", Datum::Exchange},
    {"industry", Datum::Industry},
    {"source", Datum::Source},
    {"source_date", Datum::DateOfSource},
    {"last_update", Datum::LastUpdate},
    {"address1", Datum::Address1},
    {"address2", Datum::Address2},
    {"city", Datum::City},
    {"state", Datum::State},
    {"zip", Datum::Zip},
    {"country", Datum::Country},
    {"internet", Datum::Internet},
    {"tel", Datum::Tel},
    {"contact_person", Datum::ContactPerson},
    {"current_price", Datum::CurrentPrice},
    {"price_date", Datum::PriceUpdatedDate},
    {"high_52_weeks", Datum::High52W},
    {"low_52_weeks", Datum::Low52W},
    {"common_dividend", Datum::CommDiv},
    {"common_dividend_alternate", Datum::CommDivAlternate},
    {"eps_last_4_quarters", Datum::Last4QEPS},
    {"eps_projected", Datum::ORBEPSProj},
    {"common_shares", Datum::CommShares, millions},
    {"diluted_shares", Datum::DilutedShares, millions},
    {"total_debt_musd", Datum::TotalDebt},
    {"total_capitalization_musd", Datum::TotalCap},
    {"preferred_stock_musd", Datum::PrefShares},
    {"preferred_dividends_musd", Datum::PrefDiv},
    {"tax_rate_pct", Datum::TaxRate},
    {"insider_holding_pct", Datum::InsiderHolding},
    {"institutional_holding_pct", Datum::Institutional},
    {"timeliness", Datum::VLTimeliness},
    {"safety", Datum::VLSafety},
    {"last_fiscal_year", Datum::LastFY},
    {"last_fiscal_year_end", Datum::LastFYDate},
    {"last_quarter_end", Datum::LastQDate},
    {"grid_quarter_end", Datum::LastQDateForGrid},
    {"notes", Datum::Notes},
};

struct SettingKeyRow {
    std::string_view key;
    std::string_view name;
};

constexpr SettingKeyRow settingKeyRows[] = {
    {"unit", setting::unit},
    {"lead_period", setting::leadPeriod},
    {"currency_symbol", setting::currencySymbol},
    {"show_book_value", setting::bookValue},
    {"show_tax_rate", setting::taxRate},
    {"lock_basic_info", setting::lockBasicInfo},
};

struct ColumnRow {
    std::string_view column;
    Datum series;
};

constexpr ColumnRow yearlyColumns[] = {
    {"revenue_musd", Datum::YRevenueSeries},
    {"pretax_income_musd", Datum::YPTISeries},
    {"tax_rate_pct", Datum::YTaxRateSeries},
    {"net_income_musd", Datum::YNetIncSeries},
    {"common_equity_musd", Datum::YCommEqSeries},
    {"book_value_per_share", Datum::YBookValSeries},
    {"eps", Datum::YEPSSeries},
    {"dividend", Datum::YDividendSeries},
    {"high", Datum::YHighSeries},
    {"low", Datum::YLowSeries},
    {"shares_musd", Datum::YCSOSeries},
};

constexpr ColumnRow quarterlyColumns[] = {
    {"revenue_musd", Datum::QRevenueSeries},   {"eps", Datum::QEPSSeries},
    {"pretax_income_musd", Datum::QPTISeries}, {"tax_rate_pct", Datum::QTaxRateSeries},
    {"net_income_musd", Datum::QNetIncSeries},
};

constexpr bool everyDatumHasItsPlace() {
    return std::size(keyRows) + std::size(yearlyColumns) + std::size(quarterlyColumns) ==
           static_cast<std::size_t>(datumCount);
}
static_assert(everyDatumHasItsPlace(), "a new datum needs a key or a column");

constexpr std::string_view elementColumn = "element";

// Years that a row may be named by; anything else is a slip such as 25 or 20025.
constexpr int firstFiscalYear = 1900;
constexpr int lastFiscalYear = 9999;
// Far enough from 1899 that no quarter of the grid falls on the day that stands for "no date".
constexpr int firstQuarterYear = 1910;

// A spreadsheet takes a cell that begins so for a formula. An apostrophe in front keeps it a text;
// a text with apostrophes of its own there gets one more, so that each comes back as it was.
constexpr std::string_view formulaStarts = "=+-@\t\r";

bool looksLikeFormula(std::string_view text) {
    const auto start = text.find_first_not_of('\'');
    return start != std::string_view::npos &&
           formulaStarts.find(text[start]) != std::string_view::npos;
}

std::string keptAsText(const std::string& text) {
    return looksLikeFormula(text) ? "'" + text : text;
}

std::string_view withoutTextMark(std::string_view text) {
    return text.starts_with('\'') && looksLikeFormula(text) ? text.substr(1) : text;
}

const CompanyRecord& emptyRecord() {
    static const CompanyRecord empty;
    return empty;
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    for (char& character : lower)
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
    return lower;
}

// Import

// Why a text is no figure, told so that one knows what to change.
std::string figureFault(std::string_view text) {
    if (text.find(',') != std::string_view::npos)
        return "not a number: write a point as the decimal mark and no grouping";
    if (const auto exponent = text.find_first_of("eE"); exponent != std::string_view::npos &&
                                                        isPlainNumber(text.substr(0, exponent)) &&
                                                        isPlainNumber(text.substr(exponent + 1)))
        return "scientific notation has lost digits: show the column as plain numbers";
    if (isPlainNumber(text))
        return "beyond what can be kept";
    return "not a number";
}

// Collects what is found in one text.
class Findings {
  public:
    Findings(std::string file, CsvImport& import) : file_(std::move(file)), import_(import) {}

    void error(int line, int column, std::string_view text, std::string reason) {
        import_.errors.push_back({file_, line, column, std::string(text), std::move(reason)});
    }
    void error(const CsvCell& cell, int column, std::string reason) {
        error(cell.line, column, cell.text, std::move(reason));
    }
    void note(int line, int column, std::string_view text, std::string reason) {
        import_.notes.push_back({file_, line, column, std::string(text), std::move(reason)});
    }

    std::optional<double> figure(const CsvCell& cell, int column, int places = 0) {
        std::string text(trimmed(cell.text));
        if (text.empty())
            return 0;
        if (places != 0 && isPlainNumber(text))
            text = shiftDecimalPoint(text, -places);
        const auto value = exactNumber(text);
        if (!value)
            error(cell, column, figureFault(trimmed(cell.text)));
        return value;
    }

    std::optional<Date> date(const CsvCell& cell, int column) {
        const auto text = trimmed(cell.text);
        if (text.empty())
            return Date{};
        const auto value = dateFromIso(text);
        if (!value)
            error(cell, column, "not a date: write an existing day as 2025-09-27");
        return value;
    }

    std::optional<int> wholeNumber(const CsvCell& cell, int column, int low, int high,
                                   const std::string& reason) {
        const auto value = exactNumber(trimmed(cell.text));
        if (value && *value == std::trunc(*value) && *value >= low && *value <= high)
            return static_cast<int>(*value);
        error(cell, column, reason);
        return std::nullopt;
    }

  private:
    std::string file_;
    CsvImport& import_;
};

std::optional<bool> flag(std::string_view text) {
    for (const char* yes : {"true", "yes", "1"})
        if (equalsIgnoringCase(text, yes))
            return true;
    for (const char* no : {"false", "no", "0"})
        if (equalsIgnoringCase(text, no))
            return false;
    return std::nullopt;
}

// The rows below the header, each cut to the width of the header; rows of another width are
// errors. Nothing where the text cannot be read as a table at all.
class Table {
  public:
    Table(const CsvText& text, Findings& findings) {
        CsvTable table = readCsv(text.text);
        for (const CsvFault& fault : table.faults)
            findings.error(fault.line, fault.column, fault.text, fault.reason);
        if (!table.faults.empty())
            return;
        if (table.rows.empty()) {
            findings.error(0, 0, "", "the file is empty");
            return;
        }
        takeHeader(table.rows.front(), findings);
        for (auto row = table.rows.begin() + 1; row != table.rows.end(); ++row)
            takeRow(std::move(*row), findings);
    }

    [[nodiscard]] const CsvRow& header() const { return header_; }
    [[nodiscard]] const std::vector<CsvRow>& rows() const { return rows_; }

  private:
    void takeHeader(const CsvRow& row, Findings& findings) {
        std::set<std::string> seen;
        for (const CsvCell& cell : row) {
            const std::string name = lowerCase(trimmed(cell.text));
            header_.push_back({name, cell.line});
            if (!name.empty() && !seen.insert(name).second)
                findings.error(cell, static_cast<int>(header_.size()), "this column stands twice");
        }
        while (!header_.empty() && header_.back().text.empty())
            header_.pop_back();
    }

    void takeRow(CsvRow row, Findings& findings) {
        while (row.size() > header_.size() && row.back().text.empty())
            row.pop_back();
        if (row.size() == header_.size())
            rows_.push_back(std::move(row));
        else
            findings.error(row.front().line, 0, row.front().text,
                           "the row has " + std::to_string(row.size()) + " cells, the header " +
                               std::to_string(header_.size()));
    }

    CsvRow header_;
    std::vector<CsvRow> rows_;
};

class CompanyReader {
  public:
    CompanyReader(CompanyRecord& company, Findings& findings)
        : company_(company), findings_(findings) {}

    void read(const CsvText& text) {
        const Table table(text, findings_);
        if (table.header().empty())
            return;
        if (table.header().size() != 2 || table.header()[0].text != "key" ||
            table.header()[1].text != "value") {
            findings_.error(table.header()[0], 1, "the header has to be key,value");
            return;
        }
        for (const CsvRow& row : table.rows())
            readRow(row);
    }

  private:
    void readRow(const CsvRow& row) {
        const std::string key = lowerCase(trimmed(row[0].text));
        if (const auto [first, isNew] = lines_.emplace(key, row[0].line); !isNew) {
            findings_.error(row[0], 1,
                            "stands in line " + std::to_string(first->second) + " already");
            return;
        }
        if (const auto* datum = std::find_if(std::begin(keyRows), std::end(keyRows),
                                             [&](const KeyRow& one) { return one.key == key; });
            datum != std::end(keyRows))
            std::visit([&](const auto& access) { take(row[1], *datum, access); },
                       rowOf(datum->datum).access);
        else if (const auto* name =
                     std::find_if(std::begin(settingKeyRows), std::end(settingKeyRows),
                                  [&](const SettingKeyRow& one) { return one.key == key; });
                 name != std::end(settingKeyRows))
            takeSetting(row[1], name->name);
        else if (!trimmed(row[1].text).empty())
            findings_.note(row[0].line, 1, row[0].text, "a record has no place for this");
    }

    void take(const CsvCell& cell, const KeyRow& row, const TextAccess& /*access*/) {
        writeText(company_, row.datum, std::string(withoutTextMark(cell.text)));
    }
    void take(const CsvCell& cell, const KeyRow& row, const NumberAccess& /*access*/) {
        if (const auto value = findings_.figure(cell, 2, row.places))
            writeNumber(company_, row.datum, *value);
    }
    void take(const CsvCell& cell, const KeyRow& /*row*/, const YearAccess& /*access*/) {
        if (const auto year = integer(cell, "not a year"))
            company_.put_LastFY(*year);
    }
    void take(const CsvCell& cell, const KeyRow& row, const DateAccess& /*access*/) {
        if (const auto date = findings_.date(cell, 2))
            writeDate(company_, row.datum, *date);
    }
    void take(const CsvCell& /*cell*/, const KeyRow& /*row*/, const SeriesAccess& /*access*/) {}

    void takeSetting(const CsvCell& cell, std::string_view name) {
        const auto settings = company_.get_Settings();
        const int type = settings->get(name).varType();
        if (type == Variant::vtString)
            return settings->put(name, std::string(withoutTextMark(cell.text)));
        if (trimmed(cell.text).empty())
            return;
        if (type == Variant::vtBoolean) {
            if (const auto value = flag(trimmed(cell.text)))
                settings->put(name, *value);
            else
                findings_.error(cell, 2, "neither true nor false");
        } else if (const auto value = integer(cell, "not a whole number"))
            settings->put(name, *value);
    }

    std::optional<std::int16_t> integer(const CsvCell& cell, const std::string& reason) {
        if (trimmed(cell.text).empty())
            return std::int16_t{0};
        using Limits = std::numeric_limits<std::int16_t>;
        const auto value = findings_.wholeNumber(cell, 2, Limits::min(), Limits::max(), reason);
        return value ? std::optional(static_cast<std::int16_t>(*value)) : std::nullopt;
    }

    CompanyRecord& company_;
    Findings& findings_;
    std::map<std::string, int> lines_;
};

// The yearly or the quarterly table: a column that says which period a row is, or a column of
// elements in its place, and one column a series.
struct GridFormat {
    std::span<const ColumnRow> columns;
    std::string_view nameColumn;
    std::string_view extraColumn;
    std::string_view period;
    int upper;
};

constexpr GridFormat yearlyFormat = {yearlyColumns, "fiscal_year", "fiscal_year_end", "fiscal year",
                                     CompanyRecord::yearlyUpper};
// `derived` says how a figure was come by; a record has no place for it.
constexpr GridFormat quarterlyFormat = {quarterlyColumns, "quarter_end", "derived", "quarter",
                                        CompanyRecord::quarterlyUpper};

struct GridRow {
    CsvCell name;
    int nameColumn = 0;
    CsvCell extra;
    int extraColumn = 0;
    std::optional<int> element; // none where it lies outside of the grid
    std::vector<std::pair<Datum, double>> figures;
};

class GridReader {
  public:
    GridReader(CompanyRecord& company, Findings& findings, const GridFormat& format)
        : company_(company), findings_(findings), format_(format) {}

    template <typename Place>
    void read(const CsvText& text, Place place) {
        const Table table(text, findings_);
        if (table.header().empty() || !takeColumns(table.header()))
            return;
        std::vector<GridRow> rows;
        for (const CsvRow& row : table.rows())
            rows.push_back(readRow(row));
        if (names_ == elementColumn)
            placeByElement(rows);
        else
            place(rows);
        store(rows);
    }

  private:
    [[nodiscard]] const ColumnRow* figureColumn(std::string_view name) const {
        const auto found = std::find_if(format_.columns.begin(), format_.columns.end(),
                                        [&](const ColumnRow& one) { return one.column == name; });
        return found == format_.columns.end() ? nullptr : &*found;
    }

    bool takeColumns(const CsvRow& header) {
        bool isKnown = true;
        for (const CsvCell& cell : header) {
            columns_.push_back(cell.text);
            const int column = static_cast<int>(columns_.size());
            if (cell.text == format_.nameColumn || cell.text == elementColumn) {
                if (!names_.empty()) {
                    findings_.error(cell, column, "the rows are named by " + names_ + " already");
                    isKnown = false;
                }
                names_ = cell.text;
            } else if (cell.text != format_.extraColumn && figureColumn(cell.text) == nullptr) {
                findings_.error(cell, column, "unknown column");
                isKnown = false;
            }
        }
        if (names_.empty())
            findings_.error(header.front().line, 0, "",
                            "the column " + std::string(format_.nameColumn) + " is missing");
        return isKnown && !names_.empty();
    }

    GridRow readRow(const CsvRow& cells) {
        GridRow row;
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const int column = static_cast<int>(i) + 1;
            if (columns_[i] == names_) {
                row.name = cells[i];
                row.nameColumn = column;
            } else if (columns_[i] == format_.extraColumn) {
                row.extra = cells[i];
                row.extraColumn = column;
            } else if (const auto figure = findings_.figure(cells[i], column)) {
                row.figures.emplace_back(figureColumn(columns_[i])->series, *figure);
            }
        }
        return row;
    }

    void placeByElement(std::vector<GridRow>& rows) {
        const std::string reason = "not a whole number from 0 to " + std::to_string(format_.upper);
        for (GridRow& row : rows)
            row.element = findings_.wholeNumber(row.name, row.nameColumn, 0, format_.upper, reason);
    }

    void store(const std::vector<GridRow>& rows) {
        std::map<int, int> lines;
        for (const GridRow& row : rows) {
            if (!row.element)
                continue;
            if (const auto [first, isNew] = lines.emplace(*row.element, row.name.line); !isNew) {
                findings_.error(row.name, row.nameColumn,
                                "the same " + std::string(format_.period) + " as in line " +
                                    std::to_string(first->second));
                continue;
            }
            for (const auto& [series, figure] : row.figures) {
                Variant values = company_.stored(series);
                values.array().setNumber(*row.element, figure);
                writeSeries(company_, series, values);
            }
        }
    }

    CompanyRecord& company_;
    Findings& findings_;
    const GridFormat& format_;
    std::vector<std::string> columns_;
    std::string names_; // the column that says which period a row is
};

// One note for all rows that lie before the oldest one of the grid.
void noteOlderRows(const std::vector<const GridRow*>& older, std::string_view period,
                   Findings& findings) {
    if (older.empty())
        return;
    findings.note(older.front()->name.line, older.front()->nameColumn, older.front()->name.text,
                  std::to_string(older.size()) + " " + std::string(period) +
                      (older.size() == 1 ? "" : "s") + " older than the grid left out");
}

void placeYears(CompanyRecord& company, Findings& findings, std::vector<GridRow>& rows) {
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
    noteOlderRows(older, yearlyFormat.period, findings);
}

void placeQuarters(CompanyRecord& company, Findings& findings, std::vector<GridRow>& rows) {
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
    noteOlderRows(older, quarterlyFormat.period, findings);
}

// Export

std::string figureText(double value, int places = 0) {
    return value == 0 ? "" : shiftDecimalPoint(exactNumberText(value), places);
}

std::string cellText(const Variant& value) {
    const bool isText = value.varType() == Variant::vtString;
    return isText ? keptAsText(value.toText()) : value.toText();
}

std::string valueText(const CompanyRecord& company, const KeyRow& row) {
    const Variant& value = company.stored(row.datum);
    if (const auto* date = std::get_if<Date>(&value.value()))
        return isoDateText(*date);
    if (const auto* number = std::get_if<double>(&value.value()))
        return figureText(*number, row.places);
    return value == emptyRecord().stored(row.datum) ? "" : cellText(value);
}

std::string settingText(const CompanyRecord& company, std::string_view name) {
    const Variant value = company.get_Settings()->get(name);
    if (value == emptyRecord().get_Settings()->get(name))
        return "";
    return value.varType() == Variant::vtBoolean ? "true" : cellText(value);
}

std::string companyText(const CompanyRecord& company) {
    std::string text(byteOrderMark);
    appendCsvRow(text, {"key", "value"});
    for (const KeyRow& row : keyRows)
        appendCsvRow(text, {std::string(row.key), valueText(company, row)});
    for (const SettingKeyRow& row : settingKeyRows)
        appendCsvRow(text, {std::string(row.key), settingText(company, row.name)});
    return text;
}

// `names` gives the first cells of an element's row; without it the elements name the rows.
template <typename Names>
std::string gridText(const CompanyRecord& company, const GridFormat& format,
                     std::vector<std::string> header, Names names) {
    for (const ColumnRow& column : format.columns)
        header.emplace_back(column.column);
    std::string text(byteOrderMark);
    appendCsvRow(text, header);

    const auto figure = [&](const ColumnRow& column, int element) {
        return company.stored(column.series).array().number(element);
    };
    const auto isEmpty = [&](int element) {
        return std::all_of(format.columns.begin(), format.columns.end(),
                           [&](const ColumnRow& column) { return figure(column, element) == 0; });
    };
    int last = format.upper;
    while (last >= 0 && isEmpty(last))
        --last;
    for (int element = 0; element <= last; ++element) {
        if (isEmpty(element) && element == 0)
            continue;
        std::vector<std::string> cells = names(element);
        for (const ColumnRow& column : format.columns)
            cells.push_back(figureText(figure(column, element)));
        appendCsvRow(text, cells);
    }
    return text;
}

std::string elementGridText(const CompanyRecord& company, const GridFormat& format) {
    return gridText(company, format, {std::string(elementColumn)},
                    [](int element) { return std::vector<std::string>{std::to_string(element)}; });
}

std::string yearlyText(const CompanyRecord& company) {
    const int last = company.get_LastFY();
    if (last + 1 > lastFiscalYear || last + 1 - CompanyRecord::yearlyUpper < firstFiscalYear)
        return elementGridText(company, yearlyFormat);
    const Date end = company.get_LastFYDate();
    const bool isEndOfLast = !isAbsent(end) && std::abs(civil(end).year - last) <= 1;
    return gridText(company, yearlyFormat,
                    {std::string(yearlyFormat.nameColumn), std::string(yearlyFormat.extraColumn)},
                    [&](int element) {
                        return std::vector{std::to_string(last + 1 - element),
                                           element == 1 && isEndOfLast ? isoDateText(end) : ""};
                    });
}

std::string quarterlyText(const CompanyRecord& company) {
    const Date last = company.get_LastQDateForGrid();
    if (isAbsent(last) || civil(last).year < firstQuarterYear)
        return elementGridText(company, quarterlyFormat);
    return gridText(company, quarterlyFormat, {std::string(quarterlyFormat.nameColumn)},
                    [&](int element) {
                        return std::vector<std::string>{isoDateText(addQuarters(last, -element))};
                    });
}

} // namespace

std::string describe(const CsvProblem& problem) {
    static constexpr int longestQuote = 40;
    std::string text = problem.file;
    if (problem.line > 0)
        text += ", line " + std::to_string(problem.line);
    if (problem.column > 0)
        text += ", column " + std::to_string(problem.column);
    if (!problem.text.empty()) {
        text += ", \"" + std::string(textLeft(problem.text, longestQuote));
        text += textLength(problem.text) > longestQuote ? "…\"" : "\"";
    }
    return text + ": " + problem.reason;
}

CsvImport importCompanyTexts(const CompanyTexts& texts) {
    CsvImport import;
    const auto company = std::make_shared<CompanyRecord>();
    Findings inCompany(texts.company.file, import);
    CompanyReader(*company, inCompany).read(texts.company);
    if (texts.yearly) {
        Findings findings(texts.yearly->file, import);
        GridReader(*company, findings, yearlyFormat)
            .read(*texts.yearly,
                  [&](std::vector<GridRow>& rows) { placeYears(*company, findings, rows); });
    }
    if (texts.quarterly) {
        Findings findings(texts.quarterly->file, import);
        GridReader(*company, findings, quarterlyFormat)
            .read(*texts.quarterly,
                  [&](std::vector<GridRow>& rows) { placeQuarters(*company, findings, rows); });
    }
    if (import.errors.empty())
        import.company = company;
    return import;
}

std::string csvPrefix(const CompanyRecord& company) {
    static constexpr int longest = 50; // characters; file names have 255 bytes at most
    const std::string symbol = company.get_Symbol();
    std::string prefix(textLeft(symbol, longest));
    for (char& character : prefix) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 0x20 || byte == 0x7F ||
            std::string_view("/\\:*?\"<>|").find(character) != std::string_view::npos)
            character = '_';
    }
    if (prefix.starts_with('.'))
        prefix.front() = '_'; // would be a hidden file
    return prefix.empty() ? "company" : prefix;
}

CompanyTexts exportCompanyTexts(const CompanyRecord& company) {
    const std::string prefix = csvPrefix(company);
    return {{prefix + std::string(companySuffix), companyText(company)},
            CsvText{prefix + std::string(yearlySuffix), yearlyText(company)},
            CsvText{prefix + std::string(quarterlySuffix), quarterlyText(company)}};
}

} // namespace vkr
