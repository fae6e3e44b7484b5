// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/lifecycle.h"

#include <filesystem>

#include <gmock/gmock.h>
#include <unistd.h>

#include "core/platform/message_box.h"
#include "core/project/file_conversion.h"
#include "core/project/file_names.h"
#include "core/settings/configuration.h"
#include "core/settings/options_record.h"
#include "core/settings/program_settings.h"
#include "tests/support/failing_files.h"
#include "tests/unit/project/project_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class Lifecycle : public ProjectTest {
  protected:
    Lifecycle() {
        IniPath = PathTo("TARVOKOL.INI");
        DefaultUnitSystem = 0;
        ShowInputScreenOnLoad = KeepFileNames = 1;
        ShortRecentFiles = MaxLastFiles = 0;
        LastFile.Fill("");
        LastFileLong.Fill("");
        LastFileMode.Fill(0);
        DialogPaths.Fill("");
        DataPath = "/data/panels/";
        ExeNameUpper = "TARVOKOL";
        FileExtension = "TKL";
        OptionsRecord = EngineOptions{};
        OutputBuffers.Fill("");
    }

    std::string WriteProject(const std::string& name, const std::string& title = "title") {
        WriteBytes(PathTo(name), Joined(FileLines(title, {"text"})));
        return PathTo(name);
    }

    HeadlessMainWindow& Window() { return Host.MainWindow; }
};

TEST_F(Lifecycle, NewResetsTheProjectAndItsFlags) {
    FillRecord();
    ProjectFileName = "/a/b.TKL";
    ProjectTitle = ProjectDescription = "text";
    ProjectSaved = ProjectEmpty = 0;
    UnitsLocked = 255;
    UnitSystem = 0;
    DefaultUnitSystem = 1;
    OutputBuffers.Fill("page");
    EXPECT_FALSE(FileNew(true, true));
    EXPECT_EQ(ProjectFileName, "Untitled");
    EXPECT_EQ(UnitSystem, 1);
    EXPECT_EQ(ProjectSaved, 255);
    EXPECT_EQ(ProjectEmpty, 255);
    EXPECT_EQ(UnitsLocked, 0);
    EXPECT_EQ(ProjectFileMode, 1);
    EXPECT_EQ(ProjectTitle, "");
    EXPECT_EQ(ProjectDescription, "");
    EXPECT_EQ(OutputBuffers[0], "page");
    EXPECT_EQ(OutputBuffers[1], "");
    EXPECT_EQ(OutputBuffers[2], "");
    EXPECT_EQ(ProjectRecord.Height, 0);
    EXPECT_EQ(ProjectRecord.NumberHoles, 2);
    EXPECT_EQ(ProjectRecord.CrosscutSpacing, 1000000.0);
    EXPECT_EQ(ProjectRecord.CoalStrength, 900.0 / 145.0377);
    EXPECT_EQ(ProjectRecord.SpareSingle, 0.25f);
    EXPECT_EQ(Window().History, "1. File initialized. Use Edit-Project Parameters to enter data\r\n");
}

TEST_F(Lifecycle, NewKeepsNameAndUnitsUnlessAsked) {
    ProjectFileName = "/a/b.TKL";
    UnitSystem = 1;
    DefaultUnitSystem = 0;
    FileNew(false, false);
    EXPECT_EQ(ProjectFileName, "/a/b.TKL");
    EXPECT_EQ(UnitSystem, 1);
}

TEST_F(Lifecycle, NewCommandAsksNothingAndOpensTheParameters) {
    ProjectSaved = 0;
    FileNewCommand();
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(Window().Caption, "TARVO-KOL: Untitled");
    EXPECT_EQ(Window().ParametersOpened, 1);
    ShowInputScreenOnLoad = 0;
    FileNewCommand();
    EXPECT_EQ(Window().ParametersOpened, 1);
}

