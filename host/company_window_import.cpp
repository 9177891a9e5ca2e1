// SPDX-License-Identifier: MIT
// Figures from filings, of the window of a company.
#include "company/kept_figures.hpp"
#include "control/vkr_data_entry.hpp"
#include "form/controls.hpp"
#include "host/company_window.hpp"
#include "host/filings_import.hpp"
#include "host/help_pages.hpp"
#include "host/messages.hpp"
#include "host/suggested_dates.hpp"

#include <QPointer>

#include <algorithm>

namespace vkr {

bool CompanyWindow::mayImport() {
    const bool isLocked = controls::lock.in(entry_->component().form()).value();
    if (isLocked)
        tellFault(this, tr("The data is locked."), tr("Unlock it to import figures."));
    return !isLocked;
}

void CompanyWindow::importChosenFilings() {
    entry_->component().leaveField();
    if (!mayImport())
        return;
    const QPointer<CompanyWindow> stays(this);
    const QString path = FilingsImport(this).chosenFile();
    if (!path.isEmpty() && stays)
        importFilings(path);
}

void CompanyWindow::importFilings(const QString& path) {
    if (!mayImport())
        return;
    entry_->component().leaveField(); // what was typed last is compared, too
    FilingsImport transfer(this);
    const FigureOrigins now = origins();
    const auto suggested = withThoseBeside(entry_->component().suggestedDates(), *record_);
    transfer.originOf = [&](Datum datum, std::optional<int> element) {
        const bool isSuggested = std::ranges::find(suggested, datum) != suggested.end();
        return isSuggested ? std::optional(Origin::derived) : now.of(datum, element).origin;
    };
    transfer.cik = importedCik(now);
    transfer.helpAsked = [this] { emit helpAsked(help::filings); };
    const QPointer<CompanyWindow> stays(this);
    const auto figures = transfer.import(path, kept_);
    if (!figures || !stays)
        return;
    entry_->recordChanged();
    showTitle();
    showModified();
    notice(*this,
           *figures == 1 ? tr("1 figure imported.") : tr("%1 figures imported.").arg(*figures));
}

} // namespace vkr
