// SPDX-License-Identifier: GPL-3.0-or-later
// Failures of the operating system as run-time error numbers.
#pragma once

#include <string>

namespace tarvokol {

// The run-time error number of an errno value ("File not found" for a missing file).
int ErrorNumberOfErrno(int error);

// The same for a failed access to `path`: a missing folder on the way gives "Path not found".
int ErrorNumberOfErrno(int error, const std::string& path);

}  // namespace tarvokol
