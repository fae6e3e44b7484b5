// SPDX-License-Identifier: GPL-3.0-or-later
// The two tests of the parameters dialog: every refusal with its message, tab and focus.
#include "core/graphics/TarvoGraf.h"
#include "tests/gui/input/parameters_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Refusal {
    const char* box;
    const char* text;
    const char* message;
    int tab;
};

class ParametersRefused : public ParametersDialog {
  protected:
    // Enters one bad text into a sound dialog, presses the button from another tab, and looks at the answer.
    void ExpectRefusal(const Refusal& row, const std::string& button, int style) {
        SCOPED_TRACE(std::string(row.box) + " = '" + row.text + "'");
        Host.Messages.Shown.clear();
        frmTARVOParm& form = Reopen();
        Enter(form, row.box, row.text);
        ShowTab(form, (row.tab + 1) % 3);
        form.activateWindow();
        Find<QPushButton>(form, button).setFocus();
        Find<QPushButton>(form, button).click();
        ASSERT_EQ(Host.Messages.Shown.size(), 1u);
        EXPECT_EQ(Host.Messages.Shown[0].message, row.message);
        EXPECT_EQ(Host.Messages.Shown[0].style, style);
        EXPECT_EQ(Host.Messages.Shown[0].title, "Project Parameters: Range Error");
        ASSERT_TRUE(frmTARVOParm::IsLoaded());
        EXPECT_EQ(Tab(form), row.tab);
        EXPECT_EQ(FocusName(form), row.box);
        EXPECT_TRUE(Box(form, row.box).hasFocus());
        EXPECT_EQ(Box(form, row.box).selectedText(), ToQt(row.text));
        EXPECT_TRUE(form.isEnabled());
        EXPECT_EQ(ProjectSaved, 255);
    }

    // Rows of the full test but the number of holes, whose box admits no such number.
    static std::vector<Refusal> FullTest() {
        return {{"txtHeight", "0", "Invalid extraction height", 0},
                {"txtHeight", "-1", "Invalid extraction height", 0},
                {"txtHeight", "", "Invalid extraction height", 0},
                {"txtHeight", "ten", "Invalid extraction height", 0},
                {"txtDepthCover", "0", "Invalid depth of cover", 0},
                {"txtHoleWidth", "-0.5", "Invalid hole width", 0},
                {"txtWebThickness", "0", "Invalid web thickness width", 0},
                {"txtBarrierPillarWidth", "0", "Invalid barrier pillar width", 0},
                {"txtBarrierPillarWidth", "10",
                 "Barrier pillar width should be greater than web thickness width", 0},
                {"txtBarrierPillarWidth", "9.99",
                 "Barrier pillar width should be greater than web thickness width", 0},
                {"txtCoalStrength", "0", "Invalid in situ coal strength", 1},
                {"txtUnitWeight", "", "Invalid overburden unit weight", 1},
                {"txtAbutmentAngleActiveGob", "-0.1", "Invalid abutment angle of gob", 1},
                {"txtAbutmentAngleActiveGob", "90.1", "Invalid abutment angle of gob", 1},
                {"txtSFWeb", "0", "Invalid Stability Factor for webs", 2},
                {"txtSFBarrier", "x2", "Invalid Stability Factor for barriers", 2}};
    }
};

TEST_F(ParametersRefused, OkTellsTheFaultAndShowsItsBox) {
    for (const Refusal& row : FullTest()) ExpectRefusal(row, "cmdOK", 16);
}

TEST_F(ParametersRefused, ViewAndResultsRunTheFullTestToo) {
    for (const Refusal& row : FullTest()) {
        ExpectRefusal(row, "cmdView", 16);
        ExpectRefusal(row, "cmdResults", 16);
    }
    EXPECT_EQ(ProjectRecord.Height, 10);
    EXPECT_EQ(FindForm("frmPicture"), nullptr);
}

TEST_F(ParametersRefused, AnEmptyNumberOfHolesOfAnOversizedProjectIsRefused) {
    ProjectRecord.NumberHoles = 21;
    frmTARVOParm& form = Open();
    Host.Messages.Shown.clear();
    ShowTab(form, 2);
    Press("cmdOK");
    EXPECT_THAT(Messages(), ElementsAre("Invalid number of Holes"));
    EXPECT_EQ(Host.Messages.Shown[0].style, 16);
    EXPECT_EQ(Tab(form), 0);
    EXPECT_EQ(FocusName(form), "txtNumberHoles");
    EXPECT_EQ(ProjectRecord.NumberHoles, 21);
}

