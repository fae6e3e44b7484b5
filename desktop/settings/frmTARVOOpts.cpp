// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/settings/frmTARVOOpts.h"

#include <array>

#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/platform/message_box.h"
#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"
#include "core/settings/configuration.h"
#include "core/settings/file_association.h"
#include "core/settings/option_settings.h"
#include "core/settings/options_record.h"
#include "desktop/base/refused_box.h"
#include "desktop/base/used_value.h"
#include "desktop/settings/flag.h"
#include "qt/session/qt_text.h"
#include "ui_frmTARVOOpts.h"

namespace tarvokol {
namespace {

constexpr int kOptionsTitles = 7;
constexpr int kEditTab = 0;
constexpr int kOutputTab = 2;

constexpr double kLargestAbutment = 90;  // degrees
constexpr double kLargestSFWeb = 6;
constexpr double kLargestSFBarrier = 10;
constexpr double kSmallestSF = 1;
constexpr double kLargestPercent = 100;

std::array<Flag, 9> FlagsOf(const Ui::frmTARVOOpts& ui) {
    return {{{ui.Check1, &ShowInputScreenOnLoad},
             {ui.Check2, &ViewChildWindow},
             {ui.Check3, &PrintModuleHeader},
             {ui.Check8, &PrintPlotReminder},
             {ui.Check4, &PlotEntryDims},
             {ui.Check5, &PlotXcutDims},
             {ui.Check7, &PlotSingleXcutDims},
             {ui.Check6, &PlotGobDims},
             {ui.chkOffice, &AskOfficeInstall}}};
}

// A text box and the number that it shows.
struct Figure {
    QLineEdit* box;
    float* setting;
};

std::array<Figure, 5> FiguresOf(const Ui::frmTARVOOpts& ui) {
    return {{{ui.Text1, &OptionsRecord.PlotRangeMin},
             {ui.Text2, &OptionsRecord.PlotRangeMax},
             {ui.txtDefaultAbutment, &OptionsRecord.DefaultAbutment},
             {ui.txtDefaultSFWeb, &OptionsRecord.DefaultSFWeb},
             {ui.txtDefaultSFBarrier, &OptionsRecord.DefaultSFBarrier}}};
}

double ValueOf(const QLineEdit& box) {
    return NumericParse(FromQt(box.text()));
}

}  // namespace

frmTARVOOpts::frmTARVOOpts() : ui_(std::make_unique<Ui::frmTARVOOpts>()) {
    ui_->setupUi(this);
    Option1_ = OptionGroup(*this, "Option1");
    Option2_ = OptionGroup(*this, "Option2");
    Option3_ = OptionGroup(*this, "Option3");
    Connect();
    SelectAllOnFocus(*this);
    for (const Figure& figure : FiguresOf(*ui_)) NoteUsedValue(*figure.box);
}

frmTARVOOpts::~frmTARVOOpts() = default;

void frmTARVOOpts::Connect() {
    connect(ui_->SSTab1, &QTabWidget::currentChanged, this, &frmTARVOOpts::SSTab1_Click);
    connect(ui_->Check5, &QCheckBox::toggled, this, &frmTARVOOpts::Check5_Click);
    connect(ui_->cmdFileAssoc, &QPushButton::clicked, this, &frmTARVOOpts::cmdFileAssoc_Click);
    connect(ui_->Command1, &QPushButton::clicked, this, &frmTARVOOpts::Command1_Click);
    connect(ui_->Command2, &QPushButton::clicked, this, &frmTARVOOpts::Command2_Click);
    connect(ui_->Command3, &QPushButton::clicked, this, &frmTARVOOpts::Command3_Click);
}

void frmTARVOOpts::Form_Load() {
    SetMessageTitles(kOptionsTitles);
    LogMessage("Editing TARVO Options");
    ShowOptions();
    Check5_Click();
    ui_->SSTab1->setCurrentIndex(kEditTab);
    FixTabStops(*ui_->SSTab1);
}

void frmTARVOOpts::ShowOptions() {
    for (const Flag& flag : FlagsOf(*ui_)) flag.box->setChecked(*flag.setting != 0);
    SetArrayIndex(Option3_, PlotGobExtLoose);
    SetArrayIndex(Option1_, OptionsRecord.OutputStrUnits);
    SetArrayIndex(Option2_, OptionsRecord.OutputStrGradUnits);
    for (const Figure& figure : FiguresOf(*ui_)) figure.box->setText(ToQt(GeneralText(*figure.setting)));
}

void frmTARVOOpts::Form_Unload() {
    if (!Accepted) {
        LogMessage("Options Not Modified");
        return;
    }
    TakeOptions();
    SaveSettings(section::Options);
}

void frmTARVOOpts::TakeOptions() {
    for (const Flag& flag : FlagsOf(*ui_)) *flag.setting = flag.box->isChecked() ? 1 : 0;
    PlotGobExtLoose = GetOptionIndex(Option3_);
    OptionsRecord.OutputStrUnits = GetOptionIndex(Option1_);
    OptionsRecord.OutputStrGradUnits = GetOptionIndex(Option2_);
    for (const Figure& figure : FiguresOf(*ui_)) *figure.setting = ToSingle(ValueOf(*figure.box));
}

void frmTARVOOpts::SSTab1_Click() {
    FixTabStops(*ui_->SSTab1);
}

void frmTARVOOpts::Check5_Click() {
    ui_->Check7->setEnabled(ui_->Check5->isChecked());
}

void frmTARVOOpts::cmdFileAssoc_Click() {
    CreateFileAssociation();
}

void frmTARVOOpts::Command1_Click() {
    Unload();
}

void frmTARVOOpts::Command2_Click() {
    if (!ValidateOptions()) return;
    Accepted = true;
    Unload();
}

void frmTARVOOpts::Command3_Click() {
    ShowHelpTip();
}

// The defaults are tested twice: first for the range of any such figure, then for one that a design can use.
bool frmTARVOOpts::ValidateOptions() {
    if (!RangesAreValid()) return false;
    const double angle = ValueOf(*ui_->txtDefaultAbutment);
    return Require(ValueOf(*ui_->Text2) > ValueOf(*ui_->Text1),
                   "Invalid range for parametric graphs. Min Value should be < Max Value", *ui_->Text1) &&
           Require(angle >= 0 && angle <= kLargestAbutment, "Invalid range for Default Abutment angle (0-90)",
                   *ui_->txtDefaultAbutment) &&
           Require(ValueOf(*ui_->txtDefaultSFWeb) >= kSmallestSF,
                   "Invalid range for Default SF for webs (>=1)", *ui_->txtDefaultSFWeb) &&
           Require(ValueOf(*ui_->txtDefaultSFBarrier) >= kSmallestSF,
                   "Invalid range for Default SF for barriers (>=1)", *ui_->txtDefaultSFBarrier);
}

bool frmTARVOOpts::RangesAreValid() {
    struct Range {
        QLineEdit* box;
        double high;
        int tab;
    };
    const Range ranges[] = {{ui_->txtDefaultAbutment, kLargestAbutment, kEditTab},
                            {ui_->txtDefaultSFWeb, kLargestSFWeb, kEditTab},
                            {ui_->txtDefaultSFBarrier, kLargestSFBarrier, kEditTab},
                            {ui_->Text1, kLargestPercent, kOutputTab},
                            {ui_->Text2, kLargestPercent, kOutputTab}};
    for (const Range& range : ranges)
        if (!CheckRange(FromQt(range.box->text()), 0, range.high)) return Refuse(range.tab, *range.box);
    return true;
}

// The second tests all show the tab of the output options, also for a box of the first tab.
bool frmTARVOOpts::Require(bool valid, const char* message, QLineEdit& box) {
    if (valid) return true;
    Notify(message, box_style::Plain);
    return Refuse(kOutputTab, box);
}

// Always false.
bool frmTARVOOpts::Refuse(int tab, QLineEdit& box) {
    ui_->SSTab1->setCurrentIndex(tab);
    FocusRefused(box);
    return false;
}

}  // namespace tarvokol
