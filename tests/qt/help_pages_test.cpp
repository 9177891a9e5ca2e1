// SPDX-License-Identifier: MIT
#include "binding/enumerations.hpp"
#include "host/help_pages.hpp"
#include "host/help_viewer.hpp"

#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <set>

namespace vkr {
namespace {

TEST(HelpPagesTest, EveryNumberThatTheComponentAsksForHasAPageOfItsOwn) {
    for (int object = 0; object < dataEntryObjectCount; ++object)
        EXPECT_NE(helpPage(helpObjectBase + object), nullptr) << object;
    for (int tab = toCompany; tab <= toOptions; ++tab)
        EXPECT_NE(helpPage(helpTabBase + tab), nullptr) << tab;
    EXPECT_EQ(helpPage(0), nullptr);
    EXPECT_EQ(helpPage(helpObjectBase + dataEntryObjectCount), nullptr);
}

TEST(HelpPagesTest, NoPageIsWithoutATextAndNoTitleIsThereTwice) {
    std::set<std::string_view> titles;
    std::set<int> numbers;
    for (const HelpPage& page : helpPages()) {
        EXPECT_TRUE(titles.insert(page.title).second) << page.title;
        EXPECT_TRUE(numbers.insert(page.number).second) << page.title;
        EXPECT_FALSE(page.what.empty()) << page.title;
        EXPECT_TRUE(page.what.ends_with('.')) << page.title;
    }
}

TEST(HelpPagesTest, TheContentsLeadToEveryPage) {
    const QString contents = helpContents();
    for (const HelpPage& page : helpPages())
        EXPECT_TRUE(contents.contains(QStringLiteral("\"page:%1\"").arg(page.number)))
            << page.title;
}

TEST(HelpPagesTest, TheViewerTurnsToThePageAndToTheContentsWhereThereIsNone) {
    const QTemporaryDir settings;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    HelpViewer viewer;
    viewer.showPage(helpObjectBase + doCurrentPrice);
    EXPECT_EQ(viewer.shownPage(), helpObjectBase + doCurrentPrice);
    const auto* text = viewer.findChild<QTextBrowser*>();
    EXPECT_TRUE(text->toPlainText().startsWith("Current Price"));
    viewer.showPage(12345);
    EXPECT_EQ(viewer.shownPage(), 0);
    EXPECT_TRUE(text->toPlainText().startsWith("Contents"));
}

} // namespace
} // namespace vkr
