// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tarvokol {

// A viewer of compiled help; `file` is the run-time help file's full name.
class HelpViewer {
  public:
    virtual ~HelpViewer() = default;

    virtual void ShowContents(const std::string& file) = 0;
    virtual void ShowIndex(const std::string& file) = 0;
    virtual void ShowTopic(const std::string& file, const std::string& topic) = 0;
    virtual void Uninitialize(const std::string& file) = 0;
};

}  // namespace tarvokol
