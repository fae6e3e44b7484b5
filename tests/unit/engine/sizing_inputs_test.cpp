// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/engine/sizing_inputs.h"

#include <gtest/gtest.h>

namespace tarvokol {
namespace {

TEST(SizingInputs, TheStartIsInInchesInEnglishAndTheBareDepthInMetric) {
    EXPECT_EQ(SizingStart(Units::English, 100), 1200.0f);
    EXPECT_EQ(SizingStart(Units::Metric, 100), 100.0f);
}

TEST(SizingInputs, LengthsAreInchesInBothSystems) {
    EXPECT_EQ(SizingInches(Units::English, 10), 120.0f);
    EXPECT_EQ(SizingInches(Units::Metric, 0.3048), 12.0f);
}

TEST(SizingInputs, AWidthIsShownInFeetInEnglishAndInInchesInMetric) {
    EXPECT_EQ(ShownWidth(Units::English, 39.0f), 3.25);
    EXPECT_EQ(ShownWidth(Units::Metric, 39.0f), 39.0);
}

TEST(SizingInputs, TheSpanHasOneWebMoreThanThePanel) {
    SizingParameters block;
    block.SizeHoleWidth = 120;
    EXPECT_EQ(SizingSpan(5, block, 60), 900.0f);
}

}  // namespace
}  // namespace tarvokol
