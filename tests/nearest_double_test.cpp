// SPDX-License-Identifier: MIT
#include "platform/nearest_double.hpp"

#include <clocale>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace vkr {
namespace {

TEST(NearestDouble, IsTheOneThatTheDigitsAreNearestTo) {
    EXPECT_EQ(nearestDouble("0.1"), 0.1);
    EXPECT_EQ(nearestDouble("-12.50"), -12.5);
    EXPECT_EQ(nearestDouble(".5"), 0.5);
    EXPECT_EQ(nearestDouble("5."), 5.0);
    EXPECT_EQ(nearestDouble("1e3"), 1000.0);
    EXPECT_EQ(nearestDouble("25E-2"), 0.25);
    // Half way between two doubles, and a little more.
    EXPECT_EQ(nearestDouble("9007199254740993"), 9007199254740992.0);
    EXPECT_EQ(nearestDouble("9007199254740993.00000000000000000001"), 9007199254740994.0);
}

TEST(NearestDouble, ReachesBothEndsOfTheRange) {
    using limits = std::numeric_limits<double>;
    EXPECT_EQ(nearestDouble("1.7976931348623157e308"), limits::max());
    EXPECT_EQ(nearestDouble("-1.7976931348623157e308"), -limits::max());
    EXPECT_EQ(nearestDouble("2.2250738585072014e-308"), limits::min());
    EXPECT_EQ(nearestDouble("5e-324"), limits::denorm_min());
    EXPECT_EQ(nearestDouble("1e309"), std::nullopt);
    EXPECT_EQ(nearestDouble("-1e309"), std::nullopt);
    EXPECT_EQ(nearestDouble("1e-400"), std::nullopt);
    EXPECT_EQ(nearestDouble("0e-400"), 0.0);
}

TEST(NearestDouble, IsNothingOfWhatIsNoNumberAlone) {
    for (const char* text : {"", "abc", "1,5", "1.5 ", "1.5x", "1 5"})
        EXPECT_EQ(nearestDouble(text), std::nullopt) << text;
}

TEST(NearestDouble, DoesNotGoByTheLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8"}) {
        std::setlocale(LC_ALL, name); // where it is installed
        EXPECT_EQ(nearestDouble("1234.5"), 1234.5) << name;
        EXPECT_EQ(nearestDouble("1234,5"), std::nullopt) << name;
    }
    std::setlocale(LC_ALL, before.c_str());
}

} // namespace
} // namespace vkr
