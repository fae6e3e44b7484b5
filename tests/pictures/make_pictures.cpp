// SPDX-License-Identifier: GPL-3.0-or-later
// Loads the real forms with an example project, offscreen, and keeps a picture of each:
//
//     make_pictures PROJECT.TKL FOLDER [dark]
//
// The dialogs that list folders are taken only where the folder kDocuments exists: the script that runs this
// program makes one that nobody else sees, so that no picture shows the machine it was made on.
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPalette>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/graphics/TarvoGraf.h"
#include "core/headless/headless_platform.h"
#include "core/messages/history_log.h"
#include "core/program/start_up.h"
#include "core/project/curves.h"
#include "core/project/file_names.h"
#include "core/project/lifecycle.h"
#include "core/project/parameter_texts.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/report/report_builder.h"
#include "core/report/results_state.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "core/settings/option_settings.h"
#include "desktop/base/form_registry.h"
#include "desktop/main/frmMain.h"
#include "desktop/main/frmUnsaved.h"
#include "desktop/main/main_window_binding.h"
#include "qt/help/help_window.h"
#include "qt/help/qt_help_viewer.h"
#include "qt/session/qt_screen_fonts.h"
#include "qt/session/qt_text.h"
#include "studies/pages/compare_page.h"
#include "studies/pages/map_page.h"
#include "studies/pages/risk_page.h"
#include "studies/pages/table_page.h"
#include "studies/window/studies_window.h"

namespace tarvokol {
namespace {

constexpr const char* kDocuments = "/home/engineer/Documents";

QString Target;
std::string ProgramDir;
int Missing = 0;

void Keep(QWidget& form, const QString& name) {
    QTest::qWait(50);
    QApplication::processEvents();
    const QString path = Target + "/" + name + ".png";
    if (!form.grab().save(path)) std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
}

// Runs the work; a form that cannot be loaded is left out.
void LeaveOutOnError(const QString& name, const std::function<void()>& work) {
    try {
        work();
    } catch (const RunTimeError& error) {
        std::fprintf(stderr, "%s left out: %s\n", qPrintable(name), error.what());
        ++Missing;
    }
}

void KeepForm(const QString& name) {
    LeaveOutOnError(name, [&] {
        FormBase& form = FormNamed(FromQt(name));
        form.ShowModeless();
        Keep(form, name);
        form.Unload();
        QApplication::processEvents();
    });
}

void Press(QWidget& form, const char* button) {
    if (auto* found = form.findChild<QAbstractButton*>(button)) found->click();
}

// The parameters dialog with the plan in its frame, and its last tab with the suggested sizes.
void KeepParameters() {
    const QString name = "frmTARVOParm";
    LeaveOutOnError(name, [&] {
        ViewChildWindow = 0;
        FormBase& form = FormNamed(FromQt(name));
        form.ShowModeless();
        Press(form, "cmdView");
        Keep(form, name);
        if (auto* tabs = form.findChild<QTabWidget*>("SSTab1")) tabs->setCurrentIndex(2);
        Press(form, "cmdSize");
        Keep(form, name + "_sizing");
        form.Unload();
        ViewChildWindow = 1;
        QApplication::processEvents();
    });
}

// Forms that show modally are taken from within: `opener` returns once the form is unloaded again.
void KeepModal(const QString& name, const std::function<void()>& opener,
               const std::function<void(FormBase&)>& inside = {}) {
    QTimer::singleShot(300, qApp, [&] {
        FormBase* form = FindForm(FromQt(name));
        if (form == nullptr) return;
        Keep(*form, name);
        if (inside) inside(*form);
        form->Unload();
    });
    LeaveOutOnError(name, opener);
    QApplication::processEvents();
}

void KeepFolderLists() {
    if (!QDir(kDocuments).exists()) return;
    KeepForm("frmPath");
    KeepForm("frmTextBrow");
}

void KeepGraph(const QString& name, int index, const QString& options) {
    KeepModal(
        name, [&] { ShowGraphForm(FromQt(name), index, nullptr); },
        [&](FormBase& graph) {
            auto* command = graph.findChild<QAction*>("GraphOptionsItem_1");
            if (command) KeepModal(options, [&] { command->trigger(); });
        });
}

// Two projects as a crash leaves them, with paths and times of nobody's machine.
void KeepUnsaved() {
    LeaveOutOnError("frmUnsaved", [] {
        std::vector<LeftCopy> copies(2);
        copies[0].project = std::string(kDocuments) + "/MyOLTEK/Ridge_Panel.TKL";
        copies[0].kept = 1714565415;
        copies[0].newer = "extraction height, typed and not yet OK";
        copies[1].project = "Untitled";
        copies[1].kept = 1714478400;
        copies[1].newer = "never saved";
        frmUnsaved& form = frmUnsaved::Instance();
        form.List(std::move(copies));
        form.ShowModeless();
        Keep(form, "frmUnsaved");
        form.Unload();
        QApplication::processEvents();
    });
}

void UseDarkPalette() {
    QPalette dark(QColor(45, 45, 48), QColor(45, 45, 48));
    dark.setColor(QPalette::Base, QColor(30, 30, 32));
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::WindowText, Qt::white);
    dark.setColor(QPalette::ButtonText, Qt::white);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, QColor(130, 130, 130));
    dark.setColor(QPalette::Link, QColor(110, 170, 255));
    QApplication::setPalette(dark);
}

