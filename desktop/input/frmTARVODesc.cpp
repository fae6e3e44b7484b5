// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/input/frmTARVODesc.h"

#include <QRegularExpression>
#include <QValidator>

#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/platform/main_window_services.h"
#include "core/platform/platform.h"
#include "core/project/lifecycle.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "qt/session/qt_text.h"
#include "ui_frmTARVODesc.h"

namespace tarvokol {
namespace {

constexpr int kDescriptionTitles = 1;

// Text that is pasted into the title may have several lines; a project file keeps one for it.
class OneLine : public QValidator {
  public:
    using QValidator::QValidator;

    State validate(QString& input, int&) const override {
        static const QRegularExpression line_end("\r\n|[\r\n\u2028\u2029]");
        input.replace(line_end, " ");
        return Acceptable;
    }
};

constexpr const char* kLockedUnitsTip =
    "The units of a project with data stay; Utilities, File Conversion converts its figures";

}  // namespace

frmTARVODesc::frmTARVODesc() : ui_(std::make_unique<Ui::frmTARVODesc>()) {
    ui_->setupUi(this);
    Option1_ = OptionGroup(*this, "Option1");
    ui_->Text1->setValidator(new OneLine(this));
    connect(ui_->Command1, &QPushButton::clicked, this, &frmTARVODesc::Unload);
    connect(ui_->Command2, &QPushButton::clicked, this, &frmTARVODesc::Command2_Click);
    connect(ui_->Command3, &QPushButton::clicked, this, &ShowHelpTip);
    connect(ui_->Command4, &QPushButton::clicked, this, &frmTARVODesc::Command4_Click);
}

frmTARVODesc::~frmTARVODesc() = default;

void frmTARVODesc::Form_Load() {
    SetMessageTitles(kDescriptionTitles);
    LogMessage("Editing Project Description");
    ui_->Text1->setText(ToQt(ProjectTitle));
    ui_->Text2->setPlainText(ToQt(ProjectDescription));
    ShowUnits();
    typed_ = std::make_unique<TypedTextsKeeper>(*this);
}

// A project that has its units shows them, with nothing else to choose.
void frmTARVODesc::ShowUnits() {
    for (const auto& [index, option] : Option1_) {
        option->setEnabled(!AreUnitsLocked());
        if (AreUnitsLocked()) option->setToolTip(kLockedUnitsTip);
    }
    SetArrayIndex(Option1_, UnitSystem);
    Option1_[UnitSystem].setEnabled(true);
}

void frmTARVODesc::Command2_Click() {
    Accepted = true;
    Unload();
}

void frmTARVODesc::Command4_Click() {
    Accepted = true;
    Unload();
    Platform.MainWindow->OpenProjectParameters();
}

void frmTARVODesc::Form_Unload() {
    if (!Accepted) {
        typed_->Drop();
        LogMessage("Project Description Not Modified");
        return;
    }
    ProjectTitle = FromQt(ui_->Text1->text());
    ProjectDescription = LinesOf(*ui_->Text2);
    StoreUnits();
    LogMessage("Project Description Modified");
    MarkProjectChanged();
    typed_->Drop();
}

// Figures of one system mean nothing in the other: a project that changes its units starts over, its title
// and description included.
void frmTARVODesc::StoreUnits() {
    const int16_t chosen = GetOptionIndex(Option1_);
    if (chosen == UnitSystem) return;
    UnitSystem = chosen;
    typed_->Drop();
    FileNew(true, false);
}

}  // namespace tarvokol
