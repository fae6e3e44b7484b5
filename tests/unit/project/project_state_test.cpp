// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/project_state.h"

#include <gmock/gmock.h>

#include "core/project/recovery_copy.h"
#include "tests/unit/project/project_fixture.h"

namespace tarvokol {
namespace {

using Flags = std::vector<int>;

class ProjectState : public ProjectTest {
  protected:
    // The flags saved, empty and locked after an event that finds them so.
    static Flags After(void (*event)(), uint8_t before) {
        ProjectSaved = ProjectEmpty = UnitsLocked = before;
        event();
        return {ProjectSaved, ProjectEmpty, UnitsLocked};
    }
};

TEST_F(ProjectState, EveryEventSetsItsFlagsAndLeavesTheOthers) {
    for (const uint8_t before : {uint8_t{0}, uint8_t{255}}) {
        EXPECT_EQ(After(MarkProjectNew, before), (Flags{255, 255, 0}));
        EXPECT_EQ(After(MarkProjectRead, before), (Flags{255, 0, 255}));
        EXPECT_EQ(After(MarkProjectWritten, before), (Flags{255, before, before}));
        EXPECT_EQ(After(MarkProjectChanged, before), (Flags{0, 0, 255}));
        EXPECT_EQ(After(MarkProjectConverted, before), (Flags{0, before, before}));
    }
}

TEST_F(ProjectState, TellsOfItsFlags) {
    MarkProjectNew();
    EXPECT_FALSE(HasUnsavedChanges());
    EXPECT_TRUE(IsProjectEmpty());
    EXPECT_FALSE(AreUnitsLocked());
    MarkProjectChanged();
    EXPECT_TRUE(HasUnsavedChanges());
    EXPECT_FALSE(IsProjectEmpty());
    EXPECT_TRUE(AreUnitsLocked());
}

TEST_F(ProjectState, AChangeKeepsACopyOfTheUnsavedProject) {
    TempDataFolder = Folder.string() + "/";
    for (const auto event : {MarkProjectChanged, MarkProjectConverted}) {
        DropRecoveryCopy();
        event();
        EXPECT_NE(RecoveryCopyPath(), "");
    }
    DropRecoveryCopy();
}

}  // namespace
}  // namespace tarvokol
