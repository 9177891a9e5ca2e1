// SPDX-License-Identifier: MIT
#include "tests/monkey/monkey.hpp"

#include "binding/company_fields.hpp"
#include "company/company_csv.hpp"
#include "company/record_snapshot.hpp"
#include "company/split.hpp"
#include "input/date_pattern.hpp"
#include "input/mdlKMTMisc.hpp"
#include "input/number_pattern.hpp"
#include "platform/text.hpp"
#include "plausibility/company_findings.hpp"
#include "quarterly/quarterly_grid.hpp"
#include "tests/support/change_lists.hpp"
#include "tests/support/field_steps.hpp"
#include "tests/support/period_import.hpp"
#include "tests/support/random_company.hpp"
#include "yearly/yearly_grid.hpp"

#include <algorithm>
#include <optional>
#include <random>
#include <typeinfo>
#include <utility>

namespace vkr::test {

// --- the scene -----------------------------------------------------------------------------------

MonkeyScene::MonkeyScene() {
    entry->setEvents(this);
    entry->stateChanged = [this] { answer(3); };
    entry->historyAsked = [this](HistoryStep asked) { return takeStep(asked); };
    desktop.factory().add(companyRecordId, [this] {
        return hold(std::make_shared<ScriptedRecord>(std::make_shared<CompanyRecord>()));
    });
}

namespace {

FigureOrigins originsOf(const ChangeJournal& journal) {
    FigureOrigins origins;
    for (const ChangeGroup& group : journal.groups())
        origins.note(group);
    return origins;
}

} // namespace

// What the form gets of the record.
std::shared_ptr<iVKR_Company> MonkeyScene::hold(const std::shared_ptr<ScriptedRecord>& loaded) {
    record = loaded;
    journal_ = std::make_shared<ChangeJournal>(loaded);
    kept_ =
        std::make_shared<KeptFigures>(journal_, [journal = std::weak_ptr<ChangeJournal>(journal_)] {
            return originsOf(*journal.lock());
        });
    isAllNoted_ = loaded->failing.empty() && !loaded->withoutObjects;
    return kept_;
}

void MonkeyScene::load(const std::shared_ptr<ScriptedRecord>& loaded) {
    const auto shown = hold(loaded);
    const auto journal = journal_;
    entry->put_objCompany(shown);
    journal->startOver();
    if (journal == journal_) // else the host has loaded another one on the way
        begin();
}

void MonkeyScene::begin() {
    beginning_ = record->company->clone();
    setSavePoint();
    settled_.clear();
    journal_->onUnsavedChanged([this](const ChangeGroup* added) {
        if (added != nullptr)
            onDisk_.push_back(*added);
        else
            onDisk_.pop_back();
    });
}

void MonkeyScene::setSavePoint() {
    for (ChangeGroup group : journal_->unsaved()) {
        std::erase_if(group.changes, [](const Change& one) { return one.setting.empty(); });
        settled_.push_back(std::move(group));
    }
    journal_->setSavePoint();
    saved_ = record->company->clone();
    onDisk_.clear();
}

void MonkeyScene::loadRandom(unsigned number, int missing) {
    auto loaded = std::make_shared<ScriptedRecord>(RandomCompany(number).record());
    loaded->missing = missing;
    load(loaded);
}

void MonkeyScene::loadNothing() {
    entry->put_objCompany(nullptr);
    journal_->startOver();
    begin();
}

void MonkeyScene::fail(std::string_view operation) {
    if (record == nullptr)
        return;
    if (!operation.starts_with("write") && !operation.starts_with("put"))
        isAllNoted_ = false;
    if (operation == "objects")
        record->withoutObjects = true;
    else
        record->failing.emplace(operation);
}

void MonkeyScene::repair() {
    if (record == nullptr)
        return;
    record->failing.clear();
    record->withoutObjects = false;
}

// The reactions of a host, 1 to 5 for a change, a closing or a help request, 6 to 8 for a tab.
void MonkeyScene::answer(int event) {
    const bool onTab = event == 1;
    if (answering_ || reaction_ == 0 || onTab != (reaction_ > 5))
        return;
    answering_ = true;
    hostCalled = true;
    switch (reaction_) {
    case 1:
        static_cast<void>(entry->get_objCompany());
        break;
    case 2:
        loadRandom(1000 + ++loads_);
        break;
    case 3:
        loadNothing();
        break;
    case 4:
        entry->put_blnDirty(false);
        break;
    case 5:
        entry->put_VisibleQuarters(entry->get_VisibleQuarters() == 9 ? 12 : 9);
        break;
    case 6:
        entry->put_CurrentTab(toOptions);
        break;
    case 7:
        entry->leaveField();
        break;
    default:
        loadRandom(2000 + ++loads_, 3);
    }
    answering_ = false;
}

void MonkeyScene::fill(std::string_view id, std::string_view keys) {
    show(*this, id);
    desktop.click(id);
    desktop.type("^a{DEL}" + std::string(keys));
}

void MonkeyScene::pick(std::string_view id, int number) {
    show(*this, id);
    desktop.pick(id, number);
}

void MonkeyScene::scroll(std::string_view id, int value) {
    show(*this, id);
    desktop.scroll(id, value);
}

void MonkeyScene::scrollPages(std::string_view id, int pages) {
    show(*this, id);
    desktop.scrollPages(id, pages);
}

void MonkeyScene::spin(int steps) {
    show(*this, "spnQuarter");
    desktop.spin("spnQuarter", steps);
}

void MonkeyScene::drag(std::string_view from, std::string_view to) {
    desktop.press(from);
    if (desktop.canReach(to))
        desktop.dragTo(to);
    if (from == to && desktop.canReach(to))
        desktop.release(to);
    else
        desktop.dragAway();
}

// OK in the next preview, one switch turned before.
void MonkeyScene::pasteNext(int choice) {
    desktop.answerNextPaste([choice](PasteForm& form) {
        form.setSwitch(choice % 7, choice / 7);
        form.pressOk();
    });
}

void MonkeyScene::withoutLocalizers() {
    desktop.factory().remove(standardLocalizerId);
    desktop.factory().remove(zxLocalizerId);
}

void MonkeyScene::restore(std::string_view property, int value) {
    PropertyBag bag;
    entry->WriteProperties(bag);
    bag.write(property, std::int32_t{value}, Variant());
    entry->ReadProperties(bag);
}

void MonkeyScene::fillLists(int entries) {
    std::vector<std::string> texts = {"S & P", "Value Line", "A", "A", ""};
    texts.resize(std::min(texts.size(), static_cast<std::size_t>(entries)));
    entry->put_vntSource(textArray(texts));
    entry->put_vntExchange(textArray(texts, 1));
    entry->put_vntIndustry(entries == 0 ? Variant("no list") : numberArray({1, 2.5}));
}

void MonkeyScene::useMarks(int language) {
    static const NumberMarks marks[] = {{'.', ","}, {',', "."}, {',', "\u202F"}, {'.', "\u2019"}};
    entry->put_NumberMarks(marks[language]);
}

void MonkeyScene::scrollMouse(std::int16_t key) {
    std::int16_t shift = 0;
    entry->ScrollMouse(key, shift);
}

// --- what the host does with the record ----------------------------------------------------------

bool MonkeyScene::isLocked() const {
    return form().get<CheckBox>("chkLockInfo").value();
}

void MonkeyScene::expect(bool holds, const char* invariant, const std::string& particulars) {
    if (!holds && broken.empty())
        broken = std::string(invariant) + ": " + particulars;
}

// But for the lock, which is never taken back.
void MonkeyScene::expectSame(const CompanyRecord& wanted, const char* invariant) {
    const CompanyRecord& company = *record->company;
    for (const Change& change : changesBetween(vkr::snapshotOf(wanted), vkr::snapshotOf(company)))
        expect(false, invariant,
               std::string(rowOf(change.datum).name) + "(" +
                   std::to_string(change.element.value_or(-1)) + "): " + change.before.toText() +
                   " is " + change.after.toText());
    for (const auto name : settingNames())
        expect(name == setting::lockBasicInfo || wanted.get_Settings()->get(name).toText() ==
                                                     company.get_Settings()->get(name).toText(),
               invariant, std::string(name));
}

// A refusal leaves record and journal as they were.
bool MonkeyScene::takeStep(HistoryStep asked) {
    expect(!isLocked(), "undo", "asked for under the lock");
    const bool back = asked == HistoryStep::undo;
    const ChangeGroup* next = back ? journal_->toUndo() : journal_->toRedo();
    if (next == nullptr)
        return false;
    const ChangeGroup group = *next;
    const auto before = record->company->clone();
    if (back ? journal_->undo() : journal_->redo()) {
        if (isAllNoted_)
            expectSame(*before, "refused step");
        next = back ? journal_->toUndo() : journal_->toRedo();
        expect(next != nullptr && *next == group, "refused step", "it is no longer the next one");
        return false;
    }
    hostCalled = true;
    entry->recordChanged();
    return true;
}

void MonkeyScene::commit() {
    if (record == nullptr || isLocked() || !isAllNoted_)
        return static_cast<void>(entry->get_objCompany());
    const FigureOrigins origins = originsOf(*journal_);
    const auto before = record->company->clone();
    const auto held = record;
    static_cast<void>(entry->get_objCompany());
    if (record != held)
        return;
    for (const Change& change :
         changesBetween(vkr::snapshotOf(*before), vkr::snapshotOf(*record->company)))
        if (change.element)
            expect(change.before.toDouble() == 0 || origins.mayDerive(change.datum, change.element),
                   "kept", std::string(rowOf(change.datum).name) + " was worked out");
}

void MonkeyScene::change(const std::vector<DatumChange>& changes, const Action& action) {
    const auto held = record;
    entry->leaveField();
    const bool locked = isLocked();
    const auto left = record->company->clone();
    const auto refusal = entry->changeRecord(changes, action);
    if (record != held)
        return;
    if (refusal && isAllNoted_)
        expectSame(*left, "refused change");
    expect(!locked || refusal, "locked", "a change was taken");
}

void MonkeyScene::split(int number) {
    static constexpr SplitRatio ratios[] = {{2, 1}, {3, 2}, {1, 10}, {7, 1}};
    if (record == nullptr)
        return;
    const Split split{ratios[number % 4], *makeDate(2026, 9, 30)};
    change(changesOf(splitChanges(*record, split)), splitAction(split.ratio));
}

void MonkeyScene::import(unsigned number) {
    if (record == nullptr)
        return;
    const CsvImport read = importCompanyTexts(exportCompanyTexts(*RandomCompany(number).record()));
    change(read.company == nullptr ? std::vector<DatumChange>()
                                   : elementChanges(*record->company, *read.company),
           {Origin::imported, "Import", "tables"});
}

void MonkeyScene::importPeriods(unsigned number) {
    if (record == nullptr || isLocked()) // which a host tells first
        return;
    const auto held = record;
    entry->leaveField();
    if (record != held)
        return;
    const auto left = record->company->clone();
    const bool isRefused = test::importPeriods(kept_, number, *record->company).has_value();
    if (isRefused && isAllNoted_ && record == held)
        expectSame(*left, "refused import");
    hostCalled = true;
    entry->recordChanged();
}

void MonkeyScene::lookOver() {
    if (record == nullptr)
        return;
    const auto before = record->company->clone();
    std::map<FigurePlace, std::string> remarks;
    for (const Finding& one : companyFindings(*record))
        remarks[one.places.front()] += one.text;
    entry->setRemarks(std::move(remarks));
    expectSame(*before, "findings");
}

void MonkeyScene::walkBackAndForth() {
    if (record == nullptr || !isAllNoted_ || !record->failing.empty())
        return;
    const auto end = record->company->clone();
    const auto walked = [&](HistoryStep way) {
        int steps = 0;
        const bool back = way == HistoryStep::undo;
        while (back ? journal_->canUndo() : journal_->canRedo()) {
            const auto refusal = back ? journal_->undo() : journal_->redo();
            expect(!refusal, "walk", "refused: " + refusal.value_or(""));
            if (refusal)
                break;
            ++steps;
        }
        return steps;
    };
    int steps = walked(HistoryStep::undo);
    // What was worked out before anybody did anything is taken back by nobody.
    const auto beginning = std::make_shared<CompanyRecord>(*beginning_);
    ChangeJournal workedOut(beginning);
    for (const ChangeGroup& group : journal_->groups())
        expect(!workedOut.apply(group), "walk", "not worked out");
    // How figures are shown is settled by a commit, and stays.
    std::vector<ChangeGroup> shown = settled_;
    shown.insert(shown.end(), journal_->unsaved().begin(), journal_->unsaved().end());
    for (ChangeGroup& group : shown) {
        std::erase_if(group.changes, [](const Change& one) { return one.setting.empty(); });
        expect(group.changes.empty() || !workedOut.apply(group), "walk", "not settled");
    }
    expectSame(*beginning, "beginning");
    for (; steps > 0; --steps)
        expect(!journal_->redo(), "walk", "not redone");
    expectSame(*end, "end");
    entry->recordChanged();
    hostCalled = true;
}

bool MonkeyScene::isWatched() const {
    return record != nullptr && isAllNoted_ && record->failing.empty() && saved_ != nullptr;
}

void MonkeyScene::expectTheWayFromSaved(const char* invariant) {
    expect(onDisk_ == journal_->unsaved(), invariant, "the disk has something else");
    const auto reached = std::make_shared<ScriptedRecord>(saved_->clone());
    reached->missing = record->missing;
    ChangeJournal way(reached);
    for (const ChangeGroup& group : onDisk_)
        expect(!way.apply(group), invariant, "refused");
    expectSame(*reached->company, invariant);
}

void MonkeyScene::save() {
    commit();
    if (!isWatched())
        return;
    expectTheWayFromSaved("way from what was saved");
    setSavePoint();
}

// A record that loading has suggested a date for is another one than the changes are of.
void MonkeyScene::endAndRestore() {
    if (!isWatched())
        return;
    expectTheWayFromSaved("way that is on the disk");
    const auto ended = record->company->clone();
    const std::vector<ChangeGroup> found = onDisk_;
    const auto saved = saved_;
    const auto stored = std::make_shared<ScriptedRecord>(saved->clone());
    stored->missing = record->missing;
    load(stored);
    hostCalled = true;
    if (record != stored || !sameAs(*saved, *stored->company))
        return;
    journal_->beginStep("Restore");
    for (const ChangeGroup& group : found)
        expect(!journal_->apply(group), "restore", "refused");
    journal_->endStep();
    expectSame(*ended, "restore");
    entry->recordChanged();
}

namespace {

// --- the acts ------------------------------------------------------------------------------------

enum class By { person, surroundings, host };

// Makes the choices of a random sequence, of what there is to choose at the moment.
class Chooser {
  public:
    Chooser(MonkeyScene& scene, unsigned seed) : scene_(scene), random_(seed) {}

