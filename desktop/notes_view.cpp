// SPDX-License-Identifier: MIT
#include "desktop/notes_view.hpp"

#include <QPlainTextEdit>
#include <QTextBlock>

namespace vkr {

namespace {

// A text edit gets the events of the pointer on its viewport.
class NotesEdit final : public QPlainTextEdit {
  public:
    NotesEdit(ControlView& view, QWidget* parent) : QPlainTextEdit(parent), view_(view) {}

    static bool pass(QWidget& widget, QEvent& event) {
        return static_cast<NotesEdit&>(widget).QPlainTextEdit::event(&event);
    }
    static bool passViewport(QWidget& viewport, QEvent& event) {
        return static_cast<NotesEdit*>(viewport.parentWidget())
            ->QPlainTextEdit::viewportEvent(&event);
    }

  protected:
    bool event(QEvent* event) override { return view_.handle(*event, *this, &pass); }
    bool viewportEvent(QEvent* event) override {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseMove:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::ContextMenu:
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
            return view_.handle(*event, *viewport(), &passViewport);
        default:
            return QPlainTextEdit::viewportEvent(event);
        }
    }

  private:
    ControlView& view_;
};

} // namespace

NotesView::NotesView(ViewHost& host, TextBox& box, QWidget& parent)
    : FieldView(host, box), edit_(new NotesEdit(*this, &parent)) {
    setWidget(*edit_);
    edit_->document()->setDocumentMargin(2);
    const auto changed = [this] {
        const Nested telling(telling_);
        nativeChanged();
    };
    connect(edit_, &QPlainTextEdit::textChanged, this, changed);
}

void NotesView::show(Property property) {
    static const Setter setters[] = {{Property::look, &NotesView::showAlignment}};
    FieldView::show(property);
    ControlView::show(property, setters);
}

void NotesView::showAlignment() {
    const Nested nested(showing_);
    auto option = edit_->document()->defaultTextOption();
    option.setAlignment(alignmentOf(static_cast<TextBox&>(*control())));
    edit_->document()->setDefaultTextOption(option);
}

bool NotesView::canUndo() const {
    return !edit_->isReadOnly() && edit_->document()->isUndoAvailable();
}

void NotesView::replaceText(const QString& text) {
    QTextCursor cursor(edit_->document());
    cursor.select(QTextCursor::Document);
    cursor.insertText(text);
}

UnitRange NotesView::selection() const {
    const auto cursor = edit_->textCursor();
    return {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
}

void NotesView::select(UnitRange range) {
    auto cursor = edit_->textCursor();
    cursor.setPosition(range.start);
    cursor.setPosition(range.start + range.length, QTextCursor::KeepAnchor);
    edit_->setTextCursor(cursor);
}

void NotesView::setLocked(bool locked) {
    edit_->setReadOnly(locked);
    if (locked)
        edit_->setTextInteractionFlags(edit_->textInteractionFlags() |
                                       Qt::TextSelectableByKeyboard);
    edit_->setAcceptDrops(!locked);
}

bool NotesView::typeInto(QEvent& event) {
    return pass(event, *edit_, &NotesEdit::pass);
}

} // namespace vkr
