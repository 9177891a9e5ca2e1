// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_csv.hpp"
#include "host/replacing_import.hpp"
#include "store/company_store.hpp"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

QT_BEGIN_NAMESPACE
class QMainWindow;
QT_END_NAMESPACE

namespace vkr {

// Companies into the database and out of it as CSV tables, with everything that has to be asked
// and told on the way. A company comes in whole or not at all.
class CsvTransfer {
  public:
    CsvTransfer(CompanyStore& store, QMainWindow* window) : store_(store), window_(window) {}

    // Each answers the companies that were saved; empty where there was an error, which has been
    // told, or where the user gave up.
    std::vector<CompanyKey> importFile(const QString& path); // any of a company's three files
    std::vector<CompanyKey> importFolder(const QString& path);
    void exportCompanies(const std::vector<CompanySummary>& companies, const QString& folder);
    void exportRecords(const std::vector<std::shared_ptr<const CompanyRecord>>& records,
                       const QString& folder);

    // The same with a dialog before, which starts where the last one ended.
    std::vector<CompanyKey> importChosenFile();
    std::vector<CompanyKey> importChosenFolder();
    [[nodiscard]] QString chosenFolder(); // to export to; empty when the user gave up

  private:
    // With its progress, which can be stopped.
    FolderImport readFolder(const QString& path);
    std::vector<CompanyKey> keep(const std::vector<FolderImport::Entry>& entries);
    // Where each record goes, and what is gone then; nothing when the user gave up.
    std::optional<std::vector<SaveRequest>>
    requests(const std::vector<FolderImport::Entry>& entries, GoneFigures& gone);
    void tellImported(const QString& what, const GoneFigures& gone, const QStringList& notes);
    enum class Known { keepBoth, replace, cancel };
    Known askAboutKnown(const QStringList& names);

    CompanyStore& store_;
    QMainWindow* window_;
};

// Which company of which folder a file belongs to.
struct CsvPlace {
    QString folder;
    QString prefix;
};
[[nodiscard]] std::optional<CsvPlace> csvPlace(const QString& path);

} // namespace vkr
