// SPDX-License-Identifier: MIT
#pragma once

#include "native/field_window.hpp"

namespace vkr {

// An editable drop-down list. Keys go to its edit control alone: the list's own would change the
// entry behind the form's back. While the list is open it has the keys that move in it.
class ComboWindow final : public FieldWindow {
  public:
    ComboWindow(ViewHost& host, ComboBox& list, HWND parent);
    ~ComboWindow() override;

    void show(Property property) override;
    void showAll() override;
    void place() override;
    std::optional<LRESULT> reflect(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool edit(const MSG& key, int shift) override;
    bool keyOfList(const MSG& key) override;
    bool wheel(int steps) override;
    [[nodiscard]] HWND focusWindow() const override { return edit_.window; }

  protected:
    [[nodiscard]] const Part& editPart() const override { return edit_; }
    std::optional<LRESULT> handleOwn(const Part& part, UINT message, WPARAM wParam,
                                     LPARAM lParam) override;
    void press(const Pointer& pointer) override;
    void releaseButton(const Pointer& pointer) override;
    bool choseEntry() override { return isOpen(); }

  private:
    void showList();
    void open();
    void choose(int index);
    [[nodiscard]] bool isOpen() const;
    [[nodiscard]] ComboBox& list() const { return static_cast<ComboBox&>(*control()); }

    Part edit_;
};

} // namespace vkr
