// SPDX-License-Identifier: MIT
#include "control/held_company.hpp"

#include "binding/company_loader.hpp"
#include "binding/form_settings.hpp"
#include "binding/text_numbers.hpp"
#include "company/new_company_record.hpp"
#include "control/kept_texts.hpp"
#include "form/build_form.hpp"
#include "form/controls.hpp"
#include "form/sizes.hpp"
#include "input/mdlDataEntry.hpp"
#include "platform/error_trap.hpp"
#include "record/setting_table.hpp"

#include <algorithm>
#include <cassert>
#include <string>
#include <utility>
#include <vector>

namespace vkr {

namespace {

constexpr int reportingPeriods = 3;

// Dates that loading suggests, and where they are shown.
constexpr std::pair<Datum, Handle<TextBox>> suggestedDates[] = {
    {Datum::LastQDate, controls::lastQuarterDate},
    {Datum::LastFYDate, controls::lastFiscalYearDate},
    {Datum::PriceUpdatedDate, controls::priceUpdate},
    {Datum::LastUpdate, controls::lastUpdate},
};

// The form commits into a copy meanwhile; what it has seen of the record stays.
class [[nodiscard]] HeldInstead {
  public:
    HeldInstead(EntryContext& context, std::shared_ptr<iVKR_Company> copy)
        : context_(context), seen_(context.settingsSeen),
          held_(std::exchange(context.company, std::move(copy))) {}
    ~HeldInstead() {
        context_.company = std::move(held_);
        context_.settingsSeen.swap(seen_);
    }
    HeldInstead(const HeldInstead&) = delete;
    HeldInstead& operator=(const HeldInstead&) = delete;

