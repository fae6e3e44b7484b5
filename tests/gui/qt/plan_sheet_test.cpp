// SPDX-License-Identifier: GPL-3.0-or-later
// The sheet that keeps a plan and leads from pillar to pillar.
#include "qt/plan/plan_sheet.h"

#include "tests/support/gui_fixture.h"
#include "tests/support/ink.h"

namespace tarvokol {
namespace {

// Two pillars of 20 by 40 at (30, 50) and (70, 50) of a sheet of 120 by 100, y downwards, with their labels.
void DrawTwoPillars(DrawingSurface& surface) {
    surface.SetScale(120, 100);
    surface.Cls();
    for (const double x : {30.0, 70.0}) {
        surface.Line(x, 50, x + 20, 50);
        surface.LineTo(x + 20, 10);
        surface.LineTo(x, 10);
        surface.LineTo(x, 50);
        surface.SetCurrentPoint(x + 14, 50);
        surface.PrintTurned({"Arial", 9, 900}, x < 50 ? "20x oo" : "8x oo");
    }
}

class PlanSheetTest : public GuiTest {
  protected:
    PlanSheetTest() { Sheet.resize(120, 100); }

    QImage Shown() { return PictureOf(Sheet); }
    std::string Description() { return FromQt(Sheet.accessibleDescription()); }
    void Key(Qt::Key key) { QTest::keyClick(&Sheet, key); }

    PlanSheet Sheet;
};

TEST_F(PlanSheetTest, ABareSheetIsWhitePaper) {
    EXPECT_FALSE(Sheet.HasDrawing());
    EXPECT_TRUE(Sheet.testAttribute(Qt::WA_OpaquePaintEvent));
    QImage white(120, 100, QImage::Format_RGB32);
    white.fill(Qt::white);
    EXPECT_EQ(Shown().convertToFormat(QImage::Format_RGB32), white);
    EXPECT_EQ(Sheet.FontSize(), 8.25);
    EXPECT_EQ(Sheet.SizeOfLabels(), LabelSize::BuiltIn);
    Sheet.ChooseFontSize(9);
    EXPECT_EQ(Sheet.FontSize(), 9);
    EXPECT_EQ(Sheet.SizeOfLabels(), LabelSize::AsChosen);
}

TEST_F(PlanSheetTest, ASquareSheetTakesTheLargestSquare) {
    EXPECT_EQ(Sheet.PaperSize(), QSize(120, 100));
    Sheet.resize(0, 0);
    EXPECT_EQ(Sheet.PaperSize(), QSize(1, 1));
    Sheet.resize(120, 100);
    Sheet.SetSquare(true);
    EXPECT_EQ(Sheet.PaperSize(), QSize(100, 100));
    Sheet.resize(70, 300);
    EXPECT_EQ(Sheet.PaperSize(), QSize(70, 70));
    Sheet.resize(0, 0);
    EXPECT_EQ(Sheet.PaperSize(), QSize(1, 1));
}

TEST_F(PlanSheetTest, KeepsThePlanAndTellsItsLabels) {
    Sheet.Draw(DrawTwoPillars);
    EXPECT_TRUE(Sheet.HasDrawing());
    EXPECT_EQ(Description(), "20x oo, 8x oo");
    const QImage image = Shown();
    for (const int x : {30, 50, 70, 90}) {
        EXPECT_EQ(image.pixelColor(x, 70), QColor(Qt::black)) << x;
        EXPECT_EQ(image.pixelColor(x + 2, 70), QColor(Qt::white)) << x;
    }
    EXPECT_EQ(image.pixelColor(10, 70), QColor(Qt::white));
    for (const int y : {50, 90}) {
        EXPECT_EQ(image.pixelColor(36, y), QColor(Qt::black)) << y;
        EXPECT_EQ(image.pixelColor(36, y - 1), QColor(Qt::white)) << y;
        EXPECT_EQ(image.pixelColor(36, y + 1), QColor(Qt::white)) << y;
    }
}

// A plan without labels keeps the words that the form has given the sheet.
TEST_F(PlanSheetTest, APlanWithoutLabelsTellsNothingNew) {
    Sheet.setAccessibleDescription("A left click makes the figures larger");
    Sheet.Draw([](DrawingSurface& surface) { surface.Cls(); });
    EXPECT_EQ(Description(), "A left click makes the figures larger");
    EXPECT_TRUE(Sheet.HasDrawing());
}

TEST_F(PlanSheetTest, ARefusedPlanLeavesTheSheetAsItIs) {
    Sheet.Draw([](DrawingSurface&) {});
    EXPECT_FALSE(Sheet.HasDrawing());
    Sheet.Draw(DrawTwoPillars);
    Key(Qt::Key_Right);
    const QImage before = Shown();
    Sheet.Draw([](DrawingSurface&) {});
    EXPECT_EQ(Shown(), before);
    EXPECT_EQ(RaisedError([this] { Sheet.Draw([](DrawingSurface&) { Raise(11); }); }), 11);
    EXPECT_EQ(Shown(), before);
    Sheet.Draw(DrawTwoPillars);  // and the next plan is drawn
    EXPECT_NE(Shown(), before);  // without the mark
}

TEST_F(PlanSheetTest, TheKeysLeadFromPillarToPillar) {
    Sheet.Draw(DrawTwoPillars);
    Key(Qt::Key_Left);
    EXPECT_EQ(Description(), "20x oo, 8x oo");
    Key(Qt::Key_Right);
    EXPECT_EQ(Description(), "Pillar 1 of 2: 20x oo");
    Key(Qt::Key_Left);
    EXPECT_EQ(Description(), "Pillar 1 of 2: 20x oo");
    Key(Qt::Key_Right);
    EXPECT_EQ(Description(), "Pillar 2 of 2: 8x oo");
    Key(Qt::Key_Right);
    EXPECT_EQ(Description(), "Pillar 2 of 2: 8x oo");
    Key(Qt::Key_Left);
    EXPECT_EQ(Description(), "Pillar 1 of 2: 20x oo");
    Key(Qt::Key_End);
    EXPECT_EQ(Description(), "Pillar 2 of 2: 8x oo");
    Key(Qt::Key_Home);
    EXPECT_EQ(Description(), "Pillar 1 of 2: 20x oo");
}

TEST_F(PlanSheetTest, OtherKeysAreLeftToTheForm) {
    Sheet.Draw(DrawTwoPillars);
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_End, Qt::Key_Escape}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&Sheet, &press);
        EXPECT_EQ(press.isAccepted(), key != Qt::Key_Escape);
    }
}

