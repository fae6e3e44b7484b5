// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/output/frmTextBrow.h"

#include <QCheckBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include "core/messages/history_log.h"
#include "core/messages/titles.h"
#include "core/program/start_up.h"
#include "core/report/text_browser.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "core/settings/text_browse_settings.h"
#include "desktop/base/file_lists.h"
#include "tests/support/gui_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class TextBrowser : public GuiTest {
  protected:
    TextBrowser() {
        ResetProgram();
        for (const char* name : {"data", "other", "temp"}) std::filesystem::create_directory(PathTo(name));
        WriteBytes(PathTo("data/a.TKL"), "first\r\nsecond\r\n");
        WriteBytes(PathTo("data/b.tkl"), "of b");
        WriteBytes(PathTo("data/c.txt"), "of c");
        DataPath = PathTo("data") + "/";
        TempDataFolder = PathTo("temp") + "/";
        IniPath = PathTo("TARVOKOL.INI");
        DisplayHistoryWin = 1;
        MaxDisplaySize = 16384;
        ErrorTitle = "Error";
    }

    frmTextBrow& Open() {
        ShowAndActivate(frmTextBrow::Instance());
        return frmTextBrow::Instance();
    }
    void Close() {
        Click(frmTextBrow::Instance(), "Command1");
        RunEvents();
        EXPECT_FALSE(frmTextBrow::IsLoaded());
    }

    static FileList& Files(QWidget& form) { return Find<FileList>(form, "File1"); }
    static FolderList& Dir(QWidget& form) { return Find<FolderList>(form, "Dir1"); }

    // Names in the list from top to bottom.
    static std::vector<std::string> Listed(QWidget& form) {
        std::vector<std::string> names;
        const FileList& files = Files(form);
        for (int row = 0; row < files.model()->rowCount(files.rootIndex()); ++row)
            names.push_back(FromQt(files.model()->index(row, 0, files.rootIndex()).data().toString()));
        return names;
    }
    static bool Lists(QWidget& form, const std::vector<std::string>& names) {
        return WaitUntil([&] { return Listed(form) == names; });
    }

    // A click on the file's line in the list.
    static void Select(QWidget& form, const std::string& name) {
        FileList& files = Files(form);
        const QPoint at = PointOf(form, name);
        files.setFocus();
        QTest::mouseClick(files.viewport(), Qt::LeftButton, Qt::NoModifier, at);
    }
    static void DoubleClick(QWidget& form, const std::string& name) {
        Select(form, name);
        QTest::mouseDClick(Files(form).viewport(), Qt::LeftButton, Qt::NoModifier, PointOf(form, name));
    }
    static QPoint PointOf(QWidget& form, const std::string& name) {
        FileList& files = Files(form);
        QModelIndex index;
        const bool found = WaitUntil([&] {
            const QModelIndexList hits =
                files.model()->match(files.model()->index(0, 0, files.rootIndex()), Qt::DisplayRole,
                                     ToQt(name), 1, Qt::MatchExactly);
            if (!hits.isEmpty()) index = hits.front();
            return index.isValid() && !files.visualRect(index).isEmpty();
        });
        EXPECT_TRUE(found) << name;
        files.scrollTo(index);
        return files.visualRect(index).center();
    }
    static bool HasLabel(QWidget& form, const std::string& text) {
        for (const QLabel* label : form.findChildren<QLabel*>())
            if (FromQt(label->text().remove('&')) == text) return true;
        return false;
    }

    void ExpectBox(std::size_t index, const std::string& message, int style) {
        ASSERT_GT(Host.Messages.Shown.size(), index);
        EXPECT_EQ(Host.Messages.Shown[index].message, message);
        EXPECT_EQ(Host.Messages.Shown[index].style, style);
        EXPECT_EQ(Host.Messages.Shown[index].title, "Error");
    }
};

