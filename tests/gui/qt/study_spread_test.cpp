// SPDX-License-Identifier: GPL-3.0-or-later
// The spread of the factors of a risk study as it is drawn: bars, shares below, targets, words.
#include "tests/gui/qt/study_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SpreadPlot : public StudyPlotTest {
  protected:
    SpreadPlot() {
        Picture.title = "Spread of the factors";
        Picture.words = {"In situ coal strength lognormal, mean 900 psi, standard deviation 135 psi",
                         "100000 samples (Latin hypercube), seed 1, 0 refused"};
        for (const char* name : {"Overall", "Webs ONLY"}) {
            SpreadPanel panel;
            panel.x = {name, 0, 4, false};
            panel.bars = {0, 0.1, 0.5, 0.4};
            panel.below = {{0, 0}, {1, 0}, {2, 0.1}, {3, 0.6}, {4, 1}};
            panel.targets = {{"target 1.6", 1.6}, {"1", 1}};
            panel.words = {std::string("Probability of ") + name + " below 1.6: 0.25"};
            Picture.panels.push_back(panel);
        }
    }

    SpreadPicture Picture;
};

TEST_F(SpreadPlot, HasABoxForEachFactorBelowItsWords) {
    const auto plot = PlotOf(Picture);
    ExpectHeader(*plot, "Spread of the factors");
    EXPECT_EQ(TextInRow(*plot, 1).text(),
              "In situ coal strength lognormal, mean 900 psi, standard deviation 135 psi");
    EXPECT_EQ(TextInRow(*plot, 2).text(), "100000 samples (Latin hypercube), seed 1, 0 refused");
    ASSERT_EQ(plot->axisRectCount(), 2);
    for (int i = 0; i < 2; ++i) {
        const QCPAxisRect& box = *plot->axisRect(i);
        const QString name = i == 0 ? "Overall" : "Webs ONLY";
        EXPECT_EQ(TextInRow(*plot, 3 + 2 * i).text(), "Probability of " + name + " below 1.6: 0.25");
        EXPECT_EQ(plot->plotLayout()->element(4 + 2 * i, 0), &box);
        ExpectLooks(*box.axis(QCPAxis::atBottom), name);
        ExpectLooks(*box.axis(QCPAxis::atLeft), "Share of samples", 9);
        ExpectFullBox(box);
        for (const auto side : {QCPAxis::atBottom, QCPAxis::atTop})
            EXPECT_EQ(box.axis(side)->range(), QCPRange(0, 4));
    }
}

TEST_F(SpreadPlot, BarsShowTheSharesOfTheSamples) {
    const auto plot = PlotOf(Picture);
    const auto bars = All<QCPBars>(*plot);
    ASSERT_EQ(bars.size(), 2u);
    EXPECT_EQ(bars[0]->width(), 1);
    EXPECT_EQ(PenOf(bars[0]->pen()), "#787878 0.7 solid");
    EXPECT_EQ(bars[0]->brush().color(), QColor(205, 205, 205));
    EXPECT_EQ(bars[1]->keyAxis(), plot->axisRect(1)->axis(QCPAxis::atBottom));
    ASSERT_EQ(bars[0]->data()->size(), 4);
    const std::vector<double> shares{0, 0.1, 0.5, 0.4};
    for (int bar = 0; bar < 4; ++bar) {
        EXPECT_EQ(bars[0]->data()->at(bar)->key, bar + 0.5);
        EXPECT_EQ(bars[0]->data()->at(bar)->value, shares[static_cast<std::size_t>(bar)]);
    }
    const QCPRange heights = plot->axisRect(0)->axis(QCPAxis::atLeft)->range();
    EXPECT_EQ(heights.lower, 0);
    EXPECT_NEAR(heights.upper, 1.12 * 0.5, 1e-12);
}