TEST_F(PlanSheetTest, AFrameMarksThePillarUntilTheFocusGoes) {
    Sheet.Draw(DrawTwoPillars);
    const QImage plain = Shown();
    Key(Qt::Key_End);
    const QImage marked = Shown();
    // Three pixels wide, about the outline of the second pillar.
    for (const int x : {69, 70, 71, 89, 90, 91}) EXPECT_EQ(marked.pixelColor(x, 70), QColor(Qt::black)) << x;
    for (const int x : {68, 72, 88, 92}) EXPECT_EQ(marked.pixelColor(x, 70), QColor(Qt::white)) << x;
    for (const int y : {89, 90, 91}) EXPECT_EQ(marked.pixelColor(80, y), QColor(Qt::black)) << y;
    EXPECT_EQ(marked.copy(0, 0, 60, 100), plain.copy(0, 0, 60, 100));
    Sheet.LeavePillars();
    EXPECT_EQ(Shown(), plain);
    Key(Qt::Key_Right);
    EXPECT_EQ(Description(), "Pillar 1 of 2: 20x oo");
    QFocusEvent leaves(QEvent::FocusOut);
    QApplication::sendEvent(&Sheet, &leaves);
    EXPECT_EQ(Shown(), plain);
}

TEST_F(PlanSheetTest, KeysOnASheetWithoutPillarsDoNothing) {
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_Home, Qt::Key_End}) Key(key);
    EXPECT_EQ(Description(), "");
    EXPECT_TRUE(UnhandledErrors().empty());
    static_cast<void>(Shown());
}

// Labels that find no room are left out on the sheet, but told.
TEST_F(PlanSheetTest, LabelsFitTheSheet) {
    Sheet.Draw([](DrawingSurface& surface) {
        DrawTwoPillars(surface);
        surface.SetCurrentPoint(84, 50);
        surface.PrintTurned({"Arial", 9, 900}, "446410495424464104954244641049542");
    });
    EXPECT_EQ(Description(), "20x oo, 8x oo, 446410495424464104954244641049542");
    // What is left out does not run to the upper edge.
    const QImage image = Shown();
    for (int x = 0; x < 120; ++x)
        for (int y = 0; y < 15; ++y) EXPECT_EQ(image.pixelColor(x, y), QColor(Qt::white)) << x << ' ' << y;
    Sheet.Draw(DrawTwoPillars);
    EXPECT_EQ(Description(), "20x oo, 8x oo");
}

TEST_F(PlanSheetTest, ThePaperIsWhiteWhereNothingIsDrawn) {
    Sheet.Draw([](DrawingSurface& surface) {
        surface.SetScale(120, 100);
        surface.Line(10, 50, 20, 50);
    });
    EXPECT_EQ(Shown().pixelColor(15, 50), QColor(Qt::black));
    EXPECT_EQ(Shown().pixelColor(15, 60), QColor(Qt::white));
}

// Counts how often a widget is painted.
class Paints : public QObject {
  public:
    explicit Paints(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

TEST_F(PlanSheetTest, EveryChangeIsPaintedAtOnce) {
    Sheet.show();
    ASSERT_TRUE(WaitUntilExposed(Sheet));
    RunEvents();
    Paints paints(Sheet);
    const auto painted = [&paints](const std::function<void()>& change) {
        paints.count = 0;
        change();
        return WaitUntil([&paints] { return paints.count > 0; });
    };
    EXPECT_TRUE(painted([this] { Sheet.Draw(DrawTwoPillars); }));
    EXPECT_TRUE(painted([this] { Key(Qt::Key_Right); }));
    EXPECT_TRUE(painted([this] { Sheet.LeavePillars(); }));
}

}  // namespace
}  // namespace tarvokol
