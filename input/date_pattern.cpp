// SPDX-License-Identifier: MIT
#include "input/date_pattern.hpp"

#include "platform/ascii.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

namespace vkr {

namespace {

struct NamedDatePattern {
    std::string_view name;
    std::string_view pattern;
};

constexpr std::string_view shortDate = "m/d/yyyy";
constexpr std::string_view longDate = "dddd, mmmm d, yyyy";
constexpr std::string_view longTime = "h:nn:ss AM/PM";

constexpr NamedDatePattern namedDatePatterns[] = {
    {"General Date", "c"},     {"Long Date", longDate}, {"Medium Date", "dd-mmm-yy"},
    {"Short Date", shortDate}, {"Long Time", longTime}, {"Medium Time", "hh:nn AM/PM"},
    {"Short Time", "hh:nn"},
};

enum class Token {
    Literal,
    Day,
    DayTwo,
    WeekdayShort,
    WeekdayLong,
    ShortDate,
    LongDate,
    Month,
    MonthTwo,
    MonthShort,
    MonthLong,
    Minute,
    MinuteTwo,
    DayOfYear,
    YearTwo,
    YearFour,
    Quarter,
    Weekday,
    Week,
    Hour,
    HourTwo,
    Second,
    SecondTwo,
    LongTime,
    General,
    HalfUpper,
    HalfLower,
    LetterUpper,
    LetterLower,
};

struct Spelling {
    std::string_view text; // lower case
    Token token;
};

// Of two spellings with the same start the longer one comes first.
constexpr Spelling spellings[] = {
    {"dddddd", Token::LongDate},  {"ddddd", Token::ShortDate}, {"dddd", Token::WeekdayLong},
    {"ddd", Token::WeekdayShort}, {"dd", Token::DayTwo},       {"d", Token::Day},
    {"mmmm", Token::MonthLong},   {"mmm", Token::MonthShort},  {"mm", Token::MonthTwo},
    {"m", Token::Month},          {"nn", Token::MinuteTwo},    {"n", Token::Minute},
    {"yyyy", Token::YearFour},    {"yyy", Token::YearFour},    {"yy", Token::YearTwo},
    {"y", Token::DayOfYear},      {"q", Token::Quarter},       {"ww", Token::Week},
    {"w", Token::Weekday},        {"hh", Token::HourTwo},      {"h", Token::Hour},
    {"ss", Token::SecondTwo},     {"s", Token::Second},        {"ttttt", Token::LongTime},
    {"c", Token::General},        {"am/pm", Token::HalfUpper}, {"ampm", Token::HalfUpper},
    {"a/p", Token::LetterUpper},
};

// As they stand here; in any other case the half of the day is in capitals.
constexpr Spelling smallHalves[] = {{"am/pm", Token::HalfLower}, {"a/p", Token::LetterLower}};

struct DatePiece {
    Token token;
    std::string_view text; // of a literal, without its quotes
    std::size_t size;      // bytes of the pattern it takes
};

DatePiece nextDatePiece(std::string_view pattern) {
    if (pattern.front() == '"') {
        const auto end = std::min(pattern.find('"', 1), pattern.size());
        return {Token::Literal, pattern.substr(1, end - 1), std::min(end + 1, pattern.size())};
    }
    if (pattern.front() == '\\' && pattern.size() > 1)
        return {Token::Literal, pattern.substr(1, 1), 2};
    for (const Spelling& spelling : smallHalves)
        if (pattern.starts_with(spelling.text))
            return {spelling.token, {}, spelling.text.size()};
    for (const Spelling& spelling : spellings)
        if (startsWithAscii(pattern, spelling.text))
            return {spelling.token, {}, spelling.text.size()};
    return {Token::Literal, pattern.substr(0, 1), 1};
}

bool isHour(Token token) {
    return token == Token::Hour || token == Token::HourTwo;
}

// The first token that is no literal.
Token nextToken(std::string_view pattern) {
    while (!pattern.empty()) {
        const DatePiece piece = nextDatePiece(pattern);
        if (piece.token != Token::Literal)
            return piece.token;
        pattern.remove_prefix(piece.size);
    }
    return Token::Literal;
}

// Calls visit(piece) for each piece, minutes told from months.
template <typename Visit>
void forEachDatePiece(std::string_view pattern, Visit&& visit) {
    Token before = Token::Literal;
    while (!pattern.empty()) {
        DatePiece piece = nextDatePiece(pattern);
        pattern.remove_prefix(piece.size);
        if (piece.token == Token::Month || piece.token == Token::MonthTwo) {
            const Token after = nextToken(pattern);
            if (isHour(before) || after == Token::Second || after == Token::SecondTwo)
                piece.token = piece.token == Token::Month ? Token::Minute : Token::MinuteTwo;
        }
        if (piece.token != Token::Literal)
            before = piece.token;
        visit(piece);
    }
}

std::string_view resolved(std::string_view pattern) {
    if (pattern.size() > maxDatePatternLength)
        return fallbackDatePattern;
    for (const NamedDatePattern& named : namedDatePatterns)
        if (equalsAscii(pattern, named.name))
            return named.pattern;
    return pattern.empty() ? namedDatePatterns[0].pattern : pattern;
}

struct NamedOrder {
    std::string_view parts;
    DateOrder order;
};

// Any other is that of month, day and year.
constexpr NamedOrder namedOrders[] = {
    {"dm", DateOrder::DayMonthYear},  {"dmy", DateOrder::DayMonthYear},
    {"dym", DateOrder::DayMonthYear}, {"ym", DateOrder::YearMonthDay},
    {"ymd", DateOrder::YearMonthDay}, {"ydm", DateOrder::YearDayMonth},
};

// Computes only what the pattern asks for.
class DateText {
  public:
    DateText(Date date, std::string& text) : date_(date), text_(text) {}

