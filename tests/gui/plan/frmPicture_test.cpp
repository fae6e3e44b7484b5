// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/plan/frmPicture.h"

#include <QAccessible>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QScreen>

#include "core/graphics/TarvoGraf.h"
#include "core/messages/titles.h"
#include "core/platform/message_box.h"
#include "core/project/preview_record.h"
#include "core/project/project_state.h"
#include "core/project/working_parameters.h"
#include "core/report/results_state.h"
#include "core/settings/option_settings.h"
#include "desktop/base/form_registry.h"
#include "desktop/base/modCapture.h"
#include "qt/plan/plan_sheet.h"
#include "qt/print/page_painter.h"
#include "qt/print/qt_printer.h"
#include "tests/support/gui_fixture.h"
#include "tests/support/ink.h"
#include "tests/support/planned_panel.h"
#include "tests/support/recording_printer.h"

namespace tarvokol {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// The two forms that open the plot window.
class OpeningViewer : public SingleForm<OpeningViewer> {
  public:
    OpeningViewer() { setObjectName("frmResTxtPlt"); }
};
class OpeningDialog : public SingleForm<OpeningDialog> {
  public:
    OpeningDialog() { setObjectName("frmTARVOParm"); }
};

class PlotWindow : public GuiTest {
  protected:
    PlotWindow() {
        ViewChildWindow = 1;
        PlotEntryDims = 1;
        PlotXcutDims = PlotSingleXcutDims = 0;
        UnitSystem = 0;
        PlotFromResults = false;
        CornerX.Fill({});
        CornerY.Fill({});
        WorkingParameters = {};
        ResultsReturn = results_return::Normal;
        PlanPanel(3);
    }

    ~PlotWindow() override {
        Platform.Printer = nullptr;
        ResultsReturn = results_return::Normal;
    }

    template <typename Opener>
    static frmPicture& OpenFrom() {
        ShowAndActivate(Opener::Instance());
        Opener::Instance().setEnabled(false);
        frmPicture& form = frmPicture::Instance();
        ShowAndActivate(form);
        Settle(form);
        return form;
    }

    static frmPicture& OpenFromViewer() {
        ResultsReturn = results_return::FromViewer;
        PlotFromResults = true;
        return OpenFrom<OpeningViewer>();
    }

    // Lets the form answer a new size.
    static void Settle(QWidget& form) {
        QTest::qWait(20);
        RunEvents();
        static_cast<void>(form);
    }

    static void Resize(QWidget& form, int width, int height) {
        form.resize(width, height);
        Settle(form);
    }

    static PlanSheet& SheetOf(QWidget& form) { return Find<PlanSheet>(form, "client"); }
    static QImage Shown(QWidget& form) { return PictureOf(SheetOf(form)); }

