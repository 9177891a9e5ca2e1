// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

namespace vkr {

// Draws a form in a window of its own. The form says whether OK closes it; closing the window is
// Cancel.
template <typename Drawn>
class FormDialog : public QDialog {
  public:
    void accept() override {
        form_.pressOk();
        if (!form_.visible())
            QDialog::accept();
    }
    void reject() override {
        form_.pressCancel();
        QDialog::reject();
    }

  protected:
    FormDialog(Drawn& form, QWidget* parent) : QDialog(parent), form_(form) {}
    [[nodiscard]] Drawn& form() const { return form_; }

  private:
    Drawn& form_;
};

} // namespace vkr
