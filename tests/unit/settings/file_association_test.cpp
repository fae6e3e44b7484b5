// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/file_association.h"

#include "core/platform/message_box.h"
#include "tests/unit/settings/settings_fixture.h"

namespace tarvokol {
namespace {

class FileAssociation : public SettingsTest {
  protected:
    FileAssociation() {
        DisplayHistoryWin = 1;
        AppFolder = "/opt/kol/";
        Host.Folders.Program = "/opt/kol/tarvokol";
        FileExtension = "KOL";
    }
};

TEST_F(FileAssociation, AnsweringNoChangesNothing) {
    Host.Messages.Answers = {7};
    CreateFileAssociation();
    EXPECT_TRUE(Host.FileTypes.Registered.empty());
    ASSERT_EQ(Host.Messages.Shown.size(), 1u);
    EXPECT_EQ(
        Host.Messages.Shown[0].message,
        "This operation may break an existing association of file extension KOL with other programs on this "
        "computer. Proceed?");
    EXPECT_EQ(Host.Messages.Shown[0].style, 4);
    EXPECT_EQ(Host.Messages.Shown[0].title, "Tarvo Panel Stability Evaluation - KOL");
}

TEST_F(FileAssociation, YesRegistersTheExtensionOfTheSetting) {
    Host.Messages.Answers = {6, 1};
    CreateFileAssociation();
    ASSERT_EQ(Host.FileTypes.Registered.size(), 1u);
    const DocumentType& type = Host.FileTypes.Registered[0];
    EXPECT_EQ(type.extension, "KOL");
    EXPECT_EQ(type.type_name, "tarvokol.Document");
    EXPECT_EQ(type.description, "tarvokol Document");
    EXPECT_EQ(type.command, "/opt/kol/tarvokol.EXE \"%1\"");
    EXPECT_EQ(type.program, "/opt/kol/tarvokol");
    EXPECT_EQ(Messages().back(),
              "The file association for KOL has been made to /opt/kol/tarvokol.EXE \"%1\"");
    EXPECT_TRUE(Host.MainWindow.History.ends_with(". /opt/kol/ tarvokol KOL\r\n")) << Host.MainWindow.History;
}

}  // namespace
}  // namespace tarvokol
