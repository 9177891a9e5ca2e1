// SPDX-License-Identifier: MIT
// A record of a host's own. It has a name and a price, and overrides no more than that: the other
// fields are empty, and a text that is typed into them is marked as not stored.
#include "company/company_base.hpp"
#include "control/vkr_data_entry.hpp"
#include "localizer/localizer.hpp"
#include "platform/virtual_desktop.hpp"

#include <iostream>
#include <memory>
#include <string>

class Quote final : public vkr::CompanyBase {
  public:
    [[nodiscard]] std::string get_Name() const override { return name_; }
    void put_Name(const std::string& value) override { name_ = value; }
    [[nodiscard]] double get_CurrentPrice() const override { return price_; }
    void put_CurrentPrice(double value) override { price_ = value; }

  private:
    std::string name_ = "Acme Inc.";
    double price_ = 120.5;
};

int main() {
    vkr::VirtualDesktop desktop;
    vkr::registerLocalizers(desktop.factory());
    desktop.factory().add(vkr::companyRecordId, [] { return std::make_shared<Quote>(); });

    vkr::VKRDataEntry entry(desktop);
    desktop.attach(entry.form());
    entry.ReadProperties({});
    const auto record = std::make_shared<Quote>();
    entry.put_objCompany(record);

    desktop.click("txtCurrentPrice");
    desktop.type("121.25{TAB}");
    desktop.click("txtSymbol");
    desktop.type("ACM{TAB}");

    std::cout << record->get_Name() << ' ' << record->get_CurrentPrice() << '\n';
    for (const auto& field : entry.unstoredFields())
        std::cout << field.label << ": " << field.text << " - " << field.reason << '\n';
    return record->get_CurrentPrice() == 121.25 ? 0 : 1;
}
