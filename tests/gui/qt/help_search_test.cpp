// SPDX-License-Identifier: GPL-3.0-or-later
// The help's search over more topics than it shows, which the program's own help does not have.
#include <QDir>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "qt/help/help_window.h"
#include "qt/help/qt_help_viewer.h"
#include "tests/support/waiting.h"

namespace tarvokol {
namespace {

class HelpSearchTest : public testing::Test {
  protected:
    HelpSearchTest() { qputenv("XDG_CACHE_HOME", Folder.path().toUtf8()); }

    void Write(const QString& name, const QString& text) const {
        QFile file(Folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
    }

    // A compiled help of so many topics; "gallery" stands in all of them, "portal" in the first twelve.
    std::string MakeHelp(int topics) const {
        QString files;
        for (int topic = 1; topic <= topics; ++topic) {
            const QString name = QString("topic%1.htm").arg(topic);
            Write(name,
                  QString("<html><head><title>Topic %1</title></head><body><p>gallery%2</p></body></html>")
                      .arg(topic)
                      .arg(topic <= 12 ? " portal" : ""));
            files += "<file>" + name + "</file>";
        }
        Write("many.qhp",
              "<QtHelpProject version=\"1.0\"><namespace>example.oltek.many</namespace><virtualFolder>doc"
              "</virtualFolder><filterSection><toc><section title=\"Topics\" "
              "ref=\"topic1.htm\"/></toc><files>" +
                  files + "</files></filterSection></QtHelpProject>");
        QProcess compiler;
        compiler.start(QLibraryInfo::path(QLibraryInfo::LibraryExecutablesPath) + "/qhelpgenerator",
                       {Folder.filePath("many.qhp"), "-o", Folder.filePath("many.qch")});
        EXPECT_TRUE(compiler.waitForFinished(kPatienceMilliseconds));
        EXPECT_EQ(compiler.exitCode(), 0);
        return Folder.filePath("many.CHM").toStdString();
    }

    // How many topics a search shows. The index is made in the background; until it is there no topic has the words.
    int Found(const QString& words) {
        Viewer.Window()->findChild<QLineEdit*>("searchText")->setText(words);
        auto& results = *Viewer.Window()->findChild<QListWidget*>("searchResults");
        auto& find = *Viewer.Window()->findChild<QPushButton*>("searchFind");
        const auto answered = [&results] { return results.count() > 0; };
        const auto found = [&] {
            find.click();
            return WaitUntil(answered) && results.item(0)->flags().testFlag(Qt::ItemIsEnabled);
        };
        EXPECT_TRUE(WaitUntil(found));
        return results.count();
    }

    QTemporaryDir Folder;
    QtHelpViewer Viewer;
};

TEST_F(HelpSearchTest, ShowsFiftyTopicsAtTheMost) {
    Viewer.ShowContents(MakeHelp(60));
    EXPECT_EQ(Found("gallery"), 50);
    EXPECT_EQ(Found("portal"), 12);
}

TEST_F(HelpSearchTest, ShowsAllOfFifty) {
    Viewer.ShowContents(MakeHelp(50));
    EXPECT_EQ(Found("gallery"), 50);
}

}  // namespace
}  // namespace tarvokol
