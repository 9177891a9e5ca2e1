// SPDX-License-Identifier: MIT
#include "desktop/field_view.hpp"

#include "platform/during.hpp"
#include "platform/native_edits.hpp"
#include "platform/text.hpp"

#include <QApplication>

#include <algorithm>
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

UnitRange FieldView::modelSelection() const {
    const auto& model = field().text();
    if (model.find('\r') != std::string::npos) {
        const auto units = [&](int characters) {
            return static_cast<int>(toQt(withPlainBreaks(textLeft(model, characters))).size());
        };
        const int start = units(field().selStart());
        return {start, units(field().selStart() + field().selLength()) - start};
    }
    const int start = unitsOf(shown_, field().selStart());
    return {start, unitsOf(shown_, field().selStart() + field().selLength()) - start};
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

void FieldView::widgetChanged() {
    if (showing_ == 0 && !passing() && control() != nullptr)
        takeEdit();
}

void FieldView::catchUp() {
    widgetChanged();
}

void FieldView::takeEdit() {
    if (control() == nullptr)
        return;
    auto now = text();
    if (now == shown_) {
        if (const auto range = selection(); range != modelSelection())
            tellSelection(now, range);
        return;
    }
    if (field().locked() || choseEntry()) {
        if (field().locked())
            refuseEdit();
        return;
    }
    const auto range = selection();
    const auto taken = offeredEdit(field(), fromQt(now),
                                   fromQt(now.left(range.start + range.length)), undoing_ > 0);
    if (const auto wanted = toQt(taken.text); wanted != now) {
        const Nested nested(showing_);
        if (mustWait()) {
            showText();
        } else {
            stepBack();
            if (pastedAnew(now))
                return;
            if (text() != wanted)
                replaceText(wanted);
            select({unitsOf(wanted, taken.caret), 0});
        }
        now = wanted;
    }
    const auto shown = selection();
    const int start = charactersOf(now, shown.start);
    shown_ = now;
    if (!form().userEdit(field(), fromQt(now), start,
                         charactersOf(now, shown.start + shown.length) - start))
        refuseEdit();
}

void FieldView::tellSelection(const QString& shown, UnitRange range) {
    const int start = charactersOf(shown, range.start);
    form().userSelect(field(), start, charactersOf(shown, range.start + range.length) - start);
}

// Where a slot of the widget has pasted, which is taken back by now: the form puts it in, as it
// does after the key. False for what is no paste.
bool FieldView::pastedAnew(const QString& edited) {
    if (undoing_ > 0 || passing() || text() != shown_)
        return false;
    const auto range = selection();
    const auto now = fromQt(edited);
    const auto pasted = putBetween(fromQt(shown_.left(range.start)),
                                   fromQt(shown_.mid(range.start + range.length)), now);
    if (!pasted)
        return false;
    tellSelection(shown_, range);
    if (!form().userPaste(field(), *pasted) && control() != nullptr)
        replaceText(shown_); // nor is it brought back by a redo
    return true;
}

void FieldView::refuseEdit() {
    if (control() == nullptr)
        return;
    showText();
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
