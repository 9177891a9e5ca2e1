// SPDX-License-Identifier: MIT
#include "native/drawing.hpp"

#include <algorithm>
#include <utility>

namespace vkr {

BackBuffer::~BackBuffer() {
    if (bitmap_ != nullptr)
        SelectObject(context_, before_);
    DeleteDC(context_);
}

HDC BackBuffer::begin(HDC shown, LONG width, LONG height) {
    if (context_ == nullptr)
        context_ = CreateCompatibleDC(shown);
    if (width > size_.cx || height > size_.cy) {
        const SIZE wanted{std::max(width, size_.cx), std::max(height, size_.cy)};
        Gdi<HBITMAP> larger(CreateCompatibleBitmap(shown, wanted.cx, wanted.cy));
        const HGDIOBJ replaced = larger ? SelectObject(context_, larger.get()) : nullptr;
        if (replaced != nullptr) {
            if (bitmap_ == nullptr)
                before_ = replaced;
            bitmap_ = std::move(larger);
            size_ = wanted;
        }
    }
    SaveDC(context_);
    IntersectClipRect(context_, 0, 0, width, height);
    return context_;
}

Painting::Painting(HWND window, HDC given, BackBuffer& buffer)
    : window_(window), buffer_(buffer), given_(given != nullptr) {
    GetClientRect(window, &area_);
    if (!given_)
        shown_ = BeginPaint(window, &paint_);
    drawn_ = given_ ? given : buffer.begin(shown_, area_.right, area_.bottom);
}

Painting::~Painting() {
    if (given_)
        return;
    const RECT& place = paint_.rcPaint;
    BitBlt(shown_, place.left, place.top, place.right - place.left, place.bottom - place.top,
           drawn_, place.left, place.top, SRCCOPY);
    buffer_.end();
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
