// SPDX-License-Identifier: MIT
#include "form/key_filter.hpp"
#include "input/mdlKMTMisc.hpp"
#include "tests/support/entry_scene.hpp"
#include "tests/support/field_steps.hpp"
#include "tests/support/form_fields.hpp"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vkr {
namespace {

using namespace test;

// Of cells the first and the last row of the form.
std::vector<std::string> idsOf(const FormField& field) {
    return field.isCell() ? std::vector{field.id(0), field.id(field.rows - 1)}
                          : std::vector{field.id()};
}

struct KeyScene : EntryScene {
    KeyScene() {
        showEveryField(*this);
        load(datedCompany());
    }

    // The text that a key leaves behind in the focused field, typed at the end of another text.
    std::string after(TextField& field, const std::string& before, const std::string& keys) {
        put(field, before);
        desktop.type("{END}" + keys);
        return field.text();
    }
    void put(TextField& field, const std::string& text) {
        desktop.setClipboardText(text);
        desktop.type("^a{DEL}^v");
        ASSERT_EQ(field.text(), text) << field.id();
    }
};

bool has(const std::string& text, char character) {
    return text.find(character) != std::string::npos;
}

// What must stand in a numeric field after a key at the end of a text.
std::string expectedNumeric(const std::string& before, const std::string& key, bool negatives) {
    if (key.size() != 1)
        return before;
    const char c = key[0];
    const bool digit = c >= '0' && c <= '9';
    const bool pointFits = !has(before, '.') && !has(before, '/');
    const bool signedAlready = has(before, '-') || has(before, '+');
    if (c == '-' && negatives && !signedAlready)
        return before + c;
    if (c == '(' && negatives && before.empty())
        return "-"; // as accountants write a loss
    if (c == '-') {
        std::string bare;
        for (const char kept : before)
            if (kept != '-')
                bare += kept;
        return bare;
    }
    const bool taken = digit || c == ' ' || (c == '.' && pointFits) ||
                       (c == '/' && pointFits && !before.empty() && before.back() != '+' &&
                        before.back() != '-') ||
                       (c == '+' && before.empty());
    return taken ? before + c : before;
}

TEST(FieldKeys, EveryFieldTakesTheKeysThatItsDatumNeeds) {
    const std::string keys[] = {"0",      "5",      "9",      ".",      "/",          "-",
                                "+",      " ",      "a",      "E",      "z",          "e",
                                ",",      "%",      "(",      ")",      "$",          "'",
                                "\u00e9", "\u20ac", "\uff15", "\u2212", "\U0001F600", "\u0663"};
    const std::string texts[] = {"", "5", "5.", "5/", "-5", "+5", "+", "-", "5-", "5+"};
    KeyScene scene;
    for (const FormField& one : formFields)
        for (const std::string& id : idsOf(one)) {
            goTo(scene, id);
            auto& field = dynamic_cast<TextField&>(scene.desktop.control(id));
            for (const auto& text : texts) {
                for (const auto& key : keys) {
                    SCOPED_TRACE(id + ": " + text + " and " + key);
                    std::string expected = text + key;
                    if (one.keys == FieldKeys::figure || one.keys == FieldKeys::signedFigure)
                        expected = expectedNumeric(text, key, one.keys == FieldKeys::signedFigure);
                    else if (one.keys == FieldKeys::capitals)
                        expected = key == "a"        ? text + "A"
                                   : key == "e"      ? text + "E"
                                   : key == "z"      ? text + "Z"
                                   : key == "\u00e9" ? text + "\u00c9"
                                                     : expected;
                    EXPECT_EQ(scene.after(field, text, keysOf(key)), expected);
                }
                const auto rest = text.empty() ? text : text.substr(0, text.size() - 1);
                EXPECT_EQ(scene.after(field, text, "{BACKSPACE}"), rest) << id;
                EXPECT_EQ(scene.desktop.focusedId(), id);
            }
        }
}

TEST(FieldKeys, TheTableNamesEveryFieldOfTheForm) {
    KeyScene scene;
    scene.entry->put_VisibleQuarters(9);
    std::vector<std::string> named;
    for (const FormField& one : formFields)
        named.emplace_back(one.control);
    for (const TextField* field : allFields(scene))
        EXPECT_NE(std::find(named.begin(), named.end(), field->name()), named.end()) << field->id();
}

TEST(FieldKeys, EdgesOfTheNumericRules) {
    struct {
        const char* field;
        const char* before;
        const char* keys;
        const char* after;
    } cases[] = {
        {"txtCurrentPrice", "", "/", ""},
        {"txtCurrentPrice", "3 1", "/8", "3 1/8"},
        {"txtCurrentPrice", "3.", "/", "3."},
        {"txtCurrentPrice", "3.", ".", "3."},
        {"txtCurrentPrice", "3 1/8", ".", "3 1/8"},
        {"txtCurrentPrice", "3 1/8", "/", "3 1/8"},
        {"txtCurrentPrice", "+", "/", "+"},
        {"txtCurrentPrice", "", "3 1/8", "3 1/8"},
        {"txtEPS(0)", "", "--", ""},
        {"txtEPS(0)", "", "-5-", "5"},
        {"txtEPS(0)", "5", "-", "5-"}, // nobody checks where the sign stands
        {"txtEPS(0)", "5", "--", "5"},
        {"txtEPS(0)", "+5", "-", "+5"},
        {"txtEPS(0)", "-", "/", "-"},
        {"txtSales(0)", "5", "-", "5"},
        {"txtSales(0)", "-5", "-", "5"},
        {"txtSales(0)", "-5-5-", "-", "55"},
        {"txtSales(0)", "", "{+}", "+"},
        {"txtSales(0)", "5", "{+}", "5"},
        {"txtSales(0)", "+", "{+}", "+"},
        {"txtSymbol", "", "brk.b", "BRK.B"},
        {"txtSymbol", "X", "{BACKSPACE}y z", "Y Z"},
        {"txtTel", "", "{+}1 (555) 01-x/2", "+1 (555) 01-x/2"},
    };
    KeyScene scene;
    for (const auto& one : cases) {
        SCOPED_TRACE(std::string(one.field) + " " + one.before + " " + one.keys);
        goTo(scene, one.field);
        auto& field = dynamic_cast<TextField&>(scene.desktop.control(one.field));
        std::string keys(one.keys);
        if (std::string(one.field) == "txtTel")
            keys = keysOf("+1 (555) 01-x/2");
        EXPECT_EQ(scene.after(field, one.before, keys), one.after);
    }
}

TEST(FieldKeys, TypingOverASelectedPointReplacesIt) {
    struct {
        const char* before;
        int start;
        int length;
        const char* key;
        const char* after;
    } cases[] = {
        {"5.25", 0, 4, ".", "."},    {"5.25", 1, 1, ".", "5.25"}, {"5.25", 0, 1, ".", "5.25"},
        {"5.25", 2, 2, ".", "5.25"}, {"5/8", 1, 1, ".", "5/8"},   {"5/8", 0, 3, ".", "5/8"},
        {"5/8", 0, 3, "/", "5/8"},   {"5.25", 0, 4, "/", "5.25"}, {"5.25", 0, 4, "7", "7"},
        {"+5", 0, 2, "+", "+5"},     {"5.25", 0, 4, "x", "5.25"},
    };
    KeyScene scene;
    for (const char* id : {"txtCurrentPrice", "txtTotalDebt", "txtHigh(3)", "txtEPS(2)"}) {
        goTo(scene, id);
        auto& field = dynamic_cast<TextField&>(scene.desktop.control(id));
        for (const auto& one : cases) {
            SCOPED_TRACE(std::string(id) + " " + one.before + " " + one.key);
            scene.put(field, one.before);
            scene.desktop.dragOver(one.start, one.length);
            scene.desktop.type(keysOf(one.key));
            EXPECT_EQ(field.text(), one.after);
        }
    }
}

TEST(FieldKeys, TakingTheSignOffKeepsTheCaretAtItsFigure) {
    KeyScene scene;
    goTo(scene, "txtTotalDebt");
    auto& field = scene.field("txtTotalDebt");
    scene.put(field, "-1234");
    scene.desktop.clickAt(3); // behind the 2
    scene.desktop.type("-9");
    EXPECT_EQ(field.text(), "12934");
    scene.put(field, "-12");
    scene.desktop.clickAt(0);
    scene.desktop.type("-9");
    EXPECT_EQ(field.text(), "912");
    // And back again in one step.
    scene.put(field, "-1234");
    scene.desktop.type("{END}-^z");
    EXPECT_EQ(field.text(), "-1234");
}

TEST(FieldKeys, TakingTheSignOffKeepsTheSelection) {
    struct {
        const char* before;
        int start;
        int length;
        const char* selected; // after the sign is off
        const char* typed;    // and a 3 is typed
    } cases[] = {
        {"-5.25", 3, 2, "25", "5.3"}, {"-5.25", 0, 1, "", "35.25"}, {"-5.25-", 2, 4, ".25", "53"}};
    KeyScene scene;
    for (const char* id : {"txtTotalDebt", "txtSales(9)", "txtEPS(0)"}) {
        goTo(scene, id);
        auto& field = dynamic_cast<TextField&>(scene.desktop.control(id));
        for (const auto& one : cases) {
            SCOPED_TRACE(std::string(id) + " " + one.before + " " + std::to_string(one.start));
            scene.put(field, one.before);
            scene.desktop.dragOver(one.start, one.length);
            scene.desktop.type("-");
            EXPECT_EQ(field.selText(), one.selected);
            scene.desktop.type("3");
            EXPECT_EQ(field.text(), one.typed);
        }
    }
    // Where no minus is taken the whole text is no exception.
    goTo(scene, "txtSales(9)");
    scene.put(scene.field("txtSales", 9), "-5.00");
    scene.desktop.dragOver(0, 5);
    scene.desktop.type("-");
    EXPECT_EQ(scene.field("txtSales", 9).selText(), "5.00");
    // A loss that is typed over is replaced as a whole: no digit of the old one stays.
    const auto company = datedCompany();
    company->put_TotalDebt(-5);
    scene.load(company);
    scene.desktop.clickTab(toYearly);
    goTo(scene, "txtTotalDebt");
    EXPECT_EQ(scene.text("txtTotalDebt"), "-5.00");
    scene.desktop.type("-3{TAB}");
    EXPECT_EQ(company->get_TotalDebt(), -3);
}

TEST(FieldKeys, EnterMovesAsTabDoesAndBreaksTheLineOfTheNotes) {
    KeyScene scene;
    for (const TextField* field : allFields(scene)) {
        const std::string id = field->id();
        if (field->index() != Control::noIndex || id == "txtNotes")
            continue;
        SCOPED_TRACE(id);
        typeAt(scene, id, "{TAB}");
        const auto next = scene.desktop.focusedId();
        EXPECT_NE(next, id);
        goTo(scene, id);
        const std::string text = field->text();
        scene.desktop.type("~");
        EXPECT_EQ(scene.desktop.focusedId(), next);
        EXPECT_EQ(field->text(), text);
    }
    typeAt(scene, "txtNotes", "one~two~~three");
    EXPECT_EQ(scene.text("txtNotes"), "one\ntwo\n\nthree");
    EXPECT_EQ(scene.desktop.focusedId(), "txtNotes");
    EXPECT_TRUE(scene.desktop.messages().empty());
}

TEST(FieldKeys, EnterLeavesAndStoresTheField) {
    EntryScene scene;
    const auto company = datedCompany();
    scene.load(company);
    typeAt(scene, "txtName", "Acme~acm~");
    EXPECT_EQ(company->get_Name(), "Acme");
    EXPECT_EQ(company->get_Symbol(), "ACM");
    EXPECT_EQ(scene.desktop.focusedId(), "cmbExchange");
    scene.desktop.type("NYSE~");
    EXPECT_EQ(company->get_Exchange(), "NYSE");
    EXPECT_EQ(scene.desktop.focusedId(), "cmbIndustry");
}

TEST(FieldKeys, EnteringSelectsAllSoThatTypingReplaces) {
    EntryScene scene;
    showEveryField(scene);
    scene.load(fullCompany());
    const auto expectSelected = [](const TextField& field) {
        EXPECT_EQ(field.selStart(), 0) << field.id();
        EXPECT_EQ(field.selText(), field.text()) << field.id();
    };
    for (const TextField* field : allFields(scene)) {
        if (field->name() == "cmbReportingPeriod")
            continue;
        show(scene, field->id());
        if (scene.desktop.focusedId() != field->id()) // the first one of its tab
            scene.desktop.click(field->id());
        EXPECT_EQ(scene.desktop.focusedId(), field->id());
        expectSelected(*field);
    }
    scene.desktop.clickTab(toCompany);
    for (const char* keys : {"{TAB}", "+{TAB}"})
        for (int i = 0; i < 40; ++i) {
            scene.desktop.type(keys);
            if (const auto* field = dynamic_cast<const TextField*>(scene.form().activeControl()))
                expectSelected(*field);
        }
    typeAt(scene, "txtCity", "X");
    EXPECT_EQ(scene.text("txtCity"), "X");
}

TEST(FieldKeys, EnteringTheReportingPeriodSelectsNothing) {
    EntryScene scene;
    showEveryField(scene);
    const auto company = datedCompany();
    company->get_ReportingPeriod()->put(setting::leadPeriod, std::int16_t{1});
    scene.load(company);
    goTo(scene, "cmbReportingPeriod");
    EXPECT_EQ(scene.desktop.focusedId(), "cmbReportingPeriod");
    EXPECT_EQ(scene.text("cmbReportingPeriod"), "6 months");
    EXPECT_EQ(scene.field("cmbReportingPeriod").selText(), "");
}

TEST(FieldKeys, ShortcutsPassTheFilterOfEveryField) {
    KeyScene scene;
    for (const FormField& one : formFields)
        for (const std::string& id : idsOf(one)) {
            SCOPED_TRACE(id);
            goTo(scene, id);
            auto& field = dynamic_cast<TextField&>(scene.desktop.control(id));
            scene.put(field, "12");
            scene.desktop.setClipboardText("old");
            scene.desktop.type("{END}^a");
            EXPECT_EQ(field.selText(), "12");
            scene.desktop.type("^c");
            EXPECT_EQ(scene.desktop.clipboardText(), "12");
            EXPECT_EQ(field.text(), "12");
            scene.desktop.type("^x");
            EXPECT_EQ(field.text(), "");
            scene.desktop.type("^v");
            EXPECT_EQ(field.text(), "12");
            scene.desktop.type("^z^z");
            EXPECT_EQ(field.text(), "12");
            scene.desktop.type("{END}{BACKSPACE}^z");
            EXPECT_EQ(field.text(), "12");
        }
}

TEST(FieldKeys, UnderTheLockNoKeyChangesAText) {
    EntryScene scene;
    showEveryField(scene);
    const auto company = fullCompany();
    company->put_TotalDebt(-5);
    company->get_Settings()->put(setting::lockBasicInfo, true);
    scene.load(company);
    for (const TextField* field : allFields(scene)) {
        const std::string text = field->text();
        goTo(scene, field->id());
        scene.desktop.setClipboardText("77");
        scene.desktop.type("5-{DEL}{BACKSPACE}^v^x^z+{INSERT}+{DEL}{END}-");
        EXPECT_EQ(field->text(), text) << field->id();
    }
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

// --- the filter itself -----------------------------------------------------------------------

struct FilterForm {
    Form form;
    TextBox& box = form.add<TextBox>("txt", Control::noIndex, nullptr);
    ComboBox& list = form.add<ComboBox>("cmb", Control::noIndex, nullptr);

    static char32_t filtered(TextField& field, char32_t key, KeyFilter filter) {
        FilterNumericKey(key, filter.numeric, filter.freeText, field, filter.allowNegative,
                         filter.upperCase);
        return key;
    }
};

TEST(FilterNumericKey, LettersOnlyTakesTheLettersOfTheAlphabet) {
    FilterForm form;
    const KeyFilter letters{.numeric = false};
    const KeyFilter capitals{.numeric = false, .upperCase = true};
    for (char32_t key = 1; key < 0x100; ++key) {
        const bool letter = (key >= U'A' && key <= U'Z') || (key >= U'a' && key <= U'z');
        const bool always = key == U' ' || key == 8;
        if (key == U'\r')
            continue;
        EXPECT_EQ(FilterForm::filtered(form.box, key, letters), letter || always ? key : 0)
            << static_cast<unsigned>(key);
        const char32_t capital = key >= U'a' && key <= U'z' ? key - 32 : key;
        EXPECT_EQ(FilterForm::filtered(form.box, key, capitals), letter || always ? capital : 0)
            << static_cast<unsigned>(key);
    }
}

TEST(FilterNumericKey, TellsOfAKeyThatIsSwallowedWithoutEffect) {
    FilterForm form;
    const auto refuses = [&](char32_t key, const char* text) {
        form.box.setText(text);
        form.box.select(1, 99);
        return FilterNumericKey(key, form.box, {.allowNegative = true});
    };
    EXPECT_TRUE(refuses(U'x', "5"));
    for (const char32_t taken : {U'5', U' ', U'\b', U'\r'})
        EXPECT_FALSE(refuses(taken, "5"));
    EXPECT_FALSE(refuses(U')', "-5")) << "the minus is there";
    EXPECT_FALSE(refuses(U'-', "-5")) << "it stands for itself";
}

TEST(FilterNumericKey, ABracketBehindANegativeFigureIsNotTyped) {
    FilterForm form;
    form.box.setText("-5");
    char32_t key = U')';
    FilterNumericKey(key, form.box, {.allowNegative = true});
    EXPECT_EQ(key, 0U);
}

TEST(FilterNumericKey, FreeTextLooksAtNoKeyButEnter) {
    FilterForm form;
    form.box.setText("5.5/-");
    for (char32_t key = 1; key < 0x250; ++key)
        if (key != U'\r') {
            EXPECT_EQ(FilterForm::filtered(form.box, key, {.freeText = true}), key);
        }
    EXPECT_EQ(FilterForm::filtered(form.box, U'\u00e4', {.freeText = true, .upperCase = true}),
              U'\u00c4');
    EXPECT_EQ(form.box.text(), "5.5/-");
}

TEST(FilterNumericKey, UpperCaseHoldsForNumericFieldsToo) {
    FilterForm form;
    EXPECT_EQ(FilterForm::filtered(form.box, U'5', {.upperCase = true}), U'5');
    EXPECT_EQ(FilterForm::filtered(form.box, U'a', {.upperCase = true}), U'\0');
}

TEST(FilterNumericKey, EnterIsSwallowedInATextBoxAndSendsATab) {
    FilterForm form;
    ASSERT_TRUE(form.form.focus(form.box));
    EXPECT_EQ(FilterForm::filtered(form.box, U'\r', {}), U'\0');
    EXPECT_EQ(form.form.activeControl(), &form.box); // not before the key stroke has ended
    form.form.keyDone();
    EXPECT_EQ(form.form.activeControl(), &form.list);
    EXPECT_EQ(FilterForm::filtered(form.list, U'\r', {.freeText = true}), U'\r');
    form.form.keyDone();
    EXPECT_EQ(form.form.activeControl(), &form.box);
}

// --- moving within a column and a grid -------------------------------------------------------

struct MoveForm {
    Form form;
    std::vector<TextBox*> cells;
    TextBox* right = &form.add<TextBox>("right", Control::noIndex, nullptr);
    TextBox* left = &form.add<TextBox>("left", Control::noIndex, nullptr);
    TextBox* home = &form.add<TextBox>("home", Control::noIndex, nullptr);
    TextBox* end = &form.add<TextBox>("end", Control::noIndex, nullptr);
    TextBox* start = &form.add<TextBox>("start", Control::noIndex, nullptr);

    explicit MoveForm(int count) {
        for (int i = 0; i < count; ++i)
            cells.push_back(&form.add<TextBox>("cell", i, nullptr));
        form.focus(*start);
    }
    [[nodiscard]] std::string focused() const { return form.activeControl()->id(); }

    std::string inGrid(KeyCode key, int index, bool targets = true) {
        form.focus(*start);
        MoveInGrid(key, cells, index, targets ? right : nullptr, targets ? left : nullptr,
                   targets ? home : nullptr, targets ? end : nullptr);
        return focused();
    }
};

TEST(MoveInColumn, GoesUpAndDownAndStopsAtTheEnds) {
    struct {
        KeyCode key;
        std::int16_t direction;
        int index;
        const char* focused;
        KeyCode keyAfter;
        std::int16_t directionAfter;
    } cases[] = {
        {keys::down, 0, 0, "cell(1)", keys::enter, 0},
        {keys::down, 1, 1, "cell(2)", keys::enter, 0},
        {keys::down, 0, 2, "start", keys::enter, 0},
        {keys::up, 0, 2, "cell(1)", keys::enter, 1},
        {keys::up, 1, 0, "start", keys::enter, 1},
        {keys::enter, 0, 0, "cell(1)", keys::enter, 0},
        {keys::enter, 1, 1, "cell(0)", keys::enter, 1},
        {keys::enter, 1, 0, "start", keys::enter, 1},
        {keys::enter, 0, 2, "start", keys::enter, 0},
        {keys::left, 0, 1, "start", keys::left, 0},
        {keys::right, 1, 1, "start", keys::right, 1},
        {keys::none, 0, 1, "start", keys::none, 0},
        {keys::tab, 0, 1, "start", keys::tab, 0},
        {keys::down, 0, -1, "cell(0)", keys::enter, 0},
        {keys::up, 0, -1, "start", keys::enter, 1},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(std::to_string(one.key) + " at " + std::to_string(one.index));
        MoveForm form(3);
        KeyCode key = one.key;
        std::int16_t direction = one.direction;
        MoveInColumn(one.index, direction, key, form.cells);
        EXPECT_EQ(form.focused(), one.focused);
        EXPECT_EQ(key, one.keyAfter);
        EXPECT_EQ(direction, one.directionAfter);
    }
}

TEST(MoveInColumn, AnEmptyColumnKeepsTheFocus) {
    MoveForm form(0);
    KeyCode key = keys::down;
    std::int16_t direction = 0;
    MoveInColumn(0, direction, key, form.cells);
    EXPECT_EQ(form.focused(), "start");
}

TEST(MoveInGrid, GoesToTheTargetOfEachKey) {
    MoveForm form(3);
    EXPECT_EQ(form.inGrid(keys::right, 1), "right");
    EXPECT_EQ(form.inGrid(keys::left, 1), "left");
    EXPECT_EQ(form.inGrid(keys::home, 1), "home");
    EXPECT_EQ(form.inGrid(keys::end, 1), "end");
    EXPECT_EQ(form.inGrid(keys::down, 0), "cell(1)");
    EXPECT_EQ(form.inGrid(keys::down, 1), "cell(2)");
    EXPECT_EQ(form.inGrid(keys::down, 2), "right");
    EXPECT_EQ(form.inGrid(keys::up, 2), "cell(1)");
    EXPECT_EQ(form.inGrid(keys::up, 1), "cell(0)");
    EXPECT_EQ(form.inGrid(keys::up, 0), "cell(2)");
    for (const KeyCode key : {keys::enter, keys::tab, keys::pageUp, keys::pageDown, keys::none})
        EXPECT_EQ(form.inGrid(key, 1), "start") << key;
}

TEST(MoveInGrid, AColumnOfOneCellBeginsWhereItEnds) {
    MoveForm one(1);
    EXPECT_EQ(one.inGrid(keys::up, 0), "cell(0)");
    EXPECT_EQ(one.inGrid(keys::down, 0), "right");
}

TEST(MoveInGrid, WithoutATargetTheFocusStays) {
    MoveForm form(3);
    for (const KeyCode key : {keys::right, keys::left, keys::home, keys::end})
        EXPECT_EQ(form.inGrid(key, 1, false), "start") << key;
    EXPECT_EQ(form.inGrid(keys::down, 2, false), "start");
    MoveForm empty(0);
    EXPECT_EQ(empty.inGrid(keys::down, 0), "right");
    EXPECT_EQ(empty.inGrid(keys::up, 0), "start");
}

TEST(SelectAll, CoversTheTextByCharacters) {
    FilterForm form;
    form.box.setText("5 \u20ac \U0001F600");
    SelectAllText(form.box);
    EXPECT_EQ(form.box.selStart(), 0);
    EXPECT_EQ(form.box.selLength(), 5);
    form.list.setText("NYSE");
    SelectAllCombo(form.list);
    EXPECT_EQ(form.list.selText(), "NYSE");
    form.box.setText("");
    SelectAllText(form.box);
    EXPECT_EQ(form.box.selLength(), 0);
}

// A double-click selects the digits without their sign.
TEST(FieldKeys, AMinusOverAFigureOrItsSignBeginsAnotherFigure) {
    const struct {
        const char* shown;
        int start;
        int length;
        const char* keys;
        const char* becomes;
    } rows[] = {{"-350", 1, 3, "-5", "-5"}, {"-350", 1, 3, "(5)", "-5"},
                {"-350", 0, 4, "-5", "-5"}, {"-12.50", 0, 3, "-7", "-7.50"},
                {"-350", 4, 0, "-", "350"}, {"-350", 0, 1, "-", "350"},
                {"-5", 1, 1, "-", "-"},     {"-5", 2, 0, ")", "-5"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.shown) + " " + row.keys);
        EntryScene scene;
        scene.load(datedCompany());
        goTo(scene, "txtYNetInc(9)");
        auto& field = scene.field("txtYNetInc", 9);
        field.setText(row.shown);
        field.select(row.start, row.length);
        scene.desktop.type(keysOf(row.keys));
        EXPECT_EQ(field.text(), row.becomes);
    }
}

} // namespace
} // namespace vkr
