// SPDX-License-Identifier: GPL-3.0-or-later
// What the toolkit and the workbook library do for the commands. Loading them takes longer than most
// commands, so `tarvokol-cli` is built without them and hands its arguments on to its sibling,
// `tarvokol-cli-drawing`, when one of these outputs is asked for.
#pragma once

#include <memory>
#include <string>

#include "core/graphics/graph_setup.h"
#include "core/platform/row_sheet.h"
#include "core/platform/spreadsheet_writer.h"
#include "core/studies/curves_picture.h"
#include "core/studies/fit_picture.h"
#include "core/studies/map_picture.h"
#include "core/studies/spread_picture.h"
#include "core/studies/tornado_study.h"

namespace tarvokol::cli {

// A path's extension chooses the kind of a picture. Every function raises the run-time errors of writing.
class Drawing {
  public:
    virtual ~Drawing() = default;

    // Prints a text through the print engine into a PDF file: header and page number on every page.
    virtual void PrintToPdf(const std::string& path, const std::string& text) = 0;

    // The curve table as the graph `index` of the family shows it, and as the graph window exports it.
    virtual void DrawCurves(const std::string& path, GraphFamily family, int index) = 0;
    virtual std::unique_ptr<SpreadsheetWriter> CurveWorkbook(const std::string& path) = 0;

    // The plan of `PreviewRecord`, as the plot window shows it or the frame of the parameters dialog.
    virtual void DrawPlan(const std::string& path, bool preview) = 0;

    virtual void DrawStudy(const std::string& path, const CurvesPicture& picture) = 0;
    virtual void DrawStudy(const std::string& path, const MapPicture& picture) = 0;
    virtual void DrawStudy(const std::string& path, const SpreadPicture& picture) = 0;
    virtual void DrawStudy(const std::string& path, const FitPicture& picture) = 0;
    virtual void DrawStudy(const std::string& path, const TornadoPicture& picture) = 0;
    virtual std::unique_ptr<RowSheet> RowWorkbook(const std::string& path) = 0;
};

// The drawing of this program. The one that has none does not return: it becomes its sibling, which begins
// with the same arguments anew; so this is asked for before anything is read from standard input or written. A program that
// was built without the toolkit raises UsageError.
Drawing& TheDrawing();

}  // namespace tarvokol::cli
