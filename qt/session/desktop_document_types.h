// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "core/platform/document_types.h"

namespace tarvokol {

// Document types of the current user: a MIME type with the file pattern and a desktop entry with the command in the
// user's data folder, and the line that makes the entry the type's default in the user's configuration folder. Type and
// entry go by the names that an installed package gives them; its entry is used where it starts the same program.
class DesktopDocumentTypes : public DocumentTypes {
  public:
    void Register(const DocumentType& type) override;
};

// The MIME name of a type: "tarvokol.Document" is "application/x-tarvokol".
QString MimeNameOf(const DocumentType& type);

// `list` (the text of a mimeapps.list) with `entry` as the default program of `mime` and not among those
// taken off it; everything else stays.
QString WithDefaultProgram(const QString& list, const QString& mime, const QString& entry);

}  // namespace tarvokol
