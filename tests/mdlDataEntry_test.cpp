// SPDX-License-Identifier: MIT
#include "input/mdlDataEntry.hpp"
#include "platform/form.hpp"
#include "tests/support/failing_memory.hpp"

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <utility>

namespace vkr {
namespace {

const NumberMarks points{'.', ","};
const NumberMarks commas{',', "."};

// A field whose figure can't be read from the record anew.
struct UnreadFigure {
    Form form;
    TextBox& field = form.add<TextBox>("txtFigure");

    explicit UnreadFigure(std::string_view stored) { field.showStored(stored); }
    void type(std::string_view text) { form.userEdit(field, text, 0, 0); }
    void showPrices(bool asDecimals) {
        followPriceDisplay(asDecimals, field, [] { return false; });
    }
    void showCommas() {
        form.setNumberMarks(commas);
        followNumberMarks(points, field, [] { return false; });
    }
};

TEST(CheckFieldChange, HidesTheHelpFrameAndMarksWhatWasChanged) {
    struct Host final : FieldHost {
        void hideHelpFrame() override { ++hidden; }
        void markChanged() override { ++marked; }
        int hidden = 0;
        int marked = 0;
    } host;
    Form form;
    auto& field = form.add<TextBox>("txtFigure");
    field.showStored("1.00");
    EXPECT_FALSE(checkFieldChange(field, host));
    EXPECT_EQ(std::pair(host.hidden, host.marked), std::pair(1, 0));
    form.userEdit(field, "2", 0, 0);
    EXPECT_TRUE(checkFieldChange(field, host));
    EXPECT_EQ(field.tag(), "2");
    EXPECT_FALSE(checkFieldChange(field, host)) << "it is the accepted text by now";
    EXPECT_EQ(std::pair(host.hidden, host.marked), std::pair(3, 1));
}

TEST(FollowPriceDisplay, TriesOnceMoreWhereMemoryRanOut) {
    bool failed = true;
    for (int nth = 1; failed; ++nth) {
        UnreadFigure price("3.125");
        {
            const FailingMemory memory(nth);
            price.showPrices(false);
            failed = memory.hasFailed();
        }
        EXPECT_EQ(price.field.text(), "3 1/8") << nth;
        EXPECT_TRUE(price.field.standsForStored()) << nth;
    }
}

TEST(FollowPriceDisplay, RewritesWhatStandsThereWhereNothingCanBeReadAnew) {
    UnreadFigure price("3.125");
    price.showPrices(false);
    EXPECT_EQ(price.field.text(), "3 1/8");
    EXPECT_TRUE(price.field.standsForStored());
    price.type("7.25");
    price.showPrices(false);
    EXPECT_EQ(price.field.text(), "7 1/4");
    EXPECT_TRUE(price.field.isTyped());
    price.showPrices(true);
    EXPECT_EQ(price.field.text(), "7.25");
    price.type("3 1/");
    price.showPrices(true);
    EXPECT_EQ(price.field.text(), "3 1/") << "no price yet";
    EXPECT_TRUE(price.field.isTyped());
}

TEST(FollowNumberMarks, RewritesWhatStandsThereWhereNothingCanBeReadAnew) {
    UnreadFigure stored("1,234.5");
    stored.showCommas();
    EXPECT_EQ(stored.field.text(), "1.234,5");
    EXPECT_TRUE(stored.field.standsForStored());
    UnreadFigure typed("1.5");
    typed.type("2.5");
    typed.showCommas();
    EXPECT_EQ(typed.field.text(), "2,5");
    EXPECT_EQ(typed.field.tag(), "1,5");
    EXPECT_EQ(typed.field.entryText(), "1,5");
    EXPECT_TRUE(typed.field.isTyped());
}

TEST(FollowNumberMarks, ARefusedTextStaysRefusedAndIsNotTypedAnew) {
    UnreadFigure refused("5");
    TextField& field = refused.field;
    refused.type("1.5x");
    field.lookAtText();
    field.setMark({MarkKind::unstored, "no figure"});
    refused.form.setNumberMarks(commas);
    followNumberMarks(points, field, [&] {
        field.showStored("5");
        return true;
    });
    EXPECT_EQ(field.text(), "1,5x");
    EXPECT_EQ(field.mark(), (FieldMark{MarkKind::unstored, "no figure"}));
    EXPECT_FALSE(field.isTyped());
    EXPECT_TRUE(field.state().standsForStored("5"));
}

TEST(FollowNumberMarks, WhereMemoryRunsOutNoTextStaysInOtherMarksWithoutAMark) {
    const std::string digits(60, '1'); // no string keeps them without memory
    using Fails = FailingMemory::Fails;
    for (const auto& [isTyped, fails] :
         {std::pair(true, Fails::once), std::pair(false, Fails::once),
          std::pair(true, Fails::fromThenOn), std::pair(false, Fails::fromThenOn)}) {
        bool failed = true;
        for (int nth = 1; failed; ++nth) {
            SCOPED_TRACE(std::to_string(nth));
            UnreadFigure figure(isTyped ? "1" : digits + ".5");
            if (isTyped)
                figure.type(digits + ".5");
            {
                const FailingMemory memory(nth, fails);
                figure.showCommas();
                failed = memory.hasFailed();
            }
            const TextField& field = figure.field;
            EXPECT_TRUE(field.text() == digits + ",5" ||
                        (isTyped ? field.isUnstored() : field.text().empty()))
                << field.text();
            EXPECT_TRUE(isTyped || !field.isUnstored());
        }
    }
}

} // namespace
} // namespace vkr
