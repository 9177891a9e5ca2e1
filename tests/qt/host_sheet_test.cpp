// SPDX-License-Identifier: MIT
// Data sheets from the windows of the host.
#include "host/sheet_printing.hpp"
#include "tests/qt/host_fixture.hpp"

#include <QAction>
#include <QFileDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusBar>

#include <map>

namespace vkr {
namespace {

qsizetype pages(const QString& file) {
    return contents(file).count("/Type /Page\n");
}

TEST_F(HostTest, SeveralCompaniesOfTheListAreSavedAsOnePdf) {
    const QString file = home_.filePath("both.pdf");
    host_->saveSheets({idOf(*host_, "AAPL"), idOf(*host_, "SNOW")}, file, Paper::a4);
    EXPECT_EQ(pages(file), 4);
    EXPECT_EQ(host_->list().statusBar()->currentMessage(), "Saved as " + file);
}

TEST_F(HostTest, ASheetIsOfWhatIsOnScreenAndSavesNothing) {
    CompanyWindow& window = open(*host_, "TSLA");
    type(window, "txtName", "Volta Inc.", false);
    const QString file = home_.filePath("tesla.pdf");
    host_->saveWindowSheet(window, file, Paper::letter);
    EXPECT_EQ(pages(file), 2);
    // The title is the one text that a PDF file holds as it is, in UTF-16.
    const QString title = "Volta Inc. (TSLA)";
    QByteArray coded;
    for (const QChar letter : title)
        coded += QByteArray(1, '\0') + letter.toLatin1();
    EXPECT_TRUE(contents(file).contains(QByteArray(coded).replace("(", "\\(").replace(")", "\\)")));
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(stored(*host_, "TSLA")->get_Name(), "Tesla, Inc.");
}

TEST_F(HostTest, ThePaperOfAPdfIsChosenWithItsFile) {
    const std::map<QString, const char*> boxes = {{"A4", "[0 0 595.000000 842.000000]"},
                                                  {"Letter", "[0 0 612.000000 792.000000]"}};
    for (const auto& [paper, box] : boxes) {
        const QString file = home_.filePath(paper + ".pdf");
        QStringList offered;
        QTimer waiting;
        QObject::connect(&waiting, &QTimer::timeout, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr || !dialog->isVisible())
                return;
            offered = dialog->nameFilters();
            for (const QString& filter : offered)
                if (filter.contains(paper))
                    dialog->selectNameFilter(filter);
            dialog->selectFile(file);
            waiting.stop();
            QMetaObject::invokeMethod(dialog, "accept");
        });
        waiting.start(0);
        host_->list().findChild<QTableView*>("companies")->selectRow(0);
        host_->list().findChild<QAction*>("savePdf")->trigger();
        EXPECT_EQ(offered.size(), 2);
        EXPECT_TRUE(offered.value(0).contains(usualPaper() == Paper::letter ? "Letter" : "A4"));
        EXPECT_TRUE(contents(file).contains(box)) << paper.toStdString();
    }
}

TEST_F(HostTest, APrinterGetsTwoPagesACompany) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(home_.filePath("printed.pdf"));
    const auto list = host_->store().list();
    SheetPrinting(&host_->list())
        .print(SheetPrinting::stored(host_->store(), list.value()), printer);
    EXPECT_EQ(pages(home_.filePath("printed.pdf")), 8);
    EXPECT_EQ(host_->list().statusBar()->currentMessage(), "4 companies printed");
}

// A choice that would be passed over is none.
TEST_F(HostTest, PartsOfSheetsAreNotOfferedForPrinting) {
    QTimer waiting;
    bool isAsked = false;
    QObject::connect(&waiting, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr)
            return;
        isAsked = true;
        EXPECT_FALSE(dialog->testOption(QAbstractPrintDialog::PrintPageRange));
        dialog->reject();
    });
    waiting.start(0);
    const auto list = host_->store().list();
    SheetPrinting(&host_->list())
        .printOnChosen(SheetPrinting::stored(host_->store(), list.value()));
    EXPECT_TRUE(isAsked);
}

TEST_F(HostTest, ASheetThatCannotBeWrittenOrReadIsTold) {
    Answers answers({"OK", "OK"});
    host_->saveSheets({idOf(*host_, "AAPL")}, home_.filePath("no/where.pdf"), Paper::a4);
    const auto list = host_->store().list();
    for (const CompanySummary& company : list.value())
        ASSERT_TRUE(host_->store().remove(company.key.id, company.key.revision));
    SheetPrinting(&host_->list())
        .savePdf(SheetPrinting::stored(host_->store(), list.value()), "gone",
                 home_.filePath("gone.pdf"), Paper::a4);
    EXPECT_TRUE(answers.allGiven());
    EXPECT_FALSE(QFile::exists(home_.filePath("gone.pdf")));
}

TEST_F(HostTest, PrintingIsOfferedInBothWindowsByKeyToo) {
    CompanyListWindow& list = host_->list();
    list.show();
    int asked = 0;
    QObject::disconnect(&list, &CompanyListWindow::printAsked, nullptr, nullptr);
    QObject::connect(&list, &CompanyListWindow::printAsked, &list, [&] { ++asked; });
    user_.activate(list);
    user_.press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(asked, 1);
    EXPECT_NE(list.findChild<QAction*>("savePdf"), nullptr);

    CompanyWindow& window = open(*host_, "AAPL");
    QObject::disconnect(&window, &CompanyWindow::printAsked, nullptr, nullptr);
    QObject::connect(&window, &CompanyWindow::printAsked, &window, [&] { ++asked; });
    user_.press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(asked, 2);
    EXPECT_NE(window.findChild<QAction*>("savePdf"), nullptr);
}

} // namespace
} // namespace vkr
