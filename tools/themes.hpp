// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPalette>

#include <ostream>

namespace vkr {

struct Theme {
    const char* name;
    QColor window, windowText, base, text, button, disabled, highlight;
};

inline const Theme light{"light",   QColor(239, 239, 239), Qt::black, Qt::white,
                         Qt::black, QColor(239, 239, 239), 0x767676U, QColor(20, 80, 150)};
inline const Theme dark{"dark",
                        QColor(45, 45, 48),
                        QColor(235, 235, 235),
                        QColor(30, 30, 32),
                        QColor(235, 235, 235),
                        QColor(58, 58, 62),
                        QColor(150, 150, 150),
                        QColor(20, 80, 150)};

inline QPalette paletteOf(const Theme& theme) {
    QPalette palette(theme.button, theme.window);
    palette.setColor(QPalette::Window, theme.window);
    palette.setColor(QPalette::WindowText, theme.windowText);
    palette.setColor(QPalette::Base, theme.base);
    palette.setColor(QPalette::AlternateBase, theme.base);
    palette.setColor(QPalette::Text, theme.text);
    palette.setColor(QPalette::Button, theme.button);
    palette.setColor(QPalette::ButtonText, theme.windowText);
    palette.setColor(QPalette::Highlight, theme.highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, theme.disabled);
    return palette;
}

inline void PrintTo(const Theme* theme, std::ostream* out) {
    *out << theme->name;
}

} // namespace vkr
