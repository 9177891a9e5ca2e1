// SPDX-License-Identifier: MIT
#include "desktop/qt_values.hpp"
#include "desktop/vkr_data_entry_widget.hpp"
#include "platform/key_notation.hpp"
#include "tests/support/contract.hpp"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTabBar>
#include <QTableView>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdlib>
#include <deque>
#include <gtest/gtest.h>
#include <optional>
#include <stdexcept>

namespace {

int beeps = 0;

} // namespace

// In place of the toolkit's, which nobody could hear here.
void QApplication::beep() {
    ++beeps;
}

namespace vkr {

namespace {

Qt::Key qtKey(const KeyStroke& stroke) {
    static constexpr std::pair<KeyCode, Qt::Key> named[] = {
        {keys::backspace, Qt::Key_Backspace},
        {keys::tab, Qt::Key_Tab},
        {keys::enter, Qt::Key_Return},
        {keys::escape, Qt::Key_Escape},
        {keys::pageUp, Qt::Key_PageUp},
        {keys::pageDown, Qt::Key_PageDown},
        {keys::end, Qt::Key_End},
        {keys::home, Qt::Key_Home},
        {keys::left, Qt::Key_Left},
        {keys::up, Qt::Key_Up},
        {keys::right, Qt::Key_Right},
        {keys::down, Qt::Key_Down},
        {keys::del, Qt::Key_Delete},
        {keys::menu, Qt::Key_Menu},
        {keys::f1, Qt::Key_F1},
        {keys::f4, Qt::Key_F4},
        {keys::f10, Qt::Key_F10},
        {keys::apostrophe, Qt::Key_Apostrophe},
    };
    for (const auto& [code, key] : named)
        if (code == stroke.key)
            return key;
    if (stroke.key == keys::decimal)
        return Qt::Key_Period;
    const bool letter = stroke.key >= 'A' && stroke.key <= 'Z';
    if (letter || stroke.character == 0)
        return static_cast<Qt::Key>(stroke.key);
    return static_cast<Qt::Key>(stroke.character);
}

// Works every message box, menu and calendar that opens with the pointer: what is in front of its
// script, else the default button or no choice.
class Answerer final : public QObject {
  public:
    Answerer() { qApp->installEventFilter(this); }

    std::deque<MessageAnswer> script;
    std::vector<std::string> seen;
    std::deque<std::string> menuScript;
    std::vector<std::string> lastMenu;
    std::deque<std::optional<Date>> dateScript;
    std::vector<Date> calendars;
    struct PasteAnswer {
        std::vector<std::pair<int, int>> switches;
        bool ok;
    };
    std::deque<PasteAnswer> pasteScript;
    std::vector<std::string> lastPaste;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Show)
            return false;
        if (auto* box = qobject_cast<QMessageBox*>(watched))
            QTimer::singleShot(0, box, [this, box] { answer(*box); });
        else if (auto* menu = qobject_cast<QMenu*>(watched))
            QTimer::singleShot(0, menu, [this, menu] { choose(*menu); });
        else if (auto* dialog = qobject_cast<QDialog*>(watched); dialog == nullptr)
            return false;
        else if (dialog->findChild<QCalendarWidget*>() != nullptr)
            QTimer::singleShot(0, dialog, [this, dialog] { pick(*dialog); });
        else if (dialog->findChild<QTableWidget*>(QStringLiteral("pasteLines")) != nullptr)
            QTimer::singleShot(0, dialog, [this, dialog] { paste(*dialog); });
        return false;
    }

  private:
    void answer(QMessageBox& box) {
        seen.push_back(box.text().toStdString());
        QAbstractButton* button = box.defaultButton();
        if (!script.empty()) {
            button = box.button(script.front() == MessageAnswer::yes  ? QMessageBox::Yes
                                : script.front() == MessageAnswer::no ? QMessageBox::No
                                                                      : QMessageBox::Ok);
            script.pop_front();
        }
        ASSERT_NE(button, nullptr);
        button->click();
    }

