#pragma once

#include <QByteArray>
#include <string>

namespace tarvokol {

// Writes a finished picture to a file; an existing one is replaced. Raises the error of the operating system.
void WritePictureFile(const std::string& path, const QByteArray& bytes);

}  // namespace tarvokol
