// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a table of panels: a fault of the table or a refusal of a column is an answer, any other end is a fault. Every
// row has a cell for each title.
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "core/files/csv_reader.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/table_study.h"

namespace tarvokol {
namespace {

void Require(bool fact) {
    if (!fact) std::abort();
}

void ReadTable(const std::string& bytes) {
    std::istringstream input(bytes);
    CsvReader reader(input, "panels.csv");
    const TableColumns columns(reader.Header(), Units::English);
    Require(columns.Count() == reader.Header().size());
    TableRow row;
    std::uint64_t line = 0;
    while (reader.Next(row)) {
        Require(row.cells.size() == columns.Count());
        Require(row.line > line);
        line = row.line;
        const auto faulty = columns.FaultyCell(row);
        if (faulty) Require(!columns.FaultOf(*faulty, row.cells[*faulty]).empty());
    }
}

}  // namespace
}  // namespace tarvokol

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        tarvokol::ReadTable(std::string(reinterpret_cast<const char*>(data), size));
    } catch (const tarvokol::TableFault&) {
    } catch (const tarvokol::StudyRefusal&) {
    }
    return 0;
}
