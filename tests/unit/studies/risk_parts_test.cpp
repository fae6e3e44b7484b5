// SPDX-License-Identifier: GPL-3.0-or-later
// A study in parts is to the bit the whole one, however many parts there are; nothing is missing and nothing counted twice.
#include "core/studies/risk_parts.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "core/statistics/study_refusal.h"
#include "core/studies/study_names.h"
#include "tests/support/study_requests.h"

namespace tarvokol {
namespace {

using Parts = std::vector<RiskPart>;

RiskPart PartOf(const RiskRequest& request, const SampleRange& range) {
    StudyObserver nobody;
    return *RunRiskPart(request, range, nobody);
}

Parts PartsOf(const RiskRequest& request, std::uint64_t count) {
    Parts parts;
    for (std::uint64_t part = 1; part <= count; ++part) {
        parts.push_back(PartOf(request, SampleRange::Part(request.samples, part, count)));
        parts.back().name = "part" + std::to_string(part);
    }
    return parts;
}

RiskResult Merged(const Parts& parts) {
    StudyObserver nobody;
    return *MergeRisk(parts, 2, nobody);
}

void ExpectBits(const void* a, const void* b, std::size_t bytes, const char* what) {
    EXPECT_TRUE(bytes == 0 || std::memcmp(a, b, bytes) == 0) << what;
}

template <typename List>
void ExpectList(const List& a, const List& b, const char* what) {
    ASSERT_EQ(a.size(), b.size()) << what;
    ExpectBits(a.data(), b.data(), a.size() * sizeof(double), what);
}

void ExpectShare(const Share& a, const Share& b) {
    ExpectBits(&a.value, &b.value, sizeof a.value, "share");
    ExpectBits(&a.low, &b.low, sizeof a.low, "low");
    ExpectBits(&a.high, &b.high, sizeof a.high, "high");
    EXPECT_EQ(a.kind, b.kind);
}

void ExpectFactor(const FactorRisk& a, const FactorRisk& b) {
    ExpectBits(&a.moments, &b.moments, sizeof a.moments, "moments");
    ExpectList(a.quantiles, b.quantiles, "quantiles");
    ExpectList(a.rank_correlation, b.rank_correlation, "rank correlation");
    ASSERT_EQ(a.below.size(), b.below.size());
    for (std::size_t i = 0; i < a.below.size(); ++i) {
        EXPECT_EQ(a.below[i].target, b.below[i].target);
        EXPECT_EQ(a.below[i].own_target, b.below[i].own_target);
        ExpectShare(a.below[i].share, b.below[i].share);
        ExpectShare(a.below[i].with_refused, b.below[i].with_refused);
    }
}

void ExpectSame(const RiskResult& a, const RiskResult& b) {
    EXPECT_EQ(a.refused, b.refused);
    EXPECT_EQ(a.refusals, b.refusals);
    ExpectShare(a.joint.share, b.joint.share);
    ExpectShare(a.joint.with_refused, b.joint.with_refused);
    ASSERT_EQ(a.drawn.size(), b.drawn.size());
    for (std::size_t i = 0; i < a.drawn.size(); ++i) ExpectList(a.drawn[i], b.drawn[i], "drawn");
    for (std::size_t i = 0; i < kFactors; ++i) {
        // Those of samples that are not kept were used up.
        if (!a.drawn.empty()) ExpectList(a.factors[i], b.factors[i], "factors");
        ExpectFactor(a.risk[i], b.risk[i]);
    }
}

// In the reverse order, too.
void ExpectPartsAreTheWhole(const RiskRequest& request) {
    const RiskResult whole = RunRisk(request);
    for (const std::uint64_t count : {1, 3, 7}) {
        SCOPED_TRACE(count);
        Parts parts = PartsOf(request, count);
        ExpectSame(Merged(parts), whole);
        std::reverse(parts.begin(), parts.end());
        ExpectSame(Merged(parts), whole);
    }
}

// Refused samples, figures of each kind, targets of each sample's own and asked for.
RiskRequest ManySided() {
    RiskRequest request =
        WorkedRisk({"Height=uniform:-1:10", "DepthCover=normal:300:40", "CoalStrength=lognormal:100%:15%",
                    "NumberHoles=uniform:5:15", "SFWeb=uniform:1.2:2"},
                   20011);
    request.AddTarget(RequiredFigure("Overall"), 1.3);
    request.keep_samples = true;
    request.threads = 2;
    return request;
}

TEST(RiskParts, TogetherAreTheWholeOfHypercubes) {
    ASSERT_GT(RunRisk(ManySided()).refused, 1000u);
    ExpectPartsAreTheWhole(ManySided());
}

TEST(RiskParts, TogetherAreTheWholeOfIndependentDraws) {
    RiskRequest request = ManySided();
    request.latin = false;
    ExpectPartsAreTheWhole(request);
}

TEST(RiskParts, TogetherAreTheWholeOfCorrelatedFields) {
    RiskRequest request = ManySided();
    Correlate(request, "DepthCover,CoalStrength=0.6");
    ExpectPartsAreTheWhole(request);
    request.latin = false;
    ExpectPartsAreTheWhole(request);
}

TEST(RiskParts, TogetherAreTheWholeWhereNoSampleIsKept) {
    RiskRequest request = ManySided();
    request.keep_samples = false;
    ExpectPartsAreTheWhole(request);
}

// Of so many samples the fields are drawn once more to be ordered, by whoever puts the parts together.
TEST(RiskParts, TogetherAreTheWholeOfMillions) {
    RiskRequest request = WorkedRisk({"Height=uniform:-1:10"}, (1 << 22) + 1);
    request.threads = 2;
    const Parts parts = PartsOf(request, 3);
    EXPECT_TRUE(parts[0].drawn.empty());
    ExpectSame(Merged(parts), RunRisk(request));
}

// Each field has a text of its own for a figure that it cannot store; the first ten stand in the order of their samples.
TEST(RiskParts, TellTheTextsOfRefusalsThatTheWholeTells) {
    ExpectPartsAreTheWhole(
        WorkedRisk({"Height=uniform:-4e38:4e38", "SFWeb=uniform:-4e38:4e38", "SFBarrier=uniform:-4e38:4e38",
                    "NumberHoles=uniform:0:30", "DepthCover=uniform:-10:10", "HoleWidth=uniform:-10:10"},
                   300));
}

TEST(RiskParts, MayBeMoreThanTheSamples) {
    const RiskRequest request = WorkedRisk({"CoalStrength=normal:100%:15%"}, 5);
    ExpectSame(Merged(PartsOf(request, 7)), RunRisk(request));
}

TEST(RiskParts, ShareTheSamplesOut) {
    const auto bounds = [](std::uint32_t samples, std::uint64_t part, std::uint64_t parts) {
        const SampleRange range = SampleRange::Part(samples, part, parts);
        return std::pair(range.first, range.count);
    };
    EXPECT_EQ(bounds(10, 1, 3), std::pair(0u, 4u));
    EXPECT_EQ(bounds(10, 2, 3), std::pair(4u, 3u));
    EXPECT_EQ(bounds(10, 3, 3), std::pair(7u, 3u));
    EXPECT_EQ(bounds(2, 3, 3), std::pair(2u, 0u));
    EXPECT_EQ(bounds(4294967295u, 1000000, 1000000), std::pair(4294963001u, 4294u));
}

TEST(RiskParts, HaveTheSamplesThatThereAre) {
    const RiskRequest request = WorkedRisk({"Height=uniform:5:7"}, 10);
    const RiskPart part = PartOf(request, {8, 100});
    EXPECT_EQ(part.range.first, 8u);
    EXPECT_EQ(part.range.count, 2u);
    EXPECT_EQ(part.factors[0].size(), 2u);
}

std::string RefusalOf(const Parts& parts) {
    try {
        Merged(parts);
    } catch (const StudyRefusal& refusal) {
        return refusal.what();
    }
    return "";
}

TEST(RiskParts, ThatAreMissingOrDoubledAreRefused) {
    const RiskRequest request = WorkedRisk({"Height=uniform:5:7"}, 10);
    const auto of = [&](const std::vector<std::uint64_t>& numbers) {
        Parts parts;
        for (const std::uint64_t number : numbers) {
            parts.push_back(PartOf(request, SampleRange::Part(10, number, 3)));
            parts.back().name = "part" + std::to_string(number);
        }
        return RefusalOf(parts);
    };
    EXPECT_EQ(of({}), "there is no part");
    EXPECT_EQ(of({2, 3}), "samples 1 to 4 are in no part");
    EXPECT_EQ(of({3, 1}), "samples 5 to 7 are in no part");
    EXPECT_EQ(of({1, 2}), "samples 8 to 10 are in no part");
    EXPECT_EQ(of({1, 2, 2, 3}), "part2: samples 5 to 7 are in another part, too");
    Parts parts = PartsOf(request, 3);
    parts.push_back(PartOf(request, {3, 1}));
    parts.back().name = "more";
    EXPECT_EQ(RefusalOf(parts), "more: sample 4 is in another part, too");
}

TEST(RiskParts, OfDifferentStudiesAreRefused) {
    const auto with = [](auto change) {
        RiskRequest request = WorkedRisk({"Height=uniform:5:7", "DepthCover=uniform:200:400"}, 10);
        Parts parts = PartsOf(request, 2);
        change(request);
        parts[1] = PartOf(request, SampleRange::Part(request.samples, 2, 2));
        parts[1].name = "other";
        return RefusalOf(parts);
    };
    const std::string refusal = "other: is a part of another study than the first one";
    EXPECT_EQ(with([](RiskRequest& request) { request.threads = 2; }), "");
    EXPECT_EQ(with([](RiskRequest& request) { request.seed = 2; }), refusal);
    EXPECT_EQ(with([](RiskRequest& request) { request.samples = 11; }), refusal);
    EXPECT_EQ(with([](RiskRequest& request) { request.latin = false; }), refusal);
    EXPECT_EQ(with([](RiskRequest& request) { request.keep_samples = true; }), refusal);
    EXPECT_EQ(with([](RiskRequest& request) { request.panel.WebThickness += 1e-9; }), refusal);
    EXPECT_EQ(with([](RiskRequest& request) { request.panel.CrosscutSpacing += 1; }), refusal);
    EXPECT_EQ(with([](RiskRequest& request) { request.panel.units = Units::Metric; }), refusal);
    EXPECT_EQ(with([](RiskRequest& request) { request.fields.pop_back(); }), refusal);
    EXPECT_EQ(with([](RiskRequest& request) { Correlate(request, "Height,DepthCover=0.5"); }), refusal);
    EXPECT_EQ(with([](RiskRequest& request) { request.AddTarget(RequiredFigure("Overall"), 2); }), refusal);
    EXPECT_EQ(with([](RiskRequest& request) { std::swap(request.fields[0], request.fields[1]); }), refusal);
    EXPECT_EQ(with([](RiskRequest& request) {
                  request.fields.clear();
                  AddRandom(request, "Height=uniform:5:7");
                  AddRandom(request, "DepthCover=uniform:200:401");
              }),
              refusal);
}

// Ends the study at once.
class Impatient : public StudyObserver {
  public:
    bool Progress(std::uint64_t, std::optional<std::uint64_t>) override { return false; }
};

TEST(RiskParts, EndEarlyWhereTheObserverWantsIt) {
    Impatient impatient;
    const RiskRequest request = WorkedRisk({"Height=uniform:5:7"}, 1000);
    EXPECT_FALSE(RunRiskPart(request, {0, 10}, impatient));
    EXPECT_FALSE(MergeRisk(PartsOf(request, 2), 1, impatient));
}

}  // namespace
}  // namespace tarvokol
