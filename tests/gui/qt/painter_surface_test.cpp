// SPDX-License-Identifier: GPL-3.0-or-later
#include <QBuffer>
#include <QFontMetricsF>
#include <QRegularExpression>
#include <QSvgGenerator>

#include "tests/gui/qt/plan_fixture.h"

namespace tarvokol {
namespace {

TEST_F(PlanSurface, ClearsToWhitePaper) {
    QImage image = Sheet({20, 10});
    PainterSurface surface(image, {20, 10});
    EXPECT_FALSE(surface.HasDrawn());
    surface.SetCurrentPoint(3, 4);
    surface.Cls();
    surface.Finish();
    EXPECT_TRUE(surface.HasDrawn());
    EXPECT_EQ(surface.CurrentX(), 0);
    EXPECT_EQ(surface.CurrentY(), 0);
    for (const QPoint corner : {QPoint(0, 0), QPoint(19, 0), QPoint(0, 9), QPoint(19, 9)})
        EXPECT_EQ(image.pixelColor(corner), QColor(Qt::white));
}

TEST_F(PlanSurface, WorldGrowsUpwardsFromTheLowerLeft) {
    QImage image = Sheet({200, 100});
    PainterSurface surface(image, {200, 100});
    surface.SetScale(400, 50);  // half a pixel and two pixels a unit
    surface.Cls();
    surface.Line(100, 40, 300, 40);
    surface.LineTo(300, 10);
    EXPECT_EQ(surface.CurrentX(), 300);
    EXPECT_EQ(surface.CurrentY(), 10);
    surface.Finish();
    EXPECT_EQ(InkOf(image), QRect(QPoint(50, 20), QPoint(150, 80)));
    EXPECT_TRUE(IsBlack(image, 50, 20));
    EXPECT_TRUE(IsBlack(image, 150, 80));
    EXPECT_FALSE(IsBlack(image, 50, 21));
}

TEST_F(PlanSurface, LinesAreSharpAtEveryPixelRatio) {
    for (const double ratio : {1.0, 1.5, 2.0, 3.0}) {
        QImage image = Sheet({100, 100}, ratio);
        PainterSurface surface(image, {100, 100});
        surface.SetScale(100, 100);
        surface.Cls();
        surface.Line(33.3, 20, 33.3, 80);
        surface.Finish();
        int black = 0;
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, image.height() / 2);
            EXPECT_TRUE(colour == Qt::black || colour == Qt::white) << ratio;
            black += colour == Qt::black;
        }
        EXPECT_EQ(black, std::lround(ratio)) << ratio;
    }
}

TEST_F(PlanSurface, LinesWithoutEndAreCutAtTheSheet) {
    QImage image = Sheet({100, 100});
    PainterSurface surface(image, {100, 100});
    surface.SetScale(100, 100);
    surface.Cls();
    surface.Line(50, 30, 50, 1e30);
    surface.Line(-3e38, 3e38, 3e38, 3e38);
    surface.Line(0, -1e9, 1e9, 1e9);  // a slant through (0.5, 0) is far below the sheet
    surface.Finish();
    EXPECT_EQ(InkOf(image), QRect(QPoint(50, 0), QPoint(50, 70)));
}

// What reaches the paint engine ends eight pixels beyond the sheet; what lies outside does not reach it.
TEST_F(PlanSurface, ThePaintEngineGetsNoLineWithoutEnd) {
    const auto drawn = [](double x1, double y1, double x2, double y2) {
        QBuffer out;
        out.open(QIODevice::WriteOnly);
        QSvgGenerator generator;
        generator.setOutputDevice(&out);
        generator.setSize({100, 100});
        generator.setResolution(96);
        {
            PainterSurface surface(generator, {100, 100});
            surface.SetScale(100, 100);
            surface.Line(x1, y1, x2, y2);
        }
        static const QRegularExpression line("<polyline[^>]*points=\"([^\"]*?) *\"");
        return line.match(QString::fromUtf8(out.data())).captured(1).toStdString();
    };
    EXPECT_EQ(drawn(50, 30, 50, 60), "50.5,70.5 50.5,40.5");
    EXPECT_EQ(drawn(50, 30, 50, 1e30), "50.5,70.5 50.5,-7.5");
    EXPECT_EQ(drawn(50, -1e30, 50, 30), "50.5,108.5 50.5,70.5");
    EXPECT_EQ(drawn(-1e30, 30, 50, 30), "-7.5,70.5 50.5,70.5");
    EXPECT_EQ(drawn(50, 30, 1e30, 30), "50.5,70.5 108.5,70.5");
    // Half as steep as wide: cut at x -8 and 108 on the height of the line there.
    EXPECT_EQ(drawn(-150, 0, 250, 100), "-7.5,64.5 108.5,35.5");
    EXPECT_EQ(drawn(-20, 30, -9, 30), "");
    EXPECT_EQ(drawn(109, 30, 200, 30), "");
    EXPECT_EQ(drawn(50, -20, 50, -9), "");
    EXPECT_EQ(drawn(50, 109, 50, 200), "");
}

