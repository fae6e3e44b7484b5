// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/value_axis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/statistics/study_refusal.h"
#include "tests/support/study_requests.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::vector<double> ValuesOf(const char* text) {
    const ValueAxis axis = AxisOf(text);
    std::vector<double> values;
    for (std::uint64_t i = 0; i < axis.Count(); ++i) values.push_back(axis[i]);
    return values;
}

std::string RefusalOf(const char* text) {
    try {
        AxisOf(text);
    } catch (const StudyRefusal& refusal) {
        return refusal.what();
    }
    return "not refused";
}

TEST(ValueAxis, CountsStepsFromTheFirstValueUpToTheLast) {
    EXPECT_THAT(ValuesOf("DepthCover=100:300:50"), ElementsAre(100, 150, 200, 250, 300));
    EXPECT_THAT(ValuesOf("DepthCover=100:299:50"), ElementsAre(100, 150, 200, 250));
    EXPECT_THAT(ValuesOf("DepthCover=7:7:1"), ElementsAre(7));
    EXPECT_THAT(ValuesOf("DepthCover=300:100:-100"), ElementsAre(300, 200, 100));
}

// 0.1 added ten times is 0.9999999999999999; ten counted steps end on 1.
TEST(ValueAxis, RoundingOfStepsDoesNotAddUp) {
    const auto values = ValuesOf("Height=0:1:0.1");
    ASSERT_EQ(values.size(), 11u);
    EXPECT_EQ(values[3], 0.3);  // and not 3 x 0.1
    EXPECT_EQ(values[10], 1.0);
}

TEST(ValueAxis, TakesALastValueThatIsHitWithinHalfAMillionthOfAStep) {
    EXPECT_EQ(ValuesOf("Height=0:1.9999996:1").size(), 3u);
    EXPECT_EQ(ValuesOf("Height=0:1.999999:1").size(), 2u);
    EXPECT_EQ(ValuesOf("Height=0:2.0000001:1").size(), 3u);
    EXPECT_EQ(ValuesOf("Height=5:4.9999996:1").size(), 1u);
}

// Each value is the double next to the decimal that first value, step and count say.
TEST(ValueAxis, ValuesOfARangeAreDecimals) {
    EXPECT_THAT(ValuesOf("Height=0.1:1:0.1"), ElementsAre(0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9, 1));
    EXPECT_THAT(ValuesOf("Height=1.1:1.5:+1e-1"), ElementsAre(1.1, 1.2, 1.3, 1.4, 1.5));
    EXPECT_THAT(ValuesOf("Height=1:-.2:-.3"), ElementsAre(1, 0.7, 0.4, 0.1, -0.2));
    EXPECT_THAT(ValuesOf("Height=0.1:0.7/7"), ElementsAre(0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7));
    EXPECT_THAT(ValuesOf("Height=0:1/4"), ElementsAre(0, 1.0 / 3, 2.0 / 3, 1));
    EXPECT_THAT(ValuesOf("Height=2e3:2.2e3:1e2"), ElementsAre(2000, 2100, 2200));
    EXPECT_THAT(ValuesOf("Height=1e300:3e300:1e300"), ElementsAre(1e300, 2e300, 1e300 + 2 * 1e300));
    EXPECT_THAT(ValuesOf("Height=0.1234567890123456789:1:0.5"),
                ElementsAre(0.12345678901234568, 0.62345678901234568));
}

TEST(ValueAxis, FactorsFitASingle) {
    EXPECT_EQ(RefusalOf("SFWeb=1e38:1e39/3"), "SFWeb: a value cannot be stored in this field");
    EXPECT_EQ(RefusalOf("SFBarrier=1,1e39"), "SFBarrier: a value cannot be stored in this field");
    EXPECT_EQ(ValuesOf("SFWeb=1e38:3e38/3").size(), 3u);
}

TEST(ValueAxis, SpreadsACountOfValuesEvenly) {
    EXPECT_THAT(ValuesOf("WebThickness=2:4/5"), ElementsAre(2, 2.5, 3, 3.5, 4));
    EXPECT_THAT(ValuesOf("WebThickness=4:2/3"), ElementsAre(4, 3, 2));
    EXPECT_THAT(ValuesOf("WebThickness=2:4/1"), ElementsAre(2));
}

TEST(ValueAxis, TakesAListInItsOrder) {
    EXPECT_THAT(ValuesOf("NumberHoles=5,20,10"), ElementsAre(5, 20, 10));
    EXPECT_THAT(ValuesOf("SFWeb=1.3"), ElementsAre(1.3));
    EXPECT_THAT(ValuesOf("sfweb=-1.5e1,+2"), ElementsAre(-15, 2));
}

TEST(ValueAxis, ListsTheKnownFieldsForAnUnknownOne) {
    EXPECT_EQ(RefusalOf("Depth=1"),
              "unknown field \"Depth\"; the fields are Height, DepthCover, HoleWidth, WebThickness, "
              "BarrierPillarWidth, NumberHoles, CoalStrength, UnitWeight, AbutmentAngle, SFWeb, SFBarrier");
}

