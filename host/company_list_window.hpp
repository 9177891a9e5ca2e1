// SPDX-License-Identifier: MIT
#pragma once

#include "host/company_list_model.hpp"

#include <QMainWindow>

QT_BEGIN_NAMESPACE
class QAction;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QStackedWidget;
class QTimer;
class QToolBar;
QT_END_NAMESPACE

namespace vkr {

class CompanyTableView;

// The first window: every company of the database, and what can be done with them. It reads the
// list and asks for everything else by signals.
class CompanyListWindow : public QMainWindow {
    Q_OBJECT
  public:
    explicit CompanyListWindow(CompanyStore& store, QWidget* parent = nullptr);
    ~CompanyListWindow() override;

    // Reads the list anew. Keeps what is chosen and the place in the list.
    void refresh();
    void setDatabaseName(const QString& path); // shown in the title
    // How often to look whether somebody else has saved something; every two seconds at first.
    void setWatchInterval(int milliseconds);
    void choose(std::int64_t id);
    // Says that changes were given up, beside a button that asks for them; "" takes it away.
    void offerRestore(const QString& text);

    [[nodiscard]] std::vector<CompanySummary> chosen() const; // in the order on screen
    // Those of them that were on screen, as they were then.
    [[nodiscard]] std::vector<CompanySummary> summaries(const QList<qint64>& ids) const;

  signals:
    void newAsked();
    void openAsked(const QList<qint64>& ids);
    void duplicateAsked(qint64 id);
    void deleteAsked(const QList<qint64>& ids);
    void importAsked();
    void importFolderAsked();
    void exportAsked(const QList<qint64>& ids);
    void printAsked(const QList<qint64>& ids);
    void pdfAsked(const QList<qint64>& ids);
    void restoreAsked();
    void refreshAsked(); // also whenever the window comes to the front
    void helpAsked(int page);
    void aboutAsked();
    void closing(bool* allowed); // clear it to keep the window

  protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // How many companies have to be chosen for a command.
    enum class Needs { nothing, one, some };
    // Where a command stands; some are in no tool bar.
    struct Place {
        QMenu* menu;
        QToolBar* toolBar;
    };

    void connectTable();
    void buildPages();
    void buildActions();
    template <typename Run>
    QAction* addCommand(Place place, const char* name, const QString& text,
                        const QKeySequence& shortcut, Needs needs, Run&& run);
    void watch();
    [[nodiscard]] bool isShortcut(const QKeyEvent& key) const;
    void openChosen();
    void showFound();
    void tellCount();
    void enableActions();

    CompanyListModel* companies_;
    QLineEdit* search_;
    CompanyTableView* table_;
    QStackedWidget* pages_; // the table, or why it is empty
    QLabel* notFound_;
    QLabel* count_;
    QLabel* discarded_;
    QPushButton* restore_;
    QTimer* counting_;         // until the first rows are on screen
    QTimer* watching_;         // for what others save
    int watchInterval_ = 2000; // milliseconds
    QList<QAction*> forOne_;
    QList<QAction*> forSome_;
};

} // namespace vkr
