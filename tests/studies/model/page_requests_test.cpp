// SPDX-License-Identifier: GPL-3.0-or-later
// What the pages ask for: how a change of it is called, undone and done again.
#include "studies/model/page_requests.h"

#include <gmock/gmock.h>

#include "core/settings/folders.h"
#include "studies/model/study_model.h"
#include "tests/studies/model/worked_project.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

const MapChoice kOverall{PanelField::WebThickness, PanelField::DepthCover, FigureNamed("Overall")};

class PageRequestsTest : public CoreTest {
  protected:
    PageRequestsTest() {
        TempDataFolder = Folder.string() + "/temp/";
        WriteBytes(PathTo("panel.TKL"), WorkedProjectBytes());
        model.Open(PathTo("panel.TKL"));
    }
    ~PageRequestsTest() override { TempDataFolder.clear(); }

    StudyModel model;
};

TEST_F(PageRequestsTest, TheMapBeginsWithTheWebsOverThicknessAndDepth) {
    const MapRequest request = MapRequestOf(model.Requests().map, model.Requests().ranges);
    EXPECT_EQ(request.x, (StudyAxis{PanelField::WebThickness, {5, 15}}));
    EXPECT_EQ(request.y, (StudyAxis{PanelField::DepthCover, {50, 150}}));
    EXPECT_STREQ(request.figure->name, "WebsOnly");
    EXPECT_EQ(ChoiceOf(request), model.Requests().map);
}

TEST_F(PageRequestsTest, ASecondFieldThatIsTheFirstOneStandsForNone) {
    const MapChoice choice{PanelField::Height, PanelField::Height, FigureNamed("Overall")};
    EXPECT_FALSE(MapRequestOf(choice, model.Requests().ranges).y);
}

TEST_F(PageRequestsTest, AFigureOfTheMapIsUndoneAndDoneAgain) {
    model.AskFor(kOverall);
    EXPECT_EQ(model.UndoWords(), "Figure of the map");
    EXPECT_FALSE(model.IsChanged());
    EXPECT_EQ(model.Undo(), StudyPages::Map);
    EXPECT_STREQ(model.Requests().map.figure->name, "WebsOnly");
    EXPECT_FALSE(model.CanUndo());
    EXPECT_EQ(model.RedoWords(), "Figure of the map");
    EXPECT_EQ(model.Redo(), StudyPages::Map);
    EXPECT_EQ(model.Requests().map, kOverall);
}

TEST_F(PageRequestsTest, FieldsOfTheMapAreStepsOfTheirOwn) {
    model.AskFor(MapChoice{PanelField::Height});
    model.AskFor(MapChoice{PanelField::Height, std::nullopt});
    EXPECT_EQ(model.UndoWords(), "Fields of the map");
    model.Undo();
    EXPECT_EQ(model.Requests().map, MapChoice{PanelField::Height});
    model.Undo();
    EXPECT_EQ(model.Requests().map, MapChoice{});
}

TEST_F(PageRequestsTest, WhatIsAskedForOnceMoreIsNoStep) {
    model.AskFor(MapChoice{});
    model.SetRange(PanelField::DepthCover, {50, 150});
    model.SetRange(PanelField::DepthCover, {150, 50});
    EXPECT_FALSE(model.CanUndo());
}

TEST_F(PageRequestsTest, ARangeIsUndoneBesideEveryPage) {
    model.SetRange(PanelField::DepthCover, {20, 120});
    EXPECT_EQ(model.UndoWords(), "Depth of cover, range");
    EXPECT_EQ(model.Undo(), std::nullopt);
    EXPECT_EQ(model.RangeOf(PanelField::DepthCover), (FieldRange{50, 150}));
    model.Redo();
    EXPECT_EQ(model.RangeOf(PanelField::DepthCover), (FieldRange{20, 120}));
}

// The range is the user's own again, not half to one and a half times the figure.
TEST_F(PageRequestsTest, AFigureThatIsUndoneBringsBackTheRangeThatItLeft) {
    model.SetRange(PanelField::DepthCover, {20, 120});
    model.Set(PanelField::DepthCover, 400);
    EXPECT_EQ(model.RangeOf(PanelField::DepthCover), (FieldRange{200, 600}));
    model.Undo();
    EXPECT_EQ(model.RangeOf(PanelField::DepthCover), (FieldRange{20, 120}));
}

TEST_F(PageRequestsTest, ProjectAndPagesAreUndoneInTheirOrder) {
    model.Set(PanelField::DepthCover, 110);
    model.AskFor(kOverall);
    model.Set(PanelField::DepthCover, 120);
    EXPECT_EQ(model.Undo(), std::nullopt);
    EXPECT_EQ(model.Document().inputs.DepthCover, 110);
    EXPECT_EQ(model.Requests().map, kOverall);
    EXPECT_EQ(model.Undo(), StudyPages::Map);
    EXPECT_EQ(model.Document().inputs.DepthCover, 110);
    EXPECT_EQ(model.Requests().map, MapChoice{});
    model.Undo();
    EXPECT_FALSE(model.IsChanged());
}

TEST_F(PageRequestsTest, AGestureThatEndsWhereItBeganIsNoStep) {
    model.AskFor(kOverall);
    for (const double depth : {110.0, 120.0, 100.0}) model.Set(PanelField::DepthCover, depth);
    EXPECT_EQ(model.UndoWords(), "Figure of the map");
    model.Set(PanelField::DepthCover, 130);
    model.Undo();
    EXPECT_EQ(model.Document().inputs.DepthCover, 100);
    EXPECT_EQ(model.UndoWords(), "Figure of the map");
}

TEST_F(PageRequestsTest, ABeginningLeavesNothingToUndo) {
    model.AskFor(kOverall);
    model.Undo();
    PageRequests requests = model.Requests();
    requests.map = kOverall;
    requests.ranges[static_cast<std::size_t>(PanelField::DepthCover)] = {20, 120};
    requests.ranges[static_cast<std::size_t>(PanelField::Height)] = {2, 1};
    model.Begin(requests);
    EXPECT_FALSE(model.CanUndo());
    EXPECT_FALSE(model.CanRedo());
    EXPECT_EQ(model.Requests().map, kOverall);
    EXPECT_EQ(model.RangeOf(PanelField::DepthCover), (FieldRange{20, 120}));
    EXPECT_EQ(model.RangeOf(PanelField::Height), (FieldRange{5, 15}));
}

TEST_F(PageRequestsTest, OfAKeptStudyItsFiguresAloneAreUndone) {
    PageRequests requests = model.Requests();
    requests.map = kOverall;
    Panel panel = model.ProjectPanel();
    panel.DepthCover = 140;
    model.BeginStudy(requests, panel, "Deeper");
    EXPECT_EQ(model.UndoWords(), "Figures of the study");
    EXPECT_EQ(model.Document().title, "Deeper");
    model.Undo();
    EXPECT_EQ(model.Document().title, "Worked panel");
    EXPECT_EQ(model.Document().inputs.DepthCover, 100);
    EXPECT_EQ(model.Requests().map, kOverall);
    EXPECT_FALSE(model.CanUndo());
    EXPECT_FALSE(model.IsChanged());
}

}  // namespace
}  // namespace tarvokol