    void append(std::string_view pattern) {
        // Any half-day mark, wherever it stands, turns the hours to twelve.
        bool twelve = false;
        if (pattern.find_first_of("aA") != std::string_view::npos)
            forEachDatePiece(pattern, [&](const DatePiece& piece) {
                twelve |= piece.token >= Token::HalfUpper && piece.token <= Token::LetterLower;
            });
        forEachDatePiece(pattern, [&](const DatePiece& piece) { append(piece, twelve); });
    }

  private:
    const CivilDate& day() {
        if (!day_)
            day_ = civil(date_);
        return *day_;
    }
    const ClockTime& time() {
        if (!time_)
            time_ = clock(date_);
        return *time_;
    }

    void number(int value) { text_ += std::to_string(value); }
    void padded(int value, std::size_t width) {
        const std::string digits = std::to_string(value);
        text_.append(std::max(width, digits.size()) - digits.size(), '0');
        text_ += digits;
    }

    void append(const DatePiece& piece, bool twelve) {
        switch (piece.token) {
        case Token::Literal:
            text_ += piece.text;
            break;
        case Token::Day:
            return number(day().day);
        case Token::DayTwo:
            return padded(day().day, 2);
        case Token::WeekdayShort:
            text_ += weekdayName(weekday(date_)).substr(0, 3);
            break;
        case Token::WeekdayLong:
            text_ += weekdayName(weekday(date_));
            break;
        case Token::ShortDate:
            return append(shortDate);
        case Token::LongDate:
            return append(longDate);
        case Token::Month:
            return number(day().month);
        case Token::MonthTwo:
            return padded(day().month, 2);
        case Token::MonthShort:
            text_ += monthName(day().month).substr(0, 3);
            break;
        case Token::MonthLong:
            text_ += monthName(day().month);
            break;
        case Token::DayOfYear:
            return number(dayOfYear(date_));
        case Token::YearTwo:
            return padded(day().year % 100, 2);
        case Token::YearFour:
            return padded(day().year, 4);
        case Token::Quarter:
            return number(quarter(date_));
        case Token::Weekday:
            return number(weekday(date_));
        case Token::Week:
            return number(weekOfYear());
        case Token::General:
            return appendGeneral();
        default:
            return appendTime(piece.token, twelve);
        }
    }

