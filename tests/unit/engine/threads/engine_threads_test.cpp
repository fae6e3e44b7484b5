// SPDX-License-Identifier: GPL-3.0-or-later
// Eight threads calculate at once; one thread alone must find the same bits. No thread may ask the heap for
// anything while it checks, analyses and sizes.
#include <cstdint>
#include <cstdlib>
#include <latch>
#include <new>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "core/engine/engine.h"
#include "tests/support/panel_fingerprint.h"
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

std::uint64_t PrintOf(std::uint64_t number) {
    return FingerprintOf(number, number % kPanelsWithoutCurves == 0);
}

TEST(EngineThreads, EightThreadsFindTheBitsOfOne) {
    std::vector<std::vector<std::uint64_t>> found(kThreads, std::vector<std::uint64_t>(kPanels));
    std::latch start(kThreads);
    std::vector<std::thread> threads;
    for (std::uint64_t t = 0; t < kThreads; ++t)
        threads.emplace_back([&, t] {
            start.arrive_and_wait();
            for (std::uint64_t i = 0; i < kPanels; ++i) found[t][i] = PrintOf(t * kPanels + i);
        });
    for (std::thread& thread : threads) thread.join();
    for (std::uint64_t t = 0; t < kThreads; ++t)
        for (std::uint64_t i = 0; i < kPanels; ++i)
            ASSERT_EQ(PrintOf(t * kPanels + i), found[t][i]) << "panel " << t * kPanels + i;
}

TEST(EngineThreads, TheFingerprintSeesASingleBit) {
    Fingerprint one, other;
    one.Add(1.0);
    other.Add(1.0000000000000002);
    EXPECT_NE(one.Value(), other.Value());
    EXPECT_NE(PrintOf(1), PrintOf(2));
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
