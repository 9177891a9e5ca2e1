// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/qt_values.hpp"
#include "platform/form.hpp"

#include <QPointer>
#include <QWidget>

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <unordered_map>
#include <utility>

class QInputMethodEvent;
class QLabel;
class QWheelEvent;

namespace vkr {

class ControlView;
class FieldView;

// Draws a form and forwards what the user does to it. The form decides everything: which key is
// used, who has the focus, what is selected. Native focus follows the form's.
//
// What a frame holds gets its native widgets when the frame is first on show. What changes in a
// model while its frame is not on show is drawn when the frame comes on show again.
//
// The form must outlive its view.
class FormView : public QWidget, private FormObserver {
  public:
    explicit FormView(Form& form, QWidget* parent = nullptr);
    ~FormView() override;

    [[nodiscard]] Form& form() const { return *form_; }
    // The native widget of a control as its model is now, made where the control has not been on
    // show yet; null for menu entries.
    [[nodiscard]] QWidget* widgetOf(const Control& control);
    // Null where the control has not been on show yet.
    [[nodiscard]] QWidget* madeWidgetOf(const Control& control) const;
    [[nodiscard]] FieldView* fieldView(const TextField& field) const;

    [[nodiscard]] PixelScale scale() const { return scale_; }
    // Follows the screen unless set.
    void setDotsPerInch(double dotsPerInch);
    // The application's family in the size of the form.
    [[nodiscard]] static QFont fontFor(const PixelScale& scale);
    // Of a text in that font; quick for figures.
    [[nodiscard]] int widthOf(const QString& text) const;
    [[nodiscard]] QSize sizeOf(Twips width, Twips height) const;

    // A turn of the wheel that no control uses, in steps (down is positive, fractions come as 0);
    // false: not used.
    std::function<bool(int steps)> wheelTurned;

    // A dialog or a menu is about to take the pointer: the release of a press that is under way
    // will not come here.
    void interrupted() { ++interruptions_; }

    // --- for the views of the controls -------------------------------------------------------
    void keyPress(QKeyEvent& event, ControlView& origin);
    void keyRelease(QKeyEvent& event, ControlView& origin);
    void inputMethod(QInputMethodEvent& event, ControlView& origin);
    void wheel(QWheelEvent& event, ControlView& origin);
    // Of a field in these colours. All that are alike share it.
    [[nodiscard]] const QPalette& fieldPalette(const QColor& back, const QColor& fore);
    // Where on the screen the press is that the form is just hearing of.
    [[nodiscard]] std::optional<QPoint> pressPlace() const { return pressPlace_; }
    // Whether a key is the component's before it is a shortcut of the host.
    [[nodiscard]] bool usesKey(const QKeyEvent& event) const;
    void focusCame(ControlView& view, Qt::FocusReason reason);
    void focusWent(Qt::FocusReason reason);
    // `place` is where on the screen; nothing for a press without a pointer. `tab` is the one under
    // the pointer.
    void beginPress(ControlView& view, MouseButton button, std::optional<QPoint> place = {},
                    int tab = 0);
    void endPress(ControlView& view, MouseButton button, bool inside);
    void giveUpPress();
    [[nodiscard]] bool isPressed(const ControlView& view) const;

    // Options and check boxes as their models have them.
    void showChoices();

    // A word at a field, in front of everything, until the form says that it is over.
    void showNote(const Control& control, const QString& text);

    static void paintMark(QWidget& widget, MarkKind kind); // nothing for none
    // Names and tool tips are there from the first show on.
    [[nodiscard]] bool hasBeenShown() const { return shown_; }

  protected:
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void controlAdded(Control& control) override;
    void controlRemoved(Control& control) override;
    void controlChanged(Control& control, Property property) override;
    void focusChanged() override;
    void noteOver() override;
    void formChanged() override;

    [[nodiscard]] ControlView* viewOf(const Control* control) const;
    [[nodiscard]] ControlView* activeView() const;
    ControlView* ensureView(const Control& control);
    void tell(ControlView& view, Property property);
    template <typename Wanted>
    void makeViews(Wanted&& wanted);
    void addView(Control& control);
    void replaceView(Control& control);
    void nameFields();
    void frameChanged(const Frame& frame);
    void showScale();
    void followTheme();
    void catchUp();
    void feedKey(QKeyEvent& event);
    bool typeCharacter(char32_t character, const std::function<void(const QString&)>& type);
    void followFocus();
    void enter(Qt::FocusReason reason, Control* control);
    bool tabOut(FocusDirection direction);
    [[nodiscard]] bool isInside(const QWidget* widget) const;
    [[nodiscard]] bool isOfHost(const QWidget* widget) const;
    void turnWheel(QWheelEvent& event, ControlView* origin);

    Form* form_;
    PixelScale scale_;
    bool ownScale_ = false;
    bool shown_ = false;
    std::array<double, 128> characterWidths_{};
    std::map<std::pair<QRgb, QRgb>, QPalette> fieldPalettes_;
    std::unordered_map<const Control*, ControlView*> views_;
    std::set<const Frame*> onShow_; // frames whose views are up to date
    QPointer<ControlView> pressed_;
    MouseButton pressedButton_ = MouseButton::left;
    QPointer<QLabel> note_; // made with the first one
    std::optional<QPoint> pressPlace_;
    unsigned interruptions_ = 0;
    int following_ = 0; // native focus is being set to the form's
    int wheelRest_ = 0;
    bool surfacePressed_ = false;
};

} // namespace vkr