// A pen is as wide as a pixel, in whole units of the device, one at the least.
TEST_F(PlanSurface, ThePenIsBlackAndAWholeNumberOfDotsWide) {
    const std::pair<double, double> pens[] = {{1, 1}, {2, 1}, {1.4, 1 / 1.4}, {1.6, 2 / 1.6}, {0.4, 1 / 0.4}};
    for (const auto& pen : pens) {
        QImage image = Sheet({100, 100});
        QPainter painter(&image);
        painter.scale(pen.first, pen.first);
        {
            PainterSurface surface(painter, {100, 100});
            surface.Cls();
            EXPECT_NEAR(painter.pen().widthF(), pen.second, 1e-9) << pen.first;
            EXPECT_EQ(painter.pen().color(), QColor(Qt::black));
            EXPECT_EQ(painter.pen().capStyle(), Qt::SquareCap);
            EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
            EXPECT_TRUE(painter.testRenderHint(QPainter::TextAntialiasing));
        }
        EXPECT_EQ(painter.pen(), QPen());  // given back as it was
        EXPECT_EQ(painter.transform().m11(), pen.first);
    }
}

// The edge of a text that reaches onto the sheet by less than a pixel counts as cut; beyond it nothing is there.
TEST_F(PlanSurface, ATextBeyondTheSheetIsNotThere) {
    const auto clashes_at = [](double x, double y) {
        QImage image = Sheet({100, 50});
        PainterSurface surface(image, {100, 50});
        surface.SetScale(100, 50);
        surface.SetCurrentPoint(x, 50 - y);
        surface.Print("HHH");
        const int clashes = surface.TextClashes();
        EXPECT_EQ(surface.HasDrawn(), clashes > 0);
        return clashes;
    };
    const PlanText text{PlanFont("Arial", 11), {0, 0}, 0, "HHH", {}};
    const QRectF strip = text.Strip();
    for (const double reach : {-0.4, 0.4}) {
        const int seen = reach > 0 ? 1 : 0;
        EXPECT_EQ(clashes_at(reach - strip.right(), 20), seen);
        EXPECT_EQ(clashes_at(100 - reach - strip.left(), 20), seen);
        EXPECT_EQ(clashes_at(20, reach - strip.bottom()), seen);
        EXPECT_EQ(clashes_at(20, 50 - reach - strip.top()), seen);
    }
}

TEST_F(PlanSurface, StartsInTwips) {
    QImage image = Sheet({100, 50});
    PainterSurface surface(image, {100, 50});
    surface.Cls();
    surface.Line(150, 750, 150, 0);
    surface.Finish();
    EXPECT_EQ(InkOf(image).left(), 10);
    EXPECT_EQ(InkOf(image).right(), 10);
}

TEST_F(PlanSurface, PrintsWithItsTopLeftCornerAtTheCurrentPoint) {
    QImage image = Sheet({200, 100});
    PainterSurface surface(image, {200, 100});
    surface.SetScale(200, 100);
    surface.Cls();
    surface.SetCurrentPoint(40, 80);
    surface.Print("HHHH");
    surface.Finish();
    const QRect ink = InkOf(image);
    EXPECT_GE(ink.left(), 40);
    EXPECT_LE(ink.left(), 42);
    EXPECT_GE(ink.top(), 20);
    EXPECT_LE(ink.top(), 24);
    EXPECT_LE(ink.right(), 40 + surface.TextWidth("HHHH"));
    EXPECT_LE(ink.bottom(), 20 + surface.TextHeight("H"));
    EXPECT_GE(ink.height(), 7);
}

TEST_F(PlanSurface, TurnedTextReadsUpwards) {
    QImage image = Sheet({100, 200});
    PainterSurface surface(image, {100, 200});
    surface.SetScale(100, 200);
    surface.Cls();
    surface.SetCurrentPoint(50, 60);
    surface.PrintTurned({"Arial", 12, 900}, "HHHHHHLI");
    surface.Finish();
    const QRect ink = InkOf(image);
    EXPECT_GT(ink.height(), 3 * ink.width());
    EXPECT_LE(ink.right(), 50);
    EXPECT_GE(ink.left(), 36);
    EXPECT_LE(ink.bottom(), 140);
    EXPECT_GE(ink.bottom(), 135);
}