// What the pictures are taken of: the project is open, nothing else of the user's is touched.
void OpenProject(const QString& project) {
    InitializeProgram();
    DataPath = PersonalDataFolder;
    ShowDisclaim = 0;
    RemindAnnualUpdates = 0;
    ShowInputScreenOnLoad = 0;
    DisplayHistoryWin = 1;
    FileNew(true, true);
    ProjectFileName = FromQt(project);
    if (!LoadProjFile()) std::fprintf(stderr, "cannot read %s\n", qPrintable(project));
    // The pictures show no folder of the machine that they are made on.
    ProjectFileName = FileNameOf(ProjectFileName, 0);
    UpdateMainCaption();
    DataPath = std::string(kDocuments) + "/MyOLTEK/";
    Platform.MainWindow->SetHistoryText("");
    HistorySequence = 0;
    LogMessage("Opening: " + ProjectFileName);
}

void KeepForms() {
    frmMain::Instance().ShowModeless();
    CalculateReport(ProjectRecord);
    LoadOutBuf0(0);
    LoadPreviewFromTexts(TextsOfRecord(ProjectRecord));
    PlotFromResults = true;
    ResultsReturn = results_return::FromViewer;
    Keep(frmMain::Instance(), "frmMain");
    ShowDisclaim = RemindAnnualUpdates = ShowInputScreenOnLoad = 1;  // as a new user finds them
    MaxDisplaySize = 4096;
    KeepParameters();
    for (const char* name :
         {"frmTARVODesc", "frmResTxtPlt", "frmPreview", "frmPicture", "frmSet", "frmTARVOOpts", "frmUnits",
          "frmConvert", "frmResource", "frmDisclaimer", "frmUpdate"}) {
        KeepForm(name);
    }
    KeepFolderLists();
    KeepUnsaved();
    ComputeStabilityCurves(1);
    KeepGraph("frmGraph", 1, "frmGraphOpt");
    ComputeSizingCurve(0);
    KeepGraph("frmGraphS", 0, "frmGraphOptS");
}

void KeepHelp() {
    QtHelpViewer viewer;
    viewer.ShowTopic(ProgramDir + "/TARVOKOL.CHM", "frmTARVOParm.htm");
    QTest::qWait(1500);  // the contents are read in the background
    Keep(*viewer.Window(), "helpWindow");
}

// The window of the studies, page by page; what is calculated beside it gets its time.
void KeepStudies(const QString& project) {
    constexpr int kCalculated = 2500;  // milliseconds
    StudiesWindow window;
    window.resize(1040, 680);
    window.show();
    window.OpenPath(FromQt(project));
    auto* pages = window.findChild<QTabWidget*>("Pages");
    const auto keep_page = [&](QWidget* page, const char* name) {
        pages->setCurrentWidget(page);
        QTest::qWait(kCalculated);
        Keep(window, name);
    };
    keep_page(window.findChild<MapPage*>(), "studies_map");
    keep_page(window.findChild<RiskPage*>(), "studies_risk");
    Press(window, "Compare_Keep");
    auto* web = window.findChild<QLineEdit*>("WebThickness_Box");
    web->selectAll();
    QTest::keyClicks(web, "4");
    Press(window, "Compare_Keep");
    Press(window, "Compare_Risks");
    keep_page(window.findChild<ComparePage*>(), "studies_compare");
    auto* table = window.findChild<TablePage*>();
    table->OpenTable(FromQt(QFileInfo(project).path() + "/Tamsin_Ridge_Boreholes.csv"));
    keep_page(table, "studies_table");
    for (int change = 0; change < 2; ++change) window.findChild<QAction*>("actUndo")->trigger();
}

}  // namespace
}  // namespace tarvokol

int main(int argc, char** argv) {
    using namespace tarvokol;
    if (argc < 3) {
        std::fprintf(stderr, "usage: make_pictures PROJECT.TKL FOLDER [dark]\n");
        return 2;
    }
    QApplication application(argc, argv);
    const QString project = QFileInfo(QString::fromLocal8Bit(argv[1])).absoluteFilePath();
    application.setStyle(QStyleFactory::create("Fusion"));
    application.setFont(QFont("Liberation Sans", 10));
    application.setQuitOnLastWindowClosed(false);
    if (argc > 3) UseDarkPalette();
    HeadlessPlatform host;
    host.Install();
    QtScreenFonts fonts;
    MainWindowBinding main_window;
    Platform.Fonts = &fonts;
    Platform.MainWindow = &main_window;
    QTemporaryDir documents;
    qputenv("XDG_CONFIG_HOME", documents.path().toUtf8());  // where windows remember their places
    ProgramDir = FromQt(QDir::cleanPath(QApplication::applicationDirPath() + "/../../bin"));
    host.Folders.Program = ProgramDir + "/tarvokol";
    host.Folders.DocumentsFolder = QDir(kDocuments).exists() ? kDocuments : FromQt(documents.path());
    Target = QDir(QString::fromLocal8Bit(argv[2])).absolutePath();
    QDir().mkpath(Target);
    LeaveOutOnError("forms", [&] {
        OpenProject(project);
        KeepForms();
    });
    KeepHelp();
    LeaveOutOnError("studies", [&] { KeepStudies(project); });
    UnloadAllForms();
    return Missing == 0 ? 0 : 1;
}
