// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/engine/panel_fields.h"
#include "core/project/parameter_texts.h"
#include "core/project/project_record.h"
#include "desktop/base/form_base.h"
#include "desktop/base/typed_texts.h"

class QLabel;
class QLineEdit;

namespace tarvokol {

namespace Ui {
class frmTARVOParm;
}

// The parameters dialog: edits the project's inputs as texts. Its figures can be drawn, run and sized before
// they are accepted; only OK stores them.
class frmTARVOParm : public SingleForm<frmTARVOParm> {
    Q_OBJECT

  public:
    frmTARVOParm();
    ~frmTARVOParm() override;

    // The full test and the short one of the Size button. On failure the message is shown, the tab of the
    // failed box comes up and the box gets the focus.
    bool ValidateAll();
    bool ValidateForSizing();

    // The boxes into `ProjectRecord`, which thereby has unsaved data.
    void StoreParameters();
    void KeepTypedOnError(const std::function<void()>& trial);
    void KeepTypedFigures();
    void ShowLayout();
    void RunResults();

    // The boxes into `PreviewRecord`.
    void LoadPreview();

    // Refreshes panel width and extraction ratio.
    void UpdateCalculatedFields();

    // Only the controls of the tab that shows can be reached with the tab key.
    void FixTabStops();

  private:
    // An input box: its text, its label, and the row of the label's unit, if it has one.
    struct InputBox {
        PanelField field;
        QLineEdit* box;
        std::string ParameterTexts::*text;
        QLabel* label;
        int unit_row;
    };

    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;

    void cmdOK_Click();
    void cmdHelpStability_Click();
    void cmdHelpDesign_Click();
    void cmdCopyClip_Click();
    void cmdSize_Click();
    void cmdView_Click();
    void cmdResults_Click();
    void HScroll1_Change();
    void txtNumberHoles_Change();
    void PanelWidths_Change();

    void ListInputBoxes();
    void ConnectControls();
    void FillControls();
    void ShowSuggestedUnit();
    void FillHoles(const std::string& text);
    void ScrollTo(int16_t holes);
    void ShowTenWithZeroSelected();
    bool Accept(const std::optional<PanelField>& refused);
    ParameterTexts Texts() const;

    std::unique_ptr<Ui::frmTARVOParm> ui_;
    std::unique_ptr<TypedTextsKeeper> typed_;
    std::vector<InputBox> inputs_;
    bool FormLoading_ = false;    // the dialog is filling its own controls
    bool ParmsModified_ = false;  // the boxes have been stored
    std::string LastHolesText_;   // last accepted text of the number of holes
    PanelInputs SavedRecord_;     // the project during a results run
};

}  // namespace tarvokol
