// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/settings/frmPath.h"

#include <QPushButton>
#include <QRadioButton>

#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "desktop/base/file_lists.h"
#include "tests/support/gui_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SelectPath : public GuiTest {
  protected:
    SelectPath() {
        for (const char* name : {"home", "program", "current", "temp"})
            std::filesystem::create_directory(PathTo(name));
        PersonalDataFolder = PathTo("home") + "/";
        AppFolder = PathTo("program") + "/";
        TempDataFolder = PathTo("temp") + "/";
        ChosenPath = PathTo("current") + "/";
    }

    frmPath& Open() {
        ShowAndActivate(frmPath::Instance());
        return frmPath::Instance();
    }
    static FolderList& Dir(QWidget& form) { return Find<FolderList>(form, "Dir1"); }
    static DriveList& Drives(QWidget& form) { return Find<DriveList>(form, "Drive1"); }
    static bool IsOn(QWidget& form, const std::string& name) {
        return Find<QRadioButton>(form, name).isChecked();
    }
};

TEST_F(SelectPath, NamesEveryControl) {
    frmPath& form = Open();
    EXPECT_EQ(form.windowTitle(), "Select Path");
    EXPECT_EQ(TextOf(form, "Option1_0"), "User home");
    EXPECT_EQ(TextOf(form, "Option1_1"), "Application ");
    EXPECT_EQ(TextOf(form, "Option1_2"), "Current");
    EXPECT_EQ(TextOf(form, "Option1_3"), "User temporary");
    EXPECT_EQ(TextOf(form, "Command2"), "OK");
    EXPECT_EQ(TextOf(form, "Command1"), "Cancel");
    EXPECT_EQ(TextOf(form, "Command3"), "Help");
}

TEST_F(SelectPath, StartsOnTheChosenPath) {
    frmPath& form = Open();
    EXPECT_TRUE(IsOn(form, "Option1_2"));
    EXPECT_EQ(Dir(form).Folder(), PathTo("current"));
    EXPECT_EQ(Dir(form).currentIndex().data().toString(), "current");
}

TEST_F(SelectPath, TheFoldersBesideTheCurrentOneStandInOrder) {
    ChosenPath = PathTo("temp") + "/";
    frmPath& form = Open();
    const auto siblings = [&form] {
        const QModelIndex parent = Dir(form).currentIndex().parent();
        std::vector<std::string> names;
        for (int row = 0; row < Dir(form).model()->rowCount(parent); ++row)
            names.push_back(FromQt(Dir(form).model()->index(row, 0, parent).data().toString()));
        return names;
    };
    EXPECT_TRUE(WaitUntil([&] {
        return siblings() == std::vector<std::string>{"current", "home", "program", "temp"};
    })) << ::testing::PrintToString(siblings());
    EXPECT_EQ(Dir(form).Folder(), PathTo("temp"));
}

TEST_F(SelectPath, TheOptionsGoToTheirFolders) {
    frmPath& form = Open();
    Click(form, "Option1_0");
    EXPECT_EQ(Dir(form).Folder(), PathTo("home"));
    Click(form, "Option1_1");
    EXPECT_EQ(Dir(form).Folder(), PathTo("program"));
    Click(form, "Option1_3");
    EXPECT_EQ(Dir(form).Folder(), PathTo("temp"));
    Click(form, "Option1_2");
    EXPECT_EQ(Dir(form).Folder(), PathTo("current"));
    EXPECT_EQ(ChosenPath, PathTo("current") + "/");
}

TEST_F(SelectPath, TheChosenOptionLeadsBackToItsFolder) {
    frmPath& form = Open();
    Dir(form).SetFolder(PathTo("temp"));
    Click(form, "Option1_2");
    EXPECT_EQ(Dir(form).Folder(), PathTo("current"));
    Click(form, "Option1_0");
    Dir(form).SetFolder(PathTo("temp"));
    Find<QRadioButton>(form, "Option1_0").setFocus();
    Press(form, Qt::Key_Space);
    EXPECT_EQ(Dir(form).Folder(), PathTo("home"));
}

TEST_F(SelectPath, PicturesOfTheListShowTheCurrentFolder) {
    for (int i = 0; i < 60; ++i) std::filesystem::create_directory(PathTo("beside" + std::to_string(i)));
    // Looks behind every picture of the list: rows that come between it and the look move the current one once more.
    class BehindPaints : public QObject {
      public:
        bool eventFilter(QObject* watched, QEvent* event) override {
            if (event->type() != QEvent::Paint || shown) return false;
            auto* viewport = static_cast<QWidget*>(watched);
            auto& list = static_cast<FolderList&>(*viewport->parentWidget());
            QTimer::singleShot(0, &list, [this, viewport, &list] {
                shown = viewport->rect().contains(list.visualRect(list.currentIndex()));
            });
            return false;
        }
        bool shown = false;
    } look;
    frmPath& form = frmPath::Instance();
    Dir(form).viewport()->installEventFilter(&look);
    ShowAndActivate(form);
    EXPECT_TRUE(WaitUntil([&] { return look.shown; }));
}

