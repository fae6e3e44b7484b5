// SPDX-License-Identifier: GPL-3.0-or-later
// All that the forms of the settings show, read out and tell.
#include "core/settings/folders.h"
#include "desktop/base/form_registry.h"
#include "tests/support/form_facts.h"
#include "tests/support/main_window_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;
using ::testing::UnorderedElementsAreArray;

class SettingsTexts : public MainWindowTest {
  protected:
    SettingsTexts() { PersonalDataFolder = DataPath = ChosenPath = Folder.string() + "/"; }

    static std::vector<std::string> Facts(const char* name) {
        FormBase& form = FormNamed(name);
        ShowAndActivate(form);
        return FactsOf(form);
    }
};

TEST_F(SettingsTexts, OfTheSettings) {
    KeepFileNames = 0;
    EXPECT_THAT(
        Facts("frmSet"),
        UnorderedElementsAre(
            "frmSet 'Settings'", "Frame2 'Default units'",
            "optUnits_0 'ft, in, lbs, psi, pcf' tip 'Unit system of new projects' on",
            "optUnits_1 'm, cm, kN, MPa, kN/m3' tip 'Unit system of new projects'",
            "Frame3 'Data file options'", "Label1 '&Path:' for Text2",
            "Text2 read 'Path' tip 'Folder for project files'", "cmdSetPath 'Set / Change Path'",
            "Label2 'Default &extension for data files:' for Text1",
            "Text1 read 'Default extension for data files' tip 'Letters and digits; may be empty'",
            "Frame1 'External text (ASCII) viewer'", "Label3 '&Viewer spec:' for Text4",
            "Text4 read 'Viewer spec' tip 'Program that shows text files; options may follow its name'",
            "cmdSelect '&Select' tip 'Choose the program'", "cmdSetDefault 'Set Default'",
            "Frame4 'Miscellaneous options'", "chkDispHist 'Display command history window' on",
            "Label4 'Size of &command history window (chars)' for Text3",
            "Text3 read 'Size of command history window in characters' tip '4096 to 16384'",
            "Command5 '&History Font'", "chkKeepRecentFL 'Keep recent filelist'",
            "chkShortNames 'Short names in  file list' off", "chkShowDiscl 'Show disclaimer at start-up'",
            "chkMaxMenu 'Maximize main menu at start-up'", "chkEnableTB 'Enable toolbar' on",
            "chkLoadLastInputFile 'Load last input file'", "chkUpdate 'Reminder of annual updates'",
            "chkCopyExamples 'Copy example files' on", "cmdOK 'OK' default", "cmdCancel 'Cancel' cancel",
            "cmdHelp 'Help'"));
}

TEST_F(SettingsTexts, OfTheOptions) {
    EXPECT_THAT(
        Facts("frmTARVOOpts"),
        UnorderedElementsAre(
            "frmTARVOOpts 'Options'", "SSTab1 'Edit / Print Options|View / Plot Options|Output Options'",
            "Frame1 'Edit menu options'", "Check1 'Load the input form on file open / file new'",
            "Frame2 'Print options'", "Check3 'Print module version information' on",
            "Check8 'Print plot reminders in output' on", "Frame3 'Create a file association'",
            "cmdFileAssoc 'Create file association' tip 'Makes this program open project files from the "
            "desktop'",
            "Frame4 'Default Values'", "lbltxtDefaultAbutment '&Abutment angle (deg)' for txtDefaultAbutment",
            "txtDefaultAbutment read 'Abutment angle (deg)' tip '0 to 90, for new projects'",
            "lbltxtDefaultSFWeb 'Stability factor for &webs' for txtDefaultSFWeb",
            "txtDefaultSFWeb read 'Stability factor for webs' tip '1 to 6, for new projects'",
            "lbltxtDefaultSFBarrier 'Stability factor for &barriers' for txtDefaultSFBarrier",
            "txtDefaultSFBarrier read 'Stability factor for barriers' tip '1 to 6, for new projects'",
            "Frame5 'Plot Options'", "Check4 'Plot entry spacing dimensions' on",
            "Check5 'Plot crosscut spacing dimensions'", "Check7 'Dimension crosscut spacing ONCE' off",
            "Check6 'Dimension barriers and gobs'", "Frame6 'Plot gob width options'",
            "Option3_0 'Plot gob width to scale' on", "Option3_1 'Plot gob width schematically'",
            "Frame7 'View options'", "Check2 'View project file in child window' on",
            "Frame8 'Graph export options'", "chkOffice 'Do not ask if Microsoft Office is installed' on",
            "Frame9 'Range of parametric analysis'", "lblText1 'Mi&nimum value (%)' for Text1",
            "Text1 read 'Minimum value (%)' tip '0 to 100, below the maximum'",
            "lblText2 'Ma&ximum value (%)' for Text2",
            "Text2 read 'Maximum value (%)' tip '0 to 100, above the minimum'",
            "Frame10 'Output units (pressure/strength)'", "Option1_0 'psi' tip 'English projects' on",
            "Option1_1 'psf' tip 'English projects'", "Frame11 'Output units (load, load gradient)'",
            "Option2_0 'lbs,  lbs/ft' tip 'English projects'",
            "Option2_1 'tons, tons/ft' tip 'English projects' on", "Command2 'OK' default",
            "Command1 'Cancel' cancel", "Command3 'Help'"));
}

