// SPDX-License-Identifier: MIT
// Calls by name with anything at all: an error code or a skipped statement, and nothing is left.
#include "record/datum_table.hpp"
#include "tests/automation/closed_dialogs.hpp"
#include "tests/automation/control_fixture.hpp"
#include "tests/automation/scripted_objects.hpp"

#include <cstdlib>
#include <random>

namespace vkr::automation {
namespace {

// VKR_CALLS random calls, from the seed VKR_SEED.
int wantedCalls() {
    const char* const wanted = std::getenv("VKR_CALLS");
    return wanted == nullptr ? 4000 : std::atoi(wanted);
}
unsigned seedOf(unsigned seed) {
    const char* const wanted = std::getenv("VKR_SEED");
    return wanted == nullptr ? seed : seed + static_cast<unsigned>(std::atoi(wanted));
}

// Every block of every heap is as it was left.
void expectWholeHeaps() {
    HANDLE heaps[100];
    const DWORD count = GetProcessHeaps(100, heaps);
    for (DWORD i = 0; i < count; ++i)
        EXPECT_NE(HeapValidate(heaps[i], 0, nullptr), FALSE);
}

class AnyVariant {
  public:
    explicit AnyVariant(std::mt19937& random) : random_(random) {
        VariantInit(&owned_);
        make(owned_, 0);
        given_ = owned_;
        if (pick(5) == 0) { // by reference
            V_VT(&given_) = VT_VARIANT | VT_BYREF;
            V_VARIANTREF(&given_) = &owned_;
        }
        if ((V_VT(&given_) & VT_ARRAY) != 0 && pick(3) == 0) { // the array alone
            V_VT(&given_) = static_cast<VARTYPE>(V_VT(&owned_) | VT_BYREF);
            V_ARRAYREF(&given_) = &V_ARRAY(&owned_);
        }
        if (pick(40) == 0) { // to nothing
            V_VT(&given_) = static_cast<VARTYPE>(VT_BYREF | (pick(2) == 0 ? VT_R8 : VT_BSTR));
            V_BYREF(&given_) = nullptr;
        }
    }
    AnyVariant(const AnyVariant&) = delete;
    AnyVariant& operator=(const AnyVariant&) = delete;
    ~AnyVariant() { VariantClear(&owned_); }
    [[nodiscard]] const VARIANT& get() const { return given_; }

  private:
    // Names of data too, so that rows of figures are rows now and then.
    static constexpr const wchar_t* texts[] = {L"1x\xD800&\r", L"", L"TotalDebt", L"YEPSSeries",
                                               L"txtName"};

    template <typename Count>
    unsigned pick(Count count) {
        return static_cast<unsigned>(random_() % count);
    }

