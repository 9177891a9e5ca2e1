// SPDX-License-Identifier: MIT
#include "automation/data_entry_control.hpp"

#include "automation/busy.hpp"
#include "automation/member_numbers.hpp"
#include "control/property_table.hpp"

#include <algorithm>
#include <string>
#include <utility>

namespace vkr::automation {

// While a call outside is under way, or something modal: the control stays, though everybody may
// let go of it meanwhile, and a modal dialog keeps the container from taking input.
class DataEntryControl::Busy {
  public:
    Busy(DataEntryControl& control, Stay how) : control_(control) {
        control_.AddRef();
        ++control_.busy_;
        if (how == Stay::modal && control_.frame_) {
            frame_ = control_.frame_;
            frame_->EnableModeless(FALSE);
        }
    }
    ~Busy() {
        if (frame_)
            frame_->EnableModeless(TRUE);
        frame_.reset();
        if (control_.references() == 1 && control_.busy_ == 1) {
            // Nobody else holds it, and the component may still be at work below us.
            control_.busy_ = 0;
            releaseLater(&control_);
            return;
        }
        --control_.busy_;
        control_.Release();
    }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

  private:
    DataEntryControl& control_;
    ComPtr<IOleInPlaceFrame> frame_;
};

DataEntryControl::DataEntryControl()
    : events_(*this), face_(*this), services_(site_, face_.services(), *this) {
    entry_ = std::make_unique<VKRDataEntry>(services_);
    entry_->setEvents(&events_);
    entry_->fractionDisplayChanged = [this] { unsaved_ = true; };
    // Ready as it is, also for who creates it and never initializes it.
    entry_->InitProperties();
    entry_->ReadProperties(PropertyBag());
    toldSize_ = pixels();
    unsaved_ = false;
}

DataEntryControl::~DataEntryControl() {
    entry_->setEvents(nullptr);
    deactivate();
    entry_.reset();
    if (accelerators_ != nullptr)
        DestroyAcceleratorTable(accelerators_);
}

// Its windows can only be destroyed on the thread that made them.
void DataEntryControl::lastReleased() {
    if (isAtHome()) {
        delete this;
        return;
    }
    const HWND window = face_.window();
    destroyAtHome(home(), [this] { delete this; });
    FormFace::lookForWaiting(window);
}

std::shared_ptr<void> DataEntryControl::stays(Stay how) {
    return std::make_shared<Busy>(*this, how);
}

void DataEntryControl::propertyChanged(std::string_view name) {
    const auto row = std::ranges::find(propertyTable(), name, &PropertyRow::name);
    if (row != propertyTable().end() && row->bag.saved != 0)
        unsaved_ = true;
    events_.propertyChanged(name);
}

// The container may let go of the control within both, which is at work below.
void DataEntryControl::pressed() {
    const Busy stay(*this, Stay::quiet);
    static_cast<void>(entered(IID_IOleInPlaceObject, [this] {
        if (lacksKeys())
            static_cast<void>(activateUserInterface());
    }));
}

void DataEntryControl::scaleChanged() {
    const Busy stay(*this, Stay::quiet);
    static_cast<void>(entered(IID_IOleInPlaceObject, [] {})); // tells the size
}

// --- classes -------------------------------------------------------------------------------------

HRESULT DataEntryControl::GetClassInfo(ITypeInfo** info) {
    return entered(IID_IProvideClassInfo2, [&] {
        answer(info) = nullptr;
        *info = typeInfo(Library::entry, __uuidof(::VKRDataEntry)).detach();
    });
}

HRESULT DataEntryControl::GetGUID(DWORD kind, GUID* id) {
    return entered(IID_IProvideClassInfo2, [&] {
        answer(id) = GUID_NULL;
        if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID)
            return E_INVALIDARG;
        *id = __uuidof(::__VKRDataEntry);
        return S_OK;
    });
}

// --- connections ---------------------------------------------------------------------------------

HRESULT DataEntryControl::EnumConnectionPoints(IEnumConnectionPoints** found) {
    return entered(IID_IConnectionPointContainer, [&] {
        answer(found) = nullptr;
        *found = enumeratedPoints({connectionPoint(*this, events_.events()),
                                   connectionPoint(*this, events_.notices())})
                     .detach();
    });
}

HRESULT DataEntryControl::FindConnectionPoint(REFIID id, IConnectionPoint** found) {
    return entered(IID_IConnectionPointContainer, [&] {
        answer(found) = nullptr;
        for (Listeners* const one : {&events_.events(), &events_.notices()})
            if (IsEqualIID(id, one->interfaceId())) {
                *found = connectionPoint(*this, *one).detach();
                return S_OK;
            }
        return CONNECT_E_NOCONNECTION;
    });
}

// --- safety --------------------------------------------------------------------------------------

namespace {

// The control touches no file, no registry and no program: who scripts it, or hands it saved
// properties, needs no trust.
constexpr DWORD safeOptions = INTERFACESAFE_FOR_UNTRUSTED_CALLER | INTERFACESAFE_FOR_UNTRUSTED_DATA;

DWORD safeOptionsOf(REFIID id) {
    if (IsEqualIID(id, IID_IDispatch) || IsEqualIID(id, __uuidof(::_VKRDataEntry)))
        return INTERFACESAFE_FOR_UNTRUSTED_CALLER;
    if (IsEqualIID(id, IID_IPersistStreamInit) || IsEqualIID(id, IID_IPersistPropertyBag) ||
        IsEqualIID(id, IID_IPersistStorage))
        return INTERFACESAFE_FOR_UNTRUSTED_DATA;
    return 0;
}

} // namespace

HRESULT DataEntryControl::GetInterfaceSafetyOptions(REFIID id, DWORD* supported, DWORD* enabled) {
    return entered(IID_IObjectSafety, [&] {
        answer(supported) = 0;
        answer(enabled) = 0;
        const DWORD options = safeOptionsOf(id);
        if (options == 0)
            return E_NOINTERFACE;
        *supported = options;
        *enabled = safety_[options];
        return S_OK;
    });
}

HRESULT DataEntryControl::SetInterfaceSafetyOptions(REFIID id, DWORD mask, DWORD enabled) {
    return entered(IID_IObjectSafety, [&] {
        const DWORD options = safeOptionsOf(id);
        if (options == 0)
            return E_NOINTERFACE;
        if ((mask & enabled & ~safeOptions) != 0 || (mask & enabled & ~options) != 0)
            return E_FAIL;
        safety_[options] = (safety_[options] & ~mask) | (enabled & mask);
        return S_OK;
    });
}

ComPtr<IUnknown> newDataEntryControl() {
    return ComPtr<IUnknown>(static_cast<::_VKRDataEntry*>(makeCom<DataEntryControl>().get()));
}

} // namespace vkr::automation