TEST_F(SettingsTexts, OfTheFileConversion) {
    EXPECT_THAT(
        Facts("frmConvert"),
        UnorderedElementsAre("frmConvert 'File Conversion Utility'", "Frame1 'Convert to'",
                             "Option1_0 'feet, psi, pcf' tip 'For a project in metric units' off",
                             "Option1_1 'meters, MPa, kN/m3' tip 'For a project in English units' on",
                             "Frame2 'After the conversion'", "Option2_0 'Load converted project ' on",
                             "Option2_1 'Keep original project' off",
                             "Command2 'Convert' tip 'Turns the open project into the other units' default",
                             "Command1 'Cancel' cancel", "Command3 'Help'"));
}

TEST_F(SettingsTexts, OfTheChoiceOfAFolder) {
    EXPECT_THAT(Facts("frmPath"),
                UnorderedElementsAre("frmPath 'Select Path'", "Drive1 read 'Drive'", "Dir1 read 'Folder'",
                                     "Option1_0 'User home'", "Option1_1 'Application '",
                                     "Option1_2 'Current' on", "Option1_3 'User temporary'",
                                     "Command2 'OK' default", "Command1 'Cancel' cancel", "Command3 'Help'"));
}

// A page of the unit conversion: its frame, the box of the value, and of each unit the option and the box of the result.
struct Page {
    std::string caption;
    std::string frame;
    std::string title;
    std::string input;
    struct Unit {
        std::string option;
        std::string caption;
        std::string box;
        std::string unit;
    };
    std::vector<Unit> units;
};

std::vector<std::string> LinesOf(const Page& page) {
    const std::string name = page.input.substr(3);
    std::vector<std::string> lines{
        page.frame + " '" + page.title + "'", "lbl" + name + " 'Value and unit:' for " + page.input,
        page.input + " read '" + page.caption + " value' tip 'Value in the unit that is chosen below'"};
    for (const auto& [option, caption, box, unit] : page.units) {
        const char* chosen = option.ends_with("_0") ? " on" : "";
        lines.push_back(option + " '" + caption + "' tip 'Unit of the value'" + chosen);
        lines.push_back(box + " read '" + page.caption + ": " + unit + "' locked grey");
        lines.push_back("lbl" + box + " '" + unit + "'");
    }
    return lines;
}

const Page kPages[] = {{"Length",
                        "Frame1",
                        "Length units",
                        "txtLength",
                        {{"Option2_0", "in", "Text7", "in"},
                         {"Option2_1", "ft", "Text8", "ft"},
                         {"Option2_2", "cm", "Text9", "cm"},
                         {"Option2_3", "m", "Text10", "m"}}},
                       {"Load",
                        "Frame2",
                        "Load units",
                        "txtLoad",
                        {{"Option5_0", "lbsF", "Text21", "lbsF"},
                         {"Option5_1", "tonsF (short)", "Text22", "tonsF"},
                         {"Option5_2", "kN", "Text23", "kN"},
                         {"Option5_3", "MN", "Text24", "MN"},
                         {"Option5_4", "kips", "Text25", "kips"}}},
                       {"Load Grad",
                        "Frame3",
                        "Load gradient units",
                        "txtLoadGrad",
                        {{"Option4_0", "lbsF/in", "Text17", "lbsF/in"},
                         {"Option4_1", "lbsF/ft", "Text18", "lbsF/ft"},
                         {"Option4_2", "kN/m", "Text19", "kN/m"},
                         {"Option4_3", "MN/m", "Text20", "MN/m"}}},
                       {"Stress",
                        "Frame4",
                        "Pressure/stress units",
                        "txtStress",
                        {{"Option1_0", "psi", "Text2", "psi"},
                         {"Option1_1", "ksi", "Text3", "ksi"},
                         {"Option1_2", "psf", "Text4", "psf"},
                         {"Option1_3", "Pa", "Text5", "Pa"},
                         {"Option1_4", "MPa", "Text6", "MPa"}}},
                       {"Stress Grad",
                        "Frame5",
                        "Pressure/stress gradient units",
                        "txtStressGrad",
                        {{"Option3_0", "psi/in", "Text12", "psi/in"},
                         {"Option3_1", "psi/ft", "Text13", "psi/ft"},
                         {"Option3_2", "Pa/m", "Text14", "Pa/m"},
                         {"Option3_3", "MPa/m", "Text15", "MPa/m"}}}};

