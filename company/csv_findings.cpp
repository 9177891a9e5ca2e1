// SPDX-License-Identifier: MIT
#include "company/csv_findings.hpp"

#include "company/exact_text.hpp"
#include "platform/text.hpp"

#include <cmath>
#include <utility>

namespace vkr {

namespace {

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

} // namespace

CsvFindings::CsvFindings(std::string file, CsvImport& import)
    : file_(std::move(file)), import_(import) {}

void CsvFindings::error(int line, int column, std::string_view text, std::string reason) {
    import_.errors.push_back({file_, line, column, std::string(text), std::move(reason)});
}

void CsvFindings::error(const CsvCell& cell, int column, std::string reason) {
    error(cell.line, column, cell.text, std::move(reason));
}

void CsvFindings::note(int line, int column, std::string_view text, std::string reason) {
    import_.notes.push_back({file_, line, column, std::string(text), std::move(reason)});
}

void CsvFindings::speaksOf(Datum datum) {
    import_.files[datum] = file_;
}

void CsvFindings::speaksOf(const SettingRow& setting) {
    import_.settings.insert(setting.name);
}

std::optional<double> CsvFindings::figure(const CsvCell& cell, int column, int places) {
    std::string text(trimmed(cell.text));
    if (text.empty())
        return 0;
    if (isPlainNumber(text))
        text = shiftDecimalPoint(text, -places);
    const auto value = exactNumber(text);
    if (!value)
        error(cell, column, figureFault(trimmed(cell.text)));
    return value;
}

std::optional<Date> CsvFindings::date(const CsvCell& cell, int column) {
    const auto text = trimmed(cell.text);
    if (text.empty())
        return Date{};
    const auto value = dateFromIso(text);
    if (!value)
        error(cell, column, "not a date: write an existing day as 2025-09-27");
    return value;
}

std::optional<int> CsvFindings::wholeNumber(const CsvCell& cell, int column, int low, int high,
                                            const std::string& reason) {
    const auto value = exactNumber(trimmed(cell.text));
    if (value && *value == std::trunc(*value) && *value >= low && *value <= high)
        return static_cast<int>(*value);
    error(cell, column, reason);
    return std::nullopt;
}

} // namespace vkr
