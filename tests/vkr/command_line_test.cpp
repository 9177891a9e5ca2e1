// SPDX-License-Identifier: MIT
// How the program is called, what it answers, and what it needs.
#include "tests/vkr/program_run.hpp"
#include "vkr/commands.hpp"

#include <QStandardPaths>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <initializer_list>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace vkr::test {
namespace {

using CommandLineTest = ProgramTest;

// The system's own words, in the language of the environment.
std::string ofSystem(int error) {
    return std::generic_category().message(error);
}

TEST_F(CommandLineTest, EveryRefusalHasItsCodeAndSaysWhatIsWrong) {
    importSamples();
    write("text.txt", "This is no database, but long enough to be looked at as one would be.");
    write("newer.vkr", bytes("companies.vkr").replace(60, 4, QByteArray("\0\0\0\x7f", 4)));
    struct Row {
        QStringList arguments;
        bool named; // with the database
        int code;
        std::string words;
    };
    const Row rows[] = {
        {{}, true, 2, "Name a command."},
        {{"lst"}, true, 2, "There is no command lst."},
        {{"list", "--sort"}, true, 2, "There is no option --sort."},
        {{"list", "-x"}, true, 2, "There is no option -x."},
        {{"list", "--yearly"}, true, 2, "list has no option --yearly."},
        {{"list", "--format"}, true, 2, "--format needs a value: tsv|json."},
        {{"list", "--format="}, true, 2, "--format needs a value: tsv|json."},
        {{"list", "--format", "xml"}, true, 2, "There is no format xml: tsv or json."},
        {{"list", "--version=2"}, true, 2, "--version takes no value."},
        {{"list", "--database", "x"}, true, 2, "--database is given twice."},
        {{"show"}, true, 2, "vkr show takes SYMBOL."},
        {{"show", "A", "B"}, true, 2, "vkr show takes SYMBOL."},
        {{"export", "AAPL"}, true, 2, "vkr export takes SYMBOL... FOLDER."},
        {{"export", "--all", "AAPL", "in"}, true, 2, "--all is every company: name no symbol."},
        {{"list"}, false, 2, "Name the database with --database PLACE"},
        {{"history", "AAPL", "--from", "yesterday"}, true, 2, "yesterday is no time such as"},
        {{"history", "AAPL", "--until", "2026-02-30"}, true, 2, "2026-02-30 is no time such as"},
        {{"history", "AAPL", "--period", "20x"}, true, 2, "20x is no year such as"},
        {{"history", "AAPL", "--figure", "revenue"}, true, 2, "is no name of a figure"},
        {{"show", "AAPL", "--paper", "a4"}, true, 2, "--paper is the paper of --pdf."},
        {{"show", "AAPL", "--pdf", "a.pdf", "--yearly"},
         true,
         2,
         "The sheet of --pdf has all tables"},
        {{"show", "AAPL", "--pdf", "a.pdf", "--format", "tsv"}, true, 2, "are not for it."},
        {{"show", "NONE"}, true, 3, "No company in companies.vkr has the symbol NONE."},
        {{"show", "id:99"}, true, 3, "company"},
        {{"export", "AAPL", "nowhere"}, true, 3, "There is no folder nowhere."},
        {{"import", "nowhere"}, true, 3, "nowhere could not be read: " + ofSystem(ENOENT)},
        {{"import", "in"}, true, 3, "There is no company in in"},
        {{"--database", "none.vkr", "list"}, false, 3, "none.vkr does not exist."},
        {{"--database", "none.vkr", "list"}, false, 3, "vkr import FOLDER --create makes one."},
        {{"--database", "text.txt", "list"}, false, 3, "text.txt is not a company file."},
        {{"--database", "newer.vkr", "list"}, false, 3, "newer version"},
        {{"--database", "in", "list"}, false, 3, "is not a company file."},
        {{"--database", "postgresql://localhost", "list"}, false, 3, "names no database"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.arguments.join(' ').toStdString());
        const auto refused = run(row.arguments, row.named);
        EXPECT_EQ(refused.code, row.code);
        EXPECT_TRUE(contains(refused.err, row.words)) << refused.err;
        EXPECT_TRUE(refused.err.starts_with("vkr: ")) << refused.err;
        EXPECT_EQ(refused.out, "");
    }
    EXPECT_FALSE(QFile::exists(path("none.vkr")));
}

// Permissions do not bind the superuser: then the program runs as somebody else.
class ReadOnlyDatabase : public ProgramTest {
  protected:
    void SetUp() override {
        importSamples();
        QFile::setPermissions(path("companies.vkr"), QFile::Permissions(0x4444));
        QFile::setPermissions(path(""), QFile::Permissions(0x5555));
        if (runAsSomebody({"--version"}).code != 0)
            GTEST_SKIP() << "Nobody but the superuser can run the program here.";
    }
    void TearDown() override { QFile::setPermissions(path(""), QFile::Permissions(0x7777)); }

