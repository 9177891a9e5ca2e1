// SPDX-License-Identifier: MIT
#include "form/build_form.hpp"

#include "form/form_layout.hpp"
#include "form/places.hpp"
#include "form/surface.hpp"
#include "localizer/string_table.hpp"
#include "platform/text.hpp"

#include <string>

namespace vkr {

namespace {

constexpr Color helpBackground = 0xE1FFFF;

// Makes a control by its kind, with what only that kind has.
Control& make(Form& form, const ControlRow& declared, int index, Frame* container) {
    const std::string_view name = declared.control.name;
    switch (declared.control.kind) {
    case ControlKind::textBox: {
        auto& box = form.add<TextBox>(name, index, container);
        box.setMaxLength(declared.length);
        box.setAlignment(declared.alignment);
        return box;
    }
    case ControlKind::comboBox: {
        auto& list = form.add<ComboBox>(name, index, container);
        list.setMaxLength(declared.length);
        return list;
    }
    case ControlKind::label: {
        auto& label = form.add<Label>(name, index, container);
        label.setAlignment(declared.alignment);
        // Column heads break into two lines.
        label.setWordWrap(declared.size.height > page::labelHeight &&
                          name != controls::quarterLabel.name);
        return label;
    }
    case ControlKind::commandButton:
        return form.add<CommandButton>(name, index, container);
    case ControlKind::optionButton:
        return form.add<OptionButton>(name, index, container);
    case ControlKind::checkBox:
        return form.add<CheckBox>(name, index, container);
    case ControlKind::scrollBar:
        return form.add<ScrollBar>(name, index, container);
    case ControlKind::spinner:
        return form.add<Spinner>(name, index, container);
    case ControlKind::frame:
        return form.add<Frame>(name, index, container);
    case ControlKind::tabStrip:
        return form.add<TabStrip>(name, index, container);
    case ControlKind::shape:
        return form.add<Shape>(name, index, container);
    case ControlKind::pictureBox:
        return form.add<PictureBox>(name, index, container);
    default:
        return form.add<MenuItem>(name, index, container);
    }
}

void place(Control& control, const ControlRow& declared, int number) {
    control.move(declared.at.left, declared.at.top + number * declared.pitch);
    control.resize(declared.size.width, declared.size.height);
    if (control.hasCaption())
        control.setCaption(designCaption(declared));
    if (declared.caption != 0)
        control.setTag(std::to_string(declared.caption));
    control.setVisible(declared.visible);
}

// All elements that a row declares, in their frame.
void add(Form& form, const ControlRow& declared) {
    Frame* container =
        declared.in == Control::noIndex ? nullptr : &controls::frames[declared.in].in(form);
    const int first = declared.control.index;
    for (int i = 0; i < declared.count; ++i)
        place(make(form, declared, first == Control::noIndex ? first : first + i, container),
              declared, i);
}

// A label leads to the first of its fields, a head to the first cell of its column.
void nameTargets(Form& form) {
    for (const auto& declared : formLayout())
        if (declared.labelledBy)
            if (auto& label = declared.labelledBy->in(form); label.buddy() == nullptr)
                label.setBuddy(form.find(declared.control.name, declared.control.index));
    for (const auto columns : {yearlyColumns(), quarterlyColumns()})
        for (const auto& column : columns) {
            column.head.in(form).setBuddy(&column.cells[0].in(form));
            if (column.group)
                column.group->head.in(form).setBuddy(&column.cells[0].in(form));
        }
    // What it names can't be entered.
    controls::fiscalYearDateLabel.in(form).setBuddy(&controls::fiscalYearDateShown.in(form));
}

// What a table row can't say.
void finish(Form& form) {
    for (const auto& tab : surface::tabs)
        controls::tabs.in(form).addTab({std::string(findString(standardStrings(), tab.caption)),
                                        std::string(tab.key), std::to_string(tab.caption),
                                        std::string(tab.toolTip), tab.width});
    for (int group = frame::unitGroup; group <= frame::colorGroup; ++group)
        controls::frames[group].in(form).setBorder(FrameBorder::group);
    for (int page = frame::firstPage + 1; page <= frame::lastPage; ++page)
        controls::frames[page].in(form).setEnabled(false);
    controls::notes.in(form).setMultiLine(true);
    controls::quarterlyBar.in(form).setOrientation(Orientation::vertical);
    controls::unitOption[1].in(form).setValue(true);
    controls::displayOption[0].in(form).setValue(true);
    controls::incomeOption[0].in(form).setValue(true);
    controls::equityOption[0].in(form).setValue(true);
    controls::helpFrame.in(form).setNotice(true);
    controls::helpBackground.in(form).setBackColor(helpBackground);
    controls::helpBorder.in(form).setFilled(false);
    controls::helpPicture.in(form).setBackColor(helpBackground);
    controls::helpText.in(form).setBackColor(helpBackground);
    auto& link = controls::moreHelp.in(form);
    link.setBackColor(helpBackground);
    link.setForeColor(colors::blue);
    link.setLink(true);
}

void nameColumns(const Form& form, std::span<const GridColumn> columns,
                 const HandleArray<Label>& rowLabels) {
    const auto& labels = form.elements(rowLabels.name);
    for (const auto& column : columns) {
        std::string name = withoutMnemonic(column.head.in(form).caption());
        const std::size_t head = name.size();
        for (const auto& [row, cell] : form.elements(column.cells.name)) {
            name.resize(head); // hundreds of cells at each load: one text for all
            if (const std::string& label = labels.at(row)->caption(); !label.empty())
                name.append(" ").append(label);
            cell->setAccessibleName(name);
        }
    }
}

} // namespace

void buildForm(Form& form) {
    for (const auto& declared : formLayout())
        add(form, declared);
    finish(form);
    nameTargets(form);
}

void nameFields(Form& form) {
    ControlId before{}; // fields that share a label follow one another
    int line = 0;
    for (const auto& declared : formLayout()) {
        if (!declared.labelledBy)
            continue;
        const ControlId label = *declared.labelledBy;
        line = label == before ? line + 1 : 1;
        before = label;
        std::string name = withoutMnemonic(declared.labelledBy->in(form).caption());
        if (line > 1)
            name.append(" ").append(std::to_string(line));
        form.find(declared.control.name, declared.control.index)->setAccessibleName(name);
    }
    nameCells(form);
}

void nameCells(Form& form) {
    nameColumns(form, yearlyColumns(), controls::yearLabel);
    nameColumns(form, quarterlyColumns(), controls::quarterLabel);
}

} // namespace vkr
