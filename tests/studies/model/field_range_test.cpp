// SPDX-License-Identifier: GPL-3.0-or-later
// Ranges of sliders and the round values in them.
#include "studies/model/field_range.h"

#include <gtest/gtest.h>

namespace tarvokol {
namespace {

TEST(FieldRange, ANewProjectsFieldsStartAtACommonPanel) {
    EXPECT_EQ(ProposedRange(PanelField::DepthCover, 0, Units::English), (FieldRange{150, 450}));
    EXPECT_EQ(ProposedRange(PanelField::DepthCover, 0, Units::Metric), (FieldRange{45, 135}));
    EXPECT_EQ(ProposedRange(PanelField::Height, -3, Units::English), (FieldRange{5, 15}));
}

TEST(FieldRange, HolesAndAnglesStayWithinTheirBounds) {
    EXPECT_EQ(ProposedRange(PanelField::NumberHoles, 18, Units::English), (FieldRange{9, 20}));
    EXPECT_EQ(ProposedRange(PanelField::NumberHoles, 1, Units::English), (FieldRange{1, 2}));
    EXPECT_EQ(ProposedRange(PanelField::NumberHoles, 30, Units::English), (FieldRange{15, 20}));
    EXPECT_EQ(ProposedRange(PanelField::AbutmentAngle, 80, Units::English), (FieldRange{40, 90}));
}

TEST(FieldRange, ValuesOfASliderAreRound) {
    const FieldScale scale(PanelField::WebThickness, {1.625, 4.875});
    EXPECT_EQ(scale.Value(scale.First()), 1.63);
    EXPECT_EQ(scale.Value(scale.First() + 1), 1.64);
    EXPECT_EQ(scale.Value(scale.Last()), 4.87);
    EXPECT_EQ(scale.Value(scale.Nearest(3.2512)), 3.25);
    EXPECT_EQ(scale.Value(scale.Nearest(-7)), 1.63);
    EXPECT_EQ(scale.Value(scale.Nearest(1e300)), 4.87);
}

TEST(FieldRange, EndsThatAreRoundBelongToTheScale) {
    const FieldScale depth(PanelField::DepthCover, {50, 150});
    EXPECT_EQ(depth.Value(depth.First()), 50);
    EXPECT_EQ(depth.Value(depth.First() + 1), 50.2);
    EXPECT_EQ(depth.Value(depth.Last()), 150);
    const FieldScale holes(PanelField::NumberHoles, {2, 8});
    EXPECT_EQ(holes.First(), 2);
    EXPECT_EQ(holes.Last(), 8);
    EXPECT_EQ(holes.Value(3), 3);
}

TEST(FieldRange, LargeAndSmallRangesHaveTheirSteps) {
    const FieldScale large(PanelField::CoalStrength, {0, 1e9});
    EXPECT_EQ(large.Value(1), 2e6);
    const FieldScale small(PanelField::CoalStrength, {0, 1e-9});
    EXPECT_EQ(small.Value(1), 2e-12);
}

}  // namespace
}  // namespace tarvokol