    void choose(QMenu& menu) {
        lastMenu.clear();
        for (const auto* action : menu.actions()) {
            const auto caption = action->isSeparator() ? "-" : action->text().toStdString();
            lastMenu.push_back(action->isEnabled() || action->isSeparator() ? caption
                                                                            : "(" + caption + ")");
        }
        if (menuScript.empty()) {
            QTest::keyClick(&menu, Qt::Key_Escape);
            return;
        }
        const auto wanted = QString::fromStdString(menuScript.front());
        menuScript.pop_front();
        for (auto* action : menu.actions())
            if (action->text().remove(u'&') == wanted) {
                QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
                break;
            }
        if (menu.isVisible()) // not there, or disabled
            QTest::keyClick(&menu, Qt::Key_Escape);
    }

    void pick(QDialog& dialog) {
        auto& calendar = *dialog.findChild<QCalendarWidget*>();
        calendars.push_back(fromQt(calendar.selectedDate()).value_or(Date{}));
        std::optional<Date> day;
        if (!dateScript.empty()) {
            day = dateScript.front();
            dateScript.pop_front();
        }
        if (day) {
            const QDate wanted = toQt(*day);
            calendar.setCurrentPage(wanted.year(), wanted.month());
            clickDay(calendar, wanted.day());
            EXPECT_EQ(calendar.selectedDate(), wanted);
        }
        const auto* buttons = dialog.findChild<QDialogButtonBox*>();
        QTest::mouseClick(buttons->button(day ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel),
                          Qt::LeftButton);
    }

    // By keys alone.
    void paste(QDialog& dialog) {
        auto& ok = *dialog.findChild<QPushButton*>(QStringLiteral("pasteOk"));
        auto& lines = *dialog.findChild<QTableWidget*>(QStringLiteral("pasteLines"));
        lastPaste.clear();
        for (int row = 0; row < lines.rowCount(); ++row) {
            QStringList texts;
            for (int column = 0; column < lines.columnCount(); ++column)
                texts << lines.item(row, column)->text();
            lastPaste.push_back(texts.join(u'|').toStdString());
        }
        lastPaste.push_back(ok.text().remove(u'&').toStdString());
        const PasteAnswer answer =
            pasteScript.empty() ? PasteAnswer{{}, false} : pasteScript.front();
        if (!pasteScript.empty())
            pasteScript.pop_front();
        for (const auto& [index, chosen] : answer.switches) {
            auto* one = dialog.findChild<QWidget*>(QStringLiteral("pasteSwitch%1").arg(index));
            ASSERT_NE(one, nullptr);
            if (auto* box = qobject_cast<QCheckBox*>(one)) {
                if (box->isChecked() != (chosen != 0))
                    QTest::keyClick(box, Qt::Key_Space);
            } else {
                QTest::keyClick(one, Qt::Key_Home);
                for (int step = 0; step < chosen; ++step)
                    QTest::keyClick(one, Qt::Key_Down);
            }
        }
        QTest::keyClick(&dialog, answer.ok ? Qt::Key_Return : Qt::Key_Escape);
    }

    // The days of the month before and after the one on show are in the table as well.
    static void clickDay(QCalendarWidget& calendar, int wanted) {
        auto* view = calendar.findChild<QTableView*>(QStringLiteral("qt_calendar_calendarview"));
        ASSERT_NE(view, nullptr);
        int months = 0;
        for (int row = 0; row < view->model()->rowCount(); ++row)
            for (int column = 0; column < view->model()->columnCount(); ++column) {
                const auto index = view->model()->index(row, column);
                const int day = index.data().toInt();
                months += day == 1 ? 1 : 0;
                if (months == 1 && day == wanted) {
                    QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                                      view->visualRect(index).center());
                    return;
                }
            }
    }
};

