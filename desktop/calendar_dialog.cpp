// SPDX-License-Identifier: MIT
#include "desktop/calendar_dialog.hpp"

#include "desktop/qt_values.hpp"
#include "desktop/readable_colors.hpp"
#include "platform/part_names.hpp"
#include "platform/text.hpp"

#include <QDialogButtonBox>
#include <QEvent>
#include <QPushButton>
#include <QTextCharFormat>
#include <QVBoxLayout>

#include <string>
#include <string_view>

namespace vkr {

CalendarDialog::CalendarDialog(CalendarForm& form, QWidget* parent)
    : FormDialog(form, parent), calendar_(new QCalendarWidget(this)) {
    const QString caption = toQt(form.caption());
    setWindowTitle(caption);
    calendar_->setDateRange(toQt(form.firstDate()), toQt(form.lastDate()));
    calendar_->setGridVisible(true);
    calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    const QDate date = toQt(form.calendarDate());
    calendar_->setSelectedDate(date.isValid() ? date : QDate::currentDate());
    calendar_->setObjectName(toQt(part_name::calendar));
    calendar_->setAccessibleName(caption);
    showWeekends();
    calendar_->installEventFilter(this);
    connect(calendar_, &QCalendarWidget::activated, this, &CalendarDialog::accept);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    struct Named {
        QDialogButtonBox::StandardButton which;
        std::string_view name;
        const std::string& caption;
    };
    const Named named[] = {{QDialogButtonBox::Ok, part_name::ok, form.okCaption()},
                           {QDialogButtonBox::Cancel, part_name::cancel, form.cancelCaption()}};
    for (const Named& one : named) {
        auto* button = buttons->button(one.which);
        button->setText(toQt(one.caption));
        button->setObjectName(toQt(one.name));
        button->setAccessibleName(toQt(withoutMnemonic(one.caption)));
    }
    connect(buttons, &QDialogButtonBox::accepted, this, &CalendarDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CalendarDialog::reject);

    auto* column = new QVBoxLayout(this);
    column->addWidget(calendar_);
    column->addWidget(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
    calendar_->setFocus();
}

// Red, as everywhere; the toolkit's own red is too dark for a dark theme.
void CalendarDialog::showWeekends() {
    const QPalette& shown = calendar_->palette();
    const QColor red = readable(readable(Qt::red, shown.color(QPalette::Base)),
                                shown.color(QPalette::AlternateBase)); // behind their names
    for (const auto day : {Qt::Saturday, Qt::Sunday}) {
        QTextCharFormat format = calendar_->weekdayTextFormat(day);
        format.setForeground(red);
        calendar_->setWeekdayTextFormat(day, format);
    }
}

bool CalendarDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == calendar_ && event->type() == QEvent::PaletteChange)
        showWeekends();
    return FormDialog::eventFilter(watched, event);
}

void CalendarDialog::accept() {
    form().setCalendarDate(fromQt(calendar_->selectedDate()).value_or(Date{}));
    FormDialog::accept();
}

} // namespace vkr
