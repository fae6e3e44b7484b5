// SPDX-License-Identifier: GPL-3.0-or-later
// The window of the stability curves.
#include "desktop/graphs/frmGraph.h"

#include <filesystem>

#include "core/project/working_parameters.h"
#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "core/settings/options_record.h"
#include "desktop/main/frmMain.h"
#include "tests/support/graph_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;

class GraphForm : public GraphTest {};

TEST_F(GraphForm, CarriesItsCaptionsAndControls) {
    frmGraph& form = ShowStability(0);
    EXPECT_EQ(form.windowTitle(), "Graph");
    EXPECT_EQ(TextOf(form, "Label1"), "X-coord:");
    EXPECT_EQ(TextOf(form, "Label3"), "Stability fact:");
    EXPECT_EQ(TextOf(form, "Label5"), "Curve:");
    EXPECT_EQ(Find<QMenu>(form, "GraphFile").title(), "&File");
    EXPECT_EQ(Find<QMenu>(form, "GraphEdit").title(), "&Edit");
    EXPECT_EQ(Find<QMenu>(form, "GraphOptions").title(), "&Options");
    EXPECT_EQ(Find<QAction>(form, "GraphFileItem_0").text(), "&Print");
    EXPECT_TRUE(Find<QAction>(form, "GraphFileItem_1").isSeparator());
    EXPECT_EQ(Find<QAction>(form, "GraphFileItem_2").text(), "Export");
    EXPECT_TRUE(Find<QAction>(form, "GraphFileItem_3").isSeparator());
    EXPECT_EQ(Find<QAction>(form, "GraphFileItem_4").text(), "E&xit");
    EXPECT_EQ(Find<QAction>(form, "GraphEditItem_0").text(), "Copy ");
    EXPECT_EQ(Find<QAction>(form, "GraphOptionsItem_0").text(), "Point ID");
    EXPECT_EQ(Find<QAction>(form, "GraphOptionsItem_1").text(), "Basic &options");
}

TEST_F(GraphForm, LoadsCentredWithPointIdCheckedAndTheChartInItsPlace) {
    frmGraph& form = ShowStability(0);
    EXPECT_TRUE(Find<QAction>(form, "GraphOptionsItem_0").isChecked());
    EXPECT_TRUE(Find<QGroupBox>(form, "Frame1").isVisible());
    EXPECT_EQ(Find<QGroupBox>(form, "Frame1").x(), 8);
    EXPECT_LE(Find<QGroupBox>(form, "Frame1").geometry().bottom(), form.Graph1().y());
    EXPECT_EQ(form.Graph1().geometry(), QRect(8, 56, 449, 313));
    const QRect frame = form.frameGeometry();
    EXPECT_NEAR(frame.center().x(), form.screen()->geometry().center().x(), 3);
    EXPECT_NEAR(frame.center().y(), form.screen()->geometry().center().y(), 3);
}

