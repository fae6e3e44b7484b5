// SPDX-License-Identifier: GPL-3.0-or-later
// Times programs from their start to the first paint of their main window, and reads their resident memory
// and processor time at that moment. The programs run as they are: the screen is painted in a colour that no
// window has, and the moment when the middle of a window no longer shows it is the first paint.
//
// Usage: first_paint RUNS PROGRAM...   on an X display without a window manager
// Prints one line a program: the medians of the runs; then the ratios of each program to the first.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <signal.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace {

using Clock = std::chrono::steady_clock;

constexpr unsigned long kBareScreen = 0x00ff00fe;
constexpr int kSmallestWindow = 200;  // pixels; smaller ones are the toolkit's own
constexpr auto kPatience = std::chrono::seconds(20);
constexpr auto kBetweenLooks = std::chrono::microseconds(300);
// Time in which what is still under way after the first paint ends, before the memory is read.
constexpr auto kSettling = std::chrono::milliseconds(300);

struct Figures {
    double paint_ms = 0;
    double processor_ms = 0;  // until the program has settled
    double resident_mb = 0;
};

class WatchedScreen {
  public:
    WatchedScreen() : display_(XOpenDisplay(nullptr)) {
        if (display_ == nullptr) throw std::runtime_error("no display");
        // A window may go while it is looked at.
        XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
        root_ = DefaultRootWindow(display_);
        XSetWindowBackground(display_, root_, kBareScreen);
    }
    ~WatchedScreen() { XCloseDisplay(display_); }
    WatchedScreen(const WatchedScreen&) = delete;
    WatchedScreen& operator=(const WatchedScreen&) = delete;

    void Clear() {
        XClearWindow(display_, root_);
        XSync(display_, False);
    }

    bool ShowsPaintedWindow() {
        Window ignored_root = 0, parent = 0, *children = nullptr;
        unsigned count = 0;
        if (XQueryTree(display_, root_, &ignored_root, &parent, &children, &count) == 0) return false;
        const bool painted =
            std::any_of(children, children + count, [this](Window w) { return IsPainted(w); });
        if (children != nullptr) XFree(children);
        return painted;
    }

  private:
    bool IsPainted(Window window) {
        XWindowAttributes about{};
        if (XGetWindowAttributes(display_, window, &about) == 0 || about.map_state != IsViewable)
            return false;
        if (about.width < kSmallestWindow || about.height < kSmallestWindow) return false;
        return PixelOf(window, about.width / 2, about.height / 2) != kBareScreen;
    }

    unsigned long PixelOf(Window window, int x, int y) {
        XImage* image = XGetImage(display_, window, x, y, 1, 1, AllPlanes, ZPixmap);
        if (image == nullptr) return kBareScreen;
        const unsigned long pixel = XGetPixel(image, 0, 0) & 0x00ffffff;
        XDestroyImage(image);
        // A window without a colour of its own is black before it is painted.
        return pixel == 0 ? kBareScreen : pixel;
    }

    Display* display_;
    Window root_;
};

double Milliseconds(const timeval& time) {
    return 1e3 * static_cast<double>(time.tv_sec) + 1e-3 * static_cast<double>(time.tv_usec);
}

double ResidentMegabytes(pid_t program) {
    std::ifstream status("/proc/" + std::to_string(program) + "/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmRSS:", 0) == 0) return std::stod(line.substr(6)) / 1024;
    return 0;
}

pid_t Start(const std::string& path) {
    std::string word = path;
    char* arguments[] = {word.data(), nullptr};
    pid_t program = 0;
    if (posix_spawn(&program, path.c_str(), nullptr, nullptr, arguments, environ) != 0)
        throw std::runtime_error("cannot start " + path);
    return program;
}

double End(pid_t program) {
    kill(program, SIGKILL);
    rusage used{};
    int status = 0;
    wait4(program, &status, 0, &used);
    return Milliseconds(used.ru_utime) + Milliseconds(used.ru_stime);
}

Figures Measure(WatchedScreen& screen, const std::string& path) {
    screen.Clear();
    const auto begin = Clock::now();
    const pid_t program = Start(path);
    Figures figures;
    while (!screen.ShowsPaintedWindow()) {
        if (Clock::now() - begin > kPatience) {
            End(program);
            throw std::runtime_error("no painted window of " + path);
        }
        std::this_thread::sleep_for(kBetweenLooks);
    }
    figures.paint_ms = std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
    std::this_thread::sleep_for(kSettling);
    figures.resident_mb = ResidentMegabytes(program);
    figures.processor_ms = End(program);
    return figures;
}

double Median(std::vector<Figures> runs, double Figures::*figure) {
    std::sort(runs.begin(), runs.end(),
              [figure](const Figures& a, const Figures& b) { return a.*figure < b.*figure; });
    return runs[runs.size() / 2].*figure;
}

Figures Medians(const std::vector<Figures>& runs) {
    return {Median(runs, &Figures::paint_ms), Median(runs, &Figures::processor_ms),
            Median(runs, &Figures::resident_mb)};
}

// The programs take turns, so that what else the machine does meets all of them.
std::vector<Figures> MeasureAll(WatchedScreen& screen, const std::vector<std::string>& programs, int count) {
    std::vector<std::vector<Figures>> runs(programs.size());
    for (const std::string& program : programs) Measure(screen, program);  // fills the disk cache
    for (int run = 0; run < count; ++run)
        for (std::size_t i = 0; i < programs.size(); ++i) runs[i].push_back(Measure(screen, programs[i]));
    std::vector<Figures> medians;
    for (const auto& of_program : runs) medians.push_back(Medians(of_program));
    return medians;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: first_paint RUNS PROGRAM...\n");
        return 2;
    }
    try {
        const std::vector<std::string> programs(argv + 2, argv + argc);
        WatchedScreen screen;
        const std::vector<Figures> medians = MeasureAll(screen, programs, std::max(1, std::atoi(argv[1])));
        for (std::size_t i = 0; i < programs.size(); ++i)
            std::printf("%-50s first paint %6.1f ms, processor time %6.1f ms, resident %5.1f MB\n",
                        programs[i].c_str(), medians[i].paint_ms, medians[i].processor_ms,
                        medians[i].resident_mb);
        for (std::size_t i = 1; i < programs.size(); ++i)
            std::printf("ratio: first paint %.2f, processor time %.2f, resident %.2f\n",
                        medians[i].paint_ms / medians[0].paint_ms,
                        medians[i].processor_ms / medians[0].processor_ms,
                        medians[i].resident_mb / medians[0].resident_mb);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "first_paint: %s\n", error.what());
        return 1;
    }
    return 0;
}
