// SPDX-License-Identifier: MIT
#include "platform/text.hpp"
#include "tests/support/contract.hpp"

#include <gtest/gtest.h>

namespace vkr {

namespace {

class VirtualDriver final : public ContractDriver {
  public:
    VKRDataEntry& entry() override { return *scene_.entry; }
    void type(std::string_view notation) override { scene_.desktop.type(notation); }
    void hold(std::string_view notation, int times) override {
        scene_.desktop.hold(notation, times);
    }
    void click(std::string_view id) override { scene_.desktop.click(id); }
    void doubleClick(std::string_view id) override { scene_.desktop.doubleClick(id); }
    void spin(std::string_view id, int steps) override { scene_.desktop.spin(id, steps); }
    void dragOff(std::string_view id) override {
        scene_.desktop.press(id);
        scene_.desktop.dragAway();
    }
    void clickTab(int tab) override { scene_.desktop.clickTab(tab); }
    void rightClick(std::string_view id) override { scene_.desktop.rightClick(id); }
    void rightClickTab(int tab) override { scene_.desktop.rightClickTab(tab); }
    void drag(std::string_view from, std::string_view to) override {
        scene_.desktop.press(from);
        scene_.desktop.dragTo(to);
        scene_.desktop.dragAway();
    }
    void nextPaste(std::vector<std::pair<int, int>> switches, bool ok) override {
        scene_.desktop.answerNextPaste([switches, ok](PasteForm& form) {
            for (const auto& [index, chosen] : switches)
                form.setSwitch(index, chosen);
            if (ok)
                form.pressOk();
        });
    }
    std::vector<std::string> lastPaste() override {
        std::vector<std::string> lines;
        if (scene_.desktop.pastes().empty())
            return lines;
        const auto& shown = scene_.desktop.pastes().back();
        for (const auto& line : shown.lines)
            lines.push_back(line.period + "|" + line.column + "|" + line.text + "|" + line.before +
                            "|" + line.after + "|" + line.remark);
        lines.push_back(withoutMnemonic(shown.okCaption));
        return lines;
    }
    bool isHighlighted(std::string_view id) override {
        return dynamic_cast<TextBox&>(scene_.desktop.control(id)).highlighted();
    }
    void pick(std::string_view id, std::string_view item) override {
        scene_.desktop.pick(id, item);
    }
    void answerNext(MessageAnswer answer) override { scene_.desktop.answerNext(answer); }
    void nextMenuEntry(const std::string& caption) override {
        scene_.desktop.answerNextMenu(caption);
    }
    void nextDate(std::optional<Date> date) override { scene_.desktop.answerNextDate(date); }
    void setClipboard(const std::string& text) override { scene_.desktop.setClipboardText(text); }
    std::string clipboard() override { return scene_.desktop.clipboardText(); }
    void switchAway() override { scene_.desktop.switchAway(); }
    void switchBack() override { scene_.desktop.switchBack(); }
    void leaveToHost() override { scene_.desktop.leaveForm(); }
    void tabFromHost(FocusDirection direction) override { scene_.desktop.tabInto(direction); }
    void addHostShortcut(std::string_view notation) override {
        scene_.desktop.addHostShortcut(notation);
    }
    int hostShortcutsFired() override { return scene_.desktop.hostShortcutsFired(); }
    bool canReach(std::string_view id) override { return scene_.desktop.canReach(id); }
    std::string shownText(std::string_view id) override {
        return dynamic_cast<TextField&>(scene_.desktop.control(id)).text();
    }
    std::string focusedId() override { return scene_.desktop.focusedId(); }
    std::string heardName(std::string_view id) override {
        return scene_.desktop.control(id).accessibleName();
    }
    std::string heardMark(std::string_view id) override {
        return dynamic_cast<TextField&>(scene_.desktop.control(id)).shownReason();
    }
    std::string note() override {
        const auto& note = scene_.desktop.note();
        return note ? note->note : "";
    }
    int refusals() override { return static_cast<int>(scene_.desktop.refusals().size()); }
    bool liesInside(std::string_view id) override {
        const auto& control = scene_.desktop.control(id);
        const auto& form = scene_.form();
        return control.formLeft() >= 0 && control.formTop() >= 0 &&
               control.formLeft() + control.width() <= form.width() &&
               control.formTop() + control.height() <= form.height();
    }
    std::vector<std::string> lastMenu() override {
        std::vector<std::string> captions;
        if (!scene_.desktop.menus().empty())
            for (const auto& entry : scene_.desktop.menus().back().entries)
                captions.push_back(entry.enabled ? entry.caption : "(" + entry.caption + ")");
        return captions;
    }
    std::vector<Date> calendars() override {
        std::vector<Date> days;
        for (const auto& calendar : scene_.desktop.calendars())
            days.push_back(calendar.shown);
        return days;
    }
    std::vector<std::string> messages() override {
        std::vector<std::string> texts;
        for (const auto& message : scene_.desktop.messages())
            texts.push_back(message.text);
        return texts;
    }
    std::vector<std::string>& events() override { return scene_.events.log; }

  private:
    EntryScene scene_;
};

class OnTheVirtualDesktop : public testing::TestWithParam<ContractScene> {};

TEST_P(OnTheVirtualDesktop, Scene) {
    VirtualDriver desktop;
    GetParam().play(desktop);
}

INSTANTIATE_TEST_SUITE_P(Contract, OnTheVirtualDesktop, testing::ValuesIn(contractScenes()),
                         [](const auto& scene) { return std::string(scene.param.name); });

} // namespace

} // namespace vkr
