// SPDX-License-Identifier: GPL-3.0-or-later
// The window of tarvokol-studies: the project on the left, the pages on the right. Nothing but file dialogs and the question
// about unsaved changes stops the user.
#pragma once

#include <QFileSystemWatcher>
#include <QMainWindow>
#include <optional>
#include <string>

#include "core/studies/kept_study.h"
#include "studies/model/study_model.h"
#include "studies/window/unsaved_work.h"

class QAction;
class QMenu;
class QSplitter;
class QTabWidget;

namespace tarvokol {

class MapPage;
class NoticeBar;
class ProjectPanel;
class RiskPage;
class StudyPage;
class TablePage;

class StudiesWindow : public QMainWindow {
    Q_OBJECT

  public:
    StudiesWindow();
    ~StudiesWindow() override;

    StudyModel& Model() { return model_; }

    // Opens a project or a kept study; what stands in the way is told in the window. Asks about unsaved changes first.
    void OpenPath(const std::string& path);

    // Keeps the study in a file: the project's figures and what every page asks for.
    void KeepStudyIn(const std::string& path);

    // Asks about unsaved changes, and saves; false if the user wants to stay.
    bool MayLeave();

    // Keeps unsaved changes where the next start of the main program finds them.
    void KeepUnsavedWork() { unsaved_.KeepNow(); }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void BuildPages();
    void BuildFileMenu();
    void BuildEditMenu();
    void BuildPictureMenu();
    void BuildViewMenu();
    void BuildHelpMenu();
    void BuildToolbar();
    QAction* Add(QMenu* menu, const QString& name, const QString& caption, const QKeySequence& keys,
                 void (StudiesWindow::*handler)());
    void Restore();
    void RestoreRanges();
    void Remember();
    void RememberRangesNow() const;

    void actNew_Triggered();
    void actNewMetric_Triggered();
    void actOpen_Triggered();
    void actSave_Triggered();
    void actSaveAs_Triggered();
    void actPrint_Triggered();
    void actUndo_Triggered();
    void actRedo_Triggered();
    void actCopyPicture_Triggered();
    void actSavePicture_Triggered();
    void actKeepStudy_Triggered();
    void actCopyFigures_Triggered();
    void actSaveFigures_Triggered();
    void actCopyCommand_Triggered();
    void actCopyWidthCommand_Triggered();
    void actNextPage_Triggered();
    void actHelpPage_Triggered();
    void actHelpContents_Triggered();
    void actAbout_Triggered();
    void Recent_AboutToShow();
    void Recent_Triggered(QAction* action);
    void Model_Changed();
    void File_Changed();
    void Page_Shown();

    void CopyCommand(const std::string& command);
    void OpenDropped(const std::string& path);
    void OpenProjectFile(const std::string& path);
    void OpenStudyFile(const std::string& path);
    std::string OpenProjectOf(const KeptStudy& study, const std::string& project);
    void ShowStudy(const KeptStudy& study);
    void TellOfStudysProject(const std::string& project, const std::string& fault, const KeptStudy& study,
                             const NamedPanel& held);
    KeptStudy StudyNow(const std::string& path) const;
    void NewProject(std::int16_t unit_system);
    void TellThatFileChanged();
    void Reload();
    bool Save();
    bool SaveTo(const std::string& path);
    bool AskPathAndSave();
    void WatchFile();
    void TellFault(const std::string& about, const std::string& fault);
    void OfferCopy(const std::string& path, const std::string& fault);
    StudyPage& Page() const;
    void ShowPage(std::optional<StudyPages> page);
    std::string AskForPath(const std::string& title, const std::string& name, const std::string& filter,
                           const std::string& extension);

    StudyModel model_;
    UnsavedWork unsaved_;
    QFileSystemWatcher watcher_;
    QSplitter* splitter_ = nullptr;
    ProjectPanel* panel_ = nullptr;
    QTabWidget* pages_ = nullptr;
    MapPage* map_ = nullptr;
    RiskPage* risk_ = nullptr;
    TablePage* table_ = nullptr;
    NoticeBar* notice_ = nullptr;
    QMenu* recent_ = nullptr;
    QAction* undo_ = nullptr;
    QAction* redo_ = nullptr;
    std::string watched_;
    bool tells_file_change_ = false;  // whoever has closed that line is not told again
};

}  // namespace tarvokol
