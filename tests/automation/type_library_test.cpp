// SPDX-License-Identifier: MIT
// The compiled type libraries, read back, against the tables of the component.
#include "automation/member_numbers.hpp"
#include "control/property_table.hpp"
#include "record/datum_table.hpp"
#include "record/enumerations.hpp"
#include "tests/automation/type_info.hpp"

#include <map>
#include <set>

namespace vkr::automation {
namespace {

// A read and a write for each datum, and what is no datum.
constexpr std::size_t recordOperations = 2 * datumCount + 16;

struct Function {
    std::string name;
    std::string help;
    std::vector<std::string> parameters; // their names
    DISPID id;
    INVOKEKIND kind;
    int slot;
    std::vector<VARTYPE> types; // of the arguments
};

std::vector<Function> functionsOf(ITypeInfo* info) {
    std::vector<Function> all;
    forEachFunction(info, [&](const FUNCDESC& one) {
        Function& next = all.emplace_back();
        next.name = nameOf(info, one.memid);
        Bstr help;
        EXPECT_EQ(info->GetDocumentation(one.memid, nullptr, help.receive(), nullptr, nullptr),
                  S_OK);
        next.help = textOf(help.get());
        BSTR names[20] = {};
        UINT named = 0;
        EXPECT_EQ(info->GetNames(one.memid, names, 20, &named), S_OK);
        for (UINT j = 0; j < named; ++j) {
            if (j > 0)
                next.parameters.push_back(textOf(names[j]));
            SysFreeString(names[j]);
        }
        next.id = one.memid;
        next.kind = one.invkind;
        next.slot = one.oVft / static_cast<int>(sizeof(void*));
        for (SHORT j = 0; j < one.cParams; ++j) {
            const TYPEDESC& type = one.lprgelemdescParam[j].tdesc;
            next.types.push_back(type.vt == VT_PTR ? type.lptdesc->vt : type.vt);
        }
    });
    return all;
}

VARTYPE typeOf(const DatumRow& row) {
    if (isSeries(row))
        return VT_VARIANT;
    if (std::holds_alternative<TextAccess>(row.access))
        return VT_BSTR;
    if (std::holds_alternative<YearAccess>(row.access))
        return VT_I2;
    return std::holds_alternative<DateAccess>(row.access) ? VT_DATE : VT_R8;
}

constexpr int dispatchSlots = 7; // of IUnknown and IDispatch

TEST(TypeLibrary, RecordHasItsOperationsInTheOrderOfTheInterface) {
    const auto info = slotsOf(infoOf(libraryAt(2).get(), __uuidof(::iVKR_Company)));
    const auto functions = functionsOf(info.get());
    ASSERT_EQ(functions.size(), recordOperations);
    std::size_t place = 0;
    for (const Function& one : functions)
        EXPECT_EQ(one.slot, dispatchSlots + static_cast<int>(place++)) << one.name;

    // Each datum is a read right before its write, and they stand in the order of the list.
    std::size_t last = 0;
    for (const DatumRow& row : datumTable()) {
        std::size_t read = last;
        while (read < functions.size() && functions[read].name != row.name)
            ++read;
        ASSERT_LT(read + 1, functions.size()) << row.name;
        last = read;
        EXPECT_EQ(functions[read].kind, INVOKE_PROPERTYGET) << row.name;
        EXPECT_EQ(functions[read + 1].name, row.name);
        EXPECT_EQ(functions[read + 1].kind, INVOKE_PROPERTYPUT) << row.name;
        EXPECT_EQ(functions[read].id, functions[read + 1].id) << row.name;
        EXPECT_EQ(functions[read].types, std::vector<VARTYPE>{typeOf(row)}) << row.name;
        EXPECT_EQ(functions[read + 1].types, std::vector<VARTYPE>{typeOf(row)}) << row.name;
    }
}

TEST(TypeLibrary, OperationsOfTheRecordThatAreNoDatumStandWhereTheyBelong) {
    const auto info = slotsOf(infoOf(libraryAt(2).get(), __uuidof(::iVKR_Company)));
    const auto functions = functionsOf(info.get());
    ASSERT_EQ(functions.size(), recordOperations);
    // By the orders that are laid down, from 1.
    const std::map<std::size_t, std::string> others = {
        {23, "QuarterlyFlag"},      {26, "BeginYearShift"},  {27, "YearShiftState"},
        {28, "EndYearShift"},       {33, "YearShiftUnit"},   {78, "YearShiftFirst"},
        {79, "YearShiftLast"},      {80, "ReportingPeriod"}, {81, "YearShiftCount"},
        {82, "ReportingPeriodEnd"}, {83, "YearShiftPrices"}, {84, "YearShiftEarnings"},
        {85, "YearShiftDividends"}, {86, "YearShiftShares"}, {87, "Settings"},
        {88, "SettingsApply"}};
    for (const auto& [order, name] : others)
        EXPECT_EQ(functions[order - 1].name, name) << order;
}

VARTYPE typeOf(const PropertyRow& row) {
    switch (row.type) {
    case PropertyType::boolean:
        return VT_BOOL;
    case PropertyType::shortInteger:
        return VT_I2;
    case PropertyType::text:
        return VT_BSTR;
    case PropertyType::list:
        return VT_VARIANT;
    case PropertyType::company:
        return VT_PTR;
    default:
        return VT_USERDEFINED;
    }
}

TEST(TypeLibrary, ControlHasThePropertiesOfTheTable) {
    const auto info = slotsOf(infoOf(libraryAt(1).get(), __uuidof(::_VKRDataEntry)));
    const auto functions = functionsOf(info.get());
    std::size_t place = 0;
    DISPID number = 0;
    const auto next = [&](const PropertyRow& row, INVOKEKIND kind) {
        ASSERT_LT(place, functions.size());
        const Function& one = functions[place];
        EXPECT_EQ(one.name, row.name);
        EXPECT_EQ(one.id, number) << row.name;
        EXPECT_EQ(one.kind, kind) << row.name;
        EXPECT_EQ(one.slot, dispatchSlots + static_cast<int>(place)) << row.name;
        if (row.type != PropertyType::company) {
            EXPECT_EQ(one.types, std::vector<VARTYPE>{typeOf(row)}) << row.name;
        }
        ++place;
    };
    for (const PropertyRow& row : propertyTable().first(interfaceProperties)) {
        ++number;
        EXPECT_EQ(number, member::of(row.property));
        if (row.access == PropertyAccess::read)
            next(row, INVOKE_FUNC);
        if (row.access == PropertyAccess::readWrite)
            next(row, INVOKE_PROPERTYGET);
        if (row.type == PropertyType::company)
            next(row, INVOKE_PROPERTYPUTREF);
        else if (row.access == PropertyAccess::readWrite || row.access == PropertyAccess::write)
            next(row, INVOKE_PROPERTYPUT);
    }
    for (const char* const method : {"SetNext", "SetPrevious", "Clear", "ScrollMouse"}) {
        ASSERT_LT(place, functions.size());
        EXPECT_EQ(functions[place].name, method);
        EXPECT_EQ(functions[place].id, ++number);
        EXPECT_EQ(functions[place].kind, INVOKE_FUNC);
        ++place;
    }
    EXPECT_EQ(number, member::scrollMouse);
    EXPECT_EQ(
        idOf(LoadedLibrary::get().create<IDispatch>(__uuidof(::VKRDataEntry)).get(), "DecimalMark"),
        member::decimalMark);
}

// Tools show a choice of colours for the type of the model's own library.
TEST(TypeLibrary, ColorsHaveTheTypeOfTheModel) {
    const auto info = slotsOf(infoOf(libraryAt(1).get(), __uuidof(::_VKRDataEntry)));
    int colors = 0;
    forEachFunction(info.get(), [&](const FUNCDESC& one) {
        if (!nameOf(info.get(), one.memid).starts_with("ShadeColor"))
            return;
        const TYPEDESC* type = &one.lprgelemdescParam[0].tdesc;
        if (type->vt == VT_PTR)
            type = type->lptdesc;
        ASSERT_EQ(type->vt, VT_USERDEFINED);
        ComPtr<ITypeInfo> color;
        ASSERT_EQ(info->GetRefTypeInfo(type->hreftype, color.receive()), S_OK);
        EXPECT_EQ(nameOf(color.get()), "OLE_COLOR");
        ComPtr<ITypeLib> model;
        UINT place = 0;
        ASSERT_EQ(color->GetContainingTypeLib(model.receive(), &place), S_OK);
        Bstr name;
        EXPECT_EQ(model->GetDocumentation(-1, name.receive(), nullptr, nullptr, nullptr), S_OK);
        EXPECT_EQ(textOf(name.get()), "stdole");
        ++colors;
    });
    EXPECT_EQ(colors, 6); // three, read and written
}

TEST(TypeLibrary, EventsHaveTheirNumbersNamesAndTypes) {
    const auto info = infoOf(libraryAt(1).get(), __uuidof(::__VKRDataEntry));
    const auto functions = functionsOf(info.get());
    struct Event {
        std::string name;
        std::vector<VARTYPE> types;
        std::vector<std::string> parameters;
    };
    const std::vector<Event> wanted = {
        {"TabChange", {VT_USERDEFINED}, {"intTab"}},
        {"MoreHelp", {VT_I2}, {"intObject"}},
        {"Assistant", {VT_I2, VT_VARIANT}, {"enumObject", "vntValue"}},
        {"UnloadRequest", {VT_USERDEFINED}, {"enumMode"}},
        {"UpdatePrice", {VT_USERDEFINED}, {"objCompany"}},
        {"UpdateData", {VT_USERDEFINED}, {"objCompany"}},
        {"UpdateQDataOnly", {VT_USERDEFINED}, {"objCompany"}}};
    ASSERT_EQ(functions.size(), wanted.size());
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        EXPECT_EQ(functions[i].name, wanted[i].name);
        EXPECT_EQ(functions[i].id, static_cast<DISPID>(i) + 1);
        EXPECT_EQ(functions[i].types, wanted[i].types) << wanted[i].name;
        EXPECT_EQ(functions[i].parameters, wanted[i].parameters) << wanted[i].name;
    }
}

TEST(TypeLibrary, EveryMemberSaysWhatItIs) {
    std::vector<Function> all =
        functionsOf(infoOf(libraryAt(1).get(), __uuidof(::__VKRDataEntry)).get());
    for (const auto& [library, id] :
         {std::pair{2, __uuidof(::iVKR_Company)}, std::pair{2, __uuidof(::iVKR_CompanyRecord)},
          std::pair{2, __uuidof(::iVKR_TrailingEarnings)}, std::pair{1, __uuidof(::_VKRDataEntry)},
          std::pair{1, __uuidof(::iVKR_Localizer)}})
        for (const Function& one : functionsOf(slotsOf(infoOf(libraryAt(library).get(), id)).get()))
            all.push_back(one);
    EXPECT_GT(all.size(), 180U);
    for (const Function& one : all)
        EXPECT_FALSE(one.help.empty()) << one.name;
}

std::map<std::string, int> membersOf(ITypeInfo* info) {
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_ENUM);
    const UINT count = attributes->cVars;
    info->ReleaseTypeAttr(attributes);
    std::map<std::string, int> members;
    for (UINT i = 0; i < count; ++i) {
        VARDESC* one = nullptr;
        EXPECT_EQ(info->GetVarDesc(i, &one), S_OK);
        members[nameOf(info, one->memid)] = V_I4(one->lpvarValue);
        info->ReleaseVarDesc(one);
    }
    return members;
}

