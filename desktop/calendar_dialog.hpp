// SPDX-License-Identifier: MIT
#pragma once

#include "platform/services.hpp"

#include <QCalendarWidget>
#include <QDialog>

namespace vkr {

// Draws a calendar form: the toolkit's calendar over OK and Cancel. Enter in the calendar and a
// double-click on a day are OK, closing the window is Cancel.
class CalendarDialog final : public QDialog {
  public:
    CalendarDialog(CalendarForm& form, QWidget* parent);

  public slots:
    void accept() override;
    void reject() override;

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void showWeekends();

    CalendarForm& form_;
    QCalendarWidget* calendar_;
};

} // namespace vkr
