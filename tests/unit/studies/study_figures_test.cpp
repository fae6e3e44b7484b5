// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/study_figures.h"

#include <cmath>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "core/statistics/study_refusal.h"
#include "core/studies/study_names.h"
#include "tests/support/worked_panel.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> NamesOf(std::span<const StudyFigure> figures) {
    std::vector<std::string> names;
    for (const StudyFigure& figure : figures) names.emplace_back(figure.name);
    return names;
}

TEST(StudyFigures, SizesComeAfterWhatIsAlwaysThere) {
    EXPECT_THAT(NamesOf(StudyFigures(false)),
                ElementsAre("Overall", "WebsOnly", "BarrierPillar", "ExtractionRatio"));
    EXPECT_THAT(NamesOf(StudyFigures(true)),
                ElementsAre("Overall", "WebsOnly", "BarrierPillar", "ExtractionRatio", "SuggestedWeb",
                            "SuggestedBarrier"));
    EXPECT_THAT(NamesOf(FactorFigures()), ElementsAre("Overall", "WebsOnly", "BarrierPillar"));
}

TEST(StudyFigures, HaveTheirUnits) {
    std::vector<std::string> units;
    for (const StudyFigure& figure : kStudyFigures) units.emplace_back(figure.unit);
    EXPECT_THAT(units, ElementsAre("", "", "", "percent", "in", "in"));
}

TEST(StudyFigures, AreFoundByTheirNamesInAnyLetterCase) {
    EXPECT_STREQ(FigureNamed("websonly")->title, "Stability factor \"Webs ONLY\"");
    EXPECT_EQ(FigureNamed("Webs"), nullptr);
    try {
        RequiredFigure("Foo");
        ADD_FAILURE() << "not refused";
    } catch (const StudyRefusal& refusal) {
        EXPECT_STREQ(refusal.what(),
                     "unknown figure \"Foo\"; the figures are Overall, WebsOnly, BarrierPillar, "
                     "ExtractionRatio, SuggestedWeb, SuggestedBarrier");
    }
}

// Webs and barrier are held against the project's targets, the whole panel against 1, a width against nothing.
TEST(StudyFigures, FactorsHaveTargets) {
    const Panel panel = WorkedPanel();
    EXPECT_EQ(TargetOfFigure(*FigureNamed("Overall"), panel), 1);
    EXPECT_EQ(TargetOfFigure(*FigureNamed("WebsOnly"), panel), double{1.6f});
    EXPECT_EQ(TargetOfFigure(*FigureNamed("BarrierPillar"), panel), 2);
    EXPECT_TRUE(std::isnan(TargetOfFigure(*FigureNamed("ExtractionRatio"), panel)));
    EXPECT_TRUE(std::isnan(TargetOfFigure(*FigureNamed("SuggestedWeb"), panel)));
}

}  // namespace
}  // namespace tarvokol
