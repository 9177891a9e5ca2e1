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
    bool changes;
    bool hasTwoTexts;
};

constexpr CellEntry cellEntries[] = {
    {651, mcCopyCells, false, false},    {652, mcCopyCellsWithHeadings, false, false},
    {653, mcDeleteFigures, true, false}, {654, mcFillDown, true, false},
    {655, mcTakePrevious, true, true},
};

struct ExtraEntry {
    MenuExtras extra;
    int text;
    MenuCommand command;
    bool changesField;
    bool endsGroup; // a separator follows
};

constexpr ExtraEntry extraEntries[] = {
    {meDate, 428, mcPickDate, true, true},
    {meLastQuarterDate, 421, mcLastQuarterDate, true, true},
    {meYears, 419, mcAddYear, false, false},
    {meYears, 420, mcRemoveYear, false, true},
    {meAssistant, 650, mcAssistant, false, false},
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
    void add(int text, MenuCommand command, bool enabled) {
        auto& entry =
            count_ == 0 ? menuEntry[0].in(form_) : form_.add<MenuItem>(menuEntry.name, count_);
        entry.setEnabled(enabled);
        entry.setCaption(text == 0 ? "-" : texts_(text));
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
               const TextBox* field, const TextField* changeable,
               const std::optional<MenuCells>& cells) {
    Builder builder(form, texts);
    if (field != nullptr) {
        const EditState state{!field->locked(),
                              attemptOr(false, [&] { return services.canUndo(*field); }),
                              !field->text().empty(), field->selLength() > 0,
                              attemptOr(false, [&] { return services.clipboardHasText(); })};
        for (const auto& entry : fieldEntries)
            builder.add(entry.text, entry.command, entry.enabled(state));
    }
    if (cells) {
        for (const auto& entry : cellEntries)
            builder.add(entry.text + (entry.hasTwoTexts && cells->quarters ? 1 : 0), entry.command,
                        !entry.changes || cells->changeable);
        builder.add(0, mcSeparator, true);
    }
    for (const auto& entry : extraEntries) {
        if ((extras & entry.extra) == 0)
            continue;
        builder.add(entry.text, entry.command,
                    !entry.changesField || (changeable != nullptr && !changeable->locked()));
        if (entry.endsGroup)
            builder.add(0, mcSeparator, true);
    }
    builder.add(helpText, mcHelp, true);
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
