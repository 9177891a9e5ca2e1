// SPDX-License-Identifier: MIT
// What somebody else has registered under an identifier of the component's is taken.
#include "localizer/localizer.hpp"
#include "tests/automation/control_fixture.hpp"
#include "tests/automation/scripted_objects.hpp"

#include <algorithm>
#include <vector>

namespace vkr::automation {
namespace {

// Makes one object, for everybody who asks.
class OneObject final : public ComObject<IClassFactory> {
  public:
    explicit OneObject(ComPtr<ScriptedObject> object) : object_(std::move(object)) {}
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* /*outer*/, REFIID id, void** made) override {
        ++asked;
        return object_->QueryInterface(id, made);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL /*lock*/) override { return S_OK; }
    int asked = 0;

  private:
    ComPtr<ScriptedObject> object_;
};

struct ForeignServices : Control {
    static constexpr wchar_t id[] = L"{6d6d7c1e-51a8-4b43-9b2b-4a40b7f8a0c1}";
    ComPtr<ScriptedObject> object = makeCom<ScriptedObject>();
    ComPtr<OneObject> factory = makeCom<OneObject>(object);
    std::wstring key;
    DWORD cookie = 0;

    void registerUnder(std::string_view programmaticId) {
        key = L"Software\\Classes\\" + wideOf(programmaticId);
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, key.c_str());
        ASSERT_EQ(RegSetKeyValueW(HKEY_LOCAL_MACHINE, (key + L"\\CLSID").c_str(), nullptr, REG_SZ,
                                  id, sizeof id),
                  ERROR_SUCCESS);
        CLSID own{};
        ASSERT_EQ(CLSIDFromString(id, &own), S_OK);
        CLSID found{};
        ASSERT_EQ(CLSIDFromProgID(wideOf(programmaticId).c_str(), &found), S_OK);
        ASSERT_TRUE(IsEqualGUID(found, own));
        ASSERT_EQ(CoRegisterClassObject(own, factory.get(), CLSCTX_INPROC_SERVER,
                                        REGCLS_MULTIPLEUSE, &cookie),
                  S_OK);
        control = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
    }
    ~ForeignServices() override {
        CoRevokeClassObject(cookie);
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, key.c_str());
    }
};

TEST_F(ForeignServices, ALocalizerGivesTheCaptions) {
    object->values["LoadString"] = "Translated";
    registerUnder(standardLocalizerId);
    const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
    EXPECT_EQ(as<IPersistStreamInit>()->InitNew(), S_OK);
    open(company.get());
    EXPECT_GE(factory->asked, 1);
    EXPECT_GT(std::ranges::count(texts(), L"Translated"), 10);
    takeAway();
}

TEST_F(ForeignServices, ALocalizerThatFailsLeavesTheControlAtWork) {
    object->failing = {{"LoadString", E_FAIL}, {"LoadPicture", E_FAIL}};
    registerUnder(standardLocalizerId);
    const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
    EXPECT_EQ(company->put_Name(Bstr("Acme").get()), S_OK);
    EXPECT_EQ(as<IPersistStreamInit>()->InitNew(), S_OK);
    open(company.get());
    EXPECT_GE(factory->asked, 1);
    EXPECT_EQ(std::ranges::count(texts(), L"Acme"), 1);
    takeAway();
}

TEST_F(ForeignServices, ARuleOfTheTrailingEarningsIsAsked) {
    object->values["LastFour"] = 77.25;
    registerUnder("VKR_Company.TrailingEarnings");
    const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
    EXPECT_EQ(putByName(company.get(), "LastQDate", Date{45382}).result, S_OK);
    EXPECT_EQ(
        putByName(company.get(), "QEPSSeries", numberArray(std::vector<double>(35, 1), 0)).result,
        S_OK);
    open(company.get());
    EXPECT_EQ(control->put_CurrentTab(::toYearly), S_OK);
    EXPECT_GE(factory->asked, 1);
    EXPECT_EQ(std::ranges::count(texts(), L"77.25"), 1);
    takeAway();
}

} // namespace
} // namespace vkr::automation
