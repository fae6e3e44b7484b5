// SPDX-License-Identifier: GPL-3.0-or-later
// The parameters dialog's number of holes: a text box and a scroll bar that follow each other.
#include <QScrollBar>

#include "tests/gui/input/parameters_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class NumberOfHoles : public ParametersDialog {};

TEST_F(NumberOfHoles, TypingOneThenFiveGivesFifteen) {
    frmTARVOParm& form = Open();
    QLineEdit& holes = Box(form, "txtNumberHoles");
    holes.setFocus();
    QTest::keyClick(&holes, Qt::Key_1);
    EXPECT_EQ(holes.text(), "10");
    EXPECT_EQ(holes.selectionStart(), 1);
    EXPECT_EQ(holes.selectedText(), "0");
    EXPECT_EQ(Find<QScrollBar>(form, "HScroll1").value(), 10);
    EXPECT_EQ(TextOf(form, "txtPanelWidth"), "190.");
    QTest::keyClick(&holes, Qt::Key_5);
    EXPECT_EQ(holes.text(), "15");
    EXPECT_EQ(Find<QScrollBar>(form, "HScroll1").value(), 15);
    EXPECT_EQ(TextOf(form, "txtPanelWidth"), "290.");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(NumberOfHoles, TakingTheSecondDigitAwayGivesTenWithItsZeroSelected) {
    ProjectRecord.NumberHoles = 15;
    frmTARVOParm& form = Open();
    QLineEdit& holes = Box(form, "txtNumberHoles");
    holes.setFocus();
    holes.setCursorPosition(2);
    QTest::keyClick(&holes, Qt::Key_Backspace);
    EXPECT_EQ(holes.text(), "10");
    EXPECT_EQ(holes.selectedText(), "0");
    QTest::keyClick(&holes, Qt::Key_2);
    EXPECT_EQ(holes.text(), "12");
}

TEST_F(NumberOfHoles, TheBoxOfHolesTakesTheFocusWithItsTen) {
    frmTARVOParm& form = Open();
    Box(form, "txtHeight").setFocus();
    Box(form, "txtNumberHoles").setText("1");
    EXPECT_EQ(FocusName(form), "txtNumberHoles");
    EXPECT_EQ(Box(form, "txtNumberHoles").selectedText(), "0");
}

TEST_F(NumberOfHoles, ClearingTheHolesIsRefusedAndTheLastTextPutBack) {
    frmTARVOParm& form = Open();
    QLineEdit& holes = Box(form, "txtNumberHoles");
    holes.setFocus();
    QTest::keyClick(&holes, Qt::Key_Delete);
    EXPECT_EQ(holes.text(), "5");
    ASSERT_THAT(Messages(), ElementsAre("Value '' is outside input range\r\nValid range is: 2-20"));
    EXPECT_EQ(Host.Messages.Shown[0].style, 16);
    EXPECT_EQ(Host.Messages.Shown[0].title, "Project Parameters: Range Error");
    EXPECT_EQ(TextOf(form, "txtPanelWidth"), "90.");
}

TEST_F(NumberOfHoles, HolesOutsideTheRangeAreQuotedTrimmed) {
    frmTARVOParm& form = Open();
    Box(form, "txtNumberHoles").setText(" 21 ");
    Box(form, "txtNumberHoles").setText("0.5");
    Box(form, "txtNumberHoles").setText("-3");
    Box(form, "txtNumberHoles").setText("abc");
    Box(form, "txtNumberHoles").setText("20.01");
    EXPECT_THAT(Messages(), ElementsAre("Value '21' is outside input range\r\nValid range is: 2-20",
                                        "Value '0.5' is outside input range\r\nValid range is: 2-20",
                                        "Value '-3' is outside input range\r\nValid range is: 2-20",
                                        "Value 'abc' is outside input range\r\nValid range is: 2-20",
                                        "Value '20.01' is outside input range\r\nValid range is: 2-20"));
    EXPECT_EQ(TextOf(form, "txtNumberHoles"), "5");
    EXPECT_EQ(Find<QScrollBar>(form, "HScroll1").value(), 5);
}

TEST_F(NumberOfHoles, ARefusedTextGivesWayToTheOneAcceptedLast) {
    frmTARVOParm& form = Open();
    Enter(form, "txtNumberHoles", "7");
    Box(form, "txtNumberHoles").setText("99");
    EXPECT_EQ(TextOf(form, "txtNumberHoles"), "7");
}

TEST_F(NumberOfHoles, TheScrollBarMakesHolesWhole) {
    frmTARVOParm& form = Open();
    Box(form, "txtNumberHoles").setText("1.5");
    EXPECT_EQ(TextOf(form, "txtNumberHoles"), "2");
    EXPECT_EQ(Find<QScrollBar>(form, "HScroll1").value(), 2);
    Box(form, "txtNumberHoles").setText("2.4");  // the bar stands at 2 already
    EXPECT_EQ(TextOf(form, "txtNumberHoles"), "2");
    Box(form, "txtNumberHoles").setText("6.5");  // halves to even
    EXPECT_EQ(TextOf(form, "txtNumberHoles"), "6");
    Box(form, "txtNumberHoles").setText("7.5");
    EXPECT_EQ(TextOf(form, "txtNumberHoles"), "8");
    Box(form, "txtNumberHoles").setText("19.9 holes");
    EXPECT_EQ(TextOf(form, "txtNumberHoles"), "20");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(NumberOfHoles, TheScrollBarWritesTheTextAndTheFocusGoesToTheBox) {
    frmTARVOParm& form = Open();
    auto& bar = Find<QScrollBar>(form, "HScroll1");
    EXPECT_EQ(bar.minimum(), 2);
    EXPECT_EQ(bar.maximum(), 20);
    EXPECT_EQ(bar.pageStep(), 1);
    EXPECT_EQ(bar.orientation(), Qt::Horizontal);
    QTest::keyClick(&bar, Qt::Key_Right);
    EXPECT_EQ(TextOf(form, "txtNumberHoles"), "6");
    EXPECT_EQ(FocusName(form), "txtNumberHoles");
    EXPECT_EQ(TextOf(form, "txtPanelWidth"), "110.");
    QTest::keyClick(&bar, Qt::Key_Left);
    QTest::keyClick(&bar, Qt::Key_Left);
    EXPECT_EQ(TextOf(form, "txtNumberHoles"), "4");
    QTest::mouseClick(&bar, Qt::LeftButton, Qt::NoModifier, QPoint(bar.width() - 5, bar.height() / 2));
    EXPECT_EQ(TextOf(form, "txtNumberHoles"), "5");
    QTest::mouseClick(&bar, Qt::LeftButton, Qt::NoModifier, QPoint(5, bar.height() / 2));
    EXPECT_EQ(TextOf(form, "txtNumberHoles"), "4");
    QTest::keyClick(&bar, Qt::Key_End);
    EXPECT_EQ(TextOf(form, "txtNumberHoles"), "20");
    QTest::keyClick(&bar, Qt::Key_Home);
    EXPECT_EQ(TextOf(form, "txtNumberHoles"), "2");
}

TEST_F(NumberOfHoles, AProjectOfOneHoleShowsTen) {
    ProjectRecord.NumberHoles = 1;
    frmTARVOParm& form = Open();
    EXPECT_EQ(TextOf(form, "txtNumberHoles"), "10");
    EXPECT_EQ(Find<QScrollBar>(form, "HScroll1").value(), 10);
    EXPECT_EQ(TextOf(form, "txtPanelWidth"), "190.");
    EXPECT_EQ(FocusName(form), "txtNumberHoles");
    EXPECT_EQ(ProjectRecord.NumberHoles, 1);
    EXPECT_THAT(Messages(), IsEmpty());
    Box(form, "txtNumberHoles").setText("30");
    EXPECT_EQ(TextOf(form, "txtNumberHoles"), "10");
}

TEST_F(NumberOfHoles, AProjectOfTooManyHolesIsRefusedWhileLoading) {
    ProjectRecord.NumberHoles = 25;
    frmTARVOParm& form = Open();
    EXPECT_THAT(Messages(), ElementsAre("Value '25' is outside input range\r\nValid range is: 2-20",
                                        "Value '' is outside input range\r\nValid range is: 2-20"));
    EXPECT_EQ(TextOf(form, "txtNumberHoles"), "");
    EXPECT_EQ(Find<QScrollBar>(form, "HScroll1").value(), 20);
    Enter(form, "txtNumberHoles", "4");
    EXPECT_EQ(TextOf(form, "txtNumberHoles"), "4");
}

TEST_F(NumberOfHoles, AFigureThatNobodyTypedIsToldInTheHistory) {
    const std::pair<int16_t, std::string> lines[] = {
        {1, "Number of holes 1 of the project is outside 2-20: the box shows 10\r\n"},
        {0, "Number of holes 0 of the project is outside 2-20: the box is left empty\r\n"},
        {-3, "Number of holes -3 of the project is outside 2-20: the box is left empty\r\n"},
        {25, "Number of holes 25 of the project is outside 2-20: the box is left empty\r\n"}};
    for (const auto& [holes, line] : lines) {
        ProjectRecord.NumberHoles = holes;
        Reopen();
        EXPECT_THAT(History(), ::testing::HasSubstr(line)) << holes;
    }
    ProjectRecord.NumberHoles = 20;
    Host.MainWindow.History.clear();
    Reopen();
    EXPECT_THAT(History(), ::testing::Not(::testing::HasSubstr("Number of holes")));
}

// The first box names the project's figure, the second one the text that is put back for it.
TEST_F(NumberOfHoles, HolesNotAboveZeroAreRefusedWhileLoading) {
    for (const auto& [holes, text] : {std::pair<int16_t, std::string>{0, "0"}, {-3, "-3"}}) {
        Host.Messages.Shown.clear();
        ProjectRecord.NumberHoles = holes;
        frmTARVOParm& form = Reopen();
        EXPECT_THAT(Messages(),
                    ElementsAre("Value '" + text + "' is outside input range\r\nValid range is: 2-20",
                                "Value '' is outside input range\r\nValid range is: 2-20"));
        EXPECT_EQ(TextOf(form, "txtNumberHoles"), "");
    }
}

}  // namespace
}  // namespace tarvokol
