// SPDX-License-Identifier: GPL-3.0-or-later
// What the map asks for: the command line's own words, and its pictures.
#include "studies/model/map_study.h"

#include <gmock/gmock.h>

#include "tests/support/worked_panel.h"

namespace tarvokol {
namespace {

MapRequest WebsOverDepthAndWeb() {
    return {{PanelField::DepthCover, {50, 450}},
            StudyAxis{PanelField::WebThickness, {5, 15}},
            FigureNamed("WebsOnly")};
}

TEST(MapStudy, IsTheSweepOfItsCommand) {
    EXPECT_EQ(CommandOfMap(WebsOverDepthAndWeb(), "/data/panel.TKL"),
              "tarvokol-cli sweep /data/panel.TKL --vary DepthCover=50:450/241 --vary WebThickness=5:15/241 "
              "--of WebsOnly "
              "-o map.svg");
    MapRequest curves{{PanelField::NumberHoles, {2, 8}}, std::nullopt, FigureNamed("Overall")};
    EXPECT_EQ(CommandOfMap(curves, "/my data/it's.TKL"),
              "tarvokol-cli sweep '/my data/it'\\''s.TKL' --vary NumberHoles=2:8:1 -o curves.svg");
    curves.figure = FigureNamed("SuggestedWeb");
    EXPECT_EQ(CommandOfMap(curves, "a.TKL"),
              "tarvokol-cli sweep a.TKL --vary NumberHoles=2:8:1 --size --of SuggestedWeb -o curves.svg");
    EXPECT_EQ(QuotedForShell("-x.TKL"), "./'-x.TKL'");
    EXPECT_EQ(QuotedForShell(""), "''");
}

TEST(MapStudy, DrawsTheMapWithItsTarget) {
    StudyObserver nobody;
    const MapOutcome outcome = CalculateMapStudy(WebsOverDepthAndWeb(), WorkedPanel(), "Worked", 2, nobody);
    ASSERT_TRUE(std::holds_alternative<MapPicture>(outcome));
    const auto& map = std::get<MapPicture>(outcome);
    EXPECT_EQ(map.title, "Worked");
    EXPECT_EQ(map.grid.x.size(), 241U);
    EXPECT_EQ(map.grid.y.size(), 241U);
    EXPECT_EQ(map.target_name, "Target SFWeb 1.6");
    ASSERT_TRUE(map.project);
    EXPECT_EQ(map.project->text, "4.71999");
    // The web of 10 ft meets 1.6 at 471.99928 / 1.6 = 294.99955 ft.
    double nearest = 1e9;
    for (const GridLine& line : map.target.lines)
        for (const GridPoint& point : line)
            if (std::abs(point.y - 10) < 1e-3) nearest = std::min(nearest, std::abs(point.x - 294.99955));
    EXPECT_LT(nearest, 0.1);
}

TEST(MapStudy, OneFieldGivesTheCurvesOfAllFactors) {
    StudyObserver nobody;
    const MapRequest request{{PanelField::DepthCover, {50, 450}}, std::nullopt, FigureNamed("WebsOnly")};
    const MapOutcome outcome = CalculateMapStudy(request, WorkedPanel(), "Worked", 1, nobody);
    ASSERT_TRUE(std::holds_alternative<CurvesPicture>(outcome));
    EXPECT_EQ(std::get<CurvesPicture>(outcome).curves.size(), 3U);
}

TEST(MapStudy, SaysWhyThereIsNoPicture) {
    StudyObserver nobody;
    Panel panel = WorkedPanel();
    panel.Height = 0;
    const MapOutcome refused = CalculateMapStudy(WebsOverDepthAndWeb(), panel, "", 1, nobody);
    EXPECT_EQ(std::get<std::string>(refused), "nothing to draw: no panel has a value (Invalid entry height)");
    MapRequest same = WebsOverDepthAndWeb();
    same.y->field = PanelField::DepthCover;
    EXPECT_THAT(std::get<std::string>(CalculateMapStudy(same, WorkedPanel(), "", 1, nobody)),
                ::testing::HasSubstr("DepthCover"));
}

class Impatient : public StudyObserver {
  public:
    bool Progress(std::uint64_t, std::optional<std::uint64_t>) override { return false; }
};

TEST(MapStudy, IsNothingOnceItWasEnded) {
    Impatient impatient;
    EXPECT_TRUE(std::holds_alternative<std::monostate>(
        CalculateMapStudy(WebsOverDepthAndWeb(), WorkedPanel(), "", 1, impatient)));
}

}  // namespace
}  // namespace tarvokol
