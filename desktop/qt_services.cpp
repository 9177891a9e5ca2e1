// SPDX-License-Identifier: MIT
#include "desktop/qt_services.hpp"

#include "desktop/calendar_dialog.hpp"
#include "desktop/field_view.hpp"
#include "desktop/form_view.hpp"
#include "desktop/paste_dialog.hpp"
#include "desktop/qt_values.hpp"
#include "platform/message_box.hpp"

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>

#include <algorithm>
#include <cassert>

namespace vkr {

namespace {

struct ButtonRow {
    MessageAnswer answer;
    QMessageBox::StandardButton button;
};
constexpr ButtonRow buttonRows[] = {
    {MessageAnswer::ok, QMessageBox::Ok},
    {MessageAnswer::cancel, QMessageBox::Cancel},
    {MessageAnswer::yes, QMessageBox::Yes},
    {MessageAnswer::no, QMessageBox::No},
};

QMessageBox::StandardButton buttonOf(MessageAnswer answer) {
    return std::ranges::find(buttonRows, answer, &ButtonRow::answer)->button;
}

QMessageBox::Icon iconOf(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::critical:
        return QMessageBox::Critical;
    case MessageIcon::question:
        return QMessageBox::Question;
    case MessageIcon::warning:
        return QMessageBox::Warning;
    case MessageIcon::information:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

// A window that its parent may delete while it is open.
template <typename Window>
class Opened {
  public:
    explicit Opened(Window* window) : window_(window) {}
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    ~Opened() { delete window_; }
    [[nodiscard]] Window* get() const { return window_; }
    Window* operator->() const { return window_; }

  private:
    QPointer<Window> window_;
};

} // namespace

QtServices::Call::Call(QtServices& services, QWidget* window) : services_(services) {
    services_.calls_.emplace_back(window);
}

QtServices::Call::~Call() {
    services_.calls_.pop_back();
    // Not before the event that all of this began with is done.
    if (services_.calls_.empty() && services_.remains_ != nullptr)
        services_.remains_->deleteLater();
}

void QtServices::leave(QObject& remains) {
    assert(isCalling() && remains_ == nullptr);
    remains_ = &remains;
    owner_.clear();
    for (const auto& open : calls_)
        if (open != nullptr)
            open->hide(); // which ends its loop
}

PixelScale QtServices::scale() const {
    return view_ != nullptr ? view_->scale()
           : owner_ != nullptr
               ? PixelScale(owner_->logicalDpiX())
               : PixelScale(QGuiApplication::primaryScreen()->logicalDotsPerInchX());
}

QWidget* QtServices::window() {
    return owner_->window();
}

void QtServices::interrupt() {
    if (view_ != nullptr)
        view_->interrupted();
}

MessageAnswer QtServices::messageBox(const std::string& text, int buttons,
                                     const std::string& title) {
    const auto look = messageBoxLook(buttons);
    if (owner_ == nullptr)
        return look.closed;
    interrupt();
    const Opened<QMessageBox> box(new QMessageBox(window()));
    box->setTextFormat(Qt::PlainText);
    box->setIcon(iconOf(look.icon));
    box->setWindowTitle(toQt(title));
    box->setText(withLineFeeds(toQt(text)));
    for (const auto answer : look.buttons)
        box->addButton(buttonOf(answer));
    box->setDefaultButton(buttonOf(look.chosen));
    box->setEscapeButton(buttonOf(look.closed));
    const Call call(*this, box.get());
    const int pressed = box->exec();
    const auto* row = std::ranges::find(buttonRows, pressed, &ButtonRow::button);
    return row == std::end(buttonRows) ? look.closed : row->answer;
}

bool QtServices::clipboardHasText() {
    const auto* held = QGuiApplication::clipboard()->mimeData();
    return held != nullptr && held->hasText() && !held->text().isEmpty();
}

std::string QtServices::clipboardText() {
    return fromQt(QGuiApplication::clipboard()->text());
}

std::optional<char> QtServices::clipboardDecimalMark() {
    static const QRegularExpression declared(
        QStringLiteral("mso-displayed-decimal-separator\\s*:\\s*[\"']?\\\\?([.,])"));
    const auto* held = QGuiApplication::clipboard()->mimeData();
    if (held == nullptr || !held->hasHtml())
        return std::nullopt;
    const auto found = declared.match(held->html());
    return found.hasMatch() ? std::optional(found.captured(1).at(0).toLatin1()) : std::nullopt;
}

void QtServices::clearClipboard() {
    QGuiApplication::clipboard()->clear();
}

void QtServices::setClipboardText(const std::string& text) {
    QGuiApplication::clipboard()->setText(toQt(text));
}

Date QtServices::today() {
    return fromQt(QDate::currentDate()).value_or(Date{});
}

Twips QtServices::screenWidth() {
    const QScreen* screen = owner_ != nullptr ? owner_->screen() : QGuiApplication::primaryScreen();
    return scale().twips(screen->geometry().width());
}

std::optional<Color> QtServices::chooseColor(Color current) {
    if (owner_ == nullptr)
        return std::nullopt;
    interrupt();
    const QColor start = toQt(current);
    const Opened<QColorDialog> dialog(new QColorDialog(
        start.isValid() ? start : owner_->palette().color(QPalette::Window), window()));
    const Call call(*this, dialog.get());
    if (dialog->exec() != QDialog::Accepted || dialog.get() == nullptr)
        return std::nullopt;
    return fromQt(dialog->selectedColor());
}

void QtServices::showModal(CalendarForm& form) {
    if (owner_ == nullptr) {
        form.pressCancel();
        return;
    }
    interrupt();
    const Opened<CalendarDialog> dialog(new CalendarDialog(form, window()));
    const auto* field =
        view_ == nullptr || form.owner() == nullptr ? nullptr : view_->widgetOf(*form.owner());
    if (field != nullptr && field->isVisible()) {
        // Right below the field, or above it where the screen ends.
        dialog->adjustSize();
        const QRect place(field->mapToGlobal(QPoint()), field->size());
        const QRect screen = field->screen()->availableGeometry();
        QPoint corner = place.bottomLeft() + QPoint(0, 1);
        if (corner.y() + dialog->height() > screen.bottom())
            corner.setY(std::max(screen.top(), place.top() - dialog->height()));
        corner.setX(std::clamp(corner.x(), screen.left(),
                               std::max(screen.left(), screen.right() - dialog->width())));
        dialog->move(corner);
    }
    const Call call(*this, dialog.get());
    dialog->exec();
    if (form.visible()) // it was closed by nobody
        form.pressCancel();
}

void QtServices::showPaste(PasteForm& form) {
    if (owner_ == nullptr) {
        form.pressCancel();
        return;
    }
    interrupt();
    const Opened<PasteDialog> dialog(new PasteDialog(form, window()));
    const Call call(*this, dialog.get());
    dialog->exec();
    if (form.visible()) // it was closed by nobody
        form.pressCancel();
}

void QtServices::tellRefused(TextField& field, const std::string& note) {
    QApplication::beep();
    if (view_ != nullptr)
        view_->showNote(field, toQt(note));
}

bool QtServices::canUndo(const TextField& field) {
    const auto* shown = view_ == nullptr ? nullptr : view_->fieldView(field);
    return shown != nullptr && shown->canUndo();
}

void QtServices::undo(TextField& field) {
    if (auto* shown = view_ == nullptr ? nullptr : view_->fieldView(field))
        shown->undo();
}

void QtServices::redo(TextField& field) {
    if (auto* shown = view_ == nullptr ? nullptr : view_->fieldView(field))
        shown->redo();
}

QFont QtServices::font() const {
    return view_ != nullptr ? view_->font() : FormView::fontFor(scale());
}

Twips QtServices::textWidth(std::string_view text) {
    return scale().twips(QFontMetricsF(font()).horizontalAdvance(toQt(text)));
}

Twips QtServices::textHeight() {
    return scale().twips(QFontMetricsF(font()).height());
}

namespace {

QFont zoomed(QFont font, int percent) {
    if (percent == 100)
        return font;
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * percent / 100);
    else
        font.setPixelSize(std::max(1, font.pixelSize() * percent / 100));
    return font;
}

} // namespace

int QtServices::popUpMenu(const std::vector<MenuItem*>& items, Twips left, Twips top) {
    if (view_ == nullptr || owner_ == nullptr)
        return -1;
    interrupt();
    const Opened<QMenu> menu(new QMenu(view_));
    menu->setFont(zoomed(menu->font(), view_->zoom()));
    for (const auto* item : items) {
        if (!item->visible())
            continue;
        if (item->caption() == "-") {
            menu->addSeparator();
            continue;
        }
        auto* action = menu->addAction(toQt(item->caption()));
        action->setEnabled(item->enabled());
        action->setData(item->index());
    }
    const QPoint place(view_->scale().pixels(left), view_->scale().pixels(top));
    const Call call(*this, menu.get());
    const auto* chosen =
        menu->exec(view_->pressPlace().value_or(view_->mapToGlobal(place))); // under the pointer
    return chosen == nullptr || menu.get() == nullptr ? -1 : chosen->data().toInt();
}

std::shared_ptr<Object> QtServices::createObject(std::string_view programmaticId) {
    return factory_.create(programmaticId);
}

std::string QtServices::applicationTitle() {
    return fromQt(title_);
}

} // namespace vkr
