// SPDX-License-Identifier: MIT
// The control as containers and scripts use it.
#include "automation/member_numbers.hpp"
#include "control/property_table.hpp"
#include "tests/automation/control_fixture.hpp"
#include "tests/automation/scripted_objects.hpp"

#include <algorithm>
#include <filesystem>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace vkr::automation {
namespace {

// --- identity ------------------------------------------------------------------------------------

TEST_F(Control, GivesEveryInterfaceFromEveryOther) {
    const IID ids[] = {IID_IUnknown,
                       IID_IDispatch,
                       __uuidof(::_VKRDataEntry),
                       IID_ISupportErrorInfo,
                       IID_IProvideClassInfo,
                       IID_IProvideClassInfo2,
                       IID_IConnectionPointContainer,
                       IID_IOleObject,
                       IID_IOleControl,
                       IID_IOleWindow,
                       IID_IOleInPlaceObject,
                       IID_IOleInPlaceActiveObject,
                       IID_IViewObject,
                       IID_IViewObject2,
                       IID_IPersist,
                       IID_IPersistStreamInit,
                       IID_IPersistPropertyBag,
                       IID_IPersistStorage,
                       __uuidof(IObjectSafety)};
    const auto identity = as<IUnknown>();
    for (const IID& from : ids) {
        ComPtr<IUnknown> first;
        ASSERT_EQ(control->QueryInterface(from, first.receiveAny()), S_OK);
        for (const IID& to : ids) {
            ComPtr<IUnknown> second;
            EXPECT_EQ(first->QueryInterface(to, second.receiveAny()), S_OK);
        }
        ComPtr<IUnknown> same;
        EXPECT_EQ(first->QueryInterface(IID_IUnknown, same.receiveAny()), S_OK);
        EXPECT_EQ(same.get(), identity.get());
        void* none = first.get();
        EXPECT_EQ(first->QueryInterface(IID_IQuickActivate, &none), E_NOINTERFACE);
        EXPECT_EQ(none, nullptr);
        EXPECT_EQ(first->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    }
}

TEST_F(Control, IsNotAggregated) {
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(
        library.classObject(__uuidof(::VKRDataEntry), IID_IClassFactory, factory.receiveAny()),
        S_OK);
    void* made = this;
    EXPECT_EQ(factory->CreateInstance(control.get(), IID_IUnknown, &made), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(library.classObject(IID_IUnknown, IID_IClassFactory, &made),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(library.canUnload(), S_FALSE);
}

TEST_F(Control, TellsItsClassAndItsEvents) {
    ComPtr<ITypeInfo> info;
    EXPECT_EQ(as<IProvideClassInfo2>()->GetClassInfo(info.receive()), S_OK);
    GUID id{};
    EXPECT_EQ(as<IProvideClassInfo2>()->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id), S_OK);
    EXPECT_TRUE(IsEqualGUID(id, __uuidof(::__VKRDataEntry)));
    EXPECT_EQ(as<IProvideClassInfo2>()->GetGUID(7, &id), E_INVALIDARG);
    DWORD status = 0;
    EXPECT_EQ(as<IOleObject>()->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
    EXPECT_EQ(status, 131473U);
    EXPECT_EQ(as<IOleObject>()->GetMiscStatus(DVASPECT_ICON, &status), S_OK);
    EXPECT_EQ(status, 0U);
}

// --- members -------------------------------------------------------------------------------------

TEST_F(Control, StartsWithTheValuesOfTheTable) {
    for (const PropertyRow& row : propertyTable().first(interfaceProperties)) {
        if (row.access != PropertyAccess::readWrite || row.type == PropertyType::company)
            continue;
        const Variant value = getByName(dispatch(), row.name);
        if (row.type == PropertyType::text)
            EXPECT_EQ(value, Variant(row.start.text)) << row.name;
        else if (row.type == PropertyType::boolean)
            EXPECT_EQ(value, Variant(row.start.number != 0)) << row.name;
        else
            EXPECT_EQ(value.toLong(), row.start.number) << row.name;
    }
    EXPECT_EQ(getByName(dispatch(), "objCompany").toObject(), nullptr);
}

TEST_F(Control, GivesTheSameEarlyAndLateBound) {
    EXPECT_EQ(putByName(dispatch(), "VisibleQuarters", std::int16_t{12}).result, S_OK);
    SHORT rows = 0;
    EXPECT_EQ(control->get_VisibleQuarters(&rows), S_OK);
    EXPECT_EQ(rows, 12);
    EXPECT_EQ(control->put_CurrentTab(::toOther), S_OK);
    EXPECT_EQ(getByName(dispatch(), "CurrentTab").toLong(), 4);
    EXPECT_EQ(putByName(dispatch(), "DateFormat", "YYYY-MM-DD").result, S_OK);
    Bstr pattern;
    EXPECT_EQ(control->get_DateFormat(pattern.receive()), S_OK);
    EXPECT_EQ(textOf(pattern.get()), "YYYY-MM-DD");
    EXPECT_EQ(control->get_DateFormat(nullptr), E_POINTER);
    EXPECT_EQ(callByName(dispatch(), "SetNext", {}).result, S_OK);
    EXPECT_EQ(callByName(dispatch(), "SetNext", {}).result, S_OK);
    EXPECT_EQ(getByName(dispatch(), "CurrentTab").toLong(), 1);
}

// A system colour has the sign that scripts give it.
TEST_F(Control, ColorsAreNumbersThatScriptsCanHold) {
    constexpr auto buttonFace = static_cast<std::int32_t>(0x8000000F);
    EXPECT_EQ(putByName(dispatch(), "ShadeColorYear", buttonFace).result, S_OK);
    EXPECT_EQ(getByName(dispatch(), "ShadeColorYear"), Variant(buttonFace));
    OLE_COLOR color = 0;
    EXPECT_EQ(control->get_ShadeColorYear(&color), S_OK);
    EXPECT_EQ(color, 0x8000000FU);
    EXPECT_EQ(control->put_ShadeColorYear(0x102030), S_OK);
    EXPECT_EQ(getByName(dispatch(), "ShadeColorYear"), Variant(std::int32_t{0x102030}));
    VARIANT unsignedOne;
    V_VT(&unsignedOne) = VT_UI4;
    V_UI4(&unsignedOne) = 0x8000000F;
    const DISPID id = idOf(dispatch(), "ShadeColorYear");
    EXPECT_EQ(invoke(dispatch(), id, DISPATCH_PROPERTYPUT, {unsignedOne}).result, S_OK);
    EXPECT_EQ(getByName(dispatch(), "ShadeColorYear"), Variant(buttonFace));
    EXPECT_EQ(putByName(dispatch(), "ShadeColorYear", "green").result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(getByName(dispatch(), "ShadeColorYear"), Variant(buttonFace));
}

// What writes "x = y" for a record means the same as "Set x = y".
TEST_F(Control, TakesARecordByEitherWayOfWriting) {
    const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
    VARIANT given;
    V_VT(&given) = VT_DISPATCH;
    V_DISPATCH(&given) = company.get();
    const DISPID id = idOf(dispatch(), "objCompany");
    for (const WORD kind : {WORD{DISPATCH_PROPERTYPUT}, WORD{DISPATCH_PROPERTYPUTREF}}) {
        EXPECT_EQ(control->putref_objCompany(nullptr), S_OK);
        EXPECT_EQ(invoke(dispatch(), id, kind, {given}).result, S_OK);
        ComPtr<::iVKR_Company> back;
        EXPECT_EQ(control->get_objCompany(back.receive()), S_OK);
        EXPECT_EQ(back.get(), company.get());
        EXPECT_EQ(invoke(dispatch(), id, kind, {given, given}).result, DISP_E_BADPARAMCOUNT);
    }
}

TEST_F(Control, RefusesWhatAPropertyCanNotBe) {
    EXPECT_EQ(putByName(dispatch(), "VisibleQuarters", "many").result, DISP_E_TYPEMISMATCH);
    const Called border = putByName(dispatch(), "BorderStyle", 7);
    EXPECT_EQ(border.result, DISP_E_EXCEPTION);
    EXPECT_EQ(border.told, "BorderStyle is 0 or 1.");
    EXPECT_EQ(putByName(dispatch(), "objCompany", 7).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(callByName(dispatch(), "SetNext", {1}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(getByName(dispatch(), "VisibleQuarters").toLong(), 9);
}

TEST_F(Control, ScrollsWhicheverWayTheNumbersArePassed) {
    VARIANT key;
    V_VT(&key) = VT_I4;
    V_I4(&key) = 40;
    VARIANT byReference;
    V_VT(&byReference) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&byReference) = &key;
    SHORT number = 0;
    VARIANT plain;
    V_VT(&plain) = VT_BYREF | VT_I2;
    V_I2REF(&plain) = &number;
    EXPECT_EQ(invoke(dispatch(), member::scrollMouse, DISPATCH_METHOD, {byReference, plain}).result,
              S_OK);
    EXPECT_EQ(control->ScrollMouse(nullptr, &number), E_POINTER);
}

// What the list of a field offers.
std::vector<std::string> listOf(Control& test, std::string_view field) {
    EXPECT_EQ(test.control->ShowField(Bstr(field).get()), S_OK);
    const HWND list = GetParent(GetFocus());
    std::vector<std::string> entries;
    const auto count = SendMessageW(list, CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        wchar_t text[100] = {};
        SendMessageW(list, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
        entries.push_back(textOf(std::wstring_view(text)));
    }
    return entries;
}

TEST_F(Control, TakesListsOfAnyKindOfArray) {
    open(library.create<::iVKR_Company>(__uuidof(::Company)).get());
    OwnedVariant texts; // an array of variants
    toVariant(textArray({"NYSE", "NASDAQ"}), texts);
    EXPECT_EQ(control->put_vntExchange(texts.get()), S_OK);
    EXPECT_EQ(listOf(*this, "cmbExchange"), (Log{"NYSE", "NASDAQ"}));
    OwnedVariant strings; // of strings, with bounds of its own
    V_ARRAY(strings.receive()) = SafeArrayCreateVector(VT_BSTR, 5, 1);
    V_VT(&strings.get()) = VT_ARRAY | VT_BSTR;
    LONG place = 5;
    EXPECT_EQ(SafeArrayPutElement(V_ARRAY(&strings.get()), &place, Bstr("XETRA").get()), S_OK);
    VARIANT byReference;
    V_VT(&byReference) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&byReference) = &strings.get();
    EXPECT_EQ(control->put_vntExchange(byReference), S_OK);
    EXPECT_EQ(listOf(*this, "cmbExchange"), Log{"XETRA"});
    VARIANT missing;
    V_VT(&missing) = VT_ERROR;
    V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
    EXPECT_EQ(control->put_vntExchange(missing), S_OK); // left as it is
    EXPECT_EQ(listOf(*this, "cmbExchange"), Log{"XETRA"});
    EXPECT_EQ(invoke(dispatch(), idOf(dispatch(), "vntExchange"), DISPATCH_PROPERTYGET, {}).result,
              DISP_E_MEMBERNOTFOUND);
    takeAway();
}

// --- the record ----------------------------------------------------------------------------------

TEST_F(Control, HandsBackTheRecordThatItWasGiven) {
    const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
    company->put_Name(Bstr("Acme").get());
    EXPECT_EQ(control->putref_objCompany(company.get()), S_OK);
    ComPtr<::iVKR_Company> back;
    EXPECT_EQ(control->get_objCompany(back.receive()), S_OK);
    EXPECT_EQ(queryFor<IUnknown>(back.get()).get(), queryFor<IUnknown>(company.get()).get());
    EXPECT_EQ(control->putref_objCompany(nullptr), S_OK); // an empty one instead
    EXPECT_EQ(control->get_objCompany(back.receive()), S_OK);
    ASSERT_TRUE(back);
    Bstr name;
    EXPECT_EQ(back->get_Name(name.receive()), S_OK);
    EXPECT_EQ(textOf(name.get()), "");
}

TEST_F(Control, WorksOnARecordThatCanOnlyBeCalledByName) {
    const auto record = makeCom<ScriptedObject>();
    record->values = {{"Name", "Acme"},
                      {"CurrentPrice", 12.5},
                      {"CommShares", "many"},
                      {"LastQDate", Date{45382}},
                      {"YEPSSeries", numberArray({0, 1, 2, 3}, 0)},
                      {"QEPSSeries", numberArray({1, 2}, 0)}};
    record->failing = {{"Industry", E_FAIL}, {"Settings", E_NOTIMPL}};
    VARIANT given;
    V_VT(&given) = VT_DISPATCH;
    V_DISPATCH(&given) = record.get();
    const DISPID id = member::of(EntryProperty::objCompany);
    EXPECT_EQ(invoke(dispatch(), id, DISPATCH_PROPERTYPUTREF, {given}).result, S_OK);
    EXPECT_EQ(getByName(dispatch(), "blnExistsQuarterlyData"), Variant(true));
    const Called back = invoke(dispatch(), id, DISPATCH_PROPERTYGET, {});
    EXPECT_EQ(dispatchOf(back.value.toObject()).get(), static_cast<IDispatch*>(record.get()));
    EXPECT_EQ(record->values["Name"], Variant("Acme"));
    EXPECT_EQ(record->values["CommShares"], Variant("many")); // a text is no figure: left alone
    EXPECT_EQ(record->values["CurrentPrice"], Variant(12.5));
    ComPtr<::iVKR_Company> early; // the same record through the interface
    EXPECT_EQ(control->get_objCompany(early.receive()), S_OK);
    double price = 0;
    EXPECT_EQ(early->get_CurrentPrice(&price), S_OK);
    EXPECT_EQ(price, 12.5);
    EXPECT_EQ(early->get_CommShares(&price), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(control->putref_objCompany(nullptr), S_OK);
}

TEST_F(Control, SurvivesARecordThatGoesAwayWhileItIsRead) {
    auto record = makeCom<ScriptedObject>();
    int reads = 0;
    record->called = [&](const std::string&, bool) {
        if (++reads == 5)
            control->putref_objCompany(nullptr);
    };
    VARIANT given;
    V_VT(&given) = VT_DISPATCH;
    V_DISPATCH(&given) = record.get();
    EXPECT_EQ(
        invoke(dispatch(), member::of(EntryProperty::objCompany), DISPATCH_PROPERTYPUT, {given})
            .result,
        S_OK);
    record->called = {};
    EXPECT_EQ(control->putref_objCompany(nullptr), S_OK);
}

// Its name is asked for once more when the field is stored, and by then it is another's turn.
TEST_F(Control, SurvivesARecordThatGoesAwayWhileItIsAskedForAName) {
    const auto record = makeCom<ScriptedObject>();
    const auto other = library.create<::iVKR_Company>(__uuidof(::Company));
    record->unknown = {"Symbol"};
    place();
    EXPECT_EQ(give(record.get()), S_OK);
    SetForegroundWindow(site->window);
    EXPECT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
    type("txtSymbol", "ACM");
    record->asked = [&](const std::string& name) {
        if (name != "Symbol" || !std::exchange(record->asked, {}))
            return;
        EXPECT_EQ(control->putref_objCompany(other.get()), S_OK);
    };
    press(VK_TAB);
    EXPECT_FALSE(record->asked) << "not asked at all";
    EXPECT_FALSE(record->values.contains("Symbol"));
    type("txtSymbol", "OTH");
    press(VK_TAB);
    Bstr symbol;
    EXPECT_EQ(other->get_Symbol(symbol.receive()), S_OK);
    EXPECT_EQ(textOf(symbol.get()), "OTH");
    takeAway();
}

// A class of a host's with a default interface of its own, beside that of a record.
struct TwoFaced final : ComObject<IDispatch> {
    explicit TwoFaced(ComPtr<::iVKR_Company> itsRecord) : record(std::move(itsRecord)) {}
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override {
        return IsEqualIID(id, __uuidof(::iVKR_Company))
                   ? record->QueryInterface(id, found)
                   : ComObject<IDispatch>::QueryInterface(id, found);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override {
        return DISP_E_BADINDEX;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return DISP_E_MEMBERNOTFOUND;
    }

    ComPtr<::iVKR_Company> record;
};

TEST_F(Control, WorksOnARecordWhoseOwnNamesAreOthers) {
    const auto record = library.create<::iVKR_Company>(__uuidof(::Company));
    EXPECT_EQ(record->put_Symbol(Bstr("OWN").get()), S_OK);
    const auto both = makeCom<TwoFaced>(record);
    place();
    EXPECT_EQ(give(both.get()), S_OK);
    SetForegroundWindow(site->window);
    EXPECT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_EQ(shown("txtSymbol"), "OWN");
    type("txtSymbol", "ACM");
    press(VK_TAB);
    Bstr symbol;
    EXPECT_EQ(record->get_Symbol(symbol.receive()), S_OK);
    EXPECT_EQ(textOf(symbol.get()), "ACM");
    takeAway();
}

// --- events --------------------------------------------------------------------------------------

struct Events : Control {
    ComPtr<EventSink> sink = makeCom<EventSink>();
    ComPtr<IConnectionPoint> point = pointOf(control.get(), __uuidof(::__VKRDataEntry));
    ~Events() override { point.reset(); }
};

TEST_F(Events, ComeToEverybodyWhoListens) {
    const auto other = makeCom<EventSink>();
    DWORD first = 0;
    DWORD second = 0;
    ASSERT_EQ(point->Advise(static_cast<IDispatch*>(sink.get()), &first), S_OK);
    ASSERT_EQ(point->Advise(static_cast<IDispatch*>(other.get()), &second), S_OK);
    EXPECT_NE(first, 0U);
    EXPECT_NE(first, second);
    sink->heard = [&](DISPID) { point->Unadvise(second); }; // within the event
    control->SetNext();
    EXPECT_EQ(sink->log, (Log{"1 2"}));
    EXPECT_TRUE(other->log.empty());
    EXPECT_EQ(point->Unadvise(second), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(point->Unadvise(first), S_OK);
    DWORD third = 0;
    ASSERT_EQ(point->Advise(static_cast<IDispatch*>(sink.get()), &third), S_OK);
    EXPECT_GT(third, second); // none is given twice
    EXPECT_EQ(point->Unadvise(third), S_OK);
    EXPECT_EQ(point->Advise(nullptr, &third), E_POINTER);
    EXPECT_EQ(point->Advise(static_cast<IDispatch*>(sink.get()), nullptr), E_POINTER);
}

TEST_F(Events, WaitWhileTheyAreFrozen) {
    DWORD cookie = 0;
    ASSERT_EQ(point->Advise(static_cast<IDispatch*>(sink.get()), &cookie), S_OK);
    const auto object = as<IOleControl>();
    EXPECT_EQ(object->FreezeEvents(TRUE), S_OK);
    EXPECT_EQ(object->FreezeEvents(TRUE), S_OK);
    control->SetNext();
    EXPECT_EQ(object->FreezeEvents(FALSE), S_OK);
    EXPECT_TRUE(sink->log.empty());
    control->SetNext();
    EXPECT_EQ(object->FreezeEvents(FALSE), S_OK);
    EXPECT_EQ(sink->log, (Log{"1 2", "1 3"}));
    EXPECT_EQ(object->FreezeEvents(FALSE), S_OK); // once too often
    EXPECT_EQ(point->Unadvise(cookie), S_OK);
}

TEST_F(Events, ThatWereFrozenComeBeforeThoseThatTheyCause) {
    DWORD cookie = 0;
    ASSERT_EQ(point->Advise(static_cast<IDispatch*>(sink.get()), &cookie), S_OK);
    const auto object = as<IOleControl>();
    EXPECT_EQ(object->FreezeEvents(TRUE), S_OK);
    control->SetNext();
    control->SetNext();
    sink->heard = [&, isFirst = true](DISPID) mutable {
        if (std::exchange(isFirst, false))
            control->SetNext();
    };
    EXPECT_EQ(object->FreezeEvents(FALSE), S_OK);
    EXPECT_EQ(sink->log, (Log{"1 2", "1 3", "1 4"}));
    control->SetNext();
    EXPECT_EQ(sink->log.back(), "1 5");
    EXPECT_EQ(point->Unadvise(cookie), S_OK);
}

TEST_F(Events, MayReleaseTheControlWithin) {
    DWORD cookie = 0;
    ASSERT_EQ(point->Advise(static_cast<IDispatch*>(sink.get()), &cookie), S_OK);
    point.reset();
    sink->heard = [&](DISPID) { control.reset(); };
    const auto again = control.get();
    again->SetNext(); // the last call that anybody may make
    EXPECT_FALSE(control);
    EXPECT_EQ(sink->log, (Log{"1 2"}));
}

TEST_F(Events, NoticesOfPropertiesComeWithTheirNumbers) {
    const auto notices = makeCom<NoticeSink>();
    const auto at = pointOf(control.get(), IID_IPropertyNotifySink);
    DWORD cookie = 0;
    ASSERT_EQ(at->Advise(notices.get(), &cookie), S_OK);
    control->put_ShowVLs(VARIANT_TRUE);
    control->put_FractionDisplay(VARIANT_TRUE); // never tells
    control->put_ShadeColorQuarter(0x112233);
    control->put_ShadeColorQuarter(0x112233); // no other one
    control->put_UserMode(::umDefault);
    EXPECT_EQ(notices->changed, (std::vector<DISPID>{member::of(EntryProperty::ShowVLs),
                                                     member::of(EntryProperty::ShadeColorQuarter),
                                                     member::of(EntryProperty::UserMode)}));
    EXPECT_EQ(at->Unadvise(cookie), S_OK);
    EXPECT_EQ(at->Advise(static_cast<IDispatch*>(sink.get()), &cookie), CONNECT_E_CANNOTCONNECT);
}

// --- a container ---------------------------------------------------------------------------------

TEST_F(Control, GoesThroughTheLifeThatContainersGiveIt) {
    site->place = {10, 10, 36, 36}; // as large as it is without a record
    place();
    EXPECT_EQ(as<IPersistStreamInit>()->InitNew(), S_OK);
    EXPECT_EQ(as<IPersistStreamInit>()->InitNew(), E_UNEXPECTED);
    EXPECT_TRUE(site->log.empty());
    EXPECT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    EXPECT_EQ(site->log, (Log{"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow",
                              "GetWindowContext", "ShowObject"}));
    site->log.clear();
    EXPECT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK); // it is
    EXPECT_TRUE(site->log.empty());
    HWND window = nullptr;
    EXPECT_EQ(as<IOleInPlaceObject>()->GetWindow(&window), S_OK);
    EXPECT_EQ(GetParent(window), site->window);
    EXPECT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_EQ(site->log,
              (Log{"OnUIActivate", "SetActiveObject", "SetBorderSpace(null)", "OnFocus(true)"}));
    site->log.clear();
    EXPECT_EQ(as<IOleInPlaceObject>()->UIDeactivate(), S_OK);
    EXPECT_EQ(site->log, (Log{"SetActiveObject(null)", "OnFocus(false)", "OnUIDeactivate"}));
    site->log.clear();
    EXPECT_EQ(as<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(as<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(site->log, (Log{"OnInPlaceDeactivate"}));
    EXPECT_EQ(as<IOleInPlaceObject>()->GetWindow(&window), E_FAIL);
    takeAway();
}

TEST_F(Control, EndsInAnyOrder) {
    std::mt19937 random(14);
    for (int round = 0; round < 30; ++round) {
        SCOPED_TRACE(round);
        control = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
        place();
        doVerb(OLEIVERB_UIACTIVATE);
        const auto object = as<IOleObject>();
        const auto window = as<IOleInPlaceObject>();
        std::vector<int> steps{0, 1, 2, 3, 0, 2};
        std::shuffle(steps.begin(), steps.end(), random);
        for (const int step : steps) {
            if (step == 0)
                EXPECT_EQ(window->UIDeactivate(), S_OK);
            else if (step == 1)
                EXPECT_EQ(window->InPlaceDeactivate(), S_OK);
            else if (step == 2)
                EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
            else
                EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
        }
        EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
    }
}

TEST_F(Control, IsNotActivatedAgainstTheContainersWill) {
    EXPECT_EQ(doVerb(OLEIVERB_SHOW), E_FAIL); // without a site
    place();
    site->canActivate = S_FALSE;
    EXPECT_EQ(doVerb(OLEIVERB_SHOW), E_FAIL);
    EXPECT_EQ(site->log, (Log{"CanInPlaceActivate"}));
    site->canActivate = E_ACCESSDENIED;
    EXPECT_EQ(doVerb(OLEIVERB_UIACTIVATE), E_ACCESSDENIED);
    site->canActivate = S_OK;
    site->place = {};
    EXPECT_EQ(doVerb(OLEIVERB_SHOW), S_OK);
    EXPECT_EQ(doVerb(99), OLEOBJ_S_INVALIDVERB);
    EXPECT_EQ(doVerb(-99), E_NOTIMPL);
    EXPECT_EQ(doVerb(OLEIVERB_HIDE), S_OK);
    takeAway();
}

TEST_F(Control, AsksForTheRoomThatARecordTakes) {
    place();
    SIZEL size{};
    EXPECT_EQ(as<IOleObject>()->GetExtent(DVASPECT_CONTENT, &size), S_OK);
    EXPECT_EQ(size.cx, 675); // 382.5 twips
    doVerb(OLEIVERB_INPLACEACTIVATE);
    site->log.clear();
    const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
    EXPECT_EQ(control->putref_objCompany(company.get()), S_OK);
    EXPECT_EQ(as<IOleObject>()->GetExtent(DVASPECT_CONTENT, &size), S_OK);
    EXPECT_EQ(size.cx, 14235); // 8070 twips
    EXPECT_EQ(size.cy, 10292);
    SIZEL wanted{100, 100}; // no other is possible
    EXPECT_EQ(as<IOleObject>()->SetExtent(DVASPECT_CONTENT, &wanted), S_OK);
    EXPECT_EQ(as<IOleObject>()->GetExtent(DVASPECT_CONTENT, &size), S_OK);
    EXPECT_EQ(size.cx, 14235);
    EXPECT_EQ(as<IOleObject>()->SetExtent(DVASPECT_ICON, &wanted), DV_E_DVASPECT);
    takeAway();
}

TEST_F(Control, HasItsCaptionsWithoutHavingBeenRestored) {
    place();
    const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
    control->putref_objCompany(company.get());
    doVerb(OLEIVERB_INPLACEACTIVATE);
    const auto captions = texts();
    // A text of the localizer, where the form as it is laid out has another.
    EXPECT_NE(std::ranges::find(captions, L"&Help"), captions.end());
    EXPECT_EQ(std::ranges::find(captions, L"Legend caption"), captions.end());
    takeAway();
}

TEST_F(Control, IsDrawnWithoutAWindow) {
    place();
    site->ambients[DISPID_AMBIENT_USERMODE] = false;
    site->ambients[DISPID_AMBIENT_DISPLAYNAME] = "VKRDataEntry1";
    site->ambients[DISPID_AMBIENT_BACKCOLOR] = 0x00FF00;
    const HDC context = CreateCompatibleDC(nullptr);
    const HDC screen = GetDC(nullptr);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 100, 100);
    ReleaseDC(nullptr, screen);
    const HGDIOBJ old = SelectObject(context, bitmap);
    const RECTL bounds{0, 0, 100, 100};
    const auto view = as<IViewObject2>();
    EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, context, &bounds, nullptr,
                         nullptr, 0),
              S_OK);
    EXPECT_EQ(GetPixel(context, 3, 90), 0x00FF00U);
    EXPECT_EQ(view->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, context, &bounds, nullptr,
                         nullptr, 0),
              DV_E_DVASPECT);
    EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, context, nullptr, nullptr,
                         nullptr, 0),
              E_POINTER);
    const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
    control->putref_objCompany(company.get());
    const HDC paper = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, paper, &bounds, nullptr,
                         nullptr, 0),
              S_OK);
    const HENHMETAFILE recorded = CloseEnhMetaFile(paper);
    EXPECT_GT(GetEnhMetaFileBits(recorded, 0, nullptr), 10000U); // a picture of the form
    DeleteEnhMetaFile(recorded);
    EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, context, &bounds, nullptr,
                         nullptr, 0),
              S_OK);
    EXPECT_EQ(GetPixel(context, 30, 10), GetSysColor(COLOR_WINDOW)); // the field of the name
    EXPECT_EQ(GetPixel(context, 5, 85), GetSysColor(COLOR_BTNFACE));
    SelectObject(context, old);
    DeleteObject(bitmap);
    DeleteDC(context);
    takeAway();
}

TEST_F(Control, IsNamedInTheFontOfTheContainer) {
    place();
    site->ambients[DISPID_AMBIENT_DISPLAYNAME] = "I";
    site->ambients[DISPID_AMBIENT_BACKCOLOR] = 0x00FF00;
    site->ambients[DISPID_AMBIENT_FORECOLOR] = 0x0000FF;
    const auto heightOfName = [&] {
        const HDC context = CreateCompatibleDC(nullptr);
        const HDC screen = GetDC(nullptr);
        const HBITMAP bitmap = CreateCompatibleBitmap(screen, 100, 100);
        ReleaseDC(nullptr, screen);
        const HGDIOBJ old = SelectObject(context, bitmap);
        const RECTL bounds{0, 0, 100, 100};
        EXPECT_EQ(as<IViewObject2>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, context,
                                           &bounds, nullptr, nullptr, 0),
                  S_OK);
        int rows = 0;
        for (int row = 2; row < 98; ++row) {
            bool any = false;
            for (int column = 2; column < 98; ++column)
                any = any || GetPixel(context, column, row) != 0x00FF00U;
            rows += any ? 1 : 0;
        }
        SelectObject(context, old);
        DeleteObject(bitmap);
        DeleteDC(context);
        return rows;
    };
    FONTDESC look{};
    look.cbSizeofstruct = sizeof look;
    look.lpstrName = const_cast<LPOLESTR>(L"Tahoma");
    look.cySize.int64 = 40 * 10000;
    look.sWeight = FW_NORMAL;
    ComPtr<IDispatch> font;
    ASSERT_EQ(OleCreateFontIndirect(&look, IID_IDispatch, font.receiveAny()), S_OK);
    const int usual = heightOfName();
    EXPECT_GT(usual, 3);
    site->ambients[DISPID_AMBIENT_FONT] = Variant(lateBound(font.get()));
    EXPECT_GT(heightOfName(), 2 * usual);
    takeAway();
}

