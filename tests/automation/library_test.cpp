// SPDX-License-Identifier: MIT
// The library as it is loaded and unloaded.
#include "tests/automation/held.hpp"
#include "tests/automation/test_container.hpp"

#include <filesystem>

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
    struct Lived {
        std::wstring kind; // of its window
        int labels = 0;
    };
    // A control with a record, shown and taken away.
    static Lived live(const LoadedLibrary& copy) {
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
        const int labels = labelsIn(window);
        EXPECT_EQ(copy.canUnload(), S_FALSE);
        EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
        EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
        site->frame->active.reset();
        return {kind, labels};
    }
};

struct Kept {
    double handles = 0;
    double blocks = 0;
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
    for (int round = 0; round < 3; ++round) {
        SCOPED_TRACE(round);
        const LoadedLibrary copy(path);
        const std::wstring kind = live(copy).kind;
        turn();
        ASSERT_TRUE(isRegistered(copy.module(), kind.c_str()));
        ASSERT_EQ(copy.canUnload(), S_OK);
        ASSERT_NE(FreeLibrary(copy.module()), FALSE);
        ASSERT_EQ(GetModuleHandleW(path.filename().c_str()), nullptr) << "it is still there";
        for (const wchar_t* const one :
             {kind.c_str(), L"VKRDataEntryFrame", L"VKRDataEntryDialog", L"VKRDataEntryLater"})
            EXPECT_FALSE(isRegistered(copy.module(), one));
    }
}

// What a library keeps that comes and goes: of a round, from the third on.
template <typename Round>
Kept keptOf(Round&& round) {
    constexpr int rounds = 12;
    for (int first = 0; first < 3; ++first) // what the system makes once
        round();
    const Held start;
    for (int next = 0; next < rounds; ++next)
        round();
    const Held end;
    const auto grown = [](auto before, auto after) {
        return (static_cast<double>(after) - static_cast<double>(before)) / rounds;
    };
    EXPECT_EQ(end.windows, start.windows);
    EXPECT_EQ(end.gdi, start.gdi);
    EXPECT_EQ(end.tables, start.tables);
    return {grown(start.handles, end.handles), grown(start.blocks, end.blocks)};
}

// The runtime that the compiler puts into a library keeps the handles of the thread and a reserve
// for exceptions, whichever library it is in.
TEST_F(Library, KeepsNoMoreThanTheRuntimeWithinItWhenItComesAndGoes) {
    const std::wstring bare =
        std::filesystem::path(library.path()).replace_filename(L"VKRBareLibrary.dll").wstring();
    const Kept runtime = keptOf([&] {
        const HMODULE module = LoadLibraryW(bare.c_str());
        ASSERT_NE(module, nullptr);
        ASSERT_NE(FreeLibrary(module), FALSE);
    });
    int labels = 0;
    const Kept own = keptOf([&] {
        const LoadedLibrary copy(path);
        labels = live(copy).labels;
        turn();
        ASSERT_EQ(copy.canUnload(), S_OK);
        ASSERT_NE(FreeLibrary(copy.module()), FALSE);
    });
    EXPECT_EQ(own.handles, runtime.handles);
    constexpr double used = 1.5; // one, of what the runtime has that the other library does not use
    EXPECT_LE(own.blocks, runtime.blocks + labels + used);
    std::printf("kept of a round: handles %.1f, of the runtime %.1f; blocks %.1f, %.1f of the "
                "runtime and %d of labels\n",
                own.handles, runtime.handles, own.blocks, runtime.blocks, labels);
}

} // namespace
} // namespace vkr::automation
