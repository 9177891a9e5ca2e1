// SPDX-License-Identifier: MIT
#pragma once

#include "native/windows_api.hpp"

#include <memory>

namespace vkr {

class SurfaceOwner {
  public:
    virtual LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) = 0;

  protected:
    ~SurfaceOwner() = default;
};

// The window of a form. It is there until the last message of a window in it is handled, though the
// form's view may have gone within.
class Surface final : public std::enable_shared_from_this<Surface> {
  public:
    Surface(HWND parent, const RECT& place, SurfaceOwner& owner);
    ~Surface();
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    [[nodiscard]] HWND window() const { return window_; } // null once its parent has gone
    void close();                                         // nobody handles its messages any more

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    SurfaceOwner* owner_; // null once it is closed
    HWND window_ = nullptr;
};

} // namespace vkr
