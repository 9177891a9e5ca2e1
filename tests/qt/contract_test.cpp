// SPDX-License-Identifier: MIT
#include "desktop/vkr_data_entry_widget.hpp"
#include "platform/key_notation.hpp"
#include "tests/support/contract.hpp"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <cstdlib>
#include <deque>
#include <gtest/gtest.h>
#include <stdexcept>

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
        {keys::f1, Qt::Key_F1},
    };
    for (const auto& [code, key] : named)
        if (code == stroke.key)
            return key;
    const bool letter = stroke.key >= 'A' && stroke.key <= 'Z';
    if (letter || stroke.character == 0)
        return static_cast<Qt::Key>(stroke.key);
    return static_cast<Qt::Key>(stroke.character);
}

// Presses a button of every message box that opens: the one in front of the script, else the
// default.
class Answerer final : public QObject {
  public:
    Answerer() { qApp->installEventFilter(this); }

    std::deque<MessageAnswer> script;
    std::vector<std::string> seen;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (auto* box = qobject_cast<QMessageBox*>(watched);
            box != nullptr && event->type() == QEvent::Show)
            QTimer::singleShot(0, box, [this, box] { answer(*box); });
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
};

class QtDriver final : public ContractDriver {
  public:
    QtDriver() {
        auto* layout = new QVBoxLayout(&window_);
        widget_ = new VKRDataEntryWidget(&window_);
        layout->addWidget(widget_);
        layout->addWidget(new QLineEdit(&window_));
        QObject::connect(widget_, &VKRDataEntryWidget::tabChange,
                         [this](int tab) { log("TabChange", tab); });
        QObject::connect(widget_, &VKRDataEntryWidget::moreHelp,
                         [this](int number) { log("MoreHelp", number); });
        QObject::connect(widget_, &VKRDataEntryWidget::unloadRequest,
                         [this](int mode) { log("UnloadRequest", mode); });
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

    static void strike(const KeyStroke& stroke) {
        QWidget* focused = QApplication::focusWidget();
        ASSERT_NE(focused, nullptr);
        Qt::KeyboardModifiers modifiers;
        modifiers.setFlag(Qt::ShiftModifier, (stroke.shift & shifts::shift) != 0);
        modifiers.setFlag(Qt::ControlModifier, (stroke.shift & shifts::control) != 0);
        modifiers.setFlag(Qt::AltModifier, (stroke.shift & shifts::alt) != 0);
        const bool types =
            stroke.character != 0 && (stroke.shift & (shifts::control | shifts::alt)) == 0;
        const QString text = types ? QString::fromUcs4(&stroke.character, 1) : QString();
        QTest::sendKeyEvent(QTest::Click, focused, qtKey(stroke), text, modifiers);
    }

    QWidget window_;
    QWidget other_;
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
