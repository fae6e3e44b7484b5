// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>

#include "desktop/base/form_base.h"

namespace tarvokol {

namespace Ui {
class frmResTxtPlt;
}

// The results viewer: shows the report's pages one at a time, prints and copies them, and leads on to the
// plot window. Its opener disables itself and enters itself in `ResultsCaller` before.
class frmResTxtPlt : public SingleForm<frmResTxtPlt> {
    Q_OBJECT

  public:
    frmResTxtPlt();
    ~frmResTxtPlt() override;

    // Shows the current page.
    void Loadbuffer();

    // Fills `PreviewRecord` from the project, for the plan.
    void LoadWorkParms();

    // Asks for the printer and prints the pages from `first` to `last` as one job.
    void PrintPages(int16_t first, int16_t last);

  private:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;
    void cmdPrevPage_Click();
    void cmdNextPage_Click();
    void cmdPrintPage_Click();
    void cmdPrintAll_Click();
    void cmdCopyPage_Click();
    void cmdCopyAll_Click();
    void cmdViewPlots_Click();
    void cmdHelpResults_Click();

    std::unique_ptr<Ui::frmResTxtPlt> ui_;
    int16_t page_ = 0;
    bool PlotsShown_ = false;
    bool aborted_ = false;
};

}  // namespace tarvokol