TEST_F(Control, FollowsTheLanguageOfTheContainer) {
    site->ambients[DISPID_AMBIENT_LOCALEID] = 0x0407; // German
    place();
    EXPECT_EQ(getByName(dispatch(), "DecimalMark"), Variant(","));
    EXPECT_EQ(putByName(dispatch(), "DecimalMark", ".").result, S_OK);
    EXPECT_EQ(as<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
    EXPECT_EQ(getByName(dispatch(), "DecimalMark"), Variant(".")); // the host's own word stays
    takeAway();
}

TEST_F(Control, IsUnsavedOnlyByWhatIsKept) {
    const auto stored = as<IPersistStreamInit>();
    site->ambients[DISPID_AMBIENT_LOCALEID] = 0x0407; // German: other marks
    EXPECT_EQ(stored->InitNew(), S_OK);
    place();
    EXPECT_EQ(stored->IsDirty(), S_FALSE);
    EXPECT_EQ(putByName(dispatch(), "DateFormat", "YYYY-MM-DD").result, S_OK);
    EXPECT_EQ(stored->IsDirty(), S_FALSE);
    EXPECT_EQ(putByName(dispatch(), "VisibleQuarters", std::int16_t{12}).result, S_OK);
    EXPECT_EQ(stored->IsDirty(), S_OK);
    takeAway();
}

// It is safe for scripts that nobody trusts.
TEST_F(Control, ItsOwnRecordTouchesNoFile) {
    EXPECT_EQ(control->putref_objCompany(nullptr), S_OK); // an empty one instead
    ComPtr<::iVKR_Company> own;
    ASSERT_EQ(control->get_objCompany(own.receive()), S_OK);
    ASSERT_TRUE(own);
    const auto folder = std::filesystem::temp_directory_path() / "vkr_no_file";
    std::filesystem::create_directories(folder);
    EXPECT_EQ(own->put_Symbol(Bstr("ACM").get()), S_OK);
    ComPtr<::iVKR_Company> copy;
    const auto record = queryFor<::iVKR_CompanyRecord>(own.get());
    ASSERT_TRUE(record);
    EXPECT_EQ(record->Clone(copy.receive()), S_OK);
    for (IDispatch* const one :
         {static_cast<IDispatch*>(own.get()), static_cast<IDispatch*>(copy.get())}) {
        const Called written = callByName(one, "WriteCsv", {folder.string()});
        EXPECT_EQ(written.result, DISP_E_EXCEPTION);
        EXPECT_NE(written.told.find("no files"), std::string::npos) << written.told;
        EXPECT_EQ(callByName(one, "ReadCsv", {folder.string(), "ACM"}).told, written.told);
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder));
    std::filesystem::remove_all(folder);
}

