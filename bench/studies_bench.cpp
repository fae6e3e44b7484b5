// SPDX-License-Identifier: GPL-3.0-or-later
// How soon the window of the studies follows the hand: from a slider's step to the painted map, from the pointer to the
// read-out, from a changed figure to the painted risk, an edited cell, an imported table, and closing.
//
// Usage: bench_studies [STEPS]   prints a table; exit status 1 if a figure is above its limit
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QSlider>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bench/saved_project.h"
#include "core/headless/headless_platform.h"
#include "core/platform/message_box.h"
#include "core/platform/platform.h"
#include "qt/charts/study_view.h"
#include "qt/session/qt_text.h"
#include "studies/pages/map_page.h"
#include "studies/pages/risk_page.h"
#include "studies/pages/sheet_model.h"
#include "studies/pages/table_page.h"
#include "studies/window/studies_window.h"

namespace tarvokol {
namespace {

int Missed = 0;

double Milliseconds(const std::function<void()>& work) {
    QElapsedTimer clock;
    clock.start();
    work();
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

void Tell(const char* what, std::vector<double> times, double median_limit, double worst_limit) {
    std::sort(times.begin(), times.end());
    const double median = times[times.size() / 2];
    const bool missed = median > median_limit || times.back() > worst_limit;
    std::printf("%-52s median %8.3f ms (limit %g), worst of %zu %8.3f ms (limit %g)%s\n", what, median,
                median_limit, times.size(), times.back(), worst_limit, missed ? "  ABOVE" : "");
    Missed += missed ? 1 : 0;
}

void WaitUntil(const std::function<bool()>& condition) {
    while (!condition()) QApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
}

template <typename Page>
Page& ShowPage(StudiesWindow& window) {
    auto* page = window.findChild<Page*>();
    window.findChild<QTabWidget*>("Pages")->setCurrentWidget(page);
    QApplication::processEvents();
    return *page;
}

// Between two steps there is nothing to be painted of the first one.
void MeasureMap(StudiesWindow& window, int steps) {
    MapPage& page = ShowPage<MapPage>(window);
    page.View().setFixedSize(640, 480);
    WaitUntil([&] { return !page.IsBusy(); });
    QApplication::processEvents();
    bool shown = false;
    QObject::connect(&page, &MapPage::Shown, &page, [&shown] { shown = true; });
    auto& slider = *window.findChild<QSlider*>("CoalStrength_Slider");
    std::vector<double> painted, read;
    for (int step = 0; step < steps; ++step) {
        painted.push_back(Milliseconds([&] {
            shown = false;
            slider.setValue(slider.minimum() + step % (slider.maximum() - slider.minimum()));
            WaitUntil([&shown] { return shown; });
            page.View().repaint();
        }));
        QApplication::processEvents();
    }
    Tell("slider to painted map of 241 x 241", painted, 16, 33);
    for (int step = 0; step < steps; ++step)
        read.push_back(Milliseconds([&] { emit page.View().Pointed(3.0 + 0.001 * step, 150); }));
    Tell("pointer to read-out of six figures", read, 1, 5);
}

void MeasureRisk(StudiesWindow& window, int steps) {
    RiskPage& page = ShowPage<RiskPage>(window);
    auto& view = *window.findChild<StudyView*>("Risk_View");
    WaitUntil([&] { return !page.IsBusy() && !std::holds_alternative<std::monostate>(page.PictureNow()); });
    auto& slider = *window.findChild<QSlider*>("CoalStrength_Slider");
    std::vector<double> painted;
    for (int step = 0; step < steps; ++step) {
        const auto words = [&page] { return std::get<SpreadPicture>(page.PictureNow()).words.front(); };
        const std::string before = words();
        painted.push_back(Milliseconds([&] {
            slider.setValue(slider.minimum() + 1 + (step * 7) % (slider.maximum() - slider.minimum() - 1));
            WaitUntil([&] { return words() != before; });
            view.repaint();
        }));
    }
    Tell("risk of 100,000 samples to painted picture", painted, 50, 150);
}

void MeasureTable(StudiesWindow& window, const QTemporaryDir& folder) {
    constexpr int kRows = 100000;
    std::string csv = "Hole,DepthCover,Height\n";
    for (int row = 0; row < kRows; ++row)
        csv += "H" + std::to_string(row) + "," + std::to_string(50 + row % 400) + ",5\n";
    const std::string path = FromQt(folder.filePath("rows.csv"));
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr || std::fwrite(csv.data(), 1, csv.size(), file) != csv.size())
        std::exit(EXIT_FAILURE);
    std::fclose(file);
    TablePage& page = ShowPage<TablePage>(window);
    auto& view = *window.findChild<QTableView*>("Table_View");
    Tell("import of 100,000 rows", {Milliseconds([&] {
             page.OpenTable(path);
             view.viewport()->repaint();
         })},
         1000, 1000);
    std::vector<double> edited;
    for (int row = 0; row < 20; ++row)
        edited.push_back(Milliseconds([&] {
            page.Sheet().setData(page.Sheet().index(row, 1), QString::number(100 + row), Qt::EditRole);
            view.viewport()->repaint();
        }));
    Tell("edited cell to painted row", edited, 16, 33);
    Tell("100,000 rows sorted by a factor", {Milliseconds([&] {
             page.Sheet().sort(4, Qt::AscendingOrder);
             view.viewport()->repaint();
         })},
         1000, 1000);
}

// While four million samples are drawn.
void MeasureClosing(StudiesWindow& window) {
    RiskPage& page = ShowPage<RiskPage>(window);
    RiskPlan plan = page.Plan();
    plan.samples = kMostPlannedSamples;
    page.Choose(plan);
    WaitUntil([&] { return page.IsBusy(); });
}

int Measure(int steps) {
    const QTemporaryDir folder;
    const SavedProject saved;
    auto window = std::make_unique<StudiesWindow>();
    window->resize(1180, 720);
    window->show();
    window->OpenPath(ProjectFileName);
    MeasureMap(*window, steps);
    MeasureRisk(*window, std::min(steps, 100));
    MeasureTable(*window, folder);
    MeasureClosing(*window);
    static_cast<HeadlessMessageBox&>(*Platform.Messages).Answers = {box_result::No};
    Tell("closing while four million samples are drawn", {Milliseconds([&] {
             window->close();
             window.reset();
         })},
         100, 100);
    return Missed == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace tarvokol

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir configuration;
    qputenv("XDG_CONFIG_HOME", configuration.path().toUtf8());
    QApplication application(argc, argv);
    return tarvokol::Measure(argc > 1 ? std::max(1, std::atoi(argv[1])) : 1000);
}
