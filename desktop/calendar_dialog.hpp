// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/form_dialog.hpp"
#include "platform/services.hpp"

#include <QCalendarWidget>

namespace vkr {

// Draws a calendar form: the toolkit's calendar over OK and Cancel. Enter in the calendar and a
// double-click on a day are OK.
class CalendarDialog final : public FormDialog<CalendarForm> {
  public:
    CalendarDialog(CalendarForm& form, QWidget* parent);

    void accept() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void showWeekends();

    QCalendarWidget* calendar_;
};

} // namespace vkr
