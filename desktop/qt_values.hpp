// SPDX-License-Identifier: MIT
#pragma once

#include "platform/color.hpp"
#include "platform/date.hpp"
#include "platform/pixel_scale.hpp"
#include "platform/stroke.hpp"

#include <QColor>
#include <QDate>
#include <QKeyEvent>
#include <QRect>
#include <QString>

#include <optional>
#include <string>
#include <string_view>

namespace vkr {

// Conversions between the values of the component and those of Qt.

[[nodiscard]] QString toQt(std::string_view text);
[[nodiscard]] std::string fromQt(const QString& text);

// Positions: characters on the side of the models, UTF-16 units on that of Qt.
[[nodiscard]] int unitsOf(const QString& text, int characters);
[[nodiscard]] int charactersOf(const QString& text, int units);
[[nodiscard]] int charactersOf(const QString& text);

[[nodiscard]] QColor toQt(Color color); // system colours have none: invalid
[[nodiscard]] Color fromQt(const QColor& color);

[[nodiscard]] QDate toQt(Date date); // invalid for an absent date
[[nodiscard]] std::optional<Date> fromQt(QDate date);

// Text that a tool tip shows as it is, never as markup.
[[nodiscard]] QString plainToolTip(const QString& text);

// The code of a key; keys::none for Shift, Ctrl, Alt and their like alone.
[[nodiscard]] KeyCode keyCodeOf(const QKeyEvent& event);
[[nodiscard]] int shiftOf(Qt::KeyboardModifiers modifiers);
[[nodiscard]] Stroke strokeOf(const QKeyEvent& event);

// The same text with LF for every line break, also for CR and CR LF.
[[nodiscard]] QString withLineFeeds(QString text);

[[nodiscard]] QRect toQt(const PixelPlace& place);

} // namespace vkr
