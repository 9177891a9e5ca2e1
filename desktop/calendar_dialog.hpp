// SPDX-License-Identifier: MIT
#pragma once

#include <QCalendarWidget>
#include <QDate>
#include <QDialog>

namespace vkr {

// Picks a day. OK, a double-click and Enter confirm it.
class CalendarDialog final : public QDialog {
  public:
    // Opens on the date, on today when it is invalid.
    CalendarDialog(QDate date, const QString& title, QWidget* parent);
    [[nodiscard]] QDate date() const { return calendar_->selectedDate(); }

  private:
    QCalendarWidget* calendar_;
};

} // namespace vkr
