// SPDX-License-Identifier: MIT
#include "input/date_pattern.hpp"

#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

namespace vkr {
namespace {

Date on(int year, int month, int day, ClockTime time = {}) {
    return atTime(makeDate(year, month, day).value(), time).value();
}

struct Row {
    const char* pattern;
    const char* text;
};

template <std::size_t Count>
void expectRows(Date date, const Row (&rows)[Count]) {
    for (const Row& row : rows)
        EXPECT_EQ(formatDate(date, row.pattern), row.text) << row.pattern;
}

TEST(DatePattern, WritesDays) {
    expectRows(on(2005, 3, 5), {
                                   {"d", "5"},
                                   {"dd", "05"},
                                   {"ddd", "Sat"},
                                   {"dddd", "Saturday"},
                                   {"ddddd", "3/5/2005"},
                                   {"dddddd", "Saturday, March 5, 2005"},
                                   {"m", "3"},
                                   {"mm", "03"},
                                   {"mmm", "Mar"},
                                   {"mmmm", "March"},
                                   {"y", "64"},
                                   {"yy", "05"},
                                   {"yyyy", "2005"},
                                   {"q", "1"},
                                   {"w", "7"},
                                   {"ww", "10"},
                                   {"MMM/DD/YYYY", "Mar/05/2005"},
                                   {"MMM YYYY", "Mar 2005"},
                                   {"dd.mm.yyyy", "05.03.2005"},
                                   {"yyyy-mm-dd", "2005-03-05"},
                                   {"yyyymmdd", "20050305"},
                                   {"d mmmm yyyy", "5 March 2005"},
                                   {"\"Q\"q yyyy", "Q1 2005"},
                                   {"\\d d", "d 5"},
                                   {"dddd \"the\" d", "Saturday the 5"},
                                   {"q\\", "1\\"},
                                   {"d \"open", "5 open"},
                                   {"d. mmmm", "5. March"},
                                   {"mmmmm", "March3"},
                               });
}

TEST(DatePattern, RefusesAPatternOfTooManyCharactersAndTakesTheFallBack) {
    const Date day = *makeDate(2005, 3, 5);
    const std::string longest = "d" + std::string(maxDatePatternLength - 1, '.');
    EXPECT_EQ(formatDate(day, longest), "5" + longest.substr(1));
    EXPECT_EQ(formatDate(day, longest + '.'), "Mar/05/2005");
    EXPECT_EQ(dateOrder("yyyy-dd-mm" + std::string(5000, ' ')), DateOrder::MonthDayYear);
}

TEST(DatePattern, WritesEveryName) {
    const char* months[] = {"January", "February", "March",     "April",   "May",      "June",
                            "July",    "August",   "September", "October", "November", "December"};
    for (int month = 1; month <= 12; ++month) {
        EXPECT_EQ(formatDate(on(2005, month, 1), "mmmm"), months[month - 1]);
        EXPECT_EQ(formatDate(on(2005, month, 1), "mmm"),
                  std::string(months[month - 1]).substr(0, 3));
    }
    const char* days[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                          "Thursday", "Friday", "Saturday"};
    for (int day = 0; day < 7; ++day)
        EXPECT_EQ(formatDate(on(2006, 1, 1 + day), "dddd"), days[day]);
    EXPECT_EQ(monthName(0), "");
    EXPECT_EQ(monthName(13), "");
    EXPECT_EQ(weekdayName(0), "");
    EXPECT_EQ(weekdayName(8), "");
}

TEST(DatePattern, WritesTimes) {
    expectRows(on(2005, 12, 31, {14, 5, 9}), {
                                                 {"h", "14"},
                                                 {"hh", "14"},
                                                 {"n", "5"},
                                                 {"nn", "05"},
                                                 {"s", "9"},
                                                 {"ss", "09"},
                                                 {"h:n:s", "14:5:9"},
                                                 {"hh:nn:ss", "14:05:09"},
                                                 {"hh:mm:ss", "14:05:09"},
                                                 {"h:m", "14:5"},
                                                 {"mm:ss", "05:09"},
                                                 {"h:mm AM/PM", "2:05 PM"},
                                                 {"h:mm am/pm", "2:05 pm"},
                                                 {"h:mm A/P", "2:05 P"},
                                                 {"h:mm a/p", "2:05 p"},
                                                 {"h:mm AMPM", "2:05 PM"},
                                                 {"h:mm Am/Pm", "2:05 PM"},
                                                 {"AM/PM hh", "PM 02"},
                                                 {"ttttt", "2:05:09 PM"},
                                                 {"c", "12/31/2005 2:05:09 PM"},
                                                 {"hh:mm mm/dd", "14:05 12/31"},
                                                 {"hhmm", "1405"},
                                                 {"tt", "tt"},
                                                 {"ampm", "PM"},
                                                 {"Ampm", "PM"},
                                                 {"A/p", "P"},
                                                 {"a/P", "P"},
                                                 {"aM/Pm", "PM"},
                                                 {"h \"o'clock at last\"", "14 o'clock at last"},
                                                 {"h m", "14 5"},
                                                 {"m s", "5 9"},
                                                 {"mmm h:mmm", "Dec 14:Dec"},
                                             });
    expectRows(on(2005, 12, 31, {0, 30, 0}), {{"h AM/PM", "12 AM"}, {"h", "0"}, {"a/p", "a"}});
    expectRows(on(2005, 12, 31, {12, 0, 0}), {{"h AM/PM", "12 PM"}, {"h", "12"}});
    expectRows(on(2005, 12, 31, {11, 59, 59}), {{"h AM/PM", "11 AM"}});
}

TEST(DatePattern, KnowsTheNamedFormats) {
    expectRows(on(2005, 12, 31, {17, 45, 12}), {
                                                   {"General Date", "12/31/2005 5:45:12 PM"},
                                                   {"Long Date", "Saturday, December 31, 2005"},
                                                   {"Medium Date", "31-Dec-05"},
                                                   {"Short Date", "12/31/2005"},
                                                   {"short date", "12/31/2005"},
                                                   {"Long Time", "5:45:12 PM"},
                                                   {"Medium Time", "05:45 PM"},
                                                   {"Short Time", "17:45"},
                                                   {"", "12/31/2005 5:45:12 PM"},
                                               });
    EXPECT_EQ(formatDate(on(2005, 1, 5), "Short Date"), "1/5/2005");
    EXPECT_EQ(formatDate(on(2005, 1, 5), "General Date"), "1/5/2005");
    EXPECT_EQ(formatDate(Date{0.5}, "General Date"), "12:00:00 PM");
}

TEST(DatePattern, CountsWeeksFromTheOneOfNewYear) {
    EXPECT_EQ(formatDate(on(2005, 1, 1), "ww"), "1"); // a Saturday
    EXPECT_EQ(formatDate(on(2005, 1, 2), "ww"), "2");
    EXPECT_EQ(formatDate(on(2005, 12, 31), "ww"), "53");
    EXPECT_EQ(formatDate(on(2006, 1, 7), "ww"), "1"); // the year starts on a Sunday
    EXPECT_EQ(formatDate(on(2006, 1, 8), "ww"), "2");
    EXPECT_EQ(formatDate(on(2000, 12, 31), "ww"), "54");
}

TEST(DatePattern, AnAbsentDateIsEmpty) {
    for (const char* pattern : {"MMM/DD/YYYY", "Short Date", "", "\"text\""}) {
        EXPECT_EQ(formatDate(Date{}, pattern), "");
        EXPECT_EQ(formatDate(Date{std::numeric_limits<double>::quiet_NaN()}, pattern), "");
        EXPECT_EQ(formatDate(Date{std::numeric_limits<double>::infinity()}, pattern), "");
    }
}

TEST(DatePattern, WritesYearsWithFourDigits) {
    EXPECT_EQ(formatDate(on(476, 9, 4), "yyyy"), "0476");
    EXPECT_EQ(formatDate(on(9999, 12, 31), "yyyy-mm-dd"), "9999-12-31");
    EXPECT_EQ(formatDate(Date{1e300}, "yyyy-mm-dd"), "9999-12-31");
}

TEST(DatePattern, TellsTheOrderOfDayMonthAndYear) {
    EXPECT_EQ(dateOrder("MMM/DD/YYYY"), DateOrder::MonthDayYear);
    EXPECT_EQ(dateOrder("DD/MM/YYYY"), DateOrder::DayMonthYear);
    EXPECT_EQ(dateOrder("d. mmmm yyyy"), DateOrder::DayMonthYear);
    EXPECT_EQ(dateOrder("yyyy-mm-dd"), DateOrder::YearMonthDay);
    EXPECT_EQ(dateOrder("yyyy/dd/mm"), DateOrder::YearDayMonth);
    EXPECT_EQ(dateOrder("Short Date"), DateOrder::MonthDayYear);
    EXPECT_EQ(dateOrder("Medium Date"), DateOrder::DayMonthYear);
    EXPECT_EQ(dateOrder("hh:mm dd.mm.yyyy"), DateOrder::DayMonthYear);
    EXPECT_EQ(dateOrder("dddd, mmmm d, yyyy"), DateOrder::MonthDayYear);
    EXPECT_EQ(dateOrder(""), DateOrder::MonthDayYear);
    EXPECT_EQ(dateOrder("yyyy mmm"), DateOrder::YearMonthDay);
    EXPECT_EQ(dateOrder("yyyy"), DateOrder::MonthDayYear);
    EXPECT_EQ(dateOrder("dd/yyyy/mm"), DateOrder::DayMonthYear);
    EXPECT_EQ(dateOrder("dd/mm"), DateOrder::DayMonthYear);
    EXPECT_EQ(dateOrder("mm/dd"), DateOrder::MonthDayYear);
    EXPECT_EQ(dateOrder("mm/yyyy/dd"), DateOrder::MonthDayYear);
    EXPECT_EQ(dateOrder("dd yyyy"), DateOrder::MonthDayYear);
    EXPECT_EQ(dateOrder("yyyy dd"), DateOrder::MonthDayYear);
    EXPECT_EQ(dateOrder("mm/yyyy"), DateOrder::MonthDayYear);
    EXPECT_EQ(dateOrder("mm/yy"), DateOrder::MonthShortYear);
    EXPECT_EQ(dateOrder("yy mmmm"), DateOrder::ShortYearMonth);
    EXPECT_EQ(dateOrder("yy/mm/dd"), DateOrder::YearMonthDay);
    EXPECT_EQ(dateOrder("d m yyyy, dd.mm.yyyy"), DateOrder::DayMonthYear);
    EXPECT_EQ(dateOrder("\"d\" mm/dd"), DateOrder::MonthDayYear);
}

TEST(DatePattern, AnyBytesMakeAPattern) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const std::string likely = "dmyhnsqwctaApPM/:\"\\ .";
    for (int i = 0; i < 20'000; ++i) {
        std::string pattern;
        for (auto length = random() % 24; length > 0; --length)
            pattern += random() % 5 == 0 ? static_cast<char>(random() % 256)
                                         : likely[random() % likely.size()];
        const std::string text = formatDate(on(2005, 12, 31, {14, 5, 9}), pattern);
        ASSERT_LT(text.size(), 700U) << pattern;
        ASSERT_EQ(formatDate(Date{}, pattern), "") << pattern;
        ASSERT_GE(static_cast<int>(dateOrder(pattern)), 0) << pattern;
    }
}

} // namespace
} // namespace vkr
