// SPDX-License-Identifier: GPL-3.0-or-later
// The page of the risk: rows of uncertain fields, a picture that follows, work that can be cancelled.
#include "studies/pages/risk_page.h"

#include <QAccessible>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>

#include "tests/studies/window/studies_window_fixture.h"

namespace tarvokol {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class RiskPageTest : public StudiesWindowTest {
  protected:
    RiskPageTest() {
        Find<QTabWidget>("Pages").setCurrentWidget(&Page());
        EXPECT_TRUE(WaitUntil([this] { return HasPicture(); }));
    }
    ~RiskPageTest() override { Find<QTabWidget>("Pages").setCurrentIndex(0); }

    RiskPage& Page() { return *window->findChild<RiskPage*>(); }
    bool HasPicture() { return std::holds_alternative<SpreadPicture>(Page().PictureNow()); }
    SpreadPicture Picture() { return std::get<SpreadPicture>(Page().PictureNow()); }
    void WaitForPicture() {
        EXPECT_TRUE(WaitUntil([this] { return !Page().IsBusy(); }));
        QApplication::processEvents();
    }
    void Click(const std::string& button) {
        QTest::mouseClick(&Find(button), Qt::LeftButton, {}, QPoint(8, Find(button).height() / 2));
    }
    std::string UndoText() { return FromQt(Find<QAction>("actUndo").text()); }
    StudyView& Spread() { return Find<StudyView>("Risk_View"); }
};

TEST_F(RiskPageTest, BeginsWithAStrengthKnownTo15Percent) {
    EXPECT_EQ(FromQt(Find<QComboBox>("Risk_Field_0").currentText()), "In situ coal strength");
    EXPECT_EQ(FromQt(Find<QComboBox>("Risk_Form_0").currentText()), "lognormal");
    EXPECT_EQ(TextOf("Risk_Figure_0_0"), "100%");
    EXPECT_EQ(TextOf("Risk_Figure_0_1"), "15%");
    EXPECT_EQ(Picture().words.front(),
              "In situ coal strength lognormal, mean 900 psi, standard deviation 135 psi");
    EXPECT_EQ(Picture().panels.size(), 3U);
    EXPECT_THAT(FromQt(Spread().accessibleDescription()), HasSubstr("Webs ONLY: Probability below "));
}

TEST_F(RiskPageTest, AScreenReaderIsToldTheProbabilities) {
    Page().Choose({{{PanelField::CoalStrength, "uniform:1:2"}}});  // psi: no pillar of such coal holds
    WaitForPicture();
    QAccessibleInterface& told = *QAccessible::queryAccessibleInterface(&Spread());
    EXPECT_EQ(told.role(), QAccessible::Chart);
    EXPECT_EQ(told.text(QAccessible::Name), "Spread of the factors");
    EXPECT_THAT(FromQt(told.text(QAccessible::Value)), HasSubstr("Webs ONLY: Probability below "));
    QAccessibleValueInterface* value = told.valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->minimumValue().toDouble(), 0);
    EXPECT_EQ(value->currentValue().toDouble(), 1);
    EXPECT_EQ(value->maximumValue().toDouble(), 1);
    Page().Choose({{{PanelField::CoalStrength, "uniform:90000:90001"}}});
    WaitForPicture();
    EXPECT_EQ(value->currentValue().toDouble(), 0);
}

TEST_F(RiskPageTest, FollowsTheProject) {
    QSlider& slider = Find<QSlider>("CoalStrength_Slider");
    slider.setValue(slider.maximum());
    EXPECT_TRUE(WaitUntil([this] {
        return Picture().words.front() ==
               "In situ coal strength lognormal, mean 1350 psi, standard deviation 202.5 psi";
    }));
}

