// SPDX-License-Identifier: MIT
#include "binding/figure_doubts.hpp"

#include "input/number_text.hpp"
#include "input/text_signs.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <iterator>

namespace vkr {

namespace {

constexpr std::string_view signNames[] = {"USD", "EUR", "GBP", "JPY"}; // of currencySigns
static_assert(std::size(signNames) == std::size(currencySigns));

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

} // namespace

std::string saidBeside(std::string_view text, Datum datum, std::string_view symbol,
                       const NumberMarks& marks) {
    const DatumUnit unit = unitOf(datum);
    if (unit == DatumUnit::perShare || unit == DatumUnit::percent)
        if (std::string mark = markOfOnlyGroup(text, marks); !mark.empty())
            return mark;
    if (unit != DatumUnit::percent && contains(text, "%"))
        return "%";
    const bool amount = unit == DatumUnit::money || unit == DatumUnit::perShare;
    const auto sign = std::ranges::find_if(
        currencySigns, [&](std::string_view one) { return contains(text, one); });
    if (sign == std::end(currencySigns))
        return {};
    const auto& name = signNames[sign - std::begin(currencySigns)];
    const bool own = contains(symbol, *sign) || equalsIgnoringCase(symbol, name);
    return amount && own ? std::string() : std::string(*sign);
}

} // namespace vkr
