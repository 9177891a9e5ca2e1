// SPDX-License-Identifier: MIT
#pragma once

#include "control/controller.hpp"
#include "control/host_line.hpp"
#include "control/right_click_menu.hpp"
#include "yearly/yearly_grid.hpp"

namespace vkr {

// What the menu's commands do to the form, by the controllers of its fields.
class MenuActions final : public MenuHost {
  public:
    MenuActions(const Session& session, Controllers& controllers, YearlyGrid& yearly,
                HostLine& host)
        : session_(session), controllers_(controllers), yearly_(yearly), host_(host) {}

    void addYear() override { yearly_.addYear(); }
    void removeYear() override { yearly_.removeYear(); }
    std::optional<Date> dateOf(const TextField& field) override {
        return session_.dateOf(field, controllers_.of(field).date().value_or(Datum::LastFYDate));
    }
    void fieldChanged(TextField& field) override { controllers_.of(field).change(field); }
    void leave(TextField& field) override { controllers_.of(field).leave(field); }
    void askAssistant(DataEntryObject object, const std::string& text) override {
        host_.assistant(object, text);
    }

  private:
    const Session& session_;
    Controllers& controllers_;
    YearlyGrid& yearly_;
    HostLine& host_;
};

} // namespace vkr
