// SPDX-License-Identifier: GPL-3.0-or-later
// Curves of studies over one field, as they are drawn.
#include <algorithm>
#include <cmath>
#include <regex>

#include "qt/charts/chart_text.h"
#include "tests/gui/qt/study_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

TargetLine Level(const char* name, double y) {
    return {name, {{100, y}, {300, y}}};
}

class CurvesPlot : public StudyPlotTest {
  protected:
    CurvesPlot() {
        Picture.title = "Depth and factors";
        Picture.x = {"Depth of Cover (ft)", 100, 300, false};
        Picture.y = {"Stability Factor", 0, 3, false};
        Picture.places = {100, 200, 300};
        Picture.curves = {{"Overall", {2.5, 1.5, NAN}}, {"Webs ONLY", {2.0, 1.0, 0.5}}};
    }

    int SkippedSymbols(const std::vector<double>& y) {
        Picture.places = Rising(static_cast<int>(y.size()));
        Picture.x.low = 0;
        Picture.x.high = static_cast<double>(y.size());
        Picture.curves = {{"Overall", y}};
        return All<QCPGraph>(*PlotOf(Picture))[0]->scatterSkip();
    }

    CurvesPicture Picture;
};

TEST_F(CurvesPlot, HasTitlesAndAxes) {
    const auto plot = PlotOf(Picture);
    ExpectHeader(*plot, "Depth and factors");
    ExpectLooks(*plot->xAxis, "Depth of Cover (ft)");
    ExpectLooks(*plot->yAxis, "Stability Factor");
    ExpectFullBox(*plot->axisRect());
    EXPECT_FALSE(plot->axisRect()->axis(QCPAxis::atRight)->tickLabels());
    EXPECT_EQ(plot->xAxis->range(), QCPRange(100, 300));
    EXPECT_EQ(plot->yAxis->range(), QCPRange(0, 3));
}

TEST_F(CurvesPlot, HoldsThePointsOfEachCurve) {
    const auto plot = PlotOf(Picture);
    const auto graphs = All<QCPGraph>(*plot);
    ASSERT_EQ(graphs.size(), 2u);
    const auto& overall = *graphs[0]->data();
    ASSERT_EQ(overall.size(), 3);
    EXPECT_EQ(overall.at(1)->key, 200);
    EXPECT_EQ(overall.at(1)->value, 1.5);
    EXPECT_TRUE(std::isnan(overall.at(2)->value));
    EXPECT_EQ(graphs[1]->data()->at(2)->value, 0.5);
}

TEST_F(CurvesPlot, TellsCurvesApartWithoutColours) {
    Picture.curves.resize(5, {"More", {1, 1, 1}});
    const auto plot = PlotOf(Picture);
    const char* const lines[] = {"solid", "dash", "dash-dot", "dot", "solid"};
    const QCPScatterStyle::ScatterShape shapes[] = {QCPScatterStyle::ssCircle, QCPScatterStyle::ssSquare,
                                                    QCPScatterStyle::ssTriangle, QCPScatterStyle::ssDiamond,
                                                    QCPScatterStyle::ssCircle};
    for (std::size_t i = 0; i < 5; ++i) {
        const QCPGraph& graph = *All<QCPGraph>(*plot)[i];
        EXPECT_EQ(PenOf(graph.pen()), QString("#000000 1.3 ") + lines[i]);
        const QCPScatterStyle sign = graph.scatterStyle();
        EXPECT_EQ(sign.shape(), shapes[i]) << i;
        EXPECT_EQ(sign.size(), 7);
        EXPECT_EQ(sign.pen().color(), QColor(Qt::black));
        EXPECT_EQ(sign.brush().color(), QColor(Qt::white));
        EXPECT_EQ(PenOf(KeysOf(*plot)[i].line), PenOf(graph.pen()));
        EXPECT_EQ(KeysOf(*plot)[i].symbol.shape(), shapes[i]);
    }
}

TEST_F(CurvesPlot, ACurveCarriesSomeDozenSymbolsAtTheMost) {
    for (const auto& [points, skipped] : {std::pair(16, 0), {17, 0}, {18, 1}, {32, 1}, {33, 2}, {161, 10}})
        EXPECT_EQ(SkippedSymbols(Rising(points)), skipped) << points;
    // A point between two gaps is seen by its symbol alone.
    std::vector<double> y = Rising(161);
    y[41] = y[43] = NAN;
    EXPECT_EQ(SkippedSymbols(y), 0);
}

