// SPDX-License-Identifier: GPL-3.0-or-later
// The window and the command line give the same figures to the last bit: 50 requests of each kind, asked for by the
// window's own command.
#include <sstream>

#include "core/statistics/study_numbers.h"
#include "studies/model/field_range.h"
#include "studies/model/map_study.h"
#include "studies/model/panel_reading.h"
#include "studies/model/risk_plan.h"
#include "studies/model/study_csv.h"
#include "studies/model/study_project.h"
#include "studies/model/table_sheet.h"
#include "tests/cli/cli_runner.h"
#include "tests/support/random_panels.h"

namespace tarvokol {
namespace {

constexpr int kRequests = 50;

std::string Digits(double value) {
    std::string digits;
    AppendShortest(digits, value);
    return digits;
}

class SameFigures : public CoreTest {
  protected:
    // A project of the dice, as the file that both read.
    Panel SavedPanel(PanelDice& dice) {
        ProjectDocument document;
        document.inputs = SoundPanel(dice);
        document.unit_system = static_cast<std::int16_t>(dice.Whole(0, 1));
        document.description_lines = 1;
        WriteBytes(path_, BytesOfDocument(document));
        const ProjectDocument read = OpenStudyProject(path_).document;
        return {read.inputs, static_cast<Units>(read.unit_system)};
    }

    // The words of a command but for the program's name and the picture that it draws.
    std::vector<std::string> WordsOf(const std::string& command) const {
        std::istringstream line(command);
        std::vector<std::string> words;
        for (std::string word; line >> word && word != "-o";) words.push_back(word);
        words.erase(words.begin());
        words.emplace_back("-q");
        return words;
    }

    std::string path_ = PathTo("panel.TKL");
};

TEST_F(SameFigures, OfSweeps) {
    PanelDice dice(24);
    for (int i = 0; i < kRequests; ++i) {
        const Panel panel = SavedPanel(dice);
        const auto field = static_cast<PanelField>(dice.Whole(0, kPanelFields.size() - 1));
        MapRequest request;
        request.x = {field, ProposedRange(field, ValueOfField(panel, field), panel.units)};
        if (i % 2 == 0 && field != PanelField::NumberHoles)
            request.y = StudyAxis{PanelField::NumberHoles, {2, 5}};
        request.figure = &kStudyFigures[static_cast<std::size_t>(dice.Whole(0, kStudyFigures.size() - 1))];
        std::vector<std::string> words = WordsOf(CommandOfMap(request, path_));
        // A figure is chosen for a picture; rows have them all.
        if (const auto of = std::find(words.begin(), words.end(), "--of"); of != words.end())
            words.erase(of, of + 2);
        const CliAnswer answer = RunCli(words);
        ASSERT_LT(answer.status, 2) << answer.err;
        EXPECT_TRUE(SameBytes(CsvOfSweep(SweepOf(request, panel)), answer.out))
            << CommandOfMap(request, path_);
    }
}

TEST_F(SameFigures, OfTables) {
    PanelDice dice(25);
    for (int i = 0; i < kRequests; ++i) {
        TableSheet sheet(SavedPanel(dice));
        std::string csv = "DepthCover,Height\n";
        for (int row = 0; row < 5; ++row)
            csv += Digits(dice.Between(10, 900)) + "," + Digits(dice.Between(1, 12)) + "\n";
        WriteBytes(PathTo("rows.csv"), csv);
        SheetChange table = sheet.TableOf(csv, "rows.csv");
        sheet.Make(table);
        const CliAnswer answer =
            RunCli({"table", path_, PathTo("rows.csv"), "--size", "--bare-header", "-q"});
        std::istringstream lines(answer.out);
        std::string line;
        std::getline(lines, line);
        for (std::size_t row = 0; row < sheet.Rows(); ++row) {
            std::string expected = sheet.Cell(row, 0) + "," + sheet.Cell(row, 1);
            for (const StudyFigure& figure : kStudyFigures)
                expected += "," + Digits(sheet.FiguresOf(row).*figure.value);
            ASSERT_TRUE(std::getline(lines, line));
            EXPECT_EQ(line.substr(0, expected.size() + 1), expected + ",");
        }
    }
}

TEST_F(SameFigures, OfRisks) {
    PanelDice dice(26);
    StudyObserver nobody;
    for (int i = 0; i < kRequests; ++i) {
        const Panel panel = SavedPanel(dice);
        RiskPlan plan;
        plan.fields = {{PanelField::CoalStrength, "lognormal:100%:15%"}};
        if (i % 2 == 0) plan.fields.push_back({PanelField::DepthCover, "triangular:80%:100%:130%"});
        plan.samples = 400;
        plan.seed = static_cast<std::uint64_t>(i);
        std::vector<std::string> words = WordsOf(CommandOfRisk(plan, path_));
        words.emplace_back("--json");
        const CliAnswer answer = RunCli(words);
        const RiskOutcome outcome = CalculateRisk(plan, panel, "", 1, nobody);
        ASSERT_TRUE(std::holds_alternative<RiskReading>(outcome)) << answer.out;
        for (const FactorRisk& risk : std::get<RiskReading>(outcome).risk)
            for (const double figure : {risk.moments.mean, risk.moments.standard_deviation, risk.quantiles[4],
                                        risk.below.front().share.value, risk.below.front().share.high})
                EXPECT_NE(answer.out.find(":" + Digits(figure)), std::string::npos) << Digits(figure);
    }
}

}  // namespace
}  // namespace tarvokol
