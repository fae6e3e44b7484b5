// SPDX-License-Identifier: GPL-3.0-or-later
// The window of the studies as its user has it: files, boxes, sliders, undo.
#include <QClipboard>

#include "core/platform/message_box.h"
#include "core/project/recovery_copy.h"
#include "tests/studies/window/studies_window_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

using StudiesWindowFiles = StudiesWindowTest;
using StudiesWindowFields = StudiesWindowTest;

// The worked project under a depth of cover.
std::string WorkedAtDepth(const std::string& depth) {
    std::string bytes = WorkedProjectBytes();
    return bytes.replace(bytes.find("\r\n100\r\n"), 7, "\r\n" + depth + "\r\n");
}

TEST_F(StudiesWindowFields, F1OpensTheHelpAtThePageThatShows) {
    auto& pages = Find<QTabWidget>("Pages");
    for (int page = 0; page < 4; ++page) {
        pages.setCurrentIndex(page);
        QTest::keyClick(window.get(), Qt::Key_F1);
    }
    pages.setCurrentIndex(0);
    EXPECT_THAT(Host.Help.Calls,
                ElementsAre(EndsWith(" studies_window.htm#map"), EndsWith(" studies_window.htm#risk"),
                            EndsWith(" studies_window.htm#table"), EndsWith(" studies_window.htm#compare")));
}

TEST_F(StudiesWindowFields, ShowsTheProjectAndItsFigures) {
    EXPECT_EQ(FromQt(window->windowTitle()), "panel.TKL[*] \u2013 TARVO-KOL Studies");
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_EQ(TextOf("Title_Box"), "Worked panel");
    EXPECT_EQ(TextOf("DepthCover_Box"), "100");
    EXPECT_EQ(TextOf("DepthCover_Low"), "50");
    EXPECT_EQ(TextOf("DepthCover_High"), "150");
    EXPECT_EQ(TextOf("Figure_WebsOnly"), "4.71999");
    EXPECT_EQ(TextOf("Figure_ExtractionRatio"), "45.4545 percent");
    EXPECT_FALSE(Find<QAction>("actUndo").isEnabled());
}

TEST_F(StudiesWindowFields, FiguresFollowWhatIsTyped) {
    Type("DepthCover_Box", "300");
    EXPECT_EQ(TextOf("Figure_WebsOnly"), "\u25bc 1.57333, below 1.6");
    EXPECT_TRUE(Find("Figure_WebsOnly").font().bold());
    EXPECT_TRUE(window->isWindowModified());
    EXPECT_EQ(FromQt(Find<QAction>("actUndo").text()), "&Undo: Depth of cover");
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(TextOf("DepthCover_Box"), "100");
    EXPECT_FALSE(Find("Figure_WebsOnly").font().bold());
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_TRUE(Choose("actRedo"));
    EXPECT_EQ(TextOf("DepthCover_Box"), "300");
}

TEST_F(StudiesWindowFields, WhatIsBeingTypedStays) {
    Type("DepthCover_Box", "120.");
    EXPECT_EQ(TextOf("DepthCover_Box"), "120.");
    EXPECT_EQ(TextOf("Figure_WebsOnly"), "3.93333");
    Find("Height_Box").setFocus();
    EXPECT_EQ(TextOf("DepthCover_Box"), "120");
}

TEST_F(StudiesWindowFields, WhatIsNoFigureIsToldBelowItsField) {
    Type("DepthCover_Box", "12x");
    EXPECT_TRUE(Find("DepthCover_Fault").isVisible());
    EXPECT_EQ(TextOf("DepthCover_Fault"), "\u26a0 \"12x\" is no number; the project keeps 12");
    Type("DepthCover_Box", "-4");
    EXPECT_EQ(TextOf("DepthCover_Fault"), "\u26a0 Invalid depth of cover");
    EXPECT_EQ(TextOf("Figure_WebsOnly"), "-");
    Type("DepthCover_Box", "50");
    EXPECT_FALSE(Find("DepthCover_Fault").isVisible());
}

