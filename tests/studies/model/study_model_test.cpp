// SPDX-License-Identifier: GPL-3.0-or-later
// The project of the studies: files, changes and their undoing, what boxes hold, what is refused where.
#include "studies/model/study_model.h"

#include <filesystem>

#include <gmock/gmock.h>

#include "core/platform/message_box.h"
#include "core/project/kept_copy.h"
#include "core/settings/folders.h"
#include "core/statistics/study_refusal.h"
#include "tests/studies/model/worked_project.h"
#include "tests/support/core_fixture.h"
#include "tests/support/raised_error.h"

namespace tarvokol {
namespace {

class StudyModelTest : public CoreTest {
  protected:
    StudyModelTest() {
        TempDataFolder = Folder.string() + "/temp/";
        std::filesystem::create_directory(TempDataFolder);
        WriteBytes(PathTo("panel.TKL"), WorkedProjectBytes());
        model.Open(PathTo("panel.TKL"));
    }
    ~StudyModelTest() override { TempDataFolder.clear(); }

    double Depth() const { return ValueOfField(model.Document().inputs, PanelField::DepthCover); }

    StudyModel model;
};

TEST_F(StudyModelTest, AnOpenedProjectHasItsFiguresAndNothingToSave) {
    EXPECT_EQ(model.Title(), "Worked panel");
    EXPECT_EQ(model.FileName(), "panel.TKL");
    EXPECT_FALSE(model.IsChanged());
    EXPECT_FALSE(model.CanUndo());
    EXPECT_EQ(model.TextOf(PanelField::DepthCover), "100");
    EXPECT_EQ(model.TextOf(PanelField::SFWeb), "1.6");
    EXPECT_NEAR(model.Reading().figures.WebsOnly, 4.7199928, 1e-9);
    EXPECT_NEAR(model.Reading().figures.ExtractionRatio, 100.0 * 50 / 110, 1e-12);
    EXPECT_FALSE(model.Reading().refusal);
}

TEST_F(StudyModelTest, ANewProjectSaysWhatIsMissing) {
    model.New(0);
    EXPECT_EQ(model.FileName(), "Untitled");
    EXPECT_EQ(model.Path(), "");
    EXPECT_FALSE(model.IsChanged());
    EXPECT_EQ(model.TextOf(PanelField::CoalStrength), "900");
    EXPECT_EQ(model.FaultOf(PanelField::Height), "Invalid extraction height");
    EXPECT_EQ(model.FaultOf(PanelField::DepthCover), "");
    EXPECT_TRUE(model.Reading().figures.refused);
}

TEST_F(StudyModelTest, AChangeIsCalculatedAndUndone) {
    EXPECT_TRUE(model.Set(PanelField::DepthCover, 200));
    EXPECT_NEAR(model.Reading().figures.WebsOnly, 471.99928 / 200, 1e-9);
    EXPECT_TRUE(model.IsChanged());
    EXPECT_EQ(model.UndoWords(), "Depth of cover");
    model.Undo();
    EXPECT_EQ(Depth(), 100);
    EXPECT_FALSE(model.IsChanged());
    EXPECT_FALSE(model.CanUndo());
    EXPECT_EQ(model.RedoWords(), "Depth of cover");
    model.Redo();
    EXPECT_EQ(Depth(), 200);
    EXPECT_FALSE(model.CanRedo());
}

TEST_F(StudyModelTest, OneGestureIsOneStep) {
    for (const double depth : {110.0, 120.0, 130.0}) model.Set(PanelField::DepthCover, depth);
    model.EndGesture();
    model.Set(PanelField::DepthCover, 140);
    model.Set(PanelField::Height, 9);
    model.Undo();
    EXPECT_EQ(Depth(), 140);
    model.Undo();
    EXPECT_EQ(Depth(), 130);
    model.Undo();
    EXPECT_EQ(Depth(), 100);
}

TEST_F(StudyModelTest, AChangeAfterAnUndoneOneTakesItsPlace) {
    model.Set(PanelField::DepthCover, 200);
    model.Undo();
    model.Set(PanelField::DepthCover, 300);
    EXPECT_FALSE(model.CanRedo());
    model.Undo();
    EXPECT_EQ(Depth(), 100);
}

TEST_F(StudyModelTest, ThatWhichChangesNothingIsNoStep) {
    model.Set(PanelField::DepthCover, 100);
    EXPECT_FALSE(model.CanUndo());
}

TEST_F(StudyModelTest, SeveralFieldsAreOneStep) {
    EXPECT_TRUE(
        model.SetAll({{PanelField::DepthCover, 150}, {PanelField::WebThickness, 12}}, "Place on the map"));
    EXPECT_EQ(model.UndoWords(), "Place on the map");
    model.Undo();
    EXPECT_EQ(Depth(), 100);
    EXPECT_EQ(model.Document().inputs.WebThickness, 10);
    EXPECT_FALSE(model.SetAll({{PanelField::DepthCover, 150}, {PanelField::NumberHoles, 2.5}}, "no panel"));
    EXPECT_EQ(Depth(), 100);
}

TEST_F(StudyModelTest, WhatIsNoFigureStaysInItsBoxAndOutOfTheProject) {
    model.Type(PanelField::DepthCover, "1,5");
    EXPECT_EQ(model.TextOf(PanelField::DepthCover), "1,5");
    EXPECT_EQ(
        model.FaultOf(PanelField::DepthCover),
        "\"1,5\" is no number: write a decimal point and no thousands separators; the project keeps 100");
    EXPECT_EQ(Depth(), 100);
    EXPECT_FALSE(model.IsChanged());
    model.Type(PanelField::DepthCover, "");
    EXPECT_EQ(model.FaultOf(PanelField::DepthCover), "Blank field not allowed; the project keeps 100");
    model.Type(PanelField::DepthCover, " 150.5 ");
    EXPECT_EQ(model.FaultOf(PanelField::DepthCover), "");
    EXPECT_EQ(model.TextOf(PanelField::DepthCover), "150.5");
    model.Type(PanelField::SFWeb, "1e39");
    EXPECT_EQ(model.FaultOf(PanelField::SFWeb),
              "a value cannot be stored in this field; the project keeps 1.6");
    model.Type(PanelField::NumberHoles, "21");
    EXPECT_EQ(model.FaultOf(PanelField::NumberHoles),
              "Value '21' is outside input range\r\nValid range is: 2-20; the project keeps 5");
    model.Type(PanelField::NumberHoles, "2.5");
    EXPECT_EQ(model.FaultOf(PanelField::NumberHoles),
              "the number of holes must be a whole number; the project keeps 5");
    model.Undo();
    EXPECT_EQ(model.FaultOf(PanelField::NumberHoles), "");
    EXPECT_EQ(Depth(), 100);
}

TEST_F(StudyModelTest, ARefusalStandsAtItsFieldInTheWordsOfTheCheck) {
    model.Set(PanelField::DepthCover, -5);
    EXPECT_EQ(model.FaultOf(PanelField::DepthCover), "Invalid depth of cover");
    EXPECT_EQ(model.FaultOf(PanelField::Height), "");
    EXPECT_TRUE(model.Reading().figures.refused);
    model.Undo();
    model.Set(PanelField::BarrierPillarWidth, 8);
    EXPECT_EQ(model.FaultOf(PanelField::BarrierPillarWidth),
              "Barrier pillar width should be greater than web thickness width");
    EXPECT_FALSE(model.Reading().figures.refused);  // the analysis takes it, and so does the command line
    model.Undo();
    model.Set(PanelField::AbutmentAngle, 0);
    EXPECT_EQ(model.FaultOf(PanelField::AbutmentAngle), "Invalid abutment angle");
}

TEST_F(StudyModelTest, AFactorBelowItsTargetIsKnown) {
    const StudyFigure& webs = *FigureNamed("WebsOnly");
    EXPECT_FALSE(MissesTarget(webs, model.Reading().figures, model.ProjectPanel()));
    model.Set(PanelField::DepthCover, 300);  // 1.57333
    EXPECT_TRUE(MissesTarget(webs, model.Reading().figures, model.ProjectPanel()));
    EXPECT_EQ(FigureInWords(webs, model.Reading().figures), "1.57333");
    EXPECT_THAT(FiguresInWords(model.Reading().figures, model.ProjectPanel()),
                ::testing::HasSubstr("Webs ONLY 1.57333 (below 1.6), "));
}

TEST_F(StudyModelTest, RangesSpanHalfToOneAndAHalfAndFollowTheFigure) {
    EXPECT_EQ(model.RangeOf(PanelField::DepthCover), (FieldRange{50, 150}));
    EXPECT_EQ(model.RangeOf(PanelField::SFWeb), (FieldRange{0.8, 2.4}));
    EXPECT_EQ(model.RangeOf(PanelField::NumberHoles), (FieldRange{2, 8}));
    EXPECT_EQ(model.SetRange(PanelField::DepthCover, {20, 120}), "");
    EXPECT_EQ(model.RangeOf(PanelField::DepthCover), (FieldRange{20, 120}));
    EXPECT_EQ(model.SetRange(PanelField::DepthCover, {120, 20}),
              "the lower end of a range lies below the upper one");
    EXPECT_EQ(model.RangeOf(PanelField::DepthCover), (FieldRange{20, 120}));
    model.Set(PanelField::DepthCover, 400);
    EXPECT_EQ(model.RangeOf(PanelField::DepthCover), (FieldRange{200, 600}));
    EXPECT_EQ(model.SetRange(PanelField::NumberHoles, {1.5, 7}),
              "the number of holes must be a whole number");
    EXPECT_EQ(model.SetRange(PanelField::NumberHoles, {2, 21}), "the number of holes lies from 1 to 20");
}

TEST_F(StudyModelTest, SavesWholeAndKeepsWhatTheFileHeld) {
    model.Set(PanelField::DepthCover, 200);
    EXPECT_TRUE(model.SaveAs(PathTo("panel.TKL")));
    EXPECT_FALSE(model.IsChanged());
    EXPECT_TRUE(model.CanUndo());
    std::string expected = WorkedProjectBytes();
    expected.replace(expected.find("\r\n100\r\n"), 7, "\r\n200\r\n");
    EXPECT_EQ(ReadBytes(PathTo("panel.TKL")), expected);
    EXPECT_EQ(ReadBytes(NewestGoodCopy(PathTo("panel.TKL"))), WorkedProjectBytes());
    EXPECT_FALSE(model.FileHasChanged());
    model.Undo();
    EXPECT_TRUE(model.IsChanged());
}

TEST_F(StudyModelTest, ASaveThatFailsLeavesTheProjectUnsaved) {
    model.Set(PanelField::DepthCover, 200);
    EXPECT_EQ(RaisedError([&] { model.SaveAs(PathTo("missing/panel.TKL")); }), 76);
    EXPECT_TRUE(model.IsChanged());
    EXPECT_EQ(model.Path(), PathTo("panel.TKL"));
}

TEST_F(StudyModelTest, AFileThatSomebodyElseHasWrittenIsNoticed) {
    EXPECT_FALSE(model.FileHasChanged());
    WriteBytes(PathTo("panel.TKL"), "TARVOKOL_101\r\n");
    EXPECT_TRUE(model.FileHasChanged());
    std::filesystem::remove(PathTo("panel.TKL"));
    EXPECT_FALSE(model.FileHasChanged());
}

TEST_F(StudyModelTest, AFileThatIsNoProjectLeavesTheOpenOneAsItWas) {
    model.Set(PanelField::DepthCover, 200);
    WriteBytes(PathTo("other.TKL"), "something else\n");
    EXPECT_THROW(model.Open(PathTo("other.TKL")), StudyRefusal);
    WriteBytes(PathTo("cut.TKL"), "TARVOKOL_101\r\n 0 \r\n");
    EXPECT_EQ(RaisedError([&] { model.Open(PathTo("cut.TKL")); }), 62);
    EXPECT_EQ(Depth(), 200);
    EXPECT_TRUE(model.CanUndo());
}

TEST_F(StudyModelTest, EveryChangeIsTold) {
    int told = 0;
    model.Tell([&told] { ++told; });
    model.Set(PanelField::DepthCover, 200);
    model.Type(PanelField::DepthCover, "x");
    model.Undo();
    model.SetRange(PanelField::Height, {1, 2});
    EXPECT_EQ(told, 4);
}

}  // namespace
}  // namespace tarvokol