    int within(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }
    bool chance(double likely) { return std::bernoulli_distribution(likely)(random_); }
    template <typename Rows>
    const auto& one(const Rows& rows) {
        return rows[static_cast<std::size_t>(within(0, static_cast<int>(std::size(rows)) - 1))];
    }

    // One that a person can point at, where a few tries find one.
    std::string control(bool (*wanted)(const Control&)) {
        std::vector<const Control*> found;
        for (const auto& control : scene_.form().controls())
            if (wanted(*control))
                found.push_back(control.get());
        std::string id;
        for (int tries = 0; tries < 40; ++tries) {
            id = one(found)->id();
            if (scene_.desktop.canReach(id))
                break;
        }
        return id;
    }
    std::string field() {
        return control([](const Control& control) {
            return dynamic_cast<const TextField*>(&control) != nullptr;
        });
    }
    std::string figure() {
        static const std::string_view figures[] = {
            "0",    "-0",     "1",     "12",        "3.125",   "-4.5",
            "1e3",  "1e308",  "9e999", "0.0000001", "1,234.5", "123456789012345678901234567890",
            "(5)",  "$3",     "3 1/8", "7/8",       "1/0",     "/",
            "-1/2", "5-",     "+",     "..",        ".5",      "1.5E+20",
            "0012", "35.5%",  "2.005", "-",         "0.4",     "999999999999999",
            "8.25", "99 1/1", "1/8/2", "",          "0.9375",  "1000.0005"};
        return chance(0.3)
                   ? std::to_string(within(-99'999, 999'999)) + "." + std::to_string(within(0, 999))
                   : std::string(one(figures));
    }
    std::string word() {
        static const std::string_view words[] = {
            "12/31/2005",  "2026-09-30", "9/30/2026",   "6/30/2026",
            "12/31/2026",  "3/31/2027",  "Feb 29 2025", "29.2.2024",
            "13/13/2020",  "1/1/1900",   "12/1/2999",   "31 December 9999",
            "Dec 2025",    "2020",       "1980",        "9900",
            "2025",        "19800",      "Acme",        "ä漢😀",
            "\u202eright", "S & P",      "6 months",    "%&{}()+^~",
            "e\u0301",     "x",          "s & p",       "A",
            " ",           "12/31/2025"};
        return chance(0.5) ? figure() : std::string(one(words));
    }
    std::string keys() {
        static const std::string_view named[] = {"~",          "{TAB}",        "+{TAB}",
                                                 "{ESC}",      "{BACKSPACE}",  "{DEL}",
                                                 "{INSERT}",   "{HOME}",       "{END}",
                                                 "{LEFT}",     "{RIGHT}",      "{UP}",
                                                 "{DOWN}",     "+{LEFT}",      "+{END}",
                                                 "^{LEFT}",    "^{RIGHT}",     "^{UP}",
                                                 "^{DOWN}",    "^{HOME}",      "^{END}",
                                                 "{PGUP}",     "{PGDN}",       "^{PGUP}",
                                                 "^{PGDN}",    "{MENU}",       "+{F10}",
                                                 "{F1}",       "{F4}",         "%{DOWN}",
                                                 "^a",         "^c",           "^x",
                                                 "^v",         "^z",           "^{INSERT}",
                                                 "+{DEL}",     "^{DEL}",       "{SPACE}",
                                                 "+{INSERT}",  "^{BACKSPACE}", "+~",
                                                 "{F2}",       "{F10}",        "^~",
                                                 "%{LEFT}",    "^a{DEL}",      "{TAB 5}",
                                                 "{DOWN 9}",   "~~~",          "+{UP}",
                                                 "^a^c",       "^a^v",         "+{TAB 3}",
                                                 "{DECIMAL}",  "+{DOWN}",      "+{RIGHT 2}",
                                                 "^a^a",       "^a^a{DEL}",    "+{DOWN 2}^d",
                                                 "^d",         "^'",           "+{DOWN}^'",
                                                 "+{RIGHT}^c", "+{UP 2}{BS}",  "+{DOWN}^x",
                                                 "^+c",        "+{LEFT}^v",    "+{DOWN 3}{DEL}",
                                                 "^y",         "^+z",          "^z^z^z",
                                                 "^z^y"};
        if (chance(0.1))
            return "%" + std::string(1, static_cast<char>('a' + within(0, 25)));
        if (chance(0.3))
            return keysOf(word());
        const std::string chosen(one(named));
        return chosen == "{SPACE}" ? " " : chosen;
    }
    std::string clipboard() {
        static const std::string texts[] = {"",
                                            "5",
                                            "-7.25",
                                            "a\nb\tc\r\n",
                                            std::string("a\0b", 3),
                                            "\xff\xfe\xc3",
                                            std::string(3000, '9'),
                                            "e\u0301\u202e👩‍💻",
                                            "9/30/2026",
                                            "3 1/8\n",
                                            "\n\n",
                                            "2030",
                                            "1\t2\n3\t-4",
                                            "\t2025\t2024\nRevenue\t$1,234\t(2)",
                                            "5\n\n7\n9e999\n-\n1/8",
                                            "\t9/30/2026\t6/30/2026\n\t0.4\t-0.5"};
        return one(texts);
    }
    std::string operation() {
        static const std::string_view others[] = {
            "objects",          "read Settings",      "read ReportingPeriod",
            "get intUnit",      "put intUnit",        "get blnLockBasicInfo",
            "get blnTaxRate",   "put blnBookVal",     "get intLeadPeriod",
            "put strCurSymbol", "read SettingsApply", "read ReportingPeriodEnd"};
        if (chance(0.2))
            return std::string(one(others));
        const auto used = chance(0.6) ? datumInUse() : std::nullopt;
        return (chance(0.5) ? "read " : "write ") +
               std::string(used ? rowOf(*used).name : one(datumTable()).name);
    }

