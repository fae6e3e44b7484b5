// SPDX-License-Identifier: GPL-3.0-or-later
// A drawing that keeps what it is given to draw: the commands run in the test's own process, without a toolkit.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "cli/line/options.h"
#include "cli/output/drawing.h"
#include "tests/support/core_fixture.h"

namespace tarvokol::cli {

// A row as it came: numbers and texts in their order.
using SheetCell = std::variant<double, std::string>;
using SheetRow = std::vector<SheetCell>;

class RecordingDrawing : public Drawing {
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

    std::vector<std::string> Calls;  // of the project commands, in words
    std::vector<CurvesPicture> Curves;
    std::vector<MapPicture> Maps;
    std::vector<SpreadPicture> Spreads;
    std::vector<FitPicture> Fits;
    std::vector<TornadoPicture> Tornados;
    std::vector<std::string> Kinds;  // extensions of the pictures and workbooks
    std::vector<std::string> Titles;
    std::vector<SheetRow> Rows;  // of the workbook; none where KeepRows is false
    std::uint64_t RowCount = 0;
    bool KeepRows = true;
    bool Finished = false;
};

// The one that TheDrawing() hands out in this program.
RecordingDrawing& TheRecording();

// A folder with the project of the worked example, "p.TKL", and a fresh recording.
class DrawnTest : public CoreTest {
  protected:
    DrawnTest();

    std::string WriteProject(const std::string& name, const std::string& figures, int units = 0,
                             const std::string& title = "Ridge Panel 4") const;

    using Words = std::vector<std::string>;

    // A command of "p.TKL" that writes into a file of the folder, with more words after it.
    Words Into(const std::string& output, Words command, const Words& more = {}) const;

    // The exit status of a command.
    int Run(const Words& words);

    // What a command that is wrongly called says on standard error, without the line's end.
    std::string RefusalOf(const Words& words, int status = exit_status::WrongUsage);
};

}  // namespace tarvokol::cli
