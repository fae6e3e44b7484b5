// SPDX-License-Identifier: GPL-3.0-or-later
// The pages of the table and of the comparison: cells as one types, rows and designs into the project.
#include "studies/pages/table_page.h"

#include <QClipboard>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTableWidget>

#include "studies/pages/compare_page.h"
#include "studies/pages/risk_page.h"
#include "studies/pages/sheet_model.h"
#include "tests/studies/window/studies_window_fixture.h"

namespace tarvokol {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class TablePageTest : public StudiesWindowTest {
  protected:
    TablePageTest() {
        WriteBytes(PathTo("holes.csv"), "Hole,DepthCover (ft)\nA,300\nB,200\n");
        Find<QTabWidget>("Pages").setCurrentWidget(window->findChild<TablePage*>());
    }
    ~TablePageTest() override { Find<QTabWidget>("Pages").setCurrentIndex(0); }

    QTableView& Table() { return Find<QTableView>("Table_View"); }
    std::string CellText(int row, int column) {
        return FromQt(Table().model()->index(row, column).data().toString());
    }
    void OpenHoles() {
        Host.Dialogs.FileAnswers = {PathTo("holes.csv")};
        QTest::mouseClick(&Find("Table_Open"), Qt::LeftButton);
    }
};

TEST_F(TablePageTest, AnOpenedTableHasItsFigures) {
    OpenHoles();
    EXPECT_FALSE(Find("Table_Fault").isVisible());
    EXPECT_EQ(CellText(0, 0), "A");
    EXPECT_EQ(CellText(0, 3), "\u25bc 1.57333");
    EXPECT_EQ(CellText(1, 3), "2.36");
}

TEST_F(TablePageTest, FiguresFollowWhatIsTypedIntoACell) {
    OpenHoles();
    Table().setCurrentIndex(Table().model()->index(0, 1));
    Table().edit(Table().currentIndex());
    auto* editor = Table().findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, "100");
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_TRUE(WaitUntil([this] { return CellText(0, 3) == "4.71999"; }));
}

TEST_F(TablePageTest, FiguresFollowTheProject) {
    OpenHoles();
    Type("CoalStrength_Box", "450");
    EXPECT_EQ(CellText(1, 3), "\u25bc 1.18");
}

TEST_F(TablePageTest, ATableIsPasted) {
    QApplication::clipboard()->setText("DepthCover\tNote\n150\tx\n");
    Table().setFocus();
    QTest::keyClick(&Table(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Table().model()->rowCount(), 1);
    EXPECT_EQ(CellText(0, 1), "x");
}

TEST_F(TablePageTest, ADroppedTableGoesToItsPage) {
    Find<QTabWidget>("Pages").setCurrentIndex(0);
    Drop(PathTo("holes.csv"));
    EXPECT_TRUE(Table().isVisible());
    EXPECT_EQ(Table().model()->rowCount(), 2);
}

TEST_F(TablePageTest, WhatIsNoTableIsToldAndTheSheetStands) {
    OpenHoles();
    WriteBytes(PathTo("bad.csv"), "Depth\n1\n");
    Host.Dialogs.FileAnswers = {PathTo("bad.csv")};
    QTest::mouseClick(&Find("Table_Open"), Qt::LeftButton);
    EXPECT_THAT(TextOf("Table_Fault"), StartsWith("\u26a0 bad.csv: "));
    EXPECT_EQ(Table().model()->rowCount(), 2);
}

TEST_F(TablePageTest, RowsComeGoAndAreTaken) {
    OpenHoles();
    Table().setCurrentIndex(Table().model()->index(0, 0));
    QTest::mouseClick(&Find("Table_Take"), Qt::LeftButton);
    EXPECT_EQ(TextOf("DepthCover_Box"), "300");
    EXPECT_EQ(FromQt(Find<QAction>("actUndo").text()), "&Undo: Row 1 of the table");
    QTest::mouseClick(&Find("Table_Add"), Qt::LeftButton);
    EXPECT_EQ(Table().model()->rowCount(), 3);
    EXPECT_EQ(CellText(1, 3), "\u25bc 1.57333");  // the project's own
    QTest::mouseClick(&Find("Table_Remove"), Qt::LeftButton);
    QTest::mouseClick(&Find("Table_Remove"), Qt::LeftButton);
    QTest::mouseClick(&Find("Table_Remove"), Qt::LeftButton);
    EXPECT_EQ(Table().model()->rowCount(), 0);
    EXPECT_FALSE(Find<QPushButton>("Table_Take").isEnabled());
}

TEST_F(TablePageTest, ATitleSorts) {
    OpenHoles();
    QHeaderView& header = *Table().horizontalHeader();
    const QPoint title(header.sectionViewportPosition(3) + 5, header.height() / 2);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, title);
    EXPECT_EQ(CellText(0, 0), "A");
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, title);
    EXPECT_EQ(CellText(0, 0), "B");
}

