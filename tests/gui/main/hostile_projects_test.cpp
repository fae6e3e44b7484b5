// SPDX-License-Identifier: GPL-3.0-or-later
// Project files with a figure that no panel has, taken through every command that reads it: no run-time error
// is left unhandled, each of which would end the program, and the parameters dialog opens with what the file
// has.
#include <QRadioButton>
#include <array>
#include <fstream>

#include "core/runtime/numbers.h"
#include "core/settings/graph_settings.h"
#include "core/settings/program_name.h"
#include "desktop/base/form_registry.h"
#include "tests/support/curve_fixture.h"
#include "tests/support/main_window_fixture.h"

namespace tarvokol {
namespace {

// A figure of the project file by its line, and the box of the dialog that shows it as it stands.
struct FileFigure {
    const char* name;
    std::size_t line;
    const char* box = "";
};

constexpr FileFigure kFigures[] = {{"UnitSystem", 1},
                                   {"Height", 6, "txtHeight"},
                                   {"DepthCover", 7, "txtDepthCover"},
                                   {"HoleWidth", 8, "txtHoleWidth"},
                                   {"WebThickness", 9, "txtWebThickness"},
                                   {"BarrierPillarWidth", 10, "txtBarrierPillarWidth"},
                                   {"NumberHoles", 11},
                                   {"CrosscutAngle", 12},
                                   {"CrosscutSpacing", 13},
                                   {"CoalStrength", 14},
                                   {"UnitWeight", 15},
                                   {"AbutmentAngle", 16, "txtAbutmentAngleActiveGob"},
                                   {"SFWeb", 17},
                                   {"SFBarrier", 18},
                                   {"SpareSingle", 19}};

const std::vector<std::string> kTexts{"1E39",
                                      "-1E39",
                                      "3.4E38",
                                      "-3.4E38",
                                      "1E20",
                                      "1E200",
                                      "1E308",
                                      "1E400",
                                      "-1E400",
                                      "5E-324",
                                      "1E-300",
                                      "1E-40",
                                      std::string(400, '9'),
                                      "NaN",
                                      "inf",
                                      "",
                                      "0",
                                      "-1"};

void PrintTo(const FileFigure& figure, std::ostream* out) {
    *out << figure.name;
}

class HostileProject : public CurvesOn<MainWindowTest>, public ::testing::WithParamInterface<FileFigure> {
  protected:
    HostileProject() {
        PersonalDataFolder = DataPath = ChosenPath = Folder.string() + "/";
        ExeNameUpper = "TARVOKOL";
        FileExtension = "TKL";
        PlotXcutDims = 1;
        QObject::connect(&closer_, &QTimer::timeout, &closer_, [] { CloseModal(); });
        closer_.start(1);
    }

    static void CloseModal() {
        if (auto* modal = qobject_cast<FormBase*>(QApplication::activeModalWidget())) modal->Abandon();
    }

    std::string ProjectWith(const FileFigure& figure, const std::string& text) const {
        std::vector<std::string> lines{"TARVOKOL_101", " 0 ",         "Ridge 4", "##StartDesc##",
                                       "Bench",        "##EndDesc##", "10",      "100",
                                       "10",           "10",          "20",      " 5 ",
                                       "90",           "1000000",     "900",     "162",
                                       "21",           "1.6",         "2",       "0"};
        lines.at(figure.line) = text;
        std::ofstream file(PathTo("HOSTILE.TKL"), std::ios::binary);
        for (const std::string& line : lines) file << line << "\r\n";
        return PathTo("HOSTILE.TKL");
    }

    void OpenFile(frmMain& window, const std::string& path) {
        Host.Dialogs.FileAnswers.push_back(path);
        Choose(window, "mnuFileItem_1");
        Host.Dialogs.FileAnswers.clear();
    }

    // The command of a form that may not be there any more, and the end of whatever it opened above it.
    void Do(const std::string& form_name, const std::string& command) {
        FormBase* form = FindForm(form_name);
        if (form == nullptr || !form->isEnabled()) return;
        if (form->findChild<QAction*>(ToQt(command)) != nullptr)
            Choose(*form, command);
        else
            Click(*form, command);
        RunEvents();
    }