TEST_F(Lifecycle, OpenCommandReadsTheChosenFile) {
    const std::string path = WriteProject("one.TKL", "One");
    Host.Dialogs.FileAnswers = {path};
    FileOpenCommand();
    EXPECT_EQ(ProjectTitle, "One");
    EXPECT_EQ(ProjectFileName, path);
    EXPECT_EQ(PreviousFileName, "Untitled");
    EXPECT_EQ(DialogPaths[1], path);
    EXPECT_EQ(DialogPaths[2], "");
    EXPECT_EQ(LastFile[1], "one.TKL");
    EXPECT_EQ(LastFileLong[1], path);
    EXPECT_EQ(Window().ParametersOpened, 1);
    EXPECT_THAT(Window().Caption, EndsWith("/one.TKL"));
}

TEST_F(Lifecycle, OpenDialogIsPresetInFull) {
    ProjectFileName = "/old/place/panel.TKL";
    FileOpenCommand();
    ASSERT_EQ(Host.Dialogs.FileRequests.size(), 1u);
    const FileDialogRequest& request = Host.Dialogs.FileRequests[0];
    EXPECT_EQ(request.file_name, "panel.TKL");
    EXPECT_EQ(request.start_folder, "/data/panels");
    EXPECT_EQ(request.filter, "All Files (*.*)|*.*|TARVOKOL Files (*.TKL)|*.TKL");
    EXPECT_EQ(request.filter_index, 2);
    EXPECT_EQ(request.default_extension, "TKL");
    EXPECT_EQ(request.max_file_size, 300);
    EXPECT_EQ(request.flags, 6144);
}

TEST_F(Lifecycle, SaveDialogAsksBeforeOverwriting) {
    FileSaveCommand(true);
    ASSERT_EQ(Host.Dialogs.FileRequests.size(), 1u);
    EXPECT_EQ(Host.Dialogs.FileRequests[0].flags, 2);
    EXPECT_EQ(Host.Dialogs.FileRequests[0].file_name, "Untitled");
}

TEST_F(Lifecycle, DialogStartsWhereItLastWasElseInTheDataPath) {
    std::string path = "/last/time.TKL";
    EXPECT_EQ(RaisedError([&] { ShowFileDialog(1, path); }), 32755);
    EXPECT_EQ(Host.Dialogs.FileRequests[0].start_folder, "/last/time.TKL");
    EXPECT_EQ(path, "/last/time.TKL");
    path.clear();
    DataPath = "/data/panels";
    EXPECT_EQ(RaisedError([&] { ShowFileDialog(1, path); }), 32755);
    EXPECT_EQ(Host.Dialogs.FileRequests[1].start_folder, "");
    ProjectFileName = "  ";
    EXPECT_EQ(RaisedError([&] { ShowFileDialog(1, path); }), 32755);
    EXPECT_EQ(Host.Dialogs.FileRequests[2].file_name, "");
    EXPECT_EQ(ProjectFileName, "  ");
}

TEST_F(Lifecycle, CancelledOpenIsSilentAndLeavesTheBareName) {
    ProjectFileName = "/old/panel.TKL";
    ProjectTitle = "kept";
    FileOpenCommand();
    EXPECT_TRUE(DialogCancelled);
    EXPECT_EQ(ProjectFileName, "panel.TKL");
    EXPECT_EQ(ProjectTitle, "kept");
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(Window().History, "1. Cancel was selected\r\n");
}

TEST_F(Lifecycle, ACancelledDialogLeavesTheNextOneItsWay) {
    const std::string path = WriteProject("one.TKL", "One");
    FileOpenCommand();
    FileSaveCommand(true);
    EXPECT_TRUE(DialogCancelled);
    Host.Dialogs.FileAnswers = {path, PathTo("two.TKL")};
    FileOpenCommand();
    EXPECT_FALSE(DialogCancelled);
    EXPECT_EQ(ProjectTitle, "One");
    FileSaveCommand(true);
    EXPECT_EQ(ProjectFileName, PathTo("two.TKL"));
    EXPECT_TRUE(std::filesystem::exists(PathTo("two.TKL")));
}