TEST_F(GraphForm, ThePointerIsBusyFromGraphInitToTheEndOfDrawCurve) {
    FillCurves(3, 5);
    frmGraph& form = frmGraph::Instance();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    form.GraphInit(0);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    form.DrawCurve();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(GraphForm, AFailureLeavesThePointerBusy) {
    frmGraph& form = frmGraph::Instance();
    EXPECT_EQ(RaisedError([&] { form.GraphInit(3); }), 9);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
}

TEST_F(GraphForm, ShowsTheThreeCurvesOfTheTable) {
    frmGraph& form = ShowStability(1);
    const ChartControl& chart = form.Graph1();
    EXPECT_EQ(chart.NumSeries(), 3);
    EXPECT_EQ(chart.AxisTitle(ChartAxis::X), "Depth of Cover (ft)");
    EXPECT_EQ(chart.AxisTitle(ChartAxis::Y), "Stability Factor");
    EXPECT_EQ(chart.HeaderText(), "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_EQ(chart.SeriesLabel(3), "Barrier Pillar");
    EXPECT_EQ(chart.Y(2, 51), static_cast<double>(7.1f));
    EXPECT_EQ(GraphRestyleCount, 0);
}

TEST_F(GraphForm, TheReadOutTakesPointsNearerThanFourPixels) {
    frmGraph& form = ShowStability(1, 3);
    const QPoint at = form.Graph1().PixelOf(2, 2);
    MoveMouse(form, at + QPoint(0, 3));
    EXPECT_EQ(TextOf(form, "lblX"), "53.00");
    EXPECT_EQ(TextOf(form, "lblSF"), "2.20");
    EXPECT_EQ(TextOf(form, "lblCurve"), "Webs ONLY");
    EXPECT_EQ(form.cursor().shape(), Qt::CrossCursor);
}

TEST_F(GraphForm, AtFourPixelsThePointerIsPlainAndTheTextsStay) {
    frmGraph& form = ShowStability(1, 3);
    const QPoint at = form.Graph1().PixelOf(2, 2);
    MoveMouse(form, at);
    MoveMouse(form, at + QPoint(4, 0));
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(TextOf(form, "lblX"), "53.00");
    EXPECT_EQ(TextOf(form, "lblCurve"), "Webs ONLY");
}

TEST_F(GraphForm, OutsideThePlotThePointerIsPlainAndTheTextsStay) {
    frmGraph& form = ShowStability(1, 3);
    MoveMouse(form, form.Graph1().PixelOf(1, 1));
    EXPECT_EQ(form.cursor().shape(), Qt::CrossCursor);
    MoveMouse(form, QPoint(2, 2));
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(TextOf(form, "lblSF"), "1.10");
}

TEST_F(GraphForm, TheReadOutRoundsToTwoDecimalsAndKeepsOneWholeDigit) {
    FillCurves(1, 2);
    CurveData(0, 1) = 12.5f;
    CurveData(1, 1) = 0.125f;
    StabilityCurveKind = 0;
    frmGraph& form = Drawn<frmGraph>(0);
    MoveMouse(form, form.Graph1().PixelOf(1, 1));
    EXPECT_EQ(TextOf(form, "lblX"), "12.50");
    EXPECT_EQ(TextOf(form, "lblSF"), "0.13");
}

TEST_F(GraphForm, TheCurvesNameIsNotTrimmedInTheReadOut) {
    frmGraph& form = ShowStability(1, 3);
    CurveNames[1] = " Overall ";
    MoveMouse(form, form.Graph1().PixelOf(1, 2));
    EXPECT_EQ(TextOf(form, "lblCurve"), " Overall ");
}

TEST_F(GraphForm, AHoleIsNotReadOut) {
    frmGraph& form = ShowStability(1, 3);
    const QPoint at = form.Graph1().PixelOf(2, 2);
    form.Graph1().SetY(2, 2, 1E+308);
    MoveMouse(form, at);
    EXPECT_EQ(TextOf(form, "lblX"), "");
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(GraphForm, PointIdTogglesTheFrame) {
    frmGraph& form = ShowStability(1);
    Choose(form, "GraphOptionsItem_0");
    EXPECT_FALSE(Find<QAction>(form, "GraphOptionsItem_0").isChecked());
    EXPECT_FALSE(Find<QGroupBox>(form, "Frame1").isVisible());
    Choose(form, "GraphOptionsItem_0");
    EXPECT_TRUE(Find<QAction>(form, "GraphOptionsItem_0").isChecked());
    EXPECT_TRUE(Find<QGroupBox>(form, "Frame1").isVisible());
}

TEST_F(GraphForm, CopyDoesNothing) {
    frmGraph& form = ShowStability(1);
    Host.TheClipboard.Text = "before";
    EXPECT_TRUE(Choose(form, "GraphEditItem_0"));
    EXPECT_EQ(Host.TheClipboard.Text, "before");
    EXPECT_TRUE(Messages().empty());
}

TEST_F(GraphForm, TheChartFollowsTheFormsSize) {
    frmGraph& form = ShowStability(1);
    form.resize(600, 500);
    // 9000 and 7500 twips: 9000 - 120 - 300 = 8580, 7500 - 840 - 700 = 5960.
    EXPECT_EQ(form.Graph1().size(), QSize(572, 397));
}

TEST_F(GraphForm, AFormSmallerThan4000TwipsSnapsBack) {
    frmGraph& form = ShowStability(1);
    form.resize(100, 100);
    RunEvents();
    EXPECT_EQ(form.size(), QSize(267, 267));
    // 4005 twips: 4005 - 120 - 300 = 3585, 4005 - 840 - 700 = 2465.
    EXPECT_EQ(form.Graph1().size(), QSize(239, 164));
}

TEST_F(GraphForm, ExitUnloadsAndEnablesTheMainWindow) {
    frmGraph& form = ShowStability(1);
    Choose(form, "GraphFileItem_4");
    EXPECT_FALSE(frmGraph::IsLoaded());
    EXPECT_TRUE(GraphClosed);
}

TEST_F(GraphForm, DeactivationReadsTheChartBackWithTheGridsExchanged) {
    ResetGraphDefaults();
    GridStyle = 1;
    frmGraph& form = ShowStability(2);
    form.Graph1().SetHeaderText("Edited on the chart");
    form.Graph1().SetSymbolSize(1, 9);
    frmGraphS& other = frmGraphS::Instance();
    SwitchTo(other);
    EXPECT_EQ(GraphTitle, "Edited on the chart");
    EXPECT_EQ(SymbolSize, 9);
    EXPECT_EQ(GridStyle, 2);
    EXPECT_EQ(XAxisTitle[2], "Hole Width (ft)");
    EXPECT_EQ(CurveLegend, 1);
}

// Another program, or the help, in front of the graph: no form of the program is active.
TEST_F(GraphForm, ADeactivationByAnotherProgramDoesNotReadBack) {
    ResetGraphDefaults();
    frmGraph& form = ShowStability(2);
    form.Graph1().SetHeaderText("Edited on the chart");
    QWidget help;
    help.show();
    help.activateWindow();
    ASSERT_TRUE(WaitUntil([&] { return QApplication::activeWindow() == &help; }));
    RunEvents();
    EXPECT_EQ(GraphTitle, "Tarvo Panel Stability Evaluation - KOL");
}

TEST_F(GraphForm, ArrowKeysStepTheReadOut) {
    frmGraph& form = ShowStability(0);
    form.Graph1().setFocus();
    Press(form, Qt::Key_Right);
    EXPECT_EQ(TextOf(form, "lblX"), "50.00");
    EXPECT_EQ(TextOf(form, "lblSF"), "1.10");
    EXPECT_EQ(TextOf(form, "lblCurve"), "Overall");
    Press(form, Qt::Key_Right);
    EXPECT_EQ(TextOf(form, "lblX"), "53.00");
    EXPECT_EQ(TextOf(form, "lblSF"), "1.20");
    Press(form, Qt::Key_Down);
    EXPECT_EQ(TextOf(form, "lblSF"), "2.20");
    EXPECT_EQ(TextOf(form, "lblCurve"), "Webs ONLY");
    EXPECT_EQ(FromQt(form.Graph1().accessibleDescription()), "Webs ONLY, X 53.00, Y 2.20");
    Press(form, Qt::Key_Up);
    Press(form, Qt::Key_Up);  // no curve above the first
    EXPECT_EQ(TextOf(form, "lblCurve"), "Overall");
    Press(form, Qt::Key_End);
    EXPECT_EQ(TextOf(form, "lblX"), "200.00");
    Press(form, Qt::Key_Right);
    EXPECT_EQ(TextOf(form, "lblX"), "200.00");
    Press(form, Qt::Key_Home);
    EXPECT_EQ(TextOf(form, "lblX"), "50.00");
}

// Whether a symbol stands there or not; the curves have 51 points, three apart.
TEST_F(GraphForm, TheReadOutStopsAtEveryPointOfEveryCurve) {
    frmGraph& form = ShowStability(1);
    const char* const names[] = {"Overall", "Webs ONLY", "Barrier Pillar"};
    form.Graph1().setFocus();
    for (int series = 1; series <= 3; ++series) {
        if (series > 1) Press(form, Qt::Key_Down);
        Press(form, Qt::Key_Home);
        for (long point = 1; point <= 51; ++point) {
            if (point > 1) Press(form, Qt::Key_Right);
            const std::string x = std::to_string(50 + 3 * (point - 1)) + ".00";
            EXPECT_EQ(TextOf(form, "lblX"), x);
            EXPECT_EQ(TextOf(form, "lblCurve"), names[series - 1]);
        }
    }
    for (int series = 1; series <= 3; ++series)
        for (long point = 1; point <= 51; ++point) {
            MoveMouse(form, form.Graph1().PixelOf(series, point));
            EXPECT_EQ(TextOf(form, "lblX"), std::to_string(50 + 3 * (point - 1)) + ".00") << series;
            EXPECT_EQ(TextOf(form, "lblCurve"), names[series - 1]) << point;
        }
}

TEST_F(GraphForm, TheReadOutStaysInsideANarrowWindow) {
    frmGraph& form = ShowStability(0);
    form.resize(267, 300);
    RunEvents();
    auto& frame = Find<QGroupBox>(form, "Frame1");
    EXPECT_LE(frame.geometry().right(), form.width());
    for (const char* name : {"Label1", "lblX", "Label3", "lblSF", "Label5", "lblCurve"})
        EXPECT_TRUE(frame.rect().contains(Find<QLabel>(form, name).geometry().topLeft())) << name;
    EXPECT_LE(Find<QLabel>(form, "Label5").geometry().bottom(),
              Find<QLabel>(form, "lblCurve").geometry().top());
    for (const char* name : {"Label5", "lblCurve"})
        EXPECT_GE(Find<QLabel>(form, name).height(), Find<QLabel>(form, name).sizeHint().height()) << name;
    form.resize(600, 420);
    RunEvents();
    EXPECT_EQ(Find<QLabel>(form, "Label5").geometry().center().y(),
              Find<QLabel>(form, "lblCurve").geometry().center().y());
}

// A font that the desktop tells late: nothing of the read-out is cut, and the chart begins below it.
TEST_F(GraphForm, TheReadOutHasRoomForALargeFont) {
    frmGraph& form = ShowStability(0);
    const QFont before = QApplication::font();
    auto& frame = Find<QGroupBox>(form, "Frame1");
    const int plain = frame.height();
    QApplication::setFont(QFont("DejaVu Sans", 16));
    EXPECT_TRUE(WaitUntil([&] { return frame.height() > plain; }));
    RunEvents();
    EXPECT_GE(frame.height(), frame.sizeHint().height());
    EXPECT_LT(frame.geometry().bottom(), form.Graph1().y());
    for (const char* name : {"Label1", "lblX", "Label3", "lblSF", "Label5", "lblCurve"}) {
        const QLabel& label = Find<QLabel>(form, name);
        EXPECT_GE(label.height(), label.sizeHint().height()) << name;
        EXPECT_GE(label.width(), label.minimumSizeHint().width()) << name;
    }
    EXPECT_LE(form.Graph1().geometry().bottom(), form.centralWidget()->height());
    QApplication::setFont(before);
    EXPECT_TRUE(WaitUntil([&] { return frame.height() == plain && form.Graph1().y() == 56; }));
}

TEST_F(GraphForm, AWorkbookWithoutAProgramForItIsToldWithItsPlace) {
    frmGraph& form = ShowStability(0);
    Workbook.LeftAt = "/tmp/Curves1.xlsx";
    Choose(form, "GraphFileItem_2");
    EXPECT_THAT(Messages(),
                ElementsAre("Exported 3 Curves",
                            "No program for workbooks was found. The workbook is:\r\n/tmp/Curves1.xlsx"));
}

TEST_F(GraphForm, ClosingDoesNotReadBack) {
    ResetGraphDefaults();
    GridStyle = 1;
    frmGraph& form = ShowStability(0);
    Choose(form, "GraphFileItem_4");
    RunEvents();
    EXPECT_EQ(GridStyle, 1);
}

TEST_F(GraphForm, AHorizontalGridTurnsAtTheNextDrawAfterAReadBack) {
    ResetGraphDefaults();
    GridStyle = 1;
    frmGraph& form = ShowStability(0);
    EXPECT_TRUE(form.Graph1().MajorGridIsAutomatic(ChartAxis::Y));
    WhenShown("frmGraphOpt", [](FormBase& dialog) { dialog.Unload(); });
    GraphSetParams = 1;
    Choose(form, "GraphOptionsItem_1");
    EXPECT_EQ(GridStyle, 2);
    EXPECT_TRUE(form.Graph1().MajorGridIsAutomatic(ChartAxis::X));
    EXPECT_FALSE(form.Graph1().MajorGridIsAutomatic(ChartAxis::Y));
}

TEST_F(GraphForm, ExportWritesTheChartsPointsAndTellsTheNumberOfCurves) {
    frmGraph& form = ShowStability(1, 21);
    Workbook.FormOnShow = &form;
    CurvePoints = 0;  // the chart's data counts, not the table
    Choose(form, "GraphFileItem_2");
    EXPECT_TRUE(Workbook.Shown);
    EXPECT_EQ(Workbook.Numbers.size(), 6u * 21);
    EXPECT_EQ(Workbook.Texts["E1"], "X-coord");
    EXPECT_EQ(Workbook.Texts["D1"], "Webs ONLY");
    EXPECT_EQ(Workbook.Numbers["A22"], 110.0);
    EXPECT_THAT(Messages(), ElementsAre("Exported 3 Curves"));
    EXPECT_EQ(Workbook.PointerAtBegin, Qt::WaitCursor);
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(GraphForm, ExportAsksIfTheSettingIsOff) {
    frmGraph& form = ShowStability(1, 3);
    AskOfficeInstall = 0;
    Host.Messages.Answers = {box_result::No};
    Choose(form, "GraphFileItem_2");
    EXPECT_FALSE(Workbook.Shown);
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
    Host.Messages.Answers = {box_result::Yes};
    Choose(form, "GraphFileItem_2");
    EXPECT_TRUE(Workbook.Shown);
    const std::string question =
        "This option will only work if Microsoft Excel is installed on this computer. Proceed?";
    EXPECT_THAT(Messages(), ElementsAre(question, question, "Exported 3 Curves"));
    EXPECT_EQ(Host.Messages.Shown[0].style, 36);
}

TEST_F(GraphForm, AWorkbookThatCannotBeCreatedIsToldByTheMenuAndLeavesThePointerBusy) {
    frmGraph& form = ShowStability(1, 3);
    Workbook.Refuses = true;
    Choose(form, "GraphFileItem_2");
    EXPECT_EQ(form.cursor().shape(), Qt::WaitCursor);
    EXPECT_THAT(
        Messages(),
        ElementsAre("Error occurred: ActiveX component can't create object (429). Procedure Terminated"));
    EXPECT_TRUE(UnhandledErrors().empty());
}

TEST_F(GraphForm, AnEmptyChartExportsNoCurves) {
    frmGraph& form = ShowStability(1, 3);
    form.ClearGraph();
    Choose(form, "GraphFileItem_2");
    EXPECT_TRUE(Workbook.Numbers.empty());
    EXPECT_THAT(Messages(), ElementsAre("Exported 0 Curves"));
}

TEST_F(GraphForm, PrintAsksForThePrinterLogsAndPrintsTheChart) {
    frmGraph& form = ShowStability(1);
    Printer.PrintToFile(PathTo("graph.pdf"));
    Host.Dialogs.PrinterAnswers = {true};
    Choose(form, "GraphFileItem_0");
    EXPECT_THAT(Host.Dialogs.PrinterFlags, ElementsAre(12));
    EXPECT_THAT(Host.MainWindow.History, EndsWith("1. Printing Graph\r\n"));
    EXPECT_EQ(ReadBytes(PathTo("graph.pdf")).substr(0, 5), "%PDF-");
    EXPECT_GT(Printer.Device().resolution(), 96);
}

TEST_F(GraphForm, ACancelledPrinterDialogPrintsAndLogsNothing) {
    frmGraph& form = ShowStability(1);
    Printer.PrintToFile(PathTo("graph.pdf"));
    Host.Dialogs.PrinterAnswers = {false};
    Choose(form, "GraphFileItem_0");
    EXPECT_FALSE(std::filesystem::exists(PathTo("graph.pdf")));
    EXPECT_EQ(Host.MainWindow.History, "");
    EXPECT_TRUE(Messages().empty());
}

TEST_F(GraphForm, ACancelledPrintLeavesTheNextOneItsWay) {
    frmGraph& form = ShowStability(1);
    Printer.PrintToFile(PathTo("graph.pdf"));
    Host.Dialogs.PrinterAnswers = {false, true};
    Choose(form, "GraphFileItem_0");
    Choose(form, "GraphFileItem_0");
    EXPECT_EQ(ReadBytes(PathTo("graph.pdf")).substr(0, 5), "%PDF-");
    EXPECT_EQ(Host.MainWindow.History, "1. Printing Graph\r\n");
}

TEST_F(GraphForm, WithoutAPrinterNothingIsPrinted) {
    frmGraph& form = ShowStability(1);
    Host.Dialogs.PrinterAnswers = {true};
    Platform.Printer = nullptr;
    Choose(form, "GraphFileItem_0");
    EXPECT_THAT(Host.MainWindow.History, EndsWith("1. Printing Graph\r\n"));
    EXPECT_TRUE(Messages().empty());
}

TEST_F(GraphForm, AFailedPrintIsPassedOver) {
    frmGraph& form = ShowStability(1);
    Printer.PrintToFile(PathTo("gone/graph.pdf"));
    Host.Dialogs.PrinterAnswers = {true};
    Choose(form, "GraphFileItem_0");
    EXPECT_THAT(Host.MainWindow.History, HasSubstr("Printing Graph"));
    EXPECT_TRUE(Messages().empty());
    EXPECT_TRUE(UnhandledErrors().empty());
}

TEST_F(GraphForm, WheelAndDoubleClickChangeNoSetting) {
    frmGraph& form = ShowStability(1);
    QWheelEvent wheel(QPointF(200, 150), form.Graph1().mapToGlobal(QPointF(200, 150)), QPoint(),
                      QPoint(0, 360), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&form.Graph1(), &wheel);
    EXPECT_FALSE(form.Graph1().ShowsWholeRange());
    frmGraphS& other = frmGraphS::Instance();
    SwitchTo(other);
    EXPECT_EQ(GridStyle, 0);
    EXPECT_EQ(SymbolSize, 5);
    EXPECT_EQ(XAxisTitle[1], "Depth of Cover (ft)");
    QTest::mouseDClick(&form.Graph1(), Qt::LeftButton, Qt::NoModifier, QPoint(200, 150));
    EXPECT_TRUE(form.Graph1().ShowsWholeRange());
}

}  // namespace
}  // namespace tarvokol
