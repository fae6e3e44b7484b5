// SPDX-License-Identifier: GPL-3.0-or-later
// How long every form takes to open, first and later in one run of the program, and how long the plan of
// twenty pillars takes to draw. A form is open when it has been painted. Wall time and processor time are
// reported; the limits hold for processor time, so that other work of the machine does not decide.
//
// Usage: bench_dialogs [LATER_OPENINGS]   prints a table; exit status 1 if a figure is above its limit
#include <QAction>
#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

#include "bench/saved_project.h"
#include "core/graphics/TarvoGraf.h"
#include "core/program/start_up.h"
#include "core/project/curves.h"
#include "core/project/lifecycle.h"
#include "core/project/parameter_texts.h"
#include "core/report/report_builder.h"
#include "core/report/results_state.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "core/settings/option_settings.h"
#include "desktop/base/form_registry.h"
#include "desktop/main/frmMain.h"
#include "desktop/main/main_window_binding.h"
#include "qt/plan/plan_sheet.h"
#include "qt/session/qt_screen_fonts.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

constexpr double kFirstLimit = 250;  // milliseconds
constexpr double kLaterLimit = 100;
constexpr double kRedrawLimit = 4;

struct Time {
    double wall_ms = 0;
    double processor_ms = 0;
};

class Stopwatch {
  public:
    Time Elapsed() const {
        const auto wall = std::chrono::steady_clock::now() - wall_;
        return {std::chrono::duration<double, std::milli>(wall).count(),
                1e3 * static_cast<double>(std::clock() - processor_) / CLOCKS_PER_SEC};
    }

  private:
    std::chrono::steady_clock::time_point wall_ = std::chrono::steady_clock::now();
    std::clock_t processor_ = std::clock();
};

// Runs events until the form's first paint, told by the form itself.
class FirstPaint : public QObject {
  public:
    explicit FirstPaint(QObject& form) { form.installEventFilter(this); }
    bool Done = false;

  private:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) Done = true;
        return false;
    }
};

void WaitForPaint(QWidget& form) {
    FirstPaint paint(form);
    form.update();
    while (!paint.Done) QApplication::processEvents();
    QApplication::sendPostedEvents();
}

void TakeAway(FormBase& form) {
    form.Abandon();
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

using Opener = std::function<Time()>;

Opener Modeless(const char* name) {
    return [name] {
        const Stopwatch watch;
        FormBase& form = FormNamed(name);
        form.ShowModeless();
        WaitForPaint(form);
        const Time time = watch.Elapsed();
        TakeAway(form);
        return time;
    };
}

// `open` returns once the form of that name is unloaded again, which happens as soon as it has been painted.
Time TimeOfModal(const char* name, const std::function<void()>& open,
                 const std::function<void(FormBase&)>& inside = {}) {
    Time time;
    const Stopwatch watch;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        FormBase* form = FindForm(name);
        if (form == nullptr || !form->isVisible()) return;
        look.stop();
        WaitForPaint(*form);
        time = watch.Elapsed();
        if (inside) inside(*form);
        form->Unload();
    });
    look.start(0);
    open();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return time;
}

void OpenStabilityGraph() {
    if (ComputeStabilityCurves(1)) ShowGraphForm("frmGraph", 1, nullptr);
}

void OpenSizingGraph() {
    if (ComputeSizingCurve(0)) ShowGraphForm("frmGraphS", 0, nullptr);
}

Opener Graph(const char* name, void (*open)()) {
    return [=] { return TimeOfModal(name, open); };
}

Opener GraphOptions(const char* graph, void (*open)(), const char* options) {
    return [=] {
        Time time;
        TimeOfModal(graph, open, [&](FormBase& form) {
            auto* command = form.findChild<QAction*>("GraphOptionsItem_1");
            time = TimeOfModal(options, [command] { command->trigger(); });
        });
        return time;
    };
}

// The slowest of the later openings counts least by accident: the median is reported.
Time MedianOf(std::vector<Time> times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end(),
                     [](const Time& a, const Time& b) { return a.processor_ms < b.processor_ms; });
    return *middle;
}