TEST_F(ParametersRefused, FaultsAreToldOneByOneInTheirOrder) {
    ProjectRecord = PanelInputs{};
    ProjectRecord.NumberHoles = 30;
    ProjectRecord.AbutmentAngle = 91;
    frmTARVOParm& form = Open();
    Host.Messages.Shown.clear();
    const std::pair<const char*, const char*> repairs[] = {{"txtHeight", "10"},
                                                           {"txtDepthCover", "100"},
                                                           {"txtHoleWidth", "10"},
                                                           {"txtWebThickness", "10"},
                                                           {"txtBarrierPillarWidth", "10"},
                                                           {"txtBarrierPillarWidth", "20"},
                                                           {"txtNumberHoles", "5"},
                                                           {"txtCoalStrength", "900"},
                                                           {"txtUnitWeight", "162"},
                                                           {"txtAbutmentAngleActiveGob", "90"},
                                                           {"txtSFWeb", "1.6"},
                                                           {"txtSFBarrier", "2"}};
    for (const auto& [box, text] : repairs) {
        Press("cmdOK");
        EXPECT_EQ(FocusName(form), box);
        Enter(form, box, text);
    }
    Press("cmdOK");
    EXPECT_FALSE(frmTARVOParm::IsLoaded());
    EXPECT_THAT(Messages(),
                ElementsAre("Invalid extraction height", "Invalid depth of cover", "Invalid hole width",
                            "Invalid web thickness width", "Invalid barrier pillar width",
                            "Barrier pillar width should be greater than web thickness width",
                            "Invalid number of Holes", "Invalid in situ coal strength",
                            "Invalid overburden unit weight", "Invalid abutment angle of gob",
                            "Invalid Stability Factor for webs", "Invalid Stability Factor for barriers"));
}

TEST_F(ParametersRefused, AnglesFromZeroToNinetyPassOk) {
    for (const char* angle : {"0", "90", ""}) {
        Enter(Reopen(), "txtAbutmentAngleActiveGob", angle);
        Press("cmdOK");
        EXPECT_FALSE(frmTARVOParm::IsLoaded()) << angle;
    }
    EXPECT_EQ(ProjectRecord.AbutmentAngle, 0);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ParametersRefused, MembersAnswerAsTheButtonsDo) {
    frmTARVOParm& form = Open();
    EXPECT_TRUE(form.ValidateAll());
    EXPECT_TRUE(form.ValidateForSizing());
    Enter(form, "txtUnitWeight", "");
    EXPECT_TRUE(form.ValidateForSizing());
    EXPECT_FALSE(form.ValidateAll());
    EXPECT_THAT(Messages(), ElementsAre("Invalid overburden unit weight"));
}

TEST_F(ParametersRefused, ViewGoesBackToDimensionsEvenIfItIsRefused) {
    frmTARVOParm& form = Open();
    PlotMode = plot_mode::Capacity;
    Enter(form, "txtHeight", "0");
    Press("cmdView");
    EXPECT_EQ(PlotMode, 1);
}

TEST_F(ParametersRefused, SizeTellsItsFaultsInAPlainBox) {
    const Refusal rows[] = {{"txtDepthCover", "0", "Invalid depth of cover", 0},
                            {"txtHeight", "", "Invalid extraction height", 0},
                            {"txtHoleWidth", "-1", "Invalid hole width", 0},
                            {"txtCoalStrength", "0", "Invalid pillar strength", 1}};
    for (const Refusal& row : rows) ExpectRefusal(row, "cmdSize", 0);
}

TEST_F(ParametersRefused, SizeChecksTheRangeOfTheWebFactor) {
    const Refusal rows[] = {
        {"txtSFWeb", "0.99", "Value '0.99' is outside input range\r\nValid range is: 1-10", 2},
        {"txtSFWeb", "10.5", "Value '10.5' is outside input range\r\nValid range is: 1-10", 2},
        {"txtSFWeb", "", "Blank field not allowed", 2}};
    for (const Refusal& row : rows) ExpectRefusal(row, "cmdSize", 16);
}

TEST_F(ParametersRefused, SizeTellsItsFaultsOneByOneInTheirOrder) {
    frmTARVOParm& form = Open();
    for (const char* box : {"txtHeight", "txtDepthCover", "txtHoleWidth", "txtSFWeb", "txtCoalStrength"})
        Enter(form, box, "0");
    const std::pair<const char*, const char*> repairs[] = {{"txtDepthCover", "100"},
                                                           {"txtSFWeb", "1.6"},
                                                           {"txtHeight", "10"},
                                                           {"txtHoleWidth", "10"},
                                                           {"txtCoalStrength", "900"}};
    for (const auto& [box, text] : repairs) {
        ShowTab(form, 2);
        Press("cmdSize");
        EXPECT_EQ(FocusName(form), box);
        EXPECT_EQ(TextOf(form, "txtSugWeb"), "");
        Enter(form, box, text);
    }
    ShowTab(form, 2);
    Press("cmdSize");
    EXPECT_EQ(TextOf(form, "txtSugWeb"), "3.25");
    EXPECT_THAT(
        Messages(),
        ElementsAre("Invalid depth of cover", "Value '0' is outside input range\r\nValid range is: 1-10",
                    "Invalid extraction height", "Invalid hole width", "Invalid pillar strength"));
}

