// SPDX-License-Identifier: MIT
// The control drawn while it is not active, and on paper.
#include "automation/data_entry_control.hpp"
#include "automation/texts.hpp"
#include "native/module.hpp"
#include "platform/color.hpp"
#include "platform/error_trap.hpp"

#include <utility>

namespace vkr::automation {

namespace {

COLORREF pixelColor(Color color) {
    COLORREF value = 0;
    return SUCCEEDED(OleTranslateColor(color, nullptr, &value)) ? value : color & 0xFFFFFFU;
}

// What is drawn into a context is restored at the end.
class Saved {
  public:
    explicit Saved(HDC context) : context_(context), state_(SaveDC(context)) {}
    Saved(const Saved&) = delete;
    Saved& operator=(const Saved&) = delete;
    ~Saved() { RestoreDC(context_, state_); }

  private:
    HDC context_;
    int state_;
};

// A window that nobody sees, for the form to be drawn in.
class HiddenWindow {
  public:
    explicit HiddenWindow(SIZE size)
        : window_(CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, L"STATIC", L"", WS_POPUP, 0,
                                  0, size.cx, size.cy, nullptr, nullptr, ownModule(), nullptr)) {}
    HiddenWindow(const HiddenWindow&) = delete;
    HiddenWindow& operator=(const HiddenWindow&) = delete;
    ~HiddenWindow() { DestroyWindow(window_); }
    [[nodiscard]] HWND get() const { return window_; }

  private:
    HWND window_;
};

// A picture in memory, of 32 bits a pixel.
class Canvas {
  public:
    explicit Canvas(SIZE size) : context_(CreateCompatibleDC(nullptr)) {
        described_.bmiHeader.biSize = sizeof described_.bmiHeader;
        described_.bmiHeader.biWidth = size.cx;
        described_.bmiHeader.biHeight = -size.cy;
        described_.bmiHeader.biPlanes = 1;
        described_.bmiHeader.biBitCount = 32;
        bitmap_ = CreateDIBSection(context_, &described_, DIB_RGB_COLORS, &bits_, nullptr, 0);
        before_ = SelectObject(context_, bitmap_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas() {
        SelectObject(context_, before_);
        DeleteObject(bitmap_);
        DeleteDC(context_);
    }
    [[nodiscard]] HDC context() const { return context_; }
    // Stretched, also onto paper and into metafiles.
    void copyTo(HDC target, const RECT& bounds) {
        GdiFlush();
        SetStretchBltMode(target, HALFTONE);
        StretchDIBits(target, bounds.left, bounds.top, bounds.right - bounds.left,
                      bounds.bottom - bounds.top, 0, 0, described_.bmiHeader.biWidth,
                      -described_.bmiHeader.biHeight, bits_, &described_, DIB_RGB_COLORS, SRCCOPY);
    }

  private:
    HDC context_;
    BITMAPINFO described_{};
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ before_ = nullptr;
    void* bits_ = nullptr;
};

} // namespace

HRESULT DataEntryControl::Draw(DWORD aspect, LONG /*index*/, void* /*aspectInfo*/,
                               DVTARGETDEVICE* /*device*/, HDC /*reference*/, HDC context,
                               LPCRECTL bounds, LPCRECTL /*window*/,
                               BOOL(STDMETHODCALLTYPE* /*goOn*/)(ULONG_PTR),
                               ULONG_PTR /*argument*/) {
    return entered(IID_IViewObject2, [&] {
        if (aspect != DVASPECT_CONTENT)
            return DV_E_DVASPECT;
        if (context == nullptr)
            return E_INVALIDARG;
        if (bounds == nullptr)
            return E_POINTER;
        const RECT place{bounds->left, bounds->top, bounds->right, bounds->bottom};
        if (inside_ != nullptr)
            drawForm(context, place);
        else
            drawPlaceholder(context, place);
        return S_OK;
    });
}

void DataEntryControl::drawForm(HDC context, const RECT& bounds) {
    const SIZE size = pixels();
    Canvas canvas(size);
    if (face_.isOpen()) {
        face_.draw(canvas.context());
    } else {
        const HiddenWindow hidden(size);
        face_.open(hidden.get(), {0, 0, size.cx, size.cy}, entry_->form());
        face_.draw(canvas.context());
        face_.close();
    }
    canvas.copyTo(context, bounds);
}

// Before there is a record: a square with the name that the container has for the control, in its
// font and colours.
void DataEntryControl::drawPlaceholder(HDC context, const RECT& bounds) {
    const Saved saved(context);
    const auto ambientColor = [&](DISPID id, Color otherwise) {
        const auto told = site_.ambient(id);
        return pixelColor(attemptOr(
            otherwise, [&] { return told ? static_cast<Color>(told->toLong()) : otherwise; }));
    };
    const HBRUSH back =
        CreateSolidBrush(ambientColor(DISPID_AMBIENT_BACKCOLOR, colors::buttonFace));
    FillRect(context, &bounds, back);
    DeleteObject(back);
    FrameRect(context, &bounds, GetSysColorBrush(COLOR_BTNSHADOW));
    const auto name = site_.ambient(DISPID_AMBIENT_DISPLAYNAME);
    if (!name)
        return;
    HFONT font = nullptr;
    const auto fontObject = queryFor<IFont>(site_.ambientObject(DISPID_AMBIENT_FONT).get());
    if (fontObject && SUCCEEDED(fontObject->get_hFont(&font)))
        SelectObject(context, font);
    else
        SelectObject(context, GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, ambientColor(DISPID_AMBIENT_FORECOLOR, colors::black));
    RECT room = bounds;
    const std::wstring text = wideOf(attemptOr(std::string(), [&] { return name->toText(); }));
    DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &room,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
}

void DataEntryControl::viewChanged() {
    if (const auto sink = viewSink_; sink && (viewAspect_ & DVASPECT_CONTENT) != 0) {
        if ((viewFlags_ & ADVF_ONLYONCE) != 0)
            viewSink_.reset();
        sink->OnViewChange(DVASPECT_CONTENT, -1);
    }
}

HRESULT DataEntryControl::SetAdvise(DWORD aspect, DWORD flags, IAdviseSink* sink) {
    return entered(IID_IViewObject2, [&] {
        viewAspect_ = aspect;
        viewFlags_ = flags;
        viewSink_ = sink;
        if (sink != nullptr && (flags & ADVF_PRIMEFIRST) != 0)
            viewChanged();
    });
}

HRESULT DataEntryControl::GetAdvise(DWORD* aspect, DWORD* flags, IAdviseSink** sink) {
    return entered(IID_IViewObject2, [&] { // each may be null
        if (aspect != nullptr)
            *aspect = viewAspect_;
        if (flags != nullptr)
            *flags = viewFlags_;
        if (sink != nullptr)
            *sink = ComPtr(viewSink_).detach();
    });
}

HRESULT DataEntryControl::GetColorSet(DWORD /*aspect*/, LONG /*index*/, void* /*aspectInfo*/,
                                      DVTARGETDEVICE* /*device*/, HDC /*reference*/,
                                      LOGPALETTE** palette) {
    if (palette != nullptr)
        *palette = nullptr;
    return S_FALSE; // no colours of its own
}
HRESULT DataEntryControl::Freeze(DWORD /*aspect*/, LONG /*index*/, void* /*aspectInfo*/,
                                 DWORD* /*key*/) {
    return E_NOTIMPL;
}
HRESULT DataEntryControl::Unfreeze(DWORD /*key*/) {
    return E_NOTIMPL;
}

} // namespace vkr::automation
