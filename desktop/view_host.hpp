// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/qt_values.hpp"
#include "platform/form.hpp"
#include "platform/press.hpp"

#include <QColor>
#include <QPoint>
#include <QString>

#include <optional>

class QInputMethodEvent;
class QKeyEvent;
class QPalette;
class QStyle;
class QWheelEvent;
class QWidget;

namespace vkr {

class ControlView;

// What the views of the controls need of the one of the form. It hears of everything that is
// pressed, and decides by its form what becomes of it.
class ViewHost {
  public:
    virtual ~ViewHost() = default;

    [[nodiscard]] virtual Form& form() const = 0;
    [[nodiscard]] virtual const QWidget& surface() const = 0; // with the form's font and palette
    [[nodiscard]] virtual PixelScale scale() const = 0;
    // What native widgets are drawn with; null for the application's style.
    [[nodiscard]] virtual QStyle* ownStyle() const = 0;
    // Width of a text in that font; quick for figures.
    [[nodiscard]] virtual int widthOf(const QString& text) const = 0;
    // Of a field in these colours. All that are alike share it.
    [[nodiscard]] virtual const QPalette& fieldPalette(const QColor& back, const QColor& fore) = 0;
    // Such a palette with everything else as it is around the field's widget. Qt shares a palette
    // only where it leaves nothing to what is around, so that a field has to be told when that
    // changes.
    [[nodiscard]] virtual const QPalette& sharedPalette(const QPalette& own, QWidget& widget) = 0;
    // The colours of a frame have changed, which are around its fields.
    virtual void colorsAroundChanged(const Control& frame) = 0;
    // Null where the control has not been on show yet.
    [[nodiscard]] virtual QWidget* madeWidgetOf(const Control& control) const = 0;
    // Names and tool tips are there from the first show on.
    [[nodiscard]] virtual bool hasBeenShown() const = 0;
    // Options and check boxes as their models have them.
    virtual void showChoices() = 0;

    virtual void keyPress(QKeyEvent& event, ControlView& origin) = 0;
    virtual void keyRelease(QKeyEvent& event, ControlView& origin) = 0;
    virtual void inputMethod(QInputMethodEvent& event, ControlView& origin) = 0;
    virtual void wheel(QWheelEvent& event, ControlView& origin) = 0;
    // Whether a key is the component's before it is a shortcut of the host.
    [[nodiscard]] virtual bool usesKey(const QKeyEvent& event) const = 0;
    virtual void focusCame(ControlView* view, Qt::FocusReason reason) = 0; // null: to the surface
    virtual void focusWent(Qt::FocusReason reason) = 0;
    // `place` is where on the screen; nothing for a press without a pointer. `tab` is the one under
    // the pointer.
    virtual void beginPress(ControlView& view, MouseButton button, std::optional<QPoint> place = {},
                            int tab = 0) = 0;
    virtual void endPress(ControlView& view, MouseButton button, PressEnd end) = 0;
    virtual void giveUpPress() = 0;
    // The press is dragged to a place on the screen. True where that selects several controls.
    [[nodiscard]] virtual bool dragged(ControlView& view, QPoint place) = 0;
    [[nodiscard]] virtual bool isPressed(const ControlView& view) const = 0;
};

} // namespace vkr
