// SPDX-License-Identifier: MIT
#include "desktop/form_view.hpp"

#include "desktop/field_view.hpp"
#include "desktop/notes_view.hpp"
#include "desktop/readable_colors.hpp"
#include "desktop/views.hpp"
#include "desktop/zoom_style.hpp"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cassert>
#include <cmath>

namespace vkr {

namespace {

bool isWithin(const Control& control, const Control& frame) {
    for (const auto* around = control.container(); around != nullptr; around = around->container())
        if (around == &frame)
            return true;
    return false;
}

} // namespace

FormView::FormView(Form& form, QWidget* parent) : QWidget(parent), form_(&form) {
    setFocusPolicy(Qt::TabFocus);
    setAutoFillBackground(true);
    showScale();
    makeViews(isOnShow);
    FormView::formChanged();
    form.setObserver(this);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*old*/, QWidget* now) {
        if (form_->hasFocus() && isOfHost(now) && now->window() == window())
            form_->focusLeft();
    });
}

FormView::~FormView() {
    disconnect(qApp, nullptr, this, nullptr);
    form_->setObserver(nullptr);
    for (const auto& [control, view] : views_)
        view->forget();
    qDeleteAll(findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
    for (const auto& [control, view] : views_)
        delete view;
}

// --- views ---------------------------------------------------------------------------------------

ControlView* FormView::viewOf(const Control* control) const {
    const auto found = views_.find(control);
    return found == views_.end() ? nullptr : found->second;
}

ControlView* FormView::activeView() const {
    return form_->hasFocus() ? viewOf(form_->activeControl()) : nullptr;
}

ControlView* FormView::ensureView(const Control& control) {
    if (viewOf(&control) == nullptr) {
        const auto isBeside = [&](const Control& other) {
            return other.container() == control.container();
        };
        if (control.container() != nullptr)
            ensureView(*control.container());
        makeViews(isBeside);
    }
    return viewOf(&control);
}

QWidget* FormView::widgetOf(const Control& control) {
    auto* view = ensureView(control);
    if (view == nullptr)
        return nullptr;
    view->showDue();
    return &view->widget();
}

QWidget* FormView::madeWidgetOf(const Control& control) const {
    const auto* view = viewOf(&control);
    return view == nullptr ? nullptr : &view->widget();
}

FieldView* FormView::fieldView(const TextField& field) const {
    return dynamic_cast<FieldView*>(viewOf(&field));
}

// Views of the wanted controls, as their models are now.
template <typename Wanted>
void FormView::makeViews(Wanted&& wanted) {
    for (const auto& control : form_->controls()) {
        if (control->kind() == ControlKind::menuItem || !wanted(*control))
            continue;
        if (auto* view = viewOf(control.get()))
            view->showDue();
        else
            addView(*control);
    }
    nameFields();
}

void FormView::addView(Control& control) {
    QWidget* parent = control.container() == nullptr ? this : madeWidgetOf(*control.container());
    auto* view = makeView(*this, control, *parent);
    views_.emplace(&control, view);
    view->showAll();
    if (control.isFocusable()) // else the host's own controls would stand among those of the form
        setTabOrder(this, &view->widget());
}

void FormView::controlAdded(Control& control) {
    const auto* around = control.container();
    const bool hasPlace = around == nullptr || viewOf(around) != nullptr;
    if (control.kind() == ControlKind::menuItem || !isOnShow(control) || !hasPlace)
        return;
    addView(control);
    nameFields();
}

// Labels stand in front of the fields they name.
void FormView::nameFields() {
    for (const auto& control : form_->controls()) {
        if (control->kind() != ControlKind::label)
            continue;
        auto* view = viewOf(control.get());
        const auto* named = static_cast<Label&>(*control).buddy();
        if (view != nullptr && named != nullptr &&
            static_cast<QLabel&>(view->widget()).buddy() != madeWidgetOf(*named))
            view->show(Property::look);
    }
}

void FormView::controlRemoved(Control& control) {
    if (auto* view = viewOf(&control)) {
        views_.erase(&control);
        onShow_.removed(control);
        press_.forget(*view);
        palettesWithin_.erase(&view->widget());
        view->retire();
        checkInvariants();
    }
}

void FormView::checkInvariants() const {
    assert(following_ >= 0);
    press_.checkInvariants();
    assert(std::ranges::all_of(views_,
                               [](const auto& one) { return one.second->control() == one.first; }));
}

// The kind of native widget depends on this property.
void FormView::replaceView(Control& control) {
    controlRemoved(control);
    controlAdded(control);
    if (form_->hasFocus() && form_->activeControl() == &control)
        focusChanged();
}

void FormView::controlChanged(Control& control, Property property) {
    if (control.kind() == ControlKind::frame && setsOnShow(property))
        onShow_.changed(control, [this] { makeViews(isOnShow); });
    // A view that is made later would not know of the order.
    auto* view = property == Property::order ? ensureView(control) : viewOf(&control);
    if (view == nullptr)
        return;
    if (property == Property::look && control.kind() == ControlKind::textBox &&
        static_cast<TextBox&>(control).multiLine() != (dynamic_cast<NotesView*>(view) != nullptr)) {
        replaceView(control);
        return;
    }
    tell(*view, property);
}

void FormView::showChoices() {
    for (const auto& control : form_->controls())
        if (control->kind() == ControlKind::optionButton ||
            control->kind() == ControlKind::checkBox)
            controlChanged(*control, Property::value);
}

void FormView::formChanged() {
    if (form_->width() > 0 && form_->height() > 0)
        setFixedSize(sizeOf(form_->width(), form_->height()));
    QPalette palette;
    if (const QColor back = toQt(form_->backColor()); back.isValid())
        palette.setColor(QPalette::Window, back);
    setPalette(palette);
    forgetPalettes(); // a disabled field fades into the window
    if (form_->mouseIcon().empty())
        unsetCursor();
    else
        setCursor(Qt::PointingHandCursor);
    update();
}

// --- scale ---------------------------------------------------------------------------------------

QSize FormView::sizeOf(Twips width, Twips height) const {
    return {scale_.pixels(width), scale_.pixels(height)};
}

QSize FormView::sizeOf(Twips width, Twips height, int zoom) const {
    const PixelScale scale = scaleAt(zoom);
    return {scale.pixels(width), scale.pixels(height)};
}

PixelScale FormView::scaleAt(int zoom) const {
    return PixelScale(ownDotsPerInch_.value_or(logicalDpiX()) * zoom / 100);
}

void FormView::setDotsPerInch(double dotsPerInch) {
    ownDotsPerInch_ = dotsPerInch;
    showScale();
}

void FormView::setZoom(int percent) {
    if (percent == zoom_)
        return;
    zoom_ = percent;
    const bool first = zoomStyle_ == nullptr;
    if (first)
        zoomStyle_ = std::make_unique<ZoomStyle>();
    zoomStyle_->setFactor(percent / 100.0);
    if (first)
        for (const auto& [control, view] : views_)
            view->widget().setStyle(zoomStyle_.get());
    showScale();
}

QStyle* FormView::ownStyle() const {
    return zoomStyle_.get();
}

QFont FormView::fontFor(const PixelScale& scale) {
    // The form is laid out for letters of this width; a wider family is condensed.
    constexpr Twips sampleWidth = 1545;
    constexpr int narrowest = 75;
    QFont font;
    font.setPixelSize(scale.fontPixels());
    const double width =
        QFontMetricsF(font).horizontalAdvance(QStringLiteral("Date of Last Quarter"));
    if (const double fitting = scale.pixels(sampleWidth); width > fitting)
        font.setStretch(std::max(narrowest, static_cast<int>(100 * fitting / width)));
    return font;
}

const QPalette& FormView::fieldPalette(const QColor& back, const QColor& fore) {
    const auto [found, isNew] = fieldPalettes_.try_emplace({back.rgb(), fore.rgb()});
    QPalette& made = found->second;
    if (isNew) {
        const QColor window = palette().color(QPalette::Window);
        const QColor dimmed = between(back, window, 0.6);
        const QColor text = readable(fore, back);
        const QBrush base(back);
        const QBrush ink(text);
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            made.setBrush(group, QPalette::Base, base);
            made.setBrush(group, QPalette::Text, ink);
        }
        made.setBrush(QPalette::Disabled, QPalette::Base, dimmed);
        made.setBrush(QPalette::Disabled, QPalette::Text,
                      readable(between(text, dimmed, 0.35), dimmed, signContrast));
    }
    return made;
}

