// SPDX-License-Identifier: MIT
#include "desktop/field_views.hpp"

#include "desktop/form_view.hpp"
#include "platform/text.hpp"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QScreen>
#include <QTextBlock>

#include <algorithm>
#include <limits>

namespace vkr {

namespace {

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

// --- what all fields have in common --------------------------------------------------------------

void FieldView::show(Property property) {
    switch (property) {
    case Property::text:
        showText();
        break;
    case Property::edit:
        showEdit();
        break;
    case Property::selection:
        showSelection();
        break;
    case Property::locked: {
        const Nested nested(showing_);
        setLocked(field().locked());
        break;
    }
    case Property::mark:
        ControlView::show(property);
        widget().update();
        break;
    default:
        ControlView::show(property);
    }
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
    const QColor window = view().palette().color(QPalette::Window);
    const QColor chosen = toQt(field().backColor());
    const QColor back = chosen.isValid() ? chosen : window;
    const QColor fore = toQt(field().foreColor());
    const QPalette& wanted = view().fieldPalette(back, fore);
    const QPalette& shown = widget().palette();
    const auto shows = [&](QPalette::ColorGroup group) {
        return shown.color(group, QPalette::Base) == wanted.color(group, QPalette::Base) &&
               shown.color(group, QPalette::Text) == wanted.color(group, QPalette::Text);
    };
    if (!widget().testAttribute(Qt::WA_SetPalette) || !shows(QPalette::Active) ||
        !shows(QPalette::Disabled))
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
        if (const auto range = selection(); range != modelSelection()) {
            const int start = charactersOf(now, range.start);
            form().userSelect(field(), start,
                              charactersOf(now, range.start + range.length) - start);
        }
        return;
    }
    if (field().locked() || choseEntry()) {
        if (field().locked())
            refuseEdit();
        return;
    }
    const auto range = selection();
    const int end = range.start + range.length;
    const auto clean = acceptable(now);
    const int caret = charactersOf(acceptable(now.left(end)));
    const auto taken =
        undoing_ > 0 ? TextField::Edit{fromQt(clean), caret} : field().taken(fromQt(clean), caret);
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

// Where a slot of the widget has pasted, which is taken back by now: the form puts it in, as it
// does after the key. False for what is no paste.
bool FieldView::pastedAnew(const QString& edited) {
    const auto range = selection();
    const auto length = edited.size() - shown_.size() + range.length;
    const auto pasted = edited.mid(range.start, std::max<qsizetype>(0, length));
    QString anew = shown_;
    anew.replace(range.start, range.length, pasted);
    if (undoing_ > 0 || passing() || pasted.isEmpty() || text() != shown_ || anew != edited)
        return false;
    const int start = charactersOf(shown_, range.start);
    form().userSelect(field(), start, charactersOf(shown_, range.start + range.length) - start);
    if (!form().userPaste(field(), fromQt(pasted)) && control() != nullptr)
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

void FieldView::type(QEvent& event) {
    const auto* key = event.type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(&event) : nullptr;
    const bool undoes =
        key != nullptr && (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo));
    undoing_ += undoes ? 1 : 0;
    typeInto(event);
    takeEdit();
    undoing_ -= undoes ? 1 : 0;
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
    if (!isActive() || !view().isPressed(*this))
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
    if (!first && view().isPressed(*this) && event.button() != Qt::RightButton) {
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

// --- on a line edit ------------------------------------------------------------------------------

void LineFieldView::setEdit(QLineEdit& edit) {
    edit_ = &edit;
    edit.setCompleter(nullptr);
    edit.setMaxLength(std::numeric_limits<int>::max()); // the model says how much there is room for
    const auto changed = [this] { widgetChanged(); };
    connect(&edit, &QLineEdit::textChanged, this, changed);
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
        !view().isPressed(*this)) {
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

LineView::LineView(FormView& view, TextBox& box, QWidget& parent) : LineFieldView(view, box) {
    auto* edit = new Native<QLineEdit>(*this, &parent);
    setWidget(*edit);
    setEdit(*edit);
}

void LineView::show(Property property) {
    LineFieldView::show(property);
    if (property == Property::look)
        edit().setAlignment(alignmentOf(static_cast<TextBox&>(*control())));
    if (property == Property::text || property == Property::edit || property == Property::place ||
        property == Property::look)
        fitFigure();
}

// A figure that is wider than its cell is condensed: no digit is out of sight.
void LineView::fitFigure() {
    static constexpr int narrowest = 50;
    if (static_cast<TextBox&>(*control()).alignment() != Alignment::right)
        return;
    const int wanted = view().widthOf(text());
    if (wanted <= room() && !condensed_)
        return;
    QFont font = view().font();
    condensed_ = wanted > room();
    if (condensed_) {
        const int own = font.stretch() == QFont::AnyStretch ? 100 : font.stretch();
        font.setStretch(std::max(narrowest, own * room() / wanted));
    }
    edit().setFont(font);
}

bool LineView::fits() const {
    return view().widthOf(text()) <= room();
}

int LineView::room() const {
    constexpr int margins = 10; // the frame and the gap beside the text, left and right
    return std::max(1, edit().width() - margins);
}

bool LineView::typeInto(QEvent& event) {
    return pass(event, edit(), &Native<QLineEdit>::pass);
}

// --- lists ---------------------------------------------------------------------------------------

namespace {

// The list of a locked field stays closed.
class ListBox : public QComboBox {
  public:
    ListBox(QWidget* parent, const ComboBox& list) : QComboBox(parent), list_(list) {}
    void showPopup() override {
        if (list_.locked() || !isEnabled())
            return;
        // Entries may be longer than the field is wide.
        const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, view());
        const int needed =
            view()->sizeHintForColumn(modelColumn()) + bar + 2 * view()->frameWidth();
        const int room = screen()->availableGeometry().right() - mapToGlobal(QPoint()).x();
        view()->setMinimumWidth(std::clamp(needed, 0, std::max(0, room)));
        QComboBox::showPopup();
        // The widget's own index lags behind the text.
        view()->setCurrentIndex(model()->index(list_.listIndex(), modelColumn()));
        view()->scrollTo(view()->currentIndex());
    }

  private:
    const ComboBox& list_;
};

} // namespace

ComboView::ComboView(FormView& view, ComboBox& list, QWidget& parent)
    : LineFieldView(view, list), combo_(new Native<ListBox>(*this, &parent, list)) {
    combo_->setInsertPolicy(QComboBox::NoInsert);
    combo_->setLineEdit(new Native<QLineEdit>(*this, combo_));
    combo_->setCompleter(nullptr);
    combo_->lineEdit()->setFocusPolicy(Qt::NoFocus); // sets the one of the list as well
    setWidget(*combo_);
    setEdit(*combo_->lineEdit());
    connect(combo_, &QComboBox::activated, this, [this](int index) {
        if (showing_ == 0 && !passing() && this->control() != nullptr)
            choose(index);
    });
}

void ComboView::show(Property property) {
    if (property == Property::list) {
        const Nested nested(showing_);
        const auto kept = text();
        const auto range = selection();
        combo_->clear();
        QStringList entries;
        for (const auto& entry : list().list())
            entries.append(toQt(entry));
        combo_->addItems(entries);
        if (text() != kept) {
            edit().setText(kept);
            select(range);
        }
    } else {
        LineFieldView::show(property);
    }
    if (property == Property::toolTip && edit().accessibleName() != widget().accessibleName())
        edit().setAccessibleName(widget().accessibleName());
}

// Entries are looked up by the model's list; the widget's own index may lag behind what was typed.
bool ComboView::choseEntry() {
    const int index = combo_->currentIndex();
    if (passing() || index < 0 || combo_->itemText(index) != text())
        return false;
    choose(index);
    return true;
}

void ComboView::choose(int index) {
    form().focus(list());
    if (isActive())
        form().userPick(list(), index);
    if (control() != nullptr)
        show(Property::text);
}

// Keys go to the line edit alone: the list's own would change the entry behind the form's back.
bool ComboView::typeInto(QEvent& event) {
    if (event.type() == QEvent::KeyPress) {
        const auto& key = static_cast<QKeyEvent&>(event);
        const bool vertical = key.key() == Qt::Key_Down || key.key() == Qt::Key_Up;
        if (key.key() == Qt::Key_F4 || (vertical && key.modifiers().testFlag(Qt::AltModifier))) {
            combo_->showPopup();
            event.accept();
            return true;
        }
    }
    return pass(event, edit(), &Native<QLineEdit>::pass);
}

bool ComboView::wheel(int steps) {
    if (list().locked())
        return false;
    const int last = static_cast<int>(list().list().size()) - 1;
    const int target = std::clamp(list().listIndex() + steps, 0, std::max(0, last));
    if (target <= last && target != list().listIndex())
        form().userPick(list(), target);
    return true;
}

void ComboView::press(QMouseEvent& event, QWidget& source, NativeEvent native) {
    if (&source != combo_) {
        LineFieldView::press(event, source, native);
        return;
    }
    beginPress(event);
    if (!isActive() || !view().isPressed(*this))
        return;
    if (event.button() == Qt::LeftButton)
        pass(event, source, native);
    if (combo_->view()->isVisible()) // the list takes the release
        view().endPress(*this, MouseButton::left, true);
}

// --- several lines -------------------------------------------------------------------------------

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

NotesView::NotesView(FormView& view, TextBox& box, QWidget& parent)
    : FieldView(view, box), edit_(new NotesEdit(*this, &parent)) {
    setWidget(*edit_);
    edit_->document()->setDocumentMargin(2);
    const auto changed = [this] {
        const Nested telling(telling_);
        widgetChanged();
    };
    connect(edit_, &QPlainTextEdit::textChanged, this, changed);
}

void NotesView::show(Property property) {
    FieldView::show(property);
    if (property == Property::look) {
        const Nested nested(showing_);
        auto option = edit_->document()->defaultTextOption();
        option.setAlignment(alignmentOf(static_cast<TextBox&>(*control())));
        edit_->document()->setDefaultTextOption(option);
    }
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
