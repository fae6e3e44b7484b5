// SPDX-License-Identifier: GPL-3.0-or-later
// What the help window is made of, and how it behaves among other windows.
#include "qt/help/help_window.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QPrintDialog>
#include <QPrinter>
#include <QScrollBar>

#include "qt/session/qt_text.h"
#include "tests/gui/qt/help_fixture.h"
#include "tests/support/waiting.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class HelpWindowTest : public HelpFixture {
  protected:
    QAction& Tool(const char* name) { return Find<QAction>(name); }

    // The contents, once they are there.
    QTreeView& Contents() {
        auto& tree = Find<QTreeView>("contents");
        EXPECT_TRUE(WaitUntil([&] { return tree.model()->rowCount() == 1; }));
        return tree;
    }

    // Results of a search; the index is made in the background, until which no topic has the words. One search at a
    // time, so that none is still under way afterwards.
    QListWidget& Search(const QString& words) {
        Find<QLineEdit>("searchText").setText(words);
        auto& results = Find<QListWidget>("searchResults");
        const auto run = [this] { QTest::mouseClick(&Find<QPushButton>("searchFind"), Qt::LeftButton); };
        run();
        const auto found = [&] {
            if (results.count() == 0) return false;
            if (results.item(0)->flags().testFlag(Qt::ItemIsEnabled)) return true;
            QTest::qWait(20);
            run();
            return false;
        };
        EXPECT_TRUE(WaitUntil(found));
        return results;
    }
};

QImage Picture(const QIcon& icon) {
    return icon.pixmap(16).toImage();
}

TEST_F(HelpWindowTest, HasThreeTabsBesideTheTopic) {
    Viewer.ShowContents(kHelpFile);
    EXPECT_EQ(Window().objectName(), "helpWindow");
    EXPECT_EQ(Window().windowTitle(), "TARVO-KOL Help");
    EXPECT_EQ(Window().size(), QSize(784, 760));  // of 1120 x 760 what a screen of 800 x 800 has for a window
    auto& tabs = Find<QTabWidget>("navigation");
    ASSERT_EQ(tabs.count(), 3);
    EXPECT_EQ(tabs.tabText(0), "&Contents");
    EXPECT_EQ(tabs.tabText(1), "&Index");
    EXPECT_EQ(tabs.tabText(2), "&Search");
    EXPECT_EQ(Find<QTreeView>("contents").accessibleName(), "Help contents");
    EXPECT_TRUE(Find<QTreeView>("contents").isHeaderHidden());
    EXPECT_EQ(Page().accessibleName(), "Help topic");
    EXPECT_EQ(Page().document()->documentMargin(), 12);
}

// The tabs are 280 pixels wide; what the window gains goes to the topic.
TEST_F(HelpWindowTest, TheTopicHasMostOfTheRoom) {
    Viewer.ShowContents(kHelpFile);
    auto& splitter = *qobject_cast<QSplitter*>(Window().centralWidget());
    EXPECT_EQ(splitter.indexOf(&Page()), 1);
    const QList<int> before = splitter.sizes();
    EXPECT_EQ(before[0], 280);
    Window().resize(984, 760);
    EXPECT_TRUE(WaitUntil([&] { return splitter.sizes()[1] == before[1] + 200; }));
    EXPECT_EQ(splitter.sizes()[0], before[0]);
}