TEST_F(SpreadPlot, ACurveShowsTheShareBelowEachValue) {
    const auto plot = PlotOf(Picture);
    const QCPAxis& right = *plot->axisRect(0)->axis(QCPAxis::atRight);
    EXPECT_TRUE(right.tickLabels());
    EXPECT_EQ(FontOf(right.labelFont()), "Arial 9");
    EXPECT_EQ(right.label(), "Share below");
    EXPECT_EQ(right.range(), QCPRange(0, 1));
    const auto curves = All<QCPGraph>(*plot);
    ASSERT_EQ(curves.size(), 2u);
    EXPECT_EQ(curves[0]->valueAxis(), &right);
    EXPECT_EQ(PenOf(curves[0]->pen()), "#000000 1.3 solid");
    ASSERT_EQ(curves[0]->data()->size(), 5);
    EXPECT_EQ(curves[0]->data()->at(3)->key, 3);
    EXPECT_EQ(curves[0]->data()->at(3)->value, 0.6);
}

// Their names stand above the frame: no bar is there, and no line.
TEST_F(SpreadPlot, NamesOfTargetsStandAboveTheFrame) {
    const SvgPicture svg = SvgOf(Picture);
    const auto plot = PlotOf(Picture);
    ExpectWholeAndApart(svg);
    for (int i = 0; i < 2; ++i) {
        const QRect frame = plot->axisRect(i)->rect();
        int seen = 0;
        for (const SvgText& name : svg.Named("target 1.6")) {
            if (name.room.bottom() > frame.top() || name.room.bottom() < frame.top() - 20) continue;
            ++seen;
            EXPECT_TRUE(name.bold);
            EXPECT_NEAR(name.room.center().x(), plot->axisRect(i)->axis(QCPAxis::atBottom)->coordToPixel(1.6),
                        1);
        }
        EXPECT_EQ(seen, 1) << i;
    }
}

// Close to one another, and at both ends of the frame.
TEST_F(SpreadPlot, NamesOfTargetsAreWholeAndApart) {
    Picture.panels[0].targets = {{"target 3.99", 3.99}, {"1", 4}};
    Picture.panels[1].targets = {{"target 0.02", 0.02}, {"0.01", 0.01}, {"0.03", 0.03}};
    const SvgPicture svg = SvgOf(Picture);
    ExpectWholeAndApart(svg);
    const auto plot = PlotOf(Picture);
    const QRect frame = plot->axisRect(0)->rect();
    for (const char* name : {"target 3.99", "target 0.02", "0.01", "0.03"}) {
        ASSERT_EQ(svg.Named(name).size(), 1u) << name;
        EXPECT_GE(svg.Named(name)[0].room.left(), frame.left() - 1) << name;
        EXPECT_LE(svg.Named(name)[0].room.right(), frame.right() + 2) << name;
    }
    // In the order of their values.
    EXPECT_LT(svg.Named("0.01")[0].room.left(), svg.Named("target 0.02")[0].room.left());
    EXPECT_LT(svg.Named("target 0.02")[0].room.left(), svg.Named("0.03")[0].room.left());
}

TEST_F(SpreadPlot, APictureIsAsHighAsItsWordsNeed) {
    const QSize two = StudyPictureSize(Picture);
    EXPECT_EQ(two.width(), 720);
    for (int i = 0; i < 20; ++i) Picture.words.push_back("Depth of cover uniform from 50 to 220 ft");
    EXPECT_GT(StudyPictureSize(Picture).height(), two.height() + 20 * 12);
    ExpectWholeAndApart(SvgOf(Picture));
    const int height = PlotOf(Picture)->axisRect(0)->height();
    EXPECT_GT(height, 100);
}

TEST_F(SpreadPlot, IsWrittenWithItsTitle) {
    const SvgPicture svg = SvgOf(Picture);
    EXPECT_NE(ReadBytes(PathTo("study.svg")).find("<title>Spread of the factors</title>"), std::string::npos);
    EXPECT_EQ(svg.Named("Share below").size(), 2u);
}

}  // namespace
}  // namespace tarvokol
