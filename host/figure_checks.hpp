// SPDX-License-Identifier: MIT
#pragma once

#include "host/shown_company.hpp"
#include "plausibility/silenced_findings.hpp"

#include <QObject>

#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
class QMainWindow;
class QMenu;
class QToolButton;
QT_END_NAMESPACE

namespace vkr {

class FindingsPanel;
class VKRDataEntryWidget;

// Looks over the figures of a company's window after each change, once for all that happens in one
// go, and tells: a quiet mark at each figure, how many there are in the status bar, and the panel.
// It stops nobody.
class FigureChecks : public QObject {
    Q_OBJECT
  public:
    // The company as it would be saved.
    FigureChecks(QMainWindow& window, VKRDataEntryWidget& entry, const ShownCompany& company);

    // Where those of the company that is open are kept.
    void setSilenced(std::shared_ptr<SilencedFindings> silenced);
    // The same; what was silenced before goes over to it.
    void moveSilencedTo(std::shared_ptr<SilencedFindings> silenced);
    [[nodiscard]] std::shared_ptr<const SilencedFindings> silenced() const { return silenced_; }
    void addTo(QMenu& menu);
    void lookLater(); // when the event under way is done

  signals:
    void judged(); // a finding was called right, or to be looked at again

  private:
    void look();
    [[nodiscard]] std::vector<Finding> findings(const CompanyRecord& record) const;
    void mark(const std::vector<Finding>& findings);
    void goTo(const FigurePlace& place);
    void silence(const Finding& finding, bool silence);

    QMainWindow& window_;
    VKRDataEntryWidget& entry_;
    const ShownCompany& company_;
    std::shared_ptr<SilencedFindings> silenced_;
    FindingsPanel* panel_;
    QToolButton* count_; // in the status bar
    bool isDue_ = false;
};

} // namespace vkr
