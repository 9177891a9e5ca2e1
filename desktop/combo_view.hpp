// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/line_view.hpp"

class QComboBox;

namespace vkr {

class ComboView final : public LineFieldView {
  public:
    ComboView(ViewHost& host, ComboBox& list, QWidget& parent);
    void show(Property property) override;
    bool wheel(int steps) override;

  protected:
    bool typeInto(QEvent& event) override;
    bool choseEntry() override;
    void press(QMouseEvent& event, QWidget& source, NativeEvent native) override;

  private:
    [[nodiscard]] ComboBox& list() const { return static_cast<ComboBox&>(*control()); }
    void choose(int index);
    void showList();
    void showEditName();

    QComboBox* combo_;
};

} // namespace vkr