  private:
    // That of the field with the focus, which is the next to be read and written.
    [[nodiscard]] std::optional<Datum> datumInUse() const {
        const Control* active = scene_.form().activeControl();
        if (active == nullptr)
            return std::nullopt;
        for (const auto& field : companyFieldTable())
            if (field.control.is(*active))
                return *field.datum;
        for (const auto columns : {yearlyColumns(), quarterlyColumns()})
            for (const auto& column : columns)
                if (column.cells.holds(*active))
                    return column.usual.series;
        return std::nullopt;
    }

    MonkeyScene& scene_;
    std::mt19937 random_;
};

bool any(const Control& control) {
    return control.kind() != ControlKind::frame;
}
template <typename Kind>
bool ofKind(const Control& control) {
    return dynamic_cast<const Kind*>(&control) != nullptr;
}

struct Act {
    By by;
    int weight;
    const char* code; // $t and $s stand for the texts, $n for the number
    void (*choose)(Chooser& chooser, MonkeyStep& step);
    void (*perform)(MonkeyScene& scene, const MonkeyStep& step);
    bool loads = false;
    bool staysUntilLoaded = false; // what is on show may differ from the record until then
};

void chooseNothing(Chooser& /*chooser*/, MonkeyStep& /*step*/) {}
template <int low, int high>
void chooseNumber(Chooser& chooser, MonkeyStep& step) {
    step.number = chooser.within(low, high);
}
void chooseColor(Chooser& chooser, MonkeyStep& step) {
    static constexpr int shades[] = {0xFFFFFF, 0xFFFFC0, 0x00FFFF, 0x123456, 0};
    step.number = chooser.one(shades);
}
void choosePattern(Chooser& chooser, MonkeyStep& step) {
    static constexpr std::string_view patterns[] = {
        "#0.00",          "#,##0.00;(#,##0.00)", "0",        "",
        "General Number", "#0.0000000",          "0.00E+00", "Percent"};
    step.text = chooser.one(patterns);
}
void chooseDatePattern(Chooser& chooser, MonkeyStep& step) {
    static constexpr std::string_view patterns[] = {
        "MMM/DD/YYYY", "DD/MM/YYYY", "YYYY-MM-DD", "Short Date", "MMM YYYY", "", "d/m/yy", "q"};
    step.text = chooser.one(patterns);
}
void chooseControl(Chooser& chooser, MonkeyStep& step) {
    step.text = chooser.control(any);
}

using Step = MonkeyStep;
using Scene = MonkeyScene;

constexpr bool loads = true;
constexpr bool stays = true;

constexpr Act
    acts[] =
        {
            // --- a person
            {By::person, 300, "scene.desktop.type($t);",
             [](Chooser& chooser, Step& step) { step.text = chooser.keys(); },
             [](Scene& scene, const Step& step) { scene.desktop.type(step.text); }},
            {By::person, 200, "scene.fill($t, $s);",
             [](Chooser& chooser, Step& step) {
                 step.text = chooser.field();
                 step.second = keysOf(chooser.word());
             },
             [](Scene& scene, const Step& step) { scene.fill(step.text, step.second); }},
            {By::person, 100, "scene.desktop.click($t);", chooseControl,
             [](Scene& scene, const Step& step) { scene.desktop.click(step.text); }},
            {By::person, 20, "scene.desktop.click($t);",
             [](Chooser& chooser, Step& step) {
                 step.text = chooser.control(ofKind<CommandButton>);
             },
             [](Scene& scene, const Step& step) { scene.desktop.click(step.text); }},
            {By::person, 30, "scene.desktop.click($t);",
             [](Chooser& chooser, Step& step) {
                 step.text = chooser.control(ofKind<OptionButton>);
             },
             [](Scene& scene, const Step& step) { scene.desktop.click(step.text); }},
            {By::person, 30, "scene.desktop.doubleClick($t);", chooseControl,
             [](Scene& scene, const Step& step) { scene.desktop.doubleClick(step.text); }},
            {By::person, 50, "scene.desktop.rightClick($t);", chooseControl,
             [](Scene& scene, const Step& step) { scene.desktop.rightClick(step.text); }},
            {By::person, 15, "scene.drag($t, $s);",
             [](Chooser& chooser, Step& step) {
                 step.text = chooser.control(any);
                 step.second = chooser.control(any);
             },
             [](Scene& scene, const Step& step) { scene.drag(step.text, step.second); }},
            {By::person, 10, "scene.drag(\"cmdCancel\", $t);", chooseControl,
             [](Scene& scene, const Step& step) { scene.drag("cmdCancel", step.text); }},
            {By::person, 15, "scene.desktop.dragOver($n, 2);", chooseNumber<0, 9>,
             [](Scene& scene, const Step& step) { scene.desktop.dragOver(step.number, 2); }},
            {By::person, 40, "scene.desktop.clickTab($n);", chooseNumber<1, 5>,
             [](Scene& scene, const Step& step) { scene.desktop.clickTab(step.number); }},
            {By::person, 10, "scene.desktop.rightClickTab($n);", chooseNumber<1, 5>,
             [](Scene& scene, const Step& step) { scene.desktop.rightClickTab(step.number); }},
            {By::person, 15, "scene.pick($t, $n);",
             [](Chooser& chooser, Step& step) {
                 step.text = chooser.control(ofKind<ComboBox>);
                 step.number = chooser.within(0, 4);
             },
             [](Scene& scene, const Step& step) { scene.pick(step.text, step.number); }},
            {By::person, 10, "scene.scroll($t, $n);",
             [](Chooser& chooser, Step& step) {
                 step.text = chooser.control(ofKind<ScrollBar>);
                 step.number = chooser.within(-5, 1200);
             },
             [](Scene& scene, const Step& step) { scene.scroll(step.text, step.number); }},
            {By::person, 10, "scene.scrollPages($t, $n);",
             [](Chooser& chooser, Step& step) {
                 step.text = chooser.control(ofKind<ScrollBar>);
                 step.number = chooser.within(-3, 3);
             },
             [](Scene& scene, const Step& step) { scene.scrollPages(step.text, step.number); }},
            {By::person, 30, "scene.spin($n);", chooseNumber<-3, 2>,
             [](Scene& scene, const Step& step) { scene.spin(step.number); }},
            {By::person, 5, "scene.desktop.leaveForm();", chooseNothing,
             [](Scene& scene, const Step&) { scene.desktop.leaveForm(); }},
            {By::person, 15, "scene.desktop.tabInto(FocusDirection($n));", chooseNumber<0, 1>,
             [](Scene& scene, const Step& step) {
                 scene.desktop.tabInto(static_cast<FocusDirection>(step.number));
             }},
            {By::person, 5, "scene.desktop.switchAway();", chooseNothing,
             [](Scene& scene, const Step&) { scene.desktop.switchAway(); }},
            {By::person, 10, "scene.desktop.switchBack();", chooseNothing,
             [](Scene& scene, const Step&) { scene.desktop.switchBack(); }},
            {By::person, 5, "scene.desktop.clickSurface();", chooseNothing,
             [](Scene& scene, const Step&) { scene.desktop.clickSurface(); }},

            // --- what it meets
            {By::surroundings, 60, "scene.desktop.answerNext(MessageAnswer($n));",
             [](Chooser& chooser, Step& step) { step.number = chooser.chance(0.8) ? 6 : 7; },
             [](Scene& scene, const Step& step) {
                 scene.desktop.answerNext(static_cast<MessageAnswer>(step.number));
             }},
            {By::surroundings, 70, "scene.desktop.answerNextMenu($n);", chooseNumber<0, 15>,
             [](Scene& scene, const Step& step) { scene.desktop.answerNextMenu(step.number); }},
            {By::surroundings, 10, "scene.desktop.dismissNextMenu();", chooseNothing,
             [](Scene& scene, const Step&) { scene.desktop.dismissNextMenu(); }},
            {By::surroundings, 30, "scene.desktop.answerNextDate(Date{$n});",
             [](Chooser& chooser, Step& step) {
                 step.number = chooser.chance(0.8) ? chooser.within(45000, 46500)
                                                   : chooser.within(-5, 500000);
             },
             [](Scene& scene, const Step& step) {
                 scene.desktop.answerNextDate(Date{static_cast<double>(step.number)});
             }},
            {By::surroundings, 5, "scene.desktop.answerNextDate(std::nullopt);", chooseNothing,
             [](Scene& scene, const Step&) { scene.desktop.answerNextDate(std::nullopt); }},
            {By::surroundings, 5, "scene.desktop.confirmNextDate();", chooseNothing,
             [](Scene& scene, const Step&) { scene.desktop.confirmNextDate(); }},
            {By::surroundings, 10, "scene.desktop.answerNextColor($n);", chooseColor,
             [](Scene& scene, const Step& step) {
                 scene.desktop.answerNextColor(static_cast<Color>(step.number));
             }},
            {By::surroundings, 40, "scene.pasteNext($n);", chooseNumber<0, 27>,
             [](Scene& scene, const Step& step) { scene.pasteNext(step.number); }},
            {By::surroundings, 30, "scene.desktop.setClipboardText($t);",
             [](Chooser& chooser, Step& step) { step.text = chooser.clipboard(); },
             [](Scene& scene, const Step& step) { scene.desktop.setClipboardText(step.text); }},
            {By::surroundings, 3, "scene.desktop.setScreenWidth($n);", chooseNumber<4800, 30000>,
             [](Scene& scene, const Step& step) { scene.desktop.setScreenWidth(step.number); }},
            {By::surroundings, 3, "scene.desktop.setHostControls($n);", chooseNumber<0, 1>,
             [](Scene& scene, const Step& step) {
                 scene.desktop.setHostControls(step.number != 0);
             }},
            {By::surroundings, 3, "scene.withoutLocalizers();", chooseNothing,
             [](Scene& scene, const Step&) { scene.withoutLocalizers(); }},
            {By::surroundings, 3, "scene.withLocalizers();", chooseNothing,
             [](Scene& scene, const Step&) { scene.withLocalizers(); }},
            {By::surroundings, 6, "scene.react($n);", chooseNumber<0, 8>,
             [](Scene& scene, const Step& step) { scene.react(step.number); }},
            {By::surroundings, 12, "scene.fail($t);",
             [](Chooser& chooser, Step& step) { step.text = chooser.operation(); },
             [](Scene& scene, const Step& step) { scene.fail(step.text); }},
            {By::surroundings, 20, "scene.repair();", chooseNothing,
             [](Scene& scene, const Step&) { scene.repair(); }},

            // --- a host
            {By::host, 40, "scene.loadRandom($n);", chooseNumber<0, 999>,
             [](Scene& scene, const Step& step) {
                 scene.loadRandom(static_cast<unsigned>(step.number));
             },
             loads},
            {By::host, 10, "scene.loadRandom(3, $n);", chooseNumber<1, 36>,
             [](Scene& scene, const Step& step) { scene.loadRandom(3, step.number); }, loads},
            {By::host, 5, "scene.loadNothing();", chooseNothing,
             [](Scene& scene, const Step&) { scene.loadNothing(); }, loads},
            {By::host, 10, "scene.load(scene.record);", chooseNothing,
             [](Scene& scene, const Step&) {
                 if (scene.record != nullptr)
                     scene.load(scene.record);
             },
             loads},
            {By::host, 15, "scene.commit();", chooseNothing,
             [](Scene& scene, const Step&) { scene.commit(); }},
            {By::host, 50, "scene.step(HistoryStep($n));", chooseNumber<0, 1>,
             [](Scene& scene, const Step& step) {
                 scene.step(static_cast<HistoryStep>(step.number));
             }},
            {By::host, 8, "scene.split($n);", chooseNumber<0, 3>,
             [](Scene& scene, const Step& step) { scene.split(step.number); }},
            {By::host, 8, "scene.import($n);", chooseNumber<0, 999>,
             [](Scene& scene, const Step& step) {
                 scene.import(static_cast<unsigned>(step.number));
             }},
            {By::host, 8, "scene.importPeriods($n);", chooseNumber<0, 999>,
             [](Scene& scene, const Step& step) {
                 scene.importPeriods(static_cast<unsigned>(step.number));
             }},
            {By::host, 8, "scene.lookOver();", chooseNothing,
             [](Scene& scene, const Step&) { scene.lookOver(); }},
            {By::host, 10, "scene.walkBackAndForth();", chooseNothing,
             [](Scene& scene, const Step&) { scene.walkBackAndForth(); }},
            {By::host, 10, "scene.save();", chooseNothing,
             [](Scene& scene, const Step&) { scene.save(); }},
            {By::host, 10, "scene.endAndRestore();", chooseNothing,
             [](Scene& scene, const Step&) { scene.endAndRestore(); }},
            {By::host, 10, "scene.entry->put_blnDirty($n);", chooseNumber<0, 1>,
             [](Scene& scene, const Step& step) { scene.entry->put_blnDirty(step.number != 0); }},
            {By::host, 3, "scene.entry->Clear();", chooseNothing,
             [](Scene& scene, const Step&) { scene.entry->Clear(); }, false, stays},
            {By::host, 6, "scene.entry->SetNext();", chooseNothing,
             [](Scene& scene, const Step&) { scene.entry->SetNext(); }},
            {By::host, 6, "scene.entry->SetPrevious();", chooseNothing,
             [](Scene& scene, const Step&) { scene.entry->SetPrevious(); }},
            {By::host, 6, "scene.scrollMouse($n);", chooseNumber<38, 40>,
             [](Scene& scene, const Step& step) {
                 scene.scrollMouse(static_cast<std::int16_t>(step.number));
             }},
            {By::host, 10, "scene.entry->leaveField();", chooseNothing,
             [](Scene& scene, const Step&) { scene.entry->leaveField(); }},
            {By::host, 10, "scene.entry->put_CurrentTab(TABObject($n));", chooseNumber<0, 6>,
             [](Scene& scene, const Step& step) {
                 scene.entry->put_CurrentTab(static_cast<TABObject>(step.number));
             }},
            {By::host, 15, "scene.entry->put_VisibleQuarters($n);", chooseNumber<-1, 40>,
             [](Scene& scene, const Step& step) {
                 scene.entry->put_VisibleQuarters(static_cast<std::int16_t>(step.number));
             }},
            {By::host, 10, "scene.entry->put_FractionDisplay($n);", chooseNumber<0, 1>,
             [](Scene& scene, const Step& step) {
                 scene.entry->put_FractionDisplay(step.number != 0);
             }},
            {By::host, 5, "scene.entry->put_ShowVLs($n);", chooseNumber<0, 1>,
             [](Scene& scene, const Step& step) { scene.entry->put_ShowVLs(step.number != 0); }},
            {By::host, 5, "scene.entry->put_ShowReportingPeriod($n);", chooseNumber<0, 1>,
             [](Scene& scene, const Step& step) {
                 scene.entry->put_ShowReportingPeriod(step.number != 0);
             }},
            {By::host, 4, "scene.entry->put_Platform(PlatformType($n));", chooseNumber<0, 2>,
             [](Scene& scene, const Step& step) {
                 scene.entry->put_Platform(static_cast<PlatformType>(step.number));
             }},
            {By::host, 3, "scene.entry->put_UserMode(UserModeType($n));", chooseNumber<0, 1>,
             [](Scene& scene, const Step& step) {
                 scene.entry->put_UserMode(static_cast<UserModeType>(step.number));
             }},
            {By::host, 3, "scene.entry->put_ShadeColorLocked($n);", chooseColor,
             [](Scene& scene, const Step& step) {
                 scene.entry->put_ShadeColorLocked(static_cast<Color>(step.number));
             }},
            {By::host, 3, "scene.entry->put_ShadeColorYear($n);", chooseColor,
             [](Scene& scene, const Step& step) {
                 scene.entry->put_ShadeColorYear(static_cast<Color>(step.number));
             }},
            {By::host, 3, "scene.entry->put_ShadeColorQuarter($n);", chooseColor,
             [](Scene& scene, const Step& step) {
                 scene.entry->put_ShadeColorQuarter(static_cast<Color>(step.number));
             }},
            {By::host, 2, "scene.entry->put_NumberFormat($t);", choosePattern,
             [](Scene& scene, const Step& step) { scene.entry->put_NumberFormat(step.text); },
             false, stays},
            {By::host, 2, "scene.entry->put_PercentFormat($t);", choosePattern,
             [](Scene& scene, const Step& step) { scene.entry->put_PercentFormat(step.text); },
             false, stays},
            {By::host, 2, "scene.entry->put_DateFormat($t);", chooseDatePattern,
             [](Scene& scene, const Step& step) { scene.entry->put_DateFormat(step.text); }, false,
             stays},
            {By::host, 3, "scene.useMarks($n);", chooseNumber<0, 3>,
             [](Scene& scene, const Step& step) { scene.useMarks(step.number); }},
            {By::host, 4, "scene.fillLists($n);", chooseNumber<0, 5>,
             [](Scene& scene, const Step& step) { scene.fillLists(step.number); }},
            {By::host, 4, "scene.restore($t, $n);",
             [](Chooser& chooser, Step& step) {
                 static constexpr std::string_view names[] = {
                     "Platform",        "UserMode",        "CurrentTab",
                     "VisibleQuarters", "FractionDisplay", "ShowReportingPeriod",
                     "ShowVLs",         "BorderStyle",     "ShadeColorYear"};
                 step.text = chooser.one(names);
                 step.number = chooser.within(-1, 7);
             },
             [](Scene& scene, const Step& step) { scene.restore(step.text, step.number); }},
            {By::host, 3, "scene.entry->Resize($n, 500);", chooseNumber<0, 9000>,
             [](Scene& scene, const Step& step) { scene.entry->Resize(step.number, 500); }},
};

// --- invariants ----------------------------------------------------------------------------------

// Every datum of a record and its settings, as they stand.
std::vector<Variant> snapshotOf(const MonkeyScene& scene) {
    std::vector<Variant> snapshot;
    if (scene.record == nullptr)
        return snapshot;
    const CompanyRecord& company = *scene.record->company;
    for (const auto& row : datumTable())
        snapshot.push_back(company.stored(row.datum));
    const auto settings = company.get_Settings();
    for (const auto name : settingNames())
        snapshot.push_back(settings->get(name));
    return snapshot;
}

std::string nameInSnapshot(std::size_t place) {
    const auto data = datumTable();
    return std::string(place < data.size() ? data[place].name
                                           : settingNames()[place - data.size()]);
}

bool isFigure(const DatumRow& row) {
    return isSeries(row) || std::holds_alternative<NumberAccess>(row.access);
}

bool isPending(const Control& control) {
    return control.name() == "txtDateofLastFY" || control.name() == "txtLastQDate";
}

// What has to be so after every event, whatever came before it.
class Invariants {
  public:
    explicit Invariants(MonkeyScene& scene) : scene_(scene), snapshot_(snapshotOf(scene)) {}

