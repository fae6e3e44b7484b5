// SPDX-License-Identifier: GPL-3.0-or-later
// Kept studies on the command line: the same bytes as the command that asks for the same figures.
#include <string>
#include <vector>

#include "core/project/project_document.h"
#include "core/studies/kept_study.h"
#include "tests/cli/cli_runner.h"
#include "tests/studies/model/worked_project.h"

namespace tarvokol {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

class StudyCommand : public CliTest {
  protected:
    StudyCommand() {
        WriteBytes(PathTo("panel.TKL"), WorkedProjectBytes());
        const ProjectDocument document = *DocumentOfBytes(WorkedProjectBytes());
        study_.project = "panel.TKL";
        study_.title = document.title;
        study_.panel = {document.inputs, Units::English};
        for (const PanelFieldFacts& facts : kPanelFields)
            study_.ranges[static_cast<std::size_t>(facts.field)] = {1, 20};
        study_.map.x = {PanelField::WebThickness, {1, 20}};
        study_.map.figure = FigureNamed("WebsOnly");
        study_.risk.fields = {{PanelField::CoalStrength, "normal:100%:15%"},
                              {PanelField::DepthCover, "uniform:90%:110%"}};
        study_.risk.correlations = {{PanelField::CoalStrength, PanelField::DepthCover, 0.5}};
        study_.risk.samples = 2000;
        study_.columns = {"Hole", "DepthCover (ft)"};
        study_.rows = {{"A-1", "100"}, {"A-2", "300"}};
        study_.designs = {{"As built", study_.panel}};
        Keep();
    }
    void Keep() { WriteBytes(PathTo("a.TKS"), TextOfStudy(study_)); }

    // The answer, and that of the other command, whose words it stands for.
    void ExpectSame(const std::vector<std::string>& study, const std::vector<std::string>& other) {
        const CliAnswer answer = Run(study);
        EXPECT_EQ(answer.status, 0) << answer.err;
        EXPECT_EQ(answer.out, Run(other).out);
        EXPECT_FALSE(answer.out.empty());
    }

    KeptStudy study_;
};

TEST_F(StudyCommand, AnswersEachPageWithTheSameBytes) {
    ExpectSame({"study", "a.TKS", "-q"}, {"sweep", "panel.TKL", "--vary", "WebThickness=1:20/241", "-q"});
    WriteBytes(PathTo("rows.csv"), "Hole,DepthCover (ft)\nA-1,100\nA-2,300\n");
    ExpectSame({"study", "a.TKS", "--page", "table", "-q"},
               {"table", "panel.TKL", "rows.csv", "--size", "-q"});
    ExpectSame({"study", "a.TKS", "--page", "width", "-q"},
               {"design", "panel.TKL", "--random", "CoalStrength=normal:100%:15%", "--random",
                "DepthCover=uniform:90%:110%", "--correlate", "CoalStrength,DepthCover=0.5", "--samples",
                "2000", "--find", "WebThickness", "--until", "WebsOnly<1.6", "--probability", "5%", "-q"});
    const CliAnswer risk = Run({"study", "a.TKS", "--page", "risk", "--json", "-q"});
    json object = risk.Object();
    EXPECT_EQ(object["file"], "a.TKS");
    object["file"] = "panel.TKL";
    EXPECT_EQ(object, Run({"risk", "panel.TKL", "--random", "CoalStrength=normal:100%:15%", "--random",
                           "DepthCover=uniform:90%:110%", "--correlate", "CoalStrength,DepthCover=0.5",
                           "--samples", "2000", "--json", "-q"})
                          .Object());
}

TEST_F(StudyCommand, AnswersDesignsRowByRow) {
    const CliAnswer answer = Run({"study", "a.TKS", "--page", "compare", "--json", "-q"});
    EXPECT_EQ(answer.status, 0) << answer.err;
    const json object = answer.Object();
    EXPECT_EQ(object["row"]["Design"], "As built");
    EXPECT_EQ(object["DepthCover"], 100);
    EXPECT_NEAR(object["WebsOnly"].get<double>(), 4.71999, 5e-6);
}

TEST_F(StudyCommand, TheOpenPageIsTheDefault) {
    study_.page = StudyPages::Risk;
    Keep();
    EXPECT_THAT(Run({"study", "a.TKS", "-q"}).out, HasSubstr("2000 samples (Latin hypercube), seed 1"));
}

// The figures are those that the study keeps, whatever has become of the project.
TEST_F(StudyCommand, TellsThatItsProjectHasChanged) {
    const std::string before = Run({"study", "a.TKS", "-q"}).out;
    std::string bytes = WorkedProjectBytes();
    WriteBytes(PathTo("panel.TKL"), bytes.replace(bytes.find("\r\n100\r\n"), 7, "\r\n130\r\n"));
    const CliAnswer changed = Run({"study", "a.TKS", "-q"});
    EXPECT_EQ(changed.status, 0);
    EXPECT_EQ(changed.out, before);
    EXPECT_THAT(changed.err, HasSubstr("has changed since: Depth of cover (ft) was 100 and is 130; the "
                                       "figures are those that the study keeps\n"));
    std::filesystem::remove(PathTo("panel.TKL"));
    const CliAnswer gone = Run({"study", "a.TKS", "-q"});
    EXPECT_EQ(gone.out, before);
    EXPECT_THAT(gone.err, HasSubstr(": File not found; the figures are those that the study keeps\n"));
}

TEST_F(StudyCommand, RefusesWhatItCannotAnswer) {
    WriteBytes(PathTo("cut.TKS"), TextOfStudy(study_).substr(0, 200));
    const CliAnswer cut = Run({"study", "cut.TKS"});
    EXPECT_EQ(cut.status, 1);
    EXPECT_EQ(cut.out, "");
    EXPECT_THAT(cut.err, HasSubstr("cut.TKS, line "));
    const CliAnswer object = Run({"study", "panel.TKL", "--json"});
    EXPECT_EQ(object.status, 1);
    EXPECT_EQ(object.Object()["ok"], false);
    EXPECT_EQ(object.Object()["messages"][0],
              "panel.TKL: is no kept study: its first line is not [TARVO-KOL Study]");
    study_.columns.clear();
    study_.rows.clear();
    Keep();
    EXPECT_EQ(Run({"study", "a.TKS", "--page", "table"}).err, "a.TKS: the study keeps no table\n");
    EXPECT_EQ(Run({"study", "missing.TKS"}).err, "missing.TKS: File not found\n");
}

TEST_F(StudyCommand, NamesTheFormatsOfThePage) {
    const CliAnswer format = Run({"study", "a.TKS", "--page", "risk", "--format", "csv"});
    EXPECT_EQ(format.status, 2);
    EXPECT_THAT(format.err, HasSubstr("tarvokol-cli study: --format: the page risk is written as txt, json, "
                                      "jsonl, png, svg, pdf\n"));
    EXPECT_THAT(Run({"study", "a.TKS", "--page", "maps"}).err, HasSubstr("did you mean map?"));
    EXPECT_THAT(Run({"study", "a.TKS", "-o", "a.TKS", "--force"}).err, HasSubstr("-o:"));
}

}  // namespace
}  // namespace tarvokol
