// SPDX-License-Identifier: MIT
#include "control/property_table.hpp"
#include "quarterly/quarterly_grid.hpp"
#include "tests/support/entry_scene.hpp"

#include <algorithm>
#include <gtest/gtest.h>
#include <optional>
#include <set>

namespace vkr {
namespace {

using Names = std::vector<std::string>;

std::string nameOf(const PropertyRow& row) {
    return std::string(row.name);
}

Names inOrderOf(int BagPlaces::*place) {
    std::vector<PropertyRow> rows(propertyTable().begin(), propertyTable().end());
    std::erase_if(rows, [&](const PropertyRow& row) { return row.bag.*place == 0; });
    std::ranges::sort(rows, {}, [&](const PropertyRow& row) { return row.bag.*place; });
    Names names;
    std::ranges::transform(rows, std::back_inserter(names), nameOf);
    return names;
}

TEST(PropertyTable, HasTheInterfaceInItsOrder) {
    Names names;
    std::ranges::transform(propertyTable().first(interfaceProperties), std::back_inserter(names),
                           nameOf);
    EXPECT_EQ(names, (Names{"blnExistsQuarterlyData",
                            "blnDirty",
                            "UserMode",
                            "ShadeColorLocked",
                            "ShadeColorYear",
                            "ShadeColorQuarter",
                            "VisibleQuarters",
                            "ShowReportingPeriod",
                            "ShowVLs",
                            "CurrentTab",
                            "PercentFormat",
                            "DateFormat",
                            "NumberFormat",
                            "FractionDisplay",
                            "vntSource",
                            "vntExchange",
                            "vntIndustry",
                            "BorderStyle",
                            "objCompany",
                            "Platform"}));
}

TEST(PropertyTable, SavesAndRestoresInTheAgreedOrders) {
    EXPECT_EQ(
        inOrderOf(&BagPlaces::saved),
        (Names{"Platform", "UserMode", "ShadeColorLocked", "VisibleQuarters", "ShowReportingPeriod",
               "ShowVLs", "CurrentTab", "CommEquityData", "TaxRateData", "BorderStyle",
               "FractionDisplay", "ShadeColorQuarter", "ShadeColorYear"}));
    EXPECT_EQ(inOrderOf(&BagPlaces::restored),
              (Names{"Platform", "UserMode", "ShadeColorLocked", "ShadeColorYear",
                     "ShadeColorQuarter", "VisibleQuarters", "ShowReportingPeriod", "ShowVLs",
                     "CurrentTab", "BorderStyle", "FractionDisplay"}));
}

TEST(PropertyTable, EachPropertyHasAMeaningAndANameOfItsOwn) {
    std::set<std::string_view> names;
    for (const auto& row : propertyTable()) {
        EXPECT_FALSE(row.meaning.empty()) << row.name;
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        EXPECT_EQ(&propertyRow(row.property), &row);
    }
    EXPECT_EQ(propertyRow(EntryProperty::VisibleQuarters).start.number, QuarterlyGrid::startRows);
}

// --- what the component does, by the table -------------------------------------------------------

struct Access {
    EntryProperty property;
    Variant (*get)(VKRDataEntry& entry); // null: it can't be read
    void (*put)(VKRDataEntry& entry);    // another value than at the start; null: it can't be put
};

#define VKR_NUMBER(Name)                                                                           \
    [](VKRDataEntry& e) { return Variant(static_cast<std::int32_t>(e.get_##Name())); }

const Access accesses[] = {
    {EntryProperty::blnDirty, VKR_NUMBER(blnDirty), [](VKRDataEntry& e) { e.put_blnDirty(true); }},
    {EntryProperty::UserMode, VKR_NUMBER(UserMode),
     [](VKRDataEntry& e) { e.put_UserMode(umCustom); }},
    {EntryProperty::ShadeColorLocked, VKR_NUMBER(ShadeColorLocked),
     [](VKRDataEntry& e) { e.put_ShadeColorLocked(1); }},
    {EntryProperty::ShadeColorYear, VKR_NUMBER(ShadeColorYear),
     [](VKRDataEntry& e) { e.put_ShadeColorYear(2); }},
    {EntryProperty::ShadeColorQuarter, VKR_NUMBER(ShadeColorQuarter),
     [](VKRDataEntry& e) { e.put_ShadeColorQuarter(3); }},
    {EntryProperty::VisibleQuarters, VKR_NUMBER(VisibleQuarters),
     [](VKRDataEntry& e) { e.put_VisibleQuarters(12); }},
    {EntryProperty::ShowReportingPeriod, VKR_NUMBER(ShowReportingPeriod),
     [](VKRDataEntry& e) { e.put_ShowReportingPeriod(true); }},
    {EntryProperty::ShowVLs, VKR_NUMBER(ShowVLs), [](VKRDataEntry& e) { e.put_ShowVLs(true); }},
    {EntryProperty::CurrentTab, VKR_NUMBER(CurrentTab),
     [](VKRDataEntry& e) { e.put_CurrentTab(toOther); }},
    {EntryProperty::PercentFormat, [](VKRDataEntry& e) { return Variant(e.get_PercentFormat()); },
     [](VKRDataEntry& e) { e.put_PercentFormat("0%"); }},
    {EntryProperty::DateFormat, [](VKRDataEntry& e) { return Variant(e.get_DateFormat()); },
     [](VKRDataEntry& e) { e.put_DateFormat("YYYY"); }},
    {EntryProperty::NumberFormat, [](VKRDataEntry& e) { return Variant(e.get_NumberFormat()); },
     [](VKRDataEntry& e) { e.put_NumberFormat("0"); }},
    {EntryProperty::FractionDisplay, VKR_NUMBER(FractionDisplay),
     [](VKRDataEntry& e) { e.put_FractionDisplay(true); }},
    {EntryProperty::vntSource, nullptr,
     [](VKRDataEntry& e) { e.put_vntSource(textArray({"Own"})); }},
    {EntryProperty::vntExchange, nullptr,
     [](VKRDataEntry& e) { e.put_vntExchange(textArray({"NYSE"})); }},
    {EntryProperty::vntIndustry, nullptr,
     [](VKRDataEntry& e) { e.put_vntIndustry(textArray({"Steel"})); }},
    {EntryProperty::BorderStyle, VKR_NUMBER(BorderStyle),
     [](VKRDataEntry& e) { e.put_BorderStyle(BorderStyle::fixedSingle); }},
    {EntryProperty::objCompany, nullptr, [](VKRDataEntry& e) { e.put_objCompany(fullCompany()); }},
    {EntryProperty::Platform, VKR_NUMBER(Platform), [](VKRDataEntry& e) { e.put_Platform(ptZX); }},
    {EntryProperty::NumberMarks, nullptr,
     [](VKRDataEntry& e) {
         e.put_NumberMarks({',', "."});
     }},
};
#undef VKR_NUMBER

TEST(PropertyTable, EveryPropertyThatCanBePutIsWalked) {
    std::set<EntryProperty> walked;
    for (const auto& access : accesses)
        walked.insert(access.property);
    for (const auto& row : propertyTable())
        EXPECT_EQ(walked.contains(row.property),
                  row.access == PropertyAccess::readWrite || row.access == PropertyAccess::write)
            << row.name;
}

TEST(PropertyTable, EveryPropertyStartsAsItSays) {
    const EntryScene scene;
    for (const auto& [property, get, put] : accesses) {
        const auto& row = propertyRow(property);
        if (get == nullptr)
            continue;
        EXPECT_EQ(get(*scene.entry), row.type == PropertyType::text ? Variant(row.start.text)
                                                                    : Variant(row.start.number))
            << row.name;
    }
}

TEST(PropertyTable, TheContainerHearsOfEachAsItSays) {
    for (const auto& [property, get, put] : accesses) {
        const auto& row = propertyRow(property);
        const Names name{std::string(row.name)};
        EntryScene scene;
        const auto heard = [&] {
            scene.desktop.forget();
            put(*scene.entry);
            return scene.desktop.propertyChanges();
        };
        const bool never = row.notice == PropertyNotice::never;
        const bool changed = row.notice == PropertyNotice::changed;
        EXPECT_EQ(heard(), never ? Names{} : name) << row.name;
        EXPECT_EQ(heard(), never || changed ? Names{} : name) << row.name << ", once more";
    }
}

TEST(PropertyTable, TheBagHoldsWhatIsSavedUnderItsName) {
    for (const auto& [property, get, put] : accesses) {
        const auto& row = propertyRow(property);
        EntryScene scene;
        put(*scene.entry);
        PropertyBag bag;
        scene.entry->WriteProperties(bag);
        Names keys;
        for (const auto& [key, value] : bag.values())
            keys.push_back(key);
        EXPECT_EQ(keys, row.bag.saved == 0 ? Names{} : Names{std::string(row.name)}) << row.name;
        EntryScene other;
        other.entry->ReadProperties(bag);
        if (get == nullptr)
            continue;
        EXPECT_EQ(get(*other.entry) == get(*scene.entry), row.bag.restored != 0) << row.name;
    }
}

} // namespace
} // namespace vkr