const QPalette& FormView::sharedPalette(const QPalette& own, QWidget& widget) {
    auto known = palettesWithin_.find(widget.parentWidget());
    if (known == palettesWithin_.end()) {
        if (widget.testAttribute(Qt::WA_SetPalette))
            widget.setPalette(QPalette());
        known = palettesWithin_.emplace(widget.parentWidget(), widget.palette()).first;
    }
    const QPalette& around = known->second;
    for (const SharedPalette& one : sharedPalettes_)
        if (one.own.isCopyOf(own) && one.around == around)
            return one.whole;
    QPalette whole = own.resolve(around);
    whole.setResolveMask(~QPalette::ResolveMask(0));
    return sharedPalettes_.emplace_back(SharedPalette{own, around, whole}).whole;
}

int FormView::widthOf(const QString& text) const {
    double width = 0;
    for (const QChar character : text) {
        if (character.unicode() >= characterWidths_.size())
            return QFontMetrics(font()).horizontalAdvance(text);
        width += characterWidths_[character.unicode()];
    }
    return static_cast<int>(std::ceil(width));
}

// Always from the size at 100 %: zooming to and fro ends where it began.
void FormView::showScale() {
    scale_ = scaleAt(zoom_);
    noteOver();
    setFont(fontFor(scale_));
    const QFontMetricsF metrics(font());
    for (std::size_t i = 0; i < characterWidths_.size(); ++i)
        characterWidths_[i] = metrics.horizontalAdvance(QChar(static_cast<char16_t>(i)));
    for (const auto& [control, view] : views_)
        tell(*view, Property::place);
    if (form_->width() > 0 && form_->height() > 0)
        setFixedSize(sizeOf(form_->width(), form_->height()));
}

