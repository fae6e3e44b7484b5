// SPDX-License-Identifier: GPL-3.0-or-later
// Which figure is named where a calculation has no room for a panel's.
#include "core/project/figure_range.h"

#include <gmock/gmock.h>

#include "core/runtime/run_time_error.h"
#include "tests/support/core_fixture.h"
#include "tests/support/refused_figures.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FigureRange : public CoreTest {
  protected:
    FigureRange() {
        panel_.Height = 10;
        panel_.DepthCover = 300;
        panel_.CrosscutSpacing = 1e6;
        panel_.UnitWeight = 162;
        panel_.SFWeb = 1.6f;
        panel_.NumberHoles = 5;
    }

    PanelInputs panel_;
};

TEST_F(FigureRange, WorkThatIsDoneSaysNothing) {
    panel_.Height = 1e300;
    bool done = false;
    EXPECT_TRUE(DoneWithinRange(panel_, [&] { done = true; }));
    EXPECT_TRUE(done);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(FigureRange, NamesTheFigureFarthestFromOne) {
    panel_.Height = 1e39;
    panel_.UnitWeight = 5e-324;
    EXPECT_FALSE(DoneWithinRange(panel_, [] { Raise(error_number::Overflow); }));
    panel_.UnitWeight = 162;
    EXPECT_FALSE(DoneWithinRange(panel_, [] { Raise(error_number::DivisionByZero); }));
    panel_.Height = 10;
    panel_.SFWeb = -3e38f;
    EXPECT_FALSE(DoneWithinRange(panel_, [] { Raise(error_number::InvalidCall); }));
    EXPECT_THAT(Messages(), ElementsAre("Invalid unit weight", "Invalid entry height",
                                        "Invalid Stability Factor for webs"));
}

TEST_F(FigureRange, EveryFigureHasItsWords) {
    const auto words_for = [this](const PanelInputs& panel) {
        Host.Messages.Shown.clear();
        DoneWithinRange(panel, [] { Raise(error_number::Overflow); });
        return Messages();
    };
    for (const RefusedFigure& refused : kRefusedFigures) {
        PanelInputs panel = panel_;
        panel.*refused.figure = 1e300;
        EXPECT_THAT(words_for(panel), ElementsAre(refused.words));
    }
    panel_.SFBarrier = 1e-38f;
    EXPECT_THAT(words_for(panel_), ElementsAre("Invalid Stability Factor for barriers"));
}

TEST_F(FigureRange, MoreHolesThanPlacesAreRefusedBeforeTheWork) {
    panel_.NumberHoles = 21;
    bool done = false;
    EXPECT_FALSE(DoneWithinRange(panel_, [&] { done = true; }));
    EXPECT_FALSE(done);
    EXPECT_THAT(Messages(), ElementsAre("Invalid number of Holes: 21. A panel has 1 to 20 holes."));
    panel_.NumberHoles = 20;
    EXPECT_TRUE(DoneWithinRange(panel_, [&] { done = true; }));
    EXPECT_TRUE(done);
}

TEST_F(FigureRange, FewerHolesThanOneAreRefusedWhereAPillarIsAskedFor) {
    panel_.NumberHoles = -2;
    EXPECT_TRUE(DoneWithinRange(panel_, [] {}));
    EXPECT_FALSE(DoneWithinRange(panel_, [] { Raise(error_number::SubscriptOutOfRange); }));
    EXPECT_THAT(Messages(), ElementsAre("Invalid number of Holes: -2. A panel has 1 to 20 holes."));
}

TEST_F(FigureRange, OtherErrorsAndThoseOfOrdinaryFiguresRise) {
    EXPECT_EQ(RaisedError([this] { DoneWithinRange(panel_, [] { Raise(error_number::DivisionByZero); }); }),
              11);
    panel_.Height = 1e39;
    EXPECT_EQ(
        RaisedError([this] { DoneWithinRange(panel_, [] { Raise(error_number::SubscriptOutOfRange); }); }),
        9);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(FigureRange, BeginsAMillionMillionTimesAwayFromOne) {
    panel_.CrosscutSpacing = 1;
    const auto told = [this](double height) {
        panel_.Height = height;
        return RaisedError([this] { DoneWithinRange(panel_, [] { Raise(error_number::Overflow); }); }) == 0;
    };
    EXPECT_TRUE(told(1e12));
    EXPECT_FALSE(told(9.9e11));
    EXPECT_TRUE(told(-1e-12));
    EXPECT_FALSE(told(1.1e-12));
}

}  // namespace
}  // namespace tarvokol
