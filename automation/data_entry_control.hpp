// SPDX-License-Identifier: MIT
#pragma once

#include "automation/com.hpp"
#include "automation/container_site.hpp"
#include "automation/events.hpp"
#include "automation/form_face.hpp"
#include "automation/type_library.hpp"
#include "control/vkr_data_entry.hpp"

#include <memory>
#include <optional>
#include <vkr_data_entry.h>

namespace vkr::automation {

template <>
struct BasesOf<IProvideClassInfo2> : OneBase<IProvideClassInfo2, IProvideClassInfo> {};
template <>
struct BasesOf<IOleInPlaceObject> : OneBase<IOleInPlaceObject, IOleWindow> {};
template <>
struct BasesOf<IViewObject2> : OneBase<IViewObject2, IViewObject> {};
template <>
struct BasesOf<IPersistStreamInit> : OneBase<IPersistStreamInit, IPersist> {};

using DataEntryBase =
    Dual<::_VKRDataEntry, Library::entry, IProvideClassInfo2, IConnectionPointContainer, IOleObject,
         IOleControl, IOleInPlaceObject, IOleInPlaceActiveObject, IViewObject2, IPersistStreamInit,
         IPersistPropertyBag, IPersistStorage, IObjectSafety>;

// The component as a control that containers place, script and store: VKR_DataEntry.VKRDataEntry.
//
// What may be true together: its user interface is active only while it is active in place, and it
// is that only while it has the site, the frame and the document of its place; they go after it,
// when the site is told. Where its window went with that of the container, it is active until the
// next call finds out. The record inside and the one outside are the same, or there is none. What
// is changed before it is initialized counts as unsaved too, until it is initialized.
class DataEntryControl final : public DataEntryBase, private ControlOwner {
  public:
    DataEntryControl();
    ~DataEntryControl() override;

