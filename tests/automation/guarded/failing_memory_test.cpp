// SPDX-License-Identifier: MIT
// A block of memory that is not to be had, anywhere in the life of a control: calls fail,
// statements are left out, and nothing is left of it.
#include "tests/automation/closed_dialogs.hpp"
#include "tests/automation/control_fixture.hpp"

#include <algorithm>
#include <cstdlib>

namespace vkr::automation {
namespace {

long failBlock(long number) {
    using Fail = long(STDAPICALLTYPE*)(long);
    static const auto fail = reinterpret_cast<Fail>(
        reinterpret_cast<void*>(LoadedLibrary::get().function("VkrFailBlock")));
    return fail(number);
}

struct FailingMemory : WithLibrary {
    ComPtr<TestSite> site = makeCom<TestSite>();
    const ClosedDialogs closed;
    HRESULT worst = S_OK;

    bool done(HRESULT result) {
        if (FAILED(result))
            worst = result;
        return SUCCEEDED(result);
    }
    template <typename Interface>
    ComPtr<Interface> make(REFCLSID id) {
        ComPtr<IClassFactory> factory;
        ComPtr<Interface> made;
        if (done(library.classObject(id, IID_IClassFactory, factory.receiveAny())))
            done(factory->CreateInstance(nullptr, __uuidof(Interface), made.receiveAny()));
        return made;
    }
    void press(IOleInPlaceActiveObject* active, WPARAM key) {
        MSG message{GetFocus(), WM_KEYDOWN, key, 1, 0, {}};
        if (active->TranslateAccelerator(&message) != S_OK)
            DispatchMessageW(&message);
        turn();
    }

    void use(const ComPtr<::_VKRDataEntry>& control, const ComPtr<::iVKR_Company>& company) {
        const auto object = queryFor<IOleObject>(control.get());
        done(object->SetClientSite(site.get()));
        site->control = queryFor<IOleInPlaceObject>(control.get());
        done(company->put_Name(Bstr("Acme").get()));
        done(control->putref_objCompany(company.get()));
        SetForegroundWindow(site->window);
        done(object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr));
        turn();
        const auto active = queryFor<IOleInPlaceActiveObject>(control.get());
        done(control->put_CurrentTab(::toYearly));
        done(control->ShowField(Bstr("txtSales(3)").get()));
        for (const WPARAM key : {WPARAM{'1'}, WPARAM{'7'}, WPARAM{VK_RETURN}})
            press(active.get(), key);
        ComPtr<IStream> stream;
        if (SUCCEEDED(CreateStreamOnHGlobal(nullptr, TRUE, stream.receive())))
            done(queryFor<IPersistStreamInit>(control.get())->Save(stream.get(), TRUE));
        OwnedVariant fields;
        done(control->get_UnstoredFields(fields.receive()));
        ComPtr<::iVKR_Company> back;
        done(control->get_objCompany(back.receive()));
    }
    // Created, activated, edited, stored, closed, as far as it goes.
    void live() {
        worst = S_OK;
        {
            const auto company = make<::iVKR_Company>(__uuidof(::Company));
            const auto control = make<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
            if (control && company) {
                use(control, company);
                const auto object = queryFor<IOleObject>(control.get());
                done(object->Close(OLECLOSE_NOSAVE));
                done(object->SetClientSite(nullptr));
            }
            site->control.reset();
            site->frame->active.reset();
        }
        turn();
    }
};

TEST_F(FailingMemory, LeavesNothingOfTheControl) {
    live();
    EXPECT_EQ(worst, S_OK);
    failBlock(0);
    live();
    const long blocks = failBlock(0);
    EXPECT_GT(blocks, 1000);
    const long tries = std::getenv("VKR_LONG_TESTS") == nullptr ? 60 : 1000;
    int failures = 0;
    for (long i = 0; i < tries; ++i) {
        // Close together in the beginning, where the control is made.
        const long number = 1 + (i < tries / 4 ? i : i * blocks / tries);
        SCOPED_TRACE(number);
        failBlock(number);
        live();
        failBlock(0);
        failures += FAILED(worst) ? 1 : 0;
        ASSERT_EQ(library.alive(), before);
        EXPECT_EQ(site->references(), 1U);
        EXPECT_EQ(site->frame->references(), 1U);
        EXPECT_EQ(GetWindow(site->window, GW_CHILD), nullptr);
    }
    EXPECT_GT(failures, 0);
    live();
    EXPECT_EQ(worst, S_OK);
}

} // namespace
} // namespace vkr::automation
