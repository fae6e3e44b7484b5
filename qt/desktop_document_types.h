#pragma once

#include <QString>

#include "core/platform/document_types.h"

namespace tarvokol {

// Document types of the current user: a MIME type with the file pattern, a desktop entry with the command,
// and the entry that makes it the type's default, all below the user's data folder.
class DesktopDocumentTypes : public DocumentTypes {
  public:
    void Register(const DocumentType& type) override;
};

// The MIME name of a type: "tarvokol.Document" is "application/x-tarvokol.document".
QString MimeNameOf(const DocumentType& type);

// `list` (the text of a mimeapps.list) with `entry` as the default program of `mime`; everything else stays.
QString WithDefaultProgram(const QString& list, const QString& mime, const QString& entry);

}  // namespace tarvokol
