// SPDX-License-Identifier: GPL-3.0-or-later
// Which figures the dialog of the options takes and which it refuses.
#include "tests/gui/settings/options_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

class OptionRanges : public OptionsFixture {};

TEST_F(OptionRanges, RefusesAnAbutmentAngleOutOfRange) {
    ExpectRefused(Submit({{"txtDefaultAbutment", "90.5"}}),
                  "Value '90.5' is outside input range\r\nValid range is: 0-90", 16, kRangeTitle,
                  "txtDefaultAbutment", 0);
    EXPECT_THAT(History(),
                HasSubstr("2. Program Options: Range Error: Value '90.5' is outside input range\r\n"));
}

TEST_F(OptionRanges, RefusesAWebFactorAboveSix) {
    ExpectRefused(Submit({{"txtDefaultSFWeb", " 6.1 "}}),
                  "Value '6.1' is outside input range\r\nValid range is: 0-6", 16, kRangeTitle,
                  "txtDefaultSFWeb", 0);
}

TEST_F(OptionRanges, RefusesABarrierFactorAboveTen) {
    ExpectRefused(Submit({{"txtDefaultSFBarrier", "10.1"}}),
                  "Value '10.1' is outside input range\r\nValid range is: 0-10", 16, kRangeTitle,
                  "txtDefaultSFBarrier", 0);
}

TEST_F(OptionRanges, RefusesABlankMinimum) {
    ExpectRefused(Submit({{"Text1", " "}}), "Blank field not allowed", 16, kRangeTitle, "Text1", 2);
}

TEST_F(OptionRanges, RefusesAMinimumOutOfRangeAlsoWhenAnotherTabShows) {
    frmTARVOOpts& form = Open();
    ShowTab(form, 2);
    Type(form, "Text1", "-1");
    ShowTab(form, 1);
    Click(form, "Command2");
    ExpectRefused(form, "Value '-1' is outside input range\r\nValid range is: 0-100", 16, kRangeTitle,
                  "Text1", 2);
}

TEST_F(OptionRanges, RefusesAMaximumOutOfRange) {
    ExpectRefused(Submit({{"Text2", "101"}}), "Value '101' is outside input range\r\nValid range is: 0-100",
                  16, kRangeTitle, "Text2", 2);
}

TEST_F(OptionRanges, TheRangesAreTestedInTheirOrder) {
    ExpectRefused(
        Submit({{"Text1", "x"}, {"Text2", ""}, {"txtDefaultSFBarrier", ""}, {"txtDefaultSFWeb", ""}}),
        "Blank field not allowed", 16, kRangeTitle, "txtDefaultSFWeb", 0);
}

TEST_F(OptionRanges, RefusesAMinimumEqualToTheMaximum) {
    ExpectRefused(Submit({{"Text1", "100"}}),
                  "Invalid range for parametric graphs. Min Value should be < Max Value", 0,
                  kApplicationTitle, "Text1", 2);
    EXPECT_THAT(History(), HasSubstr("2. Message: Invalid range for parametric graphs. "
                                     "Min Value should be < Max Value\r\n"));
    EXPECT_EQ(RangeErrorTitle, kRangeTitle);
}

TEST_F(OptionRanges, RefusesAMinimumAboveTheMaximum) {
    ExpectRefused(Submit({{"Text1", "60"}, {"Text2", "40"}}),
                  "Invalid range for parametric graphs. Min Value should be < Max Value", 0,
                  kApplicationTitle, "Text1", 2);
}

TEST_F(OptionRanges, TestsTheWebFactorTwiceAndShowsTheOutputTab) {
    frmTARVOOpts& form = Submit({{"txtDefaultSFWeb", "0.5"}});
    ExpectRefused(form, "Invalid range for Default SF for webs (>=1)", 0, kApplicationTitle,
                  "txtDefaultSFWeb", 2);
}

TEST_F(OptionRanges, TestsTheBarrierFactorTwiceAndShowsTheOutputTab) {
    frmTARVOOpts& form = Submit({{"txtDefaultSFBarrier", "0.99"}});
    ExpectRefused(form, "Invalid range for Default SF for barriers (>=1)", 0, kApplicationTitle,
                  "txtDefaultSFBarrier", 2);
}

TEST_F(OptionRanges, ARefusedValueCanBeMended) {
    frmTARVOOpts& form = Submit({{"txtDefaultSFWeb", "0.5"}});
    ShowTab(form, 0);
    Type(form, "txtDefaultSFWeb", "1");
    Click(form, "Command2");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(OptionsRecord.DefaultSFWeb, 1.0f);
}

TEST_F(OptionRanges, TheBoundsThemselvesAreAccepted) {
    Submit({{"txtDefaultAbutment", "90"},
            {"txtDefaultSFWeb", "6"},
            {"txtDefaultSFBarrier", "1"},
            {"Text1", "0"},
            {"Text2", "100"}});
    EXPECT_TRUE(Closed());
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(OptionsRecord.DefaultAbutment, 90.0f);
}

}  // namespace
}  // namespace tarvokol