    static void Close(const std::string& form_name) {
        if (FormBase* form = FindForm(form_name)) form->Unload();
        RunEvents();
    }

    void LookAtPlan() {
        for (const char* choice :
             {"mnuPlotSetItem_0", "mnuPlotSetItem_1", "mnuPlotSetItem_2", "mnuEditItem_1", "mnuEditItem_2"})
            Do("frmPicture", choice);
        Close("frmPicture");
    }

    void LookAtResults() {
        Host.Dialogs.PrinterAnswers.assign(2, true);
        Do("frmResTxtPlt", "cmdPrintAll");
        Do("frmResTxtPlt", "cmdViewPlots");
        LookAtPlan();
        Close("frmResTxtPlt");
    }

    void WorkInDialog(const FileFigure& figure, const std::string& text) {
        Do("frmMain", "mnuEditItem_1");
        FormBase* dialog = FindForm("frmTARVOParm");
        ASSERT_NE(dialog, nullptr);
        if (*figure.box != '\0') {
            EXPECT_EQ(UnboundedParse(TextOf(*dialog, figure.box)), UnboundedParse(text));
        }
        for (const int16_t in_window : {0, 1}) {
            ViewChildWindow = in_window;
            Do("frmTARVOParm", "cmdView");
            LookAtPlan();
        }
        Do("frmTARVOParm", "cmdSize");
        Do("frmTARVOParm", "cmdResults");
        LookAtResults();
        Do("frmTARVOParm", "cmdOK");
        Close("frmTARVOParm");
    }

    void WorkInMainWindow() {
        for (const char* command :
             {"mnuFileItem_6", "mnuFileItem_7", "mnuCalcGrafItem_0", "mnuCalcGrafItem_1", "mnuCalcGrafItem_2",
              "mnuSizGrafItem_0", "mnuSizGrafItem_1", "mnuUtilItem_3", "mnuFileItem_2"}) {
            SCOPED_TRACE(command);
            Host.Dialogs.PrinterAnswers.assign(1, true);
            const std::size_t before = UnhandledErrors().size();
            Do("frmMain", command);
            EXPECT_EQ(UnhandledErrors().size(), before);
        }
        Do("frmMain", "mnuCalcItem_0");
        LookAtResults();
    }

    void Work(const FileFigure& figure, const std::string& text) {
        frmMain& window = Start();
        OpenFile(window, ProjectWith(figure, text));
        if (ProjectEmpty == 255) return;  // told, and not opened
        WorkInMainWindow();
        OpenFile(window, ProjectWith(figure, text));
        WorkInDialog(figure, text);
        ++opened_;
    }

