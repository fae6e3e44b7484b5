// SPDX-License-Identifier: GPL-3.0-or-later
// What the parameters dialog does with figures that are not accepted yet: sizing, plan, results, its own
// picture.
#include <QClipboard>
#include <QScrollBar>

#include "core/graphics/TarvoGraf.h"
#include "core/messages/titles.h"
#include "core/project/preview_record.h"
#include "core/project/project_state.h"
#include "core/project/recovery_copy.h"
#include "core/report/results_state.h"
#include "core/settings/folders.h"
#include "desktop/base/results_caller.h"
#include "qt/plan/plan_sheet.h"
#include "tests/gui/input/parameters_fixture.h"
#include "tests/support/ink.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- sizing

class ParametersSized : public ParametersDialog {
  protected:
    static void Size(frmTARVOParm& form) {
        ShowTab(form, 2);
        Press("cmdSize");
    }

    static void ExpectSizes(frmTARVOParm& form, const char* web, const char* barrier) {
        EXPECT_EQ(TextOf(form, "txtSugWeb"), web);
        EXPECT_EQ(TextOf(form, "txtSugBarrier"), barrier);
    }
};

TEST_F(ParametersSized, SuggestsFeetInEnglish) {
    frmTARVOParm& form = Open();
    Size(form);
    ExpectSizes(form, "3.25", "10.20");
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(TextOf(form, "txtWebThickness"), "10");
}

TEST_F(ParametersSized, SuggestsInchesInMetric) {
    UnitSystem = 1;
    ProjectRecord.Height = ProjectRecord.HoleWidth = ProjectRecord.WebThickness = 3.048;
    ProjectRecord.DepthCover = 30.48;
    ProjectRecord.BarrierPillarWidth = 6.096;
    ProjectRecord.CoalStrength = 6.21;
    ProjectRecord.UnitWeight = 25.45;
    frmTARVOParm& form = Open();
    Size(form);
    ExpectSizes(form, "38.97", "122.34");
}

TEST_F(ParametersSized, WhatIsTypedCounts) {
    frmTARVOParm& form = Open();
    Enter(form, "txtWebThickness", "");
    Size(form);
    ExpectSizes(form, "3.25", "9.39");
    Enter(form, "txtSFBarrier", "");
    Enter(form, "txtWebThickness", "10");
    Size(form);
    ExpectSizes(form, "3.25", "0.00");
    EXPECT_EQ(ProjectRecord.WebThickness, 10);
    EXPECT_EQ(ProjectRecord.SFBarrier, 2);
}

TEST_F(ParametersSized, WithoutAUnitWeightTheStartCountsAsTheWeb) {
    frmTARVOParm& form = Open();
    Enter(form, "txtUnitWeight", "");
    Size(form);
    ExpectSizes(form, "100.00", "0.00");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ParametersSized, AFailureShowsLikeAResult) {
    const std::string negative =
        "Iteration produced negative pillar size. Check input data. If problem persists, contact Developer";
    ProjectRecord.DepthCover = 10;
    ProjectRecord.UnitWeight = 100000;
    frmTARVOParm& form = Open();
    Size(form);
    ExpectSizes(form, "-0.08", "-0.08");
    EXPECT_THAT(Messages(), ElementsAre(negative, negative));
    EXPECT_EQ(Host.Messages.Shown[0].style, 0);
    EXPECT_EQ(Host.Messages.Shown[0].title, AppLongTitle);
}

TEST_F(ParametersSized, AFailureInMetricShowsMinusOne) {
    UnitSystem = 1;
    ProjectRecord.Height = ProjectRecord.HoleWidth = ProjectRecord.WebThickness = 3;
    ProjectRecord.DepthCover = 10;
    ProjectRecord.CoalStrength = 6.21;
    ProjectRecord.UnitWeight = 10000;
    frmTARVOParm& form = Open();
    Size(form);
    ExpectSizes(form, "-1.00", "-1.00");
}

// Keeps what the web's field shows while the box is up.
class WatchingBox : public HeadlessMessageBox {
  public:
    explicit WatchingBox(const QLineEdit& watched) : watched_(watched) {}
    int Show(const BoxRequest& request) override {
        Seen.push_back(FromQt(watched_.text()));
        return HeadlessMessageBox::Show(request);
    }

    std::vector<std::string> Seen;

  private:
    const QLineEdit& watched_;
};