// Each box under the words that name it.
TEST_F(HelpWindowTest, IndexAndSearchHaveABoxEach) {
    Viewer.ShowIndex(kHelpFile);
    auto& filter = Find<QLineEdit>("indexFilter");
    auto& index = Find<QHelpIndexWidget>("index");
    EXPECT_TRUE(filter.isClearButtonEnabled());
    EXPECT_EQ(index.accessibleName(), "Help index");
    const auto labels = filter.parentWidget()->findChildren<QLabel*>();
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels[0]->text(), "&Look for:");
    EXPECT_EQ(labels[0]->buddy(), &filter);
    EXPECT_LT(labels[0]->y(), filter.y());
    EXPECT_LT(filter.y(), index.y());
    EXPECT_TRUE(index.isVisible());

    Find<QTabWidget>("navigation").setCurrentIndex(2);
    auto& words = Find<QLineEdit>("searchText");
    auto& find = Find<QPushButton>("searchFind");
    auto& results = Find<QListWidget>("searchResults");
    EXPECT_TRUE(words.isClearButtonEnabled());
    EXPECT_EQ(find.text(), "&Find");
    EXPECT_EQ(results.accessibleName(), "Topics found");
    const auto search_labels = words.parentWidget()->findChildren<QLabel*>();
    ASSERT_EQ(search_labels.size(), 1);
    EXPECT_EQ(search_labels[0]->text(), "&Words to find:");
    EXPECT_EQ(search_labels[0]->buddy(), &words);
    EXPECT_LT(search_labels[0]->y(), words.y());
    EXPECT_LT(words.y(), find.y());
    EXPECT_LT(find.y(), results.y());
    EXPECT_TRUE(results.isVisible());
}

TEST_F(HelpWindowTest, TheToolbarNamesItsKeys) {
    Viewer.ShowContents(kHelpFile);
    const auto* bar = Window().findChild<QToolBar*>();
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->windowTitle(), "Navigation");
    EXPECT_FALSE(bar->isMovable());
    EXPECT_EQ(bar->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    struct Expected {
        const char *name, *text, *tip;
        QStyle::StandardPixmap icon;
        QKeySequence key;
    };
    const std::vector<Expected> tools{
        {"back", "Back", "Back (Alt+Left)", QStyle::SP_ArrowBack, QKeySequence::Back},
        {"forward", "Forward", "Forward (Alt+Right)", QStyle::SP_ArrowForward, QKeySequence::Forward},
        {"home", "Home", "Home (Alt+Home)", QStyle::SP_DirHomeIcon, QKeySequence("Alt+Home")},
        {"print", "Print topic...", "Print topic... (Ctrl+P)", QStyle::SP_FileDialogDetailedView,
         QKeySequence::Print}};
    ASSERT_EQ(bar->actions().size(), 4);
    for (int i = 0; i < 4; ++i) {
        const Expected& tool = tools[static_cast<std::size_t>(i)];
        const QAction& action = *bar->actions()[i];
        EXPECT_EQ(action.objectName(), tool.name);
        EXPECT_EQ(action.text(), tool.text);
        EXPECT_EQ(action.toolTip(), tool.tip);
        EXPECT_EQ(action.shortcut(), tool.key) << tool.name;
        EXPECT_EQ(Picture(action.icon()), Picture(QApplication::style()->standardIcon(tool.icon)))
            << tool.name;
        EXPECT_EQ(action.isEnabled(), i >= 2) << tool.name;
    }
}

TEST_F(HelpWindowTest, BackAndForwardAreLiveWhereTheyLeadSomewhere) {
    Viewer.ShowTopic(kHelpFile, "units.htm");
    Viewer.ShowTopic(kHelpFile, "cli.htm");
    EXPECT_TRUE(Tool("back").isEnabled());
    EXPECT_FALSE(Tool("forward").isEnabled());
    Tool("back").trigger();
    EXPECT_FALSE(Tool("back").isEnabled());
    EXPECT_TRUE(Tool("forward").isEnabled());
}

TEST_F(HelpWindowTest, EscapeClosesIt) {
    Viewer.ShowTopic(kHelpFile, "units.htm");
    ASSERT_TRUE(WaitUntilActive(Window()));
    QTest::keyClick(&Window(), Qt::Key_Escape);
    EXPECT_FALSE(Window().isVisible());
    Viewer.ShowContents(kHelpFile);
    EXPECT_TRUE(Window().isVisible());
    EXPECT_EQ(Topic(), "units.htm");
}

TEST_F(HelpWindowTest, TheTitleNamesTheTopic) {
    Viewer.ShowTopic(kHelpFile, "units.htm");
    EXPECT_EQ(Window().windowTitle(), "Units - TARVO-KOL Help");
    Viewer.ShowTopic(kHelpFile, "index.htm");
    EXPECT_EQ(Window().windowTitle(), "TARVO-KOL Help");
}

