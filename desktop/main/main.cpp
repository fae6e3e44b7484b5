// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop program.
#include <cstdlib>
#include <thread>

#include <fontconfig/fontconfig.h>

#include "desktop/main/desktop_program.h"
#include "qt/session/program_application.h"

int main(int argc, char** argv) {
    using namespace tarvokol;
    if (AnswersOnTerminal(argc, argv)) return EXIT_SUCCESS;
    // Before the first text shows, the system's fifty files on fonts are read; a seventh of the start. That needs no toolkit,
    // so it is done while the toolkit connects to the screen.
    std::thread fonts([] { FcInit(); });
    ProgramApplication application(argc, argv);
    fonts.join();
    return RunDesktop(application);
}
