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
struct EditState {
    bool changeable; // not locked
    bool canUndo;
    bool hasText;
    bool hasSelection;
    bool canPaste;
};

struct FieldEntry {
    int text; // string number, 0 for a separator
    MenuCommand command;
    bool (*enabled)(const EditState& state);
};

constexpr bool always(const EditState& /*state*/) {
    return true;
}

constexpr FieldEntry fieldEntries[] = {
    {413, mcUndo, [](const EditState& state) { return state.changeable && state.canUndo; }},
    {0, mcSeparator, always},
    {414, mcCut, [](const EditState& state) { return state.changeable && state.hasSelection; }},
    {415, mcCopy, [](const EditState& state) { return state.hasText; }},
    {416, mcPaste, [](const EditState& state) { return state.changeable && state.canPaste; }},
    {417, mcClear, [](const EditState& state) { return state.changeable && state.hasSelection; }},
    {0, mcSeparator, always},
    {418, mcSelectAll, [](const EditState& state) { return state.hasText; }},
    {0, mcSeparator, always},
};

struct CellEntry {
    int text; // of years; of quarters the next one where there are two
    MenuCommand command;
    bool changes = false;
    bool hasTwoTexts = false;
};

constexpr CellEntry cellEntries[] = {
    {.text = 651, .command = mcCopyCells},
    {.text = 652, .command = mcCopyCellsWithHeadings},
    {.text = 653, .command = mcDeleteFigures, .changes = true},
    {.text = 654, .command = mcFillDown, .changes = true},
    {.text = 655, .command = mcTakePrevious, .changes = true, .hasTwoTexts = true},
};

struct ExtraEntry {
    MenuExtras extra;
    int text;
    MenuCommand command;
    bool changesField = false;
    bool endsGroup = false; // a separator follows
};

constexpr ExtraEntry extraEntries[] = {
    {.extra = meDate, .text = 428, .command = mcPickDate, .changesField = true, .endsGroup = true},
    {.extra = meLastQuarterDate,
     .text = 421,
     .command = mcLastQuarterDate,
     .changesField = true,
     .endsGroup = true},
    {.extra = meYears, .text = 419, .command = mcAddYear},
    {.extra = meYears, .text = 420, .command = mcRemoveYear, .endsGroup = true},
    {.extra = meAssistant, .text = 650, .command = mcAssistant},
};

constexpr int helpText = 422;

// Adds entries to the array; the first one is always there.
class Builder {
  public:
    Builder(Form& form, const MenuTexts& texts) : form_(form), texts_(texts) {
        for (int i = menuEntry.last(form); i > 0; --i)
            form.remove(menuEntry[i].in(form));
    }
    void add(int text, MenuCommand command, bool enabled) {
        auto& entry =
            count_ == 0 ? menuEntry[0].in(form_) : form_.add<MenuItem>(menuEntry.name, count_);
        entry.setEnabled(enabled);
        entry.setCaption(text == 0 ? "-" : texts_(text));
        entry.setTag(std::to_string(command));
        entry.setVisible(true);
        ++count_;
    }
    void addEnabled(int text, MenuCommand command) { add(text, command, true); }
    void addSeparator() { addEnabled(0, mcSeparator); }

  private:
    Form& form_;
    const MenuTexts& texts_;
    std::int16_t count_ = 0;
};

} // namespace

void BuildMenu(Form& form, Services& services, const MenuTexts& texts, unsigned extras,
               const TextBox* field, const TextField* changeable,
               const std::optional<MenuCells>& cells) {
    Builder builder(form, texts);
    if (field != nullptr) {
        const EditState state{.changeable = !field->locked(),
                              .canUndo = attemptOr(false, [&] { return services.canUndo(*field); }),
                              .hasText = !field->text().empty(),
                              .hasSelection = field->selLength() > 0,
                              .canPaste =
                                  attemptOr(false, [&] { return services.clipboardHasText(); })};
        for (const auto& entry : fieldEntries)
            builder.add(entry.text, entry.command, entry.enabled(state));
    }
    if (cells) {
        for (const auto& entry : cellEntries)
            builder.add(entry.text + (entry.hasTwoTexts && cells->quarters ? 1 : 0), entry.command,
                        !entry.changes || cells->changeable);
        builder.addSeparator();
    }
    for (const auto& entry : extraEntries) {
        if ((extras & entry.extra) == 0)
            continue;
        builder.add(entry.text, entry.command,
                    !entry.changesField || (changeable != nullptr && !changeable->locked()));
        if (entry.endsGroup)
            builder.addSeparator();
    }
    builder.addEnabled(helpText, mcHelp);
}

bool opensMenu(KeyCode key, int shift) {
    return (key == keys::menu && shift == shifts::none) ||
           (key == keys::f10 && shift == shifts::shift);
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
