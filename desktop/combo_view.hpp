// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/line_view.hpp"

class QComboBox;
class QCompleter;

namespace vkr {

class ComboView final : public LineFieldView {
  public:
    ComboView(ViewHost& host, ComboBox& list, QWidget& parent);
    void show(Property property) override;
    bool wheel(int steps) override;

  protected:
    bool handleOwn(QEvent& event, QWidget& source, NativeEvent native) override;
    bool typeInto(QEvent& event) override;
    bool choseEntry() override;
    void press(QMouseEvent& event, QWidget& source, NativeEvent native) override;

  private:
    [[nodiscard]] ComboBox& list() const { return static_cast<ComboBox&>(*control()); }
    void choose(int index);
    void showList();
    void showEditName();
    void offerEntries();

    QComboBox* combo_;
    QCompleter* completer_ = nullptr; // from the first key on
};

} // namespace vkr
