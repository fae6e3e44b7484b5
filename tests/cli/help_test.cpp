// SPDX-License-Identifier: GPL-3.0-or-later
// What --help tells of each command, word by word and in its order. How the lines are set out is the library's affair.
#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using Lines = std::vector<std::string>;
using testing::HasSubstr;

Lines operator+(Lines one, const Lines& other) {
    one.insert(one.end(), other.begin(), other.end());
    return one;
}

// All white space, also the breaks of long lines, becomes one blank.
std::string OnOneLine(const std::string& text) {
    std::string line;
    for (const char c : text) {
        if (c != ' ' && c != '\n')
            line += c;
        else if (!line.empty() && line.back() != ' ')
            line += ' ';
    }
    return line;
}

Lines Common(const std::string& objects) {
    return {"--settings FILE.INI:FILE Configuration file to read (default: the built-in values) ",
            "--json Print JSON Lines, " + objects + " ", "-q,--quiet No progress line "};
}

const Lines kPerFile = Common("one object per FILE");
const Lines kPerRow = Common("one object per row");
const Lines kSingle = Common("one object");
const Lines kFiles{"FILE ... REQUIRED Projects; `-` alone reads their paths from standard input "};
const Lines kProject{"PROJECT REQUIRED The project to start from "};
const Lines kOverwriting{"--force Replace existing files ",
                         "--stdin-project The project `-` is read from standard input "};
const Lines kList{"-0,--null Paths on standard input end in NUL, as after find -print0 "};
const Lines kThreads{"--threads N Threads to calculate on (default: one per core) "};
const std::string kCorrelate =
    "--correlate A,B=R ... FIELD,FIELD=R: a pair of fields moves together; R, between -1 and 1, is the "
    "correlation of their normal scores: of normal fields their own, of lognormal ones that of the "
    "logarithms ";
const Lines kSizes{
    "--size The suggested sizes, too: SuggestedWeb and SuggestedBarrier, inches ",
    "--random FIELD=DISTRIBUTION ... The probabilities that webs, barrier, or either lie below their "
    "targets, "
    "too: P(WebsOnly), P(BarrierPillar), P(any); FIELD=DISTRIBUTION as risk takes it, in % of the row's "
    "own figure; once per field ",
    kCorrelate,
    "--samples N Number of samples of each row (default 10000) ",
    "--seed S Seed of the random numbers (default 1) ",
    "--plain Independent draws instead of Latin hypercubes ",
    "--bare-header Names of columns without their units "};

const std::string kFields =
    "\nFields, in the project's units: Height, DepthCover, HoleWidth, WebThickness, BarrierPillarWidth,\n"
    "NumberHoles, CoalStrength, UnitWeight, AbutmentAngle, SFWeb, SFBarrier.\n\nExamples:\n";

Lines Output(const std::string& what) {
    return {"-o,--output PATH " + what + "; `-`: standard output "};
}

Lines Format(const std::string& formats,
             const std::string& of = "standard output, or of the files in a folder") {
    return {"--format FORMAT:{" + formats + "} Of " + of + " "};
}

const std::string kOneFile = "standard output, or of the file in a folder";
const std::string kNoFolder = "standard output";

class Help : public CliTest {
  protected:
    void ExpectTold(const std::vector<std::string>& command, const Lines& lines) const {
        SCOPED_TRACE(testing::PrintToString(command));
        const CliAnswer answer = Run(command);
        EXPECT_EQ(answer.status, 0);
        EXPECT_EQ(answer.err, "");
        const std::string told = OnOneLine(answer.out);
        std::size_t at = 0;
        for (const std::string& line : lines) {
            const std::size_t found = told.find(line, at);
            ASSERT_NE(found, std::string::npos) << line << "\nis not, or in another order, in\n"
                                                << answer.out;
            at = found + line.size();
        }
    }
};

TEST_F(Help, ListsTheCommands) {
    ExpectTold({"--help"},
               {"Stability design of highwall mining panels, without a window ", "tarvokol-cli [OPTIONS] ",
                "--version Display program version information and exit ",
                "results Input check, analysis and report ",
                "size Suggested web and barrier sizes, of a metric project in inches ",
                "save Read a project and write it again ",
                "curve A parametric curve; web and barrier of a metric project in inches ",
                "plan The panel plan ", "convert Convert a project to the other unit system and save it ",
                "units The unit calculator ", "settings The effective settings after reading ",
                "sweep Every combination of the values that fields of a project are given ",
                "table A table of panels: each row of a CSV file sets some fields of a project ",
                "risk How likely the factors lie below their targets when figures are uncertain "});
}

TEST_F(Help, TellsOfReportsAndSizes) {
    ExpectTold({"results", "--help"}, Lines{"Input check, analysis and report "} + kFiles + kPerFile +
                                          Output("Write the report: .txt, .pdf or .json, or a folder") +
                                          Format("txt,pdf,json,jsonl") + kOverwriting + kList + kThreads);
    ExpectTold({"size", "--help"}, Lines{"Suggested web and barrier sizes, of a metric project in inches "} +
                                       kFiles + kPerFile + Output("Write the sizes: .json, or a folder") +
                                       Format("json,jsonl") + kOverwriting + kList + kThreads);
}

