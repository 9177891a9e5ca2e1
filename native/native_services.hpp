// SPDX-License-Identifier: MIT
#pragma once

#include "native/windows_api.hpp"
#include "platform/object_factory.hpp"
#include "platform/pixel_scale.hpp"
#include "platform/services.hpp"

#include <array>
#include <string>
#include <string_view>

namespace vkr {

class NativeForm;

// The desktop as the component sees it, by the system's own dialogs and menus, and the container as
// far as it needs none: one that has a container of its own overrides what that one knows.
//
// They outlive the component. Dialogs belong to the window that the form is in; without a form
// every question is answered with no.
class NativeServices : public Services {
  public:
    NativeServices();

    // Null before the form is destroyed, also within a call from it.
    void setForm(NativeForm* form) { form_ = form; }
    // Objects that the component creates by their identifier.
    [[nodiscard]] ObjectFactory& factory() { return factory_; }
    void setUserMode(bool userMode) { userMode_ = userMode; }
    void setTitle(std::string_view title) { title_ = title; }

    MessageAnswer messageBox(const std::string& text, int buttons,
                             const std::string& title) override;
    bool clipboardHasText() override;
    std::string clipboardText() override;
    std::optional<char> clipboardDecimalMark() override;
    void clearClipboard() override;
    void setClipboardText(const std::string& text) override;
    Date today() override;
    Twips screenWidth() override;
    std::optional<Color> chooseColor(Color current) override;
    void showModal(CalendarForm& form) override;
    void showPaste(PasteForm& form) override;
    void tellRefused(TextField& field, const std::string& note) override;
    bool canUndo(const TextField& field) override;
    void undo(TextField& field) override;
    Twips textWidth(std::string_view text) override;
    Twips textHeight() override;
    int popUpMenu(const std::vector<MenuItem*>& items, Twips left, Twips top) override;
    std::shared_ptr<Object> createObject(std::string_view programmaticId) override;
    bool ambientUserMode() override { return userMode_; }
    std::string applicationTitle() override { return title_; }
    void propertyChanged(std::string_view /*name*/) override {} // whoever owns it may tell

  private:
    class Interruption;

    [[nodiscard]] HWND root() const;
    [[nodiscard]] PixelScale scale() const;

    NativeForm* form_ = nullptr;
    ObjectFactory factory_;
    std::string title_ = "Data Entry";
    bool userMode_ = true;
    std::array<COLORREF, 16> ownColors_{}; // that people have mixed in the dialog
};

} // namespace vkr