    [[nodiscard]] Ended runAsSomebody(const QStringList& arguments) const {
        QProcess process;
        prepare(process, arguments);
        process.setChildProcessModifier([] {
            constexpr uid_t nobody = 65534;
            if (geteuid() == 0 && setuid(nobody) != 0)
                std::abort();
        });
        process.start();
        return process.waitForStarted() ? ended(process) : Ended();
    }
};

TEST_F(ReadOnlyDatabase, IsRead) {
    const QString document = QStringLiteral(VKR_SOURCE_DIR "/tests/filings/AAPL-facts.json");
    for (const QStringList& command :
         {QStringList{"list"}, QStringList{"show", "AAPL", "--yearly"}, QStringList{"check"},
          QStringList{"history", "AAPL"}, QStringList{"facts", document, "--symbol", "AAPL"},
          QStringList{"export", "AAPL", "/nowhere"}}) {
        SCOPED_TRACE(command.join(' ').toStdString());
        const auto read = runAsSomebody(command);
        const auto asOwner = run(command);
        EXPECT_EQ(read.code, asOwner.code);
        EXPECT_EQ(read.out, asOwner.out);
        EXPECT_EQ(read.err, asOwner.err);
    }
    EXPECT_EQ(QDir(path("")).entryList(QDir::Files), QStringList("companies.vkr"));
}

TEST_F(ReadOnlyDatabase, IsNotChanged) {
    const QByteArray before = bytes("companies.vkr");
    const QString document = QStringLiteral(VKR_SOURCE_DIR "/tests/filings/AAPL-facts.json");
    for (const QStringList& command :
         {QStringList{"import", samples()},
          QStringList{"facts", document, "--symbol", "AAPL", "--accept", "new"}}) {
        SCOPED_TRACE(command.join(' ').toStdString());
        const auto refused = runAsSomebody(command);
        EXPECT_EQ(refused.code, 4);
        EXPECT_TRUE(contains(refused.err, "read-only")) << refused.err;
    }
    EXPECT_EQ(bytes("companies.vkr"), before);
}

TEST_F(CommandLineTest, TheDatabaseMayStandInTheEnvironment) {
    importSamples();
    QProcess process;
    prepare(process, {"list", "--format", "tsv"}, false);
    auto variables = environment();
    variables.insert("VKR_DATABASE", "companies.vkr");
    process.setProcessEnvironment(variables);
    process.start();
    EXPECT_TRUE(contains(ended(process).out, "TSLA\tTesla, Inc."));
}

TEST_F(CommandLineTest, OptionsMayStandAnywhereAndEndAtTwoDashes) {
    importSamples();
    EXPECT_EQ(run({"--format", "tsv", "show", "--yearly", "TSLA"}).out,
              run({"show", "TSLA", "--yearly", "--format=tsv"}).out);
    EXPECT_TRUE(contains(run({"show", "--", "--yearly"}).err, "has the symbol --yearly."));
}

TEST_F(CommandLineTest, HelpAndVersionNeedNothing) {
    for (const QStringList& arguments :
         {QStringList{"--help"}, QStringList{"-h"}, QStringList{"import", "--help"}}) {
        const auto help = run(arguments, false);
        EXPECT_EQ(help.code, 0);
        EXPECT_TRUE(help.out.starts_with("Usage: vkr ")) << help.out;
        EXPECT_TRUE(contains(help.out, "\nExit status:\n  0 ")) << help.out;
        EXPECT_EQ(help.err, "");
    }
    const auto version = run({"--version"}, false);
    EXPECT_EQ(version.code, 0);
    EXPECT_TRUE(version.out.starts_with("vkr ")) << version.out;
    const std::string all = run({"--help"}, false).out;
    for (const CommandRow& command : commandTable())
        EXPECT_TRUE(contains(all, "\n  " + std::string(command.name) + " ")) << command.name;
}

TEST_F(CommandLineTest, AReaderThatLeavesIsNoError) {
    importSamples();
    QProcess process;
    prepare(process, {});
    process.setProgram("bash");
    process.setArguments({"-c", "'" + program() +
                                    "' --database companies.vkr show AAPL --quarterly "
                                    "--yearly | true; exit ${PIPESTATUS[0]}"});
    process.start();
    const auto left = ended(process);
    EXPECT_EQ(left.code, 0);
    EXPECT_EQ(left.err, "");
}

TEST_F(CommandLineTest, AnOutputThatCannotBeWrittenIsAnError) {
    importSamples();
    QProcess process;
    prepare(process, {"list"});
    process.setStandardOutputFile("/dev/full");
    process.start();
    const auto failed = ended(process);
    EXPECT_EQ(failed.code, 4);
    EXPECT_TRUE(contains(failed.err, "The output could not be written: " + ofSystem(ENOSPC)))
        << failed.err;
}

TEST_F(CommandLineTest, AServerWithoutALocaleHearsNothingOfIt) {
    importSamples();
    QProcess process;
    prepare(process, {"list"});
    auto variables = environment();
    variables.insert("LC_ALL", "C");
    process.setProcessEnvironment(variables);
    process.start();
    EXPECT_EQ(ended(process).err, "");
}

class OnATerminal : public ProgramTest {
  protected:
    // All that a terminal gets of a call which has these streams there.
    [[nodiscard]] std::string seen(const QStringList& arguments,
                                   std::initializer_list<int> streams) const {
        const int watcher = posix_openpt(O_RDWR | O_NOCTTY);
        EXPECT_GE(watcher, 0);
        EXPECT_EQ(grantpt(watcher), 0);
        EXPECT_EQ(unlockpt(watcher), 0);
        const int terminal = ::open(ptsname(watcher), O_RDWR | O_NOCTTY);
        EXPECT_GE(terminal, 0);
        QProcess process;
        prepare(process, arguments);
        process.setChildProcessModifier([terminal, streams = std::vector(streams)] {
            for (const int stream : streams)
                dup2(terminal, stream);
        });
        process.start();
        EXPECT_TRUE(process.waitForStarted());
        close(terminal); // the program alone writes there: it is read to the end of that
        std::string text;
        std::string part(4096, '\0');
        for (;;) {
            const ssize_t size = read(watcher, part.data(), part.size());
            if (size > 0)
                text.append(part, 0, static_cast<std::size_t>(size));
            else if (size == 0 || errno != EINTR) // the end of a child interrupts
                break;
        }
        close(watcher);
        static_cast<void>(ended(process));
        return text;
    }
    // What stands there in the end.
    [[nodiscard]] static std::string screen(std::string_view text) {
        constexpr std::string_view lineEnd = "\r\n";
        constexpr std::string_view erase = "\r\x1b[K";
        std::string shown;
        while (!text.empty())
            if (text.starts_with(lineEnd)) {
                shown += '\n';
                text.remove_prefix(lineEnd.size());
            } else if (text.starts_with(erase)) {
                shown.erase(shown.rfind('\n') + 1);
                text.remove_prefix(erase.size());
            } else {
                shown += text.front();
                text.remove_prefix(1);
            }
        return shown;
    }
};

// Progress is for whoever watches standard error, and for nobody else.
TEST_F(OnATerminal, ProgressIsShownOnATerminalOnly) {
    importSamples();
    EXPECT_FALSE(contains(run({"import", samples()}).err, "\r"));
    const std::string text = seen({"import", samples()}, {STDERR_FILENO});
    EXPECT_TRUE(contains(text, "\r\x1b[K0 of 4  AAPL\r\x1b[K")) << text;
    EXPECT_TRUE(contains(text, "4 unchanged.")) << text;
}

TEST_F(OnATerminal, ProgressStandsInNoLineOfTheOutput) {
    importSamples();
    QDir(path("")).mkdir("out");
    for (const QStringList& command :
         {QStringList{"import", samples()}, QStringList{"check"},
          QStringList{"export", "--all", "out", "--replace"}, QStringList{"list"}})
        for (const QStringList& format :
             {QStringList(), QStringList{"--format", "tsv"}, QStringList{"--format", "json"}}) {
            SCOPED_TRACE((command + format).join(' ').toStdString());
            const auto apart = run(command + format);
            const std::string text = seen(command + format, {STDOUT_FILENO, STDERR_FILENO});
            EXPECT_EQ(screen(text), apart.out + apart.err) << text;
            const bool hasOpenLines = format.contains("json"); // a row ends the one before it
            EXPECT_EQ(contains(text, "0 of 4  "), command.front() != "list" && !hasOpenLines);
        }
}

TEST_F(CommandLineTest, NeitherWidgetsNorADisplayAreNeeded) {
    const QString reader = QStandardPaths::findExecutable("ldd");
    if (reader.isEmpty())
        GTEST_SKIP() << "ldd is not installed.";
    QProcess process;
    process.start(reader, {program()});
    const std::string libraries = ended(process).out;
    EXPECT_TRUE(contains(libraries, "libQt6Core")) << libraries;
    EXPECT_FALSE(contains(libraries, "libQt6Widgets")) << libraries;
    EXPECT_FALSE(contains(libraries, "libvkr_desktop")) << libraries;
    importSamples();
    QProcess strange;
    prepare(strange, {"list"});
    auto variables = environment();
    variables.insert("QT_QPA_PLATFORM", "no-such-platform");
    strange.setProcessEnvironment(variables);
    strange.start();
    EXPECT_EQ(ended(strange).code, 0);
}

} // namespace
} // namespace vkr::test