TEST_F(TextBrowser, NamesEveryControl) {
    frmTextBrow& form = Open();
    EXPECT_EQ(form.windowTitle(), "View Source Files");
    for (const char* label : {"Select Drive:", "Select Folder:", "Select File:", "Pattern:", "Current file:",
                              "View of Selected File"})
        EXPECT_TRUE(HasLabel(form, label)) << label;
    EXPECT_EQ(TextOf(form, "Check1"), "Use external viewer");
    EXPECT_EQ(TextOf(form, "cmdSetFont"), "Set &Font");
    EXPECT_EQ(TextOf(form, "Command1"), "OK");
    EXPECT_EQ(TextOf(form, "Label1"), "");
    EXPECT_TRUE(Find<QPlainTextEdit>(form, "RichTextBox1").isReadOnly());
}

TEST_F(TextBrowser, AnEmptyPatternBecomesThatOfTheDataFiles) {
    BrowseDefaultFilter = "  ";
    frmTextBrow& form = Open();
    EXPECT_EQ(TextOf(form, "Text2"), "*.TKL");
    EXPECT_EQ(BrowseDefaultFilter, "*.TKL");
    EXPECT_TRUE(Lists(form, {"a.TKL", "b.tkl"}));
    EXPECT_EQ(Dir(form).Folder(), PathTo("data"));
    EXPECT_EQ(form.focusWidget(), &Find(form, "Command1"));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TextBrowser, TheStoredPatternHolds) {
    BrowseDefaultFilter = "c*";
    frmTextBrow& form = Open();
    EXPECT_EQ(TextOf(form, "Text2"), "c*");
    EXPECT_TRUE(Lists(form, {"c.txt"}));
}

TEST_F(TextBrowser, APatternFiltersWhileItIsTyped) {
    frmTextBrow& form = Open();
    Type(form, "Text2", "*.txt");
    EXPECT_TRUE(Lists(form, {"c.txt"}));
    Type(form, "Text2", "*.*");
    EXPECT_TRUE(Lists(form, {"a.TKL", "b.tkl", "c.txt"}));
    Type(form, "Text2", "?.tkl;*.TXT");
    EXPECT_TRUE(Lists(form, {"a.TKL", "b.tkl", "c.txt"}));
    EXPECT_THAT(Messages(), ElementsAre());
}

TEST_F(TextBrowser, AHalfTypedPatternGoesToTheErrorRoutine) {
    frmTextBrow& form = Open();
    Type(form, "Text2", "c");
    ExpectBox(0, "Error occurred: File not found (53)", 5);
    EXPECT_TRUE(Lists(form, {}));
    Type(form, "Text2", "nowhere/");
    ExpectBox(Messages().size() - 1, "Error occurred: Path not found (76). Procedure Terminated", 0);
    EXPECT_TRUE(frmTextBrow::IsLoaded());
    EXPECT_TRUE(UnhandledErrors().empty());
}

TEST_F(TextBrowser, ANameOfAFileThatThePatternHidesSelectsTheFile) {
    frmTextBrow& form = Open();
    ASSERT_TRUE(Lists(form, {"a.TKL", "b.tkl"}));
    Find<QLineEdit>(form, "Text2").setText("c.txt");
    EXPECT_TRUE(WaitUntil([&] { return Files(form).FileName() == "c.txt"; }));
    EXPECT_THAT(Messages(), IsEmpty());
    Files(form).setFocus();
    Press(form, Qt::Key_Return);
    EXPECT_EQ(TextOf(form, "Label1"), PathTo("data/c.txt"));
}