// Five holes of the fixture; what a single cannot hold is no size.
std::vector<Refusal> FiguresBeyondASingle() {
    return {{"txtHeight", "1E400", "Invalid extraction height", 0},
            {"txtHeight", "-1E400", "Invalid extraction height", 0},
            {"txtHeight", "5E-324", "Invalid extraction height", 0},
            {"txtDepthCover", "1E39", "Invalid depth of cover", 0},
            {"txtDepthCover", "5E-324", "Invalid depth of cover", 0},
            {"txtDepthCover", "2.9E37", "Invalid depth of cover", 0},
            {"txtHoleWidth", "1E39", "Invalid hole width", 0},
            {"txtHoleWidth", "1E38", "Invalid hole width", 0}};
}

TEST_F(ParametersRefused, FiguresBeyondASingleByEveryButtonThatReckons) {
    for (const Refusal& row : FiguresBeyondASingle()) {
        ExpectRefusal(row, "cmdOK", 16);
        ExpectRefusal(row, "cmdView", 16);
        ExpectRefusal(row, "cmdResults", 16);
        ExpectRefusal(row, "cmdSize", 0);
    }
    ExpectRefusal({"txtBarrierPillarWidth", "3.4E38", "Invalid barrier pillar width", 0}, "cmdOK", 16);
    ExpectRefusal({"txtSFWeb", "1E39", "Invalid Stability Factor for webs", 2}, "cmdOK", 16);
    ExpectRefusal({"txtSFBarrier", "1E39", "Invalid Stability Factor for barriers", 2}, "cmdView", 16);
    ExpectRefusal({"txtAbutmentAngleActiveGob", "1E400", "Invalid abutment angle of gob", 1}, "cmdOK", 16);
    EXPECT_THAT(UnhandledErrors(), IsEmpty());
}

TEST_F(ParametersRefused, FiguresThatTheSolverCannotHoldBySizePillars) {
    ExpectRefusal({"txtWebThickness", "1E39", "Invalid web thickness width", 0}, "cmdSize", 0);
    ExpectRefusal({"txtUnitWeight", "1E39", "Invalid overburden unit weight", 1}, "cmdSize", 0);
    ExpectRefusal({"txtCoalStrength", "2.9E37", "Invalid pillar strength", 1}, "cmdSize", 0);
    ExpectRefusal({"txtAbutmentAngleActiveGob", "1E400", "Invalid abutment angle of gob", 1}, "cmdSize", 0);
    ExpectRefusal({"txtSFBarrier", "1E39", "Invalid Stability Factor for barriers", 2}, "cmdSize", 0);
    ExpectRefusal({"txtSFWeb", "1E400", "Value '1E400' is outside input range\r\nValid range is: 1-10", 2},
                  "cmdSize", 0x10);
    EXPECT_THAT(UnhandledErrors(), IsEmpty());
}

TEST_F(ParametersRefused, CalculatedFieldsWithoutAValueAreEmpty) {
    frmTARVOParm& form = Open();
    Enter(form, "txtWebThickness", "1E39");
    EXPECT_EQ(TextOf(form, "txtPanelWidth"), "");
    EXPECT_EQ(TextOf(form, "txtExtractRatio"), "");
    Enter(form, "txtWebThickness", "10");
    EXPECT_EQ(TextOf(form, "txtPanelWidth"), "90.");
    Enter(form, "txtBarrierPillarWidth", "1E400");
    EXPECT_EQ(TextOf(form, "txtPanelWidth"), "90.");
    EXPECT_EQ(TextOf(form, "txtExtractRatio"), "");
    Enter(form, "txtHoleWidth", "1E38");  // five of them
    EXPECT_EQ(TextOf(form, "txtPanelWidth"), "");
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_THAT(UnhandledErrors(), IsEmpty());
}

TEST_F(ParametersRefused, AProjectWithFiguresBeyondASingleOpensToBeMended) {
    ProjectRecord.HoleWidth = 1e39;
    ProjectRecord.WebThickness = 1e300;
    ProjectRecord.BarrierPillarWidth = -1e39;
    ProjectRecord.Height = 5e-324;
    frmTARVOParm& form = Open();
    EXPECT_EQ(TextOf(form, "txtHoleWidth"), "1E+39");
    EXPECT_EQ(TextOf(form, "txtWebThickness"), "1E+300");
    EXPECT_EQ(TextOf(form, "txtBarrierPillarWidth"), "-1E+39");
    EXPECT_EQ(TextOf(form, "txtHeight"), "4.94065645841247E-324");
    EXPECT_EQ(TextOf(form, "txtPanelWidth"), "");
    EXPECT_EQ(TextOf(form, "txtExtractRatio"), "");
    for (const auto& [box, text] :
         std::vector<std::pair<std::string, std::string>>{{"txtHoleWidth", "10"},
                                                          {"txtWebThickness", "10"},
                                                          {"txtBarrierPillarWidth", "20"},
                                                          {"txtHeight", "10"}})
        Enter(form, box, text);
    Press("cmdOK");
    EXPECT_FALSE(frmTARVOParm::IsLoaded());
    EXPECT_EQ(ProjectRecord.HoleWidth, 10);
    EXPECT_THAT(UnhandledErrors(), IsEmpty());
}

}  // namespace
}  // namespace tarvokol
