// SPDX-License-Identifier: MIT
#pragma once

#include "native/windows_api.hpp"

#include <memory>
#include <type_traits>

namespace vkr {

struct DeleteGdi {
    void operator()(void* object) const { DeleteObject(static_cast<HGDIOBJ>(object)); }
};
// A font, brush, pen, region or bitmap of one's own.
template <typename Handle>
using Gdi = std::unique_ptr<std::remove_pointer_t<Handle>, DeleteGdi>;

// Selected into a device context while it lives.
class [[nodiscard]] Selected {
  public:
    Selected(HDC context, HGDIOBJ object)
        : context_(context), before_(SelectObject(context, object)) {}
    ~Selected() { SelectObject(context_, before_); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

  private:
    HDC context_;
    HGDIOBJ before_;
};

// The device context of a window while it lives.
class [[nodiscard]] WindowContext {
  public:
    enum class Part { client, all };
    explicit WindowContext(HWND window, Part part = Part::client)
        : window_(window), context_(part == Part::client ? GetDC(window) : GetWindowDC(window)) {}
    ~WindowContext() { ReleaseDC(window_, context_); }
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;
    operator HDC() const { return context_; } // NOLINT(google-explicit-constructor)

  private:
    HWND window_;
    HDC context_;
};

// Where windows are drawn before they show. It grows to the largest one.
class BackBuffer {
  public:
    BackBuffer() = default;
    ~BackBuffer();
    BackBuffer(const BackBuffer&) = delete;
    BackBuffer& operator=(const BackBuffer&) = delete;
    // A context for a part of that size of what `shown` draws on, with the looks of a new one.
    [[nodiscard]] HDC begin(HDC shown, LONG width, LONG height);
    void end() { RestoreDC(context_, -1); }

  private:
    HDC context_ = nullptr;
    Gdi<HBITMAP> bitmap_;
    HGDIOBJ before_ = nullptr;
    SIZE size_{};
};

// Paints a window's client area in one go: what is drawn shows when it is whole. Into `given` where
// the system or a printer asks for it.
class [[nodiscard]] Painting {
  public:
    Painting(HWND window, HDC given, BackBuffer& buffer);
    ~Painting();
    Painting(const Painting&) = delete;
    Painting& operator=(const Painting&) = delete;
    [[nodiscard]] HDC context() const { return drawn_; }
    [[nodiscard]] const RECT& area() const { return area_; }

  private:
    HWND window_;
    BackBuffer& buffer_;
    PAINTSTRUCT paint_{};
    RECT area_{};
    HDC shown_ = nullptr;
    HDC drawn_ = nullptr;
    bool given_;
};

void fill(HDC context, const RECT& area, COLORREF color);
void outline(HDC context, RECT area, COLORREF color, int width = 1); // inside the area

} // namespace vkr
