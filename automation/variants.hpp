// SPDX-License-Identifier: MIT
#pragma once

#include "automation/com.hpp"
#include "automation/component_model.hpp"
#include "platform/date.hpp"
#include "platform/variant.hpp"

#include <cstdint>
#include <string>

namespace vkr::automation {

// A variant of the component model that is cleared at the end.
class OwnedVariant {
  public:
    OwnedVariant() { VariantInit(&held_); }
    OwnedVariant(const OwnedVariant&) = delete;
    OwnedVariant& operator=(const OwnedVariant&) = delete;
    ~OwnedVariant() { VariantClear(&held_); }
    [[nodiscard]] VARIANT* receive() {
        VariantClear(&held_);
        return &held_;
    }
    [[nodiscard]] const VARIANT& get() const { return held_; }
    [[nodiscard]] VARIANT& get() { return held_; }
    // The caller's to clear from now on.
    [[nodiscard]] VARIANT detach() {
        const VARIANT held = held_;
        VariantInit(&held_);
        return held;
    }

  private:
    VARIANT held_;
};

// What an object within a variant is to the component, and to those outside.
using ObjectIn = std::shared_ptr<Object> (*)(IUnknown* object);
using ObjectOut = ComPtr<IDispatch> (*)(const std::shared_ptr<Object>& object);

// What a variant of the component model holds, by reference or not, with arrays of any bounds and
// of any element type. Empty and null are empty, whole numbers of more than 32 bits are doubles.
// Throws ComError with DISP_E_TYPEMISMATCH for what has no counterpart: a missing argument, a
// record, an array of several dimensions, a number of more digits than a double has.
[[nodiscard]] Variant readVariant(const VARIANT& value, ObjectIn objectIn);
// The other way; arrays are arrays of variants, which scripts can index. Throws std::bad_alloc.
void writeVariant(const Variant& value, OwnedVariant& into, ObjectOut objectOut);

// The variant as what a datum is: a number from a number, a date from a date or a number, a text
// from a text; empty is "no value". Anything else throws: a text is no figure.
[[nodiscard]] double numberIn(const VARIANT& value);
[[nodiscard]] std::int16_t yearIn(const VARIANT& value);
[[nodiscard]] Date dateIn(const VARIANT& value);
[[nodiscard]] std::string textIn(const VARIANT& value);
// An array of numbers with its own bounds; empty elements are 0.
[[nodiscard]] Variant seriesIn(const VARIANT& value);

} // namespace vkr::automation
