// SPDX-License-Identifier: MIT
#pragma once

#include "host/company_list_model.hpp"

#include <QMainWindow>

QT_BEGIN_NAMESPACE
class QAction;
class QLabel;
class QLineEdit;
class QStackedWidget;
class QTableView;
QT_END_NAMESPACE

namespace vkr {

// The first window: every company of the database, and what can be done with them. It asks for
// everything by signals and knows no store.
class CompanyListWindow : public QMainWindow {
    Q_OBJECT
  public:
    explicit CompanyListWindow(QWidget* parent = nullptr);
    ~CompanyListWindow() override;

    // Keeps what is chosen and the place in the list.
    void setCompanies(std::vector<CompanyListing> companies);
    void setDatabaseName(const QString& path); // shown in the title
    void choose(std::int64_t id);

    [[nodiscard]] std::vector<CompanyListing> chosen() const; // in the order on screen

  signals:
    void newAsked();
    void openAsked(const QList<qint64>& ids);
    void duplicateAsked(qint64 id);
    void deleteAsked(const QList<qint64>& ids);
    void importAsked();
    void importFolderAsked();
    void exportAsked(const QList<qint64>& ids);
    void refreshAsked(); // also whenever the window comes to the front
    void helpAsked(int page);
    void aboutAsked();
    void closing(bool* allowed); // clear it to keep the window

  protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buildTable();
    void buildPages();
    void buildActions();
    void showFound();
    void enableActions();
    [[nodiscard]] QList<qint64> chosenIds() const;

    CompanyListModel* companies_;
    CompanyListOrder* order_;
    QLineEdit* search_;
    QTableView* table_;
    QStackedWidget* pages_; // the table, or why it is empty
    QLabel* notFound_;
    QLabel* count_;
    QList<QAction*> forOne_;  // need exactly one chosen company
    QList<QAction*> forSome_; // need at least one
};

} // namespace vkr
