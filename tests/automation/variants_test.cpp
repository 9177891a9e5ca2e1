// SPDX-License-Identifier: MIT
#include "automation/com_error.hpp"
#include "automation/late_bound.hpp"
#include "automation/texts.hpp"
#include "automation/variants.hpp"
#include "platform/object.hpp"

#include <cmath>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace vkr::automation {
namespace {

HRESULT refusal(const VARIANT& value) {
    try {
        static_cast<void>(fromVariant(value));
        return S_OK;
    } catch (const ComError& error) {
        return error.code();
    }
}

VARIANT of(VARTYPE type) {
    VARIANT value;
    VariantInit(&value);
    V_VT(&value) = type;
    return value;
}

TEST(Variants, SingleValuesComeInAsWhatTheyAre) {
    struct Row {
        std::function<void(VARIANT&)> make;
        Variant wanted;
    };
    const std::vector<Row> rows = {
        {[](VARIANT& v) { V_VT(&v) = VT_EMPTY; }, {}},
        {[](VARIANT& v) { V_VT(&v) = VT_NULL; }, {}},
        {[](VARIANT& v) { (V_VT(&v) = VT_I1), V_I1(&v) = -7; }, std::int32_t{-7}},
        {[](VARIANT& v) { (V_VT(&v) = VT_UI1), V_UI1(&v) = 200; }, std::int32_t{200}},
        {[](VARIANT& v) { (V_VT(&v) = VT_I2), V_I2(&v) = -3; }, std::int16_t{-3}},
        {[](VARIANT& v) { (V_VT(&v) = VT_UI2), V_UI2(&v) = 65535; }, std::int32_t{65535}},
        {[](VARIANT& v) { (V_VT(&v) = VT_I4), V_I4(&v) = -9; }, std::int32_t{-9}},
        {[](VARIANT& v) { (V_VT(&v) = VT_INT), V_INT(&v) = 12; }, std::int32_t{12}},
        {[](VARIANT& v) { (V_VT(&v) = VT_UI4), V_UI4(&v) = 4000000000U; }, 4000000000.0},
        {[](VARIANT& v) { (V_VT(&v) = VT_I8), V_I8(&v) = 9007199254740992; }, 9007199254740992.0},
        {[](VARIANT& v) { (V_VT(&v) = VT_UI8), V_UI8(&v) = 5; }, std::int32_t{5}},
        {[](VARIANT& v) { (V_VT(&v) = VT_R4), V_R4(&v) = 0.1F; }, 0.1F},
        {[](VARIANT& v) { (V_VT(&v) = VT_R8), V_R8(&v) = 0.1; }, 0.1},
        {[](VARIANT& v) { (V_VT(&v) = VT_CY), V_CY(&v).int64 = 1234567; }, 123.4567},
        {[](VARIANT& v) { (V_VT(&v) = VT_DATE), V_DATE(&v) = 45366; }, Date{45366}},
        {[](VARIANT& v) { (V_VT(&v) = VT_BOOL), V_BOOL(&v) = VARIANT_TRUE; }, true},
        {[](VARIANT& v) { (V_VT(&v) = VT_BSTR), V_BSTR(&v) = nullptr; }, ""},
    };
    int number = 0;
    for (const Row& row : rows) {
        SCOPED_TRACE(number++);
        VARIANT value;
        std::memset(&value, 0xCC, sizeof value); // what is not of the value is anything
        row.make(value);
        EXPECT_EQ(fromVariant(value), row.wanted);
        VARIANT reference = of(VT_VARIANT | VT_BYREF);
        V_VARIANTREF(&reference) = &value;
        EXPECT_EQ(fromVariant(reference), row.wanted);
    }
}

TEST(Variants, ValuesByReferenceAreThoseThatTheyPointAt) {
    double number = 2.5;
    VARIANT value = of(VT_R8 | VT_BYREF);
    V_R8REF(&value) = &number;
    EXPECT_EQ(fromVariant(value), Variant(2.5));
    const Bstr text("Müller");
    BSTR held = text.get();
    value = of(VT_BSTR | VT_BYREF);
    V_BSTRREF(&value) = &held;
    EXPECT_EQ(fromVariant(value), Variant("Müller"));
}

TEST(Variants, WhatHasNoCounterpartIsRefused) {
    VARIANT missing = of(VT_ERROR);
    V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
    EXPECT_EQ(refusal(missing), DISP_E_TYPEMISMATCH);
    for (const VARTYPE type : {VT_R8, VT_BSTR, VT_I2, VT_DISPATCH, VT_UNKNOWN, VT_VARIANT, VT_BOOL})
        EXPECT_EQ(refusal(of(static_cast<VARTYPE>(type | VT_BYREF))), DISP_E_TYPEMISMATCH) << type;
    VARIANT turning = of(VT_VARIANT | VT_BYREF);
    V_VARIANTREF(&turning) = &turning;
    EXPECT_EQ(refusal(turning), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refusal(of(VT_RECORD)), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refusal(of(VT_VARIANT)), DISP_E_TYPEMISMATCH);
    VARIANT large = of(VT_I8);
    V_I8(&large) = 9007199254740993; // a double would be another number
    EXPECT_EQ(refusal(large), DISP_E_TYPEMISMATCH);
    wchar_t half[] = {L'a', 0xD800, 0};
    VARIANT broken = of(VT_BSTR);
    V_BSTR(&broken) = SysAllocString(half);
    EXPECT_EQ(refusal(broken), DISP_E_TYPEMISMATCH);
    VariantClear(&broken);
}

SAFEARRAY* arrayOf(VARTYPE type, LONG lower, ULONG count) {
    SAFEARRAYBOUND bound{count, lower};
    return SafeArrayCreate(type, 1, &bound);
}

TEST(Variants, ArraysKeepTheirBounds) {
    OwnedVariant value;
    V_VT(&value.get()) = VT_ARRAY | VT_I4;
    V_ARRAY(&value.get()) = arrayOf(VT_I4, -2, 5);
    auto* const items = static_cast<LONG*>(V_ARRAY(&value.get())->pvData);
    for (int i = 0; i < 5; ++i)
        items[i] = i * 10;
    const Variant in = fromVariant(value.get());
    EXPECT_EQ(in, numberArray({0, 10, 20, 30, 40}, -2));
    OwnedVariant out;
    toVariant(in, out);
    ASSERT_EQ(V_VT(&out.get()), VT_ARRAY | VT_VARIANT);
    EXPECT_EQ(V_ARRAY(&out.get())->rgsabound[0].lLbound, -2);
    EXPECT_EQ(V_ARRAY(&out.get())->rgsabound[0].cElements, 5U);
    EXPECT_EQ(seriesIn(out.get()), in);

    SAFEARRAY* const held = V_ARRAY(&value.get());
    VARIANT reference = of(VT_ARRAY | VT_I4 | VT_BYREF);
    SAFEARRAY* place = held;
    V_ARRAYREF(&reference) = &place;
    EXPECT_EQ(fromVariant(reference), in);
}

TEST(Variants, AHundredThousandElementsAreAllThere) {
    OwnedVariant value;
    V_VT(&value.get()) = VT_ARRAY | VT_R8;
    V_ARRAY(&value.get()) = arrayOf(VT_R8, 1, 100000);
    auto* const items = static_cast<double*>(V_ARRAY(&value.get())->pvData);
    for (int i = 0; i < 100000; ++i)
        items[i] = i;
    const Variant in = fromVariant(value.get());
    EXPECT_EQ(in.array().lower(), 1);
    EXPECT_EQ(in.array().upper(), 100000);
    EXPECT_EQ(in.array().number(100000), 99999);
}

TEST(Variants, ArraysThatAreNoneOfOursAreRefused) {
    SAFEARRAYBOUND two[] = {{2, 0}, {3, 0}};
    OwnedVariant grid;
    V_VT(&grid.get()) = VT_ARRAY | VT_R8;
    V_ARRAY(&grid.get()) = SafeArrayCreate(VT_R8, 2, two);
    EXPECT_EQ(refusal(grid.get()), DISP_E_TYPEMISMATCH);

    OwnedVariant lying; // texts said to be numbers
    V_VT(&lying.get()) = VT_ARRAY | VT_BSTR;
    V_ARRAY(&lying.get()) = arrayOf(VT_BSTR, 0, 2);
    VARIANT as = lying.get();
    V_VT(&as) = VT_ARRAY | VT_R8;
    EXPECT_EQ(refusal(as), DISP_E_TYPEMISMATCH);

    OwnedVariant high; // whose last element has no number
    V_VT(&high.get()) = VT_ARRAY | VT_R8;
    V_ARRAY(&high.get()) = arrayOf(VT_R8, std::numeric_limits<LONG>::max(), 2);
    EXPECT_EQ(refusal(high.get()), DISP_E_TYPEMISMATCH);
}

TEST(Variants, ArraysWithinArraysEndSomewhere) {
    OwnedVariant outer;
    for (int depth = 0; depth < 100; ++depth) {
        OwnedVariant next;
        V_VT(&next.get()) = VT_ARRAY | VT_VARIANT;
        V_ARRAY(&next.get()) = arrayOf(VT_VARIANT, 0, 1);
        *static_cast<VARIANT*>(V_ARRAY(&next.get())->pvData) = outer.detach();
        outer.get() = next.detach();
        if (depth == 5) {
            EXPECT_EQ(refusal(outer.get()), S_OK);
        }
    }
    EXPECT_EQ(refusal(outer.get()), DISP_E_TYPEMISMATCH);
}

TEST(Variants, ASeriesIsMadeOfFiguresAlone) {
    const auto series = [](const std::vector<Variant>& items) {
        OwnedVariant value;
        toVariant(VariantArray(0, items), value);
        return seriesIn(value.get());
    };
    EXPECT_EQ(series({std::int16_t{3}, 2.5, {}, 0.1F}), numberArray({3, 2.5, 0, 0.1}));
    EXPECT_THROW(static_cast<void>(series({1.0, "12x"})), ComError);
    EXPECT_THROW(static_cast<void>(series({1.0, true})), ComError);
    VARIANT number = of(VT_R8);
    V_R8(&number) = 1;
    EXPECT_THROW(static_cast<void>(seriesIn(number)), ComError);
}

TEST(Variants, ATextIsNoFigureAndAFigureNoText) {
    OwnedVariant value;
    toVariant("12.5", value);
    EXPECT_THROW(static_cast<void>(numberIn(value.get())), ComError);
    EXPECT_THROW(static_cast<void>(dateIn(value.get())), ComError);
    toVariant(12.5, value);
    EXPECT_ANY_THROW(static_cast<void>(textIn(value.get())));
    EXPECT_THROW(static_cast<void>(yearIn(value.get())), ComError);
    EXPECT_EQ(dateIn(value.get()), Date{12.5});
    toVariant(100000.0, value);
    EXPECT_THROW(static_cast<void>(yearIn(value.get())), ComError);
    toVariant(Variant(), value);
    EXPECT_EQ(numberIn(value.get()), 0);
    EXPECT_EQ(textIn(value.get()), "");
}

TEST(Variants, TextsComeBackTheSame) {
    for (const std::string text : {"", "plain", "Ä€😀", "a\rb\n\tc"}) {
        OwnedVariant value;
        toVariant(text, value);
        EXPECT_EQ(fromVariant(value.get()), Variant(text));
    }
    const std::string withNull("a\0b", 3);
    OwnedVariant value;
    toVariant(withNull, value);
    EXPECT_EQ(textIn(value.get()), withNull);
}

struct Named : Object {
    Variant get(std::string_view name) const override {
        return name == "x" ? value : Object::get(name);
    }
    void put(std::string_view name, const Variant& given) override {
        if (name != "x")
            Object::put(name, given);
        value = given;
    }
    Variant value = 1.0;
};

TEST(Variants, AnObjectThatHasBeenOutsideIsItselfAgain) {
    const auto object = std::make_shared<Named>();
    OwnedVariant value;
    toVariant(Variant(std::static_pointer_cast<Object>(object)), value);
    ASSERT_EQ(V_VT(&value.get()), VT_DISPATCH);
    EXPECT_EQ(fromVariant(value.get()).toObject(), object);
    toVariant(Variant(Variant::ObjectPtr()), value);
    EXPECT_EQ(fromVariant(value.get()).toObject(), nullptr);
}

} // namespace
} // namespace vkr::automation