TEST(ValueAxis, RefusesRangesThatLeadNowhere) {
    EXPECT_THAT(RefusalOf("Height=3:1:0.5"), HasSubstr("never arrives"));
    EXPECT_THAT(RefusalOf("Height=1:3:-0.5"), HasSubstr("never arrives"));
    EXPECT_THAT(RefusalOf("Height=1:3:0"), HasSubstr("a step of 0"));
    EXPECT_THAT(RefusalOf("Height=1:3/0"), HasSubstr("is not a count"));
    EXPECT_THAT(RefusalOf("Height=1:3/2.5"), HasSubstr("is not a count"));
    EXPECT_THAT(RefusalOf("Height=1:3"), HasSubstr("no step"));
    EXPECT_THAT(RefusalOf("Height="), HasSubstr("no values"));
    EXPECT_THAT(RefusalOf("Height=0:1e300:1e-300"), HasSubstr("too many steps"));
}

TEST(ValueAxis, ANumberIsOneToItsLastCharacter) {
    for (const char* text :
         {"Height=1,2x", "Height=1;5", "Height= 1", "Height=1:2:0,5", "Height=0x10", "Height=inf",
          "Height=nan", "Height=1e999", "Height=--1", "Height=+-1", "Height=1,,2",
          "Height=1."
          "5.2"})
        EXPECT_THAT(RefusalOf(text), HasSubstr("is not a number with a decimal point")) << text;
}

TEST(ValueAxis, HolesAreWhole) {
    EXPECT_THAT(ValuesOf("NumberHoles=2:20:6"), ElementsAre(2, 8, 14, 20));
    for (const char* text :
         {"NumberHoles=2.5", "NumberHoles=2:3:0.5", "NumberHoles=1.5:3.5:1", "NumberHoles=40000"})
        EXPECT_EQ(RefusalOf(text), "NumberHoles: the number of holes must be a whole number") << text;
}

TEST(ValueAxis, RefusesInItsWords) {
    const std::string forms = "write FIRST:LAST:STEP, FIRST:LAST/COUNT or V1,V2,V3";
    EXPECT_EQ(RefusalOf("height="), "Height: no values; " + forms);
    EXPECT_EQ(RefusalOf("Height=1:3"), "Height: \"1:3\" has no step; " + forms);
    EXPECT_EQ(RefusalOf("Height=1:3:0"), "Height: a step of 0 never arrives; give one other than 0");
    EXPECT_EQ(RefusalOf("Height=3:1:0.5"),
              "Height: 3 to 1 by steps of 0.5 never arrives; turn the range or the sign of the step");
    EXPECT_EQ(RefusalOf("Height=0:1e300:1e-300"), "Height: too many steps; give a larger step");
    EXPECT_EQ(RefusalOf("Height=1:3/2.5"), "Height: \"2.5\" is not a count of 1 or more");
    EXPECT_EQ(RefusalOf("Height=1:3/0.5"), "Height: \"0.5\" is not a count of 1 or more");
    EXPECT_EQ(RefusalOf("Height=-1e308:1e308/3"), "Height: the range is too wide");
    EXPECT_EQ(RefusalOf("Height=1,x"), "Height: \"x\" is not a number with a decimal point");
}

TEST(ValueAxis, CountsUpToNineThousandMillionMillions) {
    EXPECT_EQ(AxisOf("Height=1:2/9000000000000000").Count(), 9000000000000000u);
    EXPECT_EQ(RefusalOf("Height=1:2/9000000000000001"),
              "Height: \"9000000000000001\" is not a count of 1 or more");
    EXPECT_EQ(AxisOf("Height=0:8999999999999998:1").Count(), 8999999999999999u);
    EXPECT_EQ(RefusalOf("Height=0:9000000000000000:1"), "Height: too many steps; give a larger step");
}

TEST(ValueAxis, ALastValueIsTakenWithinHalfAMillionthOfItsStep) {
    EXPECT_EQ(ValuesOf("Height=0:1.99999951:1").size(), 3u);
    EXPECT_EQ(ValuesOf("Height=0:1.99999949:1").size(), 2u);
    EXPECT_EQ(ValuesOf("Height=5:4.99999951:1").size(), 1u);
    EXPECT_THAT(RefusalOf("Height=5:4.99999949:1"), HasSubstr("never arrives"));
}

TEST(ValueAxis, HolesFitTheirType) {
    EXPECT_THAT(ValuesOf("NumberHoles=-32767,32767"), ElementsAre(-32767, 32767));
    EXPECT_EQ(ValuesOf("NumberHoles=32766:32767:1").size(), 2u);
    EXPECT_THAT(ValuesOf("NumberHoles=3:3.7/1"), ElementsAre(3));
    EXPECT_THAT(ValuesOf("NumberHoles=3:7/3"), ElementsAre(3, 5, 7));
    for (const char* text : {"NumberHoles=32768", "NumberHoles=-32768", "NumberHoles=32766:32768:1",
                             "NumberHoles=5,2.5,6", "NumberHoles=3:6/3", "NumberHoles=2.5:6.5/2"})
        EXPECT_EQ(RefusalOf(text), "NumberHoles: the number of holes must be a whole number") << text;
    EXPECT_THAT(ValuesOf("SFWeb=40000,2.5"), ElementsAre(40000, 2.5));
}

TEST(ValueAxis, KnowsItsField) {
    EXPECT_EQ(AxisOf("coalstrength=1").Field(), PanelField::CoalStrength);
    EXPECT_EQ(AxisOf("SFBarrier=1").Field(), PanelField::SFBarrier);
    EXPECT_STREQ(NameOfField(PanelField::AbutmentAngle), "AbutmentAngle");
}

}  // namespace
}  // namespace tarvokol
