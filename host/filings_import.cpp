// SPDX-License-Identifier: MIT
#include "host/filings_import.hpp"

#include "host/filings_dialog.hpp"
#include "host/messages.hpp"
#include "host/texts.hpp"
#include "host/window_memory.hpp"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QSettings>
#include <QWidget>

namespace vkr {

namespace {

const QString folderKey = QStringLiteral("filings/folder");

QString tr(const char* text) {
    return QCoreApplication::translate("vkr::FilingsImport", text);
}

// The pointer says that it takes a moment.
class Waiting {
  public:
    Waiting() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Waiting() { QGuiApplication::restoreOverrideCursor(); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;
};

FilingsReading readWaiting(const QString& path) {
    const Waiting waiting;
    return readFilingsFile(path.toStdString());
}

FiledCompany figuresWaiting(const FilingsDocument& document) {
    const Waiting waiting;
    return filedFigures(document);
}

} // namespace

QString FilingsImport::chosenFile() {
    QSettings settings = programSettings();
    QString path = QFileDialog::getOpenFileName(window_, tr("Import from Filings"),
                                                settings.value(folderKey).toString(),
                                                tr("Documents of filings (*.json);;All files (*)"));
    if (!path.isEmpty())
        settings.setValue(folderKey, QFileInfo(path).absolutePath());
    return path;
}

std::optional<int> FilingsImport::import(const QString& path,
                                         const std::shared_ptr<iVKR_Company>& company) {
    const FilingsReading reading = readWaiting(path);
    if (!reading.document) {
        tellNothing(path, fromUtf8(reading.error));
        return std::nullopt;
    }
    const FiledCompany filed = figuresWaiting(*reading.document);
    const auto review = [&](ReviewOptions options) {
        options.originOf = originOf;
        options.cik = cik;
        return reviewFilings(filed, *company, options);
    };
    const FilingsReview first = review({});
    if (!first.refusal.empty()) {
        tellNothing(path, fromUtf8(first.refusal));
        return std::nullopt;
    }
    if (!isOfCompany(first))
        return std::nullopt;
    FilingsDialog dialog(review, window_);
    if (helpAsked)
        QObject::connect(&dialog, &FilingsDialog::helpAsked, &dialog, helpAsked);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    if (const auto refusal = importFilings(company, dialog.review())) {
        tellFault(window_, tr("No figure was imported."), fromUtf8(*refusal));
        return std::nullopt;
    }
    return dialog.review().ticked();
}

bool FilingsImport::isOfCompany(const FilingsReview& review) {
    switch (review.match) {
    case CompanyMatch::same:
        break;
    case CompanyMatch::unsure:
        return ask(window_, tr("Is this document of the same company?"), fromUtf8(review.question),
                   {{tr("C&ompare Figures")}, {tr("&Cancel"), Choice::Role::reject}}) == 0;
    case CompanyMatch::other:
        tellFault(window_, tr("This document is of another company."),
                  tr("%1\n\nNothing was imported. Where they are the same company, give it the "
                     "name of the document first.")
                      .arg(fromUtf8(review.question)));
        return false;
    }
    return true;
}

void FilingsImport::tellNothing(const QString& path, const QString& why) {
    tellFault(window_, tr("Nothing was imported from %1.").arg(QFileInfo(path).fileName()), why);
}

} // namespace vkr
