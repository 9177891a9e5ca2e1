// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/view_host.hpp"
#include "platform/press.hpp"
#include "platform/showing.hpp"
#include "platform/wheel_turns.hpp"

#include <QPointer>
#include <QWidget>

#include <array>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <unordered_map>
#include <utility>

class QInputMethodEvent;
class QLabel;
class QWheelEvent;

namespace vkr {

class ControlView;
class FieldView;
class ZoomStyle;

// Whoever zooms a form by the wheel.
class WheelZoom {
  public:
    virtual void zoomTurned(int steps) = 0; // down is positive

  protected:
    ~WheelZoom() = default;
};

// Draws a form and forwards what the user does to it. The form decides everything: which key is
// used, who has the focus, what is selected. Native focus follows the form's.
//
// What a frame holds gets its native widgets when the frame is first on show. What changes in a
// model while its frame is not on show is drawn when the frame comes on show again.
//
// What may be true together: at most one press is under way, of a control that has a view; a place
// is only told during the form's mouseDown of it. While the view itself sets native focus
// (`following_`) no news of it goes to the form. A view is there for a control of the form only,
// and until that is removed.
//
// The form must outlive its view.
class FormView final : public QWidget, public ViewHost, private FormObserver {
  public:
    explicit FormView(Form& form, QWidget* parent = nullptr);
    ~FormView() override;

    // The native widget of a control as its model is now, made where the control has not been on
    // show yet; null for menu entries.
    [[nodiscard]] QWidget* widgetOf(const Control& control);
    // Null where the control has not been on show yet.
    [[nodiscard]] FieldView* fieldView(const TextField& field) const;

    // Follows the screen unless set.
    void setDotsPerInch(double dotsPerInch);
    // The whole form and its fonts, in percent of their own size; 100 at first.
    void setZoom(int percent);
    [[nodiscard]] int zoom() const { return zoom_; }
    // The application's family in the size of the form.
    [[nodiscard]] static QFont fontFor(const PixelScale& scale);
    [[nodiscard]] QSize sizeOf(Twips width, Twips height) const;
    [[nodiscard]] QSize sizeOf(Twips width, Twips height, int zoom) const;

    // With Ctrl, wherever the pointer is, instead of anything else; null for none.
    void setWheelZoom(WheelZoom* zoom) { wheelZoom_ = zoom; }
    [[nodiscard]] bool wheelZooms() const { return wheelZoom_ != nullptr; }

    // A dialog or a menu is about to take the pointer: the release of a press that is under way
    // will not come here.
    void interrupted() { ++interruptions_; }
    // Where on the screen the press is that the form is just hearing of.
    [[nodiscard]] std::optional<QPoint> pressPlace() const { return pressPlace_; }

    // A word at a field, in front of everything, until the form says that it is over.
    void showNote(const Control& control, const QString& text);

    // --- for the views of the controls -------------------------------------------------------
    [[nodiscard]] Form& form() const override { return *form_; }
    [[nodiscard]] const QWidget& surface() const override { return *this; }
    [[nodiscard]] PixelScale scale() const override { return scale_; }
    [[nodiscard]] QStyle* ownStyle() const override;
    [[nodiscard]] int widthOf(const QString& text) const override;
    [[nodiscard]] const QPalette& fieldPalette(const QColor& back, const QColor& fore) override;
    [[nodiscard]] const QPalette& sharedPalette(const QPalette& own, QWidget& widget) override;
    void colorsAroundChanged(const Control& frame) override;
    [[nodiscard]] QWidget* madeWidgetOf(const Control& control) const override;
    [[nodiscard]] bool hasBeenShown() const override { return shown_; }
    void showChoices() override;
    void keyPress(QKeyEvent& event, ControlView& origin) override;
    void keyRelease(QKeyEvent& event, ControlView& origin) override;
    void inputMethod(QInputMethodEvent& event, ControlView& origin) override;
    void wheel(QWheelEvent& event, ControlView& origin) override;
    [[nodiscard]] bool usesKey(const QKeyEvent& event) const override;
    void focusCame(ControlView* view, Qt::FocusReason reason) override;
    void focusWent(Qt::FocusReason reason) override;
    void beginPress(ControlView& view, MouseButton button, std::optional<QPoint> place = {},
                    int tab = 0) override;
    void endPress(ControlView& view, MouseButton button, PressEnd end) override;
    void giveUpPress() override;
    [[nodiscard]] bool dragged(ControlView& view, QPoint place) override;
    [[nodiscard]] bool isPressed(const ControlView& view) const override;

  protected:
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    class KeyEditor;
    class InputEditor;

    void controlAdded(Control& control) override;
    void controlRemoved(Control& control) override;
    void controlChanged(Control& control, Property property) override;
    void focusChanged() override;
    void noteOver() override;
    void formChanged() override;
    bool takesTab(FocusDirection direction) override;

    [[nodiscard]] ControlView* viewOf(const Control* control) const;
    [[nodiscard]] ControlView* activeView() const;
    ControlView* ensureView(const Control& control);
    template <typename Wanted>
    void makeViews(Wanted&& wanted);
    void addView(Control& control);
    void replaceView(Control& control);
    void nameFields();
    [[nodiscard]] PixelScale scaleAt(int zoom) const;
    void showScale();
    void followTheme();
    void forgetPalettes();
    void catchUp();
    void feedKey(QKeyEvent& event);
    void followFocus();
    [[nodiscard]] bool isInside(const QWidget* widget) const;
    [[nodiscard]] bool isOfHost(const QWidget* widget) const;
    void turnWheel(QWheelEvent& event, ControlView* origin);
    bool inputEvent(QEvent& event);
    void checkInvariants() const;

    Form* form_;
    PixelScale scale_;
    std::optional<double> ownDotsPerInch_; // instead of those of the screen
    int zoom_ = 100;
    std::unique_ptr<ZoomStyle> zoomStyle_; // from the first other zoom on
    bool shown_ = false;
    std::array<double, 128> characterWidths_{};
    std::map<std::pair<QRgb, QRgb>, QPalette> fieldPalettes_;
    struct SharedPalette {
        QPalette own; // one of those
        QPalette around;
        QPalette whole;
    };
    std::deque<SharedPalette> sharedPalettes_;          // one for each look
    std::map<const QWidget*, QPalette> palettesWithin_; // of a field without colours of its own
    std::unordered_map<const Control*, ControlView*> views_;
    FramesOnShow onShow_;
    Press<ControlView> press_;
    QPointer<QLabel> note_; // made with the first one
    std::optional<QPoint> pressPlace_;
    unsigned interruptions_ = 0;
    int following_ = 0; // native focus is being set to the form's
    WheelTurns wheelTurns_;
    WheelZoom* wheelZoom_ = nullptr;
    bool surfacePressed_ = false;
};

} // namespace vkr
