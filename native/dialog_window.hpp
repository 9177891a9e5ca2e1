// SPDX-License-Identifier: MIT
#pragma once

#include "native/fonts.hpp"

#include <optional>
#include <string_view>

namespace vkr {

// A window of its own above the one of the form, which gets no input meanwhile.
class DialogWindow {
  public:
    DialogWindow(const DialogWindow&) = delete;
    DialogWindow& operator=(const DialogWindow&) = delete;
    virtual ~DialogWindow();

    // Until isOpen() is false.
    void run();

  protected:
    // The look of the window is `style` beside a caption and a box for closing.
    DialogWindow(std::string_view caption, HWND owner, const PixelScale& scale, DWORD style);

    [[nodiscard]] virtual bool isOpen() const = 0;
    [[nodiscard]] virtual HWND first() const = 0; // has the keys at the beginning
    virtual void accept() = 0;
    virtual void cancel() = 0;
    // A key of the whole window; true when used.
    virtual bool key(const MSG& message);
    virtual std::optional<LRESULT> handleOwn(UINT message, WPARAM wParam, LPARAM lParam) = 0;

    [[nodiscard]] HWND addPart(const wchar_t* kind, std::wstring_view text, DWORD style, int part,
                               const RECT& place);
    // In the middle of the owner, or beside a place of the screen that it should not hide.
    void giveRoom(SIZE inside, const std::optional<RECT>& beside = {});
    [[nodiscard]] RECT workArea() const; // of the monitor that the owner is on

    [[nodiscard]] HWND window() const { return window_; } // null where it went with its owner
    [[nodiscard]] const PixelScale& scale() const { return scale_; }
    [[nodiscard]] const Fonts& fonts() const { return fonts_; }

    static constexpr int okPart = IDOK;
    static constexpr int cancelPart = IDCANCEL;

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
    [[nodiscard]] DWORD style() const;

    HWND owner_;
    PixelScale scale_;
    Fonts fonts_;
    HWND window_ = nullptr;
};

} // namespace vkr
