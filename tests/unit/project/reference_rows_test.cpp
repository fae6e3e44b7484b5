// SPDX-License-Identifier: GPL-3.0-or-later
// The engine beside the reference rows of tests/reference, to the last bit.
#include "tests/support/reference_rows.h"

#include "core/settings/options_record.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

void ExpectSameBits(const ReferenceRow& panel, const std::vector<std::string>& names,
                    const std::vector<double>& figures) {
    ASSERT_EQ(figures.size(), names.size()) << "panel " << panel.at("Panel");
    for (std::size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(BitsOf(figures[i]), BitsOf(panel.at(names[i])))
            << "panel " << panel.at("Panel") << ", " << names[i] << ": " << figures[i] << " for "
            << panel.at(names[i]);
}

class ReferenceRows : public CoreTest {
  protected:
    void TearDown() override { OptionsRecord = Before; }

    const EngineOptions Before = OptionsRecord;
};

TEST_F(ReferenceRows, AnalysisGivesEveryBit) {
    const std::vector<ReferenceRow> panels = ReferenceRowsOf("panels.csv");
    ASSERT_GE(panels.size(), 500u);
    for (const ReferenceRow& panel : panels) {
        EnterPanel(InputsOf(panel));
        ExpectSameBits(panel, AnalysisFigureNames(), AnalysisFigures());
    }
}

TEST_F(ReferenceRows, SizingGivesEveryBit) {
    for (const ReferenceRow& panel : ReferenceRowsOf("panels.csv")) {
        EnterPanel(InputsOf(panel));
        ExpectSameBits(panel, {"SuggestedWeb", "SuggestedBarrier"}, SizingFigures());
    }
}

TEST_F(ReferenceRows, CurvesGiveEveryBit) {
    std::map<std::string, PanelRow> panels;
    for (const ReferenceRow& panel : ReferenceRowsOf("panels.csv"))
        panels[panel.at("Panel")] = InputsOf(panel);
    const std::vector<ReferenceRow> points = ReferenceRowsOf("curves.csv");
    ASSERT_GE(points.size(), 1000u);
    for (const ReferenceRow& point : points) {
        EnterPanel(panels.at(point.at("Panel")));
        const std::vector<double> figures = CurveFigures(point.at("Curve"));
        const std::size_t columns = point.at("Curve").starts_with("sf-") ? 4 : 2;
        ASSERT_EQ(figures.size(), columns * std::stoul(point.at("Points")));
        const std::size_t first = columns * (std::stoul(point.at("Point")) - 1);
        const char* const names[] = {"X", "Y1", "Y2", "Y3"};
        for (std::size_t column = 0; column < columns; ++column)
            EXPECT_EQ(BitsOf(figures[first + column]), BitsOf(point.at(names[column])))
                << "panel " << point.at("Panel") << ", " << point.at("Curve") << " " << point.at("Point")
                << ", " << names[column];
    }
}

}  // namespace
}  // namespace tarvokol
