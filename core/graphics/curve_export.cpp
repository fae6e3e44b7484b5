// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/graphics/curve_export.h"

#include "core/files/csv_writer.h"
#include "core/project/curves.h"
#include "core/runtime/numbers.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

char ColumnLetter(int code) {
    if (code < 'A' || code > 'Z') Raise(error_number::InvalidCall);
    return static_cast<char>(code);
}

std::string CellAddress(char column, long row) {
    return column + std::to_string(row);
}

}  // namespace

char FirstColumnOf(int series) {
    return ColumnLetter(63 + 2 * series);
}

char SecondColumnOf(int series) {
    return ColumnLetter(64 + 2 * series);
}

void WriteCurveCells(const ChartModel& chart, GraphFamily family, SpreadsheetWriter& writer) {
    for (int series = 1; series <= chart.NumSeries(); ++series) {
        const char first = FirstColumnOf(series);
        const char second = SecondColumnOf(series);
        const long points = chart.NumPoints(series);
        for (long point = 1; point <= points; ++point) {
            const long row = point + 1;
            writer.SetCell(CellAddress(first, row), chart.X(series, point));
            writer.SetCell(CellAddress(second, row), chart.Y(series, point));
        }
        writer.SetCell(CellAddress(first, 1), std::string("X-coord"));
        writer.SetCell(CellAddress(second, 1), ReadOutName(family, series));
    }
    if (!chart.Note().empty()) writer.SetNote(chart.Note());
}

void ExportCurves(const ChartModel& chart, GraphFamily family, SpreadsheetWriter& writer) {
    writer.BeginWorkbook();
    WriteCurveCells(chart, family, writer);
    writer.ShowWorkbook();
}

std::string CurveTableCsv(const std::string& x_name, const std::vector<std::string>& names,
                          const std::string& file) {
    return CurveTableCsv(CurveData, CurvePoints, CurveCount, x_name, names, file);
}

std::string CurveTableCsv(const CurveTable& table, long points, int count, const std::string& x_name,
                          const std::vector<std::string>& names, const std::string& file) {
    std::string csv;
    CsvWriter line(csv);
    if (!file.empty()) line.AddTitle("File");
    line.AddTitle(x_name);
    for (const std::string& name : names) line.AddTitle(name);
    line.EndLine();
    for (long row = 1; row <= points; ++row) {
        if (!file.empty()) line.AddText(file);
        for (int column = 0; column <= count; ++column) line.AddDigits(GeneralText(table(column, row)));
        line.EndLine();
    }
    return csv;
}

}  // namespace tarvokol
