// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/form_dialog.hpp"
#include "platform/services.hpp"

#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

#include <vector>

class QGridLayout;

namespace vkr {

// Draws the preview of a block: its switches, its figures one below the other, and what OK will do.
class PasteDialog final : public FormDialog<PasteForm> {
  public:
    PasteDialog(PasteForm& form, QWidget* parent);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void addSwitches(QGridLayout& grid);
    void turn(int index, int chosen);
    void showForm();
    void showLines();
    void showLine(int row, const PasteLine& line);
    void fitLines();

    std::vector<QWidget*> switches_; // a check box or a list each
    QLabel* summary_;
    QTableWidget* lines_;
    QPushButton* ok_ = nullptr;
    bool showing_ = false;
};

} // namespace vkr