TEST_F(ParametersSized, TheWebShowsBeforeTheBarrierIsAttempted) {
    frmTARVOParm& form = Open();
    WatchingBox boxes(Box(form, "txtSugWeb"));
    Platform.Messages = &boxes;
    Enter(form, "txtSFBarrier", "1000");
    Size(form);
    Platform.Messages = &Host.Messages;
    EXPECT_THAT(boxes.Seen, ElementsAre("3.25"));
    ExpectSizes(form, "3.25", "-0.08");
}

TEST_F(ParametersSized, ABlankAbutmentAngleEndsInATypeMismatch) {
    frmTARVOParm& form = Open();
    for (const char* angle : {"", "21 deg"}) {
        Enter(form, "txtAbutmentAngleActiveGob", angle);
        Size(form);
    }
    ASSERT_EQ(UnhandledErrors().size(), 2u);
    for (const RunTimeError& error : UnhandledErrors()) {
        EXPECT_EQ(error.number, 13);
        EXPECT_EQ(error.text, "Type mismatch");
    }
    ExpectSizes(form, "", "");
}

TEST_F(ParametersSized, WhatWasTypedIsKeptWhenAnErrorEndsTheProgram) {
    TempDataFolder = PathTo("");
    frmTARVOParm& form = Open();
    Enter(form, "txtHeight", "8.75");
    Enter(form, "txtAbutmentAngleActiveGob", "");
    const PanelInputs project = ProjectRecord;
    Size(form);
    ASSERT_EQ(UnhandledErrors().size(), 1u);
    EXPECT_THAT(ReadBytes(UnsavedWorkPath()), testing::HasSubstr("##EndDesc##\r\n8.75\r\n"));
    EXPECT_EQ(ProjectRecord.Height, project.Height);
    EXPECT_EQ(ProjectSaved, 255);
    DropRecoveryCopy();
    TempDataFolder = "";
}

// --- plan

class ParametersDrawn : public ParametersDialog {
  protected:
    static QImage Plan(QWidget& form) {
        return PictureOf(Find<PlanSheet>(form, "Picture1")).convertToFormat(QImage::Format_RGB32);
    }

    // The smallest rectangle that holds everything dark.
    static QRect InkOf(const QImage& image) {
        QRect ink;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (qGray(image.pixel(x, y)) < 128) ink |= QRect(x, y, 1, 1);
        return ink;
    }

    // Three holes of 10 with webs of 8 and a barrier of 20: a world of 316.8, pillars from x 135.4 to 191.4
    // and from y 78.4 to 268.4.
    static frmTARVOParm& OpenThreeHoles() {
        ProjectRecord.NumberHoles = 3;
        ProjectRecord.WebThickness = 8;
        return Open();
    }
};

TEST_F(ParametersDrawn, TheFrameIsWhitePaperUntilViewIsPressed) {
    QPalette dark;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::Base, Qt::black);
    frmTARVOParm& form = OpenThreeHoles();
    form.setPalette(dark);
    const QImage paper = Plan(form);
    EXPECT_TRUE(InkOf(paper).isNull());
    EXPECT_EQ(paper.pixelColor(300, 60), QColor(Qt::white));
}

TEST_F(ParametersDrawn, ViewDrawsTheOutlinesIntoTheFrame) {
    frmTARVOParm& form = OpenThreeHoles();
    Press("cmdView");
    const QRect ink = InkOf(Plan(form));
    EXPECT_NEAR(ink.left(), 256.9, 1.5);
    EXPECT_NEAR(ink.right(), 363.1, 1.5);
    EXPECT_NEAR(ink.top(), 18.5, 1.5);
    EXPECT_NEAR(ink.bottom(), 91.1, 1.5);
    EXPECT_TRUE(form.isEnabled());
    EXPECT_EQ(FindForm("frmPicture"), nullptr);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ParametersDrawn, ThePlanShowsWhatIsTypedNotTheProject) {
    frmTARVOParm& form = OpenThreeHoles();
    Press("cmdView");
    const QRect three = InkOf(Plan(form));
    Enter(form, "txtNumberHoles", "6");
    EXPECT_EQ(InkOf(Plan(form)), three);
    Press("cmdView");
    EXPECT_GT(InkOf(Plan(form)).width(), three.width());
    EXPECT_EQ(ProjectRecord.NumberHoles, 3);
    EXPECT_EQ(PreviewRecord.NumberHoles, 6);
}

