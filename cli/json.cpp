// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/json.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "core/project/project_record.h"
#include "core/project/project_state.h"

namespace tarvokol::cli {
namespace {

// Up to here every whole double has an integer of the same digits.
constexpr double kLargestWhole = 1e15;

// The library's own form of a double is now and then a digit longer than needed.
void AppendShortest(std::string& text, double value) {
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    text.append(buffer, result.ptr);
}

// Keys and most texts stand in JSON as they are; the library is asked about the others only.
bool NeedsNoEscape(const std::string& text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return c >= ' ' && c <= '~' && c != '"' && c != '\\'; });
}

std::string Quoted(const std::string& text) {
    if (NeedsNoEscape(text)) return '"' + text + '"';
    return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
}

void Append(std::string& text, const Json& value);

void AppendObject(std::string& text, const Json& object) {
    text += '{';
    for (const auto& [key, value] : object.items()) {
        if (text.back() != '{') text += ',';
        text += Quoted(key) + ':';
        Append(text, value);
    }
    text += '}';
}

void AppendArray(std::string& text, const Json& array) {
    text += '[';
    for (const Json& value : array) {
        if (text.back() != '[') text += ',';
        Append(text, value);
    }
    text += ']';
}

void Append(std::string& text, const Json& value) {
    if (value.is_object())
        AppendObject(text, value);
    else if (value.is_array())
        AppendArray(text, value);
    else if (value.is_string())
        text += Quoted(value.get_ref<const std::string&>());
    else if (value.is_number_float())
        AppendShortest(text, value.get<double>());
    else
        text += value.dump();
}

}  // namespace

Json NumberJson(double value) {
    if (!std::isfinite(value)) return nullptr;
    if (value == std::floor(value) && std::fabs(value) < kLargestWhole)
        return static_cast<std::int64_t>(value);
    return value;
}

std::string JsonLine(const Json& object) {
    std::string line;
    Append(line, object);
    return line + "\n";
}

Json ProjectJson() {
    const PanelInputs& record = ProjectRecord;
    return Json{{"UnitSystem", UnitSystem},
                {"ProjectTitle", ProjectTitle},
                {"ProjectDescription", ProjectDescription},
                {"Height", NumberJson(record.Height)},
                {"DepthCover", NumberJson(record.DepthCover)},
                {"HoleWidth", NumberJson(record.HoleWidth)},
                {"CrosscutSpacing", NumberJson(record.CrosscutSpacing)},
                {"CrosscutAngle", NumberJson(record.CrosscutAngle)},
                {"WebThickness", NumberJson(record.WebThickness)},
                {"BarrierPillarWidth", NumberJson(record.BarrierPillarWidth)},
                {"NumberHoles", record.NumberHoles},
                {"CoalStrength", NumberJson(record.CoalStrength)},
                {"UnitWeight", NumberJson(record.UnitWeight)},
                {"AbutmentAngle", NumberJson(record.AbutmentAngle)},
                {"SFWeb", NumberJson(static_cast<double>(record.SFWeb))},
                {"SFBarrier", NumberJson(static_cast<double>(record.SFBarrier))},
                {"SpareSingle", NumberJson(static_cast<double>(record.SpareSingle))}};
}

}  // namespace tarvokol::cli