TEST_F(RiskPageTest, RowsComeAndGo) {
    Click("Risk_Add");
    EXPECT_EQ(FromQt(Find<QComboBox>("Risk_Field_1").currentText()), "Depth of cover");
    QComboBox& form = Find<QComboBox>("Risk_Form_1");
    form.setCurrentIndex(form.findText("triangular"));
    EXPECT_TRUE(Find("Risk_Figure_1_2").isVisible());
    EXPECT_EQ(Page().Plan().fields[1], (UncertainField{PanelField::DepthCover, "triangular:80%:100%:120%"}));
    WaitForPicture();
    EXPECT_THAT(Picture().words, Contains(StartsWith("Depth of cover triangular")));
    Click("Risk_Remove_0");
    WaitForPicture();
    EXPECT_THAT(Picture().words.front(), StartsWith("Depth of cover triangular"));
    EXPECT_EQ(Page().Plan().fields.size(), 1U);
}

TEST_F(RiskPageTest, WhatIsProposedOfEachFormMakesSense) {
    QComboBox& form = Find<QComboBox>("Risk_Form_0");
    for (int i = 0; i < form.count(); ++i) {
        form.setCurrentIndex(i);
        EXPECT_FALSE(Find("Risk_Fault_0").isVisible())
            << FromQt(form.currentText()) << TextOf("Risk_Fault_0");
    }
}

TEST_F(RiskPageTest, WhatMakesNoSenseIsToldBelowItsRowAndTheLastPictureStands) {
    Type("Risk_Figure_0_1", "-5%");
    EXPECT_TRUE(Find("Risk_Fault_0").isVisible());
    EXPECT_TRUE(HasPicture());
    Type("Risk_Figure_0_1", "10%");
    EXPECT_FALSE(Find("Risk_Fault_0").isVisible());
    Type("Risk_Samples", "0");
    EXPECT_EQ(TextOf("Risk_Fault"), "\u26a0 Samples: \"0\" is not a whole number from 1 to 4000000");
    Type("Risk_Samples", "1000");
    WaitForPicture();
    EXPECT_THAT(Picture().words, Contains(StartsWith("1000 samples (Latin hypercube), seed 1, 0 refused")));
}

TEST_F(RiskPageTest, DesignPointsOfRareTargetsStandAboveThePicture) {
    EXPECT_TRUE(Find("Risk_PointsWords").isHidden());
    Click("Risk_Points");
    EXPECT_TRUE(Page().Plan().design_points);
    EXPECT_TRUE(WaitUntil([this] { return !Find("Risk_PointsWords").isHidden(); }));
    EXPECT_THAT(TextOf("Risk_PointsWords"), HasSubstr("Webs ONLY below the target 1.6: reliability index "));
    EXPECT_THAT(Page().ReportNow(),
                Contains(StartsWith("Webs ONLY below the target 1.6: reliability index ")));
    Click("Risk_Points");
    EXPECT_TRUE(WaitUntil([this] { return Find("Risk_PointsWords").isHidden(); }));
}

TEST_F(RiskPageTest, WhatIsTypedIntoOneBoxIsUndoneAtOnceOnItsPage) {
    Type("Risk_Figure_0_1", "25%");
    EXPECT_EQ(UndoText(), "&Undo: In situ coal strength, distribution");
    EXPECT_FALSE(window->isWindowModified());
    Find<QTabWidget>("Pages").setCurrentIndex(0);
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(Find<QTabWidget>("Pages").currentWidget(), &Page());
    EXPECT_EQ(TextOf("Risk_Figure_0_1"), "15%");
    EXPECT_FALSE(Find<QAction>("actUndo").isEnabled());
    WaitForPicture();
    EXPECT_THAT(Picture().words.front(), HasSubstr("standard deviation 135 psi"));
    EXPECT_TRUE(Choose("actRedo"));
    EXPECT_EQ(TextOf("Risk_Figure_0_1"), "25%");
    WaitForPicture();
    EXPECT_THAT(Picture().words.front(), HasSubstr("standard deviation 225 psi"));
}

TEST_F(RiskPageTest, ABoxThatIsComeBackToIsAnotherStep) {
    Type("Risk_Seed", "2");
    QTest::keyClick(&Find("Risk_Seed"), Qt::Key_Return);
    Type("Risk_Seed", "3");
    EXPECT_EQ(UndoText(), "&Undo: Seed");
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(TextOf("Risk_Seed"), "2");
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(TextOf("Risk_Seed"), "1");
    EXPECT_FALSE(Choose("actUndo"));
}