    void make(VARIANT& value, int depth) {
        switch (pick(14)) {
        case 0:
            V_VT(&value) = VT_EMPTY;
            break;
        case 1:
            V_VT(&value) = VT_NULL;
            break;
        case 2:
            (V_VT(&value) = VT_ERROR), V_ERROR(&value) = DISP_E_PARAMNOTFOUND;
            break;
        case 3:
            (V_VT(&value) = VT_I2), V_I2(&value) = static_cast<SHORT>(random_());
            break;
        case 4:
            (V_VT(&value) = VT_I4), V_I4(&value) = static_cast<LONG>(random_());
            break;
        case 5:
            (V_VT(&value) = VT_I4), V_I4(&value) = static_cast<LONG>(pick(8)) - 1;
            break;
        case 6:
            (V_VT(&value) = VT_R8), V_R8(&value) = 1.0 / (pick(5)); // also infinite
            break;
        case 7:
            V_VT(&value) = VT_BSTR;
            V_BSTR(&value) = SysAllocString(texts[pick(std::size(texts))]);
            break;
        case 8:
            (V_VT(&value) = VT_BOOL), V_BOOL(&value) = static_cast<SHORT>(random_());
            break;
        case 9:
            (V_VT(&value) = VT_DATE), V_DATE(&value) = 1e300;
            break;
        case 10:
            V_VT(&value) = VT_DISPATCH;
            V_DISPATCH(&value) = pick(3) == 0
                                     ? nullptr
                                     : static_cast<IDispatch*>(makeCom<ScriptedObject>().detach());
            break;
        case 11:
            V_VT(&value) = VT_UNKNOWN;
            V_UNKNOWN(&value) = makeCom<NoticeSink>().detach();
            break;
        default:
            makeArray(value, depth);
        }
    }
    void makeArray(VARIANT& value, int depth) {
        const bool large = depth == 0 && pick(300) == 0;
        const bool variants = !large && pick(2) == 0 && depth < 4;
        const ULONG count = large ? 100'000 : pick(5);
        SAFEARRAYBOUND bounds[] = {{count, static_cast<LONG>(pick(9)) - 4}, {2, 0}};
        const VARTYPE type = variants ? VT_VARIANT : pick(2) == 0 ? VT_R8 : VT_BSTR;
        const UINT dimensions = pick(6) == 0 ? 2 : 1;
        SAFEARRAY* const array = SafeArrayCreate(type, dimensions, bounds);
        if (variants && dimensions == 1)
            for (ULONG i = 0; i < bounds[0].cElements; ++i)
                make(static_cast<VARIANT*>(array->pvData)[i], depth + 1);
        V_VT(&value) = static_cast<VARTYPE>(VT_ARRAY | type);
        V_ARRAY(&value) = array;
    }