TEST_F(HelpWindowTest, APlaceWithinATopicIsScrolledTo) {
    Viewer.ShowTopic(kHelpFile, "studies_window.htm#risk");
    EXPECT_EQ(Topic(), "studies_window.htm");
    EXPECT_EQ(Window().windowTitle(), "The window of the studies - TARVO-KOL Help");
    EXPECT_GT(Page().verticalScrollBar()->value(), 0);
    QTextCursor top = Page().cursorForPosition(QPoint(20, 4));
    EXPECT_THAT(FromQt(top.block().text() + top.block().next().text()), HasSubstr("The page Risk"));
    EXPECT_TRUE(WaitUntil(
        [this] { return Contents().currentIndex().data().toString() == "The window of the studies"; }));
}

TEST_F(HelpWindowTest, TheContentsShowTheChapters) {
    Viewer.ShowContents(kHelpFile);
    QTreeView& contents = Contents();
    const QModelIndex home = contents.model()->index(0, 0);
    ASSERT_TRUE(WaitUntil([&] { return contents.isExpanded(home); }));
    for (int chapter = 0; chapter < contents.model()->rowCount(home); ++chapter)
        EXPECT_FALSE(contents.isExpanded(contents.model()->index(chapter, 0, home)));
}

TEST_F(HelpWindowTest, TheContentsFollowTheTopic) {
    Viewer.ShowTopic(kHelpFile, "units.htm");
    QTreeView& contents = Contents();
    ASSERT_TRUE(WaitUntil([&] { return contents.currentIndex().data() == "Units"; }));
    Viewer.ShowTopic(kHelpFile, "sizing.htm");
    EXPECT_EQ(contents.currentIndex().data(), "The sizing solver");
    Tool("back").trigger();
    EXPECT_EQ(contents.currentIndex().data(), "Units");
    Page().setSource(Page().source().resolved(QUrl("model.htm")));
    EXPECT_EQ(contents.currentIndex().data(), "The model: formulas and units");
    EXPECT_EQ(Window().windowTitle(), "The model: formulas and units - TARVO-KOL Help");
}

TEST_F(HelpWindowTest, EnterOpensATopicOfTheContents) {
    Viewer.ShowContents(kHelpFile);
    QTreeView& contents = Contents();
    const QModelIndex home = contents.model()->index(0, 0);
    contents.expandAll();
    const QModelIndex sizing = contents.model()->index(3, 0, contents.model()->index(1, 0, home));
    contents.setCurrentIndex(sizing);
    QTest::keyClick(&contents, Qt::Key_Return);
    EXPECT_EQ(Topic(), "sizing.htm");
}

TEST_F(HelpWindowTest, TheIndexTakesTheKeysAtOnce) {
    Viewer.ShowTopic(kHelpFile, "units.htm");
    ASSERT_TRUE(WaitUntilActive(Window()));
    auto& filter = Find<QLineEdit>("indexFilter");
    filter.setText("tons");
    Viewer.ShowIndex(kHelpFile);
    EXPECT_TRUE(filter.hasFocus());
    EXPECT_EQ(filter.selectedText(), "tons");
    EXPECT_EQ(Topic(), "units.htm");
    auto& index = Find<QHelpIndexWidget>("index");
    emit index.documentActivated({QUrl("qthelp://tarvokol/doc/model.htm"), "model"}, "model");
    EXPECT_EQ(Topic(), "model.htm");
}

TEST_F(HelpWindowTest, TheIndexOnANewWindowStandsBesideTheHomePage) {
    Viewer.ShowIndex(kHelpFile);
    EXPECT_EQ(Topic(), "index.htm");
}

TEST_F(HelpWindowTest, TheBoxOfAPageHasTheKeyboard) {
    Viewer.ShowContents(kHelpFile);
    ASSERT_TRUE(WaitUntilActive(Window()));
    auto& tabs = Find<QTabWidget>("navigation");
    QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, {}, tabs.tabBar()->tabRect(2).center());
    EXPECT_TRUE(WaitUntil([&] { return Find<QLineEdit>("searchText").hasFocus(); }));
    QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, {}, tabs.tabBar()->tabRect(1).center());
    EXPECT_TRUE(WaitUntil([&] { return Find<QLineEdit>("indexFilter").hasFocus(); }));
    // Along the tabs by the arrow keys nothing is taken away.
    tabs.tabBar()->setFocus();
    QTest::keyClick(tabs.tabBar(), Qt::Key_Right);
    EXPECT_EQ(tabs.currentIndex(), 2);
    EXPECT_TRUE(tabs.tabBar()->hasFocus());
}

