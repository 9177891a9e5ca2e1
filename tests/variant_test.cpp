// SPDX-License-Identifier: MIT
#include "platform/object.hpp"
#include "platform/variant.hpp"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace vkr {
namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

Variant object() {
    return std::make_shared<Object>();
}

TEST(VariantTest, KnowsItsType) {
    struct Row {
        Variant value;
        int type;
    };
    const Row rows[] = {
        {Variant(), Variant::vtEmpty},
        {std::int16_t{3}, Variant::vtInteger},
        {3, Variant::vtLong},
        {1.5F, Variant::vtSingle},
        {1.5, Variant::vtDouble},
        {Date{36526}, Variant::vtDate},
        {"text", Variant::vtString},
        {std::string("text"), Variant::vtString},
        {std::string_view("text"), Variant::vtString},
        {object(), Variant::vtObject},
        {true, Variant::vtBoolean},
        {numberArray({1, 2}), Variant::vtArray + Variant::vtDouble},
        {textArray({"a"}), Variant::vtArray + Variant::vtString},
        {VariantArray(0, std::vector<Variant>{1, "a"}), Variant::vtArray + Variant::vtVariant},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.value.varType(), row.type);
    EXPECT_TRUE(Variant().isEmpty());
    EXPECT_TRUE(object().isObject());
    EXPECT_TRUE(numberArray({}).isArray());
}

TEST(VariantTest, APointerDoesNotBecomeABoolean) {
    EXPECT_FALSE((std::is_constructible_v<Variant, int*>));
    EXPECT_FALSE((std::is_constructible_v<Variant, Object*>));
}

TEST(VariantTest, ConvertsToNumbers) {
    struct Row {
        Variant value;
        double number;
    };
    const Row rows[] = {
        {Variant(), 0},
        {std::int16_t{-3}, -3},
        {70000, 70000},
        {0.5F, 0.5},
        {-1.25, -1.25},
        {Date{2.5}, 2.5},
        {true, -1},
        {false, 0},
        {"12.5 apples", 12.5},
        {"", 0},
        {"-7", -7},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.value.toDouble(), row.number);
    EXPECT_THROW(static_cast<void>(object().toDouble()), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(numberArray({1}).toDouble()), std::invalid_argument);
}

TEST(VariantTest, RoundsToWholeNumbersHalfToEven) {
    EXPECT_EQ(Variant(0.5).toLong(), 0);
    EXPECT_EQ(Variant(1.5).toLong(), 2);
    EXPECT_EQ(Variant(-2.5).toLong(), -2);
    EXPECT_EQ(Variant(2147483647.4).toLong(), highest);
    EXPECT_EQ(Variant(-2147483648.5).toLong(), lowest);
}

TEST(VariantTest, AWholeNumberThatDoesNotFitIsAnOverflow) {
    for (const double value : {2147483647.5, -2147483649.0, 1e300, std::nan(""),
                               std::numeric_limits<double>::infinity()})
        EXPECT_THROW(static_cast<void>(Variant(value).toLong()), std::overflow_error) << value;
}

TEST(VariantTest, ConvertsToBooleans) {
    for (const auto& value : {Variant(true), Variant(2), Variant(-0.5), Variant("True"),
                              Variant("TRUE"), Variant("1"), Variant(Date{1})})
        EXPECT_TRUE(value.toBoolean());
    for (const auto& value : {Variant(), Variant(false), Variant(0), Variant(0.0), Variant("false"),
                              Variant("0"), Variant(Date{0})})
        EXPECT_FALSE(value.toBoolean());
    for (const auto& value : {Variant("yes"), Variant(""), object(), numberArray({1})})
        EXPECT_THROW(static_cast<void>(value.toBoolean()), std::invalid_argument);
}

TEST(VariantTest, ASingleIsTheTextThatItWasWrittenAs) {
    EXPECT_EQ(Variant(0.1F).toText(), "0.1");
    EXPECT_EQ(Variant(-394.33F).toText(), "-394.33");
    EXPECT_EQ(Variant(16777216.0F).toText(), "16777216");
    EXPECT_EQ(Variant(1e-10F).toText(), "1E-10");
    EXPECT_EQ(Variant(std::numeric_limits<float>::max()).toText(), "3.4028235E+38");
    EXPECT_EQ(Variant(std::numeric_limits<float>::infinity()).toText(), "");
}

