// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/reference_rows.h"

#include <bit>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

namespace tarvokol {
namespace {

std::vector<std::string> Cells(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream stream(line);
    for (std::string cell; std::getline(stream, cell, ',');) cells.push_back(cell);
    return cells;
}

}  // namespace

std::vector<ReferenceRow> ReferenceRowsOf(const std::string& file) {
    std::ifstream lines(TARVOKOL_REFERENCE_FOLDER "/" + file);
    std::string line;
    std::getline(lines, line);
    const std::vector<std::string> columns = Cells(line);
    std::vector<ReferenceRow> rows;
    while (std::getline(lines, line)) {
        const std::vector<std::string> cells = Cells(line);
        EXPECT_EQ(cells.size(), columns.size()) << line;
        if (cells.size() != columns.size()) continue;
        ReferenceRow row;
        for (std::size_t i = 0; i < columns.size(); ++i) row[columns[i]] = cells[i];
        rows.push_back(row);
    }
    return rows;
}

PanelRow InputsOf(const ReferenceRow& panel) {
    PanelRow inputs{};
    for (std::size_t i = 0; i < PanelInputCount; ++i) inputs[i] = std::stod(panel.at(PanelInputNames[i]));
    return inputs;
}

std::uint64_t BitsOf(double figure) {
    return std::bit_cast<std::uint64_t>(figure);
}

std::uint64_t BitsOf(const std::string& figure) {
    return BitsOf(std::stod(figure));
}

}  // namespace tarvokol