TEST_F(Help, TellsOfCurves) {
    ExpectTold(
        {"curve", "--help"},
        Lines{"A parametric curve; web and barrier of a metric project in inches ",
              "KIND :{sf-height,sf-depth,sf-hole,web,barrier} REQUIRED sf-height, sf-depth, sf-hole, web or "
              "barrier "} +
            kFiles + Lines{"--bare-header Names of columns without their units "} + kPerFile +
            Output("Write the curve: .csv, .xlsx, .png, .svg, .pdf or .json, or a folder") +
            Format("csv,xlsx,png,svg,pdf,json,jsonl") + kOverwriting + kList + kThreads);
}

TEST_F(Help, TellsOfThePlan) {
    ExpectTold(
        {"plan", "--help"},
        Lines{"The panel plan "} + kFiles +
            Lines{"--mode TEXT:{dimensions,strength,capacity}=dimensions What the pillars' labels show ",
                  "--view TEXT:{window,preview}=window Drawn as in the plot window or in the parameters "
                  "dialog "} +
            kPerFile + Output("Write the plan: .svg, .png, .pdf, .csv or .json, or a folder") +
            Format("svg,png,pdf,csv,json,jsonl") + kOverwriting + kList);
}

TEST_F(Help, TellsOfProjectsThatAreWritten) {
    ExpectTold({"convert", "--help"},
               Lines{"Convert a project to the other unit system and save it "} + kFiles +
                   Lines{"--to TEXT:{english,metric} REQUIRED Target unit system "} + kPerFile +
                   Output("The file or folder to write (default: beside the original)") + kOverwriting +
                   kList + kThreads);
    ExpectTold({"save", "--help"}, Lines{"Read a project and write it again "} + kFiles + kPerFile +
                                       Output("The file or folder to write (required)") + kOverwriting +
                                       kList + kThreads);
}

TEST_F(Help, TellsOfUnitsAndSettings) {
    ExpectTold({"units", "--help"}, Lines{"The unit calculator ",
                                          "QUANTITY :{length,load,load-grad,stress,stress-grad} REQUIRED "
                                          "length, load, load-grad, stress or "
                                          "stress-grad ",
                                          "UNIT REQUIRED The unit of VALUE: one of those below ",
                                          "VALUE REQUIRED What would be typed "} +
                                        kSingle);
    EXPECT_THAT(Run({"units", "--help"}).out,
                HasSubstr("Units of length: in, ft, cm, m\n"
                          "Units of load: lbsF, tonsF, kN, MN, kips\n"
                          "Units of load-grad: lbsF/in, lbsF/ft, kN/m, MN/m\n"
                          "Units of stress: psi, ksi, psf, Pa, MPa\n"
                          "Units of stress-grad: psi/in, psi/ft, Pa/m, MPa/m\n"));
    ExpectTold({"settings", "--help"},
               Lines{"The effective settings after reading ",
                     "FILE.INI :FILE Configuration file to read (default: the built-in values) "} +
                   kSingle);
}

TEST_F(Help, TellsOfSweeps) {
    ExpectTold(
        {"sweep", "--help"},
        Lines{"Every combination of the values that fields of a project are given "} + kProject + kPerRow +
            Output("Write rows (.csv, .json, .xlsx) or a picture (.png, .svg, .pdf)") +
            Format("csv,json,jsonl,xlsx,png,svg,pdf", kNoFolder) + kOverwriting + kThreads + kSizes +
            Lines{
                "--vary FIELD=VALUES ... REQUIRED FIELD=FIRST:LAST:STEP, FIELD=FIRST:LAST/COUNT or "
                "FIELD=V1,V2,V3; once per field, the last one given runs fastest ",
                "--of FIGURE:{Overall,WebsOnly,BarrierPillar,ExtractionRatio,SuggestedWeb,SuggestedBarrier} "
                "The figure of a picture (default of a map: Overall; with --random P(any), and WebsOnly and "
                "BarrierPillar are P(WebsOnly) and P(BarrierPillar)) ",
                "--part K/N Rows of part K of N alone; all parts one after another are the whole, whose "
                "header "
                "stands in the first "});
    EXPECT_THAT(
        Run({"sweep", "--help"}).out,
        HasSubstr(
            kFields +
            "  tarvokol-cli sweep panel.TKL --vary DepthCover=50:400:5 > depth.csv\n"
            "  tarvokol-cli sweep panel.TKL --vary WebThickness=2:12:0.5 --vary DepthCover=50:400:10 \\\n"
            "      --of WebsOnly -o map.svg\n"
            "  tarvokol-cli sweep panel.TKL --vary NumberHoles=5,10,15,20 --size -o sizes.xlsx\n"
            "  tarvokol-cli sweep panel.TKL --vary WebThickness=3:6:0.5 \\\n"
            "      --random CoalStrength=normal:100%:15%\n"
            "  tarvokol-cli sweep panel.TKL --vary WebThickness=3:6/13 --vary DepthCover=50:250/17 \\\n"
            "      --random CoalStrength=normal:100%:15% --of WebsOnly -o likely.svg\n"
            "  tarvokol-cli sweep panel.TKL --vary DepthCover=50:400:5 --part 1/4 -o part1.csv\n"));
}

