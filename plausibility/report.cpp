// SPDX-License-Identifier: MIT
#include "plausibility/report.hpp"

#include "platform/number_text.hpp"
#include "platform/text.hpp"
#include "plausibility/ratios.hpp"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <tuple>

namespace vkr {

namespace {

std::string twoDigits(int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

// FNV-1a over the name and the bits of a figure, the lowest first: the same on every machine.
void digest(std::uint64_t& hash, std::string_view name, double value) {
    constexpr std::uint64_t prime = 1099511628211ULL;
    for (const char letter : name)
        hash = (hash ^ static_cast<unsigned char>(letter)) * prime;
    auto bits = std::bit_cast<std::uint64_t>(value == 0 ? 0.0 : value);
    for (int byte = 0; byte < 8; ++byte, bits >>= 8U)
        hash = (hash ^ (bits & 0xffU)) * prime;
}

std::string hexadecimal(std::uint64_t value) {
    std::string text(16, '0');
    for (auto digit = text.rbegin(); digit != text.rend(); ++digit, value >>= 4U)
        *digit = "0123456789abcdef"[value & 0xfU];
    return text;
}

} // namespace

std::string Report::number(double value) const {
    if (!std::isfinite(value)) // a sum or product beyond all numbers
        return (value < 0 ? "less than " : "more than ") +
               number(std::copysign(std::numeric_limits<double>::max(), value));
    std::string text = plainNumberText(value);
    const auto point = std::min(text.find_first_of(".E"), text.size());
    const std::size_t first = text.front() == '-' ? 1 : 0;
    if (text[point] == '.')
        text[point] = marks_.decimal;
    for (std::size_t place = point; place > first + 3;)
        text.insert(place -= 3, marks_.grouping);
    return text;
}

std::string Report::text(double value, DatumUnit unit) const {
    switch (unit) {
    case DatumUnit::money:
    case DatumUnit::shares:
        return number(value) + " million";
    case DatumUnit::percent:
        return number(value) + " %";
    default:
        return number(value);
    }
}

std::string Report::text(const FigurePlace& place) const {
    return text(figures_.figure(place), unitOf(place.datum));
}

std::string Report::day(Date date) {
    const CivilDate at = civil(date);
    return std::to_string(at.year) + '-' + twoDigits(at.month) + '-' + twoDigits(at.day);
}

std::string Report::period(const FigurePlace& place) const {
    const int element = place.element.value();
    if (rowOf(place.datum).period == DatumPeriod::year) {
        const int last = figures_.lastFiscalYear();
        if (last != 0)
            return "fiscal year " + std::to_string(last + 1 - element);
        return element == 0   ? "the coming fiscal year"
               : element == 1 ? "the last fiscal year"
                              : "fiscal year " + std::to_string(element - 1) + " before the last";
    }
    const Date end = figures_.endOf(element);
    if (!isAbsent(end))
        return "the quarter ended " + day(end);
    return element == 0 ? "the last quarter"
                        : "quarter " + std::to_string(element) + " before the last";
}

std::string Report::times(double ratio) const {
    // Within a hundredth: 998.7 times is about 999 times.
    const auto rounded = [](double value) {
        return roundedTo(std::pow(10.0, std::floor(std::log10(value)) - 2), value);
    };
    const bool larger = ratio >= 1;
    const double factor = larger ? ratio : 1 / ratio;
    constexpr double most = std::numeric_limits<double>::max();
    const std::string text = number(rounded(std::min(factor, most)));
    const std::string about = factor <= most ? "about " : larger ? "more than " : "less than ";
    return about + (larger ? text + " times" : "1/" + text + " of");
}

// The period by the calendar, so that it stays when the grid moves on: the day that a grid counts
// back to may change a little with the newest quarter, the middle of the quarter does not leave it.
std::string Report::keyOf(const std::vector<FigurePlace>& places) const {
    constexpr int halfQuarter = 45; // days
    const FigurePlace& first = places.front();
    const DatumPeriod period = rowOf(first.datum).period;
    std::string key = std::string(rule_) + ' ' + std::string(rowOf(first.datum).name);
    if (period == DatumPeriod::year && figures_.lastFiscalYear() != 0) {
        key += ' ' + std::to_string(figures_.lastFiscalYear() + 1 - *first.element);
    } else if (period == DatumPeriod::quarter && !isAbsent(figures_.endOf(*first.element))) {
        const Date middle = addDays(figures_.endOf(*first.element), -halfQuarter);
        key += ' ' + std::to_string(civil(middle).year) + 'Q' + std::to_string(quarter(middle));
    } else if (first.element) {
        key += " -" + std::to_string(*first.element);
    }
    std::uint64_t hash = 14695981039346656037ULL;
    for (const FigurePlace& place : places)
        digest(hash, rowOf(place.datum).name, figures_.figure(place));
    return key + ' ' + hexadecimal(hash);
}

void Report::speak(Sureness sureness, std::vector<FigurePlace> places, std::size_t suspects,
                   std::initializer_list<std::string> words) {
    Finding finding{rule_, sureness, {}, std::string(), keyOf(places)};
    std::string_view rest = sentence_;
    for (auto at = rest.find('%'); at != std::string_view::npos; at = rest.find('%')) {
        assert(at + 1 < rest.size() && static_cast<std::size_t>(rest[at + 1] - '1') < words.size());
        finding.text.append(rest.substr(0, at)).append(words.begin()[rest[at + 1] - '1']);
        rest.remove_prefix(at + 2);
    }
    finding.text += rest;
    // A datum's name may begin the sentence.
    finding.text.replace(0, 1, upperCase(finding.text.substr(0, 1)));
    finding.places = std::move(places);
    spoken_.push_back({std::move(finding), suspects});
}

std::vector<Finding> Report::findings() && {
    std::map<FigurePlace, int> votes;
    for (const auto& [finding, suspects] : spoken_)
        for (std::size_t at = 0; at < suspects; ++at)
            ++votes[finding.places[at]];
    std::vector<Finding> found;
    for (auto& [finding, suspects] : spoken_) {
        const auto end = finding.places.begin() + static_cast<std::ptrdiff_t>(suspects);
        const auto most =
            std::max_element(finding.places.begin(), end, [&](const auto& one, const auto& other) {
                return votes[one] < votes[other];
            });
        std::rotate(finding.places.begin(), most, std::next(most));
        found.push_back(std::move(finding));
    }
    // The figure with the surest finding first.
    std::map<FigurePlace, Sureness> surest;
    for (const Finding& one : found) {
        const auto held = surest.try_emplace(one.places.front(), one.sureness).first;
        held->second = std::max(held->second, one.sureness);
    }
    std::ranges::stable_sort(found, [&](const Finding& one, const Finding& other) {
        const FigurePlace& first = one.places.front();
        const FigurePlace& second = other.places.front();
        return std::tie(surest[second], first, other.sureness) <
               std::tie(surest[first], second, one.sureness);
    });
    return found;
}

} // namespace vkr
