// SPDX-License-Identifier: MIT
#pragma once

#include "automation/component_model.hpp"
#include "automation/control_owner.hpp"
#include "platform/form.hpp"
#include "platform/services.hpp"

#include <memory>

namespace vkr::automation {

// While it lasts, windows are made with the visual styles that this library asks for.
class Styled {
  public:
    Styled();
    Styled(const Styled&) = delete;
    Styled& operator=(const Styled&) = delete;
    ~Styled();

  private:
    ULONG_PTR cookie_ = 0;
    bool active_ = false;
};

// A form's face on the desktop: the services of the desktop, from the start, and the window of the
// form, while it is open.
class FormFace {
  public:
    explicit FormFace(ControlOwner& control);
    ~FormFace();
    FormFace(const FormFace&) = delete;
    FormFace& operator=(const FormFace&) = delete;

    [[nodiscard]] Services& services();

    // As a child of a window of the container's; `place` in its pixels. Throws where there can't be
    // a window.
    void open(HWND parent, const RECT& place, Form& form);
    void close();
    [[nodiscard]] bool isOpen() const { return window() != nullptr; }
    [[nodiscard]] bool isLost() const; // its window went with that of the container
    [[nodiscard]] HWND window() const; // null while closed, or lost
    // In pixels of its monitor, while it is open.
    [[nodiscard]] SIZE sizeOf(const Form& form) const;
    [[nodiscard]] double dotsPerInch() const; // 0 while it is not open
    void move(const RECT& place);
    void setVisible(bool visible);
    void focus();
    // The control knows whether it has the keys: nothing is told of those that came before.
    void forgetKeys();
    // A key message: true where the form has used it.
    bool translate(const MSG& message);
    // As large as the window is, at the context's origin.
    void draw(HDC context);
    // From any thread: what waits for the window's own is released there.
    static void lookForWaiting(HWND window);

  private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace vkr::automation