TEST_F(HelpWindowTest, ComesBackWhereItWas) {
    Viewer.ShowTopic(kHelpFile, "units.htm");
    ASSERT_TRUE(WaitUntilActive(Window()));
    Window().resize(500, 400);
    Window().move(90, 120);
    ASSERT_TRUE(WaitUntil([&] { return Window().pos() == QPoint(90, 120); }));
    QTest::keyClick(&Window(), Qt::Key_Escape);
    ASSERT_FALSE(Window().isVisible());
    Window().move(10, 10);  // as a window manager places a window that it sees for the first time
    Viewer.ShowContents(kHelpFile);
    EXPECT_EQ(Window().pos(), QPoint(90, 120));
    EXPECT_EQ(Window().size(), QSize(500, 400));
}

TEST_F(HelpWindowTest, ResultsOfASearchOpenByClickAndEnter) {
    Viewer.ShowContents(kHelpFile);
    Find<QTabWidget>("navigation").setCurrentIndex(2);
    QListWidget& results = Search("kips");
    ASSERT_EQ(results.count(), 1);
    QTest::mouseClick(results.viewport(), Qt::LeftButton, {},
                      results.visualItemRect(results.item(0)).center());
    EXPECT_EQ(Topic(), "frmUnits.htm");
    Tool("home").trigger();
    results.setCurrentRow(0);
    QTest::keyClick(&results, Qt::Key_Return);
    EXPECT_EQ(Topic(), "frmUnits.htm");
    // A second search begins with an empty list, and so does none at all.
    Search("kips");
    EXPECT_EQ(results.count(), 1);
    Find<QLineEdit>("searchText").setText("  ");
    QTest::keyClick(&Find<QLineEdit>("searchText"), Qt::Key_Return);
    EXPECT_EQ(results.count(), 0);
    QTest::qWait(50);
    EXPECT_EQ(results.count(), 0);
}

TEST_F(HelpWindowTest, WordsOfNoTopicLeadNowhere) {
    Viewer.ShowTopic(kHelpFile, "units.htm");
    Find<QTabWidget>("navigation").setCurrentIndex(2);
    QListWidget& results = Search("kips");
    Find<QLineEdit>("searchText").setText("zyxwvut");
    QTest::keyClick(&Find<QLineEdit>("searchText"), Qt::Key_Return);
    ASSERT_TRUE(
        WaitUntil([&] { return results.count() == 1 && results.item(0)->flags() == Qt::NoItemFlags; }));
    EXPECT_EQ(results.item(0)->text(), "No topic has these words");
    emit results.itemClicked(results.item(0));
    EXPECT_EQ(Topic(), "units.htm");
}

TEST_F(HelpWindowTest, NoticesTellWhatToDo) {
    Viewer.ShowTopic(kHelpFile, "a<b>.htm");
    EXPECT_EQ(Page().toPlainText(),
              "No such topic\nThe help has no topic \"a<b>.htm\". Look for it under Contents, "
              "Index or Search.");
    const QString missing = Cache.filePath("NOHELP.CHM");
    Viewer.ShowTopic(missing.toStdString(), "units.htm");
    EXPECT_EQ(Page().toPlainText(),
              "Help is not available\nThe help file \"" + Cache.filePath("NOHELP.qch") +
                  "\" is missing or cannot be read. Installing the program again brings it "
                  "back.");
    EXPECT_FALSE(Tool("back").isEnabled());
    EXPECT_FALSE(Tool("forward").isEnabled());
    EXPECT_TRUE(Window().isVisible());
}

// Stands for the desktop and keeps the addresses that it is asked for.
class Desktop : public QTextBrowser {
  public:
    Desktop() {
        for (const char* scheme : schemes) QDesktopServices::setUrlHandler(scheme, this, "setSource");
    }
    ~Desktop() override {
        for (const char* scheme : schemes) QDesktopServices::unsetUrlHandler(scheme);
    }
    QStringList opened;

