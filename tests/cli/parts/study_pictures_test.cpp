// SPDX-License-Identifier: GPL-3.0-or-later
// What the studies give to be drawn. The webs of the worked panel have the factor 471.99928 / depth by hand; in
// webs of 20 and 30 ft it is 9.17329493... and 13.5599028 under 100 ft.
#include <cmath>

#include <gmock/gmock.h>

#include "tests/cli/parts/recording_drawing.h"

namespace tarvokol::cli {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;

class StudyPictures : public DrawnTest {
  protected:
    Words Sweep(const std::vector<std::string>& varied, const std::string& figure = "") const {
        Words words = Into("picture.svg", {"sweep"}, {"--threads", "2"});
        for (const std::string& field : varied) words.insert(words.end(), {"--vary", field});
        if (!figure.empty()) words.insert(words.end(), {"--of", figure});
        return words;
    }
    CurvesPicture CurvesOf(const Words& words) {
        EXPECT_EQ(Run(words), 0);
        EXPECT_EQ(TheRecording().Curves.size(), 1u);
        CurvesPicture picture = TheRecording().Curves.at(0);
        TheRecording().Curves.clear();
        return picture;
    }
    MapPicture MapOf(const Words& words) {
        EXPECT_EQ(Run(words), 0);
        EXPECT_EQ(TheRecording().Maps.size(), 1u);
        MapPicture picture = TheRecording().Maps.at(0);
        TheRecording().Maps.clear();
        return picture;
    }
    SpreadPicture SpreadOf(const std::string& random, const std::string& samples) {
        EXPECT_EQ(Run(Into("risk.svg", {"risk"}, {"--random", random, "--samples", samples})), 0);
        EXPECT_EQ(TheRecording().Spreads.size(), 1u);
        return TheRecording().Spreads.at(0);
    }
    std::string Refusal(const Words& words) {
        const std::string text = RefusalOf(words);
        EXPECT_THAT(TheRecording().Kinds, IsEmpty());
        return text;
    }
};

template <typename Picture>
void ExpectTitles(const Picture& picture, const std::string& title, const std::string& x,
                  const std::string& y) {
    EXPECT_EQ(picture.title, title);
    EXPECT_EQ(picture.x.title, x);
    EXPECT_EQ(picture.y.title, y);
}

TEST_F(StudyPictures, OneFieldGivesTheCurvesOfTheThreeFactorsWithTheirTargets) {
    const CurvesPicture picture = CurvesOf(Sweep({"DepthCover=100,200"}));
    EXPECT_THAT(TheRecording().Kinds, ElementsAre(".svg"));
    ExpectTitles(picture, "Ridge Panel 4", "Depth of cover (ft)", "Stability factor");
    EXPECT_THAT(picture.places, ElementsAre(100, 200));
    ASSERT_EQ(picture.curves.size(), 3u);
    EXPECT_EQ(picture.curves[0].name, "Overall");
    EXPECT_EQ(picture.curves[1].name, "Webs ONLY");
    EXPECT_EQ(picture.curves[2].name, "Barrier Pillar");
    EXPECT_EQ(picture.curves[0].y.size(), 2u);
    EXPECT_NEAR(picture.curves[0].y[0], 5.934529745454546, 1e-13);
    EXPECT_THAT(picture.curves[1].y, ElementsAre(DoubleNear(4.7199928, 1e-13), DoubleNear(2.3599964, 1e-13)));
    EXPECT_NEAR(picture.curves[2].y[0], 4.713406400915023, 1e-13);
    ASSERT_EQ(picture.targets.size(), 3u);
    EXPECT_EQ(picture.targets[0].name, "Target 1");
    EXPECT_EQ(picture.targets[0].line.front().y, 1);
    EXPECT_EQ(picture.targets[1].name, "Target SFWeb 1.6");
    EXPECT_EQ(picture.targets[1].line.front().y, double{1.6f});
    EXPECT_EQ(picture.targets[2].name, "Target SFBarrier 2");
    EXPECT_EQ(picture.targets[2].line.front().y, 2);
}

TEST_F(StudyPictures, AFigureThatIsAskedForIsTheOnlyCurve) {
    struct Case {
        const char* of;
        const char* legend;
        const char* title;
        double value;
        const char* target;  // none where it is null
    };
    const double ratio = 100.0 * 50 / 110;  // 5 holes of 10 beside 4 webs of 10 and a barrier of 20
    for (const Case& one :
         {Case{"overall", "Overall", "Stability factor \"Overall\"", 5.934529745454546, "Target 1"},
          {"WEBSONLY", "Webs ONLY", "Stability factor \"Webs ONLY\"", 4.7199928, "Target SFWeb 1.6"},
          {"BarrierPillar", "Barrier Pillar", "Stability factor \"Barrier Pillar\"", 4.713406400915023,
           "Target SFBarrier 2"},
          {"ExtractionRatio", "Extraction ratio", "Extraction ratio (percent)", ratio, nullptr},
          {"SuggestedWeb", "Suggested web", "Suggested web (in)", 38.9991340637207, nullptr},
          {"SuggestedBarrier", "Suggested barrier", "Suggested barrier (in)", 122.40354919433594, nullptr}}) {
        SCOPED_TRACE(one.of);
        Words words = Sweep({"DepthCover=100"}, one.of);
        words.emplace_back("--size");
        const CurvesPicture picture = CurvesOf(words);
        EXPECT_EQ(picture.y.title, one.title);
        ASSERT_EQ(picture.curves.size(), 1u);
        EXPECT_EQ(picture.curves[0].name, one.legend);
        EXPECT_THAT(picture.curves[0].y, ElementsAre(DoubleNear(one.value, 1e-5)));
        ASSERT_EQ(picture.targets.size(), one.target != nullptr ? 1u : 0u);
        if (one.target != nullptr) {
            EXPECT_EQ(picture.targets[0].name, one.target);
        }
    }
}

TEST_F(StudyPictures, SizesHaveToBeAskedForWithTheirFigure) {
    EXPECT_EQ(Refusal(Sweep({"DepthCover=100"}, "SuggestedWeb")),
              "tarvokol-cli sweep: --of SuggestedWeb: needs --size");
    EXPECT_EQ(Refusal(Sweep({"DepthCover=100"}, "suggestedbarrier")),
              "tarvokol-cli sweep: --of suggestedbarrier: needs --size");
    EXPECT_EQ(Refusal(Sweep({"DepthCover=100"}, "Web")),
              "tarvokol-cli sweep: --of: unknown figure \"Web\"; the figures are Overall, WebsOnly, "
              "BarrierPillar, ExtractionRatio, "
              "SuggestedWeb, SuggestedBarrier");
}

TEST_F(StudyPictures, TwoFieldsGiveAMapWithTheFirstFromLeftToRight) {
    const MapPicture picture = MapOf(Sweep({"WebThickness=10,20,30", "DepthCover=100,200"}, "WebsOnly"));
    ExpectTitles(picture, "Ridge Panel 4", "Web thickness (ft)", "Depth of cover (ft)");
    EXPECT_EQ(picture.figure, "Stability factor \"Webs ONLY\"");
    EXPECT_EQ(picture.target_name, "Target SFWeb 1.6");
    // 240 steps of each axis, or just above.
    ASSERT_EQ(picture.grid.x.size(), 241u);
    ASSERT_EQ(picture.grid.y.size(), 241u);
    const std::vector<double> under_100{4.7199928, 9.17329493333333, 13.5599028};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(picture.grid.x[120 * i], 10.0 + 10.0 * static_cast<double>(i));
        EXPECT_NEAR(picture.grid.At(120 * i, 0), under_100[i], 1e-13);
        EXPECT_NEAR(picture.grid.At(120 * i, 240), under_100[i] / 2, 1e-13);
    }
}

