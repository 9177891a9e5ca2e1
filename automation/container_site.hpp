// SPDX-License-Identifier: MIT
#pragma once

#include "automation/com.hpp"
#include "automation/control_owner.hpp"
#include "automation/variants.hpp"
#include "platform/services.hpp"

#include <memory>
#include <optional>
#include <string>

namespace vkr::automation {

// The place that a container gives a control: its site, and what it tells of its surroundings.
class ContainerSite {
  public:
    void set(IOleClientSite* site);
    [[nodiscard]] const ComPtr<IOleClientSite>& site() const { return site_; }
    template <typename Interface>
    [[nodiscard]] ComPtr<Interface> as() const {
        return queryFor<Interface>(site_.get());
    }
    // Nothing where the container does not tell it.
    [[nodiscard]] std::optional<Variant> ambient(DISPID id) const;
    // The same as an object, such as the font.
    [[nodiscard]] ComPtr<IUnknown> ambientObject(DISPID id) const;

  private:
    [[nodiscard]] bool ask(DISPID id, OwnedVariant& value) const;

    ComPtr<IOleClientSite> site_;
};

// What the component needs, of the desktop and of the container that it is placed in.
class ContainerServices final : public Services {
  public:
    // `desktop` answers its own part.
    ContainerServices(const ContainerSite& site, Services& desktop, ControlOwner& control)
        : site_(site), desktop_(desktop), control_(control) {}

    [[nodiscard]] const std::string& title() const { return title_; }
    void setTitle(std::string title) { title_ = std::move(title); }

    MessageAnswer messageBox(const std::string& text, int buttons,
                             const std::string& title) override;
    bool clipboardHasText() override { return desktop_.clipboardHasText(); }
    std::string clipboardText() override { return desktop_.clipboardText(); }
    std::optional<char> clipboardDecimalMark() override { return desktop_.clipboardDecimalMark(); }
    void clearClipboard() override { desktop_.clearClipboard(); }
    void setClipboardText(const std::string& text) override { desktop_.setClipboardText(text); }
    Date today() override { return desktop_.today(); }
    Twips screenWidth() override { return desktop_.screenWidth(); }
    std::optional<Color> chooseColor(Color current) override;
    void showModal(CalendarForm& form) override;
    void showPaste(PasteForm& form) override;
    void tellRefused(TextField& field, const std::string& note) override {
        desktop_.tellRefused(field, note);
    }
    bool canUndo(const TextField& field) override { return desktop_.canUndo(field); }
    void undo(TextField& field) override { desktop_.undo(field); }
    void redo(TextField& field) override { desktop_.redo(field); }
    Twips textWidth(std::string_view text) override { return desktop_.textWidth(text); }
    Twips textHeight() override { return desktop_.textHeight(); }
    int popUpMenu(const std::vector<MenuItem*>& items, Twips left, Twips top) override;
    std::shared_ptr<Object> createObject(std::string_view programmaticId) override;

    bool ambientUserMode() override;
    std::string applicationTitle() override { return title_; }
    void propertyChanged(std::string_view name) override { control_.propertyChanged(name); }

  private:
    const ContainerSite& site_;
    Services& desktop_;
    ControlOwner& control_;
    std::string title_ = "VKR Data Entry";
};

} // namespace vkr::automation
