// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/tornado_study.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "core/runtime/no_number.h"
#include "core/studies/drawn_fields.h"

namespace tarvokol {
namespace {

constexpr double kMedian = 0.5;

class TornadoRun {
  public:
    explicit TornadoRun(const RiskRequest& request) : request_(request), panel_(request.panel, false) {
        medians_.reserve(request.fields.size());
        for (const RandomField& one : request.fields) medians_.push_back(one.distribution->Quantile(kMedian));
    }

    TornadoResult Run() {
        for (std::size_t factor = 0; factor < kFactors; ++factor)
            result_.factors[factor].resize(request_.fields.size());
        result_.middle = FactorsAt(medians_);
        for (std::size_t field = 0; field < request_.fields.size(); ++field) {
            TornadoBar ends;
            Move(field, kTornadoLow, &TornadoBar::low, ends);
            Move(field, kTornadoHigh, &TornadoBar::high, ends);
            result_.fields.push_back(ends);
        }
        return std::move(result_);
    }

  private:
    void Move(std::size_t field, double share, double TornadoBar::*end, TornadoBar& value) {
        std::vector<double> figures = medians_;
        figures[field] = request_.fields[field].distribution->Quantile(share);
        const auto factors = FactorsAt(figures);
        value.*end = ValueOfField(panel_.Inputs(), request_.fields[field].field);
        for (std::size_t factor = 0; factor < kFactors; ++factor)
            result_.factors[factor][field].*end = factors[factor];
    }

    std::array<double, kFactors> FactorsAt(const std::vector<double>& figures) {
        std::array<double, kFactors> factors;
        factors.fill(kNoNumber);
        if (!SetDrawnFields(panel_, request_.fields, [&](std::size_t field) { return figures[field]; })) {
            if (result_.message.empty()) result_.message = "a drawn figure cannot be stored in its field";
            return factors;
        }
        const PanelFigures& found = panel_.Evaluate();
        if (found.refused && result_.message.empty()) result_.message = found.message;
        if (!found.refused)
            for (std::size_t factor = 0; factor < kFactors; ++factor)
                factors[factor] = found.*kStudyFigures[factor].value;
        return factors;
    }

    const RiskRequest& request_;
    PanelEvaluator panel_;
    std::vector<double> medians_;
    TornadoResult result_;
};

std::string ValueText(double value, const std::string& unit) {
    return RoundedText(value, kShareDigits) + (unit.empty() ? "" : ' ' + unit);
}

TornadoPanel PanelOf(const RiskRequest& request, const TornadoResult& result, std::size_t factor) {
    const StudyFigure& figure = kStudyFigures[factor];
    TornadoPanel panel;
    panel.x.title = figure.title;
    panel.middle = result.middle[factor];
    for (std::size_t i = 0; i < request.fields.size(); ++i) {
        const TornadoBar& bar = result.factors[factor][i];
        if (std::isnan(bar.Span())) continue;
        const PanelField field = request.fields[i].field;
        const std::string unit = UnitOfField(field, request.panel.units);
        panel.rows.push_back({TitleOfField(field), ValueText(result.fields[i].low, unit),
                              ValueText(result.fields[i].high, unit), bar});
    }
    std::stable_sort(
        panel.rows.begin(), panel.rows.end(),
        [](const TornadoRow& one, const TornadoRow& other) { return one.bar.Span() > other.bar.Span(); });
    panel.x.low = std::isnan(panel.middle) ? HUGE_VAL : panel.middle;
    panel.x.high = std::isnan(panel.middle) ? -HUGE_VAL : panel.middle;
    for (const TornadoRow& row : panel.rows) {
        panel.x.low = std::min({panel.x.low, row.bar.low, row.bar.high});
        panel.x.high = std::max({panel.x.high, row.bar.low, row.bar.high});
    }
    return panel;
}

// The target where it lies no further from the bars than they are long; one that is drawn is no line.
void AddTarget(TornadoPanel& panel, const RiskRequest& request, const StudyFigure& figure) {
    const bool drawn = std::any_of(request.fields.begin(), request.fields.end(), [&](const RandomField& one) {
        return figure.target && one.field == *figure.target;
    });
    const double target = TargetOfFigure(figure, request.panel);
    const double span = panel.x.high - panel.x.low;
    if (drawn || target < panel.x.low - span || target > panel.x.high + span) return;
    panel.targets.push_back({(figure.target ? "target " : "") + RoundedText(target, kFigureDigits), target});
    panel.x.low = std::min(panel.x.low, target);
    panel.x.high = std::max(panel.x.high, target);
}

}  // namespace

TornadoResult RunTornado(const RiskRequest& request) {
    return TornadoRun(request).Run();
}

TornadoPicture TornadoOf(const RiskRequest& request, const TornadoResult& result, const std::string& title) {
    TornadoPicture picture;
    picture.title = title;
    for (const RandomField& field : request.fields)
        picture.words.push_back(InWords(field, request.panel.units));
    picture.words.emplace_back(
        "Each bar goes from the factor at 5 % to that at 95 % of one field, the others "
        "at their medians");
    for (std::size_t factor = 0; factor < kFactors; ++factor) {
        TornadoPanel panel = PanelOf(request, result, factor);
        if (panel.rows.empty()) throw NothingToShow(result.message);
        AddTarget(panel, request, kStudyFigures[factor]);
        Widen(panel.x.low, panel.x.high);
        picture.panels.push_back(std::move(panel));
    }
    return picture;
}

}  // namespace tarvokol
