// SPDX-License-Identifier: MIT
#include "host/csv_transfer.hpp"

#include "host/messages.hpp"
#include "host/texts.hpp"
#include "host/window_memory.hpp"
#include "store/import_matches.hpp"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMainWindow>
#include <QProgressDialog>

#include <filesystem>
#include <set>

namespace vkr {

namespace {

constexpr auto folderKey = "csv/folder";

QString tr(const char* text) {
    return QCoreApplication::translate("CsvTransfer", text);
}

std::filesystem::path nativePath(const QString& path) {
    return std::filesystem::path(path.toStdU16String());
}

QStringList described(const std::vector<CsvProblem>& problems) {
    QStringList lines;
    for (const CsvProblem& problem : problems)
        lines.append(fromUtf8(describe(problem)));
    return lines;
}

QString rememberedFolder() {
    return programSettings().value(QLatin1String(folderKey), QDir::homePath()).toString();
}
void rememberFolder(const QString& folder) {
    programSettings().setValue(QLatin1String(folderKey), folder);
}

QString titleOf(const CompanyRecord& record) {
    return companyTitle(record.get_Name(), record.get_Symbol());
}

QStringList titlesOf(const std::vector<SaveRequest>& requests) {
    QStringList titles;
    for (const SaveRequest& request : requests)
        titles.append(titleOf(*request.record));
    return titles;
}

} // namespace

std::optional<CsvPlace> csvPlace(const QString& path) {
    const QFileInfo file(path);
    for (const std::string_view suffix : {companySuffix, yearlySuffix, quarterlySuffix}) {
        const QString ending = fromUtf8(suffix);
        if (file.fileName().endsWith(ending))
            return CsvPlace{file.absolutePath(), file.fileName().chopped(ending.size())};
    }
    return std::nullopt;
}

std::vector<CompanyKey> CsvTransfer::importFile(const QString& path) {
    const auto place = csvPlace(path);
    if (!place) {
        tellFault(window_,
                  tr("%1 is not named as a company's table is.").arg(QFileInfo(path).fileName()),
                  tr("A company's tables are named like AAPL-company.csv, AAPL-yearly.csv and "
                     "AAPL-quarterly.csv. Rename the file and import it again."));
        return {};
    }
    CsvImport result = importCompany(nativePath(place->folder), place->prefix.toStdString());
    if (!result.company) {
        const QStringList lines = described(result.errors);
        tellFault(window_, tr("%1 can't be imported; nothing was changed.").arg(place->prefix),
                  tr("%1\n\nMend the table and import it again.").arg(lines.value(0)),
                  lines.size() > 1 ? lines : QStringList());
        return {};
    }
    return keep({{place->prefix.toStdString(), std::move(result)}});
}

FolderImport CsvTransfer::readFolder(const QString& path) {
    QProgressDialog progress(tr("Reading the folder..."), tr("&Stop"), 0, 0, window_);
    progress.setObjectName(QStringLiteral("importProgress"));
    progress.setWindowTitle(tr("Import Folder"));
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(0);
    progress.setAutoClose(false);
    progress.setAutoReset(false);
    progress.show();
    return vkr::importFolder(nativePath(path), [&](int done, int total, const std::string& prefix) {
        progress.setMaximum(total);
        progress.setValue(done);
        progress.setLabelText(
            tr("%1 (%2 of %3)")
                .arg(fromUtf8(prefix), QString::number(done + 1), QString::number(total)));
        QCoreApplication::processEvents();
        return !progress.wasCanceled();
    });
}

std::vector<CompanyKey> CsvTransfer::importFolder(const QString& path) {
    const FolderImport folder = readFolder(path);
    if (!folder.error.empty()) {
        tellFault(window_, tr("The folder can't be read."), fromUtf8(folder.error));
        return {};
    }
    if (folder.stopped) {
        tellNews(window_, tr("The import was stopped."), tr("No company was imported."));
        return {};
    }
    if (folder.entries.empty()) {
        tellFault(window_, tr("There is no company in %1.").arg(QDir::toNativeSeparators(path)),
                  tr("A company has at least a table named like AAPL-company.csv."));
        return {};
    }

    std::vector<FolderImport::Entry> readable;
    QStringList errors;
    for (const FolderImport::Entry& entry : folder.entries) {
        if (entry.result.company)
            readable.push_back(entry);
        errors += described(entry.result.errors);
    }
    if (readable.empty()) {
        tellFault(window_,
                  tr("None of the %n companies can be imported; nothing was changed.")
                      .replace(QStringLiteral("%n"), QString::number(folder.entries.size())),
                  errors.value(0), errors);
        return {};
    }
    if (!errors.isEmpty()) {
        const int choice = ask(
            window_,
            tr("%1 of %2 companies can be imported.")
                .arg(readable.size())
                .arg(folder.entries.size()),
            tr("The others hold something that can't be read, such as:\n%1").arg(errors.value(0)),
            {{tr("&Import %1").arg(readable.size())}, {tr("Import &None"), Choice::Role::reject}},
            -1, errors);
        if (choice != 0)
            return {};
    }
    return keep(readable);
}

std::vector<CompanyKey> CsvTransfer::keep(const std::vector<FolderImport::Entry>& entries) {
    GoneFigures gone;
    const auto chosen = requests(entries, gone);
    if (!chosen || chosen->empty())
        return {};
    const auto saved = store_.saveAll(*chosen);
    if (!saved) {
        tellFault(window_, tr("Nothing was imported."), fromUtf8(saved.error().message));
        return {};
    }
    QStringList notes;
    for (const FolderImport::Entry& entry : entries)
        notes += described(entry.result.notes);
    tellImported(entries.size() == 1
                     ? tr("%1 was imported.").arg(titleOf(*entries.front().result.company))
                     : tr("%1 companies were imported.").arg(chosen->size()),
                 gone, notes);
    return saved.value();
}

void CsvTransfer::tellImported(const QString& what, const GoneFigures& gone,
                               const QStringList& notes) {
    QStringList words = gone.words;
    if (!gone.words.isEmpty())
        words.append(tr("\"History...\" in the company's window brings them back."));
    if (notes.size() == 1)
        words.append(tr("Left out: %1").arg(notes.front()));
    else if (!notes.isEmpty())
        words.append(
            tr("%1 entries have no place in a company and were left out.").arg(notes.size()));
    if (!words.isEmpty())
        tellNews(window_, what, words.join(QStringLiteral("\n\n")),
                 gone.lines + (notes.size() == 1 ? QStringList() : notes));
}

std::optional<std::vector<SaveRequest>>
CsvTransfer::requests(const std::vector<FolderImport::Entry>& entries, GoneFigures& gone) {
    std::vector<SaveRequest> fresh;
    std::vector<ReplacingImport> known;
    std::vector<SaveRequest> unclear; // which of several stored ones they are of
    ImportMatches matches(store_);
    for (const FolderImport::Entry& entry : entries) {
        SaveRequest request{std::nullopt, entry.result.company, 0,
                            importedFrom(entry.prefix, entry.result)};
        const auto stored = matches.of(*entry.result.company);
        if (!stored) {
            tellFault(window_, tr("Nothing was imported."), fromUtf8(stored.error().message));
            return std::nullopt;
        }
        const std::vector<CompanySummary>& alike = stored.value();
        if (alike.empty()) {
            fresh.push_back(request);
            continue;
        }
        if (alike.size() > 1) {
            unclear.push_back(request);
            continue;
        }
        matches.take(alike.front());
        request.id = alike.front().key.id;
        request.expectedRevision = alike.front().key.revision;
        known.push_back({request, &entry.result});
    }
    QStringList names;
    for (const ReplacingImport& one : known)
        names.append(titleOf(*one.request.record));
    names += titlesOf(unclear);
    if (names.empty())
        return fresh;

    const auto choice = askAboutKnown(names);
    if (choice == Known::cancel)
        return std::nullopt;
    if (choice == Known::keepBoth) {
        for (ReplacingImport& one : known)
            one.request.id.reset();
        fresh.insert(fresh.end(), unclear.begin(), unclear.end());
    } else {
        tellLeft(window_, titlesOf(unclear),
                 tr("The list has several companies of that symbol, or name where "
                    "there is none: which one is meant is not clear. Give the "
                    "others another one, or keep both."));
        auto prepared = replacing(store_, window_, std::move(known));
        if (!prepared)
            return std::nullopt;
        known = std::move(prepared->imports);
        gone = std::move(prepared->gone);
    }
    for (ReplacingImport& one : known)
        fresh.push_back(std::move(one.request));
    return fresh;
}

CsvTransfer::Known CsvTransfer::askAboutKnown(const QStringList& names) {
    return static_cast<Known>(
        ask(window_,
            names.size() == 1 ? tr("%1 is in the list already.").arg(names.front())
                              : tr("%1 companies are in the list already.").arg(names.size()),
            tr("Replace puts the imported figures in the place of what is stored now, but for what "
               "was typed: that is asked about. It is saved now, and not undone by Ctrl+Z; "
               "\"History...\" in the company's window takes it back. Keep Both adds the "
               "imported one beside it."),
            {{tr("&Keep Both")},
             {tr("&Replace"), Choice::Role::destroy},
             {tr("&Cancel"), Choice::Role::reject}},
            -1, names.size() == 1 ? QStringList() : names));
}

void CsvTransfer::exportCompanies(const std::vector<CompanySummary>& companies,
                                  const QString& folder) {
    std::vector<std::shared_ptr<const CompanyRecord>> records;
    QStringList damaged;
    for (const CompanySummary& company : companies) {
        const auto loaded = store_.load(company.key.id);
        if (!loaded) {
            tellFault(window_, tr("Nothing was exported."), fromUtf8(loaded.error().message));
            return;
        }
        records.push_back(loaded.value().record);
        if (loaded.value().damage)
            damaged.append(fromUtf8(loaded.value().damage->message));
    }
    if (damaged.isEmpty() ||
        askFirst(window_,
                 damaged.size() == 1
                     ? tr("One company is not as it was saved. Export what is stored?")
                     : tr("%1 companies are not as they were saved. Export what is stored?")
                           .arg(damaged.size()),
                 damaged.first(std::min<qsizetype>(damaged.size(), 3)).join(QStringLiteral("\n\n")),
                 tr("&Export")))
        exportRecords(records, folder);
}

void CsvTransfer::exportRecords(const std::vector<std::shared_ptr<const CompanyRecord>>& records,
                                const QString& folder) {
    std::set<std::string> prefixes;
    QStringList present;
    for (const auto& record : records) {
        const std::string prefix = csvPrefix(*record);
        if (!prefixes.insert(prefix).second) {
            tellFault(window_, tr("Nothing was exported."),
                      tr("Several of the companies would be written to %1-company.csv. Export them "
                         "to different folders, one by one.")
                          .arg(fromUtf8(prefix)));
            return;
        }
        for (const std::filesystem::path& file : csvFiles(nativePath(folder), prefix))
            if (std::error_code ignored; std::filesystem::exists(file, ignored))
                present.append(QString::fromStdU16String(file.filename().u16string()));
    }
    if (!present.isEmpty() &&
        !askFirst(window_,
                  present.size() == 1
                      ? tr("%1 is there already. Replace it?").arg(present.front())
                      : tr("%1 files are there already. Replace them?").arg(present.size()),
                  present.size() > 1 && present.size() < 7 ? present.join(u'\n') : QString(),
                  tr("&Replace")))
        return;
    for (const auto& record : records) {
        const CsvExport written = exportCompany(*record, nativePath(folder));
        if (!written.error.empty()) {
            tellFault(window_, tr("%1 can't be exported.").arg(titleOf(*record)),
                      fromUtf8(written.error));
            return;
        }
    }
    const QString place = QDir::toNativeSeparators(folder);
    notice(*window_, records.size() == 1
                         ? tr("Exported to %1").arg(place)
                         : tr("%1 companies exported to %2").arg(records.size()).arg(place));
}

std::vector<CompanyKey> CsvTransfer::importChosenFile() {
    const QString path = QFileDialog::getOpenFileName(
        window_, tr("Import a Company"), rememberedFolder(),
        tr("Tables of a company (*-company.csv *-yearly.csv *-quarterly.csv);;All files (*)"));
    if (path.isEmpty())
        return {};
    rememberFolder(QFileInfo(path).absolutePath());
    return importFile(path);
}

std::vector<CompanyKey> CsvTransfer::importChosenFolder() {
    const QString path = QFileDialog::getExistingDirectory(
        window_, tr("Import a Folder of Companies"), rememberedFolder());
    if (path.isEmpty())
        return {};
    rememberFolder(path);
    return importFolder(path);
}

QString CsvTransfer::chosenFolder() {
    QString path =
        QFileDialog::getExistingDirectory(window_, tr("Export to a Folder"), rememberedFolder());
    if (!path.isEmpty())
        rememberFolder(path);
    return path;
}

} // namespace vkr
