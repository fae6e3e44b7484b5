// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/settings/frmPath.h"

#include "core/files/file_system.h"
#include "core/messages/notify.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "ui_frmPath.h"

namespace tarvokol {
namespace {

constexpr int kCurrent = 2;

// Runs one step of a move; a folder that is gone or a drive that cannot be read leaves the lists as they are.
template <typename Step>
void Absorb(Step step) {
    try {
        step();
    } catch (const RunTimeError&) {
    }
}

const std::string& PlaceOf(int option) {
    switch (option) {
        case 0:
            return PersonalDataFolder;
        case 1:
            return AppFolder;
        case kCurrent:
            return ChosenPath;
        default:
            return TempDataFolder;
    }
}

}  // namespace

frmPath::frmPath() : ui_(std::make_unique<Ui::frmPath>()) {
    ui_->setupUi(this);
    Option1_ = OptionGroup(*this, "Option1");
    ConnectClicks(Option1_, this, &frmPath::Option1_Click);
    connect(ui_->Drive1, &DriveList::DriveChanged, this, &frmPath::Drive1_Change);
    connect(ui_->Command1, &QPushButton::clicked, this, &frmPath::Command1_Click);
    connect(ui_->Command2, &QPushButton::clicked, this, &frmPath::Command2_Click);
    connect(ui_->Command3, &QPushButton::clicked, this, &frmPath::Command3_Click);
}

frmPath::~frmPath() = default;

void frmPath::Form_Load() {
    SetArrayIndex(Option1_, kCurrent);
}

void frmPath::Form_Unload() {
    if (Accepted) ChosenPath = WithSeparator(ui_->Dir1->Folder());
}

void frmPath::Option1_Click(int Index) {
    const std::string& place = PlaceOf(Index);
    Absorb([&] { ui_->Drive1->SetDrive(place); });
    Absorb([&] { ui_->Dir1->SetFolder(place); });
}

void frmPath::Drive1_Change() {
    Absorb([this] { ui_->Dir1->SetFolder(ui_->Drive1->Drive()); });
}

void frmPath::Command1_Click() {
    Unload();
}

void frmPath::Command2_Click() {
    Accepted = true;
    Unload();
}

void frmPath::Command3_Click() {
    ShowHelpTip();
}

}  // namespace tarvokol
