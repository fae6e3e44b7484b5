// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/output/toolkit_drawing.h"

#include <QApplication>
#include <QHashFunctions>

#include "core/files/source_date.h"
#include "core/platform/platform.h"
#include "core/report/print_engine.h"
#include "qt/charts/chart_export.h"
#include "qt/charts/study_picture.h"
#include "qt/plan/plan_export.h"
#include "qt/print/qt_printer.h"
#include "qt/session/qt_screen_fonts.h"
#include "qt/workbooks/study_workbook.h"
#include "qt/workbooks/xlsx_writer.h"

namespace tarvokol::cli {
namespace {

// Standard error belongs to the command's own words; the toolkit's remarks about the session do not go there.
void DropMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

void StartToolkit() {
    if (QCoreApplication::instance() != nullptr) return;
    qInstallMessageHandler(DropMessage);
    // Fonts and their signs stand in a PDF in the order of the toolkit's tables: the same work is to give the same bytes.
    QHashSeed::setDeterministicGlobalSeed();
    // How long the date of a PDF is depends on the zone.
    if (SourceDate()) qputenv("TZ", "UTC");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "tarvokol-cli";
    static char* argv[] = {name, nullptr};
    static QApplication application(argc, argv);
}

template <typename Picture>
void DrawWithToolkit(const std::string& path, const Picture& picture) {
    StartToolkit();
    WriteStudyPicture(picture, path);
}

}  // namespace

void ToolkitDrawing::PrintToPdf(const std::string& path, const std::string& text) {
    StartToolkit();
    QtPrinter printer;
    QtScreenFonts fonts;
    const PlatformBindings before = Platform;
    Platform.Printer = &printer;
    Platform.Fonts = &fonts;
    try {
        printer.PrintToFile(path);
        PrintCommand(print_command::BeginJob, "");
        PrintCommand(print_command::Block, text);
        PrintCommand(print_command::EndJob, "");
    } catch (...) {
        Platform = before;
        throw;
    }
    Platform = before;
}

void ToolkitDrawing::DrawCurves(const std::string& path, GraphFamily family, int index) {
    StartToolkit();
    ExportChart(family, index, path);
}

std::unique_ptr<SpreadsheetWriter> ToolkitDrawing::CurveWorkbook(const std::string& path) {
    return std::make_unique<XlsxFileWriter>(path);
}

void ToolkitDrawing::DrawPlan(const std::string& path, bool preview) {
    StartToolkit();
    ExportPlan(path, preview ? PlanView::Preview : PlanView::Window);
}

void ToolkitDrawing::DrawStudy(const std::string& path, const CurvesPicture& picture) {
    DrawWithToolkit(path, picture);
}

void ToolkitDrawing::DrawStudy(const std::string& path, const MapPicture& picture) {
    DrawWithToolkit(path, picture);
}

void ToolkitDrawing::DrawStudy(const std::string& path, const SpreadPicture& picture) {
    DrawWithToolkit(path, picture);
}

void ToolkitDrawing::DrawStudy(const std::string& path, const FitPicture& picture) {
    DrawWithToolkit(path, picture);
}

void ToolkitDrawing::DrawStudy(const std::string& path, const TornadoPicture& picture) {
    DrawWithToolkit(path, picture);
}

std::unique_ptr<RowSheet> ToolkitDrawing::RowWorkbook(const std::string& path) {
    return std::make_unique<StudyWorkbook>(path);
}

}  // namespace tarvokol::cli
