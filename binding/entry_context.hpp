// SPDX-License-Identifier: MIT
#pragma once

#include "binding/consequences.hpp"
#include "binding/date_entries.hpp"
#include "binding/figure_notes.hpp"
#include "form/handle.hpp"
#include "input/mdlDataEntry.hpp"
#include "input/number_text.hpp"
#include "platform/error_trap.hpp"
#include "platform/form.hpp"
#include "platform/localizer.hpp"
#include "platform/services.hpp"
#include "record/actions.hpp"
#include "record/datum_table.hpp"
#include "record/enumerations.hpp"
#include "record/ivkr_company.hpp"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace vkr {

// Of each pair of alternative rows, which one is on show.
enum class IncomeRow { preTaxIncome, taxRate };
enum class EquityRow { commonEquity, bookValue };

// What the parts of one component instance share: the form, the record that is held, and what is
// set for the display. Loading, leaving and redrawing go by it. At the end of each of its calls
//
//   what the host is still to be told of its state waits for the end of the work under way;
//   where nothing but a picked date has changed the company, the company counts as changed;
//   one question before a loss is on show at most;
//   the unit is 3, 6 or 9.
class EntryContext final : public FieldHost {
  public:
    // `theConsequences` outlives this; nothing follows where it is null.
    EntryContext(Form& ownForm, Services& hostServices, Consequences* theConsequences = nullptr);

    Form& form;
    Services& services;
    std::shared_ptr<iVKR_Company> company;
    std::shared_ptr<Localizer> localizer;

    PlatformType platform = ptStandard;
    std::string dateFormat;
    std::string numberFormat;
    std::string priceFormat;
    std::string percentFormat;
    bool fractionDisplay = false;
    IncomeRow incomeRow = IncomeRow::preTaxIncome;
    EquityRow equityRow = EquityRow::commonEquity;

    DateEntries dates;
    // What the record's settings were when the form last read or wrote them, by their names.
    std::map<std::string_view, Variant> settingsSeen;
    FigureNotes<std::string> remarks;
    FigureNotes<FieldOrigin> origins;
    Consequences& consequences; // for the rest of the form

    static constexpr std::int32_t defaultUnit = 6;
    // The exponent of what money and share figures are shown in: 3, 6 or 9.
    [[nodiscard]] std::int32_t unit() const { return unit_; }
    // Shown figures are the stored millions times this: 1000, 1 or 0.001.
    [[nodiscard]] double unitFactor() const;

    void hideHelpFrame() override;
    void markChanged() override;
    void setDirty(bool value);
    [[nodiscard]] bool isDirty() const { return dirty_; }
    // A date that was picked counts as a change until it is left, and then no more if it came to
    // nothing.
    void markPicked();
    void takePickBack();

    // Whoever hears of a change may hand in another record or take rows away. So nobody does while
    // one of these lives: in the middle of storing what was typed.
    class UpdateScope {
      public:
        // For records that listen, what is written within is one action. A nested scope begins one
        // of its own only if it is named.
        explicit UpdateScope(EntryContext& context,
                             const std::optional<Action>& action = std::nullopt);
        ~UpdateScope();
        UpdateScope(const UpdateScope&) = delete;
        UpdateScope& operator=(const UpdateScope&) = delete;

      private:
        EntryContext& context_;
        std::optional<ActionScope> action_;
    };
    [[nodiscard]] bool isUpdating() const { return updates_ > 0; }
    void tellState(); // by its consequence, at the end of the work under way

    // The data lock is on.
    [[nodiscard]] bool isLocked() const;

    // "(M)", as it stands behind the caption of an amount; of the form's unit, or another one.
    [[nodiscard]] std::string unitText() const { return unitText(unit_); }
    [[nodiscard]] std::string unitText(std::int32_t ofUnit) const;
    // Takes the unit from the record; a record without one gets millions.
    void ComputeUnitFactor();
    void takeUnit(std::int32_t stored); // one that is none is millions

