// SPDX-License-Identifier: MIT
#include "desktop/control_views.hpp"

#include "desktop/field_views.hpp"
#include "desktop/form_view.hpp"
#include "desktop/readable_colors.hpp"
#include "platform/text.hpp"

#include <QAbstractButton>
#include <QAccessible>
#include <QCheckBox>
#include <QCoreApplication>
#include <QFrame>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QResizeEvent>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOption>
#include <QTabBar>

#include <algorithm>
#include <cmath>

namespace vkr {

// --- buttons -------------------------------------------------------------------------------------

namespace {

QAbstractButton* makeButton(ControlView& view, const Control& control, QWidget& parent) {
    switch (control.kind()) {
    case ControlKind::optionButton:
        return new Native<QRadioButton>(view, &parent);
    case ControlKind::checkBox:
        return new Native<QCheckBox>(view, &parent);
    default: {
        auto* button = new Native<QPushButton>(view, &parent);
        button->setAutoDefault(false);
        return button;
    }
    }
}

bool isChosen(const Control& control) {
    if (const auto* option = dynamic_cast<const OptionButton*>(&control))
        return option->value();
    const auto* box = dynamic_cast<const CheckBox*>(&control);
    return box != nullptr && box->value();
}

} // namespace

ButtonView::ButtonView(FormView& view, Control& control, QWidget& parent)
    : ControlView(view, control), button_(makeButton(*this, control, parent)) {
    setWidget(*button_);
    // From other programs, such as screen readers: keys and pointer take another way.
    connect(button_, &QAbstractButton::clicked, this, [this] {
        if (this->control() == nullptr)
            return;
        this->view().beginPress(*this, MouseButton::left);
        this->view().endPress(*this, MouseButton::left, true);
        this->view().showChoices();
    });
}

void ButtonView::show(Property property) {
    ControlView::show(property);
    if (property == Property::caption) {
        button_->setText(toQt(control()->caption()));
        button_->setShortcut({}); // mnemonics are the form's
    } else if (property == Property::value && button_->isCheckable()) {
        // The model takes the choice from the other options; to screen readers they are a group.
        const bool exclusive = button_->autoExclusive();
        button_->setAutoExclusive(false);
        button_->setChecked(isChosen(*control()));
        button_->setAutoExclusive(exclusive);
    }
}

void ButtonView::pressEnded() {
    button_->setDown(false);
}

void ButtonView::press(QMouseEvent& event, QWidget& /*source*/, NativeEvent /*native*/) {
    beginPress(event);
    if (event.button() == Qt::LeftButton && view().isPressed(*this))
        button_->setDown(true);
}

void ButtonView::drag(QMouseEvent& event, QWidget& source, NativeEvent /*native*/) {
    if (view().isPressed(*this) && event.buttons().testFlag(Qt::LeftButton))
        button_->setDown(isInside(event, source));
}

void ButtonView::release(QMouseEvent& event, QWidget& source, NativeEvent /*native*/) {
    endPress(event, source);
}

void ButtonView::doubleClick(QMouseEvent& event, QWidget& source, NativeEvent native) {
    press(event, source, native);
}

// --- labels --------------------------------------------------------------------------------------

namespace {

class CaptionLabel : public QLabel {
  public:
    CaptionLabel(QWidget* parent, const ControlView& view) : QLabel(parent), view_(view) {
        setTextFormat(Qt::PlainText);
    }

  protected:
    // A text that is too wide for its place is drawn narrower rather than cut off.
    void paintEvent(QPaintEvent* /*event*/) override {
        constexpr double narrowest = 0.55; // three letters of a currency in the place of a "$"
        QPainter painter(this);
        if (text().isEmpty() && autoFillBackground()) {
            paintEdge(painter);
            return;
        }
        QRect place = rect();
        const QString shown = wordWrap() ? withBreaks(text(), width() / narrowest) : text();
        if (const int needed = neededWidth(shown); needed > width()) {
            const double part = std::max(narrowest, static_cast<double>(width()) / needed);
            painter.scale(part, 1);
            place.setWidth(static_cast<int>(std::ceil(width() / part)));
        }
        const auto* label = view_.control();
        const bool leads = label != nullptr && text().contains(u'&') &&
                           label->form().mnemonicTarget(*label) != nullptr;
        const int flags = (leads ? Qt::TextShowMnemonic : Qt::TextHideMnemonic) |
                          (wordWrap() ? Qt::TextWordWrap : Qt::TextSingleLine);
        style()->drawItemText(&painter, place, static_cast<int>(alignment()) | flags, palette(),
                              isEnabled(), shown, foregroundRole());
    }

