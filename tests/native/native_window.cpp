// SPDX-License-Identifier: MIT
#include "tests/native/native_window.hpp"

#include "binding/trailing_earnings.hpp"
#include "company/company_record.hpp"
#include "localizer/localizer.hpp"

#include <ole2.h>
#include <stdexcept>

namespace vkr {

namespace {

constexpr int fieldHeight = 24;

const wchar_t* kindOf(WNDPROC procedure) {
    static const wchar_t* const name = [procedure] {
        WNDCLASSEXW look{};
        look.cbSize = sizeof look;
        look.lpfnWndProc = procedure;
        look.hInstance = GetModuleHandleW(nullptr);
        look.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        look.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
        look.lpszClassName = L"VKRHostWindow";
        RegisterClassExW(&look);
        return look.lpszClassName;
    }();
    return name;
}

} // namespace

NativeWindow::NativeWindow(VKRDataEntryEvents* events) {
    OleInitialize(nullptr); // screen readers come by it
    registerLocalizers(services_.factory());
    registerCompanyRecord(services_.factory());
    registerTrailingEarnings(services_.factory());
    entry_ = std::make_unique<VKRDataEntry>(services_);
    entry_->InitProperties();
    entry_->ReadProperties(PropertyBag());

    constexpr DWORD style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
    window_ = CreateWindowExW(0, kindOf(&NativeWindow::procedure), L"Data Entry", style, 20, 20,
                              300, 300, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (window_ == nullptr)
        throw std::runtime_error("no window can be made on this display");
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    const PixelScale scale(GetDpiForWindow(window_));
    const int width = scale.pixels(VKRDataEntry::workingWidth);
    const int height = scale.pixels(VKRDataEntry::workingHeight);
    form_ = std::make_unique<NativeForm>(window_, RECT{0, 0, width, height}, entry_->form());
    services_.setForm(form_.get());
    field_ =
        CreateWindowExW(WS_EX_CLIENTEDGE, WC_EDITW, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 4,
                        height + 4, width - 8, fieldHeight, window_, nullptr, nullptr, nullptr);
    RECT place{0, 0, width, height + fieldHeight + 8};
    AdjustWindowRectExForDpi(&place, style, FALSE, 0, GetDpiForWindow(window_));
    SetWindowPos(window_, nullptr, 0, 0, place.right - place.left, place.bottom - place.top,
                 SWP_NOMOVE | SWP_NOZORDER);
    entry_->Resize(VKRDataEntry::workingWidth, VKRDataEntry::workingHeight);
    entry_->setEvents(events);
    entry_->put_objCompany(std::make_shared<CompanyRecord>());
    ShowWindow(window_, SW_SHOW);
    activate();
}

NativeWindow::~NativeWindow() {
    entry_->setEvents(nullptr);
    services_.setForm(nullptr);
    form_.reset();
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
    pump();
    OleUninitialize();
}

LRESULT CALLBACK NativeWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* host = reinterpret_cast<NativeWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (host != nullptr && message == WM_SETFOCUS && host->form_ != nullptr) {
        host->form_->focus();
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void NativeWindow::activate() {
    SetForegroundWindow(window_);
    pump();
}

void NativeWindow::pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        const bool keyDown = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN;
        if ((form_ != nullptr && form_->translate(message)) ||
            (keyDown && shortcut && shortcut(message)) ||
            IsDialogMessageW(window_, &message) != FALSE)
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

} // namespace vkr
