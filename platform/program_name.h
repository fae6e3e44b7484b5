#pragma once

#include <string>

namespace tarvokol {

// The running program's file name without folder and extension, in upper case, as captions, the file dialog's
// filter and the print header show it.
std::string ProgramNameUpper();

}  // namespace tarvokol
