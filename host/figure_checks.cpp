// SPDX-License-Identifier: MIT
#include "host/figure_checks.hpp"

#include "control/vkr_data_entry.hpp"
#include "desktop/vkr_data_entry_widget.hpp"
#include "host/findings_panel.hpp"
#include "host/messages.hpp"
#include "host/texts.hpp"
#include "platform/error_trap.hpp"
#include "plausibility/company_findings.hpp"

#include <QDate>
#include <QMainWindow>
#include <QMenu>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>

#include <map>
#include <utility>

namespace vkr {

FigureChecks::FigureChecks(QMainWindow& window, VKRDataEntryWidget& entry,
                           const ShownCompany& company)
    : QObject(&window), window_(window), entry_(entry), company_(company),
      silenced_(std::make_shared<SilencedInMemory>()), panel_(new FindingsPanel(&window)),
      count_(new QToolButton(&window)) {
    window.addDockWidget(Qt::RightDockWidgetArea, panel_);
    panel_->hide();
    count_->setObjectName(QStringLiteral("findingsCount"));
    count_->setAutoRaise(true);
    count_->setFocusPolicy(Qt::NoFocus); // a field that is being typed in keeps it
    count_->hide();
    window.statusBar()->addPermanentWidget(count_);

    connect(&entry, &VKRDataEntryWidget::edited, this, &FigureChecks::lookLater);
    connect(count_, &QToolButton::clicked, panel_, &FindingsPanel::enter);
    connect(panel_, &FindingsPanel::placeAsked, this, &FigureChecks::goTo);
    connect(panel_, &FindingsPanel::silenceAsked, this, &FigureChecks::silence);
    connect(panel_, &FindingsPanel::left, this, [this] { entry_.setFocus(); });
}

void FigureChecks::setSilenced(std::shared_ptr<SilencedFindings> silenced) {
    silenced_ = std::move(silenced);
    lookLater();
}

void FigureChecks::moveSilencedTo(std::shared_ptr<SilencedFindings> silenced) {
    const auto before = std::exchange(silenced_, std::move(silenced));
    ifPossible([&] {
        for (const Finding& one : findings(*company_.recordToSave()))
            if (before->isSilenced(one) && !silenced_->isSilenced(one))
                silenced_->silence(one);
    });
    lookLater();
}

std::vector<Finding> FigureChecks::findings(const CompanyRecord& record) const {
    const QDate day = QDate::currentDate();
    return companyFindings(record, {entry_.component().get_NumberMarks(),
                                    makeDate(day.year(), day.month(), day.day()).value_or(Date{})});
}

void FigureChecks::addTo(QMenu& menu) {
    auto* look = menu.addAction(tr("To &Look At"), QKeySequence(tr("Ctrl+L")), panel_,
                                &FindingsPanel::enter);
    look->setObjectName(QStringLiteral("lookAt"));
    auto* next = menu.addAction(tr("&Next to Look At"), QKeySequence(tr("F8")), panel_,
                                &FindingsPanel::goToNext);
    next->setObjectName(QStringLiteral("nextToLookAt"));
}

void FigureChecks::lookLater() {
    if (std::exchange(isDue_, true))
        return;
    QTimer::singleShot(0, this, &FigureChecks::look);
}

void FigureChecks::look() {
    isDue_ = false;
    const auto record = company_.recordToSave();
    std::vector<ShownFinding> shown;
    std::vector<Finding> open;
    for (Finding& one : findings(*record)) {
        const bool isSilenced = silenced_->isSilenced(one);
        if (!isSilenced)
            open.push_back(one);
        shown.push_back({std::move(one), isSilenced});
    }
    mark(open);
    count_->setText(tr("%1 to look at").arg(open.size()));
    count_->setVisible(!open.empty());
    panel_->setFindings(std::move(shown), record);
}

void FigureChecks::mark(const std::vector<Finding>& findings) {
    std::map<FigurePlace, std::string> remarks;
    for (const Finding& one : findings) {
        std::string& text = remarks[one.places.front()];
        text += (text.empty() ? "" : "\n") + one.text;
    }
    entry_.component().setRemarks(std::move(remarks));
}

void FigureChecks::goTo(const FigurePlace& place) {
    // The form has the keys first: a field that is entered then selects its text, and what is typed
    // takes the place of the figure.
    window_.activateWindow();
    entry_.setFocus();
    if (!entry_.component().showFigure(place))
        notice(window_, tr("The form does not show this figure at the moment."));
}

void FigureChecks::silence(const Finding& finding, bool silence) {
    const auto failure = failureOf([&] {
        if (silence)
            silenced_->silence(finding);
        else
            silenced_->speakAgain(finding);
    });
    look();
    emit judged();
    if (failure)
        tellFault(&window_, tr("This could not be kept."), fromUtf8(*failure));
}

} // namespace vkr