class QtDriver final : public ContractDriver {
  public:
    QtDriver() {
        auto* layout = new QVBoxLayout(&window_);
        widget_ = new VKRDataEntryWidget(&window_);
        layout->addWidget(widget_);
        layout->addWidget(host_ = new QLineEdit(&window_));
        QObject::connect(widget_, &VKRDataEntryWidget::tabChange,
                         [this](int tab) { log("TabChange", tab); });
        QObject::connect(widget_, &VKRDataEntryWidget::moreHelp,
                         [this](int number) { log("MoreHelp", number); });
        QObject::connect(widget_, &VKRDataEntryWidget::assistant,
                         [this](int object, const QVariant& value) {
                             log_.push_back("Assistant " + std::to_string(object) + " " +
                                            value.toString().toStdString());
                         });
        QObject::connect(widget_, &VKRDataEntryWidget::unloadRequest,
                         [this](int mode) { log("UnloadRequest", mode); });
        beeps = 0;
        widget_->setCompany(std::make_shared<CompanyRecord>());
        window_.show();
        QApplication::setActiveWindow(&window_);
        QApplication::processEvents();
    }

    VKRDataEntry& entry() override { return widget_->component(); }

    void type(std::string_view notation) override {
        for (const KeyStroke& stroke : parseKeyNotation(notation))
            for (int i = 0; i < stroke.count; ++i) {
                strike(stroke);
                activateAgain();
            }
    }

    void hold(std::string_view notation, int times) override {
        for (const KeyStroke& stroke : parseKeyNotation(notation)) {
            const QString text = QString::fromUcs4(&stroke.character, 1);
            for (int i = 0; i < times; ++i) {
                QKeyEvent held(QEvent::KeyPress, qtKey(stroke), modifiersOf(stroke), text, i > 0);
                QApplication::sendEvent(QApplication::focusWidget(), &held);
            }
            QTest::keyRelease(QApplication::focusWidget(), qtKey(stroke), modifiersOf(stroke));
        }
    }

    void click(std::string_view id) override {
        QWidget& target = native(id);
        const QPoint place = dynamic_cast<QLineEdit*>(&target) != nullptr
                                 ? target.rect().center()
                                 : QPoint(10, target.height() / 2);
        QTest::mouseClick(&target, Qt::LeftButton, Qt::NoModifier, place);
        activateAgain();
    }

    void doubleClick(std::string_view id) override {
        QWidget& target = native(id);
        QTest::mouseClick(&target, Qt::LeftButton);
        QTest::mouseDClick(&target, Qt::LeftButton);
        QTest::mouseRelease(&target, Qt::LeftButton);
        activateAgain();
    }

    void rightClick(std::string_view id) override {
        QWidget& target = native(id);
        auto* lines = qobject_cast<QPlainTextEdit*>(&target);
        QTest::mouseClick(lines == nullptr ? &target : lines->viewport(), Qt::RightButton,
                          Qt::NoModifier, QPoint(10, std::min(10, target.height() / 2)));
        activateAgain();
    }

    void rightClickTab(int tab) override {
        auto& bar = dynamic_cast<QTabBar&>(native("tbsDataEntry"));
        QTest::mouseClick(&bar, Qt::RightButton, Qt::NoModifier, bar.tabRect(tab - 1).center());
        activateAgain();
    }

    // With the upper or the lower one of the two arrows.
    void spin(std::string_view id, int steps) override {
        QWidget& arrows = native(id);
        const QPoint place(arrows.width() / 2, arrows.height() * (steps > 0 ? 1 : 3) / 4);
        auto* arrow = qobject_cast<QAbstractButton*>(arrows.childAt(place));
        ASSERT_NE(arrow, nullptr);
        for (int step = 0; step < std::abs(steps); ++step) {
            QTest::mouseClick(arrow, Qt::LeftButton);
            activateAgain();
        }
    }

    void dragOff(std::string_view id) override {
        QWidget& target = native(id);
        const QPoint place(10, target.height() / 2);
        QTest::mousePress(&target, Qt::LeftButton, {}, place);
        const QPoint beside(place.x(), -2 * target.height());
        QTest::mouseMove(&target, beside);
        QTest::mouseRelease(&target, Qt::LeftButton, {}, beside);
    }

