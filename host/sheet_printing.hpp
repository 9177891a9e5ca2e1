// SPDX-License-Identifier: MIT
#pragma once

#include "sheet/sheet_print.hpp"
#include "store/company_store.hpp"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
class QMainWindow;
class QPrinter;
QT_END_NAMESPACE

namespace vkr {

// Data sheets of companies on a printer or in a PDF file, with everything that has to be asked and
// told on the way.
class SheetPrinting {
  public:
    explicit SheetPrinting(QMainWindow* window) : window_(window) {}

    // The companies one by one: a stored one is not in memory before its turn.
    using Sheet = std::function<StoreResult<SheetCompany>()>;
    static std::vector<Sheet> stored(CompanyStore& store,
                                     const std::vector<CompanySummary>& companies);

    void print(const std::vector<Sheet>& companies, QPrinter& printer);
    void savePdf(const std::vector<Sheet>& companies, const QString& title, const QString& file,
                 Paper paper);
    // The same with a dialog before.
    void printOnChosen(const std::vector<Sheet>& companies);
    void saveToChosen(const std::vector<Sheet>& companies, const QString& title);

  private:
    // Tells a failure, and answers whether there was none.
    bool isDone(const QString& error, const QString& fault);

    QMainWindow* window_;
};

} // namespace vkr
