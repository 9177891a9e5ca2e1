// SPDX-License-Identifier: MIT
#include "control/held_company.hpp"

#include "binding/company_loader.hpp"
#include "control/kept_texts.hpp"
#include "form/build_form.hpp"
#include "form/controls.hpp"
#include "form/sizes.hpp"
#include "input/mdlDataEntry.hpp"
#include "platform/error_trap.hpp"

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

HeldCompany::HeldCompany(Session& session, CompanyFields& fields, YearlyGrid& yearly,
                         QuarterlyGrid& quarterly, LastQuarter& lastQuarter, Captions& captions,
                         Options& options, DataLock& lock, FieldControllers& entry,
                         Controllers& controllers)
    : session_(session), fields_(fields), yearly_(yearly), quarterly_(quarterly),
      lastQuarter_(lastQuarter), captions_(captions), options_(options), lock_(lock), entry_(entry),
      controllers_(controllers) {}

void HeldCompany::checkInvariants() const {
    assert(!loading_ || session_.company != nullptr);
    assert(!resizing_ || session_.company == nullptr);
    assert(!(loading_ && resizing_));
}

void HeldCompany::rowsLabelled() {
    if (!loading_)
        nameCells(session_.form);
}

void HeldCompany::load(std::shared_ptr<iVKR_Company> company) {
    if (company == nullptr)
        ifPossible([&] {
            company = std::dynamic_pointer_cast<iVKR_Company>(
                session_.services.createObject(companyRecordId));
        });
    if (company == nullptr)
        company = newCompanyRecord();
    Form& form = session_.form;
    const Session::Work work(session_);
    const Form::Update update(form);
    session_.hideHelpFrame();
    session_.company = std::move(company);
    const ActionScope loading(session_.company, {Origin::derived, {}, {}});
    entry_.startOver();
    show();
    resize();
    form.settleFocus(); // a smaller record disables cells
    if (Control* focused = form.activeControl(); focused != nullptr && form.hasFocus())
        ifPossible([&] {
            controllers_.of(*focused).enter(*focused);
        }); // what it shows now is entered anew
    session_.tellState();
}

void HeldCompany::show() {
    const During loading(loading_); // cells get their names once, with the captions of the unit
    checkInvariants();
    ifPossible([&] { clear(); });
    ifPossible([&] { listReportingPeriods(); });
    session_.ComputeUnitFactor();
    ifPossible([&] { quarterly_.trailing().derive(); });
    loadCompany(session_, fields_, yearly_, quarterly_);
    ifPossible([&] { quarterly_.relabel(); }); // names the last fiscal year beside its quarters
    quarterly_.shade();
    options_.showPairs();
    ifPossible([&] { options_.showUnit(); });
    ifPossible([&] { captions_.showCurrency(); });
    lock_.set(attemptOr(false,
                        [&] { return readSetting(session_, setting::lockBasicInfo).toBoolean(); }));
}

void HeldCompany::listReportingPeriods() {
    std::vector<std::string> entries;
    for (int i = 0; i < reportingPeriods; ++i)
        entries.push_back(session_.text(text_number::firstReportingPeriod + i));
    session_[controls::reportingPeriod].setList(std::move(entries));
}

void HeldCompany::showAnew() {
    if (session_.company == nullptr)
        return;
    Form& form = session_.form;
    const Session::Work work(session_);
    const Form::Update update(form);
    session_.hideHelpFrame();
    const KeptTexts kept(session_, yearly_, quarterly_);
    std::vector<std::string> dates;
    for (const auto& [datum, shown] : suggestedDates)
        dates.push_back(session_[shown].tag());
    const auto quarters = std::pair(quarterly_.newestQuarter(), quarterly_.shown());
    {
        const During loading(loading_);
        checkInvariants();
        ifPossible([&] {
            if (const auto unit = session_.settings()->get(setting::unit).toLong(); unit != 0)
                session_.takeUnit(unit);
        });
        followSettings();
        showCompany(fields_, yearly_, quarterly_);
        ifPossible([&] { quarterly_.relabel(); });
        quarterly_.shade();
        ifPossible([&] { options_.showUnit(); });
    }
    nameCells(form);
    for (std::size_t i = 0; i < dates.size(); ++i)
        if (const auto& [datum, shown] = suggestedDates[i]; session_[shown].tag() != dates[i])
            ifPossible([&] { session_.dates.follow(datum, readDate(*session_.company, datum)); });
    kept.putBack();
    if (quarters != std::pair(quarterly_.newestQuarter(), quarterly_.shown()))
        lastQuarter_.startOver();
    ifPossible([&] { quarterly_.trailing().lookAgain(); });
    form.settleFocus(); // a cell may be out of reach now
    session_.tellState();
}

