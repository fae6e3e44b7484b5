// SPDX-License-Identifier: GPL-3.0-or-later
// The few actions that end the program: the unsaved project is kept first, with what was typed, and the box
// says where.
#include "core/project/preview_record.h"
#include "core/report/results_state.h"
#include "core/settings/options_record.h"
#include "desktop/base/form_registry.h"
#include "desktop/plan/frmPicture.h"
#include "qt/session/program_application.h"
#include "tests/support/main_window_fixture.h"

namespace tarvokol {
namespace {

struct End {
    const char* name;
    int error;
    std::function<void()> act;
    std::string kept = "\r\n6\r\n100\r\n";  // of the project: height and depth
};

void PrintTo(const End& end, std::ostream* out) {
    *out << end.name;
}

class EndsByError : public MainWindowTest, public ::testing::WithParamInterface<End> {
  public:
    static void ChooseInMainWindow(const char* command) {
        FindForm("frmMain")->findChild<QAction*>(command)->trigger();
    }

    static void OpenPlotWindow() {
        LoadWorkParms();
        ResultsReturn = results_return::Normal;
        FormNamed("frmPicture").ShowModeless();
        RunEvents();
    }

    static void SizeWithAngle(const char* angle) {
        ChooseInMainWindow("mnuEditItem_1");
        FormBase& dialog = *FindForm("frmTARVOParm");
        Find<QLineEdit>(dialog, "txtHeight").setText("7.5");
        Find<QLineEdit>(dialog, "txtAbutmentAngleActiveGob").setText(angle);
        Click(dialog, "cmdSize");
    }

  protected:
    // Ends the process, unless the action does not.
    void ActUnsaved() {
        TempDataFolder = PathTo("");
        Start();
        EnterProject();
        ProjectFileName = "ridge.TKL";
        ProjectSaved = 0;
        auto* application = static_cast<ProgramApplication*>(qApp);
        application->SetErrorSink({});
        application->Run(GetParam().act);
        RunEvents();
    }

    std::vector<std::string> Copies() const {
        std::vector<std::string> copies;
        for (const auto& entry : std::filesystem::directory_iterator(Folder))
            if (entry.path().filename().string().starts_with("~unsaved "))
                copies.push_back(entry.path().string());
        return copies;
    }
};

TEST_P(EndsByError, WithTheUnsavedProjectKept) {
    testing::FLAGS_gtest_death_test_style = "fast";
    EXPECT_EXIT(ActUnsaved(), testing::ExitedWithCode(1),
                "Run-time error '" + std::to_string(GetParam().error) +
                    "':\r\n\r\n[^\r]+\r\n\r\nThe unsaved project is kept in: " + PathTo("") +
                    "~unsaved ridge [0-9]+-[0-9]+\\.TKL");
    const std::vector<std::string> copies = Copies();
    ASSERT_EQ(copies.size(), 1u);
    EXPECT_THAT(ReadBytes(copies.front()), ::testing::HasSubstr(GetParam().kept));
}

const End kEnds[] = {
    {"LongPath", 5,
     [] {
         ProjectFileName = std::string(70, 'p') + "/ridge.TKL";
         EndsByError::ChooseInMainWindow("mnuCalcItem_0");
     }},
    {"BlankAngle", 13, [] { EndsByError::SizeWithAngle(""); }, "\r\n7.5\r\n100\r\n"},
    // What stands typed comes back as it was typed, for there it can be mended.
    {"CommaInAngle", 13, [] { EndsByError::SizeWithAngle("4,5"); },
     "\r\nBox txtAbutmentAngleActiveGob=4,5\r\n"},
    {"CurveFromADepthOfZero", 11,
     [] {
         OptionsRecord.PlotRangeMin = 0;
         EndsByError::ChooseInMainWindow("mnuCalcGrafItem_1");
     }},
};

INSTANTIATE_TEST_SUITE_P(Ends, EndsByError, ::testing::ValuesIn(kEnds),
                         [](const auto& end) { return std::string(end.param.name); });

}  // namespace
}  // namespace tarvokol
