// SPDX-License-Identifier: MIT
#pragma once

#include "automation/com.hpp"
#include "automation/component_model.hpp"

#include <map>
#include <vector>

namespace vkr::automation {

// Who listens at one connection point. Cookies start at 1 and are never given twice.
class Listeners {
  public:
    // Whoever has not what is asked for is refused.
    enum class Asks { theInterface, thatOrDispatch };
    Listeners(IID interfaceId, Asks asks) : interfaceId_(interfaceId), asks_(asks) {}

    [[nodiscard]] REFIID interfaceId() const { return interfaceId_; }
    HRESULT add(IUnknown* sink, DWORD& cookie);
    HRESULT remove(DWORD cookie);
    void clear() { sinks_.clear(); }
    [[nodiscard]] std::vector<CONNECTDATA> connections() const; // each sink with a reference

    // Calls each that is still there when its turn comes: one may take another away.
    template <typename Interface, typename Call>
    void each(Call&& call) const {
        const auto now = sinks_;
        for (const auto& [cookie, sink] : now)
            if (sinks_.contains(cookie))
                if (const auto wanted = asInterface<Interface>(sink.get()))
                    call(*wanted.get());
    }

  private:
    template <typename Interface>
    [[nodiscard]] ComPtr<Interface> asInterface(IUnknown* sink) const {
        ComPtr<Interface> found;
        if (FAILED(sink->QueryInterface(interfaceId_, found.receiveAny())))
            return queryFor<Interface>(sink);
        return found;
    }

    IID interfaceId_;
    Asks asks_;
    std::map<DWORD, ComPtr<IUnknown>> sinks_;
    DWORD last_ = 0;
};

// The connection point of an object's listeners; it keeps the object alive.
[[nodiscard]] ComPtr<IConnectionPoint> connectionPoint(IConnectionPointContainer& owner,
                                                       Listeners& listeners);
[[nodiscard]] ComPtr<IEnumConnectionPoints>
enumeratedPoints(std::vector<ComPtr<IConnectionPoint>> points);

} // namespace vkr::automation
