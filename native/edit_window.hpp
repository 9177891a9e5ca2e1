// SPDX-License-Identifier: MIT
#pragma once

#include "native/field_window.hpp"

namespace vkr {

// A text box, of one line or of several.
class EditWindow final : public FieldWindow {
  public:
    EditWindow(ViewHost& host, TextBox& box, HWND parent);
    void show(Property property) override;
    void showAll() override;

    [[nodiscard]] bool hasLines() const override { return hasLines_; }

  private:
    void fitFigure();
    void useFont(HFONT font);
    [[nodiscard]] int margin() const; // beside the text
    [[nodiscard]] int room() const;

    bool hasLines_;
    bool condensed_ = false;
};

} // namespace vkr
