// SPDX-License-Identifier: MIT
// The library as it is loaded and unloaded.
#include "tests/automation/held.hpp"
#include "tests/automation/test_container.hpp"

#include <filesystem>
#include <vector>

namespace vkr::automation {
namespace {

// A copy of the library: the tests keep the one beside them to the end.
struct Library : WithLibrary {
    std::filesystem::path path = std::filesystem::temp_directory_path() / "VKRDataEntryCopy.ocx";

    Library() {
        std::filesystem::copy_file(library.path(), path,
                                   std::filesystem::copy_options::overwrite_existing);
    }
    ~Library() override {
        std::error_code stillLoaded;
        std::filesystem::remove(path, stillLoaded);
        EXPECT_FALSE(stillLoaded) << stillLoaded.message();
    }
    static bool isRegistered(HMODULE module, const wchar_t* name) {
        WNDCLASSEXW found{};
        found.cbSize = sizeof found;
        return GetClassInfoExW(module, name, &found) != FALSE;
    }
    // A control with a record, shown and taken away; what its window is.
    static std::wstring live(const LoadedLibrary& copy) {
        const auto site = makeCom<TestSite>();
        const auto company = copy.create<::iVKR_Company>(__uuidof(::Company));
        const auto control = copy.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
        const auto object = queryFor<IOleObject>(control.get());
        EXPECT_EQ(object->SetClientSite(site.get()), S_OK);
        EXPECT_EQ(control->putref_objCompany(company.get()), S_OK);
        EXPECT_EQ(object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr), S_OK);
        turn();
        HWND window = nullptr;
        EXPECT_EQ(queryFor<IOleInPlaceObject>(control.get())->GetWindow(&window), S_OK);
        wchar_t kind[100] = {};
        GetClassNameW(window, kind, 100);
        EXPECT_EQ(copy.canUnload(), S_FALSE);
        EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
        EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
        site->frame->active.reset();
        return kind;
    }
};

TEST_F(Library, CanBeUnloadedOnceNothingOfItIsHeld) {
    const LoadedLibrary copy(path);
    EXPECT_EQ(copy.canUnload(), S_OK);
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(copy.classObject(__uuidof(::Company), IID_IClassFactory, factory.receiveAny()), S_OK);
    EXPECT_EQ(copy.canUnload(), S_FALSE);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    factory.reset();
    EXPECT_EQ(copy.canUnload(), S_FALSE);
    ASSERT_EQ(copy.classObject(__uuidof(::Company), IID_IClassFactory, factory.receiveAny()), S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    factory.reset();
    EXPECT_EQ(copy.canUnload(), S_OK);
    live(copy);
    turn();
    EXPECT_EQ(copy.canUnload(), S_OK);
    EXPECT_NE(FreeLibrary(copy.module()), FALSE);
}

TEST_F(Library, TakesItsWindowClassesWithIt) {
    constexpr int rounds = 20;
    std::vector<Held> levels;
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE(round);
        const LoadedLibrary copy(path);
        const std::wstring kind = live(copy);
        turn();
        ASSERT_TRUE(isRegistered(copy.module(), kind.c_str()));
        ASSERT_EQ(copy.canUnload(), S_OK);
        ASSERT_NE(FreeLibrary(copy.module()), FALSE);
        ASSERT_EQ(GetModuleHandleW(path.filename().c_str()), nullptr) << "it is still there";
        for (const wchar_t* const one :
             {kind.c_str(), L"VKRDataEntryFrame", L"VKRDataEntryDialog", L"VKRDataEntryLater"})
            EXPECT_FALSE(isRegistered(copy.module(), one));
        levels.emplace_back();
    }
    const Held& first = levels[2]; // what the system itself makes once is there
    const Held& last = levels.back();
    EXPECT_EQ(last.windows, first.windows);
    EXPECT_EQ(last.gdi, first.gdi);
    EXPECT_EQ(last.tables, first.tables);
    // What a round keeps, measured under Wine and not traced to its owner; it is not to become
    // more.
    constexpr int counted = rounds - 3;
    constexpr int handles = 4;
    constexpr int blocks = 58;
    EXPECT_LE(last.handles, first.handles + counted * handles);
    EXPECT_LE(last.blocks, first.blocks + counted * blocks);
}

} // namespace
} // namespace vkr::automation
