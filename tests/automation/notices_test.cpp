// SPDX-License-Identifier: MIT
// Who hears of a control besides by its events: of its end, its saving and its picture, and who is
// connected to it.
#include "tests/automation/control_fixture.hpp"
#include "tests/automation/memory_storage.hpp"

#include <utility>

namespace vkr::automation {
namespace {

class AdviseSink final : public ComObject<IAdviseSink> {
  public:
    Log log;

    void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) override { log.push_back("data"); }
    void STDMETHODCALLTYPE OnViewChange(DWORD aspect, LONG) override {
        log.push_back("view " + std::to_string(aspect));
    }
    void STDMETHODCALLTYPE OnRename(IMoniker*) override { log.push_back("name"); }
    void STDMETHODCALLTYPE OnSave() override { log.push_back("saved"); }
    void STDMETHODCALLTYPE OnClose() override { log.push_back("closed"); }
};

struct Notices : Control {
    ComPtr<AdviseSink> sink = makeCom<AdviseSink>();

    Log heard() { return std::exchange(sink->log, {}); }
};

TEST_F(Notices, TheEndAndASaveAreTold) {
    const auto object = as<IOleObject>();
    DWORD cookie = 0;
    ASSERT_EQ(object->Advise(sink.get(), &cookie), S_OK);
    EXPECT_NE(cookie, 0U);
    ComPtr<IEnumSTATDATA> all;
    ASSERT_EQ(object->EnumAdvise(all.receive()), S_OK);
    STATDATA one{};
    ASSERT_EQ(all->Next(1, &one, nullptr), S_OK);
    EXPECT_EQ(one.dwConnection, cookie);
    if (one.pAdvSink != nullptr)
        one.pAdvSink->Release();
    all.reset();

    const auto storage = newStorage();
    EXPECT_EQ(as<IPersistStorage>()->InitNew(storage.get()), S_OK);
    EXPECT_EQ(as<IPersistStorage>()->Save(storage.get(), TRUE), S_OK);
    EXPECT_EQ(heard(), Log{});
    EXPECT_EQ(as<IPersistStorage>()->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(heard(), Log{"saved"});
    EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(heard(), Log{"closed"});
    EXPECT_EQ(object->Unadvise(cookie), S_OK);
    EXPECT_EQ(object->Unadvise(cookie), OLE_E_NOCONNECTION);
    EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(heard(), Log{});
}

TEST_F(Notices, AnotherPictureIsTold) {
    const auto view = as<IViewObject2>();
    const Log once{"view 1"};
    place();
    EXPECT_EQ(view->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, sink.get()), S_OK);
    EXPECT_EQ(heard(), once);
    DWORD aspect = 0;
    DWORD flags = 0;
    ComPtr<IAdviseSink> told;
    EXPECT_EQ(view->GetAdvise(&aspect, &flags, told.receive()), S_OK);
    EXPECT_EQ(aspect, static_cast<DWORD>(DVASPECT_CONTENT));
    EXPECT_EQ(flags, static_cast<DWORD>(ADVF_PRIMEFIRST));
    EXPECT_EQ(told.get(), sink.get());
    told.reset();
    EXPECT_EQ(as<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_BACKCOLOR), S_OK);
    EXPECT_EQ(heard(), once);
    const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
    EXPECT_EQ(control->putref_objCompany(company.get()), S_OK); // it is a form now
    EXPECT_EQ(heard(), once);
    EXPECT_EQ(view->SetAdvise(DVASPECT_CONTENT, ADVF_ONLYONCE, sink.get()), S_OK);
    for (const Log& next : {once, Log{}}) {
        EXPECT_EQ(as<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_FONT), S_OK);
        EXPECT_EQ(heard(), next);
    }
    EXPECT_EQ(view->SetAdvise(DVASPECT_ICON, 0, sink.get()), S_OK); // it has none
    EXPECT_EQ(as<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_FONT), S_OK);
    EXPECT_EQ(heard(), Log{});
    EXPECT_EQ(view->SetAdvise(0, 0, nullptr), S_OK);
    takeAway();
}

