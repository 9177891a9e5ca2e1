// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "control/vkr_data_entry.hpp"
#include "tests/support/entry_scene.hpp"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vkr {

// A desktop with the component on it, worked from outside as a person does. The same scenes run
// on every desktop: what one of them shows, all of them show.
class ContractDriver {
  public:
    virtual ~ContractDriver() = default;

    [[nodiscard]] virtual VKRDataEntry& entry() = 0;
    virtual void type(std::string_view notation) = 0;            // send-keys notation
    virtual void hold(std::string_view notation, int times) = 0; // a key until it has repeated
    virtual void click(std::string_view id) = 0;
    virtual void doubleClick(std::string_view id) = 0;
    virtual void clickTab(int tab) = 0;
    virtual void rightClick(std::string_view id) = 0;
    virtual void rightClickTab(int tab) = 0;
    virtual void spin(std::string_view id, int steps) = 0; // up is positive
    virtual void dragOff(std::string_view id) = 0;         // pressed there, let go elsewhere
    // Pressed on one control, dragged to the other, let go there.
    virtual void drag(std::string_view from, std::string_view to) = 0;
    virtual void pick(std::string_view id, std::string_view item) = 0;
    virtual void answerNext(MessageAnswer answer) = 0;
    // Menus and calendars that open without an answer are closed without a choice.
    virtual void nextMenuEntry(const std::string& caption) = 0;
    virtual void nextDate(std::optional<Date> date) = 0; // nothing: Cancel
    // What a person does in the next preview of a paste: turns these switches, by their places, and
    // presses OK, or Cancel. Without an answer it is closed.
    virtual void nextPaste(std::vector<std::pair<int, int>> switches, bool ok) = 0;
    // The list of the last preview, a line each: its six texts parted by "|"; then the caption of
    // OK.
    [[nodiscard]] virtual std::vector<std::string> lastPaste() = 0;
    // Whether a cell is shown as one of several that are selected.
    [[nodiscard]] virtual bool isHighlighted(std::string_view id) = 0;
    virtual void setClipboard(const std::string& text) = 0;
    [[nodiscard]] virtual std::string clipboard() = 0;
    virtual void switchAway() = 0; // to another window
    virtual void switchBack() = 0;
    virtual void leaveToHost() = 0; // a click into a field of the host beside the form
    virtual void tabFromHost(FocusDirection direction) = 0;
    // A shortcut of the host's, in send-keys notation, and how often it has fired.
    virtual void addHostShortcut(std::string_view notation) = 0;
    [[nodiscard]] virtual int hostShortcutsFired() = 0;
    // What the desktop itself shows and does, not what the models say.
    [[nodiscard]] virtual bool canReach(std::string_view id) = 0; // by a click
    [[nodiscard]] virtual std::string shownText(std::string_view id) = 0;
    [[nodiscard]] virtual std::string focusedId() = 0;
    // What people hear of it who do not see it: its name, and what its mark says.
    [[nodiscard]] virtual std::string heardName(std::string_view id) = 0;
    [[nodiscard]] virtual std::string heardMark(std::string_view id) = 0;
    // The note at a field that says why nothing was taken; empty while there is none.
    [[nodiscard]] virtual std::string note() = 0;
    // How often the desktop has given a voice to what was not taken.
    [[nodiscard]] virtual int refusals() = 0;
    // Wholly within the component.
    [[nodiscard]] virtual bool liesInside(std::string_view id) = 0;
    // The entries of the menu that opened last, "-" for a separator, disabled ones in brackets.
    [[nodiscard]] virtual std::vector<std::string> lastMenu() = 0;
    // The day that each calendar opened with.
    [[nodiscard]] virtual std::vector<Date> calendars() = 0;
    [[nodiscard]] virtual std::vector<std::string> messages() = 0;
    [[nodiscard]] virtual std::vector<std::string>& events() = 0;

    std::shared_ptr<CompanyRecord> company; // the record that is edited
    void load(const std::shared_ptr<CompanyRecord>& record) {
        company = record;
        entry().put_objCompany(record);
    }
};

struct ContractScene {
    const char* name;
    void (*play)(ContractDriver& desktop);
};

[[nodiscard]] std::span<const ContractScene> contractScenes();

} // namespace vkr
