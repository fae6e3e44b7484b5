// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/help/frmResource.h"

#include <QPushButton>

#include "core/messages/titles.h"
#include "core/program/program_help.h"
#include "core/program/start_up.h"
#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "core/settings/update_reminder.h"
#include "desktop/main/frmMain.h"
#include "tests/support/gui_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ResourceFilesForm : public GuiTest {
  protected:
    ResourceFilesForm() {
        FillResourceTables();
        AppFolder = Folder.string() + "/";
        AppLongTitle = "Tarvo Panel Stability Evaluation - KOL";
        for (int index = 0; index <= 4; ++index) WriteBytes(PathTo(ResourceFiles[index]), "%PDF-1.4");
    }

    static frmResource& Open() {
        ShowAndActivate(frmResource::Instance());
        return frmResource::Instance();
    }

    static QPushButton& Button(QWidget& form, int index) {
        return Find<QPushButton>(form, "cmdView_" + std::to_string(index));
    }
};

TEST_F(ResourceFilesForm, ShowsFiveTitlesInTwoColumns) {
    frmResource& form = Open();
    EXPECT_EQ(form.windowTitle(), "View Resource Files");
    EXPECT_EQ(Button(form, 0).text(), "Pillar strength and load model");
    EXPECT_EQ(Button(form, 1).text(), "Abutment load and its two cases");
    EXPECT_EQ(Button(form, 2).text(), "Sizing equations and their iteration");
    EXPECT_EQ(Button(form, 3).text(), "Units and conversions");
    EXPECT_EQ(Button(form, 4).text(), "A worked design, survey to layout");
    for (int index = 0; index <= 4; ++index) EXPECT_TRUE(Button(form, index).isVisible()) << index;
    for (int index = 5; index <= 7; ++index) EXPECT_FALSE(Button(form, index).isVisible()) << index;
    EXPECT_EQ(Button(form, 0).y(), Button(form, 1).y());
    EXPECT_LT(Button(form, 0).x(), Button(form, 1).x());
    EXPECT_EQ(Button(form, 0).x(), Button(form, 4).x());
}

TEST_F(ResourceFilesForm, EachButtonOpensItsNote) {
    frmResource& form = Open();
    for (int index = 0; index <= 4; ++index) Click(form, "cmdView_" + std::to_string(index));
    EXPECT_THAT(Host.TheShell.Opened,
                ElementsAre(AppFolder + "PillarStrength.pdf", AppFolder + "AbutmentLoad.pdf",
                            AppFolder + "SizingEquations.pdf", AppFolder + "UnitsConversions.pdf",
                            AppFolder + "WorkedDesign.pdf"));
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_TRUE(form.isVisible());
}

TEST_F(ResourceFilesForm, AMissingNoteIsToldAndNotLogged) {
    std::filesystem::remove(PathTo("SizingEquations.pdf"));
    Click(Open(), "cmdView_2");
    ASSERT_EQ(Host.Messages.Shown.size(), 1u);
    EXPECT_EQ(Host.Messages.Shown[0].message,
              "Resource file (" + AppFolder + "SizingEquations.pdf) not available");
    EXPECT_EQ(Host.Messages.Shown[0].style, 0);
    EXPECT_EQ(Host.MainWindow.History, "");
    EXPECT_THAT(Host.TheShell.Opened, IsEmpty());
}

TEST_F(ResourceFilesForm, ANoteThatNoProgramOpensIsToldAndNotLogged) {
    Host.TheShell.OpenResult = 32;
    Click(Open(), "cmdView_0");
    EXPECT_THAT(Messages(), ElementsAre("Operation Failed"));
    EXPECT_EQ(Host.Messages.Shown[0].style, 0);
    EXPECT_EQ(Host.MainWindow.History, "");
}

TEST_F(ResourceFilesForm, CloseAndEscapeCloseIt) {
    EXPECT_EQ(TextOf(Open(), "Command1"), "Close");
    Click(frmResource::Instance(), "Command1");
    EXPECT_FALSE(frmResource::IsLoaded());
    RunEvents();
    Press(Open(), Qt::Key_Escape);
    EXPECT_FALSE(frmResource::IsLoaded());
    EXPECT_EQ(Host.MainWindow.History, "");
}

TEST_F(ResourceFilesForm, IsModal) {
    WhenShown("frmResource", [&](FormBase& form) { Click(form, "Command1"); });
    frmResource::Instance().ShowModal();
    EXPECT_FALSE(frmResource::IsLoaded());
}

TEST_F(ResourceFilesForm, TheHelpMenuOpensIt) {
    ShowDisclaim = RemindAnnualUpdates = 0;
    ShowAndActivate(frmMain::Instance());
    WhenShown("frmResource", [&](FormBase& form) {
        Click(form, "cmdView_3");
        Click(form, "Command1");
    });
    ASSERT_TRUE(Choose(frmMain::Instance(), "mnuHelpItem_4"));
    EXPECT_THAT(Host.TheShell.Opened, ElementsAre(AppFolder + "UnitsConversions.pdf"));
    UnloadAllForms();
    std::filesystem::current_path(std::filesystem::temp_directory_path());
}

}  // namespace
}  // namespace tarvokol
