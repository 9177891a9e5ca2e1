// SPDX-License-Identifier: MIT
#pragma once

#include "binding/block_remarks.hpp"
#include "input/block_figure.hpp"
#include "platform/date.hpp"
#include "platform/services.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {

// The grid that a block is pasted into, as placing needs to know it.
struct BlockGrid {
    enum class Measure {
        plain,
        price, // takes fractions
        percent,
        money,  // in the unit of the form
        shares, // the same
    };
    struct Column {
        std::string name;                         // its head, without a unit
        std::vector<std::string> otherNames = {}; // that reports give it
        // Of the other names: where a block has one of these, what is below any other is left out.
        std::vector<std::string> firstNames = {};
        Measure measure = Measure::plain;
        bool negatives = false; // takes a minus

        [[nodiscard]] bool isInUnit() const {
            return measure == Measure::money || measure == Measure::shares;
        }
    };
    struct Row {
        int year = 0; // of a yearly grid; 0: unknown
        Date date{};  // on which year or quarter ends; absent: unknown
    };
    struct FiscalYear {
        int year;
        Date end;
    };
    // A figure that the record has, and whether a person has put it there, or may have.
    struct Held {
        double figure = 0;
        bool isByHand = false;
    };
    struct UnitName {
        std::string text; // "(M)", as it stands behind a head
        int exponent = 6;
    };

    std::vector<Column> columns;
    std::vector<Row> rows;  // from top to bottom
    bool quarterly = false; // newest on top then, else at the bottom
    int column = 0;         // where the block is pasted
    int row = 0;
    int unit = 6; // exponent of what the form shows: 3, 6 or 9
    std::vector<UnitName> unitNames;
    std::optional<FiscalYear> fiscalYear; // any one: "Q4 2025" is counted from it
    char decimal = '.';                   // of the form
    // Headings are read as dates of this day, and by this pattern.
    Date today{};
    std::string datePattern;
    // By column and row; nothing where the record has no such place.
    std::vector<std::vector<std::optional<Held>>> held;
};

// What a person can change about the placing.
struct BlockSwitches {
    bool byPeriods = false;  // the block's own years or dates say where a figure goes
    bool byNames = false;    // the block's own heads say to which column
    bool turned = false;     // its columns are periods, its rows are columns of the grid
    bool reversed = false;   // its periods run the other way than those of the grid
    bool emptyCells = false; // a dash or an empty cell empties a cell of the grid
    int unit = 0;            // exponent of its amounts: 3, 6, 9; 0: as the form shows them
    char decimal = '.';

    friend bool operator==(const BlockSwitches&, const BlockSwitches&) = default;
};

struct BlockComment {
    BlockRemark remark{};
    std::string detail;

    friend bool operator==(const BlockComment&, const BlockComment&) = default;
};

// A cell of the block: where its figure goes, and what is to be said of it.
struct PlacedCell {
    std::string text; // as it stands in the block
    int column = -1;  // of the grid; -1: none, and no row either
    int row = -1;
    std::string named; // how the block names its period; "" where that is how the grid does
    std::optional<double> figure; // as it will be stored; nothing where it is left out
    double held = 0;              // what it replaces; 0: nothing
    PasteFate fate = PasteFate::leftOut;
    std::vector<BlockComment> comments;

    void say(BlockRemark remark, const std::string& detail = {}) {
        comments.push_back({remark, detail});
    }
    void sayIf(bool applies, BlockRemark remark, const std::string& detail = {}) {
        if (applies)
            say(remark, detail);
    }
};

// A block of cells on its way into a grid: what its headings are, and where each cell goes.
//
// Titles above the figures and labels beside them are no figures. A row or a column of two years
// or more, one after the other, is a heading where its corner is empty or a text; so are dates that
// lie as far apart as the periods of the grid, and "Q4 2025" for quarters. Where the corner is
// empty or speaks of periods or units, one period is enough, and some may be missing in between.
// Texts among the periods, such as "TTM" and "2026E", stand for none of the grid.
//
// What may be true together: titles and labels are a part of the block at most; it names its
// periods without a heading only where it has none; its cells are placed as the switches are set.
class BlockPlacing {
  public:
    // `decimal`: the block's own mark where the clipboard names it.
    BlockPlacing(CellTexts cells, BlockGrid grid, std::optional<char> decimal = std::nullopt);

    // As the block suggests them, until they are set.
    [[nodiscard]] const BlockSwitches& switches() const { return switches_; }
    void setSwitches(const BlockSwitches& switches);
    // Whether the block has what these switches go by.
    [[nodiscard]] bool hasPeriods() const { return heading_.has_value(); }
    [[nodiscard]] bool hasNames() const { return !namesOf(periods()).empty(); }
    [[nodiscard]] bool hasMarks() const { return hasMarks_; }

