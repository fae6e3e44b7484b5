// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/measured_column.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <optional>
#include <utility>

#include "core/files/csv_reader.h"
#include "core/files/csv_writer.h"
#include "core/files/descriptor.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"

namespace tarvokol {
namespace {

bool IsTitled(const std::string& title, const std::string& wanted) {
    return EqualIgnoringCase(Trim(title), wanted) || EqualIgnoringCase(TakenApart(title).name, wanted);
}

// The titles of a table, for a refusal: no more than a line of them.
std::string TitlesOf(const std::vector<std::string>& header) {
    constexpr std::size_t kMost = 12;
    std::string titles;
    for (std::size_t i = 0; i < std::min(header.size(), kMost); ++i)
        titles += (titles.empty() ? "" : ", ") + header[i];
    return header.size() > kMost ? titles + ", ..." : titles;
}

std::size_t PlaceOf(const std::vector<std::string>& header, const std::string& column) {
    std::optional<std::size_t> place;
    for (std::size_t i = 0; i < header.size(); ++i) {
        if (!IsTitled(header[i], column)) continue;
        if (place) throw StudyRefusal("the column " + column + " stands there twice");
        place = i;
    }
    if (!place) throw StudyRefusal("has no column " + column + "; its columns are " + TitlesOf(header));
    return *place;
}

MeasuredColumn ColumnOf(CsvReader& reader, const std::string& column) {
    const std::size_t place = PlaceOf(reader.Header(), Trim(column));
    const CsvTitle title = TakenApart(reader.Header()[place]);
    MeasuredColumn measured{title.name, title.unit, {}, 0};
    for (TableRow row; reader.Next(row);) {
        const std::string text = Trim(row.cells[place]);
        if (text.empty()) {
            ++measured.blanks;
            continue;
        }
        const auto value = WholeNumber(text);
        if (!value) throw reader.FaultOf(row, place, WhyNoNumber(text));
        if (measured.values.size() == kMostMeasured)
            throw StudyRefusal("the column " + column + " has more than " + std::to_string(kMostMeasured) +
                               " values");
        measured.values.push_back(*value);
    }
    if (measured.values.empty()) throw StudyRefusal("the column " + column + " has no values");
    return measured;
}

}  // namespace

MeasuredColumn ReadMeasuredColumn(const std::string& file, const std::string& column) {
    try {
        const Descriptor readable(file, Descriptor::kReadOnly);
        std::ifstream input(file, std::ios::binary);
        CsvReader reader(input, file);
        return About(file, [&] { return ColumnOf(reader, column); });
    } catch (const RunTimeError& error) {
        throw StudyRefusal(file + ": " + error.text);
    } catch (const TableFault& fault) {
        throw StudyRefusal(fault.what());
    } catch (const StudyRefusal& refusal) {
        // A file stands in the refusal's words, since whoever shows it puts the field in front.
        throw StudyRefusal(refusal.what());
    }
}

void RequireUnitOf(PanelField field, Units units, const std::string& file, const MeasuredColumn& column) {
    const std::string unit = UnitOfField(field, units);
    if (column.unit.empty() || EqualIgnoringCase(column.unit, unit)) return;
    throw StudyRefusal(file + ": the column " + column.name + " is in " + column.unit + ", " +
                       NameOfField(field) +
                       (unit.empty() ? " has no unit" : " is in " + unit + " in this project"));
}

ColumnReader ReaderForField(PanelField field, Units units) {
    return [field, units](const std::string& file, const std::string& column) {
        MeasuredColumn measured = ReadMeasuredColumn(file, column);
        RequireUnitOf(field, units, file, measured);
        return std::move(measured.values);
    };
}

}  // namespace tarvokol
