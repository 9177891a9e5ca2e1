// SPDX-License-Identifier: MIT
// Every dialog of the program, worked by keys alone: Tab and Shift+Tab, Return, Escape, letters.
//
// With VKR_PICTURES=<folder> each one is drawn there, light and dark; QT_SCALE_FACTOR=1.5 and the
// like choose the scale.
#include "tests/qt/support/dialog_openers.hpp"
#include "tests/qt/support/drawn_texts.hpp"
#include "tools/themes.hpp"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressDialog>
#include <QStyleOptionButton>
#include <QToolButton>

#include <algorithm>
#include <functional>
#include <map>
#include <set>

namespace vkr {
namespace {

struct DialogRow {
    const char* name;
    void (DialogOpeners::*open)();
    // Buttons of the questions that come before it.
    QStringList before = {};
    // Of those that follow one another down a column: they are left of what has its place to the
    // right of them.
    QStringList column = {};
    // Takes Return for itself, and closes the dialog.
    QStringList takesReturn = {};
    // It is there while something takes its time; else it is waited for.
    bool isProgress = false;
    bool isOfAServer = false;
};

void PrintTo(const DialogRow& row, std::ostream* out) {
    *out << row.name;
}

// In reading order below or behind one another.
bool isBehind(const QRect& place, const QRect& before) {
    const bool sameLine =
        place.center().y() <= before.bottom() && before.center().y() <= place.bottom();
    return sameLine ? place.left() >= before.left() : place.top() >= before.top();
}

class DialogTest : public DialogOpeners {
  protected:
    static std::string nameOf(const QWidget* widget) {
        if (widget == nullptr)
            return "nothing";
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        return (widget->objectName() + u' ' + (button == nullptr ? QString() : button->text()))
                   .toStdString() +
               "(" + widget->metaObject()->className() + ")";
    }
    static QRect placeOf(const QWidget& widget) {
        return {widget.mapTo(widget.window(), QPoint()), widget.size()};
    }
    // Where the focus can come to by Tab.
    static std::vector<QWidget*> stops(QWidget& dialog) {
        std::vector<QWidget*> found;
        for (auto* widget : dialog.findChildren<QWidget*>())
            if (widget->isVisibleTo(&dialog) && widget->isEnabled() && !widget->isWindow() &&
                widget->window() == dialog.window() &&
                (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->focusProxy() == nullptr)
                found.push_back(widget);
        return found;
    }
    static bool isPartOf(const QWidget& widget, const std::vector<QWidget*>& others) {
        for (const QWidget* above = &widget; above != nullptr; above = above->parentWidget())
            if (std::ranges::find(others, above) != others.end() ||
                (above->focusProxy() != nullptr && // a part stands for all of it
                 std::ranges::find(others, above->focusProxy()) != others.end()))
                return true;
        return false;
    }
    static QKeySequence letterOf(const QWidget& widget) {
        if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
            return button->shortcut().isEmpty() ? QKeySequence::mnemonic(button->text())
                                                : button->shortcut();
        if (const auto* label = qobject_cast<const QLabel*>(&widget);
            label != nullptr && label->buddy() != nullptr)
            return QKeySequence::mnemonic(label->text());
        return {};
    }
    // What a list shows is scrolled.
    static bool isPartOfAView(const QWidget& widget) {
        for (const QWidget* above = widget.parentWidget(); above != nullptr;
             above = above->parentWidget())
            if (qobject_cast<const QAbstractScrollArea*>(above) != nullptr)
                return true;
        return false;
    }
    static QPushButton* defaultOf(QDialog& dialog) {
        for (auto* button : dialog.findChildren<QPushButton*>())
            if (button->isDefault() && button->isVisible())
                return button;
        return nullptr;
    }
    static void draw(QWidget& dialog, const char* name) {
        const QString folder = qEnvironmentVariable("VKR_PICTURES");
        if (folder.isEmpty())
            return;
        const QPalette before = QApplication::palette();
        for (const Theme* theme : {&light, &dark}) {
            QApplication::setPalette(paletteOf(*theme));
            QApplication::processEvents();
            const int percent = qRound(dialog.devicePixelRatioF() * 100);
            const QString file = QStringLiteral("%1/%2-%3-%4.png")
                                     .arg(folder, QLatin1String(name))
                                     .arg(percent)
                                     .arg(QLatin1String(theme->name));
            EXPECT_TRUE(dialog.grab().save(file)) << file.toStdString();
        }
        QApplication::setPalette(before);
    }
    // Where a widget has its texts; nothing where it has none.
    static std::vector<QRect> textPlaces(const QWidget& widget) {
        const QRect whole = widget.rect();
        if (const auto* label = qobject_cast<const QLabel*>(&widget))
            return label->text().isEmpty() ? std::vector<QRect>() : std::vector{whole};
        if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
            if (button->text().isEmpty())
                return {};
            if (!button->isCheckable() || qobject_cast<const QCheckBox*>(button) == nullptr)
                return {whole.adjusted(6, 4, -6, -4)};
            QStyleOptionButton option;
            option.initFrom(button);
            return {button->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, button)};
        }
        if (const auto* list = qobject_cast<const QComboBox*>(&widget))
            return {whole.adjusted(4, 4, -list->height(), -4)};
        if (const auto* edit = qobject_cast<const QLineEdit*>(&widget))
            return edit->text().isEmpty() ? std::vector<QRect>()
                                          : std::vector{whole.adjusted(4, 4, -4, -4)};
        if (const auto* text = qobject_cast<const QPlainTextEdit*>(&widget))
            return text->toPlainText().isEmpty() ? std::vector<QRect>() : std::vector{whole};
        return {};
    }
    // The cells of a view that are on show and have a text.
    static std::set<QModelIndex> cellsOnShow(const QAbstractItemView& view) {
        constexpr int stepX = 16;
        constexpr int stepY = 6;
        std::set<QModelIndex> cells;
        for (int y = 0; y < view.viewport()->height(); y += stepY)
            for (int x = 0; x < view.viewport()->width(); x += stepX)
                if (const auto cell = view.indexAt({x, y});
                    !cell.data().toString().trimmed().isEmpty() &&
                    view.viewport()->rect().contains(view.visualRect(cell)))
                    cells.insert(cell);
        return cells;
    }
    static int expectReadable(QDialog& dialog, const char* theme) {
        int read = 0;
        const QImage image = drawn(dialog);
        const auto expect = [&](const QWidget& in, const QRect& text, double least) {
            if (!in.visibleRegion().contains(text.center()))
                return;
            const QRect place(in.mapTo(&dialog, text.topLeft()), text.size());
            EXPECT_GE(look(image, place).contrast, least)
                << theme << ": " << nameOf(&in) << " at " << place.x() << ", " << place.y();
            ++read;
        };
        for (const auto* widget : dialog.findChildren<QWidget*>()) {
            if (!widget->isVisible() || widget->window() != &dialog)
                continue;
            if (widget->isEnabled()) // how others look is the style's
                for (const QRect& text : textPlaces(*widget))
                    expect(*widget, text, textContrast);
            if (const auto* view = qobject_cast<const QAbstractItemView*>(widget))
                for (const QModelIndex& cell : cellsOnShow(*view))
                    expect(*view->viewport(), view->visualRect(cell).adjusted(1, 1, -1, -1),
                           (cell.flags() & Qt::ItemIsEnabled) != 0 ? textContrast : signContrast);
        }
        return read;
    }
    static void expectNothingIsCutOff(const QWidget& window) {
        for (const auto* widget : window.findChildren<QWidget*>()) {
            if (!widget->isVisibleTo(&window) || widget->window() != window.window())
                continue;
            const auto* label = qobject_cast<const QLabel*>(widget);
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            const auto* list = qobject_cast<const QComboBox*>(widget);
            if ((button != nullptr && !button->text().isEmpty()) || list != nullptr ||
                (label != nullptr && !label->wordWrap())) {
                EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << nameOf(widget);
                EXPECT_GE(widget->height(), widget->minimumSizeHint().height()) << nameOf(widget);
            } else if (label != nullptr) {
                EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                    << label->text().toStdString();
            }
            EXPECT_TRUE(window.window()->rect().contains(placeOf(*widget)) ||
                        isPartOfAView(*widget))
                << nameOf(widget);
        }
    }
};

class Dialogs : public DialogTest, public testing::WithParamInterface<DialogRow> {
  protected:
    void SetUp() override {
        if (GetParam().isOfAServer && !test::PostgresServer::instance().absence().isEmpty())
            GTEST_SKIP() << "PostgreSQL is not tested: "
                         << test::PostgresServer::instance().absence().toStdString();
    }
    // Opens the dialog, and does that with it.
    void whileOpen(const std::function<void(QDialog&)>& act) {
        bool isDone = false;
        QStringList before = GetParam().before;
        const auto use = [&](QDialog& dialog) {
            isDone = true;
            user_.activate(dialog);
            act(dialog);
            if (dialog.isVisible())
                dialog.reject();
        };
        QTimer waiting;
        QObject::connect(&waiting, &QTimer::timeout, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr || !dialog->isVisible() ||
                (qobject_cast<QProgressDialog*>(dialog) != nullptr && !GetParam().isProgress))
                return;
            if (isDone)
                return dialog->reject(); // what follows it
            if (!before.isEmpty())
                return press(*dialog, before.takeFirst());
            use(*dialog);
        });
        waiting.start(0);
        (this->*GetParam().open)();
        waiting.stop();
        if (!isDone) // it stands beside the window
            for (QWidget* window : QApplication::topLevelWidgets())
                if (auto* dialog = qobject_cast<QDialog*>(window);
                    dialog != nullptr && dialog->isVisible() && !isDone)
                    use(*dialog);
        EXPECT_TRUE(isDone) << "no dialog came up";
        for (CompanyWindow* window : host_->windows())
            window->discard();
    }
    static void press(QDialog& question, const QString& label) {
        for (auto* button : question.findChildren<QAbstractButton*>())
            if (button->text().remove(u'&') == label)
                return button->click();
        ADD_FAILURE() << "no button " << label.toStdString();
        question.reject();
    }

    // As a person would have filled it in, so that everything can be done.
    static void fillIn(QDialog& dialog) {
        for (const auto& [name, text] : {std::pair("ratio", "4:1"), {"effective", "2020-08-31"}})
            if (auto* edit = dialog.findChild<QLineEdit*>(name))
                edit->setText(text);
        if (auto* tick = dialog.findChild<QPushButton*>("tickShown"))
            tick->click();
        QApplication::processEvents();
    }
};