// The program's own folder is the current one: a project's bare name must never end up there.
TEST_F(Lifecycle, CancelledOpenThenSaveWritesIntoTheProjectsFolder) {
    std::filesystem::create_directories(PathTo("mine"));
    std::filesystem::create_directories(PathTo("program"));
    Host.Dialogs.FileAnswers = {WriteProject("mine/panel.TKL")};
    FileOpenCommand();
    ProjectTitle = "another title";
    FileOpenCommand();  // cancelled
    EXPECT_EQ(ProjectFileName, "panel.TKL");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(PathTo("program"));
    FileSaveCommand(false);
    std::filesystem::current_path(before);
    EXPECT_THAT(ReadBytes(PathTo("mine/panel.TKL")), HasSubstr("\r\nanother title\r\n"));
    EXPECT_TRUE(std::filesystem::is_empty(PathTo("program")));
    EXPECT_EQ(ProjectFileName, PathTo("mine/panel.TKL"));
    EXPECT_THAT(Window().History, HasSubstr("Saving: " + PathTo("mine/panel.TKL") + "\r\n"));
}

TEST_F(Lifecycle, AConvertedProjectIsSavedBesideItsOriginal) {
    std::filesystem::create_directories(PathTo("mine"));
    Host.Dialogs.FileAnswers = {WriteProject("mine/panel.TKL")};
    FileOpenCommand();
    const std::string original = ReadBytes(PathTo("mine/panel.TKL"));
    ConvertTargetUnits = 1;
    ConvertProject();
    EXPECT_EQ(ProjectFileName, "Metric_panel.TKL");
    FileSaveCommand(false);
    EXPECT_TRUE(std::filesystem::exists(PathTo("mine/Metric_panel.TKL")));
    EXPECT_EQ(ReadBytes(PathTo("mine/panel.TKL")), original);
}

TEST_F(Lifecycle, ABareNameThatComesFromNoFileGoesToTheDataFolder) {
    std::filesystem::create_directories(PathTo("data"));
    DataPath = PathTo("data");
    FileNew(true, true);
    ProjectFileName = "panel.TKL";
    FileSaveCommand(false);
    EXPECT_TRUE(std::filesystem::exists(PathTo("data/panel.TKL")));
}

TEST_F(Lifecycle, ABareNameStaysWhereItCannotBeSaved) {
    DataPath = PathTo("gone");
    ProjectFileName = "panel.TKL";
    FileSaveCommand(false);
    EXPECT_EQ(ProjectFileName, "panel.TKL");
    EXPECT_FALSE(std::filesystem::exists("panel.TKL"));
}

TEST_F(Lifecycle, OpenWithUnsavedWorkAsksByThePreviousName) {
    ProjectFileName = "/old/panel.TKL";
    ProjectSaved = 0;
    Host.Dialogs.FileAnswers = {WriteProject("one.TKL")};
    FileOpenCommand();
    ASSERT_THAT(Messages(), ElementsAre("Save changes to: /old/panel.TKL?"));
    EXPECT_EQ(Host.Messages.Shown[0].style, 292);
    EXPECT_EQ(ProjectTitle, "title");
    EXPECT_EQ(ProjectSaved, 255);
}

TEST_F(Lifecycle, OpenAfterYesSavesThePreviousProjectFirst) {
    ProjectFileName = PathTo("old.TKL");
    ProjectTitle = "old work";
    ProjectSaved = 0;
    const std::string chosen = WriteProject("one.TKL");
    Host.Dialogs.FileAnswers = {chosen};
    Host.Messages.Answers = {box_result::Yes};
    FileOpenCommand();
    EXPECT_THAT(ReadBytes(PathTo("old.TKL")), HasSubstr("\r\nold work\r\n"));
    EXPECT_EQ(ProjectFileName, chosen);
    EXPECT_EQ(ProjectTitle, "title");
}

TEST_F(Lifecycle, OpenAfterYesAndACancelledSaveDialogGoesOn) {
    ProjectSaved = 0;
    const std::string chosen = WriteProject("one.TKL");
    Host.Dialogs.FileAnswers = {chosen, ""};
    Host.Messages.Answers = {box_result::Yes};
    FileOpenCommand();
    EXPECT_EQ(Host.Dialogs.FileRequests.size(), 2u);
    EXPECT_EQ(ProjectFileName, chosen);
    EXPECT_EQ(ProjectTitle, "title");
}