    static QAction& Item(QWidget& form, const std::string& name) { return Find<QAction>(form, name); }
};

TEST_F(PlotWindow, HasTheMenusAndCaptions) {
    frmPicture& form = frmPicture::Instance();
    EXPECT_EQ(form.windowTitle(), "View Plan");
    EXPECT_EQ(&FormNamed("frmPicture"), &form);
    EXPECT_EQ(Find<QMenu>(form, "mnuPlotFile").title(), "&File");
    EXPECT_EQ(Find<QMenu>(form, "mnuEdit").title(), "&Edit");
    EXPECT_EQ(Find<QMenu>(form, "mnuPlotSet").title(), "&Settings");
    EXPECT_EQ(Item(form, "mnuPlotFileItem_0").text(), "&Print");
    EXPECT_TRUE(Item(form, "mnuPlotFileItem_1").isSeparator());
    EXPECT_EQ(Item(form, "mnuPlotFileItem_2").text(), "E&xit");
    EXPECT_EQ(Item(form, "mnuEditItem_0").text(), "&Copy");
    EXPECT_EQ(Item(form, "mnuEditItem_1").text(), "Increase font size");
    EXPECT_EQ(Item(form, "mnuEditItem_2").text(), "Decrease font size");
    EXPECT_EQ(Item(form, "mnuPlotSetItem_0").text(), "&Pillar dimensions");
    EXPECT_EQ(Item(form, "mnuPlotSetItem_1").text(), "Unit pillar strength");
    EXPECT_EQ(Item(form, "mnuPlotSetItem_2").text(), "Pillar load bearing capacity");
    EXPECT_EQ(Find<QMenu>(form, "mnuPlotFile").actions().indexOf(&Item(form, "mnuPlotFileItem_1")), 1);
}

TEST_F(PlotWindow, OpenedFromTheParametersOnlyDimensionsAreShown) {
    PlotMode = plot_mode::Capacity;
    frmPicture& form = OpenFrom<OpeningDialog>();
    EXPECT_EQ(PlotMode, 1);
    for (const char* item : {"mnuPlotSetItem_0", "mnuPlotSetItem_1", "mnuPlotSetItem_2"}) {
        EXPECT_FALSE(Item(form, item).isEnabled()) << item;
        EXPECT_FALSE(Choose(form, item)) << item;
    }
    EXPECT_FALSE(Item(form, "mnuPlotSetItem_0").isChecked());
    EXPECT_EQ(PlotMode, 1);
}

TEST_F(PlotWindow, OpenedFromTheResultsAllPlotsAreOffered) {
    PlotMode = plot_mode::Capacity;
    frmPicture& form = OpenFromViewer();
    EXPECT_EQ(PlotMode, 1);
    for (const char* item : {"mnuPlotSetItem_0", "mnuPlotSetItem_1", "mnuPlotSetItem_2"})
        EXPECT_TRUE(Item(form, item).isEnabled()) << item;
    EXPECT_TRUE(Item(form, "mnuPlotSetItem_0").isChecked());
    EXPECT_FALSE(Item(form, "mnuPlotSetItem_1").isChecked());
}

TEST_F(PlotWindow, SettingsChooseTheModeOverTheExistingLayout) {
    frmPicture& form = OpenFromViewer();
    const QImage dimensions = Shown(form);
    PreviewRecord.HoleWidth = 11;  // a layout built anew would move
    WorkingParameters.PillarCapacity[1] = 4321;
    ASSERT_TRUE(Choose(form, "mnuPlotSetItem_2"));
    EXPECT_EQ(PlotMode, 3);
    EXPECT_EQ(CornerX[1][1], 131);
    EXPECT_FALSE(Item(form, "mnuPlotSetItem_0").isChecked());
    EXPECT_FALSE(Item(form, "mnuPlotSetItem_1").isChecked());
    EXPECT_TRUE(Item(form, "mnuPlotSetItem_2").isChecked());
    EXPECT_NE(Shown(form), dimensions);
    ASSERT_TRUE(Choose(form, "mnuPlotSetItem_1"));
    EXPECT_EQ(PlotMode, 2);
    EXPECT_TRUE(Item(form, "mnuPlotSetItem_1").isChecked());
    PreviewRecord.HoleWidth = 10;
    ASSERT_TRUE(Choose(form, "mnuPlotSetItem_0"));
    EXPECT_EQ(PlotMode, 1);
    EXPECT_EQ(Shown(form), dimensions);
}

TEST_F(PlotWindow, ChoosingTheCheckedItemAgainKeepsItChecked) {
    frmPicture& form = OpenFromViewer();
    ASSERT_TRUE(Choose(form, "mnuPlotSetItem_0"));
    EXPECT_TRUE(Item(form, "mnuPlotSetItem_0").isChecked());
    EXPECT_EQ(PlotMode, 1);
}

TEST_F(PlotWindow, OpensSquareAndCentred) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    EXPECT_EQ(form.height(), form.width() + 34);
    EXPECT_EQ(SheetOf(form).size(), QSize(form.width(), form.width()));
    const QRect screen = form.screen()->geometry();
    EXPECT_NEAR(form.frameGeometry().center().x(), screen.center().x(), 2);
    EXPECT_NEAR(form.frameGeometry().center().y(), screen.center().y(), 2);
}

TEST_F(PlotWindow, DraggedOutwardTheLargerSideWins) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    Resize(form, 400, 434);
    EXPECT_EQ(form.size(), QSize(400, 434));
    Resize(form, 500, 434);
    EXPECT_EQ(form.size(), QSize(500, 534));
    Resize(form, 500, 634);
    EXPECT_EQ(form.size(), QSize(600, 634));
    // A little wider only: the form is still higher than wide, so its height wins.
    Resize(form, 620, 634);
    EXPECT_EQ(form.size(), QSize(600, 634));
}

