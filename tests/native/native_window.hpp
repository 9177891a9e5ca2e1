// SPDX-License-Identifier: MIT
#pragma once

#include "control/vkr_data_entry.hpp"
#include "native/native_form.hpp"
#include "native/native_services.hpp"

#include <functional>
#include <memory>

namespace vkr {

class CountingServices final : public NativeServices {
  public:
    int refusals = 0;
    void tellRefused(TextField& field, const std::string& note) override {
        ++refusals;
        NativeServices::tellRefused(field, note);
    }
};

// A window of a host with the component in it, a field of the host's below, and a loop that gives
// keys to the form first, then to the host's shortcuts, as programs of this desktop do.
class NativeWindow {
  public:
    explicit NativeWindow(VKRDataEntryEvents* events = nullptr);
    ~NativeWindow();
    NativeWindow(const NativeWindow&) = delete;
    NativeWindow& operator=(const NativeWindow&) = delete;

    // Whether the host has a shortcut for the key.
    std::function<bool(const MSG&)> shortcut;

    [[nodiscard]] HWND window() const { return window_; }
    [[nodiscard]] HWND field() const { return field_; }
    [[nodiscard]] VKRDataEntry& entry() { return *entry_; }
    [[nodiscard]] NativeForm& form() { return *form_; }
    [[nodiscard]] CountingServices& services() { return services_; }

    void activate();
    void pump(); // until no message is left

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    CountingServices services_;
    std::unique_ptr<VKRDataEntry> entry_;
    HWND window_ = nullptr;
    HWND field_ = nullptr;
    std::unique_ptr<NativeForm> form_;
};

} // namespace vkr
