// SPDX-License-Identifier: GPL-3.0-or-later
// The keys of every command's object in their order, with the units of the figures, and the tables and lists that stand for
// them as text.
#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class Objects : public CliTest {
  protected:
    Objects() {
        Project("p.TKL");
        Project("m.TKL", MetricProject());
    }
    // The one object of the command as it is written.
    nlohmann::ordered_json ObjectOf(const std::vector<std::string>& arguments) const {
        const CliAnswer answer = Run(arguments);
        EXPECT_EQ(answer.status, 0);
        return nlohmann::ordered_json::parse(answer.out);
    }
    static std::vector<std::string> KeysOf(const nlohmann::ordered_json& object) {
        std::vector<std::string> keys;
        for (const auto& [key, value] : object.items()) keys.push_back(key);
        return keys;
    }
};

const std::string kEnglishUnits =
    R"("Height":"ft","DepthCover":"ft","HoleWidth":"ft","CrosscutSpacing":"ft","CrosscutAngle":"degrees",)"
    R"("WebThickness":"ft","BarrierPillarWidth":"ft","CoalStrength":"psi","UnitWeight":"pcf","AbutmentAngle":"degrees")";
const std::string kMetricUnits =
    R"("Height":"m","DepthCover":"m","HoleWidth":"m","CrosscutSpacing":"m","CrosscutAngle":"degrees",)"
    R"("WebThickness":"m","BarrierPillarWidth":"m","CoalStrength":"MPa","UnitWeight":"kN/m3","AbutmentAngle":"degrees")";

TEST_F(Objects, OfResults) {
    const auto object = ObjectOf({"results", "--json", "p.TKL"});
    EXPECT_THAT(KeysOf(object),
                ElementsAre("file", "ok", "messages", "project", "StabilityFactor", "CapacityTotal",
                            "DevelopmentLoad", "SideAbutmentLoad", "PanelSpan", "AppliedAbutmentLoad",
                            "TotalLoad", "CenterDist", "PillarWidth", "PillarStrength", "PillarArea",
                            "PillarCapacity", "pages", "units", "schema"));
    EXPECT_EQ(object["units"].dump(),
              "{" + kEnglishUnits +
                  R"(,"CapacityTotal":["lbs","lbs","lbs/ft"],"DevelopmentLoad":["lbs","lbs","lbs/ft"],)"
                  R"("SideAbutmentLoad":"lbs/ft","PanelSpan":"ft","AppliedAbutmentLoad":"lbs/ft",)"
                  R"("TotalLoad":["lbs","lbs","lbs/ft","lbs/ft"],"CenterDist":"ft","PillarWidth":"ft",)"
                  R"("PillarStrength":"psf","PillarArea":"ft2","PillarCapacity":"lbs"})");
    EXPECT_EQ(object["schema"], 1);
    EXPECT_THAT(object["pages"][0].get<std::string>(), StartsWith("TARVOKOL module build: 1.3.02\r\n"));
    EXPECT_THAT(object["pages"][2].get<std::string>(), StartsWith("[PILLAR PARAMETERS]\r\n"));
    EXPECT_EQ(ObjectOf({"results", "--json", "m.TKL"})["units"].dump(),
              "{" + kMetricUnits +
                  R"(,"CapacityTotal":["kN","kN","kN/m"],"DevelopmentLoad":["kN","kN","kN/m"],)"
                  R"("SideAbutmentLoad":"kN/m","PanelSpan":"m","AppliedAbutmentLoad":"kN/m",)"
                  R"("TotalLoad":["kN","kN","kN/m","kN/m"],"CenterDist":"m","PillarWidth":"m",)"
                  R"("PillarStrength":"kPa","PillarArea":"m2","PillarCapacity":"kN"})");
}

TEST_F(Objects, OfSizesAndOfProjectsThatAreWritten) {
    EXPECT_THAT(Run({"size", "--json", "p.TKL"}).out,
                EndsWith(R"("txtSugWeb":"3.25","txtSugBarrier":"10.20","units":{"SuggestedWeb":"in",)"
                         R"("SuggestedBarrier":"in","txtSugWeb":"ft","txtSugBarrier":"ft"},"schema":1})"
                         "\n"));
    const CliAnswer saved = Run({"save", "--json", "-o", "s.TKL", "m.TKL"});
    EXPECT_THAT(
        saved.out,
        StartsWith(R"({"file":"m.TKL","ok":true,"messages":[],"output":"s.TKL","project":{"UnitSystem":1,)"));
    EXPECT_THAT(saved.out, EndsWith(R"(},"units":{)" + kMetricUnits + "},\"schema\":1}\n"));
    const CliAnswer converted = Run({"convert", "--json", "--to", "english", "-o", "e.TKL", "m.TKL"});
    EXPECT_THAT(
        converted.out,
        StartsWith(R"({"file":"m.TKL","ok":true,"messages":[],"output":"e.TKL","project":{"UnitSystem":0,)"));
    EXPECT_THAT(converted.out, EndsWith(R"(},"units":{)" + kEnglishUnits + "},\"schema\":1}\n"));
}

