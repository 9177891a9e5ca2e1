// SPDX-License-Identifier: MIT
// One more instance of the widget, in time and memory, against a bare form of the same controls.
#include "benchmarks/companies.hpp"
#include "benchmarks/counted.hpp"
#include "control/vkr_data_entry.hpp"
#include "desktop/form_view.hpp"
#include "desktop/vkr_data_entry_widget.hpp"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTabBar>

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unordered_map>
#include <vector>

namespace {

using namespace vkr;

// What a form has in a place: enough to make the same out of bare controls.
struct Part {
    ControlKind kind;
    std::size_t container; // its number plus 1; 0 for the form itself
    QRect place;
    QString text;
    bool multiLine;
    bool visible;
    std::vector<QString> entries; // of a list, or the tabs
};

const std::vector<Part>& parts() {
    static const std::vector<Part> all = [] {
        VKRDataEntryWidget model;
        model.setCompany(company(100));
        std::vector<Part> found;
        std::unordered_map<const Control*, std::size_t> numbers;
        for (const auto& control : model.component().form().controls()) {
            if (control->kind() == ControlKind::menuItem)
                continue;
            Part part{control->kind(),
                      control->container() == nullptr ? 0 : numbers.at(control->container()) + 1,
                      model.formView().scale().rect(*control),
                      QString::fromStdString(control->caption()),
                      false,
                      control->visible(),
                      {}};
            if (const auto* field = dynamic_cast<const TextField*>(control.get()))
                part.text = QString::fromStdString(field->text());
            if (const auto* box = dynamic_cast<const TextBox*>(control.get()))
                part.multiLine = box->multiLine();
            if (const auto* strip = dynamic_cast<const TabStrip*>(control.get()))
                for (int i = 1; i <= strip->count(); ++i)
                    part.entries.push_back(QString::fromStdString(strip->tab(i).caption));
            if (const auto* list = dynamic_cast<const ComboBox*>(control.get()))
                for (const auto& entry : list->list())
                    part.entries.push_back(QString::fromStdString(entry));
            numbers.emplace(control.get(), found.size());
            found.push_back(std::move(part));
        }
        return found;
    }();
    return all;
}

QWidget* make(const Part& part, QWidget* parent) {
    switch (part.kind) {
    case ControlKind::textBox:
        if (part.multiLine) {
            auto* edit = new QPlainTextEdit(parent);
            edit->setPlainText(part.text);
            return edit;
        } else {
            return new QLineEdit(part.text, parent);
        }
    case ControlKind::comboBox: {
        auto* list = new QComboBox(parent);
        list->setEditable(true);
        for (const auto& entry : part.entries)
            list->addItem(entry);
        list->setEditText(part.text);
        return list;
    }
    case ControlKind::label:
        return new QLabel(part.text, parent);
    case ControlKind::commandButton:
        return new QPushButton(part.text, parent);
    case ControlKind::optionButton:
        return new QRadioButton(part.text, parent);
    case ControlKind::checkBox:
        return new QCheckBox(part.text, parent);
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
    default:
        return new QFrame(parent);
    }
}

struct BareForm {
    QWidget window;

    BareForm() {
        std::vector<QWidget*> made;
        for (const auto& part : parts()) {
            auto* widget = make(part, part.container == 0 ? &window : made.at(part.container - 1));
            widget->setGeometry(part.place);
            widget->setVisible(part.visible);
            made.push_back(widget);
        }
        window.resize(538, 389);
        window.show();
    }
};

struct Widget {
    VKRDataEntryWidget window;

    Widget() {
        static const auto record = company(100);
        window.setCompany(record);
        window.resize(window.sizeHint());
        window.show();
    }
};

template <typename Form>
void construct(benchmark::State& state) {
    parts();
    for (auto _ : state) {
        auto form = std::make_unique<Form>();
        QApplication::processEvents();
        state.PauseTiming();
        form.reset();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(construct<Widget>)
    ->Name("construct/widget")
    ->Unit(benchmark::kMillisecond)
    ->Apply(counted);
BENCHMARK(construct<BareForm>)
    ->Name("construct/bare")
    ->Unit(benchmark::kMillisecond)
    ->Apply(counted);

// Bytes on the heap once it is painted, without the pixels of its window.
template <typename Form>
void memory(benchmark::State& state) {
    parts();
    constexpr std::size_t count = 5;
    const Form first; // what all instances share is there now
    QApplication::processEvents();
    double bytes = 0;
    for (auto _ : state) {
        const auto before = mallinfo2().uordblks;
        std::vector<std::unique_ptr<Form>> forms;
        for (std::size_t i = 0; i < count; ++i) {
            forms.push_back(std::make_unique<Form>());
            QApplication::processEvents();
        }
        bytes = static_cast<double>(mallinfo2().uordblks - before) / count;
        state.PauseTiming();
        forms.clear();
        QApplication::processEvents();
        state.ResumeTiming();
    }
    state.counters["bytes"] = bytes;
}
BENCHMARK(memory<Widget>)->Name("memory/widget")->Iterations(1);
BENCHMARK(memory<BareForm>)->Name("memory/bare")->Iterations(1);

} // namespace
