// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/project_record.h"

#include "tests/unit/project/calculation_fixture.h"

namespace tarvokol {
namespace {

class ProjectRecordTest : public CalculationTest {};

TEST_F(ProjectRecordTest, LabelsFollowTheOpenProject) {
    EXPECT_EQ(UnitLabels(unit_row::UnitWeight), " (pcf)");
    UnitSystem = 1;
    EXPECT_EQ(UnitLabels(unit_row::UnitWeight), " (kN/m3)");
}

TEST_F(ProjectRecordTest, ANewEnglishProjectHoldsTheBuiltInValues) {
    EnterShallowPanel();
    ResetProjectRecord();
    EXPECT_EQ(ProjectRecord.Height, 0.0);
    EXPECT_EQ(ProjectRecord.DepthCover, 0.0);
    EXPECT_EQ(ProjectRecord.HoleWidth, 0.0);
    EXPECT_EQ(ProjectRecord.CrosscutSpacing, 1000000.0);
    EXPECT_EQ(ProjectRecord.CrosscutAngle, 90.0);
    EXPECT_EQ(ProjectRecord.WebThickness, 0.0);
    EXPECT_EQ(ProjectRecord.BarrierPillarWidth, 0.0);
    EXPECT_EQ(ProjectRecord.NumberHoles, 2);
    EXPECT_EQ(ProjectRecord.CoalStrength, 900.0);
    EXPECT_EQ(ProjectRecord.UnitWeight, 162.0);
    EXPECT_EQ(ProjectRecord.AbutmentAngle, 21.0);
    EXPECT_EQ(ProjectRecord.SFWeb, 1.6f);
    EXPECT_EQ(ProjectRecord.SFBarrier, 2.0f);
}

TEST_F(ProjectRecordTest, ANewMetricProjectHoldsTheConvertedFigures) {
    UnitSystem = 1;
    ResetProjectRecord();
    EXPECT_EQ(ProjectRecord.CoalStrength, 900.0 / 145.0377);
    EXPECT_EQ(ProjectRecord.UnitWeight, 162.0 / 6.3663022639200495);
    EXPECT_NEAR(ProjectRecord.CoalStrength, 6.21, 0.005);
    EXPECT_NEAR(ProjectRecord.UnitWeight, 25.45, 0.005);
    EXPECT_EQ(ProjectRecord.CrosscutSpacing, 1000000.0);
}

TEST_F(ProjectRecordTest, ANewProjectTakesTheDefaultsOfTheOptions) {
    OptionsRecord.DefaultAbutment = 25.5f;
    OptionsRecord.DefaultSFWeb = 1.3f;
    OptionsRecord.DefaultSFBarrier = 2.5f;
    ResetProjectRecord();
    EXPECT_EQ(ProjectRecord.AbutmentAngle, 25.5);
    EXPECT_EQ(ProjectRecord.SFWeb, 1.3f);
    EXPECT_EQ(ProjectRecord.SFBarrier, 2.5f);
}

TEST_F(ProjectRecordTest, ANewProjectLeavesTheLastDistanceAndTheSpareSingle) {
    ProjectRecord.CenterDistance.Fill(7.0);
    ProjectRecord.SpareSingle = 3.5f;
    ResetProjectRecord();
    for (int i = 1; i <= 19; ++i) EXPECT_EQ(ProjectRecord.CenterDistance[i], 0.0) << i;
    EXPECT_EQ(ProjectRecord.CenterDistance[20], 7.0);
    EXPECT_EQ(ProjectRecord.SpareSingle, 3.5f);
}

TEST_F(ProjectRecordTest, CenterDistancesAddTheHoleToEachPillar) {
    EnterShallowPanel();
    ProjectRecord.CenterDistance.Fill(-1.0);
    BuildCenterDistances(ProjectRecord);
    EXPECT_EQ(ProjectRecord.CenterDistance[1], 30.0);
    for (int i = 2; i <= 5; ++i) EXPECT_EQ(ProjectRecord.CenterDistance[i], 20.0) << i;
    EXPECT_EQ(ProjectRecord.CenterDistance[6], -1.0);
}

}  // namespace
}  // namespace tarvokol
