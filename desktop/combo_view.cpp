// SPDX-License-Identifier: MIT
#include "desktop/combo_view.hpp"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QScreen>
#include <QStyle>

#include <algorithm>

namespace vkr {

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

ComboView::ComboView(ViewHost& host, ComboBox& list, QWidget& parent)
    : LineFieldView(host, list), combo_(new Native<ListBox>(*this, &parent, list)) {
    combo_->setInsertPolicy(QComboBox::NoInsert);
    combo_->setLineEdit(new Native<QLineEdit>(*this, combo_));
    combo_->setCompleter(nullptr); // it would choose entries behind the form's back
    combo_->lineEdit()->setFocusPolicy(Qt::NoFocus); // sets the one of the list as well
    setWidget(*combo_);
    setEdit(*combo_->lineEdit());
    connect(combo_, &QComboBox::activated, this, [this](int index) {
        if (showing_ == 0 && !passing() && this->control() != nullptr)
            choose(index);
    });
}

void ComboView::show(Property property) {
    static const Setter setters[] = {
        {Property::list, &ComboView::showList},
        {Property::toolTip, &ComboView::showEditName},
    };
    LineFieldView::show(property);
    ControlView::show(property, setters);
}

void ComboView::showList() {
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
}

void ComboView::showEditName() {
    if (edit().accessibleName() != widget().accessibleName())
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
            if (completer_ != nullptr)
                completer_->popup()->hide(); // all entries instead
            combo_->showPopup();
            event.accept();
            return true;
        }
    }
    const QString before = text();
    const bool typed = pass(event, edit(), &Native<QLineEdit>::pass);
    if (event.type() == QEvent::KeyPress && text() != before)
        offerEntries();
    return typed;
}

// Keys that choose an offered entry, or take the offer away, are no keys of the form.
bool ComboView::handleOwn(QEvent& event, QWidget& source, NativeEvent native) {
    if (event.type() == QEvent::KeyPress && completer_ != nullptr &&
        completer_->popup()->isVisible()) {
        const int key = static_cast<QKeyEvent&>(event).key();
        const bool chosen = completer_->popup()->currentIndex().isValid();
        if (key == Qt::Key_Escape ||
            (chosen && (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab))) {
            event.ignore();
            return true;
        }
    }
    return LineFieldView::handleOwn(event, source, native);
}

// Entries that hold what has been typed.
void ComboView::offerEntries() {
    if (completer_ == nullptr) {
        completer_ = new QCompleter(combo_->model(), combo_);
        completer_->setCaseSensitivity(Qt::CaseInsensitive);
        completer_->setFilterMode(Qt::MatchContains);
        completer_->setWidget(&edit());
        connect(completer_, qOverload<const QString&>(&QCompleter::activated), this,
                [this](const QString& entry) {
                    if (control() != nullptr)
                        choose(combo_->findText(entry, Qt::MatchExactly | Qt::MatchCaseSensitive));
                });
    }
    completer_->setCompletionPrefix(text());
    const bool isEntry = combo_->findText(text(), Qt::MatchExactly | Qt::MatchCaseSensitive) >= 0;
    if (text().isEmpty() || isEntry || completer_->completionCount() == 0)
        completer_->popup()->hide();
    else
        completer_->complete();
}

bool ComboView::wheel(int steps) {
    return form().userTurn(list(), steps);
}

void ComboView::press(QMouseEvent& event, QWidget& source, NativeEvent native) {
    if (&source != combo_) {
        LineFieldView::press(event, source, native);
        return;
    }
    beginPress(event);
    if (!isActive() || !host().isPressed(*this))
        return;
    if (event.button() == Qt::LeftButton)
        pass(event, source, native);
    if (combo_->view()->isVisible()) // the list takes the release
        host().endPress(*this, MouseButton::left, PressEnd::inside);
}

} // namespace vkr
