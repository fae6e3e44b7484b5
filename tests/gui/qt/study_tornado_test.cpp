// SPDX-License-Identifier: GPL-3.0-or-later
// What each uncertain field moves as it is drawn: bars in two tones, the fields beside them, keys.
#include "tests/gui/qt/study_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

class TornadoPlot : public StudyPlotTest {
  protected:
    TornadoPlot() {
        Picture.title = "What moves the factors";
        Picture.words = {"In situ coal strength uniform from 600 to 1200 psi"};
        for (const char* name : {"Overall", "Webs ONLY"}) {
            TornadoPanel panel;
            panel.x = {name, 0, 8, false};
            panel.middle = 4;
            panel.rows = {{"In situ coal strength", "630 psi", "1170 psi", {2, 7}},
                          {"Depth of cover", "82 ft", "118 ft", {5, 3.5}}};
            panel.targets = {{"target 1.6", 1.6}};
            Picture.panels.push_back(panel);
        }
    }

    TornadoPicture Picture;
};

TEST_F(TornadoPlot, HasABoxForEachFactorWithItsFieldsBesideTheBars) {
    const auto plot = PlotOf(Picture);
    ExpectHeader(*plot, "What moves the factors");
    ASSERT_EQ(plot->axisRectCount(), 2);
    for (int i = 0; i < 2; ++i) {
        const QCPAxisRect& box = *plot->axisRect(i);
        ExpectLooks(*box.axis(QCPAxis::atBottom), i == 0 ? "Overall" : "Webs ONLY");
        ExpectFullBox(box);
        EXPECT_EQ(box.axis(QCPAxis::atBottom)->range(), QCPRange(0, 8));
    }
    EXPECT_EQ(plot->axisRect(0)->rect().left(), plot->axisRect(1)->rect().left());
    EXPECT_THAT(KeyTexts(*plot),
                ElementsAre("at 5 % of the field", "at 95 % of the field", "all fields at their medians"));
}

TEST_F(TornadoPlot, AllTextsAreWholeAndApart) {
    const SvgPicture svg = SvgOf(Picture);
    ExpectWholeAndApart(svg);
    for (const char* text : {"In situ coal strength", "630 psi to 1170 psi", "Depth of cover",
                             "82 ft to 118 ft", "target 1.6"}) {
        const bool shown = std::any_of(svg.texts.begin(), svg.texts.end(),
                                       [&](const auto& one) { return one.text.trimmed() == text; });
        EXPECT_TRUE(shown) << text;
    }
}

// Between the middle and its end each half has its tone: light from 4 to 2, dark from 4 to 7.
TEST_F(TornadoPlot, EachHalfOfABarHasItsTone) {
    const auto plot = PlotOf(Picture);
    const QSize size = StudyPictureSize(Picture);
    const QImage image = plot->toPixmap(size.width(), size.height(), 1).toImage();
    const QCPAxisRect& box = *plot->axisRect(0);
    const auto tone_at = [&](double x, double y) {
        return image.pixelColor(static_cast<int>(box.axis(QCPAxis::atBottom)->coordToPixel(x)),
                                static_cast<int>(box.axis(QCPAxis::atLeft)->coordToPixel(y)));
    };
    EXPECT_EQ(tone_at(3, 1.5), kBelowGrey);
    EXPECT_EQ(tone_at(6, 1.5), kWithoutGrey);
    EXPECT_EQ(tone_at(4.5, 0.5), kBelowGrey);  // less cover, a higher factor
    EXPECT_EQ(tone_at(3.7, 0.5), kWithoutGrey);
    EXPECT_EQ(tone_at(7.5, 1.5), QColor(Qt::white));
}

}  // namespace
}  // namespace tarvokol
