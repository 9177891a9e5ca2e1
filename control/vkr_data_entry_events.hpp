// SPDX-License-Identifier: MIT
#pragma once

#include "platform/variant.hpp"
#include "record/enumerations.hpp"
#include "record/ivkr_company.hpp"

#include <cstdint>
#include <memory>

namespace vkr {

// A step in what a person has done so far.
enum class HistoryStep { undo, redo };

// What the component tells its host. Every event may be left alone. They come from within the
// component: a host destroys it after its handler has returned. What a handler throws ends there,
// and the component goes on.
class VKRDataEntryEvents {
  public:
    virtual ~VKRDataEntryEvents() = default;

    // The selection settled on another tab.
    virtual void TabChange(TABObject /*intTab*/) {}
    // The user wants the host's help: 3000 + DataEntryObject, or 3063 + tab index.
    virtual void MoreHelp(std::int16_t /*intObject*/) {}
    // The user asks the host's assistant about an object; with its text, or its caption.
    virtual void Assistant(std::int16_t /*enumObject*/, const Variant& /*vntValue*/) {}
    // OK (ulConfirm) or Cancel (ulCancel): the host is asked to close the component.
    virtual void UnloadRequest(UnloadModeType /*enumMode*/) {}
    // For hosts that bind to them; the component never raises these three.
    virtual void UpdatePrice(const std::shared_ptr<iVKR_Company>& /*objCompany*/) {}
    virtual void UpdateData(const std::shared_ptr<iVKR_Company>& /*objCompany*/) {}
    virtual void UpdateQDataOnly(const std::shared_ptr<iVKR_Company>& /*objCompany*/) {}
};

} // namespace vkr
