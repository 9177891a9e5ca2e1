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

// What a window is told by a message to itself: nobody outside is called within another one.
enum class Later : WPARAM { releaseWaiting, keys, scale };

UINT laterMessage() {
    static const UINT message = RegisterWindowMessageW(L"VKRDataEntryLater");
    return message;
}

void tellLater(HWND window, Later what) {
    PostMessageW(window, laterMessage(), static_cast<WPARAM>(what), 0);
}

// The visual styles that this library asks for, also in a program that does not.
class Styles {
  public:
    Styles() {
        ACTCTXW wanted{};
        wanted.cbSize = sizeof wanted;
        wanted.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
        wanted.hModule = ownModule();
        wanted.lpResourceName = reinterpret_cast<LPCWSTR>(std::uintptr_t{2});
        context_ = CreateActCtxW(&wanted);
    }
    ~Styles() {
        if (context_ != INVALID_HANDLE_VALUE)
            ReleaseActCtx(context_);
    }
    Styles(const Styles&) = delete;
    Styles& operator=(const Styles&) = delete;
    [[nodiscard]] HANDLE context() const { return context_; }

  private:
    HANDLE context_ = INVALID_HANDLE_VALUE;
};

HANDLE styles() {
    static const Styles made; // until the library is unloaded
    return made.context();
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

class FormFace::Impl final : private NativeFormOwner {
  public:
    explicit Impl(ControlOwner& control) : control_(control) {}
    ~Impl() { close(); }

    void open(HWND parent, const RECT& place, Form& model) {
        close(); // one whose window is gone with that of the container
        form = std::make_unique<NativeForm>(parent, place, model);
        desktop.setForm(form.get());
        form->setOwner(this);
        SetWindowSubclass(form->window(), hear, subclassId, reinterpret_cast<DWORD_PTR>(this));
    }
    void close() {
        keysToTell = false;
        if (form == nullptr)
            return;
        RemoveWindowSubclass(form->window(), hear, subclassId);
        desktop.setForm(nullptr);
        form->setOwner(nullptr); // what is left of it asks nothing more
        form.reset();
    }

    [[nodiscard]] bool hasKeys() const {
        const HWND focused = GetFocus();
        return focused == form->window() || IsChild(form->window(), focused) != FALSE;
    }

    NativeServices desktop;
    std::unique_ptr<NativeForm> form;
    bool keysToTell = false; // have come; the control is told of it later

  private:
    bool tabbedOut(FocusDirection direction) override { return control_.tabbedOut(direction); }
    void keysCame() override {
        if (control_.lacksKeys() && !std::exchange(keysToTell, true))
            tellLater(form->window(), Later::keys);
    }
    void scaleFollowed() override { tellLater(form->window(), Later::scale); }

    // The control may be gone at the end of each.
    void hearLater(Later what) {
        switch (what) {
        case Later::releaseWaiting:
            releaseWaiting();
            return;
        case Later::keys:
            if (std::exchange(keysToTell, false) && hasKeys())
                control_.pressed();
            return;
        case Later::scale:
            control_.scaleChanged();
            return;
        }
    }
    static LRESULT CALLBACK hear(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                 UINT_PTR /*id*/, DWORD_PTR self) {
        auto& face = *reinterpret_cast<Impl*>(self);
        if (message == laterMessage()) {
            face.hearLater(static_cast<Later>(wParam));
            return 0;
        }
        const Styled styled;
        if (message == WM_MOUSEACTIVATE)
            face.control_.pressed();
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
bool FormFace::isLost() const {
    return impl_->form != nullptr && !isOpen();
}
HWND FormFace::window() const {
    return impl_->form == nullptr ? nullptr : impl_->form->window();
}
double FormFace::dotsPerInch() const {
    return isOpen() ? impl_->form->scale().dotsPerInch() : 0;
}
SIZE FormFace::sizeOf(const Form& form) const {
    return impl_->form->sizeOf(form.width(), form.height());
}
void FormFace::move(const RECT& place) {
    if (isOpen())
        impl_->form->move(place);
}
void FormFace::setVisible(bool visible) {
    if (isOpen())
        impl_->form->setVisible(visible);
}
void FormFace::focus() {
    if (isOpen())
        impl_->form->focus();
}
void FormFace::lookForWaiting(HWND window) {
    if (window != nullptr)
        tellLater(window, Later::releaseWaiting);
}
void FormFace::forgetKeys() {
    impl_->keysToTell = false;
}
bool FormFace::translate(const MSG& message) {
    return isOpen() && impl_->form->translate(message);
}
void FormFace::draw(HDC context) {
    if (isOpen())
        impl_->form->draw(context);
}

} // namespace vkr::automation
