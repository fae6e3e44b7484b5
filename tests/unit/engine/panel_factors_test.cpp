// SPDX-License-Identifier: GPL-3.0-or-later
// The factors alone and those of the whole analysis: the same bits, refusals and errors.
#include <bit>

#include <gtest/gtest.h>

#include "core/engine/engine.h"
#include "tests/support/raised_error.h"
#include "tests/support/random_panels.h"
#include "tests/support/worked_panel.h"

namespace tarvokol {
namespace {

struct Answer {
    int error = 0;
    int refused_test = -1;
    std::uint64_t bits[3] = {0, 0, 0};

    bool operator==(const Answer&) const = default;
};

template <typename Calculate>
Answer AnswerOf(Calculate calculate) {
    Answer answer;
    answer.error = RaisedError([&] { calculate(answer); });
    return answer;
}

void Store(Answer& answer, double overall, double webs, double barrier) {
    answer.bits[0] = std::bit_cast<std::uint64_t>(overall);
    answer.bits[1] = std::bit_cast<std::uint64_t>(webs);
    answer.bits[2] = std::bit_cast<std::uint64_t>(barrier);
}

template <typename... Parts>
Answer OfTheFactorsAlone(const Panel& panel, const Parts&... parts) {
    return AnswerOf([&](Answer& answer) {
        const auto outcome = FactorsOf(panel, parts...);
        if (const auto* refusal = std::get_if<Refusal>(&outcome)) {
            answer.refused_test = static_cast<int>(refusal->test);
            return;
        }
        const auto& factors = std::get<PanelFactors>(outcome);
        Store(answer, factors.overall, factors.webs_only, factors.barrier);
    });
}

Answer OfTheAnalysis(const Panel& panel) {
    return AnswerOf([&](Answer& answer) {
        const CheckOutcome outcome = Check(panel);
        if (const auto* refusal = std::get_if<Refusal>(&outcome)) {
            answer.refused_test = static_cast<int>(refusal->test);
            return;
        }
        const auto found = Analyse(std::get<CheckedPanel>(outcome)).StabilityFactor;
        Store(answer, found[1], found[2], found[3]);
    });
}

TEST(PanelFactorsTest, AreThoseOfTheAnalysisToTheBit) {
    int sound = 0, refused = 0, failed = 0;
    for (std::uint64_t number = 0; number < 200000; ++number) {
        const Panel panel = RandomPanel(number);
        const Answer answer = OfTheAnalysis(panel);
        ASSERT_EQ(OfTheFactorsAlone(panel), answer) << "panel " << number;
        ++(answer.error != 0 ? failed : answer.refused_test >= 0 ? refused : sound);
    }
    EXPECT_GT(sound, 150000);
    EXPECT_GT(refused, 3000);
    EXPECT_GT(failed, 500);
}

// One object of parts goes from panel to panel, each of them at another depth when its parts are renewed.
TEST(PanelFactorsTest, AreTheSameFromPartsOfAnotherDepth) {
    FactorParts parts;
    for (std::uint64_t number = 0; number < 50000; ++number) {
        const Panel panel = RandomPanel(number);
        Panel deeper = panel;
        deeper.DepthCover = panel.DepthCover * 3 + 40;
        RenewParts(deeper, parts);
        ASSERT_EQ(OfTheFactorsAlone(panel, parts), OfTheAnalysis(panel)) << "panel " << number;
    }
}

TEST(PanelFactorsTest, OfTheShallowPanel) {
    const auto factors = std::get<PanelFactors>(FactorsOf(WorkedPanel()));
    EXPECT_EQ(factors.overall, 5.934529745454546);
    EXPECT_EQ(factors.webs_only, 4.719992800000001);
    EXPECT_NEAR(factors.barrier, 4.713406400915023, 1e-15);
}

}  // namespace
}  // namespace tarvokol
