// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/model/panel_reading.h"

#include <cmath>

#include "core/engine/engine.h"
#include "core/engine/panel_texts.h"
#include "core/runtime/numbers.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "core/studies/picture_parts.h"

namespace tarvokol {
namespace {

std::optional<PanelField> FieldOfTest(PanelTest test) {
    switch (test) {
        case PanelTest::Height:
            return PanelField::Height;
        case PanelTest::DepthCover:
            return PanelField::DepthCover;
        case PanelTest::HoleWidth:
            return PanelField::HoleWidth;
        case PanelTest::WebThickness:
            return PanelField::WebThickness;
        case PanelTest::BarrierPillarWidth:
            return PanelField::BarrierPillarWidth;
        case PanelTest::CoalStrength:
            return PanelField::CoalStrength;
        case PanelTest::UnitWeight:
            return PanelField::UnitWeight;
        case PanelTest::AbutmentAngle:
            return PanelField::AbutmentAngle;
        case PanelTest::CrosscutAngle:
        case PanelTest::CrosscutSpacing:
        case PanelTest::CenterDistance:
            break;
    }
    return std::nullopt;
}

std::optional<PanelRefusal> RefusalOfCheck(const Panel& panel) {
    try {
        const CheckOutcome outcome = Check(panel);
        if (const auto* refusal = std::get_if<Refusal>(&outcome))
            return PanelRefusal{FieldOfTest(refusal->test), refusal->Message()};
    } catch (const RunTimeError& error) {
        return PanelRefusal{std::nullopt, error.text};
    }
    return std::nullopt;
}

std::optional<PanelRefusal> RefusalOf(const Panel& panel) {
    const std::string holes = HolesFault(GeneralText(panel.NumberHoles));
    if (!holes.empty()) return PanelRefusal{PanelField::NumberHoles, holes};
    if (const auto refusal = RefusalOfTexts(TextsOfRecord(panel)))
        return PanelRefusal{refusal->field, refusal->message};
    return RefusalOfCheck(panel);
}

}  // namespace

PanelReading ReadPanel(const Panel& panel) {
    PanelReading reading;
    PanelEvaluator evaluator(panel, true);
    reading.figures = evaluator.Evaluate();
    reading.refusal = RefusalOf(panel);
    return reading;
}

bool MissesTarget(const StudyFigure& figure, const PanelFigures& figures, const PanelInputs& panel) {
    return figure.IsFactor() && figures.*figure.value < TargetOfFigure(figure, panel);
}

std::string FigureInWords(const StudyFigure& figure, const PanelFigures& figures) {
    const double value = ShownFigure(figure, figures);
    const std::string text = RoundedText(value, kFigureDigits);
    return std::isnan(value) || *figure.unit == '\0' ? text : text + " " + figure.unit;
}

std::vector<std::string> LinesOfPanel(const Panel& panel, const PanelReading& reading) {
    std::vector<std::string> lines;
    lines.reserve(kPanelFields.size() + kStudyFigures.size() + 1);
    for (const PanelFieldFacts& facts : kPanelFields) {
        const std::string unit = UnitOfField(facts.field, panel.units);
        lines.push_back(std::string(facts.title) + ": " + DigitsOfField(panel, facts.field) +
                        (unit.empty() ? "" : " " + unit));
    }
    for (const StudyFigure& figure : kStudyFigures) {
        std::string& line = lines.emplace_back(figure.legend);
        line += ": " + FigureInWords(figure, reading.figures);
        if (MissesTarget(figure, reading.figures, panel))
            line += ", below " + RoundedText(TargetOfFigure(figure, panel), kFigureDigits);
    }
    if (!reading.figures.message.empty()) lines.push_back(ReplaceAll(reading.figures.message, CrLf, " "));
    return lines;
}

std::string FiguresInWords(const PanelFigures& figures, const PanelInputs& panel) {
    std::string words;
    for (const StudyFigure& figure : kStudyFigures) {
        if (!words.empty()) words += ", ";
        words += std::string(figure.legend) + " " + FigureInWords(figure, figures);
        if (MissesTarget(figure, figures, panel))
            words += " (below " + RoundedText(TargetOfFigure(figure, panel), kFigureDigits) + ")";
    }
    return figures.message.empty() ? words : words + "; " + figures.message;
}

}  // namespace tarvokol
