// SPDX-License-Identifier: GPL-3.0-or-later
// What the pages ask for: how a change of it is called, undone and done again.
#include "studies/model/page_requests.h"

#include <gmock/gmock.h>

#include "core/settings/folders.h"
#include "studies/model/study_model.h"
#include "studies/model/table_sheet.h"
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

TEST_F(PageRequestsTest, FiguresThatAreTypedAreOneStepUntilTheirBoxIsLeft) {
    const RiskPlan began = model.Requests().risk;
    RiskPlan plan = began;
    for (const char* figure : {"1", "10", "10%"}) {
        plan.fields[0].distribution = std::string("lognormal:100%:") + figure;
        model.AskFor(plan);
    }
    EXPECT_EQ(model.UndoWords(), "In situ coal strength, distribution");
    model.EndGesture();
    const RiskPlan typed = plan;
    plan.fields[0].distribution = "lognormal:90%:10%";
    model.AskFor(plan);
    EXPECT_EQ(model.Undo(), StudyPages::Risk);
    EXPECT_EQ(model.Requests().risk, typed);
    model.Undo();
    EXPECT_EQ(model.Requests().risk, began);
    EXPECT_FALSE(model.CanUndo());
    EXPECT_FALSE(model.IsChanged());
}

TEST_F(PageRequestsTest, FiguresOfTwoBoxesAreTwoSteps) {
    RiskPlan plan = model.Requests().risk;
    plan.samples = 500;
    model.AskFor(plan);
    plan.seed = 7;
    model.AskFor(plan);
    plan.samples = 600;
    model.AskFor(plan);
    EXPECT_EQ(model.UndoWords(), "Samples");
    model.Undo();
    EXPECT_EQ(model.UndoWords(), "Seed");
    model.Undo();
    EXPECT_EQ(model.Requests().risk.samples, 500U);
    EXPECT_EQ(model.Requests().risk.seed, 1U);
}

// Each change of a plan as it is called, from a plan of two fields that are correlated.
TEST(NameOfChange, TellsWhatIsAskedOfTheRisk) {
    PageRequests before;
    before.risk.fields = {{PanelField::CoalStrength, "normal:100%:15%"},
                          {PanelField::Height, "normal:100%:5%"}};
    before.risk.correlations = {{PanelField::CoalStrength, PanelField::Height, 0.5}};
    const auto words = [&before](auto&& change) {
        PageRequests after = before;
        change(after);
        const StepName name = NameOfChange(before, after);
        EXPECT_EQ(name.page, StudyPages::Risk);
        return name.words + (name.key.empty() ? "" : " [" + name.key + "]");
    };
    EXPECT_EQ(words([](PageRequests& r) {
                  r.risk.fields.push_back({PanelField::SFWeb, "normal:100%:5%"});
              }),
              "Uncertain field added");
    EXPECT_EQ(words([](PageRequests& r) { r.risk.fields.pop_back(); }), "Uncertain field removed");
    EXPECT_EQ(words([](PageRequests& r) { r.risk.fields[1].field = PanelField::SFWeb; }), "Uncertain field");
    EXPECT_EQ(words([](PageRequests& r) { r.risk.fields[1].distribution = "uniform:80%:120%"; }),
              "Extraction height, distribution");
    EXPECT_EQ(words([](PageRequests& r) { r.risk.fields[1].distribution = "normal:100%:6%"; }),
              "Extraction height, distribution [distribution 1]");
    EXPECT_EQ(words([](PageRequests& r) { r.risk.correlations.push_back({}); }), "Correlation added");
    EXPECT_EQ(words([](PageRequests& r) { r.risk.correlations.clear(); }), "Correlation removed");
    EXPECT_EQ(words([](PageRequests& r) { r.risk.correlations[0].first = PanelField::SFWeb; }),
              "Correlation");
    EXPECT_EQ(words([](PageRequests& r) { r.risk.correlations[0].value = 0.25; }),
              "Correlation [correlation 0]");
    EXPECT_EQ(words([](PageRequests& r) { r.risk.design_points = true; }), "Design points");
    EXPECT_EQ(words([](PageRequests& r) { r.width.field = PanelField::BarrierPillarWidth; }),
              "Width that is sought");
    EXPECT_EQ(words([](PageRequests& r) { r.width.probability = "1%"; }),
              "Probability of the width [width probability]");
    EXPECT_EQ(words([](PageRequests& r) { r.width.step = "0.25"; }), "Step of the width [width step]");
}