TEST_F(StudyPictures, AMapShowsTheWholePanelUnlessAFigureIsAskedFor) {
    const MapPicture whole = MapOf(Sweep({"WebThickness=10,20", "DepthCover=100,200"}));
    EXPECT_EQ(whole.figure, "Stability factor \"Overall\"");
    EXPECT_EQ(whole.target_name, "Target 1");
    EXPECT_NEAR(whole.grid.At(0, 0), 5.934529745454546, 1e-13);
    const MapPicture ratio = MapOf(Sweep({"WebThickness=10,20", "DepthCover=100,200"}, "ExtractionRatio"));
    EXPECT_EQ(ratio.figure, "Extraction ratio (percent)");
    EXPECT_EQ(ratio.target_name, "");
}

TEST_F(StudyPictures, APictureOfRefusedPanelsAloneIsRefused) {
    EXPECT_EQ(RefusalOf(Sweep({"DepthCover=-2,-1"}), 1),
              "nothing to draw: no panel has a value (Invalid depth of cover)");
    EXPECT_EQ(RefusalOf(Sweep({"DepthCover=-2,-1", "Height=5,6"}), 1),
              "nothing to draw: no panel has a value (Invalid depth of cover)");
    EXPECT_THAT(TheRecording().Kinds, IsEmpty());
}

