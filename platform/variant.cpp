// SPDX-License-Identifier: MIT
#include "platform/variant.hpp"

#include "platform/nearest_double.hpp"
#include "platform/number_text.hpp"
#include "platform/text.hpp"

#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <type_traits>
#include <utility>

namespace vkr {

namespace {

template <typename... Callables>
struct Overloaded : Callables... {
    using Callables::operator()...;
};
template <typename... Callables>
Overloaded(Callables...) -> Overloaded<Callables...>;

[[noreturn]] void mismatch(const char* wanted) {
    throw std::invalid_argument(std::string("value cannot be taken as ") + wanted);
}

// The double of the same shortest text: 0.1, where the float's own value is 0.10000000149.
double asWritten(float value) {
    char text[32];
    const auto written = std::to_chars(std::begin(text), std::end(text), value);
    return nearestDouble({text, written.ptr}).value_or(value);
}

} // namespace

VariantArray::VariantArray(int lower, std::vector<double> items)
    : VariantArray(lower, Items(std::move(items))) {}
VariantArray::VariantArray(int lower, std::vector<std::string> items)
    : VariantArray(lower, Items(std::move(items))) {}
VariantArray::VariantArray(int lower, std::vector<Variant> items)
    : VariantArray(lower, Items(std::move(items))) {}

// The kind of items is named before they are copied: libstdc++ takes a variant of vectors for one
// that always holds a value, and destroys one it has not made where copying the vector fails.
VariantArray::VariantArray(const VariantArray& other)
    : lower_(other.lower_), items_(std::visit(
                                [](const auto& items) {
                                    using Kind = std::remove_cvref_t<decltype(items)>;
                                    return Items(std::in_place_type<Kind>, items);
                                },
                                other.items_)) {}

VariantArray& VariantArray::operator=(const VariantArray& other) {
    VariantArray copy(other);
    return *this = std::move(copy);
}

VariantArray::VariantArray(int lower, Items items) : lower_(lower), items_(std::move(items)) {
    const auto last = std::int64_t{lower} + static_cast<std::int64_t>(size()) - 1;
    if (last < std::numeric_limits<int>::min() || last > std::numeric_limits<int>::max())
        throw std::length_error("array of " + std::to_string(size()) + " from " +
                                std::to_string(lower) + " has no upper bound");
}

bool operator==(const VariantArray& left, const VariantArray& right) {
    return left.lower_ == right.lower_ && left.items_ == right.items_;
}

std::size_t VariantArray::size() const {
    return std::visit([](const auto& items) { return items.size(); }, items_);
}

std::size_t VariantArray::offset(int index) const {
    if (!contains(index))
        throw std::out_of_range("array index " + std::to_string(index) + " outside " +
                                std::to_string(lower()) + " to " + std::to_string(upper()));
    return static_cast<std::size_t>(std::int64_t{index} - lower_);
}

Variant VariantArray::at(int index) const {
    const auto place = offset(index);
    return std::visit([&](const auto& items) { return Variant(items[place]); }, items_);
}

double VariantArray::number(int index) const {
    const auto place = offset(index);
    if (const auto* plain = numbers())
        return (*plain)[place];
    try {
        return at(index).toDouble();
    } catch (const std::invalid_argument&) {
        return 0;
    }
}

std::string VariantArray::text(int index) const {
    const auto place = offset(index);
    if (const auto* texts = std::get_if<std::vector<std::string>>(&items_))
        return (*texts)[place];
    return at(index).toText();
}

void VariantArray::setNumber(int index, double value) {
    if (auto* plain = numbers())
        (*plain)[offset(index)] = value;
    else
        set(index, Variant(value));
}

void VariantArray::set(int index, const Variant& value) {
    const auto place = offset(index);
    std::visit(Overloaded{[&](std::vector<double>& items) { items[place] = value.toDouble(); },
                          [&](std::vector<std::string>& items) { items[place] = value.toText(); },
                          [&](std::vector<Variant>& items) { items[place] = value; }},
               items_);
}

int Variant::varType() const {
    return std::visit(
        Overloaded{
            [](std::monostate) -> int { return vtEmpty; },
            [](std::int16_t) -> int { return vtInteger; },
            [](std::int32_t) -> int { return vtLong; }, [](float) -> int { return vtSingle; },
            [](double) -> int { return vtDouble; }, [](Date) -> int { return vtDate; },
            [](const std::string&) -> int { return vtString; },
            [](const ObjectPtr&) -> int { return vtObject; }, [](bool) -> int { return vtBoolean; },
            [](const VariantArray& array) -> int {
                static constexpr int elementTypes[] = {vtDouble, vtString, vtVariant};
                return vtArray + elementTypes[array.items().index()];
            }},
        value_);
}

bool Variant::isNumeric() const {
    return std::visit(Overloaded{[](std::int16_t) { return true; },
                                 [](std::int32_t) { return true; }, [](float) { return true; },
                                 [](double) { return true; }, [](bool) { return true; },
                                 [](const std::string& text) { return isNumberText(text); },
                                 [](const auto&) { return false; }},
                      value_);
}

double Variant::toDouble() const {
    return std::visit(Overloaded{[](std::monostate) { return 0.0; },
                                 [](std::int16_t value) { return static_cast<double>(value); },
                                 [](std::int32_t value) { return static_cast<double>(value); },
                                 [](float value) { return static_cast<double>(value); },
                                 [](double value) { return value; },
                                 [](Date value) { return value.serial; },
                                 [](const std::string& text) { return leadingNumber(text); },
                                 [](bool value) { return value ? -1.0 : 0.0; },
                                 [](const ObjectPtr&) -> double { mismatch("a number"); },
                                 [](const VariantArray&) -> double { mismatch("a number"); }},
                      value_);
}

std::int32_t Variant::toLong() const {
    const double rounded = std::nearbyint(toDouble());
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max()))
        throw std::overflow_error("overflow");
    return static_cast<std::int32_t>(rounded);
}

