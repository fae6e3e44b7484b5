// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/model/design_board.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/files/csv_writer.h"
#include "core/runtime/text.h"
#include "core/studies/picture_parts.h"

namespace tarvokol {
namespace {

bool AreSame(double a, double b) {
    return a == b || (std::isnan(a) && std::isnan(b));
}

}  // namespace

bool DesignBoard::Keep(const std::string& name, const Panel& panel) {
    if (IsFull()) return false;
    designs_.push_back({name, panel, ReadPanel(panel)});
    return true;
}

void DesignBoard::Rename(std::size_t i, const std::string& name) {
    designs_[i].name = name;
}

ComparedLine DesignBoard::FieldLine(PanelField field) const {
    const Panel& first = designs_.front().panel;
    ComparedLine line{TitleWithUnit(field, first.units), {}, {}, {}};
    for (const KeptDesign& design : designs_) {
        const bool other_units = design.panel.units != first.units;
        const std::string unit = UnitOfField(field, design.panel.units);
        line.texts.push_back(DigitsOfField(design.panel, field) +
                             (other_units && !unit.empty() ? " " + unit : std::string()));
        line.differs.push_back(other_units ||
                               !AreSame(ValueOfField(design.panel, field), ValueOfField(first, field)));
        line.misses.push_back(false);
    }
    return line;
}

ComparedLine DesignBoard::FigureLine(const StudyFigure& figure) const {
    const PanelFigures& first = designs_.front().reading.figures;
    ComparedLine line{TitleWithUnit(figure), {}, {}, {}};
    for (const KeptDesign& design : designs_) {
        const PanelFigures& figures = design.reading.figures;
        const double value = ShownFigure(figure, figures);
        line.texts.push_back(RoundedText(value, kFigureDigits));
        line.differs.push_back(!AreSame(value, ShownFigure(figure, first)));
        line.misses.push_back(MissesTarget(figure, figures, design.panel));
    }
    return line;
}

void DesignBoard::TakeRisks(std::vector<DesignRisk> risks) {
    ForgetRisks();
    for (std::size_t i = 0; i < std::min(risks.size(), designs_.size()); ++i)
        designs_[i].risk = std::move(risks[i]);
}

void DesignBoard::ForgetRisks() {
    for (KeptDesign& design : designs_) design.risk.reset();
}

// Empty for a design whose probability nobody has asked for.
ComparedLine DesignBoard::RiskLine(std::size_t which) const {
    ComparedLine line{kDesignRisks[which], {}, {}, {}};
    for (const KeptDesign& design : designs_) {
        line.texts.push_back(design.risk ? design.risk->below[which] : "");
        line.differs.push_back(line.texts.back() != line.texts.front());
        line.misses.push_back(false);
    }
    return line;
}

// What the check says, or why there is no probability.
ComparedLine DesignBoard::MessageLine() const {
    ComparedLine line{"Message", {}, {}, {}};
    for (const KeptDesign& design : designs_) {
        std::string text = ReplaceAll(design.reading.figures.message, CrLf, " ");
        if (text.empty() && design.risk) text = design.risk->fault;
        line.texts.push_back(text);
        line.differs.push_back(text != line.texts.front());
        line.misses.push_back(false);
    }
    return line;
}

std::vector<ComparedLine> DesignBoard::Lines() const {
    std::vector<ComparedLine> lines;
    if (designs_.empty()) return lines;
    for (const PanelFieldFacts& facts : kPanelFields) lines.push_back(FieldLine(facts.field));
    for (const StudyFigure& figure : kStudyFigures) lines.push_back(FigureLine(figure));
    if (std::any_of(designs_.begin(), designs_.end(),
                    [](const KeptDesign& design) { return design.risk.has_value(); }))
        for (std::size_t which = 0; which < kDesignRisks.size(); ++which) lines.push_back(RiskLine(which));
    ComparedLine message = MessageLine();
    if (std::any_of(message.texts.begin(), message.texts.end(),
                    [](const std::string& text) { return !text.empty(); }))
        lines.push_back(std::move(message));
    return lines;
}

std::string DesignBoard::Csv() const {
    std::string csv;
    if (designs_.empty()) return csv;
    CsvWriter line(csv);
    line.AddTitle("Figure");
    for (const KeptDesign& design : designs_) line.AddTitle(design.name);
    line.EndLine();
    for (const ComparedLine& compared : Lines()) {
        line.AddText(compared.title);
        for (const std::string& text : compared.texts) line.AddText(text);
        line.EndLine();
    }
    return csv;
}

std::string FreeDesignName(const DesignBoard& board) {
    for (int number = 1;; ++number) {
        std::string name = "Design " + std::to_string(number);
        const auto& designs = board.Designs();
        if (std::none_of(designs.begin(), designs.end(),
                         [&name](const KeptDesign& design) { return design.name == name; }))
            return name;
    }
}

}  // namespace tarvokol
