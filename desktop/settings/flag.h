// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

class QCheckBox;

namespace tarvokol {

// A check box and the setting that it shows.
struct Flag {
    QCheckBox* box;
    int16_t* setting;
};

}  // namespace tarvokol