void FormView::paintEvent(QPaintEvent* /*event*/) {
    if (form_->borderStyle() == BorderStyle::none)
        return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

// Colours that were chosen to be readable on the old one.
void FormView::followTheme() {
    forgetPalettes();
    for (const auto& [control, view] : views_) {
        view->dropColors();
        tell(*view, Property::colors);
    }
}

void FormView::colorsAroundChanged(const Control& frame) {
    palettesWithin_.clear();
    for (const auto& [control, view] : views_)
        if (isWithin(*control, frame)) {
            view->dropColors();
            tell(*view, Property::colors);
        }
}

void FormView::forgetPalettes() {
    fieldPalettes_.clear();
    sharedPalettes_.clear();
    palettesWithin_.clear();
}

// --- notes ---------------------------------------------------------------------------------------

void FormView::showNote(const Control& control, const QString& text) {
    const auto* field = madeWidgetOf(control);
    if (field == nullptr || !field->isVisible())
        return;
    if (note_ == nullptr) {
        note_ = new QLabel(this);
        note_->setObjectName(QStringLiteral("note"));
        note_->setTextFormat(Qt::PlainText);
        note_->setFrameStyle(QFrame::Box);
        note_->setMargin(3);
        note_->setAutoFillBackground(true);
        note_->setBackgroundRole(QPalette::ToolTipBase);
        note_->setForegroundRole(QPalette::ToolTipText);
        note_->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    note_->setPalette(QToolTip::palette());
    note_->setText(text);
    note_->setWordWrap(false);
    QSize size = note_->sizeHint();
    if (size.width() > width()) {
        note_->setWordWrap(true);
        size = QSize(width(), note_->heightForWidth(width()));
    }
    // Right below the field, or above it where the form ends.
    const QRect place(field->mapTo(this, QPoint()), field->size());
    QPoint corner = place.bottomLeft() + QPoint(0, 2);
    if (corner.y() + size.height() > height())
        corner.setY(std::max(0, place.top() - 1 - size.height()));
    corner.setX(std::clamp(corner.x(), 0, width() - size.width()));
    note_->setGeometry(QRect(corner, size));
    note_->raise();
    note_->show();
    QAccessibleEvent alert(note_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void FormView::noteOver() {
    if (note_ != nullptr)
        note_->hide();
}

} // namespace vkr
