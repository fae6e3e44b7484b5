// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using nlohmann::json;

using UnitsCommand = CliTest;

TEST_F(UnitsCommand, PrintsOneLineABox) {
    EXPECT_EQ(Run({"units", "stress", "psf", "144"}).out.substr(0, 21), "psi: 0.001\nksi: 1\npsf");
    EXPECT_EQ(Run({"units", "length", "in", "12"}).out, "in: 12\nft: 1\ncm: 30.48\nm: 0.3048\n");
}

TEST_F(UnitsCommand, JsonIsOneObjectInBoxOrder) {
    const CliAnswer answer = Run({"units", "--json", "length", "ft", "1"});
    EXPECT_EQ(answer.out, "{\"in\":\"12\",\"ft\":\"1\",\"cm\":\"30.48\",\"m\":\"0.3048\"}\n");
}

TEST_F(UnitsCommand, TakesNegativeValuesWithAndWithoutTheTwoDashes) {
    EXPECT_EQ(Run({"units", "length", "ft", "-1"}).out, "in: -12\nft: -1\ncm: -30.48\nm: -0.3048\n");
    EXPECT_EQ(Run({"units", "length", "ft", "--", "-1"}).out, "in: -12\nft: -1\ncm: -30.48\nm: -0.3048\n");
}

TEST_F(UnitsCommand, TakesOptionsBehindANegativeValue) {
    EXPECT_EQ(Run({"units", "length", "ft", "-.5", "--json"}).out,
              "{\"in\":\"-6\",\"ft\":\"-0.5\",\"cm\":\"-15.24\",\"m\":\"-0.1524\"}\n");
    EXPECT_EQ(Run({"units", "length", "ft", "-1", "--"}).out, "in: -12\nft: -1\ncm: -30.48\nm: -0.3048\n");
}

TEST_F(UnitsCommand, RefusesAValueThatIsNoNumber) {
    const CliAnswer answer = Run({"units", "length", "ft", "2 5 feet"});
    EXPECT_EQ(answer.status, 2);
    EXPECT_EQ(answer.out, "");
    EXPECT_EQ(answer.err, "tarvokol-cli units: VALUE: \"2 5 feet\" is no number\n");
    EXPECT_EQ(Run({"units", "length", "ft", "+2.5E1"}).out, "in: 300\nft: 25\ncm: 762\nm: 7.62\n");
}

TEST_F(UnitsCommand, RefusesUnknownWordsAndReportsAnOverflow) {
    EXPECT_EQ(Run({"units", "length", "furlong", "1"}).status, 2);
    EXPECT_EQ(Run({"units", "width", "ft", "1"}).status, 2);
    EXPECT_EQ(Run({"units", "length", "ft"}).status, 2);
    EXPECT_EQ(Run({"units", "length", "m", "1E308"}).status, 1);
}

TEST_F(UnitsCommand, KnowsTheShortTonByBothItsCaptions) {
    EXPECT_EQ(Run({"units", "load", "tonsF (short)", "1"}).out.substr(0, 21), "lbsF: 2000\ntonsF: 1\nk");
    EXPECT_EQ(Run({"units", "load", "tonsF", "1"}).status, 0);
}

using SettingsCommand = CliTest;

TEST_F(SettingsCommand, PrintsTheBuiltInValuesByTheNamesUnderWhichTheyAreRead) {
    const json all = Run({"settings", "--json"}).Object();
    EXPECT_EQ(all["Settings"]["MaxDisplaySize"], 2048);
    EXPECT_EQ(all["Settings"]["ExternalEditor"], "Notepad.exe");
    EXPECT_EQ(all["Settings"]["FileExtension"], "TKL");
    EXPECT_EQ(all["FileMenu"]["MaxLastFiles"], 0);
    EXPECT_EQ(all["Graph"]["GraphTitle"], "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_EQ(all["Graph"]["SymbolSize"], 5);
    EXPECT_EQ(all["Graph"]["XAxisTitleS0"], "");
    EXPECT_EQ(all["TARVOKOLOptions"]["PlotRangeMin"], 50);
    EXPECT_EQ(all["TARVOKOLOptions"]["DefaultSFBarrier"], 2);
    EXPECT_FALSE(all.contains("Version"));
}

TEST_F(SettingsCommand, ReadsAFileByTheProgramsRulesAndNeverWritesIt) {
    const std::string bytes =
        "[Settings]\r\nMaxDisplaySize=100000\r\n[FileMenu]\r\nMaxLastFiles=1\r\nLastFile1=a.TKL\r\n"
        "[Graph]\r\nGridStyle=7\r\nGraphStyle=7\r\nSymbolSize=99\r\nXAxisTitleS1=Cover\r\n"
        "[TARVOKOLOptions]\r\nPlotRangeMin=80\r\nPlotRangeMax=80\r\nDefaultSFWeb=6.5\r\n";
    WriteBytes(PathTo("s.ini"), bytes);
    const json all = Run({"settings", "--json", "s.ini"}).Object();
    EXPECT_EQ(all["Settings"]["MaxDisplaySize"], 4096);
    EXPECT_EQ(all["FileMenu"]["LastFile1"], "a.TKL");
    EXPECT_EQ(all["Graph"]["GridStyle"], 0);
    EXPECT_EQ(all["Graph"]["GraphStyle"], 1);
    EXPECT_EQ(all["Graph"]["SymbolSize"], 3);
    EXPECT_EQ(all["Graph"]["XAxisTitleS1"], "Cover");
    EXPECT_EQ(all["TARVOKOLOptions"]["PlotRangeMin"], 100);
    EXPECT_EQ(all["TARVOKOLOptions"]["PlotRangeMax"], 100);
    EXPECT_EQ(all["TARVOKOLOptions"]["DefaultSFWeb"], 0);
    EXPECT_EQ(ReadBytes(PathTo("s.ini")), bytes);
}

TEST_F(SettingsCommand, TextIsOneSettingALine) {
    EXPECT_THAT(Run({"settings"}).out, testing::HasSubstr("\nTARVOKOLOptions.DefaultSFWeb=1.6\n"));
}

}  // namespace
}  // namespace tarvokol
