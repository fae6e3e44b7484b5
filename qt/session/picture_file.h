// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <string>

namespace tarvokol {

// Writes a finished picture to a file; an existing one stands until the new one is whole. Raises the errors of the
// files.
void WritePictureFile(const std::string& path, const QByteArray& bytes);

}  // namespace tarvokol
