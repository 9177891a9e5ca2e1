// SPDX-License-Identifier: MIT
#include "company/csv_text.hpp"

#include "company/exact_text.hpp"

#include <algorithm>
#include <array>

namespace vkr {

namespace {

constexpr std::string_view lineBreaks = "\r\n";
constexpr std::string_view blanks = " \t";

char separatorOf(std::string_view text) {
    static constexpr std::array<char, 3> candidates = {',', ';', '\t'};
    std::array<int, 3> counts{};
    bool quoted = false;
    const auto start = std::min(text.find_first_not_of(lineBreaks), text.size());
    for (const char character : text.substr(start)) {
        if (character == '"')
            quoted = !quoted;
        if (quoted)
            continue;
        if (lineBreaks.find(character) != std::string_view::npos)
            break;
        for (std::size_t i = 0; i < candidates.size(); ++i)
            counts[i] += character == candidates[i] ? 1 : 0;
    }
    const auto most = std::max_element(counts.begin(), counts.end()) - counts.begin();
    return candidates[static_cast<std::size_t>(most)];
}

class CellReader {
  public:
    explicit CellReader(std::string_view text) : rest_(text), separator_(separatorOf(text)) {}

    CsvTable read() {
        while (!rest_.empty())
            readRow();
        return std::move(table_);
    }

  private:
    void readRow() {
        CsvRow row;
        for (bool more = true; more;) {
            row.push_back(readCell(static_cast<int>(row.size()) + 1));
            more = !rest_.empty() && rest_.front() == separator_;
            if (more)
                rest_.remove_prefix(1);
        }
        takeLineBreak();
        const bool isBlank = std::all_of(row.begin(), row.end(),
                                         [](const CsvCell& cell) { return cell.text.empty(); });
        if (!isBlank)
            table_.rows.push_back(std::move(row));
    }

    CsvCell readCell(int column) {
        if (!rest_.empty() && rest_.front() == '"')
            return readQuoted(column);
        const int line = line_;
        std::string text(takeUnquoted());
        if (text.find('"') != std::string::npos)
            fault(line, column, text, "a quotation mark in the middle of a cell");
        return {std::move(text), line};
    }

    CsvCell readQuoted(int column) {
        CsvCell cell{"", line_};
        rest_.remove_prefix(1);
        for (;;) {
            const auto end = rest_.find('"');
            const auto part = rest_.substr(0, end);
            line_ += breaksIn(part);
            cell.text += part;
            if (end == std::string_view::npos) {
                rest_ = {};
                fault(cell.line, column, cell.text,
                      "the quotation mark that begins this cell is never closed");
                return cell;
            }
            rest_.remove_prefix(end + 1);
            if (rest_.empty() || rest_.front() != '"')
                break;
            cell.text += '"';
            rest_.remove_prefix(1);
        }
        const std::string_view behind = takeUnquoted();
        if (behind.find_first_not_of(blanks) != std::string_view::npos)
            fault(line_, column, std::string(behind), "text behind a closing quotation mark");
        return cell;
    }

    std::string_view takeUnquoted() {
        const auto end = std::find_if(rest_.begin(), rest_.end(), [&](char character) {
            return character == separator_ || lineBreaks.find(character) != std::string_view::npos;
        });
        const auto part = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
        rest_.remove_prefix(part.size());
        return part;
    }

    void takeLineBreak() {
        if (rest_.empty())
            return;
        rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : 1);
        ++line_;
    }

    static int breaksIn(std::string_view text) {
        int count = 0;
        for (std::size_t i = 0; i < text.size(); ++i)
            if (text[i] == '\n' || (text[i] == '\r' && text.substr(i + 1, 1) != "\n"))
                ++count;
        return count;
    }

    void fault(int line, int column, std::string text, std::string reason) {
        table_.faults.push_back({line, column, std::move(text), std::move(reason)});
    }

    std::string_view rest_;
    char separator_;
    int line_ = 1;
    CsvTable table_;
};

bool needsQuotes(std::string_view cell) {
    if (cell.empty())
        return false;
    return cell.find_first_of(",;\t\"\r\n") != std::string_view::npos || cell.front() == ' ' ||
           cell.back() == ' ';
}

bool looksLikeFormula(std::string_view text) {
    static constexpr std::string_view formulaStarts = "=+-@\t\r";
    const auto start = text.find_first_not_of('\'');
    return start != std::string_view::npos &&
           formulaStarts.find(text[start]) != std::string_view::npos;
}

} // namespace

CsvTable readCsv(std::string_view text) {
    if (text.starts_with("\xff\xfe") || text.starts_with("\xfe\xff"))
        return {{}, {{1, 1, "", "the text is UTF-16; save it as CSV in UTF-8"}}};
    const auto valid = validUtf8Length(text);
    if (valid < text.size()) {
        const auto before = text.substr(0, valid);
        const auto line = 1 + std::count(before.begin(), before.end(), '\n');
        return {{}, {{static_cast<int>(line), 1, "", "not valid UTF-8; save it as CSV in UTF-8"}}};
    }
    if (text.starts_with(byteOrderMark))
        text.remove_prefix(byteOrderMark.size());
    return CellReader(text).read();
}

void appendCsvRow(std::string& text, const std::vector<std::string>& cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (i > 0)
            text += ',';
        if (!needsQuotes(cells[i])) {
            text += cells[i];
            continue;
        }
        text += '"';
        for (const char character : cells[i]) {
            if (character == '"')
                text += '"';
            text += character;
        }
        text += '"';
    }
    text += '\n';
}

std::string markedAsText(const std::string& text) {
    return looksLikeFormula(text) ? "'" + text : text;
}

std::string_view withoutTextMark(std::string_view text) {
    return text.starts_with('\'') && looksLikeFormula(text) ? text.substr(1) : text;
}

} // namespace vkr
