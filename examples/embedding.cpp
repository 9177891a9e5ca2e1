// SPDX-License-Identifier: MIT
// The smallest host: one window, one company that is forgotten at the end.
#include "company/company_record.hpp"
#include "desktop/vkr_data_entry_widget.hpp"

#include <QApplication>

#include <memory>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    auto record = std::make_shared<vkr::CompanyRecord>();

    vkr::VKRDataEntryWidget entry;
    entry.setExchanges({"Nasdaq", "NYSE"});
    entry.setCompany(record->clone()); // a copy, so that Cancel discards
    QObject::connect(&entry, &vkr::VKRDataEntryWidget::accepted, [&] {
        // company() leaves the field, commits, returns the record
        record = std::dynamic_pointer_cast<vkr::CompanyRecord>(entry.company());
        entry.close();
    });
    QObject::connect(&entry, &vkr::VKRDataEntryWidget::rejected, &entry, &QWidget::close);

    // The title names the company, and shows whether there are changes.
    const auto showTitle = [&] {
        entry.setWindowTitle(vkr::VKRDataEntryWidget::windowTitleFor(entry.title()));
    };
    showTitle();
    QObject::connect(&entry, &vkr::VKRDataEntryWidget::titleChanged, showTitle);
    QObject::connect(&entry, &vkr::VKRDataEntryWidget::dirtyChanged, &entry,
                     &QWidget::setWindowModified);
    entry.show();
    return QApplication::exec();
}
