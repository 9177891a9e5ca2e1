// SPDX-License-Identifier: MIT
#include "automation/persistence.hpp"

#include "automation/late_bound.hpp"
#include "automation/texts.hpp"
#include "automation/variants.hpp"
#include "control/property_table.hpp"
#include "platform/error_trap.hpp"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace vkr::automation {

namespace {

constexpr std::uint32_t mark = 0x50524B56; // "VKRP"
constexpr std::uint16_t version = 1;
constexpr std::uint16_t mostValues = 256;
constexpr std::uint16_t longestKey = 256;
constexpr const wchar_t* streamName = L"VKRDataEntry";

// The rows that have a place in one of the orders, by that place.
std::vector<const PropertyRow*> inOrder(int BagPlaces::*place) {
    std::vector<const PropertyRow*> rows;
    for (int next = 1;; ++next) {
        const PropertyRow* found = nullptr;
        for (const PropertyRow& row : propertyTable())
            if (row.bag.*place == next)
                found = &row;
        if (found == nullptr)
            return rows;
        rows.push_back(found);
    }
}

VARTYPE typeOf(const PropertyRow& row) {
    switch (row.type) {
    case PropertyType::boolean:
        return VT_BOOL;
    case PropertyType::shortInteger:
        return VT_I2;
    default:
        return VT_I4;
    }
}

Variant defaultOf(const PropertyRow& row) {
    if (row.type == PropertyType::boolean)
        return row.start.number != 0;
    if (row.type == PropertyType::shortInteger)
        return static_cast<std::int16_t>(row.start.number);
    return row.start.number;
}

// --- bytes ---------------------------------------------------------------------------------------

template <typename Number>
void put(std::string& bytes, Number number) {
    for (std::size_t i = 0; i < sizeof number; ++i)
        bytes += static_cast<char>((static_cast<std::uint64_t>(number) >> (8 * i)) & 0xFFU);
}

void readExactly(IStream& place, void* into, ULONG count) {
    ULONG read = 0;
    const HRESULT result = place.Read(into, count, &read);
    if (FAILED(result) || read != count)
        throw ComError(FAILED(result) ? result : STG_E_READFAULT);
}

template <typename Number>
Number take(IStream& place) {
    std::array<std::uint8_t, sizeof(Number)> bytes{};
    readExactly(place, bytes.data(), static_cast<ULONG>(bytes.size()));
    std::uint64_t number = 0;
    for (std::size_t i = bytes.size(); i-- > 0;)
        number = (number << 8U) | bytes[i];
    return static_cast<Number>(number);
}

[[noreturn]] void damaged() {
    throw ComError(STG_E_DOCFILECORRUPT, "The saved properties are damaged.");
}

std::string bytesOf(const PropertyBag& bag) {
    std::string values;
    std::uint16_t count = 0;
    for (const PropertyRow* row : inOrder(&BagPlaces::saved)) {
        if (!bag.contains(row->name))
            continue;
        const Variant value = bag.read(row->name, {});
        put(values, static_cast<std::uint16_t>(row->name.size()));
        values += row->name;
        put(values, static_cast<std::uint16_t>(typeOf(*row)));
        put(values,
            row->type == PropertyType::boolean ? std::int32_t{value.toBoolean()} : value.toLong());
        ++count;
    }
    std::string bytes;
    put(bytes, mark);
    put(bytes, version);
    put(bytes, count);
    return bytes + values;
}

} // namespace

// --- property bag --------------------------------------------------------------------------------

void saveTo(IPropertyBag& place, const PropertyBag& bag, bool all) {
    for (const PropertyRow* row : inOrder(&BagPlaces::saved)) {
        if (!all && !bag.contains(row->name))
            continue;
        OwnedVariant value;
        toVariant(bag.read(row->name, defaultOf(*row)), value);
        check(place.Write(wideOf(row->name).c_str(), &value.get()));
    }
}

PropertyBag loadFrom(IPropertyBag& place, IErrorLog* log) {
    PropertyBag bag;
    for (const PropertyRow* row : inOrder(&BagPlaces::restored)) {
        OwnedVariant value;
        V_VT(&value.get()) = typeOf(*row); // what it is wanted as
        const HRESULT read = place.Read(wideOf(row->name).c_str(), &value.get(), log);
        if (read == E_OUTOFMEMORY)
            throw ComError(read);
        // What a bag has as a text may stand for a number.
        OwnedVariant typed;
        if (SUCCEEDED(read) &&
            SUCCEEDED(VariantChangeType(typed.receive(), &value.get(), 0, typeOf(*row))))
            ifPossible([&] { bag.write(row->name, fromVariant(typed.get()), Variant()); });
    }
    return bag;
}

// --- stream --------------------------------------------------------------------------------------

ULONG largestStream() {
    PropertyBag all;
    for (const PropertyRow* row : inOrder(&BagPlaces::saved))
        all.write(row->name, defaultOf(*row), Variant());
    return static_cast<ULONG>(bytesOf(all).size());
}

void saveTo(IStream& place, const PropertyBag& bag) {
    const std::string bytes = bytesOf(bag);
    ULONG written = 0;
    check(place.Write(bytes.data(), static_cast<ULONG>(bytes.size()), &written));
    if (written != bytes.size())
        throw ComError(STG_E_MEDIUMFULL);
}

PropertyBag loadFrom(IStream& place) {
    if (take<std::uint32_t>(place) != mark || take<std::uint16_t>(place) != version)
        damaged();
    const auto count = take<std::uint16_t>(place);
    if (count > mostValues)
        damaged();
    PropertyBag bag;
    for (std::uint16_t i = 0; i < count; ++i) {
        const auto length = take<std::uint16_t>(place);
        if (length == 0 || length > longestKey)
            damaged();
        std::string key(length, '\0');
        readExactly(place, key.data(), length);
        const auto type = take<std::uint16_t>(place);
        const auto value = take<std::int32_t>(place);
        if (type == VT_BOOL)
            bag.write(key, value != 0, Variant());
        else if (type == VT_I2)
            bag.write(key, static_cast<std::int16_t>(value), Variant());
        else if (type == VT_I4)
            bag.write(key, value, Variant());
        else
            damaged();
    }
    return bag;
}

// --- storage -------------------------------------------------------------------------------------

void saveTo(IStorage& place, const PropertyBag& bag) {
    ComPtr<IStream> stream;
    check(place.CreateStream(streamName, STGM_CREATE | STGM_WRITE | STGM_SHARE_EXCLUSIVE, 0, 0,
                             stream.receive()));
    saveTo(*stream.get(), bag);
}

PropertyBag loadFrom(IStorage& place) {
    ComPtr<IStream> stream;
    check(place.OpenStream(streamName, nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0,
                           stream.receive()));
    return loadFrom(*stream.get());
}

} // namespace vkr::automation
