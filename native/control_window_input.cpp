// SPDX-License-Identifier: MIT
// What the window of a control hands on to the form: keys, texts, pointer.
#include "native/control_window.hpp"

#include <imm.h>
#include <utility>

namespace vkr {

// --- keys and texts ------------------------------------------------------------------------------

std::optional<LRESULT> ControlWindow::handleKeys(const Part& part, UINT message, WPARAM wParam,
                                                 LPARAM lParam) {
    const MSG key{part.window, message, wParam, lParam, 0, {}};
    switch (message) {
    case WM_GETDLGCODE:
        return DLGC_WANTALLKEYS | DLGC_WANTARROWS | DLGC_WANTTAB | DLGC_WANTCHARS;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        if (keyOfList(key) || host().keyDown(key))
            return 0;
        return DefWindowProcW(part.window, message, wParam, lParam);
    case WM_KEYUP:
    case WM_SYSKEYUP:
        host().keyUp(key);
        // What the keys of the menu and of Alt make of it is up to the form.
        if (message == WM_KEYUP || wParam == VK_F10)
            return 0;
        return DefWindowProcW(part.window, message, wParam, lParam);
    case WM_DEADCHAR:
        return 0;
    case WM_CONTEXTMENU: // the form has its own
        return 0;
    default:
        return std::nullopt;
    }
}

namespace {

// What an input method has composed.
std::wstring composedText(HWND window) {
    std::wstring text;
    if (const HIMC context = ImmGetContext(window); context != nullptr) {
        const LONG bytes = ImmGetCompositionStringW(context, GCS_RESULTSTR, nullptr, 0);
        if (bytes > 0) {
            text.resize(static_cast<std::size_t>(bytes) / sizeof(wchar_t));
            ImmGetCompositionStringW(context, GCS_RESULTSTR, text.data(),
                                     static_cast<DWORD>(bytes));
        }
        ImmReleaseContext(window, context);
    }
    return text;
}

std::u32string charactersIn(std::wstring_view text) {
    std::u32string characters;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (i + 1 < text.size() && IS_SURROGATE_PAIR(text[i], text[i + 1])) {
            characters += 0x10000U + ((text[i] - 0xD800U) << 10U) + (text[i + 1] - 0xDC00U);
            ++i;
        } else {
            characters += static_cast<char32_t>(text[i]);
        }
    return characters;
}

} // namespace

// Texts that come without a key.
std::optional<LRESULT> ControlWindow::handleText(const Part& part, UINT message, WPARAM wParam,
                                                 LPARAM lParam) {
    switch (message) {
    case WM_CHAR: {
        const auto unit = static_cast<wchar_t>(wParam);
        if (IS_HIGH_SURROGATE(unit)) {
            highHalf_ = unit;
            return 0;
        }
        std::wstring text;
        if (const wchar_t half = std::exchange(highHalf_, 0); half != 0 && IS_LOW_SURROGATE(unit))
            text += half;
        text += unit;
        host().composed(charactersIn(text));
        return 0;
    }
    case WM_IME_COMPOSITION:
        if ((lParam & GCS_RESULTSTR) != 0 && control_->isField()) {
            const auto text = composedText(part.window);
            if (const LPARAM rest = lParam & ~GCS_RESULTSTR; rest != 0)
                pass(part, message, wParam, rest);
            host().composed(charactersIn(text));
            return 0;
        }
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

// --- pointer -------------------------------------------------------------------------------------

POINT ControlWindow::Pointer::onScreen() const {
    POINT point = place();
    ClientToScreen(part.window, &point);
    return point;
}

std::optional<LRESULT> ControlWindow::handlePointer(const Part& part, UINT message, WPARAM wParam,
                                                    LPARAM lParam) {
    const auto pointer = [&](MouseButton button) {
        return Pointer{part, message, wParam, lParam, button};
    };
    switch (message) {
    case WM_LBUTTONDOWN:
        press(pointer(MouseButton::left));
        return 0;
    case WM_RBUTTONDOWN:
        press(pointer(MouseButton::right));
        return 0;
    case WM_MBUTTONDOWN:
        press(pointer(MouseButton::middle));
        return 0;
    case WM_LBUTTONDBLCLK:
        doubleClick(pointer(MouseButton::left));
        return 0;
    case WM_RBUTTONDBLCLK: // once more
        press(pointer(MouseButton::right));
        return 0;
    case WM_LBUTTONUP:
        releaseButton(pointer(MouseButton::left));
        return 0;
    case WM_RBUTTONUP:
        releaseButton(pointer(MouseButton::right));
        return 0;
    case WM_MBUTTONUP:
        releaseButton(pointer(MouseButton::middle));
        return 0;
    case WM_MOUSEMOVE:
        host().hover(part.window, *this, {part.window, message, wParam, lParam, 0, {}});
        drag(pointer(MouseButton::left));
        return 0;
    case WM_MOUSEWHEEL:
        if (host().wheel(this, GET_WHEEL_DELTA_WPARAM(wParam)))
            return 0;
        return DefWindowProcW(part.window, message, wParam, lParam); // goes up to the parent
    case WM_CAPTURECHANGED:
    case WM_CANCELMODE:
        pass(part, message, wParam, lParam);
        if (!letsGo_ && control_ != nullptr && host().isPressed(*this))
            host().giveUpPress();
        return 0;
    default:
        return std::nullopt;
    }
}

bool ControlWindow::isInside(const Pointer& pointer) const {
    RECT area;
    GetWindowRect(main_.window, &area);
    return PtInRect(&area, pointer.onScreen()) != FALSE;
}

void ControlWindow::beginPress(const Pointer& pointer, int tab) {
    host().beginPress(*this, pointer.button, pointer.onScreen(), tab);
    if (control_ != nullptr && host().isPressed(*this))
        SetCapture(pointer.part.window);
}

void ControlWindow::endPress(const Pointer& pointer) {
    const PressEnd end = isInside(pointer) ? PressEnd::inside : PressEnd::outside;
    if (GetCapture() == pointer.part.window) {
        letsGo_ = true;
        ReleaseCapture();
        letsGo_ = false;
    }
    if (control_ != nullptr)
        host().endPress(*this, pointer.button, end);
}

void ControlWindow::press(const Pointer& pointer) {
    beginPress(pointer);
}

void ControlWindow::drag(const Pointer& pointer) {
    pass(pointer);
}

void ControlWindow::releaseButton(const Pointer& pointer) {
    endPress(pointer);
}

void ControlWindow::doubleClick(const Pointer& /*pointer*/) {
    form().doubleClick(*control_);
}

} // namespace vkr
