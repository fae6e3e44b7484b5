// SPDX-License-Identifier: GPL-3.0-or-later
// The user's folders, for accounts of every kind: the home folder is one of the test's own.
#include "qt/session/system_folders.h"

#include <QDir>
#include <map>
#include <optional>

#include <pwd.h>
#include <unistd.h>

#include "qt/session/qt_text.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

class SystemFolderPlaces : public CoreTest {
  protected:
    SystemFolderPlaces() {
        for (const char* name : {"HOME", "XDG_CONFIG_HOME", "TMPDIR"})
            before_[name] = qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name)) : std::nullopt;
        qputenv("HOME", Folder.c_str());
        qunsetenv("XDG_CONFIG_HOME");
    }
    ~SystemFolderPlaces() override {
        for (const auto& [name, value] : before_) {
            if (value)
                qputenv(name, *value);
            else
                qunsetenv(name);
        }
    }

    void NameDocuments(const std::string& folder) const {
        std::filesystem::create_directory(Folder / ".config");
        WriteBytes(PathTo(".config/user-dirs.dirs"), "XDG_DOCUMENTS_DIR=\"" + folder + "\"\n");
    }

    SystemFolders Folders;

  private:
    std::map<const char*, std::optional<QByteArray>> before_;
};

TEST_F(SystemFolderPlaces, AreThoseOfTheDesktop) {
    EXPECT_EQ(Folders.ProgramFile(), FromQt(QCoreApplication::applicationFilePath()));
    EXPECT_EQ(Folders.Desktop(), PathTo("Desktop"));
    qputenv("TMPDIR", "/var/tmp");
    EXPECT_EQ(Folders.Temporary(), "/var/tmp");
    NameDocuments("$HOME/Unterlagen");
    std::filesystem::create_directory(Folder / "Unterlagen");
    EXPECT_EQ(Folders.Documents(), PathTo("Unterlagen"));
    EXPECT_FALSE(std::filesystem::exists(PathTo("Documents")));
}

TEST_F(SystemFolderPlaces, AnAccountWithoutDocumentsGetsTheFolder) {
    EXPECT_EQ(Folders.Documents(), PathTo("Documents"));
    EXPECT_TRUE(std::filesystem::is_directory(PathTo("Documents")));
    EXPECT_EQ(Folders.Documents(), PathTo("Documents"));
}

TEST_F(SystemFolderPlaces, AnAccountWithADesktopFolderAloneKeepsItsDataThere) {
    std::filesystem::create_directory(Folder / "Desktop");
    EXPECT_EQ(Folders.Documents(), PathTo("Documents"));
    EXPECT_FALSE(std::filesystem::exists(PathTo("Documents")));
}

TEST_F(SystemFolderPlaces, WhereDocumentsCannotBeMadeTheHomeFolderServes) {
    WriteBytes(PathTo("Documents"), "a file in the way");
    EXPECT_EQ(Folders.Documents(), Folder.string());
    EXPECT_EQ(ReadBytes(PathTo("Documents")), "a file in the way");
}

TEST_F(SystemFolderPlaces, DocumentsOnAVolumeThatIsNotThereAreNotMade) {
    const std::string volume = Folder.string() + "-volume";
    NameDocuments(volume + "/documents");
    EXPECT_EQ(Folders.Documents(), Folder.string());
    EXPECT_FALSE(std::filesystem::exists(volume));
}

TEST_F(SystemFolderPlaces, AHomeFolderThatIsNotThereIsNotMade) {
    qputenv("HOME", PathTo("nobody").c_str());
    EXPECT_EQ(Folders.Documents(), PathTo("nobody"));
    EXPECT_FALSE(std::filesystem::exists(PathTo("nobody")));
}

TEST_F(SystemFolderPlaces, WithoutAHomeInTheEnvironmentThatOfTheAccountServes) {
    const passwd* account = ::getpwuid(::getuid());
    if (account == nullptr) GTEST_SKIP() << "this user has no account";
    qunsetenv("HOME");
    const bool had_documents = std::filesystem::exists("/Documents"),
               had_desktop = std::filesystem::exists("/Desktop");
    if (had_documents || had_desktop) GTEST_SKIP() << "the root folder holds documents";
    EXPECT_EQ(Folders.Documents(), account->pw_dir);
    EXPECT_FALSE(std::filesystem::exists("/Documents"));
}

}  // namespace
}  // namespace tarvokol
