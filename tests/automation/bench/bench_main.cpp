// SPDX-License-Identifier: MIT
// vkr-automation-bench: what VKRDataEntry.ocx costs beside bare native windows and a bare dispatch
// object, subject and reference in turns. Ends with 1 where a ratio is above its target.
#include "company/company_csv.hpp"
#include "tests/automation/bare_dispatch.hpp"
#include "tests/automation/test_container.hpp"
#include "tests/native/measuring.hpp"
#include "tests/support/entry_scene.hpp"

#include <cstdio>
#include <filesystem>
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

HFONT fontOf(HWND inside) {
    return reinterpret_cast<HFONT>(SendMessageW(GetWindow(inside, GW_CHILD), WM_GETFONT, 0, 0));
}

bool created() {
    const auto site = makeCom<TestSite>();
    const auto company = LoadedLibrary::get().create<::iVKR_Company>(__uuidof(::Company));
    company->put_Name(Bstr("Acme").get());
    Placed first = place(*site.get(), company.get());
    const HWND inside = GetWindow(site->window, GW_CHILD);
    const auto list = windowsIn(inside);
    LOGFONTW look{};
    GetObjectW(fontOf(inside), sizeof look, &look);
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

// A record of the library with everything in it.
ComPtr<::iVKR_Company> fullRecord() {
    const auto record = LoadedLibrary::get().create<::iVKR_CompanyRecord>(__uuidof(::Company));
    const auto company = fullCompany();
    const auto folder = std::filesystem::temp_directory_path() / "vkr_bench";
    std::filesystem::create_directories(folder);
    if (!exportCompany(*company, folder).error.empty() ||
        record->ReadCsv(Bstr(folder.string()).get(), Bstr(csvPrefix(*company)).get()) != S_OK)
        std::abort();
    std::filesystem::remove_all(folder);
    return queryFor<::iVKR_Company>(record.get());
}

// Through the control's interface. Texts that a load changes, and nothing else, are set on the bare
// controls. Both are painted as far as the system finds that they have to be.
bool loaded() {
    const auto site = makeCom<TestSite>();
    const auto company = fullRecord();
    const auto other = LoadedLibrary::get().create<::iVKR_Company>(__uuidof(::Company));
    Placed placed = place(*site.get(), other.get());
    const HWND inside = GetWindow(site->window, GW_CHILD);
    const auto load = [&](const ComPtr<::iVKR_Company>& one) {
        if (placed.control->putref_objCompany(one.get()) != S_OK)
            std::abort();
        UpdateWindow(site->window);
    };
    load(company);
    const auto list = windowsIn(inside);
    load(other);
    const auto before = windowsIn(inside);
    LOGFONTW look{};
    GetObjectW(fontOf(inside), sizeof look, &look);
    const HFONT font = CreateFontIndirectW(&look);
    const HWND stage = makeStage();
    const auto bare = makeBare(stage, list, font);
    const auto set = [&](const std::vector<Bare>& texts) {
        for (std::size_t i = 0; i < bare.size(); ++i)
            if (before[i].text != list[i].text)
                SetWindowTextW(bare[i], texts[i].text.c_str());
        UpdateWindow(stage);
    };
    const auto alternating = [](const auto& undo, const auto& work) {
        return [=] {
            undo();
            return timeOf(work);
        };
    };
    const auto loads = [&] { load(company); };
    const auto sets = [&] { set(list); };
    Ratio ratio(alternating([&] { load(other); }, loads), alternating([&] { set(before); }, sets),
                15);
    bool reached = ratio.reaches("a company loaded and painted", 1.15);
    load(other);
    set(before);
    const int subject = messagesOf(loads);
    const int reference = messagesOf(sets);
    std::printf("messages sent to windows by it: %d against %d\n", subject, reference);
    reached = reached && subject <= reference * 1.1;
    DestroyWindow(stage);
    DeleteObject(font);
    placed.close();
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
    const bool all[] = {created(), loaded(), read()};
    return all[0] && all[1] && all[2] ? 0 : 1;
}