TEST_F(Objects, OfCurves) {
    const auto object = ObjectOf({"curve", "sf-hole", "--json", "p.TKL"});
    EXPECT_THAT(KeysOf(object),
                ElementsAre("file", "ok", "messages", "CurveCount", "CurvePoints", "CurveData", "CurveNames",
                            "XAxisTitle", "YAxisTitle", "units", "schema"));
    EXPECT_EQ(object["XAxisTitle"], "Hole Width (ft)");
    EXPECT_EQ(object["CurveData"][0].size(), object["CurvePoints"]);
    EXPECT_EQ(object["units"].dump(), R"({"X":"ft","Overall":"","Webs ONLY":"","Barrier Pillar":""})");
    EXPECT_EQ(ObjectOf({"curve", "barrier", "--json", "m.TKL"})["units"].dump(),
              R"({"X":"m","Barrier Width":"in"})");
}

TEST_F(Objects, OfPlans) {
    const auto object = ObjectOf({"plan", "--json", "p.TKL"});
    EXPECT_THAT(KeysOf(object), ElementsAre("file", "ok", "messages", "PlotWidth", "PlotHeight", "lines",
                                            "texts", "units", "schema"));
    EXPECT_EQ(object["units"].dump(), R"({"PlotWidth":"ft","PlotHeight":"ft","lines":"ft","texts":"ft"})");
    EXPECT_THAT(KeysOf(object["texts"][0]), ElementsAre("text", "x", "y", "rotated"));
}

TEST_F(Objects, OfRowsOfStudies) {
    const CliAnswer row =
        Run({"sweep", "m.TKL", "--json", "--size", "--vary", "DepthCover=0", "--vary", "SFWeb=1.5"});
    EXPECT_THAT(row.err, StartsWith("m.TKL: "));  // sizes in inches
    EXPECT_EQ(
        row.out,
        R"({"file":"m.TKL","ok":false,"messages":["Invalid depth of cover"],"DepthCover":0,"SFWeb":1.5,)"
        R"("Overall":null,"WebsOnly":null,"BarrierPillar":null,"ExtractionRatio":null,"SuggestedWeb":null,)"
        R"("SuggestedBarrier":null,"units":{"DepthCover":"m","ExtractionRatio":"percent","SuggestedWeb":"in",)"
        R"("SuggestedBarrier":"in"},"schema":1})"
        "\n");
    WriteBytes(PathTo("rows.csv"), "Hole \"x\",NumberHoles,UnitWeight\n\"a\nb\",5,0\n");
    EXPECT_EQ(
        Run({"table", "m.TKL", "rows.csv", "--json"}).out,
        R"({"file":"m.TKL","ok":false,"messages":["Invalid unit weight"],)"
        R"("NumberHoles":5,"UnitWeight":0,"Overall":null,"WebsOnly":null,"BarrierPillar":null,)"
        R"("ExtractionRatio":null,"row":{"Hole \"x\"":"a\nb"},"units":{"UnitWeight":"kN/m3","ExtractionRatio":"percent"},"schema":1})"
        "\n");
}

TEST_F(Objects, RowsAsTextHaveTheUnitsInTheHeaderAndOnStandardError) {
    WriteBytes(PathTo("rows.csv"), "Hole \"x\",UnitWeight,Note\n\"a\nb\",0,\"1,5\"\n");
    const CliAnswer answer = Run({"table", "p.TKL", "rows.csv", "--size"});
    EXPECT_EQ(answer.out,
              "UnitWeight (pcf),Overall,WebsOnly,BarrierPillar,ExtractionRatio (percent),SuggestedWeb (in),"
              "SuggestedBarrier (in),Message,\"Hole \"\"x\"\"\",Note\n0,,,,,,,Invalid unit "
              "weight,\"a\nb\",\"1,5\"\n");
    EXPECT_EQ(answer.err,
              "Units: UnitWeight pcf, ExtractionRatio percent, SuggestedWeb in, SuggestedBarrier in\n");
    // A table without a row still has its header.
    WriteBytes(PathTo("none.csv"), "Height\n");
    EXPECT_EQ(Run({"table", "-q", "p.TKL", "none.csv"}).out,
              "Height (ft),Overall,WebsOnly,BarrierPillar,ExtractionRatio (percent),Message\n");
}

