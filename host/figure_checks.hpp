// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "plausibility/silenced_findings.hpp"

#include <QObject>

#include <functional>
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
    // The record as it would be saved; never null.
    using Source = std::function<std::shared_ptr<const CompanyRecord>()>;

    FigureChecks(QMainWindow& window, VKRDataEntryWidget& entry, Source record);

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
    Source record_;
    std::shared_ptr<SilencedFindings> silenced_;
    FindingsPanel* panel_;
    QToolButton* count_; // in the status bar
    bool isDue_ = false;
};

} // namespace vkr
