// SPDX-License-Identifier: GPL-3.0-or-later
// The program's main window: menu, toolbar, picture, version label and history window.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "desktop/base/form_base.h"
#include "desktop/base/form_services.h"

class QAction;
class QLabel;
class QPlainTextEdit;
class QSvgWidget;
class QToolBar;

namespace tarvokol {

namespace Ui {
class frmMain;
}

// Holds no project data of its own: every command leads to a dialog, a report or a graph.
class frmMain : public SingleForm<frmMain> {
    Q_OBJECT

  public:
    frmMain();
    ~frmMain() override;

    // Commands of the menus, by their index in the menu's array.
    void mnuFileItem_Click(int Index);
    void mnuFileArray_Click(int Index);
    void mnuEditItem_Click(int Index);
    void mnuCalcItem_Click(int Index);
    void mnuCalcGrafItem_Click(int Index);
    void mnuSizGrafItem_Click(int Index);
    void mnuUtilItem_Click(int Index);
    void mnuHelpItem_Click(int Index);
    void Toolbar1_ButtonClick(int Button);

    // First half of the caption.
    std::string Tag() const;

    // Entries 1 to 4 of the recent-file list, created with their first caption. An entry shows as long as it has one;
    // its "&" is a letter, and of a long path the menu shows both ends. The separator above is the menu's own.
    void SetRecentCaption(int index, const std::string& caption);
    std::string RecentCaption(int index) const;
    void ShowRecentSeparator();

    QPlainTextEdit& History() const;
    QSvgWidget& Logo() const;
    QLabel& VersionLabel() const;
    QToolBar& Toolbar() const;
    QAction& UtilityItem(int index) const { return mnuUtilItem_[index]; }

    // The client area's extents in twips.
    int ScaleWidth() const;
    int ScaleHeight() const;

  signals:
    // The window was unloaded: the program ends.
    void Ended();

  protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Resize() override;
    bool Form_QueryUnload() override;
    void Form_Unload() override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    using Handler = void (frmMain::*)(int);

    void ConnectMenus();
    void ConnectItems(const QString& array, Handler handler);
    bool HasRecentEntry() const;
    QAction& RecentEntry(int index);
    void PrintInputs();
    void PreviewInputs();
    void OpenParameters();
    void ConvertFile();
    void ToggleHistory();
    void CopyHistory();
    void HelpCommand(int index);
    void OpenDropped(const std::string& path);

    std::unique_ptr<Ui::frmMain> ui_;
    ControlArray<QAction> mnuUtilItem_;
    bool has_whole_icon_ = false;
};

// Puts the settings of the main window into effect: history window, window state, toolbar.
void ApplyMainWindowSettings(frmMain& form);

// The history window's font from the settings.
void ApplyHistoryFont();

// Docks the history window at the bottom, centres the picture, puts the version label at the top right.
void LayoutMainWindow(frmMain& form);
void CenterLogo(frmMain& form);
void PlaceVersionLabel(frmMain& form, QToolBar& toolbar);

// The liability text, modal.
void ShowDisclaimer();

}  // namespace tarvokol
