// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {

class Terminal;

enum class Format { text, tsv, json };

// What people read is aligned once all rows are there, or by the widths of the columns as rows
// come.
enum class Rows { together, oneByOne };

struct Column {
    std::string_view name;
    bool isFigure = false; // stands on the right for people
    int width = 0;         // of a table that is written row by row: for most of its texts
};

// Standard output: tables, for people or for programs. What people read is aligned; in
// tab-separated values a tab, a line break and a backslash are \t, \n, \r and \\ and nothing is
// quoted; in JSON a table is an array of objects, all values are texts, and what is absent is null.
//
// A reader that goes away is no error: what comes after is not written. Any other failure throws
// CommandFailure.
//
// What may be true together: rows come between begin() and end(), one table after the other, and
// wait for their widths only there; a row has a cell for each column; after finish() nothing comes.
class Output {
  public:
    Output(Format format, Terminal& terminal) : format_(format), terminal_(terminal) {}
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    [[nodiscard]] Format format() const { return format_; }
    // Whether there is still somebody to read it.
    [[nodiscard]] bool isRead() const { return isRead_; }

    // A table; several of them have a name each, by which JSON makes one object of them.
    void begin(std::vector<Column> columns, std::string_view name = {}, Rows rows = Rows::together);
    void row(std::vector<std::string> cells);
    void end();

    // Lines as they are.
    void write(std::string_view text);
    // Closes what is open and gets all of it to the reader.
    void finish();

  private:
    void writeRow(const std::vector<std::string>& cells, const std::vector<int>& widths);
    void writeText();
    void giveUp(); // the reader has gone, or there is a failure

    Format format_;
    Terminal& terminal_; // whose progress makes way
    bool isRead_ = true;
    std::vector<Column> columns_;
    std::vector<std::vector<std::string>> rows_; // that wait for their widths
    Rows orderOfRows_ = Rows::together;
    bool isOpen_ = false; // a table
    std::size_t tables_ = 0;
    std::size_t written_ = 0; // rows of the table
    bool isObject_ = false;   // tables are members of one JSON object
};

// In quotation marks.
[[nodiscard]] std::string jsonText(std::string_view text);

} // namespace vkr
