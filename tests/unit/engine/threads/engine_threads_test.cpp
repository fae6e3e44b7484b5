// Eight threads calculate at once; one thread alone must find the same bits. No thread may ask the heap for
// anything while it checks, analyses and sizes.
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <latch>
#include <new>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "core/engine/engine.h"
#include "tests/support/random_panels.h"

namespace {

thread_local long Allocations = 0;

}  // namespace

void* operator new(std::size_t size) {
    ++Allocations;
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace tarvokol {
namespace {

constexpr std::uint64_t kThreads = 8;
constexpr std::uint64_t kPanels = 10000;  // of each thread
constexpr std::uint64_t kPanelsWithoutCurves = 97;

// A fingerprint of every bit that is added, in order.
class Fingerprint {
  public:
    void Add(std::uint64_t bits) { value_ = (value_ ^ bits) * 0x100000001b3u + (value_ >> 29); }
    void Add(double figure) { Add(std::bit_cast<std::uint64_t>(figure)); }
    void Add(float figure) { Add(std::bit_cast<std::uint32_t>(figure)); }
    void Add(std::uint32_t bits) { Add(std::uint64_t{bits}); }
    template <typename T, std::size_t N>
    void Add(const OneBased<T, N>& figures) {
        for (const T figure : figures) Add(figure);
    }
    void Add(const std::string& text) {
        for (const char c : text) Add(std::uint64_t{static_cast<unsigned char>(c)});
    }

    std::uint64_t Value() const { return value_; }

  private:
    std::uint64_t value_ = 0xcbf29ce484222325u;
};

void AddAnalysis(Fingerprint& print, const PanelAnalysis& analysis) {
    print.Add(analysis.CalcCenterSum);
    print.Add(analysis.PillarWidth);
    print.Add(analysis.PillarStrength);
    print.Add(analysis.PillarArea);
    print.Add(analysis.PillarCapacity);
    print.Add(analysis.CapacityTotal);
    print.Add(analysis.DevelopmentLoad);
    print.Add(analysis.SideAbutmentLoad);
    print.Add(analysis.TotalLoad);
    print.Add(analysis.StabilityFactor);
    print.Add(analysis.AverageStress);
}

void AddCurve(Fingerprint& print, const Curve& curve) {
    for (long row = 1; row <= curve.points; ++row)
        for (int column = 0; column < curve.table.Columns(); ++column) print.Add(curve.table(column, row));
}

void AddCurves(Fingerprint& print, const CheckedPanel& panel) {
    for (const VariedInput input : {VariedInput::Height, VariedInput::DepthCover, VariedInput::HoleWidth})
        AddCurve(print, StabilityCurve(panel, input, PlotRange{}));
    for (const SizedPillar pillar : {SizedPillar::Web, SizedPillar::Barrier})
        AddCurve(print, SizeOverDepth(panel, pillar, PlotRange{}));
}

void AddEverything(Fingerprint& print, const Panel& panel, bool with_curves) {
    const CheckOutcome outcome = Check(panel);
    if (const auto* refusal = std::get_if<Refusal>(&outcome)) return print.Add(refusal->Message());
    const CheckedPanel& checked = std::get<CheckedPanel>(outcome);
    const Analysis analysis = Analyse(checked);
    AddAnalysis(print, analysis);
    const OutputFigures output = InOutputUnits(analysis, OutputUnits{});
    AddAnalysis(print, output.figures);
    print.Add(output.force_label);
    const PillarSizes sizes = SizePillars(panel);
    print.Add(sizes.web.width);
    print.Add(sizes.barrier.width);
    print.Add(SizingFailureMessage(sizes.barrier.failure));
    if (with_curves) AddCurves(print, checked);
}

std::uint64_t FingerprintOf(std::uint64_t number) {
    Fingerprint print;
    try {
        AddEverything(print, RandomPanel(number), number % kPanelsWithoutCurves == 0);
    } catch (const RunTimeError& error) {
        print.Add(static_cast<std::uint64_t>(error.number));
    }
    return print.Value();
}

TEST(EngineThreads, EightThreadsFindTheBitsOfOne) {
    std::vector<std::vector<std::uint64_t>> found(kThreads, std::vector<std::uint64_t>(kPanels));
    std::latch start(kThreads);
    std::vector<std::thread> threads;
    for (std::uint64_t t = 0; t < kThreads; ++t)
        threads.emplace_back([&, t] {
            start.arrive_and_wait();
            for (std::uint64_t i = 0; i < kPanels; ++i) found[t][i] = FingerprintOf(t * kPanels + i);
        });
    for (std::thread& thread : threads) thread.join();
    for (std::uint64_t t = 0; t < kThreads; ++t)
        for (std::uint64_t i = 0; i < kPanels; ++i)
            ASSERT_EQ(FingerprintOf(t * kPanels + i), found[t][i]) << "panel " << t * kPanels + i;
}

TEST(EngineThreads, TheFingerprintSeesASingleBit) {
    Fingerprint one, other;
    one.Add(1.0);
    other.Add(1.0000000000000002);
    EXPECT_NE(one.Value(), other.Value());
    EXPECT_NE(FingerprintOf(1), FingerprintOf(2));
}

TEST(EngineThreads, CheckAnalysisAndSizesAskNothingOfTheHeap) {
    long calculated = 0;
    const long before = Allocations;
    for (std::uint64_t number = 0; calculated < 1000; ++number) {
        PanelDice dice(number);
        const Panel panel = SoundPanel(dice);
        const CheckOutcome outcome = Check(panel);
        const auto* checked = std::get_if<CheckedPanel>(&outcome);
        ASSERT_NE(checked, nullptr);
        const Analysis analysis = Analyse(*checked);
        const auto factors = std::get<PanelFactors>(FactorsOf(panel));
        ASSERT_EQ(factors.overall, analysis.StabilityFactor[stability_case::Overall]);
        SizePillars(panel);
        ++calculated;
    }
    EXPECT_EQ(Allocations, before);
    ::operator delete(::operator new(8));
    EXPECT_GT(Allocations, before);
}

}  // namespace
}  // namespace tarvokol
