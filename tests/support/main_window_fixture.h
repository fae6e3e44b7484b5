// SPDX-License-Identifier: GPL-3.0-or-later
// The main window with its real binding, in a folder of the test's own, settings as after start-up, start
// forms off.
#pragma once

#include "core/messages/history_log.h"
#include "core/program/start_up.h"
#include "core/project/lifecycle.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "core/settings/option_settings.h"
#include "desktop/main/frmMain.h"
#include "desktop/main/main_window_binding.h"
#include "tests/support/gui_fixture.h"
#include "tests/support/recording_printer.h"

namespace tarvokol {

class MainWindowTest : public GuiTest {
  protected:
    MainWindowTest() {
        ResetProgram();
        AppFolder = Folder.string() + "/";
        IniPath = PathTo("TARVOKOL.INI");
        TempDataFolder = Folder.string() + "/";
        HelpFileName = "TARVOKOL.CHM";
        DisplayHistoryWin = 1;
        MaxDisplaySize = 4096;
        ShowDisclaim = 0;
        RemindAnnualUpdates = 0;
        ShowInputScreenOnLoad = 0;
        Platform.MainWindow = &binding_;
        Platform.Printer = &Printer;
    }
    ~MainWindowTest() override {
        UnloadAllForms();
        std::filesystem::current_path(std::filesystem::temp_directory_path());
    }

    // An entry of the menus by its control name.
    static QAction& Item(const std::string& name) { return Find<QAction>(frmMain::Instance(), name); }

    // The main window on the screen with a new project, as start-up leaves it.
    frmMain& Start() {
        frmMain& form = frmMain::Instance();
        FileNew(true, true);
        ShowAndActivate(form);
        return form;
    }

    // A project with data that passes the input check.
    static void EnterProject() {
        ProjectRecord.Height = 6;
        ProjectRecord.DepthCover = 100;
        ProjectRecord.HoleWidth = 9;
        ProjectRecord.WebThickness = 5;
        ProjectRecord.BarrierPillarWidth = 20;
        ProjectRecord.NumberHoles = 10;
        ProjectEmpty = 0;
    }

    std::string WriteProject(const std::string& name) {
        EnterProject();
        ProjectFileName = PathTo(name);
        FileMenuSave(false);
        return PathTo(name);
    }

    RecordingPrinter Printer;

  private:
    MainWindowBinding binding_;
};

}  // namespace tarvokol