TEST_F(TextBrowser, EnterInThePatternAppliesItAndLeavesTheFormOpen) {
    frmTextBrow& form = Open();
    Type(form, "Text2", "*.txt");
    Press(form, Qt::Key_Return);
    EXPECT_TRUE(Lists(form, {"c.txt"}));
    EXPECT_TRUE(frmTextBrow::IsLoaded());
    Press(form, Qt::Key_Enter);
    EXPECT_TRUE(frmTextBrow::IsLoaded());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TextBrowser, ALongPathOfTheCurrentFileKeepsItsName) {
    const std::string folder = PathTo("data/" + std::string(180, 'd'));
    std::filesystem::create_directory(folder);
    WriteBytes(folder + "/long.TKL", "text");
    DataPath = folder;
    frmTextBrow& form = Open();
    DoubleClick(form, "long.TKL");
    auto& label = Find<QLabel>(form, "Label1");
    EXPECT_TRUE(label.text().endsWith("/long.TKL")) << FromQt(label.text());
    EXPECT_LE(label.fontMetrics().horizontalAdvance(label.text()), label.width());
    EXPECT_EQ(label.toolTip(), ToQt(folder + "/long.TKL"));
}

TEST_F(TextBrowser, ADoubleClickShowsTheFile) {
    frmTextBrow& form = Open();
    DoubleClick(form, "a.TKL");
    EXPECT_EQ(TextOf(form, "Label1"), PathTo("data/a.TKL"));
    EXPECT_EQ(TextOf(form, "RichTextBox1"), "first\nsecond\n");
    EXPECT_FALSE(Find(form, "lblCut").isVisible());
}

TEST_F(TextBrowser, EnterInTheListShowsTheFileAndLeavesTheFormOpen) {
    frmTextBrow& form = Open();
    ASSERT_TRUE(Lists(form, {"a.TKL", "b.tkl"}));
    Select(form, "b.tkl");
    EXPECT_EQ(TextOf(form, "Label1"), "");
    Press(form, Qt::Key_Return);
    EXPECT_EQ(TextOf(form, "Label1"), PathTo("data/b.tkl"));
    EXPECT_EQ(TextOf(form, "RichTextBox1"), "of b");
    Press(form, Qt::Key_Up);
    Press(form, Qt::Key_Enter);
    EXPECT_EQ(TextOf(form, "RichTextBox1"), "first\nsecond\n");
    EXPECT_TRUE(frmTextBrow::IsLoaded());
}

TEST_F(TextBrowser, EnterWithoutAFileDoesNothing) {
    frmTextBrow& form = Open();
    Type(form, "Text2", "*.none");
    EXPECT_TRUE(Lists(form, {}));
    Files(form).setFocus();
    Press(form, Qt::Key_Return);
    EXPECT_TRUE(frmTextBrow::IsLoaded());
    EXPECT_EQ(TextOf(form, "Label1"), "");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TextBrowser, TheViewerGetsACopyAndNeverTheFile) {
    ExternalEditor = "xedit -ro";
    frmTextBrow& form = Open();
    DoubleClick(form, "b.tkl");
    Click(form, "Check1");
    DoubleClick(form, "a.TKL");
    EXPECT_THAT(Host.TheShell.Started, ElementsAre("xedit -ro|" + PathTo("temp/~tmpbr.tmp")));
    EXPECT_EQ(ReadBytes(PathTo("temp/~tmpbr.tmp")), "first\r\nsecond\r\n");
    WriteBytes(PathTo("temp/~tmpbr.tmp"), "edited");
    EXPECT_EQ(ReadBytes(PathTo("data/a.TKL")), "first\r\nsecond\r\n");
    EXPECT_EQ(TextOf(form, "Label1"), PathTo("data/a.TKL"));
    EXPECT_EQ(TextOf(form, "RichTextBox1"), "");
}

TEST_F(TextBrowser, AViewerThatDoesNotStartIsIgnored) {
    class NoViewer : public HeadlessShell {
        void StartViewer(const std::string&, const std::string&) override { Raise(53); }
    } shell;
    Platform.TheShell = &shell;
    BrowseUseNotepad = 1;
    DoubleClick(Open(), "a.TKL");
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_TRUE(UnhandledErrors().empty());
    EXPECT_TRUE(frmTextBrow::IsLoaded());
}