class TableUndo : public TablePageTest {
  protected:
    TableUndo() {
        WriteBytes(PathTo("holes.csv"), "Hole,DepthCover (ft)\nA,300\nB,200\nC,100\nD,400\n");
        OpenHoles();
    }

    std::string Holes() {
        std::string holes;
        for (int row = 0; row < Table().model()->rowCount(); ++row) holes += CellText(row, 0);
        return holes;
    }
    std::string UndoText() { return FromQt(Find<QAction>("actUndo").text()); }
    QLineEdit* OpenEditor(int row, int column) {
        Table().setCurrentIndex(Table().model()->index(row, column));
        Table().setFocus();
        QTest::keyClick(&Table(), Qt::Key_F2);
        return Table().findChild<QLineEdit*>();
    }
    void TypeInto(int row, int column, const std::string& text) {
        QLineEdit* editor = OpenEditor(row, column);
        ASSERT_NE(editor, nullptr);
        editor->selectAll();
        QTest::keyClicks(editor, ToQt(text));
        QTest::keyClick(editor, Qt::Key_Return);
        ASSERT_TRUE(WaitUntil([this] { return Table().findChild<QLineEdit*>() == nullptr; }));
    }
    void PressUndo() { QTest::keyClick(window->focusWidget(), Qt::Key_Z, Qt::ControlModifier); }
};

TEST_F(TableUndo, ACellThatIsTypedIsUndoneByItsKeysAndShown) {
    TypeInto(0, 1, "100");
    EXPECT_EQ(CellText(0, 3), "4.71999");
    EXPECT_EQ(UndoText(), "&Undo: Row 1, DepthCover (ft)");
    EXPECT_FALSE(window->isWindowModified());
    Table().setCurrentIndex(Table().model()->index(3, 0));
    Table().setFocus();
    PressUndo();
    EXPECT_EQ(CellText(0, 1), "300");
    EXPECT_EQ(CellText(0, 3), "\u25bc 1.57333");
    EXPECT_EQ(Table().currentIndex(), Table().model()->index(0, 1));
    EXPECT_TRUE(Choose("actRedo"));
    EXPECT_EQ(CellText(0, 1), "100");
    EXPECT_EQ(CellText(0, 3), "4.71999");
}

TEST_F(TableUndo, TheSameTextIsNoStep) {
    TypeInto(0, 1, "300");
    EXPECT_EQ(UndoText(), "&Undo: Table holes.csv");
}

TEST_F(TableUndo, AnOpenEditorUndoesItsOwnLetters) {
    QLineEdit* editor = OpenEditor(0, 1);
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, "7");
    QTest::keyClick(editor, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(editor->text(), "300");
    EXPECT_EQ(UndoText(), "&Undo: Table holes.csv");
    QTest::keyClick(editor, Qt::Key_Escape);
}

TEST_F(TableUndo, GoesInOneOrderWithASliderAndBringsThePageToTheFront) {
    TypeInto(1, 1, "100");
    auto& pages = Find<QTabWidget>("Pages");
    pages.setCurrentIndex(0);
    Type("CoalStrength_Box", "450");
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(TextOf("CoalStrength_Box"), "900");
    EXPECT_EQ(pages.currentIndex(), 0);
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(pages.currentIndex(), 2);
    EXPECT_EQ(CellText(1, 3), "2.36");
}

