// SPDX-License-Identifier: MIT
#include "input/date_reader.hpp"

#include "input/date_pattern.hpp"
#include "platform/ascii.hpp"

#include <algorithm>
#include <array>

namespace vkr {

namespace {

// Longer than any date a person writes.
constexpr std::size_t longestText = 80;

struct Part {
    enum Kind { End, Number, Word } kind = End;
    std::string_view text;
    int value = 0; // of a number; at most 4 digits are read
    char mark = 0; // the one mark before it, 0 for none
};

struct Parts {
    std::array<Part, 16> items; // the last one stays End
    std::size_t count = 0;
};

// Numbers and words with at most one mark between two of them; nothing for any other text.
std::optional<Parts> split(std::string_view text) {
    Parts parts;
    Part part;
    while (true) {
        if (text.empty())
            break;
        const char c = text.front();
        const auto blank = c == ' ' || c == '\t'        ? std::size_t{1}
                           : text.starts_with("\u00A0") ? std::size_t{2}
                           : text.starts_with("\u202F") ? std::size_t{3}
                                                        : std::size_t{0};
        if (blank > 0) {
            text.remove_prefix(blank);
            continue;
        }
        if (std::string_view("/-.,:").find(c) != std::string_view::npos) {
            if (part.mark != 0 || parts.count == 0)
                return std::nullopt;
            part.mark = c;
            text.remove_prefix(1);
            continue;
        }
        const bool number = isAsciiDigit(c);
        if (!number && !isAsciiLetter(c))
            return std::nullopt;
        const auto end =
            std::find_if_not(text.begin(), text.end(), number ? isAsciiDigit : isAsciiLetter);
        part.kind = number ? Part::Number : Part::Word;
        part.text = text.substr(0, static_cast<std::size_t>(end - text.begin()));
        if (number) {
            if (part.text.size() > 4)
                return std::nullopt;
            for (const char digit : part.text)
                part.value = part.value * 10 + (digit - '0');
        }
        if (parts.count + 1 == parts.items.size())
            return std::nullopt;
        parts.items[parts.count++] = part;
        text.remove_prefix(part.text.size());
        part = {};
    }
    if (part.mark != 0)
        return std::nullopt;
    return parts;
}

bool isNameStart(std::string_view word, std::string_view name) {
    return word.size() >= 3 && startsWithAscii(name, word);
}

int monthOf(std::string_view word) {
    if (equalsAscii(word, "Sept"))
        return 9;
    for (int month = 1; month <= 12; ++month)
        if (isNameStart(word, monthName(month)))
            return month;
    return 0;
}

int weekdayOf(std::string_view word) {
    for (int day = 1; day <= 7; ++day)
        if (isNameStart(word, weekdayName(day)))
            return day;
    return 0;
}

// 1st, 2nd, 3rd, 11th: an ending that does not fit is the sign of a slip in the number.
bool isOrdinal(const Part& number, const Part& ending) {
    static constexpr std::string_view endings[] = {"th", "st", "nd", "rd"};
    const int last = number.value / 10 == 1 ? 0 : number.value % 10;
    return ending.mark == 0 && equalsAscii(ending.text, endings[last < 4 ? last : 0]);
}

enum class Half { None, Morning, Afternoon };

Half halfOf(const Part& part) {
    if (part.mark != 0)
        return Half::None;
    if (equalsAscii(part.text, "AM") || equalsAscii(part.text, "A"))
        return Half::Morning;
    if (equalsAscii(part.text, "PM") || equalsAscii(part.text, "P"))
        return Half::Afternoon;
    return Half::None;
}

class Reader {
  public:
    Reader(const Parts& parts, int currentYear, DateOrder order)
        : parts_(parts), currentYear_(currentYear), order_(order) {}

    // What is none of these stays where it is, and so the end is not reached.
    std::optional<Date> read() {
        readWeekday();
        readTime();
        readDay();
        readWeekday();
        readTime();
        if (here().kind != Part::End || !day_)
            return std::nullopt;
        if (weekday_ != 0 && weekday_ != weekday(*day_))
            return std::nullopt;
        return time_ ? atTime(*day_, *time_) : day_;
    }