    std::mt19937& random_;
    VARIANT owned_;
    VARIANT given_;
};

void throwOne(IDispatch* object, std::mt19937& random) {
    const DISPID member =
        random() % 10 == 0 ? static_cast<DISPID>(random()) : static_cast<DISPID>(random() % 115);
    const std::size_t count = random() % 8 == 0 ? random() % 6 : random() % 2;
    std::vector<std::unique_ptr<AnyVariant>> held;
    std::vector<VARIANT> arguments;
    for (std::size_t j = 0; j < count; ++j) {
        held.push_back(std::make_unique<AnyVariant>(random));
        arguments.push_back(held.back()->get());
    }
    DISPID named[] = {DISPID_PROPERTYPUT, static_cast<DISPID>(random())};
    const WORD kinds[] = {DISPATCH_METHOD,
                          DISPATCH_PROPERTYGET,
                          DISPATCH_PROPERTYPUT,
                          DISPATCH_PROPERTYPUTREF,
                          DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                          0,
                          static_cast<WORD>(random())};
    const WORD kind = kinds[random() % std::size(kinds)];
    const UINT names =
        (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0 || random() % 20 == 0
            ? static_cast<UINT>(std::min<std::size_t>(count, 1 + random() % 9 / 8))
            : 0;
    DISPPARAMS given{arguments.empty() ? nullptr : arguments.data(), named,
                     static_cast<UINT>(count), names};
    OwnedVariant result;
    EXCEPINFO error{};
    UINT wrong = 0;
    object->Invoke(member, IID_NULL, 0, kind, &given,
                   random() % 3 == 0 ? nullptr : result.receive(),
                   random() % 3 == 0 ? nullptr : &error, random() % 3 == 0 ? nullptr : &wrong);
    SysFreeString(error.bstrDescription);
    SysFreeString(error.bstrSource);
    SysFreeString(error.bstrHelpFile);
}

struct HostileCalls : WithLibrary {
    void throwAt(REFCLSID id, unsigned seed) {
        std::mt19937 random(seedOf(seed));
        auto object = library.create<IDispatch>(id);
        const int calls = wantedCalls();
        for (int i = 0; i < calls; ++i) {
            if (i % 500 == 499)
                object = library.create<IDispatch>(id);
            throwOne(object.get(), random);
        }
        // It still works.
        EXPECT_TRUE(object);
        expectWholeHeaps();
    }
};

TEST_F(HostileCalls, OfTheControlAreSurvived) {
    throwAt(__uuidof(::VKRDataEntry), 1);
    const auto control = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
    EXPECT_EQ(control->SetNext(), S_OK);
}

TEST_F(HostileCalls, OfTheRecordAreSurvived) {
    throwAt(__uuidof(::Company), 2);
}

TEST_F(HostileCalls, OfTheServicesAreSurvived) {
    throwAt(__uuidof(::TrailingEarnings), 3);
    throwAt(__uuidof(::StandardLocalizer), 4);
}

struct OnShow : Control {
    const ClosedDialogs closed;
};

TEST_F(OnShow, TheContainerHearsOfWhatIsModal) {
    const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
    open(company.get());
    EXPECT_EQ(control->put_CurrentTab(::toYearly), S_OK);
    site->log.clear();
    MSG remove{GetFocus(), WM_SYSKEYDOWN, 'R', 1 << 29, 0, {}};
    EXPECT_EQ(as<IOleControl>()->OnMnemonic(&remove), S_OK); // asks whether a year goes
    turn();
    const Log modal{"EnableModeless(false)", "EnableModeless(true)"};
    EXPECT_EQ(site->log, modal);
    takeAway();
}

// The handler of each event calls back into the control, whatever that is doing.
TEST_F(OnShow, RandomCallsFromWithinEventsAreSurvived) {
    std::mt19937 random(seedOf(5));
    const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
    const auto sink = makeCom<EventSink>();
    int depth = 0;
    sink->heard = [&](DISPID) {
        if (depth > 3)
            return;
        ++depth;
        throwOne(control.get(), random);
        if (random() % 20 == 0)
            doVerb(static_cast<LONG>(random() % 5) - 5);
        if (random() % 20 == 0)
            as<IOleObject>()->Close(OLECLOSE_NOSAVE);
        --depth;
    };
    const int calls = wantedCalls() / 8;
    for (int i = 0; i < calls; ++i) {
        if (i % 100 == 0) {
            site->control.reset();
            control = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
            open(company.get());
            DWORD cookie = 0;
            EXPECT_EQ(pointOf(control.get(), __uuidof(::__VKRDataEntry))
                          ->Advise(static_cast<IDispatch*>(sink.get()), &cookie),
                      S_OK);
        }
        throwOne(control.get(), random);
        if (random() % 4 == 0)
            control->SetNext();
        if (random() % 8 == 0)
            turn();
        if (i % 100 == 99)
            takeAway();
    }
    site->frame->active.reset();
    expectWholeHeaps();
}

TEST_F(OnShow, CallsAfterTheEndAreAnswered) {
    const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
    open(company.get());
    takeAway();
    HWND window = nullptr;
    SIZEL size{};
    EXPECT_EQ(as<IOleInPlaceObject>()->GetWindow(&window), E_FAIL);
    EXPECT_EQ(doVerb(OLEIVERB_SHOW), E_FAIL);
    EXPECT_EQ(as<IOleInPlaceObject>()->UIDeactivate(), S_OK);
    EXPECT_EQ(as<IOleObject>()->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(as<IOleObject>()->GetExtent(DVASPECT_CONTENT, &size), S_OK);
    EXPECT_EQ(control->SetNext(), S_OK);
    EXPECT_EQ(control->LeaveField(), S_OK);
    EXPECT_EQ(as<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
    ComPtr<::iVKR_Company> back;
    EXPECT_EQ(control->get_objCompany(back.receive()), S_OK);
    EXPECT_EQ(back.get(), company.get());
}

// The figures that a host hands in wrongly stay what they were.
TEST_F(OnShow, AWrongValueChangesNoFigure) {
    const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
    IDispatch* const record = company.get();
    const auto years = static_cast<std::size_t>(rowOf(Datum::YRevenueSeries).upper) + 1;
    EXPECT_EQ(putByName(record, "CurrentPrice", 12.5).result, S_OK);
    EXPECT_EQ(
        putByName(record, "YRevenueSeries", numberArray(std::vector<double>(years, 2.5))).result,
        S_OK);
    open(company.get());
    const Variant series = getByName(record, "YRevenueSeries");
    VARIANT missing{};
    (V_VT(&missing) = VT_ERROR), V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
    VARIANT dangling{};
    (V_VT(&dangling) = VT_BYREF | VT_R8), V_R8REF(&dangling) = nullptr;
    OwnedVariant nested;
    toVariant(VariantArray(0, {Variant(numberArray({1, 2}, 0)), Variant(3.0)}), nested);
    OwnedVariant texts;
    toVariant(textArray({"1", "2", "3"}), texts);
    for (const VARIANT& wrong : {missing, dangling, nested.get(), texts.get()}) {
        for (const char* const name : {"CurrentPrice", "YRevenueSeries"})
            EXPECT_TRUE(
                FAILED(invoke(record, idOf(record, name), DISPATCH_PROPERTYPUT, {wrong}).result))
                << name << V_VT(&wrong);
        EXPECT_TRUE(
            FAILED(invoke(dispatch(), idOf(dispatch(), "objCompany"), DISPATCH_PROPERTYPUT, {wrong})
                       .result));
    }
    EXPECT_TRUE(
        FAILED(invoke(record, idOf(record, "CurrentPrice"), DISPATCH_PROPERTYPUT, {}).result));
    EXPECT_EQ(getByName(record, "CurrentPrice"), Variant(12.5));
    EXPECT_EQ(getByName(record, "YRevenueSeries"), series);
    ComPtr<::iVKR_Company> back;
    EXPECT_EQ(control->get_objCompany(back.receive()), S_OK);
    EXPECT_EQ(back.get(), company.get());
    takeAway();
}

TEST_F(HostileCalls, NamesOfAnyKindAreRefused) {
    const auto control = library.create<IDispatch>(__uuidof(::VKRDataEntry));
    std::mt19937 random(6);
    for (int i = 0; i < 2000; ++i) {
        std::wstring name(random() % 40, L'\0');
        for (wchar_t& one : name)
            one = static_cast<wchar_t>(random());
        LPOLESTR names[] = {name.data(), name.data()};
        DISPID ids[2] = {};
        EXPECT_TRUE(FAILED(control->GetIDsOfNames(IID_NULL, names, 1 + random() % 2, 0, ids)));
    }
    DISPID id = 0;
    LPOLESTR none = nullptr;
    EXPECT_EQ(control->GetIDsOfNames(IID_NULL, &none, 1, 0, &id), E_INVALIDARG);
    EXPECT_EQ(control->GetIDsOfNames(IID_NULL, nullptr, 1, 0, &id), E_INVALIDARG);
    EXPECT_EQ(control->GetIDsOfNames(IID_IUnknown, &none, 1, 0, &id), DISP_E_UNKNOWNINTERFACE);
}

TEST_F(HostileCalls, NullOutPointersAreRefused) {
    const auto control = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
    const auto object = queryFor<IOleObject>(control.get());
    EXPECT_EQ(object->GetClientSite(nullptr), E_POINTER);
    EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
    EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
    EXPECT_EQ(object->GetMiscStatus(DVASPECT_CONTENT, nullptr), E_POINTER);
    EXPECT_EQ(object->GetUserType(USERCLASSTYPE_FULL, nullptr), E_POINTER);
    EXPECT_EQ(object->Advise(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(object->EnumVerbs(nullptr), E_POINTER);
    EXPECT_EQ(queryFor<IProvideClassInfo2>(control.get())->GetClassInfo(nullptr), E_POINTER);
    EXPECT_EQ(queryFor<IConnectionPointContainer>(control.get())->EnumConnectionPoints(nullptr),
              E_POINTER);
    EXPECT_EQ(queryFor<IOleControl>(control.get())->GetControlInfo(nullptr), E_POINTER);
    EXPECT_EQ(queryFor<IOleInPlaceActiveObject>(control.get())->TranslateAccelerator(nullptr),
              E_POINTER);
    EXPECT_EQ(queryFor<IPersist>(control.get())->GetClassID(nullptr), E_POINTER);
    EXPECT_EQ(control->get_objCompany(nullptr), E_POINTER);
    EXPECT_EQ(control->get_UnstoredFields(nullptr), E_POINTER);
}

} // namespace
} // namespace vkr::automation
