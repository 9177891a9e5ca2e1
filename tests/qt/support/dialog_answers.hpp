// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QCalendarWidget>
#include <QDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace vkr {

// Answers the dialogs and menus that open, one after the other, by clicking what a person would
// click. A dialog that nobody answers is closed, and fails the test.
class DialogAnswers {
  public:
    using Answer = std::function<void(QWidget& dialog)>;

    DialogAnswers() {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
        timer_.start(0);
    }
    ~DialogAnswers() { EXPECT_TRUE(answers_.empty()) << answers_.size() << " never asked for"; }
    DialogAnswers(const DialogAnswers&) = delete;
    DialogAnswers& operator=(const DialogAnswers&) = delete;

    void next(Answer answer) { answers_.push_back(std::move(answer)); }
    // The button with this caption, with or without its "&".
    void nextButton(const QString& caption) {
        next([caption](QWidget& dialog) { clickButton(dialog, caption); });
    }
    void nextKey(Qt::Key key) {
        next([key](QWidget& dialog) { QTest::keyClick(&dialog, key); });
    }
    // The entry with this caption, with or without its "&".
    void nextEntry(const QString& caption) {
        next([caption](QWidget& dialog) { clickEntry(dialog, caption); });
    }
    [[nodiscard]] bool empty() const { return answers_.empty(); }

    static void clickButton(QWidget& dialog, QString caption) {
        for (auto* button : dialog.findChildren<QAbstractButton*>())
            if (button->isVisible() && button->text().remove(u'&') == caption) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        ADD_FAILURE() << "no button " << caption.toStdString();
        dialog.close();
    }
    static void clickEntry(QWidget& dialog, const QString& caption) {
        auto* menu = qobject_cast<QMenu*>(&dialog);
        if (menu != nullptr)
            for (auto* action : menu->actions())
                if (action->text().remove(u'&') == caption) {
                    QTest::mouseClick(menu, Qt::LeftButton, {},
                                      menu->actionGeometry(action).center());
                    return;
                }
        ADD_FAILURE() << "no entry " << caption.toStdString();
        dialog.close();
    }

  private:
    void look() {
        QWidget* dialog = QApplication::activePopupWidget();
        if (dialog == nullptr)
            dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || !dialog->isVisible() || answering_)
            return;
        answering_ = true;
        if (answers_.empty()) {
            ADD_FAILURE() << "unexpected dialog: " << dialog->windowTitle().toStdString();
            dialog->close();
        } else {
            const auto answer = std::move(answers_.front());
            answers_.pop_front();
            answer(*dialog);
        }
        answering_ = false;
    }

    QTimer timer_;
    std::deque<Answer> answers_;
    bool answering_ = false;
};

} // namespace vkr