    // What a person typed into a field, by the marks of the form.
    [[nodiscard]] NumericText typedText(std::string_view text, NumericKind kind) const;
    // The same of a field of the number pattern. Where the pattern groups thousands
    // an edited figure may have its marks anywhere: "1,2345.50" is 12345.50.
    [[nodiscard]] NumericText typedNumber(std::string_view text, int exponent) const;

    // A text of the form goes to the clipboard, in the unit on show.
    void noteCopy(std::string text) { copied_ = Copied{std::move(text), unit_}; }
    // The unit that a text of the clipboard was copied in here, where the form shows another one by
    // now; else 0.
    [[nodiscard]] std::int32_t copiedIn(std::string_view text) const;

    // The decimal mark that the clipboard names for the text, where it does.
    [[nodiscard]] std::optional<char> declaredMark(std::string_view text) const;

    [[nodiscard]] static bool isValidDate(Date date);
    // What a person typed or picked, as a date in range; nothing otherwise.
    [[nodiscard]] std::optional<Date> typedDate(const TextField& field) const;
    // The date that a date field stands for: the stored one while nobody has touched its text. The
    // pattern may show less of it.
    [[nodiscard]] std::optional<Date> dateOf(const TextField& field, Datum datum) const;
    [[nodiscard]] FieldMark unstored(int reasonNumber) const;
    // That a value was refused, and what the record itself said of it.
    [[nodiscard]] FieldMark refused(std::string_view words) const;
    [[nodiscard]] std::string refusedText(std::string_view words) const;
    // The figure of a datum was read, stored and is on show: where it does not say all that was
    // typed, the field says so. Marks that the pattern adds do not count as left out.
    void tellLeftOut(TextField& field, std::string_view typed, const NumericText& read,
                     Datum datum) const;
    void markDoubtful(TextField& field, std::string_view leftOut) const;
    // By a text of text_number: what was typed or pasted does not go into the field.
    void tellRefused(TextField& field, int noteNumber) const;
    // Leaves a field by `leave`. Where that fails on the way, be it for want of memory, a text that
    // was typed is told as not stored; so is one that the data lock came upon.
    template <typename Leave>
    void guarded(TextField& field, Leave&& leave) {
        const bool typed = !field.standsForStored();
        const auto lockedText = typed ? textUnderLock(field) : std::nullopt;
        if (!attempt(std::forward<Leave>(leave)) && typed)
            markUnstored(field);
        if (lockedText == field.text() && !field.isUnstored())
            markLocked(field);
    }
    // Puts a date into the record. No value where the date is there. A value where the record
    // neither takes it nor has it already: its words, which may be empty.
    [[nodiscard]] std::optional<std::string> refusalOf(Datum datum, Date date);
    // A date that the program works out: shown, and stored. Where the record does not take it, the
    // next leaving tries again.
    void putDate(TextField& field, Datum datum, Date date);
    [[nodiscard]] std::string dateText(Date date) const; // empty for a date out of range

    // The localizer's text, the English one where there is none but blanks.
    [[nodiscard]] std::string text(int number) const;
    [[nodiscard]] std::string text(int number, std::string_view fallback) const;
    MessageAnswer message(const std::string& text, int buttons);
    // Asks before the figures of a period are lost; the text of `number` says what is about to be
    // done. No is the default. It is also the answer where another record is held by then, and to a
    // second question that comes up meanwhile: two answers would move the figures twice.
    bool confirmLoss(int number, const std::string& period, int icon = 0);

    // A control of the form.
    template <typename Kind>
    [[nodiscard]] Kind& operator[](const Handle<Kind>& control) const {
        return control.in(form);
    }

  private:
    void markUnstored(TextField& field);
    void markLocked(TextField& field);
    [[nodiscard]] static std::optional<std::string> textUnderLock(const TextField& field);
    void checkInvariants() const;

    struct Copied {
        std::string text;
        std::int32_t unit;
    };
    std::int32_t unit_ = defaultUnit;
    std::optional<Copied> copied_; // last
    bool dirty_ = false;
    int updates_ = 0;
    bool untold_ = false;
    bool onlyPicked_ = false; // what made the company a changed one
    bool asking_ = false;
};

// What is typed into a field, as an action that is named like it.
[[nodiscard]] Action typingIn(const TextField& field);

} // namespace vkr
