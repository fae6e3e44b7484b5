// SPDX-License-Identifier: GPL-3.0-or-later
// The figures of random panels as fingerprints, a thousand panels a line: results, sizes and all five curves,
// and the texts of the factors. Two builds that print the same lines calculate and write the same bits.
//
//   figures [PANELS]
#include <cinttypes>
#include <cstdio>
#include <cstdlib>

#include "core/runtime/numbers.h"
#include "tests/support/panel_fingerprint.h"

namespace {

using namespace tarvokol;

constexpr std::uint64_t kPanelsALine = 1000;

void AddTexts(Fingerprint& print, std::uint64_t number) {
    try {
        const auto outcome = FactorsOf(RandomPanel(number));
        if (const auto* factors = std::get_if<PanelFactors>(&outcome)) {
            print.Add(GeneralText(factors->overall));
            print.Add(PictureText(factors->webs_only, "##0.00"));
            print.Add(PictureText(factors->barrier, "#.00E+00"));
            print.Add(NumericParse(GeneralText(factors->barrier)));
        }
    } catch (const RunTimeError& error) {
        print.Add(error.text);
    }
}

}  // namespace

int main(int argc, char** argv) {
    const std::uint64_t panels = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 100000;
    for (std::uint64_t first = 0; first < panels; first += kPanelsALine) {
        Fingerprint print;
        for (std::uint64_t number = first; number < first + kPanelsALine && number < panels; ++number) {
            print.Add(FingerprintOf(number, true));
            AddTexts(print, number);
        }
        std::printf("%" PRIu64 " %016" PRIx64 "\n", first, print.Value());
    }
    return 0;
}
