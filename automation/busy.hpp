// SPDX-License-Identifier: MIT
#pragma once

#include "automation/component_model.hpp"

#include <functional>

namespace vkr::automation {

// Gives the reference back when what is under way on this thread is through: at the next turn of
// its message loop. Where the thread has none left, at the latest when it looks whether the library
// can go.
void releaseLater(IUnknown* object);
template <typename Object>
void releaseLater(Object* object) {
    releaseLater(static_cast<IUnknown*>(static_cast<IDispatch*>(object)));
}
// For what was released last on another thread than its own: destroyed on its own, when that one
// next comes to releaseWaiting().
void destroyAtHome(DWORD thread, std::function<void()> destroy);
void releaseWaiting();

} // namespace vkr::automation