// What somebody else has set takes the place of what the form has not written yet.
void HeldCompany::followSettings() {
    for (const auto& [name, value] : changedSettings(session_))
        ifPossible([&] {
            if (name == setting::currencySymbol)
                session_[controls::currencySymbol].showStored(value.toText());
            else if (name == setting::bookValue)
                session_.equityRow =
                    value.toBoolean() ? EquityRow::bookValue : EquityRow::commonEquity;
            else if (name == setting::taxRate)
                session_.incomeRow =
                    value.toBoolean() ? IncomeRow::taxRate : IncomeRow::preTaxIncome;
            else if (name == setting::lockBasicInfo)
                lock_.set(value.toBoolean());
            else
                loadReportingPeriod(session_);
        });
    options_.showPairs();
    ifPossible([&] { captions_.showCurrency(); });
}

std::optional<std::string> HeldCompany::change(std::span<const DatumChange> changes,
                                               const Action& action) {
    if (session_.company == nullptr)
        return std::string();
    if (session_.isLocked())
        return session_.text(text_number::dataLocked);
    const Session::Work work(session_, action);
    if (auto refusal = applyChanges(*session_.company, changes))
        return refusal;
    session_.markChanged();
    showAnew();
    if (std::ranges::any_of(changes, movesTrailing) &&
        std::ranges::find(changes, Datum::Last4QEPS, &DatumChange::datum) == changes.end()) {
        const ActionScope derived(session_.company, {Origin::derived, {}, {}});
        ifPossible([&] { quarterly_.trailing().derive(); });
        ifPossible([&] { quarterly_.trailing().show(); });
    }
    return std::nullopt;
}

std::shared_ptr<iVKR_Company> HeldCompany::commit() {
    const Session::Work work(session_);
    if (session_.company != nullptr) {
        ifPossible([&] { commitCompany(session_, quarterly_.lastQuarter()); });
        ifPossible([&] { lastQuarter_.followCommit(); });
    }
    return session_.company;
}

void HeldCompany::commitInto(std::shared_ptr<iVKR_Company> copy) {
    if (session_.company == nullptr || copy == nullptr)
        return;
    const auto seen = session_.settingsSeen;
    std::swap(session_.company, copy);
    commitCompany(session_, quarterly_.lastQuarter()); // whatever fails is skipped in there
    std::swap(session_.company, copy);
    session_.settingsSeen = seen;
}

void HeldCompany::holdCommitted() {
    auto& symbol = session_[controls::currencySymbol];
    auto& period = session_[controls::reportingPeriod];
    ifPossible([&] {
        if (symbol.isTyped() &&
            session_.settings()->get(setting::currencySymbol).toText() == symbol.text())
            symbol.acceptText();
    });
    ifPossible([&] {
        if (period.isTyped() &&
            session_.reportingPeriod()->get(setting::leadPeriod).toLong() == period.listIndex())
            period.acceptText();
    });
}

void HeldCompany::clear() {
    session_.hideHelpFrame();
    fields_.clear(toCompany);
    quarterly_.clear();
    quarterly_.clearLabels();
    session_[controls::lastQuarterDate].showStored("");
    yearly_.clear();
    yearly_.clearLabels();
    fields_.clear(toYearly);
    session_[controls::lastFiscalYear].showStored("");
    session_[controls::lastFiscalYearDate].showStored("");
    fields_.clear(toOther);
    session_[controls::reportingPeriod].showStored("");
    lock_.set(false);
}

void HeldCompany::resize() {
    auto& strip = session_[controls::tabs];
    if (session_.company != nullptr) {
        strip.move(0, 0);
        session_.form.setSize(sizes::workingWidth, sizes::workingHeight);
        return;
    }
    if (resizing_)
        return;
    const During resizing(resizing_); // the container answers a new size with another resize
    checkInvariants();
    session_.form.setSize(sizes::placeholder, sizes::placeholder);
    strip.move(sizes::placeholder, sizes::placeholder);
}

} // namespace vkr
