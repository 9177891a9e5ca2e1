// SPDX-License-Identifier: MIT
#include "desktop/enumerations.hpp"

#include <QDebug>
#include <QVariant>

#include <gtest/gtest.h>

namespace vkr {
namespace {

TEST(Enumerations, EveryObjectIsKnownToQtByItsName) {
    const auto objects = QMetaEnum::fromType<DataEntryObject>();
    EXPECT_STREQ(objects.name(), "DataEntryObject");
    ASSERT_EQ(objects.keyCount(), dataEntryObjectCount);
    for (int object = 0; object < dataEntryObjectCount; ++object)
        EXPECT_EQ(objects.value(object), object);
    EXPECT_STREQ(objects.valueToKey(doName), "doName");
    EXPECT_STREQ(objects.valueToKey(doLastFY), "doLastFY");
    EXPECT_STREQ(objects.valueToKey(doDateOfSource), "doDateOfSource");
    EXPECT_EQ(objects.keyToValue("doYCSO"), doYCSO);
}

TEST(Enumerations, TabsModesAndPlatformsToo) {
    EXPECT_EQ(QMetaEnum::fromType<TABObject>().keyCount(), 5);
    EXPECT_STREQ(QMetaEnum::fromType<TABObject>().valueToKey(toOptions), "toOptions");
    EXPECT_STREQ(QMetaEnum::fromType<UserModeType>().valueToKey(umCustom), "umCustom");
    EXPECT_STREQ(QMetaEnum::fromType<PlatformType>().valueToKey(ptZX), "ptZX");
    EXPECT_STREQ(QMetaEnum::fromType<UnloadModeType>().valueToKey(ulCancel), "ulCancel");
}

TEST(Enumerations, ValuesTravelInVariantsAndAreLoggedByName) {
    EXPECT_EQ(QVariant::fromValue(doYEPS).toInt(), doYEPS);
    EXPECT_EQ(QVariant::fromValue(doYEPS).toString(), "doYEPS");
    QString logged;
    QDebug(&logged) << toYearly;
    EXPECT_TRUE(logged.contains("toYearly")) << logged.toStdString();
}

} // namespace
} // namespace vkr
