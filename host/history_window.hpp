// SPDX-License-Identifier: MIT
#pragma once

#include "record/datum_table.hpp"
#include "store/company_store.hpp"

#include <QDialog>

#include <optional>
#include <vector>

QT_BEGIN_NAMESPACE
class QComboBox;
class QLabel;
class QLayout;
class QPushButton;
class QTreeWidget;
QT_END_NAMESPACE

namespace vkr {

// Who changed what of a company, the newest first, by person, time, origin, figure and period. It
// stands beside the form and shows what is saved; a state of the company can be asked for. At any
// time the tree has an entry for each of the groups, in their order; a figure that was asked for is
// among the choices.
class HistoryWindow : public QDialog {
    Q_OBJECT
  public:
    HistoryWindow(CompanyStore& store, std::int64_t company, const QString& title,
                  QWidget* parent = nullptr);

    // Reads the history anew.
    void refresh();
    // Comes to the front with everything.
    void showAll();
    // Comes to the front with one figure; without a period with all periods of the datum.
    void showFigure(Datum datum, const QString& period = {});

  signals:
    // The company as it was after this group.
    void restoreAsked(const vkr::HistoryGroup& group);

  private:
    struct Figure {
        QString datum;
        QString period; // may be empty
    };
    void layOut();
    [[nodiscard]] QLayout* filterRow();
    void setUpTree();
    [[nodiscard]] QLayout* limitRow();
    void comeToFront();
    bool readChoices(); // tells where the history can't be read
    void fillChoices(const std::vector<HistoryGroup>& all);
    void fillTree();
    void showExtent();
    void showDamage(); // of what is stored
    [[nodiscard]] HistoryQuery query() const;
    [[nodiscard]] const HistoryGroup* chosen() const;
    void setLimit(int row);

    CompanyStore& store_;
    const std::int64_t company_;
    std::optional<Figure> asked_; // by showFigure; stays among the choices
    std::vector<HistoryGroup> groups_;

    QComboBox* person_;
    QComboBox* time_;
    QComboBox* origin_;
    QComboBox* figure_;
    QComboBox* period_;
    QLabel* damage_;
    QTreeWidget* tree_;
    QLabel* extent_;
    QComboBox* limit_;
    QPushButton* restore_;
};

} // namespace vkr
