// SPDX-License-Identifier: MIT
#include "company/company_record.hpp"
#include "record/datum_table.hpp"
#include "tests/automation/loaded_library.hpp"
#include "tests/automation/scripted_objects.hpp"

#include <filesystem>

namespace vkr::automation {
namespace {

struct CompanyObject : WithLibrary {
    ComPtr<::iVKR_CompanyRecord> company =
        library.create<::iVKR_CompanyRecord>(__uuidof(::Company));
    [[nodiscard]] IDispatch* dispatch() const { return company.get(); }
};

// A value of the datum's kind that differs from datum to datum.
Variant sampleOf(const DatumRow& row, int number) {
    if (isSeries(row)) {
        std::vector<double> figures(static_cast<std::size_t>(row.upper) + 1);
        for (std::size_t i = 0; i < figures.size(); ++i)
            figures[i] = number + static_cast<double>(i) / 8;
        return numberArray(std::move(figures));
    }
    if (std::holds_alternative<TextAccess>(row.access))
        return "Text " + std::to_string(number) + " ä€";
    if (std::holds_alternative<YearAccess>(row.access))
        return std::int16_t{2024};
    if (std::holds_alternative<DateAccess>(row.access))
        return Date{45000.0 + number};
    return number + 0.1;
}

TEST_F(CompanyObject, TakesEveryDatumByNameAndGivesItBack) {
    int number = 0;
    for (const DatumRow& row : datumTable()) {
        const Variant value = sampleOf(row, ++number);
        const Called put = putByName(dispatch(), row.name, value);
        EXPECT_EQ(put.result, S_OK) << row.name << ": " << put.told;
        const Variant read = getByName(dispatch(), row.name);
        if (isSeries(row)) {
            ASSERT_TRUE(read.isArray()) << row.name;
            EXPECT_EQ(read.array().lower(), 0);
            for (int i = 0; i <= row.upper; ++i)
                EXPECT_EQ(read.array().number(i), value.array().number(i)) << row.name;
        } else {
            EXPECT_EQ(read, value) << row.name;
        }
    }
}

TEST_F(CompanyObject, GivesTheSameEarlyAndLateBound) {
    EXPECT_EQ(company->put_CurrentPrice(12.25), S_OK);
    EXPECT_EQ(getByName(dispatch(), "CurrentPrice"), Variant(12.25));
    EXPECT_EQ(putByName(dispatch(), "Symbol", "ACM").result, S_OK);
    Bstr symbol;
    EXPECT_EQ(company->get_Symbol(symbol.receive()), S_OK);
    EXPECT_EQ(textOf(symbol.get()), "ACM");
}

TEST_F(CompanyObject, RefusesWhatADatumCanNotBe) {
    EXPECT_EQ(putByName(dispatch(), "CurrentPrice", "abc").result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(putByName(dispatch(), "LastFY", 100000.0).result, DISP_E_OVERFLOW);
    EXPECT_EQ(company->get_CurrentPrice(nullptr), E_POINTER);
    EXPECT_EQ(company->get_Name(nullptr), E_POINTER);
    // Other bounds than the record has.
    const Called bounds = putByName(dispatch(), "YEPSSeries", numberArray({1, 2}, 0));
    EXPECT_EQ(bounds.result, DISP_E_EXCEPTION);
    EXPECT_FALSE(bounds.told.empty());
    EXPECT_EQ(getByName(dispatch(), "CurrentPrice"), Variant(0.0));
}

// What the model makes of other types is another figure, by the marks of the user.
TEST_F(CompanyObject, TakesNothingForAFigureThatIsNone) {
    struct Row {
        const char* datum;
        Variant given;
        HRESULT result;
        Variant stored;
    };
    for (const LCID locale : {MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT),
                              MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT)}) {
        const LCID usual = GetThreadLocale();
        SetThreadLocale(locale);
        for (const Row& row : std::initializer_list<Row>{
                 {"CurrentPrice", "12,5", DISP_E_TYPEMISMATCH, 3.0},
                 {"CurrentPrice", "12.5", DISP_E_TYPEMISMATCH, 3.0},
                 {"CurrentPrice", true, DISP_E_TYPEMISMATCH, 3.0},
                 {"CurrentPrice", 0.1F, S_OK, 0.1},
                 {"CurrentPrice", std::int32_t{7}, S_OK, 7.0},
                 {"CurrentPrice", Variant(), S_OK, 0.0},
                 {"LastFY", 2025.6, DISP_E_TYPEMISMATCH, std::int16_t{2020}},
                 {"LastFY", 2025.0, S_OK, std::int16_t{2025}},
                 {"LastFYDate", "2025-09-27", DISP_E_TYPEMISMATCH, Date{45000}},
                 {"LastFYDate", 45927.0, S_OK, Date{45927}},
                 {"Symbol", 5.5, DISP_E_TYPEMISMATCH, "ACM"}}) {
            EXPECT_EQ(company->put_CurrentPrice(3), S_OK);
            EXPECT_EQ(company->put_LastFY(2020), S_OK);
            EXPECT_EQ(company->put_LastFYDate(45000), S_OK);
            EXPECT_EQ(company->put_Symbol(Bstr("ACM").get()), S_OK);
            EXPECT_EQ(putByName(dispatch(), row.datum, row.given).result, row.result)
                << row.datum << " " << row.given.toText();
            EXPECT_EQ(getByName(dispatch(), row.datum), row.stored)
                << row.datum << " " << row.given.toText();
        }
        SetThreadLocale(usual);
    }
}

TEST_F(CompanyObject, SaysWhyACallFailedThroughEachOfItsInterfaces) {
    const auto errors = queryFor<ISupportErrorInfo>(company.get());
    ASSERT_TRUE(errors);
    EXPECT_EQ(errors->InterfaceSupportsErrorInfo(__uuidof(::iVKR_Company)), S_OK);
    EXPECT_EQ(errors->InterfaceSupportsErrorInfo(__uuidof(::iVKR_CompanyRecord)), S_OK);
    EXPECT_EQ(errors->InterfaceSupportsErrorInfo(IID_IUnknown), S_FALSE);
    const auto settings = dispatchOf(getByName(dispatch(), "Settings").toObject());
    const Called refused = putByName(settings.get(), "intUnit", "abc");
    EXPECT_EQ(refused.result, DISP_E_EXCEPTION);
    EXPECT_FALSE(refused.told.empty());
}

TEST_F(CompanyObject, SettingsAnswerToTheirNames) {
    const Variant settings = getByName(dispatch(), "Settings");
    ASSERT_TRUE(settings.isObject());
    const auto outside = dispatchOf(settings.toObject());
    EXPECT_EQ(putByName(outside.get(), "intUnit", std::int16_t{9}).result, S_OK);
    EXPECT_EQ(getByName(outside.get(), "INTUNIT").toLong(), 9);
    std::wstring unknown = L"nothing";
    LPOLESTR name = unknown.data();
    DISPID id = 0;
    EXPECT_EQ(outside->GetIDsOfNames(IID_NULL, &name, 1, 0, &id), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(id, DISPID_UNKNOWN);
    EXPECT_EQ(invoke(outside.get(), 77, DISPATCH_PROPERTYGET, {}).result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(CompanyObject, TheReportingPeriodAnswersToItsName) {
    const Variant period = getByName(dispatch(), "ReportingPeriod");
    ASSERT_TRUE(period.isObject());
    const auto outside = dispatchOf(period.toObject());
    EXPECT_EQ(putByName(outside.get(), "intLeadPeriod", std::int16_t{2}).result, S_OK);
    EXPECT_EQ(getByName(outside.get(), "intLeadPeriod").toLong(), 2);
    EXPECT_EQ(getByName(dispatchOf(getByName(dispatch(), "ReportingPeriod").toObject()).get(),
                        "intLeadPeriod")
                  .toLong(),
              2);
}

TEST_F(CompanyObject, ReadsAndWritesItsFiles) {
    const auto folder = std::filesystem::temp_directory_path() / "vkr_automation_test";
    std::filesystem::create_directories(folder);
    EXPECT_EQ(putByName(dispatch(), "Symbol", "ACM").result, S_OK);
    EXPECT_EQ(putByName(dispatch(), "CurrentPrice", 12.25).result, S_OK);
    const Called written = callByName(dispatch(), "WriteCsv", {folder.string()});
    EXPECT_EQ(written.result, S_OK) << written.told;
    const auto other = library.create<IDispatch>(__uuidof(::Company));
    const Called read = callByName(other.get(), "ReadCsv", {folder.string(), "ACM"});
    EXPECT_EQ(read.result, S_OK) << read.told;
    EXPECT_EQ(getByName(other.get(), "CurrentPrice"), Variant(12.25));
    const Called missing = callByName(other.get(), "ReadCsv", {folder.string(), "NONE"});
    EXPECT_EQ(missing.result, DISP_E_EXCEPTION);
    EXPECT_NE(missing.told.find("NONE-company.csv"), std::string::npos) << missing.told;
    EXPECT_EQ(getByName(other.get(), "CurrentPrice"), Variant(12.25));
    std::filesystem::remove_all(folder);
}

TEST_F(CompanyObject, ACloneIsARecordOfItsOwn) {
    company->put_CurrentPrice(3);
    ComPtr<::iVKR_Company> copy;
    ASSERT_EQ(company->Clone(copy.receive()), S_OK);
    company->put_CurrentPrice(4);
    double price = 0;
    copy->get_CurrentPrice(&price);
    EXPECT_EQ(price, 3);
}

TEST_F(CompanyObject, CallsOfAnotherShapeAreRefused) {
    IDispatch* const object = dispatch();
    const DISPID name = idOf(object, "Name");
    OwnedVariant text;
    toVariant("x", text);
    EXPECT_EQ(invoke(object, name, DISPATCH_PROPERTYGET, {text.get(), text.get()}).result,
              DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(invoke(object, 9999, DISPATCH_PROPERTYGET, {}).result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(
        object->Invoke(name, IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, nullptr, nullptr, nullptr),
        E_INVALIDARG);
    DISPPARAMS lying{nullptr, nullptr, 3, 0};
    EXPECT_EQ(
        object->Invoke(name, IID_NULL, 0, DISPATCH_PROPERTYPUT, &lying, nullptr, nullptr, nullptr),
        E_INVALIDARG);
    DISPPARAMS none{};
    EXPECT_EQ(object->Invoke(name, IID_IUnknown, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr,
                             nullptr),
              DISP_E_UNKNOWNINTERFACE);
}

TEST(ServiceObjects, LocalizersGiveTextsAndThePictureOfALink) {
    auto& library = LoadedLibrary::get();
    for (const CLSID& id : {__uuidof(::StandardLocalizer), __uuidof(::ZxLocalizer)}) {
        const auto texts = library.create<::iVKR_Localizer>(id);
        Bstr text;
        EXPECT_EQ(texts->LoadString(613, text.receive()), S_OK);
        EXPECT_EQ(texts->LoadString(613, nullptr), E_POINTER);
        ComPtr<IPictureDisp> picture;
        EXPECT_EQ(texts->LoadPicture(101, 0, picture.receive()), S_OK);
        ASSERT_TRUE(picture);
        EXPECT_TRUE(queryFor<IPicture>(picture.get()));
        EXPECT_EQ(texts->LoadPicture(7, 0, picture.receive()), S_OK);
        EXPECT_FALSE(picture);
    }
}

TEST(ServiceObjects, TheRuleOfTrailingEarningsSumsUpFourQuarters) {
    const auto rule = LoadedLibrary::get().create<IDispatch>(__uuidof(::TrailingEarnings));
    const Called sum =
        callByName(rule.get(), "LastFour",
                   {Date{45382}, Date{45382}, numberArray({1, 2, 3, 4.5, 5}), 0.0, Date{}});
    EXPECT_EQ(sum.result, S_OK) << sum.told;
    EXPECT_EQ(sum.value, Variant(10.5));
    const Called untold =
        callByName(rule.get(), "LastFour", {Date{}, Date{}, numberArray({1}), 0.0, Date{}});
    EXPECT_EQ(untold.result, S_OK);
    EXPECT_TRUE(untold.value.isEmpty());
}

} // namespace
} // namespace vkr::automation
