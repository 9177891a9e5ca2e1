// SPDX-License-Identifier: MIT
#pragma once

#include "host/company_list_model.hpp"

#include <QTableView>

namespace vkr {

// The companies on screen, which of them are chosen, and the keys that move among them. What is
// chosen stays so while the rows are read anew.
class CompanyTableView : public QTableView {
    Q_OBJECT
  public:
    explicit CompanyTableView(CompanyListModel* companies, QWidget* parent = nullptr);

    void choose(std::int64_t id);
    [[nodiscard]] std::vector<CompanySummary> chosen() const; // in the order on screen
    [[nodiscard]] QList<qint64> chosenIds() const;

    void scaleColumns();
    void rememberColumns() const; // for the next start

  signals:
    void opened();                   // what is chosen: by Enter or a double-click
    void typed(const QString& text); // over the list, to search it

  protected:
    void keyPressEvent(QKeyEvent* key) override;

  private:
    void buildColumns();
    [[nodiscard]] double characterWidth() const;
    enum class End { first, last };
    enum class Choosing { alone, upToIt }; // with all between it and the current company
    void goTo(End end, Choosing choosing);
    void rememberChosen();
    void recallChosen();

    // What is chosen while the rows are replaced.
    struct Chosen {
        QList<qint64> ids;
        qint64 current = 0; // with the focus of the keyboard; 0: none
        int column = 0;
    };

    CompanyListModel* companies_;
    Chosen remembered_;
    double columnsFor_ = 0; // the width of a character that the columns were made for
};

} // namespace vkr