  private:
    const Part& here(std::size_t ahead = 0) const {
        return parts_.items[place_ + ahead]; // a day with all that belongs to it has ten parts
    }
    bool isNumber(std::size_t ahead, std::size_t digits) const {
        return here(ahead).kind == Part::Number && here(ahead).text.size() == digits;
    }
    bool isDayNumber(std::size_t ahead) const {
        return here(ahead).kind == Part::Number && here(ahead).text.size() <= 2;
    }
    bool isDay(std::size_t ahead) const { return isDayNumber(ahead) && !startsTime(ahead); }
    bool isFullYear(std::size_t ahead) const { return isNumber(ahead, 4); }
    bool isYear(std::size_t ahead) const {
        return (isNumber(ahead, 2) || isFullYear(ahead)) && !startsTime(ahead);
    }
    // The second part is a year of two digits, and nothing of a date follows.
    bool endsInShortYear() const {
        return isNumber(1, 2) && !isYear(2) && !isOrdinal(here(1), here(2));
    }
    // The year, then the month.
    bool yearLeads() const {
        return order_ == DateOrder::YearMonthDay || order_ == DateOrder::ShortYearMonth;
    }
    int year(std::size_t ahead) const {
        const int value = here(ahead).value;
        if (isFullYear(ahead))
            return value;
        return value + (value < 30 ? 2000 : 1900);
    }

    void readWeekday() {
        if (weekday_ != 0 || here().mark == ':')
            return;
        weekday_ = weekdayOf(here().text);
        if (weekday_ != 0)
            ++place_;
    }

    // A number that ":" or a half-day mark follows.
    bool startsTime(std::size_t ahead = 0) const {
        const std::size_t next = isTimeMark(here(ahead)) ? ahead + 1 : ahead;
        return isDayNumber(next) &&
               (here(next + 1).mark == ':' || halfOf(here(next + 1)) != Half::None);
    }
    static bool isTimeMark(const Part& part) { return part.text == "T" && part.mark == 0; }

    void readTime() {
        if (time_ || !startsTime() || (here().mark != 0 && here().mark != ','))
            return;
        time_.emplace();
        if (here().kind == Part::Word)
            ++place_;
        time_->hour = here().value;
        ++place_;
        for (int* part : {&time_->minute, &time_->second}) {
            if (here().mark != ':' || !isNumber(0, 2))
                break;
            *part = here().value;
            ++place_;
        }
        const Half half = halfOf(here());
        if (half != Half::None && time_->hour >= 1 && time_->hour <= 12) {
            time_->hour = time_->hour % 12 + (half == Half::Afternoon ? 12 : 0);
            ++place_;
        }
    }

    void take(std::size_t count, std::optional<Date> date) {
        // A mark of the time does not belong between the parts of a day.
        for (std::size_t i = 1; i < count; ++i)
            if (here(i).mark == ':')
                return;
        day_ = date;
        place_ += count;
    }

    void readDay() {
        const Part& first = here();
        if (first.mark != 0 && first.mark != ',' && first.mark != '.')
            return;
        if (first.kind == Part::Word)
            return readMonthFirst();
        const std::size_t ordinal = isDayNumber(0) && isOrdinal(first, here(1)) ? 1 : 0;
        if (here(1 + ordinal).kind == Part::Word)
            return readMonthSecond(ordinal);
        if (ordinal == 0)
            readNumbers();
    }

    // Dec 31 2005, Dec 31, Dec 2005
    void readMonthFirst() {
        const int month = monthOf(here().text);
        if (isFullYear(1) || (order_ == DateOrder::MonthShortYear && endsInShortYear()))
            return take(2, makeDate(year(1), month, 1));
        if (!isDay(1))
            return;
        const int day = here(1).value;
        const std::size_t ordinal = isOrdinal(here(1), here(2)) ? 1 : 0;
        if (isYear(2 + ordinal))
            return take(3 + ordinal, makeDate(year(2 + ordinal), month, day));
        return take(2 + ordinal, makeDate(currentYear_, month, day));
    }