TEST_F(TextBrowser, WithoutACopyNoViewerIsStarted) {
    BrowseUseNotepad = 1;
    TempDataFolder = PathTo("gone") + "/";
    DoubleClick(Open(), "a.TKL");
    ExpectBox(0, "Error occurred: Path not found (76). Procedure Terminated", 0);
    EXPECT_THAT(Host.TheShell.Started, IsEmpty());
}

TEST_F(TextBrowser, AFileThatIsGoneIsToldByTheCopyAndNoViewerIsStarted) {
    BrowseUseNotepad = 1;
    frmTextBrow& form = Open();
    Select(form, "a.TKL");
    std::filesystem::remove(PathTo("data/a.TKL"));
    Press(form, Qt::Key_Return);
    ExpectBox(0, "Requested File not found: " + PathTo("data/a.TKL"), 0);
    EXPECT_THAT(Host.TheShell.Started, IsEmpty());
    EXPECT_EQ(TextOf(form, "Label1"), PathTo("data/a.TKL"));
    EXPECT_TRUE(frmTextBrow::IsLoaded());
}

TEST_F(TextBrowser, TheCopyEndsItsLastLine) {
    BrowseUseNotepad = 1;
    ExternalEditor = "xedit";
    DoubleClick(Open(), "b.tkl");
    EXPECT_EQ(ReadBytes(PathTo("temp/~tmpbr.tmp")), "of b\r\n");
    EXPECT_EQ(ReadBytes(PathTo("data/b.tkl")), "of b");
}

TEST_F(TextBrowser, TheFontButtonRestsWhileTheViewerIsUsed) {
    frmTextBrow& form = Open();
    EXPECT_TRUE(Find(form, "cmdSetFont").isEnabled());
    Click(form, "Check1");
    EXPECT_FALSE(Find(form, "cmdSetFont").isEnabled());
    Click(form, "Check1");
    EXPECT_TRUE(Find(form, "cmdSetFont").isEnabled());
}

TEST_F(TextBrowser, TheStoredChoiceOfTheViewerHoldsFromTheStart) {
    BrowseUseNotepad = 1;
    frmTextBrow& form = Open();
    EXPECT_TRUE(Find<QCheckBox>(form, "Check1").isChecked());
    EXPECT_FALSE(Find(form, "cmdSetFont").isEnabled());
}

TEST_F(TextBrowser, TheFontIsChosenAppliedAndKept) {
    BrowseFontName = "Courier New";
    BrowseFontSize = 11;
    BrowseFontBold = -1;
    BrowseFontItalic = 0;
    Host.Dialogs.FontAnswers = {{"Arial", 16.0f, false, true}};
    frmTextBrow& form = Open();
    auto& box = Find<QPlainTextEdit>(form, "RichTextBox1");
    EXPECT_EQ(box.font().family(), "Courier New");
    EXPECT_EQ(box.font().pointSizeF(), 11.0);
    EXPECT_TRUE(box.font().bold());
    Click(form, "cmdSetFont");
    ASSERT_EQ(Host.Dialogs.FontStarts.size(), 1u);
    EXPECT_EQ(Host.Dialogs.FontStarts[0].name, "Courier New");
    EXPECT_EQ(Host.Dialogs.FontStarts[0].size, 11.0f);
    EXPECT_TRUE(Host.Dialogs.FontStarts[0].bold);
    EXPECT_FALSE(Host.Dialogs.FontStarts[0].italic);
    EXPECT_EQ(box.font().family(), "Arial");
    EXPECT_EQ(box.font().pointSizeF(), 16.0);
    EXPECT_FALSE(box.font().bold());
    EXPECT_TRUE(box.font().italic());
    EXPECT_EQ(BrowseFontName, "Arial");
    EXPECT_EQ(BrowseFontSize, 16.0f);
    EXPECT_EQ(BrowseFontBold, 0);
    EXPECT_EQ(BrowseFontItalic, -1);
}

TEST_F(TextBrowser, ACancelledFontDialogIsLoggedAndChangesNothing) {
    BrowseFontName = "Arial";
    Click(Open(), "cmdSetFont");
    EXPECT_EQ(BrowseFontName, "Arial");
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(Host.MainWindow.History, "1. Cancel was selected\r\n");
}

