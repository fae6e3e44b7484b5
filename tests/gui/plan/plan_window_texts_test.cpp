// SPDX-License-Identifier: GPL-3.0-or-later
// All that the plan's window shows, reads out and tells.
#include "core/report/results_state.h"
#include "desktop/plan/frmPicture.h"
#include "tests/support/form_facts.h"
#include "tests/support/main_window_fixture.h"
#include "tests/support/window_menus.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

class PlanWindowTexts : public MainWindowTest {};

TEST_F(PlanWindowTexts, OfThePlan) {
    ResultsReturn = results_return::Normal;
    frmPicture& form = frmPicture::Instance();
    ShowAndActivate(form);
    EXPECT_THAT(
        FactsOf(form),
        UnorderedElementsAre("frmPicture 'View Plan'",
                             "client read 'Plan of the panel' told 'A left click makes the figures larger, a "
                             "right click smaller'"));
    EXPECT_THAT(
        MenusOf(form),
        ElementsAre("&File: '&Print' Ctrl+P - 'E&xit'",
                    "&Edit: '&Copy' Ctrl+C 'Increase font size' Ctrl++ 'Decrease font size' Ctrl+-",
                    "&Settings: '&Pillar dimensions' 'Unit pillar strength' 'Pillar load bearing capacity'"));
    EXPECT_THAT(TabOrderOf(form), ElementsAre("client"));
    EXPECT_EQ(form.size(), QSize(640, 674));
    EXPECT_EQ(form.minimumSize(), QSize(150, 184));
    for (const char* name : {"mnuPlotSetItem_0", "mnuPlotSetItem_1", "mnuPlotSetItem_2"}) {
        EXPECT_TRUE(Find<QAction>(form, name).isCheckable());
        EXPECT_FALSE(Find<QAction>(form, name).isChecked());
        EXPECT_FALSE(Find<QAction>(form, name).isEnabled());
    }
}

}  // namespace
}  // namespace tarvokol
