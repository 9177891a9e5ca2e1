// SPDX-License-Identifier: MIT
// The component without a display or a toolkit: for scripts, and for tests of a host.
#include "company/company_record.hpp"
#include "control/vkr_data_entry.hpp"
#include "localizer/localizer.hpp"
#include "platform/virtual_desktop.hpp"

#include <iostream>
#include <memory>

int main() {
    vkr::VirtualDesktop desktop;
    vkr::registerLocalizers(desktop.factory());
    vkr::registerCompanyRecord(desktop.factory());

    vkr::VKRDataEntry entry(desktop);
    desktop.attach(entry.form());
    entry.ReadProperties({});
    const auto record = std::make_shared<vkr::CompanyRecord>();
    entry.put_objCompany(record);

    desktop.click("txtName");
    desktop.type("Acme Inc.{ENTER}acm{ENTER}");
    desktop.click("txtCurrentPrice");
    desktop.type("120.5{TAB}");

    std::cout << record->get_Name() << " (" << record->get_Symbol() << ") "
              << record->get_CurrentPrice() << '\n';
    return record->get_CurrentPrice() == 120.5 ? 0 : 1;
}
