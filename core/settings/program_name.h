// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tarvokol {

// The running program's file name without folder and extension: "tarvokol".
std::string ProgramName();

// The same in upper case, as captions, the file dialog's filter and the print header show it.
std::string ProgramNameUpper();

// That of the running program; set first at start-up, never changed. Written by core/program/built_in_values.
inline std::string ExeNameUpper;

}  // namespace tarvokol