    // --- _VKRDataEntry (data_entry_members) ----------------------------------------------------
    HRESULT STDMETHODCALLTYPE blnExistsQuarterlyData(VARIANT_BOOL* value) override;
    HRESULT STDMETHODCALLTYPE get_blnDirty(VARIANT_BOOL* value) override;
    HRESULT STDMETHODCALLTYPE put_blnDirty(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_UserMode(::UserModeType* value) override;
    HRESULT STDMETHODCALLTYPE put_UserMode(::UserModeType value) override;
    HRESULT STDMETHODCALLTYPE get_ShadeColorLocked(OLE_COLOR* value) override;
    HRESULT STDMETHODCALLTYPE put_ShadeColorLocked(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_ShadeColorYear(OLE_COLOR* value) override;
    HRESULT STDMETHODCALLTYPE put_ShadeColorYear(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_ShadeColorQuarter(OLE_COLOR* value) override;
    HRESULT STDMETHODCALLTYPE put_ShadeColorQuarter(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_VisibleQuarters(SHORT* value) override;
    HRESULT STDMETHODCALLTYPE put_VisibleQuarters(SHORT value) override;
    HRESULT STDMETHODCALLTYPE get_ShowReportingPeriod(VARIANT_BOOL* value) override;
    HRESULT STDMETHODCALLTYPE put_ShowReportingPeriod(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_ShowVLs(VARIANT_BOOL* value) override;
    HRESULT STDMETHODCALLTYPE put_ShowVLs(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_CurrentTab(::TABObject* value) override;
    HRESULT STDMETHODCALLTYPE put_CurrentTab(::TABObject value) override;
    HRESULT STDMETHODCALLTYPE get_PercentFormat(BSTR* value) override;
    HRESULT STDMETHODCALLTYPE put_PercentFormat(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_DateFormat(BSTR* value) override;
    HRESULT STDMETHODCALLTYPE put_DateFormat(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_NumberFormat(BSTR* value) override;
    HRESULT STDMETHODCALLTYPE put_NumberFormat(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_FractionDisplay(VARIANT_BOOL* value) override;
    HRESULT STDMETHODCALLTYPE put_FractionDisplay(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE put_vntSource(VARIANT value) override;
    HRESULT STDMETHODCALLTYPE put_vntExchange(VARIANT value) override;
    HRESULT STDMETHODCALLTYPE put_vntIndustry(VARIANT value) override;
    HRESULT STDMETHODCALLTYPE get_BorderStyle(::BorderStyleConstants* value) override;
    HRESULT STDMETHODCALLTYPE put_BorderStyle(::BorderStyleConstants value) override;
    HRESULT STDMETHODCALLTYPE get_objCompany(::iVKR_Company** value) override;
    HRESULT STDMETHODCALLTYPE putref_objCompany(::iVKR_Company* value) override;
    HRESULT STDMETHODCALLTYPE get_Platform(::PlatformType* value) override;
    HRESULT STDMETHODCALLTYPE put_Platform(::PlatformType value) override;
    HRESULT STDMETHODCALLTYPE SetNext() override;
    HRESULT STDMETHODCALLTYPE SetPrevious() override;
    HRESULT STDMETHODCALLTYPE Clear() override;
    HRESULT STDMETHODCALLTYPE ScrollMouse(SHORT* keyCode, SHORT* shift) override;
    HRESULT STDMETHODCALLTYPE get_DecimalMark(BSTR* value) override;
    HRESULT STDMETHODCALLTYPE put_DecimalMark(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_GroupingMark(BSTR* value) override;
    HRESULT STDMETHODCALLTYPE put_GroupingMark(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_ApplicationTitle(BSTR* value) override;
    HRESULT STDMETHODCALLTYPE put_ApplicationTitle(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_UnstoredFields(VARIANT* value) override;
    HRESULT STDMETHODCALLTYPE get_DoubtfulFields(VARIANT* value) override;
    HRESULT STDMETHODCALLTYPE ShowField(BSTR control) override;
    HRESULT STDMETHODCALLTYPE LeaveField() override;
    HRESULT STDMETHODCALLTYPE put_Origins(VARIANT value) override;
    HRESULT STDMETHODCALLTYPE put_Remarks(VARIANT value) override;
    HRESULT STDMETHODCALLTYPE RecordChanged() override;
    HRESULT STDMETHODCALLTYPE ShowFigure(BSTR datum, VARIANT element, VARIANT_BOOL* shown) override;

    // --- classes and connections (data_entry_control) ------------------------------------------
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* id) override;
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** found) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** found) override;
    HRESULT STDMETHODCALLTYPE GetInterfaceSafetyOptions(REFIID id, DWORD* supported,
                                                        DWORD* enabled) override;
    HRESULT STDMETHODCALLTYPE SetInterfaceSafetyOptions(REFIID id, DWORD mask,
                                                        DWORD enabled) override;

    // --- persistence (data_entry_persistence) --------------------------------------------------
    HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) override;
    HRESULT STDMETHODCALLTYPE IsDirty() override;
    HRESULT STDMETHODCALLTYPE InitNew() override;
    HRESULT STDMETHODCALLTYPE Load(IStream* stream) override;
    HRESULT STDMETHODCALLTYPE Save(IStream* stream, BOOL clearDirty) override;
    HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) override;
    HRESULT STDMETHODCALLTYPE Load(IPropertyBag* bag, IErrorLog* log) override;
    HRESULT STDMETHODCALLTYPE Save(IPropertyBag* bag, BOOL clearDirty, BOOL all) override;
    HRESULT STDMETHODCALLTYPE InitNew(IStorage* storage) override;
    HRESULT STDMETHODCALLTYPE Load(IStorage* storage) override;
    HRESULT STDMETHODCALLTYPE Save(IStorage* storage, BOOL sameAsLoad) override;
    HRESULT STDMETHODCALLTYPE SaveCompleted(IStorage* storage) override;
    HRESULT STDMETHODCALLTYPE HandsOffStorage() override;

    // --- the object of a container (data_entry_ole) --------------------------------------------
    HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) override;
    HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) override;
    HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR application, LPCOLESTR object) override;
    HRESULT STDMETHODCALLTYPE Close(DWORD saving) override;
    HRESULT STDMETHODCALLTYPE SetMoniker(DWORD which, IMoniker* moniker) override;
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) override;
    HRESULT STDMETHODCALLTYPE InitFromData(IDataObject* data, BOOL creation,
                                           DWORD reserved) override;
    HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD reserved, IDataObject** data) override;
    HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index,
                                     HWND parent, LPCRECT place) override;
    HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** verbs) override;
    HRESULT STDMETHODCALLTYPE Update() override;
    HRESULT STDMETHODCALLTYPE IsUpToDate() override;
    HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* id) override;
    HRESULT STDMETHODCALLTYPE GetUserType(DWORD form, LPOLESTR* text) override;
    HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL* size) override;
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL* size) override;
    HRESULT STDMETHODCALLTYPE Advise(IAdviseSink* sink, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** found) override;
    HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) override;
    HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE* palette) override;
    HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) override;
    HRESULT STDMETHODCALLTYPE OnMnemonic(MSG* message) override;
    HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID id) override;
    HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL freeze) override;

    // --- in place (data_entry_in_place) --------------------------------------------------------
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL enter) override;
    HRESULT STDMETHODCALLTYPE InPlaceDeactivate() override;
    HRESULT STDMETHODCALLTYPE UIDeactivate() override;
    HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT place, LPCRECT clip) override;
    HRESULT STDMETHODCALLTYPE ReactivateAndUndo() override;
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG message) override;
    HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL active) override;
    HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL active) override;
    HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT border, IOleInPlaceUIWindow* window,
                                           BOOL frame) override;
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) override;

    // --- drawing (data_entry_view) -------------------------------------------------------------
    HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG index, void* aspectInfo,
                                   DVTARGETDEVICE* device, HDC reference, HDC context,
                                   LPCRECTL bounds, LPCRECTL window,
                                   BOOL(STDMETHODCALLTYPE* goOn)(ULONG_PTR),
                                   ULONG_PTR argument) override;
    HRESULT STDMETHODCALLTYPE GetColorSet(DWORD aspect, LONG index, void* aspectInfo,
                                          DVTARGETDEVICE* device, HDC reference,
                                          LOGPALETTE** palette) override;
    HRESULT STDMETHODCALLTYPE Freeze(DWORD aspect, LONG index, void* aspectInfo,
                                     DWORD* key) override;
    HRESULT STDMETHODCALLTYPE Unfreeze(DWORD key) override;
    HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspect, DWORD flags, IAdviseSink* sink) override;
    HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspect, DWORD* flags, IAdviseSink** sink) override;
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device,
                                        LPSIZEL size) override;

  protected:
    HRESULT invoke(DISPID member, WORD kind, DISPPARAMS& given, VARIANT* result, EXCEPINFO* error,
                   UINT* wrongArgument) override;
    void lastReleased() override;

  private:
    class Busy;
    enum class Storing { none, loaded, saving, handsOff };
    enum class SavedAs { nothing, own, copy };

    // Every entry: what it changed of the size is told when it is through.
    template <typename Call>
    HRESULT entered(REFIID id, Call&& call) noexcept {
        return guarded(this, id, [&] {
            const Styled styled;
            followWindow();
            if constexpr (std::is_void_v<decltype(call())>) {
                call();
                followSize();
                checkInvariants();
            } else {
                const HRESULT result = call();
                followSize();
                checkInvariants();
                return result;
            }
        });
    }
    template <typename Value, typename Call>
    HRESULT reading(Value* value, Call&& call) noexcept {
        if (value != nullptr)
            *value = Value(); // also where the call is refused
        return entered(__uuidof(::_VKRDataEntry), [&] {
            answer(value) = Value();
            *value = call();
        });
    }
    template <typename Call>
    HRESULT writing(Call&& call) noexcept {
        return entered(__uuidof(::_VKRDataEntry), std::forward<Call>(call));
    }
    void putList(void (VKRDataEntry::*put)(const Variant&), const VARIANT& value);
    HRESULT invokeCompany(WORD kind, DISPPARAMS& given, VARIANT* result);
    HRESULT invokeScroll(DISPPARAMS& given);
    HRESULT invokeColor(DISPID memberId, WORD kind, DISPPARAMS& given, VARIANT* result,
                        EXCEPINFO* error, UINT* wrongArgument);
    void setCompany(IUnknown* company);
    [[nodiscard]] ComPtr<IDispatch> company();

    // --- ControlOwner
    std::shared_ptr<void> stays(Stay how) override;
    void propertyChanged(std::string_view name) override;
    bool tabbedOut(FocusDirection direction) override;
    void pressed() override;
    bool lacksKeys() const override { return active_ && !userInterfaceActive_; }
    void scaleChanged() override;

    void followSize();
    void followAmbient(DISPID id);

    void begin(); // initialized: once
    void restore(const PropertyBag& bag);
    void followPlace();
    [[nodiscard]] PropertyBag saved();

    void checkInvariants() const;
    enum class Active { inPlace, userInterface };
    HRESULT activate(Active wanted);
    HRESULT activateInPlace();
    HRESULT activateUserInterface();
    void deactivate();
    void followWindow();
    void deactivateUserInterface();
    [[nodiscard]] SIZE pixels() const;
    void drawForm(HDC context, const RECT& bounds);
    void drawPlaceholder(HDC context, const RECT& bounds);
    void viewChanged();

    ContainerSite site_;
    int busy_ = 0;
    Events events_;
    FormFace face_;
    ContainerServices services_;
    std::unique_ptr<VKRDataEntry> entry_;
    std::shared_ptr<vkr::iVKR_Company> inside_; // the record last handed in or out
    ComPtr<IDispatch> outside_;                 // the same
    bool ownMarks_ = false;                     // the host has set them

    bool initialized_ = false;
    bool unsaved_ = false;
    bool restoredUnplaced_ = false;
    Storing storing_ = Storing::none;
    SavedAs savedAs_ = SavedAs::nothing; // since it was loaded, or the last save was completed
    std::map<DWORD, DWORD> safety_;      // of the dispatch and of the persistence interfaces

    ComPtr<IOleAdviseHolder> advises_;
    ComPtr<IAdviseSink> viewSink_;
    DWORD viewAspect_ = 0;
    DWORD viewFlags_ = 0;
    HACCEL accelerators_ = nullptr;
    Twips toldWidth_ = 0; // of the form, when its size was last looked at
    Twips toldHeight_ = 0;
    double toldScale_ = 0; // of the monitor, then
    SIZE toldSize_{};      // in pixels, as the container last heard

    ComPtr<IOleInPlaceSite> inPlace_;
    ComPtr<IOleInPlaceFrame> frame_;
    ComPtr<IOleInPlaceUIWindow> document_;
    bool active_ = false;
    bool userInterfaceActive_ = false;
    const MSG* translated_ = nullptr; // the key that is being offered
};

[[nodiscard]] ComPtr<IUnknown> newDataEntryControl();

} // namespace vkr::automation
