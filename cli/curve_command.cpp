#include "cli/bulk_run.h"
#include "cli/commands.h"
#include "cli/toolkit.h"
#include "engine/curves.h"
#include "graphics/curve_export.h"
#include "platform/qt/chart_export.h"
#include "platform/qt/xlsx_writer.h"
#include "runtime/text.h"
#include "settings/graph_settings.h"

namespace tarvokol::cli {
namespace {

struct CurveRequest {
    bool sizing = false;
    int index = 0;
};

CurveRequest RequestOf(const std::string& kind) {
    if (kind == "sf-height") return {false, 0};
    if (kind == "sf-depth") return {false, 1};
    if (kind == "sf-hole") return {false, 2};
    return {true, kind == "web" ? 0 : 1};
}

}  // namespace
}  // namespace tarvokol::cli
