// SPDX-License-Identifier: MIT
#include "store/change_bytes.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <stdexcept>
#include <utility>

namespace vkr {

namespace {

// What a value is; the numbers are those in the files.
enum Kind : std::uint8_t {
    nothing,
    integer,
    longInteger,
    single,
    figure,
    day,
    words,
    flag,
    series
};
enum Items : std::uint8_t { figures, texts, values };
constexpr std::uint64_t unknownOrigin = 0xFF;

[[noreturn]] void refuse() {
    throw std::invalid_argument("These are no changes.");
}

} // namespace

void ByteWriter::number(std::uint64_t value, int bytes) {
    for (int i = 0; i < bytes; ++i)
        bytes_.push_back(static_cast<char>((value >> (8 * i)) & 0xFFU));
}

void ByteWriter::text(std::string_view text) {
    number(text.size(), 4);
    bytes_ += text;
}

void ByteWriter::value(const Variant& value) {
    const auto tagged = [this](Kind kind, std::uint64_t bits, int bytes) {
        number(kind, 1);
        number(bits, bytes);
    };
    const auto& held = value.value();
    if (const auto* small = std::get_if<std::int16_t>(&held))
        tagged(integer, static_cast<std::uint16_t>(*small), 2);
    else if (const auto* large = std::get_if<std::int32_t>(&held))
        tagged(longInteger, static_cast<std::uint32_t>(*large), 4);
    else if (const auto* real = std::get_if<float>(&held))
        tagged(single, std::bit_cast<std::uint32_t>(*real), 4);
    else if (const auto* exact = std::get_if<double>(&held))
        tagged(figure, std::bit_cast<std::uint64_t>(*exact), 8);
    else if (const auto* date = std::get_if<Date>(&held))
        tagged(day, std::bit_cast<std::uint64_t>(date->serial), 8);
    else if (const auto* yes = std::get_if<bool>(&held))
        tagged(flag, *yes ? 1 : 0, 1);
    else if (const auto* string = std::get_if<std::string>(&held)) {
        number(words, 1);
        text(*string);
    } else if (value.isArray()) {
        const VariantArray& array = value.array();
        tagged(series, static_cast<std::uint32_t>(array.lower()), 4);
        const auto& items = array.items();
        number(items.index(), 1);
        number(array.size(), 4);
        if (const auto* numbers = std::get_if<std::vector<double>>(&items))
            for (const double one : *numbers)
                number(std::bit_cast<std::uint64_t>(one), 8);
        else if (const auto* strings = std::get_if<std::vector<std::string>>(&items))
            for (const std::string& one : *strings)
                text(one);
        else
            for (const Variant& one : std::get<std::vector<Variant>>(items))
                this->value(one);
    } else {
        number(nothing, 1);
    }
}

void ByteWriter::group(const ChangeGroup& group) {
    using std::chrono::microseconds;
    text(group.name);
    const auto at = std::chrono::duration_cast<microseconds>(group.at.time_since_epoch());
    number(static_cast<std::uint64_t>(at.count()), 8);
    number(group.changes.size(), 4);
    for (const Change& change : group.changes) {
        text(change.setting.empty() ? rowOf(change.datum).name : std::string_view());
        text(change.setting);
        number(change.element ? 1 : 0, 1);
        number(static_cast<std::uint32_t>(change.element.value_or(0)), 4);
        value(change.before);
        value(change.after);
        number(change.origin ? static_cast<std::uint64_t>(*change.origin) : unknownOrigin, 1);
        text(change.document);
    }
    number(group.counted ? 1 : 0, 1);
    if (!group.counted)
        return;
    for (const NewestPeriods* newest : {&group.counted->before, &group.counted->after}) {
        number(static_cast<std::uint16_t>(newest->year), 2);
        number(std::bit_cast<std::uint64_t>(newest->quarter.serial), 8);
    }
}

std::string_view ByteReader::take(std::size_t count) {
    if (count > rest_.size())
        refuse();
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(count);
    return taken;
}

std::uint64_t ByteReader::number(int bytes) {
    std::uint64_t value = 0;
    const std::string_view taken = take(static_cast<std::size_t>(bytes));
    for (int i = 0; i < bytes; ++i)
        value |= static_cast<std::uint64_t>(
                     static_cast<unsigned char>(taken[static_cast<std::size_t>(i)]))
                 << (8 * i);
    return value;
}

std::string ByteReader::text() {
    return std::string(take(number(4)));
}

Variant ByteReader::value(int depth) {
    constexpr int deepest = 4;
    switch (number(1)) {
    case nothing:
        return {};
    case integer:
        return static_cast<std::int16_t>(number(2));
    case longInteger:
        return static_cast<std::int32_t>(number(4));
    case single:
        return std::bit_cast<float>(static_cast<std::uint32_t>(number(4)));
    case figure:
        return std::bit_cast<double>(number(8));
    case day:
        return Date{std::bit_cast<double>(number(8))};
    case words:
        return text();
    case flag:
        return number(1) != 0;
    case series:
        break;
    default:
        refuse();
    }
    if (depth > deepest)
        refuse();
    const auto lower = static_cast<std::int32_t>(number(4));
    const auto kind = number(1);
    const auto size = number(4);
    if (size > rest_.size()) // every item has a byte at least
        refuse();
    std::vector<double> numbers;
    std::vector<std::string> strings;
    std::vector<Variant> variants;
    for (std::uint64_t i = 0; i < size; ++i)
        if (kind == figures)
            numbers.push_back(std::bit_cast<double>(number(8)));
        else if (kind == texts)
            strings.push_back(text());
        else
            variants.push_back(value(depth + 1));
    switch (kind) {
    case figures:
        return VariantArray(lower, std::move(numbers));
    case texts:
        return VariantArray(lower, std::move(strings));
    case values:
        return VariantArray(lower, std::move(variants));
    default:
        refuse();
    }
}

ChangeGroup ByteReader::group() {
    ChangeGroup group;
    group.name = text();
    group.at = std::chrono::system_clock::time_point(
        std::chrono::duration_cast<std::chrono::system_clock::duration>(
            std::chrono::microseconds(static_cast<std::int64_t>(number(8)))));
    for (auto left = number(4); left > 0; --left) {
        Change change;
        const std::string datum = text();
        change.setting = text();
        if (change.setting.empty()) {
            const auto row = std::ranges::find(datumTable(), datum, &DatumRow::name);
            if (row == datumTable().end())
                refuse();
            change.datum = row->datum;
        }
        const bool isElement = number(1) != 0;
        const auto element = static_cast<std::int32_t>(number(4));
        if (isElement)
            change.element = element;
        change.before = value();
        change.after = value();
        const auto origin = number(1);
        if (origin > static_cast<std::uint64_t>(Origin::adjusted) && origin != unknownOrigin)
            refuse();
        change.origin =
            origin == unknownOrigin ? std::nullopt : std::optional(static_cast<Origin>(origin));
        change.document = text();
        group.changes.push_back(std::move(change));
    }
    if (rest_.empty() || number(1) == 0) // as nobody has written it once
        return group;
    group.counted.emplace();
    for (NewestPeriods* newest : {&group.counted->before, &group.counted->after}) {
        newest->year = static_cast<std::int16_t>(number(2));
        newest->quarter.serial = std::bit_cast<double>(number(8));
    }
    return group;
}

void RunningChecksum::add(std::string_view bytes) {
    static const auto table = [] {
        std::array<std::uint32_t, 256> made{};
        for (std::uint32_t i = 0; i < made.size(); ++i) {
            std::uint32_t value = i;
            for (int bit = 0; bit < 8; ++bit)
                value = (value >> 1U) ^ ((value & 1U) != 0 ? 0x82F63B78U : 0U);
            made[i] = value;
        }
        return made;
    }();
    for (const char byte : bytes)
        sum_ = table[(sum_ ^ static_cast<unsigned char>(byte)) & 0xFFU] ^ (sum_ >> 8U);
}

std::uint32_t checksum(std::string_view bytes) {
    RunningChecksum sum;
    sum.add(bytes);
    return sum.value();
}

} // namespace vkr
