// SPDX-License-Identifier: MIT
#include "native/palette.hpp"

#include "platform/readable_color.hpp"

namespace vkr {

void Palette::follow() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    follow(SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != FALSE &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0);
}

void Palette::follow(bool highContrast) {
    highContrast_ = highContrast;
    face_ = GetSysColor(COLOR_BTNFACE);
    brushes_.clear();
}

COLORREF Palette::plain(Color color) {
    return isSystemColor(color) ? GetSysColor(static_cast<int>(color & 0xFFU)) : color;
}

namespace {

// A ground of its own says something, such as which cells are required: it stays in high contrast,
// below letters in black or white.
bool saysSomething(Color ground) {
    return !isSystemColor(ground) && ground != colors::white;
}
Palette::Pair letteredOn(Color ground) {
    const bool dark = contrast(colors::white, ground) > contrast(colors::black, ground);
    return {ground, dark ? colors::white : colors::black};
}

} // namespace

Palette::Pair Palette::field(const Control& field) const {
    const auto* box = dynamic_cast<const TextBox*>(&field);
    if (box != nullptr && box->highlighted())
        return {GetSysColor(COLOR_HIGHLIGHT), GetSysColor(COLOR_HIGHLIGHTTEXT)};
    const bool enabled = field.isEnabled();
    if (highContrast_ && enabled && saysSomething(field.backColor()))
        return letteredOn(field.backColor());
    if (highContrast_)
        return {GetSysColor(COLOR_WINDOW),
                GetSysColor(enabled ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT)};
    const COLORREF back = plain(field.backColor());
    const COLORREF text = readable(plain(field.foreColor()), back);
    if (enabled)
        return {back, text};
    const COLORREF dimmed = between(back, face_, 0.6);
    return {dimmed, readable(between(text, dimmed, 0.35), dimmed, signContrast)};
}

Palette::Pair Palette::surface(const Control& control) const {
    const bool enabled = control.isEnabled();
    if (highContrast_ && enabled && saysSomething(control.backColor()))
        return letteredOn(control.backColor());
    const int text = enabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT;
    // Black on the system colour is whatever is readable on this desktop.
    const bool own = !isSystemColor(control.backColor()) || control.foreColor() != colors::black;
    if (highContrast_ || !own || !enabled)
        return {highContrast_ ? face_ : plain(control.backColor()), GetSysColor(text)};
    const COLORREF back = plain(control.backColor());
    return {back, readable(plain(control.foreColor()), back)};
}

COLORREF Palette::mark(const TextField& shown) const {
    const MarkKind kind = shown.shownMark();
    if (kind == MarkKind::none)
        return CLR_NONE;
    return readable(markColor(kind), field(shown).back, signContrast);
}

COLORREF Palette::origin(const TextField& shown) const {
    return readable(mark_colors::origin, field(shown).back, signContrast);
}

COLORREF Palette::edge() const {
    return readable(GetSysColor(COLOR_BTNSHADOW), face_, signContrast);
}

HBRUSH Palette::brush(COLORREF color) {
    auto& brush = brushes_[color];
    if (brush == nullptr)
        brush.reset(CreateSolidBrush(color));
    return brush.get();
}

} // namespace vkr
