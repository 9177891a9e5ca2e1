// SPDX-License-Identifier: MIT
#include "automation/variants.hpp"

#include "automation/texts.hpp"
#include "platform/nearest_double.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <new>
#include <utility>
#include <vector>

namespace vkr::automation {

namespace {

constexpr int deepestArray = 32;                        // arrays within arrays
constexpr std::int64_t largestExact = 9007199254740992; // a double has every number up to it

[[noreturn]] void refuse() {
    throw ComError(DISP_E_TYPEMISMATCH);
}

Variant read(const VARIANT& value, ObjectIn objectIn, int depth);

// --- numbers -------------------------------------------------------------------------------------

template <typename Integer>
double exact(Integer value) {
    if (std::cmp_greater(value, largestExact) || std::cmp_less(value, -largestExact))
        refuse();
    return static_cast<double>(value);
}

template <typename Integer>
Variant wholeNumber(Integer value) {
    if (std::in_range<std::int32_t>(value))
        return static_cast<std::int32_t>(value);
    return exact(value);
}

// By its digits: dividing by a power of ten could lose the last one.
double ofDecimal(const DECIMAL& value) {
    DECIMAL copy = value;
    Bstr digits;
    check(VarBstrFromDec(&copy, LOCALE_INVARIANT, LOCALE_NOUSEROVERRIDE, digits.receive()));
    const std::string text = textOf(digits.get());
    double number = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
    if (end.ec != std::errc() || end.ptr != text.data() + text.size())
        refuse();
    return number;
}

// Ten thousandths.
double ofCurrency(const CY& value) {
    DECIMAL decimal{};
    check(VarDecFromCy(value, &decimal));
    return ofDecimal(decimal);
}

// --- arrays --------------------------------------------------------------------------------------

// The elements as they lie in memory, locked while they are read.
class Locked {
  public:
    explicit Locked(SAFEARRAY* array) : array_(array) { check(SafeArrayAccessData(array, &data_)); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked() { SafeArrayUnaccessData(array_); }
    template <typename Element>
    [[nodiscard]] const Element* as() const {
        return static_cast<const Element*>(data_);
    }

  private:
    SAFEARRAY* array_;
    void* data_ = nullptr;
};

template <typename Element, typename Convert>
VariantArray numbers(int lower, const Locked& data, std::size_t count, Convert convert) {
    std::vector<double> items(count);
    std::transform(data.as<Element>(), data.as<Element>() + count, items.begin(), convert);
    return VariantArray(lower, std::move(items));
}
template <typename Element>
VariantArray plainNumbers(int lower, const Locked& data, std::size_t count) {
    return numbers<Element>(lower, data, count, [](Element value) { return exact(value); });
}

VariantArray variants(int lower, const Locked& data, std::size_t count, ObjectIn objectIn,
                      int depth) {
    std::vector<Variant> items;
    items.reserve(count);
    const auto* const first = data.as<VARIANT>();
    for (std::size_t i = 0; i < count; ++i)
        items.push_back(read(first[i], objectIn, depth + 1));
    return VariantArray(lower, std::move(items));
}

template <typename Interface>
VariantArray objects(int lower, const Locked& data, std::size_t count, ObjectIn objectIn) {
    std::vector<Variant> items;
    items.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        items.emplace_back(objectIn(data.as<Interface*>()[i]));
    return VariantArray(lower, std::move(items));
}

template <typename Element, typename Convert>
VariantArray each(int lower, const Locked& data, std::size_t count, Convert convert) {
    std::vector<Variant> items;
    items.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        items.emplace_back(convert(data.as<Element>()[i]));
    return VariantArray(lower, std::move(items));
}

// Of one dimension, which has data, and indexes that the component can count to.
bool isReadable(SAFEARRAY& array, VARTYPE element) {
    if (SafeArrayGetDim(&array) != 1)
        return false;
    const SAFEARRAYBOUND& bound = array.rgsabound[0];
    VARTYPE held = VT_EMPTY; // what it really holds may be another thing than the variant says
    if (SUCCEEDED(SafeArrayGetVartype(&array, &held)) && held != element)
        return false;
    const auto last = static_cast<std::int64_t>(bound.lLbound) + bound.cElements - 1;
    return (bound.cElements == 0 || array.pvData != nullptr) &&
           last <= std::numeric_limits<int>::max();
}

Variant readArray(SAFEARRAY* array, VARTYPE element, ObjectIn objectIn, int depth) {
    if (array == nullptr) // one that was never dimensioned
        return VariantArray();
    if (depth > deepestArray || !isReadable(*array, element))
        refuse();
    const std::size_t count = array->rgsabound[0].cElements;
    const int lower = array->rgsabound[0].lLbound;
    const Locked data(array);
    switch (element) {
    case VT_I1:
        return plainNumbers<signed char>(lower, data, count);
    case VT_UI1:
        return plainNumbers<unsigned char>(lower, data, count);
    case VT_I2:
        return plainNumbers<std::int16_t>(lower, data, count);
    case VT_UI2:
        return plainNumbers<std::uint16_t>(lower, data, count);
    case VT_I4:
    case VT_INT:
        return plainNumbers<std::int32_t>(lower, data, count);
    case VT_UI4:
    case VT_UINT:
        return plainNumbers<std::uint32_t>(lower, data, count);
    case VT_I8:
        return plainNumbers<std::int64_t>(lower, data, count);
    case VT_UI8:
        return plainNumbers<std::uint64_t>(lower, data, count);
    case VT_R4: // as single figures, which are told apart from doubles where they become texts
        return each<float>(lower, data, count, [](float value) { return value; });
    case VT_R8:
        return numbers<double>(lower, data, count, [](double value) { return value; });
    case VT_CY:
        return numbers<CY>(lower, data, count, ofCurrency);
    case VT_DECIMAL:
        return numbers<DECIMAL>(lower, data, count, ofDecimal);
    case VT_DATE:
        return each<DATE>(lower, data, count, [](DATE value) { return Date{value}; });
    case VT_BOOL:
        return each<VARIANT_BOOL>(lower, data, count,
                                  [](VARIANT_BOOL value) { return value != 0; });
    case VT_BSTR: {
        std::vector<std::string> items;
        items.reserve(count);
        for (std::size_t i = 0; i < count; ++i)
            items.push_back(textOf(data.as<BSTR>()[i]));
        return VariantArray(lower, std::move(items));
    }
    case VT_VARIANT:
        return variants(lower, data, count, objectIn, depth);
    case VT_DISPATCH:
        return objects<IDispatch>(lower, data, count, objectIn);
    case VT_UNKNOWN:
        return objects<IUnknown>(lower, data, count, objectIn);
    default:
        refuse();
    }
}

// --- single values -------------------------------------------------------------------------------

// A value, or where it is by reference what the reference points at.
template <typename Value>
const Value& held(const VARIANT& value, const Value& here, const Value* there) {
    if ((V_VT(&value) & VT_BYREF) == 0)
        return here;
    if (there == nullptr)
        refuse();
    return *there;
}

Variant read(const VARIANT& value, ObjectIn objectIn, int depth) {
    const VARTYPE type = V_VT(&value) & ~VT_BYREF;
    if ((type & VT_ARRAY) != 0)
        return readArray(held(value, V_ARRAY(&value), V_ARRAYREF(&value)),
                         static_cast<VARTYPE>(type & ~VT_ARRAY), objectIn, depth);
    switch (type) {
    case VT_EMPTY:
    case VT_NULL:
        return {};
    case VT_I1:
        return wholeNumber(static_cast<signed char>(held(value, V_I1(&value), V_I1REF(&value))));
    case VT_UI1:
        return wholeNumber(held(value, V_UI1(&value), V_UI1REF(&value)));
    case VT_I2:
        return std::int16_t{held(value, V_I2(&value), V_I2REF(&value))};
    case VT_UI2:
        return wholeNumber(held(value, V_UI2(&value), V_UI2REF(&value)));
    case VT_I4:
    case VT_INT:
        return std::int32_t{held(value, V_I4(&value), V_I4REF(&value))};
    case VT_UI4:
    case VT_UINT:
        return wholeNumber(held(value, V_UI4(&value), V_UI4REF(&value)));
    case VT_I8:
        return wholeNumber(held(value, V_I8(&value), V_I8REF(&value)));
    case VT_UI8:
        return wholeNumber(held(value, V_UI8(&value), V_UI8REF(&value)));
    case VT_R4:
        return held(value, V_R4(&value), V_R4REF(&value));
    case VT_R8:
        return held(value, V_R8(&value), V_R8REF(&value));
    case VT_CY:
        return ofCurrency(held(value, V_CY(&value), V_CYREF(&value)));
    case VT_DECIMAL:
        return ofDecimal(held(value, V_DECIMAL(&value), V_DECIMALREF(&value)));
    case VT_DATE:
        return Date{held(value, V_DATE(&value), V_DATEREF(&value))};
    case VT_BOOL:
        return held(value, V_BOOL(&value), V_BOOLREF(&value)) != VARIANT_FALSE;
    case VT_BSTR:
        return textOf(held(value, V_BSTR(&value), V_BSTRREF(&value)));
    case VT_DISPATCH:
        return objectIn(held(value, V_DISPATCH(&value), V_DISPATCHREF(&value)));
    case VT_UNKNOWN:
        return objectIn(held(value, V_UNKNOWN(&value), V_UNKNOWNREF(&value)));
    case VT_VARIANT: // only by reference, and to none that is by reference to a variant in turn
        if ((V_VT(&value) & VT_BYREF) == 0 || V_VARIANTREF(&value) == nullptr ||
            V_VT(V_VARIANTREF(&value)) == (VT_VARIANT | VT_BYREF))
            refuse();
        return read(*V_VARIANTREF(&value), objectIn, depth);
    default:
        refuse();
    }
}

// No datum is an object.
std::shared_ptr<Object> noObject(IUnknown* /*object*/) {
    refuse();
}

double figureIn(const Variant& held) {
    if (const auto* const figure = std::get_if<double>(&held.value()))
        return *figure;
    if (const auto* const whole = std::get_if<std::int32_t>(&held.value()))
        return *whole;
    if (const auto* const small = std::get_if<std::int16_t>(&held.value()))
        return *small;
    // The figure that was meant: 0.1, where a single's own value is 0.10000000149.
    if (const auto* const single = std::get_if<float>(&held.value());
        single && std::isfinite(*single))
        return nearestDouble(held.toText()).value_or(*single);
    if (!held.isEmpty())
        refuse();
    return 0;
}

// --- the other way -------------------------------------------------------------------------------

SAFEARRAY* newArray(int lower, std::size_t count) {
    SAFEARRAYBOUND bound{static_cast<ULONG>(count), lower};
    SAFEARRAY* const array = SafeArrayCreate(VT_VARIANT, 1, &bound);
    if (array == nullptr)
        throw std::bad_alloc();
    return array;
}

VARIANT made(const Variant& value, ObjectOut objectOut) {
    OwnedVariant held;
    writeVariant(value, held, objectOut);
    return held.detach();
}

// Elements are variants: scripts can't index any other array.
struct ToArray {
    VARIANT* elements;
    ObjectOut objectOut;

