// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tarvokol {

// The three facts of a file association.
struct DocumentType {
    std::string extension;    // "TKL", no dot
    std::string type_name;    // "tarvokol.Document"
    std::string description;  // "tarvokol Document"
    std::string command;      // as it is shown to the user
    std::string program;      // full name of the executable that the desktop shall start
};

class DocumentTypes {
  public:
    virtual ~DocumentTypes() = default;

    // Registers the type for the current user. Failures are not reported.
    virtual void Register(const DocumentType& type) = 0;
};

}  // namespace tarvokol
