// SPDX-License-Identifier: GPL-3.0-or-later
// All that the forms of the inputs show, read out and tell.
#include "desktop/input/frmTARVODesc.h"
#include "tests/gui/input/parameters_fixture.h"
#include "tests/support/form_facts.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

class InputTexts : public ParametersDialog {};

TEST_F(InputTexts, OfTheParameters) {
    EXPECT_THAT(
        FactsOf(Open()),
        UnorderedElementsAre(
            "frmTARVOParm 'Parameters'", "SSTab1 'Standard|Defaults|Sizing' read 'Parameter groups'",
            "Frame1 'Panel specification'", "Label1 '&Extraction height (ft)' for txtHeight",
            "txtHeight read 'Extraction height (ft)'", "Label2 '&Depth of cover (ft)' for txtDepthCover",
            "txtDepthCover read 'Depth of cover (ft)'", "Label4 '&Hole width (ft)' for txtHoleWidth",
            "txtHoleWidth read 'Hole width (ft)'", "Label3 '&Web thickness (ft)' for txtWebThickness",
            "txtWebThickness read 'Web thickness (ft)'",
            "Label5 '&Barrier pillar width (ft)' for txtBarrierPillarWidth",
            "txtBarrierPillarWidth read 'Barrier pillar width (ft)'",
            "Label6 '&Number of holes between barriers (2-20)' for txtNumberHoles",
            "txtNumberHoles read 'Number of holes between barriers (2-20)'",
            "HScroll1 read 'Number of holes between barriers'", "Frame7 'Calculated data'",
            "lblPanelWidth 'Panel width (excluding barriers) (ft)' for txtPanelWidth",
            "txtPanelWidth read 'Panel width (excluding barriers) (ft)' locked grey",
            "lblExtractRatio 'Average extraction ratio (%)' for txtExtractRatio",
            "txtExtractRatio read 'Average extraction ratio (%)' locked grey", "Frame2 'Panel layout'",
            "Picture1 read 'Panel layout' told 'Plan of the panel, drawn by the button View'",
            "Frame0 'Loading conditions'", "lblInsituCoal '&In situ coal strength (psi)' for txtCoalStrength",
            "txtCoalStrength read 'In situ coal strength (psi)'",
            "lblUnitWeight 'Overburden &unit weight (pcf)' for txtUnitWeight",
            "txtUnitWeight read 'Overburden unit weight (pcf)'",
            "lblAbutAngle '&Abutment angle (deg)' for txtAbutmentAngleActiveGob",
            "txtAbutmentAngleActiveGob read 'Abutment angle (deg)'", "Frame3 'Sizing'",
            "Label10 '&Stability factor for webs' for txtSFWeb", "txtSFWeb read 'Stability factor for webs'",
            "Label12 'Stability &factor for barriers' for txtSFBarrier",
            "txtSFBarrier read 'Stability factor for barriers'",
            "cmdSize 'Size pillars' tip 'Suggest web and barrier thickness for these stability factors'",
            "Label14 'Suggested web thickness' for txtSugWeb",
            "txtSugWeb read 'Suggested web thickness (ft)' locked grey",
            "Label13 'Suggested barrier thickness' for txtSugBarrier",
            "txtSugBarrier read 'Suggested barrier thickness (ft)' locked grey",
            "cmdHelpStability 'Help on stability factors'", "cmdHelpDesign 'Help on design procedures'",
            "cmdResults '&Results' tip 'Show the stability report of these figures'",
            "cmdCopyClip read 'Copy dialog image to clipboard' tip 'Copy dialog image to clipboard'",
            "cmdView '&View' tip 'Draw the plan of the panel with these figures'",
            "cmdCancel 'Cancel' cancel", "cmdOK 'OK' default", "cmdHelp 'Help'"));
}

TEST_F(InputTexts, OfTheDescription) {
    frmTARVODesc& form = frmTARVODesc::Instance();
    ShowAndActivate(form);
    EXPECT_THAT(FactsOf(form), UnorderedElementsAre(
                                   "frmTARVODesc 'Project description'", "Frame2 'Title and description'",
                                   "Label1 '&Title' for Text1", "Text1 read 'Title'",
                                   "Text2 read 'Description' tip 'Lines of more than 60 characters are "
                                   "broken when the project is saved or reported'",
                                   "Frame1 'Current units'",
                                   "Option1_0 'feet, lbs' tip 'A change of units starts the project over' on",
                                   "Option1_1 'meters, kN' tip 'A change of units starts the project over'",
                                   "Command2 'OK' default", "Command1 'Cancel' cancel", "Command3 'Help'",
                                   "Command4 'Next Form' tip 'Store and go on to the project parameters'"));
}

// A box narrower than its neighbours would be a slip.
TEST_F(InputTexts, TheBoxesOfAPageAreEquallyWide) {
    frmTARVOParm& form = Open();
    for (int page = 0; page < 3; ++page) {
        ShowTab(form, page);
        const auto boxes = Find<QTabWidget>(form, "SSTab1").widget(page)->findChildren<QLineEdit*>();
        // Wider in a font whose digits are.
        const int wanted = std::max(96, boxes.front()->minimumWidth());
        for (const QLineEdit* box : boxes) EXPECT_EQ(box->width(), wanted) << FromQt(box->objectName());
    }
}

TEST_F(InputTexts, TheTabKeyGoesThroughTheParameters) {
    EXPECT_THAT(
        FocusChainOf(Open(), "txtHeight"),
        ElementsAre("txtHeight", "txtDepthCover", "txtHoleWidth", "txtWebThickness", "txtBarrierPillarWidth",
                    "txtNumberHoles", "txtPanelWidth", "txtExtractRatio", "txtCoalStrength", "txtUnitWeight",
                    "txtAbutmentAngleActiveGob", "txtSFWeb", "txtSFBarrier", "cmdSize", "txtSugWeb",
                    "txtSugBarrier", "cmdHelpStability", "cmdHelpDesign", "cmdResults", "cmdCopyClip",
                    "cmdView", "cmdCancel", "cmdOK", "cmdHelp", "SSTab1"));
}

TEST_F(InputTexts, TheTabKeyGoesThroughTheDescription) {
    frmTARVODesc& form = frmTARVODesc::Instance();
    ShowAndActivate(form);
    EXPECT_THAT(FocusChainOf(form, "Text1"), ElementsAre("Text1", "Text2", "Option1_0", "Option1_1",
                                                         "Command2", "Command1", "Command3", "Command4"));
    EXPECT_EQ(form.size(), QSize(620, 360));
}

// However small the window is made.
TEST_F(InputTexts, TheDescriptionHasRoomForSomeLines) {
    frmTARVODesc& form = frmTARVODesc::Instance();
    ShowAndActivate(form);
    const auto& lines = Find<QPlainTextEdit>(form, "Text2");
    EXPECT_EQ(lines.minimumHeight(), 120);
    form.resize(1, 1);
    EXPECT_TRUE(WaitUntil([&] { return lines.height() < 200; }));
    EXPECT_GE(lines.height(), 120);
}

}  // namespace
}  // namespace tarvokol
