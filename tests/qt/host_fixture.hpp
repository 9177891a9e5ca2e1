// SPDX-License-Identifier: MIT
#pragma once

#include "control/vkr_data_entry.hpp"
#include "host/workspace.hpp"
#include "source_folder.hpp"
#include "tools/event_driver.hpp"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace vkr {

// Answers the message boxes that come up, in turn, and keeps what they said.
class Answers {
  public:
    explicit Answers(QStringList labels) : labels_(std::move(labels)) {
        QObject::connect(&timer_, &QTimer::timeout, [this] { answer(); });
        timer_.start(0);
    }

    [[nodiscard]] const QStringList& told() const { return told_; }
    [[nodiscard]] bool allGiven() const { return labels_.isEmpty() && unexpected_.isEmpty(); }

  private:
    void answer() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr)
            return;
        told_.append(box->text() + u'\n' + box->informativeText() + u'\n' + box->detailedText());
        const QString label = labels_.isEmpty() ? QString() : labels_.takeFirst();
        for (QAbstractButton* button : box->buttons())
            if (button->text().remove(u'&') == label) {
                button->click();
                return;
            }
        unexpected_.append(told_.last());
        ADD_FAILURE() << "No button \"" << label.toStdString()
                      << "\" in: " << told_.last().toStdString();
        box->reject();
    }

    QTimer timer_;
    QStringList labels_;
    QStringList told_;
    QStringList unexpected_;
};

// The host on a database of its own, with settings of its own.
class HostTest : public testing::Test {
  protected:
    HostTest() {
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home_.filePath("settings"));
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        host_ = created();
    }
    ~HostTest() override {
        host_.reset();
        QLocale::setDefault(QLocale::c());
    }

    [[nodiscard]] QString database() const { return home_.filePath("companies.vkr"); }
    // What another program does to the database.
    void execute(const QString& statement) const {
        {
            auto other = QSqlDatabase::addDatabase("QSQLITE", "beside");
            other.setDatabaseName(database());
            ASSERT_TRUE(other.open());
            EXPECT_TRUE(QSqlQuery(other).exec(statement)) << statement.toStdString();
        }
        QSqlDatabase::removeDatabase("beside");
    }
    [[nodiscard]] static QString samples() { return QStringLiteral(VKR_SOURCE_DIR "/samples"); }

    std::unique_ptr<Workspace> created() {
        auto opened = Workspace::create(database(), samples());
        EXPECT_TRUE(opened.workspace) << opened.error.toStdString();
        EXPECT_TRUE(opened.notes.isEmpty()) << opened.notes.join(u'\n').toStdString();
        return std::move(opened.workspace);
    }
    std::unique_ptr<Workspace> another(const QString& user = "colleague@desk") {
        StoreOptions options;
        options.user = user.toStdString();
        auto opened = Workspace::open(database(), options);
        EXPECT_TRUE(opened.workspace) << opened.error.toStdString();
        return std::move(opened.workspace);
    }

    static std::int64_t idOf(Workspace& host, const char* symbol) {
        const auto companies = host.store().list();
        for (const CompanySummary& company : companies.value())
            if (company.symbol == symbol)
                return company.key.id;
        return 0;
    }
    static std::shared_ptr<CompanyRecord> stored(Workspace& host, const char* symbol) {
        const auto loaded = host.store().load(idOf(host, symbol));
        return loaded ? loaded.value().record : nullptr;
    }

    static QWidget& control(CompanyWindow& window, const char* name) {
        auto* found = window.findChild<QWidget*>(name);
        if (found == nullptr)
            throw std::runtime_error(std::string("no control ") + name);
        return *found;
    }
    static QAction& action(CompanyWindow& window, const char* name) {
        auto* found = window.findChild<QAction*>(name);
        if (found == nullptr)
            throw std::runtime_error(std::string("no action ") + name);
        return *found;
    }
    // Which field of the form has the focus, or gets it with the window.
    static std::string focused(CompanyWindow& window) {
        return window.entry().component().form().activeControl()->id();
    }
    // What was to happen after the event under way.
    static void settle() { QApplication::processEvents(); }

    CompanyWindow& open(Workspace& host, const char* symbol) {
        CompanyWindow* window = host.openCompany(idOf(host, symbol));
        if (window == nullptr)
            throw std::runtime_error("the company did not open");
        user_.activate(*window);
        return *window;
    }
    // Types into a field and, unless told otherwise, leaves it.
    void type(CompanyWindow& window, const char* field, const QString& text, bool leave = true) {
        user_.activate(window);
        user_.click(control(window, field));
        user_.press(Qt::Key_A, Qt::ControlModifier);
        user_.type(text);
        if (leave)
            user_.press(Qt::Key_Tab);
    }
    void click(CompanyWindow& window, const char* name) {
        user_.activate(window);
        user_.click(control(window, name));
    }

    [[nodiscard]] QStringList unsavedFiles() const {
        return QDir(home_.path()).entryList({"companies.vkr.unsaved-*"}, QDir::Files);
    }
    // As a program leaves it that is killed while this window is open.
    void killWith(CompanyWindow& window) {
        const QStringList files = unsavedFiles();
        ASSERT_EQ(files.size(), 1);
        const QString kept = home_.filePath("kept");
        ASSERT_TRUE(QFile::copy(home_.filePath(files.front()), kept));
        window.discard();
        host_.reset();
        ASSERT_TRUE(unsavedFiles().isEmpty());
        ASSERT_TRUE(QFile::rename(kept, home_.filePath(files.front())));
    }

    QTemporaryDir home_;
    EventDriver user_;
    std::unique_ptr<Workspace> host_;
};

// The names in the list of companies, in its order.
inline QStringList shownNames(Workspace& host) {
    QStringList names;
    const QAbstractItemModel& rows = *host.list().findChild<QTableView*>("companies")->model();
    for (int row = 0; row < rows.rowCount(); ++row)
        names.append(rows.index(row, CompanyListModel::name).data().toString());
    return names;
}

inline QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
inline void write(const QString& path, const QByteArray& text) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(text), text.size());
}

} // namespace vkr
