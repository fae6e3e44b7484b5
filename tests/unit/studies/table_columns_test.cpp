// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/table_columns.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvokol {
namespace {

constexpr Units kEnglish = Units::English;
constexpr Units kMetric = Units::Metric;

// The name of the field, "-" for a column that is carried along, or why it is refused.
std::string Meaning(const std::string& title, Units units = kEnglish) {
    const ColumnMeaning meaning = MeaningOfColumn(title, units);
    if (!meaning.refusal.empty()) {
        EXPECT_FALSE(meaning.field.has_value());
        return meaning.refusal;
    }
    return meaning.field ? NameOfField(*meaning.field) : "-";
}

std::string Meant(const std::string& field) {
    return "no field of a project; did you mean " + field +
           "? A column to be carried along needs another name";
}

TEST(TableColumns, AFieldGoesByItsNameInAnyCaseWithOrWithoutItsUnit) {
    EXPECT_EQ(Meaning("DepthCover"), "DepthCover");
    EXPECT_EQ(Meaning("depthcover"), "DepthCover");
    EXPECT_EQ(Meaning("DepthCover (ft)"), "DepthCover");
    EXPECT_EQ(Meaning("DEPTHCOVER(FT)"), "DepthCover");
    EXPECT_EQ(Meaning("DepthCover (m)", kMetric), "DepthCover");
    EXPECT_EQ(Meaning("CoalStrength (psi)"), "CoalStrength");
    EXPECT_EQ(Meaning("CoalStrength (MPa)", kMetric), "CoalStrength");
    EXPECT_EQ(Meaning("UnitWeight (kN/m3)", kMetric), "UnitWeight");
    EXPECT_EQ(Meaning("AbutmentAngle (degrees)", kMetric), "AbutmentAngle");
    EXPECT_EQ(Meaning("NumberHoles"), "NumberHoles");
}

TEST(TableColumns, AnotherUnitIsRefused) {
    EXPECT_EQ(Meaning("Height (m)"), "Height is in ft in this project");
    EXPECT_EQ(Meaning("Height (ft)", kMetric), "Height is in m in this project");
    EXPECT_EQ(Meaning("WebThickness (in)"), "WebThickness is in ft in this project");
    EXPECT_EQ(Meaning("NumberHoles (ft)"), "NumberHoles has no unit");
    EXPECT_EQ(Meaning("SFWeb (percent)"), "SFWeb has no unit");
}

TEST(TableColumns, WhatIsNearlyAFieldIsRefusedWithItsName) {
    EXPECT_EQ(Meaning("CoalStrenght"), Meant("CoalStrength"));
    EXPECT_EQ(Meaning("Heigth"), Meant("Height"));
    EXPECT_EQ(Meaning("Depth"), Meant("DepthCover"));
    EXPECT_EQ(Meaning("Depth (ft)"), Meant("DepthCover"));
    EXPECT_EQ(Meaning("depth_cover"), Meant("DepthCover"));
    EXPECT_EQ(Meaning("Depth of cover"), Meant("DepthCover"));
    EXPECT_EQ(Meaning("Coal strength"), Meant("CoalStrength"));
    EXPECT_EQ(Meaning("Web thickness (ft)"), Meant("WebThickness"));
    EXPECT_EQ(Meaning("SF web"), Meant("SFWeb"));
    EXPECT_EQ(Meaning("Hole widht"), Meant("HoleWidth"));
    EXPECT_EQ(Meaning("Number"), Meant("NumberHoles"));
}

TEST(TableColumns, OtherColumnsAreCarriedAlong) {
    for (const char* title : {"Borehole",
                              "Hole",
                              "Station",
                              "Note",
                              "Name",
                              "ok",
                              "file",
                              "messages",
                              "units",
                              "schema",
                              "row",
                              "",
                              "Seam",
                              "X",
                              "Easting (ft)",
                              "Cut",
                              "Date",
                              "Right",
                              "Bench height at crest",
                              "(ft)"})
        EXPECT_EQ(Meaning(title), "-") << title;
    EXPECT_EQ(Meaning(std::string(100000, 'H')), "-");
}

TEST(TableColumns, OurOwnFiguresMayComeBack) {
    for (const char* title : {"Overall", "WebsOnly", "BarrierPillar", "ExtractionRatio (percent)",
                              "SuggestedWeb (in)", "SuggestedBarrier (in)", "Message", "Overall 2"})
        EXPECT_EQ(Meaning(title), "-") << title;
}

}  // namespace
}  // namespace tarvokol
