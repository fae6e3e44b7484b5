// SPDX-License-Identifier: GPL-3.0-or-later
// What an administrator's file gives to new users, and to them alone.
#include <filesystem>

#include <gmock/gmock.h>

#include "tests/unit/settings/settings_fixture.h"

namespace tarvokol {
namespace {

using testing::HasSubstr;
using testing::Not;

class SystemSettings : public SettingsTest {
  protected:
    void GiveSystem(const std::string& text) const {
        std::filesystem::create_directory(Folder / "etc");
        WriteBytes(SystemIniPath, text);
    }
};

TEST_F(SystemSettings, ANewFileGetsTheKeysThatTheSystemHas) {
    GiveSystem(
        "[Settings]\nShowDisclaim=0\nRemindAnnualUpdates=0\nDefaultUnits=1\n"
        "[TARVOKOLOptions]\nDefaultAbutment=25\n");
    SettleConfigurationFile();
    EXPECT_EQ(ShowDisclaim, 0);
    EXPECT_EQ(RemindAnnualUpdates, 0);
    EXPECT_EQ(DefaultUnitSystem, 1);
    EXPECT_EQ(OptionsRecord.DefaultAbutment, 25.0f);
    // Keys that it does not have are those of any new file.
    EXPECT_EQ(OptionsRecord.DefaultSFWeb, 1.6f);
    EXPECT_EQ(KeepFileNames, 1);
    const std::string file = ReadBytes(IniPath);
    EXPECT_THAT(file, HasSubstr("\r\nShowDisclaim=0\r\n"));
    EXPECT_THAT(file, HasSubstr("\r\nRemindAnnualUpdates=0\r\n"));
    EXPECT_THAT(file, HasSubstr("\r\nDefaultAbutment=25\r\n"));
    EXPECT_THAT(file, HasSubstr("\r\nKeepFileNames=1\r\n"));
}

TEST_F(SystemSettings, AUsersOwnFileHolds) {
    SettleConfigurationFile();
    GiveSystem("[Settings]\nShowDisclaim=0\nDefaultUnits=1\n");
    SetBuiltIn();
    SettleConfigurationFile();
    EXPECT_EQ(ShowDisclaim, 1);
    EXPECT_EQ(DefaultUnitSystem, 0);
}

TEST_F(SystemSettings, AFileOfAnotherStampIsMadeAnewWithThem) {
    WriteBytes(IniPath, "[Version]\nINIFileVersion=040101\n[Settings]\nShowDisclaim=1\n");
    GiveSystem("[Settings]\nShowDisclaim=0\n");
    SettleConfigurationFile();
    EXPECT_EQ(ShowDisclaim, 0);
}

TEST_F(SystemSettings, TheyHoldWhereNoFileCanBeWritten) {
    std::filesystem::remove(PersonalDataFolder);
    GiveSystem("[Settings]\nRemindAnnualUpdates=0\n");
    SettleConfigurationFile();
    EXPECT_EQ(RemindAnnualUpdates, 0);
}

TEST_F(SystemSettings, RecentFilesEmptyKeysAndFiguresOutOfRangeFollowTheRulesOfReading) {
    GiveSystem(
        "[Settings]\nShowDisclaim=\nDisplayFontSize=99\n"
        "[FileMenu]\nMaxLastFiles=1\nLastFile1=a\nLastFileLong1=/a\n");
    SettleConfigurationFile();
    EXPECT_EQ(ShowDisclaim, 1);
    EXPECT_EQ(DisplayFontSize, 7.0f);
    EXPECT_EQ(MaxLastFiles, 0);
    EXPECT_THAT(ReadBytes(IniPath), Not(HasSubstr("LastFile1")));
}

TEST_F(SystemSettings, AFolderInItsPlaceSaysNothing) {
    std::filesystem::create_directories(Folder / "etc" / "TARVOKOL.INI");
    SettleConfigurationFile();
    EXPECT_EQ(ShowDisclaim, 1);
}

}  // namespace
}  // namespace tarvokol
