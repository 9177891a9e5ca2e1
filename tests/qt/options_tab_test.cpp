// SPDX-License-Identifier: MIT
#include "control/vkr_data_entry.hpp"
#include "desktop/form_view.hpp"
#include "desktop/qt_values.hpp"
#include "desktop/vkr_data_entry_widget.hpp"
#include "form/form_layout.hpp"
#include "tests/qt/support/dialog_answers.hpp"
#include "tests/qt/support/entry_window.hpp"
#include "tests/support/entry_scene.hpp"
#include "tests/support/field_steps.hpp"

#include <QColorDialog>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include <cmath>
#include <map>
#include <set>
#include <string>

namespace vkr {
namespace {

// The fifth tab in a window, worked with real clicks and keys.
class OptionsPage : public EntryWindow {
  protected:
    void SetUp() override {
        record->put_CurrentPrice(3.125);
        record->put_High52W(4.5);
        record->put_Low52W(2.75);
        double figure = 1000;
        for (const char* series :
             {"YRevenueSeries", "YNetIncSeries", "YCommEqSeries", "YPTISeries", "YCSOSeries"})
            for (int element = 0; element <= 10; ++element)
                test::putElement(*record, series, element, figure += 250);
        for (const char* series : {"QRevenueSeries", "QNetIncSeries", "QPTISeries"})
            for (int element = 0; element <= 8; ++element)
                test::putElement(*record, series, element, figure += 250);
        for (int element = 0; element <= 10; ++element) {
            test::putElement(*record, "YHighSeries", element, 20 + element + 0.375);
            test::putElement(*record, "YLowSeries", element, 10 + element + 0.625);
        }
        record->put_TotalDebt(7000);
        record->put_TotalCap(7250);
        record->put_PrefDiv(7500);
        record->put_CommShares(7750);
        record->put_PrefShares(8000);
        record->put_DilutedShares(8250);
        open(record);
        entry->setCurrentTab(toOptions);
    }

    void click(std::string_view name, int index) const {
        QTest::mouseClick(native<QWidget>(name, index), Qt::LeftButton);
    }
    [[nodiscard]] bool chosen(std::string_view name, int index) const {
        return native<QRadioButton>(name, index)->isChecked();
    }
    // What the natives of all fields and labels show.
    [[nodiscard]] std::map<std::string, QString> shown() const {
        std::map<std::string, QString> texts;
        for (const auto& control : form().controls())
            if (control->kind() == ControlKind::textBox || control->kind() == ControlKind::label) {
                auto* widget = widgetOf(*control);
                if (auto* line = qobject_cast<QLineEdit*>(widget))
                    texts[control->id()] = line->text();
                else if (auto* label = qobject_cast<QLabel*>(widget))
                    texts[control->id()] = label->text();
            }
        return texts;
    }

