// SPDX-License-Identifier: MIT
// What differs from the company as it is stored.
#include "control/vkr_data_entry.hpp"
#include "form/controls.hpp"
#include "host/company_window.hpp"
#include "host/suggested_dates.hpp"
#include "host/texts.hpp"

#include <algorithm>

namespace vkr {

namespace {

// Of each pair of rows the commit works the hidden one out from the one on show.
constexpr Datum workedOut[] = {Datum::YCommEqSeries, Datum::YTaxRateSeries, Datum::QTaxRateSeries,
                               Datum::YPTISeries, Datum::QPTISeries};

// One that a commit would take as it is typed so far.
bool isBeingTyped(const TextField& date) {
    return !date.isUnstored() && date.isTyped();
}

} // namespace

std::shared_ptr<CompanyRecord> CompanyWindow::edited() const {
    auto copy = committed();
    for (const Datum series : workedOut)
        writeDatum(*copy, series, record_->stored(series));
    return copy;
}

std::vector<Datum> CompanyWindow::untypedDates() const {
    const std::vector<Datum> suggested = entry_->component().suggestedDates();
    std::vector<Datum> untyped = datingNothing(suggested, *unchanged_, *edited());
    // A price has no date where one was typed that can't be read.
    if (controls::priceUpdate.in(entry_->component().form()).isUnstored() &&
        std::ranges::find(suggested, Datum::PriceUpdatedDate) != suggested.end())
        untyped.push_back(Datum::PriceUpdatedDate);
    return untyped;
}

std::shared_ptr<CompanyRecord> CompanyWindow::recordToSave() const {
    auto copy = committed();
    takeBack(untypedDates(), *unchanged_, *copy);
    return copy;
}

QStringList CompanyWindow::recordChanges() const {
    const auto now = edited();
    takeBack(untypedDates(), *unchanged_, *now);
    if (isBeingTyped(controls::lastQuarterDate.in(entry_->component().form())))
        takeBack({Datum::LastQDate}, *unchanged_, *now); // a commit takes what is typed so far
    return described(changesByPeriod(*unchanged_, *now), tr("%1: %2 \u2192 %3"));
}

// A text that is not stored is a change, also after all else was saved without it; so is a date
// that is being typed and that Cancel passes over.
QStringList CompanyWindow::changes() const {
    QStringList texts = recordChanges();
    const auto addText = [&](const std::string& label, const std::string& text) {
        texts.append(tr("%1: \u201c%2\u201d, not stored").arg(fromUtf8(label), fromUtf8(text)));
    };
    for (const MarkedField& field : entry_->unstoredFields())
        addText(field.label, field.text);
    for (const auto& date : {controls::lastFiscalYearDate, controls::lastQuarterDate}) {
        const auto& field = date.in(entry_->component().form());
        if (isBeingTyped(field))
            addText(field.accessibleName(), field.text());
    }
    return texts;
}

} // namespace vkr
