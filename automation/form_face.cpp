// SPDX-License-Identifier: MIT
#include "automation/form_face.hpp"

#include "automation/busy.hpp"
#include "automation/com.hpp"
#include "native/module.hpp"
#include "native/native_form.hpp"
#include "native/native_services.hpp"

#include <commctrl.h>
#include <utility>

namespace vkr::automation {

namespace {

constexpr UINT_PTR subclassId = 1;

UINT waitingMessage() {
    static const UINT message = RegisterWindowMessageW(L"VKRDataEntryWaiting");
    return message;
}

// The visual styles that this library asks for, also in a program that does not.
HANDLE styles() {
    static const HANDLE context = [] {
        ACTCTXW wanted{};
        wanted.cbSize = sizeof wanted;
        wanted.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
        wanted.hModule = ownModule();
        wanted.lpResourceName = reinterpret_cast<LPCWSTR>(std::uintptr_t{2});
        return CreateActCtxW(&wanted);
    }();
    return context;
}

} // namespace

Styled::Styled() {
    if (styles() != INVALID_HANDLE_VALUE)
        active_ = ActivateActCtx(styles(), &cookie_) != FALSE;
}
Styled::~Styled() {
    if (active_)
        DeactivateActCtx(0, cookie_);
}

class FormFace::Impl {
  public:
    explicit Impl(ControlOwner& control) : control_(control) {}
    ~Impl() { close(); }

    void open(HWND parent, const RECT& place, Form& model) {
        close(); // one whose window is gone with that of the container
        form = std::make_unique<NativeForm>(parent, place, model);
        desktop.setForm(form.get());
        form->tabbedOut = [this](FocusDirection direction) {
            return control_.tabbedOut(direction);
        };
        SetWindowSubclass(form->window(), hear, subclassId, reinterpret_cast<DWORD_PTR>(this));
    }
    void close() {
        if (form == nullptr)
            return;
        RemoveWindowSubclass(form->window(), hear, subclassId);
        desktop.setForm(nullptr);
        form.reset();
    }

    NativeServices desktop;
    std::unique_ptr<NativeForm> form;

  private:
    static LRESULT CALLBACK hear(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                 UINT_PTR /*id*/, DWORD_PTR self) {
        if (message == waitingMessage()) {
            releaseWaiting(); // perhaps this one
            return 0;
        }
        const Styled styled;
        if (message == WM_MOUSEACTIVATE)
            reinterpret_cast<Impl*>(self)->control_.pressed();
        return DefSubclassProc(window, message, wParam, lParam);
    }

    ControlOwner& control_;
};

FormFace::FormFace(ControlOwner& control) : impl_(std::make_unique<Impl>(control)) {}
FormFace::~FormFace() = default;

Services& FormFace::services() {
    return impl_->desktop;
}
void FormFace::open(HWND parent, const RECT& place, Form& form) {
    impl_->open(parent, place, form);
}
void FormFace::close() {
    impl_->close();
}
HWND FormFace::window() const {
    return impl_->form == nullptr ? nullptr : impl_->form->window();
}
SIZE FormFace::sizeOf(const Form& form) const {
    return impl_->form->sizeOf(form.width(), form.height());
}
void FormFace::move(const RECT& place) {
    if (isOpen())
        impl_->form->move(place);
}
void FormFace::show(bool visible) {
    if (isOpen())
        impl_->form->show(visible);
}
void FormFace::focus() {
    if (isOpen())
        impl_->form->focus();
}
void FormFace::lookForWaiting(HWND window) {
    if (window != nullptr)
        PostMessageW(window, waitingMessage(), 0, 0);
}
bool FormFace::translate(const MSG& message) {
    return isOpen() && impl_->form->translate(message);
}
void FormFace::draw(HDC context) {
    if (isOpen())
        impl_->form->draw(context);
}

} // namespace vkr::automation
