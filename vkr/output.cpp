// SPDX-License-Identifier: MIT
#include "vkr/output.hpp"

#include "company/exact_text.hpp"
#include "vkr/exit_code.hpp"
#include "vkr/terminal.hpp"

#include <algorithm>
#include <array>
#include <cassert>
#include <cerrno>
#include <cstdio>
#include <iterator>
#include <system_error>

namespace vkr {

namespace {

std::string headOf(const Column& column) {
    return std::string(column.name);
}

void pad(std::string& line, const std::string& text, const Column& column, int width) {
    const std::string blanks(static_cast<std::size_t>(std::max(0, width - shownWidth(text))), ' ');
    line += column.isFigure ? blanks + text : text + blanks;
}

} // namespace

void Output::begin(std::vector<Column> columns, std::string_view name, Rows rows) {
    assert(!isOpen_ && rows_.empty());
    isOpen_ = true;
    columns_ = std::move(columns);
    orderOfRows_ = rows;
    written_ = 0;
    isObject_ = !name.empty();
    if (format_ == Format::json) {
        if (isObject_)
            write((tables_ == 0 ? "{\n" : ",\n") + jsonText(name) + ": ");
        write("[");
    } else {
        if (tables_ > 0)
            write("\n");
        std::vector<std::string> heads;
        std::ranges::transform(columns_, std::back_inserter(heads), headOf);
        row(std::move(heads));
    }
    ++tables_;
}

void Output::row(std::vector<std::string> cells) {
    assert(isOpen_ && cells.size() == columns_.size());
    if (format_ == Format::text) {
        for (std::string& cell : cells)
            cell = printable(cell);
        if (orderOfRows_ == Rows::together) {
            rows_.push_back(std::move(cells));
            return;
        }
        std::vector<int> widths;
        std::ranges::transform(columns_, std::back_inserter(widths), &Column::width);
        writeRow(cells, widths);
        return;
    }
    std::string line;
    if (format_ == Format::json)
        line = written_ == 0 ? "\n  {" : ",\n  {";
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (format_ == Format::tsv)
            line += (i == 0 ? "" : "\t") + escapedLine(cells[i]);
        else
            line += (i == 0 ? "" : ", ") + jsonText(columns_[i].name) + ": " +
                    (cells[i].empty() ? "null" : jsonText(cells[i]));
    }
    write(line + (format_ == Format::json ? "}" : "\n"));
    ++written_;
}

void Output::end() {
    assert(isOpen_);
    isOpen_ = false;
    writeText();
    if (format_ == Format::json)
        write(written_ == 0 ? "]" : "\n]");
    if (format_ == Format::json && !isObject_)
        write("\n");
}

void Output::writeText() {
    std::vector<int> widths(columns_.size(), 0);
    for (const auto& cells : rows_)
        for (std::size_t i = 0; i < cells.size(); ++i)
            widths[i] = std::max(widths[i], shownWidth(cells[i]));
    for (const auto& cells : rows_)
        writeRow(cells, widths);
    rows_.clear();
}

void Output::writeRow(const std::vector<std::string>& cells, const std::vector<int>& widths) {
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (i > 0)
            line += "  ";
        pad(line, cells[i], columns_[i], widths[i]);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    write(line + "\n");
}

void Output::write(std::string_view text) {
    terminal_.makeWayFor(text);
    if (isRead_ && std::fwrite(text.data(), 1, text.size(), stdout) != text.size())
        giveUp();
}

void Output::finish() {
    assert(!isOpen_);
    if (isObject_ && format_ == Format::json)
        write("\n}\n");
    if (isRead_ && std::fflush(stdout) != 0)
        giveUp();
}

void Output::giveUp() {
    isRead_ = false;
    if (errno != EPIPE)
        throw CommandFailure(ExitCode::refused, "The output could not be written: " +
                                                    std::generic_category().message(errno) + ".");
}

std::string jsonText(std::string_view text) {
    std::string escaped = "\"";
    for (const char letter : text) {
        const auto byte = static_cast<unsigned char>(letter);
        if (letter == '"' || letter == '\\') {
            escaped += '\\';
            escaped += letter;
        } else if (letter == '\n') {
            escaped += "\\n";
        } else if (byte < 0x20 || byte == 0x7F) {
            std::array<char, 8> code{};
            std::snprintf(code.data(), code.size(), "\\u%04x", byte);
            escaped += code.data();
        } else {
            escaped += letter;
        }
    }
    return escaped + "\"";
}

} // namespace vkr
