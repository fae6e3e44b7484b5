// SPDX-License-Identifier: GPL-3.0-or-later
// The worked panel as a project's file.
#pragma once

#include <string>

namespace tarvokol {

// Its webs have the factor 471.99928 / depth.
inline std::string WorkedProjectBytes() {
    return "TARVOKOL_101\r\n 0 \r\nWorked panel\r\n##StartDesc##\r\nOf the "
           "tests\r\n##EndDesc##\r\n10\r\n100\r\n10\r\n"
           "10\r\n20\r\n 5 \r\n90\r\n1000000\r\n900\r\n162\r\n21\r\n1.6\r\n2\r\n0\r\n";
}

}  // namespace tarvokol