  private:
    // A patch of a colour that may be as good as that of the page.
    void paintEdge(QPainter& painter) const {
        const QPalette& page = view_.view().palette();
        painter.setPen(
            readable(page.color(QPalette::Mid), page.color(QPalette::Window), signContrast));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }

    static constexpr QChar mayBreak = QChar(0x200B); // takes no room

    [[nodiscard]] int widthOf(const QString& piece) const {
        return fontMetrics().size(Qt::TextShowMnemonic | Qt::TextSingleLine, piece).width();
    }
    // Calls visit(word) for each one.
    template <typename Visit>
    static void forEachWord(const QString& text, Visit&& visit) {
        const auto parts = [](QChar unit) {
            return unit == u' ' || unit == u'\n' || unit == mayBreak;
        };
        for (auto start = text.begin(); start != text.end();) {
            const auto end = std::find_if(start, text.end(), parts);
            if (end != start)
                visit(QStringView(start, end));
            start = end == text.end() ? end : end + 1;
        }
    }
    // A word that is wider than that may be broken anywhere.
    [[nodiscard]] QString withBreaks(const QString& text, double widest) const {
        QString result;
        const QChar* copied = text.constData();
        forEachWord(text, [&](QStringView word) {
            if (widthOf(word.toString()) <= widest)
                return;
            result.append(QStringView(copied, word.begin()));
            QChar before = u'&'; // belongs to what follows
            for (const QChar unit : word) {
                if (before != u'&' && !unit.isLowSurrogate() && !unit.isMark())
                    result += mayBreak;
                result += before = unit;
            }
            copied = word.end();
        });
        return result.append(QStringView(copied, text.constData() + text.size()));
    }
    // Of the widest piece that can't be broken.
    [[nodiscard]] int neededWidth(const QString& text) const {
        if (!wordWrap())
            return widthOf(text);
        int widest = 0;
        forEachWord(text,
                    [&](QStringView word) { widest = std::max(widest, widthOf(word.toString())); });
        return widest;
    }

    const ControlView& view_;
};

} // namespace

LabelView::LabelView(FormView& view, Label& label, QWidget& parent) : ControlView(view, label) {
    setWidget(*new Native<CaptionLabel>(*this, &parent, *this));
}

void LabelView::show(Property property) {
    ControlView::show(property);
    auto& shown = static_cast<QLabel&>(widget());
    const auto& label = static_cast<Label&>(*control());
    if (property == Property::caption) {
        shown.setText(withLineFeeds(toQt(label.caption())));
    } else if (property == Property::look) {
        const auto across = label.alignment() == Alignment::center  ? Qt::AlignHCenter
                            : label.alignment() == Alignment::right ? Qt::AlignRight
                                                                    : Qt::AlignLeft;
        shown.setAlignment(across | (label.wordWrap() ? Qt::AlignTop : Qt::AlignVCenter));
        shown.setWordWrap(label.wordWrap());
        if (shown.font().underline() != label.isLink()) {
            QFont font; // the rest comes from the form
            font.setUnderline(label.isLink());
            shown.setFont(font);
        }
        if (label.isLink())
            shown.setCursor(Qt::PointingHandCursor);
        else
            shown.unsetCursor();
        // Screen readers find the field's key by it.
        shown.setBuddy(label.buddy() == nullptr ? nullptr : view().madeWidgetOf(*label.buddy()));
    }
}

// Alt and the letter while the focus is elsewhere in the window; within the form the letter comes
// as a key.
bool LabelView::handleOwn(QEvent& event, QWidget& /*source*/, NativeEvent /*native*/) {
    if (event.type() != QEvent::Shortcut)
        return false;
    form().mnemonic(mnemonicOf(control()->caption()));
    form().keyDone();
    return true;
}

// --- frames --------------------------------------------------------------------------------------

namespace {

class BorderFrame : public QFrame {
  public:
    BorderFrame(QWidget* parent, const ControlView& view) : QFrame(parent), view_(view) {}