    [[nodiscard]] const BlockGrid& grid() const { return grid_; }
    // Every cell with something in it, row by row of the block; empty ones where they empty a
    // cell of the grid.
    [[nodiscard]] const std::vector<PlacedCell>& cells() const { return placed_; }
    [[nodiscard]] int taken() const; // doubtful ones too
    [[nodiscard]] int leftOut() const;

  private:
    using Line = std::vector<std::string>;
    // How a line of the block runs, and periods along it.
    enum class Run { across, down };
    // Periods by the lines that run along them; nothing: not on the grid.
    struct Heading {
        Run run{};
        bool isSure = false; // it has a corner
        bool descends = false;
        bool fiscal = false; // quarters of a fiscal year that is not the calendar's
        struct Place {
            std::optional<int> row = {};
            bool isOtherDay = false; // none on which a period of the grid ends
        };
        std::vector<Place> places = {}; // of the lines
    };
    struct Period {
        std::optional<int> year;
        std::optional<Date> date;
        bool fiscal = false;
        bool isDay = false; // not the quarter of a year
    };
    // What the titles say of units.
    struct TitleUnits {
        int money = 0;  // exponent; 0: nothing
        int shares = 0; // the same, where it is said of shares alone
        bool unclear = false;
        bool sharesUnclear = false; // where `shares` is nothing
    };

    [[nodiscard]] std::size_t height() const { return cells_.size(); }
    [[nodiscard]] std::size_t width() const { return cells_.empty() ? 0 : cells_.front().size(); }
    [[nodiscard]] Line line(Run run, std::size_t index) const;
    [[nodiscard]] const std::string& cellIn(Run run, std::size_t line, std::size_t at) const;
    [[nodiscard]] const std::string& headOf(std::size_t period) const; // there is a heading
    [[nodiscard]] bool isTitle(const Line& line, std::size_t from) const;
    void joinSigns();
    [[nodiscard]] bool isOfPeriods(const std::string& cell) const; // "2026E", too
    [[nodiscard]] std::optional<std::size_t> rowOfPeriods() const;
    void straighten();
    void peelTitles();
    void suggest();
    [[nodiscard]] bool isInTitles(std::size_t row, std::size_t column) const;
    [[nodiscard]] TitleUnits unitsInTitles() const;
    [[nodiscard]] std::optional<int> monthsInTitles(int usual) const;
    [[nodiscard]] bool isOtherDay(const Period& period, std::optional<int> row) const;
    [[nodiscard]] bool areYearsApart(const std::vector<Period>& periods) const;
    [[nodiscard]] bool namesPeriods() const;

    [[nodiscard]] std::optional<Date> dateIn(std::string_view text) const;
    [[nodiscard]] std::optional<Period> periodIn(std::string_view text) const;
    // Whether the text is no more than the year or the day of a row.
    [[nodiscard]] bool isNameOf(const std::string& text, int row) const;
    [[nodiscard]] std::optional<int> rowOf(const Period& period) const;
    [[nodiscard]] bool standsAbove(const Line& periods) const;
    [[nodiscard]] std::optional<Heading> headingIn(Run run) const;
    [[nodiscard]] std::optional<std::string> cornerOf(Run run) const;
    [[nodiscard]] bool follows(const Period& before, const Period& period, bool mayMiss) const;
    [[nodiscard]] int columnNamed(std::string_view head, int* unit = nullptr) const;
    [[nodiscard]] Line headsOf(Run periods) const;
    [[nodiscard]] const std::string& nameOf(std::size_t series) const; // where there are names
    [[nodiscard]] BlockComment withoutColumn(const std::vector<int>& names,
                                             std::size_t series) const;
    // Columns of the grid by the block's lines; -1: none. Empty where no head is one of the grid's.
    [[nodiscard]] std::vector<int> namesOf(Run periods) const;
    [[nodiscard]] Run periods() const;

    [[nodiscard]] std::optional<BlockGrid::Held> heldAt(int column, int row) const;
    void place();
    [[nodiscard]] PlacedCell aimed(std::size_t row, std::size_t column,
                                   const std::vector<int>& names) const;
    void read(PlacedCell& cell) const;
    void check(PlacedCell& cell, std::size_t period) const;
    [[nodiscard]] bool isInHeading(std::size_t row, std::size_t column) const;
    void checkInvariants() const;

    CellTexts cells_;
    BlockGrid grid_;
    BlockMarks marks_;
    bool hasMarks_ = false;
    std::size_t firstRow_ = 0;    // behind titles
    std::size_t firstColumn_ = 0; // behind labels
    std::optional<Heading> heading_;
    bool namesPeriods_ = false; // that no heading was made of
    TitleUnits units_;
    std::optional<int> otherMonths_; // of which the titles speak
    BlockSwitches switches_;
    std::vector<PlacedCell> placed_;
};

} // namespace vkr
