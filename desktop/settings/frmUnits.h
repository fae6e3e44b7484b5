// SPDX-License-Identifier: GPL-3.0-or-later
// The unit calculator: a value in one unit, shown in every unit of its quantity. No data is touched.
#pragma once

#include <memory>
#include <vector>

#include "core/settings/unit_calculator.h"
#include "desktop/base/form_base.h"
#include "desktop/base/form_services.h"

namespace tarvokol {

namespace Ui {
class frmUnits;
}

// One tab for each quantity, the first one shown whenever the form opens.
class frmUnits : public SingleForm<frmUnits> {
    Q_OBJECT

  public:
    frmUnits();
    ~frmUnits() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // What a tab is made of: input box, units to choose from, one read-only box for every unit.
    struct Tab {
        Quantity quantity;
        QLineEdit* input;
        OptionGroup units;
        std::vector<QLineEdit*> boxes;
    };

    void Form_Load() override;
    void Form_Activate() override;
    void SSTab1_Click(int Index);
    void Command1_Click();
    void Command3_Click();

    void BuildTabs();
    void Connect(const Tab& tab);
    static void Fill(const Tab& tab);

    std::unique_ptr<Ui::frmUnits> ui_;
    std::vector<Tab> tabs_;  // in the order in which they stand
};

}  // namespace tarvokol