    void drag(std::string_view from, std::string_view to) override {
        QWidget& pressed = native(from);
        const QPoint place = pressed.rect().center();
        QWidget& over = native(to);
        QTest::mousePress(&pressed, Qt::LeftButton, {}, place);
        for (const QPoint& global :
             {over.mapToGlobal(QPoint(3, 3)), over.mapToGlobal(over.rect().center())}) {
            const QPoint local = pressed.mapFromGlobal(global);
            QMouseEvent moved(QEvent::MouseMove, local, global, Qt::NoButton, Qt::LeftButton,
                              Qt::NoModifier);
            QApplication::sendEvent(&pressed, &moved);
        }
        QTest::mouseRelease(&pressed, Qt::LeftButton, {},
                            pressed.mapFromGlobal(over.mapToGlobal(over.rect().center())));
    }
    void nextPaste(std::vector<std::pair<int, int>> switches, bool ok) override {
        answerer_.pasteScript.push_back({std::move(switches), ok});
    }
    std::vector<std::string> lastPaste() override { return answerer_.lastPaste; }
    bool isHighlighted(std::string_view id) override {
        const QWidget& shown = native(id);
        return shown.palette().color(QPalette::Base) ==
               widget_->palette().color(QPalette::Highlight);
    }

    void clickTab(int tab) override {
        auto& bar = dynamic_cast<QTabBar&>(native("tbsDataEntry"));
        QTest::mouseClick(&bar, Qt::LeftButton, Qt::NoModifier, bar.tabRect(tab - 1).center());
    }

    void pick(std::string_view id, std::string_view item) override {
        auto& combo = dynamic_cast<QComboBox&>(native(id));
        const int row =
            combo.findText(QString::fromUtf8(item.data(), static_cast<qsizetype>(item.size())));
        ASSERT_GE(row, 0);
        QTest::mouseClick(&combo, Qt::LeftButton, Qt::NoModifier,
                          QPoint(combo.width() - 8, combo.height() / 2));
        auto* view = combo.view();
        ASSERT_TRUE(view->isVisible());
        QTest::keyClick(view, Qt::Key_Home);
        for (int step = 0; step < row; ++step)
            QTest::keyClick(view, Qt::Key_Down);
        QTest::keyClick(view, Qt::Key_Return);
    }

    void answerNext(MessageAnswer answer) override { answerer_.script.push_back(answer); }
    void nextMenuEntry(const std::string& caption) override {
        answerer_.menuScript.push_back(caption);
    }
    void nextDate(std::optional<Date> date) override { answerer_.dateScript.push_back(date); }
    std::string clipboard() override { return QApplication::clipboard()->text().toStdString(); }
    void setClipboard(const std::string& text) override {
        QApplication::clipboard()->setText(QString::fromStdString(text));
    }
    void switchAway() override {
        other_.show();
        QApplication::setActiveWindow(&other_);
        QApplication::processEvents();
    }
    void switchBack() override {
        other_.hide();
        QApplication::setActiveWindow(&window_);
        QApplication::processEvents();
    }

    void leaveToHost() override { QTest::mouseClick(host_, Qt::LeftButton); }
    void tabFromHost(FocusDirection direction) override {
        host_->setFocus();
        if (direction == FocusDirection::forward)
            QTest::keyClick(host_, Qt::Key_Tab);
        else
            QTest::keyClick(host_, Qt::Key_Backtab, Qt::ShiftModifier);
    }
    void addHostShortcut(std::string_view notation) override {
        for (const KeyStroke& stroke : parseKeyNotation(notation)) {
            auto* shortcut = new QShortcut(
                QKeySequence(QKeyCombination(modifiersOf(stroke), qtKey(stroke))), &window_);
            QObject::connect(shortcut, &QShortcut::activated, [this] { ++fired_; });
        }
    }
    int hostShortcutsFired() override { return fired_; }