TEST_F(Control, IsCutOffWhereTheContainerHasItScrolledAway) {
    place();
    EXPECT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    const auto object = as<IOleInPlaceObject>();
    HWND window = nullptr;
    ASSERT_EQ(object->GetWindow(&window), S_OK);
    const RECT area{0, 0, 300, 200};
    const auto shownOf = [&](RECT clip) {
        EXPECT_EQ(object->SetObjectRects(&area, &clip), S_OK);
        RECT box{};
        const int kind = GetWindowRgnBox(window, &box);
        return kind == ERROR ? area : box; // no region: all of it
    };
    const auto isSame = [](RECT left, RECT right) { return EqualRect(&left, &right) != FALSE; };
    EXPECT_TRUE(isSame(shownOf({0, 0, 400, 400}), area));
    EXPECT_TRUE(isSame(shownOf({100, 50, 400, 400}), {100, 50, 300, 200}));
    const RECT none = shownOf({500, 500, 600, 600});
    EXPECT_TRUE(IsRectEmpty(&none));
    EXPECT_TRUE(isSame(shownOf({-10, -10, 400, 400}), area));
    takeAway();
}

TEST_F(Control, SafetyIsRememberedForWhatIsSafe) {
    const auto safety = as<IObjectSafety>();
    DWORD supported = 0;
    DWORD enabled = 0;
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(IID_IDispatch, 1, 1), S_OK);
    EXPECT_EQ(safety->GetInterfaceSafetyOptions(IID_IDispatch, &supported, &enabled), S_OK);
    EXPECT_EQ(supported, 1U);
    EXPECT_EQ(enabled, 1U);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(IID_IOleObject, 1, 1), E_NOINTERFACE);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(IID_IDispatch, 8, 8), E_FAIL);
}

} // namespace
} // namespace vkr::automation
