// SPDX-License-Identifier: MIT
// What registering writes, read back; and what is left when it is taken back.
#include "tests/automation/loaded_library.hpp"
#include "tests/automation/type_info.hpp"

#include <sstream>
#include <thread>

namespace vkr::automation {
namespace {

std::wstring idText(REFGUID id) {
    wchar_t text[40] = {};
    StringFromGUID2(id, text, 40);
    return text;
}

// With the digits of 16.
std::wstring versionOf(ITypeLib* types) {
    TLIBATTR* attributes = nullptr;
    EXPECT_EQ(types->GetLibAttr(&attributes), S_OK);
    std::wstringstream version;
    version << std::hex << attributes->wMajorVerNum << L'.' << attributes->wMinorVerNum;
    types->ReleaseTLibAttr(attributes);
    return version.str();
}

struct Registration : testing::TestWithParam<const wchar_t*> {
    LoadedLibrary& library = LoadedLibrary::get();
    HKEY root = std::wstring_view(GetParam()) == L"user" ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;

    HKEY shared = nullptr; // given back with the process

    [[nodiscard]] HRESULT install(bool wanted) const {
        using Install = HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR);
        return reinterpret_cast<Install>(reinterpret_cast<void*>(library.function("DllInstall")))(
            wanted ? TRUE : FALSE, GetParam());
    }
    [[nodiscard]] std::wstring value(const std::wstring& key, const wchar_t* name = nullptr) const {
        wchar_t text[500] = {};
        DWORD size = sizeof text;
        const LSTATUS read = RegGetValueW(root, (L"Software\\Classes\\" + key).c_str(), name,
                                          RRF_RT_REG_SZ, nullptr, text, &size);
        return read == ERROR_SUCCESS ? text : L"(none)";
    }
    // Every key and value below, as text.
    [[nodiscard]] std::wstring dump(const std::wstring& key) const {
        HKEY open = nullptr;
        if (RegOpenKeyExW(root, key.c_str(), 0, KEY_READ, &open) != ERROR_SUCCESS)
            return {};
        std::wstring all = key + L"\n";
        std::vector<std::wstring> names;
        wchar_t name[300];
        for (DWORD i = 0, length = 300; RegEnumKeyExW(open, i, name, &length, nullptr, nullptr,
                                                      nullptr, nullptr) == ERROR_SUCCESS;
             ++i, length = 300)
            names.emplace_back(name);
        BYTE data[500];
        DWORD type = 0;
        DWORD size = sizeof data;
        for (DWORD i = 0, length = 300;
             RegEnumValueW(open, i, name, &length, nullptr, &type, data, &size) == ERROR_SUCCESS;
             ++i, length = 300, size = sizeof data) {
            all += std::wstring(name) + L"=" + std::to_wstring(type) + L":";
            for (DWORD byte = 0; byte < size; ++byte)
                all += static_cast<wchar_t>(data[byte]);
            all += L"\n";
        }
        RegCloseKey(open);
        for (const std::wstring& one : names)
            all += dump(key + L"\\" + one);
        return all;
    }
};

TEST_P(Registration, WritesEveryKeyAndTakesAllOfThemAway) {
    for (const wchar_t* const common : {L"CLSID", L"Interface", L"TypeLib"}) // everybody's
        RegCreateKeyW(root, (std::wstring(L"Software\\Classes\\") + common).c_str(), &shared);
    EXPECT_EQ(install(false), S_OK); // whatever was there
    const std::wstring before = dump(L"Software\\Classes");
    ASSERT_EQ(install(true), S_OK);
    ASSERT_EQ(install(true), S_OK); // again
    const std::wstring id = idText(__uuidof(::VKRDataEntry));
    EXPECT_EQ(value(L"VKR_DataEntry.VKRDataEntry\\CLSID"), id);
    EXPECT_EQ(value(L"VKR_DataEntry.VKRDataEntry\\CurVer"), L"VKR_DataEntry.VKRDataEntry.1");
    EXPECT_EQ(value(L"CLSID\\" + id + L"\\InprocServer32"), library.path());
    EXPECT_EQ(value(L"CLSID\\" + id + L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
    EXPECT_EQ(value(L"CLSID\\" + id + L"\\Control"), L"");
    EXPECT_EQ(value(L"CLSID\\" + id + L"\\MiscStatus\\1"), L"131473");
    EXPECT_EQ(value(L"CLSID\\" + id + L"\\ToolboxBitmap32"), library.path() + L", 1");
    for (const wchar_t* const name : {L"VKR_Company.Company", L"VKR_Company.TrailingEarnings",
                                      L"iVKR_DataEntry.Localizer", L"iVKR_ZX_DataEntry.Localizer"})
        EXPECT_NE(value(std::wstring(name) + L"\\CLSID"), L"(none)") << textOf(name);
    const std::wstring record = L"Interface\\" + idText(__uuidof(::iVKR_Company));
    EXPECT_EQ(value(record), L"iVKR_Company");
    EXPECT_EQ(value(record + L"\\ProxyStubClsid32"), L"{00020424-0000-0000-C000-000000000046}");
    const std::wstring typeLibrary = value(record + L"\\TypeLib");
    const std::wstring version = value(record + L"\\TypeLib", L"Version");
    EXPECT_EQ(version, versionOf(libraryAt(2).get()));
    EXPECT_EQ(value(L"TypeLib\\" + typeLibrary + L"\\" + version + L"\\0\\win64"),
              library.path() + L"\\2");
    ASSERT_EQ(install(false), S_OK);
    EXPECT_EQ(install(false), S_OK); // again
    EXPECT_EQ(dump(L"Software\\Classes"), before);
}

TEST_P(Registration, NamesTheTypeLibraryOfEachClass) {
    ASSERT_EQ(install(true), S_OK);
    const auto described = [this](const wchar_t* kind, REFGUID id) {
        return value(kind + (L"\\" + idText(id)) + L"\\TypeLib");
    };
    EXPECT_EQ(described(L"CLSID", __uuidof(::VKRDataEntry)),
              described(L"Interface", __uuidof(::_VKRDataEntry)));
    EXPECT_EQ(described(L"CLSID", __uuidof(::StandardLocalizer)),
              described(L"Interface", __uuidof(::iVKR_Localizer)));
    EXPECT_EQ(described(L"CLSID", __uuidof(::Company)),
              described(L"Interface", __uuidof(::iVKR_CompanyRecord)));
    EXPECT_EQ(install(false), S_OK);
}

TEST_P(Registration, LeavesSomebodyElsesIdentifierAlone) {
    ASSERT_EQ(install(true), S_OK);
    const wchar_t* const key = L"Software\\Classes\\iVKR_DataEntry.Localizer\\CLSID";
    const std::wstring other = L"{94a87303-defb-4ed3-b42b-ab8bc2648e13}";
    ASSERT_EQ(RegSetKeyValueW(root, key, nullptr, REG_SZ, other.c_str(),
                              static_cast<DWORD>((other.size() + 1) * sizeof(wchar_t))),
              ERROR_SUCCESS);
    EXPECT_EQ(install(false), S_OK);
    EXPECT_EQ(value(L"iVKR_DataEntry.Localizer\\CLSID"), other);
    RegDeleteTreeW(root, L"Software\\Classes\\iVKR_DataEntry.Localizer");
}

// Programs of 32 and of 64 bit find their library by the same identifiers and type libraries.
TEST_P(Registration, LeavesWhatTheLibraryForTheOtherBitnessNeeds) {
    ASSERT_EQ(install(true), S_OK);
    const std::wstring id = idText(__uuidof(::VKRDataEntry));
    const std::wstring typeLibrary = L"TypeLib\\" + value(L"CLSID\\" + id + L"\\TypeLib");
    const std::wstring own =
        typeLibrary + L"\\1.0\\0\\" + (sizeof(void*) == 8 ? L"win64" : L"win32");
    const std::wstring other =
        typeLibrary + L"\\1.0\\0\\" + (sizeof(void*) == 8 ? L"win32" : L"win64");
    const std::wstring classes = L"Software\\Classes\\";
    ASSERT_EQ(RegSetKeyValueW(root, (classes + other).c_str(), nullptr, REG_SZ, L"C:\\", 8),
              ERROR_SUCCESS);
    EXPECT_EQ(install(false), S_OK);
    EXPECT_EQ(value(L"CLSID\\" + id + L"\\InprocServer32"), L"(none)");
    EXPECT_EQ(value(own), L"(none)");
    EXPECT_EQ(value(other), L"C:\\");
    EXPECT_EQ(value(L"VKR_DataEntry.VKRDataEntry\\CLSID"), id);
    EXPECT_EQ(RegDeleteTreeW(root, (classes + other).c_str()), ERROR_SUCCESS);
    EXPECT_EQ(install(false), S_OK);
    EXPECT_EQ(value(typeLibrary + L"\\1.0"), L"(none)");
    EXPECT_EQ(value(L"VKR_DataEntry.VKRDataEntry\\CLSID"), L"(none)");
}

TEST(ToolboxPicture, IsInTheLibrary) {
    const HMODULE module = GetModuleHandleW(LoadedLibrary::get().path().c_str());
    const auto picture = static_cast<HBITMAP>(
        LoadImageW(module, MAKEINTRESOURCEW(1), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
    ASSERT_NE(picture, nullptr);
    BITMAP look{};
    GetObjectW(picture, sizeof look, &look);
    EXPECT_EQ(look.bmWidth, 16);
    EXPECT_EQ(look.bmHeight, 16);
    DeleteObject(picture);
}

// The interfaces are marshalled by the type libraries that are registered.
TEST(RegistrationForTheMachine, LetsAnotherApartmentCallTheInterfaces) {
    using Install = HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR);
    const auto install = reinterpret_cast<Install>(
        reinterpret_cast<void*>(LoadedLibrary::get().function("DllInstall")));
    ASSERT_EQ(install(TRUE, L"machine"), S_OK);
    HRESULT read = E_FAIL;
    HRESULT given = E_FAIL;
    SHORT rows = 0;
    std::string name;
    std::thread([&] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        {
            ComPtr<::_VKRDataEntry> control;
            ComPtr<::iVKR_Company> company;
            CoCreateInstance(__uuidof(::VKRDataEntry), nullptr, CLSCTX_INPROC_SERVER,
                             __uuidof(::_VKRDataEntry), control.receiveAny());
            CoCreateInstance(__uuidof(::Company), nullptr, CLSCTX_INPROC_SERVER,
                             __uuidof(::iVKR_Company), company.receiveAny());
            if (control && company) {
                read = control->get_VisibleQuarters(&rows);
                company->put_Name(Bstr("Acme").get());
                given = control->putref_objCompany(company.get());
                ComPtr<::iVKR_Company> back;
                Bstr told;
                if (SUCCEEDED(control->get_objCompany(back.receive())) && back &&
                    SUCCEEDED(back->get_Name(told.receive())))
                    name = textOf(told.get());
            }
        }
        CoUninitialize();
    }).join();
    EXPECT_EQ(install(FALSE, L"machine"), S_OK);
    EXPECT_EQ(read, S_OK);
    EXPECT_EQ(rows, 9);
    EXPECT_EQ(given, S_OK);
    EXPECT_EQ(name, "Acme");
}

INSTANTIATE_TEST_SUITE_P(ForWhom, Registration, testing::Values(L"user", L"machine"),
                         [](const auto& whom) { return textOf(whom.param); });

TEST(RegistrationCommand, AnotherIsRefused) {
    using Install = HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR);
    const auto install = reinterpret_cast<Install>(
        reinterpret_cast<void*>(LoadedLibrary::get().function("DllInstall")));
    EXPECT_EQ(install(TRUE, L"everybody"), E_INVALIDARG);
}

} // namespace
} // namespace vkr::automation