TEST_F(StudyPictures, AMapHasTwoFieldsWithTwoValuesOrMoreAndNotTooMany) {
    const std::string two = "tarvokol-cli sweep: -o: a map needs two different values or more of each field";
    EXPECT_EQ(Refusal(Sweep({"WebThickness=10", "DepthCover=100,200"})), two);
    EXPECT_EQ(Refusal(Sweep({"WebThickness=10,20", "DepthCover=100"})), two);
    EXPECT_EQ(Refusal(Sweep({"WebThickness=10,10", "DepthCover=100,200"})), two);
    EXPECT_EQ(Refusal(Sweep({"WebThickness=10:20/2001", "DepthCover=100:200/2000"})),
              "tarvokol-cli sweep: -o: a map of more than 4000000 panels; give larger steps");
    EXPECT_EQ(Refusal(Sweep({"WebThickness=10,20", "DepthCover=100,200", "Height=8,9"})),
              "tarvokol-cli sweep: -o: a picture shows one field (curves) or two (a map), not 3; write .csv, "
              ".json or .xlsx, or vary "
              "fewer fields");
}

TEST_F(StudyPictures, AMetricProjectWithoutATitleGivesItsPathAndItsUnits) {
    const std::string path = WriteProject(
        "m.TKL", "3\r\n30\r\n3\r\n3\r\n6\r\n 5 \r\n90\r\n1000000\r\n6.2\r\n25.4\r\n21\r\n1.6\r\n2\r\n0", 1,
        "");
    const auto sweep = [&](const std::vector<std::string>& varied) {
        Words words = Sweep(varied);
        words.at(1) = path;
        return words;
    };
    ExpectTitles(CurvesOf(sweep({"CoalStrength=5,6"})), path, "In situ coal strength (MPa)",
                 "Stability factor");
    ExpectTitles(MapOf(sweep({"NumberHoles=5,6", "UnitWeight=25,26"})), path, "Number of holes",
                 "Overburden unit weight (kN/m3)");
}

// Status 1 tells of the panels that are refused, be it a map or curves; the picture is drawn all the same.
TEST_F(StudyPictures, RefusedPanelsAreToldByTheStatus) {
    EXPECT_EQ(Run(Sweep({"DepthCover=-2,100"})), exit_status::Refused);
    EXPECT_EQ(Run(Sweep({"DepthCover=-2,100", "Height=5,6"})), exit_status::Refused);
    EXPECT_EQ(TheRecording().Curves.size(), 1u);
    ASSERT_EQ(TheRecording().Maps.size(), 1u);
    EXPECT_EQ(TheRecording().Maps[0].refused, 2u);
}

