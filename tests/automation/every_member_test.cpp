// SPDX-License-Identifier: MIT
// Every member of every interface, as the type libraries tell them, called in ways that nobody
// should.
#include "record/datum_table.hpp"
#include "tests/automation/control_fixture.hpp"
#include "tests/automation/scripted_objects.hpp"
#include "tests/automation/type_info.hpp"

#include <string>
#include <vector>

namespace vkr::automation {
namespace {

struct Function {
    std::string name;
    DISPID id = 0;
    WORD kind = 0;
    ULONG_PTR slot = 0;
    std::vector<VARTYPE> types;
    bool answers = false; // it has a place for an answer
    std::size_t given = 0;
};

// Of the interface itself, without those that it derives from.
std::vector<Function> functionsOf(int library, REFGUID id) {
    const auto info = slotsOf(infoOf(libraryAt(library).get(), id));
    std::vector<Function> all;
    forEachFunction(info.get(), [&](const FUNCDESC& one) {
        Function& next = all.emplace_back();
        next.name = nameOf(info.get(), one.memid);
        next.id = one.memid;
        next.kind = static_cast<WORD>(one.invkind);
        next.slot = static_cast<ULONG_PTR>(one.oVft);
        for (SHORT j = 0; j < one.cParams; ++j) {
            const ELEMDESC& parameter = one.lprgelemdescParam[j];
            next.types.push_back(parameter.tdesc.vt);
            next.answers |= (parameter.paramdesc.wParamFlags & PARAMFLAG_FOUT) != 0;
            next.given += (parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) == 0 ? 1 : 0;
        }
    });
    return all;
}

struct Described {
    CLSID object;
    IID id;
    int library;
};
const Described described[] = {{__uuidof(::VKRDataEntry), __uuidof(::_VKRDataEntry), 1},
                               {__uuidof(::Company), __uuidof(::iVKR_Company), 2},
                               {__uuidof(::Company), __uuidof(::iVKR_CompanyRecord), 2},
                               {__uuidof(::TrailingEarnings), __uuidof(::iVKR_TrailingEarnings), 2},
                               {__uuidof(::StandardLocalizer), __uuidof(::iVKR_Localizer), 1}};

// By its slot, with zero in each place and null for each pointer.
HRESULT callWithNothing(IUnknown* object, const Function& function) {
    std::vector<VARIANT> zeros(function.types.size());
    std::vector<VARIANT*> places;
    std::vector<VARTYPE> types;
    for (std::size_t i = 0; i < zeros.size(); ++i) {
        VariantInit(&zeros[i]);
        V_I8(&zeros[i]) = 0;
        const VARTYPE type = function.types[i];
        types.push_back(type);
        if (type == VT_PTR)
            types.back() = VT_I8;
        if (type == VT_USERDEFINED) // an enumeration
            types.back() = VT_I4;
        places.push_back(&zeros[i]);
    }
    OwnedVariant result;
    EXPECT_EQ(DispCallFunc(object, function.slot, CC_STDCALL, VT_ERROR,
                           static_cast<UINT>(types.size()), types.data(), places.data(),
                           &result.get()),
              S_OK);
    return V_ERROR(&result.get());
}

struct EveryMember : Control {};

TEST_F(EveryMember, RefusesANullPlaceForItsAnswer) {
    int answering = 0;
    for (const Described& one : described) {
        const auto object = library.create<IDispatch>(one.object);
        ComPtr<IUnknown> called;
        ASSERT_EQ(object->QueryInterface(one.id, called.receiveAny()), S_OK);
        for (const Function& function : functionsOf(one.library, one.id)) {
            const HRESULT result = callWithNothing(called.get(), function);
            answering += function.answers ? 1 : 0;
            if (function.answers) {
                EXPECT_EQ(result, E_POINTER) << function.name;
            }
        }
    }
    EXPECT_GT(answering, 90);
}

// The same calls by number, with nothing, empty or zero where something is wanted.
std::vector<HRESULT> callEach(IDispatch* object, const std::vector<Function>& functions) {
    std::vector<HRESULT> results;
    for (const Function& function : functions) {
        std::vector<VARIANT> arguments(function.given);
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            VariantInit(&arguments[i]);
            if (function.types[i] == VT_PTR || function.types[i] == VT_VARIANT)
                continue;
            V_VT(&arguments[i]) = VT_I4;
            V_I4(&arguments[i]) = 0;
        }
        results.push_back(invoke(object, function.id, function.kind, arguments).result);
    }
    return results;
}

TEST_F(EveryMember, AnswersAfterTheEndAsItDidBefore) {
    const auto functions = functionsOf(1, __uuidof(::_VKRDataEntry));
    const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
    const auto never = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
    EXPECT_EQ(never->putref_objCompany(company.get()), S_OK);
    const auto wanted = callEach(never.get(), functions);
    open(company.get());
    takeAway();
    const auto results = callEach(dispatch(), functions);
    ASSERT_EQ(results.size(), wanted.size());
    for (std::size_t i = 0; i < results.size(); ++i)
        EXPECT_EQ(results[i], wanted[i]) << functions[i].name;
}

// A handler lets go of the control, closes it, or asks for anything, in the middle of each member.
TEST_F(EveryMember, SurvivesAnEventThatClosesTheControl) {
    const auto functions = functionsOf(1, __uuidof(::_VKRDataEntry));
    const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
    for (const Function& function : functions) {
        if (function.kind == DISPATCH_PROPERTYGET && function.name != "objCompany")
            continue; // reading anything else does nothing that could be interrupted
        SCOPED_TRACE(function.name);
        control = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
        open(company.get());
        const auto sink = makeCom<EventSink>();
        const auto object = as<IOleObject>();
        sink->heard = [&](DISPID) {
            object->Close(OLECLOSE_NOSAVE);
            object->SetClientSite(nullptr);
        };
        DWORD cookie = 0;
        EXPECT_EQ(pointOf(control.get(), __uuidof(::__VKRDataEntry))
                      ->Advise(static_cast<IDispatch*>(sink.get()), &cookie),
                  S_OK);
        callEach(dispatch(), {function});
        EXPECT_EQ(control->SetNext(), S_OK); // TabChange at the latest
        EXPECT_FALSE(sink->log.empty());
        HWND window = nullptr;
        EXPECT_EQ(as<IOleInPlaceObject>()->GetWindow(&window), E_FAIL);
        site->control.reset();
        site->frame->active.reset();
    }
}

// --- a great many --------------------------------------------------------------------------------

std::vector<double> hundredThousand() {
    std::vector<double> figures(100'000);
    for (std::size_t i = 0; i < figures.size(); ++i)
        figures[i] = static_cast<double>(i);
    return figures;
}

TEST_F(EveryMember, AHundredThousandFiguresAreNoSeriesOfARecord) {
    const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
    const Variant held = getByName(company.get(), "YEPSSeries");
    EXPECT_TRUE(
        FAILED(putByName(company.get(), "YEPSSeries", numberArray(hundredThousand())).result));
    EXPECT_EQ(getByName(company.get(), "YEPSSeries"), held);
}

TEST_F(EveryMember, AHundredThousandFiguresOfAHostsRecordAreLeftAsTheyAre) {
    const auto record = makeCom<ScriptedObject>();
    const Variant many = numberArray(hundredThousand());
    record->values = {{"Name", "Acme"}, {"YEPSSeries", many}, {"LastFY", std::int16_t{2025}}};
    place();
    EXPECT_EQ(give(record.get()), S_OK);
    EXPECT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_EQ(control->put_CurrentTab(::toYearly), S_OK);
    EXPECT_EQ(shown("txtName"), "Acme");
    EXPECT_EQ(putByName(dispatch(), "blnDirty", false).result, S_OK);
    EXPECT_EQ(record->values["YEPSSeries"], many);
    takeAway();
}

TEST_F(EveryMember, AHundredThousandEntriesAreAList) {
    const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
    std::vector<std::string> names;
    for (int i = 0; i < 100'000; ++i)
        names.push_back("Exchange " + std::to_string(i));
    open(company.get());
    EXPECT_EQ(putByName(dispatch(), "vntExchange", textArray(names)).result, S_OK);
    EXPECT_EQ(shown("cmbExchange"), "");
    const HWND list = GetParent(GetFocus());
    EXPECT_EQ(SendMessageW(list, CB_GETCOUNT, 0, 0), 100'000);
    takeAway();
}

} // namespace
} // namespace vkr::automation