    void operator()(const std::vector<double>& items) const {
        std::ranges::transform(items, elements, [](double item) {
            VARIANT number;
            V_VT(&number) = VT_R8;
            V_R8(&number) = item;
            return number;
        });
    }
    template <typename Item>
    void operator()(const std::vector<Item>& items) const {
        std::ranges::transform(items, elements,
                               [this](const Item& item) { return made(item, objectOut); });
    }
};

struct ToVariant {
    VARIANT& into;
    ObjectOut objectOut;

    void operator()(std::monostate /*nothing*/) const {}
    void operator()(std::int16_t value) const { (V_VT(&into) = VT_I2), V_I2(&into) = value; }
    void operator()(std::int32_t value) const { (V_VT(&into) = VT_I4), V_I4(&into) = value; }
    void operator()(float value) const { (V_VT(&into) = VT_R4), V_R4(&into) = value; }
    void operator()(double value) const { (V_VT(&into) = VT_R8), V_R8(&into) = value; }
    void operator()(Date value) const { (V_VT(&into) = VT_DATE), V_DATE(&into) = value.serial; }
    void operator()(const std::string& value) const {
        V_BSTR(&into) = newBstr(value);
        V_VT(&into) = VT_BSTR;
    }
    void operator()(const Variant::ObjectPtr& value) const {
        V_DISPATCH(&into) = objectOut(value).detach();
        V_VT(&into) = VT_DISPATCH;
    }
    void operator()(bool value) const {
        V_VT(&into) = VT_BOOL;
        V_BOOL(&into) = value ? VARIANT_TRUE : VARIANT_FALSE;
    }
    void operator()(const VariantArray& value) const {
        V_ARRAY(&into) = newArray(value.lower(), value.size());
        V_VT(&into) = VT_ARRAY | VT_VARIANT; // owns it: a failure on the way loses nothing
        std::visit(ToArray{static_cast<VARIANT*>(V_ARRAY(&into)->pvData), objectOut},
                   value.items());
    }
};

} // namespace

Variant readVariant(const VARIANT& value, ObjectIn objectIn) {
    return read(value, objectIn, 0);
}

double numberIn(const VARIANT& value) {
    return figureIn(readVariant(value, noObject));
}

std::int16_t yearIn(const VARIANT& value) {
    const double number = numberIn(value);
    if (number != std::trunc(number) || std::abs(number) > std::numeric_limits<std::int16_t>::max())
        refuse();
    return static_cast<std::int16_t>(number);
}

Date dateIn(const VARIANT& value) {
    const Variant held = readVariant(value, noObject);
    if (const auto* date = std::get_if<Date>(&held.value()))
        return *date;
    return Date{numberIn(value)};
}

std::string textIn(const VARIANT& value) {
    const Variant held = readVariant(value, noObject);
    if (held.isEmpty())
        return {};
    return std::get<std::string>(held.value());
}

Variant seriesIn(const VARIANT& value) {
    const Variant held = readVariant(value, noObject);
    if (!held.isArray())
        refuse();
    const VariantArray& array = held.array();
    if (array.numbers() != nullptr)
        return held;
    const auto* const items = std::get_if<std::vector<Variant>>(&array.items());
    if (items == nullptr)
        refuse();
    std::vector<double> figures(items->size());
    std::ranges::transform(*items, figures.begin(), figureIn);
    return VariantArray(array.lower(), std::move(figures));
}

void writeVariant(const Variant& value, OwnedVariant& into, ObjectOut objectOut) {
    std::visit(ToVariant{*into.receive(), objectOut}, value.value());
}

} // namespace vkr::automation