TEST_F(PlanSurface, TextsOfTheSamePlaceStayCrisp) {
    QImage once = Sheet({200, 50});
    QImage often = Sheet({200, 50});
    for (QImage* image : {&once, &often}) {
        PainterSurface surface(*image, {200, 50});
        surface.SetScale(200, 50);
        surface.Cls();
        for (int i = 0; i < (image == &once ? 1 : 20); ++i) {
            surface.SetCurrentPoint(10, 45);
            surface.Print("TARVO-KOL: Actual");
        }
    }
    EXPECT_EQ(once, often);
}

TEST_F(PlanSurface, NoLineRunsThroughAText) {
    QImage crossed = Sheet({200, 50});
    PainterSurface surface(crossed, {200, 50});
    surface.SetScale(200, 50);
    surface.Cls();
    surface.SetCurrentPoint(10, 45);
    surface.Print("oooooo");
    surface.Line(25, 0, 25, 50);
    surface.Finish();
    EXPECT_TRUE(IsBlack(crossed, 25, 1));
    EXPECT_TRUE(IsBlack(crossed, 25, 30));
    int black = 0;
    for (int y = 0; y < 50; ++y) black += IsBlack(crossed, 25, y);
    EXPECT_LT(black, 46);
}

TEST_F(PlanSurface, FontSizeSnapsToWholePixels) {
    QImage image = Sheet({10, 10});
    PainterSurface surface(image, {10, 10});
    EXPECT_EQ(surface.FontSize(), 8.25);
    surface.SetFontSize(9.25);
    EXPECT_EQ(surface.FontSize(), 9);
    surface.SetFontSize(8.3);
    EXPECT_EQ(surface.FontSize(), 8.25);
    surface.SetFontSize(0.1);
    EXPECT_EQ(surface.FontSize(), 0.75);
    for (const double size : {0.0, -1.0, 2160.5})
        EXPECT_EQ(RaisedError([&] { surface.SetFontSize(size); }), 380) << size;
    EXPECT_EQ(surface.FontSize(), 0.75);
}

TEST_F(PlanSurface, LargerFontsMeasureLarger) {
    QImage image = Sheet({100, 100});
    PainterSurface surface(image, {100, 100});
    surface.SetScale(200, 50);
    const double width = surface.TextWidth("100");
    const double height = surface.TextHeight("100");
    surface.SetFontSize(16.5);
    EXPECT_NEAR(surface.TextWidth("100"), 2 * width, 0.1 * width);
    EXPECT_NEAR(surface.TextHeight("100"), 2 * height, 0.2 * height);
}

TEST_F(PlanSurface, DrawsThePlanWherePillarsBelong) {
    PlotEntryDims = 0;
    QImage image = Sheet({576, 576});  // two pixels a foot
    PainterSurface surface(image, {576, 576});
    DrawPanelPlot(surface);
    surface.Finish();
    // Pillars at x 131..151, 161..169, 179..187, y 64..254.
    for (const int x : {262, 302, 322, 338, 358, 374}) {
        EXPECT_TRUE(IsBlack(image, x, 300)) << x;
        EXPECT_TRUE(IsBlack(image, x, 576 - 128)) << x;
        EXPECT_TRUE(IsBlack(image, x, 576 - 508)) << x;
        EXPECT_FALSE(IsBlack(image, x - 1, 300)) << x;
        EXPECT_FALSE(IsBlack(image, x + 1, 300)) << x;
    }
    EXPECT_FALSE(IsBlack(image, 310, 68));
}

// The ink of one turned text, and of a title if there is one, on a sheet of 200 by 200.
QImage TurnedOnSheet(double y, const std::string& title) {
    QImage image = Sheet({200, 200});
    PainterSurface surface(image, {200, 200});
    surface.SetScale(200, 200);
    surface.Cls();
    surface.SetCurrentPoint(100, y);
    surface.PrintTurned({"Arial", 12, 900}, "44641049542");
    surface.SetCurrentPoint(10, 200);
    if (!title.empty()) surface.Print(title);
    surface.Finish();
    return image;
}

TEST_F(PlanSurface, ATurnedFigureAtTheUpperEdgeKeepsAllItsDigits) {
    const QRect whole = InkOf(TurnedOnSheet(50, ""));
    ASSERT_GT(whole.height(), 60);  // eleven digits of 12 pixels
    const QRect moved = InkOf(TurnedOnSheet(170, ""));
    EXPECT_NEAR(moved.height(), whole.height(), 1);
    EXPECT_EQ(moved.left(), whole.left());
    EXPECT_LE(moved.top(), 2);
}

