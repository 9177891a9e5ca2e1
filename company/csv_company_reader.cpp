// SPDX-License-Identifier: MIT
#include "company/csv_company_reader.hpp"

#include "company/csv_layout.hpp"
#include "company/csv_sheet.hpp"
#include "platform/text.hpp"
#include "record/setting_table.hpp"

#include <algorithm>
#include <limits>
#include <map>

namespace vkr {

namespace {

std::optional<bool> flag(std::string_view text) {
    for (const char* yes : {"true", "yes", "1"})
        if (equalsIgnoringCase(text, yes))
            return true;
    for (const char* no : {"false", "no", "0"})
        if (equalsIgnoringCase(text, no))
            return false;
    return std::nullopt;
}

class CompanyReader {
  public:
    CompanyReader(CompanyRecord& company, CsvFindings& findings)
        : company_(company), findings_(findings) {}

    void readRow(const CsvRow& row) {
        const CsvCell& key = row[0];
        const std::string name = csvName(key.text);
        if (const auto [first, isNew] = lines_.emplace(name, key.line); !isNew) {
            findings_.error(key, 1, "stands in line " + std::to_string(first->second) + " already");
            return;
        }
        if (const DatumRow* datum = findCsvDatum(DatumPeriod::none, name)) {
            findings_.speaksOf(datum->datum);
            std::visit([&](const auto& access) { take(row[1], *datum, access); }, datum->access);
        } else if (const SettingRow* setting = settingOf(name)) {
            takeSetting(row[1], *setting);
        } else if (!trimmed(row[1].text).empty()) {
            findings_.note(key.line, 1, key.text, "a record has no place for this");
        }
    }

  private:
    void take(const CsvCell& cell, const DatumRow& row, const TextAccess& /*access*/) {
        writeText(company_, row.datum, std::string(withoutTextMark(cell.text)));
    }
    void take(const CsvCell& cell, const DatumRow& row, const NumberAccess& /*access*/) {
        if (const auto value = findings_.figure(cell, 2, csvPlaces(row)))
            writeNumber(company_, row.datum, *value);
    }
    void take(const CsvCell& cell, const DatumRow& row, const YearAccess& /*access*/) {
        if (const auto year = integer(cell, "not a year"))
            writeDatum(company_, row.datum, *year);
    }
    void take(const CsvCell& cell, const DatumRow& row, const DateAccess& /*access*/) {
        if (const auto date = findings_.date(cell, 2))
            writeDate(company_, row.datum, *date);
    }
    void take(const CsvCell& /*cell*/, const DatumRow& /*row*/, const SeriesAccess& /*access*/) {}

    static const SettingRow* settingOf(std::string_view key) {
        const auto* row = std::find_if(std::begin(settingTable), std::end(settingTable),
                                       [&](const SettingRow& one) { return one.key == key; });
        return row == std::end(settingTable) ? nullptr : row;
    }

    void takeSetting(const CsvCell& cell, const SettingRow& row) {
        const auto settings = company_.get_Settings();
        if (row.kind != SettingKind::text && trimmed(cell.text).empty())
            return;
        findings_.speaksOf(row);
        if (row.kind == SettingKind::text)
            return settings->put(row.name, std::string(withoutTextMark(cell.text)));
        if (row.kind == SettingKind::flag) {
            if (const auto value = flag(trimmed(cell.text)))
                settings->put(row.name, *value);
            else
                findings_.error(cell, 2, "neither true nor false");
        } else if (const auto value = integer(cell, "not a whole number"))
            settings->put(row.name, *value);
    }

    std::optional<std::int16_t> integer(const CsvCell& cell, const std::string& reason) {
        if (trimmed(cell.text).empty())
            return std::int16_t{0};
        using Limits = std::numeric_limits<std::int16_t>;
        const auto value = findings_.wholeNumber(cell, 2, Limits::min(), Limits::max(), reason);
        return value ? std::optional(static_cast<std::int16_t>(*value)) : std::nullopt;
    }

    CompanyRecord& company_;
    CsvFindings& findings_;
    std::map<std::string, int> lines_; // of the keys so far
};

} // namespace

void readCompanyCsv(const CsvText& text, CompanyRecord& company, CsvFindings& findings) {
    const CsvSheet sheet = readSheet(text, findings);
    const CsvRow& header = sheet.header;
    if (header.empty())
        return;
    if (header.size() != 2 || header[0].text != "key" || header[1].text != "value") {
        findings.error(header[0], 1, "the header has to be key,value");
        return;
    }
    CompanyReader reader(company, findings);
    for (const CsvRow& row : sheet.rows)
        reader.readRow(row);
}

} // namespace vkr
