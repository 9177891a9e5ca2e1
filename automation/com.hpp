// SPDX-License-Identifier: MIT
#pragma once

#include "automation/com_error.hpp"
#include "automation/component_model.hpp"

#include <atomic>
#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace vkr::automation {

// A reference to an object of the component model.
template <typename Interface>
class ComPtr {
  public:
    ComPtr() = default;
    ComPtr(Interface* pointer) : pointer_(pointer) {
        if (pointer_ != nullptr)
            pointer_->AddRef();
    }
    ComPtr(const ComPtr& other) : ComPtr(other.pointer_) {}
    ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ~ComPtr() { reset(); }
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }

    // Takes over a reference that the caller has.
    [[nodiscard]] static ComPtr owned(Interface* pointer) {
        ComPtr taken;
        taken.pointer_ = pointer;
        return taken;
    }
    [[nodiscard]] Interface* get() const { return pointer_; }
    Interface* operator->() const { return pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }
    // The field is empty before what it held is released: that may call back.
    void reset() {
        if (Interface* const held = std::exchange(pointer_, nullptr); held != nullptr)
            held->Release();
    }
    // Where a call puts a reference; what was held is released.
    [[nodiscard]] Interface** receive() {
        reset();
        return &pointer_;
    }
    [[nodiscard]] void** receiveAny() { return reinterpret_cast<void**>(receive()); }
    [[nodiscard]] Interface* detach() { return std::exchange(pointer_, nullptr); }

  private:
    Interface* pointer_ = nullptr;
};

// The interface of an object, or nothing where it has it not.
template <typename Interface>
[[nodiscard]] ComPtr<Interface> queryFor(IUnknown* object) {
    ComPtr<Interface> found;
    if (object == nullptr ||
        FAILED(object->QueryInterface(__uuidof(Interface), found.receiveAny())))
        return {};
    return found;
}

// --- what is alive -------------------------------------------------------------------------------

// Objects and locks of the whole library.
[[nodiscard]] long liveObjects();
class Alive {
  public:
    Alive();
    Alive(const Alive&) : Alive() {}
    Alive& operator=(const Alive&) = delete;
    ~Alive();
};
void lockLibrary(bool lock);

// --- the one entry -------------------------------------------------------------------------------

// What the exception in flight is to the caller; its text is left as error information.
[[nodiscard]] HRESULT tellFailure(REFIID interfaceId) noexcept;

// Every call from outside goes through here: it is refused on another thread than the object's, the
// object stays alive while it lasts, and what is thrown becomes a code with a description.
template <typename Object, typename Call>
HRESULT guarded(Object* self, REFIID interfaceId, Call&& call) noexcept {
    if (!self->isAtHome())
        return RPC_E_WRONG_THREAD; // from another apartment, without a proxy
    self->AddRef();
    HRESULT result = S_OK;
    try {
        if constexpr (std::is_void_v<decltype(call())>)
            call();
        else
            result = call();
    } catch (...) {
        result = tellFailure(interfaceId);
    }
    self->Release();
    return result;
}

// --- objects -------------------------------------------------------------------------------------

// The interfaces that one derives from, besides IUnknown.
template <typename Interface>
struct BasesOf {
    static void* find(Interface* /*self*/, REFIID /*id*/) { return nullptr; }
};
template <typename Interface, typename Base>
struct OneBase {
    static void* find(Interface* self, REFIID id) {
        return IsEqualIID(id, __uuidof(Base)) ? static_cast<Base*>(self)
                                              : BasesOf<Base>::find(self, id);
    }
};

// Reference counts and QueryInterface of an object with these interfaces, made by makeCom().
template <typename... Interfaces>
class ComObject : public Interfaces... {
  public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;
    virtual ~ComObject() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override {
        if (found == nullptr)
            return E_POINTER;
        *found = find(id);
        if (*found == nullptr)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) {
            references_ = destroying; // what a destructor calls may take and give references
            lastReleased();
        }
        return left;
    }
    [[nodiscard]] ULONG references() const { return references_; }
    // Whether this is the thread that it was made on.
    [[nodiscard]] virtual bool isAtHome() const { return home() == GetCurrentThreadId(); }
    [[nodiscard]] DWORD home() const { return home_; }

  protected:
    virtual void lastReleased() { delete this; }
    [[nodiscard]] virtual void* find(REFIID id) {
        if (IsEqualIID(id, IID_IUnknown))
            return identity();
        void* found = nullptr;
        static_cast<void>(((found = one<Interfaces>(id)) || ...));
        return found;
    }
    [[nodiscard]] IUnknown* identity() { return static_cast<First*>(this); }

  private:
    template <typename Head, typename...>
    struct FirstOf {
        using Type = Head;
    };
    using First = typename FirstOf<Interfaces...>::Type;
    static constexpr ULONG destroying = 0x40000000;

    template <typename Interface>
    void* one(REFIID id) {
        auto* const self = static_cast<Interface*>(this);
        return IsEqualIID(id, __uuidof(Interface)) ? self : BasesOf<Interface>::find(self, id);
    }

    std::atomic<ULONG> references_ = 1;
    DWORD home_ = GetCurrentThreadId();
    Alive alive_;
};

template <typename Object, typename... Arguments>
[[nodiscard]] ComPtr<Object> makeCom(Arguments&&... arguments) {
    return ComPtr<Object>::owned(new Object(std::forward<Arguments>(arguments)...));
}

} // namespace vkr::automation