TEST_F(ParametersDrawn, ViewFillsTheTrialRecord) {
    ProjectRecord.CrosscutSpacing = 250;
    frmTARVOParm& form = OpenThreeHoles();
    Enter(form, "txtHeight", "7");
    Enter(form, "txtBarrierPillarWidth", "30");
    Enter(form, "txtSFWeb", "1.3");
    Press("cmdView");
    EXPECT_EQ(PreviewRecord.Height, 7);
    EXPECT_EQ(PreviewRecord.DepthCover, 100);
    EXPECT_EQ(PreviewRecord.HoleWidth, 10);
    EXPECT_EQ(PreviewRecord.WebThickness, 8);
    EXPECT_EQ(PreviewRecord.BarrierPillarWidth, 30);
    EXPECT_EQ(PreviewRecord.CrosscutSpacing, 250);
    EXPECT_EQ(PreviewRecord.CrosscutAngle, 90);
    EXPECT_EQ(PreviewRecord.CenterDistance[1], 40);
    EXPECT_EQ(PreviewRecord.CenterDistance[2], 18);
    EXPECT_EQ(PreviewRecord.CenterDistance[3], 18);
    EXPECT_EQ(PreviewRecord.PreviewCrosscutSpacing[3], 250);
    EXPECT_EQ(PreviewRecord.PreviewCrosscutAngle, 90);
    EXPECT_EQ(PreviewRecord.CoalStrength, 900);
    EXPECT_EQ(PreviewRecord.UnitWeight, 162);
    EXPECT_EQ(PreviewRecord.AbutmentAngle, 21);
    EXPECT_EQ(PreviewRecord.SFWeb, 1.3f);
    EXPECT_EQ(PreviewRecord.SFBarrier, 2);
    EXPECT_EQ(ProjectRecord.Height, 10);
}

TEST_F(ParametersDrawn, ASkewProjectHasNoPlanAndTheFrameStays) {
    frmTARVOParm& form = OpenThreeHoles();
    Press("cmdView");
    const QImage before = Plan(form);
    ProjectRecord.CrosscutAngle = 60;
    CornerX = {};
    CornerY = {};
    Press("cmdView");
    EXPECT_THAT(Messages(), ElementsAre("Invalid Pillar Dimensions"));
    EXPECT_EQ(Plan(form), before);
}

TEST_F(ParametersDrawn, ViewOpensThePlotWindowIfTheSettingsSaySo) {
    ViewChildWindow = 1;
    PlotMode = plot_mode::Capacity;
    frmTARVOParm& form = OpenThreeHoles();
    Press("cmdView");
    FormBase* plot = FindForm("frmPicture");
    ASSERT_NE(plot, nullptr);
    EXPECT_TRUE(plot->isVisible());
    EXPECT_FALSE(plot->isModal());
    EXPECT_FALSE(form.isEnabled());
    EXPECT_FALSE(form.close());
    EXPECT_EQ(PlotMode, 1);
    EXPECT_TRUE(InkOf(Plan(form)).isNull());
    plot->close();
    EXPECT_TRUE(form.isEnabled());
    EXPECT_TRUE(WaitUntil([&] { return form.isActiveWindow(); }));
    EXPECT_TRUE(UnhandledErrors().empty());
}

TEST_F(ParametersDrawn, ThePlanIsHeldInTheScreensOwnPixels) {
    frmTARVOParm& form = OpenThreeHoles();
    Press("cmdView");
    auto& sheet = Find<PlanSheet>(form, "Picture1");
    EXPECT_TRUE(sheet.HasDrawing());
    EXPECT_EQ(sheet.PaperSize(), QSize(601, 121));
    EXPECT_EQ(sheet.grab().size(), QSize(601, 121) * sheet.devicePixelRatioF());
}

// --- results

class ParametersTried : public ParametersDialog {
  protected:
    static FormBase& Viewer() {
        FormBase* viewer = FindForm("frmResTxtPlt");
        if (viewer == nullptr) throw std::runtime_error("the results viewer is not open");
        return *viewer;
    }

    // Runs the results of a height of 5 over a project of 10.
    frmTARVOParm& Run() {
        frmTARVOParm& form = Open();
        Enter(form, "txtHeight", "5");
        Press("cmdResults");
        return form;
    }

    static void CloseViewer(frmTARVOParm& form) {
        Viewer().close();
        EXPECT_TRUE(WaitUntil([&] { return form.isActiveWindow(); }));
        RunEvents();
    }
};

TEST_F(ParametersTried, ResultsOpenOverTheDisabledDialog) {
    frmTARVOParm& form = Open();
    Press("cmdResults");
    EXPECT_TRUE(Viewer().isVisible());
    EXPECT_FALSE(Viewer().isModal());
    EXPECT_FALSE(form.isEnabled());
    EXPECT_EQ(ResultsCaller, &form);
    EXPECT_EQ(ResultsReturn, 2);
    EXPECT_NE(OutputBuffers[1].find("Overall............................5.93"), std::string::npos);
    EXPECT_NE(OutputBuffers[1].find("Webs ONLY..........................4.72"), std::string::npos);
    EXPECT_NE(OutputBuffers[1].find("Barrier Pillar.....................4.71"), std::string::npos);
    EXPECT_FALSE(OutputBuffers[0].empty());
    EXPECT_FALSE(OutputBuffers[2].empty());
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_TRUE(UnhandledErrors().empty());
}

