// SPDX-License-Identifier: GPL-3.0-or-later
// Reads doubles, writes their tangents: the machine's own bytes on both sides. With "whole" each goes the
// last of the three steps.
#include <cstdio>
#include <cstring>

#include "core/engine/tangent.h"

int main(int argc, char** argv) {
    const bool whole = argc > 1 && std::strcmp(argv[1], "whole") == 0;
    double angle = 0;
    while (std::fread(&angle, sizeof angle, 1, stdin) == 1) {
        const double tangent = whole ? tarvokol::TangentInWholeNumbers(angle) : tarvokol::Tangent(angle);
        if (std::fwrite(&tangent, sizeof tangent, 1, stdout) != 1) return 1;
    }
    return 0;
}
