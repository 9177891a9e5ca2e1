// SPDX-License-Identifier: MIT
// The object of a container: its site, its size, its verbs, what is around it.
#include "automation/data_entry_control.hpp"
#include "automation/ole_status.hpp"
#include "automation/texts.hpp"
#include "platform/error_trap.hpp"
#include "platform/text.hpp"

#include <cmath>
#include <cstring>
#include <set>
#include <vector>

namespace vkr::automation {

namespace {

constexpr double himetricPerTwip = 2540.0 / 1440.0;

SIZEL himetric(const Form& form) {
    return {std::lround(form.width() * himetricPerTwip),
            std::lround(form.height() * himetricPerTwip)};
}

} // namespace

// --- site ----------------------------------------------------------------------------------------

HRESULT DataEntryControl::SetClientSite(IOleClientSite* site) {
    return entered(IID_IOleObject, [&] {
        if (site == nullptr)
            deactivate();
        site_.set(site);
        if (site == nullptr)
            return;
        followPlace();
        followAmbient(DISPID_UNKNOWN);
    });
}

HRESULT DataEntryControl::GetClientSite(IOleClientSite** site) {
    return entered(IID_IOleObject, [&] {
        answer(site) = nullptr;
        *site = ComPtr(site_.site()).detach();
    });
}

HRESULT DataEntryControl::SetHostNames(LPCOLESTR /*application*/, LPCOLESTR /*object*/) {
    return S_OK;
}

HRESULT DataEntryControl::Close(DWORD saving) {
    return entered(IID_IOleObject, [&] {
        if (saving != OLECLOSE_NOSAVE && unsaved_ && site_.site())
            ComPtr(site_.site())->SaveObject();
        deactivate();
        if (advises_)
            ComPtr(advises_)->SendOnClose();
    });
}

// --- verbs ---------------------------------------------------------------------------------------

HRESULT DataEntryControl::DoVerb(LONG verb, LPMSG /*message*/, IOleClientSite* /*site*/,
                                 LONG /*index*/, HWND /*parent*/, LPCRECT /*place*/) {
    return entered(IID_IOleObject, [&]() -> HRESULT {
        switch (verb) {
        case OLEIVERB_PRIMARY:
        case OLEIVERB_UIACTIVATE:
            face_.setVisible(true);
            return activate(Active::userInterface);
        case OLEIVERB_SHOW:
        case OLEIVERB_INPLACEACTIVATE:
            face_.setVisible(true);
            return activate(Active::inPlace);
        case OLEIVERB_HIDE:
            deactivateUserInterface();
            face_.setVisible(false);
            return S_OK;
        case OLEIVERB_DISCARDUNDOSTATE:
            return S_OK;
        default:
            return verb > 0 ? OLEOBJ_S_INVALIDVERB : E_NOTIMPL;
        }
    });
}

HRESULT DataEntryControl::EnumVerbs(IEnumOLEVERB** verbs) {
    return entered(IID_IOleObject, [&] {
        answer(verbs) = nullptr;
        return OLEOBJ_E_NOVERBS; // but those that every control has
    });
}

// --- size ----------------------------------------------------------------------------------------

// The size is the component's: what the container asks for is told to it, and it decides.
HRESULT DataEntryControl::SetExtent(DWORD aspect, SIZEL* size) {
    return entered(IID_IOleObject, [&] {
        const SIZEL wanted = answer(size);
        if (aspect != DVASPECT_CONTENT)
            return DV_E_DVASPECT;
        entry_->Resize(wanted.cx / himetricPerTwip, wanted.cy / himetricPerTwip);
        return S_OK;
    });
}

HRESULT DataEntryControl::GetExtent(DWORD aspect, SIZEL* size) {
    return entered(IID_IOleObject, [&] {
        answer(size) = {};
        if (aspect != DVASPECT_CONTENT)
            return DV_E_DVASPECT;
        *size = himetric(entry_->form());
        return S_OK;
    });
}

HRESULT DataEntryControl::GetExtent(DWORD aspect, LONG /*index*/, DVTARGETDEVICE* /*device*/,
                                    LPSIZEL size) {
    return GetExtent(aspect, size);
}

// --- notices of the object -----------------------------------------------------------------------

HRESULT DataEntryControl::Advise(IAdviseSink* sink, DWORD* cookie) {
    return entered(IID_IOleObject, [&] {
        answer(cookie) = 0;
        if (!advises_)
            check(CreateOleAdviseHolder(advises_.receive()));
        return advises_->Advise(sink, cookie);
    });
}

HRESULT DataEntryControl::Unadvise(DWORD cookie) {
    return entered(IID_IOleObject,
                   [&] { return advises_ ? advises_->Unadvise(cookie) : OLE_E_NOCONNECTION; });
}

HRESULT DataEntryControl::EnumAdvise(IEnumSTATDATA** found) {
    return entered(IID_IOleObject, [&] {
        answer(found) = nullptr;
        return advises_ ? advises_->EnumAdvise(found) : S_OK;
    });
}

// --- what it is ----------------------------------------------------------------------------------

HRESULT DataEntryControl::GetMiscStatus(DWORD aspect, DWORD* status) {
    return entered(IID_IOleObject,
                   [&] { answer(status) = aspect == DVASPECT_CONTENT ? miscStatus : 0; });
}

HRESULT DataEntryControl::GetUserClassID(CLSID* id) {
    return GetClassID(id);
}

HRESULT DataEntryControl::GetUserType(DWORD /*form*/, LPOLESTR* text) {
    return entered(IID_IOleObject, [&] {
        static constexpr wchar_t name[] = L"VKR data entry";
        answer(text) = static_cast<LPOLESTR>(CoTaskMemAlloc(sizeof name));
        if (*text == nullptr)
            return E_OUTOFMEMORY;
        std::memcpy(*text, name, sizeof name);
        return S_OK;
    });
}

HRESULT DataEntryControl::SetMoniker(DWORD /*which*/, IMoniker* /*moniker*/) {
    return E_NOTIMPL;
}
HRESULT DataEntryControl::GetMoniker(DWORD /*assign*/, DWORD /*which*/, IMoniker** moniker) {
    if (moniker != nullptr)
        *moniker = nullptr;
    return E_NOTIMPL;
}
HRESULT DataEntryControl::InitFromData(IDataObject* /*data*/, BOOL /*creation*/,
                                       DWORD /*reserved*/) {
    return E_NOTIMPL;
}
HRESULT DataEntryControl::GetClipboardData(DWORD /*reserved*/, IDataObject** data) {
    if (data != nullptr)
        *data = nullptr;
    return E_NOTIMPL;
}
HRESULT DataEntryControl::Update() {
    return S_OK;
}
HRESULT DataEntryControl::IsUpToDate() {
    return S_OK;
}
HRESULT DataEntryControl::SetColorScheme(LOGPALETTE* /*palette*/) {
    return E_NOTIMPL;
}

// --- keys of the whole window --------------------------------------------------------------------

// Alt and a letter of any caption; where it leads is decided when it is pressed.
HRESULT DataEntryControl::GetControlInfo(CONTROLINFO* info) {
    return entered(IID_IOleControl, [&] {
        std::set<wchar_t> letters;
        const auto add = [&](std::string_view caption) {
            if (const char32_t letter = mnemonicOf(caption); letter != 0 && letter < 0x10000)
                letters.insert(static_cast<wchar_t>(letter));
        };
        for (const auto& control : entry_->form().controls()) {
            if (control->kind() == ControlKind::menuItem)
                continue; // for menus that are open
            add(control->caption());
            if (const auto* strip = dynamic_cast<const TabStrip*>(control.get()))
                for (int tab = 1; tab <= strip->count(); ++tab)
                    add(strip->tab(tab).caption);
        }
        std::vector<ACCEL> keys;
        for (const wchar_t letter : letters)
            for (const wchar_t both :
                 {letter, static_cast<wchar_t>(reinterpret_cast<std::uintptr_t>(CharLowerW(
                              reinterpret_cast<LPWSTR>(static_cast<std::uintptr_t>(letter)))))})
                keys.push_back({FALT, both, 0});
        CONTROLINFO& told = answer(info);
        if (accelerators_ != nullptr)
            DestroyAcceleratorTable(accelerators_);
        accelerators_ = keys.empty()
                            ? nullptr
                            : CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
        told.hAccel = accelerators_;
        told.cAccel = static_cast<USHORT>(accelerators_ == nullptr ? 0 : keys.size());
        told.dwFlags = CTRLINFO_EATS_RETURN | CTRLINFO_EATS_ESCAPE;
    });
}

HRESULT DataEntryControl::OnMnemonic(MSG* message) {
    return entered(IID_IOleControl, [&] {
        const MSG& pressed = answer(message);
        const char32_t letter = upperCase(static_cast<char32_t>(pressed.wParam));
        if (!entry_->form().hasMnemonic(letter))
            return S_FALSE;
        if (active_ && !userInterfaceActive_)
            static_cast<void>(activateUserInterface()); // what it leads to gets the keys
        return entry_->form().mnemonic(letter) ? S_OK : S_FALSE;
    });
}

// --- surroundings --------------------------------------------------------------------------------

HRESULT DataEntryControl::OnAmbientPropertyChange(DISPID id) {
    return entered(IID_IOleControl, [&] { followAmbient(id); });
}

// The marks of figures are those of the container's language until the host sets them.
void DataEntryControl::followAmbient(DISPID id) {
    if ((id == DISPID_UNKNOWN || id == DISPID_AMBIENT_LOCALEID) && !ownMarks_)
        ifPossible([&] {
            const auto locale = site_.ambient(DISPID_AMBIENT_LOCALEID);
            if (!locale)
                return;
            const auto language = static_cast<LCID>(locale->toLong());
            wchar_t decimal[8] = {};
            wchar_t grouping[8] = {};
            if (GetLocaleInfoW(language, LOCALE_SDECIMAL, decimal, 8) == 0 ||
                GetLocaleInfoW(language, LOCALE_STHOUSAND, grouping, 8) == 0)
                return;
            const bool comma = std::wstring_view(decimal) == L",";
            entry_->put_NumberMarks({comma ? ',' : '.', textOf(std::wstring_view(grouping))});
        });
    if (id == DISPID_UNKNOWN || id == DISPID_AMBIENT_BACKCOLOR || id == DISPID_AMBIENT_FORECOLOR ||
        id == DISPID_AMBIENT_FONT || id == DISPID_AMBIENT_DISPLAYNAME ||
        id == DISPID_AMBIENT_USERMODE)
        viewChanged(); // the placeholder is drawn with them
}

HRESULT DataEntryControl::FreezeEvents(BOOL freeze) {
    return entered(IID_IOleControl, [&] { events_.freeze(freeze != FALSE); });
}

} // namespace vkr::automation