    int opened_ = 0;
    QTimer closer_;  // of what a command opens modally
};

TEST_P(HostileProject, EndsNoProgram) {
    for (const std::string& text : kTexts) {
        SCOPED_TRACE("\"" + text.substr(0, 12) + "\"");
        Work(GetParam(), text);
        for (const RunTimeError& error : UnhandledErrors()) EXPECT_EQ(error.number, 0) << error.text;
        if (HasFailure()) return;
        ASSERT_TRUE(frmMain::Instance().isEnabled());
    }
    EXPECT_GT(opened_, 4);
}

using HostileFigureOfAProject = HostileProject;

TEST_P(HostileFigureOfAProject, IsRefusedByItsName) {
    frmMain& window = Start();
    OpenFile(window, ProjectWith(GetParam(), "1E300"));
    Do("frmMain", "mnuCalcGrafItem_1");
    EXPECT_EQ(Messages().back(), "Invalid depth of cover");
    Do("frmMain", "mnuCalcItem_0");
    EXPECT_EQ(Messages().back(), "Invalid depth of cover");
    EXPECT_EQ(FindForm("frmResTxtPlt"), nullptr);
    Do("frmMain", "mnuEditItem_1");
    EXPECT_EQ(TextOf(*FindForm("frmTARVOParm"), "txtDepthCover"), "1E+300");
}

INSTANTIATE_TEST_SUITE_P(Depth, HostileFigureOfAProject, ::testing::Values(kFigures[2]));

// The dialog has no box for it.
using HostileSpacingOfAProject = HostileProject;

TEST_P(HostileSpacingOfAProject, IsRefusedByThePlanAlone) {
    frmMain& window = Start();
    OpenFile(window, ProjectWith(GetParam(), "1E39"));
    Do("frmMain", "mnuEditItem_1");
    for (const char* button : {"cmdView", "cmdResults"}) {
        Do("frmTARVOParm", button);
        EXPECT_EQ(Messages().back(), "Invalid crosscut spacing") << button;
        EXPECT_TRUE(FindForm("frmTARVOParm")->isEnabled());
    }
    Close("frmTARVOParm");
    Do("frmMain", "mnuCalcItem_0");
    ASSERT_NE(FindForm("frmResTxtPlt"), nullptr);
    const std::size_t said = Messages().size();
    Do("frmResTxtPlt", "cmdViewPlots");
    EXPECT_EQ(Messages().size(), said + 1);
    EXPECT_EQ(Messages().back(), "Invalid crosscut spacing");
    EXPECT_EQ(FindForm("frmPicture"), nullptr);
    EXPECT_TRUE(UnhandledErrors().empty());
}

INSTANTIATE_TEST_SUITE_P(Spacing, HostileSpacingOfAProject, ::testing::Values(kFigures[8]));

using HostileHolesOfAProject = HostileProject;

TEST_P(HostileHolesOfAProject, AreRefusedByTheirNumberAndLeadBack) {
    frmMain& window = Start();
    OpenFile(window, ProjectWith(GetParam(), "25"));
    ASSERT_EQ(ProjectEmpty, 0);
    for (const char* command : {"mnuCalcItem_0", "mnuCalcGrafItem_0", "mnuCalcGrafItem_1",
                                "mnuCalcGrafItem_2", "mnuSizGrafItem_0", "mnuSizGrafItem_1"}) {
        Host.Messages.Shown.clear();
        Do("frmMain", command);
        EXPECT_THAT(Messages(),
                    ::testing::ElementsAre("Invalid number of Holes: 25. A panel has 1 to 20 holes."))
            << command;
        EXPECT_TRUE(window.isEnabled()) << command;
    }
    EXPECT_TRUE(UnhandledErrors().empty());
}

TEST_P(HostileHolesOfAProject, ConvertNothing) {
    frmMain& window = Start();
    OpenFile(window, ProjectWith(GetParam(), "25"));
    ProjectSaved = 255;
    Host.Messages.Shown.clear();
    closer_.stop();
    WhenShown("frmConvert", [](FormBase& form) { Click(form, "Command2"); });
    Do("frmMain", "mnuUtilItem_3");
    EXPECT_THAT(Messages(),
                ::testing::ElementsAre("Invalid number of Holes: 25. A panel has 1 to 20 holes."));
    EXPECT_EQ(UnitSystem, 0);
    EXPECT_EQ(ProjectRecord.Height, 10);
    EXPECT_TRUE(UnhandledErrors().empty());
}

TEST_P(HostileHolesOfAProject, FewerThanOneMakeNoPlan) {
    frmMain& window = Start();
    OpenFile(window, ProjectWith(GetParam(), "-3"));
    Do("frmMain", "mnuCalcItem_0");
    ASSERT_NE(FindForm("frmResTxtPlt"), nullptr);
    Host.Messages.Shown.clear();
    Do("frmResTxtPlt", "cmdViewPlots");
    EXPECT_THAT(Messages(),
                ::testing::ElementsAre("Invalid number of Holes: -3. A panel has 1 to 20 holes."));
    EXPECT_EQ(FindForm("frmPicture"), nullptr);
    EXPECT_TRUE(UnhandledErrors().empty());
}

INSTANTIATE_TEST_SUITE_P(Holes, HostileHolesOfAProject, ::testing::Values(kFigures[6]));

INSTANTIATE_TEST_SUITE_P(Figures, HostileProject, ::testing::ValuesIn(kFigures),
                         [](const auto& figure) { return std::string(figure.param.name); });

}  // namespace
}  // namespace tarvokol
