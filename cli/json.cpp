#include "cli/json.h"

#include <cmath>

#include "engine/project_record.h"
#include "project/project_state.h"

namespace tarvokol::cli {
namespace {

// Up to here every whole double has an integer of the same digits.
constexpr double kLargestWhole = 1e15;

}  // namespace

Json NumberJson(double value) {
    if (!std::isfinite(value)) return nullptr;
    if (value == std::floor(value) && std::fabs(value) < kLargestWhole)
        return static_cast<std::int64_t>(value);
    return value;
}

std::string JsonLine(const Json& object) {
    return object.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
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
