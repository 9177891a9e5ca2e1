// SPDX-License-Identifier: MIT
#include "desktop/field_view.hpp"

#include "platform/during.hpp"

#include <QApplication>

#include <optional>

namespace vkr {

Qt::Alignment alignmentOf(const TextBox& box) {
    switch (box.alignment()) {
    case Alignment::center:
        return Qt::AlignHCenter;
    case Alignment::right:
        return Qt::AlignRight;
    default:
        return Qt::AlignLeft;
    }
}

namespace {

// Models may hold line breaks of other systems, which the widget shows as its own.
std::string withPlainBreaks(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] != '\r')
            result += text[i];
        else if (i + 1 == text.size() || text[i + 1] != '\n')
            result += '\n';
    return result;
}

} // namespace

void FieldView::show(Property property) {
    static const Setter setters[] = {
        {Property::text, &FieldView::showText},
        {Property::edit, &FieldView::showEdit},
        {Property::selection, &FieldView::showSelection},
        {Property::locked, &FieldView::showLocked},
        {Property::mark, &FieldView::showMark},
    };
    ControlView::show(property);
    ControlView::show(property, setters);
}

void FieldView::showLocked() {
    const Nested nested(showing_);
    setLocked(field().locked());
}

void FieldView::showMark() {
    widget().update();
}

void FieldView::showText() {
    if (postponed(&FieldView::showText))
        return;
    const Nested nested(showing_);
    setText(toQt(field().text()));
    shown_ = text();
    if (isActive() || !fits()) // else the caret is put there with the focus
        select(modelSelection());
}

void FieldView::showEdit() {
    if (postponed(&FieldView::showEdit))
        return;
    const Nested nested(showing_);
    replaceText(toQt(field().text()));
    shown_ = text();
    select(modelSelection());
}

void FieldView::showSelection() {
    if (postponed(&FieldView::showSelection))
        return;
    const Nested nested(showing_);
    if (const auto wanted = modelSelection(); wanted != selection())
        select(wanted);
}

bool FieldView::postponed(void (FieldView::*part)()) {
    if (!mustWait())
        return false;
    const auto showPart = [this, part] {
        if (control() != nullptr)
            (this->*part)();
    };
    QMetaObject::invokeMethod(this, showPart, Qt::QueuedConnection);
    return true;
}

void FieldView::focusGained() {
    showSelection();
}

QString FieldView::nativeText(std::string_view text) const {
    return toQt(text.find('\r') == std::string_view::npos ? text : withPlainBreaks(text));
}

void FieldView::showColors() {
    const QPalette& desktop = host().surface().palette();
    const QColor chosen = toQt(field().backColor());
    const auto* box = dynamic_cast<const TextBox*>(&field());
    const bool highlighted = box != nullptr && box->highlighted();
    const QColor back = highlighted        ? desktop.color(QPalette::Highlight)
                        : chosen.isValid() ? chosen
                                           : desktop.color(QPalette::Window);
    const QColor fore =
        highlighted ? desktop.color(QPalette::HighlightedText) : toQt(field().foreColor());
    const QPalette& wanted = host().fieldPalette(back, fore);
    const QPalette& shown = widget().palette();
    const auto shows = [&](QPalette::ColorGroup group) {
        return shown.color(group, QPalette::Base) == wanted.color(group, QPalette::Base) &&
               shown.color(group, QPalette::Text) == wanted.color(group, QPalette::Text);
    };
    if (!widget().testAttribute(Qt::WA_SetPalette) || !shows(QPalette::Active) ||
        !shows(QPalette::Disabled))
        setPalette(wanted);
}

void FieldView::setPalette(const QPalette& wanted) {
    widget().setPalette(wanted);
}

void FieldView::undo() {
    const Nested undoing(undoing_);
    if (canUndo())
        stepBack();
}

void FieldView::redo() {
    const Nested undoing(undoing_);
    stepForward();
}

void FieldView::type(QEvent& event) {
    const auto* key = event.type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(&event) : nullptr;
    const bool undoes =
        key != nullptr && (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo));
    std::optional<Nested> undoing;
    if (undoes)
        undoing.emplace(undoing_);
    typeInto(event);
    takeEdit();
}

bool FieldView::handleOwn(QEvent& event, QWidget& source, NativeEvent native) {
    switch (event.type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
        if (!field().locked())
            return false;
        event.ignore();
        return true;
    case QEvent::Drop:
        // What is dropped is taken over when the field is left, like everything typed.
        form().focus(field());
        if (isActive()) {
            pass(event, source, native);
            takeEdit();
        } else {
            event.ignore();
        }
        return true;
    default:
        return false;
    }
}

// The first press into a field leaves the selection to what the form does on entering; with the
// focus there, a press places the caret.
void FieldView::press(QMouseEvent& event, QWidget& source, NativeEvent native) {
    const bool wasActive = isActive();
    beginPress(event);
    if (!isActive() || !host().isPressed(*this))
        return;
    if (event.button() == Qt::RightButton)
        return;
    if (wasActive || event.button() == Qt::MiddleButton) {
        pass(event, source, native);
        takeEdit();
    } else {
        firstPress_.reset(event.clone());
    }
}

void FieldView::drag(QMouseEvent& event, QWidget& source, NativeEvent native) {
    if (event.buttons().testFlag(Qt::LeftButton) &&
        host().dragged(*this, event.globalPosition().toPoint()))
        return;
    if (control() == nullptr)
        return;
    if (firstPress_ != nullptr) {
        const auto way = event.position() - firstPress_->position();
        if (way.manhattanLength() < QApplication::startDragDistance())
            return;
        const auto first = std::move(firstPress_);
        pass(*first, source, native);
    }
    pass(event, source, native);
    if (event.buttons() != Qt::NoButton && isActive())
        takeEdit();
}

void FieldView::release(QMouseEvent& event, QWidget& source, NativeEvent native) {
    const bool first = firstPress_ != nullptr;
    firstPress_.reset();
    if (!first && host().isPressed(*this) && event.button() != Qt::RightButton) {
        pass(event, source, native);
        takeEdit();
    }
    endPress(event, source);
}

void FieldView::doubleClick(QMouseEvent& event, QWidget& source, NativeEvent native) {
    if (event.button() != Qt::LeftButton)
        return;
    if (isActive()) {
        pass(event, source, native);
        takeEdit();
    }
    if (control() != nullptr)
        form().doubleClick(field());
}

} // namespace vkr
