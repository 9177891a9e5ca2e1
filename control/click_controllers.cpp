// SPDX-License-Identifier: MIT
#include "control/click_controllers.hpp"

#include "binding/company_loader.hpp"
#include "form/controls.hpp"
#include "input/options_tab.hpp"
#include "platform/text.hpp"

#include <utility>

namespace vkr {

namespace {

template <typename Act>
class ClickController final : public Controller {
  public:
    explicit ClickController(Act act) : act_(std::move(act)) {}
    void click(Control& /*control*/) override { act_(); }

  private:
    Act act_;
};

class OptionController final : public Controller {
  public:
    OptionController(EntryContext& context, OptionsHost& options)
        : context_(context), options_(options) {}
    void click(Control& control) override {
        context_.hideHelpFrame();
        clickOption(control, options_);
    }

  private:
    EntryContext& context_;
    OptionsHost& options_;
};

// The bar that pans the yearly grid.
class YearlyBarController final : public Controller {
  public:
    YearlyBarController(EntryContext& context, YearlyGrid& yearly)
        : context_(context), yearly_(yearly) {}
    void scroll() override {
        context_.hideHelpFrame(); // its control is elsewhere now
        yearly_.pan();
    }

  private:
    EntryContext& context_;
    YearlyGrid& yearly_;
};

// What moves the quarters: the bar, the spinner, and the labels of the rows.
class QuartersController final : public Controller {
  public:
    QuartersController(EntryContext& context, QuarterlyGrid& quarterly, LastQuarter& lastQuarter)
        : context_(context), quarterly_(quarterly), lastQuarter_(lastQuarter) {}
    void scroll() override {
        context_.hideHelpFrame();
        quarterly_.scroll();
    }
    void spin(int steps) override { lastQuarter_.move(steps); }
    void click(Control& /*control*/) override { context_.hideHelpFrame(); }
    // The quarter of the row becomes the last one.
    void doubleClick(Control& control) override { lastQuarter_.move(-control.index()); }

  private:
    EntryContext& context_;
    QuarterlyGrid& quarterly_;
    LastQuarter& lastQuarter_;
};

} // namespace

template <typename Made, typename... Parts>
void ClickControllers::add(std::string_view name, Parts&&... parts) {
    made_.push_back(std::make_unique<Made>(std::forward<Parts>(parts)...));
    controllers_.add(name, *made_.back());
}

template <typename Act>
void ClickControllers::onClick(std::string_view name, Act act) {
    add<ClickController<Act>>(name, std::move(act));
}

ClickControllers::ClickControllers(EntryContext& context, YearlyGrid& yearly,
                                   QuarterlyGrid& quarterly, LastQuarter& lastQuarter,
                                   Options& options, DataLock& lock, MoreHelp& help,
                                   Controllers& controllers)
    : controllers_(controllers) {
    onClick(controls::addYear.name, [&yearly] { yearly.addYear(); });
    onClick(controls::removeYear.name, [&yearly] { yearly.removeYear(); });
    onClick(controls::addQuarter.name, [&lastQuarter] { lastQuarter.add(); });
    onClick(controls::help.name, [&help] { help.aboutPage(); });
    onClick(controls::moreHelp.name, [&help] { help.aboutObject(); });
    onClick(controls::lock.name, [&context, &lock, &yearly, &quarterly] {
        const EntryContext::UpdateScope updating(
            context, Action{Origin::typed, withoutMnemonic(context[controls::lock].caption()), {}});
        context.hideHelpFrame();
        lock.apply();
        yearly.shade();
        quarterly.shade();
        noteChoice(context, setting::lockBasicInfo);
        context.markChanged();
    });
    for (const auto option :
         {controls::unitOption.name, controls::displayOption.name, controls::equityOption.name,
          controls::incomeOption.name, controls::colorButton.name})
        add<OptionController>(option, context, options);
    add<YearlyBarController>(controls::yearlyBar.name, context, yearly);
    for (const auto mover :
         {controls::quarterlyBar.name, controls::quarterSpinner.name, controls::quarterLabel.name})
        add<QuartersController>(mover, context, quarterly, lastQuarter);
}

} // namespace vkr
