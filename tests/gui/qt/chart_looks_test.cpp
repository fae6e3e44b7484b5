// SPDX-License-Identifier: GPL-3.0-or-later
// Sizes, colours, pens and places of what stands around the plot.
#include <QFontMetricsF>
#include <cmath>

#include "qt/charts/chart_text.h"
#include "qt/charts/chart_ticker.h"
#include "tests/gui/qt/chart_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

TEST_F(ChartLooks, ThePlotLeavesTheMouseAndTheKeysToTheChart) {
    EXPECT_TRUE(Plot().testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_EQ(Plot().focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(Plot().locale(), QLocale::c());
    EXPECT_EQ(Chart.focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(Chart.accessibleName(), "Graph");
    EXPECT_TRUE(Chart.hasMouseTracking());
}

TEST_F(ChartLooks, AxesHaveSmallNumbersAndOneGrid) {
    Chart.SetAxisTitleSize(ChartAxis::X, 12);
    Chart.SetAxisStyle(ChartAxis::Y, 2, 4);
    Chart.SetAxisStyle(ChartAxis::X, 1, 6);
    AddLine(3);
    Now();
    for (const QCPAxis* axis : {Plot().xAxis, Plot().yAxis}) {
        EXPECT_EQ(FontOf(axis->tickLabelFont()), "Arial 9");
        EXPECT_EQ(axis->tickLabelColor(), QColor(Qt::black));
        EXPECT_EQ(axis->labelColor(), QColor(Qt::black));
        EXPECT_EQ(axis->labelPadding(), 4);
        EXPECT_EQ(PenOf(axis->grid()->pen()), "#cdcdcd 1 solid");
        EXPECT_EQ(PenOf(axis->grid()->zeroLinePen()), "#cdcdcd 1 solid");
        EXPECT_FALSE(axis->grid()->subGridVisible());
        EXPECT_FALSE(axis->subTicks());
        EXPECT_FALSE(axis->grid()->visible());
        EXPECT_EQ(PenOf(axis->tickPen()), "#000000 1 solid");
        EXPECT_EQ(axis->tickLengthIn(), 0);
        EXPECT_EQ(axis->basePen().capStyle(), Qt::FlatCap);
        EXPECT_NE(axis->ticker().dynamicCast<ChartTicker>(), nullptr);
    }
    EXPECT_EQ(FontOf(Plot().xAxis->labelFont()), "Arial 12");
    EXPECT_EQ(FontOf(Plot().yAxis->labelFont()), "Arial 10");
    EXPECT_EQ(Plot().xAxis->label(), "Depth of Cover (ft)");
    EXPECT_EQ(Plot().yAxis->label(), "Stability Factor");
    EXPECT_EQ(PenOf(Plot().xAxis->basePen()), "#000000 1 solid");
    EXPECT_EQ(PenOf(Plot().yAxis->basePen()), "#000000 2 solid");
    EXPECT_EQ(Plot().xAxis->tickLengthOut(), 6);
    EXPECT_EQ(Plot().yAxis->tickLengthOut(), 4);
    EXPECT_EQ(Plot().axisRect()->minimumMargins(), QMargins(12, 8, 14, 6));
}

TEST_F(ChartLooks, AGridMayHaveAStepOfItsOwn) {
    AddLine(51);
    Chart.SetMajorGridSpacing(ChartAxis::X, 5);
    Now();
    EXPECT_TRUE(Plot().xAxis->grid()->visible());
    EXPECT_FALSE(Plot().yAxis->grid()->visible());
    const auto fixed = Plot().xAxis->ticker().dynamicCast<QCPAxisTickerFixed>();
    ASSERT_NE(fixed, nullptr);
    EXPECT_EQ(fixed->tickStep(), 5);
    // 159 over, seven ticks at the most: whole multiples of the step.
    for (const double tick : Plot().xAxis->tickVector()) EXPECT_EQ(std::fmod(tick, 5.0), 0) << tick;
    EXPECT_LE(Plot().xAxis->tickVector().size(), 11);
    Chart.SetMajorGridAutomatic(ChartAxis::X);
    Now();
    EXPECT_TRUE(Plot().xAxis->grid()->visible());
    const auto automatic = Plot().xAxis->ticker().dynamicCast<ChartTicker>();
    ASSERT_NE(automatic, nullptr);
    Now();
    EXPECT_EQ(Plot().xAxis->ticker().data(), automatic.data());
}

// An axis gives 45 pixels to a number in x and 30 in y, and has 2 to 7 ticks. Beside the plot 80 pixels count as taken,
// above and below it 44, the header's gap of 6 and the legend's edge of 6.
TEST_F(ChartLooks, AnAxisHasAsManyTicksAsItHasRoomFor) {
    NoTexts();
    AddLine(3);
    EXPECT_EQ(At(80 + 4 * 45, 300).xAxis->ticker()->tickCount(), 4);
    EXPECT_EQ(At(80 + 4 * 45 - 1, 300).xAxis->ticker()->tickCount(), 3);
    EXPECT_EQ(At(100, 300).xAxis->ticker()->tickCount(), 2);
    EXPECT_EQ(At(80 + 9 * 45, 300).xAxis->ticker()->tickCount(), 7);
    EXPECT_EQ(At(300, 56 + 4 * 30).yAxis->ticker()->tickCount(), 4);
    EXPECT_EQ(At(300, 56 + 4 * 30 - 1).yAxis->ticker()->tickCount(), 3);
    EXPECT_EQ(At(300, 70).yAxis->ticker()->tickCount(), 2);
    EXPECT_EQ(At(300, 56 + 9 * 30).yAxis->ticker()->tickCount(), 7);
}

TEST_F(ChartLooks, HeaderLegendAndNoteStandBelowOneAnother) {
    Chart.SetNote("Sizing curves hold for one web width.");
    AddPoints(1);
    Chart.AddSeriesLabel(1, "Overall");
    Now();
    QCPLayoutGrid& rows = *Plot().plotLayout();
    ASSERT_EQ(rows.rowCount(), 4);
    EXPECT_EQ(rows.rowSpacing(), 0);
    EXPECT_EQ(rows.element(1, 0), Plot().axisRect());
    EXPECT_THAT(rows.rowStretchFactors(), ElementsAre(0.001, 1, 0.001, 0.001));
    auto* legend_row = qobject_cast<QCPLayoutGrid*>(rows.element(2, 0));
    ASSERT_NE(legend_row, nullptr);
    EXPECT_EQ(legend_row->element(0, 1), Plot().legend);
    EXPECT_NE(legend_row->element(0, 0), nullptr);
    EXPECT_NE(legend_row->element(0, 2), nullptr);
    EXPECT_THAT(legend_row->columnStretchFactors(), ElementsAre(1, 0.001, 1));
    EXPECT_EQ(legend_row->margins(), QMargins(8, 0, 8, 6));
    const QCPLegend& legend = *Plot().legend;
    EXPECT_TRUE(legend.visible());
    EXPECT_EQ(legend.borderPen().style(), Qt::NoPen);
    EXPECT_EQ(legend.brush().style(), Qt::NoBrush);
    EXPECT_EQ(legend.textColor(), QColor(Qt::black));
    EXPECT_EQ(FontOf(legend.font()), "Arial 9");
    EXPECT_EQ(legend.columnSpacing(), 14);
    EXPECT_EQ(legend.margins(), QMargins(0, 0, 0, 0));
    // The legend in the middle.
    EXPECT_NEAR(legend.outerRect().center().x(), 224, 2);
}

TEST_F(ChartLooks, TheHeaderIsBoldAndTheNoteSmall) {
    Chart.SetNote("Sizing curves hold for one web width.");
    AddLine(3);
    Now();
    EXPECT_EQ(Header().text(), "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_EQ(FontOf(Header().font()), "Arial 15 bold");
    EXPECT_EQ(Header().margins(), QMargins(4, 6, 4, 0));
    EXPECT_TRUE(Header().visible());
    EXPECT_EQ(Header().textColor(), QColor(Qt::black));
    EXPECT_EQ(NoteRow().text(), "Sizing curves hold for one web width.");
    EXPECT_EQ(FontOf(NoteRow().font()), "Arial 9");
    EXPECT_EQ(NoteRow().margins(), QMargins(4, 0, 4, 4));
    EXPECT_TRUE(NoteRow().visible());
}

TEST_F(ChartLooks, EmptyTextsTakeNoRoom) {
    NoTexts();
    AddLine(3);
    Now();
    EXPECT_FALSE(Header().visible());
    EXPECT_FALSE(NoteRow().visible());
    EXPECT_EQ(NoteRow().text(), "");
    EXPECT_EQ(NoteRow().margins(), QMargins(4, 0, 4, 0));
    EXPECT_EQ(FontOf(NoteRow().font()), "Arial 1");
    EXPECT_EQ(Plot().legend->itemCount(), 0);
}

// Sixteen pixels of the width are margins, and an axis may have eighty less than the chart.
TEST_F(ChartLooks, TextsAreSetSmallerWhereTheWidthEnds) {
    AddLine(3);
    const QFont header = ChartFont(15, true);
    Chart.SetHeaderText(TextOfWidth(header, 449 - 16));
    Now();
    EXPECT_EQ(Header().font().pointSizeF(), 15.0);
    Chart.SetHeaderText(TextOfWidth(header, 449 - 15));
    Now();
    EXPECT_LT(Header().font().pointSizeF(), 15.0);
    const QFont note = ChartFont(9);
    Chart.SetNote(TextOfWidth(note, 449 - 16));
    Now();
    EXPECT_EQ(NoteRow().font().pointSizeF(), 9.0);
    Chart.SetNote(TextOfWidth(note, 449 - 15));
    Now();
    EXPECT_LT(NoteRow().font().pointSizeF(), 9.0);
    const QFont title = ChartFont(10);
    Chart.SetAxisTitle(ChartAxis::X, TextOfWidth(title, 449 - 80));
    Now();
    EXPECT_EQ(Plot().xAxis->labelFont().pointSizeF(), 10.0);
    Chart.SetAxisTitle(ChartAxis::X, TextOfWidth(title, 449 - 79));
    Now();
    EXPECT_LT(Plot().xAxis->labelFont().pointSizeF(), 10.0);
}

// The Y title has what the others leave: header with its gap of 6, note with 4 below it, legend with 6 below it, the
// other axis' title and 44 for its numbers.
TEST_F(ChartLooks, TheTitleOfYHasTheHeightThatIsLeft) {
    Chart.SetNote("Sizing curves hold for one web width.");
    AddPoints(1);
    Chart.AddSeriesLabel(1, "Overall");
    const auto height = [](double points, bool bold) {
        return QFontMetrics(ChartFont(points, bold)).height();
    };
    const int legend = std::max(14, height(9, false));
    const int left =
        313 - (height(15, true) + 6) - (height(9, false) + 4) - (legend + 6) - height(10, false) - 44;
    const QFont title = ChartFont(10);
    Chart.SetAxisTitle(ChartAxis::Y, TextOfWidth(title, left));
    Now();
    EXPECT_EQ(Plot().yAxis->labelFont().pointSizeF(), 10.0);
    Chart.SetAxisTitle(ChartAxis::Y, TextOfWidth(title, left + 1));
    Now();
    EXPECT_LT(Plot().yAxis->labelFont().pointSizeF(), 10.0);
}

// 15 % of the chart's height, but not smaller than the small texts.
TEST_F(ChartLooks, AHeaderTakesAShareOfTheHeight) {
    AddLine(3);
    const int large = QFontMetrics(ChartFont(15, true)).height();
    const int lowest = static_cast<int>(std::ceil(large / 0.15));
    At(449, lowest);
    EXPECT_EQ(Header().font().pointSizeF(), 15.0);
    At(449, lowest - 1);
    EXPECT_EQ(Header().font().pointSizeF(), 14.0);
    At(449, 60);
    EXPECT_EQ(Header().font().pointSizeF(), 9.0);
}

// An entry: icon of 34 pixels, gap of 8, its text, 14 to the next column; 8 pixels of the chart on either side.
TEST_F(ChartLooks, TheLegendHasAsManyColumnsAsFit) {
    AddPoints(3);
    Chart.AddSeriesLabel(1, "Overall");
    Chart.AddSeriesLabel(2, "Webs ONLY");
    Chart.AddSeriesLabel(3, "Barrier Pillar");
    const QFontMetrics metrics(ChartFont(9));
    const int entry = metrics.horizontalAdvance("Barrier Pillar") + 34 + 8 + 14;
    EXPECT_EQ(At(16 + 2 * entry, 313).legend->wrap(), 2);
    EXPECT_EQ(At(16 + 2 * entry - 1, 313).legend->wrap(), 1);
    EXPECT_EQ(At(16 + entry / 2, 313).legend->wrap(), 1);
    EXPECT_EQ(At(16 + 4 * entry, 313).legend->wrap(), 3);
    EXPECT_EQ(Plot().legend->fillOrder(), QCPLayoutGrid::foColumnsFirst);
    EXPECT_EQ(Plot().legend->iconSize(), QSize(34, 14));
    ASSERT_EQ(Plot().legend->itemCount(), 3);
    EXPECT_EQ(Line(2).name(), "Webs ONLY");
    Chart.RemoveAllSeriesLabels();
    Chart.AddSeriesLabel(2, "Webs ONLY");
    Now();
    ASSERT_EQ(Plot().legend->itemCount(), 1);
    EXPECT_EQ(qobject_cast<QCPPlottableLegendItem*>(Plot().legend->item(0))->plottable(), &Line(2));
}

// A symbol of 20 points is 26.7 pixels high: 27 and 4 around it, and the icon is 8 wider than high.
TEST_F(ChartLooks, IconsOfTheLegendHoldTheLargestSymbol) {
    AddPoints(2);
    Chart.AddSeriesLabel(1, "Overall");
    Chart.AddSeriesLabel(2, "Webs ONLY");
    Chart.SetSymbolSize(2, 20);
    EXPECT_EQ(Now().legend->iconSize(), QSize(39, 31));
    Chart.SetSymbolSize(2, 8);
    EXPECT_EQ(Now().legend->iconSize(), QSize(34, 15));
    Chart.SetSymbolSize(2, 5);
    EXPECT_EQ(Now().legend->iconSize(), QSize(34, 14));
}

// A row of 31 pixels is 45 % of 68.9.
TEST_F(ChartLooks, ALowChartShowsThePlotInsteadOfTheLegend) {
    AddPoints(1);
    Chart.AddSeriesLabel(1, "Overall");
    Chart.SetSymbolSize(1, 20);
    EXPECT_EQ(At(449, 69).legend->itemCount(), 1);
    EXPECT_EQ(At(449, 68).legend->itemCount(), 0);
    Chart.SetSymbolSize(1, 10);  // 18 pixels are the share of 40
    EXPECT_EQ(At(449, 40).legend->itemCount(), 1);
    EXPECT_EQ(At(449, 39).legend->itemCount(), 0);
    Chart.SetSymbolSize(1, 20);
    AddPoints(2);
    Chart.AddSeriesLabel(2, "Overall");
    EXPECT_EQ(At(449, 69).legend->itemCount(), 2);  // beside one another
    const int narrow = 120;                         // one below the other
    EXPECT_EQ(At(narrow, 138).legend->itemCount(), 2);
    EXPECT_EQ(At(narrow, 137).legend->itemCount(), 0);
}

// The line in the legend ends where its icon does; the text follows after the library's gap.
TEST_F(ChartLooks, AnEntryOfTheLegendIsALineAndItsText) {
    AddLine(3);
    Chart.SetLineColour(1, 0x0000FF);
    Chart.AddSeriesLabel(1, "HHH");
    Now();
    const QImage image = Chart.ToImage(Chart.size(), 1);
    const QRect entry = Plot().legend->item(0)->rect();
    const QRect line = RedIn(image, QRect(0, entry.top() - 4, 449, entry.height() + 8));
    EXPECT_EQ(line.left(), entry.left());
    EXPECT_EQ(line.width(), 34);
    const int gap = Plot().legend->iconTextPadding();
    QRect text;
    for (int y = entry.top(); y <= entry.bottom(); ++y)
        for (int x = entry.left() + 35; x < 449; ++x)
            if (image.pixelColor(x, y).lightness() < 128) text |= QRect(x, y, 1, 1);
    EXPECT_NEAR(text.left(), entry.left() + 34 + gap + 1, 1);
    EXPECT_NEAR(text.center().y(), entry.center().y(), 1);
}

}  // namespace
}  // namespace tarvokol
