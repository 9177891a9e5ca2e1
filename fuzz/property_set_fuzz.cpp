// SPDX-License-Identifier: MIT
// Whatever stands in a saved property set, the component restores itself; what it saves then is
// restored and saved again as the same.
#include "fuzz/fuzz_input.hpp"
#include "tests/support/entry_scene.hpp"

#include <string>

namespace {

using namespace vkr;

Variant valueFrom(FuzzInput& input) {
    switch (input.below(10)) {
    case 0:
        return {};
    case 1:
        return input.take<std::int16_t>();
    case 2:
        return input.take<float>();
    case 3:
        return input.take<double>();
    case 4:
        return Date{input.take<double>()};
    case 5:
        return std::to_string(input.take<std::int32_t>());
    case 6:
        return input.below(2) == 1;
    case 7:
        return numberArray({input.take<double>()}, input.take<std::int8_t>());
    case 8:
        return std::string(input.rest().substr(0, 8));
    default:
        return input.take<std::int32_t>();
    }
}

PropertyBag saved(EntryScene& scene) {
    PropertyBag bag;
    scene.entry->WriteProperties(bag);
    return bag;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static constexpr std::string_view keys[] = {"Platform",         "UserMode",
                                                "ShadeColorLocked", "ShadeColorYear",
                                                "VisibleQuarters",  "ShadeColorQuarter",
                                                "CurrentTab",       "ShowReportingPeriod",
                                                "ShowVLs",          "BorderStyle",
                                                "FractionDisplay",  "CommEquityData",
                                                "TaxRateData",      "",
                                                "Unknown"};
    static EntryScene first;
    static EntryScene second;
    FuzzInput input(data, size);
    PropertyBag bag;
    while (!input.empty()) {
        const std::string_view key = keys[input.below(static_cast<int>(std::size(keys)))];
        bag.write(key, valueFrom(input), Variant("no such default"));
    }
    first.entry->ReadProperties(bag);
    const PropertyBag written = saved(first);
    require(written.values() == saved(first).values(), "saving has changed it");
    second.entry->ReadProperties(written);
    const PropertyBag again = saved(second);
    for (const auto& [key, value] : written.values())
        require(again.read(key, Variant()) == value, key, " did not survive");
    require(again.values().size() == written.values().size(), "something was added");
    first.desktop.forget();
    second.desktop.forget();
    return 0;
}