TEST_F(PlotWindow, DraggedInwardTheSmallerSideWins) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    Resize(form, 600, 634);
    Resize(form, 500, 634);
    EXPECT_EQ(form.size(), QSize(500, 534));
    Resize(form, 500, 434);
    EXPECT_EQ(form.size(), QSize(400, 434));
    // A little lower only: the form is still not lower than wide, so its width wins.
    Resize(form, 400, 420);
    EXPECT_EQ(form.size(), QSize(400, 434));
}

TEST_F(PlotWindow, ABurstOfSizesIsSquaredOnce) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    Resize(form, 300, 334);
    for (int width = 310; width <= 500; width += 10) form.resize(width, 334);
    Settle(form);
    EXPECT_EQ(form.size(), QSize(500, 534));
}

TEST_F(PlotWindow, RedrawsAtEachSize) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    for (const int side : {300, 576}) {
        Resize(form, side, side + 34);
        Resize(form, side, side + 34);
        ASSERT_EQ(form.size(), QSize(side, side + 34));
        const QImage image = Shown(form);
        // The barrier's left edge at x 131 of 288, from y 64 to 254.
        const int x = 131 * side / 288;
        EXPECT_EQ(image.pixelColor(x, side / 2), QColor(Qt::black)) << side;
        EXPECT_EQ(image.pixelColor(x + 3, side / 2), QColor(Qt::white)) << side;
    }
}

TEST_F(PlotWindow, MaximisedItTakesNineTenthsOfTheScreensHeight) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    form.showMaximized();
    EXPECT_TRUE(WaitUntil([&] { return !form.isMaximized() && form.height() == 720; }));
    Settle(form);
    EXPECT_FALSE(form.isMaximized());
    const QRect screen = form.screen()->geometry();
    ASSERT_EQ(screen.height(), 800);
    EXPECT_EQ(form.size(), QSize(686, 720));
    EXPECT_NEAR(form.frameGeometry().center().x(), screen.center().x(), 2);
    EXPECT_NEAR(form.frameGeometry().center().y(), screen.center().y(), 2);
    EXPECT_GT(InkOf(Shown(form)).bottom(), 500);
}

// A screen of 3840 pixels, and one beside it.
TEST_F(PlotWindow, LargeSizesAreDrawn) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    for (const int width : {2151, 3000, 6000}) {
        Resize(form, width, width + 34);
        EXPECT_EQ(form.width(), width);
        EXPECT_EQ(form.height(), width + 34);
        EXPECT_GT(InkOf(Shown(form)).bottom(), width / 2);
    }
    EXPECT_THAT(UnhandledErrors(), IsEmpty());
}

TEST_F(PlotWindow, TheCarrierOfTheCopyStaysBelowTheClientArea) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    Resize(form, 400, 434);
    EXPECT_EQ(Find<QLabel>(form, "picTMPCopy").y(), 417);
    Resize(form, 500, 534);
    EXPECT_EQ(Find<QLabel>(form, "picTMPCopy").y(), 517);
    EXPECT_GE(Find<QLabel>(form, "picTMPCopy").y(), SheetOf(form).height());
}

TEST_F(PlotWindow, MouseChangesTheFont) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    EXPECT_EQ(form.FontSize(), 8.25);
    QTest::mouseClick(&SheetOf(form), Qt::LeftButton, {}, {50, 300});
    EXPECT_EQ(form.FontSize(), 9);
    QTest::mouseClick(&SheetOf(form), Qt::LeftButton, {}, {50, 300});
    EXPECT_EQ(form.FontSize(), 9.75);
    QTest::mouseClick(&SheetOf(form), Qt::RightButton, {}, {50, 300});
    EXPECT_EQ(form.FontSize(), 9);
    QTest::mouseClick(&SheetOf(form), Qt::MiddleButton, {}, {50, 300});
    EXPECT_EQ(form.FontSize(), 9);
    QTest::mouseClick(&form, Qt::LeftButton, {}, {50, 300});
    EXPECT_EQ(form.FontSize(), 9.75);
}

int DarkPixels(const QImage& image) {
    int dark = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) dark += qGray(image.pixel(x, y)) < 128;
    return dark;
}

TEST_F(PlotWindow, LargerFontMakesAllTextsLarger) {
    PlotEntryDims = 0;
    frmPicture& form = OpenFrom<OpeningDialog>();
    const QRect before = InkOf(Shown(form));
    const int labels_before = DarkPixels(Shown(form).copy(0, 30, 640, 600));
    for (int i = 0; i < 4; ++i) QTest::mouseClick(&SheetOf(form), Qt::LeftButton, {}, {50, 300});
    EXPECT_EQ(form.FontSize(), 11.25);
    const QRect after = InkOf(Shown(form));
    EXPECT_GT(after.width(), before.width() + 60);
    EXPECT_GT(DarkPixels(Shown(form).copy(0, 30, 640, 600)), labels_before + 50);
}

