// SPDX-License-Identifier: MIT
// The widget against bare toolkit fields that show the same texts.
#include "benchmarks/companies.hpp"
#include "benchmarks/counted.hpp"
#include "control/vkr_data_entry.hpp"
#include "desktop/vkr_data_entry_widget.hpp"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <benchmark/benchmark.h>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace {

using namespace vkr;

// A bare form: a field or label for every one of the component's, with the texts of both companies.
class BareForm : public QWidget {
  public:
    BareForm() {
        VKRDataEntryWidget model;
        const CompanyPair companies;
        model.setCompany(companies.first);
        const auto before = texts(model);
        model.setCompany(companies.second);
        const auto after = texts(model);
        const auto& form = model.component().form();
        resize(static_cast<int>(form.width() / 15), static_cast<int>(form.height() / 15));
        for (const auto& control : form.controls()) {
            const auto key = control.get();
            if (dynamic_cast<TextField*>(key) != nullptr) {
                auto* edit = new QLineEdit(this);
                place(*edit, *key);
                edits_.push_back({edit, before.at(key), after.at(key)});
            } else if (dynamic_cast<Label*>(key) != nullptr && before.at(key) != after.at(key)) {
                auto* label = new QLabel(this);
                place(*label, *key);
                labels_.push_back({label, before.at(key), after.at(key)});
            }
        }
    }

    void show(bool second) {
        for (const auto& edit : edits_)
            edit.widget->setText(second ? edit.second : edit.first);
        for (const auto& label : labels_)
            label.widget->setText(second ? label.second : label.first);
    }
    [[nodiscard]] QLineEdit& anyField() { return *edits_.front().widget; }

    using QWidget::show;

  private:
    // Where the component has it, so that the same ones are on screen and painted.
    static void place(QWidget& widget, const Control& control) {
        widget.setGeometry(
            static_cast<int>(control.formLeft() / 15), static_cast<int>(control.formTop() / 15),
            static_cast<int>(control.width() / 15), static_cast<int>(control.height() / 15));
    }

    static std::map<const Control*, QString> texts(VKRDataEntryWidget& model) {
        std::map<const Control*, QString> result;
        for (const auto& control : model.component().form().controls()) {
            if (const auto* field = dynamic_cast<TextField*>(control.get()))
                result[control.get()] = QString::fromStdString(field->text());
            else
                result[control.get()] = QString::fromStdString(control->caption());
        }
        return result;
    }

    template <typename Widget>
    struct Shown {
        Widget* widget;
        QString first;
        QString second;
    };
    std::vector<Shown<QLineEdit>> edits_;
    std::vector<Shown<QLabel>> labels_;
};

void loadWidget(benchmark::State& state) {
    VKRDataEntryWidget widget;
    widget.show();
    const CompanyPair companies;
    bool second = false;
    for (auto _ : state) {
        widget.setCompany(second ? companies.second : companies.first);
        QApplication::processEvents();
        second = !second;
    }
}
BENCHMARK(loadWidget)->Name("load/widget")->Unit(benchmark::kMicrosecond)->Apply(counted);

void loadBare(benchmark::State& state) {
    BareForm form;
    form.show();
    bool second = false;
    for (auto _ : state) {
        form.show(second);
        QApplication::processEvents();
        second = !second;
    }
}
BENCHMARK(loadBare)->Name("load/bare")->Unit(benchmark::kMicrosecond)->Apply(counted);

void strike(QWidget& field, int key, const QString& text) {
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&field, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(&field, &up);
}

// A digit and a Backspace, so that the text stays short.
void strikes(benchmark::State& state, QWidget& field) {
    for (auto _ : state) {
        strike(field, Qt::Key_7, QStringLiteral("7"));
        strike(field, Qt::Key_Backspace, QStringLiteral("\b"));
    }
}

void keyWidget(benchmark::State& state) {
    VKRDataEntryWidget widget;
    widget.setCompany(company(100));
    widget.show();
    widget.activateWindow();
    widget.component().put_CurrentTab(toYearly);
    auto* cell = widget.findChild<QLineEdit*>(QStringLiteral("txtSales(9)"));
    cell->setFocus();
    QApplication::processEvents();
    strikes(state, *cell);
}
BENCHMARK(keyWidget)->Name("key/widget")->Apply(counted);

void keyBare(benchmark::State& state) {
    BareForm form;
    form.show();
    form.activateWindow();
    form.anyField().setFocus();
    QApplication::processEvents();
    strikes(state, form.anyField());
}
BENCHMARK(keyBare)->Name("key/bare")->Apply(counted);

} // namespace
