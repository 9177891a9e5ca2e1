// SPDX-License-Identifier: MIT
// The data sheet: all of a company on paper, and nothing of it cut off.
#include "company/exact_text.hpp"
#include "sheet/company_notes.hpp"
#include "sheet/finding_notes.hpp"
#include "sheet/origin_notes.hpp"
#include "sheet/sheet_layout.hpp"
#include "sheet/sheet_print.hpp"
#include "tests/support/elements.hpp"
#include "tests/support/samples.hpp"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QLocale>
#include <QPainter>
#include <QTemporaryDir>

#include <algorithm>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <utility>

namespace vkr {
namespace {

using test::sample;

Date day() {
    return makeDate(2026, 11, 22).value();
}

std::shared_ptr<CompanyRecord> dated() {
    auto record = std::make_shared<CompanyRecord>();
    record->put_LastFY(2025);
    record->put_LastFYDate(makeDate(2025, 9, 27).value());
    record->put_LastQDate(makeDate(2025, 12, 27).value());
    return record;
}

// Every figure, and every element of every series, is this one.
void fill(CompanyRecord& record, double figure) {
    for (const DatumRow& row : datumTable()) {
        if (std::holds_alternative<NumberAccess>(row.access))
            writeDatum(record, row.datum, figure);
        if (!isSeries(row))
            continue;
        Variant series = record.stored(row.datum);
        for (int element = 0; element <= row.upper; ++element)
            series.array().setNumber(element, figure);
        writeDatum(record, row.datum, series);
    }
}

QString allText(const QList<SheetPage>& pages) {
    QStringList texts;
    for (const SheetPage& page : pages)
        for (const SheetText& text : page.texts)
            texts.append(text.text);
    return texts.join(u'\n');
}

// Where the letters are.
QRectF inked(const SheetText& text) {
    const double width = text.width();
    double left = text.box.left();
    if (text.alignment & Qt::AlignRight)
        left = text.box.right() - width;
    if (text.alignment & Qt::AlignHCenter)
        left = text.box.center().x() - width / 2;
    constexpr double letters = 0.7; // of the type, from the foot of a letter to its head
    const double height = letters * text.size;
    return {left, text.box.center().y() - height / 2, width, height};
}

void expectNothingCutOff(const QList<SheetPage>& pages) {
    constexpr double margin = 36 * point;
    constexpr double hair = 1.5; // less than a tenth of a point
    for (const SheetPage& page : pages) {
        const QRectF paper = QRectF({}, page.size).adjusted(margin, margin, -margin, -margin);
        const QRectF wide = paper.adjusted(-hair, -hair, hair, hair);
        QList<QRectF> before;
        for (const SheetText& text : page.texts) {
            const QRectF ink = inked(text);
            EXPECT_LE(text.width(), text.box.width() + hair) << text.text.toStdString();
            EXPECT_TRUE(wide.contains(ink)) << text.text.toStdString();
            EXPECT_GE(text.size, 3 * point) << text.text.toStdString();
            const QRectF core = ink.adjusted(hair, hair, -hair, -hair);
            for (qsizetype other = 0; other < before.size(); ++other)
                EXPECT_FALSE(before.at(other).intersects(core))
                    << text.text.toStdString() << " over "
                    << page.texts.at(other).text.toStdString();
            before.append(core);
        }
        for (const SheetArea& area : page.areas)
            EXPECT_TRUE(wide.contains(area.box));
    }
}

struct SheetCase {
    const char* name;
    SheetCompany company;
};

// Every second figure of the years and quarters is a thousand times too large, or of the other
// sign.
std::shared_ptr<CompanyRecord> oddEverywhere() {
    auto record = sample("AAPL");
    for (const DatumRow& row : datumTable())
        for (int element = 0; isSeries(row) && element <= row.upper; ++element)
            test::putElement(*record, row.datum, element,
                             test::elementOf(*record, row.datum, element) * (element % 4 == 0 ? 1000
                                                                             : element % 4 == 2
                                                                                 ? -1
                                                                                 : 1));
    return record;
}

std::vector<SheetCase> cases() {
    std::vector<SheetCase> all;
    for (const char* symbol : {"AAPL", "NVDA", "SNOW", "TSLA"})
        all.push_back({symbol, {sample(symbol), findingNotes(*sample(symbol))}});
    all.push_back({"empty", {std::make_shared<CompanyRecord>(), {}}});

    auto wide = dated();
    wide->put_Name(std::string(100, 'W'));
    wide->put_Symbol(std::string(20, 'W'));
    for (const DatumRow& row : datumTable())
        if (std::holds_alternative<TextAccess>(row.access) && row.datum != Datum::Symbol)
            writeDatum(*wide, row.datum, std::string(100, 'W'));
    wide->get_Settings()->put(setting::currencySymbol, std::string("WWWW"));
    fill(*wide, -1234.5678);
    all.push_back({"wide texts", {wide, {}}});

    auto wider = wide->clone();
    for (const DatumRow& row : datumTable())
        if (std::holds_alternative<TextAccess>(row.access))
            writeDatum(*wider, row.datum, std::string(1000, 'W') + " THE-END");
    all.push_back({"texts that have no room", {wider, {}}});

    for (const auto& [name, figure] :
         {std::pair("large", 123456789012.345), std::pair("huge", -1.2345678901234567e300),
          std::pair("tiny", 1.2345678901234567e-300),
          std::pair("many digits", -0.1234567890123456)}) {
        auto record = dated();
        fill(*record, figure);
        all.push_back({name, {record, {}}});
    }

    SheetCompany imported{sample("AAPL"), findingNotes(*sample("AAPL"))};
    FigureOrigins origins; // each quarter and each year from a filing of its own
    for (const DatumRow& row : datumTable())
        if (isSeries(row))
            for (int element = 0; element <= row.upper; ++element)
                origins.put(row.datum, element,
                            {Origin::imported,
                             (row.period == DatumPeriod::year ? "0000320193-1" : "0000320193-2") +
                                 std::to_string(1000 + element)});
    for (SheetNote& note : originNotes(*imported.record, origins))
        imported.notes.push_back(std::move(note));
    all.push_back({"many documents", imported});

    auto noted = sample("TSLA");
    std::string notes;
    for (int line = 0; line < 300; ++line)
        notes += "Line " + std::to_string(line) + " of many.\n";
    noted->put_Notes(notes);
    SheetCompany marked{noted, {}};
    for (int element = 0; element < 35; ++element)
        for (int twice = 0; twice < 2; ++twice)
            marked.notes.push_back({{{Datum::QEPSSeries, element}, {Datum::TotalDebt, {}}},
                                    "It is ten times its neighbours, and so is what stands beside "
                                    "it, so that somebody should look it up in the filing."});
    all.push_back({"notes", marked});
    all.push_back({"odd everywhere", {oddEverywhere(), findingNotes(*oddEverywhere())}});
    return all;
}

TEST(SheetLayout, NothingIsCutOffOrOverAnother) {
    for (const SheetCase& one : cases())
        for (const Paper paper : {Paper::a4, Paper::letter}) {
            SCOPED_TRACE(std::string(one.name) + (paper == Paper::a4 ? " on A4" : " on Letter"));
            const auto pages = companySheet(one.company, paper, day());
            EXPECT_EQ(pages.size(), 2);
            expectNothingCutOff(pages);
        }
}

// Figures are written as the system does.
struct InEnglish {
    InEnglish() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }
    ~InEnglish() { QLocale::setDefault(QLocale::system()); }
};

// As many as there is room for, and how many are not there.
TEST(SheetLayout, NoFootnoteIsLeftOutWithoutAWord) {
    const InEnglish figures;
    bool isAnyLeftOut = false;
    for (const int count : {1, 10, 30, 60, 100, 146, 250, 1000}) {
        SCOPED_TRACE(count);
        SheetCompany company{sample("AAPL"), {}};
        for (int note = 1; note <= count; ++note)
            company.notes.push_back({{{Datum::QEPSSeries, note % 35}},
                                     QString("Note %1 says that this figure is ten times what its "
                                             "two neighbours are, to the end of note %1.")
                                         .arg(note)});
        const auto pages = companySheet(company, Paper::letter, day());
        EXPECT_EQ(pages.size(), 2);
        expectNothingCutOff(pages);
        const QString text = allText(pages).replace(u'\n', u' ');
        int shown = 0;
        while (text.contains(QString("Note %1 says").arg(shown + 1)))
            ++shown;
        for (int note = 1; note <= shown; ++note)
            EXPECT_TRUE(text.contains(QString("the end of note %1.").arg(note)) ||
                        text.contains(QString("note %1.").arg(note)))
                << note;
        EXPECT_EQ(text.contains(QString("and %1 more: see the program").arg(count - shown)),
                  shown < count);
        EXPECT_EQ(text.contains("see the program"), shown < count);
        EXPECT_GE(shown, std::min(count, 50));
        isAnyLeftOut = isAnyLeftOut || shown < count;
    }
    EXPECT_TRUE(isAnyLeftOut);
}

TEST(SheetLayout, ATextThatHasNoRoomSaysHowMuchOfItIsMissing) {
    auto record = dated();
    for (const DatumRow& row : datumTable())
        if (std::holds_alternative<TextAccess>(row.access) && row.datum != Datum::Notes)
            writeDatum(*record, row.datum, std::string(1000, 'W') + " THE-END");
    const auto pages = companySheet({record, {}}, Paper::letter, day());
    EXPECT_FALSE(allText(pages).contains("THE-END"));
    const auto isCut = [](const SheetText& text) {
        return text.text.startsWith("and ") && text.text.endsWith(" more lines: see the program");
    };
    int texts = 0; // but for name, symbol, exchange and industry, which are above
    for (const DatumRow& row : datumTable())
        texts += std::holds_alternative<TextAccess>(row.access) ? 1 : 0;
    EXPECT_EQ(std::ranges::count_if(pages[0].texts, isCut), texts - 5 + 2);
    EXPECT_EQ(std::ranges::count_if(pages[1].texts, isCut), 2);
}

TEST(SheetLayout, LongNotesLeaveHalfTheRoomToTheFootnotes) {
    const InEnglish figures;
    auto record = sample("TSLA");
    std::string notes;
    for (int line = 1; line <= 1000; ++line)
        notes += "Line " + std::to_string(line) + " of many.\n";
    record->put_Notes(notes);
    SheetCompany company{record, {}};
    for (int note = 1; note <= 20; ++note)
        company.notes.push_back({{}, QString("Remark %1.").arg(note)});
    const auto pages = companySheet(company, Paper::a4, day());
    EXPECT_EQ(pages.size(), 2);
    expectNothingCutOff(pages);
    const QString text = allText(pages);
    EXPECT_TRUE(text.contains("Remark 20."));
    int shown = 0;
    while (text.contains(QString("Line %1 of many.").arg(shown + 1)))
        ++shown;
    EXPECT_GE(shown, 100);
    EXPECT_TRUE(text.contains(QString("and %1 more lines: see the program").arg(1000 - shown)))
        << shown;
}

TEST(SheetLayout, EverythingThatIsStoredIsOnPaper) {
    auto record = dated();
    double figure = 1000.5;
    QStringList expected;
    for (const DatumRow& row : datumTable()) {
        if (row.datum == Datum::LastFY)
            continue;
        if (std::holds_alternative<TextAccess>(row.access)) {
            writeDatum(*record, row.datum, "T" + std::string(row.name));
            expected.append("T" + QString::fromUtf8(row.name.data(), std::ssize(row.name)));
        } else if (std::holds_alternative<NumberAccess>(row.access)) {
            writeDatum(*record, row.datum, ++figure);
            expected.append(localizedFigure(QString::number(figure)));
        } else if (std::holds_alternative<DateAccess>(row.access)) {
            writeDatum(*record, row.datum, Date{++figure});
            expected.append(QString::fromStdString(isoDateText(readDate(*record, row.datum))));
        } else if (isSeries(row)) {
            Variant series = record->stored(row.datum);
            for (int element = 0; element <= row.upper; ++element) {
                series.array().setNumber(element, ++figure);
                expected.append(localizedFigure(QString::number(figure)));
            }
            writeDatum(*record, row.datum, series);
        }
    }
    const auto pages = companySheet({record, {}}, Paper::a4, day());
    const QString text = allText(pages);
    EXPECT_EQ(pages.size(), 2);
    for (const QString& one : expected)
        EXPECT_TRUE(text.contains(one)) << one.toStdString();
    EXPECT_FALSE(text.contains(QString(QChar(0x2248)) + "1"));
}

TEST(SheetLayout, AFigureIsRoundedOnlyWhereItHasNoRoomAndIsMarkedThen) {
    const InEnglish figures;
    auto record = dated();
    fill(*record, 12345.678901);
    EXPECT_FALSE(allText(companySheet({record, {}}, Paper::a4, day())).contains(u"\u22481"));
    fill(*record, -1.2345678901234567e300);
    const QStringList texts = allText(companySheet({record, {}}, Paper::a4, day())).split(u'\n');
    int rounded = 0;
    for (const QString& text : texts)
        rounded += text.startsWith(u"\u2248-1.") && text.endsWith("e+300") ? 1 : 0;
    EXPECT_GE(rounded, 11 * 11 + 5 * 35);
}

TEST(SheetLayout, ANoteHasItsNumberAtTheFigure) {
    const InEnglish figures;
    const auto pages = companySheet({sample("AAPL"),
                                     {{{{Datum::YRevenueSeries, 1}}, "First remark."},
                                      {{}, "Second remark."},
                                      {{{Datum::YRevenueSeries, 1}}, "Third remark."}}},
                                    Paper::a4, day());
    const auto& texts = pages.first().texts;
    const auto mark = std::ranges::find(texts, QStringLiteral("1,3"), &SheetText::text);
    ASSERT_NE(mark, texts.end());
    const auto figure = std::ranges::find(texts, QStringLiteral("416,161"), &SheetText::text);
    ASSERT_NE(figure, texts.end());
    EXPECT_NEAR(mark->box.left(), figure->box.right(), point);
    const QString notes = allText(pages);
    EXPECT_TRUE(notes.contains("2\nSecond remark.\n3\nThird remark.")) << notes.toStdString();
}

TEST(SheetLayout, OriginsAreToldByDocumentAndMarkedButForTheMostCommonOne) {
    const auto record = sample("AAPL");
    EXPECT_TRUE(originNotes(*record, {}).empty()) << "nobody knows of any";
    FigureOrigins origins;
    for (const DatumRow& row : datumTable())
        if (isSeries(row))
            for (int element = 0; element <= row.upper; ++element)
                origins.put(row.datum, element, {Origin::imported, "AAPL-company.csv"});
    for (int element = 0; element < 30; ++element)
        origins.put(Datum::QRevenueSeries, element, {Origin::pasted, ""});
    origins.put(Datum::YRevenueSeries, 1, {Origin::typed, ""});
    origins.put(Datum::TotalDebt, std::nullopt, {Origin::typed, ""});
    origins.put(Datum::CurrentPrice, std::nullopt, {Origin::typed, ""}); // of which there is none
    const std::vector<SheetNote> notes = originNotes(*record, origins);
    ASSERT_EQ(notes.size(), 5U);
    EXPECT_EQ(notes[0].text, "2 figures: not known where from.");
    EXPECT_EQ(notes[0].places.size(), 2U) << "the two counts of shares";
    EXPECT_EQ(notes[1].text, "2 figures: typed.");
    EXPECT_EQ(notes[1].places,
              (std::vector<FigurePlace>{{Datum::TotalDebt, {}}, {Datum::YRevenueSeries, 1}}));
    EXPECT_EQ(notes[2].text, "30 figures: pasted.");
    EXPECT_EQ(notes[2].places.size(), 30U);
    EXPECT_EQ(notes[3].text, "All other yearly ones, 109 figures: imported from AAPL-company.csv.");
    EXPECT_TRUE(notes[3].places.empty());
    EXPECT_EQ(notes[4].text,
              "All other quarterly ones, 145 figures: imported from AAPL-company.csv.");
    EXPECT_TRUE(notes[4].places.empty());
}

// As an import tells them: no figure has a number for the file of its table.
TEST(SheetLayout, TheMostCommonOriginIsThatOfEachTable) {
    const auto record = sample("AAPL");
    FigureOrigins origins;
    for (const DatumRow& row : datumTable()) {
        const FigureOrigin from{Origin::imported,
                                row.period == DatumPeriod::year ? "yearly.csv" : "quarterly.csv"};
        if (isSeries(row))
            for (int element = 0; element <= row.upper; ++element)
                origins.put(row.datum, element, from);
    }
    QStringList texts;
    for (const SheetNote& note : originNotes(*record, origins)) {
        EXPECT_EQ(note.places.empty(), note.text.startsWith("All ")) << note.text.toStdString();
        texts += note.text;
    }
    EXPECT_EQ(texts, (QStringList{"3 figures: not known where from.",
                                  "All 110 yearly figures: imported from yearly.csv.",
                                  "All 175 quarterly figures: imported from quarterly.csv."}));
}

// Where there is no figure, either.
TEST(SheetLayout, EveryFigureThatIsMissingIsMarked) {
    const InEnglish figures;
    const auto record = sample("AAPL");
    for (const Datum series : {Datum::YRevenueSeries, Datum::YEPSSeries, Datum::YHighSeries})
        test::putElement(*record, series, 4, 0);
    SheetCompany sheet{record, findingNotes(*record)};
    const auto gap = std::ranges::find(sheet.notes, 3U,
                                       [](const SheetNote& note) { return note.places.size(); });
    ASSERT_NE(gap, sheet.notes.end());
    sheet.notes = {*gap};
    const SheetContent content = sheetContent(sheet);
    int marked = 0;
    for (const SheetTable::Row& row : content.yearly.rows)
        for (const SheetValue& cell : row.cells)
            marked += cell.marks == "1" && cell.text.isEmpty() ? 1 : 0;
    EXPECT_EQ(marked, 3);
    int printed = 0;
    const auto pages = companySheet(sheet, Paper::a4, day());
    for (const SheetText& text : pages.first().texts)
        printed += text.text == "1" ? 1 : 0;
    EXPECT_EQ(printed, 3);
}

// The painter draws what was laid out: no ink in the margins, some of it on the page.
TEST(SheetLayout, IsPaintedWhereItWasLaidOut) {
    for (const SheetPage& page : companySheet({sample("NVDA"), {}}, Paper::letter, day())) {
        QImage image((page.size / point).toSize(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(1 / point, 1 / point);
        paintPage(painter, page);
        painter.end();
        QRect ink;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (qGray(image.pixel(x, y)) < 0x80)
                    ink |= QRect(x, y, 1, 1);
        EXPECT_GE(ink.left(), 35);
        EXPECT_LE(ink.right(), image.width() - 35);
        EXPECT_GE(ink.top(), 35);
        EXPECT_LE(ink.bottom(), image.height() - 35);
        EXPECT_GT(ink.width(), 500);
    }
}

TEST(SheetLayout, WhatWasCalledRightIsNotOnPaper) {
    const auto company = sample("SNOW");
    const auto all = findingNotes(*company);
    ASSERT_GT(all.size(), 1U);
    std::string right;
    const SheetCompany sheet = sheetOf(company, {}, [&](const Finding& finding) {
        if (right.empty())
            right = finding.key;
        return finding.key == right;
    });
    EXPECT_EQ(sheet.notes.size(), all.size() - 1);
    for (const SheetNote& note : sheet.notes)
        EXPECT_NE(note.text, all.front().text);
}

TEST(SheetLayout, ADayThatIsStillToComeIsSaid) {
    const auto company = sample("AAPL");
    company->put_DateOfSource(*makeDate(2030, 1, 1));
    const std::size_t timeless = sheetOf(company).notes.size();
    EXPECT_EQ(sheetOf(company, {}, {}, *makeDate(2030, 1, 2)).notes.size(), timeless);
    EXPECT_EQ(sheetOf(company, {}, {}, *makeDate(2029, 12, 31)).notes.size(), timeless + 1);
}

TEST(SheetLayout, DamageIsSaidBeforeAllElse) {
    LoadedCompany loaded;
    loaded.record = sample("AAPL");
    loaded.record->put_DateOfSource(*makeDate(2030, 1, 1)); // to look at
    const SheetCompany sound = sheetOf(loaded, day());
    ASSERT_FALSE(sound.notes.empty());
    loaded.damage.emplace();
    loaded.damage->message = "Apple is not as it was saved.";
    loaded.unreadable = {"LastFYDate", "QEPSSeries"};
    const SheetCompany damaged = sheetOf(loaded, day());
    ASSERT_EQ(damaged.notes.size(), sound.notes.size() + 2);
    EXPECT_EQ(damaged.notes[0].text, "Apple is not as it was saved.");
    EXPECT_EQ(damaged.notes[1].text, "Can't be read, and is missing here: LastFYDate, QEPSSeries.");
    EXPECT_EQ(damaged.notes[2].text, sound.notes[0].text);
    EXPECT_TRUE(
        allText(companySheet(damaged, Paper::a4, day())).contains("Apple is not as it was saved."));
}

TEST(SheetPrint, WritesAPdfOfTwoPagesACompanyOrNothing) {
    const QTemporaryDir folder;
    const QString file = folder.filePath("two.pdf");
    int given = 0;
    const auto next = [&]() -> std::optional<SheetCompany> {
        return given++ < 2 ? std::optional(SheetCompany{sample("AAPL"), {}}) : std::nullopt;
    };
    EXPECT_EQ(writeSheetPdf(file, "Two", Paper::a4, day(), next).toStdString(), "");
    QFile pdf(file);
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    const QByteArray content = pdf.readAll();
    EXPECT_TRUE(content.startsWith("%PDF-"));
    EXPECT_EQ(content.count("/Type /Page\n"), 4);
    EXPECT_TRUE(content.contains("/MediaBox [0 0 595.000000 842.000000]"))
        << content.left(3000).data();

    given = 0;
    EXPECT_NE(writeSheetPdf(folder.filePath("no/where.pdf"), "Two", Paper::a4, day(), next), "");
    const QString failed = folder.filePath("failed.pdf");
    const auto fails = []() -> std::optional<SheetCompany> { throw std::runtime_error("gone"); };
    EXPECT_EQ(writeSheetPdf(failed, "Two", Paper::a4, day(), fails), "gone");
    EXPECT_FALSE(QFile::exists(failed));
}

TEST(SheetPrint, APdfTakesThePlaceOfAFileAndOfNothingElse) {
    const QTemporaryDir folder;
    const QString pipe = folder.filePath("pipe");
    ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(pipe, folder.filePath("link to the pipe")));
    QFile old(folder.filePath("old.pdf"));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly) && old.write("an old one") > 0);
    old.close();
    struct Row {
        const char* name;
        bool isReplaced;
    };
    for (const auto& [name, isReplaced] : {Row{"old.pdf", true}, Row{"pipe", false},
                                           Row{"link to the pipe", false}, Row{"", false}}) {
        SCOPED_TRACE(name);
        bool isAsked = false;
        const auto next = [&]() -> std::optional<SheetCompany> {
            return std::exchange(isAsked, true) ? std::nullopt
                                                : std::optional(SheetCompany{sample("AAPL"), {}});
        };
        const QString error = writeSheetPdf(folder.filePath(name), "One", Paper::a4, day(), next);
        EXPECT_EQ(error.isEmpty(), isReplaced) << error.toStdString();
        EXPECT_EQ(isAsked, isReplaced) << "before any work is done";
    }
    struct stat info {};
    ASSERT_EQ(::lstat(pipe.toLocal8Bit().constData(), &info), 0);
    EXPECT_TRUE(S_ISFIFO(info.st_mode));
    EXPECT_EQ(QDir(folder.path())
                  .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot),
              (QStringList{"link to the pipe", "old.pdf", "pipe"}));
}

} // namespace
} // namespace vkr
