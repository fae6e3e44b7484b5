// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/design_words.h"

#include <array>
#include <limits>
#include <vector>

#include "cli/commands/risk_json.h"
#include "cli/commands/share_words.h"
#include "core/files/csv_writer.h"
#include "core/statistics/study_numbers.h"
#include "core/studies/study_figures.h"

namespace tarvokol::cli {
namespace {

constexpr int kTitleColumn = 34;

const StudyFigure& FactorOf(const DesignDemand& demand) {
    return kStudyFigures[demand.target.factor];
}

// "WebsOnly < 1.6".
std::string TargetWords(const DesignDemand& demand) {
    return std::string(FactorOf(demand).name) + " < " + Short(demand.target.target);
}

std::string WithUnit(double value, const std::string& unit) {
    return unit.empty() ? Short(value) : Short(value) + ' ' + unit;
}

void AddLine(std::string& text, const std::string& title, const std::string& words) {
    text += Padded("  " + title, kTitleColumn) + words + '\n';
}

void AddFound(std::string& text, const FoundValue& found, const DesignRequest& request) {
    const std::string unit = UnitOfField(found.demand.field, request.risk.panel.units);
    text += '\n' + std::string(NameOfField(found.demand.field)) + " for " + TargetWords(found.demand) +
            " in at most " + Short(100.0 * found.demand.probability) + " %\n";
    AddLine(text, "In the project", WithUnit(found.before.value, unit));
    AddLine(text, "  probability", ShareInWords(found.before.below));
    AddLine(text, found.falls ? "At least" : "At most", WithUnit(found.value, unit));
    AddLine(text, "  95 % interval of sampling", Short(found.low) + " to " + WithUnit(found.high, unit));
    if (found.used != found.value)
        AddLine(text, (found.falls ? "Rounded up to " : "Rounded down to ") + Short(request.step),
                WithUnit(found.used, unit));
    AddLine(text, "Probability there", ShareInWords(found.after.below));
}

JsonMembers PointJson(const DesignPoint& point) {
    JsonMembers object;
    object.Add("value", point.value);
    AddShare(object, point.below);
    object.Add("refused", point.refused);
    return object;
}

JsonMembers FoundJson(const FoundValue& found) {
    JsonMembers until;
    until.Add("factor", FactorOf(found.demand).name);
    until.Add("target", found.demand.target.target);
    until.Add("probability", found.demand.probability);
    JsonValues range;
    range.Add(found.demand.low);
    range.Add(found.demand.high);
    JsonValues curve;
    for (const DesignPoint& point : found.curve) curve.Add(PointJson(point));
    JsonMembers object;
    object.Add("field", NameOfField(found.demand.field));
    object.Add("until", until);
    object.Add("range", range);
    object.Add("bound", found.falls ? "at-least" : "at-most");
    object.Add("value", found.value);
    object.Add("low", found.low);
    object.Add("high", found.high);
    object.Add("coverage", kConfidence);
    object.Add("used", found.used);
    object.Add("before", PointJson(found.before));
    object.Add("after", PointJson(found.after));
    object.Add("curve", curve);
    return object;
}

}  // namespace

std::string DesignText(const DesignRequest& request, const DesignResult& result, const std::string& title) {
    const RiskRequest& risk = request.risk;
    std::string text = title + "\n\n";
    for (const RandomField& one : risk.fields)
        text += Padded(NameOfField(one.field), 20) + one.distribution->Text() + '\n';
    text += std::to_string(risk.samples) +
            (risk.latin ? " samples (Latin hypercube)" : " samples (independent)") + ", seed " +
            std::to_string(risk.seed) + '\n';
    std::vector<Share> shares{result.any};
    std::string any;
    for (const FoundValue& found : result.found) {
        AddFound(text, found, request);
        shares.insert(shares.end(), {found.before.below, found.after.below});
        any += (any.empty() ? "" : " or ") + TargetWords(found.demand);
    }
    text += '\n';
    if (result.found.size() > 1) text += "Together, " + any + ": " + ShareInWords(result.any) + '\n';
    if (result.refused > 0)
        text += std::to_string(result.refused) + " refused samples of the panel count as below\n";
    return text + KindsText(shares, risk.latin);
}

JsonMembers DesignJson(const DesignRequest& request, const DesignResult& result, const std::string& file) {
    const RiskRequest& risk = request.risk;
    JsonMembers units;
    const auto add_unit = [&](PanelField field) {
        if (const std::string unit = UnitOfField(field, risk.panel.units); !unit.empty())
            units.Add(NameOfField(field), unit);
    };
    JsonMembers random;
    for (const RandomField& one : risk.fields) {
        random.Add(NameOfField(one.field), one.distribution->Text());
        add_unit(one.field);
    }
    JsonValues found;
    for (const FoundValue& value : result.found) {
        found.Add(FoundJson(value));
        add_unit(value.demand.field);
    }
    JsonMembers together;
    AddShare(together, result.any);
    together.Add("coverage", kConfidence);
    together.Add("refused", result.refused);
    JsonMembers object;
    object.Add("file", file);
    object.Add("ok", true);
    object.Add("messages", std::vector<std::string>());
    object.Add("samples", risk.samples);
    object.Add("seed", risk.seed);
    object.Add("method", risk.latin ? "latin-hypercube" : "plain");
    object.Add("random", random);
    object.Add("step", request.step > 0.0 ? request.step : std::numeric_limits<double>::quiet_NaN());
    object.Add("found", found);
    object.Add("together", together);
    object.Add("units", units);
    object.Add("schema", kSchemaVersion);
    return object;
}

std::string DesignCsv(const DesignRequest& request, const DesignResult& result) {
    std::string text;
    CsvWriter line(text);
    for (const char* title : {"Field", "Value", "Unit", "Probability", "Low", "High", "Refused"})
        line.AddTitle(title);
    line.EndLine();
    std::string digits;
    for (const FoundValue& found : result.found)
        for (const DesignPoint& point : found.curve) {
            const auto add = [&](double value) {
                digits.clear();
                AppendShortest(digits, value);
                line.AddDigits(digits);
            };
            line.AddText(NameOfField(found.demand.field));
            add(point.value);
            line.AddText(UnitOfField(found.demand.field, request.risk.panel.units));
            for (const double value : {point.below.value, point.below.low, point.below.high}) add(value);
            line.AddDigits(std::to_string(point.refused));
            line.EndLine();
        }
    return text;
}

}  // namespace tarvokol::cli