TEST_P(Dialogs, TabComesToEverythingOnceInReadingOrderAndBack) {
    whileOpen([&](QDialog& dialog) {
        fillIn(dialog);
        draw(dialog, GetParam().name);
        const std::vector<QWidget*> all = stops(dialog);
        ASSERT_FALSE(all.empty());
        QWidget* const start = QApplication::focusWidget();
        ASSERT_NE(start, nullptr);
        EXPECT_TRUE(std::ranges::find(all, start) != all.end()) << nameOf(start);
        std::vector<QWidget*> visited;
        do {
            visited.push_back(QApplication::focusWidget());
            user_.press(Qt::Key_Tab);
        } while (QApplication::focusWidget() != start && visited.size() <= all.size());
        EXPECT_EQ(QApplication::focusWidget(), start);
        for (QWidget* stop : all)
            EXPECT_EQ(std::ranges::count(visited, stop), 1) << nameOf(stop);
        for (QWidget* stop : visited)
            EXPECT_TRUE(std::ranges::find(all, stop) != all.end()) << nameOf(stop);

        std::vector<QWidget*> back;
        for (std::size_t i = 0; i < visited.size(); ++i) {
            user_.press(Qt::Key_Tab, Qt::ShiftModifier);
            back.push_back(QApplication::focusWidget());
        }
        EXPECT_TRUE(std::ranges::equal(visited, std::vector(back.rbegin(), back.rend())));

        const auto first = std::ranges::find_if(visited, [&](const QWidget* one) {
            return std::ranges::all_of(visited, [&](const QWidget* other) {
                return other == one || !isBehind(placeOf(*one), placeOf(*other)) ||
                       isBehind(placeOf(*other), placeOf(*one));
            });
        });
        ASSERT_NE(first, visited.end()) << "nothing is above and left of all others";
        std::ranges::rotate(visited, first);
        for (std::size_t i = 1; i < visited.size(); ++i)
            EXPECT_TRUE(isBehind(placeOf(*visited[i]), placeOf(*visited[i - 1])) ||
                        GetParam().column.contains(visited[i - 1]->objectName()))
                << nameOf(visited[i]) << " after " << nameOf(visited[i - 1]);
    });
}

