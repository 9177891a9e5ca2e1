// SPDX-License-Identifier: MIT
#pragma once

#include "native/control_window.hpp"

namespace vkr {

// A frame, with what it holds inside its window.
class FrameWindow final : public ControlWindow {
  public:
    FrameWindow(ViewHost& host, Frame& frame, HWND parent);
    void show(Property property) override;

    // The class of the windows that are ours alone, registered at need.
    [[nodiscard]] static const wchar_t* kind();

  protected:
    std::optional<LRESULT> handleOwn(const Part& part, UINT message, WPARAM wParam,
                                     LPARAM lParam) override;
    void press(const Pointer& pointer) override;
    void doubleClick(const Pointer& pointer) override;

  private:
    void tellNotice();
    void paint(HDC context, const RECT& area) const;
    void paintGroup(HDC context, RECT area) const;
    [[nodiscard]] bool isOnDisabled(const Pointer& pointer) const;
};

} // namespace vkr