TEST_F(PlotWindow, AnyPressRedrawsThePlan) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    const QImage before = Shown(form);
    PreviewRecord.CenterDistance[1] = 40;
    EXPECT_EQ(Shown(form), before);
    QTest::mouseClick(&SheetOf(form), Qt::MiddleButton, {}, {50, 300});
    EXPECT_NE(Shown(form), before);
    EXPECT_EQ(CornerX[2][1] - CornerX[1][1], 30);
}

TEST_F(PlotWindow, EditMenuChangesTheFontAndRedraws) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    const QImage before = Shown(form);
    ASSERT_TRUE(Choose(form, "mnuEditItem_1"));
    EXPECT_EQ(form.FontSize(), 9);
    EXPECT_NE(Shown(form), before);
    ASSERT_TRUE(Choose(form, "mnuEditItem_2"));
    EXPECT_EQ(form.FontSize(), 8.25);
    EXPECT_EQ(Shown(form), before);
}

TEST_F(PlotWindow, FontNeverShrinksBelowWhatAFontCanBe) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    for (int i = 0; i < 30; ++i) ASSERT_TRUE(Choose(form, "mnuEditItem_2"));
    EXPECT_EQ(form.FontSize(), 0.75);
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_THAT(UnhandledErrors(), IsEmpty());
    ASSERT_TRUE(Choose(form, "mnuEditItem_1"));
    EXPECT_EQ(form.FontSize(), 1.5);
}

TEST_F(PlotWindow, APressOnTheMenuBarLeavesTheFont) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    QTest::mouseClick(Find<QMenuBar>(form, "menubar").window(), Qt::LeftButton, {}, {600, 10});
    EXPECT_EQ(form.FontSize(), 8.25);
}

TEST_F(PlotWindow, CopyPutsTheClientAreaOnTheClipboard) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    Resize(form, 500, 534);
    QGuiApplication::clipboard()->setText("before");
    ASSERT_TRUE(Choose(form, "mnuEditItem_0"));
    EXPECT_TRUE(QGuiApplication::clipboard()->text().isEmpty());
    const QImage copied = QGuiApplication::clipboard()->image();
    const QSize pixels = QSize(500, 500) * form.devicePixelRatioF();
    EXPECT_EQ(copied.size(), pixels);
    EXPECT_EQ(InUnits(copied, {500, 500}).convertToFormat(QImage::Format_RGB32),
              Shown(form).convertToFormat(QImage::Format_RGB32));
    EXPECT_EQ(Find<QLabel>(form, "picTMPCopy").pixmap().size(), pixels);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(PlotWindow, PrintsTheClientAreaOnTheDefaultPrinter) {
    QtPrinter printer;
    printer.PrintToFile(PathTo("plan.pdf"));
    Platform.Printer = &printer;
    frmPicture& form = OpenFrom<OpeningDialog>();
    ASSERT_TRUE(Choose(form, "mnuPlotFileItem_0"));
    EXPECT_THAT(UnhandledErrors(), IsEmpty());
    const std::string pdf = ReadBytes(PathTo("plan.pdf"));
    EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
    EXPECT_GT(pdf.size(), 4000u);
    EXPECT_THAT(Host.Dialogs.PrinterFlags, IsEmpty());
}

// A printer whose paper is an image.
class ImagePrinter : public RecordingPrinter {
  public:
    void PrintDrawing(double width, double height, const std::function<void(PagePainter&)>& draw) override {
        Paper = QImage(static_cast<int>(width), static_cast<int>(height), QImage::Format_RGB32);
        Paper.fill(Qt::white);
        QPainter painter(&Paper);
        PagePainter page(painter);
        draw(page);
    }
    QImage Paper;
};

TEST_F(PlotWindow, PrintsInTheFontSizeThatWasChosen) {
    ImagePrinter printer;
    Platform.Printer = &printer;
    PlotEntryDims = 0;
    frmPicture& form = OpenFrom<OpeningDialog>();
    ASSERT_TRUE(Choose(form, "mnuPlotFileItem_0"));
    const QRect before = InkOf(printer.Paper);
    for (int i = 0; i < 4; ++i) ASSERT_TRUE(Choose(form, "mnuEditItem_1"));
    ASSERT_TRUE(Choose(form, "mnuPlotFileItem_0"));
    EXPECT_GT(InkOf(printer.Paper).width(), before.width() + 60);
}

