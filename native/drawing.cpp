// SPDX-License-Identifier: MIT
#include "native/drawing.hpp"

namespace vkr {

Painting::Painting(HWND window, HDC given) : window_(window), given_(given != nullptr) {
    GetClientRect(window, &area_);
    if (given_) {
        drawn_ = given;
        return;
    }
    shown_ = BeginPaint(window, &paint_);
    bitmap_.reset(CreateCompatibleBitmap(shown_, area_.right > 0 ? area_.right : 1,
                                         area_.bottom > 0 ? area_.bottom : 1));
    drawn_ = CreateCompatibleDC(shown_);
    before_ = SelectObject(drawn_, bitmap_.get());
}

Painting::~Painting() {
    if (given_)
        return;
    const RECT& place = paint_.rcPaint;
    SetViewportOrgEx(drawn_, 0, 0, nullptr);
    BitBlt(shown_, place.left, place.top, place.right - place.left, place.bottom - place.top,
           drawn_, place.left, place.top, SRCCOPY);
    SelectObject(drawn_, before_);
    DeleteDC(drawn_);
    EndPaint(window_, &paint_);
}

void fill(HDC context, const RECT& area, COLORREF color) {
    SetDCBrushColor(context, color);
    FillRect(context, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void outline(HDC context, RECT area, COLORREF color, int width) {
    SetDCBrushColor(context, color);
    for (int line = 0; line < width; ++line) {
        FrameRect(context, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
        InflateRect(&area, -1, -1);
    }
}

} // namespace vkr