TEST_P(Dialogs, EverythingIsReachedByKeysAndNoLetterLeadsToTwo) {
    whileOpen([&](QDialog& dialog) {
        fillIn(dialog);
        const std::vector<QWidget*> all = stops(dialog);
        std::map<QString, const QWidget*> letters;
        for (const auto* widget : dialog.findChildren<QWidget*>()) {
            if (!widget->isVisibleTo(&dialog) || !widget->isEnabled() ||
                widget->window() != &dialog)
                continue;
            const bool canBeWorked = qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                                     qobject_cast<const QLineEdit*>(widget) != nullptr ||
                                     qobject_cast<const QComboBox*>(widget) != nullptr ||
                                     qobject_cast<const QAbstractItemView*>(widget) != nullptr ||
                                     qobject_cast<const QPlainTextEdit*>(widget) != nullptr;
            const QKeySequence letter = letterOf(*widget);
            EXPECT_TRUE(!canBeWorked || isPartOf(*widget, all) || !letter.isEmpty())
                << nameOf(widget);
            if (!letter.isEmpty()) {
                const auto [other, isNew] = letters.emplace(letter.toString(), widget);
                EXPECT_TRUE(isNew) << letter.toString().toStdString() << ": " << nameOf(widget)
                                   << " and " << nameOf(other->second);
            }
        }
    });
}

