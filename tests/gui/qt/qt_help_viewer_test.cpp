// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/help/qt_help_viewer.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QHelpSearchEngine>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QWindow>
#include <QXmlStreamReader>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "qt/help/help_window.h"
#include "tests/support/waiting.h"

namespace tarvokol {
namespace {

const QString help_sources = QStringLiteral(TARVOKOL_SOURCE_DIR "/resources/help");
const std::string help_file = TARVOKOL_PROGRAM_DIR "/TARVOKOL.CHM";

QString SourceOf(const QString& name) {
    QFile file(help_sources + "/" + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
    return QString::fromUtf8(file.readAll());
}

QStringList Topics() {
    return QDir(help_sources).entryList({"*.htm"}, QDir::Files);
}

// Values of an attribute of the elements of that name in the help project.
QStringList ProjectValues(const QString& element, const QString& attribute) {
    QXmlStreamReader reader(SourceOf("TARVOKOL.qhp"));
    QStringList values;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement() && reader.name() == element) {
            values.append(reader.attributes().value(attribute).toString());
        }
    }
    EXPECT_FALSE(reader.hasError()) << qPrintable(reader.errorString());
    return values;
}

QStringList Matches(const QString& text, const QString& pattern) {
    QStringList found;
    auto matches = QRegularExpression(pattern).globalMatch(text);
    while (matches.hasNext()) found.append(matches.next().captured(1));
    return found;
}

TEST(HelpSources, EveryTopicIsInTheContentsAndEveryEntryIsATopic) {
    QStringList listed = ProjectValues("section", "ref");
    listed.removeDuplicates();
    listed.sort();
    QStringList topics = Topics();
    topics.sort();
    EXPECT_EQ(listed, topics);
    EXPECT_GE(topics.size(), 35);
}

TEST(HelpSources, EveryIndexWordLeadsToATopic) {
    const QStringList topics = Topics();
    const QStringList places = ProjectValues("keyword", "ref");
    EXPECT_GE(places.size(), 150);
    for (const QString& place : places) EXPECT_TRUE(topics.contains(place)) << qPrintable(place);
}

TEST(HelpSources, EveryTopicIsWellFormedAndTitled) {
    for (const QString& topic : Topics()) {
        QXmlStreamReader reader(SourceOf(topic));
        QString title, heading;
        while (!reader.atEnd()) {
            reader.readNext();
            if (reader.isStartElement() && reader.name() == QLatin1String("title"))
                title = reader.readElementText();
            if (reader.isStartElement() && reader.name() == QLatin1String("h1"))
                heading = reader.readElementText();
        }
        EXPECT_FALSE(reader.hasError()) << qPrintable(topic + ": " + reader.errorString());
        EXPECT_FALSE(title.isEmpty()) << qPrintable(topic);
        EXPECT_EQ(title, heading) << qPrintable(topic);
    }
}

TEST(HelpSources, EveryLinkAndImageResolves) {
    for (const QString& topic : Topics()) {
        const QString text = SourceOf(topic);
        for (const QString& target : Matches(text, "(?:href|src)=\"([^\"]+)\"")) {
            EXPECT_TRUE(QFile::exists(help_sources + "/" + target)) << qPrintable(topic + " -> " + target);
        }
    }
}

TEST(HelpSources, NoTopicFixesAColour) {
    for (const QString& name : Topics() + QStringList{"help.css"}) {
        EXPECT_FALSE(SourceOf(name).contains("color", Qt::CaseInsensitive)) << qPrintable(name);
    }
}

class HelpViewerTest : public testing::Test {
  protected:
    HelpViewerTest() { qputenv("XDG_CACHE_HOME", cache_.path().toUtf8()); }

    QTextBrowser& Page() { return *viewer_.Window()->findChild<QTextBrowser*>("topic"); }
    QTabWidget& Tabs() { return *viewer_.Window()->findChild<QTabWidget*>("navigation"); }
    QAction& Tool(const char* name) { return *viewer_.Window()->findChild<QAction*>(name); }

    template <typename Widget>
    Widget& Find(const char* name) {
        return *viewer_.Window()->findChild<Widget*>(name);
    }

