// SPDX-License-Identifier: MIT
// vkr-automation-bench: what VKRDataEntry.ocx costs beside bare native windows and a bare dispatch
// object, subject and reference in turns. Ends with 1 where a ratio is above its target.
#include "tests/automation/bare_dispatch.hpp"
#include "tests/automation/test_container.hpp"
#include "tests/native/measuring.hpp"

#include <cstdio>
#include <vector>

namespace vkr::automation {
namespace {

struct Placed {
    ComPtr<::_VKRDataEntry> control;
    ComPtr<IOleObject> object;

    void close() {
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
        object.reset();
        control.reset();
        WithLibrary::turn();
    }
};

// As containers do it, to the first picture.
Placed place(TestSite& site, ::iVKR_Company* company) {
    Placed placed;
    placed.control = LoadedLibrary::get().create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
    placed.object = queryFor<IOleObject>(placed.control.get());
    placed.object->SetClientSite(&site);
    queryFor<IPersistStreamInit>(placed.control.get())->InitNew();
    placed.control->putref_objCompany(company);
    placed.object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
    paintAll(site.window);
    return placed;
}

bool created() {
    const auto site = makeCom<TestSite>();
    const auto company = LoadedLibrary::get().create<::iVKR_Company>(__uuidof(::Company));
    company->put_Name(Bstr("Acme").get());
    Placed first = place(*site.get(), company.get());
    const HWND inside = GetWindow(site->window, GW_CHILD);
    const auto list = windowsIn(inside);
    LOGFONTW look{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(GetWindow(inside, GW_CHILD), WM_GETFONT, 0, 0)),
               sizeof look, &look);
    const HFONT font = CreateFontIndirectW(&look);
    first.close();
    std::printf("%zu windows\n", list.size());
    const HWND stage = makeStage();
    Ratio ratio(
        [&] {
            Placed placed;
            const double time = timeOf([&] { placed = place(*site.get(), company.get()); });
            placed.close();
            return time;
        },
        [&] {
            HWND around = nullptr;
            const double time = timeOf([&] {
                around = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN,
                                         0, 0, 540, 390, stage, nullptr, nullptr, nullptr);
                makeBare(around, list, font);
                paintAll(stage);
            });
            DestroyWindow(around);
            return time;
        },
        3);
    const bool reached = ratio.reaches("control created, activated and painted", 1.3);
    DestroyWindow(stage);
    DeleteObject(font);
    return reached;
}

// By its name, as scripts do it.
double readOften(IDispatch* object) {
    constexpr int reads = 20000;
    return timeOf([&] {
        wchar_t name[] = L"VisibleQuarters";
        LPOLESTR names = name;
        for (int i = 0; i < reads; ++i) {
            DISPID id = 0;
            object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
            DISPPARAMS none{};
            OwnedVariant value;
            object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                           value.receive(), nullptr, nullptr);
            if (V_I2(&value.get()) != 9)
                std::abort();
        }
    });
}

bool read() {
    const auto control = LoadedLibrary::get().create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
    ComPtr<ITypeInfo> info;
    control->GetTypeInfo(0, 0, info.receive());
    const auto bare = makeCom<BareDispatch>(info);
    Ratio ratio([&] { return readOften(control.get()); }, [&] { return readOften(bare.get()); }, 3);
    return ratio.reaches("a property read late bound", 1.5);
}

} // namespace
} // namespace vkr::automation

int main() {
    using namespace vkr::automation;
    const bool both[] = {created(), read()};
    return both[0] && both[1] ? 0 : 1;
}