  protected:
    void doSetSource(const QUrl& address, QTextDocument::ResourceType) override {
        opened.append(address.toString());
    }

  private:
    static constexpr const char* schemes[] = {"http", "https", "mailto"};
};

TEST_F(HelpWindowTest, LinksToTheOutsideGoToTheDesktop) {
    Viewer.ShowTopic(kHelpFile, "units.htm");
    Desktop desktop;
    for (const char* address : {"http://a.example/", "https://b.example/", "mailto:c@d.example"})
        Page().setSource(QUrl(address));
    EXPECT_THAT(desktop.opened, ElementsAre("http://a.example/", "https://b.example/", "mailto:c@d.example"));
    EXPECT_EQ(Topic(), "units.htm");
}

TEST_F(HelpWindowTest, ATopicIsPrintedIntoTheFileThatWasChosen) {
    Viewer.ShowTopic(kHelpFile, "units.htm");
    const QString file = Cache.filePath("topic.pdf");
    const auto answer = [&](int result) {
        QTimer::singleShot(0, [&, result] {
            auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            EXPECT_EQ(dialog->parentWidget(), &Window());
            EXPECT_EQ(dialog->printer()->resolution(), 1200);
            dialog->printer()->setOutputFormat(QPrinter::PdfFormat);
            dialog->printer()->setOutputFileName(file);
            dialog->QDialog::done(result);
        });
        Tool("print").trigger();
    };
    answer(QDialog::Rejected);
    EXPECT_FALSE(QFile::exists(file));
    answer(QDialog::Accepted);
    EXPECT_GT(QFileInfo(file).size(), 1000);
}

// Counts how often a window comes and goes.
class Comings : public QObject {
  public:
    explicit Comings(QWidget& window) { window.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        shown += event->type() == QEvent::Show ? 1 : 0;
        hidden += event->type() == QEvent::Hide ? 1 : 0;
        return false;
    }
    int shown = 0;
    int hidden = 0;
};

TEST_F(HelpWindowTest, ATopicComesToTheFrontAndOutOfTheDock) {
    Viewer.ShowTopic(kHelpFile, "units.htm");
    Window().showMinimized();
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(WaitUntilActive(other));
    Comings comings(Window());
    Viewer.ShowTopic(kHelpFile, "cli.htm");
    EXPECT_FALSE(Window().isMinimized());
    EXPECT_TRUE(WaitUntilActive(Window()));
    EXPECT_EQ(comings.hidden, 0);
}

TEST_F(HelpWindowTest, AClosedWindowDoesNotFollowADialog) {
    Viewer.ShowTopic(kHelpFile, "units.htm");
    Window().close();
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    QTest::qWait(20);
    EXPECT_FALSE(Window().isVisible());
}

TEST_F(HelpWindowTest, ItsOwnDialogIsNotFollowed) {
    Viewer.ShowTopic(kHelpFile, "units.htm");
    QDialog inner(Window().centralWidget());
    inner.setModal(true);
    inner.show();
    QTest::qWait(20);
    EXPECT_EQ(Window().windowHandle()->transientParent(), nullptr);
    EXPECT_TRUE(Window().isVisible());
}

TEST_F(HelpWindowTest, FollowingADialogLeavesTheNextShowActive) {
    Viewer.ShowTopic(kHelpFile, "units.htm");
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    ASSERT_TRUE(
        WaitUntil([&] { return Window().windowHandle()->transientParent() == dialog.windowHandle(); }));
    EXPECT_FALSE(Window().testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_TRUE(Window().isVisible());
    Comings comings(Window());
    Viewer.ShowTopic(kHelpFile, "cli.htm");
    EXPECT_EQ(comings.hidden, 0);
}

TEST_F(HelpWindowTest, ADialogOfAWidgetStandsForItsWindow) {
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    Viewer.ShowContents(kHelpFile);
    EXPECT_EQ(Window().windowHandle()->transientParent(), dialog.windowHandle());
}

}  // namespace
}  // namespace tarvokol