TEST_F(Notices, TheContainerSavesWhatIsClosedAndHasChanged) {
    const auto closed = [&](DWORD saving) {
        site->log.clear();
        EXPECT_EQ(as<IOleObject>()->Close(saving), S_OK);
        return site->log;
    };
    EXPECT_EQ(as<IPersistStreamInit>()->InitNew(), S_OK);
    place();
    EXPECT_EQ(closed(OLECLOSE_SAVEIFDIRTY), Log{});
    EXPECT_EQ(control->put_VisibleQuarters(12), S_OK);
    EXPECT_EQ(closed(OLECLOSE_NOSAVE), Log{});
    EXPECT_EQ(closed(OLECLOSE_SAVEIFDIRTY), Log{"SaveObject"});
    takeAway();
}

TEST_F(Notices, TheConnectionsAreListed) {
    ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(as<IConnectionPointContainer>()->EnumConnectionPoints(points.receive()), S_OK);
    const auto next = [](IEnumConnectionPoints& from) {
        ComPtr<IConnectionPoint> point;
        IID id{};
        if (from.Next(1, point.receive(), nullptr) == S_OK) {
            EXPECT_EQ(point->GetConnectionInterface(&id), S_OK);
        }
        return id;
    };
    EXPECT_TRUE(IsEqualIID(next(*points.get()), __uuidof(::__VKRDataEntry)));
    ComPtr<IEnumConnectionPoints> copy;
    ASSERT_EQ(points->Clone(copy.receive()), S_OK);
    for (IEnumConnectionPoints* const one : {points.get(), copy.get()}) {
        EXPECT_TRUE(IsEqualIID(next(*one), IID_IPropertyNotifySink));
        EXPECT_TRUE(IsEqualIID(next(*one), IID_NULL));
    }
    EXPECT_EQ(points->Reset(), S_OK);
    EXPECT_EQ(points->Skip(1), S_OK);
    EXPECT_TRUE(IsEqualIID(next(*points.get()), IID_IPropertyNotifySink));
    EXPECT_EQ(points->Skip(1), S_FALSE);

    const auto point = pointOf(control.get(), IID_IPropertyNotifySink);
    const ComPtr<NoticeSink> sinks[] = {makeCom<NoticeSink>(), makeCom<NoticeSink>()};
    DWORD cookies[2] = {};
    for (int i = 0; i < 2; ++i)
        ASSERT_EQ(point->Advise(sinks[i].get(), &cookies[i]), S_OK);
    ComPtr<IEnumConnections> connections;
    ASSERT_EQ(point->EnumConnections(connections.receive()), S_OK);
    CONNECTDATA told[3] = {};
    ULONG count = 0;
    EXPECT_EQ(connections->Next(3, told, &count), S_FALSE);
    ASSERT_EQ(count, 2U);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(told[i].dwCookie, cookies[i]);
        EXPECT_EQ(told[i].pUnk, static_cast<IUnknown*>(sinks[i].get()));
        told[i].pUnk->Release();
    }
    EXPECT_EQ(point->Unadvise(cookies[0]), S_OK);
    DWORD later = 0;
    ASSERT_EQ(point->Advise(sinks[0].get(), &later), S_OK);
    EXPECT_NE(later, cookies[0]); // never given twice
    EXPECT_NE(later, cookies[1]);
    EXPECT_EQ(point->Unadvise(cookies[0]), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(point->Unadvise(later), S_OK);
    EXPECT_EQ(point->Unadvise(cookies[1]), S_OK);
    connections.reset();
    EXPECT_EQ(sinks[0]->references(), 1U);
    EXPECT_EQ(sinks[1]->references(), 1U);
}

} // namespace
} // namespace vkr::automation
