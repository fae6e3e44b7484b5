// SPDX-License-Identifier: GPL-3.0-or-later
// Which settings the dialog takes and which it refuses.
#include "tests/gui/settings/settings_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

class SettingsRefusals : public SettingsFixture {};

TEST_F(SettingsRefusals, RefusesAPathThatDoesNotExist) {
    Submit("Text2", PathTo("gone"));
    EXPECT_FALSE(Closed());
    ExpectBox(0, "Invalid Path for Data Files", 16, "Error");
    EXPECT_EQ(TextOf(frmSet::Instance(), "Text2"), PathTo("gone") + "/");
    EXPECT_TRUE(HasFocus(frmSet::Instance(), "Text2"));
    EXPECT_EQ(DataPath, Folder.string() + "/");
}

// A blank becomes the root folder, which exists.
TEST_F(SettingsRefusals, ABlankPathIsTheRoot) {
    Submit("Text2", "  ");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(DataPath, "/");
}

// Only a path without its separator is put right, and its blanks with it.
TEST_F(SettingsRefusals, RefusesBlanksAroundAPathThatEndsInASeparator) {
    for (const std::string& path : {"  " + Folder.string() + "/", Folder.string() + "/ "}) {
        Host.Messages.Shown.clear();
        Submit("Text2", path);
        ExpectBox(0, "Invalid Path for Data Files", 16, "Error");
        EXPECT_EQ(TextOf(frmSet::Instance(), "Text2"), path);
        EXPECT_FALSE(Closed());
    }
}

TEST_F(SettingsRefusals, RefusesAFileAsPath) {
    WriteBytes(PathTo("file"), "x");
    Submit("Text2", PathTo("file"));
    EXPECT_THAT(Messages(), ElementsAre("Invalid Path for Data Files"));
}

TEST_F(SettingsRefusals, AcceptsTheBoundsOfTheHistorySize) {
    Submit("Text3", "4096");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(MaxDisplaySize, 4096);
    Submit("Text3", "16384");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(MaxDisplaySize, 16384);
}

TEST_F(SettingsRefusals, RefusesAHistorySizeOutsideItsBounds) {
    Submit("Text3", "4095");
    Submit("Text3", "16385");
    EXPECT_FALSE(Closed());
    ExpectBox(
        0,
        "Size of Command History Window: Value '4095' is outside input range\r\nValid range is: 4096-16384",
        16, "Range Error");
    ExpectBox(
        1,
        "Size of Command History Window: Value '16385' is outside input range\r\nValid range is: 4096-16384",
        16, "Range Error");
}

TEST_F(SettingsRefusals, RefusesABlankHistorySize) {
    Submit("Text3", "  ");
    ExpectBox(0, "Size of Command History Window: Blank field not allowed", 16, "Range Error");
    EXPECT_FALSE(Closed());
}

TEST_F(SettingsRefusals, RefusesTheBuiltInHistorySizeEvenWithTheHistoryOff) {
    DisplayHistoryWin = 0;
    MaxDisplaySize = 2048;
    Click(Open(), "cmdOK");
    EXPECT_THAT(Messages(),
                ElementsAre("Size of Command History Window: Value '2048' is outside input range\r\n"
                            "Valid range is: 4096-16384"));
    EXPECT_FALSE(Closed());
}

TEST_F(SettingsRefusals, RefusesOtherCharactersInTheExtension) {
    Submit("Text1", "TK-L");
    EXPECT_FALSE(Closed());
    ExpectBox(0, "Invalid character in file extension", 16, "Invalid Character");
    EXPECT_TRUE(HasFocus(frmSet::Instance(), "Text1"));
    EXPECT_EQ(FileExtension, "TKL");
    Submit("Text1", "T L");
    Submit("Text1", ".TKL");
    Submit("Text1", "\xC3\x84");
    EXPECT_EQ(Messages().size(), 4u);
}

TEST_F(SettingsRefusals, AcceptsAnEmptyExtension) {
    Submit("Text1", "");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(FileExtension, "");
}

TEST_F(SettingsRefusals, AcceptsDigitsInTheExtension) {
    Submit("Text1", "az09");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(FileExtension, "AZ09");
}

TEST_F(SettingsRefusals, ChecksPathSizeAndExtensionInThisOrder) {
    frmSet& form = Open();
    Type(form, "Text1", "-");
    Type(form, "Text3", "1");
    Type(form, "Text2", PathTo("gone"));
    Click(form, "cmdOK");
    Type(form, "Text2", Folder.string());
    Click(form, "cmdOK");
    Type(form, "Text3", "4096");
    Click(form, "cmdOK");
    EXPECT_THAT(Messages(), ElementsAre("Invalid Path for Data Files",
                                        "Size of Command History Window: Value '1' is outside input range\r\n"
                                        "Valid range is: 4096-16384",
                                        "Invalid character in file extension"));
}

}  // namespace
}  // namespace tarvokol