    void appendTime(Token token, bool twelve) {
        const int hour = twelve ? (time().hour + 11) % 12 + 1 : time().hour;
        const bool morning = time().hour < 12;
        switch (token) {
        case Token::Hour:
            return number(hour);
        case Token::HourTwo:
            return padded(hour, 2);
        case Token::Minute:
            return number(time().minute);
        case Token::MinuteTwo:
            return padded(time().minute, 2);
        case Token::Second:
            return number(time().second);
        case Token::SecondTwo:
            return padded(time().second, 2);
        case Token::LongTime:
            return append(longTime);
        case Token::HalfUpper:
            text_ += morning ? "AM" : "PM";
            break;
        case Token::HalfLower:
            text_ += morning ? "am" : "pm";
            break;
        case Token::LetterUpper:
            text_ += morning ? "A" : "P";
            break;
        case Token::LetterLower:
            text_ += morning ? "a" : "p";
            break;
        default: // of the day
            break;
        }
    }

    // The date, and the time of day where there is one; a time without a day stands alone.
    void appendGeneral() {
        const bool hasDay = day() != CivilDate{};
        const bool hasTime = time() != ClockTime{};
        if (hasDay)
            append(shortDate);
        if (hasDay && hasTime)
            text_ += ' ';
        if (hasTime)
            append(longTime);
    }

    // Weeks start on Sunday, the first one is that of 1 January.
    int weekOfYear() {
        const int fromFirst = dayOfYear(date_) - 1;
        const int firstWeekday = (weekday(date_) - 1 - fromFirst % 7 + 7) % 7;
        return (fromFirst + firstWeekday) / 7 + 1;
    }

    Date date_;
    std::string& text_;
    std::optional<CivilDate> day_;
    std::optional<ClockTime> time_;
};

} // namespace

std::string formatDate(Date date, std::string_view pattern) {
    std::string text;
    if (!isAbsent(date))
        DateText(date, text).append(resolved(pattern));
    return text;
}

DateOrder dateOrder(std::string_view pattern) {
    std::string parts; // the first d, m and y, in the order in which they stand
    bool shortYear = false;
    forEachDatePiece(resolved(pattern), [&](const DatePiece& piece) {
        const auto add = [&](char part) {
            if (parts.find(part) == std::string::npos)
                parts += part;
        };
        switch (piece.token) {
        case Token::Day:
        case Token::DayTwo:
            return add('d');
        case Token::Month:
        case Token::MonthTwo:
        case Token::MonthShort:
        case Token::MonthLong:
            return add('m');
        case Token::YearTwo:
            shortYear = true;
            [[fallthrough]];
        case Token::YearFour:
            return add('y');
        default:
            return;
        }
    });
    if (shortYear && parts == "my")
        return DateOrder::MonthShortYear;
    if (shortYear && parts == "ym")
        return DateOrder::ShortYearMonth;
    for (const NamedOrder& named : namedOrders)
        if (parts == named.parts)
            return named.order;
    return DateOrder::MonthDayYear;
}

std::string_view monthName(int month) {
    static constexpr std::array<std::string_view, 13> names{
        "",     "January", "February",  "March",   "April",    "May",     "June",
        "July", "August",  "September", "October", "November", "December"};
    return names[month >= 1 && month <= 12 ? static_cast<std::size_t>(month) : 0];
}

std::string_view weekdayName(int weekday) {
    static constexpr std::array<std::string_view, 8> names{
        "", "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
    return names[weekday >= 1 && weekday <= 7 ? static_cast<std::size_t>(weekday) : 0];
}

} // namespace vkr
