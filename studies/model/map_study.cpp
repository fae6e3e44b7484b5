// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/model/map_study.h"

#include <new>

#include "core/runtime/run_time_error.h"
#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"

namespace tarvokol {
namespace {

// As many steps as a map is divided into: its panels are those of the request and no others.
constexpr const char* kPlaces = "241";

std::string FieldWithValues(const StudyAxis& axis) {
    return std::string(NameOfField(axis.field)) + "=" + ValuesOfAxis(axis);
}

}  // namespace

std::string ValuesOfAxis(const StudyAxis& axis) {
    std::string values;
    AppendShortest(values, axis.range.low);
    values += ':';
    AppendShortest(values, axis.range.high);
    return values + (IsWholeField(axis.field) ? ":1" : std::string("/") + kPlaces);
}

SweepRequest SweepOf(const MapRequest& request, const Panel& panel) {
    SweepRequest sweep;
    sweep.panel = panel;
    sweep.sizes = request.figure->NeedsSizes();
    sweep.AddAxis(ValueAxis::Parse(request.x.field, ValuesOfAxis(request.x)));
    if (request.y) sweep.AddAxis(ValueAxis::Parse(request.y->field, ValuesOfAxis(*request.y)));
    return sweep;
}

std::span<const StudyFigure> CurvesOfFigure(const StudyFigure& figure) {
    return figure.IsFactor() ? FactorFigures() : std::span(&figure, 1);
}

MapOutcome CalculateMapStudy(const MapRequest& request, const Panel& panel, const std::string& title,
                             unsigned threads, StudyObserver& observer) {
    try {
        SweepRequest sweep = SweepOf(request, panel);
        sweep.threads = threads;
        if (request.y) {
            auto picture = MapOf(sweep, *request.figure, title, observer);
            if (picture) return std::move(*picture);
        } else {
            auto picture = CurvesOf(sweep, CurvesOfFigure(*request.figure), title, observer);
            if (picture) return std::move(*picture);
        }
        return {};
    } catch (const StudyRefusal& refusal) {
        return std::string(refusal.what());
    } catch (const RunTimeError& error) {
        return error.text;
    } catch (const std::bad_alloc&) {
        return std::string("out of memory: take narrower ranges");
    }
}

std::string CommandOfMap(const MapRequest& request, const std::string& project_path) {
    std::string command =
        "tarvokol-cli sweep " + QuotedForShell(project_path) + " --vary " + FieldWithValues(request.x);
    if (request.y) command += " --vary " + FieldWithValues(*request.y);
    if (request.figure->NeedsSizes()) command += " --size";
    if (request.y || !request.figure->IsFactor()) command += std::string(" --of ") + request.figure->name;
    return command + (request.y ? " -o map.svg" : " -o curves.svg");
}

std::string QuotedForShell(const std::string& text) {
    const bool plain = !text.empty() && text.find_first_not_of(
                                            "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"
                                            "_./-+,@%:=") == std::string::npos;
    if (plain && text.front() != '-') return text;
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return (text.starts_with('-') ? "./" : "") + quoted + "'";
}

}  // namespace tarvokol
