// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/settings/frmConvert.h"

#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/platform/message_box.h"
#include "core/project/figure_range.h"
#include "core/project/file_conversion.h"
#include "core/project/project_record.h"
#include "ui_frmConvert.h"

namespace tarvokol {
namespace {

constexpr int kConversionTitles = 13;
constexpr int kKeepOriginal = 1;

}  // namespace

frmConvert::frmConvert() : ui_(std::make_unique<Ui::frmConvert>()) {
    ui_->setupUi(this);
    Option1_ = OptionGroup(*this, "Option1");
    Option2_ = OptionGroup(*this, "Option2");
    connect(ui_->Command1, &QPushButton::clicked, this, &frmConvert::Command1_Click);
    connect(ui_->Command2, &QPushButton::clicked, this, &frmConvert::Command2_Click);
}

frmConvert::~frmConvert() = default;

void frmConvert::Form_Load() {
    SetMessageTitles(kConversionTitles);
    LogMessage("Loading File Conversion Form");
    const int other = UnitSystem == 0 ? 1 : 0;
    SetArrayIndex(Option1_, other);
    Option1_[other].setEnabled(true);
    Option1_[UnitSystem].setEnabled(false);
    SetArrayIndex(Option2_, ConvertKeepChoice);
    Option2_[kKeepOriginal].setEnabled(false);
}

void frmConvert::Form_Unload() {
    ConvertKeepChoice = GetOptionIndex(Option2_);
}

void frmConvert::Command1_Click() {
    Unload();
}

void frmConvert::Command2_Click() {
    ConvertTargetUnits = GetOptionIndex(Option1_);
    bool converted = false;
    if (DoneWithinRange(ProjectRecord, [&] { converted = ConvertProject(); }))
        Notify(converted ? "Conversion Completed: The conversion form will be closed"
                         : "Error in the Conversion Procedure. Call technical support",
               box_style::Plain);
    Unload();
}

}  // namespace tarvokol
