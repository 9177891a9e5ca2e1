// SPDX-License-Identifier: MIT
#pragma once

#include "binding/trailing_earnings.hpp"
#include "company/company_record.hpp"
#include "control/vkr_data_entry.hpp"
#include "localizer/localizer.hpp"
#include "platform/virtual_desktop.hpp"

#include <memory>
#include <string>
#include <vector>

namespace vkr {

// Writes down every event in the order it came.
class EventRecorder final : public VKRDataEntryEvents {
  public:
    void TabChange(TABObject tab) override { log.push_back("TabChange " + std::to_string(tab)); }
    void MoreHelp(std::int16_t object) override {
        log.push_back("MoreHelp " + std::to_string(object));
    }
    void Assistant(std::int16_t object, const Variant& value) override {
        log.push_back("Assistant " + std::to_string(object) + " " + value.toText());
    }
    void UnloadRequest(UnloadModeType mode) override {
        log.push_back("UnloadRequest " + std::to_string(mode));
    }
    void UpdatePrice(const std::shared_ptr<iVKR_Company>& /*company*/) override {
        log.emplace_back("UpdatePrice");
    }
    void UpdateData(const std::shared_ptr<iVKR_Company>& /*company*/) override {
        log.emplace_back("UpdateData");
    }
    void UpdateQDataOnly(const std::shared_ptr<iVKR_Company>& /*company*/) override {
        log.emplace_back("UpdateQDataOnly");
    }

    std::vector<std::string> log;
};

// The component on a display-less desktop, as a running host places it: with both localizers, the
// project's record class, and its start-up values restored from an empty property set.
struct EntryScene {
    VirtualDesktop desktop = VirtualDesktop();
    EventRecorder events;
    std::unique_ptr<VKRDataEntry> entry;

    EntryScene() {
        registerLocalizers(desktop.factory());
        registerCompanyRecord(desktop.factory());
        registerTrailingEarnings(desktop.factory());
        desktop.setToday(*makeDate(2026, 11, 21));
        entry = std::make_unique<VKRDataEntry>(desktop);
        entry->setEvents(&events);
        desktop.attach(entry->form());
        entry->InitProperties();
        entry->ReadProperties(PropertyBag());
        events.log.clear();
        desktop.forget();
    }

    // Hands in a record, as a host does; the record is the one that is edited.
    void load(const std::shared_ptr<iVKR_Company>& company) { entry->put_objCompany(company); }

    [[nodiscard]] Form& form() const { return entry->form(); }
    [[nodiscard]] TextField& field(std::string_view name, int index = Control::noIndex) const {
        return form().get<TextField>(name, index);
    }
    [[nodiscard]] std::string text(std::string_view name, int index = Control::noIndex) const {
        return field(name, index).text();
    }

    void typeAt(std::string_view id, std::string_view keys) {
        desktop.click(id);
        desktop.type(keys);
    }
    // Types over what a field shows, and leaves it with Tab.
    void enter(std::string_view id, std::string_view keys) {
        typeAt(id, "^a{DEL}" + std::string(keys) + "{TAB}");
    }
};

// A company with a figure in every datum and every element, all different, with more digits than
// any pattern shows.
[[nodiscard]] std::shared_ptr<CompanyRecord> fullCompany();

} // namespace vkr
