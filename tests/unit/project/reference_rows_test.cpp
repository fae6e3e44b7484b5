// The reference rows of tests/reference: figures of an independent program, compared to the last bit.
#include <bit>
#include <cstdint>
#include <fstream>
#include <map>
#include <sstream>

#include "core/settings/options_record.h"
#include "tests/support/core_fixture.h"
#include "tests/support/panel_calculation.h"

namespace tarvokol {
namespace {

using Row = std::map<std::string, std::string>;

std::vector<std::string> Cells(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream stream(line);
    for (std::string cell; std::getline(stream, cell, ',');) cells.push_back(cell);
    return cells;
}

std::vector<Row> RowsOfFile(const std::string& name) {
    std::ifstream file(std::string(TARVOKOL_SOURCE_FOLDER) + "/tests/reference/" + name);
    std::string line;
    std::getline(file, line);
    const std::vector<std::string> columns = Cells(line);
    std::vector<Row> rows;
    while (std::getline(file, line)) {
        const std::vector<std::string> cells = Cells(line);
        EXPECT_EQ(cells.size(), columns.size()) << line;
        if (cells.size() != columns.size()) continue;
        Row row;
        for (std::size_t i = 0; i < columns.size(); ++i) row[columns[i]] = cells[i];
        rows.push_back(row);
    }
    return rows;
}

PanelRow InputsOf(const Row& panel) {
    PanelRow inputs{};
    for (std::size_t i = 0; i < PanelInputCount; ++i) inputs[i] = std::stod(panel.at(PanelInputNames[i]));
    return inputs;
}

std::uint64_t Bits(const std::string& text) {
    return std::bit_cast<std::uint64_t>(std::stod(text));
}

void ExpectSameBits(const Row& panel, const std::vector<std::string>& names,
                    const std::vector<double>& figures) {
    ASSERT_EQ(figures.size(), names.size()) << "panel " << panel.at("Panel");
    for (std::size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(std::bit_cast<std::uint64_t>(figures[i]), Bits(panel.at(names[i])))
            << "panel " << panel.at("Panel") << ", " << names[i] << ": " << figures[i] << " for "
            << panel.at(names[i]);
}

class ReferenceRows : public CoreTest {
  protected:
    void TearDown() override { OptionsRecord = Before; }

    const EngineOptions Before = OptionsRecord;
};

TEST_F(ReferenceRows, AnalysisGivesEveryBit) {
    const std::vector<Row> panels = RowsOfFile("panels.csv");
    ASSERT_GE(panels.size(), 500u);
    for (const Row& panel : panels) {
        EnterPanel(InputsOf(panel));
        ExpectSameBits(panel, AnalysisFigureNames(), AnalysisFigures());
    }
}

TEST_F(ReferenceRows, SizingGivesEveryBit) {
    for (const Row& panel : RowsOfFile("panels.csv")) {
        EnterPanel(InputsOf(panel));
        ExpectSameBits(panel, {"SuggestedWeb", "SuggestedBarrier"}, SizingFigures());
    }
}

TEST_F(ReferenceRows, CurvesGiveEveryBit) {
    std::map<std::string, PanelRow> panels;
    for (const Row& panel : RowsOfFile("panels.csv")) panels[panel.at("Panel")] = InputsOf(panel);
    const std::vector<Row> points = RowsOfFile("curves.csv");
    ASSERT_GE(points.size(), 1000u);
    for (const Row& point : points) {
        EnterPanel(panels.at(point.at("Panel")));
        const std::vector<double> figures = CurveFigures(point.at("Curve"));
        const std::size_t columns = point.at("Curve").starts_with("sf-") ? 4 : 2;
        ASSERT_EQ(figures.size(), columns * std::stoul(point.at("Points")));
        const std::size_t first = columns * (std::stoul(point.at("Point")) - 1);
        const char* const names[] = {"X", "Y1", "Y2", "Y3"};
        for (std::size_t column = 0; column < columns; ++column)
            EXPECT_EQ(std::bit_cast<std::uint64_t>(figures[first + column]), Bits(point.at(names[column])))
                << "panel " << point.at("Panel") << ", " << point.at("Curve") << " " << point.at("Point")
                << ", " << names[column];
    }
}

}  // namespace
}  // namespace tarvokol
