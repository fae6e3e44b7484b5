// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/picture_file.h"

#include "core/files/file_replacement.h"

namespace tarvokol {

void WritePictureFile(const std::string& path, const QByteArray& bytes) {
    ReplaceWholeFile(path, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

}  // namespace tarvokol
