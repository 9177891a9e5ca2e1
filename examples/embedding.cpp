// SPDX-License-Identifier: MIT
// The smallest host: one window, one company that is forgotten at the end.
#include "company/company_record.hpp"
#include "control/vkr_data_entry.hpp"
#include "desktop/vkr_data_entry_widget.hpp"

#include <QApplication>

#include <memory>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    auto record = std::make_shared<vkr::CompanyRecord>();

    vkr::VKRDataEntryWidget entry;
    entry.setExchanges({"Nasdaq", "NYSE"});
    entry.setCompany(record->clone()); // a copy, so that Cancel discards
    QObject::connect(&entry, &vkr::VKRDataEntryWidget::unloadRequest, [&](int mode) {
        if (mode == vkr::ulConfirm) // company() leaves the field, commits, returns the record
            record = std::dynamic_pointer_cast<vkr::CompanyRecord>(entry.company());
        entry.close();
    });
    entry.show();
    return QApplication::exec();
}