    void before() {
        held_ = scene_.record;
        locked_ = isLocked();
        scene_.hostCalled = false;
        broken_.clear();
    }

    // What is broken, "" for nothing: a short name, a colon and the particulars.
    // `faulty`: an operation of the record fails.
    std::string after(const Act& act, bool faulty) {
        const bool loaded = act.loads || held_ != scene_.record;
        if (loaded)
            uncertain_ = false;
        if (faulty || act.staysUntilLoaded)
            uncertain_ = true;
        focus();
        pages();
        texts();
        note();
        selection();
        helpFrame();
        menu();
        if (act.loads && scene_.record != nullptr)
            loadedTexts();
        record(act);
        if (!uncertain_ && scene_.record != nullptr)
            shown();
        return broken_;
    }

  private:
    void expect(bool holds, const char* invariant, const std::string& particulars) {
        if (!holds && broken_.empty())
            broken_ = std::string(invariant) + ": " + particulars;
    }
    [[nodiscard]] Form& form() const { return scene_.form(); }
    [[nodiscard]] bool isLocked() const { return scene_.isLocked(); }

    // While the form has the focus, one control has it, which a person can see and use.
    void focus() {
        const Control* active = form().activeControl();
        if (!form().hasFocus())
            return;
        expect(active != nullptr, "focus", "on no control");
        if (active == nullptr)
            return;
        expect(active->isFocusable(), "focus", "on " + active->id() + ", which takes none");
        expect(active->isShown(), "focus", "on " + active->id() + ", which is out of sight");
        expect(active->isEnabled(), "focus", "on " + active->id() + ", which is disabled");
    }

