// SPDX-License-Identifier: GPL-3.0-or-later
// Where the help's file is looked for, and its collection kept.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHelpEngineCore>

#include "qt/help/help_collection.h"
#include "tests/gui/qt/help_fixture.h"

namespace tarvokol {
namespace {

class HelpFileTest : public HelpFixture {
  protected:
    QStringList CacheFiles() {
        return QDir(Cache.filePath("tarvokol/help")).entryList({"help-*.qhc"}, QDir::Files);
    }
};

TEST_F(HelpFileTest, TheCollectionStandsInTheCacheUnderTheHelpFilesPlace) {
    Viewer.ShowTopic(kHelpFile, "units.htm");
    ASSERT_EQ(CacheFiles().size(), 1);
    const QString first = CacheFiles()[0];
    EXPECT_EQ(first.size(), 21);  // help-, twelve digits of the place, .qhc
    const QString copy = Cache.filePath("TARVOKOL.qch");
    ASSERT_TRUE(QFile::copy(TARVOKOL_PROGRAM_DIR "/TARVOKOL.qch", copy));
    Viewer.ShowTopic(Cache.filePath("TARVOKOL.CHM").toStdString(), "units.htm");
    EXPECT_EQ(CacheFiles().size(), 2);
    EXPECT_EQ(Window().CompiledFile(), copy);
}

TEST_F(HelpFileTest, AHelpFileIsRegisteredAgainWhenItHasChanged) {
    const QString copy = Cache.filePath("TARVOKOL.qch");
    ASSERT_TRUE(QFile::copy(TARVOKOL_PROGRAM_DIR "/TARVOKOL.qch", copy));
    const std::string name = Cache.filePath("TARVOKOL.CHM").toStdString();
    const auto stamp = [&] {
        Viewer.Uninitialize(name);
        QHelpEngineCore engine(Cache.filePath("tarvokol/help/" + CacheFiles()[0]));
        engine.setReadOnly(true);
        EXPECT_TRUE(engine.setupData());
        EXPECT_EQ(engine.registeredDocumentations().size(), 1);
        return engine.customValue("CompiledFileStamp").toString();
    };
    const auto written = [&](qint64 seconds) {
        QFile file(copy);
        EXPECT_TRUE(file.open(QIODevice::ReadWrite));
        EXPECT_TRUE(
            file.setFileTime(QDateTime::fromSecsSinceEpoch(seconds), QFileDevice::FileModificationTime));
        return QString::number(file.size()) + " " + QString::number(seconds) + "000";
    };
    const QString first = written(1'700'000'000);
    Viewer.ShowTopic(name, "units.htm");
    EXPECT_EQ(stamp(), first);
    const QString second = written(1'700'000'060);
    Viewer.ShowTopic(name, "units.htm");
    EXPECT_EQ(Page().documentTitle(), "Units");
    EXPECT_EQ(stamp(), second);
    Viewer.ShowTopic(name, "units.htm");
    EXPECT_EQ(Page().documentTitle(), "Units");
    EXPECT_EQ(stamp(), second);
}

TEST_F(HelpFileTest, WithoutACacheTheHelpIsReadAllTheSame) {
    QFile file(Cache.filePath("nofolder"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    qputenv("XDG_CACHE_HOME", file.fileName().toUtf8());
    Viewer.ShowTopic(kHelpFile, "units.htm");
    EXPECT_EQ(Page().documentTitle(), "Units");
    HelpCollection collection(TARVOKOL_PROGRAM_DIR "/TARVOKOL.qch");
    EXPECT_TRUE(collection.Usable());
    const QFileInfo scratch(collection.Engine().collectionFile());
    EXPECT_TRUE(scratch.path().startsWith(QDir::tempPath() + "/")) << scratch.path().toStdString();
    EXPECT_TRUE(scratch.fileName().startsWith("help-"));
}

TEST_F(HelpFileTest, ADifferentHelpFileHasAWindowOfItsOwn) {
    Viewer.ShowTopic(kHelpFile, "units.htm");
    const HelpWindow* first = Viewer.Window();
    Viewer.ShowIndex(kHelpFile);
    EXPECT_EQ(Viewer.Window(), first);
    Viewer.ShowTopic(Cache.filePath("OTHER.CHM").toStdString(), "units.htm");
    EXPECT_EQ(Window().CompiledFile(), Cache.filePath("OTHER.qch"));
}

// Beside the program first, also where there is an installation as well.
TEST_F(HelpFileTest, TheHelpBesideTheProgramComesFirst) {
    ASSERT_TRUE(QDir(Cache.path()).mkpath("share/tarvokol"));
    ASSERT_TRUE(QDir(Cache.path()).mkpath("bin"));
    for (const char* place : {"share/tarvokol/TARVOKOL.qch", "bin/TARVOKOL.qch"})
        ASSERT_TRUE(QFile::copy(TARVOKOL_PROGRAM_DIR "/TARVOKOL.qch", Cache.filePath(place)));
    Viewer.ShowTopic(Cache.filePath("bin/TARVOKOL.CHM").toStdString(), "units.htm");
    EXPECT_EQ(Window().CompiledFile(), Cache.filePath("bin/TARVOKOL.qch"));
    ASSERT_TRUE(QFile::remove(Cache.filePath("bin/TARVOKOL.qch")));
    Viewer.ShowTopic(Cache.filePath("bin/TARVOKOL.CHM").toStdString(), "units.htm");
    EXPECT_EQ(Window().CompiledFile(), Cache.filePath("share/tarvokol/TARVOKOL.qch"));
    ASSERT_TRUE(QFile::remove(Cache.filePath("share/tarvokol/TARVOKOL.qch")));
    Viewer.Uninitialize("");
    Viewer.ShowTopic(Cache.filePath("bin/TARVOKOL.CHM").toStdString(), "units.htm");
    EXPECT_EQ(Window().CompiledFile(), Cache.filePath("bin/TARVOKOL.qch"));
}

}  // namespace
}  // namespace tarvokol