TEST_F(StudiesWindowFields, ASliderMovesByRoundStepsAndADragIsOneChange) {
    QSlider& slider = Find<QSlider>("DepthCover_Slider");
    slider.setFocus();
    QTest::keyClick(&slider, Qt::Key_Right);
    EXPECT_EQ(TextOf("DepthCover_Box"), "100.2");
    slider.setSliderDown(true);
    slider.setSliderPosition(slider.value() + 10);
    slider.setSliderPosition(slider.value() + 10);
    slider.setSliderDown(false);
    EXPECT_EQ(TextOf("DepthCover_Box"), "104.2");
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(TextOf("DepthCover_Box"), "100");
}

TEST_F(StudiesWindowFields, ARangeIsChangedBesideItsSlider) {
    Type("WebThickness_High", "30");
    QTest::keyClick(&Find("WebThickness_High"), Qt::Key_Return);
    EXPECT_EQ(Map().Request().x.range, (FieldRange{5, 30}));
    Type("WebThickness_Low", "40");
    QTest::keyClick(&Find("WebThickness_Low"), Qt::Key_Return);
    EXPECT_EQ(TextOf("WebThickness_Fault"), "\u26a0 the lower end of a range lies below the upper one");
    EXPECT_EQ(TextOf("WebThickness_Low"), "5");
    EXPECT_FALSE(window->isWindowModified());
}

TEST_F(StudiesWindowFields, AWheelThatScrollsMovesNoFigure) {
    QSlider& slider = Find<QSlider>("DepthCover_Slider");
    Find("Height_Box").setFocus();
    QWheelEvent wheel(QPointF(5, 5), slider.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&slider, &wheel);
    EXPECT_EQ(TextOf("DepthCover_Box"), "100");
}

TEST_F(StudiesWindowFiles, SavesAndTellsTheState) {
    Type("DepthCover_Box", "200");
    EXPECT_TRUE(Choose("actSave"));
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_EQ(ReadBytes(PathTo("panel.TKL")), WorkedAtDepth("200"));
    EXPECT_THAT(Messages(), ::testing::IsEmpty());
}

TEST_F(StudiesWindowFiles, SavesUnderAnotherName) {
    Host.Dialogs.FileAnswers = {PathTo("other.TKL")};
    EXPECT_TRUE(Choose("actSaveAs"));
    EXPECT_EQ(ReadBytes(PathTo("other.TKL")), WorkedProjectBytes());
    EXPECT_THAT(FromQt(window->windowTitle()), StartsWith("other.TKL"));
    Host.Dialogs.FileAnswers = {PathTo("missing/other.TKL")};
    EXPECT_TRUE(Choose("actSaveAs"));
    EXPECT_THAT(Notice(), EndsWith("missing/other.TKL: Path not found"));
    EXPECT_THAT(FromQt(window->windowTitle()), StartsWith("other.TKL"));
}

TEST_F(StudiesWindowFiles, AsksBeforeUnsavedChangesGo) {
    Type("DepthCover_Box", "200");
    Host.Messages.Answers = {box_result::Cancel};
    window->close();
    EXPECT_TRUE(window->isVisible());
    EXPECT_THAT(Messages(), ElementsAre("Save changes to: panel.TKL?"));
    Host.Messages.Answers = {box_result::No};
    EXPECT_TRUE(Choose("actNew"));
    EXPECT_EQ(TextOf("DepthCover_Box"), "0");
    EXPECT_EQ(TextOf("Height_Fault"), "\u26a0 Invalid extraction height");
    Type("Height_Box", "5");
    Host.Messages.Answers = {box_result::Yes};
    Host.Dialogs.FileAnswers = {PathTo("new.TKL")};
    window->close();
    EXPECT_FALSE(window->isVisible());
    EXPECT_THAT(ReadBytes(PathTo("new.TKL")), StartsWith("TARVOKOL_101"));
}

