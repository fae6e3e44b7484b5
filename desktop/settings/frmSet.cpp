// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/settings/frmSet.h"

#include <QSignalBlocker>
#include <algorithm>

#include "core/files/file_system.h"
#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/platform/common_dialogs.h"
#include "core/platform/main_window_services.h"
#include "core/platform/message_box.h"
#include "core/platform/platform.h"
#include "core/project/project_record.h"
#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"
#include "core/runtime/text.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "desktop/base/used_value.h"
#include "desktop/settings/flag.h"
#include "desktop/settings/frmPath.h"
#include "qt/session/qt_text.h"
#include "ui_frmSet.h"

namespace tarvokol {
namespace {

constexpr int kSettingsTitles = 10;
constexpr int kUnitSystems = 2;
constexpr int kSmallestHistory = 4096;  // characters
constexpr int kLargestHistory = 16384;
constexpr int16_t kTrue = -1;

std::array<Flag, 9> FlagsOf(const Ui::frmSet& ui) {
    return {{{ui.chkDispHist, &DisplayHistoryWin},
             {ui.chkKeepRecentFL, &KeepFileNames},
             {ui.chkShortNames, &ShortRecentFiles},
             {ui.chkShowDiscl, &ShowDisclaim},
             {ui.chkMaxMenu, &MaxMainMenu},
             {ui.chkEnableTB, &EnableMainMenuToolbar},
             {ui.chkLoadLastInputFile, &LoadLastInputFile},
             {ui.chkUpdate, &RemindAnnualUpdates},
             {ui.chkCopyExamples, &CopyExampleFilesSetting}}};
}

// Runs a common dialog; a cancel is no error here.
template <typename Show>
void ShowDialog(Show show) {
    try {
        show();
    } catch (const RunTimeError& error) {
        if (error.number != error_number::Cancelled) throw;
    }
}

bool IsExtensionCharacter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

}  // namespace

frmSet::frmSet() : ui_(std::make_unique<Ui::frmSet>()) {
    ui_->setupUi(this);
    optUnits_ = OptionGroup(*this, "optUnits");
    Connect();
    SelectAllOnFocus(*this);
    NoteUsedValue(*ui_->Text3, StoredAs::Whole);
}

frmSet::~frmSet() = default;

void frmSet::Connect() {
    connect(ui_->chkDispHist, &QCheckBox::toggled, this, &frmSet::chkDispHist_Click);
    connect(ui_->chkKeepRecentFL, &QCheckBox::toggled, this, &frmSet::chkKeepRecentFL_Click);
    connect(ui_->chkShortNames, &QCheckBox::toggled, this, &frmSet::chkShortNames_Click);
    connect(ui_->chkCopyExamples, &QCheckBox::toggled, this, &frmSet::chkCopyExamples_Click);
    connect(ui_->Text1, &QLineEdit::textChanged, this, &frmSet::Text1_Change);
    connect(ui_->Command5, &QPushButton::clicked, this, &frmSet::Command5_Click);
    connect(ui_->cmdSetPath, &QPushButton::clicked, this, &frmSet::cmdSetPath_Click);
    connect(ui_->cmdSelect, &QPushButton::clicked, this, &frmSet::cmdSelect_Click);
    connect(ui_->cmdSetDefault, &QPushButton::clicked, this, &frmSet::cmdSetDefault_Click);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmSet::cmdOK_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmSet::cmdCancel_Click);
    connect(ui_->cmdHelp, &QPushButton::clicked, this, &frmSet::cmdHelp_Click);
}

void frmSet::Form_Load() {
    SetMessageTitles(kSettingsTitles);
    LogMessage("Editing Settings");
    for (int system = 0; system < kUnitSystems; ++system)
        optUnits_[system].setText(ToQt(UnitSystemName(system)));
    Loading = true;
    ShowSettings();
    chkKeepRecentFL_Click();
    Loading = false;
}

// With the history off the size cannot be edited; its font can, until the history is switched on and off.
void frmSet::ShowSettings() {
    SetArrayIndex(optUnits_, DefaultUnitSystem);
    for (const Flag& flag : FlagsOf(*ui_)) flag.box->setChecked(*flag.setting != 0);
    ui_->Text3->setText(ToQt(GeneralText(int{MaxDisplaySize})));
    if (DisplayHistoryWin == 0) ui_->Text3->setEnabled(false);
    ui_->Text2->setText(ToQt(DataPath));
    ui_->Text1->setText(ToQt(FileExtension));
    ui_->Text4->setText(ToQt(ExternalEditor));
}

void frmSet::Form_Activate() {
    if (!PathDialogOpen) return;
    ui_->Text2->setText(ToQt(ChosenPath));
    PathDialogOpen = false;
}