TEST_F(TableUndo, ATableThatIsReplacedComesBack) {
    TypeInto(0, 0, "Z");
    QApplication::clipboard()->setText("DepthCover\tNote\n150\tx\n");
    QTest::keyClick(&Table(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(UndoText(), "&Undo: Table of the clipboard");
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(Holes(), "ZBCD");
    EXPECT_EQ(FromQt(Table().model()->headerData(1, Qt::Horizontal).toString()), "DepthCover (ft)");
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(Table().model()->rowCount(), 1);  // the sheet as it began
    EXPECT_FALSE(Choose("actUndo"));
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(Choose("actRedo"));
    EXPECT_EQ(CellText(0, 1), "x");
}

TEST_F(TableUndo, ChosenRowsAreRemovedAtOnceAndComeBackChosen) {
    Table().setCurrentIndex(Table().model()->index(0, 0));
    for (const int row : {0, 2})
        Table().selectionModel()->select(Table().model()->index(row, 0),
                                         QItemSelectionModel::Select | QItemSelectionModel::Rows);
    QTest::mouseClick(&Find("Table_Remove"), Qt::LeftButton);
    EXPECT_EQ(Holes(), "BD");
    EXPECT_EQ(UndoText(), "&Undo: 2 rows removed");
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(Holes(), "ABCD");
    EXPECT_TRUE(Table().selectionModel()->isRowSelected(2));
    EXPECT_FALSE(Table().selectionModel()->isRowSelected(1));
}

TEST_F(TableUndo, GoesPastASort) {
    TypeInto(1, 1, "900");
    QHeaderView& header = *Table().horizontalHeader();
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                      QPoint(header.sectionViewportPosition(1) + 5, header.height() / 2));
    EXPECT_EQ(Holes(), "CADB");
    QTest::mouseClick(&Find("Table_Add"), Qt::LeftButton);
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(Holes(), "ABCD");
    EXPECT_FALSE(header.isSortIndicatorShown());
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(CellText(1, 1), "200");
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(Choose("actRedo"));
    EXPECT_EQ(Holes(), "CADB");
}

class ComparePageTest : public StudiesWindowTest {
  protected:
    ComparePageTest() { Find<QTabWidget>("Pages").setCurrentWidget(window->findChild<ComparePage*>()); }
    ~ComparePageTest() override { Find<QTabWidget>("Pages").setCurrentIndex(0); }

    QTableWidget& Table() { return Find<QTableWidget>("Compare_Table"); }
    std::string NameOf(int column) { return FromQt(Table().item(0, column)->text()); }
    std::string UndoText() { return FromQt(Find<QAction>("actUndo").text()); }
    void Rename(int column, const std::string& name) {
        Table().setCurrentCell(0, column);
        Table().setFocus();
        QTest::keyClick(&Table(), Qt::Key_F2);
        auto* editor = Table().findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr);
        QTest::keyClicks(editor, ToQt(name));
        QTest::keyClick(editor, Qt::Key_Return);
        ASSERT_TRUE(WaitUntil([&] { return Table().findChild<QLineEdit*>() == nullptr; }));
    }
};

TEST_F(ComparePageTest, DesignsAreKeptMarkedAndTaken) {
    QTest::mouseClick(&Find("Compare_Keep"), Qt::LeftButton);
    Type("DepthCover_Box", "300");
    QTest::mouseClick(&Find("Compare_Keep"), Qt::LeftButton);
    EXPECT_EQ(Table().columnCount(), 2);
    EXPECT_EQ(FromQt(Table().verticalHeaderItem(2)->text()), "Depth of cover (ft)");
    EXPECT_EQ(FromQt(Table().item(2, 0)->text()), "100");
    EXPECT_EQ(FromQt(Table().item(2, 1)->text()), "\u2260 300");
    EXPECT_EQ(FromQt(Table().item(13, 1)->text()), "\u2260 \u25bc 1.57333");
    Table().setCurrentCell(0, 0);
    QTest::mouseClick(&Find("Compare_Take"), Qt::LeftButton);
    EXPECT_EQ(TextOf("DepthCover_Box"), "100");
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(TextOf("DepthCover_Box"), "300");
    Table().item(0, 0)->setText("Shallow");
    Host.Dialogs.FileAnswers = {PathTo("designs.csv")};
    EXPECT_TRUE(Choose("actSaveFigures"));
    EXPECT_THAT(ReadBytes(PathTo("designs.csv")), StartsWith("Figure,Shallow,Design 2\n"));
    QTest::mouseClick(&Find("Compare_Remove"), Qt::LeftButton);
    EXPECT_EQ(Table().columnCount(), 1);
}

