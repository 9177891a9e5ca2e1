// SPDX-License-Identifier: MIT
#include "desktop/line_view.hpp"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>
#include <limits>

namespace vkr {

void LineFieldView::setEdit(QLineEdit& edit) {
    edit_ = &edit;
    edit.setMaxLength(std::numeric_limits<int>::max()); // the model says how much there is room for
    const auto changed = [this] { nativeChanged(); };
    connect(&edit, &QLineEdit::textChanged, &edit, changed); // which goes before its view
}

// What is pasted and dropped is the form's to put in, which may refuse it.
void LineFieldView::type(QEvent& event) {
    if (event.type() != QEvent::KeyPress ||
        !static_cast<QKeyEvent&>(event).matches(QKeySequence::Paste)) {
        FieldView::type(event);
        return;
    }
    event.accept();
    form().userPaste(field(), fromQt(QGuiApplication::clipboard()->text()));
}

bool LineFieldView::handleOwn(QEvent& event, QWidget& source, NativeEvent native) {
    if (event.type() != QEvent::Drop)
        return FieldView::handleOwn(event, source, native);
    auto& dropped = static_cast<QDropEvent&>(event);
    if (dropped.source() == edit_ || !dropped.mimeData()->hasText()) // moved within the field
        return FieldView::handleOwn(event, source, native);
    QDragLeaveEvent left; // takes the mark of the place away
    pass(left, source, native);
    form().focus(field());
    if (isActive())
        drop(dropped, source);
    else
        event.ignore();
    return true;
}

void LineFieldView::drop(QDropEvent& event, const QWidget& source) {
    const auto place = source.mapTo(widget().window(), event.position().toPoint());
    select({edit_->cursorPositionAt(edit_->mapFrom(widget().window(), place)), 0});
    takeEdit();
    event.setDropAction(Qt::CopyAction);
    event.accept();
    form().userPaste(field(), fromQt(event.mimeData()->text()));
}

void LineFieldView::release(QMouseEvent& event, QWidget& source, NativeEvent native) {
    const auto* clipboard = QGuiApplication::clipboard();
    if (event.button() != Qt::MiddleButton || !clipboard->supportsSelection() ||
        !host().isPressed(*this)) {
        FieldView::release(event, source, native);
        return;
    }
    endPress(event, source);
    if (control() != nullptr && isActive())
        form().userPaste(field(), fromQt(clipboard->text(QClipboard::Selection)));
}

void LineFieldView::replaceText(const QString& text) {
    edit_->selectAll();
    edit_->insert(text);
}

UnitRange LineFieldView::selection() const {
    return edit_->hasSelectedText() ? UnitRange{edit_->selectionStart(), edit_->selectionLength()}
                                    : UnitRange{edit_->cursorPosition(), 0};
}

void LineFieldView::select(UnitRange range) {
    if (range.length > 0) {
        edit_->setSelection(range.start, range.length);
    } else {
        edit_->deselect();
        edit_->setCursorPosition(range.start);
    }
}

// A text that is longer than its field shows its beginning again.
void LineFieldView::focusLost() {
    const Nested nested(showing_);
    edit_->deselect();
    edit_->setCursorPosition(0);
}

void LineFieldView::setLocked(bool locked) {
    edit_->setReadOnly(locked);
    edit_->setAcceptDrops(!locked);
}

LineView::LineView(ViewHost& host, TextBox& box, QWidget& parent) : LineFieldView(host, box) {
    auto* edit = new Native<QLineEdit>(*this, &parent);
    setWidget(*edit);
    setEdit(*edit);
}

void LineView::show(Property property) {
    static const Setter setters[] = {
        {Property::look, &LineView::showAlignment}, {Property::look, &LineView::fitFigure},
        {Property::text, &LineView::fitFigure},     {Property::edit, &LineView::fitFigure},
        {Property::place, &LineView::fitFigure},
    };
    LineFieldView::show(property);
    ControlView::show(property, setters);
}

// There are hundreds of lines in a few colours.
void LineView::setPalette(const QPalette& wanted) {
    edit().setPalette(host().sharedPalette(wanted, edit()));
}

void LineView::dropColors() {
    if (edit().testAttribute(Qt::WA_SetPalette))
        edit().setPalette(QPalette());
}

void LineView::showAlignment() {
    edit().setAlignment(alignmentOf(static_cast<TextBox&>(*control())));
}

// A figure that is wider than its cell is condensed: no digit is out of sight.
void LineView::fitFigure() {
    static constexpr int narrowest = 50;
    if (static_cast<TextBox&>(*control()).alignment() != Alignment::right)
        return;
    const int wanted = host().widthOf(text());
    if (wanted <= room() && !condensed_)
        return;
    QFont font; // the form's
    condensed_ = wanted > room();
    if (condensed_) {
        font = host().surface().font();
        const int own = font.stretch() == QFont::AnyStretch ? 100 : font.stretch();
        font.setStretch(std::max(narrowest, own * room() / wanted));
    }
    edit().setFont(font);
}

bool LineView::fits() const {
    return host().widthOf(text()) <= room();
}

int LineView::room() const {
    constexpr int margins = 10; // the frame and the gap beside the text, left and right
    return std::max(1, edit().width() - margins);
}

bool LineView::typeInto(QEvent& event) {
    return pass(event, edit(), &Native<QLineEdit>::pass);
}

} // namespace vkr
