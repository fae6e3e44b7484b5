// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a kept study. A refusal is an answer; what is taken is written and reads back the same.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "core/statistics/study_refusal.h"
#include "core/studies/kept_study.h"

namespace tarvokol {
namespace {

void Require(bool fact) {
    if (!fact) std::abort();
}

void TryStudy(std::string_view bytes) {
    KeptStudy study;
    try {
        study = StudyOfBytes(bytes, "study");
    } catch (const KeptStudyFault&) {
        return;
    }
    const std::string text = TextOfStudy(study);
    Require(TextOfStudy(StudyOfBytes(text, "again")) == text);
    ProjectPathOf(study, "/folder/study.TKS");
    CsvOfTable(study);
    try {
        CsvOfDesigns(study);
    } catch (const StudyRefusal&) {
        return;  // of other units than the project
    }
}

}  // namespace
}  // namespace tarvokol

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    tarvokol::TryStudy(text);
    // The head and the figures are the hard part to hit.
    tarvokol::TryStudy(std::string(tarvokol::kStudyMagic) + "\n" + std::string(text));
    return 0;
}