TEST_F(PageRequestsTest, DesignsThatAreKeptNamedAndRemovedAreUndone) {
    const auto panel = std::make_shared<const Panel>(model.ProjectPanel());
    const AskedDesign first{"Design 1", panel}, named{"Shallow", panel};
    const AskedDesign second{"Design 2", std::make_shared<const Panel>(*panel)};
    model.AskFor(std::vector{first});
    EXPECT_EQ(model.UndoWords(), "Design 1 kept");
    model.AskFor(std::vector{first, second});
    EXPECT_EQ(model.UndoWords(), "Design 2 kept");
    model.AskFor(std::vector{named, second});
    EXPECT_EQ(model.UndoWords(), "Design 1, name");
    model.AskFor(std::vector{named, second});  // nothing new
    model.AskFor(std::vector{second});
    EXPECT_EQ(model.UndoWords(), "Shallow removed");
    EXPECT_EQ(model.Undo(), StudyPages::Compare);
    EXPECT_EQ(model.Requests().designs, (std::vector{named, second}));
    model.Undo();
    EXPECT_EQ(model.Requests().designs, (std::vector{first, second}));
    model.Undo();
    EXPECT_EQ(model.Requests().designs, std::vector{first});
    model.Undo();
    EXPECT_TRUE(model.Requests().designs.empty());
    EXPECT_FALSE(model.CanUndo());
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

TEST_F(PageRequestsTest, ChangesOfTheTableAreUndoneInOneOrderWithTheOthers) {
    TableSheet sheet(model.ProjectPanel());
    model.ChangeTableBy([&sheet](SheetChange& change) { sheet.Make(change); });
    model.ChangeTable(CellChange{0, 0, "200"}, "Row 1, DepthCover (ft)");
    model.Set(PanelField::CoalStrength, 450);
    model.ChangeTable(sheet.RowAdded(1), "Row added");
    EXPECT_EQ(model.UndoWords(), "Row added");
    EXPECT_EQ(model.Undo(), StudyPages::Table);
    EXPECT_EQ(sheet.Rows(), 1U);
    EXPECT_EQ(model.ProjectPanel().CoalStrength, 450);
    EXPECT_EQ(model.Undo(), std::nullopt);
    EXPECT_EQ(model.ProjectPanel().CoalStrength, 900);
    EXPECT_EQ(sheet.Cell(0, 0), "200");
    EXPECT_EQ(model.Undo(), StudyPages::Table);
    EXPECT_EQ(sheet.Cell(0, 0), "");
    EXPECT_FALSE(model.CanUndo());
    for (int i = 0; i < 3; ++i) model.Redo();
    EXPECT_EQ(sheet.Cell(0, 0), "200");
    EXPECT_EQ(sheet.Rows(), 2U);
    EXPECT_EQ(model.ProjectPanel().CoalStrength, 450);
}

TEST_F(PageRequestsTest, TheTableLeavesTheProjectUnchanged) {
    TableSheet sheet(model.ProjectPanel());
    model.ChangeTableBy([&sheet](SheetChange& change) { sheet.Make(change); });
    model.ChangeTable(CellChange{0, 0, "200"}, "Row 1, DepthCover (ft)");
    EXPECT_FALSE(model.IsChanged());
}

}  // namespace
}  // namespace tarvokol
