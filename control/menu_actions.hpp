// SPDX-License-Identifier: MIT
#pragma once

#include "control/cell_commands.hpp"
#include "control/controller.hpp"
#include "control/host_line.hpp"
#include "control/right_click_menu.hpp"
#include "yearly/yearly_grid.hpp"

namespace vkr {

// What the menu's commands do to the form, by the controllers of its fields.
class MenuActions final : public MenuHost {
  public:
    MenuActions(const EntryContext& context, Controllers& controllers, YearlyGrid& yearly,
                HostLine& host, CellCommands& cells)
        : context_(context), controllers_(controllers), yearly_(yearly), host_(host),
          cells_(cells) {}

    void addYear() override { yearly_.addYear(); }
    void removeYear() override { yearly_.removeYear(); }
    std::optional<Date> dateOf(const TextField& field) override {
        return context_.dateOf(field, controllers_.of(field).date().value_or(Datum::LastFYDate));
    }
    void fieldChanged(TextField& field) override { controllers_.of(field).change(field); }
    void leave(TextField& field) override { controllers_.of(field).leave(field); }
    void askAssistant(DataEntryObject object, const std::string& text) override {
        host_.assistant(object, text);
    }
    std::optional<MenuCells> cellsWith(const Control& control) const override {
        return cells_.selectedWith(control);
    }
    void carryOut(MenuCommand command) override { cells_.carryOut(command); }

  private:
    const EntryContext& context_;
    Controllers& controllers_;
    YearlyGrid& yearly_;
    HostLine& host_;
    CellCommands& cells_;
};

} // namespace vkr
