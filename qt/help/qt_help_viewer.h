// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/platform/help_viewer.h"

namespace tarvokol {

class HelpWindow;

// Compiled help in a window of its own. The run-time help file's base name says which compiled file stands
// beside it: "TARVOKOL.CHM" is read from "TARVOKOL.qch".
class QtHelpViewer : public HelpViewer {
  public:
    QtHelpViewer();
    ~QtHelpViewer() override;

    void ShowContents(const std::string& file) override;
    void ShowIndex(const std::string& file) override;
    void ShowTopic(const std::string& file, const std::string& topic) override;
    void Uninitialize(const std::string& file) override;

    // The window, for as long as there is one; nullptr otherwise.
    HelpWindow* Window() const { return window_.get(); }

  private:
    HelpWindow& WindowFor(const std::string& file);

    std::unique_ptr<HelpWindow> window_;
};

}  // namespace tarvokol
