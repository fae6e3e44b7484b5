// SPDX-License-Identifier: GPL-3.0-or-later
// Studies that the window keeps and opens again.
#include "core/studies/kept_study.h"

#include "studies/pages/compare_page.h"
#include "studies/pages/risk_page.h"
#include "tests/studies/window/studies_window_fixture.h"

namespace tarvokol {
namespace {

using ::testing::HasSubstr;

class KeptStudyWindow : public StudiesWindowTest {
  protected:
    std::string Study() const { return PathTo("a.TKS"); }
    RiskPage& Risk() { return *window->findChild<RiskPage*>(); }
    ComparePage& Compare() { return *window->findChild<ComparePage*>(); }
};

TEST_F(KeptStudyWindow, BringsBackWhatEveryPageAskedFor) {
    Type("DepthCover_Box", "130");
    window->findChild<MapPage*>()->Choose(PanelField::Height, std::nullopt, *FigureNamed("Overall"));
    RiskPlan plan;
    plan.fields = {{PanelField::UnitWeight, "uniform:150:170"}, {PanelField::Height, "normal:100%:5%"}};
    plan.correlations = {{PanelField::UnitWeight, PanelField::Height, 0.5}};
    plan.samples = 777;
    plan.seed = 5;
    Risk().Choose(plan);
    Find<QPushButton>("Compare_Keep").click();
    Find<QTabWidget>("Pages").setCurrentIndex(1);
    window->KeepStudyIn(Study());
    EXPECT_EQ(StudyOfBytes(ReadBytes(Study()), "a.TKS").project, "panel.TKL");

    window->Model().Set(PanelField::DepthCover, 100);
    Risk().Choose({{{PanelField::CoalStrength, "normal:100%:1%"}}});
    window->findChild<MapPage*>()->Choose(PanelField::HoleWidth, std::nullopt, *FigureNamed("WebsOnly"));
    window->Model().AskFor(std::vector<AskedDesign>{});
    Find<QTabWidget>("Pages").setCurrentIndex(0);
    window->OpenPath(Study());
    EXPECT_EQ(TextOf("DepthCover_Box"), "130");
    EXPECT_EQ(window->findChild<MapPage*>()->Request().x.field, PanelField::Height);
    EXPECT_FALSE(window->findChild<MapPage*>()->Request().y.has_value());
    EXPECT_EQ(Risk().Plan(), plan);
    EXPECT_EQ(Compare().Board().Designs().size(), 1U);
    EXPECT_EQ(Find<QTabWidget>("Pages").currentIndex(), 1);
    EXPECT_EQ(FromQt(window->windowTitle()), "panel.TKL[*] \u2013 TARVO-KOL Studies");
}

TEST_F(KeptStudyWindow, RangesOfAProjectAreRemembered) {
    window->Model().SetRange(PanelField::DepthCover, {80, 120});
    WriteBytes(PathTo("other.TKL"), WorkedProjectBytes());
    window->OpenPath(PathTo("other.TKL"));
    EXPECT_EQ(TextOf("DepthCover_Low"), "50");
    window->OpenPath(PathTo("panel.TKL"));
    EXPECT_EQ(TextOf("DepthCover_Low"), "80");
    EXPECT_EQ(TextOf("DepthCover_High"), "120");
}

TEST_F(KeptStudyWindow, TellsThatTheProjectHasChangedSince) {
    window->KeepStudyIn(Study());
    window->Model().Set(PanelField::DepthCover, 180);
    ASSERT_TRUE(window->Model().SaveAs(PathTo("panel.TKL")));
    window->OpenPath(Study());
    EXPECT_EQ(TextOf("DepthCover_Box"), "100");
    EXPECT_THAT(Notice(), HasSubstr("The study's project has changed since: Depth of cover (ft) was "
                                    "100 and is 180."));
    Find<QPushButton>("Notice_0").click();
    EXPECT_EQ(TextOf("DepthCover_Box"), "180");
    EXPECT_FALSE(window->isWindowModified());
}

TEST_F(KeptStudyWindow, TheFiguresOfTheFileAreTakenWhateverWasChangedMeanwhile) {
    window->KeepStudyIn(Study());
    window->Model().Set(PanelField::DepthCover, 180);
    ASSERT_TRUE(window->Model().SaveAs(PathTo("panel.TKL")));
    window->OpenPath(Study());
    Find<QComboBox>("Map_Figure").setCurrentIndex(0);
    Find<QPushButton>("Notice_0").click();
    EXPECT_EQ(TextOf("DepthCover_Box"), "180");
    EXPECT_EQ(FromQt(Find<QAction>("actUndo").text()), "&Undo: Figures of the file");
}

// What was done before belongs to another study.
TEST_F(KeptStudyWindow, NothingBeforeItIsUndone) {
    window->KeepStudyIn(Study());
    Find<QComboBox>("Map_Figure").setCurrentIndex(0);
    window->OpenPath(Study());
    EXPECT_FALSE(Find<QAction>("actUndo").isEnabled());
    EXPECT_FALSE(Find<QAction>("actRedo").isEnabled());
    EXPECT_EQ(FromQt(Find<QComboBox>("Map_Figure").currentText()), "Webs ONLY");
}

TEST_F(KeptStudyWindow, HoldsTheFiguresOfAProjectThatIsGone) {
    window->KeepStudyIn(Study());
    std::filesystem::remove(PathTo("panel.TKL"));
    window->OpenPath(Study());
    EXPECT_EQ(TextOf("DepthCover_Box"), "100");
    EXPECT_THAT(Notice(),
                HasSubstr("panel.TKL: File not found. The figures are those that the study keeps."));
    EXPECT_EQ(FromQt(window->windowTitle()), "Untitled[*] \u2013 TARVO-KOL Studies");
}

TEST_F(KeptStudyWindow, TellsWhereADamagedOneIsAtFault) {
    window->KeepStudyIn(Study());
    std::string bytes = ReadBytes(Study());
    bytes.replace(bytes.find("Seed=1"), 6, "Seed=x");
    WriteBytes(PathTo("b.tks"), bytes);
    Type("DepthCover_Box", "100");
    window->OpenPath(PathTo("b.tks"));
    EXPECT_THAT(Notice(), HasSubstr("b.tks, line 43: Seed: "));
    EXPECT_EQ(TextOf("DepthCover_Box"), "100");
}

// What would not be read again is not kept, and what stood in its place stays.
TEST_F(KeptStudyWindow, KeepsNoFaultyFigure) {
    window->KeepStudyIn(Study());
    const std::string before = ReadBytes(Study());
    Risk().Choose({{{PanelField::CoalStrength, "normal:many:15%"}}});
    window->KeepStudyIn(Study());
    EXPECT_THAT(Notice(), HasSubstr("the study is not kept: a.TKS, line "));
    EXPECT_EQ(ReadBytes(Study()), before);
}

}  // namespace
}  // namespace tarvokol