  protected:
    void paintEvent(QPaintEvent* event) override {
        const auto* frame = static_cast<const Frame*>(view_.control());
        if (frame == nullptr || frame->border() != FrameBorder::group) {
            QFrame::paintEvent(event);
            return;
        }
        QStyleOptionGroupBox option;
        option.initFrom(this);
        option.text = toQt(frame->caption()).trimmed();
        option.lineWidth = 1;
        option.textAlignment = Qt::AlignLeft;
        option.subControls = QStyle::SC_GroupBoxFrame;
        if (!option.text.isEmpty())
            option.subControls |= QStyle::SC_GroupBoxLabel;
        QPainter painter(this);
        style()->drawComplexControl(QStyle::CC_GroupBox, &option, &painter, this);
    }

  private:
    const ControlView& view_;
};

} // namespace

FrameView::FrameView(FormView& view, Frame& frame, QWidget& parent) : ControlView(view, frame) {
    setWidget(*new Native<BorderFrame>(*this, &parent, *this));
}

void FrameView::show(Property property) {
    ControlView::show(property);
    if (property == Property::look) {
        const auto& frame = static_cast<Frame&>(*control());
        static_cast<QFrame&>(widget()).setFrameShape(
            frame.border() == FrameBorder::line ? QFrame::Box : QFrame::NoFrame);
        widget().update();
    } else if (property == Property::caption) {
        widget().update();
    } else if (property == Property::visible && control()->visible() &&
               static_cast<Frame&>(*control()).isNotice()) {
        QAccessibleEvent alert(&widget(), QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

// --- tabs ----------------------------------------------------------------------------------------

namespace {

class Tabs : public QTabBar {
  public:
    Tabs(QWidget* parent, const ControlView& view) : QTabBar(parent), view_(view) {}

  protected:
    [[nodiscard]] QSize tabSizeHint(int index) const override {
        const auto* strip = static_cast<const TabStrip*>(view_.control());
        const QSize natural = QTabBar::tabSizeHint(index);
        if (strip == nullptr || index >= strip->count())
            return natural;
        const int wanted = view_.view().scale().pixels(strip->tab(index + 1).width);
        return {wanted > 0 ? wanted : natural.width(), height()};
    }

  private:
    const ControlView& view_;
};

} // namespace

TabStripView::TabStripView(FormView& view, TabStrip& strip, QWidget& parent)
    : ControlView(view, strip), tabs_(new Native<Tabs>(*this, &parent, *this)) {
    setWidget(*tabs_);
    tabs_->setExpanding(false);
    tabs_->setUsesScrollButtons(false);
    tabs_->setElideMode(Qt::ElideNone);
    tabs_->setDrawBase(false);
    connect(tabs_, &QTabBar::currentChanged, this, [this](int index) {
        if (showing_ > 0 || this->control() == nullptr)
            return;
        form().userSelectTab(this->strip(), index + 1);
        show(Property::value);
    });
}

void TabStripView::show(Property property) {
    const Nested nested(showing_);
    ControlView::show(property);
    if (property == Property::caption)
        showTabs();
    if (property == Property::value || property == Property::caption)
        tabs_->setCurrentIndex(strip().selected() - 1);
}

void TabStripView::showTabs() {
    while (tabs_->count() > strip().count())
        tabs_->removeTab(tabs_->count() - 1);
    for (int i = 0; i < strip().count(); ++i) {
        const auto& tab = strip().tab(i + 1);
        if (i == tabs_->count())
            tabs_->addTab(toQt(tab.caption));
        else if (tabs_->tabText(i) != toQt(tab.caption))
            tabs_->setTabText(i, toQt(tab.caption));
        tabs_->setTabToolTip(i, plainToolTip(toQt(tab.toolTip)));
    }
}

void TabStripView::press(QMouseEvent& event, QWidget& /*source*/, NativeEvent /*native*/) {
    const int tab = tabs_->tabAt(event.position().toPoint());
    beginPress(event, tab + 1);
    if (tab >= 0 && event.button() == Qt::LeftButton && view().isPressed(*this))
        form().userSelectTab(strip(), tab + 1);
}

void TabStripView::drag(QMouseEvent& event, QWidget& source, NativeEvent native) {
    if (event.buttons() == Qt::NoButton)
        pass(event, source, native);
}

void TabStripView::release(QMouseEvent& event, QWidget& /*source*/, NativeEvent /*native*/) {
    if (view().isPressed(*this) && event.button() != Qt::NoButton)
        view().giveUpPress();
}

void TabStripView::doubleClick(QMouseEvent& event, QWidget& source, NativeEvent native) {
    press(event, source, native);
}

// --- bars and arrows -----------------------------------------------------------------------------

ScrollBarView::ScrollBarView(FormView& view, ScrollBar& bar, QWidget& parent)
    : ControlView(view, bar), bar_(new Native<QScrollBar>(*this, &parent)) {
    setWidget(*bar_);
    connect(bar_, &QScrollBar::valueChanged, this, [this](int value) {
        if (showing_ > 0 || this->control() == nullptr)
            return;
        form().userScroll(static_cast<ScrollBar&>(*this->control()), value);
        if (this->control() != nullptr)
            showValue();
    });
}

void ScrollBarView::show(Property property) {
    ControlView::show(property);
    if (property == Property::value)
        showValue();
    else if (property == Property::look)
        bar_->setOrientation(static_cast<ScrollBar&>(*control()).orientation() ==
                                     Orientation::vertical
                                 ? Qt::Vertical
                                 : Qt::Horizontal);
}

void ScrollBarView::showValue() {
    const Nested nested(showing_);
    const auto& bar = static_cast<ScrollBar&>(*control());
    bar_->setRange(bar.minimum(), bar.maximum());
    bar_->setSingleStep(bar.smallChange());
    bar_->setPageStep(bar.largeChange());
    bar_->setValue(bar.value());
}

void ScrollBarView::press(QMouseEvent& event, QWidget& source, NativeEvent native) {
    pass(event, source, native);
}

void ScrollBarView::release(QMouseEvent& event, QWidget& source, NativeEvent native) {
    pass(event, source, native);
}

void ScrollBarView::doubleClick(QMouseEvent& event, QWidget& source, NativeEvent native) {
    pass(event, source, native);
}

namespace {

class ArrowButton final : public QAbstractButton {
  public:
    ArrowButton(QWidget* parent, Qt::ArrowType arrow) : QAbstractButton(parent), arrow_(arrow) {
        setFocusPolicy(Qt::NoFocus);
        setAutoRepeat(true);
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        QStyleOptionButton option;
        option.initFrom(this);
        option.state |= isDown() ? QStyle::State_Sunken : QStyle::State_Raised;
        style()->drawPrimitive(QStyle::PE_PanelButtonCommand, &option, &painter, this);
        const double size = std::min(width() / 2.0, height() - 4.0);
        const double tip = arrow_ == Qt::UpArrow ? -size / 4 : size / 4;
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled,
                                         QPalette::ButtonText));
        const QPointF center(width() / 2.0, height() / 2.0);
        const QPointF corners[] = {center + QPointF(-size / 2, -tip), center + QPointF(0, tip),
                                   center + QPointF(size / 2, -tip)};
        painter.drawPolygon(corners, 3);
    }

  private:
    Qt::ArrowType arrow_;
};

class Arrows : public QWidget {
  public:
    explicit Arrows(QWidget* parent)
        : QWidget(parent), up(new ArrowButton(this, Qt::UpArrow)),
          down(new ArrowButton(this, Qt::DownArrow)) {}

    ArrowButton* up;
    ArrowButton* down;

  protected:
    void resizeEvent(QResizeEvent* /*event*/) override {
        const int middle = height() / 2;
        up->setGeometry(0, 0, width(), middle);
        down->setGeometry(0, middle, width(), height() - middle);
    }
};

} // namespace

SpinnerView::SpinnerView(FormView& view, Spinner& spinner, QWidget& parent)
    : ControlView(view, spinner) {
    auto* arrows = new Native<Arrows>(*this, &parent);
    setWidget(*arrows);
    const auto spins = [this](ArrowButton* button, int steps, const QString& name) {
        button->setAccessibleName(name);
        connect(button, &QAbstractButton::clicked, this, [this, steps] {
            if (this->control() != nullptr)
                form().userSpin(static_cast<Spinner&>(*this->control()), steps);
        });
    };
    spins(arrows->up, 1, QCoreApplication::translate("VKRDataEntryWidget", "Up"));
    spins(arrows->down, -1, QCoreApplication::translate("VKRDataEntryWidget", "Down"));
}

// --- shapes and pictures -------------------------------------------------------------------------

namespace {

class Painted : public QWidget {
  public:
    Painted(QWidget* parent, const ControlView& view) : QWidget(parent), view_(view) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

    void load(const Picture& picture) {
        picture_ = {};
        if (!picture.empty())
            picture_.loadFromData(reinterpret_cast<const uchar*>(picture.svg.data()),
                                  static_cast<uint>(picture.svg.size()), "svg");
        update();
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const auto* control = view_.control();
        if (control == nullptr)
            return;
        QPainter painter(this);
        const auto* shape = dynamic_cast<const Shape*>(control);
        if (shape != nullptr && !shape->filled()) {
            const QColor fore = toQt(control->foreColor());
            painter.setPen(fore.isValid() ? fore : palette().color(QPalette::WindowText));
            painter.drawRect(rect().adjusted(0, 0, -1, -1));
            return;
        }
        const QColor back = toQt(control->backColor());
        painter.fillRect(rect(), back.isValid() ? back : palette().color(QPalette::Window));
        if (!picture_.isNull())
            painter.drawPixmap(rect(), picture_);
    }

  private:
    const ControlView& view_;
    QPixmap picture_;
};

} // namespace

PaintedView::PaintedView(FormView& view, Control& control, QWidget& parent)
    : ControlView(view, control) {
    setWidget(*new Native<Painted>(*this, &parent, *this));
}

void PaintedView::show(Property property) {
    ControlView::show(property);
    if (property != Property::look)
        return;
    const auto* box = dynamic_cast<PictureBox*>(control());
    static_cast<Painted&>(widget()).load(box == nullptr ? Picture() : box->picture());
}

// --- the view of a kind --------------------------------------------------------------------------

ControlView* makeView(FormView& view, Control& control, QWidget& parent) {
    switch (control.kind()) {
    case ControlKind::textBox: {
        auto& box = static_cast<TextBox&>(control);
        if (box.multiLine())
            return new NotesView(view, box, parent);
        return new LineView(view, box, parent);
    }
    case ControlKind::comboBox:
        return new ComboView(view, static_cast<ComboBox&>(control), parent);
    case ControlKind::label:
        return new LabelView(view, static_cast<Label&>(control), parent);
    case ControlKind::commandButton:
    case ControlKind::optionButton:
    case ControlKind::checkBox:
        return new ButtonView(view, control, parent);
    case ControlKind::scrollBar:
        return new ScrollBarView(view, static_cast<ScrollBar&>(control), parent);
    case ControlKind::spinner:
        return new SpinnerView(view, static_cast<Spinner&>(control), parent);
    case ControlKind::frame:
        return new FrameView(view, static_cast<Frame&>(control), parent);
    case ControlKind::tabStrip:
        return new TabStripView(view, static_cast<TabStrip&>(control), parent);
    case ControlKind::shape:
    case ControlKind::pictureBox:
        return new PaintedView(view, control, parent);
    case ControlKind::menuItem:
        break;
    }
    return nullptr;
}

} // namespace vkr
