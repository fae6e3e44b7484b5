// SPDX-License-Identifier: GPL-3.0-or-later
// Correlations, and the width for a probability, by the controls of the risk page.
#include "studies/pages/width_line.h"

#include <QClipboard>

#include "studies/pages/risk_page.h"
#include "tests/studies/window/studies_window_fixture.h"

namespace tarvokol {
namespace {

using ::testing::HasSubstr;

class RiskControls : public StudiesWindowTest {
  protected:
    RiskControls() {
        Find<QTabWidget>("Pages").setCurrentIndex(1);
        Risk().Choose({{{PanelField::CoalStrength, "normal:100%:15%"}}, 20000});
    }
    RiskPage& Risk() { return *window->findChild<RiskPage*>(); }
    void Click(const std::string& button) {
        QTest::mouseClick(&Find<QAbstractButton>(button), Qt::LeftButton);
    }
    // The width that is found; the page is asked once more where the picture's own work came between.
    void FindWidth() {
        ASSERT_TRUE(WaitUntil([this] { return !Risk().IsBusy(); }));
        QApplication::processEvents();
        Click("Width_Find");
        ASSERT_TRUE(WaitUntil([this] { return Risk().Width().Answer().has_value(); }));
    }
};

TEST_F(RiskControls, AWidthIsFoundTakenAndUndone) {
    EXPECT_FALSE(Find("Width_Take").isEnabled());
    Type("Width_Step", "0.25");
    FindWidth();
    EXPECT_THAT(TextOf("Width_Words"), HasSubstr("Web thickness 4.3"));
    EXPECT_THAT(TextOf("Width_Words"), HasSubstr("rounded 4.5 ft"));
    Click("Width_Take");
    EXPECT_EQ(TextOf("WebThickness_Box"), "4.5");
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(TextOf("WebThickness_Box"), "10");
}

TEST_F(RiskControls, AQuestionIsUndoneAndDoneAgain) {
    Type("Width_Probability", "1%");
    Type("Width_Step", "0.25");
    Find<QComboBox>("Width_Field").setFocus();
    QTest::keyClick(&Find("Width_Field"), Qt::Key_Down);
    const auto undo_text = [this] { return FromQt(Find<QAction>("actUndo").text()); };
    EXPECT_EQ(undo_text(), "&Undo: Width that is sought");
    Find<QTabWidget>("Pages").setCurrentIndex(0);
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(Find<QTabWidget>("Pages").currentIndex(), 1);
    EXPECT_EQ(FromQt(Find<QComboBox>("Width_Field").currentText()), "Web thickness");
    EXPECT_EQ(undo_text(), "&Undo: Step of the width");
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(TextOf("Width_Step"), "");
    EXPECT_EQ(undo_text(), "&Undo: Probability of the width");
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(TextOf("Width_Probability"), "5%");
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(Choose("actRedo"));
    EXPECT_EQ(Risk().Width().Question(), (WidthQuestion{PanelField::BarrierPillarWidth, "1%", "0.25"}));
    EXPECT_FALSE(Choose("actRedo"));
}

TEST_F(RiskControls, AnAnswerGoesWithAQuestionThatIsUndone) {
    Type("Width_Step", "0.25");
    FindWidth();
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_FALSE(Find("Width_Take").isEnabled());
    EXPECT_EQ(TextOf("Width_Words"), "");
}

TEST_F(RiskControls, AnAnswerGoesWithItsFigures) {
    FindWidth();
    Type("DepthCover_Box", "120");
    EXPECT_FALSE(Find("Width_Take").isEnabled());
    EXPECT_EQ(TextOf("Width_Words"), "");
}

TEST_F(RiskControls, TheWidthIsAskedByACommand) {
    Type("Width_Probability", "1%");
    EXPECT_TRUE(Choose("actCopyWidthCommand"));
    EXPECT_EQ(FromQt(QApplication::clipboard()->text()),
              "tarvokol-cli design " + PathTo("panel.TKL") +
                  " --random CoalStrength=normal:100%:15% --samples 20000 --seed 1 --find WebThickness "
                  "--until 'WebsOnly<1.6' --probability 1%");
    Type("DepthCover_Box", "120");
    EXPECT_TRUE(Choose("actCopyWidthCommand"));
    EXPECT_EQ(Notice(), "The command works on the project's file: save the project first");
}

TEST_F(RiskControls, AWidthThatCannotBeAskedForHasNoCommand) {
    QApplication::clipboard()->setText("as before");
    Type("Width_Probability", "0");
    EXPECT_TRUE(Choose("actCopyWidthCommand"));
    EXPECT_EQ(Notice(), "Width: WebThickness: the probability must lie between 0 and 100 %, both left out");
    EXPECT_EQ(FromQt(QApplication::clipboard()->text()), "as before");
}

TEST_F(RiskControls, TwoFieldsAreCorrelated) {
    EXPECT_FALSE(Find("Risk_Correlate").isEnabled());
    Click("Risk_Add");
    Click("Risk_Correlate");
    const std::vector<FieldCorrelation> expected{{PanelField::CoalStrength, PanelField::DepthCover, 0.5}};
    EXPECT_EQ(Risk().Plan().correlations, expected);
    Type("Correlation_Value_0", "2");
    EXPECT_EQ(TextOf("Correlation_Fault_0"),
              "\u26a0 the correlation must lie between -1 and 1, both left out");
    Type("Correlation_Value_0", "-0.3");
    EXPECT_TRUE(Find("Correlation_Fault_0").isHidden());
    EXPECT_THAT(Risk().CommandNow(), HasSubstr(" --correlate CoalStrength,DepthCover=-0.3 "));
    Click("Correlation_Remove_0");
    EXPECT_TRUE(Risk().Plan().correlations.empty());
}

}  // namespace
}  // namespace tarvokol
