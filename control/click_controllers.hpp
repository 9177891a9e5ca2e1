// SPDX-License-Identifier: MIT
#pragma once

#include "control/controller.hpp"
#include "control/data_lock.hpp"
#include "control/more_help.hpp"
#include "control/options.hpp"
#include "quarterly/last_quarter.hpp"

#include <memory>
#include <string_view>
#include <vector>

namespace vkr {

// What is clicked, beside the buttons that close: buttons, links, options, the lock, the labels,
// bars and spinner of the grids. A click anywhere else hides the help frame.
class ClickControllers {
  public:
    ClickControllers(EntryContext& context, YearlyGrid& yearly, QuarterlyGrid& quarterly,
                     LastQuarter& lastQuarter, Options& options, DataLock& lock, MoreHelp& help,
                     Controllers& controllers);

  private:
    // One that does one thing when it is clicked.
    template <typename Act>
    void onClick(std::string_view name, Act act);
    template <typename Made, typename... Parts>
    void add(std::string_view name, Parts&&... parts);

    Controllers& controllers_;
    std::vector<std::unique_ptr<Controller>> made_;
};

// A label or frame: nothing happens at it.
class SilentController final : public Controller {
  public:
    explicit SilentController(EntryContext& context) : context_(context) {}
    void click(Control& /*control*/) override { context_.hideHelpFrame(); }

  private:
    EntryContext& context_;
};

} // namespace vkr