TEST_F(SelectPath, OkLeavesTheFolderWithASeparator) {
    frmPath& form = Open();
    Click(form, "Option1_3");
    Click(form, "Command2");
    RunEvents();
    EXPECT_FALSE(frmPath::IsLoaded());
    EXPECT_EQ(ChosenPath, PathTo("temp") + "/");
}

TEST_F(SelectPath, EnterIsOk) {
    frmPath& form = Open();
    Click(form, "Option1_0");
    Press(form, Qt::Key_Return);
    EXPECT_EQ(ChosenPath, PathTo("home") + "/");
}

TEST_F(SelectPath, CancelAndEscapeLeaveThePath) {
    Click(Open(), "Option1_0");
    Click(frmPath::Instance(), "Command1");
    EXPECT_EQ(ChosenPath, PathTo("current") + "/");
    RunEvents();
    Click(Open(), "Option1_0");
    Press(frmPath::Instance(), Qt::Key_Escape);
    EXPECT_FALSE(frmPath::IsLoaded());
    EXPECT_EQ(ChosenPath, PathTo("current") + "/");
}

TEST_F(SelectPath, TheRootFolderKeepsItsOneSeparator) {
    ChosenPath = "/";
    Click(Open(), "Command2");
    EXPECT_EQ(ChosenPath, "/");
}

TEST_F(SelectPath, AHiddenFolderCanBeTheChosenPath) {
    std::filesystem::create_directories(PathTo(".hidden/data"));
    ChosenPath = PathTo(".hidden/data");
    frmPath& form = Open();
    EXPECT_EQ(Dir(form).currentIndex().data().toString(), "data");
    Click(form, "Command2");
    EXPECT_EQ(ChosenPath, PathTo(".hidden/data") + "/");
}

TEST_F(SelectPath, APathIsTakenWithoutItsDetours) {
    ChosenPath = PathTo("home/../temp//");
    Click(Open(), "Command2");
    EXPECT_EQ(ChosenPath, PathTo("temp") + "/");
}

TEST_F(SelectPath, AFolderThatIsGoneIsPassedOver) {
    frmPath& form = Open();
    PersonalDataFolder = PathTo("gone") + "/";
    Click(form, "Option1_0");
    EXPECT_TRUE(std::filesystem::is_directory(Dir(form).Folder()));
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_TRUE(UnhandledErrors().empty());
}

TEST_F(SelectPath, AChosenPathThatIsGoneOpensAllTheSame) {
    ChosenPath = "what the user typed";
    frmPath& form = Open();
    EXPECT_TRUE(std::filesystem::is_directory(Dir(form).Folder()));
    EXPECT_TRUE(UnhandledErrors().empty());
}

TEST_F(SelectPath, ADriveTakesTheFoldersWithIt) {
    frmPath& form = Open();
    DriveList& drives = Drives(form);
    ASSERT_GE(drives.count(), 1);
    drives.addItem("other", ToQt(PathTo("home")));
    drives.setFocus();
    Press(form, Qt::Key_End);
    EXPECT_EQ(Dir(form).Folder(), PathTo("home"));
}

TEST_F(SelectPath, ADriveThatCannotBeReadIsPassedOver) {
    frmPath& form = Open();
    Drives(form).addItem("empty slot", ToQt(PathTo("no disk")));
    Drives(form).setFocus();
    Press(form, Qt::Key_End);
    EXPECT_EQ(Dir(form).Folder(), PathTo("current"));
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_TRUE(UnhandledErrors().empty());
}

TEST_F(SelectPath, TheRootOfTheSystemIsADrive) {
    EXPECT_GE(Drives(Open()).findData("/"), 0);
}

TEST_F(SelectPath, AFolderIsChosenInTheTree) {
    std::filesystem::create_directory(PathTo("current/inner"));
    frmPath& form = Open();
    FolderList& dir = Dir(form);
    const QModelIndex current = dir.currentIndex();
    ASSERT_TRUE(WaitUntil([&] { return dir.model()->rowCount(current) == 1; }));
    const QModelIndex inner = current.model()->index(0, 0, current);
    dir.scrollTo(inner);
    QTest::mouseClick(dir.viewport(), Qt::LeftButton, Qt::NoModifier, dir.visualRect(inner).center());
    EXPECT_EQ(dir.Folder(), PathTo("current/inner"));
    dir.setFocus();
    Press(form, Qt::Key_Return);
    EXPECT_TRUE(frmPath::IsLoaded());
    Click(form, "Command2");
    EXPECT_EQ(ChosenPath, PathTo("current/inner") + "/");
}

TEST_F(SelectPath, HelpShowsTheHint) {
    Click(Open(), "Command3");
    EXPECT_THAT(Messages(), ElementsAre("Position the cursor on any item on the form and press F1 for "
                                        "context-sensitive Help"));
}

}  // namespace
}  // namespace tarvokol