    QTemporaryDir cache_;
    QtHelpViewer viewer_;
};

TEST_F(HelpViewerTest, ShowsTheTopicAskedFor) {
    viewer_.ShowTopic(help_file, "frmTARVOParm.htm");
    EXPECT_TRUE(viewer_.Window()->isVisible());
    EXPECT_EQ(Page().source().fileName(), "frmTARVOParm.htm");
    EXPECT_EQ(Page().documentTitle(), "Project parameters");
    EXPECT_TRUE(
        Page().toPlainText().contains("Barrier pillar width should be greater than web thickness width"));
}

TEST_F(HelpViewerTest, HasATopicForEveryForm) {
    for (const char* form : {"frmMain",    "frmTARVODesc", "frmTARVOParm", "frmResTxtPlt",  "frmPreview",
                             "frmPicture", "frmGraph",     "frmGraphS",    "frmGraphOpt",   "frmGraphOptS",
                             "frmSet",     "frmPath",      "frmTARVOOpts", "frmUnits",      "frmConvert",
                             "frmUnsaved", "frmTextBrow",  "frmResource",  "frmDisclaimer", "frmUpdate"}) {
        const QString topic = QString(form) + ".htm";
        viewer_.ShowTopic(help_file, topic.toStdString());
        EXPECT_EQ(Page().source().fileName(), topic);
    }
}

TEST_F(HelpViewerTest, ShowsTheTwoTopicsThatTheDialogsName) {
    viewer_.ShowTopic(help_file, "Table1StabilityFactors.htm");
    EXPECT_EQ(Page().documentTitle(), "Meaning of the stability factors");
    viewer_.ShowTopic(help_file, "DesignProceduresforTARVOKOL.htm");
    EXPECT_EQ(Page().documentTitle(), "Design procedure");
}

TEST_F(HelpViewerTest, ShowsContentsOnTheHomePage) {
    viewer_.ShowContents(help_file);
    EXPECT_EQ(Tabs().currentIndex(), 0);
    EXPECT_EQ(Page().documentTitle(), "TARVO-KOL Help");
    QTreeView& contents = Find<QTreeView>("contents");
    EXPECT_TRUE(WaitUntil([&] { return contents.model()->rowCount() == 1; }));
    EXPECT_EQ(contents.model()->rowCount(contents.model()->index(0, 0)), 9);
}

TEST_F(HelpViewerTest, OpensATopicClickedInTheContents) {
    viewer_.ShowContents(help_file);
    QTreeView& contents = Find<QTreeView>("contents");
    ASSERT_TRUE(WaitUntil([&] { return contents.model()->rowCount() == 1; }));
    const QModelIndex design = contents.model()->index(1, 0, contents.model()->index(0, 0));
    contents.expandAll();
    const QModelIndex sizing = contents.model()->index(3, 0, design);
    contents.scrollTo(sizing);
    QTest::mouseClick(contents.viewport(), Qt::LeftButton, {}, contents.visualRect(sizing).center());
    EXPECT_EQ(Page().source().fileName(), "sizing.htm");
}

TEST_F(HelpViewerTest, KeepsThePageWhenContentsAreAskedFor) {
    viewer_.ShowTopic(help_file, "units.htm");
    viewer_.ShowContents(help_file);
    EXPECT_EQ(Page().source().fileName(), "units.htm");
}

TEST_F(HelpViewerTest, FindsAnIndexWord) {
    viewer_.ShowIndex(help_file);
    EXPECT_EQ(Tabs().currentIndex(), 1);
    QHelpIndexWidget& index = Find<QHelpIndexWidget>("index");
    ASSERT_TRUE(WaitUntil([&] { return index.model()->rowCount() > 100; }));
    QLineEdit& filter = Find<QLineEdit>("indexFilter");
    QTest::keyClicks(&filter, "tributary area");
    ASSERT_EQ(index.model()->rowCount(), 1);
    QTest::keyClick(&filter, Qt::Key_Return);
    EXPECT_EQ(Page().source().fileName(), "model.htm");
}

TEST_F(HelpViewerTest, FindsWordsInAllTopics) {
    viewer_.ShowContents(help_file);
    Tabs().setCurrentIndex(2);
    QListWidget& results = Find<QListWidget>("searchResults");
    QTest::keyClicks(&Find<QLineEdit>("searchText"), "kips");
    const auto found = [&] {
        QTest::mouseClick(&Find<QPushButton>("searchFind"), Qt::LeftButton);
        QTest::qWait(100);
        return results.count() > 0 && results.item(0)->flags().testFlag(Qt::ItemIsEnabled);
    };
    ASSERT_TRUE(WaitUntil(found));  // the index is made in the background
    ASSERT_EQ(results.count(), 1);
    EXPECT_EQ(results.item(0)->text(), "Unit conversions");
    emit results.itemClicked(results.item(0));
    EXPECT_EQ(Page().source().fileName(), "frmUnits.htm");
}

TEST_F(HelpViewerTest, SaysThatNoTopicHasTheWords) {
    viewer_.ShowContents(help_file);
    QListWidget& results = Find<QListWidget>("searchResults");
    Find<QLineEdit>("searchText").setText("zyxwvut");
    const auto answered = [&] {
        QTest::keyClick(&Find<QLineEdit>("searchText"), Qt::Key_Return);
        QTest::qWait(50);
        return results.count() == 1;
    };
    ASSERT_TRUE(WaitUntil(answered));
    EXPECT_EQ(results.item(0)->text(), "No topic has these words");
}

TEST_F(HelpViewerTest, GoesBackAndForward) {
    viewer_.ShowTopic(help_file, "units.htm");
    EXPECT_FALSE(Tool("back").isEnabled());
    viewer_.ShowTopic(help_file, "cli.htm");
    Tool("back").trigger();
    EXPECT_EQ(Page().source().fileName(), "units.htm");
    Tool("forward").trigger();
    EXPECT_EQ(Page().source().fileName(), "cli.htm");
    Tool("home").trigger();
    EXPECT_EQ(Page().source().fileName(), "index.htm");
}

TEST_F(HelpViewerTest, LoadsEveryImageOfEveryTopic) {
    for (const QString& topic : Topics()) {
        viewer_.ShowTopic(help_file, topic.toStdString());
        for (const QString& name : Matches(SourceOf(topic), "src=\"([^\"]+)\"")) {
            const QByteArray bytes =
                Page().loadResource(QTextDocument::ImageResource, QUrl(name)).toByteArray();
            EXPECT_FALSE(QImage::fromData(bytes).isNull()) << qPrintable(topic + " -> " + name);
        }
    }
}

TEST_F(HelpViewerTest, SaysThatATopicDoesNotExist) {
    viewer_.ShowTopic(help_file, "frmNowhere.htm");
    EXPECT_TRUE(Page().toPlainText().startsWith("No such topic"));
    EXPECT_TRUE(Page().toPlainText().contains("\"frmNowhere.htm\""));
}

TEST_F(HelpViewerTest, SaysThatTheHelpFileIsMissing) {
    const std::string missing = cache_.filePath("NOHELP.CHM").toStdString();
    viewer_.ShowContents(missing);
    EXPECT_TRUE(Page().toPlainText().startsWith("Help is not available"));
    EXPECT_TRUE(Page().toPlainText().contains("NOHELP.qch"));
    viewer_.ShowIndex(missing);
    viewer_.ShowTopic(missing, "frmMain.htm");
    EXPECT_TRUE(Page().toPlainText().startsWith("Help is not available"));
}

TEST_F(HelpViewerTest, SurvivesADamagedHelpFile) {
    QFile damaged(cache_.filePath("BAD.qch"));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("this is no compiled help");
    damaged.close();
    viewer_.ShowContents(cache_.filePath("BAD.CHM").toStdString());
    EXPECT_TRUE(Page().toPlainText().startsWith("Help is not available"));
}

TEST_F(HelpViewerTest, ReadsAHelpFileThatHasChangedAfresh) {
    const QString copy = cache_.filePath("TARVOKOL.qch");
    ASSERT_TRUE(QFile::copy(TARVOKOL_PROGRAM_DIR "/TARVOKOL.qch", copy));
    const std::string name = cache_.filePath("TARVOKOL.CHM").toStdString();
    viewer_.ShowTopic(name, "units.htm");
    viewer_.Uninitialize(name);
    QFile touched(copy);
    ASSERT_TRUE(touched.open(QIODevice::ReadWrite));
    ASSERT_TRUE(
        touched.setFileTime(QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime));
    touched.close();
    viewer_.ShowTopic(name, "units.htm");
    EXPECT_EQ(Page().documentTitle(), "Units");
}

TEST_F(HelpViewerTest, FindsTheHelpOfAnInstallation) {
    ASSERT_TRUE(QDir(cache_.path()).mkpath("share/tarvokol"));
    ASSERT_TRUE(QDir(cache_.path()).mkpath("bin"));
    ASSERT_TRUE(
        QFile::copy(TARVOKOL_PROGRAM_DIR "/TARVOKOL.qch", cache_.filePath("share/tarvokol/TARVOKOL.qch")));
    viewer_.ShowTopic(cache_.filePath("bin/TARVOKOL.CHM").toStdString(), "frmMain.htm");
    EXPECT_EQ(Page().documentTitle(), "The main window");
}

TEST_F(HelpViewerTest, ClosesAtUninitialize) {
    viewer_.ShowContents(help_file);
    viewer_.Uninitialize(help_file);
    EXPECT_EQ(viewer_.Window(), nullptr);
    viewer_.Uninitialize(help_file);
}

TEST_F(HelpViewerTest, BelongsToTheDialogThatItWasAskedFrom) {
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    viewer_.ShowTopic(help_file, "frmSet.htm");
    EXPECT_EQ(viewer_.Window()->windowHandle()->transientParent(), dialog.windowHandle());
    EXPECT_TRUE(viewer_.Window()->isVisible());
    dialog.hide();
    viewer_.ShowTopic(help_file, "frmMain.htm");
    EXPECT_EQ(viewer_.Window()->windowHandle()->transientParent(), nullptr);
}

// Whether a window last came up without taking the focus.
class ShowWatch : public QObject {
  public:
    explicit ShowWatch(QWidget& window) { window.installEventFilter(this); }

