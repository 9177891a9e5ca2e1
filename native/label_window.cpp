// SPDX-License-Identifier: MIT
#include "native/label_window.hpp"

#include "native/native_text.hpp"

#include <algorithm>

namespace vkr {

LabelWindow::LabelWindow(ViewHost& host, Label& label, HWND parent) : ControlWindow(host, label) {
    create(WC_STATICW, SS_NOTIFY | SS_LEFT, parent);
}

void LabelWindow::show(Property property) {
    static const Setter setters[] = {
        {Property::caption, &LabelWindow::showCaption},
        {Property::look, &LabelWindow::showLook},
    };
    ControlWindow::show(property);
    ControlWindow::show(property, setters);
}

void LabelWindow::showAll() {
    font_ = nullptr; // there may be others
    ControlWindow::showAll();
}

void LabelWindow::showLook() {
    font_ = nullptr;
    redraw();
}

// Screen readers have the name of a field by the text of the label before it.
void LabelWindow::showCaption() {
    auto caption = withNativeBreaks(toWide(control()->caption()));
    if (caption == caption_)
        return;
    caption_ = std::move(caption);
    // The native one would paint itself at once.
    DefWindowProcW(window(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(caption_.c_str()));
    font_ = nullptr;
    redraw();
}

std::optional<LRESULT> LabelWindow::handleOwn(const Part& part, UINT message, WPARAM wParam,
                                              LPARAM /*lParam*/) {
    switch (message) {
    case WM_PAINT:
    case WM_PRINTCLIENT: {
        const Painting painting(part.window,
                                message == WM_PAINT ? nullptr : reinterpret_cast<HDC>(wParam),
                                host().backBuffer());
        paint(painting.context(), painting.area());
        return 0;
    }
    case WM_ERASEBKGND:
        return TRUE;
    case WM_SETCURSOR:
        if (!label().isLink())
            return std::nullopt;
        SetCursor(LoadCursorW(nullptr, IDC_HAND));
        return TRUE;
    default:
        return std::nullopt;
    }
}

UINT LabelWindow::flags() const {
    const bool leads = form().mnemonicTarget(label()) != nullptr;
    const UINT across = label().alignment() == Alignment::center  ? DT_CENTER
                        : label().alignment() == Alignment::right ? DT_RIGHT
                                                                  : DT_LEFT;
    const UINT lines = label().wordWrap() ? DT_WORDBREAK | DT_TOP : DT_SINGLELINE | DT_VCENTER;
    return across | lines | (leads ? 0U : DT_HIDEPREFIX);
}

void LabelWindow::paint(HDC context, const RECT& area) {
    auto& palette = host().palette();
    const auto pair = palette.surface(label());
    if (caption_.empty() && !isSystemColor(label().backColor())) {
        // A patch of a colour that may be as good as that of the page.
        fill(context, area, Palette::plain(label().backColor()));
        outline(context, area, palette.edge());
        return;
    }
    fill(context, area, pair.back);
    SetTextColor(context, pair.fore);
    SetBkMode(context, TRANSPARENT);
    paintText(context, area);
}

int LabelWindow::neededWidth(HDC context) const {
    RECT needed{0, 0, 1, 1}; // with line breaks, the width of the widest word
    DrawTextW(context, caption_.c_str(), static_cast<int>(caption_.size()), &needed,
              flags() | DT_CALCRECT);
    return static_cast<int>(needed.right - needed.left);
}

// A text that is too wide for its place is drawn narrower rather than cut off.
HFONT LabelWindow::fittingFont(HDC context, int width) {
    constexpr int narrowest = 55; // three letters of a currency in the place of a "$"
    auto& fonts = host().fonts();
    if (label().isLink())
        return fonts.underlined();
    const auto widthIn = [&](HFONT tried) {
        const Selected chosen(context, tried);
        return neededWidth(context);
    };
    if (width <= 0 || widthIn(fonts.plain()) <= width)
        return fonts.plain();
    return fonts.fitting(width, narrowest, widthIn);
}

void LabelWindow::paintText(HDC context, RECT area) {
    const int width = static_cast<int>(area.right);
    if (font_ == nullptr || width != fontWidth_) {
        font_ = fittingFont(context, width);
        fontWidth_ = width;
    }
    const Selected chosen(context, font_);
    if (label().wordWrap()) // a last line that lacks less than its tails is no part of one
        area.bottom += host().fonts().height() / 4;
    DrawTextW(context, caption_.c_str(), static_cast<int>(caption_.size()), &area,
              flags() | DT_EDITCONTROL);
}

} // namespace vkr