TEST_F(ComparePageTest, DesignsThatCameAndWentAreUndone) {
    QTest::mouseClick(&Find("Compare_Keep"), Qt::LeftButton);
    EXPECT_EQ(UndoText(), "&Undo: Design 1 kept");
    EXPECT_FALSE(window->isWindowModified());
    Type("DepthCover_Box", "300");
    QTest::mouseClick(&Find("Compare_Keep"), Qt::LeftButton);
    Table().setCurrentCell(0, 0);
    QTest::mouseClick(&Find("Compare_Remove"), Qt::LeftButton);
    EXPECT_EQ(UndoText(), "&Undo: Design 1 removed");
    Find<QTabWidget>("Pages").setCurrentIndex(0);
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(Find<QTabWidget>("Pages").currentWidget(), window->findChild<ComparePage*>());
    EXPECT_EQ(NameOf(0), "Design 1");
    EXPECT_EQ(FromQt(Table().item(2, 0)->text()), "100");
    EXPECT_EQ(FromQt(Table().item(2, 1)->text()), "\u2260 300");
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(Table().columnCount(), 1);
    EXPECT_EQ(TextOf("DepthCover_Box"), "300");
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(Table().columnCount(), 0);
    EXPECT_FALSE(Choose("actUndo"));
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(Choose("actRedo"));
    EXPECT_EQ(NameOf(0), "Design 2");
    EXPECT_EQ(Table().columnCount(), 1);
}

TEST_F(ComparePageTest, ANameIsUndoneAndTheProbabilitiesStay) {
    QTest::mouseClick(&Find("Compare_Keep"), Qt::LeftButton);
    QTest::mouseClick(&Find("Compare_Risks"), Qt::LeftButton);
    ASSERT_TRUE(WaitUntil([&] { return Table().rowCount() == 21; }));
    Rename(0, "A & B");
    EXPECT_EQ(NameOf(0), "A & B");
    EXPECT_EQ(UndoText(), "&Undo: Design 1, name");
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(NameOf(0), "Design 1");
    EXPECT_EQ(Table().rowCount(), 21);
    EXPECT_TRUE(Choose("actRedo"));
    Rename(0, "A & B");
    EXPECT_EQ(UndoText(), "&Undo: Design 1, name");  // the same name is no step
    QTest::mouseClick(&Find("Compare_Remove"), Qt::LeftButton);
    EXPECT_EQ(UndoText(), "&Undo: A && B removed");
}

TEST_F(ComparePageTest, SixAreTheMost) {
    for (int i = 0; i < 6; ++i) QTest::mouseClick(&Find("Compare_Keep"), Qt::LeftButton);
    EXPECT_EQ(Table().columnCount(), 6);
    EXPECT_FALSE(Find<QPushButton>("Compare_Keep").isEnabled());
}

TEST_F(ComparePageTest, ProbabilitiesGoWithWhatTheyAreOf) {
    auto& pages = Find<QTabWidget>("Pages");
    pages.setCurrentIndex(1);
    window->findChild<RiskPage*>()->Choose({{{PanelField::CoalStrength, "normal:100%:15%"}}, 20000});
    auto& page = *window->findChild<ComparePage*>();
    pages.setCurrentWidget(&page);
    EXPECT_FALSE(Find("Compare_Risks").isEnabled());
    Type("DepthCover_Box", "300");
    QTest::mouseClick(&Find("Compare_Keep"), Qt::LeftButton);
    const auto ask = [&] {
        QTest::mouseClick(&Find("Compare_Risks"), Qt::LeftButton);
        EXPECT_TRUE(WaitUntil([&] { return Table().rowCount() == 21; }));
    };
    ask();
    EXPECT_EQ(FromQt(Table().verticalHeaderItem(18)->text()), "Probability of webs below their target");
    EXPECT_THAT(FromQt(Table().item(18, 0)->text()), StartsWith("0.54"));
    QTest::mouseClick(&Find("Compare_Keep"), Qt::LeftButton);
    EXPECT_EQ(Table().rowCount(), 18);
    ask();
    pages.setCurrentIndex(1);
    Type("Risk_Seed", "2");
    pages.setCurrentWidget(&page);
    EXPECT_EQ(Table().rowCount(), 18);
}

TEST_F(ComparePageTest, ADesignInOtherUnitsIsNotTaken) {
    QTest::mouseClick(&Find("Compare_Keep"), Qt::LeftButton);
    EXPECT_TRUE(Choose("actNewMetric"));
    Table().setCurrentCell(1, 0);
    EXPECT_FALSE(Find<QPushButton>("Compare_Take").isEnabled());
}

}  // namespace
}  // namespace tarvokol
