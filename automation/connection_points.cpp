// SPDX-License-Identifier: MIT
#include "automation/connection_points.hpp"

#include <algorithm>
#include <utility>

namespace vkr::automation {

namespace {

// Items handed out one after the other; `give` makes what the caller owns of one.
template <typename Interface, typename Item, typename Given>
class Enumerated final : public ComObject<Interface> {
  public:
    using Give = Given (*)(const Item&);
    Enumerated(std::vector<Item> items, Give give, std::size_t next = 0)
        : items_(std::move(items)), give_(give), next_(next) {}

    HRESULT STDMETHODCALLTYPE Next(ULONG count, Given* given, ULONG* fetched) override {
        return guarded(this, __uuidof(Interface), [&] {
            if (given == nullptr || (fetched == nullptr && count != 1))
                return E_POINTER;
            ULONG done = 0;
            for (; done < count && next_ < items_.size(); ++done)
                given[done] = give_(items_[next_++]);
            if (fetched != nullptr)
                *fetched = done;
            return done == count ? S_OK : S_FALSE;
        });
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        const std::size_t left = items_.size() - next_;
        next_ += std::min<std::size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        next_ = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(Interface** copy) override {
        return guarded(this, __uuidof(Interface), [&] {
            answer(copy) = nullptr;
            *copy = makeCom<Enumerated>(items_, give_, next_).detach();
        });
    }

  private:
    std::vector<Item> items_;
    Give give_;
    std::size_t next_;
};

struct Connection {
    ComPtr<IUnknown> sink;
    DWORD cookie;
};

class Point final : public ComObject<IConnectionPoint> {
  public:
    Point(IConnectionPointContainer& owner, Listeners& listeners)
        : owner_(&owner), listeners_(listeners) {}

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) override {
        return entered([&] { answer(id) = listeners_.interfaceId(); });
    }
    HRESULT STDMETHODCALLTYPE
    GetConnectionPointContainer(IConnectionPointContainer** container) override {
        return entered([&] {
            answer(container) = nullptr;
            *container = ComPtr(owner_).detach();
        });
    }
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override {
        return entered([&] {
            answer(cookie) = 0;
            return sink == nullptr ? E_POINTER : listeners_.add(sink, *cookie);
        });
    }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
        return entered([&] { return listeners_.remove(cookie); });
    }
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** found) override {
        return entered([&] {
            answer(found) = nullptr;
            std::vector<Connection> all;
            for (const CONNECTDATA& one : listeners_.connections())
                all.push_back({ComPtr<IUnknown>::owned(one.pUnk), one.dwCookie});
            using Connections = Enumerated<IEnumConnections, Connection, CONNECTDATA>;
            *found = makeCom<Connections>(
                         std::move(all),
                         +[](const Connection& one) {
                             return CONNECTDATA{ComPtr(one.sink).detach(), one.cookie};
                         })
                         .detach();
        });
    }

  private:
    template <typename Call>
    HRESULT entered(Call&& call) {
        return guarded(this, IID_IConnectionPoint, std::forward<Call>(call));
    }

    ComPtr<IConnectionPointContainer> owner_;
    Listeners& listeners_; // of the owner
};

} // namespace

HRESULT Listeners::add(IUnknown* sink, DWORD& cookie) {
    ComPtr<IUnknown> wanted;
    if (FAILED(sink->QueryInterface(interfaceId_, wanted.receiveAny())) &&
        (asks_ == Asks::theInterface || !queryFor<IDispatch>(sink)))
        return CONNECT_E_CANNOTCONNECT;
    sinks_.emplace(last_ + 1, sink);
    cookie = ++last_;
    return S_OK;
}

HRESULT Listeners::remove(DWORD cookie) {
    const auto found = sinks_.find(cookie);
    if (found == sinks_.end())
        return CONNECT_E_NOCONNECTION;
    const ComPtr<IUnknown> released = found->second;
    sinks_.erase(found);
    return S_OK;
}

std::vector<CONNECTDATA> Listeners::connections() const {
    std::vector<CONNECTDATA> all;
    for (const auto& [cookie, sink] : sinks_)
        all.push_back({ComPtr(sink).detach(), cookie});
    return all;
}

ComPtr<IConnectionPoint> connectionPoint(IConnectionPointContainer& owner, Listeners& listeners) {
    return ComPtr<IConnectionPoint>(makeCom<Point>(owner, listeners).get());
}

ComPtr<IEnumConnectionPoints> enumeratedPoints(std::vector<ComPtr<IConnectionPoint>> points) {
    using Points = Enumerated<IEnumConnectionPoints, ComPtr<IConnectionPoint>, IConnectionPoint*>;
    return ComPtr<IEnumConnectionPoints>(
        makeCom<Points>(
            std::move(points),
            +[](const ComPtr<IConnectionPoint>& one) { return ComPtr(one).detach(); })
            .get());
}

} // namespace vkr::automation