TEST_F(PlotWindow, WithoutAPrinterItPrintsToThePdfFileThatItAsksFor) {
    QtPrinter printer;
    printer.Device().setOutputFormat(QPrinter::PdfFormat);
    Platform.Printer = &printer;
    ProjectFileName = PathTo("Ridge 4.TKL");
    Host.Dialogs.FileAnswers = {PathTo("asked.pdf")};
    frmPicture& form = OpenFrom<OpeningDialog>();
    ASSERT_TRUE(Choose(form, "mnuPlotFileItem_0"));
    EXPECT_THAT(UnhandledErrors(), IsEmpty());
    EXPECT_THAT(Messages(), IsEmpty());
    ASSERT_THAT(Host.Dialogs.FileRequests, SizeIs(1));
    EXPECT_EQ(Host.Dialogs.FileRequests[0].file_name, "Ridge 4_plan.pdf");
    EXPECT_EQ(Host.Dialogs.FileRequests[0].start_folder, Folder.string());
    EXPECT_EQ(ReadBytes(PathTo("asked.pdf")).substr(0, 5), "%PDF-");
}

TEST_F(PlotWindow, APrinterOrFileThatFailsLeadsBackToThePlan) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    Choose(form, "mnuPlotFileItem_0");
    EXPECT_THAT(Messages(), ElementsAre("Error occurred: Printer error (482)"));
    QtPrinter printer;
    printer.PrintToFile(PathTo("gone/plan.pdf"));
    Platform.Printer = &printer;
    Choose(form, "mnuPlotFileItem_0");
    EXPECT_THAT(Messages().back(), "Error occurred: Path not found (76). Procedure Terminated");
    EXPECT_THAT(UnhandledErrors(), IsEmpty());
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(form.isEnabled());
}

TEST_F(PlotWindow, ExitGivesTheViewerBack) {
    frmPicture& form = OpenFromViewer();
    ASSERT_TRUE(Choose(form, "mnuPlotFileItem_2"));
    EXPECT_FALSE(frmPicture::IsLoaded());
    EXPECT_TRUE(OpeningViewer::Instance().isEnabled());
    EXPECT_TRUE(WaitUntil([] { return OpeningViewer::Instance().isActiveWindow(); }));
}

TEST_F(PlotWindow, ClosingGivesTheParametersDialogBack) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    form.close();
    EXPECT_FALSE(frmPicture::IsLoaded());
    EXPECT_TRUE(OpeningDialog::Instance().isEnabled());
    EXPECT_TRUE(WaitUntil([] { return OpeningDialog::Instance().isActiveWindow(); }));
}

TEST_F(PlotWindow, EscapeClosesIt) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    Press(form, Qt::Key_Escape);
    EXPECT_FALSE(frmPicture::IsLoaded());
    EXPECT_TRUE(OpeningDialog::Instance().isEnabled());
}

TEST_F(PlotWindow, TheOtherOpenerStaysDisabled) {
    OpeningDialog::Instance().setEnabled(false);
    frmPicture& form = OpenFromViewer();
    form.Unload();
    EXPECT_FALSE(OpeningDialog::Instance().isEnabled());
}

