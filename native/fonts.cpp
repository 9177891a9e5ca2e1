// SPDX-License-Identifier: MIT
#include "native/fonts.hpp"

#include <algorithm>
#include <cwchar>

namespace vkr {

namespace {

LOGFONTW dialogFont(const PixelScale& scale) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    LOGFONTW look{};
    if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0) != FALSE)
        look = metrics.lfMessageFont;
    else
        std::wcscpy(look.lfFaceName, L"MS Shell Dlg 2");
    look.lfHeight = -scale.fontPixels();
    look.lfWidth = 0;
    look.lfWeight = FW_NORMAL;
    return look;
}

int extentOf(HDC context, std::wstring_view text) {
    SIZE size{};
    GetTextExtentPoint32W(context, text.data(), static_cast<int>(text.size()), &size);
    return static_cast<int>(size.cx);
}

} // namespace

Fonts::Fonts(const PixelScale& scale) : look_(dialogFont(scale)) {
    // The form is laid out for letters of this width; a wider family is condensed.
    constexpr Twips sampleWidth = 1545;
    constexpr std::wstring_view sample = L"Date of Last Quarter";
    constexpr int narrowest = 75;

    const WindowContext screen(nullptr);
    plain_.reset(CreateFontIndirectW(&look_));
    TEXTMETRICW metrics{};
    {
        const Selected font(screen, plain_.get());
        GetTextMetricsW(screen, &metrics);
        const int width = extentOf(screen, sample);
        if (const int fitting = scale.pixels(sampleWidth); width > fitting)
            look_.lfWidth =
                metrics.tmAveCharWidth * std::max(narrowest, 100 * fitting / width) / 100;
    }
    if (look_.lfWidth != 0)
        plain_.reset(CreateFontIndirectW(&look_));
    const Selected font(screen, plain_.get());
    GetTextMetricsW(screen, &metrics);
    averageWidth_ = static_cast<int>(metrics.tmAveCharWidth);
    height_ = static_cast<int>(metrics.tmHeight);
    for (std::size_t i = 0; i < widths_.size(); ++i) {
        const auto unit = static_cast<wchar_t>(i);
        widths_[i] = extentOf(screen, {&unit, 1});
    }
}

HFONT Fonts::underlined() {
    if (underlined_ == nullptr) {
        LOGFONTW look = look_;
        look.lfUnderline = TRUE;
        underlined_.reset(CreateFontIndirectW(&look));
    }
    return underlined_.get();
}

HFONT Fonts::condensed(int letterWidth) {
    auto& font = condensed_[letterWidth];
    if (font == nullptr) {
        LOGFONTW look = look_;
        look.lfWidth = std::max(1, letterWidth);
        font.reset(CreateFontIndirectW(&look));
    }
    return font.get();
}

HFONT Fonts::fitting(std::wstring_view text, int room, int narrowestPercent) {
    const WindowContext screen(nullptr);
    return fitting(room, narrowestPercent, [&](HFONT font) {
        const Selected chosen(screen, font);
        return extentOf(screen, text);
    });
}

int Fonts::widthOf(std::wstring_view text) const {
    int width = 0;
    for (const wchar_t unit : text) {
        if (unit >= widths_.size()) {
            const WindowContext screen(nullptr);
            const Selected font(screen, plain_.get());
            return extentOf(screen, text);
        }
        width += widths_[unit];
    }
    return width;
}

} // namespace vkr
