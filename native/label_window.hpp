// SPDX-License-Identifier: MIT
#pragma once

#include "native/control_window.hpp"

namespace vkr {

class LabelWindow final : public ControlWindow {
  public:
    LabelWindow(ViewHost& host, Label& label, HWND parent);
    void show(Property property) override;
    void showAll() override;

  protected:
    std::optional<LRESULT> handleOwn(const Part& part, UINT message, WPARAM wParam,
                                     LPARAM lParam) override;

  private:
    void showCaption();
    void showLook();
    void paint(HDC context, const RECT& area);
    void paintText(HDC context, RECT area);
    [[nodiscard]] HFONT fittingFont(HDC context, int width);
    [[nodiscard]] UINT flags() const;
    [[nodiscard]] int neededWidth(HDC context) const;
    [[nodiscard]] Label& label() const { return static_cast<Label&>(*control()); }

    std::wstring caption_;
    HFONT font_ = nullptr; // in which the caption fits into that width; null: not known
    int fontWidth_ = 0;
};

} // namespace vkr