    // One page is enabled and on show: that of the selected tab.
    void pages() {
        const int selected = form().get<TabStrip>("tbsDataEntry").selected();
        for (int page = 0; page < 5; ++page) {
            const auto& frame = form().get<Frame>("fraDE", 10 + page);
            expect(frame.enabled() == (page + 1 == selected) &&
                       frame.isShown() == (page + 1 == selected),
                   "page", frame.id() + " with tab " + std::to_string(selected));
        }
        expect(form().upperBound("txtRevenue") + 1 == scene_.entry->get_VisibleQuarters(), "rows",
               std::to_string(form().upperBound("txtRevenue")));
    }

    // A selection lies within its text. A field that was left has no text that nobody looked at,
    // except for a date that Cancel has skipped.
    void texts() {
        for (const auto& control : form().controls()) {
            const auto* field = dynamic_cast<const TextField*>(control.get());
            if (field == nullptr)
                continue;
            expect(field->selStart() >= 0 && field->selLength() >= 0 &&
                       field->selStart() + field->selLength() <= textLength(field->text()),
                   "selection", field->id());
            expect(field->locked() == isLocked(), "lock", field->id());
            expect((field->mark().kind == MarkKind::none) == field->mark().reason.empty(), "mark",
                   field->id() + " for \"" + field->mark().reason + "\"");
            const bool edited = form().hasFocus() && form().activeControl() == field;
            expect(edited || isPending(*field) || !field->isTyped(), "left",
                   field->id() + " \"" + field->text() + "\", tag \"" + field->tag() + "\"");
        }
    }

