// SPDX-License-Identifier: GPL-3.0-or-later
// Probabilities of designs side by side, against one that is worked out by hand.
#include "studies/model/design_risk.h"

#include <gmock/gmock.h>

#include "studies/model/design_board.h"
#include "tests/support/worked_panel.h"

namespace tarvokol {
namespace {

using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::StartsWith;

RiskPlan NormalSamples() {
    return {{{PanelField::CoalStrength, "normal:100%:15%"}}, 20000};
}

Panel DeepPanel() {
    Panel deep = WorkedPanel();
    deep.DepthCover = 300;
    return deep;
}

// At 300 ft the factor of the webs is 1.5733309 times the strength's share of its mean: below 1.6 where that share lies below
// 1.016950, 0.1130 standard deviations above the mean, in 0.54498 of all cases.
TEST(DesignRisks, TellEachDesignsOwnProbabilities) {
    StudyObserver nobody;
    const auto risks = CalculateDesignRisks(NormalSamples(), {WorkedPanel(), DeepPanel()}, 2, nobody);
    ASSERT_TRUE(risks);
    ASSERT_EQ(risks->size(), 2U);
    EXPECT_THAT((*risks)[0].below[0], StartsWith("less than "));
    EXPECT_THAT((*risks)[1].below[0], ContainsRegex("^0\\.54(5|495) \\(0\\.54"));
    EXPECT_EQ((*risks)[1].fault, "");
}

TEST(DesignRisks, SayWhyThereAreNone) {
    StudyObserver nobody;
    EXPECT_EQ((*CalculateDesignRisks({{}}, {WorkedPanel()}, 1, nobody))[0].fault,
              "no figure is uncertain: add a field on the page Risk");
    Panel flat = WorkedPanel();
    flat.Height = 0;
    EXPECT_EQ((*CalculateDesignRisks(NormalSamples(), {flat}, 1, nobody))[0].fault,
              "every sample is refused");
}

TEST(DesignRisks, EndWithTheObserver) {
    class Ender : public StudyObserver {
      public:
        bool Progress(std::uint64_t /*done*/, std::optional<std::uint64_t> /*total*/) override {
            return false;
        }
    } ender;
    EXPECT_FALSE(CalculateDesignRisks(NormalSamples(), {WorkedPanel()}, 2, ender));
}

TEST(DesignRisks, StandBesideTheFiguresUntilTheyAreForgotten) {
    StudyObserver nobody;
    DesignBoard board;
    board.Keep("shallow", WorkedPanel());
    board.Keep("deep", DeepPanel());
    const std::size_t without = board.Lines().size();
    board.TakeRisks(*CalculateDesignRisks(NormalSamples(), {WorkedPanel(), DeepPanel()}, 1, nobody));
    const auto lines = board.Lines();
    ASSERT_EQ(lines.size(), without + 3);
    EXPECT_EQ(lines[17].title, "Probability of webs below their target");
    EXPECT_EQ(lines[19].title, "Probability of webs or barrier (or both) below");
    EXPECT_TRUE(lines[17].differs[1]);
    EXPECT_THAT(board.Csv(), HasSubstr("Probability of webs below their target,less than "));
    board.ForgetRisks();
    EXPECT_EQ(board.Lines().size(), without);
}

}  // namespace
}  // namespace tarvokol
