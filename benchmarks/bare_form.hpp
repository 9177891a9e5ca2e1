// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <vector>

class QLineEdit;

namespace vkr {

struct BarePart;

// A bare form: for every control of the component's a native one, each with the text of a company,
// all five pages of them, where the component has them.
class BareForm {
  public:
    static constexpr int pages = 5;

    BareForm();

    // Puts the texts of the first or the second company into every field, and into every label
    // where they differ.
    void load(bool second);
    void turnTo(int page); // 1 to pages
    [[nodiscard]] QLineEdit& anyField() { return *anyField_; }
    [[nodiscard]] QWidget& window() { return window_; }

    // What all forms have in common, which is found out once.
    static const std::vector<BarePart>& parts();

  private:
    QWidget window_;
    std::vector<QWidget*> made_; // for each part
    QLineEdit* anyField_ = nullptr;
};

} // namespace vkr