    // Cells are selected together where one of them has the focus, and more than one.
    void selection() {
        int count = 0;
        const TextBox* any = nullptr;
        for (const auto& control : form().controls())
            if (const auto* box = dynamic_cast<const TextBox*>(control.get());
                box != nullptr && box->highlighted()) {
                ++count;
                any = box;
            }
        if (any == nullptr)
            return;
        const auto* active = dynamic_cast<const TextBox*>(form().activeControl());
        expect(count > 1, "cells", any->id() + " alone is selected");
        expect(form().hasFocus() && active != nullptr && active->highlighted(), "cells",
               any->id() + " is selected without the focus");
    }

    // A word on what was refused stands at the field that is being worked in. Under the lock it
    // says no more than that.
    void note() {
        const auto& note = scene_.desktop.note();
        if (note)
            expect(form().hasFocus() && form().activeControl() != nullptr &&
                       form().activeControl()->id() == note->field &&
                       isLocked() == note->note.starts_with("The data is locked."),
                   "note", "at " + note->field + ": " + note->note);
    }

    void helpFrame() {
        const auto& frame = form().get<Frame>("fraDE", 0);
        if (frame.visible())
            expect(frame.left() >= 0 && frame.top() >= 0 &&
                       frame.left() + frame.width() <= VKRDataEntry::workingWidth &&
                       frame.top() + frame.height() <= VKRDataEntry::workingHeight,
                   "help frame", std::to_string(frame.left()) + ", " + std::to_string(frame.top()));
    }

