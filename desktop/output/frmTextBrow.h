// SPDX-License-Identifier: GPL-3.0-or-later
// Small file browser: shows text files, in the form or in an external viewer.
#pragma once

#include <QTimer>
#include <memory>
#include <string>

#include "desktop/base/form_base.h"
#include "desktop/base/form_services.h"

namespace tarvokol {

class FileReading;

namespace Ui {
class frmTextBrow;
}

// The viewer gets a copy in the temporary folder, never the file itself. Pattern, font and the choice of the
// viewer are saved when the form closes; the folder is kept for the run.
class frmTextBrow : public SingleForm<frmTextBrow> {
    Q_OBJECT

  public:
    frmTextBrow();
    ~frmTextBrow() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;
    void Drive1_Change();
    void Dir1_Change();
    void Text2_Change();
    void Check1_Click();
    void File1_Open();
    void cmdSetFont_Click();
    void Command1_Click();

    void GoTo(const std::string& folder);
    void ApplyFont();
    void ClearView();
    void ShowInForm(const std::string& file);
    void LoadOn();
    bool LoadPiece();
    void TellLoading();
    void ShowInViewer(const std::string& file);

    std::unique_ptr<Ui::frmTextBrow> ui_;
    std::unique_ptr<FileReading> reading_;  // while a file is loaded, a piece at each tick
    QTimer loading_;
    bool DialogCancelled_ = false;
};

}  // namespace tarvokol
