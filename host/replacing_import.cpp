// SPDX-License-Identifier: MIT
#include "host/replacing_import.hpp"

#include "company/typed_figures.hpp"
#include "host/messages.hpp"
#include "host/texts.hpp"
#include "host/typed_figures_dialog.hpp"

#include <QCoreApplication>

#include <memory>
#include <utility>

namespace vkr {

namespace {

QString replacingText(const char* text) {
    return QCoreApplication::translate("ReplacingImport", text);
}

struct ReplacedCompany {
    QString title;
    LoadedCompany stored;
    std::shared_ptr<CompanyRecord> imported;
    std::vector<ReplacedFigure> typed;
};

// False when the user gave up.
bool keepWhatWasTyped(QWidget* window, const std::vector<ReplacedCompany>& companies) {
    std::vector<TypedFiguresDialog::Company> asked;
    std::vector<const ReplacedCompany*> replaced;
    for (const ReplacedCompany& one : companies)
        if (!one.typed.empty()) {
            asked.push_back({one.title, one.typed});
            replaced.push_back(&one);
        }
    if (asked.empty())
        return true;
    TypedFiguresDialog dialog(asked, window);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    for (std::size_t at = 0; at < replaced.size(); ++at)
        keepFigures(*replaced[at]->stored.record, dialog.kept(at), *replaced[at]->imported);
    return true;
}

// Of more than a few companies the numbers alone.
GoneFigures goneOf(const std::vector<ReplacedCompany>& companies) {
    constexpr int named = 3;
    GoneFigures gone;
    int hit = 0;
    for (const ReplacedCompany& one : companies) {
        const QString prefix = companies.size() == 1 ? QString() : one.title + QStringLiteral(": ");
        const auto figures = goneFigures(*one.stored.record, one.stored.origins, *one.imported);
        hit += figures.empty() ? 0 : 1;
        for (const std::string& words : goneInWords(figures))
            gone.words.append(prefix + fromUtf8(words));
        for (const ReplacedFigure& figure : figures)
            gone.lines.append(prefix + fromUtf8(describeGone(figure)));
    }
    if (hit > named)
        gone.words = {replacingText("%1 figures of %2 companies are gone: the files do not have "
                                    "them, or they are too old for the table.")
                          .arg(gone.lines.size())
                          .arg(hit)};
    return gone;
}

} // namespace

std::optional<PreparedImports> replacing(CompanyStore& store, QWidget* window,
                                         std::vector<ReplacingImport> imports) {
    std::vector<ReplacedCompany> companies;
    PreparedImports prepared;
    QStringList locked;
    QStringList damaged;
    for (ReplacingImport& one : imports) {
        auto loaded = store.load(*one.request.id);
        if (!loaded) {
            tellFault(window, replacingText("Nothing was imported."),
                      fromUtf8(loaded.error().message));
            return std::nullopt;
        }
        LoadedCompany& stored = loaded.value();
        const QString title = companyTitle(stored.record->get_Name(), stored.record->get_Symbol());
        if (isLocked(*stored.record)) {
            locked.append(title);
            continue;
        }
        if (stored.damage) { // a save would make it final
            damaged.append(title);
            continue;
        }
        const auto imported = one.request.record->clone();
        one.request.record = imported;
        one.request.expectedRevision = stored.revision;
        keepWhatIsMissing(*stored.record, stored.origins, *one.import, *imported);
        auto typed = typedFigures(*stored.record, stored.origins, *imported);
        companies.push_back({title, std::move(stored), imported, std::move(typed)});
        prepared.imports.push_back(std::move(one));
    }
    tellLeft(window, locked, replacingText("The data is locked. Unlock it to import figures."));
    tellLeft(window, damaged,
             replacingText("What is stored is not as it was saved. Open it, and save what it is to "
                           "be, before figures are imported."));
    if (!keepWhatWasTyped(window, companies))
        return std::nullopt;
    prepared.gone = goneOf(companies);
    return prepared;
}

void tellLeft(QWidget* window, const QStringList& titles, const QString& why) {
    if (!titles.isEmpty())
        tellNews(window,
                 titles.size() == 1
                     ? replacingText("%1 stays as it is.").arg(titles.front())
                     : replacingText("%1 companies stay as they are.").arg(titles.size()),
                 why, titles.size() == 1 ? QStringList() : titles);
}

} // namespace vkr
