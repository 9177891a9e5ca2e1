// SPDX-License-Identifier: MIT
#include "host/start.hpp"

#include "host/messages.hpp"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>

namespace vkr {

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("start", text);
}

bool isOnServer(const QString& path) {
    return CompanyStore::isOnServer(path.toStdString());
}

// A file that was named but is not there may be mistyped: nothing is made unasked, nor are tables
// in a database that others share.
Workspace::Opened openOrCreate(const QString& path, bool isNamed, const QString& samples,
                               bool& givenUp) {
    QString what = tr("There is no file %1.").arg(path);
    if (isOnServer(path)) {
        Workspace::Opened opened = Workspace::open(path);
        if (opened.workspace || opened.fault != StoreFault::empty)
            return opened;
        what = opened.error;
    } else if (QFileInfo::exists(path)) {
        return Workspace::open(path);
    } else if (!isNamed) {
        return Workspace::create(path, samples);
    }
    enum { withSamples, empty, quit };
    switch (ask(nullptr, what,
                isOnServer(path)
                    ? tr("They can be made now, with the sample companies in them or empty.")
                    : tr("It can be made now, with the sample companies in it or empty."),
                {{tr("Create with &Samples")},
                 {tr("Create &Empty")},
                 {tr("&Quit"), Choice::Role::reject}})) {
    case withSamples:
        return Workspace::create(path, samples);
    case empty:
        return Workspace::create(path, {});
    default:
        givenUp = true;
        return {};
    }
}

} // namespace

std::unique_ptr<Workspace> start(const Options& options) {
    QString path = options.database;
    bool isNamed = options.isNamed;
    for (;;) {
        bool givenUp = false;
        Workspace::Opened opened = openOrCreate(path, isNamed, options.samples, givenUp);
        if (givenUp)
            return nullptr;
        if (opened.workspace) {
            opened.workspace->list().show();
            if (!opened.notes.isEmpty())
                tellNews(&opened.workspace->list(), opened.notes.front(), {},
                         opened.notes.size() > 1 ? opened.notes : QStringList());
            opened.workspace->offerFound();
            return std::move(opened.workspace);
        }
        enum { again, another, quit };
        switch (ask(
            nullptr, tr("The database can't be opened."), opened.error,
            {{tr("&Try Again")}, {tr("&Open Another...")}, {tr("&Quit"), Choice::Role::reject}})) {
        case again:
            break;
        case another: {
            const QString chosen = QFileDialog::getOpenFileName(
                nullptr, tr("Open a Database"),
                isOnServer(path) ? QString() : QFileInfo(path).absolutePath(),
                tr("Databases (*.vkr);;All files (*)"));
            if (!chosen.isEmpty()) {
                path = chosen;
                isNamed = true;
            }
            break;
        }
        default:
            return nullptr;
        }
    }
}

} // namespace vkr
