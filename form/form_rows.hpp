// SPDX-License-Identifier: MIT
#pragma once

#include "form/controls.hpp"
#include "form/key_filter.hpp"
#include "record/datum_table.hpp"
#include "record/enumerations.hpp"

#include <compare>
#include <optional>
#include <span>
#include <string_view>

namespace vkr {

// The rows that declare what is on the form. `caption`, `name` and `help` are numbers of the string
// table, 0 for none.

struct Point {
    Twips left = 0;
    Twips top = 0;
};

struct Size {
    Twips width = 0;
    Twips height = 0;
};

// One control. A row with `count` above 1 declares a control array's elements from its index on,
// each `pitch` below the one before.
struct ControlRow {
    ControlId control{};
    int in = Control::noIndex; // its frame, a number of `frame`; noIndex: the form itself
    Point at{};
    Size size{};
    int caption = 0;                           // English at first, then as the localizer has it
    int startCaption = 0;                      // English at first, then as the options want it
    std::optional<std::string_view> design{};  // what stands there at first in place of either
    std::optional<Handle<Label>> labelledBy{}; // the label that names a field
    std::optional<ControlId> beside{};         // the field that it belongs to without naming it
    int length = 0;                            // longest text, in characters; 0: no limit
    Alignment alignment = Alignment::left;
    bool visible = true;
    int count = 1;
    Twips pitch = 0;
    std::optional<DataEntryObject> object{}; // that it stands for, of an array each element
    int help = 0;                            // of the object
    bool onZx = true;                        // false: out of sight on the ZX platform

    // It, or an element of the array that the row declares.
    [[nodiscard]] bool declares(const Control& made) const {
        return made.name() == control.name && (count > 1 || made.index() == control.index);
    }
};

// Money and shares follow the company's currency unit.
[[nodiscard]] constexpr bool followsUnit(Datum datum) {
    return unitOf(datum) == DatumUnit::money || unitOf(datum) == DatumUnit::shares;
}

// --- fields ------------------------------------------------------------------------------------

enum class FieldKind {
    text,
    number,
    price,   // shown in decimals or eighths
    percent, // "12.5%"
    date,
    list, // editable drop-down list
};

// The groups in which loading fills the fields.
enum class LoadStep {
    otherNumbers,
    otherTexts,
    choices,
    companyNumbers,
    dates,
    prices,
    identity,
};

// When loading fills a field: its group, and its place there.
struct LoadPlace {
    LoadStep step{};
    int place = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): not what it takes the generated comparison for
    friend constexpr auto operator<=>(const LoadPlace&, const LoadPlace&) = default;
};

// Without a caption it is the label of another field, too, whose row declares it.
struct FieldLabel {
    Handle<Label> control{};
    int caption = 0;
    std::optional<std::string_view> design{};
};

// Where label, currency sign and field stand. The texts of all three are on one line.
struct FieldPlace {
    Twips label = 0;
    Twips labelWidth = 0;
    Twips currency = 0;
    Twips field = 0;
    Twips fieldWidth = 0;
    Twips top = 0; // of the field
    Twips height = 285;
};

// Which characters can be typed.
namespace typed {
inline constexpr KeyFilter anything{.freeText = true, .allowNegative = true};
inline constexpr KeyFilter capitals{.freeText = true, .allowNegative = true, .upperCase = true};
inline constexpr KeyFilter figure{.allowNegative = true};
inline constexpr KeyFilter positive{};
} // namespace typed

// One field, with all that is to be known of it: what names it, where it stands, which datum it
// shows and stores, and what loading, leaving, clearing, keys, unit and menu go by.
struct FieldRow {
    ControlId control{};
    FieldLabel label{};
    FieldPlace at{};
    int length = 0;                   // longest text, in characters; 0: no limit
    std::optional<int> currency{};    // number of the currency sign in front of it
    FieldKind kind = FieldKind::text; // figures stand on the right
    std::optional<Datum> datum{};     // none where code of its own shows and stores it
    LoadPlace load{};                 // of a datum
    KeyFilter filter = typed::anything;
    bool filtered = true; // false: the keys are not looked at
    std::optional<DataEntryObject> object{};
    int help = 0;     // of the object
    bool onZx = true; // false: out of sight on the ZX platform
    TABObject page{}; // filled in from its page

    // Shown in the company's currency unit.
    [[nodiscard]] constexpr bool isScaled() const { return datum && followsUnit(*datum); }
};

// --- columns of the grids ----------------------------------------------------------------------

// A figure over time, and what people call it.
struct GridSeries {
    Datum series{};
    DataEntryObject object{};
    int name = 0;
    int help = 0;                         // of the object
    std::string_view nameWithoutNumber{}; // where `name` is 0

    [[nodiscard]] constexpr bool isScaled() const { return followsUnit(series); }
};

// A column whose figure the Options tab chooses shows `usual` or `alternative`.
enum class ColumnChoice { none, income, equity };
// Which member of a pair is on show.
enum class PairRow { usual, alternative };

// A head above a column and the next one.
struct ColumnGroup {
    Handle<Label> head{};
    int caption = 0;
};

// A currency sign in front of the first cell of a column.
struct CurrencySign {
    Handle<Label> control{};
    Twips left = 0;
    Twips width = 195;
};

// A column of cells. Its head has the name of its series.
struct GridColumn {
    HandleArray<TextBox> cells{};
    Twips left = 0; // within the panel
    Twips width = 0;
    Handle<Label> head{};
    std::optional<std::string_view> design{}; // of the head
    std::optional<ColumnGroup> group{};
    std::optional<CurrencySign> sign{};
    GridSeries usual{};
    std::optional<GridSeries> alternative{}; // of a pair, for its other choice
    ColumnChoice choice = ColumnChoice::none;
    bool negatives = false;    // typed with a minus, and shown; else they are an empty cell
    bool price = false;        // shown in decimals or eighths
    bool loadedInUnit = false; // loading shows it in the unit, though its series has none
};

// Every series that one of the columns can show, once.
template <typename Act>
void forEachSeries(std::span<const GridColumn> columns, Act&& act) {
    for (const GridColumn& column : columns) {
        act(column.usual);
        if (column.alternative)
            act(*column.alternative);
    }
}

} // namespace vkr
