// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

#include "core/project/left_copies.h"
#include "desktop/base/form_base.h"

namespace tarvokol {

namespace Ui {
class frmUnsaved;
}

// The unsaved projects that earlier runs have left behind: opens one, removes some, keeps the others. Modal.
class frmUnsaved : public SingleForm<frmUnsaved> {
    Q_OBJECT

  public:
    frmUnsaved();
    ~frmUnsaved() override;

    // Before the form shows.
    void List(std::vector<LeftCopy> copies);

  private:
    void cmdOpen_Click();
    void cmdKeep_Click();
    void cmdRemove_Click();
    void lstCopies_Change();
    std::vector<int> SelectedRows() const;
    void RemoveRow(int row);

    std::unique_ptr<Ui::frmUnsaved> ui_;
    std::vector<LeftCopy> copies_;  // in the order of the rows
};

// Shows the form if there is anything to list, and opens what the user chooses there, with what stood typed in a dialog. True
// if a project was opened.
bool OfferLeftCopies();

}  // namespace tarvokol
