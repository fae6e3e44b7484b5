// SPDX-License-Identifier: GPL-3.0-or-later
// Which figure is named where a calculation has no room for a panel's.
#include "core/project/figure_range.h"

#include <gmock/gmock.h>

#include "core/runtime/run_time_error.h"
#include "tests/support/core_fixture.h"

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

TEST_F(FigureRange, OtherErrorsAndThoseOfOrdinaryFiguresRise) {
    EXPECT_EQ(RaisedError([this] { DoneWithinRange(panel_, [] { Raise(error_number::DivisionByZero); }); }),
              11);
    panel_.Height = 1e39;
    EXPECT_EQ(
        RaisedError([this] { DoneWithinRange(panel_, [] { Raise(error_number::SubscriptOutOfRange); }); }),
        9);
    EXPECT_THAT(Messages(), IsEmpty());
}

}  // namespace
}  // namespace tarvokol
