// SPDX-License-Identifier: MIT
#pragma once

#include "platform/color.hpp"
#include "platform/control.hpp"
#include "platform/date.hpp"
#include "platform/stroke.hpp"

#include <QColor>
#include <QDate>
#include <QKeyEvent>
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

// Twips to logical pixels. Edges are rounded, not sizes, so that neighbours stay neighbours.
class PixelScale {
  public:
    static constexpr double twipsPerInch = 1440;

    explicit PixelScale(double dotsPerInch = 96) : dotsPerInch_(dotsPerInch) {}

    [[nodiscard]] double dotsPerInch() const { return dotsPerInch_; }
    [[nodiscard]] int pixels(Twips twips) const;
    [[nodiscard]] Twips twips(double pixels) const { return pixels * twipsPerInch / dotsPerInch_; }
    [[nodiscard]] QRect rect(const Control& control) const; // within its container
    [[nodiscard]] int fontPixels() const;

  private:
    double dotsPerInch_;
};

} // namespace vkr
