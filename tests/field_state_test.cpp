// SPDX-License-Identifier: MIT
#include "platform/field_state.hpp"
#include "platform/form.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

const FieldMark refused{MarkKind::unstored, "Refused."};
const FieldMark doubt{MarkKind::doubtful, "In part."};

FieldState showing(std::string_view text) {
    FieldState state;
    state.show(text);
    return state;
}

// Left with a text that the record does not take.
FieldState refusing(std::string_view stored, std::string_view text) {
    FieldState state = showing(stored);
    state.lookAt(text);
    state.setMark(refused);
    return state;
}

TEST(FieldState, WhatTheProgramShowsStandsForWhatIsStored) {
    const FieldState state = showing("1.00");
    EXPECT_EQ(state.accepted(), "1.00");
    EXPECT_TRUE(state.standsForStored("1.00"));
    EXPECT_FALSE(state.isTyped("1.00"));
    EXPECT_TRUE(state.isTyped("1.0"));
    EXPECT_FALSE(state.standsForStored("1.0"));
}

TEST(FieldState, ATextThatWasLookedAtIsTypedNoMore) {
    FieldState state = showing("1.00");
    state.lookAt("2");
    EXPECT_FALSE(state.isTyped("2"));
    EXPECT_TRUE(state.isTyped("1.00"));
    EXPECT_EQ(state.accepted(), "2");
}

TEST(FieldState, OfARefusedTextTheOneBeforeItStandsForWhatIsStored) {
    FieldState state = refusing("1.00", "x");
    EXPECT_FALSE(state.standsForStored("x"));
    EXPECT_FALSE(state.isTyped("x"));
    EXPECT_TRUE(state.standsForStored("1.00"));
    state.lookAt("y"); // refused, too
    state.setMark(refused);
    EXPECT_TRUE(state.standsForStored("1.00"));
    state.lookAt("1.00");
    EXPECT_EQ(state.mark(), FieldMark());
    EXPECT_TRUE(state.standsForStored("1.00"));
}

TEST(FieldState, ADoubtStaysUntilTheDatumIsShownAnew) {
    FieldState state = showing("1.00");
    state.setMark(doubt);
    EXPECT_TRUE(state.isDoubtful());
    EXPECT_TRUE(state.standsForStored("1.00"));
    state.accept("1");
    EXPECT_EQ(state.mark(), doubt);
    state.show("1.00");
    EXPECT_EQ(state.mark(), FieldMark());
}

TEST(FieldState, ATextThatIsHeldIsTypedUntilItIsLookedAt) {
    FieldState state = showing("Dec 2005");
    state.holdAsTyped();
    EXPECT_TRUE(state.isTyped("Dec 2005"));
    EXPECT_TRUE(state.isTyped("Dec 2005\n"));
    EXPECT_FALSE(state.standsForStored("Dec 2005"));
    state.lookAt("Dec 2005");
    EXPECT_FALSE(state.isTyped("Dec 2005"));
    state.setMark(refused); // nothing that can be typed stands for what is stored
    EXPECT_FALSE(state.standsForStored("Dec 2005"));
}

TEST(FieldState, AnotherDatumInTheSameWordsIsTyped) {
    for (FieldState state :
         {showing("Dec 2005"), refusing("Dec 2005", "soon"), refusing("May 2004", "Dec 2005")}) {
        state.replace("Dec 2005");
        EXPECT_TRUE(state.isTyped("Dec 2005"));
        EXPECT_FALSE(state.isUnstored());
    }
}

TEST(FieldState, WhatTakesThePlaceOfARefusedTextIsHeldNoMore) {
    FieldState state = refusing("May 2004", "soon");
    state.holdAsTyped();
    state.replace("Dec 2005");
    EXPECT_TRUE(state.isTyped("Dec 2005"));
    EXPECT_TRUE(state.standsForStored("May 2004"));
}

TEST(FieldState, InPlaceOfARefusedTextTheStoredOneIsStillKnown) {
    FieldState state = refusing("May 2004", "soon");
    state.replace("Dec 2005");
    EXPECT_TRUE(state.isTyped("Dec 2005"));
    EXPECT_TRUE(state.isTyped("soon"));
    EXPECT_TRUE(state.standsForStored("May 2004"));
}

TEST(FieldState, ARefusedTextIsBackOverWhatIsShownAnew) {
    FieldState state = refusing("1.00", "x");
    state.show("3.00");
    state.putBackRefused("x", "3.00", refused);
    EXPECT_TRUE(state.isUnstored());
    EXPECT_FALSE(state.isTyped("x"));
    EXPECT_TRUE(state.standsForStored("3.00"));
    EXPECT_FALSE(state.standsForStored("1.00"));
    state.putBackRefused("x", "x", refused);
    EXPECT_FALSE(state.standsForStored("x"));
}

TEST(FieldState, WhatStoodForADatumOfBeforeIsForgotten) {
    for (const auto& settled : {+[](FieldState& state) { state.show("3.00"); },
                                +[](FieldState& state) { state.replace("3.00"); }}) {
        FieldState state = refusing("1.00", "x");
        settled(state);
        state.setMark(refused);
        EXPECT_FALSE(state.standsForStored("1.00"));
    }
}

TEST(FieldState, IsTheSameInOtherWords) {
    FieldState state = refusing("1.00", "x.5");
    state.rewrite([](std::string text) {
        text[1] = ',';
        return text;
    });
    EXPECT_FALSE(state.isTyped("x,5"));
    EXPECT_TRUE(state.standsForStored("1,00"));
}

TEST(FieldState, TheTagIsTheAcceptedText) {
    Form form;
    auto& field = form.add<TextBox>("txtName");
    field.showStored("A");
    EXPECT_EQ(field.tag(), "A");
    field.setTag("B");
    EXPECT_TRUE(field.isTyped());
    field.takeTypedBack();
    EXPECT_EQ(field.text(), "B");
    EXPECT_FALSE(field.isTyped());
    field.replaceStored(); // the same text, for another datum
    EXPECT_TRUE(field.isTyped());
    field.takeTypedBack();
    EXPECT_FALSE(field.isTyped());
    const Control& control = field;
    EXPECT_EQ(control.tag(), "B");
}

} // namespace
} // namespace vkr