TEST(VariantTest, ConvertsToText) {
    struct Row {
        Variant value;
        std::string text;
    };
    const Row rows[] = {
        {Variant(), ""},          {"text", "text"},       {true, "True"}, {false, "False"},
        {std::int16_t{-3}, "-3"}, {1234567, "1234567"},   {0.1, "0.1"},   {-2.5, "-2.5"},
        {0.25F, "0.25"},          {Date{45366}, "45366"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.value.toText(), row.text);
    EXPECT_THROW(static_cast<void>(object().toText()), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(textArray({"a"}).toText()), std::invalid_argument);
}

TEST(VariantTest, ConvertsToDates) {
    EXPECT_EQ(Variant(Date{36526.5}).toDate(), Date{36526.5});
    EXPECT_EQ(Variant(36526).toDate(), Date{36526});
    EXPECT_EQ(Variant().toDate(), Date{});
    for (const auto& value : {Variant("1/1/2000"), object(), numberArray({1})})
        EXPECT_THROW(static_cast<void>(value.toDate()), std::invalid_argument);
}

TEST(VariantTest, KnowsWhatIsNumeric) {
    for (const auto& value : {Variant(std::int16_t{1}), Variant(1), Variant(1.0F), Variant(1.0),
                              Variant(true), Variant("12.5"), Variant("-3")})
        EXPECT_TRUE(value.isNumeric());
    for (const auto& value : {Variant(), Variant("12.5 apples"), Variant(""), Variant(Date{1}),
                              object(), numberArray({1})})
        EXPECT_FALSE(value.isNumeric());
}

TEST(VariantTest, HandsOutObjectsAndArraysOnlyWhereItHoldsThem) {
    const auto held = std::make_shared<Object>();
    EXPECT_EQ(Variant(held).toObject(), held);
    EXPECT_EQ(Variant(5).toObject(), nullptr);
    Variant number = 5;
    EXPECT_THROW(static_cast<void>(number.array()), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(std::as_const(number).array()), std::invalid_argument);
    Variant array = numberArray({1, 2}, 1);
    array.array().setNumber(2, 7);
    EXPECT_EQ(array, numberArray({1, 7}, 1));
}

TEST(VariantTest, EqualMeansSameTypeAndValue) {
    EXPECT_EQ(Variant(3), Variant(3));
    EXPECT_NE(Variant(3), Variant(3.0));
    EXPECT_NE(Variant(), Variant(0));
    EXPECT_EQ(textArray({"a"}), textArray({"a"}));
    EXPECT_NE(textArray({"a"}), textArray({"a"}, 1));
}

TEST(VariantTest, AnUnknownPropertyOfAnObjectIsAnError) {
    Object plain;
    EXPECT_THROW(static_cast<void>(plain.get("intUnit")), std::invalid_argument);
    EXPECT_THROW(plain.put("intUnit", 6), std::invalid_argument);
}

TEST(VariantArrayTest, CarriesItsOwnBounds) {
    const VariantArray years(1, std::vector<double>{10, 20, 30});
    EXPECT_EQ(years.lower(), 1);
    EXPECT_EQ(years.upper(), 3);
    EXPECT_EQ(years.number(3), 30);
    EXPECT_EQ(years.at(1), Variant(10.0));
    EXPECT_TRUE(years.contains(3));
    for (const int outside : {0, 4, -1, lowest, highest}) {
        EXPECT_FALSE(years.contains(outside));
        EXPECT_THROW(static_cast<void>(years.at(outside)), std::out_of_range);
        EXPECT_THROW(static_cast<void>(years.number(outside)), std::out_of_range);
        EXPECT_THROW(static_cast<void>(years.text(outside)), std::out_of_range);
    }
}

TEST(VariantArrayTest, AnEmptyArrayEndsBeforeItBegins) {
    const VariantArray empty;
    EXPECT_EQ(empty.lower(), 0);
    EXPECT_EQ(empty.upper(), -1);
    EXPECT_FALSE(empty.contains(0));
}

TEST(VariantArrayTest, BoundsFarFromZeroDoNotRunOver) {
    const VariantArray low(lowest, std::vector<double>{1, 2});
    EXPECT_EQ(low.upper(), lowest + 1);
    EXPECT_EQ(low.number(lowest + 1), 2);
    EXPECT_FALSE(low.contains(highest));
    EXPECT_EQ(VariantArray(lowest, std::vector<double>{1}).upper(), lowest);
    const VariantArray high(highest, std::vector<double>{1});
    EXPECT_EQ(high.upper(), highest);
    EXPECT_EQ(high.number(highest), 1);
    EXPECT_THROW(VariantArray(highest, std::vector<double>{1, 2}), std::length_error);
    EXPECT_THROW(VariantArray(lowest, std::vector<double>{}), std::length_error);
}

TEST(VariantArrayTest, ConvertsOnStoring) {
    VariantArray numbers(0, std::vector<double>{0, 0});
    numbers.set(0, "12.5");
    numbers.setNumber(1, 3);
    EXPECT_EQ(*numbers.numbers(), (std::vector<double>{12.5, 3}));
    EXPECT_THROW(numbers.set(0, object()), std::invalid_argument);
    EXPECT_EQ(numbers.number(0), 12.5);

    VariantArray texts(0, std::vector<std::string>{"", ""});
    texts.set(0, true);
    texts.setNumber(1, 1.5);
    EXPECT_EQ(texts.text(0), "True");
    EXPECT_EQ(texts.text(1), "1.5");
    EXPECT_EQ(texts.numbers(), nullptr);

    VariantArray mixed(0, std::vector<Variant>{1, "a"});
    mixed.set(0, object());
    EXPECT_TRUE(mixed.at(0).isObject());
    mixed.setNumber(1, 2);
    EXPECT_EQ(mixed.at(1), Variant(2.0));
}

TEST(VariantArrayTest, ReadsWhatIsNoNumberAsZero) {
    const VariantArray mixed(0, std::vector<Variant>{"7 of 9", "none", object(), Variant()});
    EXPECT_EQ(mixed.number(0), 7);
    EXPECT_EQ(mixed.number(1), 0);
    EXPECT_EQ(mixed.number(2), 0);
    EXPECT_EQ(mixed.number(3), 0);
}

} // namespace
} // namespace vkr
