// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "plausibility/finding.hpp"

#include <QDockWidget>

#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QLabel;
class QListWidget;
class QPushButton;
QT_END_NAMESPACE

namespace vkr {

class HistoryChart;

struct ShownFinding {
    Finding finding;
    bool isSilenced = false;
};

// What there is to look at, beside the form: the sentences, how the figure went, and what to do
// about it. Enter and a double-click lead to the figure, Escape goes back to the form. At any time
// each entry of the list is one of the findings, and these are of the record that is there with
// them.
class FindingsPanel : public QDockWidget {
    Q_OBJECT
  public:
    explicit FindingsPanel(QWidget* parent = nullptr);

    // In place of those before; the one that was chosen stays chosen.
    void setFindings(std::vector<ShownFinding> findings,
                     std::shared_ptr<const CompanyRecord> record);
    void enter(); // comes up, and has the keys
    // Chooses the next one and leads there, after the last one the first.
    void goToNext();

  signals:
    void placeAsked(const vkr::FigurePlace& place);
    void silenceAsked(const vkr::Finding& finding, bool silence);
    void left();

  protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void layOut();
    void fill();
    void showChosen();
    void goToChosen();
    [[nodiscard]] const ShownFinding* chosen() const;

    std::vector<ShownFinding> findings_;
    std::shared_ptr<const CompanyRecord> record_;
    QListWidget* list_;
    QLabel* nothing_; // in place of an empty list
    QLabel* chartTitle_;
    HistoryChart* chart_;
    QPushButton* go_;
    QPushButton* right_;
    QCheckBox* silenced_;
};

} // namespace vkr
