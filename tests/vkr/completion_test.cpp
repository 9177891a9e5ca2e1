// SPDX-License-Identifier: MIT
// What bash offers while a command line is typed.
#include "tests/vkr/program_run.hpp"

#include <QRegularExpression>
#include <QStandardPaths>

namespace vkr::test {
namespace {

class Completion : public ProgramTest {
  protected:
    // As the shell calls it; the last word is being typed.
    [[nodiscard]] QStringList offered(const QStringList& words) const {
        const auto answered = run(QStringList("__complete") + words, false);
        EXPECT_EQ(answered.code, 0);
        EXPECT_EQ(answered.err, "");
        return QString::fromStdString(answered.out).split(u'\n', Qt::SkipEmptyParts);
    }
};

TEST_F(Completion, CommandsOptionsAndTheirValues) {
    EXPECT_EQ(offered({"ex"}), QStringList("export"));
    EXPECT_TRUE(offered({""}).contains("show"));
    EXPECT_EQ(offered({"show", "--ye"}), QStringList("--yearly"));
    EXPECT_FALSE(offered({"list", "--"}).contains("--yearly"));
    EXPECT_TRUE(offered({"list", "--"}).contains("--format"));
    EXPECT_EQ(offered({"list", "--format", ""}), (QStringList{"tsv", "json"}));
    EXPECT_EQ(offered({"list", "--format", "=", "j"}), QStringList("json"));
    EXPECT_EQ(offered({"show", "X", "--paper", "l"}), QStringList("letter"));
    EXPECT_EQ(offered({"import", ""}), QStringList()) << "files are meant";
    EXPECT_EQ(offered({}).isEmpty(), false);
}

// In the order of the table, or of the help: each option of each command, and no other.
TEST_F(Completion, EveryOptionThatTheHelpHas) {
    static const QRegularExpression option(QStringLiteral("^  (?:-., )?(--[a-z-]+)"),
                                           QRegularExpression::MultilineOption);
    for (const QString& command : offered({""})) {
        QStringList helped;
        auto found =
            option.globalMatch(QString::fromStdString(run({command, "--help"}, false).out));
        while (found.hasNext())
            helped.append(found.next().captured(1));
        QStringList completed = offered({command, "--"});
        EXPECT_GE(helped.size(), 4) << command.toStdString();
        helped.sort();
        completed.sort();
        EXPECT_EQ(completed, helped) << command.toStdString();
    }
    EXPECT_EQ(offered({"history", "X", "--figure", "rev"}), QStringList("revenue_musd"));
    EXPECT_EQ(offered({"history", "X", "--origin", "p"}), QStringList("pasted"));
}

TEST_F(Completion, SymbolsOfTheDatabaseThatIsNamed) {
    importSamples();
    EXPECT_EQ(offered({"--database", "companies.vkr", "show", "t"}), QStringList("TSLA"));
    EXPECT_EQ(offered({"--database", "=", "companies.vkr", "show", ""}),
              (QStringList{"AAPL", "NVDA", "SNOW", "TSLA"}));
    EXPECT_EQ(offered({"--database", "none.vkr", "show", ""}), QStringList());
    EXPECT_EQ(offered({"show", ""}), QStringList());
}

// A symbol is data: whatever it says, the shell carries out nothing of it.
TEST_F(Completion, BashTakesNoSymbolForACommand) {
    const QString bash = QStandardPaths::findExecutable("bash");
    if (bash.isEmpty())
        GTEST_SKIP() << "bash is not installed.";
    importSamples();
    for (const char* symbol : {"$(touch gone)", "A B"}) {
        auto record = std::make_shared<CompanyRecord>();
        record->put_Symbol(symbol);
        ASSERT_TRUE(store()->save(std::nullopt, *record));
    }
    const auto completed = [&](const QString& begun) {
        QProcess process;
        prepare(process, {});
        process.setProgram(bash);
        process.setArguments({"--norc", "-c",
                              ". '" VKR_SOURCE_DIR
                              "/packaging/vkr.bash-completion'; COMP_WORDS=('" +
                                  program() + "' --database companies.vkr show '" + begun +
                                  "'); COMP_CWORD=4; _vkr; printf '%s\\n' \"${COMPREPLY[@]}\""});
        process.start();
        return ended(process);
    };
    EXPECT_EQ(completed("T").out, "TSLA\n");
    EXPECT_EQ(completed("A").out, "A\\ B\nAAPL\n");
    EXPECT_EQ(completed("$").out, "\\$\\(touch\\ gone\\)\n");
    EXPECT_EQ(completed("$").err, "");
    EXPECT_FALSE(QFile::exists(path("gone")));
}

} // namespace
} // namespace vkr::test
