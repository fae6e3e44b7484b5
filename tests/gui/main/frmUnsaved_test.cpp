// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/main/frmUnsaved.h"

#include <QPushButton>
#include <QScrollBar>
#include <QTreeWidget>

#include "core/project/project_file.h"
#include "core/project/recovery_copy.h"
#include "desktop/base/form_registry.h"
#include "tests/support/main_window_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class UnsavedProjects : public MainWindowTest {
  protected:
    UnsavedProjects() {
        std::filesystem::create_directory(Folder / "temp");
        TempDataFolder = PathTo("temp/");
        ProjectExtension = FileExtension = "TKL";
        Start();
        WriteProject("panel.TKL");
        FileNew(true, true);
    }
    ~UnsavedProjects() override { DropRecoveryCopy(); }

    std::string Leave(const std::string& name, double height, const TypedTexts& typed = {}) {
        EnterProject();
        ProjectFileName = PathTo("panel.TKL");
        ProjectRecord.Height = height;
        const std::string path = PathTo("temp/~unsaved " + name + " 1-1.TKL");
        WriteBytes(path, ProjectFileText() + TextOfNote({PathTo("panel.TKL"), typed}));
        FileNew(true, true);
        return path;
    }

    static QTreeWidget& List(FormBase& form) { return Find<QTreeWidget>(form, "lstCopies"); }
};

TEST_F(UnsavedProjects, AreNotAskedAboutWhereThereAreNone) {
    EXPECT_FALSE(OfferLeftCopies());
    EXPECT_EQ(FindForm("frmUnsaved"), nullptr);
}

TEST_F(UnsavedProjects, AreListedAndOpenedUnderTheirOwnName) {
    const std::string path = Leave("panel", 7.5);
    WhenShown("frmUnsaved", [&](FormBase& form) {
        EXPECT_EQ(form.windowTitle(), "Unsaved projects of earlier runs");
        ASSERT_EQ(List(form).topLevelItemCount(), 1);
        const QTreeWidgetItem& row = *List(form).topLevelItem(0);
        EXPECT_EQ(row.text(0).toStdString(), PathTo("panel.TKL"));
        EXPECT_EQ(row.text(1).size(), 19);
        EXPECT_EQ(row.text(2), "extraction height");
        Press(form, Qt::Key_Return);
    });
    EXPECT_TRUE(OfferLeftCopies());
    EXPECT_EQ(ProjectFileName, PathTo("panel.TKL"));
    EXPECT_EQ(ProjectRecord.Height, 7.5);
    EXPECT_EQ(ProjectSaved, 0);
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_THAT(frmMain::Instance().windowTitle().toStdString(), ::testing::EndsWith("panel.TKL*"));
}

TEST_F(UnsavedProjects, ComeUpWithWhatStoodTyped) {
    Leave("panel", 7.5, {"frmTARVOParm", {{"txtHeight", "8,25"}, {"txtSFBarrier", "abc"}, {"gone", "x"}}});
    WhenShown("frmUnsaved", [](FormBase& form) { Click(form, "cmdOpen"); });
    EXPECT_TRUE(OfferLeftCopies());
    FormBase* dialog = FindForm("frmTARVOParm");
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(TextOf(*dialog, "txtHeight"), "8,25");
    EXPECT_EQ(TextOf(*dialog, "txtSFBarrier"), "abc");
    EXPECT_EQ(TextOf(*dialog, "txtDepthCover"), "100");
    EXPECT_FALSE(frmMain::Instance().isEnabled());
    dialog->Unload();
    EXPECT_EQ(NoteOf(ReadBytes(RecoveryCopyPath())).typed.dialog, "");
}

TEST_F(UnsavedProjects, TheDescriptionComesUpWithWhatStoodTyped) {
    Leave("panel", 7.5, {"frmTARVODesc", {{"Text1", "North"}, {"Text2", "a\r\nb"}}});
    WhenShown("frmUnsaved", [](FormBase& form) { Click(form, "cmdOpen"); });
    WhenShown("frmTARVODesc", [](FormBase& form) {
        EXPECT_EQ(TextOf(form, "Text1"), "North");
        Click(form, "Command2");
    });
    EXPECT_TRUE(OfferLeftCopies());
    EXPECT_EQ(ProjectTitle, "North");
    EXPECT_EQ(ProjectDescription, "a\r\nb");
}

TEST_F(UnsavedProjects, StayWhereTheyAreKept) {
    const std::string path = Leave("panel", 7.5);
    WhenShown("frmUnsaved", [](FormBase& form) { Press(form, Qt::Key_Escape); });
    EXPECT_FALSE(OfferLeftCopies());
    EXPECT_TRUE(std::filesystem::exists(path));
    EXPECT_EQ(ProjectFileName, "Untitled");
    EXPECT_EQ(ProjectSaved, 255);
}

TEST_F(UnsavedProjects, AreRemovedAfterAQuestion) {
    const std::string one = Leave("one", 7.5), two = Leave("two", 8), three = Leave("three", 9);
    Host.Messages.Answers = {7, 6};
    WhenShown("frmUnsaved", [&](FormBase& form) {
        List(form).selectAll();
        EXPECT_FALSE(Find<QPushButton>(form, "cmdOpen").isEnabled());
        Click(form, "cmdRemove");
        EXPECT_EQ(List(form).topLevelItemCount(), 3);
        Click(form, "cmdRemove");
    });
    EXPECT_FALSE(OfferLeftCopies());
    EXPECT_THAT(Messages(), ElementsAre("Remove 3 unsaved copies?\r\nWhat is in no file is lost then.",
                                        "Remove 3 unsaved copies?\r\nWhat is in no file is lost then."));
    for (const std::string& path : {one, two, three}) EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(UnsavedProjects, OfThreeHundredScroll) {
    for (int i = 0; i < 300; ++i) Leave("p" + std::to_string(i), 7);
    WhenShown("frmUnsaved", [](FormBase& form) {
        EXPECT_EQ(List(form).topLevelItemCount(), 300);
        EXPECT_LE(form.height(), 600);
        EXPECT_TRUE(List(form).verticalScrollBar()->isVisible());
        Click(form, "cmdKeep");
    });
    EXPECT_FALSE(OfferLeftCopies());
    EXPECT_THAT(Messages(), IsEmpty());
}

}  // namespace
}  // namespace tarvokol