TEST_F(Lifecycle, RefusedFileHasAlreadyResetTheProject) {
    FillRecord();
    ProjectTitle = "gone";
    ProjectSaved = 255;
    ProjectEmpty = 0;
    UnitSystem = 1;
    UpdateMainCaption();
    WriteBytes(PathTo("foreign.TKL"), "TARVOKOL_100\r\n");
    Host.Dialogs.FileAnswers = {PathTo("foreign.TKL")};
    FileOpenCommand();
    EXPECT_THAT(Messages(), ElementsAre("Invalid file format"));
    EXPECT_EQ(ProjectFileName, PathTo("foreign.TKL"));
    EXPECT_EQ(ProjectTitle, "");
    EXPECT_EQ(ProjectRecord.Height, 0);
    EXPECT_EQ(UnitSystem, 0);
    EXPECT_EQ(ProjectSaved, 255);
    EXPECT_EQ(ProjectEmpty, 255);
    EXPECT_EQ(Window().Caption, "TARVO-KOL: Untitled");
    EXPECT_EQ(Window().Pointer, MousePointer::Default);
    EXPECT_EQ(LastFile[1], "");
    EXPECT_EQ(Window().ParametersOpened, 0);
    FileSaveCommand(false);
    EXPECT_EQ(ReadBytes(PathTo("foreign.TKL")).substr(0, 12), "TARVOKOL_101");
}

TEST_F(Lifecycle, MetricFileOpensMetricWhateverTheDefault) {
    UnitSystem = 1;
    FillRecord();
    ProjectFileName = PathTo("metric.TKL");
    FileSave();
    DefaultUnitSystem = 0;
    UnitSystem = 0;
    EXPECT_TRUE(FileOpen());
    EXPECT_EQ(UnitSystem, 1);
}

TEST_F(Lifecycle, RetryReadsFromTheStartAndCancelGivesUp) {
    ProjectFileName = "x.TKL";
    Host.Dialogs.FileAnswers = {PathTo("gone.TKL")};
    Host.Messages.Answers = {box_result::Retry, box_result::Cancel};
    FileOpenCommand();
    EXPECT_THAT(Messages(),
                ElementsAre("Error occurred: File not found (53)", "Error occurred: File not found (53)"));
    EXPECT_THAT(Window().History, HasSubstr("2. Opening: "));
    EXPECT_THAT(Window().History, HasSubstr("6. Opening: "));
    EXPECT_EQ(Window().Pointer, MousePointer::Hourglass);
    EXPECT_EQ(LastFile[1], "");
    EXPECT_EQ(Window().ParametersOpened, 0);
    EXPECT_FALSE(DialogCancelled);
}

TEST_F(Lifecycle, FolderInPlaceOfAFileEndsTheCommand) {
    Host.Dialogs.FileAnswers = {Folder.string()};
    FileOpenCommand();
    EXPECT_THAT(Messages(), ElementsAre("Error occurred: Path/File access error (75). Procedure Terminated"));
}

TEST_F(Lifecycle, SaveOfANamedProjectShowsNoDialog) {
    ProjectFileName = PathTo("named.TKL");
    ProjectSaved = 0;
    FileSaveCommand(false);
    EXPECT_THAT(Host.Dialogs.FileRequests, IsEmpty());
    EXPECT_EQ(ProjectSaved, 255);
    EXPECT_EQ(LastFile[1], "named.TKL");
    EXPECT_EQ(Window().ParametersOpened, 0);
}

