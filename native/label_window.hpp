// SPDX-License-Identifier: MIT
#pragma once

#include "native/control_window.hpp"

namespace vkr {

class LabelWindow final : public ControlWindow {
  public:
    LabelWindow(ViewHost& host, Label& label, HWND parent);
    void show(Property property) override;

  protected:
    std::optional<LRESULT> handleOwn(const Part& part, UINT message, WPARAM wParam,
                                     LPARAM lParam) override;

  private:
    void showCaption();
    void paint(HDC context, const RECT& area);
    void paintText(HDC context, RECT area);
    [[nodiscard]] UINT flags() const;
    [[nodiscard]] int neededWidth(HDC context) const;
    [[nodiscard]] Label& label() const { return static_cast<Label&>(*control()); }

    std::wstring caption_;
};

} // namespace vkr
