// SPDX-License-Identifier: GPL-3.0-or-later
// What the two options dialogs of the graph windows share: everything but the titles they edit.
#pragma once

#include <optional>

#include "core/graphics/graph_setup.h"
#include "core/settings/graph_settings.h"
#include "desktop/base/form_base.h"
#include "desktop/base/form_services.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QScrollBar;

namespace tarvokol {

// Both dialogs put the settings on the chart of frmGraph, which is loaded if it is not.
class GraphOptionsBase : public FormBase {
    Q_OBJECT

  public:
    // Where the defaults are chosen, copies them over the settings that the dialog shows; the grid stays.
    void SetGraphParms();

    // The settings into the controls.
    void InitForm();

  protected:
    // Finds the controls and connects them; called after setupUi.
    void BindControls();

    virtual GraphFamily Family() const = 0;

    // Titles that the dialog shows, and how many of them OK stores.
    virtual int TitleCount() const = 0;
    virtual int StoredTitleCount() const = 0;
    virtual std::string& XTitle(int index) const = 0;
    virtual std::string& YTitle(int index) const = 0;
    virtual void ResetTitles() = 0;

    void Form_Load() override;
    void Form_Unload() override;

  private:
    void Option1_Click(int Index);
    void Combo1_Change();
    void Combo2_Change();
    void Combo2_Click();
    void HScroll1_Change();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();

    void EnableFormatting(bool on);
    void BlankOtherTitles(const ControlArray<QLineEdit>& boxes);
    void RequireListItem(QComboBox& combo);
    void StoreSettings();
    void RestoreSettings();

    QLineEdit* Text1_ = nullptr;
    ControlArray<QLineEdit> Text2_;
    ControlArray<QLineEdit> Text3_;
    OptionGroup Option1_;
    QComboBox* Combo1_ = nullptr;
    QComboBox* Combo2_ = nullptr;
    QCheckBox* Check1_ = nullptr;
    QLabel* Label1_ = nullptr;
    QScrollBar* HScroll1_ = nullptr;
    QLineEdit* txtSS_ = nullptr;
    std::optional<GraphSettingValues> before_defaults_;  // what the defaults took the place of
};

}  // namespace tarvokol