bool Variant::toBoolean() const {
    if (const auto* flag = std::get_if<bool>(&value_))
        return *flag;
    if (const auto* text = std::get_if<std::string>(&value_)) {
        if (equalsIgnoringCase(*text, "True"))
            return true;
        if (equalsIgnoringCase(*text, "False"))
            return false;
        if (!isNumberText(*text))
            mismatch("a boolean");
    }
    return toDouble() != 0;
}

std::string Variant::toText() const {
    return std::visit(
        Overloaded{[](std::monostate) { return std::string(); },
                   [](const std::string& text) { return text; },
                   [](bool value) { return std::string(value ? "True" : "False"); },
                   [](Date value) { return plainNumberText(value.serial); },
                   [](const ObjectPtr&) -> std::string { mismatch("text"); },
                   [](const VariantArray&) -> std::string { mismatch("text"); },
                   [](float value) { return plainNumberText(asWritten(value)); },
                   [](auto number) { return plainNumberText(static_cast<double>(number)); }},
        value_);
}

Date Variant::toDate() const {
    if (const auto* date = std::get_if<Date>(&value_))
        return *date;
    if (std::holds_alternative<std::string>(value_))
        mismatch("a date");
    return Date{toDouble()};
}

Variant::ObjectPtr Variant::toObject() const {
    const auto* object = std::get_if<ObjectPtr>(&value_);
    return object == nullptr ? nullptr : *object;
}

const VariantArray& Variant::array() const {
    const auto* held = std::get_if<VariantArray>(&value_);
    if (held == nullptr)
        mismatch("an array");
    return *held;
}

VariantArray& Variant::array() {
    auto* held = std::get_if<VariantArray>(&value_);
    if (held == nullptr)
        mismatch("an array");
    return *held;
}

Variant textArray(std::vector<std::string> texts, int lower) {
    return VariantArray(lower, std::move(texts));
}

Variant numberArray(std::vector<double> numbers, int lower) {
    return VariantArray(lower, std::move(numbers));
}

} // namespace vkr