TEST_F(PlanSurface, ATurnedFigureKeepsClearOfTheTitle) {
    const std::string title = "A title that is long enough to cross";
    const QImage alone = TurnedOnSheet(20, title);
    const QImage both = TurnedOnSheet(170, title);
    const QRect band = InkOf(TurnedOnSheet(-500, title));
    ASSERT_GT(band.right(), 120);
    EXPECT_EQ(both.copy(band), alone.copy(band));
    const QRect below(0, band.bottom() + 1, 200, 199 - band.bottom());
    EXPECT_NEAR(InkOf(both.copy(below)).height(), InkOf(TurnedOnSheet(50, "")).height(), 1);
}

TEST_F(PlanSurface, CountsTextsThatCoverOneAnotherOrAreCut) {
    QImage image = Sheet({200, 100});
    PainterSurface surface(image, {200, 100});
    surface.SetScale(200, 100);
    surface.Cls();
    surface.SetCurrentPoint(10, 90);
    surface.Print("first line");
    EXPECT_EQ(surface.TextClashes(), 0);
    surface.SetCurrentPoint(10, 60);
    surface.Print("second line");
    EXPECT_EQ(surface.TextClashes(), 0);
    surface.SetCurrentPoint(15, 88);
    surface.Print("over it");
    EXPECT_EQ(surface.TextClashes(), 1);
    surface.SetCurrentPoint(150, 60);
    surface.Print("cut at the right edge");
    EXPECT_EQ(surface.TextClashes(), 2);
    surface.Cls();
    EXPECT_EQ(surface.TextClashes(), 0);
}

// The small frame of the parameters dialog, and a narrow plot window.
class SmallPlan : public PlanSurface, public ::testing::WithParamInterface<int> {
  protected:
    static QImage Drawn(const QSize& sheet, void (*draw)(DrawingSurface&)) {
        QImage image = Sheet(sheet);
        PainterSurface surface(image, sheet);
        surface.SetFitsLabels(LabelSize::BuiltIn);
        draw(surface);
        surface.Finish();
        return image;
    }

    static void ExpectOutlinesUncovered(const QSize& sheet, void (*draw)(DrawingSurface&)) {
        ViewChildWindow = 0;
        const QImage bare = Drawn(sheet, draw);
        ViewChildWindow = 1;
        const QImage labelled = Drawn(sheet, draw);
        long covered = 0;
        for (int y = 0; y < sheet.height(); ++y)
            for (int x = 0; x < sheet.width(); ++x)
                if (IsBlack(bare, x, y) && qGray(labelled.pixel(x, y)) > 128) ++covered;
        EXPECT_EQ(covered, 0);
    }
};

INSTANTIATE_TEST_SUITE_P(Holes, SmallPlan, ::testing::Values(2, 3, 9, 20));

// Holes too narrow for a label between two pillars.
TEST_P(SmallPlan, LabelsCoverNoOutline) {
    PlanPanel(static_cast<int16_t>(GetParam()));
    PreviewRecord.HoleWidth = 4;
    PreviewRecord.CenterDistance.Fill(12);
    PreviewRecord.CenterDistance[1] = 24;
    ExpectOutlinesUncovered({601, 121}, DrawPanelPreview);
    ExpectOutlinesUncovered({400, 400}, DrawPanelPlot);
    PlotMode = plot_mode::Capacity;
    WorkingParameters.PillarCapacity.Fill(44641049542.0);
    ExpectOutlinesUncovered({601, 121}, DrawPanelPreview);
    ExpectOutlinesUncovered({400, 400}, DrawPanelPlot);
}

// On the low frame a text is as high along x as it would be along y, in pixels.
TEST_F(PlanSurface, ALabelStandsNextToItsPillarInALowFrame) {
    PlotEntryDims = 0;
    const QSize frame(601, 121);
    QImage image = Sheet(frame);
    PainterSurface surface(image, frame);
    surface.SetFitsLabels(LabelSize::BuiltIn);
    DrawPanelPreview(surface);
    ASSERT_EQ(surface.Labels().size(), 3u);
    const double right = surface.Labels()[2].pillar.right();
    EXPECT_NEAR(right, 191.4 / 316.8 * 601, 1);
    surface.Finish();
    EXPECT_LT(InkOf(image.copy(0, 16, 601, 105)).right(), right + 16);
}

}  // namespace
}  // namespace tarvokol
