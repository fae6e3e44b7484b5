// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop program.
#include <cstdlib>
#include <optional>
#include <thread>

#include <fontconfig/fontconfig.h>

#include "desktop/main/desktop_program.h"
#include "qt/session/display_watch.h"
#include "qt/session/program_application.h"

int main(int argc, char** argv) {
    using namespace tarvokol;
    if (AnswersOnTerminal(argc, argv)) return EXIT_SUCCESS;
    // Before the first text shows, the system's fifty files on fonts are read; a seventh of the start. That needs no toolkit,
    // so it is done while the toolkit connects to the screen.
    std::thread fonts([] { FcInit(); });
    std::optional<DisplayWatch> watch(std::in_place);
    ProgramApplication application(argc, argv);
    watch.reset();
    fonts.join();
    return RunDesktop(application);
}