TEST_F(StudiesWindowFiles, AFileThatIsNoProjectIsToldInTheWindow) {
    WriteBytes(PathTo("text.TKL"), "text\n");
    window->OpenPath(PathTo("text.TKL"));
    EXPECT_EQ(Notice(), PathTo("text.TKL") + ": Invalid file format");
    EXPECT_EQ(TextOf("DepthCover_Box"), "100");
    QTest::mouseClick(&Find("Notice_Close"), Qt::LeftButton);
    EXPECT_EQ(Notice(), "");
    window->OpenPath(PathTo("nowhere.TKL"));
    EXPECT_EQ(Notice(), PathTo("nowhere.TKL") + ": File not found");
}

TEST_F(StudiesWindowFiles, ADamagedProjectIsAnsweredWithItsCopy) {
    Type("DepthCover_Box", "200");
    Choose("actSave");
    Choose("actNew");
    WriteBytes(PathTo("panel.TKL"), "TARVOKOL_101\r\n");
    window->OpenPath(PathTo("panel.TKL"));
    EXPECT_THAT(Notice(), EndsWith("Its newest whole copy is kept."));
    QTest::mouseClick(&Find("Notice_0"), Qt::LeftButton);
    EXPECT_EQ(TextOf("DepthCover_Box"), "100");
    EXPECT_TRUE(window->isWindowModified());
    Choose("actSave");
    EXPECT_EQ(ReadBytes(PathTo("panel.TKL")), WorkedProjectBytes());
}

TEST_F(StudiesWindowFiles, AProjectThatChangesOnTheDiskIsNoticed) {
    WriteBytes(PathTo("panel.TKL"), WorkedAtDepth("170"));
    ASSERT_TRUE(WaitUntil([this] { return !Notice().empty(); }));
    EXPECT_EQ(Notice(),
              PathTo("panel.TKL") + " has been changed by somebody else since it was read or saved here.");
    Type("Height_Box", "9");
    EXPECT_TRUE(Choose("actSave"));
    EXPECT_TRUE(window->isWindowModified());  // nothing was written over the other's work
    EXPECT_EQ(ReadBytes(PathTo("panel.TKL")), WorkedAtDepth("170"));
    Host.Messages.Answers = {box_result::No};
    QTest::mouseClick(&Find("Notice_0"), Qt::LeftButton);
    EXPECT_EQ(TextOf("DepthCover_Box"), "170");
    EXPECT_EQ(TextOf("Height_Box"), "10");
}

TEST_F(StudiesWindowFiles, ADroppedProjectOpens) {
    WriteBytes(PathTo("other.TKL"), WorkedAtDepth("170"));
    Drop(PathTo("other.TKL"));
    EXPECT_EQ(TextOf("DepthCover_Box"), "170");
}

TEST_F(StudiesWindowFiles, UnsavedWorkIsKeptUntilItIsSaved) {
    Type("DepthCover_Box", "200");
    window->KeepUnsavedWork();
    const std::string copy = RecoveryCopyPath();
    ASSERT_NE(copy, "");
    EXPECT_THAT(ReadBytes(copy), HasSubstr("\r\n200\r\n"));
    Choose("actSave");
    EXPECT_FALSE(std::filesystem::exists(copy));
}

TEST_F(StudiesWindowFiles, TheCommandIsThatOfTheSavedFile) {
    EXPECT_TRUE(Choose("actCopyCommand"));
    EXPECT_EQ(FromQt(QApplication::clipboard()->text()),
              "tarvokol-cli sweep " + PathTo("panel.TKL") +
                  " --vary WebThickness=5:15/241 --vary DepthCover=50:150/241 --of WebsOnly -o map.svg");
    Type("DepthCover_Box", "200");
    EXPECT_TRUE(Choose("actCopyCommand"));
    EXPECT_EQ(Notice(), "The command works on the project's file: save the project first");
}

}  // namespace
}  // namespace tarvokol
