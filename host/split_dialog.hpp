// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "company/split.hpp"

#include <QDialog>

#include <memory>
#include <optional>
#include <set>
#include <utility>
#include <vector>

QT_BEGIN_NAMESPACE
class QLabel;
class QLineEdit;
class QMainWindow;
class QPushButton;
class QTableWidget;
QT_END_NAMESPACE

namespace vkr {

class VKRDataEntryWidget;

// Asks for a split and shows every figure that it changes, before and after. Figures that are not
// ticked stay. At any time the table has a row for each of the changes, and both are empty where
// what was typed is no split; only where one is ticked can it be applied.
class SplitDialog : public QDialog {
    Q_OBJECT
  public:
    // `dateFormat` as on the form.
    SplitDialog(std::shared_ptr<const CompanyRecord> record, const QString& dateFormat,
                QWidget* parent = nullptr);

    [[nodiscard]] SplitRatio ratio() const { return split_.ratio; }
    [[nodiscard]] std::vector<DatumChange> changes() const; // those that are ticked

  private:
    void layOut();
    void preview();
    void noteTicks();
    void fill(const SplitChanges& split);
    void showCount();
    void tell(const QString& text);

    std::shared_ptr<const CompanyRecord> record_;
    QString dateFormat_;
    Split split_;
    std::vector<SplitChange> changes_; // a row each
    // What the person has unticked, also while it has no row.
    std::set<std::pair<Datum, std::optional<int>>> unticked_;
    QLineEdit* ratio_;
    QLineEdit* date_;
    QLabel* told_;
    QTableWidget* table_;
    QPushButton* apply_;
};

// Asks, and changes the record that the form shows as one action. Says why where the data is locked
// or the record refuses.
void adjustForSplit(QMainWindow& window, VKRDataEntryWidget& entry,
                    const std::shared_ptr<const CompanyRecord>& record);

} // namespace vkr
