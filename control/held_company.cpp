// SPDX-License-Identifier: MIT
#include "control/held_company.hpp"

#include "binding/company_loader.hpp"
#include "form/build_form.hpp"
#include "form/controls.hpp"
#include "form/sizes.hpp"
#include "input/mdlDataEntry.hpp"
#include "platform/error_trap.hpp"

#include <string>
#include <utility>
#include <vector>

namespace vkr {

namespace {

constexpr int reportingPeriods = 3;

} // namespace

HeldCompany::HeldCompany(Session& session, CompanyFields& fields, YearlyGrid& yearly,
                         QuarterlyGrid& quarterly, LastQuarter& lastQuarter, Captions& captions,
                         Options& options, DataLock& lock, FieldControllers& entry,
                         Controllers& controllers)
    : session_(session), fields_(fields), yearly_(yearly), quarterly_(quarterly),
      lastQuarter_(lastQuarter), captions_(captions), options_(options), lock_(lock), entry_(entry),
      controllers_(controllers) {}

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
    lock_.set(attemptOr(
        false, [&] { return session_.settings()->get(setting::lockBasicInfo).toBoolean(); }));
}

void HeldCompany::listReportingPeriods() {
    std::vector<std::string> entries;
    for (int i = 0; i < reportingPeriods; ++i)
        entries.push_back(session_.text(text_number::firstReportingPeriod + i));
    session_[controls::reportingPeriod].setList(std::move(entries));
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
    std::swap(session_.company, copy);
    commitCompany(session_, quarterly_.lastQuarter()); // whatever fails is skipped in there
    std::swap(session_.company, copy);
}

void HeldCompany::holdCommitted() {
    auto& symbol = session_[controls::currencySymbol];
    auto& period = session_[controls::reportingPeriod];
    ifPossible([&] {
        if (symbol.text() != symbol.tag() &&
            session_.settings()->get(setting::currencySymbol).toText() == symbol.text())
            symbol.setTag(symbol.text());
    });
    ifPossible([&] {
        if (period.text() != period.tag() &&
            session_.reportingPeriod()->get(setting::leadPeriod).toLong() == period.listIndex())
            period.setTag(period.text());
    });
}

void HeldCompany::clear() {
    session_.hideHelpFrame();
    fields_.clear(toCompany);
    quarterly_.clear();
    quarterly_.clearLabels();
    putFieldText(session_[controls::lastQuarterDate], "");
    yearly_.clear();
    yearly_.clearLabels();
    fields_.clear(toYearly);
    putFieldText(session_[controls::lastFiscalYear], "");
    putFieldText(session_[controls::lastFiscalYearDate], "");
    fields_.clear(toOther);
    putFieldText(session_[controls::reportingPeriod], "");
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
    session_.form.setSize(sizes::placeholder, sizes::placeholder);
    strip.move(sizes::placeholder, sizes::placeholder);
}

} // namespace vkr
