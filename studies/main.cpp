// SPDX-License-Identifier: GPL-3.0-or-later
// The program of the studies.
#include <cstdlib>
#include <optional>

#include "qt/session/display_watch.h"
#include "qt/session/program_application.h"
#include "studies/window/studies_program.h"

int main(int argc, char** argv) {
    using namespace tarvokol;
    if (AnswersOfStudies(argc, argv)) return EXIT_SUCCESS;
    std::optional<DisplayWatch> watch(std::in_place);
    ProgramApplication application(argc, argv);
    watch.reset();
    return RunStudies(application);
}
