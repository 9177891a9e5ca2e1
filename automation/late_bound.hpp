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

// An object outside, called by name. What it fails with is thrown, with its description.
class LateBound {
  public:
    explicit LateBound(ComPtr<IDispatch> object) : object_(std::move(object)) {}

    [[nodiscard]] IDispatch* dispatch() const { return object_.get(); }
    // Throws for a name that it does not know; asked once.
    [[nodiscard]] DISPID idOf(std::string_view name) const;
    void get(DISPID id, OwnedVariant& value) const;
    void put(DISPID id, const Variant& value) const;
    // A method with these arguments, first to last.
    void call(DISPID id, std::initializer_list<Variant> arguments, OwnedVariant& answer) const;

  private:
    void invoke(DISPID id, WORD kind, std::vector<VARIANT>& arguments, VARIANT* answer) const;

    ComPtr<IDispatch> object_;
    mutable std::map<std::string, DISPID, std::less<>> ids_;
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
