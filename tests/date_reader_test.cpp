// SPDX-License-Identifier: MIT
#include "input/date_pattern.hpp"
#include "input/date_reader.hpp"

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace vkr {
namespace {

const Date today = *makeDate(2024, 6, 15);

std::string readBack(std::string_view text, std::string_view pattern = {}) {
    const auto date = readDate(text, today, pattern);
    return date ? formatDate(*date,
                             clock(*date) == ClockTime{} ? "yyyy-mm-dd" : "yyyy-mm-dd hh:nn:ss")
                : "none";
}

struct Row {
    const char* text;
    const char* date;
};

template <std::size_t Count>
void expectRows(const Row (&rows)[Count]) {
    for (const Row& row : rows)
        EXPECT_EQ(readBack(row.text), row.date) << row.text;
}

TEST(DateReader, ReadsWhatPeopleType) {
    expectRows({
        {"Dec/31/2005", "2005-12-31"},       {"DEC/31/2005", "2005-12-31"},
        {"dec/31/2005", "2005-12-31"},       {"Dec 31,2005", "2005-12-31"},
        {"Dec 31, 2005", "2005-12-31"},      {"Dec. 31, 2005", "2005-12-31"},
        {"Dec-31-2005", "2005-12-31"},       {"Dec 31 05", "2005-12-31"},
        {"Dec 31st, 2005", "2005-12-31"},    {"31 Dec 2005", "2005-12-31"},
        {"31-Dec-05", "2005-12-31"},         {"31. December 2005", "2005-12-31"},
        {"31Dec2005", "2005-12-31"},         {"1st Mar 2005", "2005-03-01"},
        {"2005 Dec 31", "2005-12-31"},       {"2005-Dec-31", "2005-12-31"},
        {"December 31, 2005", "2005-12-31"}, {"12/31/05", "2005-12-31"},
        {"12/31/2005", "2005-12-31"},        {"12-31-2005", "2005-12-31"},
        {"12.31.2005", "2005-12-31"},        {"12 31 2005", "2005-12-31"},
        {"1/5/2005", "2005-01-05"},          {"01/05/2005", "2005-01-05"},
        {"2005-12-31", "2005-12-31"},        {"2005/12/31", "2005-12-31"},
        {"2005-1-5", "2005-01-05"},          {"  12/31/2005\t", "2005-12-31"},
        {"12 / 31 / 2005", "2005-12-31"},    {"Dec\u00A031,\u202F2005", "2005-12-31"},
        {"2/29/2004", "2004-02-29"},         {"1/1/0476", "0476-01-01"},
    });
}

TEST(DateReader, TakesTheOtherOrderOnlyWhereNothingElseIsADate) {
    expectRows({
        {"31.12.2005", "2005-12-31"},
        {"31/12/2005", "2005-12-31"},
        {"13/1/2005", "2005-01-13"},
        {"31/12/05", "2005-12-31"},
        {"5/4/2005", "2005-05-04"},
        {"12/12/2005", "2005-12-12"},
        {"05.04.2005", "2005-05-04"},
        {"2005-31-12", "none"},
        {"9/31/2005", "none"},
        {"31/9/2005", "none"},
        {"2/29/2005", "none"},
    });
}

TEST(DateReader, SuppliesTheYearOfTodayOrTheFirstOfTheMonth) {
    expectRows({
        {"Mar 5", "2024-03-05"},
        {"5 Mar", "2024-03-05"},
        {"March 5th", "2024-03-05"},
        {"3/5", "2024-03-05"},
        {"31/12", "2024-12-31"},
        {"Feb 29", "2024-02-29"},
        {"Jan 2006", "2006-01-01"},
        {"Sep 1997", "1997-09-01"},
        {"2006 Jan", "2006-01-01"},
        {"12/2005", "2005-12-01"},
        {"2005-12", "2005-12-01"},
        {"3-5", "none"},
        {"3.5", "none"},
        {"Sep 97", "none"},
    });
    EXPECT_FALSE(readDate("Feb 29", *makeDate(2023, 1, 1)));
}

TEST(DateReader, ReadsMonthNamesFromThreeLettersOn) {
    for (int month = 1; month <= 12; ++month) {
        const std::string name(monthName(month));
        for (std::size_t length = 3; length <= name.size(); ++length)
            EXPECT_EQ(readDate(name.substr(0, length) + " 7, 2005", today),
                      makeDate(2005, month, 7))
                << name.substr(0, length);
        EXPECT_FALSE(readDate(name.substr(0, 2) + " 7, 2005", today));
        EXPECT_FALSE(readDate(name + "x 7, 2005", today));
    }
    EXPECT_EQ(readBack("Sept 30, 2005"), "2005-09-30");
    EXPECT_EQ(readBack("sept. 30, 2005"), "2005-09-30");
}

TEST(DateReader, TakesWhatCanMeanOneDayOnly) {
    expectRows({
        {"12.31.2005", "2005-12-31"},       {"12-31-05", "2005-12-31"},
        {"Sept 30 2005", "2005-09-30"},     {"Sept/30/2005", "2005-09-30"},
        {"30 Sept 05", "2005-09-30"},       {"Sept 2005", "2005-09-01"},
        {"March 6th, 2006", "2006-03-06"},  {"March 6th 2006", "2006-03-06"},
        {"6th March 2006", "2006-03-06"},   {"MARCH 6TH, 2006", "2006-03-06"},
        {"March 1st, 2006", "2006-03-01"},  {"March 2nd, 2006", "2006-03-02"},
        {"March 3rd, 2006", "2006-03-03"},  {"March 11th, 2006", "2006-03-11"},
        {"March 12th, 2006", "2006-03-12"}, {"March 13th, 2006", "2006-03-13"},
        {"March 20th, 2006", "2006-03-20"}, {"March 21st, 2006", "2006-03-21"},
        {"March 22nd, 2006", "2006-03-22"}, {"31st March 2006", "2006-03-31"},
    });
}

TEST(DateReader, EachDayOfAMonthHasOneEnding) {
    const auto endingOf = [](int day) {
        return day == 1 || day == 21 || day == 31 ? "st"
               : day == 2 || day == 22            ? "nd"
               : day == 3 || day == 23            ? "rd"
                                                  : "th";
    };
    for (int day = 1; day <= 31; ++day)
        for (const std::string ending : {"st", "nd", "rd", "th"}) {
            const std::string text = "March " + std::to_string(day) + ending + ", 2006";
            const bool fits = endingOf(day) == ending;
            EXPECT_EQ(readDate(text, today), fits ? makeDate(2006, 3, day) : std::nullopt) << text;
        }
}

TEST(DateReader, RefusesWhatLooksLikeASlipInTheDay) {
    expectRows({
        {"March 3th, 2006", "none"}, // the 3rd, the 13th or the 30th
        {"March 11st, 2006", "none"},
        {"22th March 2006", "none"},
        {"March 6ht, 2006", "none"},
        {"March 6.th 2006", "none"},
        {"Marhc 6, 2006", "none"},
        {"Sep 30, 2005,", "none"},
        {"12.31-2005", "none"},
        {"12,31,2005", "none"},
        {"12.32.2005", "none"},
    });
}

TEST(DateReader, PutsTwoDigitYearsIntoTheirCentury) {
    expectRows({
        {"1/2/00", "2000-01-02"},
        {"1/2/25", "2025-01-02"},
        {"1/2/29", "2029-01-02"},
        {"1/2/30", "1930-01-02"},
        {"1/2/99", "1999-01-02"},
        {"1/2/5", "none"},
        {"1/2/105", "none"},
        {"1/2/02005", "none"},
    });
}

TEST(DateReader, ReadsWeekdaysAndTimes) {
    expectRows({
        {"Saturday, December 31, 2005", "2005-12-31"},
        {"Sat 12/31/2005", "2005-12-31"},
        {"Sat. Dec 31 2005", "2005-12-31"},
        {"12/31/2005 Sat", "2005-12-31"},
        {"Friday, December 31, 2005", "none"},
        {"12/31/2005 10:30", "2005-12-31 10:30:00"},
        {"12/31/2005 10:30:15 PM", "2005-12-31 22:30:15"},
        {"12/31/2005 10:30:15pm", "2005-12-31 22:30:15"},
        {"12/31/2005 3 PM", "2005-12-31 15:00:00"},
        {"12/31/2005 12 AM", "2005-12-31"},
        {"12/31/2005 12:00 PM", "2005-12-31 12:00:00"},
        {"12/31/2005, 23:59:59", "2005-12-31 23:59:59"},
        {"10:30 12/31/2005", "2005-12-31 10:30:00"},
        {"3 PM Dec 31, 2005", "2005-12-31 15:00:00"},
        {"2005-12-31T10:30:00", "2005-12-31 10:30:00"},
        {"Mar 5 10:30", "2024-03-05 10:30:00"},
        {"Mar 5 3 PM", "2024-03-05 15:00:00"},
        {"12/31/2005 13 PM", "none"},
        {"12/31/2005 0:30 AM", "none"},
        {"12/31/2005 24:00", "none"},
        {"12/31/2005 10:60", "none"},
        {"12/31/2005 10:30:60", "none"},
        {"12/31/2005 10:3", "none"},
        {"12/31/2005 10", "none"},
        {"12/31/2005 10:30 11:30", "none"},
        {"10:30 12/31/2005 11:30", "none"},
        {"12:31:2005", "none"},
        {"2005-12-31T10:30:00Z", "none"},
    });
}

struct OrderedRow {
    const char* text;
    const char* pattern;
    const char* day;
};

constexpr OrderedRow days[] = {
    {"Dec 31 2005", "", "2005-12-31"},
    {"Dec 31st 2005", "", "2005-12-31"},
    {"Dec 31", "", "2024-12-31"},
    {"Dec 31st", "", "2024-12-31"},
    {"Dec 2005", "", "2005-12-01"},
    {"Dec 05", "MMM YY", "2005-12-01"},
    {"31 Dec 2005", "", "2005-12-31"},
    {"31st Dec 2005", "", "2005-12-31"},
    {"31 Dec", "", "2024-12-31"},
    {"31st Dec", "", "2024-12-31"},
    {"2005 Dec 31", "", "2005-12-31"},
    {"2005 Dec", "", "2005-12-01"},
    {"05 Dec", "YY MMM", "2005-12-01"},
    {"05 Dec 31", "YY MMM DD", "2005-12-31"},
    {"12/31/2005", "", "2005-12-31"},
    {"31/12/2005", "DD/MM/YYYY", "2005-12-31"},
    {"2005/12/31", "", "2005-12-31"},
    {"05/12/31", "YY/MM/DD", "2005-12-31"},
    {"2005/31/12", "YYYY/DD/MM", "2005-12-31"},
    {"12/31", "", "2024-12-31"},
    {"31/12", "DD/MM", "2024-12-31"},
    {"12/2005", "", "2005-12-01"},
    {"2005/12", "", "2005-12-01"},
    {"12/05", "MM/YY", "2005-12-01"},
    {"05/12", "YY/MM", "2005-12-01"},
};

TEST(DateReader, ADayMayStandBetweenOtherThingsOfADate) {
    for (const auto& row : days) {
        SCOPED_TRACE(std::string(row.text) + " as " + row.pattern);
        const std::string text = row.text;
        const std::string day = row.day;
        const auto read = [&](const std::string& whole) { return readBack(whole, row.pattern); };
        const auto name = weekdayName(weekday(*readDate(text, today, row.pattern)));
        EXPECT_EQ(read(text), day);
        EXPECT_EQ(read(text + " 10:30"), day + " 10:30:00");
        EXPECT_EQ(read(text + ", 3 PM"), day + " 15:00:00");
        EXPECT_EQ(read("10:30:15 " + text), day + " 10:30:15");
        EXPECT_EQ(read(text + " " + std::string(name)), day);
        EXPECT_EQ(read(std::string(name) + ", " + text + " 10:30"), day + " 10:30:00");
    }
}

TEST(DateReader, RefusesWhatGoesOnBehindADay) {
    for (const auto& row : days)
        for (const char* more : {" x", " 123", " 10:30 7", " 10:30 15", " 10:30:15:20", " 10:3",
                                 ":30", " 10:30.PM", " 3-PM", " -10:30", " T", " 10:30 Sat"})
            EXPECT_EQ(readBack(std::string(row.text) + more, row.pattern), "none")
                << row.text << more;
}

TEST(DateReader, RefusesAMarkOfTheTimeWithinADay) {
    for (const char* text : {"Dec:31 2005", "Dec 31:2005", "Dec:2005", "31:Dec 2005", "31 Dec:2005",
                             "2005:12:31", "2005:12-31", "12/31:2005", "2005:Dec:31", "2005/12:31",
                             "Sat:12/31/2005", "10:31/12/2005"})
        EXPECT_EQ(readBack(text), "none") << text;
}

TEST(DateReader, RefusesDaysAndMonthsOfThreeDigits) {
    for (const char* text : {"2005/012/05", "2005/12/005", "012/31/2005", "12/031/2005",
                             "12/31/005", "Dec 031 2005", "Dec 031", "031 Dec 2005", "031 Dec",
                             "2005 Dec 031", "12/031", "012/31", "012/2005", "2005/012", "Dec 005"})
        EXPECT_EQ(readBack(text), "none") << text;
    EXPECT_EQ(readBack("011/05", "MM/YY"), "none");
    EXPECT_EQ(readBack("05/011", "YY/MM"), "none");
}

TEST(DateReader, RefusesWhatIsNoTimeOfDay) {
    for (const char* time : {"24:00", "10:60", "10:00:60", "0 AM", "0:30 PM", "13 AM", "13:00 PM",
                             "10:0", "10:000", "10:00:0", "100:00", "T", "T10", "10T10"}) {
        EXPECT_EQ(readBack(std::string("12/31/2005 ") + time), "none") << time;
        EXPECT_EQ(readBack(time + std::string(" 12/31/2005")), "none") << time;
    }
    expectRows({
        {"12/31/2005 1 AM", "2005-12-31 01:00:00"},
        {"12/31/2005 12:59:59 am", "2005-12-31 00:59:59"},
        {"12/31/2005 12 p", "2005-12-31 12:00:00"},
        {"12/31/2005 11:59:59 P", "2005-12-31 23:59:59"},
        {"12/31/2005 0:00:01", "2005-12-31 00:00:01"},
    });
}

TEST(DateReader, RefusesWhatIsNoDate) {
    const std::string rows[] = {
        "",
        " ",
        "abc",
        "2005",
        "31",
        "10:30",
        "3 PM",
        "2/30/2004",
        "Dec/32/2005",
        "Dec/0/2005",
        "0/1/2005",
        "13/13/2005",
        "12//31/2005",
        "12/31//2005",
        "/12/31/2005",
        ",12/31/2005",
        ".12/31/2005",
        "12/31/2005/",
        "12/31/2005x",
        "12/31/2005 x",
        "12/31/2005 7",
        "12/31-2005",
        "12,31,2005",
        "12/31/2005.",
        "-12/31/2005",
        "12/31/-2005",
        "+12/31/2005",
        "Dec",
        "December",
        "Saturday",
        "Sat Sun 12/31/2005",
        "Dec Dec 2005",
        "Dec 2005 31",
        "Dec/31/0099",
        "1/1/0000",
        "0000-00-00",
        "12/30/1899", // kept as absent
        "12/31/2005\n",
        "12.2005",
        "12 2005",
        "2005.12",
        "12:2005",
        "\xF0\x9F\x93\x85",
        "12/31/2005 \xF0\x9F\x93\x85",
        "\xD9\xA1/\xD9\xA2/2005",
        "20051231",
        std::string("12/31/2005\0", 11),
        std::string(10'000, '1'),
        std::string(10'000, ' ') + "12/31/2005",
        std::string(10'000, '/'),
        "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20",
    };
    for (const std::string& row : rows)
        EXPECT_EQ(readBack(row), "none") << row.substr(0, 40);
}

TEST(DateReader, ReadsNumbersInTheOrderOfTheDisplayPattern) {
    EXPECT_EQ(readBack("05/04/2005", "DD/MM/YYYY"), "2005-04-05");
    EXPECT_EQ(readBack("05/04", "DD/MM/YYYY"), "2024-04-05");
    EXPECT_EQ(readBack("12/31/2005", "DD/MM/YYYY"), "2005-12-31");
    EXPECT_EQ(readBack("Apr 5, 2005", "DD/MM/YYYY"), "2005-04-05");
    EXPECT_EQ(readBack("2005-04-05", "DD/MM/YYYY"), "2005-04-05");
    EXPECT_EQ(readBack("05-04-03", "YY-MM-DD"), "2005-04-03");
    EXPECT_EQ(readBack("05-4-03", "YY-MM-DD"), "2005-04-03");
    EXPECT_EQ(readBack("2005/04/03", "YYYY/DD/MM"), "2005-03-04");
    EXPECT_EQ(readBack("05/04/2005", "MMM/DD/YYYY"), "2005-05-04");
}

TEST(DateReader, ReadsBackWhatAPatternWrites) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const char* patterns[] = {"MMM/DD/YYYY",
                              "MMM DD, YYYY",
                              "mmmm d, yyyy",
                              "d mmm yyyy",
                              "dd. mmmm yyyy",
                              "dd-mmm-yyyy",
                              "ddmmmyyyy",
                              "m/d/yyyy",
                              "mm/dd/yyyy",
                              "mm-dd-yyyy",
                              "dd/mm/yyyy",
                              "dd.mm.yyyy",
                              "d.m.yyyy",
                              "yyyy-mm-dd",
                              "yyyy/mm/dd",
                              "yyyy/dd/mm",
                              "yyyy mmm dd",
                              "dd mm yyyy",
                              "ddd mm/dd/yyyy",
                              "mm/dd/yyyy dddd",
                              "dddd, mmmm d, yyyy",
                              "mm/dd/yyyy hh:nn",
                              "dd.mm.yyyy hh:mm:ss",
                              "yyyy-mm-dd\\Thh:nn:ss",
                              "h:nn AM/PM d mmm yyyy",
                              "mmm d yyyy h AM/PM",
                              "d/m/yyyy h:mm:ss a/p",
                              "General Date",
                              "Long Date",
                              "Short Date",
                              ""};
    const char* shortYears[] = {"mm/dd/yy",  "dd/mm/yy", "yy/mm/dd", "yy-mmm-dd",
                                "mmm d, yy", "d mmm yy", "yy/dd/mm", "Medium Date"};
    const auto expectBack = [&](Date date, const char* pattern) {
        const std::string text = formatDate(date, pattern);
        const auto back = readDate(text, today, pattern);
        ASSERT_TRUE(back) << text << " of " << pattern;
        ASSERT_EQ(civil(*back), civil(date)) << text << " of " << pattern;
    };
    std::uniform_int_distribution<int> anyDay(-657434, 2958465);
    std::uniform_int_distribution<int> recentDay(static_cast<int>(makeDate(1930, 1, 1)->serial),
                                                 static_cast<int>(makeDate(2029, 12, 31)->serial));
    std::uniform_int_distribution<int> second(0, 86399);
    for (int i = 0; i < 3000; ++i) {
        const int time = second(random);
        const auto at = [&](int day) {
            return *atTime(Date{static_cast<double>(day)},
                           {time / 3600, time / 60 % 60, time % 60});
        };
        if (const Date date = at(anyDay(random)); daysBetween(Date{}, date) != 0)
            for (const char* pattern : patterns)
                expectBack(date, pattern);
        for (const char* pattern : shortYears)
            expectBack(at(recentDay(random)), pattern);
        if (HasFatalFailure())
            return;
    }
}

TEST(DateReader, ReadsShortYearsOfAPatternWithoutDays) {
    struct {
        const char* text;
        const char* pattern;
        const char* date;
    } rows[] = {
        {"Nov 05", "MMM YY", "2005-11-01"},
        {"Nov 31", "MMM YY", "1931-11-01"},
        {"Nov/05", "MMM/YY", "2005-11-01"},
        {"Nov 21st", "MMM YY", "2024-11-21"},
        {"Nov 12:30", "MMM YY", "none"},
        {"11/12:30", "MM/YY", "none"},
        {"11 12:30", "MM/YY", "none"},
        {"11/05", "MM/YY", "2005-11-01"},
        {"11-05", "MM-YY", "2005-11-01"},
        {"11.97", "MM.YY", "1997-11-01"},
        {"05-11", "YY-MM", "2005-11-01"},
        {"05 Nov", "YY MMM", "2005-11-01"},
        {"13/05", "MM/YY", "none"},
        {"5/11", "YY/MM", "2024-05-11"}, // of one digit it is no year
        {"05/2005", "YY/MM", "2005-05-01"},
        {"2005/05", "YY/MM", "2005-05-01"},
        {"Nov 2005", "MMM YY", "2005-11-01"},
        {"Nov 5", "MMM YY", "2024-11-05"},
        {"Nov 05th", "MMM YY", "2024-11-05"},
        {"Nov 30 2005", "MMM YY", "2005-11-30"},
        {"Nov 30, 05", "MMM YY", "2005-11-30"},
        {"11/30/05", "MM/YY", "2005-11-30"},
        {"11/30/2005", "YY/MM", "2005-11-30"},
        {"05/11/30", "YY/MM", "2005-11-30"}, // the year first, as without a day
        {"05-Nov-30", "YY-MMM", "2005-11-30"},
        {"30 Nov 2005", "YY MMM", "2005-11-30"},
        {"30 Nov 05", "MMM YY", "2005-11-30"},
        {"Nov 05", "MMM YYYY", "2024-11-05"}, // four digits are what it shows
        {"Nov 05", "MMM/DD/YYYY", "2024-11-05"},
        {"11/05", "MM/DD/YY", "2024-11-05"},
        {"05/04", "YYYY/DD/MM", "2024-04-05"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(readBack(row.text, row.pattern), row.date) << row.text << " as " << row.pattern;
    for (int year = 1930; year < 2030; ++year)
        for (int month = 1; month <= 12; ++month)
            for (const char* pattern :
                 {"MMM YY", "mmmm/yy", "MM/YY", "mm-yy", "mm.yy", "yy/mm", "YY-MM", "yy mmm"}) {
                const auto text = formatDate(*makeDate(year, month, 17), pattern);
                EXPECT_EQ(readDate(text, today, pattern), makeDate(year, month, 1)) << text;
            }
}

TEST(DateReader, NoDateIsLongerThanEightyCharacters) {
    const std::string date = "12/31/2005";
    EXPECT_EQ(readBack(std::string(80 - date.size(), ' ') + date), "2005-12-31");
    EXPECT_EQ(readBack(std::string(81 - date.size(), ' ') + date), "none");
}

TEST(DateReader, AnyBytesHaveAnAnswer) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const char* pieces[] = {"12", "31", "2005", "05", "Dec", "Sat", "/",    "-",    ".", ",", ":",
                            " ",  "T",  "PM",   "a",  "st",  "1",   "\xC2", "\xA0", "0", "00"};
    for (int i = 0; i < 100'000; ++i) {
        std::string text;
        for (auto length = random() % 10; length > 0; --length)
            text += random() % 12 == 0 ? std::string(1, static_cast<char>(random() % 256))
                                       : pieces[random() % std::size(pieces)];
        if (const auto date = readDate(text, today)) {
            // Nothing but a whole day and a time of day comes out.
            const CivilDate day = civil(*date);
            ASSERT_EQ(readDate(text, today), date) << text;
            ASSERT_EQ(atTime(*makeDate(day.year, day.month, day.day), clock(*date)), date) << text;
        }
    }
}

} // namespace
} // namespace vkr
