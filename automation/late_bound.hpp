// SPDX-License-Identifier: MIT
#pragma once

#include "automation/com.hpp"
#include "automation/variants.hpp"
#include "platform/object.hpp"
#include "platform/variant.hpp"

#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vkr::automation {

// What a variant of the component model holds, with objects; see readVariant().
[[nodiscard]] Variant fromVariant(const VARIANT& value);
void toVariant(const Variant& value, OwnedVariant& into);
[[nodiscard]] VARIANT newVariant(const Variant& value);

// Null for null. An object of the component that has been outside is itself again. Throws
// DISP_E_TYPEMISMATCH for one that can't be called by name.
[[nodiscard]] std::shared_ptr<Object> lateBound(IUnknown* object);
// The other way.
[[nodiscard]] ComPtr<IDispatch> dispatchOf(const std::shared_ptr<Object>& object);

// An object outside, called by name. What it fails with is thrown, with its description, and so is
// a name that it does not know. Whoever holds this may be gone when a call comes back.
class LateBound {
  public:
    explicit LateBound(ComPtr<IDispatch> object)
        : held_(std::make_shared<Held>(Held{std::move(object), {}})) {}

    [[nodiscard]] IDispatch* dispatch() const { return held_->object.get(); }
    void get(std::string_view name, OwnedVariant& value) const;
    void put(std::string_view name, const Variant& value) const;
    // A method with these arguments, first to last.
    void call(std::string_view name, std::initializer_list<Variant> arguments,
              OwnedVariant& answer) const;

  private:
    struct Held {
        ComPtr<IDispatch> object;
        std::map<std::string, DISPID, std::less<>> ids; // asked once each
    };
    [[nodiscard]] static DISPID idOf(Held& held, std::string_view name);
    void invoke(std::string_view name, WORD kind, std::vector<VARIANT>& arguments,
                VARIANT* answer) const;

    std::shared_ptr<Held> held_;
};

// An object outside as one of the component: its properties by name.
class OutsideObject final : public Object {
  public:
    explicit OutsideObject(ComPtr<IDispatch> object) : object_(std::move(object)) {}
    [[nodiscard]] Variant get(std::string_view name) const override;
    void put(std::string_view name, const Variant& value) override;
    [[nodiscard]] IDispatch* dispatch() const { return object_.dispatch(); }

  private:
    LateBound object_;
};

} // namespace vkr::automation