    void menu() {
        const int last = form().upperBound("mnuItem");
        expect(last >= 0 && form().lowerBound("mnuItem") == 0, "menu", "without a first entry");
        for (int i = 0; i <= last; ++i)
            expect(form().find("mnuItem", i) != nullptr, "menu", "no entry " + std::to_string(i));
    }

    void loadedTexts() {
        for (const TextField* field : allFields(scene_)) {
            expect(!field->isTyped(), "loaded",
                   field->id() + " \"" + field->text() + "\", tag \"" + field->tag() + "\"");
            expect(field->mark() == FieldMark(), "loaded", field->id() + " is marked");
        }
    }

    [[nodiscard]] static bool takesNoMinus(const std::string& name) {
        return std::ranges::any_of(companyFieldTable(), [&](const FieldRow& field) {
            return !field.filter.freeText && !field.filter.allowNegative &&
                   rowOf(*field.datum).name == name;
        });
    }

    // Under the lock a record changes by its host alone; the currency unit is no datum, nor which
    // row of a pair is on show. What a person changes makes the company a changed one.
    void record(const Act& act) {
        auto now = snapshotOf(scene_);
        const bool same = held_ == scene_.record && now.size() == snapshot_.size();
        if (!same || act.loads)
            loaded_ = now;
        if (same && act.by == By::host && locked_ && isLocked() && !act.loads)
            for (std::size_t i = 0; i < datumTable().size(); ++i)
                expect(now[i] == snapshot_[i] || !isFigure(datumTable()[i]), "locked",
                       nameInSnapshot(i) + " changed by a commit under the lock");
        if (same && act.by != By::host && !scene_.hostCalled)
            for (std::size_t i = 0; i < now.size(); ++i) {
                if (now[i] == snapshot_[i])
                    continue;
                const auto name = nameInSnapshot(i);
                expect(act.by == By::person, "record", name + " changed by itself");
                expect(scene_.entry->get_blnDirty(), "dirty", name + " changed, and nobody knows");
                const bool isChoice = name == setting::unit || name == setting::taxRate ||
                                      name == setting::bookValue; // of what is shown
                expect(!locked_ || !isLocked() || isChoice, "locked",
                       name + " changed under the lock");
                // An end of the range that a price has moved goes back to what it was, be it
                // negative.
                expect(!takesNoMinus(name) || now[i].toDouble() >= 0 ||
                           (i < loaded_.size() && now[i] == loaded_[i]),
                       "negative", name);
            }
        snapshot_ = std::move(now);
    }

    // --- what the form shows is what the record holds, where nothing is being typed

    [[nodiscard]] double unitFactor() const {
        return form().get<OptionButton>("optCurrency", 0).value()   ? 1000
               : form().get<OptionButton>("optCurrency", 2).value() ? 0.001
                                                                    : 1;
    }
    [[nodiscard]] std::string numberText(double stored, double factor, std::string_view pattern,
                                         bool negatives, bool price) const {
        const double value = ScaledForDisplay(stored, factor);
        if (negatives ? value == 0 : !(value > 0))
            return {};
        const NumberMarks& marks = scene_.entry->get_NumberMarks();
        if (!price || !scene_.entry->get_FractionDisplay())
            return formatNumber(value, pattern, marks);
        std::string text = formatNumber(value, pattern);
        const bool minus = text.find('-') != std::string::npos;
        ReplaceAll(text, "-", "");
        text = DecimalToFraction(text, false);
        return minus && !text.empty() ? "-" + text : text;
    }
    [[nodiscard]] std::string dateText(Date date) const {
        return !isAbsent(date) && IsDateInRange(date)
                   ? formatDate(date, scene_.entry->get_DateFormat())
                   : "";
    }
    [[nodiscard]] std::string fieldText(const FieldRow& field) const {
        const iVKR_Company& company = *scene_.record;
        const bool negatives = field.filter.allowNegative || field.isScaled();
        switch (field.kind) {
        case FieldKind::text:
        case FieldKind::list:
            return readText(company, *field.datum);
        case FieldKind::date:
            return dateText(readDate(company, *field.datum));
        case FieldKind::percent:
            return numberText(readNumber(company, *field.datum), 1, "#0.0\\%", negatives, false);
        case FieldKind::price:
            return numberText(readNumber(company, *field.datum), 1, "#0.000", negatives, true);
        default:
            break;
        }
        double stored = readNumber(company, *field.datum);
        if (field.datum == Datum::CommDiv && company.get_CommDivAlternate() != 0)
            stored = company.get_CommDivAlternate();
        return numberText(stored, field.isScaled() ? unitFactor() : 1,
                          scene_.entry->get_NumberFormat(), negatives, false);
    }

    void agree(const TextField& field, const std::string& expected) {
        // A mark stays while its field is edited, or was left by the host and come back to.
        const bool edited = form().hasFocus() && form().activeControl() == &field;
        if (field.isUnstored())
            expect(edited || field.text() != expected, "mark",
                   field.id() + " \"" + field.text() + "\" is what is stored");
        else if (!field.isTyped())
            expect(field.text() == expected, "shown",
                   field.id() + " \"" + field.text() + "\" for \"" + expected + "\"");
    }

