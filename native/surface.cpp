// SPDX-License-Identifier: MIT
#include "native/surface.hpp"

#include "native/guard.hpp"
#include "native/module.hpp"

#include <stdexcept>

namespace vkr {

Surface::Surface(HWND parent, const RECT& place, SurfaceOwner& owner) : owner_(&owner) {
    window_ = CreateWindowExW(
        0, registeredKind(L"VKRDataEntryForm", &Surface::procedure, CS_DBLCLKS), L"",
        WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | WS_TABSTOP, place.left, place.top,
        place.right - place.left, place.bottom - place.top, parent, nullptr, ownModule(), nullptr);
    if (window_ == nullptr)
        throw std::runtime_error("a window could not be made");
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

Surface::~Surface() {
    if (window_ == nullptr)
        return;
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

void Surface::close() {
    ShowWindow(window_, SW_HIDE);
    owner_ = nullptr;
}

LRESULT CALLBACK Surface::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* surface = reinterpret_cast<Surface*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (surface != nullptr && message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        surface->window_ = nullptr;
        surface = nullptr;
    }
    if (surface == nullptr || surface->owner_ == nullptr)
        return DefWindowProcW(window, message, wParam, lParam);
    return guarded<LRESULT>(0, [&] {
        const auto stays = surface->shared_from_this();
        return stays->owner_->handle(message, wParam, lParam); // which may go within
    });
}

} // namespace vkr
