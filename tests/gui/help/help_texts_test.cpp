// SPDX-License-Identifier: GPL-3.0-or-later
// All that the forms of the help menu show, read out and tell, and where the tab key leads.
#include "core/program/program_help.h"
#include "core/settings/program_name.h"
#include "desktop/help/frmDisclaimer.h"
#include "desktop/help/frmResource.h"
#include "desktop/help/frmUpdate.h"
#include "desktop/help/link_label.h"
#include "tests/support/form_facts.h"
#include "tests/support/ink.h"
#include "tests/support/main_window_fixture.h"
#include "tests/support/window_menus.h"

namespace tarvokol {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::StartsWith;
using ::testing::UnorderedElementsAre;

class HelpTexts : public MainWindowTest {
  protected:
    HelpTexts() {
        ExeNameUpper = "TARVOKOL";
        Host.TheClock.Date = CalendarDate{2013, 8, 21};
    }

    template <typename Form>
    static Form& Open() {
        ShowAndActivate(Form::Instance());
        return Form::Instance();
    }
};

TEST_F(HelpTexts, OfTheDisclaimer) {
    frmDisclaimer& form = Open<frmDisclaimer>();
    EXPECT_THAT(
        FactsOf(form),
        UnorderedElementsAre(
            "frmDisclaimer 'Disclaimer for TARVOKOL'", StartsWith("lblDisclaimer 'Disclaimer of Liability"),
            "chkShow 'Do not show this disclaimer again' tip 'The settings dialog turns it on again'",
            "Command1 'OK' default cancel"));
    EXPECT_EQ(Find(form, "lblDisclaimer").accessibleName(), "");  // its text is read
    EXPECT_EQ(Find(form, "lblDisclaimer").accessibleDescription(), "Disclaimer");
    EXPECT_THAT(TabOrderOf(form), ElementsAre("chkShow", "Command1"));
    EXPECT_EQ(form.size(), DrawnIn(form, {520, 300}));
}

TEST_F(HelpTexts, OfTheReminder) {
    frmUpdate& form = Open<frmUpdate>();
    EXPECT_THAT(FactsOf(form),
                UnorderedElementsAre("frmUpdate 'Program Update for TARVOKOL'",
                                     "lblUpdate 'Clicking on the URL below will connect you directly with "
                                     "the program website. \r\n\r\nYou may "
                                     "manually update the program by downloading and installing the new "
                                     "setup file.' told 'Advice on updates'",
                                     "lblInfo 'Current Program Version: 1.3.02\r\nCurrent Revision Date: "
                                     "20-Aug-2013' told 'Version and "
                                     "revision date'",
                                     "Label2 'URL to program web page:' for lblURL",
                                     "lblURL 'https://www.oltek.example/tarvokol/' read "
                                     "'https://www.oltek.example/tarvokol/' told 'URL to program web "
                                     "page' tip 'Opens the page in the "
                                     "web browser'",
                                     "chkShow 'Disable reminder for annual program updates' tip 'The "
                                     "settings dialog turns it on again'",
                                     "Command1 'OK' default cancel"));
    EXPECT_THAT(TabOrderOf(form), ElementsAre("Command1", "lblURL", "chkShow"));
    EXPECT_EQ(form.size(), DrawnIn(form, {480, 280}));
}

TEST_F(HelpTexts, OfTheResources) {
    FillResourceTables();
    frmResource& form = Open<frmResource>();
    EXPECT_THAT(FactsOf(form),
                UnorderedElementsAre(
                    "frmResource 'View Resource Files'", "cmdView_0 'Pillar strength and load model'",
                    "cmdView_1 'Abutment load and its two cases'",
                    "cmdView_2 'Sizing equations and their iteration'", "cmdView_3 'Units and conversions'",
                    "cmdView_4 'A worked design, survey to layout'", "Command1 'Close' default cancel"));
    EXPECT_THAT(TabOrderOf(form),
                ElementsAre("cmdView_0", "cmdView_1", "cmdView_2", "cmdView_3", "cmdView_4", "Command1"));
}

// An ampersand is a sign of the title and no mnemonic.
TEST_F(HelpTexts, ATitleMayHoldAnAmpersand) {
    FillResourceTables();
    const std::string title = ResourceTitles[3];
    ResourceTitles[3] = "Units & conversions";
    EXPECT_THAT(FactsOf(Open<frmResource>()), Contains("cmdView_3 'Units && conversions'"));
    ResourceTitles[3] = title;
}

// The address on the white paper of the reminder.
class Links : public GuiTest {
  protected:
    Links() {
        Link.setText("https://www.oltek.example/tarvokol/");
        Link.resize(Link.sizeHint());
        QObject::connect(&Link, &LinkLabel::Clicked, [this] { Said += "click "; });
        QObject::connect(&Link, &LinkLabel::ButtonDown, [this] { Said += "down "; });
        QObject::connect(&Link, &LinkLabel::ButtonUp, [this] { Said += "up "; });
        QObject::connect(&Link, &LinkLabel::PointerMoved, [this] { Said += "move "; });
    }
    LinkLabel Link{nullptr};
    std::string Said;
};

TEST_F(Links, TellWhatTheMouseDoes) {
    EXPECT_TRUE(Link.hasMouseTracking());
    EXPECT_EQ(Link.cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(Link.focusPolicy(), Qt::TabFocus);
    QTest::mousePress(&Link, Qt::LeftButton, Qt::NoModifier, QPoint(3, 3));
    QTest::mouseRelease(&Link, Qt::LeftButton, Qt::NoModifier, QPoint(3, 3));
    EXPECT_EQ(Said, "down up click ");
    Said.clear();
    QTest::mousePress(&Link, Qt::RightButton, Qt::NoModifier, QPoint(3, 3));
    QTest::mouseRelease(&Link, Qt::RightButton, Qt::NoModifier, QPoint(3, 3));
    EXPECT_EQ(Said, "down up ");
}

TEST_F(Links, OpenByTheirKeysAlone) {
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_A}) {
        Said.clear();
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&Link, &press);
        EXPECT_EQ(Said, key == Qt::Key_A ? "" : "click ");
        EXPECT_EQ(press.isAccepted(), key != Qt::Key_A);
    }
}

TEST_F(Links, ShowThatTheyHaveTheFocus) {
    QWidget window;
    Link.setParent(&window);
    QLineEdit other(&window);
    other.move(0, 40);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(WaitUntilActive(window));
    other.setFocus();
    const QImage without = PictureOf(Link);
    QTest::keyClick(&other, Qt::Key_Tab);
    ASSERT_TRUE(Link.hasFocus());
    EXPECT_NE(PictureOf(Link), without);
    other.setFocus();
    EXPECT_EQ(PictureOf(Link), without);
    Link.setParent(nullptr);
}

}  // namespace
}  // namespace tarvokol