TEST_F(TextBrowser, AFileThatIsGoneGoesToTheErrorRoutine) {
    frmTextBrow& form = Open();
    DoubleClick(form, "b.tkl");
    Select(form, "a.TKL");
    std::filesystem::remove(PathTo("data/a.TKL"));
    Press(form, Qt::Key_Return);
    ExpectBox(0, "Error occurred: File not found (53)", 5);
    EXPECT_THAT(Host.MainWindow.History, HasSubstr("1. Error  53:File not found\r\n"));
    EXPECT_EQ(TextOf(form, "RichTextBox1"), "");
    EXPECT_TRUE(frmTextBrow::IsLoaded());
}

TEST_F(TextBrowser, AFolderInTheTreeListsItsFiles) {
    WriteBytes(PathTo("other/x.tkl"), "of x");
    frmTextBrow& form = Open();
    FolderList& dir = Dir(form);
    const QModelIndex parent = dir.currentIndex().parent();
    QModelIndex other;
    ASSERT_TRUE(WaitUntil([&] {
        const QModelIndexList hits =
            dir.model()->match(dir.model()->index(0, 0, parent), Qt::DisplayRole, QString("other"), 1);
        if (!hits.isEmpty()) other = hits.front();
        return other.isValid();
    }));
    dir.scrollTo(other);
    QTest::mouseClick(dir.viewport(), Qt::LeftButton, Qt::NoModifier, dir.visualRect(other).center());
    EXPECT_EQ(dir.Folder(), PathTo("other"));
    EXPECT_TRUE(Lists(form, {"x.tkl"}));
    DoubleClick(form, "x.tkl");
    EXPECT_EQ(TextOf(form, "Label1"), PathTo("other/x.tkl"));
}

TEST_F(TextBrowser, ADriveTakesFoldersAndFilesWithIt) {
    WriteBytes(PathTo("other/x.tkl"), "of x");
    frmTextBrow& form = Open();
    auto& drives = Find<DriveList>(form, "Drive1");
    drives.addItem("other", ToQt(PathTo("other")));
    drives.setFocus();
    Press(form, Qt::Key_End);
    EXPECT_EQ(Dir(form).Folder(), PathTo("other"));
    EXPECT_TRUE(Lists(form, {"x.tkl"}));
}

TEST_F(TextBrowser, ADriveThatIsNotReadyGoesToTheErrorRoutine) {
    frmTextBrow& form = Open();
    auto& drives = Find<DriveList>(form, "Drive1");
    drives.addItem("empty slot", ToQt(PathTo("no disk")));
    drives.setFocus();
    Press(form, Qt::Key_End);
    ExpectBox(0, "Error occurred: Path not found (76). Procedure Terminated", 0);
    EXPECT_EQ(Dir(form).Folder(), PathTo("data"));
    EXPECT_TRUE(UnhandledErrors().empty());
}

TEST_F(TextBrowser, ClosingSavesItsSectionAndKeepsTheFolderForTheRun) {
    frmTextBrow& form = Open();
    Type(form, "Text2", "*.txt");
    Click(form, "Check1");
    Dir(form).SetFolder(PathTo("other"));
    Close();
    EXPECT_EQ(BrowseDefaultFilter, "*.txt");
    EXPECT_EQ(BrowseUseNotepad, 1);
    EXPECT_EQ(BrowseFolder, PathTo("other"));
    EXPECT_EQ(Host.MainWindow.History, "1. Saving default settings to file: " + IniPath + "\r\n");
    const std::string ini = ReadBytes(IniPath);
    for (const char* line : {"[TextBrowse]", "BrowseDefaultFilter=*.txt", "BrowseUseNotepad=1"})
        EXPECT_THAT(ini, HasSubstr(line));
    EXPECT_THAT(ini, ::testing::Not(HasSubstr("[Settings]")));
    EXPECT_THAT(ini, ::testing::Not(HasSubstr(PathTo("other"))));
    EXPECT_EQ(Dir(Open()).Folder(), PathTo("other"));
}