bool Report(const std::string& name, const Opener& open, int later_openings) {
    const Time first = open();
    std::vector<Time> times;
    for (int i = 0; i < later_openings; ++i) times.push_back(open());
    const Time later = MedianOf(times);
    const bool within = first.processor_ms < kFirstLimit && later.processor_ms < kLaterLimit;
    std::printf("%-14s %8.1f %8.1f   %8.1f %8.1f%s\n", name.c_str(), first.wall_ms, first.processor_ms,
                later.wall_ms, later.processor_ms, within ? "" : "   above the limit");
    std::fflush(stdout);
    return within;
}

bool ReportRedraw() {
    constexpr int kRuns = 200;
    FormBase& form = FormNamed("frmPicture");
    form.ShowModeless();
    WaitForPaint(form);
    auto& sheet = *form.findChild<PlanSheet*>("client");
    const Stopwatch watch;
    for (int i = 0; i < kRuns; ++i) {
        sheet.Draw([](DrawingSurface& surface) { DrawPanelPlot(surface); });
        sheet.repaint();
    }
    const Time all = watch.Elapsed();
    std::printf("\nredraw of the plan, %d pillars, %d x %d pixels: %.2f ms wall, %.2f ms processor\n",
                ProjectRecord.NumberHoles, sheet.width(), sheet.height(), all.wall_ms / kRuns,
                all.processor_ms / kRuns);
    TakeAway(form);
    return all.processor_ms / kRuns < kRedrawLimit;
}

// The program as after its start, with the project open and its results calculated.
void Start(const QTemporaryDir& folder) {
    const PanelInputs project = ProjectRecord;
    InitializeProgram();
    DataPath = PersonalDataFolder = TempDataFolder = FromQt(folder.path()) + "/";
    ShowDisclaim = RemindAnnualUpdates = ShowInputScreenOnLoad = 0;
    FileNew(true, true);
    frmMain& window = frmMain::Instance();
    window.ShowModeless();
    WaitForPaint(window);
    ProjectRecord = project;
    ProjectEmpty = 0;
    CalculateReport(ProjectRecord);
    LoadOutBuf0(0);
    LoadPreviewFromTexts(TextsOfRecord(ProjectRecord));
    PlotFromResults = true;
    ResultsReturn = results_return::FromViewer;
}

bool ReportForms(int later_openings) {
    std::printf("opening in ms        first              later (median of %d)\n", later_openings);
    std::printf("%-14s %8s %8s   %8s %8s\n", "form", "wall", "cpu", "wall", "cpu");
    bool within = true;
    for (const char* name : {"frmTARVOParm", "frmTARVODesc", "frmResTxtPlt", "frmPreview", "frmPicture",
                             "frmSet", "frmPath", "frmTARVOOpts", "frmUnits", "frmConvert", "frmTextBrow",
                             "frmResource", "frmDisclaimer", "frmUpdate"})
        within &= Report(name, Modeless(name), later_openings);
    within &= Report("frmGraph", Graph("frmGraph", OpenStabilityGraph), later_openings);
    within &=
        Report("frmGraphOpt", GraphOptions("frmGraph", OpenStabilityGraph, "frmGraphOpt"), later_openings);
    within &= Report("frmGraphS", Graph("frmGraphS", OpenSizingGraph), later_openings);
    within &=
        Report("frmGraphOptS", GraphOptions("frmGraphS", OpenSizingGraph, "frmGraphOptS"), later_openings);
    return within;
}

}  // namespace
}  // namespace tarvokol

int main(int argc, char** argv) {
    using namespace tarvokol;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // The offscreen platform tells of each window operation that it has no use for.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    const int later_openings = argc > 1 ? std::max(1, std::atoi(argv[1])) : 9;
    const QTemporaryDir folder;
    const SavedProject project;
    QtScreenFonts fonts;
    MainWindowBinding main_window;
    Platform.Fonts = &fonts;
    Platform.MainWindow = &main_window;
    Start(folder);
    bool within = ReportForms(later_openings);
    within &= ReportRedraw();
    UnloadAllForms();
    return within ? 0 : 1;
}
