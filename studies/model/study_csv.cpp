// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/model/study_csv.h"

#include "core/files/csv_writer.h"
#include "core/runtime/text.h"
#include "core/statistics/study_numbers.h"
#include "core/studies/study_figures.h"

namespace tarvokol {

void AddNumber(CsvWriter& line, double value) {
    std::string digits;
    AppendShortest(digits, value);
    line.AddDigits(digits);
}

std::string CsvOfSweep(const SweepRequest& request) {
    std::string csv;
    CsvWriter line(csv);
    for (const ValueAxis& axis : request.axes)
        line.AddTitle(
            TitleWithUnit(NameOfField(axis.Field()), UnitOfField(axis.Field(), request.panel.units)));
    for (const StudyFigure& figure : StudyFigures(request.sizes))
        line.AddTitle(TitleWithUnit(figure.name, figure.unit));
    line.AddTitle("Message");
    line.EndLine();
    RowsInOrder rows([&](const StudyRow& row) {
        for (const double value : row.values) AddNumber(line, value);
        for (const StudyFigure& figure : StudyFigures(request.sizes))
            AddNumber(line, row.figures.*figure.value);
        if (row.figures.message.empty())
            line.AddDigits("");
        else
            line.AddText(ReplaceAll(row.figures.message, CrLf, "\n"));
        line.EndLine();
        return true;
    });
    RunSweep(request, rows);
    return csv;
}

}  // namespace tarvokol