    // 31 Dec 2005, 31 Dec, 2005 Dec 31, 2005 Dec
    void readMonthSecond(std::size_t ordinal) {
        const int month = monthOf(here(1 + ordinal).text);
        if (isFullYear(0)) {
            if (isDay(2))
                return take(3, makeDate(year(0), month, here(2).value));
            return take(2, makeDate(year(0), month, 1));
        }
        if (!isDayNumber(0))
            return;
        if (yearLeads() && ordinal == 0 && isNumber(0, 2)) {
            if (isDay(2)) // as "YY-MMM-DD" writes it
                return take(3, makeDate(year(0), month, here(2).value));
            if (order_ == DateOrder::ShortYearMonth && !isYear(2))
                return take(2, makeDate(year(0), month, 1));
        }
        const int day = here().value;
        if (isYear(2 + ordinal))
            return take(3 + ordinal, makeDate(year(2 + ordinal), month, day));
        return take(2 + ordinal, makeDate(currentYear_, month, day));
    }

    void readNumbers() {
        const char mark = here(1).mark;
        if (mark == ',')
            return;
        if (here(2).kind != Part::Number || startsTime(2))
            readTwoNumbers(mark);
        else if (here(2).mark == mark)
            take(3, dateOfThree());
    }

    std::optional<Date> dateOfThree() const {
        const bool twoDigitYearFirst =
            isNumber(0, 2) && isDayNumber(2) && (yearLeads() || order_ == DateOrder::YearDayMonth);
        if ((isFullYear(0) || twoDigitYearFirst) && isDayNumber(1) && isDayNumber(2)) {
            if (order_ == DateOrder::YearDayMonth)
                if (const auto date = makeDate(year(0), here(2).value, here(1).value))
                    return date;
            return makeDate(year(0), here(1).value, here(2).value);
        }
        if (!isDayNumber(0) || !isDayNumber(1) || !isYear(2))
            return std::nullopt;
        int month = here(0).value;
        int day = here(1).value;
        if (order_ == DateOrder::DayMonthYear)
            std::swap(month, day);
        const auto date = makeDate(year(2), month, day);
        return date ? date : makeDate(year(2), day, month);
    }

    // A month and a year, or a month and a day of this year.
    void readTwoNumbers(char mark) {
        if (order_ == DateOrder::MonthShortYear && isDayNumber(0) && endsInShortYear())
            return take(2, makeDate(year(1), here(0).value, 1));
        if (order_ == DateOrder::ShortYearMonth && isNumber(0, 2) && isDayNumber(1))
            return take(2, makeDate(year(0), here(1).value, 1));
        const bool slash = mark == '/';
        if (!slash && mark != '-')
            return;
        if (isDayNumber(0) && isFullYear(1))
            return take(2, makeDate(year(1), here(0).value, 1));
        if (isFullYear(0) && isDayNumber(1))
            return take(2, makeDate(year(0), here(1).value, 1));
        if (!slash || !isDayNumber(0) || !isDayNumber(1))
            return;
        int month = here(0).value;
        int day = here(1).value;
        if (order_ == DateOrder::DayMonthYear || order_ == DateOrder::YearDayMonth)
            std::swap(month, day);
        const auto date = makeDate(currentYear_, month, day);
        take(2, date ? date : makeDate(currentYear_, day, month));
    }

    const Parts& parts_;
    int currentYear_;
    DateOrder order_;
    std::size_t place_ = 0;
    int weekday_ = 0;
    std::optional<Date> day_;
    std::optional<ClockTime> time_;
};

} // namespace

std::optional<Date> readDate(std::string_view text, Date today, std::string_view pattern) {
    if (text.size() > longestText)
        return std::nullopt;
    const auto parts = split(text);
    if (!parts)
        return std::nullopt;
    const DateOrder order = pattern.empty() ? DateOrder::MonthDayYear : dateOrder(pattern);
    const auto date = Reader(*parts, civil(today).year, order).read();
    // 30 December 1899 is how an absent date is kept.
    return date && !isAbsent(*date) ? date : std::nullopt;
}

} // namespace vkr
