// SPDX-License-Identifier: GPL-3.0-or-later
// The font of every program with windows.
#pragma once

namespace tarvokol {

// The desktop's font and size are the program's. Where no desktop names one, the toolkit has a generic name, and the family
// that the system falls back on for it varies with what else is installed: the program then has a font of its own.
void SetProgramFont();

}  // namespace tarvokol