TEST_F(Objects, APlanAsTextIsATableOfItsCorners) {
    ProjectText project;
    project.web = "8";
    project.holes = " 3 ";
    EXPECT_EQ(Run({"plan", Project("t.TKL", project)}).out,
              "t.TKL\nPillar  X1  Y1  X2  Y2  X3  Y3  X4  Y4\n"
              "Barrier 1  131  64  151  64  151  254  131  254\n"
              "Web 2  161  64  169  64  169  254  161  254\n"
              "Web 3  179  64  187  64  187  254  179  254\n");
}

TEST_F(Objects, AConvertedProjectIsNamedWhereItIsAFile) {
    EXPECT_EQ(Run({"convert", "--to", "metric", "p.TKL"}).out, "p.TKL: Metric_p.TKL\n");
    EXPECT_EQ(Run({"convert", "--to", "metric", "-o", "x.TKL", "p.TKL"}).out, "p.TKL: x.TKL\n");
    EXPECT_EQ(Run({"convert", "--to", "metric", "-o", "out/", "p.TKL"}).out, "p.TKL: out/Metric_p.TKL\n");
    EXPECT_EQ(Run({"save", "-o", "y.TKL", "p.TKL"}).out, "");
}

// The boxes of each quantity; tests of the unit calculator have the figures.
TEST_F(Objects, UnitsHaveABoxEach) {
    const auto boxes = [this](const std::string& quantity, const std::string& unit) {
        return KeysOf(ObjectOf({"units", "--json", quantity, unit, "1"}));
    };
    EXPECT_THAT(boxes("length", "ft"), ElementsAre("in", "ft", "cm", "m"));
    EXPECT_THAT(boxes("load", "kips"), ElementsAre("lbsF", "tonsF", "kN", "MN", "kips"));
    EXPECT_THAT(boxes("load-grad", "lbsF/ft"), ElementsAre("lbsF/in", "lbsF/ft", "kN/m", "MN/m"));
    EXPECT_THAT(boxes("stress", "psf"), ElementsAre("psi", "ksi", "psf", "Pa", "MPa"));
    EXPECT_THAT(boxes("stress-grad", "psi/ft"), ElementsAre("psi/in", "psi/ft", "Pa/m", "MPa/m"));
    EXPECT_EQ(Run({"units", "stress-grad", "psi/in", "1"}).out.substr(0, 11), "psi/in: 1\np");
    const CliAnswer large = Run({"units", "length", "m", "1E308"});
    EXPECT_EQ(large.out, "");
    EXPECT_EQ(large.err, "1E308: Overflow\n");
    EXPECT_EQ(Run({"units", "--json", "length", "m", "1E308"}).out,
              "{\"error\":{\"number\":6,\"text\":\"Overflow\"}}\n");
}

TEST_F(Objects, SettingsStandByTheirSections) {
    const auto sections = ObjectOf({"settings", "--json"});
    EXPECT_THAT(KeysOf(sections),
                ElementsAre("Settings", "FileMenu", "TextBrowse", "Graph", "TARVOKOLOptions"));
    EXPECT_THAT(sections["FileMenu"].dump(), R"({"MaxLastFiles":0})");
    EXPECT_EQ(sections["TextBrowse"].dump(),
              R"({"BrowseFontName":"Arial","BrowseFontSize":10,"BrowseFontBold":0,"BrowseFontItalic":0,)"
              R"("BrowseDefaultFilter":"","BrowseUseNotepad":0})");
    EXPECT_EQ(sections["TARVOKOLOptions"]["DefaultSFWeb"].dump(), "1.600000023841858");
    const std::string text = Run({"settings"}).out;
    EXPECT_THAT(text, StartsWith("Settings.DefaultUnits=0\nSettings.DisplayHistoryWin=0\n"));
    EXPECT_THAT(
        text, HasSubstr("\nSettings.FileExtension=TKL\nFileMenu.MaxLastFiles=0\nTextBrowse.BrowseFontName="));
    EXPECT_THAT(text, EndsWith("\nTARVOKOLOptions.AskOfficeInstall=1\n"));
}

}  // namespace
}  // namespace tarvokol
