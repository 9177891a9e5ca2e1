// SPDX-License-Identifier: MIT
#include "input/mdlDataEntry.hpp"

#include "input/mdlKMTMisc.hpp"
#include "input/number_text.hpp"
#include "platform/ascii.hpp"
#include "platform/error_trap.hpp"
#include "platform/form.hpp"
#include "platform/text.hpp"

namespace vkr {

bool checkFieldChange(TextField& field, FieldHost& host) {
    host.hideHelpFrame();
    if (!field.isTyped())
        return false;
    field.lookAtText();
    host.markChanged();
    return true;
}

namespace {

// Whether all of a text is read: "3 1/" and "1,23" go on, and their first figures are no price.
bool isWholePrice(std::string_view text) {
    return text.find_first_not_of("-0123456789. /") == std::string_view::npos && !text.empty() &&
           isAsciiDigit(text.back());
}

// Rewrites a price that is being typed in the other form, unless it would lose digits there.
void convertTypedPrice(bool toDecimal, TextField& field) {
    const NumberMarks& marks = field.form().numberMarks();
    if (!isWholePrice(exchangeMarks(field.text(), marks)))
        return;
    const auto price = [&] {
        return numericValue(cleanNumericText(field.text(), NumericKind::PriceText, 0, marks).text);
    };
    const std::string typed = field.text();
    const double before = price();
    ConvertPriceText(toDecimal, field);
    if (price() != before)
        field.setText(typed);
}

// The place of the caret in a field that is shown anew below the user's hands: a whole selection
// stays whole, a rewritten text is gone on with at its end.
class Caret {
  public:
    explicit Caret(TextField& field)
        : field_(field), text_(field.text()), start_(field.selStart()), length_(field.selLength()) {
    }
    void putBack() const {
        const int end = textLength(field_.text());
        if (length_ == textLength(text_))
            field_.select(0, end);
        else if (field_.text() == text_)
            field_.select(start_, length_);
        else
            field_.select(end, 0);
    }

  private:
    TextField& field_;
    std::string text_;
    int start_;
    int length_;
};

void rewritePrice(bool toDecimal, TextField& field, const std::function<bool()>& showStored) {
    if (field.standsForStored()) {
        if (!showStored())
            ConvertPriceText(toDecimal, field);
    } else if (field.isUnstored()) {
        const RefusedText refused(field);
        if (showStored())
            refused.putBack();
    } else {
        const std::string typed = field.text();
        convertTypedPrice(toDecimal, field);
        const std::string rewritten = field.text();
        if (!showStored()) {
            field.setText(field.tag()); // Escape goes back to it
            ConvertPriceText(toDecimal, field);
        }
        // The tag is the stored price in the new form. A typed text may look the same and mean
        // another price.
        field.rewriteText(rewritten == field.tag() ? typed : rewritten);
        if (field.text() == field.tag())
            field.holdAsTyped();
    }
}

void rewriteMarks(const NumberMarks& before, TextField& field,
                  const std::function<bool()>& showStored) {
    const auto rewritten = [&](std::string_view text) {
        return exchangeMarks(exchangeMarks(text, before), field.form().numberMarks());
    };
    const bool untouched = field.standsForStored();
    const bool isTyped = field.isTyped();
    const std::string typed = rewritten(field.text());
    const FieldMark mark = field.mark();
    RefusedText refused(field);
    refused.rewrite(typed);
    if (!showStored()) {
        field.rewriteState(rewritten);
        field.setText(field.tag()); // Escape goes back to it
        field.rewriteText(typed);
    } else if (untouched) {
        field.setMark(mark);
    } else {
        refused.putBack();
        field.rewriteText(typed);
        if (field.standsForStored() || (isTyped && !field.isTyped()))
            field.holdAsTyped();
    }
}

// What was typed stays where memory runs out, and is told as not stored, by the reason of before
// where there is one.
void keepTyped(TextField& field, const std::string& typed, const FieldMark& before) {
    if (!attempt([&] { field.rewriteText(typed); }))
        ifPossible([&] { field.setText(typed); }); // Escape does not go beyond it
    if (before.kind != MarkKind::unstored || !attempt([&] { field.setMark(before); }))
        ifPossible([&] { field.setMark({MarkKind::unstored, "Not stored."}); }); // no memory needed
}

} // namespace

void followPriceDisplay(bool toDecimal, TextField& field, const std::function<bool()>& showStored) {
    const bool untouched = field.standsForStored();
    const std::string typed = field.text();
    const FieldMark mark = field.mark();
    const auto rewrite = [&] {
        const Caret caret(field);
        rewritePrice(toDecimal, field, showStored);
        if (mark.kind == MarkKind::doubtful)
            field.setMark(mark); // the figure is the same
        if (field.form().activeControl() == &field)
            caret.putBack();
    };
    if (attempt(rewrite))
        return;
    if (untouched)
        ifPossible(rewrite);
    else
        keepTyped(field, typed, mark);
}

void followNumberMarks(const NumberMarks& before, TextField& field,
                       const std::function<bool()>& showStored) {
    const bool untouched = field.standsForStored();
    FieldMark mark;
    ifPossible([&] { mark = field.mark(); });
    std::string typed;
    const bool kept =
        untouched || attempt([&] {
            typed = exchangeMarks(exchangeMarks(field.text(), before), field.form().numberMarks());
        });
    const auto rewrite = [&] {
        const Caret caret(field);
        rewriteMarks(before, field, showStored);
        if (field.form().activeControl() == &field)
            caret.putBack();
    };
    if (kept && attempt(rewrite))
        return;
    // Memory ran out. In the marks of before a figure would be read as another one.
    if (untouched) {
        if (!attempt(rewrite))
            ifPossible([&] { field.showStored(""); });
        return;
    }
    keepTyped(field, kept ? typed : field.text(), mark);
}

} // namespace vkr