    void shown() {
        const iVKR_Company& company = *scene_.record;
        for (const auto& field : companyFieldTable())
            agree(dynamic_cast<TextField&>(*field.control.find(form())), fieldText(field));
        const int year = company.get_LastFY();
        agree(form().get<TextField>("txtLastFY"), year == 0 ? "" : std::to_string(year));
        agree(form().get<TextField>("txtDateofLastFY"), dateText(company.get_LastFYDate()));
        agree(form().get<TextField>("txtLastQDate"), dateText(company.get_LastQDate()));
        for (const auto& column : yearlyColumns())
            cells(column, [](int row) { return 10 - row; });
        const int offset = -form().get<Spinner>("spnQuarter").value();
        for (const auto& column : quarterlyColumns())
            cells(column, [&](int row) { return row + offset; });
        const auto unit = company.get_Settings()->get(setting::unit).toLong();
        expect(unitFactor() == (unit == 3   ? 1000
                                : unit == 9 ? 0.001
                                            : 1),
               "unit", std::to_string(unit));
    }

    template <typename ElementOf>
    void cells(const GridColumn& column, ElementOf elementOf) {
        const bool second = column.choice == ColumnChoice::income
                                ? form().get<OptionButton>("optPTI", 1).value()
                            : column.choice == ColumnChoice::equity
                                ? form().get<OptionButton>("optCommEq", 1).value()
                                : false;
        const GridSeries& series = second ? *column.alternative : column.usual;
        const Variant value = readSeries(*scene_.record, series.series);
        const VariantArray& figures = value.array();
        const auto pattern =
            column.price ? std::string_view("#0.000") : scene_.entry->get_NumberFormat();
        for (int row = 0; row <= column.cells.last(form()); ++row) {
            const auto& cell = column.cells[row].in(form());
            const int element = elementOf(row);
            const bool held = figures.contains(element);
            expect(cell.enabled() == held, "enabled", cell.id());
            const auto text = [&](double factor) {
                return held ? numberText(figures.number(element), factor, pattern, column.negatives,
                                         column.price)
                            : std::string();
            };
            // Loading shows quarterly earnings in the unit of that time, all else per share.
            const bool entered = form().hasFocus() && form().activeControl() == &cell;
            if (series.series == Datum::QEPSSeries && !entered && !cell.isUnstored() &&
                (cell.text() == text(1000) || cell.text() == text(0.001)))
                continue;
            agree(cell, text(series.isScaled() ? unitFactor() : 1));
        }
    }

    MonkeyScene& scene_;
    std::vector<Variant> snapshot_;
    std::vector<Variant> loaded_; // the same when the record was handed in
    std::shared_ptr<ScriptedRecord> held_;
    bool locked_ = false;
    bool uncertain_ = false;
    std::string broken_;
};

// --- playing -------------------------------------------------------------------------------------

// Whether the desktop refused it: nobody could do that at the moment, and nothing has happened.
bool isRefusal(const std::logic_error& error) {
    const std::string_view why = error.what();
    return typeid(error) == typeid(std::logic_error) &&
           why.find("has no colours") == std::string_view::npos &&
           why.find("has no caption") == std::string_view::npos;
}

class Player {
  public:
    // What the step has broken, "" for nothing.
    std::string play(const MonkeyStep& step) {
        const Act& act = acts[step.act];
        invariants_.before();
        wasRefused_ = false;
        try {
            act.perform(scene, step);
        } catch (const std::logic_error& error) {
            if (!isRefusal(error))
                return std::string("escaped: ") + error.what();
            wasRefused_ = true;
        } catch (const std::exception& error) {
            return std::string("escaped: ") + error.what();
        }
        scene.desktop.forget();
        if (!scene.broken.empty())
            return std::exchange(scene.broken, {});
        // The checks read the record without the failures.
        const auto record = scene.record;
        if (record == nullptr)
            return invariants_.after(act, false);
        auto failing = std::exchange(record->failing, {});
        const bool without = std::exchange(record->withoutObjects, false);
        auto broken = invariants_.after(act, without || !failing.empty());
        record->failing = std::move(failing);
        record->withoutObjects = without;
        record->log.clear();
        return broken;
    }

    [[nodiscard]] bool wasRefused() const { return wasRefused_; }

    MonkeyScene scene;

  private:
    Invariants invariants_{scene};
    bool wasRefused_ = false;
};

std::size_t randomAct(Chooser& chooser) {
    static const int total = [] {
        int sum = 0;
        for (const auto& act : acts)
            sum += act.weight;
        return sum;
    }();
    int drawn = chooser.within(0, total - 1);
    std::size_t act = 0;
    while (drawn >= acts[act].weight)
        drawn -= acts[act++].weight;
    return act;
}

std::string literal(std::string_view text) {
    std::string result = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            result += '\\';
        if (static_cast<unsigned char>(c) < 0x20 || static_cast<unsigned char>(c) == 0xFF) {
            constexpr char digits[] = "01234567";
            const auto code = static_cast<unsigned char>(c);
            result += {'\\', digits[code >> 6], digits[code >> 3 & 7], digits[code & 7]};
        } else {
            result += c;
        }
    }
    return result + '"';
}

} // namespace

std::string MonkeyStep::code() const {
    std::string code = acts[act].code;
    ReplaceAll(code, "$n", std::to_string(number));
    ReplaceAll(code, "$s", literal(second));
    ReplaceAll(code, "$t", literal(text));
    return code;
}

MonkeyRun playMonkey(unsigned seed, int events,
                     const std::function<void(const MonkeyStep&)>& told) {
    MonkeyRun run;
    Player player;
    Chooser chooser(player.scene, seed);
    for (int played = 0; played < events && run.failure.empty();) {
        MonkeyStep step;
        if (!run.steps.empty())
            step.act = randomAct(chooser);
        else // most of the form needs a record
            while (!acts[step.act].loads)
                ++step.act;
        acts[step.act].choose(chooser, step);
        if (told)
            told(step);
        run.steps.push_back(step);
        run.failure = player.play(step);
        if (!player.wasRefused())
            ++played;
    }
    return run;
}

MonkeyRun replay(const std::vector<MonkeyStep>& steps) {
    MonkeyRun run;
    Player player;
    for (const auto& step : steps) {
        run.steps.push_back(step);
        run.failure = player.play(step);
        if (!run.failure.empty())
            break;
    }
    return run;
}

MonkeyRun shrunk(const MonkeyRun& run) {
    MonkeyRun found = replay(run.steps);
    if (found.failure.empty())
        return run;
    const auto invariant = found.failure.substr(0, found.failure.find(':'));
    found.steps = shortest(found.steps, [&](const std::vector<MonkeyStep>& steps) {
        return replay(steps).failure.starts_with(invariant + ":");
    });
    found.failure = replay(found.steps).failure;
    return found;
}

} // namespace vkr::test