    std::shared_ptr<CompanyRecord> record = test::datedCompany();
};

TEST_F(OptionsPage, EachColourButtonOpensTheColourDialogOnItsColour) {
    struct Row {
        const char* property;
        QColor before;
        QColor after;
    };
    const Row rows[] = {{"shadeColorLocked", QColor(10, 20, 30), QColor(200, 210, 220)},
                        {"shadeColorYear", QColor(40, 50, 60), QColor(210, 220, 230)},
                        {"shadeColorQuarter", QColor(70, 80, 90), QColor(220, 230, 240)}};
    for (const auto& row : rows)
        entry->setProperty(row.property, row.before);
    for (int button = 0; button < 3; ++button) {
        const auto& row = rows[button];
        const auto* sample = native<QLabel>("lblSample", button);
        for (const bool accepted : {false, true}) {
            entry->setDirty(false);
            DialogAnswers answers;
            answers.next([&](QWidget& dialog) {
                auto* colours = qobject_cast<QColorDialog*>(&dialog);
                ASSERT_NE(colours, nullptr);
                EXPECT_EQ(colours->currentColor(), row.before);
                EXPECT_EQ(colours->currentColor(), sample->palette().color(QPalette::Window));
                EXPECT_EQ(colours->parentWidget(), &window);
                colours->setCurrentColor(row.after);
                DialogAnswers::clickButton(dialog, accepted ? "OK" : "Cancel");
            });
            click("cmdColor", button);
            const QColor expected = accepted ? row.after : row.before;
            EXPECT_EQ(entry->property(row.property).value<QColor>(), expected) << button;
            EXPECT_EQ(sample->palette().color(QPalette::Window), expected) << button;
            EXPECT_EQ(entry->isDirty(), accepted) << button;
        }
    }
    // On the cells that have the shades.
    EXPECT_EQ(native("txtSales", 9)->palette().color(QPalette::Active, QPalette::Base),
              toQt(form().get<TextBox>("txtSales", 9).backColor()));
    int shaded = 0;
    for (int row = 0; row <= 10; ++row)
        shaded += native("txtSales", row)->palette().color(QPalette::Active, QPalette::Base) ==
                          rows[1].after
                      ? 1
                      : 0;
    EXPECT_GT(shaded, 0);
}

TEST_F(OptionsPage, TheCurrencySymbolFollowsEachKey) {
    const auto beside = [this] {
        std::set<QString> texts;
        for (const char* array : {"lblCurrency", "lblQCurrency"})
            for (int i = 0; i <= form().upperBound(array); ++i)
                if (form().find(array, i) != nullptr)
                    texts.insert(native<QLabel>(array, i)->text());
        return texts;
    };
    auto* field = native("txtCurSymbol");
    QTest::mouseClick(field, Qt::LeftButton);
    EXPECT_EQ(field->selectedText(), "$") << "typing replaces it";
    QString typed;
    for (const char key : {'E', 'U', 'R'}) {
        QTest::keyClick(field, key);
        typed += QChar(key);
        EXPECT_EQ(field->text(), typed);
        EXPECT_EQ(beside(), std::set<QString>{typed});
    }
    QTest::keyClick(field, Qt::Key_Backspace);
    EXPECT_EQ(beside(), std::set<QString>{"EU"});
    QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(beside(), std::set<QString>{"EUR"});
    EXPECT_FALSE(entry->isDirty());
    QTest::keyClick(field, Qt::Key_Tab);
    EXPECT_TRUE(entry->isDirty());
}

TEST_F(OptionsPage, AnAmpersandInTheCurrencySymbolIsShownAndNoMnemonic) {
    auto* field = native("txtCurSymbol");
    QTest::mouseClick(field, Qt::LeftButton);
    QTest::keyClick(field, '&');
    QTest::keyClick(field, 'k');
    EXPECT_EQ(field->text(), "&k");
    EXPECT_FALSE(form().hasMnemonic('K'));
    entry->setCurrentTab(toCompany);
    EXPECT_FALSE(form().hasMnemonic('K'));
    EXPECT_EQ(native<QLabel>("lblCurrency", 0)->text(), "&&k") << "the widget's notation for it";
}

TEST_F(OptionsPage, TheUnitRedrawsEveryMoneyFieldAndItsCaption) {
    const std::map<std::string, bool> scaled = {
        {"txtPrefDiv", true},   {"txtDilutedShares", true},   {"txtCommonShares", true},
        {"txtTotalDebt", true}, {"txtPreferredShares", true}, {"txtTotalCap", true},
        {"txtSales", true},     {"txtYNetInc", true},         {"txtCSO", true},
        {"txtYOption2", true},  {"txtYOption", true},         {"txtQOption", true},
        {"txtRevenue", true},   {"txtNetInc", true}};
    struct Row {
        int option;
        double factor;
        const char* suffix;
    };
    const auto millions = shown();
    for (const auto& row : {Row{0, 1000, "(K)"}, Row{2, 0.001, "(B)"}, Row{1, 1, "(M)"}}) {
        entry->setDirty(false);
        click("optCurrency", row.option);
        EXPECT_TRUE(chosen("optCurrency", row.option));
        EXPECT_TRUE(entry->isDirty());
        int redrawn = 0;
        for (const auto& [id, text] : shown()) {
            const QString before = millions.at(id);
            if (scaled.contains(id.substr(0, id.find('('))) && !before.isEmpty()) {
                EXPECT_NEAR(text.toDouble(), before.toDouble() * row.factor, 0.006) << id;
                EXPECT_FALSE(text.isEmpty()) << id;
                ++redrawn;
            } else if (before.endsWith("(M)")) {
                EXPECT_TRUE(text.endsWith(row.suffix)) << id << text.toStdString();
                ++redrawn;
            } else {
                EXPECT_EQ(text, before) << id;
            }
        }
        EXPECT_EQ(redrawn, 6 + 5 * 11 + 3 * 9 + 14);
    }
}

TEST_F(OptionsPage, FractionsAreShownInEveryPriceAndNowhereElse) {
    const auto decimals = shown();
    entry->setDirty(false);
    click("optDisplay", 1);
    EXPECT_TRUE(entry->isDirty());
    EXPECT_TRUE(entry->fractionDisplay());
    auto expected = decimals;
    expected["txtCurrentPrice"] = "3 1/8";
    expected["txt52WHigh"] = "4 1/2";
    expected["txt52WLow"] = "2 3/4";
    for (int row = 0; row <= 10; ++row) {
        const std::string cell = "(" + std::to_string(row) + ")";
        expected["txtHigh" + cell] = QString("%1 3/8").arg(20 + 10 - row);
        expected["txtLow" + cell] = QString("%1 5/8").arg(10 + 10 - row);
    }
    EXPECT_EQ(shown(), expected);
    click("optDisplay", 0);
    EXPECT_EQ(shown(), decimals);
}

TEST_F(OptionsPage, ChoosingWhatIsChosenByClickOrKeyChangesNothing) {
    const auto before = shown();
    struct Row {
        const char* option;
        int index;
    };
    for (const auto& row :
         {Row{"optCurrency", 1}, Row{"optDisplay", 0}, Row{"optPTI", 0}, Row{"optCommEq", 0}}) {
        click(row.option, row.index);
        EXPECT_TRUE(chosen(row.option, row.index));
        EXPECT_EQ(QApplication::focusWidget(), native<QWidget>(row.option, row.index));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        EXPECT_TRUE(chosen(row.option, row.index));
        EXPECT_FALSE(entry->isDirty()) << row.option;
    }
    EXPECT_EQ(shown(), before);
}

TEST_F(OptionsPage, TheRightButtonOpensTheMenuOfAnOptionAndChoosesNothing) {
    struct Row {
        const char* option;
        int last;
        const char* help; // how it begins
    };
    for (const auto& row : {Row{"optCurrency", 2, "Whether money and share counts"},
                            Row{"optDisplay", 1, "Whether share prices"},
                            Row{"optPTI", 1, "Whether you enter income"},
                            Row{"optCommEq", 1, "Whether you enter all of the common equity"}})
        for (int index = 0; index <= row.last; ++index) {
            const auto before = shown();
            const bool was = chosen(row.option, index);
            DialogAnswers answers;
            answers.nextEntry("What's This?");
            auto* option = native<QRadioButton>(row.option, index);
            QTest::mouseClick(option, Qt::RightButton);
            EXPECT_TRUE(native<QWidget>("fraDE", frame::help)->isVisible()) << row.option << index;
            EXPECT_TRUE(native<QLabel>("lblToolTip")->text().startsWith(row.help)) << row.option;
            EXPECT_EQ(chosen(row.option, index), was);
            EXPECT_FALSE(entry->isDirty());
            window.activateWindow();
            // Any choice closes the help.
            for (int chosenNow = 0; chosenNow <= row.last; ++chosenNow)
                if (chosen(row.option, chosenNow))
                    click(row.option, chosenNow);
            EXPECT_FALSE(native<QWidget>("fraDE", frame::help)->isVisible());
        }
}

} // namespace
} // namespace vkr
