// SPDX-License-Identifier: MIT
#include "host/messages.hpp"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QLayout>
#include <QMainWindow>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QStatusBar>

#include <algorithm>

namespace vkr {

namespace {

// With its buttons below one another where a row of them has no room: a message box is never wider
// than the screen lets it be, and cuts what is.
class FittingBox : public QMessageBox {
  public:
    using QMessageBox::QMessageBox;

  protected:
    void showEvent(QShowEvent* event) override {
        QMessageBox::showEvent(event); // adds buttons, and has its size behind it
        layout()->activate();
        auto* buttons = findChild<QDialogButtonBox*>();
        if (buttons->width() >= buttons->minimumSizeHint().width())
            return;
        buttons->setOrientation(Qt::Vertical);
        int widest = 0;
        for (const auto* button : this->buttons())
            widest = std::max(widest, button->sizeHint().width());
        for (auto* button : this->buttons())
            button->setMinimumWidth(widest);
    }
};

// Its parent may go while it is open, as when a company is deleted in the list that its own window
// asks about: then the box goes with it.
class Box {
  public:
    Box(QMessageBox::Icon icon, QWidget* parent)
        : box_(new FittingBox(icon, {}, {}, QMessageBox::NoButton, parent)) {}
    Box(const Box&) = delete;
    Box& operator=(const Box&) = delete;
    ~Box() { delete box_; }
    [[nodiscard]] QMessageBox* get() const { return box_; }
    QMessageBox& operator*() const { return *box_; }
    QMessageBox* operator->() const { return box_; }

  private:
    QPointer<QMessageBox> box_;
};

void fill(QMessageBox& box, const QString& what, const QString& more, const QStringList& details) {
    // What stands in a record or a file's name is text, whatever it looks like.
    box.setTextFormat(Qt::PlainText);
    box.setWindowTitle(QApplication::applicationDisplayName());
    box.setText(what);
    box.setInformativeText(more);
    if (!details.isEmpty())
        box.setDetailedText(details.join(u'\n'));
    box.setWindowModality(Qt::WindowModal);
}

void tell(QMessageBox::Icon icon, QWidget* parent, const QString& what, const QString& more,
          const QStringList& details) {
    const Box box(icon, parent);
    fill(*box, what, more, details);
    box->setStandardButtons(QMessageBox::Ok);
    box->exec();
}

QMessageBox::ButtonRole role(Choice::Role role) {
    switch (role) {
    case Choice::Role::accept:
        return QMessageBox::AcceptRole;
    case Choice::Role::destroy:
        return QMessageBox::DestructiveRole;
    case Choice::Role::reject:
        break;
    }
    return QMessageBox::RejectRole;
}

} // namespace

void tellFault(QWidget* parent, const QString& what, const QString& more,
               const QStringList& details) {
    tell(QMessageBox::Warning, parent, what, more, details);
}

void tellNews(QWidget* parent, const QString& what, const QString& more,
              const QStringList& details) {
    tell(QMessageBox::Information, parent, what, more, details);
}

int ask(QWidget* parent, const QString& what, const QString& more, const QList<Choice>& choices,
        int defaultChoice, const QStringList& details) {
    const Box box(QMessageBox::Question, parent);
    fill(*box, what, more, details);
    QList<QAbstractButton*> buttons;
    for (const Choice& choice : choices)
        buttons.append(box->addButton(choice.label, role(choice.role)));
    const auto last = choices.size() - 1;
    box->setEscapeButton(buttons.at(last));
    box->setDefaultButton(
        qobject_cast<QPushButton*>(buttons.at(defaultChoice < 0 ? last : defaultChoice)));
    box->exec();
    const auto chosen = box.get() == nullptr ? -1 : buttons.indexOf(box->clickedButton());
    return static_cast<int>(chosen < 0 ? last : chosen);
}

void notice(QMainWindow& window, const QString& what) {
    constexpr int time = 4000; // milliseconds
    constexpr int margins = 16;
    auto* bar = window.statusBar();
    int room = bar->width() - margins;
    for (const auto* beside : bar->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        room -= beside->width();
    bar->showMessage(
        bar->isVisible() ? bar->fontMetrics().elidedText(what, Qt::ElideMiddle, room) : what, time);
}

bool askFirst(QWidget* parent, const QString& what, const QString& more, const QString& doIt) {
    return ask(parent, what, more,
               {{doIt, Choice::Role::destroy},
                {QApplication::translate("messages", "&Cancel"), Choice::Role::reject}}) == 0;
}

} // namespace vkr
