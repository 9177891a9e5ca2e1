// SPDX-License-Identifier: MIT
#pragma once

#include "filings/filings_review.hpp"

#include <QDialog>

#include <functional>
#include <map>
#include <string>
#include <utility>

QT_BEGIN_NAMESPACE
class QAbstractButton;
class QCheckBox;
class QComboBox;
class QLabel;
class QPlainTextEdit;
class QTableView;
QT_END_NAMESPACE

namespace vkr {

class FilingsReviewModel;
class FilteredReview;

// Shows what an import of filings would do, and lets its user tick what it is to do.
class FilingsDialog : public QDialog {
    Q_OBJECT
  public:
    // Reviews anew where the user wants later years or quarters or does not; knows itself where
    // figures come from.
    using Reviewer = std::function<FilingsReview(ReviewOptions options)>;

    explicit FilingsDialog(Reviewer reviewer, QWidget* parent = nullptr);

    [[nodiscard]] const FilingsReview& review() const;

  signals:
    void helpAsked();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buildTable();
    QWidget* buildFilter();
    QWidget* buildButtons();
    void reviewAnew();
    void showFilterCounts();
    void showTicks();
    void showDetails();
    void setShownTicked(bool ticked);
    void toggleSelected();

    Reviewer reviewer_;
    // As they were last, by figure and period, also of what is left out now.
    std::map<std::pair<Datum, std::string>, bool> ticks_;
    FilingsReviewModel* model_;
    FilteredReview* shown_;
    QLabel* title_;
    QLabel* shareBasis_;
    QLabel* notes_;
    QComboBox* filter_ = nullptr;
    QCheckBox* addsYears_;
    QCheckBox* addsQuarters_;
    QTableView* table_;
    QPlainTextEdit* details_;
    QAbstractButton* import_ = nullptr;
};

} // namespace vkr
