// SPDX-License-Identifier: MIT
#include "host/sheet_printing.hpp"

#include "host/messages.hpp"
#include "host/texts.hpp"
#include "host/window_memory.hpp"
#include "sheet/company_notes.hpp"
#include "sheet/today.hpp"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QMainWindow>
#include <QPrintDialog>
#include <QPrinter>

#include <stdexcept>

namespace vkr {

namespace {

constexpr auto folderKey = "sheet/folder";

QString tr(const char* text) {
    return QCoreApplication::translate("SheetPrinting", text);
}

SheetSource sourceOf(const std::vector<SheetPrinting::Sheet>& companies) {
    return [&companies, next = std::size_t(0)]() mutable -> std::optional<SheetCompany> {
        if (next == companies.size())
            return std::nullopt;
        auto company = companies[next++]();
        if (!company)
            throw std::runtime_error(company.error().message);
        return std::move(company.value());
    };
}

Paper paperOf(const QPrinter& printer) {
    return printer.pageLayout().pageSize().id() == QPageSize::Letter ? Paper::letter : Paper::a4;
}

} // namespace

std::vector<SheetPrinting::Sheet>
SheetPrinting::stored(CompanyStore& store, const std::vector<CompanySummary>& companies) {
    std::vector<Sheet> sheets;
    sheets.reserve(companies.size());
    for (const CompanySummary& company : companies)
        sheets.emplace_back([&store, id = company.key.id]() -> StoreResult<SheetCompany> {
            const auto loaded = store.load(id);
            if (!loaded)
                return loaded.error();
            return sheetOf(loaded.value(), today());
        });
    return sheets;
}

bool SheetPrinting::isDone(const QString& error, const QString& fault) {
    if (!error.isEmpty())
        tellFault(window_, fault, error);
    return error.isEmpty();
}

void SheetPrinting::print(const std::vector<Sheet>& companies, QPrinter& printer) {
    printer.setFullPage(true);
    if (isDone(printSheets(printer, printer.resolution(), paperOf(printer), today(),
                           sourceOf(companies)),
               tr("The data sheet can't be printed.")))
        notice(*window_, companies.size() == 1 ? tr("Printed")
                                               : tr("%1 companies printed").arg(companies.size()));
}

void SheetPrinting::savePdf(const std::vector<Sheet>& companies, const QString& title,
                            const QString& file, Paper paper) {
    if (isDone(writeSheetPdf(file, title, paper, today(), sourceOf(companies)),
               tr("The data sheet can't be saved.")))
        notice(*window_, tr("Saved as %1").arg(QDir::toNativeSeparators(file)));
}

void SheetPrinting::printOnChosen(const std::vector<Sheet>& companies) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageSize(
        QPageSize(usualPaper() == Paper::letter ? QPageSize::Letter : QPageSize::A4));
    QPrintDialog dialog(&printer, window_);
    dialog.setWindowTitle(tr("Print Data Sheets"));
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false); // a sheet is printed whole
    if (dialog.exec() == QDialog::Accepted)
        print(companies, printer);
}

void SheetPrinting::saveToChosen(const std::vector<Sheet>& companies, const QString& title) {
    const QString folder =
        programSettings().value(QLatin1String(folderKey), QDir::homePath()).toString();
    QString name = title;
    for (QChar& letter : name)
        if (QStringLiteral("/\\:*?\"<>|").contains(letter))
            letter = u'_';
    const QString a4 = tr("PDF files, A4 (*.pdf)");
    const QString letter = tr("PDF files, Letter (*.pdf)");
    const bool isLetter = usualPaper() == Paper::letter;
    QString filter = isLetter ? letter : a4; // the usual one first
    const QString file = QFileDialog::getSaveFileName(
        window_, tr("Save as PDF"), QDir(folder).filePath(name + ".pdf"),
        filter + QStringLiteral(";;") + (isLetter ? a4 : letter), &filter);
    if (file.isEmpty())
        return;
    programSettings().setValue(QLatin1String(folderKey), QFileInfo(file).absolutePath());
    savePdf(companies, title, file, filter == letter ? Paper::letter : Paper::a4);
}

} // namespace vkr
