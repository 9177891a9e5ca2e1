// SPDX-License-Identifier: MIT
#include "binding/entry_context.hpp"

#include "binding/block_texts.hpp"
#include "binding/figure_doubts.hpp"
#include "binding/text_numbers.hpp"
#include "form/controls.hpp"
#include "form/form_rows.hpp"
#include "input/date_pattern.hpp"
#include "input/date_reader.hpp"
#include "input/mdlKMTMisc.hpp"
#include "input/number_pattern.hpp"
#include "input/text_signs.hpp"
#include "localizer/string_table.hpp"
#include "platform/during.hpp"
#include "platform/error_trap.hpp"
#include "platform/text.hpp"
#include "record/setting_table.hpp"

#include <algorithm>
#include <cassert>
#include <utility>

namespace vkr {

namespace {

Consequences nothingFollows;

} // namespace

EntryContext::EntryContext(Form& ownForm, Services& hostServices, Consequences* theConsequences)
    : form(ownForm), services(hostServices),
      consequences(theConsequences == nullptr ? nothingFollows : *theConsequences) {}

void EntryContext::checkInvariants() const {
    assert(updates_ >= 0);
    assert(!onlyPicked_ || dirty_);
    assert(unit_ == 3 || unit_ == 6 || unit_ == 9);
}

void EntryContext::hideHelpFrame() {
    controls::helpFrame.in(form).setVisible(false);
}

void EntryContext::markChanged() {
    onlyPicked_ = false;
    dirty_ = true;
    tellState();
}

void EntryContext::markPicked() {
    const bool only = !dirty_ || onlyPicked_;
    setDirty(true);
    onlyPicked_ = only && dirty_; // whoever heard of it may have taken it back
    checkInvariants();
}

void EntryContext::takePickBack() {
    if (onlyPicked_)
        setDirty(false);
}

void EntryContext::setDirty(bool value) {
    onlyPicked_ = false;
    const bool changed = dirty_ != value;
    dirty_ = value;
    if (changed)
        tellState();
}

void EntryContext::tellState() {
    if (updates_ > 0)
        untold_ = true;
    else
        ifPossible([&] { consequences.stateChanged(); });
    checkInvariants();
}

Action typingIn(const TextField& field) {
    return attemptOr(Action(), [&] { return Action{Origin::typed, field.accessibleName(), {}}; });
}

EntryContext::UpdateScope::UpdateScope(EntryContext& context, const std::optional<Action>& action)
    : context_(context) {
    static const Action plain; // memory may have run out
    if (action || context.updates_ == 0)
        action_.emplace(context.company, action ? *action : plain);
    ++context_.updates_;
}

EntryContext::UpdateScope::~UpdateScope() {
    action_.reset(); // whoever hears of the change finds it noted
    if (--context_.updates_ > 0)
        return;
    ifPossible([&] { context_.consequences.workDone(); });
    if (context_.updates_ == 0 && std::exchange(context_.untold_, false))
        context_.tellState();
    assert(context_.updates_ > 0 || !context_.untold_);
}

bool EntryContext::isLocked() const {
    return controls::lock.in(form).value();
}

std::string EntryContext::unitText(std::int32_t ofUnit) const {
    switch (ofUnit) {
    case 3:
        return text(text_number::unitThousands);
    case 9:
        return text(text_number::unitBillions);
    default:
        return text(text_number::unitMillions);
    }
}

void EntryContext::ComputeUnitFactor() {
    std::int32_t stored = defaultUnit;
    ifPossible([&] {
        const auto held = settingObject(*company, SettingHolder::settings);
        stored = held->get(setting::unit).toLong();
        if (stored == 0) {
            held->put(setting::unit, defaultUnit);
            applySettings(*company, SettingHolder::settings);
        }
    });
    takeUnit(stored);
}

void EntryContext::takeUnit(std::int32_t stored) {
    unit_ = stored == 3 || stored == 9 ? stored : defaultUnit;
    checkInvariants();
}

NumericText EntryContext::typedNumber(std::string_view text, int exponent) const {
    constexpr double grouped = 1234567;
    const NumberMarks& marks = form.numberMarks();
    const auto read = [&](std::string_view one) {
        return cleanNumericText(one, NumericKind::PlainNumber, exponent, marks);
    };
    const NumericText asItStands = read(text);
    std::string typed(text);
    // "5,-" has a dash in place of the cents, whatever its mark stands for here.
    const bool dashed = std::ranges::any_of(minusSigns, [&](std::string_view dash) {
        return text.find(marks.grouping + std::string(dash)) != std::string_view::npos;
    });
    if (!dashed && formatNumber(grouped, numberFormat).find(',') != std::string::npos)
        ReplaceAll(typed, marks.grouping, "");
    NumericText result = read(typed);
    // Without a decimal mark, or behind it, the one that was passed over may have been meant.
    const auto decimal = text.find(marks.decimal);
    const bool mayBeDecimal = decimal == std::string_view::npos ||
                              text.find(marks.grouping, decimal) != std::string_view::npos;
    if (result.leftOut.empty() && mayBeDecimal &&
        (result.text != asItStands.text || !asItStands.leftOut.empty()))
        result.leftOut = marks.grouping;
    return result;
}

NumericText EntryContext::typedText(std::string_view text, NumericKind kind) const {
    return cleanNumericText(text, kind, 0, form.numberMarks());
}

std::int32_t EntryContext::copiedIn(std::string_view text) const {
    const bool copied = copied_ && copied_->unit != unit_ && copied_->text == text &&
                        attemptOr(false, [&] { return services.clipboardText() == text; });
    return copied ? copied_->unit : 0;
}

std::optional<char> EntryContext::declaredMark(std::string_view text) const {
    return attemptOr(std::optional<char>(), [&] {
        return services.clipboardText() == text ? services.clipboardDecimalMark() : std::nullopt;
    });
}

bool EntryContext::isValidDate(Date date) {
    return !isAbsent(date) && IsDateInRange(date);
}

std::optional<Date> EntryContext::typedDate(const TextField& field) const {
    if (const auto picked = dates.pickedIn(field))
        return picked;
    const auto read = attemptOr(std::optional<Date>(), [&] {
        return vkr::readDate(field.text(), services.today(), dateFormat);
    });
    return read && isValidDate(*read) ? read : std::nullopt;
}

std::optional<Date> EntryContext::dateOf(const TextField& field, Datum datum) const {
    Date stored{};
    if (company != nullptr && !field.text().empty() && field.standsForStored() &&
        attempt([&] { stored = vkr::readDate(*company, datum); }) && isValidDate(stored))
        return stored;
    return typedDate(field);
}

FieldMark EntryContext::unstored(int reasonNumber) const {
    return {MarkKind::unstored, text(reasonNumber)};
}

std::string EntryContext::refusedText(std::string_view words) const {
    constexpr int longest = 200;
    const std::string said = cleanedPaste(trimmed(words), FieldLines::one);
    const std::string base = text(text_number::reasonRefused);
    return said.empty() ? base : base + " " + std::string(textLeft(said, longest));
}

FieldMark EntryContext::refused(std::string_view words) const {
    return {MarkKind::unstored, refusedText(words)};
}

void EntryContext::tellLeftOut(TextField& field, std::string_view typed, const NumericText& read,
                               Datum datum) const {
    const std::string& shown = field.text();
    const std::string& symbol = (*this)[controls::currencySymbol].text();
    const std::string leftOut =
        read.leftOut.empty() ? saidBeside(typed, datum, symbol, form.numberMarks()) : read.leftOut;
    const bool ofDisplay =
        shown == typed ||
        (shown.ends_with(leftOut) &&
         leftOut.find_first_of("0123456789") == std::string_view::npos) ||
        (isCurrencySign(leftOut) && shown.find(leftOut) != std::string_view::npos);
    if (!leftOut.empty() && !ofDisplay)
        markDoubtful(field, leftOut);
    else if (const std::int32_t before = followsUnit(datum) ? copiedIn(typed) : 0; before != 0) {
        std::string reason = text(text_number::copiedInUnit);
        ReplaceAll(reason, "%1", unitText(before));
        ReplaceAll(reason, "%2", unitText());
        field.setMark({MarkKind::doubtful, reason});
    }
}

void EntryContext::markDoubtful(TextField& field, std::string_view leftOut) const {
    const auto brief = [](std::string_view text) {
        constexpr int longest = 40;
        return textLength(text) <= longest ? std::string(text)
                                           : std::string(textLeft(text, longest)) + "\u2026";
    };
    std::string reason = text(text_number::takenInPart);
    // What was typed may hold a "%1" of its own: the figure comes first.
    ReplaceAll(reason, "%1", field.text().empty() ? "0" : brief(field.text()));
    ReplaceAll(reason, "%2", brief(leftOut));
    field.setMark({MarkKind::doubtful, reason});
}

void EntryContext::tellRefused(TextField& field, int noteNumber) const {
    std::string note = text(noteNumber);
    ReplaceAll(note, "%1",
               noteNumber == text_number::noteFull ? std::to_string(field.maxLength())
                                                   : std::string(1, form.numberMarks().decimal));
    ifPossible([&] { services.tellRefused(field, note); });
}

void EntryContext::markUnstored(TextField& field) {
    if (!attempt([&] { field.setMark(unstored(text_number::reasonRefused)); }))
        ifPossible([&] { field.setMark({MarkKind::unstored, "Not stored."}); }); // needs no memory
}

void EntryContext::markLocked(TextField& field) {
    if (!attempt([&] { field.setMark(unstored(text_number::dataLocked)); }))
        markUnstored(field);
}

std::optional<std::string> EntryContext::textUnderLock(const TextField& field) {
    return field.locked() ? attemptOr(std::optional<std::string>(), [&] { return field.text(); })
                          : std::nullopt;
}

std::optional<std::string> EntryContext::refusalOf(Datum datum, Date date) {
    const auto refusal = failureOf([&] { writeDate(*company, datum, date); });
    const bool held =
        refusal && attemptOr(false, [&] { return vkr::readDate(*company, datum) == date; });
    return held ? std::nullopt : refusal;
}

void EntryContext::putDate(TextField& field, Datum datum, Date date) {
    const auto refusal = refusalOf(datum, date);
    dates.settle(datum);
    field.showStored(dateText(date));
    if (!refusal)
        return;
    field.setMark(refused(*refusal));
    dates.pick(field, field.text(), date);
}

double EntryContext::unitFactor() const {
    return unit_ == 3 ? 1000 : unit_ == 9 ? 0.001 : 1;
}

std::string EntryContext::dateText(Date date) const {
    return isValidDate(date) ? formatDate(date, dateFormat) : std::string();
}

std::string EntryContext::text(int number) const {
    return text(number, findString(standardStrings(), number));
}

std::string EntryContext::text(int number, std::string_view fallback) const {
    std::string found;
    if (localizer != nullptr)
        ifPossible([&] { found = localizer->LoadString(number); });
    return trimmed(found).empty() ? std::string(fallback) : found;
}

MessageAnswer EntryContext::message(const std::string& text, int buttons) {
    const std::string title = attemptOr(std::string(), [&] { return services.applicationTitle(); });
    return attemptOr(MessageAnswer::cancel,
                     [&] { return services.messageBox(text, buttons, title); });
}

bool EntryContext::confirmLoss(int number, const std::string& period, int icon) {
    if (asking_)
        return false;
    const auto asked = company; // the host may hand in another one while the question is up
    const std::string question = text(number) + " " + period + " " + text(text_number::dropsOut) +
                                 "\r" + text(text_number::noUndo);
    const During asking(asking_);
    const MessageAnswer answer =
        message(question, message_box::yesNo | icon | message_box::defaultSecondButton);
    assert(asking_); // no second question has come and gone
    return answer == MessageAnswer::yes && company == asked;
}

} // namespace vkr