  private:
    EntryContext& context_;
    std::map<std::string_view, Variant> seen_; // copied first: that may fail
    std::shared_ptr<iVKR_Company> held_;
};

// The trailing earnings follow, unless they are changed themselves.
bool movesTrailing(const DatumChange& change) {
    switch (change.datum) {
    case Datum::QEPSSeries:
    case Datum::YEPSSeries:
    case Datum::LastQDate:
    case Datum::LastQDateForGrid:
    case Datum::LastFYDate:
        return true;
    default:
        return false;
    }
}

} // namespace

HeldCompany::HeldCompany(EntryContext& context, CompanyFields& fields, YearlyGrid& yearly,
                         QuarterlyGrid& quarterly, LastQuarter& lastQuarter, Captions& captions,
                         Options& options, DataLock& lock, FigureDisplay& display,
                         FieldControllers& entry, Controllers& controllers)
    : context_(context), fields_(fields), yearly_(yearly), quarterly_(quarterly),
      lastQuarter_(lastQuarter), captions_(captions), options_(options), lock_(lock),
      display_(display), entry_(entry), controllers_(controllers) {}

void HeldCompany::checkInvariants() const {
    assert(!loading_ || context_.company != nullptr);
    assert(!resizing_ || context_.company == nullptr);
    assert(!(loading_ && resizing_));
}

void HeldCompany::rowsLabelled() {
    if (!loading_)
        nameCells(context_.form);
}

void HeldCompany::load(std::shared_ptr<iVKR_Company> company) {
    if (company == nullptr)
        ifPossible([&] {
            company = std::dynamic_pointer_cast<iVKR_Company>(
                context_.services.createObject(companyRecordId));
        });
    if (company == nullptr)
        company = newCompanyRecord();
    Form& form = context_.form;
    const EntryContext::UpdateScope updating(context_);
    const Form::Update update(form);
    context_.company = std::move(company);
    const ActionScope loading(context_.company, {Origin::derived, {}, {}});
    entry_.startOver();
    show();
    resize();
    form.settleFocus(); // a smaller record disables cells
    if (Control* focused = form.activeControl(); focused != nullptr && form.hasFocus())
        ifPossible([&] {
            controllers_.of(*focused).enter(*focused);
        }); // what it shows now is entered anew
    context_.tellState();
}

void HeldCompany::show() {
    const During loading(loading_); // cells get their names once, with the captions of the unit
    checkInvariants();
    ifPossible([&] { clear(); });
    ifPossible([&] { listReportingPeriods(); });
    context_.ComputeUnitFactor();
    quarterly_.trailing().forgetTyped();
    ifPossible([&] { quarterly_.trailing().derive(); });
    loadCompany(context_, fields_, yearly_, quarterly_);
    quarterly_.showFiscalYear(); // which has been read after the quarters
    quarterly_.shade();
    options_.showPairs();
    ifPossible([&] { options_.showUnit(); });
    ifPossible([&] { captions_.showCurrency(); });
    loadSetting(context_, setting::lockBasicInfo);
    lock_.apply();
}

void HeldCompany::listReportingPeriods() {
    std::vector<std::string> entries;
    entries.reserve(reportingPeriods);
    for (int i = 0; i < reportingPeriods; ++i)
        entries.push_back(context_.text(text_number::firstReportingPeriod + i));
    context_[controls::reportingPeriod].setList(std::move(entries));
}

void HeldCompany::showAnew() {
    if (context_.company == nullptr)
        return;
    Form& form = context_.form;
    const EntryContext::UpdateScope updating(context_);
    const Form::Update update(form);
    context_.hideHelpFrame();
    KeptTexts kept(context_, yearly_, quarterly_);
    PeriodsMoved moved;
    const std::int32_t unit = context_.unit();
    std::vector<std::string> dates;
    for (const auto& [datum, shown] : suggestedDates)
        dates.push_back(context_[shown].tag());
    const auto lastQuarter = quarterly_.shown();
    {
        const During loading(loading_);
        checkInvariants();
        loadSetting(context_, setting::unit);
        // What somebody else has set takes the place of what the form has not written yet.
        followSettings(context_);
        options_.showPairs();
        ifPossible([&] { captions_.showCurrency(); });
        lock_.apply();
        moved = showCompany(fields_, yearly_, quarterly_);
        quarterly_.shade();
        ifPossible([&] { options_.showUnit(); });
    }
    for (std::size_t i = 0; i < dates.size(); ++i)
        if (const auto& one = suggestedDates[i]; context_[one.second].tag() != dates[i])
            ifPossible(
                [&] { context_.dates.follow(one.first, readDate(*context_.company, one.first)); });
    kept.putBack(moved);
    display_.keepUnit(unit);
    if (moved.quarters != 0 || lastQuarter != quarterly_.shown())
        lastQuarter_.startOver();
    ifPossible([&] { quarterly_.trailing().lookAgain(); });
    form.settleFocus(); // a cell may be out of reach now
    context_.tellState();
}

std::optional<std::string> HeldCompany::change(std::span<const DatumChange> changes,
                                               const Action& action) {
    if (context_.company == nullptr)
        return std::string();
    if (context_.isLocked())
        return context_.text(text_number::dataLocked);
    const EntryContext::UpdateScope updating(context_, action);
    if (auto refusal = applyChanges(*context_.company, changes))
        return refusal;
    context_.markChanged();
    showAnew();
    if (std::ranges::any_of(changes, movesTrailing) &&
        std::ranges::find(changes, Datum::Last4QEPS, &DatumChange::datum) == changes.end()) {
        const ActionScope derived(context_.company, {Origin::derived, {}, {}});
        ifPossible([&] { quarterly_.trailing().derive(); });
        ifPossible([&] { quarterly_.trailing().show(); });
    }
    return std::nullopt;
}

std::shared_ptr<iVKR_Company> HeldCompany::commit() {
    const EntryContext::UpdateScope updating(context_);
    if (context_.company != nullptr) {
        ifPossible([&] { commitCompany(context_, quarterly_.lastQuarter()); });
        ifPossible([&] { lastQuarter_.followCommit(); });
    }
    return context_.company;
}

void HeldCompany::commitInto(std::shared_ptr<iVKR_Company> copy) {
    if (context_.company == nullptr || copy == nullptr)
        return;
    const HeldInstead instead(context_, std::move(copy));
    commitCompany(context_, quarterly_.lastQuarter());
}

void HeldCompany::holdCommitted() {
    for (const auto& row : formSettings())
        if (auto* field = textFieldOf(context_.form.find(row.control)); field != nullptr)
            ifPossible([&] {
                if (field->isTyped() && readSetting(*context_.company, row.name).toText() ==
                                            row.chosen(context_).toText())
                    field->acceptText();
            });
}

void HeldCompany::clear() {
    yearly_.forgetMarked();
    quarterly_.forgetMarked();
    context_.hideHelpFrame();
    fields_.clear();
    quarterly_.clear();
    quarterly_.clearLabels();
    context_[controls::lastQuarterDate].showStored("");
    yearly_.clear();
    yearly_.clearLabels();
    rowsLabelled();
    context_[controls::lastFiscalYear].showStored("");
    context_[controls::lastFiscalYearDate].showStored("");
    context_[controls::reportingPeriod].showStored("");
    lock_.set(false);
}

void HeldCompany::resize() {
    auto& strip = context_[controls::tabs];
    if (context_.company != nullptr) {
        strip.move(0, 0);
        context_.form.setSize(sizes::workingWidth, sizes::workingHeight);
        return;
    }
    if (resizing_)
        return;
    const During resizing(resizing_); // the container answers a new size with another resize
    checkInvariants();
    context_.form.setSize(sizes::placeholder, sizes::placeholder);
    strip.move(sizes::placeholder, sizes::placeholder);
}

} // namespace vkr