TEST_F(ParametersTried, TheRunTakesTheDialogsFiguresAndTheReturnRestoresTheProject) {
    frmTARVOParm& form = Run();
    EXPECT_EQ(ProjectRecord.Height, 5);
    CloseViewer(form);
    EXPECT_TRUE(form.isEnabled());
    EXPECT_EQ(ResultsReturn, 1);
    EXPECT_EQ(ProjectRecord.Height, 10);
    EXPECT_EQ(TextOf(form, "txtHeight"), "5");
    Press("cmdCancel");
    EXPECT_EQ(ProjectRecord.Height, 10);
    EXPECT_EQ(ProjectSaved, 255);
    EXPECT_EQ(ProjectEmpty, 255);
}

TEST_F(ParametersTried, AfterTheReturnOkStoresWhatWasTried) {
    frmTARVOParm& form = Run();
    CloseViewer(form);
    Press("cmdOK");
    EXPECT_EQ(ProjectRecord.Height, 5);
    EXPECT_EQ(ProjectSaved, 0);
}

TEST_F(ParametersTried, ASecondRunKeepsTheSameProjectSafe) {
    frmTARVOParm& form = Run();
    CloseViewer(form);
    Enter(form, "txtHeight", "6");
    Press("cmdResults");
    EXPECT_EQ(ProjectRecord.Height, 6);
    CloseViewer(form);
    EXPECT_EQ(ProjectRecord.Height, 10);
}

TEST_F(ParametersTried, ARefusedRunLeavesTheDialogsFiguresInTheProject) {
    frmTARVOParm& form = Open();
    Enter(form, "txtHeight", "5");
    Enter(form, "txtAbutmentAngleActiveGob", "0");
    Press("cmdResults");
    ASSERT_THAT(Messages(), ElementsAre("Invalid abutment angle"));
    EXPECT_EQ(Host.Messages.Shown[0].style, 0);
    EXPECT_EQ(Host.Messages.Shown[0].title, AppLongTitle);
    EXPECT_EQ(FindForm("frmResTxtPlt"), nullptr);
    EXPECT_TRUE(form.isEnabled());
    EXPECT_EQ(ProjectRecord.Height, 5);
    EXPECT_EQ(ProjectRecord.AbutmentAngle, 0);
    Press("cmdCancel");
    EXPECT_EQ(ProjectRecord.Height, 5);
    EXPECT_EQ(ProjectRecord.AbutmentAngle, 0);
    EXPECT_EQ(ProjectSaved, 255);
}

TEST_F(ParametersTried, AnAngleOfZeroPassesOkAndFailsTheNextRun) {
    Enter(Open(), "txtAbutmentAngleActiveGob", "0");
    Press("cmdOK");
    EXPECT_THAT(Messages(), IsEmpty());
    Reopen();
    Press("cmdResults");
    EXPECT_THAT(Messages(), ElementsAre("Invalid abutment angle"));
}

// --- picture of the dialog

TEST_F(ParametersDialog, ItsPictureGoesToTheClipboardAndTheMessageSaysSo) {
    frmTARVOParm& form = Open();
    QGuiApplication::clipboard()->clear();
    Press("cmdCopyClip");
    const QImage image = QGuiApplication::clipboard()->image();
    ASSERT_FALSE(image.isNull());
    EXPECT_EQ(image.size(), form.size() * form.devicePixelRatioF());
    ASSERT_THAT(Messages(), ElementsAre("Screenshot of dialog copied to clipboard"));
    EXPECT_EQ(Host.Messages.Shown[0].title, "Message");
    EXPECT_EQ(Host.Messages.Shown[0].style, 0);
    EXPECT_EQ(History(),
              "1. Editing Project Parameters\r\n"
              "2. Message: Screenshot of dialog copied to clipboard\r\n");
}

TEST_F(ParametersDialog, ThePictureShowsTheTabThatShows) {
    frmTARVOParm& form = Open();
    Press("cmdCopyClip");
    const QImage standard = QGuiApplication::clipboard()->image();
    ShowTab(form, 2);
    Press("cmdCopyClip");
    EXPECT_NE(QGuiApplication::clipboard()->image(), standard);
}

}  // namespace
}  // namespace tarvokol
