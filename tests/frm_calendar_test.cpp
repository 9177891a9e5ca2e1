// SPDX-License-Identifier: MIT
#include "input/frmCalendar.hpp"
#include "platform/virtual_desktop.hpp"
#include "tests/support/entry_scene.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

constexpr double second = 1.0 / 86400;

TEST(Calendar, TheSelectedDateIsShown) {
    frmCalendar calendar("Last Update");
    EXPECT_EQ(calendar.caption(), "Last Update");
    EXPECT_EQ(calendar.get_SelectedDate(), Date{});
    EXPECT_FALSE(calendar.visible());
    const Date day = *makeDate(2026, 11, 21);
    calendar.put_SelectedDate(day);
    EXPECT_EQ(calendar.get_SelectedDate(), day);
    EXPECT_EQ(calendar.calendarDate(), day);
}

TEST(Calendar, TheSameDateToTheSecondDoesNothing) {
    frmCalendar calendar("Pick");
    const Date day = *makeDate(2026, 11, 21);
    const Date other = *makeDate(2026, 11, 25);
    calendar.put_SelectedDate(day);
    calendar.setCalendarDate(other);
    calendar.put_SelectedDate(Date{day.serial + 0.3 * second});
    EXPECT_EQ(calendar.calendarDate(), other);
    EXPECT_EQ(calendar.get_SelectedDate(), day);
    calendar.put_SelectedDate(Date{day.serial + second});
    EXPECT_EQ(calendar.calendarDate(), Date{day.serial + second});
    EXPECT_EQ(calendar.get_SelectedDate(), Date{day.serial + second});
}

TEST(Calendar, OkAndADoubleClickTakeTheDay) {
    using Confirm = void (*)(frmCalendar&);
    constexpr Confirm confirms[] = {[](frmCalendar& form) { form.cmdOK_Click(); },
                                    [](frmCalendar& form) { form.Calendar1_DblClick(); },
                                    [](frmCalendar& form) { form.pressOk(); }};
    for (const auto confirm : confirms) {
        frmCalendar calendar("Pick");
        calendar.put_SelectedDate(*makeDate(2026, 1, 1));
        calendar.setCalendarDate(*makeDate(2026, 2, 28));
        confirm(calendar);
        EXPECT_EQ(calendar.Tag(), "True");
        EXPECT_EQ(calendar.get_SelectedDate(), *makeDate(2026, 2, 28));
    }
}

TEST(Calendar, OkHidesTheForm) {
    VirtualDesktop desktop;
    desktop.answerNextDate(makeDate(2026, 2, 28));
    frmCalendar calendar("Pick");
    calendar.put_SelectedDate(*makeDate(2026, 1, 1));
    calendar.Show(desktop);
    EXPECT_FALSE(calendar.visible());
    EXPECT_EQ(calendar.Tag(), "True");
    EXPECT_EQ(calendar.get_SelectedDate(), *makeDate(2026, 2, 28));
    EXPECT_EQ(desktop.calendars()[0].shown, *makeDate(2026, 1, 1));
}

TEST(Calendar, CancelHidesItAtOnce) {
    struct Cancelling : VirtualDesktop {
        void showModal(CalendarForm& form) override {
            EXPECT_TRUE(form.visible());
            form.pressOk();
            EXPECT_TRUE(form.visible()) << "no date to take";
            form.pressCancel();
            EXPECT_FALSE(form.visible());
        }
    } cancelling;
    frmCalendar("Pick").Show(cancelling);
}

TEST(Calendar, ADesktopThatCannotShowItLeavesItHidden) {
    struct Failing : VirtualDesktop {
        void showModal(CalendarForm& form) override {
            EXPECT_TRUE(form.visible());
            throw std::runtime_error("no window");
        }
    } failing;
    frmCalendar calendar("Pick");
    calendar.Show(failing);
    EXPECT_FALSE(calendar.visible());
    EXPECT_EQ(calendar.Tag(), "");
}

TEST(Calendar, OkWithoutAValidDateStaysOpen) {
    const Date start = *makeDate(2026, 1, 1);
    for (const Date none : {Date{}, *makeDate(1899, 12, 31), *makeDate(2999, 12, 31)}) {
        VirtualDesktop desktop;
        desktop.answerNextDate(none);
        desktop.answerNextDate(std::nullopt);
        frmCalendar calendar("Pick");
        calendar.put_SelectedDate(start);
        calendar.Show(desktop);
        EXPECT_TRUE(desktop.scriptUsedUp()) << "still open for Cancel";
        EXPECT_EQ(desktop.calendars().size(), 1U);
        EXPECT_EQ(calendar.Tag(), "");
        EXPECT_EQ(calendar.get_SelectedDate(), start);
    }
}

TEST(Calendar, EveryDayFromTheFirstToTheLastCanBeTaken) {
    const frmCalendar asked("Pick");
    const auto taken = [](Date day) {
        frmCalendar calendar("Pick");
        calendar.setCalendarDate(day);
        calendar.pressOk();
        return calendar.Tag() == "True" && calendar.get_SelectedDate() == day;
    };
    EXPECT_EQ(asked.firstDate(), *makeDate(1900, 1, 2));
    EXPECT_EQ(asked.lastDate(), *makeDate(2999, 11, 30));
    EXPECT_TRUE(taken(asked.firstDate()));
    EXPECT_TRUE(taken(asked.lastDate()));
    EXPECT_FALSE(taken(addDays(asked.firstDate(), -1)));
    EXPECT_FALSE(taken(addDays(asked.lastDate(), 1)));
}

TEST(Calendar, CancelTakesNoDateAndTakesBackAnEarlierOk) {
    const Date start = *makeDate(2026, 1, 1);
    VirtualDesktop desktop;
    desktop.confirmNextDate();
    desktop.answerNextDate(std::nullopt);
    frmCalendar calendar("Pick");
    calendar.put_SelectedDate(start);
    calendar.Show(desktop);
    ASSERT_EQ(calendar.Tag(), "True");
    calendar.setCalendarDate(*makeDate(2026, 2, 28));
    calendar.Show(desktop);
    EXPECT_EQ(calendar.Tag(), "");
    EXPECT_EQ(calendar.get_SelectedDate(), start);
    EXPECT_FALSE(calendar.visible());
}

TEST(Calendar, ItsButtonsSayWhatThoseOfTheFormDo) {
    EntryScene scene;
    scene.load(fullCompany());
    scene.form().get<CommandButton>("cmdOK").setCaption("&Gut");
    scene.form().get<CommandButton>("cmdCancel").setCaption("&Abbruch");
    scene.desktop.answerNextDate(std::nullopt);
    scene.desktop.doubleClick("txtLastUpdate");
    ASSERT_EQ(scene.desktop.calendars().size(), 1U);
    EXPECT_EQ(scene.desktop.calendars()[0].buttons, (std::vector<std::string>{"&Gut", "&Abbruch"}));
}

} // namespace
} // namespace vkr
