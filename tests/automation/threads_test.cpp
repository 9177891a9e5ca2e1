// SPDX-License-Identifier: MIT
// Apartments: each instance belongs to the thread that it was made on, main or any other.
#include "tests/automation/test_container.hpp"

#include <functional>
#include <future>
#include <thread>

namespace vkr::automation {
namespace {

struct Threads : WithLibrary {};

// Runs on a thread that is an apartment of its own.
template <typename Work>
auto inApartment(DWORD kind, Work work) {
    return std::async(std::launch::async, [kind, work = std::move(work)] {
        CoInitializeEx(nullptr, kind);
        struct End {
            ~End() { CoUninitialize(); }
        } const end;
        return work();
    });
}

struct Lived {
    std::string name;
    LONG tab = 0;
    bool shown = false;
    HRESULT worst = S_OK;
};

// A whole life of a control: created, given a record, on show, edited by name, closed.
Lived live(const std::string& name) {
    Lived lived;
    const auto check = [&](HRESULT result) {
        if (FAILED(result))
            lived.worst = result;
    };
    const LoadedLibrary& library = LoadedLibrary::get();
    const auto site = makeCom<TestSite>();
    {
        const auto control = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
        const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
        const auto object = queryFor<IOleObject>(control.get());
        check(company->put_Name(Bstr(name).get()));
        check(object->SetClientSite(site.get()));
        site->control = queryFor<IOleInPlaceObject>(control.get());
        check(object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr));
        for (int round = 0; round < 4; ++round) {
            check(control->putref_objCompany(company.get()));
            for (int tab = 0; tab < 5; ++tab) {
                check(control->SetNext());
                WithLibrary::turn();
            }
        }
        check(control->SetNext());
        ::TABObject tab{};
        check(control->get_CurrentTab(&tab));
        lived.tab = static_cast<LONG>(tab);
        HWND window = nullptr;
        check(site->control->GetWindow(&window));
        lived.shown = IsWindowVisible(window) != FALSE;
        ComPtr<::iVKR_Company> back;
        check(control->get_objCompany(back.receive()));
        Bstr told;
        check(back->get_Name(told.receive()));
        lived.name = textOf(told.get());
        site->control.reset();
        check(object->Close(OLECLOSE_NOSAVE));
        check(object->SetClientSite(nullptr));
    }
    WithLibrary::turn();
    return lived;
}

void expectWhole(const Lived& lived, const std::string& name) {
    EXPECT_EQ(lived.worst, S_OK);
    EXPECT_EQ(lived.name, name);
    EXPECT_EQ(lived.tab, 2); // five times round, and one on
    EXPECT_TRUE(lived.shown);
}

TEST_F(Threads, AControlLivesOnAnyThread) {
    expectWhole(inApartment(COINIT_APARTMENTTHREADED, [] { return live("Other"); }).get(), "Other");
    expectWhole(live("Main"), "Main");
}

TEST_F(Threads, ControlsInTwoApartmentsDoNotMeet) {
    auto first = inApartment(COINIT_APARTMENTTHREADED, [] { return live("First"); });
    auto second = inApartment(COINIT_APARTMENTTHREADED, [] { return live("Second"); });
    expectWhole(live("Main"), "Main");
    expectWhole(first.get(), "First");
    expectWhole(second.get(), "Second");
}

TEST_F(Threads, WhoComesFromAnotherApartmentWithoutAProxyIsRefused) {
    const auto control = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
    const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
    EXPECT_EQ(company->put_Name(Bstr("Acme").get()), S_OK);
    const DISPID member = idOf(control.get(), "VisibleQuarters");
    for (const DWORD kind : {COINIT_APARTMENTTHREADED, COINIT_MULTITHREADED}) {
        const auto results =
            inApartment(kind, [&] {
                SHORT rows = 7;
                BSTR name = nullptr;
                const HRESULT read = control->get_VisibleQuarters(&rows);
                const HRESULT late = invoke(control.get(), member, DISPATCH_PROPERTYGET, {}).result;
                const HRESULT text = company->get_Name(&name);
                const auto own =
                    LoadedLibrary::get().create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
                const HRESULT handed = own->putref_objCompany(company.get());
                SIZEL size{};
                const HRESULT extent =
                    queryFor<IOleObject>(control.get())->GetExtent(DVASPECT_CONTENT, &size);
                return std::vector<HRESULT>{read,   late, text,           handed,
                                            extent, rows, name == nullptr};
            }).get();
        const std::vector<HRESULT> refused(5, RPC_E_WRONG_THREAD);
        EXPECT_EQ(std::vector(results.begin(), results.begin() + 5), refused);
        EXPECT_EQ(results[5], 0) << "the answer is cleared";
        EXPECT_EQ(results[6], 1);
    }
    Bstr name;
    EXPECT_EQ(company->get_Name(name.receive()), S_OK);
    EXPECT_EQ(textOf(name.get()), "Acme");
}

TEST_F(Threads, AProxyLeadsToTheControlFromAnotherApartment) {
    const auto control = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
    ComPtr<IStream> passed;
    ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(IID_IDispatch, control.get(), passed.receive()),
              S_OK);
    auto told = inApartment(COINIT_MULTITHREADED, [stream = passed.detach()] {
        ComPtr<IDispatch> proxy;
        if (FAILED(CoGetInterfaceAndReleaseStream(stream, IID_IDispatch, proxy.receiveAny())))
            return 0L;
        return long{getByName(proxy.get(), "VisibleQuarters").toLong()};
    });
    while (told.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready)
        turn();
    EXPECT_EQ(told.get(), 9);
}

TEST_F(Threads, AControlThatIsReleasedLastOnAnotherThreadIsDestroyedOnItsOwn) {
    const auto site = makeCom<TestSite>();
    auto control = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
    {
        const auto object = queryFor<IOleObject>(control.get());
        EXPECT_EQ(object->SetClientSite(site.get()), S_OK);
        EXPECT_EQ(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0, nullptr, nullptr),
                  S_OK);
    }
    site->frame->active.reset();
    inApartment(COINIT_APARTMENTTHREADED, [raw = control.detach()] {
        return raw->Release();
    }).get();
    turn();
    EXPECT_EQ(library.alive(), before);
    EXPECT_EQ(GetWindow(site->window, GW_CHILD), nullptr);
    EXPECT_EQ(site->references(), 1U);
}

} // namespace
} // namespace vkr::automation