void frmSet::Form_Unload() {
    if (!Accepted) {
        LogMessage("Settings Not Modified");
        return;
    }
    TakeSettings();
    Platform.MainWindow->ApplySettings();
    LogMessage("Settings Modified");
    SaveSettings(section::Settings);
}

void frmSet::TakeSettings() {
    DefaultUnitSystem = GetOptionIndex(optUnits_);
    for (const Flag& flag : FlagsOf(*ui_)) *flag.setting = flag.box->isChecked() ? 1 : 0;
    MaxDisplaySize = ToShort(NumericParse(FromQt(ui_->Text3->text())));
    DataPath = FromQt(ui_->Text2->text());
    FileExtension = Trim(FromQt(ui_->Text1->text()));
    ExternalEditor = FromQt(ui_->Text4->text());
}

void frmSet::chkDispHist_Click() {
    const bool on = ui_->chkDispHist->isChecked();
    ui_->Text3->setEnabled(on);
    ui_->Command5->setEnabled(on);
}

void frmSet::chkKeepRecentFL_Click() {
    ui_->chkShortNames->setEnabled(ui_->chkKeepRecentFL->isChecked());
}

void frmSet::chkShortNames_Click() {
    if (!Loading) Notify("Option will take effect upon restarting this program", box_style::Plain);
}

void frmSet::chkCopyExamples_Click() {
    if (Loading || !ui_->chkCopyExamples->isChecked()) return;
    Notify(
        "When this option is enabled, every time the program runs, it will try to copy the example files "
        "from the install directory to the " +
            PersonalDataFolder +
            " directory. The modified files will not be overridden, but missing files will be replaced. ",
        box_style::Plain);
}

// The caret stays where the user types.
void frmSet::Text1_Change() {
    const QString upper = ToQt(UpperCase(FromQt(ui_->Text1->text())));
    if (upper == ui_->Text1->text()) return;
    const QSignalBlocker quiet(ui_->Text1);
    const int caret = ui_->Text1->cursorPosition();
    ui_->Text1->setText(upper);
    ui_->Text1->setCursorPosition(caret);
}

void frmSet::Command5_Click() {
    ShowDialog([] {
        const FontChoice start{DisplayFontName, DisplayFontSize, DisplayFontBold != 0,
                               DisplayFontItalic != 0};
        const FontChoice font = Platform.Dialogs->ShowFont(start, dialog_flag::ScreenFonts);
        DisplayFontName = font.name;
        DisplayFontSize = font.size;
        DisplayFontBold = font.bold ? kTrue : 0;
        DisplayFontItalic = font.italic ? kTrue : 0;
        Platform.MainWindow->ApplyHistoryFont();
    });
}

void frmSet::cmdSetPath_Click() {
    PathDialogOpen = true;
    ChosenPath = FromQt(ui_->Text2->text());
    frmPath::Instance().ShowModal(this);
}

// The run's default extension becomes that of programs, also when the dialog or this form is cancelled.
void frmSet::cmdSelect_Click() {
    ShowDialog([this] {
        FileDialogRequest request;
        request.title = "Select External Editor";
        FileExtension = "EXE";
        request.filter = "All Files (*.*)|*.*|Editor Programs (*." + FileExtension + ")|*." + FileExtension;
        request.filter_index = 2;
        request.flags = dialog_flag::PathAndFileMustExist;
        ui_->Text4->setText(ToQt(Platform.Dialogs->ShowOpen(request)));
    });
}

void frmSet::cmdSetDefault_Click() {
    ui_->Text4->setText("Notepad.exe");
}

void frmSet::cmdOK_Click() {
    if (!ValidateSettings()) return;
    Accepted = true;
    Unload();
}

void frmSet::cmdCancel_Click() {
    Unload();
}

void frmSet::cmdHelp_Click() {
    ShowHelpTip();
}

bool frmSet::ValidateSettings() {
    return IsPathValid() &&
           CheckRangeOf(*ui_->Text3, kSmallestHistory, kLargestHistory, "Size of Command History Window") &&
           IsExtensionValid();
}

bool frmSet::IsPathValid() {
    const std::string trimmed = Trim(FromQt(ui_->Text2->text()));
    if (const std::string path = WithSeparator(trimmed); path != trimmed) ui_->Text2->setText(ToQt(path));
    if (FolderExists(FromQt(ui_->Text2->text()))) return true;
    Notify("Invalid Path for Data Files", box_style::Critical, ErrorTitle);
    ui_->Text2->setFocus();
    return false;
}

bool frmSet::IsExtensionValid() {
    const std::string extension = Trim(FromQt(ui_->Text1->text()));
    if (std::all_of(extension.begin(), extension.end(), IsExtensionCharacter)) return true;
    Notify("Invalid character in file extension", box_style::Critical, InvalidCharTitle);
    ui_->Text1->setFocus();
    return false;
}

}  // namespace tarvokol
