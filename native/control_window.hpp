// SPDX-License-Identifier: MIT
#pragma once

#include "native/accessible.hpp"
#include "native/guard.hpp"
#include "native/view_host.hpp"
#include "platform/during.hpp"
#include "platform/showing.hpp"

#include <memory>
#include <optional>
#include <span>
#include <string>

namespace vkr {

// The native side of one control. It shows the model in its window and hands every message of that
// window to the form's, which decides how much of it the window itself gets to see. Lives as long
// as its control, or a little longer: without a control it does nothing.
//
// What may be true together: there is a host wherever there is a control. The window is there from
// the view's construction until somebody destroys it. While the model is shown, and while the
// window is at work, nothing that it tells is input of its own; both may be so, within one another.
class ControlWindow : public Heard, public std::enable_shared_from_this<ControlWindow> {
  public:
    ControlWindow(ViewHost& host, Control& control) : host_(&host), control_(&control) {}
    ~ControlWindow() override;
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;

    [[nodiscard]] Control* control() const { return control_; }
    [[nodiscard]] HWND window() const { return main_.window; }
    [[nodiscard]] virtual HWND focusWindow() const { return main_.window; }
    // Windows have their view with them; null for those of others.
    [[nodiscard]] static ControlWindow* of(HWND window);

    // After a change of the model. Each kind of control has a table of native setters, which come
    // after those that all have in common.
    virtual void show(Property property);
    virtual void showAll();
    // After a change that nobody sees: the window gets it with showDue().
    void showLater(Property property) { due_.add(property); }
    void showDue() {
        due_.show([this](Property property) { show(property); });
    }
    virtual void place();
    void showVisible();
    void putBehind(); // its neighbours

    // What the view adds to the native looks: `area` is that of the whole window. Under them only
    // where the system does not draw what is around the client area.
    virtual void paintUnder(HDC /*context*/, const RECT& /*area*/) const {}
    virtual void paintOver(HDC /*context*/, const RECT& /*area*/) const {}

    // A message to the parent that tells of this window, or asks for its looks.
    virtual std::optional<LRESULT> reflect(UINT message, WPARAM wParam, LPARAM lParam);
    // What the window itself makes of a key that came through the form; then the form hears of it.
    virtual bool typeCharacter(char32_t /*character*/) { return false; }
    virtual bool edit(const MSG& /*key*/, int /*shift*/) { return false; }
    // Keys that its open list has for itself; true when used.
    virtual bool keyOfList(const MSG& /*key*/) { return false; }
    virtual void focusGained() {}
    // Something else than the user may have moved the window's selection.
    virtual void catchUp() {}
    virtual void focusLost() {}  // another control has it, or the host
    virtual void pressEnded() {} // the press is over, however it ended
    // A turn of the wheel over the control while it has the focus; false: not used.
    virtual bool wheel(int /*steps*/) { return false; }
    // What has to be there for as long as this window is: those around it.
    void keep(std::shared_ptr<void> around) { around_ = std::move(around); }
    void retire(); // the control goes
    void forget(); // the form's window goes

    [[nodiscard]] std::wstring heardName() const override;
    [[nodiscard]] std::wstring heardDescription() const override;
    [[nodiscard]] virtual std::wstring tip() const;

  protected:
    // A native window, and what it did before its messages went to the view.
    struct Part {
        HWND window = nullptr;
        WNDPROC own = nullptr;
        ControlWindow* view = nullptr;
    };
    using Setter = vkr::Setter<ControlWindow>;
    friend Setter;
    void show(Property property, std::span<const Setter> setters) {
        Setter::call(*this, property, setters);
    }

    // Makes the window, in front of those that are there, at the place of the model.
    void create(const wchar_t* kind, DWORD style, HWND parent, DWORD extended = 0);
    void adopt(Part& part, HWND window);
    void release(Part& part);
    [[nodiscard]] const Part& mainPart() const { return main_; }

    // Messages that the kind of control treats in its own way; nothing where it does not.
    virtual std::optional<LRESULT> handleOwn(const Part& /*part*/, UINT /*message*/,
                                             WPARAM /*wParam*/, LPARAM /*lParam*/) {
        return std::nullopt;
    }
    struct Pointer {
        const Part& part;
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
        MouseButton button;

        [[nodiscard]] POINT place() const { return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}; }
        [[nodiscard]] POINT onScreen() const;
    };
    virtual void press(const Pointer& pointer);
    virtual void drag(const Pointer& pointer);
    virtual void releaseButton(const Pointer& pointer);
    virtual void doubleClick(const Pointer& pointer);
    virtual void showEnabled();
    virtual void showColors() { redraw(); }

    // What the window does with a message by itself.
    LRESULT pass(const Part& part, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    void pass(const Pointer& pointer);
    [[nodiscard]] bool passing() const { return passing_ > 0; }
    [[nodiscard]] bool isActive() const;
    void beginPress(const Pointer& pointer, int tab = 0);
    void endPress(const Pointer& pointer);
    [[nodiscard]] bool isInside(const Pointer& pointer) const;
    void redraw();
    void setFont(HFONT font);
    [[nodiscard]] Form& form() const { return host_->form(); }
    [[nodiscard]] ViewHost& host() const { return *host_; }

    int showing_ = 0; // the model is being shown: what the window tells is no input

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handle(const Part& part, UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> handlePointer(const Part& part, UINT message, WPARAM wParam,
                                         LPARAM lParam);
    std::optional<LRESULT> handleKeys(const Part& part, UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> handleText(const Part& part, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handleFocus(const Part& part, UINT message, WPARAM wParam, LPARAM lParam);
    [[nodiscard]] bool isVisible() const;
    void showPlace();
    void showOrder();
    void showNames();

    std::shared_ptr<void> around_;
    ViewHost* host_;
    Control* control_;
    Part main_;
    DueProperties due_;
    int passing_ = 0; // the window itself is at work
    bool letsGo_ = false;
    wchar_t highHalf_ = 0; // of a pair that comes in two messages
};

} // namespace vkr
