// SPDX-License-Identifier: GPL-3.0-or-later
// The spread of the factors of a risk study: bars, shares below, targets.
#include "tests/gui/qt/study_fixture.h"

namespace tarvokol {
namespace {

using ::testing::IsEmpty;

class SpreadPlot : public CoreTest {
  protected:
    SpreadPlot() {
        Picture.title = "Spread of the factors";
        Picture.panels = {{.name = "Overall", .sorted = Rising(601), .targets = {}}};
    }

    const QCPAxisRect& Box(int number) { return *Plot.axisRect(number); }

    QCPRange ViewOf(std::vector<double> sorted, std::vector<SpreadTarget> targets) {
        Plot.clearPlottables();
        Plot.clearItems();
        Plot.plotLayout()->clear();
        Picture.panels = {{.name = "Overall", .sorted = std::move(sorted), .targets = std::move(targets)}};
        ComposeStudyPlot(Plot, Picture);
        return Box(0).axis(QCPAxis::atBottom)->range();
    }

    QCustomPlot Plot;
    SpreadPicture Picture;
};

TEST_F(SpreadPlot, HasABoxForEachFactor) {
    Picture.panels.push_back({.name = "Webs ONLY", .sorted = {}, .targets = {{1.3, "below 1.3: 2 %"}}});
    ComposeStudyPlot(Plot, Picture);
    ExpectHeader(Plot, "Spread of the factors");
    ASSERT_EQ(Plot.axisRectCount(), 2);
    EXPECT_EQ(Plot.plotLayout()->element(1, 0), &Box(0));
    EXPECT_EQ(Plot.plotLayout()->element(2, 0), &Box(1));
    for (int i = 0; i < 2; ++i) {
        ExpectLooks(*Box(i).axis(QCPAxis::atBottom), i == 0 ? "Overall" : "Webs ONLY");
        ExpectLooks(*Box(i).axis(QCPAxis::atLeft), "Share of samples");
        ExpectFullBox(Box(i));
    }
    EXPECT_EQ(Plot.plottableCount(), 2);  // nothing for a factor without samples
    EXPECT_THAT(LabelsOf(Plot), IsEmpty());
}

// 601 samples 0 to 600: the view reaches from -24 to 636, so a bar is 11 wide.
TEST_F(SpreadPlot, BarsShowTheSharesOfTheSamples) {
    ComposeStudyPlot(Plot, Picture);
    for (const auto side : {QCPAxis::atBottom, QCPAxis::atTop}) {
        EXPECT_NEAR(Box(0).axis(side)->range().lower, -24, 1e-9);
        EXPECT_NEAR(Box(0).axis(side)->range().upper, 636, 1e-9);
    }
    const auto bars = All<QCPBars>(Plot);
    ASSERT_EQ(bars.size(), 1u);
    EXPECT_NEAR(bars[0]->width(), 11, 1e-9);
    EXPECT_EQ(PenOf(bars[0]->pen()), "#787878 0.7 solid");
    EXPECT_EQ(bars[0]->brush().color(), QColor(205, 205, 205));
    EXPECT_EQ(bars[0]->keyAxis(), Box(0).axis(QCPAxis::atBottom));
    ASSERT_EQ(bars[0]->data()->size(), 60);
    for (int bar = 0; bar < 60; ++bar) {
        const auto& one = *bars[0]->data()->at(bar);
        EXPECT_NEAR(one.key, -18.5 + 11 * bar, 1e-9);
        const int samples = bar < 2 || bar > 56 ? 0 : bar == 2 || bar == 56 ? 9 : 11;
        EXPECT_NEAR(one.value, samples / 601.0, 1e-12) << bar;
    }
    EXPECT_EQ(Box(0).axis(QCPAxis::atLeft)->range().lower, 0);
    // Nothing but a gap of 3 pixels above the highest bar, where no label stands.
    const double highest = Box(0).height() / (Box(0).height() - 3.0) * 11 / 601;
    EXPECT_NEAR(Box(0).axis(QCPAxis::atLeft)->range().upper, highest, 1e-12);
}

TEST_F(SpreadPlot, ACurveShowsTheShareBelowEachValue) {
    ComposeStudyPlot(Plot, Picture);
    const QCPAxis& right = *Box(0).axis(QCPAxis::atRight);
    EXPECT_TRUE(right.tickLabels());
    EXPECT_EQ(FontOf(right.tickLabelFont()), "Arial 9");
    EXPECT_EQ(FontOf(right.labelFont()), "Arial 9");
    EXPECT_EQ(right.label(), "Share below");
    EXPECT_EQ(right.range().lower, 0);
    EXPECT_NEAR(right.range().upper, Box(0).height() / (Box(0).height() - 3.0), 1e-12);
    const auto curves = All<QCPGraph>(Plot);
    ASSERT_EQ(curves.size(), 1u);
    EXPECT_EQ(curves[0]->valueAxis(), &right);
    EXPECT_EQ(curves[0]->keyAxis(), Box(0).axis(QCPAxis::atBottom));
    EXPECT_EQ(PenOf(curves[0]->pen()), "#000000 1.3 solid");
    const auto& points = *curves[0]->data();
    ASSERT_EQ(points.size(), 400);
    EXPECT_EQ(points.at(0)->key, 0);
    EXPECT_NEAR(points.at(0)->value, 1 / 601.0, 1e-12);
    EXPECT_EQ(points.at(100)->key, 150);  // 100 of 399 steps of 600 samples
    EXPECT_NEAR(points.at(100)->value, 151 / 601.0, 1e-12);
    EXPECT_EQ(points.at(399)->key, 600);
    EXPECT_EQ(points.at(399)->value, 1);
}

TEST_F(SpreadPlot, FewSamplesAreAllOnTheCurve) {
    ViewOf({1, 2, 4}, {});
    const auto& points = *All<QCPGraph>(Plot)[0]->data();
    ASSERT_EQ(points.size(), 3);
    EXPECT_EQ(points.at(1)->key, 2);
    EXPECT_NEAR(points.at(1)->value, 2 / 3.0, 1e-12);
    ViewOf({5}, {});
    ASSERT_EQ(All<QCPGraph>(Plot)[0]->data()->size(), 1);
    EXPECT_EQ(All<QCPGraph>(Plot)[0]->data()->at(0)->key, 5);
    EXPECT_EQ(All<QCPGraph>(Plot)[0]->data()->at(0)->value, 1);
    ViewOf({3, 7}, {});
    EXPECT_EQ(All<QCPGraph>(Plot)[0]->data()->at(1)->key, 7);
}

// Two of 2000 samples on either side are left out of the view: 2 to 1997 remain, 1995 wide.
TEST_F(SpreadPlot, TheViewLeavesOutTheRarestSamples) {
    const QCPRange view = ViewOf(Rising(2000), {});
    EXPECT_NEAR(view.lower, 2 - 0.04 * 1995, 1e-9);
    EXPECT_NEAR(view.upper, 1997 + 0.06 * 1995, 1e-9);
}

// Samples out of view are in no bar, but count among all.
TEST_F(SpreadPlot, OutliersAreInNoBar) {
    std::vector<double> samples = Rising(2000);
    samples.front() = -1e9;
    samples.back() = 1e9;
    ViewOf(samples, {});
    double sum = 0;
    for (const auto& bar : *All<QCPBars>(Plot)[0]->data()) sum += bar.value;
    EXPECT_NEAR(sum, 1998 / 2000.0, 1e-9);
}

// Targets count where they lie within the samples' own extent of them.
TEST_F(SpreadPlot, TheViewHoldsTheTargetsNearTheSamples) {
    EXPECT_NEAR(ViewOf(Rising(101), {{199, ""}}).upper, 199 + 0.06 * 199, 1e-9);
    EXPECT_NEAR(ViewOf(Rising(101), {{200, ""}}).upper, 106, 1e-9);
    EXPECT_NEAR(ViewOf(Rising(101), {{-99, ""}}).lower, -99 - 0.04 * 199, 1e-9);
    EXPECT_NEAR(ViewOf(Rising(101), {{-100, ""}}).lower, -4, 1e-9);
    EXPECT_NEAR(ViewOf(Rising(101), {{50, ""}}).upper, 106, 1e-9);
}

// Highest bars of 11 of 601 samples; the labels stand above them, one below the other.
TEST_F(SpreadPlot, TargetsAreDashedLinesUpToTheirLabelsAboveTheBars) {
    Picture.panels[0].targets = {{400, "below 400: 66.6 %"}, {300.5, "below 300.5: 50.1 %"}};
    Picture.panels.push_back(
        {.name = "Webs ONLY", .sorted = Rising(11), .targets = {{7, "below 7: 63.6 %"}}});
    ComposeStudyPlot(Plot, Picture);
    const auto lines = All<QCPCurve>(Plot);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(PenOf(lines[0]->pen()), "#000000 2 dash");
    ASSERT_EQ(lines[1]->data()->size(), 2);
    for (const auto& point : *lines[1]->data()) EXPECT_EQ(point.key, 300.5);
    EXPECT_EQ(lines[1]->data()->at(0)->value, 0);
    const auto labels = LabelsOf(Plot);
    ASSERT_EQ(labels.size(), 3u);
    EXPECT_EQ(labels[0]->text(), "below 400: 66.6 %");
    EXPECT_EQ(labels[1]->text(), "below 300.5: 50.1 %");
    EXPECT_EQ(lines[1]->data()->at(1)->value, labels[1]->position->value());
    ExpectWholeAndApart(Plot);
    for (std::size_t i = 0; i < 3; ++i) {
        const QCPAxisRect& box = Box(i < 2 ? 0 : 1);
        const double highest = i < 2 ? 11 / 601.0 : 1 / 11.0;
        EXPECT_LE(RoomOf(*labels[i]).bottom(), box.axis(QCPAxis::atLeft)->coordToPixel(highest)) << i;
        EXPECT_EQ(FontOf(labels[i]->font()), "Arial 9 bold");
    }
    // Each in its own box.
    EXPECT_EQ(lines[2]->keyAxis(), Box(1).axis(QCPAxis::atBottom));
    EXPECT_EQ(lines[2]->valueAxis(), Box(1).axis(QCPAxis::atLeft));
    EXPECT_EQ(labels[2]->position->keyAxis(), Box(1).axis(QCPAxis::atBottom));
    EXPECT_EQ(labels[2]->clipAxisRect(), &Box(1));
    EXPECT_EQ(Plot.legend, nullptr);
}

// A target that differs from sample to sample has a label and no place.
TEST_F(SpreadPlot, AnOwnTargetOfEachSampleHasNoLine) {
    const QCPRange view = ViewOf(Rising(101), {{150, "below its own target, each sample: 5 %", false}});
    EXPECT_NEAR(view.upper, 106, 1e-9);
    EXPECT_THAT(All<QCPCurve>(Plot), IsEmpty());
    EXPECT_EQ(LabelsOf(Plot).at(0)->text(), "below its own target, each sample: 5 %");
    ExpectWholeAndApart(Plot);
}

// Not every format of a picture cuts off what reaches beyond the frame.
TEST_F(SpreadPlot, NothingIsDrawnOutOfView) {
    std::vector<double> samples = Rising(2000);
    samples.front() = -1e9;
    samples.back() = 1e9;
    const QCPRange view = ViewOf(samples, {{1e6, "below 1000000: 99.9 %"}, {-1e6, "below -1000000: 0.05 %"}});
    EXPECT_THAT(All<QCPCurve>(Plot), IsEmpty());
    for (const auto& point : *All<QCPGraph>(Plot)[0]->data()) {
        EXPECT_GE(point.key, view.lower);
        EXPECT_LE(point.key, view.upper);
    }
    EXPECT_NEAR(All<QCPGraph>(Plot)[0]->data()->at(0)->value, 1 / 2000.0, 1e-12);
    ExpectWholeAndApart(Plot);
}

TEST_F(SpreadPlot, NotesStandBelow) {
    Picture.notes = {"601 samples, seed 1", "Height (ft): uniform:5:7"};
    ComposeStudyPlot(Plot, Picture);
    const auto* notes = qobject_cast<QCPTextElement*>(Plot.plotLayout()->element(2, 0));
    ASSERT_NE(notes, nullptr);
    EXPECT_EQ(notes->text(), "601 samples, seed 1;  Height (ft): uniform:5:7");
}

TEST_F(SpreadPlot, IsWrittenWithItsTitle) {
    WriteStudyPicture(Picture, PathTo("spread.svg"));
    const std::string svg = ReadBytes(PathTo("spread.svg"));
    EXPECT_NE(svg.find("<title>Spread of the factors</title>"), std::string::npos);
    EXPECT_NE(svg.find(">Share below<"), std::string::npos);
}

}  // namespace
}  // namespace tarvokol
