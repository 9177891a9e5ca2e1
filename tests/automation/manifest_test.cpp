// SPDX-License-Identifier: MIT
// The control without registration, by the manifest beside it.
#include "tests/automation/loaded_library.hpp"

#include <thread>

namespace vkr::automation {
namespace {

// Not WithLibrary: the apartment that the system makes for the control keeps its class factory.
class Manifest : public testing::Test {
  public:
    Manifest() {
        ACTCTXW wanted{};
        wanted.cbSize = sizeof wanted;
        std::wstring path = LoadedLibrary::get().path();
        path.replace(path.rfind(L'.'), std::wstring::npos, L".manifest");
        wanted.lpSource = path.c_str();
        context_ = CreateActCtxW(&wanted);
        EXPECT_NE(context_, INVALID_HANDLE_VALUE) << GetLastError();
    }
    ~Manifest() override { ReleaseActCtx(context_); }

  protected:
    // What a program finds whose own manifest names the assembly.
    template <typename Work>
    void within(Work&& work) const {
        ULONG_PTR cookie = 0;
        ASSERT_NE(ActivateActCtx(context_, &cookie), FALSE);
        work();
        DeactivateActCtx(0, cookie);
    }

  private:
    HANDLE context_;
};

TEST_F(Manifest, LeadsFromEveryIdentifierToItsClass) {
    struct Row {
        const wchar_t* identifier;
        IID id; // what tells the class
    };
    const Row rows[] = {{L"VKR_DataEntry.VKRDataEntry", __uuidof(::_VKRDataEntry)},
                        {L"VKR_DataEntry.VKRDataEntry.1", __uuidof(::_VKRDataEntry)},
                        {L"VKR_Company.Company", __uuidof(::iVKR_CompanyRecord)},
                        {L"VKR_Company.TrailingEarnings", __uuidof(::iVKR_TrailingEarnings)},
                        {L"iVKR_DataEntry.Localizer", __uuidof(::iVKR_Localizer)},
                        {L"iVKR_ZX_DataEntry.Localizer", __uuidof(::iVKR_Localizer)}};
    for (const Row& row : rows) {
        CLSID found{};
        EXPECT_TRUE(FAILED(CLSIDFromProgID(row.identifier, &found))) << textOf(row.identifier);
        within([&] {
            EXPECT_EQ(CLSIDFromProgID(row.identifier, &found), S_OK) << textOf(row.identifier);
            ComPtr<IUnknown> object;
            EXPECT_EQ(
                CoCreateInstance(found, nullptr, CLSCTX_INPROC_SERVER, row.id, object.receiveAny()),
                S_OK)
                << textOf(row.identifier);
        });
    }
}

TEST_F(Manifest, LetsAnotherApartmentCallByName) {
    std::int32_t rows = 0;
    std::thread([&] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        within([&] {
            ComPtr<IDispatch> control;
            if (SUCCEEDED(CoCreateInstance(__uuidof(::VKRDataEntry), nullptr, CLSCTX_INPROC_SERVER,
                                           IID_IDispatch, control.receiveAny())))
                rows = getByName(control.get(), "VisibleQuarters").toLong();
        });
        CoUninitialize();
    }).join();
    EXPECT_EQ(rows, 9);
}

} // namespace
} // namespace vkr::automation
