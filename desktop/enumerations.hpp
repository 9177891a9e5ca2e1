// SPDX-License-Identifier: MIT
#pragma once

#include "record/enumerations.hpp"

#include <QMetaEnum>
#include <QObject>

namespace vkr {

// The enumerations of the component, known to Qt by their names: in logs, in QVariant, in QML.
//
//     QMetaEnum::fromType<vkr::DataEntryObject>().valueToKey(20); // "doLastFY"
//     qDebug() << vkr::toYearly;                                 // vkr::toYearly
//
// A new one is named in record/enumerations.hpp too, where the meta-object compiler reads it.
Q_NAMESPACE
Q_ENUM_NS(TABObject)
Q_ENUM_NS(DataEntryObject)
Q_ENUM_NS(UserModeType)
Q_ENUM_NS(PlatformType)
Q_ENUM_NS(UnloadModeType)

} // namespace vkr
