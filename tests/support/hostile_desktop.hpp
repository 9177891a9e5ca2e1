// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/entry_scene.hpp"

#include <functional>
#include <set>
#include <string>

namespace vkr {

// A desktop whose services fail on demand, by their names, and that lets a test act while a
// message is up.
class HostileDesktop final : public VirtualDesktop {
  public:
    std::set<std::string, std::less<>> failing;
    std::function<void()> fail = [] { throw std::runtime_error("the desktop fails"); };
    std::function<void()> duringMessage;
    std::set<std::string, std::less<>> asked; // services that were called at all

    MessageAnswer messageBox(const std::string& text, int buttons,
                             const std::string& title) override {
        note("messageBox");
        if (duringMessage)
            duringMessage();
        return VirtualDesktop::messageBox(text, buttons, title);
    }
    bool clipboardHasText() override {
        note("clipboardHasText");
        return VirtualDesktop::clipboardHasText();
    }
    std::string clipboardText() override {
        note("clipboardText");
        return VirtualDesktop::clipboardText();
    }
    std::optional<char> clipboardDecimalMark() override {
        note("clipboardDecimalMark");
        return VirtualDesktop::clipboardDecimalMark();
    }
    void clearClipboard() override {
        note("clearClipboard");
        VirtualDesktop::clearClipboard();
    }
    void setClipboardText(const std::string& text) override {
        note("setClipboardText");
        VirtualDesktop::setClipboardText(text);
    }
    Date today() override {
        note("today");
        return VirtualDesktop::today();
    }
    Twips screenWidth() override {
        note("screenWidth");
        return VirtualDesktop::screenWidth();
    }
    std::optional<Color> chooseColor(Color current) override {
        note("chooseColor");
        return VirtualDesktop::chooseColor(current);
    }
    void showModal(CalendarForm& form) override {
        note("showModal");
        VirtualDesktop::showModal(form);
    }
    void showPaste(PasteForm& form) override {
        note("showPaste");
        VirtualDesktop::showPaste(form);
    }
    void tellRefused(TextField& field, const std::string& text) override {
        note("tellRefused");
        VirtualDesktop::tellRefused(field, text);
    }
    bool canUndo(const TextField& field) override {
        note("canUndo");
        return VirtualDesktop::canUndo(field);
    }
    void undo(TextField& field) override {
        note("undo");
        VirtualDesktop::undo(field);
    }
    void redo(TextField& field) override {
        note("redo");
        VirtualDesktop::redo(field);
    }
    Twips textWidth(std::string_view text) override {
        note("textWidth");
        return VirtualDesktop::textWidth(text);
    }
    Twips textHeight() override {
        note("textHeight");
        return VirtualDesktop::textHeight();
    }
    int popUpMenu(const std::vector<MenuItem*>& items, Twips left, Twips top) override {
        note("popUpMenu");
        return VirtualDesktop::popUpMenu(items, left, top);
    }
    std::shared_ptr<Object> createObject(std::string_view programmaticId) override {
        note("createObject");
        return VirtualDesktop::createObject(programmaticId);
    }
    bool ambientUserMode() override {
        note("ambientUserMode");
        return VirtualDesktop::ambientUserMode();
    }
    std::string applicationTitle() override {
        note("applicationTitle");
        return VirtualDesktop::applicationTitle();
    }
    void propertyChanged(std::string_view name) override {
        note("propertyChanged");
        VirtualDesktop::propertyChanged(name);
    }

  private:
    void note(std::string_view service) {
        asked.emplace(service);
        if (failing.contains(service))
            fail();
    }
};

// The component on such a desktop.
struct HostileScene {
    HostileDesktop desktop;
    EventRecorder events;
    std::unique_ptr<VKRDataEntry> entry;

    HostileScene() {
        registerLocalizers(desktop.factory());
        registerCompanyRecord(desktop.factory());
        desktop.setToday(*makeDate(2026, 11, 21));
    }
    void start() {
        entry = std::make_unique<VKRDataEntry>(desktop);
        entry->setEvents(&events);
        desktop.attach(entry->form());
        entry->InitProperties();
        entry->ReadProperties(PropertyBag());
    }
    [[nodiscard]] TextField& field(std::string_view name, int index = Control::noIndex) const {
        return entry->form().get<TextField>(name, index);
    }
};

} // namespace vkr
