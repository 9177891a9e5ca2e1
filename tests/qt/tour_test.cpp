// SPDX-License-Identifier: MIT
#include "tests/qt/host_fixture.hpp"
#include "tools/tour.hpp"

#include <QFile>
#include <QImage>
#include <QRegularExpression>

namespace vkr {
namespace {

class TourTest : public HostTest {};

TEST_F(TourTest, FindsEverythingAsExpectedAndDrawsEveryTab) {
    EXPECT_EQ(runTour(home_.filePath("tour"), samples()), 0);
    for (const char* name : {"company", "yearly", "yearly-edited", "yearly-added", "quarterly",
                             "quarterly-oldest", "quarterly-edited", "quarterly-added", "other",
                             "options", "list", "list-edited", "assistant", "discard"}) {
        const QImage picture(home_.filePath(QString("tour/%1.png").arg(name)));
        EXPECT_GT(picture.width(), 400) << name;
    }
    QFile transcript(home_.filePath("tour/transcript.txt"));
    ASSERT_TRUE(transcript.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(transcript.readAll());
    for (const char* line : {"type \"90600500\"", "TotalDebt: 90509 \u2192 90600.5",
                             "High52W: 288.62 \u2192 290.125", "Everything was as expected."})
        EXPECT_TRUE(text.contains(line)) << line;
}

TEST_F(TourTest, DoesWhatTheGuideForAnalystsTells) {
    EXPECT_EQ(runDay(home_.filePath("day"), VKR_SOURCE_DIR "/tests/filings/AAPL-facts.json"), 0);
    QFile guide(VKR_SOURCE_DIR "/docs/analyst-guide.md");
    ASSERT_TRUE(guide.open(QIODevice::ReadOnly));
    static const QRegularExpression shown("\\(pictures/([a-z-]+\\.png)\\)");
    auto pictures = shown.globalMatch(QString::fromUtf8(guide.readAll()));
    int count = 0;
    for (; pictures.hasNext(); ++count) {
        const QString name = pictures.next().captured(1);
        EXPECT_GT(QImage(home_.filePath("day/" + name)).width(), 400) << name.toStdString();
    }
    EXPECT_GE(count, 7);
}

TEST_F(TourTest, FailsWithoutTheSampleCompany) {
    QTemporaryDir empty;
    EXPECT_NE(runTour(home_.filePath("tour"), empty.path()), 0);
    QFile transcript(home_.filePath("tour/transcript.txt"));
    ASSERT_TRUE(transcript.open(QIODevice::ReadOnly));
    EXPECT_TRUE(transcript.readAll().contains("NOT: "));
}

} // namespace
} // namespace vkr
