// SPDX-License-Identifier: GPL-3.0-or-later
// The figures that a study tells of each panel, in one table: columns, JSON keys, pictures and the summary of a risk study
// are made of it.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/engine/panel_fields.h"
#include "core/studies/panel_figures.h"

namespace tarvokol {

enum class FigureKind { Factor, Share, Size, Probability };

struct StudyFigure {
    const char* name;    // of the column and the JSON key: "WebsOnly"
    const char* legend;  // "Webs ONLY"
    const char* title;   // of an axis: "Stability factor \"Webs ONLY\""
    const char* unit;    // empty for a bare number
    FigureKind kind;
    double PanelFigures::*value;
    std::optional<PanelField> target;  // the project's own, of a factor that has one

    bool IsFactor() const { return kind == FigureKind::Factor; }
    bool IsProbability() const { return kind == FigureKind::Probability; }

    // True of a figure that is there only where sizes are asked for.
    bool NeedsSizes() const { return kind == FigureKind::Size; }
};

// In the order of the columns: the factors, then the others, those that need sizes last.
inline constexpr std::array kStudyFigures{
    StudyFigure{"Overall", "Overall", "Stability factor \"Overall\"", "", FigureKind::Factor,
                &PanelFigures::Overall, std::nullopt},
    StudyFigure{"WebsOnly", "Webs ONLY", "Stability factor \"Webs ONLY\"", "", FigureKind::Factor,
                &PanelFigures::WebsOnly, PanelField::SFWeb},
    StudyFigure{"BarrierPillar", "Barrier Pillar", "Stability factor \"Barrier Pillar\"", "",
                FigureKind::Factor, &PanelFigures::BarrierPillar, PanelField::SFBarrier},
    StudyFigure{"ExtractionRatio", "Extraction ratio", "Extraction ratio", "percent", FigureKind::Share,
                &PanelFigures::ExtractionRatio, std::nullopt},
    StudyFigure{"SuggestedWeb", "Suggested web", "Suggested web", "in", FigureKind::Size,
                &PanelFigures::SuggestedWeb, std::nullopt},
    StudyFigure{"SuggestedBarrier", "Suggested barrier", "Suggested barrier", "in", FigureKind::Size,
                &PanelFigures::SuggestedBarrier, std::nullopt},
};

namespace detail {
constexpr std::size_t FiguresUpTo(FigureKind kind) {
    std::size_t count = 0;
    while (count < kStudyFigures.size() && kStudyFigures[count].kind <= kind) ++count;
    return count;
}
}  // namespace detail

constexpr std::size_t kFactors = detail::FiguresUpTo(FigureKind::Factor);

// The figures of a study, with the sizes or without.
constexpr std::span<const StudyFigure> StudyFigures(bool sizes) {
    return std::span(kStudyFigures)
        .first(sizes ? kStudyFigures.size() : detail::FiguresUpTo(FigureKind::Share));
}

// What samples of a row tell, in the order of the columns: how likely webs, barrier, and either of them lie below their targets.
inline constexpr std::array kRowProbabilities{
    StudyFigure{"P(WebsOnly)", "Webs", "Probability of webs below their target", "", FigureKind::Probability,
                &PanelFigures::ProbabilityOfWebs, std::nullopt},
    StudyFigure{"P(BarrierPillar)", "Barrier", "Probability of the barrier below its target", "",
                FigureKind::Probability, &PanelFigures::ProbabilityOfBarrier, std::nullopt},
    StudyFigure{"P(any)", "Webs or barrier", "Probability of webs or barrier below their targets", "",
                FigureKind::Probability, &PanelFigures::ProbabilityOfAny, std::nullopt},
};

// Of the name of a probability, or of the factor that it is of, in any letter case; nullptr for another one.
const StudyFigure* ProbabilityNamed(std::string_view name);

// The stability factors.
constexpr std::span<const StudyFigure> FactorFigures() {
    return std::span(kStudyFigures).first(kFactors);
}

// "the factors are Overall, ...".
std::string KnownFactors();

// The figure of a name in any letter case; nullptr if there is none.
const StudyFigure* FigureNamed(std::string_view name);

// "the figures are Overall, WebsOnly, ...".
std::string KnownFigures();

// What a factor is held against: the panel's target for it, 1 for the whole panel. NaN for another figure.
double TargetOfFigure(const StudyFigure& figure, const PanelInputs& panel);

}  // namespace tarvokol