std::map<std::string, std::map<std::string, int>> enumerationsOf(ITypeLib* library) {
    std::map<std::string, std::map<std::string, int>> all;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        TYPEKIND kind{};
        EXPECT_EQ(library->GetTypeInfoType(i, &kind), S_OK);
        if (kind != TKIND_ENUM)
            continue;
        ComPtr<ITypeInfo> info;
        EXPECT_EQ(library->GetTypeInfo(i, info.receive()), S_OK);
        all[nameOf(info.get())] = membersOf(info.get());
    }
    return all;
}

TEST(TypeLibrary, EnumerationsAreWhereTheyBelongWithTheirValues) {
    const auto shared = enumerationsOf(libraryAt(3).get());
    EXPECT_EQ(shared.at("UserModeType"),
              (std::map<std::string, int>{{"umDefault", umDefault}, {"umCustom", umCustom}}));
    EXPECT_EQ(shared.at("PlatformType"),
              (std::map<std::string, int>{{"ptStandard", ptStandard}, {"ptZX", ptZX}}));
    EXPECT_EQ(shared.at("UnloadModeType"),
              (std::map<std::string, int>{{"ulCancel", ulCancel}, {"ulConfirm", ulConfirm}}));
    const auto own = enumerationsOf(libraryAt(1).get());
    EXPECT_EQ(own.size(), 2U); // the shared ones are referred to, not repeated
    EXPECT_EQ(own.at("TABObject").size(), 5U);
    EXPECT_EQ(own.at("TABObject").at("toOptions"), toOptions);
    const auto& objects = own.at("DataEntryObject");
    EXPECT_EQ(objects.size(), static_cast<std::size_t>(dataEntryObjectCount));
    std::set<int> numbers;
    for (const auto& [name, number] : objects)
        numbers.insert(number);
    EXPECT_EQ(*numbers.begin(), 0);
    EXPECT_EQ(*numbers.rbegin(), dataEntryObjectCount - 1);
    EXPECT_EQ(objects.at("doDateOfSource"), doDateOfSource);
    EXPECT_EQ(objects.at("doYTaxRate"), doYTaxRate);
}

TEST(TypeLibrary, LibrariesAndClassesHaveTheirNames) {
    const auto named = [](int number) {
        Bstr name;
        EXPECT_EQ(
            libraryAt(number)->GetDocumentation(-1, name.receive(), nullptr, nullptr, nullptr),
            S_OK);
        return textOf(name.get());
    };
    EXPECT_EQ(named(1), "VKR_DataEntry");
    EXPECT_EQ(named(2), "VKR_Company");
    EXPECT_EQ(named(3), "VKR_Enum");
    // What a tool gets that takes the library itself.
    ComPtr<ITypeLib> first;
    ASSERT_EQ(LoadTypeLibEx(LoadedLibrary::get().path().c_str(), REGKIND_NONE, first.receive()),
              S_OK);
    Bstr name;
    EXPECT_EQ(first->GetDocumentation(-1, name.receive(), nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(textOf(name.get()), "VKR_DataEntry");
    EXPECT_EQ(nameOf(infoOf(libraryAt(1).get(), __uuidof(::VKRDataEntry)).get()), "VKRDataEntry");
    EXPECT_EQ(nameOf(infoOf(libraryAt(2).get(), __uuidof(::Company)).get()), "Company");
}

} // namespace
} // namespace vkr::automation