TEST_F(SettingsTexts, OfTheUnitConversion) {
    std::vector<std::string> lines{"frmUnits 'Unit Conversions'",
                                   "SSTab1 'Length|Load|Load Grad|Stress|Stress Grad'",
                                   "Command1 'Close' default cancel", "Command3 'Help'"};
    for (const Page& page : kPages)
        for (const std::string& line : LinesOf(page)) lines.push_back(line);
    EXPECT_THAT(Facts("frmUnits"), UnorderedElementsAreArray(lines));
}

// --- the way of the tab key, through all pages

class SettingsTabKey : public SettingsTexts {
  protected:
    static std::vector<std::string> Chain(const char* name, const char* first) {
        FormBase& form = FormNamed(name);
        ShowAndActivate(form);
        return FocusChainOf(form, first);
    }
};

TEST_F(SettingsTabKey, OfTheSettings) {
    EXPECT_THAT(
        Chain("frmSet", "optUnits_0"),
        ElementsAre("optUnits_0", "optUnits_1", "Text2", "cmdSetPath", "Text1", "Text4", "cmdSelect",
                    "cmdSetDefault", "chkDispHist", "Text3", "Command5", "chkKeepRecentFL", "chkShortNames",
                    "chkShowDiscl", "chkMaxMenu", "chkEnableTB", "chkLoadLastInputFile", "chkUpdate",
                    "chkCopyExamples", "cmdOK", "cmdCancel", "cmdHelp"));
}

TEST_F(SettingsTabKey, OfTheOptions) {
    EXPECT_THAT(Chain("frmTARVOOpts", "SSTab1"),
                ElementsAre("SSTab1", "Check1", "Check3", "Check8", "cmdFileAssoc", "txtDefaultAbutment",
                            "txtDefaultSFWeb", "txtDefaultSFBarrier", "Check4", "Check5", "Check7", "Check6",
                            "Option3_0", "Option3_1", "Check2", "chkOffice", "Text1", "Text2", "Option1_0",
                            "Option1_1", "Option2_0", "Option2_1", "Command2", "Command1", "Command3"));
}

TEST_F(SettingsTabKey, OfTheFileConversion) {
    EXPECT_THAT(
        Chain("frmConvert", "Option1_0"),
        ElementsAre("Option1_0", "Option1_1", "Option2_0", "Option2_1", "Command2", "Command1", "Command3"));
}

TEST_F(SettingsTabKey, OfTheChoiceOfAFolder) {
    EXPECT_THAT(Chain("frmPath", "Drive1"),
                ElementsAre("Drive1", "Dir1", "Option1_0", "Option1_1", "Option1_2", "Option1_3", "Command2",
                            "Command1", "Command3"));
}

TEST_F(SettingsTabKey, OfTheUnitConversion) {
    std::vector<std::string> names{"SSTab1"};
    for (const Page& page : kPages) {
        names.push_back(page.input);
        for (const Page::Unit& unit : page.units) names.push_back(unit.option);
        for (const Page::Unit& unit : page.units) names.push_back(unit.box);
    }
    names.insert(names.end(), {"Command1", "Command3"});
    EXPECT_EQ(Chain("frmUnits", "SSTab1"), names);
}

// Narrower or lower than drawn, a form would hide what stands at its edge.
TEST_F(SettingsTexts, OpenInTheSizesThatAreDrawn) {
    EXPECT_EQ(FormNamed("frmPath").size(), QSize(480, 360));
    EXPECT_EQ(FormNamed("frmConvert").width(), 360);
    EXPECT_EQ(FormNamed("frmUnits").width(), 460);
    // The names of all pages stay in view, which takes more room in a wider font.
    const int options = FormNamed("frmTARVOOpts").width();
    EXPECT_TRUE(InAnotherFont() ? options > 480 : options == 480) << options;
}

}  // namespace
}  // namespace tarvokol