    bool eventFilter(QObject* window, QEvent* event) override {
        if (event->type() == QEvent::Show)
            without_activating = static_cast<QWidget*>(window)->testAttribute(Qt::WA_ShowWithoutActivating);
        return false;
    }

    bool without_activating = false;
};

TEST_F(HelpViewerTest, StaysReadableBesideADialogThatOpensLater) {
    viewer_.ShowTopic(help_file, "frmMain.htm");
    ShowWatch watch(*viewer_.Window());
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    ASSERT_TRUE(WaitUntil(
        [&] { return viewer_.Window()->windowHandle()->transientParent() == dialog.windowHandle(); }));
    EXPECT_TRUE(viewer_.Window()->isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
    EXPECT_TRUE(watch.without_activating);
    Tabs().setCurrentIndex(0);
    QTest::mouseClick(viewer_.Window()->windowHandle(), Qt::LeftButton, {},
                      Tabs().mapTo(viewer_.Window(), Tabs().tabBar()->tabRect(2).center()));
    EXPECT_EQ(Tabs().currentIndex(), 2);
}

TEST_F(HelpViewerTest, DoesNotFollowAMessageBox) {
    viewer_.ShowTopic(help_file, "frmMain.htm");
    QMessageBox box;
    box.setModal(true);
    box.show();
    QTest::qWait(50);
    EXPECT_EQ(viewer_.Window()->windowHandle()->transientParent(), nullptr);
}

TEST_F(HelpViewerTest, ATopicIsPrintedUnderItsTitle) {
    viewer_.ShowTopic(help_file, "frmUnits.htm");
    QString name;
    QTimer::singleShot(0, [&name] {
        auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) return;
        name = dialog->printer()->docName();
        dialog->reject();
    });
    Tool("print").trigger();
    EXPECT_FALSE(name.isEmpty());
    EXPECT_EQ(name, Page().documentTitle());
}

}  // namespace
}  // namespace tarvokol
