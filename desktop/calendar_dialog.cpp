// SPDX-License-Identifier: MIT
#include "desktop/calendar_dialog.hpp"

#include <QDialogButtonBox>
#include <QVBoxLayout>

namespace vkr {

CalendarDialog::CalendarDialog(QDate date, const QString& title, QWidget* parent)
    : QDialog(parent), calendar_(new QCalendarWidget(this)) {
    setWindowTitle(title);
    calendar_->setDateRange(QDate(100, 1, 1), QDate(9999, 12, 31));
    calendar_->setGridVisible(true);
    calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar_->setSelectedDate(date.isValid() ? date : QDate::currentDate());
    calendar_->setAccessibleName(title);
    connect(calendar_, &QCalendarWidget::activated, this, &QDialog::accept);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        if (this->date().isValid())
            accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* column = new QVBoxLayout(this);
    column->addWidget(calendar_);
    column->addWidget(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
    calendar_->setFocus();
}

} // namespace vkr
