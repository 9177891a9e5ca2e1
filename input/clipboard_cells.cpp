// SPDX-License-Identifier: MIT
#include "input/clipboard_cells.hpp"

#include "platform/text.hpp"

#include <algorithm>
#include <optional>

namespace vkr {

namespace {

constexpr std::string_view ends = "\t\r\n";

// A quoted cell from the front, taken off; nothing where the text begins with none.
std::optional<std::string> takeQuoted(std::string_view& text) {
    if (!text.starts_with('"'))
        return std::nullopt;
    std::string cell;
    for (std::size_t at = 1; at < text.size(); ++at) {
        if (text[at] != '"') {
            cell += text[at];
            continue;
        }
        const std::string_view rest = text.substr(at + 1);
        if (rest.starts_with('"')) {
            cell += '"';
            ++at;
        } else if (rest.empty() || ends.find(rest.front()) != std::string_view::npos) {
            text = rest;
            return cell;
        } else {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

std::string takeCell(std::string_view& text) {
    if (auto quoted = takeQuoted(text))
        return std::move(*quoted);
    const auto end = std::min(text.find_first_of(ends), text.size());
    std::string cell(text.substr(0, end));
    text.remove_prefix(end);
    return cell;
}

void takeBreak(std::string_view& text) {
    text.remove_prefix(text.starts_with("\r\n")                           ? 2
                       : text.starts_with('\n') || text.starts_with('\r') ? 1
                                                                          : 0);
}

} // namespace

bool isTooLargeABlock(std::string_view text) {
    if (text.find_first_of(ends) == std::string_view::npos)
        return false;
    if (text.size() > mostBlockBytes)
        return true;
    std::size_t rows = 0;
    std::size_t widest = 0;
    while (!text.empty() && rows * widest <= mostBlockCells) {
        std::size_t cells = 0;
        do {
            text.remove_prefix(cells == 0 ? 0 : 1); // the tab
            takeCell(text);
            ++cells;
        } while (text.starts_with('\t'));
        takeBreak(text);
        widest = std::max(widest, cells);
        ++rows;
    }
    return rows * widest > mostBlockCells;
}

CellTexts cellsOf(std::string_view text) {
    CellTexts rows;
    while (!text.empty()) {
        auto& row = rows.emplace_back();
        row.push_back(takeCell(text));
        while (text.starts_with('\t')) {
            text.remove_prefix(1);
            row.push_back(takeCell(text));
        }
        takeBreak(text);
    }
    std::size_t widest = 0;
    for (const auto& row : rows)
        widest = std::max(widest, row.size());
    for (auto& row : rows)
        row.resize(widest);
    return rows;
}

bool isBlock(const CellTexts& cells) {
    bool others = false;
    for (std::size_t row = 0; row < cells.size(); ++row)
        for (std::size_t column = 0; column < cells[row].size(); ++column)
            others = others || ((row > 0 || column > 0) && !trimmed(cells[row][column]).empty());
    return others;
}

std::string clipboardText(const CellTexts& cells) {
    std::string text;
    for (std::size_t row = 0; row < cells.size(); ++row) {
        text += row == 0 ? "" : "\n";
        for (std::size_t column = 0; column < cells[row].size(); ++column) {
            const std::string& cell = cells[row][column];
            text += column == 0 ? "" : "\t";
            if (!cell.starts_with('"') && cell.find_first_of(ends) == std::string::npos) {
                text += cell;
                continue;
            }
            text += '"';
            for (const char character : cell)
                text += character == '"' ? std::string("\"\"") : std::string(1, character);
            text += '"';
        }
    }
    const bool endsEmpty = !cells.empty() && cells.back().size() == 1 && cells.back()[0].empty();
    return endsEmpty ? text + "\n" : text;
}

} // namespace vkr
