// SPDX-License-Identifier: GPL-3.0-or-later
// The file of a kept study: what it says, that it reads back as it was written, and what is said of a damaged one.
#include "core/studies/kept_study.h"

#include <string>

#include <gmock/gmock.h>

#include "core/runtime/text.h"
#include "core/statistics/study_refusal.h"

namespace tarvokol {
namespace {

KeptStudy StudyToKeep() {
    KeptStudy study;
    study.project = "../mine/panel.TKL";
    study.title = "Bench 3 \u2013 north";
    for (const auto& [field, value] :
         std::initializer_list<std::pair<PanelField, double>>{{PanelField::Height, 4.5},
                                                              {PanelField::DepthCover, 120.1},
                                                              {PanelField::HoleWidth, 9.5},
                                                              {PanelField::WebThickness, 3.25},
                                                              {PanelField::BarrierPillarWidth, 10},
                                                              {PanelField::NumberHoles, 14},
                                                              {PanelField::CoalStrength, 900},
                                                              {PanelField::UnitWeight, 162},
                                                              {PanelField::AbutmentAngle, 21},
                                                              {PanelField::SFWeb, 1.6},
                                                              {PanelField::SFBarrier, 2}})
        StoreInField(study.panel, field, value);
    study.panel.CrosscutSpacing = 1000000;
    study.panel.CrosscutAngle = 90;
    for (const PanelFieldFacts& facts : kPanelFields)
        study.ranges[static_cast<std::size_t>(facts.field)] = {1, 20};
    study.page = StudyPages::Risk;
    study.map.x = {PanelField::WebThickness, {1, 20}};
    study.map.y = StudyAxis{PanelField::NumberHoles, {1, 20}};
    study.map.figure = FigureNamed("BarrierPillar");
    study.risk.fields = {{PanelField::CoalStrength, "lognormal:100%:15%"},
                         {PanelField::DepthCover, "uniform:100:140"}};
    study.risk.correlations = {{PanelField::CoalStrength, PanelField::DepthCover, -0.25}};
    study.risk.samples = 5000;
    study.risk.seed = 7;
    study.columns = {"DepthCover (ft)", "Hole; name"};
    study.rows = {{"100", "a,\"b\""}, {"x", "two\nlines \\"}};
    study.designs = {{"First", study.panel}};
    return study;
}

std::string FaultOf(const std::string& text) {
    try {
        StudyOfBytes(text, "a.TKS");
    } catch (const KeptStudyFault& fault) {
        return fault.what();
    }
    return "taken";
}

// The kept text with another line in place of one.
std::string With(const std::string& line, const std::string& other) {
    return ReplaceAll(TextOfStudy(StudyToKeep()), line + "\r\n", other);
}

TEST(KeptStudies, AreATextOfSectionsAndKeys) {
    const std::string text = TextOfStudy(StudyToKeep());
    EXPECT_TRUE(
        text.starts_with("[TARVO-KOL Study]\r\nVersion=1\r\nPage=risk\r\n\r\n[Project]\r\n"
                         "Path=../mine/panel.TKL\r\nTitle=Bench 3 \u2013 north\r\nUnitSystem=0\r\n"
                         "Height=4.5\r\nDepthCover=120.1\r\n"))
        << text;
    for (const char* const part :
         {"\r\nSFWeb=1.6\r\n", "\r\n[Ranges]\r\nHeight=1:20\r\n",
          "\r\n[Map]\r\nX=WebThickness\r\nY=NumberHoles\r\nFigure=BarrierPillar\r\n",
          "\r\n[Risk]\r\nSamples=5000\r\nSeed=7\r\nRandom1=CoalStrength:lognormal:100%:15%\r\n"
          "Random2=DepthCover:uniform:100:140\r\nCorrelate1=CoalStrength,DepthCover,-0.25\r\n",
          "\r\n[Width]\r\nField=WebThickness\r\nProbability=5%\r\nStep=\r\n",
          "\r\n[Table]\r\nRows=2\r\nColumns=DepthCover (ft),Hole; name\r\nRow1=100,\"a,\"\"b\"\"\"\r\n"
          "Row2=x,\"two\\nlines \\\\\"\r\n",
          "\r\n[Design 1]\r\nName=First\r\nUnitSystem=0\r\n"})
        EXPECT_THAT(text, ::testing::HasSubstr(part));
    EXPECT_TRUE(text.ends_with("\r\n[End]\r\n"));
}

TEST(KeptStudies, ReadBackAsTheyWere) {
    const KeptStudy study = StudyToKeep();
    const KeptStudy read = StudyOfBytes(TextOfStudy(study), "a.TKS");
    EXPECT_EQ(TextOfStudy(read), TextOfStudy(study));
    EXPECT_EQ(read.title, study.title);
    EXPECT_EQ(ValueOfField(read.panel, PanelField::SFWeb), ValueOfField(study.panel, PanelField::SFWeb));
    EXPECT_EQ(read.map, study.map);
    EXPECT_EQ(read.risk, study.risk);
    EXPECT_EQ(read.rows, study.rows);
    ASSERT_EQ(read.designs.size(), 1U);
    EXPECT_EQ(read.designs[0].name, "First");
    EXPECT_EQ(CsvOfTable(read), "DepthCover (ft),\"Hole; name\"\n100,\"a,\"\"b\"\"\"\nx,\"two\nlines \\\"\n");
}

TEST(KeptStudies, KeepWhetherDesignPointsAreAskedFor) {
    KeptStudy study = StudyToKeep();
    EXPECT_FALSE(StudyOfBytes(TextOfStudy(study), "a.TKS").risk.design_points);
    study.risk.design_points = true;
    EXPECT_TRUE(StudyOfBytes(TextOfStudy(study), "a.TKS").risk.design_points);
}

TEST(KeptStudies, TakeBareLinesAndComments) {
    std::string text = ReplaceAll(TextOfStudy(StudyToKeep()), "\r\n", "\n");
    text = ReplaceAll(text, "[Map]\n", "; by hand\n\n  [Map]\n");
    EXPECT_EQ(TextOfStudy(StudyOfBytes(text, "a.TKS")), TextOfStudy(StudyToKeep()));
}

TEST(KeptStudies, NameTheLineOfWhatTheyRefuse) {
    EXPECT_EQ(FaultOf("TARVOKOL_101\r\n"),
              "a.TKS: is no kept study: its first line is not [TARVO-KOL Study]");
    EXPECT_EQ(FaultOf(""), "a.TKS: is no kept study: its first line is not [TARVO-KOL Study]");
    EXPECT_EQ(FaultOf(With("Version=1", "Version=2\r\n")),
              "a.TKS, line 2: Version: a study of version 2 needs a later release");
    EXPECT_EQ(FaultOf(With("Page=risk", "Page=pie\r\n")),
              "a.TKS, line 3: Page: \"pie\" is no page; the pages are map, risk, table, compare, width");
    EXPECT_EQ(FaultOf(With("Page=risk", "Page\r\n")), "a.TKS, line 3: \"Page\" is no key with its value");
    EXPECT_EQ(FaultOf(With("Page=risk", "Page=risk\r\nPage=risk\r\n")),
              "a.TKS, line 4: Page: the key stands there twice");
    EXPECT_EQ(FaultOf(With("Title=Bench 3 \u2013 north", "Title=a\\tb\r\n")),
              "a.TKS, line 7: Title: \"\\\" is followed by \"\\\", \"n\" or \"r\"");
    EXPECT_EQ(FaultOf(With("Title=Bench 3 \u2013 north", "Cover=1\r\n")),
              "a.TKS, line 7: Cover: the section has no such key");
    EXPECT_EQ(FaultOf(With("X=WebThickness", "X=NumberHoles\r\n")),
              "a.TKS, line 38: Y: a map has two fields");
    EXPECT_EQ(FaultOf(With("Samples=5000", "Samples=5000000\r\n")),
              "a.TKS, line 42: Samples: \"5000000\" does not lie from 1 to 4000000");
    EXPECT_EQ(FaultOf(With("Samples=5000", "Samples=2.5\r\n")),
              "a.TKS, line 42: Samples: \"2.5\" is not a whole number");
    EXPECT_EQ(FaultOf(With("Seed=7", "Seed=7\r\nDesignPoints=2\r\n")),
              "a.TKS, line 44: DesignPoints: \"2\" does not lie from 0 to 1");
    EXPECT_EQ(FaultOf(With("Random2=DepthCover:uniform:100:140", "Random2=CoalStrength:uniform:1:2\r\n")),
              "a.TKS, line 45: Random2: the field is drawn twice");
    EXPECT_EQ(FaultOf(With("Random2=DepthCover:uniform:100:140", "Random2=DepthCover:data:x.csv:A\r\n")),
              "a.TKS, line 45: Random2: measured values stand in a file of their own, which a study does "
              "not keep");
    EXPECT_EQ(
        FaultOf(With("Correlate1=CoalStrength,DepthCover,-0.25", "Correlate1=CoalStrength,Height,0.5\r\n")),
        "a.TKS, line 46: Correlate1: both fields must be drawn");
    EXPECT_EQ(FaultOf(With("Field=WebThickness", "Field=Height\r\n")),
              "a.TKS, line 49: Field: the width is WebThickness or BarrierPillarWidth");
    EXPECT_EQ(FaultOf(With("Probability=5%", "Probability=500%\r\n")),
              "a.TKS, line 50: Probability: \"500\" does not lie from 0 to 100");
    EXPECT_EQ(FaultOf(With("Step=", "Step=0\r\n")), "a.TKS, line 51: Step: the step must be above 0");
    EXPECT_EQ(FaultOf(With("Rows=2", "Rows=3\r\n")), "a.TKS, line 59: [Table] ends after 2 of 3 rows");
    EXPECT_EQ(FaultOf(With("Row1=100,\"a,\"\"b\"\"\"", "Row1=100\r\n")),
              "a.TKS, line 56: Row1: the row has 1 cells, the table 2 columns");
    EXPECT_EQ(FaultOf(With("[Map]", "[Maps]\r\n")), "a.TKS, line 36: a study has no section [Maps]");
}

TEST(KeptStudies, FiguresAreHeldAgainstTheirFields) {
    EXPECT_EQ(FaultOf(With("Height=1:20", "Height=20:1\r\n")),
              "a.TKS, line 24: Height: the lower end of a range lies below the upper one");
    EXPECT_EQ(FaultOf(ReplaceAll(TextOfStudy(StudyToKeep()), "NumberHoles=14", "NumberHoles=1.5")),
              "a.TKS, line 14: NumberHoles: \"1.5\" cannot be stored in this field");
    EXPECT_EQ(FaultOf(ReplaceAll(TextOfStudy(StudyToKeep()), "UnitSystem=0", "UnitSystem=2")),
              "a.TKS, line 8: UnitSystem: \"2\" does not lie from 0 to 1");
    EXPECT_EQ(FaultOf(With("DepthCover=120.1", "")), "a.TKS, line 22: [Project] ends without DepthCover");
    EXPECT_EQ(FaultOf(With("NumberHoles=1:20", "")), "a.TKS, line 35: [Ranges] ends without NumberHoles");
}

// Whatever is cut off, nobody takes the rest for the whole.
TEST(KeptStudies, AreNeverTakenWhereTheyEndEarly) {
    const std::string text = TextOfStudy(StudyToKeep());
    for (std::size_t length = 0; length + 2 < text.size(); ++length)
        EXPECT_NE(FaultOf(text.substr(0, length)), "taken") << length;
    EXPECT_THAT(FaultOf(text.substr(0, text.size() - 7)),
                ::testing::EndsWith(": the study ends early: its last line is [End]"));
}

TEST(KeptStudies, FindTheirProjectFromTheirFolder) {
    KeptStudy study;
    study.project = ProjectSeenFrom("/data/studies/a.TKS", "/data/mine/panel.TKL");
    EXPECT_EQ(study.project, "../mine/panel.TKL");
    EXPECT_EQ(ProjectPathOf(study, "/moved/studies/a.TKS"), "/moved/mine/panel.TKL");
    EXPECT_EQ(ProjectSeenFrom("/data/a.TKS", ""), "");
    EXPECT_EQ(ProjectPathOf(KeptStudy{}, "/data/a.TKS"), "");
}

TEST(KeptStudies, TellWhatHasChangedSince) {
    const Panel kept = StudyToKeep().panel;
    Panel present = kept;
    EXPECT_EQ(ChangesSince(kept, present), "");
    StoreInField(present, PanelField::WebThickness, 4);
    StoreInField(present, PanelField::SFWeb, 1.3);
    EXPECT_EQ(ChangesSince(kept, present),
              "Web thickness (ft) was 3.25 and is 4; Stability factor for webs was 1.6 and is 1.3");
    present.units = Units::Metric;
    EXPECT_EQ(ChangesSince(kept, present), "it is in another unit system");
}

TEST(KeptStudies, TellDesignsAsATable) {
    KeptStudy study = StudyToKeep();
    EXPECT_EQ(CsvOfDesigns(study),
              "Design,Height (ft),DepthCover (ft),HoleWidth (ft),WebThickness (ft),BarrierPillarWidth (ft),"
              "NumberHoles,CoalStrength (psi),UnitWeight (pcf),AbutmentAngle (degrees),SFWeb,SFBarrier\n"
              "First,4.5,120.1,9.5,3.25,10,14,900,162,21,1.6,2\n");
    study.designs[0].panel.units = Units::Metric;
    EXPECT_THROW(CsvOfDesigns(study), StudyRefusal);
}

}  // namespace
}  // namespace tarvokol