TEST_P(Dialogs, EscapeCloses) {
    whileOpen([&](QDialog& dialog) {
        fillIn(dialog);
        user_.press(Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
}

TEST_P(Dialogs, ReturnPressesTheDefaultButtonFromEverywhere) {
    whileOpen([&](QDialog& dialog) {
        fillIn(dialog);
        QPushButton* button = defaultOf(dialog);
        ASSERT_NE(button, nullptr);
        EXPECT_TRUE(button->isEnabled());
        QWidget* const start = QApplication::focusWidget();
        int pressed = 0;
        button->disconnect(); // the dialog stays open
        QObject::connect(button, &QPushButton::clicked, [&] { ++pressed; });
        const auto press = [&](QWidget* from) {
            if (auto* other = qobject_cast<QPushButton*>(from);
                (other != nullptr && other != button) ||
                GetParam().takesReturn.contains(from->objectName()))
                return; // presses itself
            pressed = 0;
            from->setFocus();
            user_.press(Qt::Key_Return);
            EXPECT_EQ(pressed, 1) << "from " << nameOf(from);
        };
        press(start);
        for (QWidget* stop : stops(dialog))
            press(stop);
    });
}

TEST_P(Dialogs, NoCaptionIsCutOff) {
    whileOpen([&](QDialog& dialog) {
        fillIn(dialog);
        expectNothingIsCutOff(dialog);
    });
}

TEST_P(Dialogs, EveryTextCanBeReadInTheLightAndInTheDark) {
    whileOpen([&](QDialog& dialog) {
        fillIn(dialog);
        const QPalette before = QApplication::palette();
        for (const Theme* theme : {&light, &dark}) {
            QApplication::setPalette(paletteOf(*theme));
            QApplication::processEvents();
            EXPECT_GT(expectReadable(dialog, theme->name), 1);
        }
        QApplication::setPalette(before);
    });
}

// The panel beside the form is worked like a dialog.
TEST_F(DialogTest, TheFindingsPanelIsWorkedByKeysAndNothingInItIsCutOff) {
    CompanyWindow& window = open(*host_, "SNOW");
    type(window, "txtDilutedShares", "12");
    QApplication::processEvents();
    user_.press(Qt::Key_L, Qt::ControlModifier);
    auto& panel = *window.findChild<QWidget*>("findings");
    auto& list = *panel.findChild<QListWidget*>("findingsList");
    ASSERT_TRUE(list.hasFocus());
    for (int row = 0; row < list.count(); ++row) {
        list.setCurrentRow(row);
        QApplication::processEvents();
        expectNothingIsCutOff(panel);
        draw(window, QStringLiteral("findings-panel-%1").arg(row).toLatin1());
    }
    const std::vector<QWidget*> all = stops(panel);
    ASSERT_GE(all.size(), 4U); // the list, two buttons, the chart
    for (std::size_t stop = 0; stop < all.size(); ++stop) {
        EXPECT_TRUE(panel.isAncestorOf(QApplication::focusWidget()));
        user_.press(Qt::Key_Tab);
    }
    EXPECT_FALSE(panel.isAncestorOf(QApplication::focusWidget())) << "Tab goes on to the form";
    window.discard();
}

// clang-format off
const DialogRow dialogs[] = {
    {"discard", &DialogOpeners::discard},
    {"unsavable", &DialogOpeners::unsavable},
    {"changes-found", &DialogOpeners::changesFound},
    {"conflict", &DialogOpeners::conflict},
    {"typed-figures", &DialogOpeners::typedFigures, {"Replace"}},
    {"filings", &DialogOpeners::filings},
    {"filings-question", &DialogOpeners::filingsOfANewCompany},
    {"filings-new", &DialogOpeners::filingsOfANewCompany, {"Compare Figures"}},
    {"filings-later", &DialogOpeners::filingsOfLaterPeriods},
    {"filings-shares", &DialogOpeners::filingsOnOtherShares},
    {"filings-other", &DialogOpeners::filingsOfAnotherCompany},
    {"filings-none", &DialogOpeners::filingsThatAreNone},
    {"filings-locked", &DialogOpeners::filingsUnderTheLock},
    {"split", &DialogOpeners::split},
    {"paste", &DialogOpeners::paste, {}, {"pasteSwitch1"}},
    {"paste-fiscal-quarters", &DialogOpeners::pasteFiscalQuarters, {}, {"pasteSwitch1"}},
    {"calendar", &DialogOpeners::calendar, {}, {}, {"qt_calendar_calendarview"}},
    {"history", &DialogOpeners::history},
    {"history-figure", &DialogOpeners::historyOfAFigure},
    {"history-verdict", &DialogOpeners::historyWithAVerdict},
    {"assistant", &DialogOpeners::assistant},
    {"cancel-changes", &DialogOpeners::cancelChanges},
    {"changes-found-discard", &DialogOpeners::changesFound, {"Discard"}},
    {"changes-not-again", &DialogOpeners::changesFoundAfterOthers, {"Restore"}},
    {"conflict-deletion", &DialogOpeners::conflictWithADeletion},
    {"deletion", &DialogOpeners::deletion},
    {"deletion-of-several", &DialogOpeners::deletionOfSeveral},
    {"import-known", &DialogOpeners::typedFigures},
    {"import-known-folder", &DialogOpeners::importFolder},
    {"import-progress", &DialogOpeners::importFolder, {}, {}, {}, true},
    {"import-of-part", &DialogOpeners::importOfPart},
    {"import-refused", &DialogOpeners::importRefused},
    {"export-again", &DialogOpeners::exportAgain},
    {"export-damaged", &DialogOpeners::exportOfADamagedCompany},
    {"damaged", &DialogOpeners::openingADamagedCompany},
    {"history-restore", &DialogOpeners::restoringAState},
    {"history-fewer", &DialogOpeners::fewerSaves},
    {"pdf-refused", &DialogOpeners::pdfRefused},
    {"start-missing", &DialogOpeners::startWithoutAFile},
    {"start-other-file", &DialogOpeners::startWithAnotherFile},
    {"start-empty-server", &DialogOpeners::startOnAnEmptyServer, {}, {}, {}, false, true},
    {"about", &DialogOpeners::about},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(All, Dialogs, testing::ValuesIn(dialogs), [](const auto& row) {
    return QString(row.param.name).remove(u'-').toStdString();
});

} // namespace
} // namespace vkr
