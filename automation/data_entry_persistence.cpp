// SPDX-License-Identifier: MIT
#include "automation/data_entry_control.hpp"
#include "automation/persistence.hpp"

#include <utility>

namespace vkr::automation {

// An instance is begun once: new, or from what was saved.
void DataEntryControl::begin() {
    if (initialized_)
        throw ComError(E_UNEXPECTED, "The control has been initialized already.");
    initialized_ = true;
}

void DataEntryControl::restore(const PropertyBag& bag) {
    entry_->ReadProperties(bag);
    unsaved_ = false;
    restoredUnplaced_ = !site_.site();
}

// What was restored before there was a place could not know whether the container runs.
void DataEntryControl::followPlace() {
    if (!std::exchange(restoredUnplaced_, false))
        return;
    const bool unsaved = unsaved_;
    entry_->ReadProperties(saved());
    unsaved_ = unsaved;
}

PropertyBag DataEntryControl::saved() {
    PropertyBag bag;
    entry_->WriteProperties(bag);
    return bag;
}

HRESULT DataEntryControl::GetClassID(CLSID* id) {
    return entered(IID_IPersist, [&] { answer(id) = __uuidof(::VKRDataEntry); });
}

HRESULT DataEntryControl::IsDirty() {
    return unsaved_ ? S_OK : S_FALSE;
}

// --- stream and property bag ---------------------------------------------------------------------

HRESULT DataEntryControl::InitNew() {
    return entered(IID_IPersistStreamInit, [&] {
        begin(); // with what it was made with
        unsaved_ = false;
    });
}

HRESULT DataEntryControl::Load(IStream* stream) {
    return entered(IID_IPersistStreamInit, [&] {
        if (initialized_)
            begin();
        const PropertyBag bag = loadFrom(answer(stream));
        begin();
        restore(bag);
    });
}

HRESULT DataEntryControl::Save(IStream* stream, BOOL clearDirty) {
    return entered(IID_IPersistStreamInit, [&] {
        saveTo(answer(stream), saved());
        if (clearDirty != FALSE)
            unsaved_ = false;
    });
}

HRESULT DataEntryControl::GetSizeMax(ULARGE_INTEGER* size) {
    return entered(IID_IPersistStreamInit, [&] { answer(size).QuadPart = largestStream(); });
}

HRESULT DataEntryControl::Load(IPropertyBag* bag, IErrorLog* log) {
    return entered(IID_IPersistPropertyBag, [&] {
        IPropertyBag& place = answer(bag);
        if (initialized_)
            begin();
        const PropertyBag read = loadFrom(place, log);
        begin();
        restore(read);
    });
}

HRESULT DataEntryControl::Save(IPropertyBag* bag, BOOL clearDirty, BOOL all) {
    return entered(IID_IPersistPropertyBag, [&] {
        saveTo(answer(bag), saved(), all != FALSE);
        if (clearDirty != FALSE)
            unsaved_ = false;
    });
}

// --- storage -------------------------------------------------------------------------------------

HRESULT DataEntryControl::InitNew(IStorage* storage) {
    if (storage == nullptr)
        return E_POINTER;
    const HRESULT begun = InitNew();
    if (SUCCEEDED(begun))
        storing_ = Storing::loaded;
    return begun;
}

HRESULT DataEntryControl::Load(IStorage* storage) {
    return entered(IID_IPersistStorage, [&] {
        if (initialized_)
            begin();
        const PropertyBag bag = loadFrom(answer(storage));
        begin();
        restore(bag);
        storing_ = Storing::loaded;
    });
}

HRESULT DataEntryControl::Save(IStorage* storage, BOOL sameAsLoad) {
    return entered(IID_IPersistStorage, [&] {
        IStorage& place = answer(storage);
        if (storing_ == Storing::saving || storing_ == Storing::handsOff)
            return E_UNEXPECTED;
        check(WriteClassStg(&place, __uuidof(::VKRDataEntry)));
        saveTo(place, saved());
        storing_ = Storing::saving;
        savedAs_ = sameAsLoad != FALSE ? SavedAs::own : SavedAs::copy;
        return S_OK;
    });
}

HRESULT DataEntryControl::SaveCompleted(IStorage* storage) {
    return entered(IID_IPersistStorage, [&] {
        if (storing_ == Storing::handsOff && storage == nullptr)
            return E_INVALIDARG; // there is none to go on with
        if (storing_ != Storing::saving && storing_ != Storing::handsOff)
            return E_UNEXPECTED;
        // A copy is the control's own once it is handed in.
        if (savedAs_ == SavedAs::own || (savedAs_ == SavedAs::copy && storage != nullptr))
            unsaved_ = false;
        savedAs_ = SavedAs::nothing;
        storing_ = Storing::loaded;
        if (advises_)
            advises_->SendOnSave();
        return S_OK;
    });
}

HRESULT DataEntryControl::HandsOffStorage() {
    if (storing_ == Storing::none)
        return E_UNEXPECTED;
    storing_ = Storing::handsOff;
    return S_OK;
}

} // namespace vkr::automation
