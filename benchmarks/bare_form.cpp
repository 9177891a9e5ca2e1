// SPDX-License-Identifier: MIT
#include "benchmarks/bare_form.hpp"

#include "benchmarks/companies.hpp"
#include "control/vkr_data_entry.hpp"
#include "desktop/form_view.hpp"
#include "desktop/vkr_data_entry_widget.hpp"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTabBar>

#include <array>
#include <unordered_map>

namespace vkr {

// What the form has in a place: enough to make the same out of bare controls.
struct BarePart {
    struct Look {
        QRect place;
        bool visible = false;

        friend bool operator==(const Look&, const Look&) = default;
    };

    const Control* model = nullptr; // which is gone
    ControlKind kind = ControlKind::label;
    std::size_t container = 0; // its number plus 1; 0 for the form itself
    bool multiLine = false;
    std::array<QString, 2> texts;                 // of the two companies
    std::array<Look, BareForm::pages> looks = {}; // while each page is on show
    std::vector<QString> entries;                 // of a list, or the tabs
    FrameBorder border = FrameBorder::none;
    bool moves = false;
};

namespace {

QString textOf(const Control& control) {
    const auto* field = dynamic_cast<const TextField*>(&control);
    return QString::fromStdString(field != nullptr ? field->text() : control.caption());
}

std::vector<QString> entriesOf(const Control& control) {
    std::vector<QString> entries;
    if (const auto* strip = dynamic_cast<const TabStrip*>(&control))
        for (int i = 1; i <= strip->count(); ++i)
            entries.push_back(QString::fromStdString(strip->tab(i).caption));
    if (const auto* list = dynamic_cast<const ComboBox*>(&control))
        for (const auto& entry : list->list())
            entries.push_back(QString::fromStdString(entry));
    return entries;
}

std::vector<BarePart> partsOf(VKRDataEntryWidget& model) {
    const CompanyPair companies;
    model.setCompany(companies.first);
    std::vector<BarePart> found;
    std::unordered_map<const Control*, std::size_t> numbers;
    for (const auto& control : model.component().form().controls()) {
        if (control->kind() == ControlKind::menuItem)
            continue;
        BarePart part;
        part.model = control.get();
        part.kind = control->kind();
        part.container = control->container() == nullptr ? 0 : numbers.at(control->container()) + 1;
        const auto* box = dynamic_cast<const TextBox*>(control.get());
        part.multiLine = box != nullptr && box->multiLine();
        if (const auto* frame = dynamic_cast<const Frame*>(control.get()))
            part.border = frame->border();
        part.texts[0] = textOf(*control);
        part.entries = entriesOf(*control);
        numbers.emplace(control.get(), found.size());
        found.push_back(std::move(part));
    }
    for (int page = 0; page < BareForm::pages; ++page) {
        model.setCurrentTab(page + 1);
        for (auto& part : found) {
            auto& look = part.looks[static_cast<std::size_t>(page)];
            look = {toQt(model.formView().scale().place(*part.model)), part.model->visible()};
            part.moves = part.moves || look != part.looks[0];
        }
    }
    model.setCompany(companies.second);
    for (auto& part : found)
        part.texts[1] = textOf(*part.model);
    return found;
}

QWidget* make(const BarePart& part, QWidget* parent) {
    const QString& text = part.texts[0];
    switch (part.kind) {
    case ControlKind::textBox:
        if (part.multiLine) {
            auto* edit = new QPlainTextEdit(parent);
            edit->setPlainText(text);
            return edit;
        } else {
            return new QLineEdit(text, parent);
        }
    case ControlKind::comboBox: {
        auto* list = new QComboBox(parent);
        list->setEditable(true);
        for (const auto& entry : part.entries)
            list->addItem(entry);
        list->setEditText(text);
        return list;
    }
    case ControlKind::label:
        return new QLabel(text, parent);
    case ControlKind::commandButton:
        return new QPushButton(text, parent);
    case ControlKind::optionButton:
        return new QRadioButton(text, parent);
    case ControlKind::checkBox:
        return new QCheckBox(text, parent);
    case ControlKind::scrollBar:
        return new QScrollBar(parent);
    case ControlKind::spinner:
        return new QSpinBox(parent);
    case ControlKind::tabStrip: {
        auto* bar = new QTabBar(parent);
        for (const auto& entry : part.entries)
            bar->addTab(entry);
        return bar;
    }
    case ControlKind::frame:
        if (part.border == FrameBorder::group)
            return new QGroupBox(text, parent);
        [[fallthrough]];
    default:
        return new QFrame(parent);
    }
}

} // namespace

const std::vector<BarePart>& BareForm::parts() {
    static const std::vector<BarePart> all = [] {
        VKRDataEntryWidget model;
        return partsOf(model);
    }();
    return all;
}

BareForm::BareForm() {
    for (const auto& part : parts()) {
        auto* widget = make(part, part.container == 0 ? &window_ : made_.at(part.container - 1));
        widget->setGeometry(part.looks[0].place);
        widget->setVisible(part.looks[0].visible);
        if (anyField_ == nullptr)
            anyField_ = qobject_cast<QLineEdit*>(widget);
        made_.push_back(widget);
    }
    window_.resize(538, 389);
    window_.show();
}

void BareForm::load(bool second) {
    for (std::size_t i = 0; i < made_.size(); ++i) {
        const BarePart& part = parts()[i];
        const QString& text = part.texts[second ? 1 : 0];
        if (part.kind == ControlKind::comboBox)
            static_cast<QComboBox*>(made_[i])->setEditText(text);
        else if (part.kind == ControlKind::textBox && part.multiLine)
            static_cast<QPlainTextEdit*>(made_[i])->setPlainText(text);
        else if (part.kind == ControlKind::textBox)
            static_cast<QLineEdit*>(made_[i])->setText(text);
        else if (part.kind == ControlKind::label && part.texts[0] != part.texts[1])
            static_cast<QLabel*>(made_[i])->setText(text);
    }
}

void BareForm::turnTo(int page) {
    for (std::size_t i = 0; i < made_.size(); ++i) {
        const BarePart& part = parts()[i];
        const auto& look = part.looks[static_cast<std::size_t>(page - 1)];
        if (part.kind == ControlKind::tabStrip)
            static_cast<QTabBar*>(made_[i])->setCurrentIndex(page - 1);
        if (!part.moves)
            continue;
        made_[i]->setGeometry(look.place);
        made_[i]->setVisible(look.visible);
    }
}

} // namespace vkr
