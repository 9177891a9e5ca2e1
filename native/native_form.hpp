// SPDX-License-Identifier: MIT
#pragma once

#include "native/surface.hpp"
#include "native/view_host.hpp"
#include "platform/press.hpp"
#include "platform/showing.hpp"
#include "platform/wheel_turns.hpp"

#include <map>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>

namespace vkr {

class FieldWindow;

// What a form asks of the control that it is the window of. All of it comes from within a message:
// what it leads to outside is done when that is through.
class NativeFormOwner {
  public:
    // Tab at the end of the tab order, when the form has been left: without an owner the focus goes
    // to the next control of the host's window where Tab stops. False lets it wrap.
    virtual bool tabbedOut(FocusDirection direction) = 0;
    virtual void keysCame() = 0;      // to one of its windows, also by the form itself
    virtual void scaleFollowed() = 0; // that of its monitor: it has another size now

  protected:
    ~NativeFormOwner() = default;
};

// Draws a form with the system's own controls, as a child of a window of the host's, and forwards
// what the user does to it. The form decides everything: which key is used, who has the focus, what
// is selected. Native focus follows the form's.
//
// What a frame holds gets its native windows when the frame is first on show. What changes in a
// model while its frame is not on show is drawn when the frame comes on show again.
//
// What may be true together: at most one press is under way, of a control that has a window; what
// it is dragged over is told of that press, and its place only during the form's mouseDown of it.
// While native focus is being set to the form's (`following_`) no news of it goes to the form. A
// window is there for a control of the form only, and until that is removed. Only what has a window
// of tips has one that is told.
//
// The form must outlive it. All calls belong to the thread that made it. It may be destroyed within
// any call that comes from it.
//
// A host gives each key message of its loop to translate() first, calls focus() when its own window
// has been activated, and move() when its size has changed. With that it is a control like others
// in a dialog: Tab goes in and out.
class NativeForm final : public ViewHost, private FormObserver, private SurfaceOwner {
  public:
    // `place` in pixels of the parent. The window is shown at once.
    NativeForm(HWND parent, const RECT& place, Form& form);
    ~NativeForm() override;
    NativeForm(const NativeForm&) = delete;
    NativeForm& operator=(const NativeForm&) = delete;

    [[nodiscard]] HWND window() const { return surface_->window(); }
    void move(const RECT& place);
    void setVisible(bool visible);

    // The keys go to the control of the form that has them, or had them last.
    void focus();
    // The keys come from the host's controls by Tab or Shift+Tab.
    void focus(FocusDirection direction);
    // A key message of the host's loop. True: it was for the form, which has used it, and goes no
    // further. False: it is the host's; where the host has no use for it either it is translated
    // and dispatched as always.
    bool translate(const MSG& message);
    // Null for none.
    void setOwner(NativeFormOwner* owner) { owner_ = owner; }

    // Into any device context, also of a printer or a metafile: as large as its window is now, the
    // corner at the context's origin.
    void draw(HDC context);

    // Follows the monitor that it is on unless set.
    void setDotsPerInch(double dotsPerInch);
    [[nodiscard]] SIZE sizeOf(Twips width, Twips height) const;

    // --- for the services ----------------------------------------------------------------------
    // A dialog or a menu is about to take the pointer: the release of a press that is under way
    // will not come here.
    void interrupted();
    // It is over: the keys go back to where the form has them.
    void resumed();
    // Where on the screen the press is that the form is just hearing of.
    [[nodiscard]] std::optional<POINT> pressPlace() const { return pressPlace_; }
    // A word at a field, in front of everything, until the form says that it is over.
    void showNote(const Control& control, const std::wstring& text);
    [[nodiscard]] HWND noteWindow() const { return note_; } // null while there is none
    // The native window of a control as its model is now, made where the control has not been on
    // show yet; null for menu entries.
    [[nodiscard]] HWND windowOf(const Control& control);
    // Null where the control has not been on show yet.
    [[nodiscard]] FieldWindow* fieldWindow(const TextField& field) const;

    // --- for the windows of the controls -------------------------------------------------------
    [[nodiscard]] Form& form() const override { return *form_; }
    [[nodiscard]] const PixelScale& scale() const override { return scale_; }
    [[nodiscard]] Fonts& fonts() override { return *fonts_; }
    [[nodiscard]] Palette& palette() override { return palette_; }
    [[nodiscard]] BackBuffer& backBuffer() override { return backBuffer_; }
    [[nodiscard]] std::optional<LRESULT> reflected(UINT message, WPARAM wParam,
                                                   LPARAM lParam) override;
    bool keyDown(const MSG& message) override;
    void keyUp(const MSG& message) override;
    void composed(std::u32string_view text) override;
    bool wheel(ControlWindow* origin, int delta) override;
    void focusCame(ControlWindow* view) override;
    void focusWent(HWND to) override;
    void beginPress(ControlWindow& view, MouseButton button, std::optional<POINT> place,
                    int tab = 0) override;
    void endPress(ControlWindow& view, MouseButton button, PressEnd end) override;
    void giveUpPress() override;
    [[nodiscard]] bool dragged(ControlWindow& view, POINT place) override;
    [[nodiscard]] bool isPressed(const ControlWindow& view) const override;
    void hover(HWND over, const ControlWindow& view, const MSG& message) override;

  private:
    class KeyEditor;
    using View = std::shared_ptr<ControlWindow>;

    void controlAdded(Control& control) override;
    void controlRemoved(Control& control) override;
    void controlChanged(Control& control, Property property) override;
    void focusChanged() override;
    void noteOver() override;
    void formChanged() override;
    bool takesTab(FocusDirection direction) override;

    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) override;
    std::optional<LRESULT> handleInput(UINT message, WPARAM wParam, LPARAM lParam);
    [[nodiscard]] ControlWindow* viewOf(const Control* control) const;
    [[nodiscard]] ControlWindow* activeView() const;
    ControlWindow* ensureView(const Control& control);
    template <typename Wanted>
    void makeViews(Wanted&& wanted);
    void addView(Control& control);
    void showScale();
    void followDotsPerInch();
    void followTheme();
    void passOn(UINT message) const;
    void followFocus();
    void paint(HDC context) const;
    [[nodiscard]] bool isInside(HWND other) const;
    void drawInside(HWND parent, HDC context) const;
    void showTip(HWND over, std::wstring text);
    void checkInvariants() const;

    Form* form_;
    NativeFormOwner* owner_ = nullptr;
    std::shared_ptr<Surface> surface_;
    PixelScale scale_;
    bool ownScale_ = false;
    std::unique_ptr<Fonts> fonts_;
    Palette palette_;
    BackBuffer backBuffer_;
    std::unordered_map<const Control*, View> views_;
    FramesOnShow onShow_;
    Press<ControlWindow> press_;
    std::optional<POINT> pressPlace_;
    unsigned interruptions_ = 0;
    int following_ = 0; // native focus is being set to the form's
    WheelTurns wheelTurns_;
    bool surfacePressed_ = false;
    HWND note_ = nullptr;
    HWND tip_ = nullptr; // made with the first one
    HWND tipOf_ = nullptr;
    std::wstring tipText_;
    std::shared_ptr<const bool> life_ = std::make_shared<const bool>(true); // gone with it
};

} // namespace vkr