// Symbols in the corners of the frame: as much of them is outside as in.
TEST_F(CurvesPlot, SymbolsOnTheFrameAreWhole) {
    Picture.curves = {{"Overall", {3, 1.5, 3}}};
    WriteStudyPicture(Picture, PathTo("study.png"));
    const QImage image = QImage(QString::fromStdString(PathTo("study.png")))
                             .scaled(720, 504, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QRect frame = PlotOf(Picture)->axisRect()->rect();
    int dark = 0;
    for (int x = 1; x <= 5; ++x)
        for (int y = 1; y <= 5; ++y)
            if (image.pixelColor(frame.right() + 1 + x, frame.top() - y).lightness() < 200) ++dark;
    EXPECT_GT(dark, 2);
}

TEST_F(CurvesPlot, TargetsAreBoldLevelsWithTheirNamesOnThem) {
    Picture.targets = {Level("Target 1", 1.2), Level("Target SFWeb 1.6", 2.8)};
    const SvgPicture svg = SvgOf(Picture);
    const auto plot = PlotOf(Picture);
    ExpectWholeAndApart(svg);
    for (const TargetLine& target : Picture.targets) {
        const double y = plot->yAxis->coordToPixel(target.line[0].y);
        const auto names = svg.Named(ToQt(target.name));
        ASSERT_EQ(names.size(), 1u);
        EXPECT_TRUE(names[0].bold);
        EXPECT_NEAR(names[0].room.center().y(), y, 1.5);
        double drawn = 0;
        for (const SvgLine& line : svg.lines)
            if (line.width == 2 && std::abs(line.points.first().y() - y) < 0.6)
                drawn += std::abs(line.points.last().x() - line.points.first().x());
        const double label = names[0].room.width();
        EXPECT_NEAR(drawn + label, plot->axisRect()->width(), 12);
    }
    EXPECT_THAT(KeyTexts(*plot), ElementsAre("Overall", "Webs ONLY", "target"));
    EXPECT_EQ(PenOf(KeysOf(*plot)[2].line), "#000000 2 solid");
}

// A target that is the field itself: its name stands on the line that rises.
TEST_F(CurvesPlot, ATargetThatVariesIsALineOfItsOwn) {
    Picture.targets = {{"Target SFWeb", {{100, 0.2}, {200, 1.6}, {300, 3}}}};
    const SvgPicture svg = SvgOf(Picture);
    const auto plot = PlotOf(Picture);
    ASSERT_EQ(svg.Named("Target SFWeb").size(), 1u);
    const QPointF middle = svg.Named("Target SFWeb")[0].room.center();
    EXPECT_NEAR(plot->yAxis->pixelToCoord(middle.y()),
                0.2 + 1.4 * (plot->xAxis->pixelToCoord(middle.x()) - 100) / 100, 0.02);
}

// A curve along the right half of its target: the name stands where none is.
TEST_F(CurvesPlot, ANameKeepsAwayFromTheCurves) {
    Picture.places = {100, 200, 202, 300};
    Picture.curves = {{"Overall", {2, 2, 1.02, 1.02}}, {"Webs ONLY", {2, 2, 0.98, 0.98}}};
    Picture.targets = {Level("Target 1", 1)};
    const auto name = SvgOf(Picture).Named("Target 1");
    ASSERT_EQ(name.size(), 1u);
    EXPECT_LT(PlotOf(Picture)->xAxis->pixelToCoord(name[0].room.right()), 200);
}

// Levels closer to one another, or to the frame's edge, than their names are high.
TEST_F(CurvesPlot, NamesOfCloseTargetsAreWholeAndApart) {
    Picture.targets = {Level("Target 1", 1), Level("Target SFWeb 1.01", 1.01),
                       Level("Target SFBarrier 1.02", 1.02), Level("Target", 2.99)};
    const SvgPicture svg = SvgOf(Picture);
    ExpectWholeAndApart(svg);
    for (const TargetLine& target : Picture.targets)
        EXPECT_EQ(svg.Named(ToQt(target.name)).size(), 1u) << target.name;
}

TEST_F(CurvesPlot, ACurveWithoutAValueHasNoKey) {
    Picture.curves.push_back({"Barrier Pillar", {NAN, NAN, NAN}});
    EXPECT_THAT(KeyTexts(*PlotOf(Picture)), ElementsAre("Overall", "Webs ONLY"));
}

// Nothing but the frame and what stands in and beside it is drawn: the corner of the picture stays white.
TEST_F(CurvesPlot, AMissingValueHasNoSymbol) {
    Picture.curves = {{"Overall", {NAN, 1.5, NAN}}};
    const QSize size = StudyPictureSize(Picture);
    const QImage image = PlotOf(Picture)->toPixmap(size.width(), size.height(), 1).toImage();
    for (int x = 0; x < 12; ++x)
        for (int y = 0; y < 12; ++y) EXPECT_EQ(image.pixelColor(x, y), QColor(Qt::white)) << x << ' ' << y;
}

TEST_F(CurvesPlot, ANoteStandsBelowTheTitle) {
    Picture.note = "1 of 3 panels refused: no curve there";
    const auto plot = PlotOf(Picture);
    EXPECT_EQ(TextInRow(*plot, 1).text(), "1 of 3 panels refused: no curve there");
    EXPECT_EQ(plot->plotLayout()->element(2, 0), plot->axisRect());
    ExpectWholeAndApart(SvgOf(Picture));
}

// Numbers of holes from 2 to 5: no tick lies between two of them, on neither side of the frame.
TEST_F(CurvesPlot, TicksOfCountsAreWhole) {
    Picture.places = {2, 3, 5};
    Picture.x = {"Number of holes", 2, 5, true};
    const auto plot = PlotOf(Picture);
    for (const QCPAxis* axis : {plot->xAxis, plot->xAxis2})
        EXPECT_THAT(axis->tickVector(), ElementsAre(2, 3, 4, 5));
    for (const SvgText& between : SvgOf(Picture).Named("2.5"))
        EXPECT_LT(between.room.right(), plot->axisRect()->left()) << "one of the factors is no count";
}

// The labels of the last ticks stand half outside of the frame.
TEST_F(CurvesPlot, LabelsOfTheLastTicksAreWhole) {
    Picture.places = {0, 1000000};
    Picture.x = {"Depth of Cover (ft)", 0, 1000000, false};
    Picture.curves = {{"Overall", {1, 2}}};
    const SvgPicture svg = SvgOf(Picture);
    EXPECT_EQ(svg.Named("1000000").size(), 1u);
    ExpectWholeAndApart(svg);
}

// 20 pixels on either side of the picture's 720.
TEST_F(CurvesPlot, ATitleThatIsTooWideIsSetSmaller) {
    const auto size_of = [this](double width) {
        Picture.title = TextOfWidth(ChartFont(13, true), width);
        return TextInRow(*PlotOf(Picture), 0).font().pointSizeF();
    };
    EXPECT_EQ(size_of(680), 13.0);
    EXPECT_LT(size_of(681), 13.0);
}

// The files of a study's picture, in the formats of the graphs' own.
TEST_F(CurvesPlot, IsWrittenInTheFormatOfTheName) {
    WriteStudyPicture(Picture, PathTo("study.png"));
    const QImage image(QString::fromStdString(PathTo("study.png")));
    EXPECT_EQ(image.size(), QSize(1800, 1260));
    EXPECT_EQ(image.dotsPerMeterX(), 9449);  // 240 to the inch
    EXPECT_EQ(image.pixelColor(2, 2), QColor(Qt::white));
    WriteStudyPicture(Picture, PathTo("study.svg"));
    const std::string svg = ReadBytes(PathTo("study.svg"));
    for (const char* text :
         {"<title>Depth and factors</title>", ">Depth and factors<", ">Depth of Cover (ft)<",
          ">Stability Factor<", ">Overall<", ">Webs ONLY<", "viewBox=\"0 0 720 504\""})
        EXPECT_NE(svg.find(text), std::string::npos) << text;
    // Vectors stand between pixels.
    EXPECT_TRUE(std::regex_search(svg, std::regex("<polyline[^>]* points=\"[^\"]*[0-9][.][0-9]")));
    WriteStudyPicture(Picture, PathTo("study.pdf"));
    EXPECT_EQ(ReadBytes(PathTo("study.pdf")).substr(0, 5), "%PDF-");
    EXPECT_EQ(RaisedError([this] { WriteStudyPicture(Picture, PathTo("study.gif")); }), 5);
}

}  // namespace
}  // namespace tarvokol