    bool canReach(std::string_view id) override {
        const auto* found = find(id);
        return found != nullptr && found->isEnabled() && !found->visibleRegion().isEmpty();
    }
    std::string shownText(std::string_view id) override {
        QWidget& shown = native(id);
        if (const auto* edit = qobject_cast<QLineEdit*>(&shown))
            return edit->text().toStdString();
        if (const auto* combo = qobject_cast<QComboBox*>(&shown))
            return combo->currentText().toStdString();
        return dynamic_cast<QPlainTextEdit&>(shown).toPlainText().toStdString();
    }

    std::string focusedId() override {
        for (QWidget* focused = QApplication::focusWidget(); focused != nullptr;
             focused = focused->parentWidget())
            for (const auto& control : entry().form().controls())
                if (control->id() == focused->objectName().toStdString())
                    return control->id();
        return {};
    }

    std::string heardName(std::string_view id) override {
        return native(id).accessibleName().toStdString();
    }
    std::string heardMark(std::string_view id) override {
        return native(id).accessibleDescription().toStdString();
    }
    std::string note() override {
        const auto* label = widget_->findChild<QLabel*>(QStringLiteral("note"));
        return label != nullptr && label->isVisible() ? label->text().toStdString() : "";
    }

    int refusals() override { return beeps; }

    bool liesInside(std::string_view id) override {
        const QWidget& shown = native(id);
        return widget_->rect().contains(QRect(shown.mapTo(widget_, QPoint(0, 0)), shown.size()));
    }
    std::vector<std::string> lastMenu() override { return answerer_.lastMenu; }
    std::vector<Date> calendars() override { return answerer_.calendars; }
    std::vector<std::string> messages() override { return answerer_.seen; }
    std::vector<std::string>& events() override { return log_; }

  private:
    void log(const char* event, int number) {
        log_.push_back(std::string(event) + " " + std::to_string(number));
    }

    // Without a window manager no window becomes active when a message box has closed.
    void activateAgain() {
        if (QApplication::activeWindow() != nullptr)
            return;
        QApplication::setActiveWindow(&window_);
        QApplication::processEvents();
    }

    [[nodiscard]] QWidget* find(std::string_view id) const {
        return widget_->findChild<QWidget*>(
            QString::fromUtf8(id.data(), static_cast<qsizetype>(id.size())));
    }

    QWidget& native(std::string_view id) {
        auto* found = find(id);
        if (found == nullptr || found->visibleRegion().isEmpty())
            throw std::out_of_range("not on screen: " + std::string(id));
        return *found;
    }

    static Qt::KeyboardModifiers modifiersOf(const KeyStroke& stroke) {
        Qt::KeyboardModifiers modifiers;
        modifiers.setFlag(Qt::ShiftModifier, (stroke.shift & shifts::shift) != 0);
        modifiers.setFlag(Qt::ControlModifier, (stroke.shift & shifts::control) != 0);
        modifiers.setFlag(Qt::AltModifier, (stroke.shift & shifts::alt) != 0);
        return modifiers;
    }

    static void strike(const KeyStroke& stroke) {
        QWidget* focused = QApplication::focusWidget();
        ASSERT_NE(focused, nullptr);
        Qt::KeyboardModifiers modifiers = modifiersOf(stroke);
        modifiers.setFlag(Qt::KeypadModifier, stroke.key == keys::decimal);
        const bool types =
            stroke.character != 0 && (stroke.shift & (shifts::control | shifts::alt)) == 0;
        const QString text = types ? QString::fromUcs4(&stroke.character, 1) : QString();
        QTest::sendKeyEvent(QTest::Click, focused, qtKey(stroke), text, modifiers);
    }

    QWidget window_;
    QWidget other_;
    QLineEdit* host_ = nullptr; // a field of the host
    int fired_ = 0;
    VKRDataEntryWidget* widget_ = nullptr;
    Answerer answerer_;
    std::vector<std::string> log_;
};

class OnQt : public testing::TestWithParam<ContractScene> {};

TEST_P(OnQt, Scene) {
    QtDriver desktop;
    GetParam().play(desktop);
}

INSTANTIATE_TEST_SUITE_P(Contract, OnQt, testing::ValuesIn(contractScenes()),
                         [](const auto& scene) { return std::string(scene.param.name); });

} // namespace

} // namespace vkr
