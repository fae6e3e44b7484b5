// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/main/main_window_binding.h"

#include <QPlainTextEdit>

#include "core/runtime/text.h"
#include "desktop/base/form_services.h"
#include "desktop/main/frmMain.h"
#include "desktop/main/frmUnsaved.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

constexpr int kProjectParameters = 1;

QPlainTextEdit& HistoryBox() {
    return frmMain::Instance().History();
}

}  // namespace

MainWindowSteps StepsOfMainWindow() {
    return {.Create = [] { frmMain::Instance(); },
            .Show = [] { frmMain::Instance().ShowModeless(); },
            .ApplyHistoryFont = [] { tarvokol::ApplyHistoryFont(); },
            .CloseParameters =
                [] {
                    if (FormBase* dialog = FindForm("frmTARVOParm")) dialog->Unload();
                },
            .OfferLeftCopies = [] { return OfferLeftCopies(); }};
}

std::string MainWindowBinding::Tag() const {
    return frmMain::Instance().Tag();
}

// The toolkit takes "[*]" for the place of a mark of its own, and doubled for itself.
void MainWindowBinding::SetCaption(const std::string& caption) {
    frmMain::Instance().setWindowTitle(ToQt(caption).replace("[*]", "[*][*]"));
}

void MainWindowBinding::SetMousePointer(MousePointer pointer) {
    frmMain& form = frmMain::Instance();
    if (pointer == MousePointer::Hourglass)
        form.setCursor(Qt::WaitCursor);
    else
        form.unsetCursor();
}

std::string MainWindowBinding::HistoryText() {
    return LinesOf(HistoryBox());
}

long MainWindowBinding::HistoryLength() {
    return static_cast<long>(Length(HistoryText()));
}

void MainWindowBinding::SetHistoryText(const std::string& text) {
    HistoryBox().setPlainText(ToQt(text));
}

void MainWindowBinding::AppendHistory(const std::string& text) {
    QTextCursor end(HistoryBox().document());
    end.movePosition(QTextCursor::End);
    end.insertText(ToQt(text));
}

void MainWindowBinding::ScrollHistoryToEnd() {
    HistoryBox().moveCursor(QTextCursor::End);
    HistoryBox().ensureCursorVisible();
}

void MainWindowBinding::SetRecentCaption(int index, const std::string& caption) {
    frmMain::Instance().SetRecentCaption(index, caption);
}

std::string MainWindowBinding::RecentCaption(int index) {
    return frmMain::Instance().RecentCaption(index);
}

void MainWindowBinding::ShowRecentSeparator() {
    frmMain::Instance().ShowRecentSeparator();
}

void MainWindowBinding::OpenProjectParameters() {
    frmMain::Instance().mnuEditItem_Click(kProjectParameters);
}

void MainWindowBinding::ApplySettings() {
    if (!frmMain::IsLoaded()) return;
    frmMain& form = frmMain::Instance();
    ApplyMainWindowSettings(form);
    LayoutMainWindow(form);
    PlaceVersionLabel(form, form.Toolbar());
}

void MainWindowBinding::ApplyHistoryFont() {
    if (frmMain::IsLoaded()) tarvokol::ApplyHistoryFont();
}

}  // namespace tarvokol