TEST_F(Help, TellsOfTables) {
    ExpectTold(
        {"table", "--help"},
        Lines{"A table of panels: each row of a CSV file sets some fields of a project "} + kProject +
            Lines{
                "ROWS.csv REQUIRED The table: a header with names of fields and any other columns; `-` reads "
                "standard input "} +
            kPerRow + Output("Write the rows: .csv, .json or .xlsx") +
            Format("csv,json,jsonl,xlsx", kNoFolder) + kOverwriting + kThreads + kSizes);
    EXPECT_THAT(Run({"table", "--help"}).out,
                HasSubstr(kFields + "  tarvokol-cli table panel.TKL boreholes.csv > factors.csv\n"
                                    "  tarvokol-cli table panel.TKL boreholes.csv --size -o factors.xlsx\n"
                                    "  tarvokol-cli table panel.TKL boreholes.csv --random "
                                    "CoalStrength=normal:100%:15%\n"
                                    "  cut -d, -f1-3 survey.csv | tarvokol-cli table panel.TKL - --json\n"));
}

TEST_F(Help, TellsOfRisks) {
    ExpectTold(
        {"risk", "--help"},
        Lines{"How likely the factors lie below their targets when figures are uncertain "} + kProject +
            kSingle + Output("Write the summary (.txt, .json) or a picture (.png, .svg, .pdf)") +
            Format("txt,json,jsonl,png,svg,pdf", kOneFile) + kOverwriting + kThreads +
            Lines{
                "--random FIELD=DISTRIBUTION ... REQUIRED FIELD=normal:MEAN:SD, lognormal:MEAN:SD, "
                "truncnormal:MEAN:SD:LO:HI, uniform:LO:HI, triangular:LO:MODE:HI, pert:LO:MODE:HI, "
                "beta:A:B:LO:HI, weibull:SCALE:SHAPE, gumbel:MODE:SCALE, gamma:SCALE:SHAPE, "
                "list:V1@P1,V2@P2,... or data:FILE.csv:COLUMN; a figure that ends in % is a share of the "
                "project's own, but SD of the MEAN beside it: of a strength of 900 normal:80%:10% is "
                "normal:720:72; once per field ",
                kCorrelate, "--samples N Number of samples (default 100000) ",
                "--seed S Seed of the random numbers (default 1) ",
                "--plain Independent draws instead of Latin hypercubes ",
                "--tornado What each field moves: the factors at 5 % and at 95 % of it, the others at their "
                "medians; a picture shows this in place of the spread ",
                "--samples-out FILE.csv Write all samples as CSV; `-`: standard output "});
    EXPECT_THAT(
        Run({"risk", "--help"}).out,
        HasSubstr(kFields +
                  "  tarvokol-cli risk panel.TKL --random CoalStrength=lognormal:100%:15%\n"
                  "  tarvokol-cli risk panel.TKL --random CoalStrength=normal:900:135 \\\n"
                  "      --random DepthCover=triangular:90%:100%:120% -o risk.png\n"
                  "  tarvokol-cli risk panel.TKL --random CoalStrength=data:strengths.csv:Strength\n"
                  "  tarvokol-cli risk panel.TKL --random Height=uniform:5:7 --below Overall=1.3 \\\n"
                  "      --below WebsOnly=1.3\n"
                  "  tarvokol-cli risk panel.TKL --random CoalStrength=lognormal:100%:15% \\\n"
                  "      --random DepthCover=normal:100%:5% --sobol\n"
                  "  tarvokol-cli risk panel.TKL --random CoalStrength=lognormal:100%:15% \\\n"
                  "      --random DepthCover=normal:100%:5% --tornado -o tornado.svg\n"
                  "  tarvokol-cli risk panel.TKL --random Height=uniform:5:7 --samples 1000000 --json\n"));
}

TEST_F(Help, TellsOfFits) {
    ExpectTold(
        {"fit", "--help"},
        Lines{"Which distribution the measured values of a column may come from ",
              "FILE.csv REQUIRED The table of the values "} +
            kSingle + Output("Write the result (.txt, .json) or a picture (.png, .svg, .pdf)") +
            Format("txt,json,jsonl,png,svg,pdf", kOneFile) + kOverwriting +
            Lines{"--column NAME REQUIRED The title of the column, with or without its unit in brackets ",
                  "--field FIELD The field that the values are of; the option that is told names it "});
    EXPECT_THAT(Run({"fit", "--help"}).out,
                HasSubstr("\nExamples:\n"
                          "  tarvokol-cli fit strengths.csv --column Strength --field CoalStrength\n"
                          "  tarvokol-cli fit strengths.csv --column Strength -o strengths.png\n"
                          "  tarvokol-cli fit strengths.csv --column Strength --json\n"));
}

}  // namespace
}  // namespace tarvokol
