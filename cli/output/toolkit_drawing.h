// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/output/drawing.h"

namespace tarvokol::cli {

// Draws with the toolkit, which starts, without a display, when the first picture is drawn.
class ToolkitDrawing : public Drawing {
  public:
    void PrintToPdf(const std::string& path, const std::string& text) override;
    void DrawCurves(const std::string& path, GraphFamily family, int index) override;
    std::unique_ptr<SpreadsheetWriter> CurveWorkbook(const std::string& path) override;
    void DrawPlan(const std::string& path, bool preview) override;
    void DrawStudy(const std::string& path, const CurvesPicture& picture) override;
    void DrawStudy(const std::string& path, const MapPicture& picture) override;
    void DrawStudy(const std::string& path, const SpreadPicture& picture) override;
    void DrawStudy(const std::string& path, const FitPicture& picture) override;
    void DrawStudy(const std::string& path, const TornadoPicture& picture) override;
    std::unique_ptr<RowSheet> RowWorkbook(const std::string& path) override;
};

}  // namespace tarvokol::cli
