// SPDX-License-Identifier: GPL-3.0-or-later
// All that the main window shows, reads out and tells, and the order of its menus.
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "tests/support/form_facts.h"
#include "tests/support/main_window_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

class MainWindowTexts : public MainWindowTest {
  protected:
    // Captions of a menu's entries, "-" for a line between them; what does not show is left out.
    static std::vector<std::string> EntriesOf(const QWidget& menu) {
        std::vector<std::string> entries;
        for (const QAction* action : menu.actions())
            if (action->isVisible()) entries.push_back(action->isSeparator() ? "-" : FromQt(action->text()));
        return entries;
    }
    std::vector<std::string> Menu(const char* name) { return EntriesOf(Find<QMenu>(Start(), name)); }
};

TEST_F(MainWindowTexts, OfItsControls) {
    EXPECT_THAT(
        FactsOf(Start()),
        UnorderedElementsAre(
            "frmMain 'TARVO-KOL'",
            "Picture1 read 'Highwall panel' told 'Section and plan of a highwall mining panel'",
            "lblVer '1.3.02 ' told 'Program version'", "Toolbar1_1 'Open Data File' tip 'Open Data File'",
            "Toolbar1_2 'Save Data File' tip 'Save Data File'",
            "Toolbar1_3 'Print Data File' tip 'Print Data File'",
            "Toolbar1_4 'Edit Description' tip 'Edit Description'",
            "Toolbar1_5 'Edit Pillar Data' tip 'Edit Pillar Data'", "txtMain read 'History window' locked"));
    EXPECT_EQ(Find<QToolBar>(frmMain::Instance(), "Toolbar1").windowTitle(), "Toolbar");
}

TEST_F(MainWindowTexts, OfItsMenusInTheirOrder) {
    EXPECT_THAT(EntriesOf(*Start().menuBar()),
                ElementsAre("&File", "&Input", "&Output", "&Utilities", "&Help"));
    EXPECT_THAT(Menu("mnuFile"),
                ElementsAre("&New", "&Open...", "&Save", "Save &As...", "-", "Printer Set&up...", "&Print",
                            "Print Pre&view...", "-", "&View Source Files...", "-", "E&xit"));
    EXPECT_THAT(Menu("mnuEdit"), ElementsAre("Project &Description...", "Project &Parameters..."));
    EXPECT_THAT(Menu("mnuCalc"), ElementsAre("Stability Factors...", "-", "Graph", "-", "Graph (Sizing)"));
    EXPECT_THAT(Menu("mnuCalcItem_2"),
                ElementsAre("SF vs Entry Height", "SF vs Depth of Cover", "SF vs Hole Width"));
    EXPECT_THAT(Menu("mnuCalcItem_4"),
                ElementsAre("Depth of Cover vs Web Thickness", "Depth of Cover vs Barrier Width"));
    EXPECT_THAT(Menu("mnuUtil"),
                ElementsAre("&Settings...", "&Options...", "&Unit Conversion...", "&File Conversion...", "-",
                            "&Clear History Window", "Close History &Window", "Co&py History &Window"));
    EXPECT_THAT(Menu("mnuHelp"), ElementsAre("Help &Contents...", "Help &Index...", "Help in &PDF format...",
                                             "-", "&Resource Files...", "-", "&Disclaimer...", "-",
                                             "Program Updates...", "-", "&About the Program..."));
}

// On a system with one menu for all programs, none of the entries moves to the program's own menu.
TEST_F(MainWindowTexts, EveryEntryStaysInItsMenu) {
    for (const QAction* action : Start().findChildren<QAction*>(QRegularExpression("^mnu\\w+Item_"))) {
        if (action->isSeparator() || action->menu() != nullptr) continue;
        EXPECT_EQ(action->menuRole(), QAction::NoRole) << FromQt(action->objectName());
    }
}

TEST_F(MainWindowTexts, TheWindowOpensInItsSizeAndKeepsALeastOne) {
    frmMain& form = Start();
    EXPECT_EQ(form.size(), QSize(720, 540));
    EXPECT_EQ(form.minimumSize(), QSize(320, 200));
    EXPECT_EQ(form.pos(), QPoint(40, 130));  // the middle of 800 x 800
}

TEST_F(MainWindowTexts, TheHistoryIsForReadingOnly) {
    Start();
    const auto& history = frmMain::Instance().History();
    EXPECT_TRUE(history.isReadOnly());
    EXPECT_FALSE(history.acceptDrops());
    EXPECT_FALSE(history.isUndoRedoEnabled());
    EXPECT_EQ(history.lineWrapMode(), QPlainTextEdit::NoWrap);
    EXPECT_EQ(history.textInteractionFlags(), Qt::TextSelectableByKeyboard | Qt::TextSelectableByMouse);
}

TEST_F(MainWindowTexts, TheToolbarStaysWhereItIs) {
    Start();
    const QToolBar& toolbar = frmMain::Instance().Toolbar();
    EXPECT_FALSE(toolbar.isMovable());
    EXPECT_FALSE(toolbar.isFloatable());
    EXPECT_EQ(toolbar.iconSize(), QSize(24, 24));
}

}  // namespace
}  // namespace tarvokol
