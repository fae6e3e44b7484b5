// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/output/json.h"

#include <algorithm>
#include <cmath>

#include "core/runtime/text.h"
#include "core/statistics/study_numbers.h"

namespace tarvokol::cli {
namespace {

// Up to here every whole double has an integer of the same digits.
constexpr double kLargestWhole = 1e15;

bool IsWhole(double value) {
    return value == std::floor(value) && std::fabs(value) < kLargestWhole;
}

// What JSON writes for a character of ASCII that may not stand in a text as it is; empty for the others.
std::string_view Escape(char c) {
    switch (c) {
        case '"':
            return "\\\"";
        case '\\':
            return "\\\\";
        case '\b':
            return "\\b";
        case '\f':
            return "\\f";
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        case '\t':
            return "\\t";
        default:
            return "";
    }
}

void AppendEscaped(std::string& text, char c) {
    constexpr const char* kDigits = "0123456789abcdef";
    const std::string_view escape = Escape(c);
    if (!escape.empty()) {
        text += escape;
        return;
    }
    text += "\\u00";
    text += kDigits[c / 16];
    text += kDigits[c % 16];
}

// Appends a text between quotes, stretch by stretch: most of a report stands as it is. False, with nothing
// appended, for one that is not all ASCII.
bool AppendQuotedAscii(std::string& json, const std::string& text) {
    const auto stands_as_it_is = [](char c) { return c >= ' ' && c != '"' && c != '\\'; };
    const std::size_t before = json.size();
    json += '"';
    for (auto at = text.begin(); at != text.end();) {
        const auto end = std::find_if_not(at, text.end(), stands_as_it_is);
        json.append(at, end);
        at = end;
        if (at == text.end()) break;
        if (!IsAscii(*at)) {
            json.resize(before);
            return false;
        }
        AppendEscaped(json, *at);
        ++at;
    }
    json += '"';
    return true;
}

// The library knows what is no UTF-8.
void AppendText(std::string& json, const std::string& text) {
    if (!AppendQuotedAscii(json, text))
        json += Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
}

void Append(std::string& text, const Json& value);

void AppendObject(std::string& text, const Json& object) {
    text += '{';
    for (const auto& [key, value] : object.items()) {
        if (text.back() != '{') text += ',';
        AppendText(text, key);
        text += ':';
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
        AppendText(text, value.get_ref<const std::string&>());
    else if (value.is_number_float())
        AppendShortest(text, value.get<double>());  // the library's own form is now and then a digit longer
    else
        text += value.dump();
}

}  // namespace

Json NumberJson(double value) {
    if (!std::isfinite(value)) return nullptr;
    if (IsWhole(value)) return static_cast<std::int64_t>(value);
    return value;
}

void AppendNumber(std::string& text, double value) {
    if (!std::isfinite(value))
        text += "null";
    else if (IsWhole(value))
        text += std::to_string(static_cast<std::int64_t>(value));
    else
        AppendShortest(text, value);
}

std::string JsonText(const std::string& text) {
    std::string json;
    AppendText(json, text);
    return json;
}

std::string JsonLine(const Json& object) {
    std::string line;
    Append(line, object);
    return line + "\n";
}

void JsonMembers::AddKey(std::string_view key) {
    if (!text_.empty()) text_ += ',';
    text_ += '"';
    text_ += key;
    text_ += "\":";
}

void JsonMembers::Add(std::string_view key, double value) {
    AddKey(key);
    AppendNumber(text_, value);
}

void JsonMembers::Add(std::string_view key, const std::string& value) {
    AddKey(key);
    AppendText(text_, value);
}

void JsonMembers::Add(std::string_view key, const std::vector<std::string>& values) {
    AddKey(key);
    text_ += '[';
    for (const std::string& value : values) {
        if (&value != &values.front()) text_ += ',';
        AppendText(text_, value);
    }
    text_ += ']';
}

void JsonMembers::Add(std::string_view key, const JsonMembers& object) {
    AddKey(key);
    text_ += '{';
    text_ += object.text_;
    text_ += '}';
}

void JsonMembers::Add(std::string_view key, const Json& value) {
    AddKey(key);
    ::tarvokol::cli::Append(text_, value);
}

void JsonMembers::AddWritten(std::string_view key, std::string_view value) {
    AddKey(key);
    text_ += value;
}

void JsonMembers::Append(const JsonMembers& other) {
    if (!text_.empty() && !other.text_.empty()) text_ += ',';
    text_ += other.text_;
}

JsonMembers ProjectJson(const ProjectDocument& document) {
    const PanelInputs& record = document.inputs;
    JsonMembers members;
    members.Add("UnitSystem", document.unit_system);
    members.Add("ProjectTitle", document.title);
    members.Add("ProjectDescription", document.description);
    members.Add("Height", record.Height);
    members.Add("DepthCover", record.DepthCover);
    members.Add("HoleWidth", record.HoleWidth);
    members.Add("CrosscutSpacing", record.CrosscutSpacing);
    members.Add("CrosscutAngle", record.CrosscutAngle);
    members.Add("WebThickness", record.WebThickness);
    members.Add("BarrierPillarWidth", record.BarrierPillarWidth);
    members.Add("NumberHoles", record.NumberHoles);
    members.Add("CoalStrength", record.CoalStrength);
    members.Add("UnitWeight", record.UnitWeight);
    members.Add("AbutmentAngle", record.AbutmentAngle);
    members.Add("SFWeb", static_cast<double>(record.SFWeb));
    members.Add("SFBarrier", static_cast<double>(record.SFBarrier));
    members.Add("SpareSingle", static_cast<double>(record.SpareSingle));
    return members;
}

JsonMembers ProjectUnitsJson(int16_t unit_system) {
    const bool english = unit_system == 0;
    JsonMembers units;
    for (const char* length : {"Height", "DepthCover", "HoleWidth", "CrosscutSpacing"})
        units.Add(length, english ? "ft" : "m");
    units.Add("CrosscutAngle", "degrees");
    for (const char* length : {"WebThickness", "BarrierPillarWidth"}) units.Add(length, english ? "ft" : "m");
    units.Add("CoalStrength", english ? "psi" : "MPa");
    units.Add("UnitWeight", english ? "pcf" : "kN/m3");
    units.Add("AbutmentAngle", "degrees");
    return units;
}

}  // namespace tarvokol::cli