// Their last line, once its begin is found to be right.
std::string JointWords(const SpreadPicture& picture) {
    EXPECT_THAT(picture.words.back(),
                testing::StartsWith("Probability of webs or barrier (or both) below their targets: "));
    return picture.words.back();
}

TEST_F(StudyPictures, ARiskGivesTheSpreadOfTheFactorsWithTheirTargets) {
    const SpreadPicture picture = SpreadOf("DepthCover=uniform:200:400", "50");
    EXPECT_EQ(picture.title, "Ridge Panel 4");
    EXPECT_THAT(TheRecording().Kinds, ElementsAre(".svg"));
    EXPECT_THAT(picture.words, ElementsAre("Depth of cover uniform from 200 to 400 ft",
                                           "50 samples (Latin hypercube), seed 1, 0 refused; probabilities "
                                           "with their 95 % interval",
                                           JointWords(picture)));
    ASSERT_EQ(picture.panels.size(), 3u);
    const char* const names[] = {"Stability factor \"Overall\"", "Stability factor \"Webs ONLY\"",
                                 "Stability factor \"Barrier Pillar\""};
    const std::vector<std::vector<double>> targets{{1}, {double{1.6f}, 1}, {2, 1}};
    for (std::size_t i = 0; i < 3; ++i) {
        const SpreadPanel& panel = picture.panels[i];
        EXPECT_EQ(panel.x.title, names[i]);
        ASSERT_EQ(panel.targets.size(), targets[i].size());
        for (std::size_t j = 0; j < targets[i].size(); ++j) EXPECT_EQ(panel.targets[j].value, targets[i][j]);
    }
    // One sample in each fiftieth of 200 to 400 ft: none below 471.99928 / 400, all below 471.99928 / 200.
    for (const GridPoint& point : picture.panels[1].below) {
        if (point.x < 471.99928 / 400) {
            EXPECT_EQ(point.y, 0);
        }
        if (point.x > 471.99928 / 200) {
            EXPECT_NEAR(point.y, 1, 1e-12);
        }
    }
}

// Heights of -1 to 3: a quarter is not above 0.
TEST_F(StudyPictures, RefusedSamplesOfARiskAreNotDrawn) {
    const SpreadPicture picture = SpreadOf("Height=uniform:-1:3", "40");
    int refused = 0;
    ASSERT_EQ(std::sscanf(picture.words.at(1).c_str(), "40 samples (Latin hypercube), seed 1, %d refused",
                          &refused),
              1);
    EXPECT_NEAR(refused, 10, 4);
    const double sound = 40 - refused;
    for (const SpreadPanel& panel : picture.panels)
        for (const double share : panel.bars) EXPECT_NEAR(share * sound, std::round(share * sound), 1e-9);
}

// The bars are a density: together they are 1 between the least and the greatest value.
TEST_F(StudyPictures, AFitGivesItsValuesAndTheDensitiesOfFiveDistributions) {
    WriteBytes(PathTo("m.csv"), "Strength (psi)\n900\n800\n1000\n850\n950\n700\n1100\n900\n");
    EXPECT_EQ(Run({"fit", PathTo("m.csv"), "--column", "Strength", "-o", PathTo("fit.svg")}), 0);
    EXPECT_THAT(TheRecording().Kinds, ElementsAre(".svg"));
    ASSERT_EQ(TheRecording().Fits.size(), 1u);
    const FitPicture& picture = TheRecording().Fits[0];
    EXPECT_EQ(picture.first_bar, 700);
    EXPECT_EQ(picture.last_bar, 1100);
    double sum = 0;
    for (const double bar : picture.bars) sum += bar;
    EXPECT_NEAR(sum * 400 / static_cast<double>(picture.bars.size()), 1, 1e-12);
    EXPECT_EQ(picture.curves.size(), 5u);
    ASSERT_EQ(picture.pairs.size(), 8u);
    EXPECT_EQ(picture.pairs.front().y, 700);
    EXPECT_EQ(picture.pairs.back().y, 1100);
}

}  // namespace
}  // namespace tarvokol::cli
