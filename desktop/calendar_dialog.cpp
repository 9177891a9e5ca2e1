// SPDX-License-Identifier: MIT
#include "desktop/calendar_dialog.hpp"

#include "desktop/qt_values.hpp"

#include <QDialogButtonBox>
#include <QVBoxLayout>

namespace vkr {

CalendarDialog::CalendarDialog(CalendarForm& form, QWidget* parent)
    : QDialog(parent), form_(form), calendar_(new QCalendarWidget(this)) {
    const QString caption = toQt(form.caption());
    setWindowTitle(caption);
    calendar_->setDateRange(toQt(form.firstDate()), toQt(form.lastDate()));
    calendar_->setGridVisible(true);
    calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    const QDate date = toQt(form.calendarDate());
    calendar_->setSelectedDate(date.isValid() ? date : QDate::currentDate());
    calendar_->setAccessibleName(caption);
    connect(calendar_, &QCalendarWidget::activated, this, &CalendarDialog::accept);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &CalendarDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CalendarDialog::reject);

    auto* column = new QVBoxLayout(this);
    column->addWidget(calendar_);
    column->addWidget(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
    calendar_->setFocus();
}

void CalendarDialog::accept() {
    form_.setCalendarDate(fromQt(calendar_->selectedDate()).value_or(Date{}));
    form_.pressOk();
    if (!form_.visible())
        QDialog::accept();
}

void CalendarDialog::reject() {
    form_.pressCancel();
    QDialog::reject();
}

} // namespace vkr