TEST_F(RiskPageTest, RowsThatCameAndWentAreUndone) {
    Click("Risk_Add");
    EXPECT_EQ(UndoText(), "&Undo: Uncertain field added");
    Click("Risk_Correlate");
    EXPECT_EQ(UndoText(), "&Undo: Correlation added");
    const RiskPlan whole = Page().Plan();
    Click("Risk_Remove_0");
    EXPECT_EQ(UndoText(), "&Undo: Uncertain field removed");
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(Page().Plan(), whole);
    EXPECT_EQ(FromQt(Find<QComboBox>("Risk_Field_0").currentText()), "In situ coal strength");
    EXPECT_EQ(FromQt(Find<QComboBox>("Risk_Form_0").currentText()), "lognormal");
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_TRUE(Page().Plan().correlations.empty());
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(Page().Plan().fields.size(), 1U);
    EXPECT_FALSE(Choose("actUndo"));
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(Choose("actRedo"));
    EXPECT_EQ(Page().Plan(), whole);
    WaitForPicture();
    EXPECT_THAT(Picture().words, Contains(StartsWith("Depth of cover normal")));
}

TEST_F(RiskPageTest, AFormThatIsChosenIsUndoneWithItsFigures) {
    QComboBox& form = Find<QComboBox>("Risk_Form_0");
    Type("Risk_Figure_0_0", "80%");
    form.setCurrentIndex(form.findText("triangular"));
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(FromQt(form.currentText()), "lognormal");
    EXPECT_EQ(TextOf("Risk_Figure_0_0"), "80%");
    EXPECT_TRUE(Find("Risk_Figure_0_2").isHidden());
    Click("Risk_Points");
    EXPECT_EQ(UndoText(), "&Undo: Design points");
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_FALSE(Page().Plan().design_points);
}

TEST_F(RiskPageTest, WhatIsNoNumberIsNoStepAndGoesWhenItsPageIsUndone) {
    Type("Risk_Samples", "x");
    EXPECT_FALSE(Find<QAction>("actUndo").isEnabled());
    Click("Risk_Add");
    EXPECT_EQ(UndoText(), "&Undo: Uncertain field added");
    EXPECT_EQ(TextOf("Risk_Samples"), "x");
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(TextOf("Risk_Samples"), "100000");
    EXPECT_TRUE(Find("Risk_Fault").isHidden());
    Type("Risk_Samples", "2000");
    Type("Risk_Samples", "100000");
    EXPECT_FALSE(Find<QAction>("actUndo").isEnabled());  // where it began
}

TEST_F(RiskPageTest, LongWorkIsCancelled) {
    Type("Risk_Samples", "4000000");
    ASSERT_TRUE(WaitUntil([this] { return Find("Risk_Cancel").isVisible(); }));
    QTest::mouseClick(&Find("Risk_Cancel"), Qt::LeftButton);
    EXPECT_EQ(TextOf("Risk_Fault"), "Cancelled: the picture is of the figures before");
    ASSERT_TRUE(WaitUntil([this] { return !Find("Risk_Cancel").isVisible(); }));
    EXPECT_THAT(Picture().words, Contains(StartsWith("100000 samples")));
}

TEST_F(RiskPageTest, ClosingEndsWork) {
    Type("Risk_Samples", "4000000");
    ASSERT_TRUE(Page().IsBusy());
    window->close();
    EXPECT_FALSE(window->isVisible());
}

TEST_F(RiskPageTest, FiguresAreTakenAlong) {
    Host.Dialogs.FileAnswers = {PathTo("risk.csv")};
    EXPECT_TRUE(Choose("actSaveFigures"));
    EXPECT_THAT(ReadBytes(PathTo("risk.csv")), HasSubstr("\nWebsOnly,"));
}

}  // namespace
}  // namespace tarvokol