TEST_F(Lifecycle, SaveOfAnUntitledProjectShowsTheDialog) {
    int count = 0;
    for (const char* name : {"Untitled", "UNTITLED", "uNtItLeD", ""}) {
        ProjectFileName = name;
        Host.Dialogs.FileAnswers = {PathTo("given.TKL")};
        EXPECT_TRUE(FileMenuSave(false));
        EXPECT_EQ(Host.Dialogs.FileRequests.size(), static_cast<std::size_t>(++count));
        EXPECT_EQ(ProjectFileName, PathTo("given.TKL"));
        EXPECT_EQ(DialogPaths[2], PathTo("given.TKL"));
    }
}

TEST_F(Lifecycle, CancelledSaveAsSavesNothing) {
    ProjectFileName = PathTo("named.TKL");
    ProjectSaved = 0;
    EXPECT_FALSE(FileMenuSave(true));
    EXPECT_EQ(ProjectSaved, 0);
    EXPECT_FALSE(std::filesystem::exists(PathTo("named.TKL")));
}

TEST_F(Lifecycle, FailedSaveChangesNeitherCaptionNorList) {
    ProjectFileName = PathTo("full.TKL");
    ProjectSaved = 0;
    Window().Caption = "before";
    const FailingFiles fault({.folder = Folder.string(), .at = 1, .kind = FaultKind::Full});
    Host.Messages.Answers = {box_result::Retry, box_result::Cancel};
    FileSaveCommand(false);
    EXPECT_THAT(Messages(), ElementsAre("Error occurred: Disk full (61)", "Error occurred: Disk full (61)"));
    EXPECT_EQ(Window().Caption, "before");
    EXPECT_EQ(LastFile[1], "");
    EXPECT_EQ(ProjectSaved, 0);
}

TEST_F(Lifecycle, CaptionShowsFiftyCharactersWholeAndShortens51) {
    ProjectFileName = std::string(50, 'n');
    UpdateMainCaption();
    EXPECT_EQ(Window().Caption, "TARVO-KOL: " + std::string(50, 'n'));
    ProjectFileName = "0123456789abcd" + std::string(37, 'z');
    UpdateMainCaption();
    EXPECT_EQ(Window().Caption, "TARVO-KOL: 0123456789..." + std::string(37, 'z'));
}

TEST_F(Lifecycle, CaptionCountsCharactersAndMarksUnsavedWork) {
    std::string name;
    for (int i = 0; i < 50; ++i) name += "\xC3\xA4";
    ProjectFileName = name;
    ProjectSaved = 0;
    UpdateMainCaption();
    EXPECT_EQ(Window().Caption, "TARVO-KOL: " + name + "*");
}

TEST(FileName, IsWhatStandsBehindTheLastSeparator) {
    EXPECT_EQ(FileNameOf("C:\\mines\\panel.TKL", 0), "panel.TKL");
    EXPECT_EQ(FileNameOf("/mines/panel.TKL", 0), "panel.TKL");
    EXPECT_EQ(FileNameOf("/mines\\panel.TKL", 0), "panel.TKL");
    EXPECT_EQ(FileNameOf("panel", 0), "panel");
    EXPECT_EQ(FileNameOf("", 0), "");
    EXPECT_EQ(FileNameOf("", 1), "");
}

TEST(FileName, LosesEverythingFromItsFirstPoint) {
    EXPECT_EQ(FileNameOf("/v1.2/panel.old.TKL", 1), "panel");
    EXPECT_EQ(FileNameOf("/v1.2/.panel.TKL", 1), ".panel.TKL");
    EXPECT_EQ(FileNameOf("/v1.2/panel", -1), "panel");
    EXPECT_EQ(FileNameOf("panel.", 1), "panel");
}

TEST_F(Lifecycle, NameThatEndsInASeparatorIsAnError) {
    EXPECT_EQ(FileNameOf("C:\\mines\\", 0), "");
    EXPECT_EQ(FileNameOf("/mines/north/", 0), "");
    EXPECT_EQ(FileNameOf("\\", 0), "");
    EXPECT_THAT(Messages(), ElementsAre("Error in filename: mines\\", "Error in filename: north/",
                                        "Error in filename: \\"));
    EXPECT_EQ(Host.Messages.Shown[0].style, 0);
}

}  // namespace
}  // namespace tarvokol
