// SPDX-License-Identifier: MIT
#include "input/mdlMenu.hpp"

#include "form/controls.hpp"
#include "platform/error_trap.hpp"
#include "platform/number_text.hpp"

#include <cstdint>
#include <string_view>

namespace vkr {

namespace {

using controls::menuEntry;

// A text box, as the entries of its text depend on it.
struct FieldState {
    bool changeable; // not locked
    bool canUndo;
    bool hasText;
    bool hasSelection;
    bool canPaste;
};

struct FieldEntry {
    int text;                  // string number, 0 for a separator
    std::string_view fallback; // where the localizer has no text
    MenuCommand command;
    bool (*enabled)(const FieldState& state);
};

constexpr bool always(const FieldState& /*state*/) {
    return true;
}

constexpr FieldEntry fieldEntries[] = {
    {413, "Undo", mcUndo,
     [](const FieldState& state) { return state.changeable && state.canUndo; }},
    {0, {}, mcSeparator, always},
    {414, "Cut", mcCut,
     [](const FieldState& state) { return state.changeable && state.hasSelection; }},
    {415, "Copy", mcCopy, [](const FieldState& state) { return state.hasText; }},
    {416, "Paste", mcPaste,
     [](const FieldState& state) { return state.changeable && state.canPaste; }},
    {417, "Clear", mcClear,
     [](const FieldState& state) { return state.changeable && state.hasSelection; }},
    {0, {}, mcSeparator, always},
    {418, "Select All", mcSelectAll, [](const FieldState& state) { return state.hasText; }},
    {0, {}, mcSeparator, always},
};

struct ExtraEntry {
    MenuExtras extra;
    int text;
    MenuCommand command;
    bool changesField;
    bool endsGroup; // a separator follows
    std::string_view fallback;
};

constexpr ExtraEntry extraEntries[] = {
    {meDate, 428, mcPickDate, true, true, "Pick a Date..."},
    {meLastQuarterDate, 421, mcLastQuarterDate, true, true, "Use Date of Last Quarter"},
    {meYears, 419, mcAddYear, false, false, "Add New Year"},
    {meYears, 420, mcRemoveYear, false, true, "Remove Year"},
    {meAssistant, 650, mcAssistant, false, false, "Ask the Assistant..."},
};

constexpr int helpText = 422;

// Adds entries to the array; the first one is always there.
class Builder {
  public:
    Builder(Form& form, const MenuTexts& texts) : form_(form), texts_(texts) {
        for (int i = menuEntry.last(form); i > 0; --i)
            form.remove(menuEntry[i].in(form));
        menuEntry[0].in(form).setVisible(false);
    }
    void add(int text, MenuCommand command, bool enabled, std::string_view fallback = {}) {
        auto& entry =
            count_ == 0 ? menuEntry[0].in(form_) : form_.add<MenuItem>(menuEntry.name, count_);
        entry.setEnabled(enabled);
        entry.setCaption(text == 0 ? "-" : texts_(text, fallback));
        entry.setTag(std::to_string(command));
        entry.setVisible(true);
        ++count_;
    }

  private:
    Form& form_;
    const MenuTexts& texts_;
    std::int16_t count_ = 0;
};

} // namespace

void BuildMenu(Form& form, Services& services, const MenuTexts& texts, unsigned extras,
               const TextBox* field, const TextField* changeable) {
    Builder builder(form, texts);
    if (field != nullptr) {
        const FieldState state{!field->locked(),
                               attemptOr(false, [&] { return services.canUndo(*field); }),
                               !field->text().empty(), field->selLength() > 0,
                               attemptOr(false, [&] { return services.clipboardHasText(); })};
        for (const auto& entry : fieldEntries)
            builder.add(entry.text, entry.command, entry.enabled(state), entry.fallback);
    }
    for (const auto& entry : extraEntries) {
        if ((extras & entry.extra) == 0)
            continue;
        builder.add(entry.text, entry.command,
                    !entry.changesField || (changeable != nullptr && !changeable->locked()),
                    entry.fallback);
        if (entry.endsGroup)
            builder.add(0, mcSeparator, true);
    }
    builder.add(helpText, mcHelp, true, "What's This?");
}

std::vector<MenuItem*> menuEntries(const Form& form) {
    std::vector<MenuItem*> found;
    for (int i = 0; i <= menuEntry.last(form); ++i)
        found.push_back(&menuEntry[i].in(form));
    return found;
}

MenuCommand commandOf(const MenuItem& entry) {
    return static_cast<MenuCommand>(leadingNumber(entry.tag()));
}

} // namespace vkr
