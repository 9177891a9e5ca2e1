// SPDX-License-Identifier: MIT
// Calls by name with anything at all: an error code or a skipped statement, and nothing is left.
#include "tests/automation/scripted_objects.hpp"
#include "tests/automation/test_container.hpp"

#include <cstdlib>
#include <random>

namespace vkr::automation {
namespace {

// VKR_CALLS random calls; a build folder of its own may ask for more.
int wantedCalls() {
    const char* const wanted = std::getenv("VKR_CALLS");
    return wanted == nullptr ? 4000 : std::atoi(wanted);
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
    unsigned pick(unsigned count) { return random_() % count; }

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
            V_BSTR(&value) = SysAllocString(L"1x\xD800&\r");
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
        const bool variants = pick(2) == 0 && depth < 4;
        SAFEARRAYBOUND bounds[] = {{pick(5), static_cast<LONG>(pick(9)) - 4}, {2, 0}};
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

struct HostileCalls : WithLibrary {
    void throwAt(REFCLSID id, unsigned seed) {
        std::mt19937 random(seed);
        auto object = library.create<IDispatch>(id);
        const int calls = wantedCalls();
        for (int i = 0; i < calls; ++i) {
            if (i % 500 == 499)
                object = library.create<IDispatch>(id);
            const DISPID member = random() % 10 == 0 ? static_cast<DISPID>(random())
                                                     : static_cast<DISPID>(random() % 115);
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
            object->Invoke(
                member, IID_NULL, 0, kind, &given, random() % 3 == 0 ? nullptr : result.receive(),
                random() % 3 == 0 ? nullptr : &error, random() % 3 == 0 ? nullptr : &wrong);
            SysFreeString(error.bstrDescription);
            SysFreeString(error.bstrSource);
            SysFreeString(error.bstrHelpFile);
        }
        // It still works.
        EXPECT_TRUE(object);
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
