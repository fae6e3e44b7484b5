// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of the main window's menus.
#include <QPlainTextEdit>

#include "core/messages/command_guard.h"
#include "core/messages/notify.h"
#include "core/platform/clipboard.h"
#include "core/platform/common_dialogs.h"
#include "core/platform/main_window_services.h"
#include "core/platform/message_box.h"
#include "core/platform/platform.h"
#include "core/program/about_text.h"
#include "core/program/program_help.h"
#include "core/project/curves.h"
#include "core/project/figure_range.h"
#include "core/project/lifecycle.h"
#include "core/project/preview_record.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/project/recent_files.h"
#include "core/report/print_engine.h"
#include "core/report/report_builder.h"
#include "desktop/base/form_registry.h"
#include "desktop/base/results_caller.h"
#include "desktop/main/frmMain.h"

namespace tarvokol {
namespace {

// Printing an empty project gives its zeros, if the user wants that.
bool MayPrint() {
    return !IsProjectEmpty() ||
           Notify("Current file is empty. Continue?", box_style::YesNoQuestionNoDefault) == box_result::Yes;
}

// The project's figures go through a calculation; what it says, or false for a figure that it has no room for.
bool Calculated(const std::function<bool()>& calculation) {
    bool calculated = false;
    return DoneWithinRange(ProjectRecord, [&] { calculated = calculation(); }) && calculated;
}

}  // namespace

void frmMain::mnuFileItem_Click(int Index) {
    CommandGuard guard(DialogCancelled);
    switch (Index) {
        case 0:
            FileNewCommand();
            break;
        case 1:
            FileOpenCommand();
            break;
        case 2:
            FileSaveCommand(false);
            break;
        case 3:
            FileSaveCommand(true);
            break;
        case 5:
            guard(SetUpPrinter);
            break;
        case 6:
            PrintInputs();
            break;
        case 7:
            PreviewInputs();
            break;
        case 9:
            guard([this] { FormNamed("frmTextBrow").ShowModal(this); });
            break;
        case 11:
            guard([this] { Unload(); });
            break;
        default:
            break;
    }
}

void frmMain::PrintInputs() {
    bool wanted = false;
    CommandGuard guard(DialogCancelled);
    guard([&] { wanted = MayPrint(); });
    if (!wanted) return;
    guard([] { LoadOutBuf0(0); });
    RunPrintJob(guard, OutputBuffers[0], PrintedMatter::Inputs);
}

void frmMain::PreviewInputs() {
    bool wanted = false;
    CommandGuard guard(DialogCancelled);
    guard([&] { wanted = MayPrint(); });
    if (!wanted) return;
    guard([] { LoadOutBuf0(0); });
    guard([this] { FormNamed("frmPreview").ShowModal(this); });
}

void frmMain::mnuFileArray_Click(int Index) {
    RecentFileCommand(Index);
}

void frmMain::mnuEditItem_Click(int Index) {
    CommandGuard guard(DialogCancelled);
    if (Index == 0) guard([this] { FormNamed("frmTARVODesc").ShowModal(this); });
    if (Index == 1) OpenParameters();
}

// The dialog enables this window again when it closes.
void frmMain::OpenParameters() {
    CommandGuard guard(DialogCancelled);
    guard([] { SetScreenPointer(MousePointer::Hourglass); });
    guard([] { FormNamed("frmTARVOParm"); });
    guard([] { SetScreenPointer(MousePointer::Default); });
    guard([this] { setEnabled(false); });
    guard([this] { FormNamed("frmTARVOParm").ShowModeless(this); });
}

// In an empty project every item answers, those that open a submenu included.
void frmMain::mnuCalcItem_Click(int Index) {
    if (IsProjectEmpty()) {
        Notify("Current file is empty", box_style::PlainSecondButton);
        return;
    }
    if (Index != 0 || !Calculated([] { return CalculateReport(ProjectRecord); })) return;
    ResultsCaller = this;
    setEnabled(false);
    LoadOutBuf0(2);
    FormNamed("frmResTxtPlt").ShowModeless(this);
}

void frmMain::mnuCalcGrafItem_Click(int Index) {
    if (Calculated([&] { return ComputeStabilityCurves(Index); })) ShowGraphForm("frmGraph", Index, this);
}

void frmMain::mnuSizGrafItem_Click(int Index) {
    if (Calculated([&] { return ComputeSizingCurve(Index); })) ShowGraphForm("frmGraphS", Index, this);
}

void frmMain::mnuUtilItem_Click(int Index) {
    CommandGuard guard(DialogCancelled);
    switch (Index) {
        case 0:
            guard([this] { FormNamed("frmSet").ShowModal(this); });
            break;
        case 1:
            guard([this] { FormNamed("frmTARVOOpts").ShowModal(this); });
            break;
        case 2:
            guard([this] { FormNamed("frmUnits").ShowModal(this); });
            break;
        case 3:
            guard([this] { ConvertFile(); });
            break;
        case 5:
            guard([this] { History().clear(); });
            break;
        case 6:
            guard([this] { ToggleHistory(); });
            break;
        case 7:
            guard([this] { CopyHistory(); });
            break;
        default:
            break;
    }
}

void frmMain::ConvertFile() {
    if (IsProjectEmpty())
        Notify("Current file is empty", box_style::PlainSecondButton);
    else if (HasUnsavedChanges())
        Notify("Save Current File before accessing this option", box_style::Plain);
    else
        FormNamed("frmConvert").ShowModal(this);
}

void frmMain::ToggleHistory() {
    const bool show = History().isHidden();
    History().setVisible(show);
    UtilityItem(6).setText(show ? "Close History &Window" : "Restore History &Window");
    UtilityItem(7).setEnabled(show);
}

void frmMain::CopyHistory() {
    if (History().isHidden()) return;
    Platform.TheClipboard->Clear();
    Platform.TheClipboard->SetText(Platform.MainWindow->HistoryText());
}

void frmMain::mnuHelpItem_Click(int Index) {
    HelpCommand(Index);
}

void frmMain::HelpCommand(int index) {
    switch (index) {
        case 0:
            ShowHelpContents();
            break;
        case 1:
            ShowHelpIndex();
            break;
        case 2:
            OpenPdfManual();
            break;
        case 4:
            FormNamed("frmResource").ShowModal(this);
            break;
        case 6:
            ShowDisclaimer();
            break;
        case 8:
            FormNamed("frmUpdate").ShowModal(this);
            break;
        case 10:
            ShowAboutBox();
            break;
        default:
            break;
    }
}

void frmMain::Toolbar1_ButtonClick(int Button) {
    switch (Button) {
        case 1:
            mnuFileItem_Click(1);
            break;
        case 2:
            mnuFileItem_Click(2);
            break;
        case 3:
            mnuFileItem_Click(6);
            break;
        case 4:
            mnuEditItem_Click(0);
            break;
        case 5:
            mnuEditItem_Click(1);
            break;
        default:
            break;
    }
}

}  // namespace tarvokol