TEST_F(TextBrowser, EscapeAndTheWindowsCloseSaveToo) {
    Press(Open(), Qt::Key_Escape);
    EXPECT_FALSE(frmTextBrow::IsLoaded());
    EXPECT_TRUE(std::filesystem::exists(IniPath));
    RunEvents();
    std::filesystem::remove(IniPath);
    Open().close();
    EXPECT_TRUE(std::filesystem::exists(IniPath));
}

TEST_F(TextBrowser, ANewRunForgetsTheFolder) {
    BrowseFolder = PathTo("other");
    ResetProgram();
    EXPECT_EQ(BrowseFolder, "");
}

TEST_F(TextBrowser, AFolderThatIsGoneIsToldAndTheFormOpens) {
    BrowseFolder = PathTo("gone");
    frmTextBrow& form = Open();
    ExpectBox(0, "Error occurred: Path not found (76). Procedure Terminated", 0);
    EXPECT_TRUE(std::filesystem::is_directory(Dir(form).Folder()));
    EXPECT_TRUE(UnhandledErrors().empty());
}

TEST_F(TextBrowser, ThePatternSelectsItsTextOnFocus) {
    frmTextBrow& form = Open();
    auto& box = Find<QLineEdit>(form, "Text2");
    box.setFocus();
    EXPECT_EQ(box.selectedText(), "*.TKL");
}

TEST_F(TextBrowser, ALongFileIsShownToItsEndAndTheWindowLives) {
    std::string text;
    while (text.size() < 3000000) text += "a line of text\n";
    WriteBytes(PathTo("data/long.tkl"), text + "the end");
    frmTextBrow& form = Open();
    DoubleClick(form, "long.tkl");
    EXPECT_EQ(TextOf(form, "lblCut"), "Loading: 17 %");  // the first of three MiB, of reading and showing
    EXPECT_TRUE(WaitUntil([&] { return !Find(form, "lblCut").isVisible(); }));
    EXPECT_TRUE(TextOf(form, "RichTextBox1") == text + "the end");
    EXPECT_EQ(Find<QPlainTextEdit>(form, "RichTextBox1").textCursor().position(), 0);
}

TEST_F(TextBrowser, AnotherFileEndsTheLoadingOfALongOne) {
    WriteBytes(PathTo("data/long.tkl"), std::string(5000000, '\n'));
    frmTextBrow& form = Open();
    DoubleClick(form, "long.tkl");
    DoubleClick(form, "b.tkl");
    const std::string shown = TextOf(form, "RichTextBox1");
    RunEvents();
    EXPECT_EQ(TextOf(form, "RichTextBox1"), shown);
    EXPECT_FALSE(Find(form, "lblCut").isVisible());
    DoubleClick(form, "long.tkl");
    Press(form, Qt::Key_Escape);
    RunEvents();
    EXPECT_FALSE(frmTextBrow::IsLoaded());
}

TEST_F(TextBrowser, AFileThatMemoryCannotHoldIsToldAndBinaryIsShown) {
    WriteBytes(PathTo("data/big.tkl"), std::string(1200000, '\x01'));
    frmTextBrow& form = Open();
    DoubleClick(form, "big.tkl");
    EXPECT_TRUE(WaitUntil(
        [&] { return TextOf(form, "lblCut") == "Very long lines are continued in the next line."; }));
    form.grab();
    std::filesystem::resize_file(PathTo("data/big.tkl"), 1073741824);
    DoubleClick(form, "big.tkl");
    EXPECT_THAT(Messages().back(), HasSubstr("Out of memory (7)"));
    EXPECT_EQ(TextOf(form, "RichTextBox1"), "");
    EXPECT_FALSE(Find(form, "lblCut").isVisible());
}

}  // namespace
}  // namespace tarvokol
