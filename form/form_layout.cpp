// SPDX-License-Identifier: MIT
#include "form/form_layout.hpp"

#include "form/company_page.hpp"
#include "form/options_page.hpp"
#include "form/other_page.hpp"
#include "form/quarterly_page.hpp"
#include "form/surface.hpp"
#include "form/yearly_page.hpp"
#include "localizer/string_table.hpp"

#include <algorithm>
#include <array>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

namespace vkr {

namespace {

using page::cellPitch;
using page::fieldHeight;
using page::labelDrop;
using page::labelHeight;

// --- the rows one after the other ---------------------------------------------------------------

template <typename Row>
struct Rows {
    std::array<Row, 256> all{};
    std::size_t count = 0;

    constexpr void add(const Row& next) { all[count++] = next; }
    template <typename Table>
    constexpr void addAll(const Table& table) {
        for (const auto& next : table)
            add(next);
    }
};

// As many as there are.
template <auto make>
constexpr auto exactly() {
    constexpr auto made = make();
    std::array<typename decltype(made.all)::value_type, made.count> rows{};
    std::copy_n(made.all.begin(), made.count, rows.begin());
    return rows;
}

constexpr ControlRow onPage(ControlRow row, int frame) {
    if (row.in == Control::noIndex)
        row.in = frame;
    return row;
}

constexpr ControlRow labelOf(const FieldRow& field, int frame) {
    return {.control = field.label.control,
            .in = frame,
            .at = {field.at.label, field.at.top + labelDrop},
            .size = {field.at.labelWidth, labelHeight},
            .caption = field.label.caption,
            .design = field.label.design,
            .onZx = field.onZx};
}

constexpr ControlRow signOf(Handle<Label> sign, int frame, Point at, Twips width) {
    return {.control = sign,
            .in = frame,
            .at = at,
            .size = {width, labelHeight},
            .design = "$",
            .alignment = Alignment::center};
}

constexpr ControlRow signOf(const FieldRow& field, int frame) {
    ControlRow sign = signOf(controls::currency[*field.currency], frame,
                             {field.at.currency, field.at.top + labelDrop}, page::signWidth);
    sign.beside = field.control;
    sign.onZx = field.onZx;
    return sign;
}

constexpr bool isFigure(FieldKind kind) {
    return kind == FieldKind::number || kind == FieldKind::price || kind == FieldKind::percent;
}

constexpr ControlRow boxOf(const FieldRow& field, int frame) {
    return {.control = field.control,
            .in = frame,
            .at = {field.at.field, field.at.top},
            .size = {field.at.fieldWidth, field.at.height},
            .labelledBy = field.label.control,
            .length = field.length,
            .alignment = isFigure(field.kind) ? Alignment::right : Alignment::left,
            .object = field.object,
            .help = field.help,
            .onZx = field.onZx};
}

// What the columns of a grid have in common.
struct GridPlace {
    int headIn;
    Point heads; // of a column at the left edge
    Twips headHeight;
    int cellsIn;
    Twips firstRow;
    int rows;
    Twips gap; // between a column and the next one
};

constexpr GridPlace yearlyPlace{.headIn = frame::yearlyPanel,
                                .heads = {0, 15},
                                .headHeight = 405,
                                .cellsIn = frame::yearlyPanel,
                                .firstRow = yearly_page::headHeight,
                                .rows = sizes::yearRows,
                                .gap = 15};
constexpr GridPlace quarterlyPlace{.headIn = frame::quarterlyPage,
                                   .heads = {quarterly_page::viewLeft, 510},
                                   .headHeight = 360,
                                   .cellsIn = frame::quarterlyPanel,
                                   .firstRow = 15,
                                   .rows = sizes::quarterRows,
                                   .gap = 0};

constexpr ControlRow groupOf(const GridColumn& column, const GridPlace& grid) {
    return {.control = column.group->head,
            .in = grid.headIn,
            .at = {grid.heads.left + column.left, grid.heads.top},
            .size = {2 * column.width - grid.gap, labelHeight},
            .caption = column.group->caption,
            .alignment = Alignment::center};
}

enum class HeadPlace { whole, underGroup };

constexpr ControlRow headOf(const GridColumn& column, const GridPlace& grid, HeadPlace place) {
    const bool underGroup = place == HeadPlace::underGroup;
    constexpr Twips groupHeight = 210;
    const bool fixed = column.choice == ColumnChoice::none;
    return {.control = column.head,
            .in = grid.headIn,
            .at = {grid.heads.left + column.left, grid.heads.top + (underGroup ? groupHeight : 0)},
            .size = {column.width - grid.gap, underGroup ? labelHeight : grid.headHeight},
            .caption = fixed ? column.usual.name : 0,
            .startCaption = fixed ? 0 : column.usual.name,
            .design = column.usual.name == 0 ? column.usual.nameWithoutNumber : column.design,
            .alignment = Alignment::center};
}

constexpr ControlRow cellsOf(const GridColumn& column, const GridPlace& grid) {
    return {.control = column.cells[0],
            .in = grid.cellsIn,
            .at = {column.left, grid.firstRow},
            .size = {column.width - grid.gap, fieldHeight},
            .alignment = Alignment::right,
            .count = grid.rows,
            .pitch = cellPitch};
}

constexpr ControlRow signOf(const GridColumn& column) {
    constexpr Twips drop = 30;
    ControlRow sign =
        signOf(column.sign->control, quarterlyPlace.cellsIn,
               {column.sign->left, quarterlyPlace.firstRow + drop}, column.sign->width);
    sign.beside = column.cells[0];
    return sign;
}

struct Layout : Rows<ControlRow> {
    template <typename Table>
    constexpr void addPage(const Table& rows, int frame) {
        for (const ControlRow& row : rows)
            add(onPage(row, frame));
    }
    template <typename Table>
    constexpr void addFields(const Table& fields, int frame) {
        for (const FieldRow& field : fields) {
            if (field.label.caption != 0)
                add(labelOf(field, frame));
            if (field.currency)
                add(signOf(field, frame));
            add(boxOf(field, frame));
        }
    }
};

constexpr Layout wholeForm() {
    Layout form;
    form.addAll(surface::frameRows);
    form.add(surface::strip);

    form.addFields(company_page::fields, frame::companyPage);
    form.addPage(company_page::others, frame::companyPage);

    form.addFields(yearly_page::fields, frame::yearlyPage);
    form.add(onPage(yearly_page::rowLabels, frame::yearlyPage));
    bool underGroup = false;
    for (const GridColumn& column : yearly_page::columns) {
        if (column.group)
            form.add(groupOf(column, yearlyPlace));
        form.add(headOf(column, yearlyPlace,
                        column.group || underGroup ? HeadPlace::underGroup : HeadPlace::whole));
        form.add(cellsOf(column, yearlyPlace));
        underGroup = column.group.has_value();
    }
    form.addPage(yearly_page::others, frame::yearlyPage);

    form.addFields(quarterly_page::fields, frame::quarterlyPage);
    form.addPage(quarterly_page::others, frame::quarterlyPage);
    for (const GridColumn& column : quarterly_page::columns)
        form.add(headOf(column, quarterlyPlace, HeadPlace::whole));
    form.add(onPage(quarterly_page::rowLabels, frame::quarterlyPanel));
    for (const GridColumn& column : quarterly_page::columns) {
        if (column.sign)
            form.add(signOf(column));
        form.add(cellsOf(column, quarterlyPlace));
    }
    form.add(onPage(quarterly_page::bar, frame::quarterlyPage));

    form.addFields(other_page::fields, frame::otherPage);

    form.addAll(options_page::groups);
    form.addFields(options_page::fields, frame::optionsPage);

    form.addAll(surface::buttons);
    form.addAll(surface::helpFrame);
    form.addAll(surface::menu);
    return form;
}

constexpr auto rows = exactly<wholeForm>();

constexpr Rows<FieldRow> allFields() {
    Rows<FieldRow> fields;
    const auto addPage = [&](const auto& table, TABObject page) {
        for (FieldRow field : table) {
            field.page = page;
            fields.add(field);
        }
    };
    addPage(company_page::fields, toCompany);
    addPage(yearly_page::fields, toYearly);
    addPage(quarterly_page::fields, toQuarterly);
    addPage(other_page::fields, toOther);
    addPage(options_page::fields, toOptions);
    return fields;
}

constexpr auto fieldsOfPages = exactly<allFields>();

constexpr Rows<FieldRow> storedFields() {
    Rows<FieldRow> stored;
    for (const FieldRow& field : fieldsOfPages)
        if (field.datum)
            stored.add(field);
    std::sort(stored.all.begin(), stored.all.begin() + static_cast<std::ptrdiff_t>(stored.count),
              [](const FieldRow& one, const FieldRow& other) { return one.load < other.load; });
    return stored;
}

constexpr auto companyFields = exactly<storedFields>();

// --- what a table can have wrong ---------------------------------------------------------------

// A compiler takes a limited number of steps for this.
template <typename Table, typename Key>
constexpr bool eachOnce(const Table& table, Key key) {
    for (const auto& one : table) {
        const auto wanted = std::invoke(key, one);
        for (const auto* other = &one + 1; other != table.data() + table.size(); ++other)
            if (wanted == std::invoke(key, *other))
                return false;
    }
    return true;
}

constexpr std::pair<std::string_view, int> nameOf(const ControlRow& row) {
    return {row.control.name, row.control.index};
}

constexpr bool labelIsThere(const ControlRow& row) {
    return !row.labelledBy || std::ranges::any_of(rows, [&](const ControlRow& label) {
        return label.control == ControlId(*row.labelledBy);
    });
}

// Which is how they are numbered.
constexpr bool fieldsOfALabelFollowEachOther() {
    Rows<ControlId> labels;
    for (const ControlRow& row : rows)
        if (row.labelledBy &&
            (labels.count == 0 || labels.all[labels.count - 1] != ControlId(*row.labelledBy)))
            labels.add(*row.labelledBy);
    return eachOnce(std::span(labels.all.data(), labels.count), std::identity());
}

constexpr bool fitsItsDatum(const FieldRow& field) {
    switch (field.kind) {
    case FieldKind::text:
    case FieldKind::list:
        return isOf<datum_kind::Text>(*field.datum);
    case FieldKind::date:
        return isOf<datum_kind::Day>(*field.datum);
    default:
        return isOf<datum_kind::Number>(*field.datum);
    }
}

constexpr bool hasItsPlace(const FieldRow& field) {
    return field.load.place > 0;
}

static_assert(eachOnce(rows, nameOf), "two controls of one name");
static_assert(std::ranges::all_of(rows, labelIsThere), "a field whose label no row declares");
static_assert(fieldsOfALabelFollowEachOther(), "a field apart from the others of its label");
static_assert(eachOnce(companyFields, &FieldRow::datum), "two fields of one datum");
static_assert(eachOnce(companyFields, &FieldRow::load), "two fields with one place in loading");
static_assert(std::ranges::all_of(companyFields, hasItsPlace),
              "a field without a place in loading");
static_assert(std::ranges::all_of(companyFields, fitsItsDatum),
              "a field of another kind than its datum");

} // namespace

std::span<const ControlRow> formLayout() {
    return rows;
}

std::span<const FieldRow> fieldRows() {
    return fieldsOfPages;
}

const FieldRow& fieldRow(const ControlId& control) {
    const auto* found = std::ranges::find(fieldsOfPages, control, &FieldRow::control);
    if (found == fieldsOfPages.end())
        throw std::out_of_range("no field " + std::string(control.name));
    return *found;
}

std::span<const FieldRow> companyFieldTable() {
    return companyFields;
}

std::span<const GridColumn> yearlyColumns() {
    return yearly_page::columns;
}

std::span<const GridColumn> quarterlyColumns() {
    return quarterly_page::columns;
}

int helpNumberOf(DataEntryObject object) {
    if (object >= doTabCompany && object <= doTabOptions)
        return surface::tabs[object - doTabCompany].help;
    for (const auto& row : rows)
        if (row.object == object && row.help != 0)
            return row.help;
    for (const auto columns : {yearlyColumns(), quarterlyColumns()})
        for (const auto& column : columns) {
            if (column.usual.object == object)
                return column.usual.help;
            if (column.alternative && column.alternative->object == object)
                return column.alternative->help;
        }
    return 0;
}

std::string_view designCaption(const ControlRow& row) {
    const int number = row.startCaption != 0 ? row.startCaption : row.caption;
    return row.design ? *row.design : findString(standardStrings(), number);
}

} // namespace vkr
