// SPDX-License-Identifier: MIT
#include "tools/tour_sights.hpp"

#include "control/vkr_data_entry.hpp"
#include "host/assistant.hpp"
#include "tools/tour_steps.hpp"

#include <QAction>
#include <QCoreApplication>

namespace vkr {

namespace {

// The sample company as it is.
void seeTabs(TourSteps& tour) {
    struct Sight {
        Qt::Key letter;
        TABObject page;
        const char* file;
    };
    static constexpr Sight sights[] = {
        {Qt::Key_C, toCompany, "company.png"},     {Qt::Key_Y, toYearly, "yearly.png"},
        {Qt::Key_Q, toQuarterly, "quarterly.png"}, {Qt::Key_O, toOther, "other.png"},
        {Qt::Key_P, toOptions, "options.png"},
    };
    for (const auto& sight : sights) {
        tour.tab(sight.letter, sight.page);
        tour.picture(tour.window(), sight.file);
    }
    tour.tab(Qt::Key_Q, toQuarterly);
    for (int page = 0; page < 4; ++page)
        tour.press(Qt::Key_PageDown);
    tour.expect(tour.control("txtEPS(34)").visibleRegion().boundingRect().height() ==
                    tour.control("txtEPS(34)").height(),
                QStringLiteral("PageDown leads to the oldest quarter"));
    tour.picture(tour.window(), "quarterly-oldest.png");
    tour.expect(!tour.window().isWindowModified(), QStringLiteral("looking changes nothing"));
}

void seeMenu(TourSteps& tour) {
    tour.chapter(QStringLiteral("The right-click menu"));
    tour.tab(Qt::Key_Y, toYearly);
    QStringList entries;
    tour.whileOpen([&] { tour.driver().click(tour.control("txtSales(9)"), Qt::RightButton); },
                   [&](QWidget& menu) {
                       for (const auto* entry : menu.actions())
                           entries.append(entry->isSeparator() ? QStringLiteral("-")
                                                               : entry->text());
                       tour.picture(tour.window(), menu, "menu.png");
                       tour.press(Qt::Key_Escape);
                   });
    tour.write(QStringLiteral("    menu: ") + entries.join(u' '));
    tour.expect(entries.contains(QStringLiteral("Paste")) &&
                    entries.contains(QStringLiteral("Add New Year")) &&
                    entries.last() == QStringLiteral("What's This?"),
                QStringLiteral("the menu has commands of the text, of the years, and help"));
}

void seeAssistant(TourSteps& tour) {
    tour.chapter(QStringLiteral("The assistant"));
    tour.whileOpen(
        [&] { tour.driver().click(tour.control("txtYNetInc(9)"), Qt::RightButton); },
        [&](QWidget& menu) { tour.chooseEntry(menu, QStringLiteral("Ask the Assistant...")); });
    auto* assistant = tour.window().findChild<Assistant*>();
    tour.expect(assistant != nullptr && assistant->isVisible() && assistant->object() == doYNetInc,
                QStringLiteral("the assistant tells about the net income"));
    if (assistant == nullptr)
        return;
    tour.picture(*assistant, "assistant.png");
    assistant->close();
    tour.driver().activate(tour.window());
}

void seeHelp(TourSteps& tour) {
    tour.chapter(QStringLiteral("What's This?"));
    tour.tab(Qt::Key_C, toCompany);
    tour.whileOpen([&] { tour.driver().click(tour.control("txtDilutedShares"), Qt::RightButton); },
                   [&](QWidget& menu) { tour.chooseEntry(menu, QStringLiteral("What's This?")); });
    tour.expect(tour.control("fraDE(0)").isVisible(), QStringLiteral("the help frame is up"));
    tour.picture(tour.window(), "help.png");
    tour.driver().click(tour.control("lblMoreHelp"));
    tour.expect(!tour.control("fraDE(0)").isVisible(), QStringLiteral("the link takes it away"));
    tour.expect(tour.workspace().help().isVisible() &&
                    tour.workspace().help().shownPage() == helpObjectBase + doDilutedShares,
                QStringLiteral("the host shows its page on the diluted shares"));
    tour.picture(tour.workspace().help(), "help-page.png");
    tour.workspace().help().close();
    tour.driver().activate(tour.window());
}

void seeCalendar(TourSteps& tour) {
    tour.chapter(QStringLiteral("The calendar"));
    const Date before = tour.record().get_LastUpdate();
    auto& field = tour.control("txtLastUpdate");
    tour.whileOpen([&] { tour.driver().doubleClick(field, field.rect().center()); },
                   [&](QWidget& calendar) {
                       tour.picture(tour.window(), calendar, "calendar.png");
                       tour.press(Qt::Key_Right);
                       tour.press(Qt::Key_Return);
                   });
    tour.press(Qt::Key_Tab);
    tour.expectNumber("the next day is stored", tour.record().get_LastUpdate().serial,
                      before.serial + 1);
}

void seeLocked(TourSteps& tour) {
    tour.chapter(QStringLiteral("Locked"));
    const std::string name = tour.record().get_Name();
    tour.click("chkLockInfo");
    tour.click("txtName");
    tour.fill("txtName", QStringLiteral("Something else"));
    tour.expect(tour.record().get_Name() == name,
                QStringLiteral("a locked company keeps its name"));
    tour.picture(tour.window(), "locked.png");
    tour.click("chkLockInfo");
}

void seeOptions(TourSteps& tour) {
    struct Sight {
        const char* option;
        TABObject page;
        Qt::Key letter;
        const char* file;
        const char* field;
        const char* text;
    };
    static constexpr Sight sights[] = {
        {"optDisplay(1)", toYearly, Qt::Key_Y, "fraction.png", "txtHigh(9)", "260 1/8"},
        {"optDisplay(0)", toYearly, Qt::Key_Y, nullptr, "txtHigh(9)", "260.100"},
        {"optCurrency(0)", toYearly, Qt::Key_Y, "thousands.png", "txtSales(9)", "416161000.00"},
        {"optCurrency(2)", toQuarterly, Qt::Key_Q, "billions.png", "txtRevenue(1)", "102.47"},
        {"optCurrency(1)", toYearly, Qt::Key_Y, nullptr, "txtSales(9)", "416161.00"},
        {"optPTI(1)", toYearly, Qt::Key_Y, nullptr, "txtYOption(9)", "15.61"},
        {"optCommEq(1)", toYearly, Qt::Key_Y, "alternatives.png", "txtYOption2(9)", "4.99"},
    };
    for (const auto& sight : sights) {
        tour.tab(Qt::Key_P, toOptions);
        tour.click(sight.option);
        tour.tab(sight.letter, sight.page);
        tour.expectText(sight.field, QLatin1String(sight.text));
        if (sight.file != nullptr)
            tour.picture(tour.window(), sight.file);
    }
}

// The same company on a component of the second platform.
void seeSecondPlatform(TourSteps& tour) {
    tour.chapter(QStringLiteral("The second platform"));
    PropertyBag saved;
    saved.write("Platform", std::int32_t{ptZX}, std::int32_t{ptStandard});
    VKRDataEntryWidget second;
    second.restoreProperties(saved);
    second.setCompany(tour.record().clone());
    second.resize(second.sizeHint());
    second.show();
    QCoreApplication::processEvents();
    const auto* debt = second.findChild<QWidget*>(QStringLiteral("txtTotalDebt"));
    tour.expect(debt != nullptr && !debt->isVisible(), QStringLiteral("it asks for no debt"));
    tour.picture(second, "zx.png");
    tour.driver().activate(tour.window());
}

} // namespace

void takeSights(TourSteps& tour) {
    seeTabs(tour);
    seeMenu(tour);
    seeAssistant(tour);
    seeHelp(tour);
    seeCalendar(tour);
    seeLocked(tour);
    seeOptions(tour);
    seeSecondPlatform(tour);
}

} // namespace vkr
