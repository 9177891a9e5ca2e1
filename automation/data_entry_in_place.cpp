// SPDX-License-Identifier: MIT
// The control within a window of its container.
#include "automation/data_entry_control.hpp"
#include "platform/error_trap.hpp"

#include <cassert>
#include <cmath>
#include <utility>

namespace vkr::automation {

namespace {

// KEYMOD_*, as they stand in the model's documents.
DWORD modifiers() {
    const auto down = [](int key) { return GetKeyState(key) < 0; };
    return (down(VK_SHIFT) ? 1U : 0U) | (down(VK_CONTROL) ? 2U : 0U) | (down(VK_MENU) ? 4U : 0U);
}

} // namespace

SIZE DataEntryControl::pixels() const {
    if (face_.isOpen()) // by the monitor that it is on
        return face_.sizeOf(entry_->form());
    const HDC screen = GetDC(nullptr);
    const double perTwipX = GetDeviceCaps(screen, LOGPIXELSX) / 1440.0;
    const double perTwipY = GetDeviceCaps(screen, LOGPIXELSY) / 1440.0;
    ReleaseDC(nullptr, screen);
    const Form& form = entry_->form();
    return {std::lround(form.width() * perTwipX), std::lround(form.height() * perTwipY)};
}

// The component has taken another size, or its monitor has: the container gives it the room.
void DataEntryControl::followSize() {
    const Form& form = entry_->form();
    const double scale = face_.dotsPerInch();
    if (form.width() == toldWidth_ && form.height() == toldHeight_ && scale == toldScale_)
        return;
    toldWidth_ = form.width();
    toldHeight_ = form.height();
    toldScale_ = scale;
    const SIZE now = pixels();
    if (now.cx == toldSize_.cx && now.cy == toldSize_.cy)
        return;
    toldSize_ = now;
    viewChanged();
    if (!active_ || !inPlace_ || !face_.isOpen())
        return;
    RECT place{};
    GetWindowRect(face_.window(), &place);
    MapWindowPoints(nullptr, GetParent(face_.window()), reinterpret_cast<POINT*>(&place), 2);
    place.right = place.left + now.cx;
    place.bottom = place.top + now.cy;
    if (FAILED(ComPtr(inPlace_)->OnPosRectChange(&place)))
        face_.move(place);
}

// --- states --------------------------------------------------------------------------------------

// The one way to become active: each step is taken where it has not been yet.
HRESULT DataEntryControl::activate(Active wanted) {
    if (!active_)
        if (const HRESULT refused = activateInPlace(); FAILED(refused))
            return refused;
    if (!active_)
        return E_FAIL;
    return wanted == Active::userInterface ? activateUserInterface() : S_OK;
}

// Whoever is asked on the way may take the control out of its place, or activate it.
HRESULT DataEntryControl::activateInPlace() {
    auto place = site_.as<IOleInPlaceSite>();
    if (!place)
        return E_FAIL;
    if (const HRESULT may = place->CanInPlaceActivate(); may != S_OK)
        return FAILED(may) ? may : E_FAIL;
    if (active_)
        return S_OK;
    if (const HRESULT refused = place->OnInPlaceActivate(); FAILED(refused))
        return refused;
    if (active_)
        return S_OK;
    active_ = true;
    inPlace_ = place;
    HWND parent = nullptr;
    OLEINPLACEFRAMEINFO about{};
    about.cb = sizeof about;
    RECT rectangle{};
    RECT clip{};
    ComPtr<IOleInPlaceFrame> frame;
    ComPtr<IOleInPlaceUIWindow> document;
    const bool known = SUCCEEDED(place->GetWindow(&parent)) && parent != nullptr &&
                       SUCCEEDED(place->GetWindowContext(frame.receive(), document.receive(),
                                                         &rectangle, &clip, &about));
    if (!active_ || face_.isOpen())
        return active_ ? S_OK : E_FAIL;
    frame_ = std::move(frame);
    document_ = std::move(document);
    if (!known || !attempt([&] { face_.open(parent, rectangle, entry_->form()); })) {
        deactivate();
        return E_FAIL;
    }
    if (!active_) { // the parent has heard of its new window
        face_.close();
        return E_FAIL;
    }
    toldSize_ = {rectangle.right - rectangle.left, rectangle.bottom - rectangle.top};
    toldWidth_ = toldHeight_ = 0; // the place may have another size than the form
    if (const auto site = site_.site())
        site->ShowObject();
    return S_OK;
}

// They may do that here, too.
HRESULT DataEntryControl::activateUserInterface() {
    if (userInterfaceActive_) {
        face_.focus();
        return S_OK;
    }
    const auto place = inPlace_;
    if (const HRESULT refused = place->OnUIActivate(); FAILED(refused))
        return refused;
    if (!active_ || userInterfaceActive_)
        return active_ ? S_OK : E_FAIL;
    userInterfaceActive_ = true;
    face_.forgetKeys();
    face_.focus();
    const auto tell = [this](const auto& held) {
        if (const auto window = held; window && userInterfaceActive_) {
            window->SetActiveObject(this, L"VKR data entry");
            window->SetBorderSpace(nullptr);
        }
    };
    tell(frame_);
    tell(document_);
    if (const auto site = site_.as<IOleControlSite>(); site && userInterfaceActive_)
        site->OnFocus(TRUE);
    return userInterfaceActive_ ? S_OK : E_FAIL;
}

void DataEntryControl::deactivateUserInterface() {
    face_.forgetKeys();
    if (!std::exchange(userInterfaceActive_, false))
        return;
    if (const auto frame = frame_)
        frame->SetActiveObject(nullptr, nullptr);
    if (const auto document = document_)
        document->SetActiveObject(nullptr, nullptr);
    if (const auto site = site_.as<IOleControlSite>())
        site->OnFocus(FALSE);
    if (const auto place = inPlace_)
        place->OnUIDeactivate(FALSE);
}

void DataEntryControl::checkInvariants() const {
    assert(entry_ != nullptr && busy_ >= 0);
    assert(active_ || !userInterfaceActive_);
    assert(inPlace_ || !active_);
    assert(inPlace_ || (!frame_ && !document_));
    assert((inside_ != nullptr) == static_cast<bool>(outside_));
}

void DataEntryControl::deactivate() {
    deactivateUserInterface();
    if (!std::exchange(active_, false))
        return;
    if (face_.isLost())
        face_.close();
    entry_->leaveField(); // what is still being typed
    face_.close();
    frame_.reset();
    document_.reset();
    if (const auto place = std::exchange(inPlace_, {}))
        place->OnInPlaceDeactivate();
}

// A container may destroy its window with ours in it, and tell nothing: its site hears of it with
// the next call, not while its windows are going.
void DataEntryControl::followWindow() {
    if (face_.isLost())
        deactivate();
}

HRESULT DataEntryControl::InPlaceDeactivate() {
    return entered(IID_IOleInPlaceObject, [&] { deactivate(); });
}

HRESULT DataEntryControl::UIDeactivate() {
    return entered(IID_IOleInPlaceObject, [&] { deactivateUserInterface(); });
}

HRESULT DataEntryControl::ReactivateAndUndo() {
    return INPLACE_E_NOTUNDOABLE;
}

// --- window --------------------------------------------------------------------------------------

HRESULT DataEntryControl::GetWindow(HWND* window) {
    return entered(IID_IOleInPlaceObject, [&] {
        answer(window) = face_.window();
        return *window == nullptr ? E_FAIL : S_OK;
    });
}

HRESULT DataEntryControl::ContextSensitiveHelp(BOOL /*enter*/) {
    return E_NOTIMPL;
}

HRESULT DataEntryControl::SetObjectRects(LPCRECT place, LPCRECT clip) {
    return entered(IID_IOleInPlaceObject, [&] {
        if (place == nullptr)
            return E_POINTER;
        if (!face_.isOpen())
            return S_OK;
        face_.move(*place);
        // Only what sticks out is cut off; all of it where it is scrolled away.
        RECT visible{};
        const bool cut =
            clip != nullptr && IsRectEmpty(clip) == FALSE &&
            (IntersectRect(&visible, place, clip) == FALSE || EqualRect(&visible, place) == FALSE);
        if (cut) {
            OffsetRect(&visible, -place->left, -place->top);
            SetWindowRgn(face_.window(), CreateRectRgnIndirect(&visible), TRUE);
        } else {
            SetWindowRgn(face_.window(), nullptr, TRUE);
        }
        return S_OK;
    });
}

// --- keys ----------------------------------------------------------------------------------------

HRESULT DataEntryControl::TranslateAccelerator(LPMSG message) {
    return entered(IID_IOleInPlaceActiveObject, [&] {
        const MSG& key = answer(message);
        if (!face_.isOpen() || key.message < WM_KEYFIRST || key.message > WM_KEYLAST)
            return S_FALSE;
        const MSG* const outer = std::exchange(translated_, &key);
        const bool used = face_.translate(key);
        translated_ = outer;
        return used ? S_OK : S_FALSE;
    });
}

// Tab at the last field is the container's.
bool DataEntryControl::tabbedOut(FocusDirection direction) {
    const auto site = site_.as<IOleControlSite>();
    if (!site)
        return false;
    MSG key{};
    if (translated_ != nullptr) {
        key = *translated_;
    } else {
        key.hwnd = face_.window();
        key.message = WM_KEYDOWN;
        key.wParam = VK_TAB;
    }
    const DWORD pressed =
        direction == FocusDirection::backward ? modifiers() | 1U : modifiers() & ~1U;
    return site->TranslateAccelerator(&key, pressed) == S_OK;
}

HRESULT DataEntryControl::OnFrameWindowActivate(BOOL /*active*/) {
    return S_OK;
}

HRESULT DataEntryControl::OnDocWindowActivate(BOOL active) {
    return entered(IID_IOleInPlaceActiveObject, [&] {
        if (active != FALSE && userInterfaceActive_)
            face_.focus();
    });
}

HRESULT DataEntryControl::ResizeBorder(LPCRECT /*border*/, IOleInPlaceUIWindow* /*window*/,
                                       BOOL /*frame*/) {
    return S_OK;
}

HRESULT DataEntryControl::EnableModeless(BOOL enable) {
    return entered(IID_IOleInPlaceActiveObject, [&] {
        if (face_.isOpen())
            EnableWindow(face_.window(), enable);
    });
}

} // namespace vkr::automation