TEST_F(PlotWindow, ClosingAtOnceAfterAResizeIsHarmless) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    form.resize(300, 500);
    form.Unload();
    Settle(OpeningDialog::Instance());
    EXPECT_THAT(UnhandledErrors(), IsEmpty());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(PlotWindow, ARefusedPlanLeavesTheWindowOpenAndEmpty) {
    PreviewRecord.CrosscutAngle = 60;
    frmPicture& form = OpenFrom<OpeningDialog>();
    EXPECT_THAT(Messages(), testing::Contains("Invalid Pillar Dimensions"));
    EXPECT_EQ(Host.Messages.Shown[0].style, box_style::Plain);
    EXPECT_EQ(Host.Messages.Shown[0].title, "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(InkOf(Shown(form)).isNull());
}

TEST_F(PlotWindow, OneMessageForOneOpening) {
    PreviewRecord.CrosscutAngle = 60;
    OpenFrom<OpeningDialog>();
    EXPECT_THAT(Messages(), ElementsAre("Invalid Pillar Dimensions"));
}

TEST_F(PlotWindow, PaperStaysWhiteUnderADarkPalette) {
    const QPalette light = QApplication::palette();
    QPalette dark = light;
    dark.setColor(QPalette::Window, QColor(40, 40, 40));
    dark.setColor(QPalette::WindowText, Qt::white);
    dark.setColor(QPalette::Base, Qt::black);
    QApplication::setPalette(dark);
    frmPicture& form = OpenFrom<OpeningDialog>();
    const QImage image = Shown(form);
    EXPECT_EQ(image.pixelColor(3, image.height() - 3), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(image.width() * 131 / 288, image.height() / 2), QColor(Qt::black));
    QApplication::setPalette(light);
}

TEST_F(PlotWindow, ShortcutsWork) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    QTest::keyClick(&form, Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(form.FontSize(), 7.5);
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(&form, Qt::Key_C, Qt::ControlModifier);
    EXPECT_FALSE(QGuiApplication::clipboard()->image().isNull());
}

TEST_F(PlotWindow, DialogImageGoesToTheClipboardWithAMessage) {
    OpeningDialog& dialog = OpeningDialog::Instance();
    dialog.setCentralWidget(new QLabel("text", &dialog));
    ShowAndActivate(dialog);
    dialog.resize(300, 200);
    MessageTitle = "Message";
    CopyDialogImage(dialog);
    EXPECT_EQ(QGuiApplication::clipboard()->image().size(), QSize(300, 200) * dialog.devicePixelRatioF());
    EXPECT_THAT(Messages(), ElementsAre("Screenshot of dialog copied to clipboard"));
    EXPECT_EQ(Host.Messages.Shown[0].title, "Message");
    EXPECT_EQ(Host.MainWindow.History, "1. Message: Screenshot of dialog copied to clipboard\r\n");
}

TEST_F(PlotWindow, CapturesThePartAskedFor) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    Resize(form, 400, 434);
    const double scale = form.devicePixelRatioF();
    EXPECT_EQ(CaptureForm(form).size(), QSize(400, 400) * scale);
    EXPECT_EQ(CaptureWindow(form, false, form.rect()).size(), QSize(400, 434) * scale);
    const QImage part = CaptureWindow(form, true, QRect(10, 20, 30, 40)).toImage();
    EXPECT_EQ(part.size(), QSize(30, 40) * scale);
    EXPECT_EQ(InUnits(part, {30, 40}), Shown(form).copy(10, 20, 30, 40));
}

TEST_F(PlotWindow, ArrowKeysLeadFromPillarToPillarAndSayTheirLabels) {
    frmPicture& form = OpenFrom<OpeningDialog>();
    PlanSheet& sheet = SheetOf(form);
    EXPECT_EQ(form.focusWidget(), &sheet);
    EXPECT_EQ(FromQt(sheet.accessibleName()), "Plan of the panel");
    EXPECT_EQ(FromQt(sheet.accessibleDescription()), "20x oo, 8x oo, 8x oo");
    const QImage plain = Shown(form);
    Press(form, Qt::Key_Right);
    EXPECT_EQ(FromQt(sheet.accessibleDescription()), "Pillar 1 of 3: 20x oo");
    Press(form, Qt::Key_Left);
    EXPECT_EQ(FromQt(sheet.accessibleDescription()), "Pillar 1 of 3: 20x oo");
    Press(form, Qt::Key_End);
    Press(form, Qt::Key_Right);
    EXPECT_EQ(FromQt(sheet.accessibleDescription()), "Pillar 3 of 3: 8x oo");
    Press(form, Qt::Key_Home);
    EXPECT_EQ(FromQt(sheet.accessibleDescription()), "Pillar 1 of 3: 20x oo");
    QAccessibleInterface& told = *QAccessible::queryAccessibleInterface(&sheet);
    EXPECT_EQ(told.role(), QAccessible::Graphic);
    EXPECT_EQ(told.valueInterface()->currentValue(), 1.0);
    EXPECT_EQ(told.valueInterface()->maximumValue(), 3.0);
    EXPECT_NE(Shown(form), plain);
    EXPECT_TRUE(Choose(form, "mnuEditItem_0"));
    EXPECT_EQ(Shown(form), plain);  // no mark on the copied picture
}

}  // namespace
}  // namespace tarvokol
